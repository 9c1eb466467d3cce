// SPDX-License-Identifier: MIT
//
// The loops of the vector paths behind CopyRows.h and BlendRows.h. For CopyRows*.cpp and
// BlendRows*.cpp only.
//
// They draw blocks of kBlockTexels texels. What does not fill a block at the rectangle's left or
// right end is in the block that begins or ends there. Copied or masked again it changes nothing,
// so these draw all of that block; blending draws only the texels that no other block has.
//
// `Blocks` has what a path does with one block, as static functions from texels to pixels:
// Copy<kMirrored>, Mask<kMirrored> and, which also gets the texels to draw and their alpha or tint,
// Blend<kMirrored>. They are compiled for the path's processors and the loops are not, so that the
// loops must become part of a function that is. These take the rectangle by value, for of a copy of
// their own compilers know that no pixel is stored in it.
//
// Of two blocks one is fetched ahead, for the other is mostly in the same line of the cache.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>

#include "platform/soft/CopyRows.h"
#include "platform/soft/Coverage.h"
#include "platform/soft/Texels.h"

namespace scenara::soft::rows {

// How many lines further the fetching is: with less it comes too late, with more what was fetched
// is gone again.
inline constexpr std::int32_t kLinesAhead = 6;

// From line `y`, words to the line that is fetched while it is drawn: one of the rectangle's.
[[gnu::always_inline]] inline std::ptrdiff_t FetchDistance(const TexelRows& rows, std::int32_t y) {
    return rows.linePitch * std::min(kLinesAhead, rows.height - 1 - y);
}

// A line of a rectangle, for blocks that begin some texels behind its first one.
template <bool kMirrored>
struct Line {
    [[gnu::always_inline]] Line(const TexelRows& rows, std::int32_t y)
        : texels(rows.lines + (y * rows.linePitch + rows.column)),
          ahead(texels + FetchDistance(rows, y)),
          pixels(rows.destination +
                 (y * rows.pitch + (kMirrored ? rows.width - kBlockTexels : 0))) {}

    // Where the block goes that begins with the texel `begin`.
    [[gnu::always_inline]] [[nodiscard]] std::uint32_t* PixelsOf(std::ptrdiff_t begin) const {
        return pixels + (kMirrored ? -begin : begin);
    }
    [[gnu::always_inline]] void Fetch(std::ptrdiff_t begin) const {
        __builtin_prefetch(ahead + begin);
    }

    const std::uint32_t* texels;
    const std::uint32_t* ahead;  // the same place a few lines further
    std::uint32_t* pixels;       // where the block goes that begins with the first texel
};

template <typename Blocks, bool kMirrored>
[[gnu::always_inline]] inline void CopyLines(const TexelRows rows) {
    constexpr std::ptrdiff_t kBlock = kBlockTexels;
    const std::ptrdiff_t lastBegin = rows.width - kBlock;
    for (std::int32_t y = 0; y < rows.height; ++y) {
        const Line<kMirrored> line(rows, y);
        for (std::ptrdiff_t x = 0; x < rows.width; x += 2 * kBlock) {
            const std::ptrdiff_t first = std::min(x, lastBegin);
            line.Fetch(first);
            Blocks::template Copy<kMirrored>(line.texels + first, line.PixelsOf(first));
            const std::ptrdiff_t second = std::min(x + kBlock, lastBegin);
            Blocks::template Copy<kMirrored>(line.texels + second, line.PixelsOf(second));
        }
    }
}

// The texture's blocks that a rectangle takes, and how far behind its first texel they begin: a
// block of which it takes a part begins or ends where the rectangle does.
class TakenBlocks {
public:
    explicit TakenBlocks(const TexelRows& rows) {
        const std::int32_t firstBlock = rows.column / kBlockTexels;
        std::size_t count = 0;
        for (std::int32_t begin = firstBlock * kBlockTexels - rows.column; begin < rows.width;
             begin += kBlockTexels) {
            begins_[count] = std::clamp(begin, 0, rows.width - kBlockTexels);
            ++count;
        }
        skipped_ = rows.column % kBlockTexels;
        byte_ = firstBlock / 8;
        shift_ = static_cast<unsigned>(firstBlock) % 8U;
        mask_ = (std::uint64_t{1} << count) - 1;
    }

    // Those of a line that have their bit, as bits: the lowest for the first. The processors that
    // have a vector path store the lowest byte first.
    [[gnu::always_inline]] [[nodiscard]] std::uint64_t Visible(const std::uint8_t* bits) const {
        std::uint64_t word = 0;
        std::memcpy(&word, bits + byte_, sizeof word);
        return word >> shift_ & mask_;
    }

    // As if all had their bit.
    [[nodiscard]] std::uint64_t All() const { return mask_; }

    // Of the first of these, of which there is one, and takes it away. Compilers know a faster form
    // of this than of std::countr_zero, for processors that cannot count the zeros of 0.
    [[gnu::always_inline]] [[nodiscard]] std::ptrdiff_t TakeBegin(std::uint64_t& blocks) const {
        const auto first = static_cast<unsigned>(__builtin_ctzll(blocks));
        blocks &= blocks - 1;
        return begins_[first];
    }

    // A block's begin, and which of its texels are of the texture's block: all bits or none.
    struct Part {
        std::ptrdiff_t begin;
        const std::int32_t* lanes;
    };
    [[gnu::always_inline]] [[nodiscard]] Part TakePart(std::uint64_t& blocks) const {
        const auto first = static_cast<std::ptrdiff_t>(__builtin_ctzll(blocks));
        const std::ptrdiff_t begin = TakeBegin(blocks);
        return {begin, kLanes.data() + (kBlockTexels + begin - (first * kBlockTexels - skipped_))};
    }

private:
    // Any 8 from here are a block's lanes: some at its begin, all, or some at its end.
    static constexpr std::array<std::int32_t, static_cast<std::size_t>(3 * kBlockTexels)> kLanes = {
        0, 0, 0, 0, 0, 0, 0, 0, -1, -1, -1, -1, -1, -1, -1, -1, 0, 0, 0, 0, 0, 0, 0, 0};

    static constexpr std::size_t kMost = kMostRun / kBlockTexels + 1;
    static_assert(kMost + 7 <= 64 && Coverage::kReadBeyond >= 8, "all fit in a word");

    std::array<std::int32_t, kMost> begins_{};  // as many as `mask_` has bits
    std::ptrdiff_t skipped_ = 0;                // texels of the first block
    std::ptrdiff_t byte_ = 0;
    unsigned shift_ = 0;
    std::uint64_t mask_ = 0;
};

template <typename Blocks, bool kMirrored>
[[gnu::always_inline]] inline void MaskLines(const TexelRows rows) {
    const TakenBlocks taken(rows);
    for (std::int32_t y = 0; y < rows.height; ++y) {
        const Line<kMirrored> line(rows, y);
        std::uint64_t blocks = taken.Visible(rows.bits + y * rows.bitPitch);
        while (blocks != 0) {
            const std::ptrdiff_t first = taken.TakeBegin(blocks);
            line.Fetch(first);
            Blocks::template Mask<kMirrored>(line.texels + first, line.PixelsOf(first));
            if (blocks == 0) {
                break;
            }
            const std::ptrdiff_t second = taken.TakeBegin(blocks);
            Blocks::template Mask<kMirrored>(line.texels + second, line.PixelsOf(second));
        }
    }
}

template <typename Blocks, bool kMirrored>
[[gnu::always_inline]] inline void BlendLines(const TexelRows rows, std::uint32_t amount) {
    const TakenBlocks taken(rows);
    for (std::int32_t y = 0; y < rows.height; ++y) {
        const Line<kMirrored> line(rows, y);
        std::uint64_t blocks =
            rows.bits == nullptr ? taken.All() : taken.Visible(rows.bits + y * rows.bitPitch);
        while (blocks != 0) {
            const TakenBlocks::Part part = taken.TakePart(blocks);
            line.Fetch(part.begin);
            Blocks::template Blend<kMirrored>(line.texels + part.begin, line.PixelsOf(part.begin),
                                              part.lanes, amount);
            if (blocks == 0) {
                break;
            }
            const TakenBlocks::Part next = taken.TakePart(blocks);
            Blocks::template Blend<kMirrored>(line.texels + next.begin, line.PixelsOf(next.begin),
                                              next.lanes, amount);
        }
    }
}

}  // namespace scenara::soft::rows
