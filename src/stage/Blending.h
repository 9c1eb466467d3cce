// SPDX-License-Identifier: MIT
//
// Blending: how a picture is mixed with what lies behind it, beyond leaving out its colour 0.
#pragma once

#include <optional>
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

// What an element's "trans" says, in lower case, decided by its beginning; None for any other word.
// "alpha" counts for "add" and "addalpha". Where it has no destination, that is 256 for "add" and 0
// for "addalpha".
[[nodiscard]] Blending ElementBlending(std::string_view trans, Integer alphaSource,
                                       std::optional<Integer> alphaDestination);

// Whether an element with this "trans" leaves the blending to each frame of its action: without the
// key, with "default", and below version 1.0 of MUGEN with "none".
[[nodiscard]] bool FramesBlend(std::string_view trans, bool belowVersion1);

// What a frame line has after the flip, in lower case, decided by its beginning: "as" and a figure
// is AddAlpha with the numbers after "as" and "d" ("as128d64"; without a "d" the destination is 0),
// else "a1" and "add1" are Add1, any other "a" is Add, "s" is Sub. None for anything else.
[[nodiscard]] Blending FrameBlending(std::string_view text);

}  // namespace scenara
