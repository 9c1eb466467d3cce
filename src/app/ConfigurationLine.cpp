// SPDX-License-Identifier: MIT
#include "app/ConfigurationLine.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>

#include "base/Text.h"
#include "stage/KeyOffer.h"
#include "stage/ViewOptions.h"

namespace scenara {
namespace {

constexpr std::array<std::string_view, 4> kPaths = {"mugedir", "testchar", "charname",
                                                    "recentfile"};

// The byte before a letter that stands for a character which a line would lose.
constexpr char kMark = '\0';

// The letter of such a character; nothing for all others. Blanks are lost at either end only.
std::optional<char> LetterOf(char c, bool atEnd) {
    switch (c) {
        case '\n': return 'n';
        case '\r': return 'r';
        case ' ': return atEnd ? std::optional('b') : std::nullopt;
        default: return std::nullopt;
    }
}

std::optional<char> CharacterOf(char letter) {
    switch (letter) {
        case 'n': return '\n';
        case 'r': return '\r';
        case 'b': return ' ';
        default: return std::nullopt;
    }
}

bool BeginsWithPathKey(std::string_view text) {
    const std::string_view key = Trim(text.substr(0, text.find('=')));
    return Contains(text, "=") &&
           std::any_of(kPaths.begin(), kPaths.end(),
                       [&](std::string_view path) { return EqualsIgnoringCase(key, path); });
}

}  // namespace

void AppendLineValue(std::string_view text, std::string& line) {
    for (std::size_t i = 0; i < text.size(); ++i) {
        const std::optional<char> letter = LetterOf(text[i], i == 0 || i + 1 == text.size());
        if (letter) {
            line.append({kMark, *letter});
        } else {
            line.push_back(text[i]);
        }
    }
}

std::string FromLineValue(std::string_view value) {
    std::string text;
    for (std::size_t i = 0; i < value.size(); ++i) {
        const bool marked = value[i] == kMark && i + 1 < value.size();
        const std::optional<char> character = marked ? CharacterOf(value[i + 1]) : std::nullopt;
        text.push_back(character.value_or(value[i]));
        i += character ? 1U : 0U;
    }
    return text;
}

ConfigurationLine::ConfigurationLine(std::string_view text, std::int64_t number, Messages& messages)
    : text_(text),
      number_(number),
      messages_(messages),
      whole_(text),
      head_(text),
      isPath_(BeginsWithPathKey(text)) {
    if (isPath_) {
        head_.Assign(text.substr(0, text.find('=') + 1));
    }
}

bool ConfigurationLine::InPath(std::string_view key) const {
    return isPath_ && !Contains(head_.Lower(), key);
}

bool ConfigurationLine::Path(std::string_view key, std::string& target) {
    std::string found;
    if (!KeyOffer(head_, text_, number_, messages_, kPlainView).Whole(key, found)) {
        return false;
    }
    const std::size_t equals = text_.find('=', head_.Lower().find(key));
    target = FromLineValue(Trim(text_.substr(equals + 1)));
    return true;
}

bool ConfigurationLine::Word(std::string_view key, std::string& target) {
    return !InPath(key) &&
           KeyOffer(whole_, text_, number_, messages_, kPlainView).Whole(key, target);
}

bool ConfigurationLine::Number(std::string_view key, Single& target) {
    return !InPath(key) &&
           KeyOffer(whole_, text_, number_, messages_, kPlainView).Whole(key, target);
}

}  // namespace scenara
