// SPDX-License-Identifier: MIT
//
// A pass over the elements: which are drawn, what moves, and in which order.
#include "render/TileEngine.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "render/ExpectError.h"
#include "render/StagePlayer.h"

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

class Passes : public testing::Test {
protected:
    BackgroundElement& Still(Integer sprite, Long x = 0, Long y = 0) {
        return player.build.StillAt(sprite, x, y);
    }
    void Show(Single x, Single y) {
        player.model.CamX = -x;
        player.model.CamY = y;
    }
    Single X(std::size_t element) { return player.Element(element).posX; }
    Single Y(std::size_t element) { return player.Element(element).posY; }

    StagePlayer player;
    const Integer a = player.build.Sprite("a", 10, 10);
    const Integer b = player.build.Sprite("b", 10, 10);
    const Integer c = player.build.Sprite("c", 10, 10);
};

using DrawnLayers = Passes;

TEST_F(DrawnLayers, AreDrawnInListOrder) {
    Still(c);
    Still(a).layerno = 1;
    Still(b);
    Still(a).layerno = -1;
    Still(b).layerno = 5;
    player.Start();
    EXPECT_EQ(player.BackPass(), (Lines{"c 0,0 10x10", "b 0,0 10x10", "a 0,0 10x10"}));
    EXPECT_EQ(player.FrontPass(), (Lines{"a 0,0 10x10", "a 0,0 10x10", "b 0,0 10x10"}));
}

TEST_F(DrawnLayers, ElementsThatAreHiddenOrDisabledAreNotDrawn) {
    Still(a);
    Still(b);
    Still(c);
    player.Start();
    player.Element(0).visible = 0;
    player.Element(1).enabled = 0;
    EXPECT_EQ(player.Frame(), (Lines{"c 0,0 10x10"}));
}

TEST_F(DrawnLayers, AStageWithoutElementsDrawsNothing) {
    player.Start();
    EXPECT_EQ(player.Frame(), Lines());
}

TEST_F(DrawnLayers, EveryMaskedElementIsBlendedByItself) {
    Still(a).mask = 1;
    Still(b);
    Still(c).mask = 1;
    player.Start();
    EXPECT_EQ(player.Frame(), (Lines{"a 0,0 10x10 masked", "b 0,0 10x10", "c 0,0 10x10 masked"}));
}

// --- what moves in a pass ---

using Moves = Passes;

TEST_F(Moves, ElementsAreDrawnBeforeTheyMove) {
    BackgroundElement& element = Still(a, 100, 50);
    element.velocityX = 3;
    element.velocityY = -2;
    player.Start();
    EXPECT_EQ(player.Frame(), (Lines{"a 100,50 10x10"}));
    EXPECT_EQ(player.Frame(), (Lines{"a 103,48 10x10"}));
    EXPECT_EQ(player.Frame(), (Lines{"a 106,46 10x10"}));
}

TEST_F(Moves, FractionsAddUp) {
    Still(a, 100, 0).velocityX = 0.25F;
    player.Start();
    player.Frames(7);
    EXPECT_EQ(X(0), 101.75F);
    EXPECT_EQ(player.Frame(), (Lines{"a 102,0 10x10"}));
}

TEST_F(Moves, AnElementInFrontMovesOnceAFrameToo) {
    BackgroundElement& element = Still(a, 100, 50);
    element.layerno = 1;
    element.velocityX = 3;
    player.Start();
    static_cast<void>(player.BackPass());
    EXPECT_EQ(X(0), 100);
    static_cast<void>(player.FrontPass());
    EXPECT_EQ(X(0), 103);
}

TEST_F(Moves, AnElementOfBothPassesIsDrawnAndMovedTwiceAFrame) {
    BackgroundElement& element = Still(a, 100, 50);
    element.layerno = -1;
    element.velocityX = 1;
    element.sinYAmplitude = 8;
    element.sinYPeriod = 2;  // 0, 8, 0, -8
    player.Start();
    EXPECT_EQ(player.Frame(), (Lines{"a 100,50 10x10", "a 101,50 10x10"}));
    EXPECT_EQ(player.Frame(), (Lines{"a 102,58 10x10", "a 103,50 10x10"}));
    EXPECT_EQ(X(0), 104);
}

TEST_F(Moves, HiddenAndDisabledElementsDoNotDriftOrSwing) {
    for (int i = 0; i < 2; ++i) {
        BackgroundElement& element = Still(a, 100, 50);
        element.velocityX = 3;
        element.sinYAmplitude = 8;
        element.sinYPeriod = 2;
        element.sinYPhase = 1;
    }
    player.Start();
    player.Element(0).visible = 0;
    player.Element(1).enabled = 0;
    player.Frames(5);
    for (std::size_t i = 0; i < 2; ++i) {
        EXPECT_EQ(X(i), 100) << i;
        EXPECT_EQ(player.Element(i).sinYPhase, 1) << i;
        EXPECT_EQ(player.Element(i).sinOffset[1], 0) << i;
    }
    player.Element(0).visible = 1;
    EXPECT_EQ(player.Frame(), (Lines{"a 100,50 10x10"}));
    EXPECT_EQ(X(0), 103);
}

TEST_F(Moves, StillElementsWithoutTheirSpriteStandStill) {
    Still(-1, 100, 50).velocityX = 3;
    player.build.Animation(-1).velocityX = 3;
    player.build.Animation(player.build.Action({})).velocityX = 3;
    player.Start();
    player.Frames(5);
    EXPECT_EQ(X(0), 100);
    EXPECT_EQ(X(1), 160);
    EXPECT_EQ(X(2), 160);
}

TEST_F(Moves, BlankFramesAndFramesWithoutTheirSpriteDriftAndSwingOn) {
    BackgroundElement& element = player.build.Animation(player.build.Action({{-1, 5}}));
    element.velocityX = 3;
    element.sinYAmplitude = 8;
    element.sinYPeriod = 2;
    player.Start();
    EXPECT_EQ(player.Frame(), Lines());
    player.Frames(4);
    EXPECT_EQ(X(0), 175);
    EXPECT_EQ(player.Element(0).sinYPhase, 1);
}

TEST_F(Moves, ADummyShowsNothingEvenIfItIsEnabled) {
    player.build.Dummy().spriteIndex = a;
    player.Start();
    EXPECT_EQ(player.Frame(), Lines());
    player.Element(0).enabled = 1;
    EXPECT_EQ(player.Frame(), Lines());
}

struct LeadingDummy {
    const char* name;
    ViewOptions view;
    bool switchedOn;  // by a controller, in the first frame
    bool hasSprite;   // the archive happens to have one of its numbers
    bool moves;
};

class LedByADummy : public testing::TestWithParam<LeadingDummy> {};

TEST_P(LedByADummy, AnElementGoesWithIt) {
    StagePlayer player(GetParam().view);
    const Integer sprite = player.build.Sprite("a", 10, 10);
    BackgroundElement& dummy = player.build.Dummy();
    dummy.spriteIndex = GetParam().hasSprite ? sprite : Integer{-1};
    dummy.velocityX = 3;
    dummy.sinYAmplitude = 8;
    dummy.sinYPeriod = 2;  // 0, 8, 0, -8
    player.build.StillAt(sprite, 100, 50);
    player.Element(1).positionlink = 1;
    if (GetParam().switchedOn) {
        WithValue(AddControl(player.build.Group(), "enable"), 1);
    }
    player.Start();
    EXPECT_EQ(player.Frame(), (Lines{"a 100,50 10x10"}));
    player.Frames(1);
    EXPECT_EQ(player.Frame(), (Lines{GetParam().moves ? "a 106,58 10x10" : "a 100,50 10x10"}));
}

INSTANTIATE_TEST_SUITE_P(
    Shown, LedByADummy,
    testing::Values(LeadingDummy{"Plain", kPlainView, false, false, false},
                    LeadingDummy{"PlainWithASprite", kPlainView, false, true, false},
                    LeadingDummy{"PlainSwitchedOn", kPlainView, true, false, true},
                    LeadingDummy{"PlainSwitchedOnWithASprite", kPlainView, true, true, true},
                    LeadingDummy{"Additions", {}, false, false, true},
                    LeadingDummy{"AdditionsWithASprite", {}, false, true, true}),
    [](const auto& row) { return std::string(row.param.name); });

TEST_F(Moves, DriftGoesOnFarBeyondTheViewWithoutAnError) {
    Still(a).velocityX = 3e38F;
    Still(b).velocityY = -3e38F;
    player.Start();
    EXPECT_EQ(player.Frame(), (Lines{"a 0,0 10x10", "b 0,0 10x10"}));
    for (int i = 0; i < 5; ++i) {
        EXPECT_EQ(player.Frame(), Lines());
    }
}

// --- swing on the screen ---

using Swings = Passes;

TEST_F(Swings, WithAPeriodOf10ReturnAfter20Frames) {
    BackgroundElement& element = Still(a, 100, 50);
    element.sinYAmplitude = 8;
    element.sinYPeriod = 10;
    player.Start();
    Lines shown;
    for (int frame = 0; frame <= 41; ++frame) {
        shown.push_back(player.Frame().at(0));
    }
    EXPECT_EQ(shown[0], "a 100,50 10x10");
    EXPECT_EQ(shown[1], "a 100,50 10x10");
    EXPECT_EQ(shown[6], "a 100,58 10x10");
    EXPECT_EQ(shown[11], "a 100,50 10x10");
    EXPECT_EQ(shown[16], "a 100,42 10x10");
    EXPECT_EQ(shown[21], "a 100,50 10x10");
    EXPECT_EQ(shown[26], "a 100,58 10x10");
    for (std::size_t frame = 1; frame <= 21; ++frame) {
        EXPECT_EQ(shown[frame], shown[frame + 20]) << frame;
    }
}

TEST_F(Swings, WithAPhaseStillBeginInTheMiddle) {
    BackgroundElement& element = Still(a, 100, 50);
    element.sinYAmplitude = 8;
    element.sinYPeriod = 10;
    element.sinYPhase = 5;
    player.Start();
    EXPECT_EQ(player.Frame(), (Lines{"a 100,50 10x10"}));
    EXPECT_EQ(player.Frame(), (Lines{"a 100,58 10x10"}));
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
    BackgroundElement& element = Still(a, 100, 50);
    element.layerno = -1;
    element.deltaX = 1;
    player.Start();
    player.camera.HCamStep = 4;
    player.keyboard.Hold({VirtualKey::Right});
    // Drawn, then moved by the camera of the pass before.
    EXPECT_EQ(player.BackPass(), (Lines{"a 100,50 10x10"}));
    EXPECT_EQ(X(0), 100);
    EXPECT_EQ(player.FrontPass(), (Lines{"a 100,50 10x10"}));
    EXPECT_EQ(X(0), 96);
    player.keyboard.Hold({});
    EXPECT_EQ(player.BackPass(), (Lines{"a 96,50 10x10"}));
    EXPECT_EQ(X(0), 92);
    EXPECT_EQ(player.FrontPass(), (Lines{"a 92,50 10x10"}));
    EXPECT_EQ(X(0), 92);
    EXPECT_EQ(player.BackPass(), (Lines{"a 92,50 10x10"}));
}

TEST_F(CameraInPasses, EveryChangeReachesEveryElementOnceDrawnOrNot) {
    Still(a).layerno = 0;
    Still(a).layerno = 1;
    Still(a).layerno = -1;
    Still(-1);
    player.build.Dummy();
    player.build.Animation(-1);
    Still(a);
    Still(a);
    player.Start();
    player.Element(6).visible = 0;
    player.Element(7).enabled = 0;
    std::vector<Single> start;
    for (const BackgroundElement& element : player.model.Elements) {
        start.push_back(element.posX);
    }
    player.camera.HCamStep = 4;
    Show(4, 0);
    player.Frames(3);
    for (std::size_t i = 0; i < start.size(); ++i) {
        EXPECT_EQ(X(i), start[i] - 4) << i;
    }
}

TEST_F(CameraInPasses, StepsBySignAndDelta) {
    BackgroundElement& element = Still(a, 100, 50);
    element.deltaX = 0.5F;
    element.deltaY = 0.25F;
    player.Start();
    player.camera.HCamStep = 4;
    player.camera.VCamStep = 8;
    Show(1, -1);  // right and up, by less than the steps
    player.Frames(1);
    EXPECT_EQ(X(0), 98);
    EXPECT_EQ(Y(0), 52);
    Show(-100, 100);  // left and down, by more
    player.Frames(1);
    EXPECT_EQ(X(0), 100);
    EXPECT_EQ(Y(0), 50);
}

TEST_F(CameraInPasses, OppositeKeysMakeNoStep) {
    Still(a, 100, 50);
    player.Start();
    player.model.BoundHigh = -1000;  // not where the picture's upper edge raised it to
    player.keyboard.Hold({VirtualKey::Left, VirtualKey::Right, VirtualKey::Up, VirtualKey::Down});
    player.Frames(4);
    EXPECT_EQ(X(0), 100);
    EXPECT_EQ(Y(0), 50);
}

TEST_F(CameraInPasses, TheFirstPassMakesNoStep) {
    player.model.CamStartX = 30;
    player.model.CamStartY = -20;
    Still(a, 100, 50);
    player.Start();
    player.Frames(1);
    EXPECT_EQ(X(0), 70);
    EXPECT_EQ(Y(0), 70);
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

// --- the stage's clocks ---

using StageClocks = Passes;

TEST_F(StageClocks, TickOnceAFrameInTheBackPass) {
    const Integer action = player.build.Action({{a, 2}, {b, 1}});
    StageBuilder::At(player.build.Animation(action), 100, 50).layerno = 1;
    BgCtrl& control = WithX(AddControl(player.build.Group(), "veladd"), 1);
    During(control, 0, 1000);
    player.Start();
    static_cast<void>(player.BackPass());
    EXPECT_EQ(player.Element(0).frameTime, 1);
    EXPECT_EQ(player.Element(0).velocityX, 1);
    static_cast<void>(player.FrontPass());
    EXPECT_EQ(player.Element(0).frameTime, 1);
    EXPECT_EQ(player.Element(0).velocityX, 1);
}

TEST_F(StageClocks, AnimationsShowEachFrameForItsTime) {
    StageBuilder::At(player.build.Animation(player.build.Action({{a, 2}, {-1, 1}, {b, 1}})), 100,
                     50);
    player.Start();
    const Lines frameA{"a 100,50 10x10"};
    const Lines frameB{"b 100,50 10x10"};
    EXPECT_EQ(player.Frame(), frameA);
    EXPECT_EQ(player.Frame(), frameA);
    EXPECT_EQ(player.Frame(), Lines());
    EXPECT_EQ(player.Frame(), frameB);
    EXPECT_EQ(player.Frame(), frameA);
}

TEST_F(StageClocks, ControllersActBeforeAnythingIsDrawn) {
    Still(a, 100, 50);
    WithX(During(AddControl(player.build.Group(), "posadd"), 1, 1), 30);
    player.Start();
    EXPECT_EQ(player.Frame(), (Lines{"a 100,50 10x10"}));
    EXPECT_EQ(player.Frame(), (Lines{"a 130,50 10x10"}));
    EXPECT_EQ(player.Frame(), (Lines{"a 130,50 10x10"}));
}

TEST_F(StageClocks, ControllersActBeforeTheAnimationsTick) {
    player.build.Action({{a, 5}}, 0, 1);
    player.build.Action({{b, 2}, {c, 2}}, 0, 2);
    StageBuilder::At(player.build.Animation(0), 100, 50);
    WithValue(During(AddControl(player.build.Group(), "anim"), 1, 1), 2);
    player.Start();
    Lines shown;
    for (int frame = 0; frame < 5; ++frame) {
        shown.push_back(player.Frame().at(0).substr(0, 1));
    }
    // Its first frame for both of its ticks, that of the change included.
    EXPECT_EQ(shown, (Lines{"a", "b", "b", "c", "c"}));
}

TEST_F(StageClocks, AnimThatIsRepeatedStaysInTheFirstFrame) {
    player.build.Action({{a, 1}, {b, 1}}, 0, 1);
    StageBuilder::At(player.build.Animation(0), 100, 50);
    WithValue(During(AddControl(player.build.Group(), "anim"), 0, 2), 1);
    player.Start();
    Lines shown;
    for (int frame = 0; frame < 5; ++frame) {
        shown.push_back(player.Frame().at(0).substr(0, 1));
    }
    EXPECT_EQ(shown, (Lines{"a", "a", "a", "b", "a"}));
}

TEST_F(StageClocks, VisibleHidesInTheSameFrame) {
    Still(a, 100, 50);
    BgCtrlDef& group = player.build.Group(4);
    WithValue(During(AddControl(group, "visible"), 1, 1), 0);
    WithValue(During(AddControl(group, "visible"), 3, 3), 1);
    player.Start();
    std::vector<std::size_t> counts;
    for (int frame = 0; frame < 8; ++frame) {
        counts.push_back(player.Frame().size());
    }
    EXPECT_EQ(counts, (std::vector<std::size_t>{1, 0, 0, 1, 1, 0, 0, 1}));
}

TEST_F(StageClocks, EnableStopsTheAnimationAndGoesOnWhereItStood) {
    StageBuilder::At(player.build.Animation(player.build.Action({{a, 2}, {b, 2}})), 100, 50);
    BgCtrlDef& group = player.build.Group();
    WithValue(During(AddControl(group, "enable"), 1, 1), 0);
    WithValue(During(AddControl(group, "enable"), 3, 3), 1);
    player.Start();
    Lines shown;
    for (int frame = 0; frame < 7; ++frame) {
        const Lines quads = player.Frame();
        shown.push_back(quads.empty() ? "-" : quads[0].substr(0, 1));
    }
    EXPECT_EQ(shown, (Lines{"a", "-", "-", "a", "b", "b", "a"}));
}

TEST_F(StageClocks, VelocityOfAControllerActsFromThisFrameOn) {
    Still(a, 100, 50);
    BgCtrlDef& group = player.build.Group();
    WithX(During(AddControl(group, "velset"), 1, 1), 5);
    WithX(During(AddControl(group, "velset"), 3, 3), 0);
    player.Start();
    Lines shown;
    for (int frame = 0; frame < 5; ++frame) {
        shown.push_back(player.Frame().at(0));
    }
    EXPECT_EQ(shown, (Lines{"a 100,50 10x10", "a 100,50 10x10", "a 105,50 10x10", "a 110,50 10x10",
                            "a 110,50 10x10"}));
}

TEST_F(StageClocks, PossetBringsADriftedElementBackToItsStart) {
    BackgroundElement& element = Still(a, 100, 50);
    element.velocityX = 3;
    element.velocityY = 1;
    WithY(WithX(During(AddControl(player.build.Group(), "posset"), 5, 5), 0), 0);
    player.Start();
    player.camera.HCamStep = 4;
    player.Frames(3);
    Show(4, 0);  // the camera's part stays
    player.Frames(2);
    EXPECT_EQ(player.Frame(), (Lines{"a 96,50 10x10"}));
}

TEST_F(StageClocks, SinxSwingsFromTheMiddle) {
    Still(a, 100, 50);
    WithValues(During(AddControl(player.build.Group(), "sinx"), 1, 1), 8, 2);
    player.Start();
    Lines shown;
    for (int frame = 0; frame < 6; ++frame) {
        shown.push_back(player.Frame().at(0));
    }
    EXPECT_EQ(shown, (Lines{"a 100,50 10x10", "a 100,50 10x10", "a 100,50 10x10", "a 108,50 10x10",
                            "a 100,50 10x10", "a 92,50 10x10"}));
}

TEST_F(StageClocks, ControllersReachElementsById) {
    Still(a, 100, 50).id = 7;
    Still(b, 100, 50).id = 8;
    Still(c, 100, 50).id = 7;
    WithX(On(AddControl(player.build.Group(), "posadd"), {7}), 5);
    player.Start();
    EXPECT_EQ(player.Frame(), (Lines{"a 105,50 10x10", "b 100,50 10x10", "c 105,50 10x10"}));
}

// --- links on the screen ---

class LinkedElements : public Passes {
protected:
    // A parent at (100, 50) and an element 20 to its right and 10 below.
    LinkedElements() {
        Still(a, 100, 50);
        BackgroundElement& linked = player.build.Still(b);
        linked.positionlink = 1;
        linked.startX = 20;
        linked.startY = 10;
    }
    BackgroundElement& Parent() { return player.Element(0); }
    BackgroundElement& Linked() { return player.Element(1); }
};

TEST_F(LinkedElements, FollowTheDriftOfTheirParentInTheSameFrame) {
    Parent().velocityX = 3;
    Parent().velocityY = 1;
    player.Start();
    EXPECT_EQ(player.Frame(), (Lines{"a 100,50 10x10", "b 120,60 10x10"}));
    EXPECT_EQ(player.Frame(), (Lines{"a 103,51 10x10", "b 123,61 10x10"}));
    EXPECT_EQ(player.Frame(), (Lines{"a 106,52 10x10", "b 126,62 10x10"}));
}

TEST_F(LinkedElements, FollowTheSwingOfTheirParentInTheSameFrame) {
    Parent().sinYAmplitude = 8;
    Parent().sinYPeriod = 2;
    player.Start();
    EXPECT_EQ(player.Frame(), (Lines{"a 100,50 10x10", "b 120,60 10x10"}));
    EXPECT_EQ(player.Frame(), (Lines{"a 100,50 10x10", "b 120,60 10x10"}));
    EXPECT_EQ(player.Frame(), (Lines{"a 100,58 10x10", "b 120,68 10x10"}));
    EXPECT_EQ(player.Frame(), (Lines{"a 100,50 10x10", "b 120,60 10x10"}));
    EXPECT_EQ(player.Frame(), (Lines{"a 100,42 10x10", "b 120,52 10x10"}));
}

TEST_F(LinkedElements, InFrontFollowAsTheirParentIsDrawnNotAsItHasMovedOn) {
    Parent().velocityX = 3;
    Linked().layerno = 1;
    player.Start();
    player.Frames(1);
    EXPECT_EQ(player.Frame(), (Lines{"a 103,50 10x10", "b 123,60 10x10"}));
}

TEST_F(LinkedElements, FollowPositionControllersInTheSameFrame) {
    Parent().id = 1;
    WithX(During(On(AddControl(player.build.Group(), "posset"), {1}), 1, 1), 40);
    player.Start();
    player.Frames(1);
    EXPECT_EQ(player.Frame(), (Lines{"a 140,50 10x10", "b 160,60 10x10"}));
}

TEST_F(LinkedElements, MoveByThemselvesOnTop) {
    Parent().velocityX = 3;
    Linked().velocityX = 1;
    Linked().id = 9;
    WithY(During(On(AddControl(player.build.Group(), "posadd"), {9}), 1, 1), 5);
    player.Start();
    EXPECT_EQ(player.Frame(), (Lines{"a 100,50 10x10", "b 120,60 10x10"}));
    EXPECT_EQ(player.Frame(), (Lines{"a 103,50 10x10", "b 124,65 10x10"}));
    EXPECT_EQ(player.Frame(), (Lines{"a 106,50 10x10", "b 128,65 10x10"}));
}

TEST_F(LinkedElements, RunTheirOwnSwingAndDoNotShowIt) {
    Linked().sinYAmplitude = 8;
    Linked().sinYPeriod = 2;
    player.Start();
    for (int frame = 0; frame < 5; ++frame) {
        EXPECT_EQ(player.Frame(), (Lines{"a 100,50 10x10", "b 120,60 10x10"})) << frame;
    }
    EXPECT_EQ(Linked().sinYPhase, 1);
}

TEST_F(LinkedElements, FollowTheCameraAsTheirParentDoes) {
    Parent().deltaX = 0.5F;
    Linked().deltaX = 3;
    player.Start();
    player.camera.HCamStep = 4;
    Show(4, 0);
    player.Frames(1);
    EXPECT_EQ(player.Frame(), (Lines{"a 98,50 10x10", "b 118,60 10x10"}));
}

TEST_F(LinkedElements, OfAHiddenParentStayWhereItStopped) {
    Parent().velocityX = 3;
    player.Start();
    player.Frames(2);
    Parent().visible = 0;
    EXPECT_EQ(player.Frame(), (Lines{"b 126,60 10x10"}));
    EXPECT_EQ(player.Frame(), (Lines{"b 126,60 10x10"}));
}

TEST_F(LinkedElements, InAChainAllFollowItsBeginning) {
    BackgroundElement& third = player.build.Still(c);
    third.positionlink = 1;
    third.startX = -5;
    Parent().velocityX = 3;
    Linked().velocityY = 2;  // nobody follows it
    player.Start();
    player.Frames(1);
    EXPECT_EQ(player.Frame(), (Lines{"a 103,50 10x10", "b 123,62 10x10", "c 98,50 10x10"}));
}

TEST_F(LinkedElements, OfAParentOfBothPassesFollowItsTwoStepsAFrame) {
    Parent().layerno = -1;
    Parent().velocityX = 1;
    player.Start();
    EXPECT_EQ(player.Frame(), (Lines{"a 100,50 10x10", "b 120,60 10x10", "a 101,50 10x10"}));
    EXPECT_EQ(player.Frame(), (Lines{"a 102,50 10x10", "b 122,60 10x10", "a 103,50 10x10"}));
}

// --- errors ---

using PassErrors = Passes;

TEST_F(PassErrors, AnIndexOutsideOfItsTableEndsThePass) {
    Still(a, 1, 1);
    Still(b, 2, 2);
    Still(c, 3, 3);
    player.Start();
    player.Element(1).spriteIndex = 3;
    ExpectError(RunTimeErrorKind::SubscriptOutOfRange, [&] { player.BackPass(); });
    EXPECT_EQ(player.record.TakeQuads(), (Lines{"a 1,1 10x10"}));
}

TEST_F(PassErrors, AnActionOutsideOfTheTableIsFoundEvenIfItIsNotDrawn) {
    player.build.Animation(player.build.Action({{a, 5}}));
    player.Start();
    player.Element(0).actionIndex = 1;
    player.Element(0).visible = 0;
    ExpectError(RunTimeErrorKind::SubscriptOutOfRange, [&] { player.BackPass(); });
}

TEST_F(PassErrors, AFrameOutsideOfItsActionEndsThePass) {
    player.build.Animation(player.build.Action({{a, 5}}));
    player.Start();
    player.Element(0).frameIndex = 1;
    ExpectError(RunTimeErrorKind::SubscriptOutOfRange, [&] { player.BackPass(); });
}

TEST_F(PassErrors, AFailingDrawEndsThePass) {
    Still(a, 1, 1);
    player.Start();
    player.record.Spoil("DrawPrimitiveUP", Record::Trouble::Fails);
    ExpectError(RunTimeErrorKind::Direct3D, [&] { player.BackPass(); });
}

}  // namespace
}  // namespace scenara::test
