// SPDX-License-Identifier: MIT
#include "character/CharacterText.h"

namespace scenara {

void CharacterLine::Assign(std::string_view untrimmed) {
    text_ = TrimBlanks(untrimmed);
    LowerCase(text_, lower_);
}

std::optional<std::size_t> CharacterLine::Before(std::string_view word) const {
    const std::size_t at = lower_.find(word);
    if (at == std::string::npos || at > text_.find(';')) {
        return std::nullopt;
    }
    return at;
}

std::optional<std::string> CharacterLine::ValueUpTo(std::string_view end) const {
    const std::string_view line = WithoutComment();
    const std::size_t equals = line.find('=');
    const std::size_t stop = std::string_view(lower_).substr(0, line.size()).find(end);
    if (equals == std::string_view::npos || stop == std::string_view::npos || stop <= equals) {
        return std::nullopt;
    }
    const std::string_view value = TrimBlanks(line.substr(equals + 1, stop - equals - 1));
    if (value.empty()) {
        return std::nullopt;
    }
    return std::string(value);
}

std::string_view CharacterLine::Value() const {
    const std::string_view line = WithoutComment();
    const std::size_t equals = line.find('=');
    return equals == std::string_view::npos ? std::string_view()
                                            : TrimBlanks(line.substr(equals + 1));
}

}  // namespace scenara
