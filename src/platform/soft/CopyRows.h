// SPDX-License-Identifier: MIT
//
// The fast ways of drawing a rectangle of texels one to one: copied, or copied where they are
// visible, as they are or mirrored.
//
// What is drawn over and over lies in the cache; a stage's textures do not, and each line of one
// begins far behind the last, where no processor looks ahead by itself. So while a line is drawn
// the same place a few lines further is fetched: where this line has pixels the next ones have.
#pragma once

#include <cstddef>
#include <cstdint>

namespace scenara::soft {

// A rectangle of texels that all lie in the texture and what it is drawn to, which lies in the
// back buffer.
struct TexelRows {
    const std::uint32_t* lines = nullptr;  // the first line, from the texture's column 0
    std::ptrdiff_t linePitch = 0;          // words to the next line that is drawn; may be negative
    const std::uint8_t* bits = nullptr;    // the coverage of the first line; MaskRows needs it
    std::ptrdiff_t bitPitch = 0;           // bytes to the next line that is drawn
    std::int32_t column = 0;               // the rectangle's first
    std::int32_t width = 0;                // 1 to kMostRun
    std::int32_t height = 0;               // 1 or more
    bool mirrored = false;                 // the last column is drawn first
    std::uint32_t* destination = nullptr;  // the first pixel
    std::ptrdiff_t pitch = 0;              // words from one line of pixels to the next
};

// The code paths, slowest first. All draw the same.
enum class RowPath { Plain, Sse2, Avx2, Avx512 };

// The fastest path that this processor has.
[[nodiscard]] RowPath BestRowPath();

// All texels. A path that the processor does not have falls back to the next one below.
void CopyRows(const TexelRows& rows, RowPath path = RowPath::Avx512);

// Those with an alpha of 128 or more. Only blocks of which the coverage has the bit are looked at.
void MaskRows(const TexelRows& rows, RowPath path = RowPath::Avx512);

}  // namespace scenara::soft
