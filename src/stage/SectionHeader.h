// SPDX-License-Identifier: MIT
//
// SectionHeader: what a "[...]" line of a stage definition starts.
//
// Any line with a "[" and a "]" in it is a header. Plainly its kind is decided by words anywhere on
// the line, in any letter case. Deliberate: so an element whose name has "def" or "ctrl" in it,
// such as "[BG default]", is none (SectionHeader.ElementNamedDefaultIsASettingsSection).
#pragma once

#include <string>
#include <string_view>

namespace scenara {

enum class SectionKind { Element, Action, CtrlDef, Ctrl, Settings };

[[nodiscard]] bool IsSectionHeader(std::string_view line);

// Addition: the "[" must be the line's first character, so that "spr = [x]y.sff" is no header.
[[nodiscard]] bool BeginsWithBracket(std::string_view line);

[[nodiscard]] SectionKind KindOfSection(std::string_view header);

// Addition: the first word goes before words anywhere on the line, so that "[BG default]",
// "[BG Ctrl room]" and "[BGCtrl Undef]" are what they begin with, and "[Begin  Action 5]" may have
// any blanks or none.
[[nodiscard]] SectionKind KindByFirstWord(std::string_view header);

// What stands between the brackets, in lower case and without blanks around it.
[[nodiscard]] std::string SectionName(std::string_view header);

// The text behind the first blank of "[BG ...]" up to "]"; "No name" when there is no blank.
[[nodiscard]] std::string ElementName(std::string_view header);

// The number behind "ACTION", 0 when there is none; of any size.
[[nodiscard]] double ActionNumber(std::string_view header);

}  // namespace scenara
