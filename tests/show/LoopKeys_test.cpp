// SPDX-License-Identifier: MIT
#include "show/LoopKeys.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/AskedKeyboard.h"

namespace scenara {
namespace {

using test::AskedKeyboard;

TEST(DiscardKeyStates, AsksOnceForEveryKeyOfTheLoop) {
    AskedKeyboard keyboard;
    DiscardKeyStates(keyboard);
    EXPECT_THAT(keyboard.asked, testing::ElementsAre(2, 37, 38, 39, 40, 19, 27, 90, 65));
}

}  // namespace
}  // namespace scenara
