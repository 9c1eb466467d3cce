// SPDX-License-Identifier: MIT
//
// Numbers as text and text as numbers, the same in every locale.
//
// Reading is lenient: the longest number that the text begins with, behind blanks and tabs, counts,
// and whatever follows is ignored ("12abc" is 12, "-.5 px" is -0.5, "1e3" is 1000, "abc" and "" are
// 0). A number beyond the range of a double reads as an infinity, which the checked conversions of
// Integers.h then refuse.
//
// Writing gives the shortest decimal form that reads back as the same value: no trailing zeros, no
// "+", "0" and never "-0", a full stop, and no exponent below 1E+15.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace scenara {

// The number at the start of `text`, 0 when there is none.
[[nodiscard]] double LeadingNumber(std::string_view text);

// Whether there is one, 0 or other.
[[nodiscard]] bool BeginsWithNumber(std::string_view text);

// Whether the whole text, but for blanks around it, is one number.
[[nodiscard]] bool IsNumeric(std::string_view text);

[[nodiscard]] std::string NumberText(float value);
[[nodiscard]] std::string NumberText(double value);
[[nodiscard]] std::string NumberText(std::int64_t value);
[[nodiscard]] inline std::string NumberText(std::int32_t value) {
    return NumberText(std::int64_t{value});
}
[[nodiscard]] inline std::string NumberText(std::int16_t value) {
    return NumberText(std::int64_t{value});
}

// The digits of a number to the base of 16, in lower case.
[[nodiscard]] std::string Hexadecimal(std::uint32_t number);

}  // namespace scenara
