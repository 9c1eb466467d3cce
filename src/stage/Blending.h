// SPDX-License-Identifier: MIT
//
// Blending: how a picture is mixed with what lies behind it, beyond leaving out its colour 0.
#pragma once

#include <string_view>

#include "base/Integers.h"

namespace scenara {

enum class BlendKind : Byte {
    None,
    Add,       // behind + picture
    Add1,      // behind / 2 + picture
    Sub,       // behind - picture
    AddAlpha,  // behind * destination / 256 + picture * source / 256
};

struct Blending {
    BlendKind kind = BlendKind::None;
    Integer source = 256;     // of AddAlpha: 0 to 256
    Integer destination = 0;  // of AddAlpha: 0 to 256
};

// What an element's "trans" says, with the values of its "alpha" key; None for any other word.
[[nodiscard]] Blending ElementBlending(std::string_view trans, Integer alphaSource,
                                       Integer alphaDestination);

// What stands behind the flip on a frame line: "a", "a1", "s", or "as" with a source and "d" with a
// destination ("as128d64"), in lower case. None for anything else.
[[nodiscard]] Blending FrameBlending(std::string_view text);

}  // namespace scenara
