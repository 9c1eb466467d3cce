// SPDX-License-Identifier: MIT
//
// Stages that were made for another view, drawn: "hires" and "localcoord". Elements count in the
// file's units, sprites are as a load leaves them: scaled, with the file's axes.
#include <gtest/gtest.h>

#include "render/Controllers.h"
#include "render/ElementDrawing.h"
#include "render/ElementWindow.h"
#include "render/StagePlayer.h"
#include "stage/StageScale.h"

namespace scenara {
namespace {

using test::AddControl;
using test::Lines;
using test::StageBuilder;
using test::StagePlayer;
using test::WithValues;
using test::WithX;
using test::WithY;

class ScaledStage : public testing::Test {
protected:
    void Start() {
        ApplyStageScale(player.model, player.picture);
        player.Start();
    }
    Lines Draw() {
        Start();
        return player.BackPass();
    }
    static BackgroundElement& From(BackgroundElement& element, Long x, Long y) {
        element.startX = x;
        element.startY = y;
        return element;
    }
    // A picture that takes width x height of the view, and twice that of the file.
    Integer Halved(const char* name, Integer width, Integer height, Integer axisX = 0,
                   Integer axisY = 0) {
        const Integer sprite = player.build.Sprite(name, width, height, axisX, axisY);
        player.model.Sprites.back().fileWidth = static_cast<Integer>(2 * width);
        player.model.Sprites.back().fileHeight = static_cast<Integer>(2 * height);
        return sprite;
    }
    StagePlayer player{ViewOptions{true}};
};

class HiresStage : public ScaledStage {
protected:
    HiresStage() { player.model.hires = 1; }
    // 100 x 80 in the file.
    const Integer hill = Halved("hill", 50, 40, 50, 78);
};

TEST_F(HiresStage, PutsAStillPictureAtHalfItsStartAndAxis) {
    From(player.build.Still(hill), -40, 200);
    // 160 + (-40 - 50) / 2, (200 - 78) / 2
    EXPECT_EQ(Draw(), (Lines{"hill 115,61 50x40"}));
}

TEST_F(HiresStage, PutsAFrameAtHalfItsOffsetAndAxis) {
    const Integer action = player.build.Action({{hill, -1, 30, -20}});
    From(player.build.Animation(action), -40, 200);
    // 160 - 20 + 15 - 25, 100 - 10 - 39
    EXPECT_EQ(Draw(), (Lines{"hill 130,51 50x40"}));
}

TEST_F(HiresStage, MirrorsAboutTheScaledAxis) {
    player.model.Sprites[0].axisX = 20;
    const Integer action = player.build.Action({{hill, -1, 30, -20, "hv"}});
    From(player.build.Animation(action), -40, 200);
    // 160 - 20 + 15 - (50 - 10), 100 - 10 - (40 - 39)
    EXPECT_EQ(Draw(), (Lines{"hill 115,89 50x40 mirrored flipped"}));
}

TEST_F(HiresStage, StartsUnderACameraThatCountsInViewUnits) {
    player.model.CamStartX = 20;
    player.model.CamStartY = -10;
    From(player.build.Still(hill), -40, 200);
    // Half of 20 further left, half of 10 further down.
    EXPECT_EQ(Draw(), (Lines{"hill 105,66 50x40"}));
}

TEST_F(HiresStage, MovesHalfItsDeltaPerCameraUnit) {
    From(player.build.Still(hill), -40, 200);
    From(player.build.Still(hill), -40, 200).deltaX = 3;
    Start();
    player.keyboard.Hold({VirtualKey::Right, VirtualKey::Up});
    player.Frames(10);
    player.keyboard.Hold({});
    player.Frames(1);
    ASSERT_EQ(player.model.CamX, -20);  // two passes a frame
    ASSERT_EQ(player.model.CamY, -20);
    EXPECT_EQ(player.Element(0).posX, 105);
    EXPECT_EQ(player.Element(0).posY, 71);
    EXPECT_EQ(player.Element(1).posX, 85);
}

TEST_F(HiresStage, DriftsAndSwingsHalfAsFar) {
    BackgroundElement& element = From(player.build.Still(hill), -40, 200);
    element.velocityX = 3;
    element.sinYAmplitude = 20;
    element.sinYPeriod = 10;
    element.sinYPhase = 5;
    Start();
    player.Frames(2);
    EXPECT_EQ(player.Element(0).posX, 118);  // 115 and twice 1.5
    player.Element(0).sinYPhase = 5;
    player.Frames(1);
    EXPECT_FLOAT_EQ(player.Element(0).sinOffset[1], 10);  // a quarter of the swing
}

TEST_F(HiresStage, LinksByHalfOfBothStarts) {
    From(player.build.Still(hill), -40, 200);
    From(player.build.Still(hill), 60, -20).positionlink = 1;
    // 160 + (-40 + 60 - 50) / 2, (200 - 20 - 78) / 2
    EXPECT_EQ(Draw(), (Lines{"hill 115,61 50x40", "hill 145,51 50x40"}));
}

TEST_F(HiresStage, TilesStillPicturesByHalfTheGap) {
    BackgroundElement& element = From(player.build.Still(hill), -210, 78);
    element.tileX = 3;
    element.tileSpacingX = 20;
    EXPECT_EQ(Draw(), (Lines{"hill 30,0 50x40", "hill 90,0 50x40", "hill 150,0 50x40"}));
}

TEST_F(HiresStage, TilesAnimationsByHalfTheDistance) {
    const Integer action = player.build.Action({{hill, -1}});
    BackgroundElement& element = From(player.build.Animation(action), -210, 78);
    element.tileY = 3;
    element.tileSpacingY = 120;
    EXPECT_EQ(Draw(), (Lines{"hill 30,0 50x40", "hill 30,60 50x40", "hill 30,120 50x40"}));
}

TEST_F(HiresStage, AnimationsWithoutADistanceFollowOneAnother) {
    const Integer action = player.build.Action({{hill, -1}});
    BackgroundElement& element = From(player.build.Animation(action), -210, 78);
    element.tileX = 1;
    EXPECT_EQ(Draw(), (Lines{"hill -20,0 350x40"}));
}

TEST_F(HiresStage, TilesAnOddPictureByHalfOfWhatTheFileSays) {
    // 99 wide in the file, one of them upon the next: 98, half of which is 49.
    player.model.Sprites[0].fileWidth = 99;
    BackgroundElement& element = From(player.build.Still(hill), -210, 78);
    element.tileX = 3;
    element.tileSpacingX = -1;
    EXPECT_EQ(Draw(), (Lines{"hill 30,0 49x40", "hill 79,0 49x40", "hill 128,0 50x40"}));
}

TEST_F(HiresStage, TilesStripsOfTwoPixelsWithoutGaps) {
    BackgroundElement& element = From(player.build.Still(Halved("strip", 1, 40)), -320, 0);
    element.tileX = 4;
    EXPECT_EQ(Draw(), (Lines{"strip 0,0 4x40"}));
}

TEST_F(HiresStage, ADistanceOf2OfAnAnimationIsGiven) {
    const Integer action = player.build.Action({{Halved("bar", 8, 4), -1}});
    BackgroundElement& element = From(player.build.Animation(action), -320, 0);
    element.tileX = 1;
    element.tileSpacingX = 20;
    element.windowX2 = 51;
    element.windowY2 = 51;
    element.windowActive = 1;
    EXPECT_EQ(Draw(), (Lines{"bar 0,0 8x4", "bar 10,0 8x4", "bar 20,0 6x4"}));
}

// Positions at halves go to the right and down, so that what touches in the file touches here.
TEST_F(HiresStage, NeighboursStayTogetherAtHalves) {
    const Integer pane = Halved("pane", 51, 31);
    for (const Long x : {1, 3, -1, -3}) {
        player.model.Elements.clear();
        From(player.build.Still(pane), x, x);
        From(player.build.Still(pane), x + 102, x + 62);
        Start();
        DrawElement(player.engine, player.model, player.Element(0), {true, false});
        DrawElement(player.engine, player.model, player.Element(1), {true, false});
        ASSERT_EQ(player.record.Quads().size(), 2U);
        const test::DrawnQuad first = player.record.Quads()[0];
        const test::DrawnQuad second = player.record.Quads()[1];
        EXPECT_EQ(second.corners[1].x, first.corners[2].x) << x;
        EXPECT_EQ(second.corners[1].y, first.corners[2].y) << x;
    }
}

TEST_F(HiresStage, ParallaxRowsRoundAsEverythingElse) {
    for (const Long x : {-319, -317, -315}) {
        player.model.Elements.clear();
        From(player.build.Still(Halved("wall", 10, 1)), x, 0);
        From(player.build.Parallax(Halved("row", 10, 1)), x, 0);
        const Lines drawn = Draw();
        ASSERT_EQ(drawn.size(), 2U);
        EXPECT_EQ(drawn[0].substr(4), drawn[1].substr(3)) << x;
    }
}

TEST_F(HiresStage, ControllersCountInTheFilesUnits) {
    From(player.build.Still(hill), -40, 200);
    BgCtrlDef& group = player.build.Group();
    WithY(WithX(AddControl(group, "posset"), -60), 20);
    WithY(WithX(AddControl(group, "posadd"), 4), 2);
    WithY(WithX(AddControl(group, "velset"), 3), 5);
    WithX(AddControl(group, "veladd"), 1);
    WithValues(AddControl(group, "sinx"), 22, 40);
    WithValues(AddControl(group, "siny"), 30, 50);
    Start();
    RunControllers(player.model);
    const BackgroundElement& element = player.Element(0);
    EXPECT_EQ(element.posX, 115 - 30 + 2);
    EXPECT_EQ(element.posY, 61 + 10 + 1);
    EXPECT_EQ(element.ctrlPos[0], -28);
    EXPECT_EQ(element.ctrlPos[1], 11);
    EXPECT_EQ(element.velocityX, 2);
    EXPECT_EQ(element.velocityY, 2.5F);
    EXPECT_EQ(element.sinState[0], 11);
    EXPECT_EQ(element.sinState[1], 40);
    EXPECT_EQ(element.sinYAmplitude, 15);
    EXPECT_EQ(element.sinYPeriod, 50);
}

BackgroundElement& Windowed(BackgroundElement& element, Single x1, Single y1, Single x2,
                            Single y2) {
    element.windowX1 = x1;
    element.windowY1 = y1;
    element.windowX2 = x2;
    element.windowY2 = y2;
    element.windowActive = 1;
    return element;
}

// Of the first element, after a start.
ElementWindow WindowOf(const StagePlayer& player) {
    return ElementWindow::Of(player.model.Elements.at(0), player.model.CamX, player.model.CamY,
                             View());
}

TEST_F(HiresStage, HalvesWindows) {
    Windowed(player.build.Still(hill), 20, 40, 97, 81);
    Start();
    const ElementWindow window = WindowOf(player);
    EXPECT_EQ(window.columns.from, 10);
    EXPECT_EQ(window.columns.to, 49);
    EXPECT_EQ(window.rows.from, 20);
    EXPECT_EQ(window.rows.to, 41);
}

TEST_F(HiresStage, AWindowOverAllOf640x480IsTheView) {
    Windowed(player.build.Still(hill), 0, 0, 639, 479);
    Start();
    const ElementWindow window = WindowOf(player);
    EXPECT_EQ(window.columns.from, 0);
    EXPECT_EQ(window.columns.to, 320);
    EXPECT_EQ(window.rows.from, 0);
    EXPECT_EQ(window.rows.to, 240);
}

TEST_F(HiresStage, WindowsMoveHalfTheirDelta) {
    BackgroundElement& element = Windowed(player.build.Still(hill), 200, 200, 297, 297);
    element.windowDeltaX = 1;
    element.windowDeltaY = 2;
    player.model.CamStartX = 20;
    player.model.CamStartY = -20;
    Start();
    const ElementWindow window = WindowOf(player);
    EXPECT_EQ(window.columns.from, 90);  // 100 - 10
    EXPECT_EQ(window.rows.from, 120);    // 100 + 20
}

TEST_F(HiresStage, ParallaxRowsAreShearedByTheHalvedDelta) {
    const Integer floor = Halved("floor", 100, 3);
    BackgroundElement& element = From(player.build.Parallax(floor), -300, 0);
    element.xscaleTop = 1;
    element.xscaleBottom = 2;
    player.model.CamStartX = 20;
    // 160 - 150 - 10, and 0, 5, 10 further left from row to row.
    EXPECT_EQ(Draw(), (Lines{"floor 0,0 100x1", "floor -5,1 100x1 from 0,1",
                             "floor -10,2 100x1 from 0,2"}));
}

TEST_F(HiresStage, InAPlainViewNothingOfThisIsDone) {
    player.view.Additions = false;
    From(player.build.Still(hill), -40, 200);
    player.Start();
    EXPECT_EQ(player.BackPass(), (Lines{"hill 70,122 50x40"}));
}

// --- localcoord ---

class LocalcoordStage : public ScaledStage {
protected:
    void Localcoord(Long width, Long height) {
        player.model.localcoordWidth = width;
        player.model.localcoordHeight = height;
    }
    const Integer hill = player.build.Sprite("hill", 50, 40, 60, 90);
};

TEST_F(LocalcoordStage, StartsCountFromTheMiddle) {
    Localcoord(1280, 720);
    From(player.build.Still(hill), -240, 390);
    // 160 + (-240 - 60) / 3, (390 - 90) / 3
    EXPECT_EQ(Draw(), (Lines{"hill 60,100 50x40"}));
}

TEST_F(LocalcoordStage, ElementsKeepPaceWithTheCamera) {
    Localcoord(640, 480);
    player.model.CamStartX = 40;
    player.model.CamStartY = -20;
    From(player.build.Still(hill), -40, 200).deltaX = 0.5F;
    // 160 + (-40 - 60) / 2 - .5 * 20, (200 - 90) / 2 + 10
    EXPECT_EQ(Draw(), (Lines{"hill 100,65 50x40"}));
    EXPECT_EQ(player.model.CamX, -20);
    EXPECT_EQ(player.model.CamY, -10);
}

TEST_F(LocalcoordStage, Of240IsShownInItsOwnPixels) {
    Localcoord(427, 240);
    From(player.build.Still(hill), -40, 200);
    EXPECT_EQ(Draw(), (Lines{"hill 60,110 50x40"}));
}

// The view is the middle 320 columns of 426.67: the left 53.33 are not seen.
TEST_F(LocalcoordStage, WindowsCountFromTheLeftEdgeOfTheFilesView) {
    Localcoord(1280, 720);
    Windowed(player.build.Still(hill), 400, 100, 881, 499);
    Start();
    const ElementWindow window = WindowOf(player);
    EXPECT_EQ(window.columns.from, 80);  // 133.33 - 53.33
    EXPECT_EQ(window.columns.to, 241);   // 293.67 - 53.33 is the last one
    EXPECT_EQ(window.rows.from, 33);
    EXPECT_EQ(window.rows.to, 167);
}

TEST_F(LocalcoordStage, WindowsOfAViewOfTheSameShapeAreOnlyScaled) {
    Localcoord(640, 480);
    Windowed(player.build.Still(hill), 20, 40, 97, 81);
    Start();
    const ElementWindow window = WindowOf(player);
    EXPECT_EQ(window.columns.from, 10);
    EXPECT_EQ(window.columns.to, 49);
    EXPECT_EQ(window.rows.from, 20);
    EXPECT_EQ(window.rows.to, 41);
}

}  // namespace
}  // namespace scenara
