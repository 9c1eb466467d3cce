// SPDX-License-Identifier: MIT
//
// Windows that move, Deform, negative tile steps, sideways swings and the upper bound: what else
// additions change in the drawing.
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
    return ElementWindow::Of(Windowed(element, 100, 50, 149, 89), camera.x, camera.y, View());
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

// --- Deform ---

double StretchOf(Single start, Single delta = 0, Single camera = 0) {
    BackgroundElement element;
    element.yscaleStart = start;
    element.yscaleDelta = delta;
    return RowStretch(element, camera);
}

TEST(RowStretch, Is1UnlessAskedFor) {
    EXPECT_DOUBLE_EQ(RowStretch(BackgroundElement(), 0), 1);
    EXPECT_DOUBLE_EQ(RowStretch(BackgroundElement(), -100), 1);
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
             {"-2 is less than that", -50, 0, 0, 1.0 / 16},
             {"the largest delta", 100, kMostSingle, 1000, 1.0 / 16},
         }) {
        EXPECT_DOUBLE_EQ(StretchOf(row.start, row.delta, row.camera), row.stretch) << row.name;
    }
}

std::vector<std::int64_t> SourceRows(std::int64_t rows, double stretch) {
    std::vector<std::int64_t> sources;
    for (std::int64_t row = 0; row < StretchedRows(rows, stretch); ++row) {
        sources.push_back(SourceRow(row, stretch));
    }
    return sources;
}

TEST(StretchedRows, AreRepeatedOrLeftOut) {
    using Rows = std::vector<std::int64_t>;
    EXPECT_EQ(SourceRows(3, 1), (Rows{0, 1, 2}));
    EXPECT_EQ(SourceRows(3, 2), (Rows{0, 0, 1, 1, 2, 2}));
    EXPECT_EQ(SourceRows(3, 1.5), (Rows{0, 0, 1, 2, 2}));  // 0, .67, 1.33, 2, 2.67
    EXPECT_EQ(SourceRows(1, 16), Rows(16, 0));
    EXPECT_EQ(SourceRows(6, 0.5), (Rows{0, 2, 4}));
    EXPECT_EQ(SourceRows(5, 0.5), (Rows{0, 2, 4}));
    EXPECT_EQ(SourceRows(100, 1.0 / 16), (Rows{0, 16, 32, 48, 64, 80, 96}));
    EXPECT_EQ(SourceRows(1, 1.0 / 16), (Rows{0}));
}

// For stretches that no binary number is: no row beyond the picture, and the last one not missing
// by more than a row of the screen.
TEST(StretchedRows, StayInsideOfThePicture) {
    for (int percent = 7; percent < 1600; ++percent) {
        const double stretch = StretchOf(static_cast<Single>(percent));
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
    BackgroundElement& Floor(Single yscaleStart) {
        BackgroundElement& element = player.build.ParallaxAt(floor, 10, 200);
        element.yscaleStart = yscaleStart;
        return element;
    }
    Lines Draw() { return player.StartAndDrawFirst({true, true}); }

    StagePlayer player{ViewOptions{true}};
    const Integer floor = player.build.Sprite("floor", 100, 3);
};

TEST_F(Deform, StretchesAboutTheFirstRow) {
    Floor(50);
    EXPECT_EQ(Draw(), (Lines{"floor 10,200 100x1", "floor 10,201 100x1",
                             "floor 10,202 100x1 from 0,1", "floor 10,203 100x1 from 0,1",
                             "floor 10,204 100x1 from 0,2", "floor 10,205 100x1 from 0,2"}));
}

TEST_F(Deform, ShrinksAsWell) {
    Floor(200);
    EXPECT_EQ(Draw(), (Lines{"floor 10,200 100x1", "floor 10,201 100x1 from 0,2"}));
}

TEST_F(Deform, FollowsTheCamera) {
    BackgroundElement& element = Floor(100);
    element.yscaleDelta = 1;
    element.deltaY = 0;
    player.model.CamStartY = -50;
    EXPECT_EQ(Draw().size(), 6U);
}

TEST_F(Deform, KeepsTheHeightWithoutTheFlagAndWithoutAdditions) {
    Floor(50);
    player.Start();
    for (const DrawOptions& options :
         {DrawOptions{true, false}, DrawOptions{false, true}, DrawOptions{false, false}}) {
        EXPECT_EQ(player.DrawFirst(options),
                  (Lines{"floor 10,200 100x1", "floor 10,201 100x1 from 0,1",
                         "floor 10,202 100x1 from 0,2"}));
    }
}

TEST_F(Deform, IsTheViewsFlag) {
    Floor(50);
    player.Start();
    EXPECT_EQ(player.BackPass().size(), 3U);
    player.flags.Deform = kByteTrue;
    EXPECT_EQ(player.BackPass().size(), 6U);
    player.view.Additions = false;
    EXPECT_EQ(player.BackPass().size(), 3U);
}

TEST_F(Deform, LeavesOtherKindsAlone) {
    player.build.StillAt(floor, 10, 200).yscaleStart = 50;
    EXPECT_EQ(Draw(), (Lines{"floor 10,200 100x3"}));
}

// The shear is that of the row of the picture, not of the screen.
TEST_F(Deform, RowsKeepTheirShear) {
    Sheared(Floor(50), 1, 2).startX += 90;
    player.model.CamStartX = 20;
    // 80, and 10 and 20 further left.
    EXPECT_EQ(Draw(), (Lines{"floor 80,200 100x1", "floor 80,201 100x1",
                             "floor 70,202 100x1 from 0,1", "floor 70,203 100x1 from 0,1",
                             "floor 60,204 100x1 from 0,2", "floor 60,205 100x1 from 0,2"}));
}

TEST_F(Deform, IsCutToTheWindow) {
    Windowed(Floor(50), 0, 203, 59, 204);
    EXPECT_EQ(Draw(), (Lines{"floor 10,203 50x1 from 0,1", "floor 10,204 50x1 from 0,2"}));
}

TEST_F(Deform, DrawsNoMoreRowsThanTheViewHas) {
    const Integer tall = player.build.Sprite("tall", 100, 32767);
    BackgroundElement& element = player.build.ParallaxAt(tall, 10, -100000);
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

struct ScaledSteps {
    const char* name;
    std::int64_t step;
    Single scale;
    std::int64_t ofStill;
    std::int64_t ofAnimation;
};

TEST(ScaledStep, IsRoundedAndStaysWhatItIs) {
    for (const ScaledSteps& row : {
             ScaledSteps{"halved", 60, 0.5F, 30, 30},
             {"60.5, to the even one", 121, 0.5F, 60, 60},
             {"of an animation given, and so no 1", 2, 0.5F, 1, 2},
             {"of an animation not given, and so 1", 1, 0.5F, 1, 1},
             {"and when it grows", 1, 2, 2, 1},
             {"above 0", 5, 0.03125F, 1, 2},
             {"nothing", 0, 0.5F, 0, 0},
             {"the largest", 2147516414, 2, 4295032828, 4295032828},
         }) {
        EXPECT_EQ(ScaledStep(row.step, row.scale, false), row.ofStill) << row.name;
        EXPECT_EQ(ScaledStep(row.step, row.scale, true), row.ofAnimation) << row.name;
    }
    EXPECT_LT(ScaledStep(-10, 0.5F, false), 0);
    EXPECT_LT(ScaledStep(-10, 0.5F, true), 0);
}

// --- swing ---

TEST(SidewaysSwing, OfAnElementOfItsOwn) {
    StagePlayer player(ViewOptions{true});
    const Integer hill = player.build.Sprite("hill", 50, 40);
    player.build.StillAt(hill, 100, 20).sinState = {8, 4, 0};
    player.Start();
    // 8 sin(pi / 4 * (frame - 1)), and 0 in the first.
    EXPECT_EQ(player.Film(10), (Lines{"hill 100,20 50x40", "hill 100,20 50x40", "hill 106,20 50x40",
                                      "hill 108,20 50x40", "hill 106,20 50x40", "hill 100,20 50x40",
                                      "hill 94,20 50x40", "hill 92,20 50x40", "hill 94,20 50x40",
                                      "hill 100,20 50x40"}));
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
