// SPDX-License-Identifier: MIT
//
// Stages that were made for another view, drawn: "hires" and "localcoord". Elements count in the
// file's units, sprites are as a load leaves them: scaled, with the file's axes.
#include <array>
#include <vector>

#include <gtest/gtest.h>

#include "render/Changes.h"
#include "render/Controllers.h"
#include "render/ExpectRanges.h"
#include "render/StagePlayer.h"
#include "stage/StageScale.h"

namespace scenara::test {
namespace {

struct ScaledStage : StagePlayer {
    ScaledStage() : StagePlayer(ViewOptions{true}) {}

    void Begin() {
        ApplyStageScale(model, picture);
        Start();
    }
    // A picture that takes width x height of the view, and twice that of the file.
    Integer Halved(const char* name, Integer width, Integer height, Integer axisX = 0,
                   Integer axisY = 0) {
        const Integer sprite = build.Sprite(name, width, height, axisX, axisY);
        model.Sprites.back().fileWidth = static_cast<Integer>(2 * width);
        model.Sprites.back().fileHeight = static_cast<Integer>(2 * height);
        return sprite;
    }
    // Of the first element, after the start.
    [[nodiscard]] ElementWindow Window() const {
        return ElementWindow::Of(model.Elements.at(0), model.CamX, model.CamY, View());
    }
};

// With a hill that is 100 x 80 in the file, at -40, 200 unless put elsewhere.
struct Hires : ScaledStage {
    Hires() { model.hires = 1; }

    BackgroundElement& Hill(Long x = -40, Long y = 200) { return StartAt(build.Still(hill), x, y); }
    BackgroundElement& HillFrame(const FrameLine& line, Long x = -40, Long y = 200) {
        return StartAt(build.Animation(build.Action({line})), x, y);
    }

    const Integer hill = Halved("hill", 50, 40, 50, 78);
};

struct HiresPicture {
    const char* name;
    void (*make)(Hires& stage);
    Lines quads;
};

TEST(HiresStage, IsDrawnAtHalfItsSize) {
    for (const HiresPicture& row : std::vector<HiresPicture>{
             // 160 + (-40 - 50) / 2, (200 - 78) / 2
             {"half of start and axis", [](Hires& s) { s.Hill(); }, {"hill 115,61 50x40"}},
             // 160 - 20 + 15 - 25, 100 - 10 - 39
             {"half of a frame's offset and axis",
              [](Hires& s) {
                  s.HillFrame({s.hill, -1, 30, -20});
              },
              {"hill 130,51 50x40"}},
             // 160 - 20 + 15 - (50 - 10), 100 - 10 - (40 - 39)
             {"mirrored about the scaled axis",
              [](Hires& s) {
                  s.model.Sprites[0].axisX = 20;
                  s.HillFrame({s.hill, -1, 30, -20, "hv"});
              },
              {"hill 115,89 50x40 mirrored flipped"}},
             // Half of 20 further left, half of 10 further down.
             {"a camera that counts in view units",
              [](Hires& s) {
                  s.model.CamStartX = 20;
                  s.model.CamStartY = -10;
                  s.Hill();
              },
              {"hill 105,66 50x40"}},
             // 160 + (-40 + 60 - 50) / 2, (200 - 20 - 78) / 2
             {"linked by half of both starts",
              [](Hires& s) {
                  s.Hill();
                  Linked(s.Hill(60, -20));
              },
              {"hill 115,61 50x40", "hill 145,51 50x40"}},
             {"still pictures tiled by half the gap",
              [](Hires& s) { Tiled(s.Hill(-210, 78), 3, 0, 20); },
              {"hill 30,0 50x40", "hill 90,0 50x40", "hill 150,0 50x40"}},
             {"animations tiled by half the distance",
              [](Hires& s) {
                  Tiled(s.HillFrame({s.hill, -1}, -210, 78), 0, 3, 1, 120);
              },
              {"hill 30,0 50x40", "hill 30,60 50x40", "hill 30,120 50x40"}},
             {"animations without a distance follow one another",
              [](Hires& s) {
                  Tiled(s.HillFrame({s.hill, -1}, -210, 78), 1, 0, 1, 1);
              },
              {"hill -20,0 350x40"}},
             // 99 wide in the file, one of them upon the next: 98, half of which is 49.
             {"an odd picture tiled by half of what the file says",
              [](Hires& s) {
                  s.model.Sprites[0].fileWidth = 99;
                  Tiled(s.Hill(-210, 78), 3, 0, -1);
              },
              {"hill 30,0 49x40", "hill 79,0 49x40", "hill 128,0 50x40"}},
             {"strips of two pixels tiled without gaps",
              [](Hires& s) {
                  Tiled(StartAt(s.build.Still(s.Halved("strip", 1, 40)), -320, 0), 4, 0);
              },
              {"strip 0,0 4x40"}},
             {"a distance of an animation is given",
              [](Hires& s) {
                  const Integer bar = s.Halved("bar", 8, 4);
                  Windowed(Tiled(s.HillFrame({bar, -1}, -320, 0), 1, 0, 20, 1), 0, 0, 51, 51);
              },
              {"bar 0,0 8x4", "bar 10,0 8x4", "bar 20,0 6x4"}},
             // 160 - 150 - 10, and from row to row half as far again from the middle, 160.
             {"parallax rows sheared by half the distances",
              [](Hires& s) {
                  s.model.CamStartX = 20;
                  const Integer floor = s.Halved("floor", 100, 3);
                  StartAt(Sheared(s.build.Parallax(floor), 1, 2), -300, 0);
              },
              {"floor 0,0 100x1", "floor -80,1 100x1 from 0,1", "floor -160,2 100x1 from 0,2"}},
         }) {
        SCOPED_TRACE(row.name);
        Hires stage;
        row.make(stage);
        stage.Begin();
        EXPECT_EQ(stage.BackPass(), row.quads);
    }
}

TEST(HiresStage, MovesHalfItsDeltaPerCameraUnit) {
    Hires stage;
    stage.Hill();
    stage.Hill().deltaX = 3;
    stage.Begin();
    stage.keyboard.Hold({VirtualKey::Right, VirtualKey::Up});
    stage.Frames(10);
    stage.keyboard.Hold({});
    stage.Frames(1);
    ASSERT_EQ(stage.model.CamX, -20);  // two passes a frame
    ASSERT_EQ(stage.model.CamY, -20);
    EXPECT_EQ(stage.Element(0).posX, 105);
    EXPECT_EQ(stage.Element(0).posY, 71);
    EXPECT_EQ(stage.Element(1).posX, 85);
}

TEST(HiresStage, DriftsAndSwingsHalfAsFar) {
    Hires stage;
    Drifting(Swinging(stage.Hill(), 20, 10, 5), 3, 0);
    stage.Begin();
    stage.Frames(2);
    EXPECT_EQ(stage.Element(0).posX, 118);  // 115 and twice 1.5
    stage.Element(0).sinYPhase = 0;
    stage.Element(0).sinYPeriod = 8;
    stage.Frames(1);
    EXPECT_FLOAT_EQ(stage.Element(0).sinOffset[1], 10);  // a quarter of the swing
}

// Positions at halves go to the right and down, so that what touches in the file touches here.
TEST(HiresStage, NeighboursStayTogetherAtHalves) {
    for (const Long x : {1, 3, -1, -3}) {
        Hires stage;
        const Integer pane = stage.Halved("pane", 51, 31);
        StartAt(stage.build.Still(pane), x, x);
        StartAt(stage.build.Still(pane), x + 102, x + 62);
        stage.Begin();
        DrawElement(stage.engine, stage.model, stage.Element(0), {true});
        DrawElement(stage.engine, stage.model, stage.Element(1), {true});
        ASSERT_EQ(stage.record.Quads().size(), 2U);
        const DrawnQuad first = stage.record.Quads()[0];
        const DrawnQuad second = stage.record.Quads()[1];
        EXPECT_EQ(second.corners[1].x, first.corners[2].x) << x;
        EXPECT_EQ(second.corners[1].y, first.corners[2].y) << x;
    }
}

TEST(HiresStage, ParallaxRowsRoundAsEverythingElse) {
    for (const Long x : {-319, -317, -315}) {
        Hires stage;
        StartAt(stage.build.Still(stage.Halved("wall", 10, 1)), x, 0);
        StartAt(stage.build.Parallax(stage.Halved("row", 10, 1)), x, 0);
        stage.Begin();
        const Lines drawn = stage.BackPass();
        ASSERT_EQ(drawn.size(), 2U);
        EXPECT_EQ(drawn[0].substr(4), drawn[1].substr(3)) << x;
    }
}

TEST(HiresStage, ControllersCountInTheFilesUnits) {
    Hires stage;
    stage.Hill();
    BgCtrlDef& group = stage.build.Group();
    WithY(WithX(AddControl(group, "posset"), -60), 20);
    WithY(WithX(AddControl(group, "posadd"), 4), 2);
    WithY(WithX(AddControl(group, "velset"), 3), 5);
    WithX(AddControl(group, "veladd"), 1);
    WithValues(AddControl(group, "sinx"), 22, 40);
    WithValues(AddControl(group, "siny"), 30, 50);
    stage.Begin();
    const BackgroundElement before = stage.Element(0);
    ASSERT_EQ(before.posX, 115);
    ASSERT_EQ(before.posY, 61);
    RunControllers(stage.model);
    EXPECT_EQ(Changes(before, stage.Element(0)),
              "posX=87, posY=72, velocityX=2, velocityY=2.5, sinState=11 40 0, sinYAmplitude=15, "
              "sinYPeriod=50, ctrlPos=-28 11 0 0");  // 115 - 30 + 2, 61 + 10 + 1
}

TEST(HiresStage, WindowsMoveHalfTheirDelta) {
    Hires stage;
    BackgroundElement& element = Windowed(stage.Hill(), 200, 200, 297, 297);
    element.windowDeltaX = 1;
    element.windowDeltaY = 2;
    stage.model.CamStartX = 20;
    stage.model.CamStartY = -20;
    stage.Begin();
    EXPECT_EQ(stage.Window().columns.from, 90);  // 100 - 10
    EXPECT_EQ(stage.Window().rows.from, 120);    // 100 + 20
}

TEST(HiresStage, InAPlainViewNothingOfThisIsDone) {
    Hires stage;
    stage.view.Additions = false;
    stage.Hill();
    stage.Start();
    EXPECT_EQ(stage.BackPass(), (Lines{"hill 70,122 50x40"}));
}

// --- localcoord ---

struct Localcoord : ScaledStage {
    Localcoord(Long width, Long height) {
        model.localcoordWidth = width;
        model.localcoordHeight = height;
    }
    // Its quads, with a hill put here by the file.
    Lines Hill(Long x, Long y, Single deltaX = 1) {
        StartAt(build.Still(build.Sprite("hill", 50, 40, 60, 90)), x, y).deltaX = deltaX;
        Begin();
        return BackPass();
    }
};

TEST(LocalcoordStage, StartsCountFromTheMiddle) {
    // 160 + (-240 - 60) / 3, (390 - 90) / 3
    EXPECT_EQ(Localcoord(1280, 720).Hill(-240, 390), (Lines{"hill 60,100 50x40"}));
}

TEST(LocalcoordStage, Of240IsShownInItsOwnPixels) {
    EXPECT_EQ(Localcoord(427, 240).Hill(-40, 200), (Lines{"hill 60,110 50x40"}));
}

TEST(LocalcoordStage, ElementsKeepPaceWithTheCamera) {
    Localcoord stage(640, 480);
    stage.model.CamStartX = 40;
    stage.model.CamStartY = -20;
    // 160 + (-40 - 60) / 2 - .5 * 20, (200 - 90) / 2 + 10
    EXPECT_EQ(stage.Hill(-40, 200, 0.5F), (Lines{"hill 100,65 50x40"}));
    EXPECT_EQ(stage.model.CamX, -20);
    EXPECT_EQ(stage.model.CamY, -10);
}

struct ScaledWindow {
    const char* name = "";
    Integer hires = 0;
    Long localcoordWidth = 0;
    Long localcoordHeight = 0;
    std::array<Single, 4> window{};
    PixelRange columns;
    PixelRange rows;
};

TEST(ScaledWindows, CountInTheFilesView) {
    for (const ScaledWindow& row : {
             ScaledWindow{"hires", 1, 0, 0, {20, 40, 97, 81}, {10, 49}, {20, 41}},
             {"all of 640 x 480", 1, 0, 0, {0, 0, 639, 479}, {0, 320}, {0, 240}},
             {"of the same shape", 0, 640, 480, {20, 40, 97, 81}, {10, 49}, {20, 41}},
             // The view is the middle 320 columns of 426.67: the left 53.33 are not seen.
             // 133.33 - 53.33; 293.67 - 53.33 is the last one
             {"a wide one", 0, 1280, 720, {400, 100, 881, 499}, {80, 241}, {33, 167}},
         }) {
        SCOPED_TRACE(row.name);
        ScaledStage stage;
        stage.model.hires = row.hires;
        stage.model.localcoordWidth = row.localcoordWidth;
        stage.model.localcoordHeight = row.localcoordHeight;
        const auto& [x1, y1, x2, y2] = row.window;
        Windowed(stage.build.Still(stage.build.Sprite("hill", 50, 40)), x1, y1, x2, y2);
        stage.Begin();
        ExpectRanges(stage.Window(), row.columns, row.rows);
    }
}

}  // namespace
}  // namespace scenara::test
