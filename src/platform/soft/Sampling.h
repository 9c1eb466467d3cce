// SPDX-License-Identifier: MIT
//
// Which texels a pixel shows: the rules of platform/Direct3D8.h in numbers, for every path.
//
// A run of texels that is drawn backwards is mirrored first. So there are two ways to count along
// an axis: plain, as the texture's texels are numbered, and mirrored, where texel t is the
// texture's -1 - t and place p is its place -p. Either way numbers go up as pixels do, and one rule
// serves.
#pragma once

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>

namespace scenara::soft {

// How texels are looked up, as a new device does it.
struct Sampling {
    bool linear = false;        // the mean of four, or the nearest one
    bool clampColumns = false;  // beyond its edges: the texture's last texels, or the texture anew
    bool clampLines = false;

    bool operator==(const Sampling&) const = default;
};

// A place that is less than this before a border is on it. It is more than a double's error within
// the bounds that the rule names, and less than the distance of any place that is not on a border.
inline constexpr double kTie = 1.0 / (1 << 20);

// Parts of a texel that the weights of a mean are counted in.
inline constexpr std::int32_t kTexelParts = 256;

// The texel that a place shows by the nearest, as a whole number.
[[nodiscard]] inline double NearestTexel(double place) {
    return place + kTie;  // whoever takes it rounds it down
}

// How many parts the first of the two texels of a mean lies from the axis' origin, likewise.
[[nodiscard]] inline double MeanParts(double place) {
    return kTexelParts * place - (kTexelParts - 1) / 2.0 + kTie;
}

// The place along an axis of `texels` texels that a texture coordinate means.
[[nodiscard]] inline double PlaceOf(float coordinate, std::int32_t texels) {
    constexpr double kOwnRounding = 1.0 / (1 << 23);
    constexpr double kMost = 0.25;
    const double place = static_cast<double>(coordinate) * texels;  // exact
    const double edge = std::floor(place + 0.5);
    const bool isEdge = std::abs(place - edge) <= std::min(std::abs(place) * kOwnRounding, kMost);
    return isEdge ? edge : place;
}

// An axis of a texture, for pixels that are looked up one after the other. Neighbours are mostly in
// the same repeat of the texture, for which no division is needed.
class TexelAxis {
public:
    TexelAxis(std::int32_t size, bool mirrored, bool clamped)
        : size_(size), mirrored_(mirrored), clamped_(clamped) {}

    // The texture's texel at a number that is counted as the axis is.
    [[nodiscard]] std::int32_t TexelAt(std::int64_t number) {
        const std::int64_t texel = mirrored_ ? -1 - number : number;
        std::int64_t inside = texel - repeatStart_;
        if (inside < 0 || inside >= size_) {
            inside = clamped_ ? std::clamp<std::int64_t>(texel, 0, size_ - 1) : Repeated(texel);
        }
        return static_cast<std::int32_t>(inside);
    }

private:
    [[nodiscard]] std::int64_t Repeated(std::int64_t texel) {
        std::int64_t inside = texel % size_;
        inside += inside < 0 ? size_ : 0;
        repeatStart_ = texel - inside;
        return inside;
    }

    std::int64_t size_;
    std::int64_t repeatStart_ = 0;
    bool mirrored_;
    bool clamped_;
};

// The mean of the texels at left top, right top, left bottom and right bottom. The parts are those
// of the right ones and of the lower ones, 0 to kTexelParts - 1. `byAlpha`: blending is on.
[[nodiscard]] constexpr std::uint32_t MeanOf(const std::array<std::uint32_t, 4>& texels,
                                             std::uint32_t partsRight, std::uint32_t partsBelow,
                                             bool byAlpha) {
    constexpr std::uint32_t kParts = kTexelParts;
    const std::uint32_t partsLeft = kParts - partsRight;
    const std::uint32_t partsAbove = kParts - partsBelow;
    std::array<std::uint32_t, 4> weights = {partsLeft * partsAbove, partsRight * partsAbove,
                                            partsLeft * partsBelow, partsRight * partsBelow};
    const auto sumOf = [&](unsigned shift) {
        std::uint64_t sum = 0;
        for (std::size_t i = 0; i < 4; ++i) {
            sum += std::uint64_t{weights[i]} * ((texels[i] >> shift) & 0xFFU);
        }
        return sum;
    };
    std::uint64_t whole = std::uint64_t{kParts} * kParts;
    const std::uint64_t alphas = sumOf(24);
    const std::uint64_t alpha = (alphas + whole / 2) / whole;
    if (byAlpha && alphas != 0) {
        for (std::size_t i = 0; i < 4; ++i) {
            weights[i] *= texels[i] >> 24U;
        }
        whole = alphas;
    }
    const auto meanOf = [&](unsigned shift) { return (sumOf(shift) + whole / 2) / whole << shift; };
    return static_cast<std::uint32_t>(alpha << 24U | meanOf(16) | meanOf(8) | meanOf(0));
}

}  // namespace scenara::soft
