// SPDX-License-Identifier: MIT
#include "platform/soft/RowDrawing.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <span>

#include "platform/soft/PixelRows.h"
#include "platform/soft/Texels.h"

namespace scenara::soft {
namespace {

std::optional<EvenBlend> EvenBlendFor(const PixelStates& states, std::uint32_t tint,
                                      Coverage::Kind kind) {
    const bool even = kind == Coverage::Kind::Masked || kind == Coverage::Kind::Opaque;
    return even ? EvenBlendOf(states, tint) : std::nullopt;
}

void BlendRows(const TexelRows& rows, const PixelStates& states, std::uint32_t tint) {
    const auto width = static_cast<std::size_t>(rows.width);
    std::array<std::uint32_t, kMostRun> buffer;  // NOLINT(*-member-init): filled as needed
    const std::span<std::uint32_t> tinted = std::span(buffer).first(width);
    for (std::int32_t y = 0; y < rows.height; ++y) {
        const std::span source(rows.lines + y * rows.linePitch + rows.column, width);
        const std::span pixels(rows.destination + y * rows.pitch, width);
        if (!rows.mirrored && tint == kWhite) {
            BlendRow(pixels, source, states);
            continue;
        }
        if (rows.mirrored) {
            std::ranges::reverse_copy(source, tinted.begin());
        } else {
            std::ranges::copy(source, tinted.begin());
        }
        TintRow(tinted, tint);
        BlendRow(pixels, tinted, states);
    }
}

}  // namespace

RowDrawing::RowDrawing(const PixelStates& states, std::uint32_t tint, Coverage::Kind kind)
    : states_(states),
      tint_(tint),
      operation_(OperationFor(states, tint, kind)),
      even_(EvenBlendFor(states, tint, kind)),
      byAlpha_(AlphaBlendOf(states, tint)) {}

RowDrawing::Operation RowDrawing::OperationFor(const PixelStates& states, std::uint32_t tint,
                                               Coverage::Kind kind) {
    if (tint != kWhite) {
        return Operation::Blend;
    }
    if (IsCopying(states) || (IsCovering(states) && kind == Coverage::Kind::Opaque)) {
        return Operation::Copy;
    }
    return IsCovering(states) && kind == Coverage::Kind::Masked ? Operation::Mask
                                                                : Operation::Blend;
}

void RowDrawing::Draw(const TexelRows& rows) const {
    switch (operation_) {
        case Operation::Copy: CopyRows(rows); break;
        case Operation::Mask: MaskRows(rows); break;
        default: Blend(rows);
    }
}

void RowDrawing::Blend(const TexelRows& rows) const {
    const bool drawn =
        even_ ? BlendEvenly(rows, *even_) : byAlpha_ && BlendByAlpha(rows, *byAlpha_);
    if (!drawn) {
        BlendRows(rows, states_, tint_);
    }
}

}  // namespace scenara::soft
