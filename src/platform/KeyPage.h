// SPDX-License-Identifier: MIT
//
// KeyPage: the keys that a user can press, as one page tells of them.
#pragma once

#include <string>
#include <vector>

namespace scenara {

// What does the same: "Ctrl+R, F5", and what it does.
struct KeyPageLine {
    std::string keys;
    std::string does;

    friend bool operator==(const KeyPageLine&, const KeyPageLine&) = default;
};

// The keys that hold at one place.
struct KeyPageGroup {
    std::string title;
    std::vector<KeyPageLine> lines;

    friend bool operator==(const KeyPageGroup&, const KeyPageGroup&) = default;
};

using KeyPage = std::vector<KeyPageGroup>;

}  // namespace scenara
