// SPDX-License-Identifier: MIT
#include "base/NaturalOrder.h"

#include <algorithm>
#include <cstddef>

#include "base/Text.h"

namespace scenara {
namespace {

struct Letters {
    char32_t first;
    char32_t last;
    char32_t toLower;  // what a capital lacks to its small letter
};

// Blocks whose capitals stand apart from their small letters.
constexpr Letters kApart[] = {
    {U'A', U'Z', 0x20},     {0x00C0, 0x00D6, 0x20}, {0x00D8, 0x00DE, 0x20}, {0x0386, 0x0386, 0x26},
    {0x0388, 0x038A, 0x25}, {0x038C, 0x038C, 0x40}, {0x038E, 0x038F, 0x3F}, {0x0391, 0x03A1, 0x20},
    {0x03A3, 0x03AB, 0x20}, {0x0400, 0x040F, 0x50}, {0x0410, 0x042F, 0x20},
};

// Blocks in which a small letter follows each capital, and whether capitals have even numbers.
struct Pairs {
    char32_t first;
    char32_t last;
    bool evenIsCapital;
};
constexpr Pairs kPairs[] = {
    {0x0100, 0x012F, true}, {0x0132, 0x0137, true},  {0x0139, 0x0148, false},
    {0x014A, 0x0177, true}, {0x0179, 0x017E, false}, {0x0460, 0x0481, true},
    {0x048A, 0x04BF, true}, {0x04D0, 0x052F, true},  {0x1E00, 0x1E95, true},
    {0x1EA0, 0x1EFF, true},
};

char32_t Folded(char32_t letter) {
    for (const Letters& block : kApart) {
        if (letter >= block.first && letter <= block.last) {
            return letter + block.toLower;
        }
    }
    for (const Pairs& block : kPairs) {
        if (letter >= block.first && letter <= block.last) {
            return letter + ((letter % 2 == 0) == block.evenIsCapital ? 1 : 0);
        }
    }
    return letter;
}

// Of the letters above: two or three bytes.
void AppendUtf8(std::string& text, char32_t letter) {
    const auto byte = [](char32_t bits) {
        return static_cast<char>(static_cast<unsigned char>(bits));
    };
    if (letter < 0x80) {
        text += byte(letter);
    } else if (letter < 0x800) {
        text += byte(0xC0U | (letter >> 6U));
        text += byte(0x80U | (letter & 0x3FU));
    } else {
        text += byte(0xE0U | (letter >> 12U));
        text += byte(0x80U | ((letter >> 6U) & 0x3FU));
        text += byte(0x80U | (letter & 0x3FU));
    }
}

std::size_t DigitsAt(std::string_view text, std::size_t at) {
    std::size_t end = at;
    while (end < text.size() && IsDigit(text[end])) {
        ++end;
    }
    return end - at;
}

std::string_view WithoutZeros(std::string_view digits) {
    const std::size_t first = digits.find_first_not_of('0');
    return first == std::string_view::npos ? std::string_view() : digits.substr(first);
}

// Below 0, 0, above 0.
int CompareNumbers(std::string_view a, std::string_view b) {
    const std::string_view valueOfA = WithoutZeros(a);
    const std::string_view valueOfB = WithoutZeros(b);
    if (valueOfA.size() != valueOfB.size()) {
        return valueOfA.size() < valueOfB.size() ? -1 : 1;
    }
    return valueOfA.compare(valueOfB);
}

}  // namespace

std::string FoldCase(std::string_view utf8) {
    std::string folded;
    folded.reserve(utf8.size());
    for (std::size_t at = 0; at < utf8.size();) {
        const CodePoint point = CodePointAt(utf8, at, TextEncoding::Utf8);
        const char32_t letter = Folded(point.value);
        if (letter == point.value) {
            folded.append(utf8.substr(at, point.length));
        } else {
            AppendUtf8(folded, letter);
        }
        at += point.length;
    }
    return folded;
}

bool IsNaturallyBefore(std::string_view a, std::string_view b) {
    std::size_t atA = 0;
    std::size_t atB = 0;
    while (atA < a.size() && atB < b.size()) {
        const std::size_t digitsOfA = DigitsAt(a, atA);
        const std::size_t digitsOfB = DigitsAt(b, atB);
        if (digitsOfA > 0 && digitsOfB > 0) {
            if (const int order =
                    CompareNumbers(a.substr(atA, digitsOfA), b.substr(atB, digitsOfB));
                order != 0) {
                return order < 0;
            }
            atA += digitsOfA;
            atB += digitsOfB;
        } else if (a[atA] != b[atB]) {
            return static_cast<unsigned char>(a[atA]) < static_cast<unsigned char>(b[atB]);
        } else {
            ++atA;
            ++atB;
        }
    }
    if ((atA == a.size()) != (atB == b.size())) {
        return atA == a.size();
    }
    // They differ by zeros at most.
    return a.size() != b.size() ? a.size() < b.size() : a < b;
}

}  // namespace scenara
