// SPDX-License-Identifier: MIT
#include "literal/LiteralTexels.h"

#include <algorithm>
#include <cmath>

namespace scenara::test {

std::int64_t NearestTexel(const TexelPlace& place) {
    return place.first + (2 * place.at + 1) * place.count / (2 * place.size);
}

TwoTexels TexelsAround(const TexelPlace& place, std::int64_t size) {
    // 256 times the place, less half a texel, to the nearest part. In parts of 2 * place.size, so
    // that all is whole.
    const std::int64_t whole = 2 * place.size;
    const std::int64_t parts =
        256 * ((2 * place.at + 1) * place.count + place.first * whole) - 128 * whole + place.size;
    std::int64_t part = parts / whole;
    if (part * whole > parts) {
        --part;  // a division rounds towards 0
    }
    return TexelsAt(part, size);
}

TwoTexels TexelsAt(std::int64_t part, std::int64_t size) {
    const auto texel = static_cast<std::int64_t>(std::floor(static_cast<double>(part) / 256));
    const std::int64_t ofSecond = part - 256 * texel;
    const auto within = [&](std::int64_t number) {
        return std::min(std::max<std::int64_t>(number, 0), size - 1);
    };
    return {{within(texel), within(texel + 1)}, {256 - ofSecond, ofSecond}};
}

std::uint32_t MeanOf(const std::array<WeighedTexel, 4>& four, bool alphaCounts) {
    const auto channel = [](std::uint32_t texel, unsigned shift) {
        return static_cast<std::int64_t>(texel >> shift & 0xFFU);
    };
    const auto mean = [&](unsigned shift, bool byAlpha) {
        std::int64_t sum = 0;
        std::int64_t weights = 0;
        for (const auto& [texel, weight] : four) {
            const std::int64_t counts = byAlpha ? weight * channel(texel, 24) : weight;
            sum += counts * channel(texel, shift);
            weights += counts;
        }
        return static_cast<std::uint32_t>((2 * sum + weights) / (2 * weights));
    };
    const bool byAlpha = alphaCounts && std::ranges::any_of(four, [&](const WeighedTexel& one) {
                             return one.weight * channel(one.texel, 24) != 0;
                         });
    return mean(24, false) << 24U | mean(16, byAlpha) << 16U | mean(8, byAlpha) << 8U |
           mean(0, byAlpha);
}

}  // namespace scenara::test
