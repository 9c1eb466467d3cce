// SPDX-License-Identifier: MIT
//
// Windows that move, Deform, negative tile steps, sideways swings and the upper bound: what else
// additions change in the drawing.
#include <cstddef>
#include <limits>
#include <vector>

#include <gtest/gtest.h>

#include "render/ElementDrawing.h"
#include "render/ElementWindow.h"
#include "render/ParallaxRows.h"
#include "render/StagePlayer.h"
#include "render/Tiling.h"

namespace scenara {
namespace {

using test::Lines;
using test::StageBuilder;
using test::StagePlayer;

constexpr Single kMostSingle = std::numeric_limits<Single>::max();

// --- windows ---

BackgroundElement MovingWindow(Single deltaX, Single deltaY) {
    BackgroundElement element;
    element.windowX1 = 100;
    element.windowX2 = 149;
    element.windowY1 = 50;
    element.windowY2 = 89;
    element.windowActive = 1;
    element.windowDeltaX = deltaX;
    element.windowDeltaY = deltaY;
    return element;
}

void ExpectWindow(const ElementWindow& window, PixelRange columns, PixelRange rows) {
    EXPECT_EQ(window.columns.from, columns.from);
    EXPECT_EQ(window.columns.to, columns.to);
    EXPECT_EQ(window.rows.from, rows.from);
    EXPECT_EQ(window.rows.to, rows.to);
}

// The stored camera: x is negated.
TEST(MovingWindows, MoveAgainstTheCameraByTheirDelta) {
    // The camera at 20, -10: 10 to the left, 20 down.
    ExpectWindow(ElementWindow::Of(MovingWindow(0.5F, 2), -20, -10, View()), {90, 140}, {70, 110});
    ExpectWindow(ElementWindow::Of(MovingWindow(0.5F, 2), 20, 0, View()), {110, 160}, {50, 90});
}

TEST(MovingWindows, OfDelta0StandStill) {
    ExpectWindow(ElementWindow::Of(MovingWindow(0, 0), -200, -100, View()), {100, 150}, {50, 90});
}

TEST(MovingWindows, AtTheCamerasOriginStandWhereTheFilePutsThem) {
    ExpectWindow(ElementWindow::Of(MovingWindow(3, 3), 0, 0, View()), {100, 150}, {50, 90});
}

TEST(MovingWindows, LeaveTheView) {
    ExpectWindow(ElementWindow::Of(MovingWindow(1, 0), -120, 0, View()), {0, 30}, {50, 90});
    const ElementWindow gone = ElementWindow::Of(MovingWindow(1, 0), -200, 0, View());
    EXPECT_GE(gone.columns.from, gone.columns.to);
}

TEST(MovingWindows, OfAbsurdDeltasShowNothing) {
    for (const Single delta : {kMostSingle, -kMostSingle}) {
        const ElementWindow window =
            ElementWindow::Of(MovingWindow(delta, delta), 3e38F, 3e38F, View());
        EXPECT_GE(window.columns.from, window.columns.to);
        EXPECT_GE(window.rows.from, window.rows.to);
    }
}

TEST(MovingWindows, CutTheDrawingOfTheFrame) {
    StagePlayer player(ViewOptions{true});
    const Integer hill = player.build.Sprite("hill", 320, 240);
    BackgroundElement& element = StageBuilder::At(player.build.Still(hill), 0, 0);
    const BackgroundElement window = MovingWindow(1, 1);
    element.windowX1 = window.windowX1;
    element.windowX2 = window.windowX2;
    element.windowY1 = window.windowY1;
    element.windowY2 = window.windowY2;
    element.windowActive = 1;
    element.windowDeltaX = 1;
    element.deltaX = 0;
    player.model.CamStartX = 8;
    player.Start();
    EXPECT_EQ(player.BackPass(), (Lines{"hill 92,50 50x40 from 92,50"}));
}

// --- Deform ---

BackgroundElement Stretched(Single start, Single delta = 0) {
    BackgroundElement element;
    element.yscaleStart = start;
    element.yscaleDelta = delta;
    return element;
}

TEST(RowStretch, Is1UnlessAskedFor) {
    EXPECT_DOUBLE_EQ(RowStretch(BackgroundElement(), 0), 1);
    EXPECT_DOUBLE_EQ(RowStretch(BackgroundElement(), -100), 1);
}

TEST(RowStretch, IsTheInverseOfItsPercentage) {
    EXPECT_DOUBLE_EQ(RowStretch(Stretched(50), 0), 2);
    EXPECT_DOUBLE_EQ(RowStretch(Stretched(200), 0), 0.5);
    EXPECT_DOUBLE_EQ(RowStretch(Stretched(80), -33), 1.25);
}

TEST(RowStretch, ChangesWithTheCamerasHeight) {
    EXPECT_DOUBLE_EQ(RowStretch(Stretched(100, 1), -50), 2);     // 100 - 50
    EXPECT_DOUBLE_EQ(RowStretch(Stretched(100, -4), -25), 0.5);  // 100 + 100
    EXPECT_DOUBLE_EQ(RowStretch(Stretched(100, 1), 0), 1);
}

TEST(RowStretch, IsKeptWithinASixteenthAnd16) {
    EXPECT_DOUBLE_EQ(RowStretch(Stretched(6.25F), 0), 16);
    EXPECT_DOUBLE_EQ(RowStretch(Stretched(1), 0), 16);
    EXPECT_DOUBLE_EQ(RowStretch(Stretched(0), 0), 16);
    EXPECT_DOUBLE_EQ(RowStretch(Stretched(1600), 0), 1.0 / 16);
    EXPECT_DOUBLE_EQ(RowStretch(Stretched(1601), 0), 1.0 / 16);
    EXPECT_DOUBLE_EQ(RowStretch(Stretched(kMostSingle), 0), 1.0 / 16);
    EXPECT_DOUBLE_EQ(RowStretch(Stretched(-50), 0), 1.0 / 16) << "-2 is less than that";
    EXPECT_DOUBLE_EQ(RowStretch(Stretched(100, kMostSingle), 1000), 1.0 / 16);
}

std::vector<std::int64_t> SourceRows(std::int64_t rows, double stretch) {
    std::vector<std::int64_t> sources;
    for (std::int64_t row = 0; row < StretchedRows(rows, stretch); ++row) {
        sources.push_back(SourceRow(row, stretch));
    }
    return sources;
}

TEST(StretchedRows, ShowEachRowAsOftenAsThePictureGrows) {
    using Rows = std::vector<std::int64_t>;
    EXPECT_EQ(SourceRows(3, 1), (Rows{0, 1, 2}));
    EXPECT_EQ(SourceRows(3, 2), (Rows{0, 0, 1, 1, 2, 2}));
    EXPECT_EQ(SourceRows(3, 1.5), (Rows{0, 0, 1, 2, 2}));  // 0, .67, 1.33, 2, 2.67
    EXPECT_EQ(SourceRows(1, 16), Rows(16, 0));
}

TEST(StretchedRows, LeaveRowsOutWhereItShrinks) {
    using Rows = std::vector<std::int64_t>;
    EXPECT_EQ(SourceRows(6, 0.5), (Rows{0, 2, 4}));
    EXPECT_EQ(SourceRows(5, 0.5), (Rows{0, 2, 4}));
    EXPECT_EQ(SourceRows(100, 1.0 / 16), (Rows{0, 16, 32, 48, 64, 80, 96}));
    EXPECT_EQ(SourceRows(1, 1.0 / 16), (Rows{0}));
}

// For stretches that no binary number is: no row beyond the picture, and the last one not missing
// by more than a row of the screen.
TEST(StretchedRows, StayInsideOfThePicture) {
    for (int percent = 7; percent < 1600; ++percent) {
        const double stretch = RowStretch(Stretched(static_cast<Single>(percent)), 0);
        for (const std::int64_t rows : {1, 2, 3, 60, 240, 1000}) {
            const std::int64_t count = StretchedRows(rows, stretch);
            ASSERT_GE(count, 1) << percent;
            ASSERT_LT(SourceRow(count - 1, stretch), rows) << percent << " " << rows;
            ASSERT_GE(SourceRow(count + 1, stretch), rows) << percent << " " << rows;
        }
    }
}

class Deform : public testing::Test {
protected:
    BackgroundElement& Floor(Long x, Long y) {
        return StageBuilder::At(player.build.Parallax(floor), x, y);
    }
    Lines Draw(bool additions = true, bool deform = true) {
        player.Start();
        DrawElement(player.engine, player.model, player.Element(0), {additions, deform});
        return player.record.TakeQuads();
    }
    StagePlayer player{ViewOptions{true}};
    const Integer floor = player.build.Sprite("floor", 100, 3);
};

TEST_F(Deform, StretchesAboutTheFirstRow) {
    Floor(10, 200).yscaleStart = 50;
    EXPECT_EQ(Draw(), (Lines{"floor 10,200 100x1", "floor 10,201 100x1",
                             "floor 10,202 100x1 from 0,1", "floor 10,203 100x1 from 0,1",
                             "floor 10,204 100x1 from 0,2", "floor 10,205 100x1 from 0,2"}));
}

TEST_F(Deform, ShrinksAsWell) {
    Floor(10, 200).yscaleStart = 200;
    EXPECT_EQ(Draw(), (Lines{"floor 10,200 100x1", "floor 10,201 100x1 from 0,2"}));
}

TEST_F(Deform, FollowsTheCamera) {
    BackgroundElement& element = Floor(10, 200);
    element.yscaleDelta = 1;
    element.deltaY = 0;
    player.model.CamStartY = -50;
    EXPECT_EQ(Draw().size(), 6U);
}

TEST_F(Deform, KeepsTheHeightWithoutTheFlagAndWithoutAdditions) {
    Floor(10, 200).yscaleStart = 50;
    const Lines kept{"floor 10,200 100x1", "floor 10,201 100x1 from 0,1",
                     "floor 10,202 100x1 from 0,2"};
    EXPECT_EQ(Draw(true, false), kept);
    EXPECT_EQ(Draw(false, true), kept);
    EXPECT_EQ(Draw(false, false), kept);
}

TEST_F(Deform, IsTheViewsFlag) {
    Floor(10, 200).yscaleStart = 50;
    player.Start();
    EXPECT_EQ(player.BackPass().size(), 3U);
    player.flags.Deform = kByteTrue;
    EXPECT_EQ(player.BackPass().size(), 6U);
    player.view.Additions = false;
    EXPECT_EQ(player.BackPass().size(), 3U);
}

TEST_F(Deform, LeavesOtherKindsAlone) {
    BackgroundElement& element = StageBuilder::At(player.build.Still(floor), 10, 200);
    element.yscaleStart = 50;
    EXPECT_EQ(Draw(), (Lines{"floor 10,200 100x3"}));
}

// The shear is that of the row of the picture, not of the screen.
TEST_F(Deform, RowsKeepTheirShear) {
    BackgroundElement& element = Floor(100, 200);
    element.yscaleStart = 50;
    element.xscaleTop = 1;
    element.xscaleBottom = 2;
    player.model.CamStartX = 20;
    // 80, and 10 and 20 further left.
    EXPECT_EQ(Draw(), (Lines{"floor 80,200 100x1", "floor 80,201 100x1",
                             "floor 70,202 100x1 from 0,1", "floor 70,203 100x1 from 0,1",
                             "floor 60,204 100x1 from 0,2", "floor 60,205 100x1 from 0,2"}));
}

TEST_F(Deform, IsCutToTheWindow) {
    BackgroundElement& element = Floor(10, 200);
    element.yscaleStart = 50;
    element.windowX2 = 59;
    element.windowY1 = 203;
    element.windowY2 = 204;
    element.windowActive = 1;
    EXPECT_EQ(Draw(), (Lines{"floor 10,203 50x1 from 0,1", "floor 10,204 50x1 from 0,2"}));
}

TEST_F(Deform, DrawsNoMoreRowsThanTheViewHas) {
    const Integer tall = player.build.Sprite("tall", 100, 32767);
    BackgroundElement& element = StageBuilder::At(player.build.Parallax(tall), 10, -100000);
    element.yscaleStart = 1;
    const Lines drawn = Draw();
    ASSERT_EQ(drawn.size(), 240U);
    EXPECT_EQ(drawn.front(), "tall 10,0 100x1 from 0,6250");  // 100000 / 16
    EXPECT_EQ(drawn.back(), "tall 10,239 100x1 from 0,6264");
}

// --- tiling ---

TEST(NegativeTileStep, IsOneCopyWithAdditionsAndNoneWithout) {
    const Copies with = CopiesAlong({3, -10, 50, false, true}, 20, {0, 320});
    EXPECT_EQ(with.count, 1);
    EXPECT_EQ(with.first, 20);
    EXPECT_EQ(CopiesAlong({3, -10, 50, false, false}, 20, {0, 320}).count, 0);
}

TEST(NegativeTileStep, DrawsAStillPictureOnce) {
    StagePlayer player(ViewOptions{true});
    const Integer hill = player.build.Sprite("hill", 50, 40);
    BackgroundElement& element = StageBuilder::At(player.build.Still(hill), 10, 20);
    element.tileX = 3;
    element.tileSpacingX = -60;
    element.tileY = 2;
    element.tileSpacingY = -41;
    player.Start();
    EXPECT_EQ(player.BackPass(), (Lines{"hill 10,20 50x40"}));
    player.view.Additions = false;
    EXPECT_EQ(player.BackPass(), Lines());
}

TEST(NegativeTileStep, InOneDirectionLeavesTheOtherAsItIs) {
    StagePlayer player(ViewOptions{true});
    const Integer hill = player.build.Sprite("hill", 50, 40);
    BackgroundElement& element = StageBuilder::At(player.build.Still(hill), 10, 20);
    element.tileX = 2;
    element.tileY = 2;
    element.tileSpacingY = -41;
    player.Start();
    EXPECT_EQ(player.BackPass(), (Lines{"hill 10,20 100x40"}));
}

constexpr bool kStill = false;
constexpr bool kAnimated = true;

TEST(ScaledStep, OfAStillPictureIsRoundedAndStaysAbove0) {
    EXPECT_EQ(ScaledStep(120, 0.5F, kStill), 60);
    EXPECT_EQ(ScaledStep(121, 0.5F, kStill), 60);  // 60.5, to the even one
    EXPECT_EQ(ScaledStep(2, 0.5F, kStill), 1);
    EXPECT_EQ(ScaledStep(1, 0.5F, kStill), 1);
    EXPECT_EQ(ScaledStep(5, 0.03125F, kStill), 1);
}

TEST(ScaledStep, OfAnAnimationThatWasNotGivenStaysSo) {
    EXPECT_EQ(ScaledStep(1, 0.5F, kAnimated), 1);
    EXPECT_EQ(ScaledStep(1, 2, kAnimated), 1);
    EXPECT_EQ(ScaledStep(2, 0.5F, kAnimated), 2);
    EXPECT_EQ(ScaledStep(60, 0.5F, kAnimated), 30);
}

TEST(ScaledStep, OfNothingOrLessStaysThat) {
    for (const bool animated : {kStill, kAnimated}) {
        EXPECT_EQ(ScaledStep(0, 0.5F, animated), 0);
        EXPECT_LT(ScaledStep(-10, 0.5F, animated), 0);
    }
}

TEST(ScaledStep, OfTheLargestSpacingDoesNotRunOver) {
    EXPECT_EQ(ScaledStep(2147516414, 2, kStill), 4295032828);
}

// --- swing ---

TEST(SidewaysSwing, OfAnElementOfItsOwn) {
    StagePlayer player(ViewOptions{true});
    const Integer hill = player.build.Sprite("hill", 50, 40);
    StageBuilder::At(player.build.Still(hill), 100, 20).sinState = {8, 4, 0};
    player.Start();
    Lines drawn;
    for (int frame = 0; frame < 10; ++frame) {
        drawn.push_back(player.BackPass().at(0));
    }
    // 8 sin(pi / 4 * (frame - 1)), and 0 in the first.
    EXPECT_EQ(drawn, (Lines{"hill 100,20 50x40", "hill 100,20 50x40", "hill 106,20 50x40",
                            "hill 108,20 50x40", "hill 106,20 50x40", "hill 100,20 50x40",
                            "hill 94,20 50x40", "hill 92,20 50x40", "hill 94,20 50x40",
                            "hill 100,20 50x40"}));
}

// --- the upper bound ---

TEST(AdditionsUpperBound, IsTheFilesWithAdditionsAndRaisedWithout) {
    const auto boundOf = [](bool additions) {
        StagePlayer player(ViewOptions{additions});
        const Integer hill = player.build.Sprite("hill", 50, 40);
        StageBuilder::At(player.build.Still(hill), 0, -30);
        player.model.BoundHigh = -100;
        player.Start();
        return player.model.BoundHigh;
    };
    EXPECT_EQ(boundOf(true), -100);
    EXPECT_EQ(boundOf(false), -29);
}

}  // namespace
}  // namespace scenara
