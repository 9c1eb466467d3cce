// SPDX-License-Identifier: MIT
//
// The loops of the vector paths behind CopyRows.h. For CopyRows*.cpp only.
//
// They draw blocks of kBlockTexels texels. A block that is drawn again changes nothing, and neither
// does a transparent texel, so nothing is ever drawn by halves: what does not fill a block at the
// rectangle's left or right end is the block that begins or ends there.
//
// `Blocks` has what a path does with one block, as static functions from texels to pixels:
// Copy<kMirrored> and Mask<kMirrored>. They are compiled for the path's processors and the loops
// are not, so that the loops must become part of a function that is. These take the rectangle by
// value, for of a copy of their own compilers know that no pixel is stored in it.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>

#include "platform/Direct3D8.h"
#include "platform/soft/CopyRows.h"
#include "platform/soft/Coverage.h"

namespace scenara::soft::rows {

// How many lines further the fetching is. Less comes too late, and small textures have no more.
inline constexpr std::int32_t kLinesAhead = 6;

// From line `y`, words to the line that is fetched while it is drawn: one of the rectangle's.
[[gnu::always_inline]] inline std::ptrdiff_t FetchDistance(const TexelRows& rows, std::int32_t y) {
    return rows.linePitch * std::min(kLinesAhead, rows.height - 1 - y);
}

// From the rectangle's first pixel to that at which the block of columns from `column` on goes.
template <bool kMirrored>
[[gnu::always_inline]] inline std::ptrdiff_t BlockPlace(const TexelRows& rows,
                                                        std::int32_t column) {
    const std::int32_t before = column - rows.column;
    return kMirrored ? rows.width - kBlockTexels - before : before;
}

template <typename Blocks, bool kMirrored>
[[gnu::always_inline]] inline void CopyLines(const TexelRows rows) {
    const std::int32_t lastBlock = rows.column + rows.width - kBlockTexels;
    const std::ptrdiff_t lastPlace = BlockPlace<kMirrored>(rows, lastBlock);
    for (std::int32_t y = 0; y < rows.height; ++y) {
        const std::uint32_t* const texels = rows.lines + y * rows.linePitch;
        std::uint32_t* const pixels = rows.destination + std::ptrdiff_t{y} * kViewWidth;
        const std::ptrdiff_t ahead = FetchDistance(rows, y);
        for (std::int32_t column = rows.column; column < lastBlock; column += kBlockTexels) {
            __builtin_prefetch(texels + (column + ahead));
            Blocks::template Copy<kMirrored>(texels + column,
                                             pixels + BlockPlace<kMirrored>(rows, column));
        }
        Blocks::template Copy<kMirrored>(texels + lastBlock, pixels + lastPlace);
    }
}

// Which of the texture's blocks a rectangle takes.
struct BlockRange {
    explicit BlockRange(const TexelRows& rows)
        : first(rows.column / kBlockTexels),
          last((rows.column + rows.width - 1) / kBlockTexels),
          wholeBegin((rows.column + kBlockTexels - 1) / kBlockTexels),
          wholeEnd((rows.column + rows.width) / kBlockTexels) {}

    std::int32_t first;
    std::int32_t last;
    std::int32_t wholeBegin;  // those from here on lie in it as a whole,
    std::int32_t wholeEnd;    // up to here
};

[[gnu::always_inline]] inline bool HasBit(const std::uint8_t* bits, std::int32_t block) {
    return ((bits[block / 8] >> (static_cast<unsigned>(block) % 8U)) & 1U) != 0;
}

// The bits of the whole blocks of one line, lowest for the first; there are never as many as 64.
class WholeBlocks {
public:
    explicit WholeBlocks(const BlockRange& range)
        : byte_(range.wholeBegin / 8), shift_(static_cast<unsigned>(range.wholeBegin) % 8U) {
        const std::int32_t count = std::max(range.wholeEnd - range.wholeBegin, 0);
        mask_ = (std::uint64_t{1} << static_cast<unsigned>(count)) - 1;
    }

    // The processors that have a vector path store the lowest byte first.
    [[gnu::always_inline]] [[nodiscard]] std::uint64_t Of(const std::uint8_t* bits) const {
        std::uint64_t word = 0;
        std::memcpy(&word, bits + byte_, sizeof word);
        return word >> shift_ & mask_;
    }

private:
    std::ptrdiff_t byte_;
    unsigned shift_;
    std::uint64_t mask_;
};
static_assert(kViewWidth / kBlockTexels + 8 <= 64 && Coverage::kReadBeyond >= 8);

// The first bit of `bits`, which is not 0. Compilers know a faster form of this than of
// std::countr_zero, for processors that cannot count the zeros of 0.
[[gnu::always_inline]] inline std::int32_t FirstBit(std::uint64_t bits) {
    return __builtin_ctzll(bits);
}

template <typename Blocks, bool kMirrored>
[[gnu::always_inline]] inline void MaskLines(const TexelRows rows) {
    const BlockRange range(rows);
    const WholeBlocks whole(range);
    const bool partAtBegin = range.first < range.wholeBegin;
    const bool partAtEnd = range.last >= range.wholeEnd;
    const std::int32_t lastBlock = rows.column + rows.width - kBlockTexels;
    const std::int32_t wholeBegin = range.wholeBegin * kBlockTexels;
    const std::ptrdiff_t firstPlace = BlockPlace<kMirrored>(rows, rows.column);
    const std::ptrdiff_t lastPlace = BlockPlace<kMirrored>(rows, lastBlock);
    const std::ptrdiff_t wholePlace = BlockPlace<kMirrored>(rows, wholeBegin);
    for (std::int32_t y = 0; y < rows.height; ++y) {
        const std::uint32_t* const texels = rows.lines + y * rows.linePitch;
        const std::uint8_t* const bits = rows.bits + y * rows.bitPitch;
        std::uint32_t* const pixels = rows.destination + std::ptrdiff_t{y} * kViewWidth;
        const std::ptrdiff_t ahead = FetchDistance(rows, y);
        if (partAtBegin && HasBit(bits, range.first)) {
            Blocks::template Mask<kMirrored>(texels + rows.column, pixels + firstPlace);
        }
        for (std::uint64_t blocks = whole.Of(bits); blocks != 0; blocks &= blocks - 1) {
            const std::ptrdiff_t place = std::ptrdiff_t{FirstBit(blocks)} * kBlockTexels;
            const std::ptrdiff_t column = wholeBegin + place;
            __builtin_prefetch(texels + (column + ahead));
            Blocks::template Mask<kMirrored>(texels + column,
                                             pixels + (wholePlace + (kMirrored ? -place : place)));
        }
        if (partAtEnd && HasBit(bits, range.last)) {
            Blocks::template Mask<kMirrored>(texels + lastBlock, pixels + lastPlace);
        }
    }
}

}  // namespace scenara::soft::rows
