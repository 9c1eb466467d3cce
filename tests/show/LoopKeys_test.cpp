// SPDX-License-Identifier: MIT
#include "show/LoopKeys.h"

#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace scenara {
namespace {

class AskedKeyboard : public Keyboard {
public:
    Integer GetAsyncKeyState(VirtualKey key) override {
        asked.push_back(static_cast<int>(key));
        return 1;
    }
    std::vector<int> asked;
};

TEST(DiscardKeyStates, AsksOnceForEveryKeyOfTheLoop) {
    AskedKeyboard keyboard;
    DiscardKeyStates(keyboard);
    EXPECT_THAT(keyboard.asked, testing::ElementsAre(2, 37, 38, 39, 40, 19, 27, 90, 65));
}

}  // namespace
}  // namespace scenara
