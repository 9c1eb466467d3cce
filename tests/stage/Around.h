// SPDX-License-Identifier: MIT
//
// Around: texts with one byte of any value in them, for tests that try all 256.
#pragma once

#include <string>
#include <string_view>

namespace scenara::test {

// The byte and what stands before and behind it.
inline std::string Around(std::string_view before, int byte, std::string_view behind) {
    std::string text(before);
    text.push_back(static_cast<char>(byte));
    return text.append(behind);
}

}  // namespace scenara::test
