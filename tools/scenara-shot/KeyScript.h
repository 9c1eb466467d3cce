// SPDX-License-Identifier: MIT
//
// KeyScript: which keys are held in which frame, as users write it: "right:30,up+right:10,none:5"
// holds Right for 30 frames, Up and Right for the next 10, and nothing for 5.
//
// Keys are left, right, up, down, a and z, written so; "none" stands alone. Frames are counted from
// 1. Before the script and after it nothing is held.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "platform/headless/HeadlessKeyboard.h"

namespace scenara {

class KeyScript {
public:
    // Holds nothing at any time.
    KeyScript() = default;

    // Raises std::invalid_argument, with a sentence for people, for what is no script.
    explicit KeyScript(std::string_view text);

    [[nodiscard]] KeySet KeysOfFrame(std::int64_t frame) const;

private:
    struct Step {
        std::int64_t lastFrame = 0;
        KeySet keys;
    };

    std::vector<Step> steps_;
};

}  // namespace scenara
