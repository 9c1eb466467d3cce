// SPDX-License-Identifier: MIT
//
// When controllers act, and on which elements.
#include <limits>
#include <vector>

#include <gtest/gtest.h>

#include "render/Controllers.h"
#include "render/ExpectError.h"
#include "render/PrepareStage.h"
#include "render/StageBuilder.h"

namespace scenara::test {
namespace {

// A stage whose elements count by their velocities how often a control acted on them.
class ControllerTimes : public testing::Test {
protected:
    static BgCtrl& Counting(BgCtrlDef& group) { return WithX(AddControl(group, "veladd"), 1); }
    void Prepare() { PrepareElements(model, kPlainView, View()); }

    StageModel model;
    StageBuilder build{model};
};

using Numbers = std::vector<int>;

struct ControlTime {
    Long start;
    Long end;
    Long loop = 0;
};
struct GroupTimes {
    Long loop;
    std::vector<ControlTime> controls;
};
struct ActingTicks {
    const char* name;
    std::vector<GroupTimes> groups;
    int ticks;  // of which these are the ones in which something acted
    Numbers acting;
};

TEST(ControllerTicks, AreThoseThatTimesAndLoopsGive) {
    for (const ActingTicks& row : std::vector<ActingTicks>{
             {"from start to end, both included", {{0, {{3, 5}}}}, 20, {3, 4, 5}},
             {"without times the first", {{0, {{0, 0}}}}, 20, {0}},
             {"an end before the start counts as the start", {{0, {{4, 2}}}}, 20, {4}},
             {"a start before 0 is from the first on", {{0, {{-5, 1}}}}, 20, {0, 1}},
             {"an end before 0 is never", {{0, {{-5, -1}}}}, 20, {}},
             {"an own loop sets the timer back", {{0, {{1, 2, 5}}}}, 13, {1, 2, 6, 7, 11, 12}},
             {"a loop of 1 is tick 0 for ever", {{0, {{0, 0, 1}}}}, 4, {0, 1, 2, 3}},
             {"a start at the own loop's end is never reached", {{0, {{5, 9, 5}}}}, 30, {}},
             {"an end after the own loop is cut by it", {{0, {{3, 100, 5}}}}, 12, {3, 4, 8, 9}},
             {"a loop of 0 or less is none", {{0, {{2, 2, 0}}}, {0, {{4, 4, -3}}}}, 30, {2, 4}},
             {"the group's loop sets all timers back",
              {{6, {{2, 2}, {5, 5}}}},
              18,
              {2, 5, 8, 11, 14, 17}},
             {"the group's loop cuts that of a control, by itself at 0, 4, 8, 12",
              {{6, {{0, 0, 4}}}},
              19,
              {0, 4, 6, 10, 12, 16, 18}},
             {"a group's loop of 0 or less is none", {{0, {{2, 2}}}, {-6, {{4, 4}}}}, 30, {2, 4}},
             {"groups loop each by itself",
              {{4, {{1, 1}}}, {6, {{3, 3}}}},
              16,
              {1, 3, 5, 9, 13, 15}},
             {"a loop of 600 has ticks up to 599", {{600, {{599, 599}}}}, 1300, {599, 1199}},
         }) {
        StageModel model;
        StageBuilder build(model);
        build.Still(-1);
        for (const GroupTimes& times : row.groups) {
            BgCtrlDef& group = build.Group(times.loop);
            for (const ControlTime& time : times.controls) {
                WithX(During(AddControl(group, "veladd"), time.start, time.end, time.loop), 1);
            }
        }
        PrepareElements(model, kPlainView, View());
        Numbers acting;
        for (int tick = 0; tick < row.ticks; ++tick) {
            const Single before = model.Elements[0].velocityX;
            RunControllers(model);
            if (model.Elements[0].velocityX != before) {
                acting.push_back(tick);
            }
        }
        EXPECT_EQ(acting, row.acting) << row.name;
    }
}

struct Targets {
    const char* name;
    std::vector<Long> elements;  // their ids
    std::vector<Long> group;     // the lists
    std::vector<Long> control;
    Numbers acted;  // how often on each element
};

TEST(ControllerTargets, AreThoseThatTheListsName) {
    for (const Targets& row : std::vector<Targets>{
             {"the own list goes before the group's", {1, 2, 3}, {2}, {3}, {0, 0, 1}},
             {"without a list the group's is taken", {1, 2, 3}, {2}, {}, {0, 1, 0}},
             {"with neither list all elements", {1, 2, 0, -1}, {}, {}, {1, 1, 1, 1}},
             {"an id names all that carry it", {5, 2, 5, 0, 5}, {}, {5}, {1, 0, 1, 0, 1}},
             {"several ids name several",
              {5, 2, 9, 0, 2147483647},
              {},
              {2147483647, 0, 2, 77},
              {0, 1, 0, 1, 1}},
             {"an id that stands twice acts once", {5, 2, 5}, {}, {5, 2, 5}, {1, 1, 1}},
             {"id 0 names those without an id", {0, 3, 0}, {}, {0}, {1, 0, 1}},
             {"-1 is an empty entry", {-1, 2, 3}, {3}, {-1, 2, -1}, {0, 1, 0}},
             {"empty entries alone are no list", {-1, 2, 3}, {-1, 3}, {-1, -1}, {0, 0, 1}},
             {"two lists of empty entries mean all", {-1, 2, 3}, {-1}, {-1}, {1, 1, 1}},
             {"ids that no element carries name none", {1, 2}, {1}, {7, -2}, {0, 0}},
             {"negative ids are ids too", {-2, -3, 1}, {}, {-3}, {0, 1, 0}},
         }) {
        StageModel model;
        StageBuilder build(model);
        for (const Long id : row.elements) {
            build.Still(-1).id = id;
        }
        WithX(On(AddControl(build.Group(0, row.group), "veladd"), row.control), 1);
        PrepareElements(model, kPlainView, View());
        RunControllers(model);
        Numbers acted;
        for (const BackgroundElement& element : model.Elements) {
            acted.push_back(static_cast<int>(element.velocityX));
        }
        EXPECT_EQ(acted, row.acted) << row.name;
    }
}

TEST_F(ControllerTimes, HiddenAndDisabledElementsAreActedOn) {
    build.Still(-1).id = 1;
    build.Still(-1).id = 1;
    On(Counting(build.Group()), {1});
    Prepare();
    model.Elements[0].visible = 0;
    model.Elements[1].enabled = 0;
    RunControllers(model);
    EXPECT_EQ(model.Elements[0].velocityX, 1);
    EXPECT_EQ(model.Elements[1].velocityX, 1);
}

TEST_F(ControllerTimes, OnAStageWithoutElementsTimersRunOn) {
    Counting(build.Group());
    On(Counting(model.CtrlDefs[0]), {4});
    Prepare();
    RunControllers(model);
    EXPECT_EQ(model.CtrlDefs[0].timer, 1);
}

TEST_F(ControllerTimes, ControlsActInFileOrder) {
    build.Still(-1);
    BgCtrlDef& group = build.Group();
    WithX(AddControl(group, "velset"), 1);
    WithX(AddControl(group, "velset"), 2);
    WithX(AddControl(build.Group(), "velset"), 3);
    WithX(AddControl(model.CtrlDefs[1], "veladd"), 10);
    Prepare();
    RunControllers(model);
    EXPECT_EQ(model.Elements[0].velocityX, 13);
}

TEST_F(ControllerTimes, TimersAtTheEndOfTheirRangeAreAnErrorAndNoJump) {
    build.Still(-1);
    Counting(build.Group());
    Prepare();
    model.CtrlDefs[0].controls[0].timer = std::numeric_limits<Long>::max();
    ExpectError(RunTimeErrorKind::Overflow, [&] { RunControllers(model); });
    model.CtrlDefs[0].controls[0].timer = 0;
    model.CtrlDefs[0].timer = std::numeric_limits<Long>::max();
    ExpectError(RunTimeErrorKind::Overflow, [&] { RunControllers(model); });
}

class GivesUpAtOnce : public PassWatch {
public:
    bool GoesOn() override { return false; }
};

TEST_F(ControllerTimes, WhatIsLeftOfAFrameThatIsGivenUpActsATickLater) {
    build.Still(-1);
    Counting(build.Group());
    WithY(AddControl(build.Group(), "veladd"), 5);
    Prepare();
    GivesUpAtOnce watch;
    RunControllers(model, &watch);
    EXPECT_EQ(model.Elements[0].velocityX, 1);
    EXPECT_EQ(model.Elements[0].velocityY, 0);
    RunControllers(model);
    EXPECT_EQ(model.Elements[0].velocityX, 1) << "once, in its first tick";
    EXPECT_EQ(model.Elements[0].velocityY, 5);
}

}  // namespace
}  // namespace scenara::test
