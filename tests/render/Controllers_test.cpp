// SPDX-License-Identifier: MIT
//
// What each controller does to an element, and that it does nothing else.
#include "render/Controllers.h"

#include <array>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "render/Changes.h"
#include "render/PrepareStage.h"
#include "render/StageBuilder.h"

namespace scenara::test {
namespace {

// One element, prepared, and a group of controls that act in every tick.
class ControllerEffects : public testing::Test {
protected:
    ControllerEffects() {
        build.Action({{-1, 7}, {-1, 8}}, 0, 10);
        build.Action({{-1, 5}, {-1, 6}}, 0, 200);
        build.Action({}, 0, 300);
        build.Action({{-1, -1}}, 0, 0);
    }
    BackgroundElement& Still() { return Anew(build.Still(-1)); }
    BackgroundElement& Animated() { return Anew(build.Animation(0)); }

    BgCtrl& Control(const std::string& type) {
        return During(AddControl(model.CtrlDefs.empty() ? build.Group() : model.CtrlDefs[0], type),
                      0, 1000);
    }
    // What that comes to for the element.
    std::string Tick(int count = 1) {
        const BackgroundElement before = model.Elements[0];
        ResolveControls(model, false);
        ResolveTargets(model);
        for (int i = 0; i < count; ++i) {
            RunControllers(model);
        }
        return Changes(before, model.Elements[0]);
    }

    StageModel model;
    StageBuilder build{model};

private:
    // This one alone.
    BackgroundElement& Anew(const BackgroundElement& element) {
        model.Elements = {BackgroundElement(element)};
        model.CtrlDefs.clear();
        PrepareElements(model, kPlainView, View());
        return model.Elements[0];
    }
};

struct Effect {
    const char* name;
    const char* type;
    void (*element)(BackgroundElement&);  // before
    void (*control)(BgCtrl&);
    int ticks;
    const char* changes;
};

using Element = BackgroundElement;

void AsPrepared(Element& /*element*/) {}
void Hidden(Element& element) {
    element.visible = 0;
}
void OnItsWay(Element& element) {
    element.posX = 100;
    element.posY = 50;
    element.ctrlPos = {30, -4, 0, 0};  // has moved so far already
    element.motion = {30, -4};
}
void Adrift(Element& element) {
    Drifting(element, 5, 6);
}
void InItsSecondFrame(Element& element) {
    element.frameIndex = 1;
    element.frameTime = 3;
}

const Effect kEffects[] = {
    {"hides", "visible", AsPrepared, [](BgCtrl& c) { WithValue(c, 0); }, 1, "visible=0"},
    {"shows by 1", "visible", Hidden, [](BgCtrl& c) { WithValue(c, 1); }, 1, "visible=1"},
    {"shows by -1", "visible", Hidden, [](BgCtrl& c) { WithValue(c, -1); }, 1, "visible=1"},
    {"shows by 255", "visible", Hidden, [](BgCtrl& c) { WithValue(c, 255); }, 1, "visible=1"},
    {"shows by 256", "visible", Hidden, [](BgCtrl& c) { WithValue(c, 256); }, 1, "visible=1"},
    {"disables", "enable", AsPrepared, [](BgCtrl& c) { WithValue(c, 0); }, 1, "enabled=0"},
    {"enables by 256", "enable", [](Element& e) { e.enabled = 0; },
     [](BgCtrl& c) { WithValue(c, 256); }, 1, "enabled=1"},
    {"sets x alone", "velset", Adrift, [](BgCtrl& c) { WithX(c, 1.5F); }, 1, "velocityX=1.5"},
    {"sets y alone", "velset", Adrift, [](BgCtrl& c) { WithY(c, 0).x = 100; }, 1, "velocityY=0"},
    {"adds in every tick", "veladd", Adrift, [](BgCtrl& c) { WithY(WithX(c, 0.5F), -1); }, 4,
     "velocityX=7, velocityY=2"},
    {"adds x alone", "veladd", AsPrepared, [](BgCtrl& c) { WithX(c, 1).y = 50; }, 1, "velocityX=1"},
    {"puts so far from the start", "posset", OnItsWay, [](BgCtrl& c) { WithY(WithX(c, 10), 20); },
     1, "posX=80, posY=74, ctrlPos=10 20 0 0, motion=10 20"},
    {"leaves it there", "posset", OnItsWay, [](BgCtrl& c) { WithY(WithX(c, 10), 20); }, 2,
     "posX=80, posY=74, ctrlPos=10 20 0 0, motion=10 20"},
    {"puts back to the start", "posset", OnItsWay, [](BgCtrl& c) { WithY(WithX(c, 0), 0); }, 1,
     "posX=70, posY=54, ctrlPos=0 0 0 0, motion=0 0"},
    {"puts back along y alone", "posset", OnItsWay, [](BgCtrl& c) { WithY(c, 0); }, 1,
     "posY=54, ctrlPos=30 0 0 0, motion=30 0"},
    {"adds x to motion and position in every tick", "posadd", OnItsWay,
     [](BgCtrl& c) { WithX(c, 2.5F).y = 99; }, 2, "posX=105, ctrlPos=35 -4 0 0, motion=35 -4"},
    {"starts a sideways swing", "sinx",
     [](Element& e) {
         e.sinState = {1, 2, 3};
         e.sinOffset = {4, 5};
     },
     [](BgCtrl& c) { WithValues(c, 20, 30); }, 1, "sinState=20 30 0, sinOffset=0 5"},
    {"starts a swing up and down", "siny",
     [](Element& e) {
         Swinging(e, 0, 0, 3).sinOffset = {4, 5};
     },
     [](BgCtrl& c) { WithValues(c, -20, 30); }, 1,
     "sinYAmplitude=-20, sinYPeriod=30, sinYPhase=0, sinOffset=4 0"},
    {"stops the swing in the middle by an amplitude of 0", "siny",
     [](Element& e) { Swinging(e, 8, 10, 4).sinOffset[1] = 7; },
     [](BgCtrl& c) { WithValues(c, 0, 10); }, 1, "sinYAmplitude=0, sinYPhase=0, sinOffset=0 0"},
    {"leaves still pictures alone", "anim", [](Element& e) { e.actionIndex = 77; },
     [](BgCtrl& c) { WithValue(c, 200); }, 1, ""},
};

const Effect kEffectsOnAnimations[] = {
    {"shows the action of the number from its first frame", "anim", InItsSecondFrame,
     [](BgCtrl& c) { WithValue(c, 200); }, 1, "actionIndex=1, frameIndex=0, frameTime=5"},
    {"does nothing for an action that does not exist", "anim", InItsSecondFrame,
     [](BgCtrl& c) { WithValue(c, 11); }, 1, ""},
    {"takes an action without frames", "anim", InItsSecondFrame,
     [](BgCtrl& c) { WithValue(c, 300); }, 1, "actionIndex=2, frameIndex=0, frameTime=0"},
    {"gives an action to an element that has none", "anim",
     [](Element& e) {
         e.actionIndex = -1;
         e.frameTime = 3;
     },
     [](BgCtrl& c) { WithValue(c, 10); }, 1, "actionIndex=0, frameTime=7"},
};

TEST_F(ControllerEffects, AreOnWhatTheyNameAndNothingElse) {
    const auto expect = [&](const Effect& row, BackgroundElement& element) {
        row.element(element);
        row.control(Control(row.type));
        EXPECT_EQ(Tick(row.ticks), row.changes) << row.type << " " << row.name;
    };
    for (const Effect& row : kEffects) {
        expect(row, Still());
    }
    for (const Effect& row : kEffectsOnAnimations) {
        expect(row, Animated());
    }
}

TEST_F(ControllerEffects, BeginAgainUntilTheLastTick) {
    BackgroundElement& element = Animated();
    WithValue(Control("anim"), 200);
    WithValues(Control("sinx"), 20, 30);
    Tick();
    element.frameIndex = 1;
    element.sinState[2] = 9;
    EXPECT_EQ(Tick(), "frameIndex=0, sinState=20 30 0");
}

TEST_F(ControllerEffects, OfASwingAreToItsFractions) {
    BackgroundElement& element = Animated();
    for (const char* const type : {"sinx", "siny"}) {
        WithValues(Control(type), 20, 30).swingFraction = {0.5F, -0.25F};
    }
    Tick();
    EXPECT_THAT(element.sinState, testing::ElementsAre(20.5F, 29.75F, 0));
    EXPECT_EQ(element.sinYAmplitude, 20.5F);
    EXPECT_EQ(element.sinYPeriod, 29.75F);
}

TEST_F(ControllerEffects, WithoutTheValueTheyNeedAreNone) {
    BackgroundElement& element = Animated();
    InItsSecondFrame(element);
    Drifting(Swinging(element, 8, 10, 4), 1, 2).sinState = {1, 2, 3};
    for (const char* const type : {"visible", "enable", "anim"}) {
        // What is there counts as nothing as long as it was not given.
        Control(type).given = kGivenX | kGivenY | kGivenValue1 | kGivenValue2;
    }
    for (const char* const type : {"sinx", "siny"}) {
        WithValues(Control(type), 5, 6).given = kGivenValue | kGivenValue1;
        WithValues(Control(type), 5, 6).given = kGivenValue | kGivenValue2;
    }
    for (const char* const type : {"velset", "veladd", "posset", "posadd"}) {
        WithY(WithX(Control(type), 5), 6).given = kGivenValue | kGivenValue1 | kGivenValue2;
    }
    EXPECT_EQ(Tick(), "");
}

TEST_F(ControllerEffects, OfWordsThatAreNoTypeAreNone) {
    InItsSecondFrame(Animated());
    for (const char* const type : {"null", "", "enabled", "Visible", "VELSET", "vel", "veladd ",
                                   " posset", "sin", "animation"}) {
        WithValues(WithValue(WithY(WithX(Control(type), 5), 6), 0), 7, 8);
    }
    EXPECT_EQ(Tick(), "");
}

TEST_F(ControllerEffects, OnADummyAreTheSame) {
    build.Dummy();
    PrepareElements(model, kPlainView, View());
    WithValue(Control("enable"), 1);
    EXPECT_EQ(Tick(), "enabled=1");
}

}  // namespace
}  // namespace scenara::test
