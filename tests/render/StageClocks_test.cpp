// SPDX-License-Identifier: MIT
//
// Animations and controllers on the screen, frame by frame.
#include <gtest/gtest.h>

#include "render/FilmedStage.h"

namespace scenara::test {
namespace {

TEST(StageClocks, ShowAnimationsAndControllersInTheSameFrame) {
    ExpectFilms({
        {"each frame of an animation for its time",
         [](FilmedStage& s) {
             s.build.AnimationAt({{s.a, 2}, {-1, 1}, {s.b, 1}}, 100, 50);
         },
         {"a 100,50", "a 100,50", "", "b 100,50", "a 100,50"}},
        {"controllers act before anything is drawn",
         [](FilmedStage& s) {
             s.A();
             WithX(s.Control("posadd", 1, 1), 30);
         },
         {"a 100,50", "a 130,50", "a 130,50"}},
        // Its first frame for both of its ticks, that of the change included.
        {"controllers act before the animations tick",
         [](FilmedStage& s) {
             s.build.Action({{s.a, 5}}, 0, 1);
             s.build.Action({{s.b, 2}, {s.c, 2}}, 0, 2);
             StageBuilder::At(s.build.Animation(0), 100, 50);
             WithValue(s.Control("anim", 1, 1), 2);
         },
         {"a 100,50", "b 100,50", "b 100,50", "c 100,50", "c 100,50"}},
        {"anim that is repeated stays in the first frame",
         [](FilmedStage& s) {
             s.build.Action({{s.a, 1}, {s.b, 1}}, 0, 1);
             StageBuilder::At(s.build.Animation(0), 100, 50);
             WithValue(s.Control("anim", 0, 2), 1);
         },
         {"a 100,50", "a 100,50", "a 100,50", "b 100,50", "a 100,50"}},
        {"visible hides in the same frame",
         [](FilmedStage& s) {
             s.A();
             BgCtrlDef& group = s.build.Group(4);
             WithValue(During(AddControl(group, "visible"), 1, 1), 0);
             WithValue(During(AddControl(group, "visible"), 3, 3), 1);
         },
         {"a 100,50", "", "", "a 100,50", "a 100,50", "", "", "a 100,50"}},
        {"enable stops an animation, which goes on where it stood",
         [](FilmedStage& s) {
             s.build.AnimationAt({{s.a, 2}, {s.b, 2}}, 100, 50);
             WithValue(s.Control("enable", 1, 1), 0);
             WithValue(s.Control("enable", 3, 3), 1);
         },
         {"a 100,50", "", "", "a 100,50", "b 100,50", "b 100,50", "a 100,50"}},
        {"a velocity acts from its frame on",
         [](FilmedStage& s) {
             s.A();
             WithX(s.Control("velset", 1, 1), 5);
             WithX(s.Control("velset", 3, 3), 0);
         },
         {"a 100,50", "a 100,50", "a 105,50", "a 110,50", "a 110,50"}},
        {"sinx swings from the middle",
         [](FilmedStage& s) {
             s.A();
             WithValues(s.Control("sinx", 1, 1), 8, 2);
         },
         {"a 100,50", "a 100,50", "a 100,50", "a 108,50", "a 100,50", "a 92,50"}},
        {"elements are reached by their ids",
         [](FilmedStage& s) {
             s.A().id = 7;
             s.Still(s.b, 100, 50).id = 8;
             s.Still(s.c, 100, 50).id = 7;
             WithX(On(s.Control("posadd", 0, 0), {7}), 5);
         },
         {"a 105,50, b 100,50, c 105,50"}},
    });
}

TEST(StageClocks, TickOnceAFrameInTheBackPass) {
    FilmedStage stage;
    stage.build.AnimationAt({{stage.a, 2}, {stage.b, 1}}, 100, 50).layerno = 1;
    WithX(stage.Control("veladd", 0, 1000), 1);
    stage.Start();
    static_cast<void>(stage.BackPass());
    EXPECT_EQ(stage.Element(0).frameTime, 1);
    EXPECT_EQ(stage.Element(0).velocityX, 1);
    static_cast<void>(stage.FrontPass());
    EXPECT_EQ(stage.Element(0).frameTime, 1);
    EXPECT_EQ(stage.Element(0).velocityX, 1);
}

TEST(StageClocks, PossetBringsADriftedElementBackToItsStart) {
    FilmedStage stage;
    Drifting(stage.A(), 3, 1);
    WithY(WithX(stage.Control("posset", 5, 5), 0), 0);
    stage.Start();
    stage.camera.HCamStep = 4;
    stage.Frames(3);
    stage.Show(4, 0);  // the camera's part stays
    stage.Frames(2);
    EXPECT_EQ(stage.Film(1), (Lines{"a 96,50"}));
}

}  // namespace
}  // namespace scenara::test
