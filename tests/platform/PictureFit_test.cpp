// SPDX-License-Identifier: MIT
#include "platform/PictureFit.h"

#include <gtest/gtest.h>

namespace scenara {
namespace {

constexpr ShownSizes kBoth[] = {ShownSizes::Any, ShownSizes::WholeMultiples};

PictureFit InView(std::int32_t boxWidth, std::int32_t boxHeight,
                  ShownSizes sizes = ShownSizes::WholeMultiples) {
    return PictureFit::In(boxWidth, boxHeight, CanvasSize(), sizes);
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

TEST(PictureFit, FillsTheBoxUnlessAWholeMultipleNearlyDoes) {
    struct {
        const char* what;
        CanvasSize box;
        CanvasSize canvas;
        CanvasSize shown;
    } const rows[] = {
        {"its own size", {320, 240}, {320, 240}, {320, 240}},
        {"high", {500, 2000}, {320, 240}, {500, 375}},
        {"wide", {2000, 450}, {320, 240}, {600, 450}},
        {"nine tenths are once", {355, 300}, {320, 240}, {320, 240}},
        {"less is not", {356, 300}, {320, 240}, {356, 267}},
        {"nine tenths of the height", {400, 266}, {320, 240}, {320, 240}},
        {"less of the height", {400, 267}, {320, 240}, {356, 267}},
        {"nearly twice", {639, 479}, {320, 240}, {638, 479}},
        {"twice and more", {700, 600}, {320, 240}, {640, 480}},
        {"five times", {1777, 1400}, {320, 240}, {1600, 1200}},
        {"a screen", {1920, 1080}, {1280, 720}, {1920, 1080}},
        {"a large screen", {3840, 2160}, {1280, 720}, {3840, 2160}},
        {"a larger canvas", {1280, 1024}, {1920, 1080}, {1280, 720}},
        {"nearly the canvas", {1919, 1080}, {1920, 1080}, {1919, 1079}},
        {"a long canvas is seen", {100, 100}, {7680, 60}, {100, 1}},
        {"a high canvas is seen", {50, 50}, {80, 4320}, {1, 50}},
        {"as far as numbers go", {2147483647, 2147483647}, {1, 1}, {2147483647, 2147483647}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        const PictureFit fit =
            PictureFit::In(row.box.width, row.box.height, row.canvas, ShownSizes::Any);
        ExpectFit(fit, (row.box.width - row.shown.width) / 2,
                  (row.box.height - row.shown.height) / 2, row.shown.width, row.shown.height);
    }
}

TEST(PictureFit, KeepsItsShapeInABoxThatIsTooSmall) {
    for (const ShownSizes sizes : kBoth) {
        ExpectFit(InView(160, 240, sizes), 0, 60, 160, 120);
        ExpectFit(InView(320, 60, sizes), 120, 0, 80, 60);
        ExpectFit(InView(200, 200, sizes), 0, 25, 200, 150);
    }
}

TEST(PictureFit, OfNoRoomIsNowhere) {
    for (const PictureFit& fit : {InView(0, 240), InView(320, 0), InView(-5, -5)}) {
        ExpectFit(fit, 0, 0, 0, 0);
        EXPECT_EQ(fit.ViewX(0), -1);
        EXPECT_EQ(fit.ViewY(7), -1);
    }
    // One pixel wide, it is one pixel high at least.
    ExpectFit(InView(1, 240), 0, 119, 1, 1);
}

TEST(PictureFit, PointsAtWhatIsDrawnUnderThePointer) {
    for (std::int32_t size = 1; size <= 1400; ++size) {
        SCOPED_TRACE(size);
        const PictureFit fit = InView(size, size, kBoth[size % 2]);
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
    for (const std::int32_t size : {64, 200, 319, 320, 481, 640, 700, 833, 960}) {
        SCOPED_TRACE(size);
        const PictureFit fit = InView(size, size, ShownSizes::Any);
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
