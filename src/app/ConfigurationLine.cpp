// SPDX-License-Identifier: MIT
#include "app/ConfigurationLine.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "base/Text.h"
#include "stage/KeyOffer.h"
#include "stage/ViewOptions.h"

namespace scenara {
namespace {

constexpr std::array<std::string_view, 4> kPaths = {"mugedir", "testchar", "charname",
                                                    "recentfile"};

// The byte before a letter that stands for a character which a line would lose.
constexpr char kMark = '\0';

struct Marked {
    char character;
    char letter;
};
constexpr std::array<Marked, 3> kMarked = {{{'\n', 'n'}, {'\r', 'r'}, {' ', 'b'}}};

// The configuration knows no additions.
ViewOptions PlainReading() {
    ViewOptions options;
    options.Additions = false;
    return options;
}

bool BeginsWithPathKey(std::string_view text) {
    const std::string_view key = Trim(text.substr(0, text.find('=')));
    return Contains(text, "=") &&
           std::any_of(kPaths.begin(), kPaths.end(),
                       [&](std::string_view path) { return EqualsIgnoringCase(key, path); });
}

}  // namespace

std::string ToLineValue(const std::string& text) {
    std::string value;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool inner = i > 0 && i + 1 < text.size();
        const auto marked = std::find_if(kMarked.begin(), kMarked.end(), [&](const Marked& m) {
            return m.character == text[i] && !(inner && m.character == ' ');
        });
        if (marked == kMarked.end()) {
            value.push_back(text[i]);
        } else {
            value.append({kMark, marked->letter});
        }
    }
    return value;
}

std::string FromLineValue(std::string_view value) {
    std::string text;
    for (std::size_t i = 0; i < value.size(); ++i) {
        const auto marked = std::find_if(kMarked.begin(), kMarked.end(), [&](const Marked& m) {
            return value.substr(i).starts_with(kMark) && value.substr(i + 1).starts_with(m.letter);
        });
        if (marked == kMarked.end()) {
            text.push_back(value[i]);
        } else {
            text.push_back(marked->character);
            ++i;  // the letter
        }
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
    if (!KeyOffer(head_, number_, messages_, PlainReading()).Whole(key, found)) {
        return false;
    }
    const std::size_t equals = text_.find('=', head_.Lower().find(key));
    target = FromLineValue(Trim(text_.substr(equals + 1)));
    return true;
}

bool ConfigurationLine::Word(std::string_view key, std::string& target) {
    return !InPath(key) && KeyOffer(whole_, number_, messages_, PlainReading()).Whole(key, target);
}

bool ConfigurationLine::Number(std::string_view key, Single& target) {
    return !InPath(key) && KeyOffer(whole_, number_, messages_, PlainReading()).Whole(key, target);
}

}  // namespace scenara
