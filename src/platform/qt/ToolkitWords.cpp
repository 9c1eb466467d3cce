// SPDX-License-Identifier: MIT
#include "platform/qt/ToolkitWords.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace scenara {
namespace {

// With the word after it, if there is one.
constexpr std::array<std::string_view, 10> kPerhapsBeforeAWord{
    "platform",    "platformpluginpath", "platformtheme", "plugin", "qwindowgeometry",
    "qwindowicon", "qwindowtitle",       "geometry",      "icon",   "title"};
// None without a word after it.
constexpr std::array<std::string_view, 6> kBeforeAWord{"session", "style", "stylesheet",
                                                       "display", "name",  "visual"};
constexpr std::array<std::string_view, 8> kAlone{"reverse",     "qdebug",       "qdevel",
                                                 "widgetcount", "testability",  "nograb",
                                                 "dograb",      "qmljsdebugger"};
constexpr std::array<std::string_view, 3> kBeginnings{"style=", "stylesheet=", "qmljsdebugger="};

template <class Names>
bool Has(const Names& names, std::string_view name) {
    return std::find(names.begin(), names.end(), name) != names.end();
}

// Of an option without its hyphens.
bool StandsAlone(std::string_view name) {
    return Has(kAlone, name) ||
           std::any_of(kBeginnings.begin(), kBeginnings.end(),
                       [&](std::string_view beginning) { return name.starts_with(beginning); });
}

}  // namespace

std::vector<std::string> WithoutToolkitWords(const std::vector<std::string>& words) {
    std::vector<std::string> others;
    for (std::size_t i = 0; i < words.size(); ++i) {
        const std::string_view word = words[i];
        const bool isOption = word.starts_with('-');
        const std::string_view name =
            isOption ? word.substr(word.starts_with("--") ? 2 : 1) : std::string_view();
        const bool isLast = i + 1 == words.size();
        if (Has(kPerhapsBeforeAWord, name) || (!isLast && Has(kBeforeAWord, name))) {
            ++i;
        } else if (!StandsAlone(name)) {
            others.push_back(words[i]);
        }
    }
    return others;
}

}  // namespace scenara
