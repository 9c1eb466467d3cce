// SPDX-License-Identifier: MIT
#include "platform/PictureFit.h"

#include <gtest/gtest.h>

namespace scenara {
namespace {

PictureFit InView(std::int32_t boxWidth, std::int32_t boxHeight) {
    return PictureFit::In(boxWidth, boxHeight, CanvasSize());
}

void ExpectFit(const PictureFit& fit, std::int32_t left, std::int32_t top, std::int32_t width,
               std::int32_t height) {
    EXPECT_EQ(fit.left, left);
    EXPECT_EQ(fit.top, top);
    EXPECT_EQ(fit.width, width);
    EXPECT_EQ(fit.height, height);
}

TEST(PictureFit, IsTheLargestWholeMultipleInTheMiddle) {
    ExpectFit(InView(320, 240), 0, 0, 320, 240);
    ExpectFit(InView(639, 480), 159, 120, 320, 240);
    ExpectFit(InView(640, 480), 0, 0, 640, 480);
    ExpectFit(InView(1920, 1080), 320, 60, 1280, 960);
}

TEST(PictureFit, KeepsItsShapeInABoxThatIsTooSmall) {
    ExpectFit(InView(160, 240), 0, 60, 160, 120);
    ExpectFit(InView(320, 60), 120, 0, 80, 60);
    ExpectFit(InView(200, 200), 0, 25, 200, 150);
}

TEST(PictureFit, OfNoRoomIsNowhere) {
    for (const PictureFit& fit : {InView(0, 240), InView(320, 0), InView(-5, -5)}) {
        ExpectFit(fit, 0, 0, 0, 0);
        EXPECT_EQ(fit.ViewX(0), -1);
        EXPECT_EQ(fit.ViewY(7), -1);
    }
    // One pixel wide, it has no height.
    ExpectFit(InView(1, 240), 0, 120, 1, 0);
}

TEST(PictureFit, PointsAtWhatIsDrawnUnderThePointer) {
    for (std::int32_t size = 1; size <= 700; ++size) {
        SCOPED_TRACE(size);
        const PictureFit fit = InView(size, size);
        for (std::int32_t column = 0; column < fit.width; ++column) {
            ASSERT_EQ(fit.ViewX(fit.left + column), fit.ViewColumn(column));
            ASSERT_GE(fit.ViewColumn(column), 0);
            ASSERT_LT(fit.ViewColumn(column), View().width);
        }
        for (std::int32_t row = 0; row < fit.height; ++row) {
            ASSERT_EQ(fit.ViewY(fit.top + row), fit.ViewRow(row));
            ASSERT_GE(fit.ViewRow(row), 0);
            ASSERT_LT(fit.ViewRow(row), View().height);
        }
    }
}

TEST(PictureFit, TakesTheColumnUnderTheCentreOfAPixel) {
    const PictureFit fit = InView(200, 150);
    // A pixel is 1.6 columns wide, so the centres are over 0.8, 2.4 and 4.0.
    EXPECT_EQ(fit.ViewX(0), 0);
    EXPECT_EQ(fit.ViewX(1), 2);
    EXPECT_EQ(fit.ViewX(2), 4);
    EXPECT_EQ(fit.ViewY(1), 2);
    EXPECT_EQ(fit.ViewX(199), 319);
    EXPECT_EQ(fit.ViewY(149), 239);
}

TEST(PictureFit, OutsideOfThePictureIsOutsideOfTheView) {
    const PictureFit fit = InView(800, 600);  // 80 and 60 around 640 x 480
    EXPECT_EQ(fit.ViewX(79), -1);
    EXPECT_EQ(fit.ViewX(78), -1);
    EXPECT_EQ(fit.ViewX(77), -2);
    EXPECT_EQ(fit.ViewX(80), 0);
    EXPECT_EQ(fit.ViewX(719), 319);
    EXPECT_EQ(fit.ViewX(720), 320);
    EXPECT_EQ(fit.ViewY(59), -1);
    EXPECT_EQ(fit.ViewY(539), 239);
    EXPECT_EQ(fit.ViewY(540), 240);
}

TEST(PictureFit, FindsTheFirstPixelThatShowsAColumn) {
    for (const std::int32_t size : {64, 200, 319, 320, 640, 700, 960}) {
        SCOPED_TRACE(size);
        const PictureFit fit = InView(size, size);
        for (std::int32_t x = 0; x < View().width; ++x) {
            const std::int32_t first = fit.BoxX(x);
            ASSERT_GE(fit.ViewX(first), x);
            ASSERT_LT(fit.ViewX(first - 1), x);
        }
        for (std::int32_t y = 0; y < View().height; ++y) {
            const std::int32_t first = fit.BoxY(y);
            ASSERT_GE(fit.ViewY(first), y);
            ASSERT_LT(fit.ViewY(first - 1), y);
        }
    }
}

TEST(PictureFit, PlacesTheEdgesOfTheView) {
    const PictureFit fit = InView(800, 600);
    EXPECT_EQ(fit.BoxX(0), 80);
    EXPECT_EQ(fit.BoxX(320), 720);
    EXPECT_EQ(fit.BoxX(-1), 78);
    EXPECT_EQ(fit.BoxY(240), 540);
    // 1.6 columns a pixel: column 1 is in none, the next that is shown is 2, in pixel 1.
    EXPECT_EQ(InView(200, 150).BoxX(1), 1);
    EXPECT_EQ(InView(200, 150).BoxX(320), 200);
}

}  // namespace
}  // namespace scenara
