// SPDX-License-Identifier: MIT
#include "SoftQuads.h"

#include <algorithm>

namespace scenara::test {

PlainTexture::PlainTexture(std::int32_t width, std::int32_t height, const ColorAt& colorAt,
                           std::int32_t padding)
    : width_(width), height_(height), pitch_(width + padding) {
    constexpr std::uint32_t kNeverSeen = 0xFFFF00FF;
    words_.assign(At(width - 1, height - 1) + 1, kNeverSeen);
    for (std::int32_t y = 0; y < height; ++y) {
        for (std::int32_t x = 0; x < width; ++x) {
            words_[At(x, y)] = colorAt(x, y);
        }
    }
}

TestView::TestView(std::uint32_t color, const CanvasSize& size)
    : size_(size),
      pixels_(static_cast<std::size_t>(size.width) * static_cast<std::size_t>(size.height), color) {
}

std::size_t TestView::Count(std::uint32_t color) const {
    return static_cast<std::size_t>(std::ranges::count_if(
        pixels_, [&](std::uint32_t pixel) { return (pixel & soft::kColorMask) == color; }));
}

bool TestView::operator==(const TestView& other) const {
    std::uint32_t difference = 0;  // without a branch, for the many that are compared
    for (std::size_t i = 0; i < pixels_.size(); ++i) {
        difference |= pixels_[i] ^ other.pixels_[i];
    }
    return (difference & soft::kColorMask) == 0;
}

}  // namespace scenara::test
