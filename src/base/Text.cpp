// SPDX-License-Identifier: MIT
#include "base/Text.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace scenara {
namespace {

// Windows-1252, bytes 128 to 159; the five open places keep their own number.
constexpr std::array<std::uint16_t, 32> kWindows1252 = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

// Length of the UTF-8 sequence that starts at `at`, 0 when there is none. Overlong forms,
// surrogates and numbers beyond U+10FFFF are none.
std::size_t Utf8Length(std::string_view bytes, std::size_t at) {
    const auto byteAt = [&](std::size_t i) {
        return i < bytes.size() ? static_cast<unsigned char>(bytes[i]) : 0U;
    };
    const auto continues = [&](std::size_t i) { return (byteAt(i) & 0xC0U) == 0x80U; };
    const unsigned lead = byteAt(at);
    const unsigned second = byteAt(at + 1);
    if (lead < 0x80U) {
        return 1;
    }
    if (lead >= 0xC2U && lead <= 0xDFU) {
        return continues(at + 1) ? 2 : 0;
    }
    if (lead >= 0xE0U && lead <= 0xEFU) {
        const bool overlong = lead == 0xE0U && second < 0xA0U;
        const bool surrogate = lead == 0xEDU && second > 0x9FU;
        return continues(at + 1) && continues(at + 2) && !overlong && !surrogate ? 3 : 0;
    }
    if (lead >= 0xF0U && lead <= 0xF4U) {
        const bool overlong = lead == 0xF0U && second < 0x90U;
        const bool tooHigh = lead == 0xF4U && second > 0x8FU;
        const bool whole = continues(at + 1) && continues(at + 2) && continues(at + 3);
        return whole && !overlong && !tooHigh ? 4 : 0;
    }
    return 0;
}

// What a byte of the ANSI code page stands for.
char32_t AnsiCodePoint(unsigned char byte) {
    return byte >= 0x80U && byte < 0xA0U ? kWindows1252.at(byte - 0x80U) : byte;
}

void AppendUtf8(std::string& text, char32_t point) {
    const auto put = [&](char32_t byte) { text.push_back(static_cast<char>(byte)); };
    if (point < 0x80U) {
        put(point);
    } else if (point < 0x800U) {
        put(0xC0U | (point >> 6U));
        put(0x80U | (point & 0x3FU));
    } else {
        put(0xE0U | (point >> 12U));
        put(0x80U | ((point >> 6U) & 0x3FU));
        put(0x80U | (point & 0x3FU));
    }
}

}  // namespace

std::string LowerCase(std::string_view text) {
    std::string lower;
    LowerCase(text, lower);
    return lower;
}

void LowerCase(std::string_view text, std::string& into) {
    into.resize(text.size());
    std::transform(text.begin(), text.end(), into.begin(), [](char c) { return LowerCase(c); });
}

std::string_view Trim(std::string_view text, std::string_view blanks) {
    const std::size_t first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

std::string_view Beginning(std::string_view text, std::size_t most) {
    std::size_t length = std::min(text.size(), most);
    const auto continues = [&](std::size_t at) {
        return at < text.size() && (static_cast<unsigned char>(text[at]) & 0xC0U) == 0x80U;
    };
    for (int back = 0; back < 3 && length > 0 && continues(length); ++back) {
        --length;
    }
    return text.substr(0, length);
}

bool Contains(std::string_view text, std::string_view part) {
    return text.find(part) != std::string_view::npos;
}

bool EqualsIgnoringCase(std::string_view a, std::string_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char x, char y) { return LowerCase(x) == LowerCase(y); });
}

TextEncoding EncodingOf(std::string_view bytes) {
    for (std::size_t at = 0; at < bytes.size();) {
        const std::size_t length = Utf8Length(bytes, at);
        if (length == 0) {
            return TextEncoding::Ansi;
        }
        at += length;
    }
    return TextEncoding::Utf8;
}

CodePoint CodePointAt(std::string_view bytes, std::size_t at, TextEncoding encoding) {
    const auto lead = static_cast<unsigned char>(bytes[at]);
    const std::size_t length = encoding == TextEncoding::Utf8 ? Utf8Length(bytes, at) : 0;
    if (length == 0) {
        return {AnsiCodePoint(lead), 1};
    }
    // The lead byte of n bytes has n + 1 marking bits, that of one byte a single one.
    char32_t value = length == 1 ? lead : lead & (0x7FU >> length);
    for (std::size_t i = 1; i < length; ++i) {
        value = (value << 6U) | (static_cast<unsigned char>(bytes[at + i]) & 0x3FU);
    }
    return {value, length};
}

std::string ToUtf8(std::string_view bytes) {
    if (EncodingOf(bytes) == TextEncoding::Utf8) {
        return std::string(bytes);
    }
    std::string text;
    text.reserve(bytes.size() + bytes.size() / 2);
    for (const char c : bytes) {
        AppendUtf8(text, AnsiCodePoint(static_cast<unsigned char>(c)));
    }
    return text;
}

}  // namespace scenara
