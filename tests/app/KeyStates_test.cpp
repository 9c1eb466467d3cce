// SPDX-License-Identifier: MIT
#include "app/KeyStates.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/headless/HeadlessKeyboard.h"
#include "platform/headless/HeadlessWindow.h"
#include "support/AskedKeyboard.h"

namespace scenara {
namespace {

using test::AskedKeyboard;

TEST(AnyKeyDown, AsksNoFurtherThanTheFirst) {
    AskedKeyboard all;
    EXPECT_TRUE(AnyKeyDown(all));
    EXPECT_THAT(all.asked, testing::ElementsAre(0));

    HeadlessKeyboard none;
    EXPECT_FALSE(AnyKeyDown(none));
    none.Press(static_cast<VirtualKey>(255));
    EXPECT_TRUE(AnyKeyDown(none));
}

TEST(TellKeyCodes, WritesTheCodesUntilTheProgramEnds) {
    HeadlessKeyboard keyboard;
    keyboard.Press(VirtualKey::A);
    keyboard.Press(VirtualKey::NumpadPlus);
    int rounds = 0;
    HeadlessWindow window([&](HeadlessWindow& shown) {
        keyboard.Release(VirtualKey::A);
        if (++rounds == 2) {
            shown.RequestEnd();
        }
    });
    TellKeyCodes(keyboard, window);
    EXPECT_THAT(window.Captions(), testing::ElementsAre("65", "107", "107"));
}

}  // namespace
}  // namespace scenara
