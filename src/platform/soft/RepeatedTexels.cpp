// SPDX-License-Identifier: MIT
#include "platform/soft/RepeatedTexels.h"

namespace scenara::soft {
namespace {

// How many pieces of a line could be drawn in the time that it takes to write one out.
constexpr std::int64_t kPiecesPerWritten = 16;

// Fills the span with its first `done` elements, over and over.
template <typename Value>
void Repeat(std::span<Value> values, std::size_t done) {
    for (; done < values.size(); done *= 2) {
        std::ranges::copy(values.first(std::min(done, values.size() - done)),
                          values.subspan(done).begin());
    }
}

}  // namespace

bool WrittenLines::AreBetter(const Texels& texture, const WholeRun& columns,
                             const WholeRun& lines) {
    const std::int64_t written = std::min(texture.height, lines.Length());
    const std::int64_t cuts = columns.Length() / texture.width;
    return cuts * lines.Length() > kPiecesPerWritten * written ||
           lines.Length() / texture.height > texture.height;
}

WrittenLines::WrittenLines(const Texels& texture, const Coverage& coverage, const WholeRun& columns,
                           const WholeRun& lines)
    : texture_(texture),
      coverage_(coverage),
      columns_(columns),
      lines_(lines),
      blockLines_(texture.height < kMostLines ? kMostLines - kMostLines % texture.height
                                              : kMostLines) {}

void WrittenLines::WriteBlock(std::int32_t firstLine) {
    const std::int32_t count = std::min(blockLines_, lines_.Length() - firstLine);
    for (std::int32_t i = 0; i < count; ++i) {
        if (i >= texture_.height) {
            std::ranges::copy(LineAt(i - texture_.height), LineAt(i).begin());
            continue;
        }
        const std::int32_t passed = firstLine + i;
        const std::int32_t texel = lines_.backwards ? lines_.texel - passed : lines_.texel + passed;
        WriteLine(texture_.Line(Wrapped(texel, texture_.height)), LineAt(i));
    }
    if (coverage_.WhatKind() == Coverage::Kind::Masked) {
        bits_.fill(0);
        for (std::int32_t i = 0; i < count; ++i) {
            Coverage::MarkLine(LineAt(i), &bits_[static_cast<std::size_t>(i) * kLineBytes]);
        }
    }
}

void WrittenLines::WriteLine(const std::uint32_t* texels, std::span<std::uint32_t> line) const {
    const std::int32_t once = std::min(columns_.Length(), texture_.width);
    std::size_t done = 0;
    ForEachRepeat({0, once, columns_.texel, columns_.backwards}, texture_.width,
                  [&](const WholeRun& part) {
                      for (std::int32_t i = 0; i < part.Length(); ++i, ++done) {
                          line[done] = texels[part.backwards ? part.texel - i : part.texel + i];
                      }
                  });
    Repeat(line, done);
}

TexelRows WrittenLines::Rows(std::int32_t count) const {
    TexelRows rows;
    rows.lines = texels_.data();
    rows.linePitch = kViewWidth;
    if (coverage_.WhatKind() == Coverage::Kind::Masked) {
        rows.bits = bits_.data();
        rows.bitPitch = kLineBytes;
    }
    rows.width = columns_.Length();
    rows.height = count;
    return rows;
}

}  // namespace scenara::soft
