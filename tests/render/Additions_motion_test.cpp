// SPDX-License-Identifier: MIT
//
// Windows that move, stretching, negative tile steps, sideways swings and the upper bound: what
// else additions change in the drawing.
#include <cstddef>
#include <limits>
#include <vector>

#include <gtest/gtest.h>

#include "render/ExpectRanges.h"
#include "render/ParallaxRows.h"
#include "render/StagePlayer.h"
#include "render/Tiling.h"

namespace scenara::test {
namespace {

constexpr Single kMostSingle = std::numeric_limits<Single>::max();

// --- windows ---

// From 100,50 to 149,89.
ElementWindow MovedWindow(const CameraPlace& delta, const CameraPlace& camera) {
    BackgroundElement element;
    element.windowDeltaX = delta.x;
    element.windowDeltaY = delta.y;
    return ElementWindow::Of(Windowed(element, 100, 50, 149, 89), {true, View(), camera});
}

struct MovedRanges {
    const char* name;
    CameraPlace delta;
    CameraPlace camera;
    PixelRange columns;
    PixelRange rows;
};

// The stored camera: x is negated.
TEST(MovingWindows, MoveAgainstTheCameraByTheirDelta) {
    for (const MovedRanges& row : {
             MovedRanges{"10 left, 20 down", {0.5F, 2}, {-20, -10}, {90, 140}, {70, 110}},
             {"right", {0.5F, 2}, {20, 0}, {110, 160}, {50, 90}},
             {"not by a delta of 0", {0, 0}, {-200, -100}, {100, 150}, {50, 90}},
             {"not at the camera's origin", {3, 3}, {0, 0}, {100, 150}, {50, 90}},
             {"partly out of the view", {1, 0}, {-120, 0}, {0, 30}, {50, 90}},
         }) {
        SCOPED_TRACE(row.name);
        ExpectRanges(MovedWindow(row.delta, row.camera), row.columns, row.rows);
    }
}

TEST(MovingWindows, OutOfTheViewShowNothing) {
    const ElementWindow gone = MovedWindow({1, 0}, {-200, 0});
    EXPECT_GE(gone.columns.from, gone.columns.to);
    for (const Single absurd : {kMostSingle, -kMostSingle}) {
        const ElementWindow window = MovedWindow({absurd, absurd}, {3e38F, 3e38F});
        EXPECT_GE(window.columns.from, window.columns.to);
        EXPECT_GE(window.rows.from, window.rows.to);
    }
}

TEST(MovingWindows, CutTheDrawingOfTheFrame) {
    StagePlayer player(ViewOptions{true});
    const Integer hill = player.build.Sprite("hill", 320, 240);
    BackgroundElement& element = Windowed(player.build.StillAt(hill, 0, 0), 100, 50, 149, 89);
    element.windowDeltaX = 1;
    element.deltaX = 0;
    player.model.CamStartX = 8;
    player.Start();
    EXPECT_EQ(player.BackPass(), (Lines{"hill 92,50 50x40 from 92,50"}));
}

// --- stretching ---

double StretchOf(Single start, Single delta = 0, Single camera = 0) {
    BackgroundElement element;
    element.yscaleStart = start;
    element.yscaleDelta = delta;
    return RowStretch(element, camera, 1);
}

TEST(RowStretch, Is1UnlessAskedFor) {
    EXPECT_DOUBLE_EQ(RowStretch(BackgroundElement(), 0, 1), 1);
    EXPECT_DOUBLE_EQ(RowStretch(BackgroundElement(), -100, 1), 1);
}

struct Stretch {
    const char* name;
    Single start;
    Single delta;
    Single camera;  // its height
    double stretch;
};

TEST(RowStretch, IsTheInverseOfItsPercentageWithinASixteenthAnd16) {
    for (const Stretch& row : {
             Stretch{"half", 50, 0, 0, 2},
             {"twice", 200, 0, 0, 0.5},
             {"at any height", 80, 0, -33, 1.25},
             {"100 - 50 by the camera's height", 100, 1, -50, 2},
             {"100 + 100 by the camera's height", 100, -4, -25, 0.5},
             {"at the ground", 100, 1, 0, 1},
             {"the most", 6.25F, 0, 0, 16},
             {"no more", 1, 0, 0, 16},
             {"nothing", 0, 0, 0, 16},
             {"the least", 1600, 0, 0, 1.0 / 16},
             {"no less", 1601, 0, 0, 1.0 / 16},
             {"the largest number", kMostSingle, 0, 0, 1.0 / 16},
             {"below 0, where it would be turned over", -50, 0, 0, 16},
             {"the camera goes on beyond nothing", 100, 1, -101, 16},
             {"the largest delta", 100, kMostSingle, 1000, 1.0 / 16},
             {"the largest delta, upwards", 100, kMostSingle, -1000, 16},
         }) {
        EXPECT_DOUBLE_EQ(StretchOf(row.start, row.delta, row.camera), row.stretch) << row.name;
    }
}

// Line by line from the first one that a row covers, the row that it shows.
std::vector<std::int64_t> RowsByLine(double top, double stretch, std::int64_t rows) {
    const StretchedRows stretched{top, stretch};
    std::vector<std::int64_t> lines;
    for (std::int64_t row = 0; row < rows; ++row) {
        lines.insert(lines.end(),
                     static_cast<std::size_t>(stretched.From(row + 1) - stretched.From(row)), row);
    }
    return lines;
}

TEST(StretchedRows, AreRepeatedOrLeftOut) {
    using Rows = std::vector<std::int64_t>;
    EXPECT_EQ(RowsByLine(0, 1, 3), (Rows{0, 1, 2}));
    EXPECT_EQ(RowsByLine(-7, 2, 3), (Rows{0, 0, 1, 1, 2, 2}));
    EXPECT_EQ(RowsByLine(0, 1.5, 3), (Rows{0, 0, 1, 2, 2}));  // 0, 1.5, 3, 4.5
    EXPECT_EQ(RowsByLine(0.5, 1.5, 3), (Rows{0, 1, 1, 2}));   // .5, 2, 3.5, 5
    EXPECT_EQ(RowsByLine(0, 16, 1), Rows(16, 0));
    EXPECT_EQ(RowsByLine(0, 0.5, 6), (Rows{0, 2, 4}));
    EXPECT_EQ(RowsByLine(0, 1.0 / 16, 1), Rows());
    EXPECT_EQ((StretchedRows{0.5, 1}.From(0)), 1) << "a half goes down";
    EXPECT_EQ((StretchedRows{-10.25, 2}.From(3)), -4);
}

TEST(StretchedRows, NextToNothingHighAreAllAboveTheView) {
    EXPECT_GT((StretchedRows{-1, 1e-38}.Before(0)), 32767);
    EXPECT_EQ((StretchedRows{1, 1e-38}.Before(0)), 0);
}

TEST(StretchedRows, BeforeIsARowThatTheLineDoesNotShow) {
    for (const double stretch : {1.0 / 16, 0.3, 1.0, 1.1, 7.3, 16.0}) {
        for (std::int64_t line = -300; line < 300; ++line) {
            const StretchedRows rows{-211.7, stretch};
            const std::int64_t before = rows.Before(line);
            ASSERT_GE(before, 0);
            ASSERT_TRUE(before == 0 || rows.From(before) <= line) << stretch << " " << line;
            ASSERT_GE(rows.From(before + 3), line) << stretch << " " << line;
        }
    }
}

class Stretched : public testing::Test {
protected:
    BackgroundElement& Floor(Single yscaleStart) {
        BackgroundElement& element = player.build.ParallaxAt(floor, 10, 200);
        element.yscaleStart = yscaleStart;
        return element;
    }
    Lines Draw() { return player.StartAndDrawFirst({true}); }

    StagePlayer player{ViewOptions{true}};
    const Integer floor = player.build.Sprite("floor", 100, 3);
};

TEST_F(Stretched, IsTallerFromItsFirstRowWhereTheAxisIs) {
    Floor(50);
    EXPECT_EQ(Draw(), (Lines{"floor 10,200 100x2 of 100x1", "floor 10,202 100x2 from 0,1 of 100x1",
                             "floor 10,204 100x2 from 0,2 of 100x1"}));
}

TEST_F(Stretched, ShrinksAsWell) {
    Floor(200);
    EXPECT_EQ(Draw(), (Lines{"floor 10,200 100x1", "floor 10,201 100x1 from 0,2"}));
}

TEST_F(Stretched, FollowsTheCamera) {
    BackgroundElement& element = Floor(100);
    element.yscaleDelta = 1;
    element.deltaY = 0;
    player.model.CamStartY = -50;
    EXPECT_EQ(Draw().back(), "floor 10,204 100x2 from 0,2 of 100x1");
}

TEST_F(Stretched, GrowsAboutItsAxis) {
    Floor(50);
    player.model.Sprites[static_cast<std::size_t>(floor)].axisY = 2;
    // The axis stays at 200, so what is above it is 4 lines tall.
    EXPECT_EQ(Draw(), (Lines{"floor 10,196 100x2 of 100x1", "floor 10,198 100x2 from 0,1 of 100x1",
                             "floor 10,200 100x2 from 0,2 of 100x1"}));
}

TEST_F(Stretched, KeepsItsHeightWithoutAdditions) {
    Floor(50);
    player.Start();
    EXPECT_EQ(player.DrawFirst({false}), (Lines{"floor 10,200 100x1", "floor 10,201 100x1 from 0,1",
                                                "floor 10,202 100x1 from 0,2"}));
}

TEST_F(Stretched, LeavesOtherKindsAlone) {
    player.build.StillAt(floor, 10, 200).yscaleStart = 50;
    EXPECT_EQ(Draw(), (Lines{"floor 10,200 100x3"}));
}

// The shear is that of the row of the picture, not of the screen.
TEST_F(Stretched, RowsKeepTheirShear) {
    Sheared(Floor(50), 1, 2).startX += 90;
    player.model.CamStartX = 20;
    // 80, and the second half as far again from the middle, 160, the third twice as far.
    EXPECT_EQ(Draw(), (Lines{"floor 80,200 100x2 of 100x1", "floor 40,202 100x2 from 0,1 of 100x1",
                             "floor 0,204 100x2 from 0,2 of 100x1"}));
}

TEST_F(Stretched, IsCutToTheWindow) {
    Windowed(Floor(50), 0, 203, 59, 204);
    EXPECT_EQ(Draw(), (Lines{"floor 10,203 50x1 from 0,1", "floor 10,204 50x1 from 0,2"}));
}

TEST_F(Stretched, DrawsNoMoreRowsThanTheViewHas) {
    const Integer tall = player.build.Sprite("tall", 100, 32767);
    BackgroundElement& element = player.build.ParallaxAt(tall, 10, -100000);
    element.yscaleStart = 1;
    const Lines drawn = Draw();
    ASSERT_EQ(drawn.size(), 15U);
    EXPECT_EQ(drawn.front(), "tall 10,0 100x16 from 0,6250 of 100x1");  // 100000 / 16
    EXPECT_EQ(drawn.back(), "tall 10,224 100x16 from 0,6264 of 100x1");
}

// --- tiling ---

TEST(NegativeTileStep, IsOneCopyWithAdditionsAndNoneWithout) {
    const Copies with = CopiesAlong({3, -10, 50, false, true}, 20, {0, 320});
    EXPECT_EQ(with.count, 1);
    EXPECT_EQ(with.first, 20);
    EXPECT_EQ(CopiesAlong({3, -10, 50, false, false}, 20, {0, 320}).count, 0);
}

TEST(NegativeTileStep, DrawsAStillPictureOnceInThatDirection) {
    StagePlayer player(ViewOptions{true});
    const Integer hill = player.build.Sprite("hill", 50, 40);
    BackgroundElement& element = Tiled(player.build.StillAt(hill, 10, 20), 3, 2, -60, -41);
    player.Start();
    EXPECT_EQ(player.BackPass(), (Lines{"hill 10,20 50x40"}));
    player.view.Additions = false;
    EXPECT_EQ(player.BackPass(), Lines());
    player.view.Additions = true;
    Tiled(element, 2, 2, 0, -41);
    EXPECT_EQ(player.BackPass(), (Lines{"hill 10,20 100x40"})) << "the other is as it is";
}

// --- swing ---

TEST(SidewaysSwing, OfAnElementOfItsOwn) {
    StagePlayer player(ViewOptions{true});
    const Integer hill = player.build.Sprite("hill", 50, 40);
    player.build.StillAt(hill, 100, 20).sinState = {8, 4, 0};
    player.Start();
    EXPECT_EQ(player.Film(5), (Lines{"hill 100,20 50x40", "hill 108,20 50x40", "hill 100,20 50x40",
                                     "hill 92,20 50x40", "hill 100,20 50x40"}));
}

// --- the upper bound ---

TEST(AdditionsUpperBound, IsTheFilesWithAdditionsAndRaisedWithout) {
    const auto boundOf = [](bool additions) {
        StagePlayer player(ViewOptions{additions});
        const Integer hill = player.build.Sprite("hill", 50, 40);
        player.build.StillAt(hill, 0, -30);
        player.model.BoundHigh = -100;
        player.Start();
        return player.model.BoundHigh;
    };
    EXPECT_EQ(boundOf(true), -100);
    EXPECT_EQ(boundOf(false), -29);
}

}  // namespace
}  // namespace scenara::test
