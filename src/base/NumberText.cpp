// SPDX-License-Identifier: MIT
#include "base/NumberText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <system_error>

#include "base/Text.h"

namespace scenara {
namespace {

// What a number at the start of a text spans; empty when the text does not begin with one.
struct NumberSpan {
    std::string_view number;  // without a leading "+", which from_chars does not know
    std::size_t end;          // behind the number, in the text
};

std::size_t SkipDigits(std::string_view text, std::size_t at) {
    while (at < text.size() && IsDigit(text[at])) {
        ++at;
    }
    return at;
}

std::string_view WithoutBlanksBefore(std::string_view text) {
    return text.substr(std::min(text.find_first_not_of(" \t"), text.size()));
}

NumberSpan FindNumber(std::string_view text) {
    std::size_t at = 0;
    if (at < text.size() && (text[at] == '+' || text[at] == '-')) {
        ++at;
    }
    const std::size_t start = at > 0 && text[0] == '+' ? 1 : 0;
    const std::size_t wholeEnd = SkipDigits(text, at);
    std::size_t digits = wholeEnd - at;
    at = wholeEnd;
    if (at < text.size() && text[at] == '.') {
        const std::size_t fractionEnd = SkipDigits(text, at + 1);
        digits += fractionEnd - at - 1;
        at = fractionEnd;
    }
    if (digits == 0) {
        return {{}, 0};
    }
    if (at < text.size() && (text[at] == 'e' || text[at] == 'E')) {
        std::size_t power = at + 1;
        if (power < text.size() && (text[power] == '+' || text[power] == '-')) {
            ++power;
        }
        const std::size_t powerEnd = SkipDigits(text, power);
        if (powerEnd > power) {
            at = powerEnd;
        }
    }
    return {text.substr(start, at - start), at};
}

// The power of ten that a number's "e" part stands for; one beyond every double where it is longer
// than a 64-bit number.
std::int64_t PowerOf(std::string_view digits) {
    digits.remove_prefix(digits.starts_with('+') ? 1 : 0);
    std::int64_t power = 0;
    const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), power);
    constexpr std::int64_t kFar = std::int64_t{1} << 62U;
    if (result.ec == std::errc::result_out_of_range) {
        return digits.starts_with('-') ? -kFar : kFar;
    }
    return std::clamp(power, -kFar, kFar);  // leaves room to add a position in a text
}

// from_chars leaves the value alone when it is out of range; tell the two ends apart by where the
// first digit that counts stands, once the power of ten has moved it.
double OutOfRange(std::string_view number) {
    const std::size_t letter = number.find_first_of("eE");
    const std::string_view mantissa = number.substr(0, letter);
    const auto digit = static_cast<std::int64_t>(mantissa.find_first_of("123456789"));
    const auto stop = static_cast<std::int64_t>(std::min(mantissa.find('.'), mantissa.size()));
    const std::int64_t power =
        letter == std::string_view::npos ? 0 : PowerOf(number.substr(letter + 1));
    if (stop - digit + power <= 0) {
        return 0.0;
    }
    const double huge = std::numeric_limits<double>::infinity();
    return number.front() == '-' ? -huge : huge;
}

template <typename Number>
std::string ShortestText(Number value) {
    if (value == Number{0}) {
        return "0";  // -0, too
    }
    std::array<char, 512> buffer{};
    const bool plain = std::abs(value) < static_cast<Number>(1E15);
    const auto format = plain ? std::chars_format::fixed : std::chars_format::scientific;
    const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, format);
    std::string text(buffer.data(), result.ptr);
    for (char& letter : text) {
        letter = letter == 'e' ? 'E' : letter;
    }
    return text;
}

}  // namespace

double LeadingNumber(std::string_view text) {
    const std::string_view number = FindNumber(WithoutBlanksBefore(text)).number;
    if (number.empty()) {
        return 0.0;
    }
    double value = 0.0;
    const auto result = std::from_chars(number.data(), number.data() + number.size(), value);
    return result.ec == std::errc::result_out_of_range ? OutOfRange(number) : value;
}

bool BeginsWithNumber(std::string_view text) {
    return !FindNumber(WithoutBlanksBefore(text)).number.empty();
}

bool IsNumeric(std::string_view text) {
    const std::string_view inner = Trim(text);
    const NumberSpan found = FindNumber(inner);
    return !found.number.empty() && found.end == inner.size();
}

std::string NumberText(float value) {
    return ShortestText(value);
}

std::string NumberText(double value) {
    return ShortestText(value);
}

std::string NumberText(std::int64_t value) {
    return std::to_string(value);
}

std::string Hexadecimal(std::uint32_t number) {
    std::array<char, 8> digits{};
    const char* const end =
        std::to_chars(digits.data(), digits.data() + digits.size(), number, 16).ptr;
    return {digits.data(), static_cast<std::size_t>(end - digits.data())};
}

}  // namespace scenara
