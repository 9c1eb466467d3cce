// SPDX-License-Identifier: MIT
//
// Lines of a character's text files, as all of its readers look at them: trimmed of blanks and
// tabs, searched without regard to case, with the values taken from the line as it stands.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "base/Text.h"

namespace scenara {

// Without the blanks and tabs at both ends.
[[nodiscard]] inline std::string_view TrimBlanks(std::string_view text) {
    return Trim(text, " \t");
}

// One trimmed line and its lower-cased form. The text outlives it.
class CharacterLine {
public:
    // Takes another line into the same memory.
    void Assign(std::string_view untrimmed);

    // Empty, or a comment from its first character on.
    [[nodiscard]] bool SaysNothing() const { return text_.empty() || text_.front() == ';'; }

    [[nodiscard]] std::string_view Text() const { return text_; }
    // Up to the first ";".
    [[nodiscard]] std::string_view WithoutComment() const {
        return text_.substr(0, text_.find(';'));
    }

    // `word` is in lower case. Found anywhere on the line, comment included.
    [[nodiscard]] bool Has(std::string_view word) const { return Contains(lower_, word); }
    // Where it stands in front of the line's comment.
    [[nodiscard]] std::optional<std::size_t> Before(std::string_view word) const;

    // The trimmed text between the first "=" and `end` (lower case) behind it, comment left out.
    // Nothing when either is not there, or there is no text between them.
    [[nodiscard]] std::optional<std::string> ValueUpTo(std::string_view end) const;
    // The trimmed text behind the first "=", comment left out; empty when there is none.
    [[nodiscard]] std::string_view Value() const;

private:
    std::string_view text_;
    std::string lower_;
};

}  // namespace scenara
