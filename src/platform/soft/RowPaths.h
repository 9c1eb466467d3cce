// SPDX-License-Identifier: MIT
//
// The implementations of CopyRows.h, BlendRows.h, PixelRows.h, MeanRows.h and ScaleRows.h, one per
// kind of processor. Only their *.cpp files include this.
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
