// SPDX-License-Identifier: MIT
//
// TextLayout: which part of a text stands where. It knows how wide each character is and nothing
// else of a font.
//
// - Lines end at CR LF, LF and CR; a line break at the very end begins no further line. With
//   DT_SINGLELINE there is one line, whatever stands in it.
// - With DT_WORDBREAK a line that is wider than the rectangle ends before the first word that does
//   not fit. The blanks there belong to no line. A single word is never broken. DT_SINGLELINE goes
//   before it.
// - DT_CENTER goes before DT_RIGHT, DT_VCENTER before DT_BOTTOM. What is centred and differs by an
//   odd number of pixels stands in the upper or left one of the two middles.
// - Control characters are not shown and have no width. "&" is a character like any other.
//
// Nothing is allocated and lines are found as they are asked for: a text costs the time to look at
// it twice or three times, whatever its size. Rectangles may be empty, turned around or anywhere.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

#include "base/NotCopied.h"
#include "base/Text.h"
#include "platform/Direct3D8.h"

namespace scenara::soft {

class CharacterWidths : NotCopied {
public:
    virtual ~CharacterWidths() = default;

    // Pixels from one character to the next, at least 0.
    [[nodiscard]] virtual std::int32_t WidthOf(char32_t character) = 0;
};

[[nodiscard]] constexpr bool IsControl(char32_t character) {
    return character < 0x20 || (character >= 0x7F && character < 0xA0);
}

// Pixels; left and top of its first character's cell.
struct PlacedLine {
    std::string_view text;
    std::int64_t left = 0;
    std::int64_t top = 0;
};

// Cuts a text into lines.
class LineCutter {
public:
    // `room`: pixels, for DT_WORDBREAK.
    LineCutter(std::string_view text, TextEncoding encoding, std::uint32_t format,
               std::int64_t room, CharacterWidths& widths);

    // The next line; none behind the last one.
    std::optional<std::string_view> Next();

private:
    struct Cut {
        std::size_t end;   // of the line
        std::size_t next;  // where the one after it begins
    };
    [[nodiscard]] Cut CutAtBreak(std::size_t from) const;
    [[nodiscard]] Cut CutToFit();

    std::string_view text_;
    TextEncoding encoding_;
    bool singleLine_;
    bool wordBreak_;
    std::int64_t room_;
    CharacterWidths& widths_;
    std::size_t at_ = 0;
};

class TextLayout {
public:
    // `lineHeight`: pixels from line to line, at least 1. `widths` must outlive the layout.
    TextLayout(std::string_view text, TextEncoding encoding, const RECT& rectangle,
               std::uint32_t format, std::int32_t lineHeight, CharacterWidths& widths);

    // The next line from top to bottom; none behind the last one.
    std::optional<PlacedLine> Next();

private:
    [[nodiscard]] std::int64_t LeftOf(std::string_view line);

    TextEncoding encoding_;
    RECT rectangle_;
    std::uint32_t format_;
    std::int32_t lineHeight_;
    CharacterWidths& widths_;
    LineCutter lines_;
    std::int64_t top_;
};

}  // namespace scenara::soft
