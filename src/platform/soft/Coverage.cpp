// SPDX-License-Identifier: MIT
#include "platform/soft/Coverage.h"

#include <new>
#include <span>

namespace scenara::soft {
namespace {

constexpr std::uint32_t kAlphaMask = 0xFF000000;

// What the alphas of some texels have in common.
struct Alphas {
    std::uint32_t some = 0;            // 0 when all are 0
    std::uint32_t every = kAlphaMask;  // kAlphaMask when all are 255
    std::uint32_t between = 0;         // 0 when all are 0 or 255

    void Take(std::uint32_t texel) {
        some |= texel;
        every &= texel;
        between |= (texel >> 24U) + 1;
    }
    void Take(const Alphas& others) {
        some |= others.some;
        every &= others.every;
        between |= others.between;
    }
    [[nodiscard]] bool AnyVisible() const { return (some & kAlphaMask) != 0; }
    [[nodiscard]] bool AllOpaque() const { return (every & kAlphaMask) == kAlphaMask; }
    // 0 and 255 are 1 and 256 when 1 was added; every other value has another of the lower bits.
    [[nodiscard]] bool AnyTranslucent() const { return (between & 0xFEU) != 0; }
};

Alphas AlphasOf(std::span<const std::uint32_t> texels) {
    Alphas alphas;
    for (const std::uint32_t texel : texels) {
        alphas.Take(texel);
    }
    return alphas;
}

// Sets the bits of a line's blocks, which are all clear; all of the line's alphas.
Alphas MarkBlocks(std::span<const std::uint32_t> line, std::uint8_t* bits) {
    Alphas all;
    constexpr auto kBlock = static_cast<std::size_t>(kBlockTexels);
    for (std::size_t x = 0, block = 0; x < line.size(); x += kBlock, ++block) {
        // A whole block has a length that the compiler knows.
        const auto rest = line.subspan(x);
        const Alphas alphas =
            rest.size() >= kBlock ? AlphasOf(rest.first<kBlock>()) : AlphasOf(rest);
        const unsigned bit = alphas.AnyVisible() ? 1 : 0;
        bits[block / 8] = static_cast<std::uint8_t>(bits[block / 8] | bit << (block % 8));
        all.Take(alphas);
    }
    return all;
}

}  // namespace

Coverage Coverage::Of(const Texels& texels) {
    Coverage coverage;
    coverage.pitch_ = (texels.width + 8 * kBlockTexels - 1) / (8 * kBlockTexels);
    const std::size_t bytes =
        static_cast<std::size_t>(coverage.pitch_) * static_cast<std::size_t>(texels.height);
    coverage.bits_.reset(new (std::nothrow) std::uint8_t[bytes + kReadBeyond]());
    if (coverage.bits_ == nullptr) {
        return {};
    }
    Alphas all;
    for (std::int32_t y = 0; y < texels.height; ++y) {
        const std::span line(texels.Line(y), static_cast<std::size_t>(texels.width));
        all.Take(MarkBlocks(line, coverage.bits_.get() + y * coverage.pitch_));
    }
    if (all.AnyTranslucent()) {
        coverage.kind_ = Kind::Translucent;
    } else {
        coverage.kind_ = all.AllOpaque() ? Kind::Opaque : Kind::Masked;
    }
    if (coverage.kind_ == Kind::Opaque) {
        coverage.bits_.reset();
        coverage.pitch_ = 0;
    }
    return coverage;
}

}  // namespace scenara::soft
