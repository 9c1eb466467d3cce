// SPDX-License-Identifier: MIT
//
// A keyboard whose keys are all down, and which of them it was asked about.
#pragma once

#include <vector>

#include "platform/Keyboard.h"

namespace scenara::test {

class AskedKeyboard : public Keyboard {
public:
    Integer GetAsyncKeyState(VirtualKey key) override {
        asked.push_back(static_cast<int>(key));
        return 1;
    }
    std::vector<int> asked;
};

}  // namespace scenara::test
