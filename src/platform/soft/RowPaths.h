// SPDX-License-Identifier: MIT
//
// The implementations of CopyRows.h, BlendRows.h, ScaledLines.h, PixelRows.h, MeanRows.h and
// ScaleRows.h, one per kind of processor. Only their *.cpp files include this.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "platform/soft/Blend.h"
#include "platform/soft/CopyRows.h"
#include "platform/soft/ScaleRows.h"

#if defined(__x86_64__) || defined(__i386__)
#define SCENARA_ROWS_X86 1
#else
#define SCENARA_ROWS_X86 0
#endif

namespace scenara::soft::rows {

// Any width.
void CopyPlain(const TexelRows& rows);
void MaskPlain(const TexelRows& rows);

#if SCENARA_ROWS_X86
// From kBlockTexels columns on.
void CopySse2(const TexelRows& rows);
void MaskSse2(const TexelRows& rows);
void CopyAvx2(const TexelRows& rows);
void MaskAvx2(const TexelRows& rows);
void MaskAvx512(const TexelRows& rows);
#endif

// Blocks of texels that are picked out of a line: pixel i of block b shows the texel that lies
// places[8 b + i] behind bases[b], and goes to begins[b] + i. The places are below 2 kBlockTexels,
// and so many texels from each base on are the line's.
struct PickedBlocks {
    const std::int32_t* bases;
    const std::int32_t* places;
    const std::int32_t* begins;
};

// The same for the means of four texels.
struct MeanBlocks {
    PickedBlocks picked;  // the left texels
    const std::int32_t* rightPlaces;
    const std::uint32_t* parts;  // of the right texels, in both halves of the word
};

// What alphas are to a mean of texels.
enum class MeanAlphas {
    Unused,  // blending is off, or all are 255
    Cut,     // weights; all are 0 or 255
    Any,     // weights
};

// The two lines of texels of a line of means.
struct MeanLines {
    const std::uint32_t* above;
    const std::uint32_t* below;
    std::uint32_t partsBelow;  // 0 to 255
    MeanAlphas alphas;
    const std::uint32_t* aheadAbove;  // those of a line that will be drawn soon
    const std::uint32_t* aheadBelow;
};

#if SCENARA_ROWS_X86
// Of texels without any alpha all becomes 0.
void MeanAvx2(const MeanBlocks& means, std::uint64_t blocks, const MeanLines& lines,
              std::uint32_t* texels);
void MeanAvx512(const MeanBlocks& means, std::uint64_t blocks, const MeanLines& lines,
                std::uint32_t* texels);
// Those of the bits, the lowest for the first. `ahead` is a line that will be drawn soon.
void PickAvx2(const PickedBlocks& picked, std::uint64_t blocks, const std::uint32_t* line,
              const std::uint32_t* ahead, std::uint32_t* texels);
void PickAvx512(const PickedBlocks& picked, std::uint64_t blocks, const std::uint32_t* line,
                const std::uint32_t* ahead, std::uint32_t* texels);
#endif

// As PixelRows.h has them, save up to three pixels at the end. How many were done: none on
// processors without SSE2.
[[nodiscard]] std::size_t TintSse2(std::span<std::uint32_t> texels, std::uint32_t tint);
[[nodiscard]] std::size_t BlendSse2(std::span<std::uint32_t> destination,
                                    std::span<const std::uint32_t> source,
                                    const PixelStates& states);

// Of a row that is made larger, one block; `shown` has room for as much as is wanted of it.
void RepeatPlain(const std::uint32_t* row, const ScaleBlock& block, std::span<std::uint32_t> shown);
void MixColumnsPlain(const std::uint32_t* row, const ScaleBlock& block, MixedBlock& mixed);
void MixRowsPlain(const MixedBlock& first, const MixedBlock& second, std::int16_t weight,
                  std::span<std::uint32_t> shown);

#if SCENARA_ROWS_X86
// Whole blocks, of a canvas that is at least as wide as one.
void RepeatAvx2(const std::uint32_t* row, std::span<const ScaleBlock> blocks, std::uint32_t* shown);
void MixColumnsAvx2(const std::uint32_t* row, std::span<const ScaleBlock> blocks,
                    MixedBlock* mixed);
void MixRowsAvx2(const MixedBlock* first, const MixedBlock* second, std::int16_t weight,
                 std::size_t blocks, std::uint32_t* shown);
#endif

}  // namespace scenara::soft::rows
