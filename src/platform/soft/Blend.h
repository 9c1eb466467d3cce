// SPDX-License-Identifier: MIT
//
// What becomes of one pixel: how a texel is tinted and how the result is mixed with what is there.
//
// Colours are ARGB words, a byte per channel, 255 = 1. Each step computes exactly and then rounds
// once, to the nearest value. What is drawn has a top byte that means nothing. The rows of
// PixelRows.h give the same, several pixels at a time.
#pragma once

#include <algorithm>
#include <cstdint>

#include "platform/Direct3D8.h"
#include "platform/soft/Sampling.h"

namespace scenara::soft {

// The states that decide about a pixel, as a new device has them.
struct PixelStates {
    bool blending = false;
    std::uint32_t sourceFactor = D3DBLEND_ONE;
    std::uint32_t destinationFactor = D3DBLEND_ZERO;
    std::uint32_t operation = D3DBLENDOP_ADD;
    std::uint32_t alphaOperation = D3DTOP_SELECTARG1;
    Sampling sampling{};
};

inline constexpr std::uint32_t kWhite = 0xFFFFFFFF;
inline constexpr std::uint32_t kColorMask = 0x00FFFFFF;

// `value` / 255, to the nearest; for values up to 2 x 255 x 255.
[[nodiscard]] constexpr std::uint32_t DividedBy255(std::uint32_t value) {
    return (value + 127) / 255;  // 255 is odd: there is no half
}

// The channel that begins at bit `shift`: 0 blue, 8 green, 16 red, 24 alpha.
[[nodiscard]] constexpr std::uint32_t Channel(std::uint32_t color, unsigned shift) {
    return (color >> shift) & 0xFFU;
}

// What a texel is multiplied with where the vertices have this colour: kWhite leaves all as they
// are.
[[nodiscard]] constexpr std::uint32_t TintOf(std::uint32_t color, std::uint32_t alphaOperation) {
    return alphaOperation == D3DTOP_MODULATE ? color : color | ~kColorMask;
}

[[nodiscard]] constexpr std::uint32_t Tinted(std::uint32_t texel, std::uint32_t tint) {
    const auto modulated = [&](unsigned shift) {
        return DividedBy255(Channel(texel, shift) * Channel(tint, shift)) << shift;
    };
    return modulated(24) | modulated(16) | modulated(8) | modulated(0);
}

// 0 to 255.
[[nodiscard]] constexpr std::uint32_t FactorOf(std::uint32_t factor, std::uint32_t sourceAlpha) {
    switch (factor) {
        case D3DBLEND_ZERO: return 0;
        case D3DBLEND_SRCALPHA: return sourceAlpha;
        case D3DBLEND_INVSRCALPHA: return 255 - sourceAlpha;
        default: return 255;
    }
}

[[nodiscard]] constexpr std::uint32_t Mixed(std::uint32_t source, std::uint32_t destination,
                                            std::uint32_t operation) {
    switch (operation) {
        case D3DBLENDOP_SUBTRACT: return DividedBy255(source - std::min(source, destination));
        case D3DBLENDOP_REVSUBTRACT:
            return DividedBy255(destination - std::min(source, destination));
        default: return std::min(DividedBy255(source + destination), 255U);
    }
}

// Whether the source replaces what is there, whatever its alpha.
[[nodiscard]] constexpr bool IsCopying(const PixelStates& states) {
    return !states.blending ||
           (states.sourceFactor == D3DBLEND_ONE && states.destinationFactor == D3DBLEND_ZERO &&
            states.operation == D3DBLENDOP_ADD);
}

// Whether the source lies over what is there, as much as its alpha says.
[[nodiscard]] constexpr bool IsCovering(const PixelStates& states) {
    return states.blending && states.sourceFactor == D3DBLEND_SRCALPHA &&
           states.destinationFactor == D3DBLEND_INVSRCALPHA && states.operation == D3DBLENDOP_ADD;
}

// What stands in the back buffer when `source` was drawn over `destination`.
[[nodiscard]] constexpr std::uint32_t Blended(std::uint32_t source, std::uint32_t destination,
                                              const PixelStates& states) {
    if (!states.blending) {
        return source;
    }
    const std::uint32_t alpha = source >> 24U;
    const std::uint32_t sourceFactor = FactorOf(states.sourceFactor, alpha);
    const std::uint32_t destinationFactor = FactorOf(states.destinationFactor, alpha);
    const auto mixed = [&](unsigned shift) {
        return Mixed(Channel(source, shift) * sourceFactor,
                     Channel(destination, shift) * destinationFactor, states.operation)
               << shift;
    };
    return mixed(16) | mixed(8) | mixed(0);
}

}  // namespace scenara::soft
