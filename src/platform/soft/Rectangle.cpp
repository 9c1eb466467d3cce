// SPDX-License-Identifier: MIT
#include "platform/soft/Rectangle.h"

#include <algorithm>
#include <cmath>

namespace scenara::soft {
namespace {

constexpr float kFarthestPixel = 16777216;  // 2^24

bool ShareColumn(const Vertex& a, const Vertex& b) {
    return a.x == b.x && a.tu == b.tu;
}

bool ShareLine(const Vertex& a, const Vertex& b) {
    return a.y == b.y && a.tv == b.tv;
}

}  // namespace

std::optional<Rectangle> AsRectangle(std::span<const Vertex> corners) {
    if (corners.size() != 4) {
        return std::nullopt;
    }
    const std::uint32_t color = corners[0].color;
    if (!std::ranges::all_of(corners, [&](const Vertex& v) { return v.color == color; })) {
        return std::nullopt;
    }
    const Vertex& a = corners[0];
    const Vertex& b = corners[1];
    const Vertex& c = corners[2];
    const Vertex& d = corners[3];
    if (ShareColumn(a, b) && ShareColumn(c, d) && ShareLine(a, c) && ShareLine(b, d)) {
        return Rectangle{b, c};
    }
    if (ShareLine(a, b) && ShareLine(c, d) && ShareColumn(a, c) && ShareColumn(b, d)) {
        return Rectangle{a, d};
    }
    return std::nullopt;
}

std::optional<std::int32_t> WholePixel(float position) {
    if (!(std::abs(position) <= kFarthestPixel)) {
        return std::nullopt;
    }
    const auto pixel = static_cast<std::int32_t>(position);
    return static_cast<float>(pixel) == position ? std::optional(pixel) : std::nullopt;
}

}  // namespace scenara::soft
