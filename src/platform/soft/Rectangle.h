// SPDX-License-Identifier: MIT
//
// Strips that are upright rectangles of one colour, as nearly all that is drawn are.
#pragma once

#include <cstdint>
#include <optional>
#include <span>

#include "platform/Direct3D8.h"

namespace scenara::soft {

// The corners that matter; the other two share their coordinates.
struct Rectangle {
    const Vertex& leftTop;
    const Vertex& rightBottom;
};

// What a strip of four corners is, if it is one of these: the corners come as left bottom, left
// top, right bottom, right top or as left top, right top, left bottom, right bottom.
[[nodiscard]] std::optional<Rectangle> AsRectangle(std::span<const Vertex> corners);

// The whole pixel that a coordinate is, if it is one and not so far that a float has no halves
// left.
[[nodiscard]] std::optional<std::int32_t> WholePixel(float position);

}  // namespace scenara::soft
