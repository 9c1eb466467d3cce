// SPDX-License-Identifier: MIT
//
// FrameFlip: which way a frame of an action is turned round. The stage file says it with a word;
// the stage start-up looks at the word once, so that no frame drawn has to.
#pragma once

#include <string_view>

#include "base/Integers.h"

namespace scenara {

enum class FrameFlip : Byte {
    None,    // any word that is none of these
    Across,  // "h": left to right
    Down,    // "v": top to bottom
    Both,    // "hv", "vh"
};

[[nodiscard]] constexpr FrameFlip FlipOf(std::string_view flip) {
    if (flip == "h") {
        return FrameFlip::Across;
    }
    if (flip == "v") {
        return FrameFlip::Down;
    }
    return flip == "hv" || flip == "vh" ? FrameFlip::Both : FrameFlip::None;
}

}  // namespace scenara
