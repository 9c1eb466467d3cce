// SPDX-License-Identifier: MIT
//
// The loops that make a canvas larger, a row at a time.
//
// A row is mixed sideways first, into numbers with more bits than a channel has, and two of these
// are mixed into a row that is shown: rounded once. Every path draws the same.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

#include "platform/soft/CopyRows.h"

namespace scenara::soft {

// Which columns of the canvas eight columns that are shown are made of. Two windows of eight
// columns have all of them.
inline constexpr std::size_t kScaleBlock = 8;

struct ScaleBlock {
    std::int32_t firsts = 0;                        // where the window with the first ones begins
    std::int32_t neighbours = 0;                    // ... and the one with their neighbours
    std::array<std::uint8_t, kScaleBlock> first{};  // a column of its window: 0 to 7
    std::array<std::uint8_t, kScaleBlock> neighbour{};
    std::array<std::int16_t, kScaleBlock> weight{};  // as ScaleTap has it
};

// A block of a row that is mixed sideways: channels with 7 bits after the point, in whatever order
// the path has them.
struct alignas(64) MixedBlock {
    std::array<std::int16_t, 4 * kScaleBlock> channels;
};

class ScaleRows {
public:
    // For rows of a canvas of this width. A path that the processor does not have falls back to the
    // next one below.
    explicit ScaleRows(std::int32_t width, RowPath path = RowPath::Avx512);

    // One row of the canvas, its columns repeated; weights do not count.
    void Repeat(const std::uint32_t* row, std::span<const ScaleBlock> blocks,
                std::span<std::uint32_t> shown) const;

    // One row of the canvas.
    void MixColumns(const std::uint32_t* row, std::span<const ScaleBlock> blocks,
                    MixedBlock* mixed) const;

    // A row that is shown, of two that this object has mixed; `weight` is that of the second.
    void MixRows(const MixedBlock* first, const MixedBlock* second, std::int16_t weight,
                 std::span<std::uint32_t> shown) const;

private:
    bool vectors_ = false;
};

}  // namespace scenara::soft
