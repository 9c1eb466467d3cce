// SPDX-License-Identifier: MIT
#include "platform/soft/TextLayout.h"

namespace scenara::soft {
namespace {

std::int64_t ShownWidth(char32_t character, CharacterWidths& widths) {
    return IsControl(character) ? 0 : widths.WidthOf(character);
}

// Half of the room that is left, down to the next whole pixel.
std::int64_t HalfOf(std::int64_t room) {
    return room >> 1;
}

std::int64_t CountLines(LineCutter lines) {
    std::int64_t count = 0;
    while (lines.Next()) {
        ++count;
    }
    return count;
}

}  // namespace

LineCutter::LineCutter(std::string_view text, TextEncoding encoding, std::uint32_t format,
                       std::int64_t room, CharacterWidths& widths)
    : text_(text),
      encoding_(encoding),
      singleLine_((format & DT_SINGLELINE) != 0),
      wordBreak_((format & DT_WORDBREAK) != 0 && !singleLine_),
      room_(room),
      widths_(widths) {}

std::optional<std::string_view> LineCutter::Next() {
    if (at_ >= text_.size()) {
        return std::nullopt;
    }
    const Cut cut = wordBreak_ ? CutToFit() : CutAtBreak(at_);
    const std::string_view line = text_.substr(at_, cut.end - at_);
    at_ = cut.next;
    return line;
}

// Cuts at the first line break from `from` on.
LineCutter::Cut LineCutter::CutAtBreak(std::size_t from) const {
    const std::size_t found =
        singleLine_ ? std::string_view::npos : text_.find_first_of(kCrLf, from);
    if (found == std::string_view::npos) {
        return {text_.size(), text_.size()};
    }
    return {found, found + (text_.substr(found, 2) == kCrLf ? 2 : 1)};
}

// Cuts at the next line break, or before the first word that passes the room.
LineCutter::Cut LineCutter::CutToFit() {
    std::int64_t width = 0;
    bool hasWord = false;           // something is in the line that can stand in it alone
    std::optional<Cut> lastBlanks;  // those behind the last whole word
    bool inBlanks = false;
    for (std::size_t at = at_; at < text_.size();) {
        const CodePoint character = CodePointAt(text_, at, encoding_);
        if (character.value == '\r' || character.value == '\n') {
            return CutAtBreak(at);
        }
        width += ShownWidth(character.value, widths_);
        const bool isBlank = character.value == ' ';
        if (!isBlank && lastBlanks && width > room_) {
            return *lastBlanks;
        }
        if (isBlank && hasWord) {
            lastBlanks = {inBlanks ? lastBlanks->end : at, at + character.length};
        }
        hasWord = hasWord || !isBlank;
        inBlanks = isBlank && hasWord;
        at += character.length;
    }
    return {text_.size(), text_.size()};
}

TextLayout::TextLayout(std::string_view text, TextEncoding encoding, const RECT& rectangle,
                       std::uint32_t format, std::int32_t lineHeight, CharacterWidths& widths)
    : encoding_(encoding),
      rectangle_(rectangle),
      format_(format),
      lineHeight_(lineHeight),
      widths_(widths),
      lines_(text, encoding, format, std::int64_t{rectangle.right} - rectangle.left, widths),
      top_(rectangle.top) {
    if ((format & (DT_VCENTER | DT_BOTTOM)) != 0) {
        const std::int64_t room =
            std::int64_t{rectangle.bottom} - rectangle.top - CountLines(lines_) * lineHeight;
        top_ += (format & DT_VCENTER) != 0 ? HalfOf(room) : room;
    }
}

std::optional<PlacedLine> TextLayout::Next() {
    const auto line = lines_.Next();
    if (!line) {
        return std::nullopt;
    }
    const PlacedLine placed{*line, LeftOf(*line), top_};
    top_ += lineHeight_;
    return placed;
}

std::int64_t TextLayout::LeftOf(std::string_view line) {
    if ((format_ & (DT_CENTER | DT_RIGHT)) == 0) {
        return rectangle_.left;
    }
    std::int64_t room = std::int64_t{rectangle_.right} - rectangle_.left;
    for (std::size_t at = 0; at < line.size();) {
        const CodePoint character = CodePointAt(line, at, encoding_);
        room -= ShownWidth(character.value, widths_);
        at += character.length;
    }
    return rectangle_.left + ((format_ & DT_CENTER) != 0 ? HalfOf(room) : room);
}

}  // namespace scenara::soft
