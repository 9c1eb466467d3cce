// SPDX-License-Identifier: MIT
//
// Small text helpers for bytes in the Windows ANSI code page.
//
// A blank is character 32 and nothing else: the rules of the program's text files say so. Letter
// case is changed for the ASCII letters only; bytes above 127 stay as they are, so that a UTF-8
// name in a file keeps its meaning.
#pragma once

#include <cstddef>
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
// The same into memory that there is already.
void LowerCase(std::string_view text, std::string& into);

// Without the blanks, or the characters that are given, at both ends.
[[nodiscard]] std::string_view Trim(std::string_view text, std::string_view blanks = " ");

// At the most so many bytes of its beginning, and no part of a character that has several, should
// they be UTF-8.
[[nodiscard]] std::string_view Beginning(std::string_view text, std::size_t most);

[[nodiscard]] bool Contains(std::string_view text, std::string_view part);

// Equal but for the case of ASCII letters.
[[nodiscard]] bool EqualsIgnoringCase(std::string_view a, std::string_view b);

// What the bytes of a shown text are: UTF-8 when all of them are, the ANSI code page (Windows-1252)
// otherwise.
enum class TextEncoding { Utf8, Ansi };
[[nodiscard]] TextEncoding EncodingOf(std::string_view bytes);

struct CodePoint {
    char32_t value = 0;
    std::size_t length = 0;  // bytes
};

// The code point at byte `at` of a text in that encoding; `at` is below the text's size. A byte
// that Windows-1252 leaves open stands for the code point of the same number, and so does one that
// begins no UTF-8.
[[nodiscard]] CodePoint CodePointAt(std::string_view bytes, std::size_t at, TextEncoding encoding);

// Bytes of either encoding as UTF-8, for showing. Never fails.
[[nodiscard]] std::string ToUtf8(std::string_view bytes);

// The line break of messages.
inline constexpr std::string_view kCrLf = "\r\n";

}  // namespace scenara
