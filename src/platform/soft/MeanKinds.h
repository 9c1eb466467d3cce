// SPDX-License-Identifier: MIT
//
// What is known of means of texels, from what is known of the texture.
#pragma once

#include "platform/soft/Blend.h"
#include "platform/soft/Coverage.h"
#include "platform/soft/RowPaths.h"

namespace scenara::soft {

// What the texture of `kind` is after means of its texels were taken.
[[nodiscard]] constexpr Coverage::Kind KindOfMeans(Coverage::Kind kind) {
    return kind == Coverage::Kind::Masked ? Coverage::Kind::Translucent : kind;
}

[[nodiscard]] constexpr rows::MeanAlphas AlphasOf(const PixelStates& states, Coverage::Kind kind) {
    if (!states.blending || kind == Coverage::Kind::Opaque) {
        return rows::MeanAlphas::Unused;
    }
    return kind == Coverage::Kind::Masked ? rows::MeanAlphas::Cut : rows::MeanAlphas::Any;
}

}  // namespace scenara::soft
