// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "platform/headless/HeadlessKeyboard.h"

namespace scenara {
namespace {

TEST(KeySet, HoldsEachKeyApart) {
    KeySet keys{VirtualKey::Left, VirtualKey::NumpadMinus};
    EXPECT_TRUE(keys.Contains(VirtualKey::Left));
    EXPECT_TRUE(keys.Contains(VirtualKey::NumpadMinus));
    EXPECT_FALSE(keys.Contains(VirtualKey::Right));
    EXPECT_FALSE(keys.Contains(VirtualKey::RightButton));
    keys.Remove(VirtualKey::Left);
    EXPECT_EQ(keys, KeySet{VirtualKey::NumpadMinus});
    keys.Add(VirtualKey::NumpadMinus);
    keys.Remove(VirtualKey::NumpadMinus);
    EXPECT_EQ(keys, KeySet());
}

TEST(HeadlessKeyboard, AnswersThatAKeyIsDownWhileItIsHeldHoweverOftenItIsAsked) {
    HeadlessKeyboard keyboard;
    EXPECT_EQ(keyboard.GetAsyncKeyState(VirtualKey::Right), 0);
    keyboard.Hold({VirtualKey::Right, VirtualKey::Z});
    for (int time = 0; time < 2; ++time) {
        EXPECT_EQ(keyboard.GetAsyncKeyState(VirtualKey::Right), -32768);
        EXPECT_EQ(keyboard.GetAsyncKeyState(VirtualKey::Z), -32768);
        EXPECT_EQ(keyboard.GetAsyncKeyState(VirtualKey::Left), 0);
    }
    keyboard.Hold({VirtualKey::Z});
    EXPECT_EQ(keyboard.GetAsyncKeyState(VirtualKey::Right), 0) << "let go, it leaves nothing";
    EXPECT_EQ(keyboard.GetAsyncKeyState(VirtualKey::Z), -32768);
    keyboard.Hold({});
    EXPECT_EQ(keyboard.GetAsyncKeyState(VirtualKey::Z), 0);
}

TEST(HeadlessKeyboard, TellsOfATapOnce) {
    HeadlessKeyboard keyboard;
    keyboard.Tap(VirtualKey::Right);
    EXPECT_EQ(keyboard.GetAsyncKeyState(VirtualKey::Left), 0);
    EXPECT_EQ(keyboard.GetAsyncKeyState(VirtualKey::Right), 1);
    EXPECT_EQ(keyboard.GetAsyncKeyState(VirtualKey::Right), 0);
}

TEST(HeadlessKeyboard, TakesSingleKeysToo) {
    HeadlessKeyboard keyboard;
    keyboard.Press(VirtualKey::Escape);
    keyboard.Press(VirtualKey::A);
    keyboard.Release(VirtualKey::A);
    EXPECT_EQ(keyboard.Held(), KeySet{VirtualKey::Escape});
    EXPECT_EQ(keyboard.GetAsyncKeyState(VirtualKey::Escape), -32768);
    EXPECT_EQ(keyboard.GetAsyncKeyState(VirtualKey::A), 0);
}

}  // namespace
}  // namespace scenara
