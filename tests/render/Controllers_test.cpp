// SPDX-License-Identifier: MIT
#include "render/Controllers.h"

#include <array>
#include <limits>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "render/ExpectError.h"
#include "render/PrepareStage.h"
#include "render/StageBuilder.h"

namespace scenara {
namespace {

using test::AddControl;
using test::During;
using test::ExpectError;
using test::On;
using test::StageBuilder;
using test::WithValue;
using test::WithValues;
using test::WithX;
using test::WithY;

// --- when they act ---

// One element whose velocity counts how often a control acted on it.
class ControllerTimes : public testing::Test {
protected:
    ControllerTimes() { build.Still(-1); }

    static BgCtrl& Counting(BgCtrlDef& group) { return WithX(AddControl(group, "veladd"), 1); }

    // The ticks, of the first `count`, in which something acted.
    std::vector<int> Acting(int count) {
        PrepareElements(model, kPlainView, View());
        std::vector<int> ticks;
        for (int tick = 0; tick < count; ++tick) {
            const Single before = model.Elements[0].velocityX;
            RunControllers(model);
            if (model.Elements[0].velocityX != before) {
                ticks.push_back(tick);
            }
        }
        return ticks;
    }

    StageModel model;
    StageBuilder build{model};
};

using Ticks = std::vector<int>;

TEST_F(ControllerTimes, FromStartToEndBothIncluded) {
    During(Counting(build.Group()), 3, 5);
    EXPECT_EQ(Acting(20), (Ticks{3, 4, 5}));
}

TEST_F(ControllerTimes, WithoutTimesInTheFirstTick) {
    Counting(build.Group());
    EXPECT_EQ(Acting(20), (Ticks{0}));
}

TEST_F(ControllerTimes, AnEndBeforeTheStartCountsAsTheStart) {
    During(Counting(build.Group()), 4, 2);
    EXPECT_EQ(Acting(20), (Ticks{4}));
}

TEST_F(ControllerTimes, AStartBefore0IsFromTheFirstTickOn) {
    During(Counting(build.Group()), -5, 1);
    EXPECT_EQ(Acting(20), (Ticks{0, 1}));
}

TEST_F(ControllerTimes, AnEndBefore0IsNever) {
    During(Counting(build.Group()), -5, -1);
    EXPECT_EQ(Acting(20), (Ticks{}));
}

TEST_F(ControllerTimes, OwnLoopSetsTheTimerBack) {
    During(Counting(build.Group()), 1, 2, 5);
    EXPECT_EQ(Acting(13), (Ticks{1, 2, 6, 7, 11, 12}));
}

TEST_F(ControllerTimes, ALoopOf1IsTick0ForEver) {
    During(Counting(build.Group()), 0, 0, 1);
    EXPECT_EQ(Acting(4), (Ticks{0, 1, 2, 3}));
}

TEST_F(ControllerTimes, AStartAtOrBehindTheOwnLoopIsNeverReached) {
    During(Counting(build.Group()), 5, 9, 5);
    EXPECT_EQ(Acting(30), (Ticks{}));
}

TEST_F(ControllerTimes, AnEndBehindTheOwnLoopIsCutByIt) {
    During(Counting(build.Group()), 3, 100, 5);
    EXPECT_EQ(Acting(12), (Ticks{3, 4, 8, 9}));
}

TEST_F(ControllerTimes, ALoopOf0OrLessIsNone) {
    During(Counting(build.Group()), 2, 2, 0);
    During(Counting(build.Group()), 4, 4, -3);
    EXPECT_EQ(Acting(30), (Ticks{2, 4}));
}

TEST_F(ControllerTimes, TheGroupsLoopSetsAllTimersBack) {
    BgCtrlDef& group = build.Group(6);
    During(Counting(group), 2, 2);
    During(Counting(group), 5, 5);
    EXPECT_EQ(Acting(18), (Ticks{2, 5, 8, 11, 14, 17}));
}

TEST_F(ControllerTimes, TheGroupsLoopCutsThatOfAControl) {
    // By itself at 0, 4, 8, 12, ...
    During(Counting(build.Group(6)), 0, 0, 4);
    EXPECT_EQ(Acting(19), (Ticks{0, 4, 6, 10, 12, 16, 18}));
}

TEST_F(ControllerTimes, AGroupsLoopOf0OrLessIsNone) {
    During(Counting(build.Group(0)), 2, 2);
    During(Counting(build.Group(-6)), 4, 4);
    EXPECT_EQ(Acting(30), (Ticks{2, 4}));
}

TEST_F(ControllerTimes, GroupsLoopEachByItself) {
    During(Counting(build.Group(4)), 1, 1);
    During(Counting(build.Group(6)), 3, 3);
    EXPECT_EQ(Acting(16), (Ticks{1, 3, 5, 9, 13, 15}));
}

TEST_F(ControllerTimes, ALoopOf600HasTicksUpTo599) {
    During(Counting(build.Group(600)), 599, 599);
    EXPECT_EQ(Acting(1300), (Ticks{599, 1199}));
}

TEST_F(ControllerTimes, ControlsActInFileOrder) {
    BgCtrlDef& group = build.Group();
    WithX(AddControl(group, "velset"), 1);
    WithX(AddControl(group, "velset"), 2);
    WithX(AddControl(build.Group(), "velset"), 3);
    WithX(AddControl(model.CtrlDefs[1], "veladd"), 10);
    PrepareElements(model, kPlainView, View());
    RunControllers(model);
    EXPECT_EQ(model.Elements[0].velocityX, 13);
}

TEST_F(ControllerTimes, TimersAtTheEndOfTheirRangeAreAnErrorAndNoJump) {
    Counting(build.Group());
    PrepareElements(model, kPlainView, View());
    model.CtrlDefs[0].controls[0].timer = std::numeric_limits<Long>::max();
    ExpectError(RunTimeErrorKind::Overflow, [&] { RunControllers(model); });
    model.CtrlDefs[0].controls[0].timer = 0;
    model.CtrlDefs[0].timer = std::numeric_limits<Long>::max();
    ExpectError(RunTimeErrorKind::Overflow, [&] { RunControllers(model); });
}

// --- on what they act ---

class ControllerTargets : public testing::Test {
protected:
    void Elements(const std::vector<Long>& ids) {
        for (const Long id : ids) {
            build.Still(-1).id = id;
        }
    }
    // The elements on which the only control acted, by how often.
    std::vector<int> Acted() {
        WithX(model.CtrlDefs.at(0).controls.at(0), 1);
        PrepareElements(model, kPlainView, View());
        RunControllers(model);
        std::vector<int> acted;
        for (const BackgroundElement& element : model.Elements) {
            acted.push_back(static_cast<int>(element.velocityX));
        }
        return acted;
    }

    StageModel model;
    StageBuilder build{model};
};

using Times = std::vector<int>;

TEST_F(ControllerTargets, OwnListGoesBeforeTheGroups) {
    Elements({1, 2, 3});
    On(AddControl(build.Group(0, {2}), "veladd"), {3});
    EXPECT_EQ(Acted(), (Times{0, 0, 1}));
}

TEST_F(ControllerTargets, WithoutAListTheGroupsIsTaken) {
    Elements({1, 2, 3});
    AddControl(build.Group(0, {2}), "veladd");
    EXPECT_EQ(Acted(), (Times{0, 1, 0}));
}

TEST_F(ControllerTargets, WithNeitherListAllElements) {
    Elements({1, 2, 0, -1});
    AddControl(build.Group(), "veladd");
    EXPECT_EQ(Acted(), (Times{1, 1, 1, 1}));
}

TEST_F(ControllerTargets, AnIdNamesEveryElementThatCarriesIt) {
    Elements({5, 2, 5, 0, 5});
    On(AddControl(build.Group(), "veladd"), {5});
    EXPECT_EQ(Acted(), (Times{1, 0, 1, 0, 1}));
}

TEST_F(ControllerTargets, SeveralIdsNameSeveral) {
    Elements({5, 2, 9, 0, 2147483647});
    On(AddControl(build.Group(), "veladd"), {2147483647, 0, 2, 77});
    EXPECT_EQ(Acted(), (Times{0, 1, 0, 1, 1}));
}

TEST_F(ControllerTargets, AnIdThatStandsTwiceActsOnce) {
    Elements({5, 2, 5});
    On(AddControl(build.Group(), "veladd"), {5, 2, 5});
    EXPECT_EQ(Acted(), (Times{1, 1, 1}));
}

TEST_F(ControllerTargets, Id0NamesTheElementsWithoutAnId) {
    Elements({0, 3, 0});
    On(AddControl(build.Group(), "veladd"), {0});
    EXPECT_EQ(Acted(), (Times{1, 0, 1}));
}

TEST_F(ControllerTargets, Minus1IsAnEmptyEntry) {
    Elements({-1, 2, 3});
    On(AddControl(build.Group(0, {3}), "veladd"), {-1, 2, -1});
    EXPECT_EQ(Acted(), (Times{0, 1, 0}));
}

TEST_F(ControllerTargets, AListOfEmptyEntriesCountsAsAbsent) {
    Elements({-1, 2, 3});
    On(AddControl(build.Group(0, {-1, 3}), "veladd"), {-1, -1});
    EXPECT_EQ(Acted(), (Times{0, 0, 1}));
}

TEST_F(ControllerTargets, TwoListsOfEmptyEntriesMeanAllElements) {
    Elements({-1, 2, 3});
    On(AddControl(build.Group(0, {-1}), "veladd"), {-1});
    EXPECT_EQ(Acted(), (Times{1, 1, 1}));
}

TEST_F(ControllerTargets, IdsThatNobodyCarriesNameNobody) {
    Elements({1, 2});
    On(AddControl(build.Group(0, {1}), "veladd"), {7, -2});
    EXPECT_EQ(Acted(), (Times{0, 0}));
}

TEST_F(ControllerTargets, NegativeIdsAreIdsToo) {
    Elements({-2, -3, 1});
    On(AddControl(build.Group(), "veladd"), {-3});
    EXPECT_EQ(Acted(), (Times{0, 1, 0}));
}

TEST_F(ControllerTargets, HiddenAndDisabledOnesAreActedOn) {
    Elements({1, 1, 1});
    WithX(On(AddControl(build.Group(), "veladd"), {1}), 1);
    PrepareElements(model, kPlainView, View());
    model.Elements[0].visible = 0;
    model.Elements[1].enabled = 0;
    RunControllers(model);
    EXPECT_EQ(model.Elements[0].velocityX, 1);
    EXPECT_EQ(model.Elements[1].velocityX, 1);
}

TEST_F(ControllerTargets, OnAStageWithoutElementsAreNone) {
    WithX(AddControl(build.Group(), "veladd"), 1);
    On(WithX(AddControl(model.CtrlDefs[0], "veladd"), 1), {4});
    PrepareElements(model, kPlainView, View());
    RunControllers(model);
    EXPECT_EQ(model.CtrlDefs[0].timer, 1);
}

// --- a frame that is given up ---

class GivesUpAfter : public PassWatch {
public:
    explicit GivesUpAfter(int count) : left_(count) {}
    bool GoesOn() override { return left_-- > 0; }

private:
    int left_;
};

TEST_F(ControllerTimes, WhatIsLeftOfAFrameThatIsGivenUpActsATickLater) {
    Counting(build.Group());
    WithY(AddControl(build.Group(), "veladd"), 5);
    PrepareElements(model, kPlainView, View());
    GivesUpAfter watch(0);
    RunControllers(model, &watch);
    EXPECT_EQ(model.Elements[0].velocityX, 1);
    EXPECT_EQ(model.Elements[0].velocityY, 0);
    RunControllers(model);
    EXPECT_EQ(model.Elements[0].velocityX, 1) << "once, in its first tick";
    EXPECT_EQ(model.Elements[0].velocityY, 5);
}

// --- what they do ---

class ControllerEffects : public testing::Test {
protected:
    // One element, prepared, and one tick of what Control made.
    BackgroundElement& Still() {
        build.Still(-1);
        PrepareElements(model, kPlainView, View());
        return model.Elements[0];
    }
    BackgroundElement& Animated() {
        build.Action({{-1, 7}, {-1, 8}}, 0, 10);
        build.Action({{-1, 5}, {-1, 6}}, 0, 200);
        build.Action({}, 0, 300);
        build.Action({{-1, -1}}, 0, 0);
        build.Animation(0);
        PrepareElements(model, kPlainView, View());
        return model.Elements[0];
    }
    BgCtrl& Control(const std::string& type) {
        return During(AddControl(model.CtrlDefs.empty() ? build.Group() : model.CtrlDefs[0], type),
                      0, 1000);
    }
    void Tick(int count = 1) {
        ResolveControls(model);
        ResolveTargets(model);
        for (int i = 0; i < count; ++i) {
            RunControllers(model);
        }
    }

    StageModel model;
    StageBuilder build{model};
};

TEST_F(ControllerEffects, VisibleSetsTheFlag) {
    BackgroundElement& element = Still();
    BgCtrl& control = WithValue(Control("visible"), 0);
    Tick();
    EXPECT_EQ(element.visible, 0);
    for (const Integer value : {Integer{1}, Integer{-1}, Integer{255}, Integer{256}}) {
        element.visible = 0;
        control.value = value;
        Tick();
        EXPECT_EQ(element.visible, 1) << value;
    }
    EXPECT_EQ(element.enabled, 1);
}

TEST_F(ControllerEffects, EnableSetsTheFlag) {
    BackgroundElement& element = Still();
    BgCtrl& control = WithValue(Control("enable"), 0);
    Tick();
    EXPECT_EQ(element.enabled, 0);
    control.value = 256;
    Tick();
    EXPECT_EQ(element.enabled, 1);
    EXPECT_EQ(element.visible, 1);
}

TEST_F(ControllerEffects, VelsetSetsWhatWasGiven) {
    BackgroundElement& element = Still();
    element.velocityX = 5;
    element.velocityY = 6;
    BgCtrl& control = WithX(Control("velset"), 1.5F);
    Tick();
    EXPECT_EQ(element.velocityX, 1.5F);
    EXPECT_EQ(element.velocityY, 6);
    control.given = kGivenY;
    control.x = 100;
    control.y = 0;
    Tick();
    EXPECT_EQ(element.velocityX, 1.5F);
    EXPECT_EQ(element.velocityY, 0);
    control.given = 0;
    Tick();
    EXPECT_EQ(element.velocityX, 1.5F);
}

TEST_F(ControllerEffects, VeladdAddsInEveryTick) {
    BackgroundElement& element = Still();
    element.velocityX = 5;
    element.velocityY = 6;
    WithY(WithX(Control("veladd"), 0.5F), -1);
    Tick(4);
    EXPECT_EQ(element.velocityX, 7);
    EXPECT_EQ(element.velocityY, 2);
}

TEST_F(ControllerEffects, VeladdAddsOnlyWhatWasGiven) {
    BackgroundElement& element = Still();
    BgCtrl& control = WithX(Control("veladd"), 1);
    control.y = 50;
    Tick();
    EXPECT_EQ(element.velocityX, 1);
    EXPECT_EQ(element.velocityY, 0);
}

TEST_F(ControllerEffects, PossetPutsTheElementSoFarFromItsStart) {
    BackgroundElement& element = Still();
    element.posX = 100;
    element.posY = 50;
    element.ctrlPos = {30, -4, 0, 0};  // has moved so far already
    WithY(WithX(Control("posset"), 10), 20);
    Tick();
    EXPECT_EQ(element.posX, 80);
    EXPECT_EQ(element.posY, 74);
    EXPECT_EQ(element.ctrlPos[0], 10);
    EXPECT_EQ(element.ctrlPos[1], 20);
    Tick();
    EXPECT_EQ(element.posX, 80);
    EXPECT_EQ(element.posY, 74);
}

TEST_F(ControllerEffects, PossetTo0BringsTheElementBackToItsStart) {
    BackgroundElement& element = Still();
    const Single startX = element.posX;
    const Single startY = element.posY;
    element.posX += 30;
    element.posY -= 4;
    element.ctrlPos = {30, -4, 0, 0};
    WithY(WithX(Control("posset"), 0), 0);
    Tick();
    EXPECT_EQ(element.posX, startX);
    EXPECT_EQ(element.posY, startY);
}

TEST_F(ControllerEffects, PossetLeavesTheAxisThatWasNotGiven) {
    BackgroundElement& element = Still();
    element.posX = 100;
    element.posY = 50;
    element.ctrlPos = {30, -4, 0, 0};
    WithY(Control("posset"), 0);
    Tick();
    EXPECT_EQ(element.posX, 100);
    EXPECT_EQ(element.ctrlPos[0], 30);
    EXPECT_EQ(element.posY, 54);
    EXPECT_EQ(element.ctrlPos[1], 0);
}

TEST_F(ControllerEffects, PosaddAddsToMotionAndPositionInEveryTick) {
    BackgroundElement& element = Still();
    element.posX = 100;
    element.posY = 50;
    element.ctrlPos = {30, -4, 0, 0};
    BgCtrl& control = WithX(Control("posadd"), 2.5F);
    control.y = 99;
    Tick(2);
    EXPECT_EQ(element.posX, 105);
    EXPECT_EQ(element.ctrlPos[0], 35);
    EXPECT_EQ(element.posY, 50);
    EXPECT_EQ(element.ctrlPos[1], -4);
}

TEST_F(ControllerEffects, AnimShowsTheActionOfTheNumberFromItsFirstFrame) {
    BackgroundElement& element = Animated();
    element.frameIndex = 1;
    element.frameTime = 3;
    WithValue(Control("anim"), 200);
    Tick();
    EXPECT_EQ(element.actionIndex, 1);
    EXPECT_EQ(element.frameIndex, 0);
    EXPECT_EQ(element.frameTime, 5);
    element.frameIndex = 1;
    Tick();  // again in each tick
    EXPECT_EQ(element.frameIndex, 0);
}

TEST_F(ControllerEffects, AnimOfAnActionThatDoesNotExistDoesNothing) {
    BackgroundElement& element = Animated();
    element.frameIndex = 1;
    element.frameTime = 3;
    WithValue(Control("anim"), 11);
    Tick();
    EXPECT_EQ(element.actionIndex, 0);
    EXPECT_EQ(element.frameIndex, 1);
    EXPECT_EQ(element.frameTime, 3);
}

TEST_F(ControllerEffects, AnimOfAnActionWithoutFramesIsTaken) {
    BackgroundElement& element = Animated();
    element.frameIndex = 1;
    WithValue(Control("anim"), 300);
    Tick();
    EXPECT_EQ(element.actionIndex, 2);
    EXPECT_EQ(element.frameIndex, 0);
}

TEST_F(ControllerEffects, AnimGivesAnElementWithoutAnActionOne) {
    BackgroundElement& element = Animated();
    element.actionIndex = -1;
    WithValue(Control("anim"), 10);
    Tick();
    EXPECT_EQ(element.actionIndex, 0);
    EXPECT_EQ(element.frameTime, 7);
}

TEST_F(ControllerEffects, AnimLeavesStillPicturesAlone) {
    BackgroundElement& element = Still();
    build.Action({{-1, 5}}, 0, 200);
    element.actionIndex = 77;
    WithValue(Control("anim"), 200);
    Tick();
    EXPECT_EQ(element.actionIndex, 77);
    EXPECT_EQ(element.frameTime, 0);
}

TEST_F(ControllerEffects, SinxStartsASidewaysSwing) {
    BackgroundElement& element = Still();
    element.sinState = {1, 2, 3};
    element.sinOffset = {4, 5};
    WithValues(Control("sinx"), 20, 30);
    Tick();
    EXPECT_EQ(element.sinState, (std::array<Single, 3>{20, 30, 0}));
    EXPECT_EQ(element.sinOffset, (std::array<Single, 2>{0, 5}));
    EXPECT_EQ(element.sinYPeriod, 0);
    element.sinState[2] = 9;
    Tick();  // starts again until its last tick
    EXPECT_EQ(element.sinState[2], 0);
}

TEST_F(ControllerEffects, SinyStartsASwingUpAndDown) {
    BackgroundElement& element = Still();
    element.sinYPhase = 3;
    element.sinOffset = {4, 5};
    WithValues(Control("siny"), -20, 30);
    Tick();
    EXPECT_EQ(element.sinYAmplitude, -20);
    EXPECT_EQ(element.sinYPeriod, 30);
    EXPECT_EQ(element.sinYPhase, 0);
    EXPECT_EQ(element.sinOffset, (std::array<Single, 2>{4, 0}));
    EXPECT_EQ(element.sinState, (std::array<Single, 3>{}));
}

TEST_F(ControllerEffects, AnAmplitudeOf0StopsTheSwingInTheMiddle) {
    BackgroundElement& element = Still();
    element.sinYAmplitude = 8;
    element.sinYPeriod = 10;
    element.sinYPhase = 4;
    element.sinOffset[1] = 7;
    WithValues(Control("siny"), 0, 10);
    Tick();
    EXPECT_EQ(element.sinYAmplitude, 0);
    EXPECT_EQ(element.sinOffset[1], 0);
}

TEST_F(ControllerEffects, WithoutTheValueTheyNeedNothingHappens) {
    BackgroundElement& element = Animated();
    element.frameIndex = 1;
    element.sinYAmplitude = 8;
    element.sinState = {1, 2, 3};
    for (const char* const type : {"visible", "enable", "anim"}) {
        // What is there counts as nothing as long as it was not given.
        BgCtrl& control = Control(type);
        control.given = kGivenX | kGivenY | kGivenValue1 | kGivenValue2;
    }
    for (const char* const type : {"sinx", "siny"}) {
        WithValues(Control(type), 5, 6).given = kGivenValue | kGivenValue1;
        WithValues(Control(type), 5, 6).given = kGivenValue | kGivenValue2;
    }
    for (const char* const type : {"velset", "veladd", "posset", "posadd"}) {
        BgCtrl& control = WithY(WithX(Control(type), 5), 6);
        control.given = kGivenValue | kGivenValue1 | kGivenValue2;
    }
    const Single posX = element.posX;
    Tick();
    EXPECT_EQ(element.visible, 1);
    EXPECT_EQ(element.enabled, 1);
    EXPECT_EQ(element.frameIndex, 1);
    EXPECT_EQ(element.actionIndex, 0);
    EXPECT_EQ(element.sinYAmplitude, 8);
    EXPECT_EQ(element.sinState, (std::array<Single, 3>{1, 2, 3}));
    EXPECT_EQ(element.velocityX, 0);
    EXPECT_EQ(element.posX, posX);
}

TEST_F(ControllerEffects, WordsThatAreNoTypeDoNothing) {
    BackgroundElement& element = Animated();
    element.frameIndex = 1;
    for (const char* const type : {"null", "", "enabled", "Visible", "VELSET", "vel", "veladd ",
                                   " posset", "sin", "animation"}) {
        WithValues(WithValue(WithY(WithX(Control(type), 5), 6), 0), 7, 8);
    }
    const BackgroundElement before = element;
    Tick();
    EXPECT_EQ(element.visible, 1);
    EXPECT_EQ(element.enabled, 1);
    EXPECT_EQ(element.velocityX, 0);
    EXPECT_EQ(element.velocityY, 0);
    EXPECT_EQ(element.posX, before.posX);
    EXPECT_EQ(element.posY, before.posY);
    EXPECT_EQ(element.frameIndex, 1);
    EXPECT_EQ(element.sinState, before.sinState);
    EXPECT_EQ(element.sinYAmplitude, 0);
}

TEST_F(ControllerEffects, ADummyThatIsEnabledIsEnabled) {
    build.Dummy();
    PrepareElements(model, kPlainView, View());
    WithValue(Control("enable"), 1);
    Tick();
    EXPECT_EQ(model.Elements[0].enabled, 1);
}

}  // namespace
}  // namespace scenara
