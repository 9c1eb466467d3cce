// SPDX-License-Identifier: MIT
#include "stage/SectionHeader.h"

#include <algorithm>
#include <utility>

#include "base/NumberText.h"
#include "base/Text.h"

namespace scenara {
namespace {

// From the first "[" up to the "]" after it.
std::string_view Inside(std::string_view header) {
    const std::string_view fromOpen = header.substr(std::min(header.find('['), header.size()));
    return fromOpen.substr(0, fromOpen.find(']'));
}

// Splits a name in lower case: its first letters, and the rest without blanks around it.
std::pair<std::string_view, std::string_view> FirstWord(std::string_view name) {
    std::size_t end = 0;
    while (end < name.size() && name[end] >= 'a' && name[end] <= 'z') {
        ++end;
    }
    return {name.substr(0, end), Trim(name.substr(end))};
}

}  // namespace

bool IsSectionHeader(std::string_view line) {
    return Contains(line, "[") && Contains(line, "]");
}

bool BeginsWithBracket(std::string_view line) {
    return Trim(line).starts_with('[');
}

SectionKind KindOfSection(std::string_view header) {
    const std::string lower = LowerCase(header);
    const bool def = Contains(lower, "def");
    if (Contains(lower, "bg") && !def && !Contains(lower, "ctrl")) {
        return SectionKind::Element;
    }
    if (Contains(lower, "begin action")) {
        return SectionKind::Action;
    }
    if (Contains(lower, "bgctrldef")) {
        return SectionKind::CtrlDef;
    }
    if (Contains(lower, "bgctrl") && !def) {
        return SectionKind::Ctrl;
    }
    return SectionKind::Settings;
}

SectionKind KindByFirstWord(std::string_view header) {
    const std::string name = SectionName(header);
    const auto [word, rest] = FirstWord(name);
    if (word == "bg") {
        return rest == "def" ? SectionKind::Settings : SectionKind::Element;
    }
    if (word == "beginaction" || (word == "begin" && rest.starts_with("action"))) {
        return SectionKind::Action;
    }
    if (word == "bgctrldef") {
        return SectionKind::CtrlDef;
    }
    if (word == "bgctrl") {
        return SectionKind::Ctrl;
    }
    return KindOfSection(header);
}

std::string SectionName(std::string_view header) {
    std::string_view inside = Inside(header);
    inside.remove_prefix(std::min<std::size_t>(inside.size(), 1));
    return LowerCase(Trim(inside));
}

std::string ElementName(std::string_view header) {
    const std::string_view inside = Inside(header);
    const std::size_t blank = inside.find(' ');
    return blank == std::string_view::npos ? "No name" : std::string(inside.substr(blank + 1));
}

double ActionNumber(std::string_view header) {
    constexpr std::string_view word = "action";
    const std::size_t at = LowerCase(header).find(word);
    return at == std::string::npos ? 0.0 : LeadingNumber(header.substr(at + word.size()));
}

}  // namespace scenara
