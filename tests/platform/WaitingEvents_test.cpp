// SPDX-License-Identifier: MIT
#include "platform/WaitingEvents.h"

#include <string>

#include <gtest/gtest.h>

#include "support/RecordedEvents.h"

namespace scenara {
namespace {

using Kind = WaitingEvents::Kind;

class Waiting : public testing::Test {
protected:
    void Down(Long x) {
        events.Add([x](FormEvents& to) { to.Form_MouseDown(x, 0); }, Kind::Button);
    }
    void Move(Long x) {
        events.Add([x](FormEvents& to) { to.Form_MouseMove(x, 0); }, Kind::PointerMove);
    }
    void Up() {
        events.Add([](FormEvents& to) { to.Form_MouseUp(); }, Kind::Button);
    }
    void Camera(Long value) {
        events.Add([value](FormEvents& to) { to.hscHScroll_Change(value); }, Kind::CameraBar);
    }
    void Sprite(Long value) {
        events.Add([value](FormEvents& to) { to.hscSGFX_Change(value); }, Kind::SpriteBar);
    }
    void Scroll(Long value) {
        events.Add([value](FormEvents& to) { to.hscSGFX_Scroll(value); }, Kind::SpriteBar);
    }
    void Select(Long index) {
        events.Add([index](FormEvents& to) { to.lstStages_Click(index); });
    }

    std::string Told() {
        test::RecordedEvents told;
        while (!events.Empty()) {
            events.TakeFirst()(told);
        }
        return told.Text();
    }

    WaitingEvents events;
};

TEST_F(Waiting, AreToldInTheirOrder) {
    EXPECT_TRUE(events.Empty());
    Select(1);
    Down(2);
    Up();
    Camera(3);
    EXPECT_EQ(Told(), "list 1, down 2 0, up, camera 3");
    EXPECT_TRUE(events.Empty());
}

TEST_F(Waiting, OfTheSameKindAllCount) {
    Select(1);
    Select(1);
    Select(2);
    EXPECT_EQ(Told(), "list 1, list 1, list 2");
}

TEST_F(Waiting, AMoveOfThePointerTakesThePlaceOfTheOneBefore) {
    Down(1);
    Move(2);
    Move(3);
    Move(4);
    EXPECT_EQ(events.Count(), 2U);
    EXPECT_EQ(Told(), "down 1 0, move 4 0");
}

TEST_F(Waiting, ADragKeepsItsOwnLastMove) {
    Down(1);
    Move(2);
    Up();
    Move(3);
    Move(4);
    Down(5);
    Move(6);
    EXPECT_EQ(Told(), "down 1 0, move 2 0, up, move 4 0, down 5 0, move 6 0");
}

TEST_F(Waiting, AMoveOfABarTakesThePlaceOfTheOneBefore) {
    Camera(1);
    Sprite(2);
    Camera(3);
    Sprite(4);
    EXPECT_EQ(Told(), "camera 3, sprite 4");
}

TEST_F(Waiting, ABarIsToldOnceWhateverCameInBetween) {
    Camera(1);
    Down(2);
    Select(3);
    Camera(4);
    EXPECT_EQ(Told(), "down 2 0, list 3, camera 4");
}

TEST_F(Waiting, AReleasedThumbTakesThePlaceOfTheScrolling) {
    Scroll(1);
    Scroll(2);
    Sprite(2);
    EXPECT_EQ(Told(), "sprite 2");
    Sprite(3);
    Scroll(4);
    EXPECT_EQ(Told(), "scroll 4");
}

TEST_F(Waiting, WhatLeavesTheStageIsKnownUntilItIsTold) {
    Select(1);
    EXPECT_FALSE(events.LeavingWaits());
    events.Add([](FormEvents& to) { to.Form_Unload(); }, Kind::Leaving);
    events.Add([](FormEvents& to) { to.Form_Unload(); }, Kind::Leaving);
    Select(2);
    EXPECT_TRUE(events.LeavingWaits());
    EXPECT_EQ(events.Count(), 4U) << "each of them counts";
    static_cast<void>(events.TakeFirst());
    static_cast<void>(events.TakeFirst());
    EXPECT_TRUE(events.LeavingWaits());
    static_cast<void>(events.TakeFirst());
    EXPECT_FALSE(events.LeavingWaits());
}

TEST_F(Waiting, AThousandMovesAreOne) {
    for (Long i = 0; i < 1000; ++i) {
        Move(i);
        Scroll(i);
        Camera(i);
    }
    EXPECT_EQ(events.Count(), 3U);
    EXPECT_EQ(Told(), "move 999 0, scroll 999, camera 999");
}

}  // namespace
}  // namespace scenara
