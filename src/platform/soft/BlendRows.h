// SPDX-License-Identifier: MIT
//
// The fast ways of blending a rectangle of texels by their alpha. What has none leaves its pixel
// alone, so that blocks without a visible texel are passed over. The results are those of Blend.h.
//
// Of texels that are either visible or not there at all, as most of a stage's are, all that is
// visible has the same alpha, the tint's. Nothing then depends on a texel but its colour, and one
// of the two terms is always a whole number.
#pragma once

#include <cstdint>
#include <optional>

#include "platform/soft/Blend.h"
#include "platform/soft/CopyRows.h"

namespace scenara::soft {

struct EvenBlend {
    enum class Kind {
        Add,       // pixel + texel * alpha
        TakeAway,  // pixel - texel * alpha
        Darken,    // pixel * (1 - alpha)
    };

    Kind kind = Kind::Add;
    std::uint32_t alpha = 255;  // 0 to 255

    bool operator==(const EvenBlend&) const = default;
};

// What is drawn with these states and this tint, if it is one of these.
[[nodiscard]] constexpr std::optional<EvenBlend> EvenBlendOf(const PixelStates& states,
                                                             std::uint32_t tint) {
    if (!states.blending || states.sourceFactor != D3DBLEND_SRCALPHA) {
        return std::nullopt;
    }
    const bool adding = states.operation == D3DBLENDOP_ADD;
    const std::uint32_t color = tint & kColorMask;
    const std::uint32_t alpha = tint >> 24U;
    if (states.destinationFactor == D3DBLEND_INVSRCALPHA && adding && color == 0) {
        return EvenBlend{EvenBlend::Kind::Darken, alpha};
    }
    if (states.destinationFactor != D3DBLEND_ONE || color != kColorMask) {
        return std::nullopt;
    }
    if (states.operation == D3DBLENDOP_REVSUBTRACT) {
        return EvenBlend{EvenBlend::Kind::TakeAway, alpha};
    }
    return adding ? std::optional(EvenBlend{EvenBlend::Kind::Add, alpha}) : std::nullopt;
}

// Texels of any alpha, with their tint.
struct AlphaBlend {
    enum class Kind {
        Cover,     // pixel * (1 - alpha) + texel * alpha
        Add,       // pixel + texel * alpha
        TakeAway,  // pixel - texel * alpha
    };

    Kind kind = Kind::Cover;
    std::uint32_t tint = kWhite;

    bool operator==(const AlphaBlend&) const = default;
};

[[nodiscard]] constexpr std::optional<AlphaBlend> AlphaBlendOf(const PixelStates& states,
                                                               std::uint32_t tint) {
    if (IsCovering(states)) {
        return AlphaBlend{AlphaBlend::Kind::Cover, tint};
    }
    if (!states.blending || states.sourceFactor != D3DBLEND_SRCALPHA ||
        states.destinationFactor != D3DBLEND_ONE || states.operation == D3DBLENDOP_SUBTRACT) {
        return std::nullopt;
    }
    const bool adding = states.operation == D3DBLENDOP_ADD;
    return AlphaBlend{adding ? AlphaBlend::Kind::Add : AlphaBlend::Kind::TakeAway, tint};
}

// Draws texels whose alphas are 0 or 255: of blocks of which the coverage has the bit, or of all
// when `rows` has no coverage. False, and nothing is drawn, when they are less than kBlockTexels
// wide or the processor has no fast way.
[[nodiscard]] bool BlendEvenly(const TexelRows& rows, const EvenBlend& blend);

// The same for texels of all alphas.
[[nodiscard]] bool BlendByAlpha(const TexelRows& rows, const AlphaBlend& blend);

}  // namespace scenara::soft
