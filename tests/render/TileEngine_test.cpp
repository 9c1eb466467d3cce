// SPDX-License-Identifier: MIT
//
// A pass over the elements: which are drawn, what moves, and in which order.
#include "render/TileEngine.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "render/Changes.h"
#include "render/ExpectError.h"
#include "render/FilmedStage.h"

namespace scenara::test {
namespace {

// --- layers ---

TEST(LayerRule, LayersBelowZeroBelongToBothPasses) {
    const auto passes = [](Integer layerno) {
        return std::string(BelongsToPass(layerno, false) ? "back " : "") +
               (BelongsToPass(layerno, true) ? "front" : "");
    };
    EXPECT_EQ(passes(-32768), "back front");
    EXPECT_EQ(passes(-1), "back front");
    EXPECT_EQ(passes(0), "back ");
    EXPECT_EQ(passes(1), "front");
    EXPECT_EQ(passes(2), "front");
    EXPECT_EQ(passes(32767), "front");
}

struct Passes : testing::Test {
    FilmedStage player;
};

using DrawnLayers = Passes;

TEST_F(DrawnLayers, AreDrawnInListOrder) {
    player.Still(player.c);
    player.Still(player.a).layerno = 1;
    player.Still(player.b);
    player.Still(player.a).layerno = -1;
    player.Still(player.b).layerno = 5;
    player.Start();
    EXPECT_EQ(player.BackPass(), (Lines{"c 0,0 10x10", "b 0,0 10x10", "a 0,0 10x10"}));
    EXPECT_EQ(player.FrontPass(), (Lines{"a 0,0 10x10", "a 0,0 10x10", "b 0,0 10x10"}));
}

TEST_F(DrawnLayers, ElementsThatAreHiddenOrDisabledAreNotDrawn) {
    player.Still(player.a);
    player.Still(player.b);
    player.Still(player.c);
    player.Start();
    player.Element(0).visible = 0;
    player.Element(1).enabled = 0;
    EXPECT_EQ(player.Film(1), (Lines{"c 0,0"}));
}

// --- what moves in a pass ---

using Moves = Passes;

TEST_F(Moves, ElementsAreDrawnBeforeTheyMove) {
    ExpectFilms({
        {"no elements", [](FilmedStage& /*stage*/) {}, {"", ""}},
        {"every masked element is blended by itself",
         [](FilmedStage& s) {
             Masked(s.Still(s.a));
             s.Still(s.b);
             Masked(s.Still(s.c));
         },
         {"a 0,0 masked, b 0,0, c 0,0 masked"}},
        {"a drift",
         [](FilmedStage& s) { Drifting(s.A(), 3, -2); },
         {"a 100,50", "a 103,48", "a 106,46"}},
        {"an element of both passes twice a frame, by a swing of 0, 8, 0, -8",
         [](FilmedStage& s) { Drifting(Swinging(s.A(), 8, 2), 1, 0).layerno = -1; },
         {"a 100,50, a 101,50", "a 102,58, a 103,50"}},
        {"a drift far beyond the view",
         [](FilmedStage& s) {
             Drifting(s.Still(s.a), 3e38F, 0);
             Drifting(s.Still(s.b), 0, -3e38F);
         },
         {"a 0,0, b 0,0", "", "", "", "", ""}},
        {"a swing with a phase still begins in the middle",
         [](FilmedStage& s) { Swinging(s.A(), 8, 10, 5); },
         {"a 100,50", "a 100,58"}},
        {"a dummy shows nothing", [](FilmedStage& s) { s.build.Dummy().spriteIndex = s.a; }, {""}},
        {"even if it is enabled",
         [](FilmedStage& s) {
             s.build.Dummy().spriteIndex = s.a;
             WithValue(s.Control("enable", 0, 0), 1);
         },
         {"", ""}},
    });
}

TEST_F(Moves, FractionsAddUp) {
    Drifting(player.A(), 0.25F, 0);
    player.Start();
    player.Frames(7);
    EXPECT_EQ(player.X(0), 101.75F);
    EXPECT_EQ(player.Film(1), (Lines{"a 102,50"}));
}

TEST_F(Moves, AnElementInFrontMovesOnceAFrameToo) {
    Drifting(player.A(), 3, 0).layerno = 1;
    player.Start();
    static_cast<void>(player.BackPass());
    EXPECT_EQ(player.X(0), 100);
    static_cast<void>(player.FrontPass());
    EXPECT_EQ(player.X(0), 103);
}

TEST_F(Moves, HiddenAndDisabledElementsDoNotDriftOrSwing) {
    Drifting(Swinging(player.A(), 8, 2, 1), 3, 0);
    Drifting(Swinging(player.A(), 8, 2, 1), 3, 0);
    player.Start();
    player.Element(0).visible = 0;
    player.Element(1).enabled = 0;
    const auto before = player.model.Elements;
    player.Frames(5);
    EXPECT_EQ(Changes(before[0], player.Element(0)), "");
    EXPECT_EQ(Changes(before[1], player.Element(1)), "");
    player.Element(0).visible = 1;
    EXPECT_EQ(player.Film(1), (Lines{"a 100,50"}));
    EXPECT_EQ(player.X(0), 103);
}

TEST_F(Moves, ElementsWithoutPicturesStandStill) {
    Drifting(player.Still(-1, 100, 50), 3, 0);
    Drifting(player.build.Animation(-1), 3, 0);
    Drifting(player.build.Animation(player.build.Action({})), 3, 0);
    player.Start();
    player.Frames(5);
    EXPECT_EQ(player.X(0), 100);
    EXPECT_EQ(player.X(1), 160);
    EXPECT_EQ(player.X(2), 160);
}

TEST_F(Moves, BlankFramesAndFramesWithoutTheirSpriteDriftAndSwingOn) {
    Drifting(Swinging(player.build.AnimationAt({{-1, 5}}, 160, 0), 8, 2), 3, 0);
    player.Start();
    EXPECT_EQ(player.Film(5), Lines(5));
    EXPECT_EQ(player.X(0), 175);
    EXPECT_EQ(player.Element(0).sinYPhase, 1);
}

// --- the camera ---

using CameraInPasses = Passes;

TEST_F(CameraInPasses, MovesTwiceAFrame) {
    player.Start();
    player.camera.HCamStep = 3;
    player.camera.VCamStep = 2;
    player.keyboard.Hold({VirtualKey::Right, VirtualKey::Up});
    player.Frames(1);
    EXPECT_EQ(player.model.CamX, -6);
    EXPECT_EQ(player.model.CamY, -4);
}

TEST_F(CameraInPasses, EachPassShowsTheMoveOfTheOneBefore) {
    player.A().layerno = -1;
    player.Start();
    player.camera.HCamStep = 4;
    player.keyboard.Hold({VirtualKey::Right});
    // Drawn, then moved by the camera of the pass before.
    EXPECT_EQ(player.BackPass(), (Lines{"a 100,50 10x10"}));
    EXPECT_EQ(player.X(0), 100);
    EXPECT_EQ(player.FrontPass(), (Lines{"a 100,50 10x10"}));
    EXPECT_EQ(player.X(0), 96);
    player.keyboard.Hold({});
    EXPECT_EQ(player.BackPass(), (Lines{"a 96,50 10x10"}));
    EXPECT_EQ(player.X(0), 92);
    EXPECT_EQ(player.FrontPass(), (Lines{"a 92,50 10x10"}));
    EXPECT_EQ(player.X(0), 92);
    EXPECT_EQ(player.BackPass(), (Lines{"a 92,50 10x10"}));
}

TEST_F(CameraInPasses, EveryChangeReachesEveryElementOnceDrawnOrNot) {
    player.Still(player.a).layerno = 0;
    player.Still(player.a).layerno = 1;
    player.Still(player.a).layerno = -1;
    player.Still(-1);
    player.build.Dummy();
    player.build.Animation(-1);
    player.Still(player.a);
    player.Still(player.a);
    player.Start();
    player.Element(6).visible = 0;
    player.Element(7).enabled = 0;
    std::vector<Single> start;
    for (const BackgroundElement& element : player.model.Elements) {
        start.push_back(element.posX);
    }
    player.camera.HCamStep = 4;
    player.Show(4, 0);
    player.Frames(3);
    for (std::size_t i = 0; i < start.size(); ++i) {
        EXPECT_EQ(player.X(i), start[i] - 4) << i;
    }
}

TEST_F(CameraInPasses, TheFirstPassMakesNoStep) {
    player.model.CamStartX = 30;
    player.model.CamStartY = -20;
    player.A();
    player.Start();
    player.Frames(1);
    EXPECT_EQ(player.X(0), 70);
    EXPECT_EQ(player.Y(0), 70);
}

TEST_F(CameraInPasses, StepKeysActInOnePassOfTwo) {
    player.Start();
    player.camera.HCamStep = 5;
    player.camera.VCamStep = 5;
    player.keyboard.Hold({VirtualKey::A});
    player.Frames(1);
    EXPECT_EQ(player.camera.HCamStep, 5.5F);
    player.clock.now += 151;
    player.Frames(1);
    EXPECT_EQ(player.camera.HCamStep, 6);
}

TEST_F(CameraInPasses, ThePointerMovesItInBothPasses) {
    player.Start();
    player.flags.MouseScroll = kByteTrue;
    player.pointer.MoveTo({260, 120});  // 100 right of the middle of 320 x 240
    player.Frames(1);
    EXPECT_EQ(player.model.CamX, -20);
    EXPECT_EQ(player.model.CamY, 0);
    EXPECT_EQ(player.camera.VCamStep, 0);
}

TEST_F(CameraInPasses, ThePreviousCameraIsTheOneBeforeTheKeys) {
    player.Start();
    player.camera.HCamStep = 4;
    player.keyboard.Hold({VirtualKey::Right});
    static_cast<void>(player.BackPass());
    EXPECT_EQ(player.camera.previousX, 0);
    static_cast<void>(player.FrontPass());
    EXPECT_EQ(player.camera.previousX, -4);
    EXPECT_EQ(player.model.CamX, -8);
}

// --- errors ---

using PassErrors = Passes;

TEST_F(PassErrors, AnIndexOutsideOfItsTableEndsThePass) {
    player.Still(player.a, 1, 1);
    player.Still(player.b, 2, 2);
    player.Still(player.c, 3, 3);
    player.Start();
    player.Element(1).spriteIndex = 3;
    ExpectError(RunTimeErrorKind::SubscriptOutOfRange, [&] { player.BackPass(); });
    EXPECT_EQ(player.record.TakeQuads(), (Lines{"a 1,1 10x10"}));
}

TEST_F(PassErrors, AnActionOutsideOfTheTableIsFoundEvenIfItIsNotDrawn) {
    player.build.Animation(player.build.Action({{player.a, 5}}));
    player.Start();
    player.Element(0).actionIndex = 1;
    player.Element(0).visible = 0;
    ExpectError(RunTimeErrorKind::SubscriptOutOfRange, [&] { player.BackPass(); });
}

TEST_F(PassErrors, AFrameOutsideOfItsActionEndsThePass) {
    player.build.Animation(player.build.Action({{player.a, 5}}));
    player.Start();
    player.Element(0).frameIndex = 1;
    ExpectError(RunTimeErrorKind::SubscriptOutOfRange, [&] { player.BackPass(); });
}

TEST_F(PassErrors, AFailingDrawEndsThePass) {
    player.Still(player.a, 1, 1);
    player.Start();
    player.record.Spoil("DrawPrimitiveUP", Record::Trouble::Fails);
    ExpectError(RunTimeErrorKind::Direct3D, [&] { player.BackPass(); });
}

}  // namespace
}  // namespace scenara::test
