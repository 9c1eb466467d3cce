// SPDX-License-Identifier: MIT
#include "platform/soft/RepeatedTexels.h"

namespace scenara::soft {
namespace {

// How many pieces of a line could be drawn in the time that it takes to write one out. Pieces of
// less than a block take many times longer.
constexpr std::int64_t kPiecesPerWritten = 32;
constexpr std::int64_t kShortPiecesPerWritten = 3;

constexpr std::uint8_t kAllBits = 0xFF;
constexpr std::uint8_t kNoBits = 0;

}  // namespace

bool WrittenLines::AreBetter(const Texels& texture, const WholeRun& columns,
                             const WholeRun& lines) {
    const std::int64_t written = std::min(texture.height, lines.Length());
    const std::int64_t cuts = columns.Length() / texture.width;
    const std::int64_t worth =
        texture.width < kBlockTexels ? kShortPiecesPerWritten : kPiecesPerWritten;
    return cuts * lines.Length() > worth * written ||
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
            std::copy_n(LineAt(i - texture_.height), columns_.Length(), LineAt(i));
            std::copy_n(BitsAt(i - texture_.height), kLineBytes, BitsAt(i));
            continue;
        }
        const std::int32_t passed = firstLine + i;
        const std::int32_t texel = Wrapped(
            lines_.backwards ? lines_.texel - passed : lines_.texel + passed, texture_.height);
        WriteLine(texture_.Line(texel), LineAt(i));
        std::fill_n(BitsAt(i), kLineBytes, IsVisible(texel) ? kAllBits : kNoBits);
    }
}

void WrittenLines::WriteLine(const std::uint32_t* texels, std::uint32_t* line) const {
    const std::int32_t length = columns_.Length();
    std::int32_t column = Wrapped(columns_.texel, texture_.width);
    // Some whole repeats one by one, and then what is there again and again, so that what is read
    // was written a while ago.
    constexpr std::int32_t kOneByOne = 32;
    const std::int32_t repeats = (kOneByOne - 1) / texture_.width + 1;
    const std::int32_t first = std::min(length, repeats * texture_.width);
    for (std::int32_t x = 0; x < first; ++x) {
        line[x] = texels[column];
        if (columns_.backwards) {
            column = (column == 0 ? texture_.width : column) - 1;
        } else {
            column = column + 1 == texture_.width ? 0 : column + 1;
        }
    }
    for (std::int32_t done = first; done < length; done *= 2) {
        std::copy_n(line, std::min(done, length - done), line + done);
    }
}

// All blocks of a line that has anything to see count as visible: a small texture repeats in most
// of them.
bool WrittenLines::IsVisible(std::int32_t texelLine) const {
    const std::uint8_t* const bits = coverage_.LineBits(texelLine);
    return std::any_of(bits, bits + coverage_.LinePitch(),
                       [](std::uint8_t byte) { return byte != 0; });
}

TexelRows WrittenLines::Rows(std::int32_t count) const {
    TexelRows rows;
    rows.lines = texels_.data();
    rows.linePitch = kMostRun;
    if (coverage_.HasBits()) {
        rows.bits = bits_.data();
        rows.bitPitch = kLineBytes;
    }
    rows.width = columns_.Length();
    rows.height = count;
    return rows;
}

}  // namespace scenara::soft
