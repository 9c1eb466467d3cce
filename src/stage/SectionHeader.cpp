// SPDX-License-Identifier: MIT
#include "stage/SectionHeader.h"

#include <algorithm>

#include "base/NumberText.h"
#include "base/Text.h"

namespace scenara {

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

std::string ElementName(std::string_view header) {
    const std::string_view behindOpen = header.substr(std::min(header.find('['), header.size()));
    const std::string_view inside = behindOpen.substr(0, behindOpen.find(']'));
    const std::size_t blank = inside.find(' ');
    return blank == std::string_view::npos ? "No name" : std::string(inside.substr(blank + 1));
}

double ActionNumber(std::string_view header) {
    constexpr std::string_view word = "action";
    const std::size_t at = LowerCase(header).find(word);
    return at == std::string::npos ? 0.0 : LeadingNumber(header.substr(at + word.size()));
}

}  // namespace scenara
