// SPDX-License-Identifier: MIT
//
// The order in which people look for names, and names without regard to letter case.
#pragma once

#include <string>
#include <string_view>

namespace scenara {

// The text with each letter in lower case, so that two spellings of a name are the same bytes.
// `utf8` is UTF-8 (ToUtf8). It knows the letters of Latin, Greek and Cyrillic alphabets; all other
// characters stay as they are.
[[nodiscard]] std::string FoldCase(std::string_view utf8);

// Whether `a` stands before `b`: digits count as numbers, so that "stage2" comes before "stage10".
// Both are folded (FoldCase). Of numbers that are equal the one with fewer zeros in front comes
// first, but only where the texts do not differ otherwise.
[[nodiscard]] bool IsNaturallyBefore(std::string_view a, std::string_view b);

}  // namespace scenara
