// SPDX-License-Identifier: MIT
//
// Small text helpers for bytes in the Windows ANSI code page.
//
// A blank is character 32 and nothing else: the rules of the program's text files say so. Letter
// case is changed for the ASCII letters only; bytes above 127 stay as they are, so that a UTF-8
// name in a file keeps its meaning.
#pragma once

#include <string>
#include <string_view>

namespace scenara {

[[nodiscard]] constexpr bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

[[nodiscard]] constexpr char LowerCase(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

[[nodiscard]] std::string LowerCase(std::string_view text);

// Without the blanks at both ends.
[[nodiscard]] std::string_view Trim(std::string_view text);

[[nodiscard]] bool Contains(std::string_view text, std::string_view part);

// Equal but for the case of ASCII letters.
[[nodiscard]] bool EqualsIgnoringCase(std::string_view a, std::string_view b);

// Bytes of the ANSI code page (Windows-1252) as UTF-8, for showing. Text that already is valid
// UTF-8 is taken as such; a byte that Windows-1252 leaves open stands for the code point of the
// same number. Never fails.
[[nodiscard]] std::string ToUtf8(std::string_view bytes);

// The line break of messages.
inline constexpr std::string_view kCrLf = "\r\n";

}  // namespace scenara
