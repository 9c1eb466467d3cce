// SPDX-License-Identifier: MIT
//
// Elements that are linked to others, on the screen.
#include <ostream>
#include <string>

#include <gtest/gtest.h>

#include "render/FilmedStage.h"

namespace scenara::test {
namespace {

// A parent at (100, 50), and an element 20 to its right and 10 below.
BackgroundElement& AddLinked(FilmedStage& stage) {
    stage.A();
    return StartAt(Linked(stage.build.Still(stage.b)), 20, 10);
}

TEST(LinkedElements, FollowTheirParentInTheSameFrame) {
    ExpectFilms({
        {"its drift",
         [](FilmedStage& s) {
             AddLinked(s);
             Drifting(s.Element(0), 3, 1);
         },
         {"a 100,50, b 120,60", "a 103,51, b 123,61", "a 106,52, b 126,62"}},
        {"its swing",
         [](FilmedStage& s) {
             AddLinked(s);
             Swinging(s.Element(0), 8, 2);
         },
         {"a 100,50, b 120,60", "a 100,50, b 120,60", "a 100,58, b 120,68", "a 100,50, b 120,60",
          "a 100,42, b 120,52"}},
        {"in front, as it is drawn and not as it has moved on",
         [](FilmedStage& s) {
             AddLinked(s).layerno = 1;
             Drifting(s.Element(0), 3, 0);
         },
         {"a 100,50, b 120,60", "a 103,50, b 123,60"}},
        {"its controllers of the position",
         [](FilmedStage& s) {
             AddLinked(s);
             s.Element(0).id = 1;
             WithX(On(s.Control("posset", 1, 1), {1}), 40);
         },
         {"a 100,50, b 120,60", "a 140,50, b 160,60"}},
        {"and move by themselves on top",
         [](FilmedStage& s) {
             Drifting(AddLinked(s), 1, 0).id = 9;
             Drifting(s.Element(0), 3, 0);
             WithY(On(s.Control("posadd", 1, 1), {9}), 5);
         },
         {"a 100,50, b 120,60", "a 103,50, b 124,65", "a 106,50, b 128,65"}},
        {"in a chain its beginning, and nothing the one between",
         [](FilmedStage& s) {
             Drifting(AddLinked(s), 0, 2);
             Drifting(s.Element(0), 3, 0);
             StartAt(Linked(s.build.Still(s.c)), -5, 0);
         },
         {"a 100,50, b 120,60, c 95,50", "a 103,50, b 123,62, c 98,50"}},
        {"its two steps a frame when it belongs to both passes",
         [](FilmedStage& s) {
             AddLinked(s);
             Drifting(s.Element(0), 1, 0).layerno = -1;
         },
         {"a 100,50, b 120,60, a 101,50", "a 102,50, b 122,60, a 103,50"}},
    });
}

TEST(LinkedElements, RunTheirOwnSwingAndDoNotShowIt) {
    FilmedStage stage;
    Swinging(AddLinked(stage), 8, 2);
    stage.Start();
    EXPECT_EQ(stage.Film(5), Lines(5, "a 100,50, b 120,60"));
    EXPECT_EQ(stage.Element(1).sinYPhase, 1);
}

TEST(LinkedElements, FollowTheCameraAsTheirParentDoes) {
    FilmedStage stage;
    AddLinked(stage).deltaX = 3;
    stage.Element(0).deltaX = 0.5F;
    stage.Start();
    stage.camera.HCamStep = 4;
    stage.Show(4, 0);
    stage.Frames(1);
    EXPECT_EQ(stage.Film(1), (Lines{"a 98,50, b 118,60"}));
}

TEST(LinkedElements, OfAHiddenParentStayWhereItStopped) {
    FilmedStage stage;
    AddLinked(stage);
    Drifting(stage.Element(0), 3, 0);
    stage.Start();
    stage.Frames(2);
    stage.Element(0).visible = 0;
    EXPECT_EQ(stage.Film(2), (Lines{"b 126,60", "b 126,60"}));
}

struct LeadingDummy {
    const char* name;
    ViewOptions view;
    bool switchedOn;  // by a controller, in the first frame
    bool hasSprite;   // the archive happens to have one of its numbers
    bool moves;
    int halfASwing;  // where the parent is swung to in the third frame
};

class LedByADummy : public testing::TestWithParam<LeadingDummy> {};

TEST_P(LedByADummy, AnElementGoesWithIt) {
    FilmedStage stage(GetParam().view);
    Drifting(Swinging(stage.build.Dummy(), 8, 2), 3, 0).spriteIndex =
        GetParam().hasSprite ? stage.a : Integer{-1};
    Linked(stage.A());
    if (GetParam().switchedOn) {
        WithValue(stage.Control("enable", 0, 0), 1);
    }
    stage.Start();
    EXPECT_EQ(stage.Film(1), (Lines{"a 100,50"}));
    stage.Frames(1);
    EXPECT_EQ(stage.Film(1),
              (Lines{GetParam().moves ? "a 106," + std::to_string(50 + GetParam().halfASwing)
                                      : "a 100,50"}));
}

INSTANTIATE_TEST_SUITE_P(
    Shown, LedByADummy,
    testing::Values(LeadingDummy{"Plain", kPlainView, false, false, false, 0},
                    LeadingDummy{"PlainWithASprite", kPlainView, false, true, false, 0},
                    LeadingDummy{"PlainSwitchedOn", kPlainView, true, false, true, 8},
                    LeadingDummy{"PlainSwitchedOnWithASprite", kPlainView, true, true, true, 8},
                    LeadingDummy{"Additions", {}, false, false, true, 0},
                    LeadingDummy{"AdditionsWithASprite", {}, false, true, true, 0}),
    [](const auto& row) { return std::string(row.param.name); });

}  // namespace
}  // namespace scenara::test
