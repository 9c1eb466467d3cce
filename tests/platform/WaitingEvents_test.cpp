// SPDX-License-Identifier: MIT
#include "platform/WaitingEvents.h"

#include <cstddef>
#include <vector>

#include <gtest/gtest.h>

#include "support/RecordedEvents.h"

namespace scenara {
namespace {

using Kind = WaitingEvents::Kind;

// One that a window may tell of.
struct Waiter {
    WaitingEvents::Event event;
    Kind kind;
};
Waiter Down(Long x) {
    return {[x](FormEvents& to) { to.Form_MouseDown(x, 0); }, Kind::Button};
}
Waiter Move(Long x) {
    return {[x](FormEvents& to) { to.Form_MouseMove(x, 0); }, Kind::PointerMove};
}
Waiter Middle(Long x) {
    return {[x](FormEvents& to) { to.Form_MiddleMove(x, 0); }, Kind::MiddleMove};
}
Waiter Up() {
    return {[](FormEvents& to) { to.Form_MouseUp(); }, Kind::Button};
}
Waiter Camera(Long value) {
    return {[value](FormEvents& to) { to.hscHScroll_Change(value); }, Kind::CameraBar};
}
Waiter Sprite(Long value) {
    return {[value](FormEvents& to) { to.hscSGFX_Change(value); }, Kind::SpriteBar};
}
Waiter Scroll(Long value) {
    return {[value](FormEvents& to) { to.hscSGFX_Scroll(value); }, Kind::SpriteBar};
}
Waiter Start(const char* path) {
    return {[path](FormEvents& to) { to.Form_Given({path}); }, Kind::Request};
}
Waiter Select(Long index) {
    return {[index](FormEvents& to) { to.lstStages_Click(index); }, Kind::Once};
}

void ExpectTold(const char* name, const std::vector<Waiter>& added, const char* expected) {
    WaitingEvents events;
    EXPECT_TRUE(events.Empty());
    for (const Waiter& waiter : added) {
        events.Add(waiter.event, waiter.kind);
    }
    test::RecordedEvents told;
    for (std::size_t left = events.Count(); left > 0; --left) {
        events.TakeFirst()(told);
    }
    EXPECT_TRUE(events.Empty());
    EXPECT_EQ(told.Text(), expected) << name;
}

TEST(Waiting, AreToldInTheirOrderAndTheLastMoveCounts) {
    ExpectTold("in their order", {Select(1), Down(2), Up(), Camera(3)},
               "list 1, down 2 0, up, camera 3");
    ExpectTold("of the same kind all count", {Select(1), Select(1), Select(2)},
               "list 1, list 1, list 2");
    ExpectTold("a move of the pointer takes the place of the one before",
               {Down(1), Move(2), Move(3), Move(4)}, "down 1 0, move 4 0");
    ExpectTold("a drag keeps its own last move",
               {Down(1), Move(2), Up(), Move(3), Move(4), Down(5), Move(6)},
               "down 1 0, move 2 0, up, move 4 0, down 5 0, move 6 0");
    ExpectTold("a pull keeps its own last move, and that of the pointer",
               {Down(1), Middle(2), Move(3), Middle(4), Move(5), Up(), Middle(6), Middle(7)},
               "down 1 0, middle move 4 0, move 5 0, up, middle move 7 0");
    ExpectTold("a move of a bar takes the place of the one before",
               {Camera(1), Sprite(2), Camera(3), Sprite(4)}, "camera 3, sprite 4");
    ExpectTold("a bar is told once whatever came in between",
               {Camera(1), Down(2), Select(3), Camera(4)}, "down 2 0, list 3, camera 4");
    ExpectTold("a released thumb takes the place of the scrolling",
               {Scroll(1), Scroll(2), Sprite(2)}, "sprite 2");
    ExpectTold("and the scrolling that of an earlier one", {Sprite(3), Scroll(4)}, "scroll 4");
    ExpectTold("of later starts the last one counts", {Start("/a"), Select(1), Start("/b")},
               "list 1, given /b");
}

TEST(Waiting, WhatLeavesTheStageIsKnownUntilItIsTold) {
    WaitingEvents events;
    events.Add(Select(1).event);
    EXPECT_FALSE(events.LeavingWaits());
    events.Add([](FormEvents& to) { to.Form_Unload(); }, Kind::Leaving);
    events.Add([](FormEvents& to) { to.Form_Unload(); }, Kind::Leaving);
    events.Add(Select(2).event);
    EXPECT_EQ(events.Count(), 4U) << "each of them counts";
    for (const bool waits : {true, true, false}) {
        EXPECT_TRUE(events.LeavingWaits());
        static_cast<void>(events.TakeFirst());
        EXPECT_EQ(events.LeavingWaits(), waits);
    }
}

TEST(Waiting, ALaterStartLeavesTheStage) {
    WaitingEvents events;
    events.Add(Start("/a").event, Kind::Request);
    EXPECT_TRUE(events.LeavingWaits());
}

TEST(Waiting, AThousandMovesAreOne) {
    WaitingEvents events;
    for (Long i = 0; i < 1000; ++i) {
        for (const Waiter& waiter : {Move(i), Scroll(i), Camera(i)}) {
            events.Add(waiter.event, waiter.kind);
        }
    }
    EXPECT_EQ(events.Count(), 3U);
    test::RecordedEvents told;
    while (!events.Empty()) {
        events.TakeFirst()(told);
    }
    EXPECT_EQ(told.Text(), "move 999 0, scroll 999, camera 999");
}

}  // namespace
}  // namespace scenara
