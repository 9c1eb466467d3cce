// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cstddef>
#include <cstdint>

#include "platform/soft/RowPaths.h"

namespace scenara::soft::rows {
namespace {

constexpr std::uint32_t kTopBit = 0x80000000;

template <typename DrawLine>
void ForEachLine(const TexelRows& rows, DrawLine drawLine) {
    for (std::int32_t y = 0; y < rows.height; ++y) {
        drawLine(rows.lines + y * rows.linePitch + rows.column, rows.destination + y * rows.pitch);
    }
}

}  // namespace

void CopyPlain(const TexelRows& rows) {
    ForEachLine(rows, [&](const std::uint32_t* source, std::uint32_t* pixels) {
        if (rows.mirrored) {
            std::reverse_copy(source, source + rows.width, pixels);
        } else {
            std::copy_n(source, rows.width, pixels);
        }
    });
}

void MaskPlain(const TexelRows& rows) {
    const std::ptrdiff_t step = rows.mirrored ? -1 : 1;
    ForEachLine(rows, [&](const std::uint32_t* source, std::uint32_t* pixels) {
        const std::uint32_t* texel = rows.mirrored ? source + rows.width - 1 : source;
        for (std::int32_t x = 0; x < rows.width; ++x) {
            const std::uint32_t color = texel[x * step];
            pixels[x] = (color & kTopBit) != 0 ? color : pixels[x];
        }
    });
}

}  // namespace scenara::soft::rows
