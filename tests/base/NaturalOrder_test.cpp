// SPDX-License-Identifier: MIT
#include "base/NaturalOrder.h"

#include <algorithm>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace scenara::test {
namespace {

TEST(FoldCase, MakesSmallLettersOfCapitals) {
    const struct {
        const char* text;
        const char* folded;
    } rows[] = {
        {"", ""},
        {"ABC xyz 12", "abc xyz 12"},
        {"\xC3\x89t\xC3\xA9", "\xC3\xA9t\xC3\xA9"},                // e with acute
        {"\xC3\x97", "\xC3\x97"},                                  // the sign for times
        {"\xC5\xA0\xC5\xBD", "\xC5\xA1\xC5\xBE"},                  // s and z with caron
        {"\xCE\xA9\xCE\x86", "\xCF\x89\xCE\xAC"},                  // omega, alpha with tonos
        {"\xD0\x96\xD0\x81", "\xD0\xB6\xD1\x91"},                  // zhe, io
        {"\xE1\xBA\xA0", "\xE1\xBA\xA1"},                          // a with dot below
        {"\xE3\x82\xAB\xE6\xBC\xA2", "\xE3\x82\xAB\xE6\xBC\xA2"},  // katakana, kanji
        {"\xF0\x9F\x8F\x9E", "\xF0\x9F\x8F\x9E"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(FoldCase(row.text), row.folded);
        EXPECT_EQ(FoldCase(row.folded), row.folded);
    }
}

TEST(NaturalOrder, CountsDigitsAsNumbers) {
    const std::vector<std::string> order = {
        "",
        "1",
        "01",
        "2",
        "10",
        "99999999999999999999998",
        "99999999999999999999999",
        "a",
        "a 2",
        "a1b1",
        "a1b2",
        "a1b10",
        "a2",
        "a2b",
        "a02b",
        "a10",
        "stage",
        "stage2",
        "stage10",
        "stage10/a",
        "stage10a",
        "\xC3\xA9",
    };
    for (std::size_t i = 0; i < order.size(); ++i) {
        for (std::size_t k = 0; k < order.size(); ++k) {
            EXPECT_EQ(IsNaturallyBefore(order[i], order[k]), i < k) << order[i] << ", " << order[k];
        }
    }
}

// What sorting asks of an order.
TEST(NaturalOrder, IsOneForAnyTexts) {
    std::mt19937 random(5);
    std::vector<std::string> texts;
    for (int i = 0; i < 300; ++i) {
        std::string text;
        for (auto length = random() % 6; length > 0; --length) {
            text += "0012a/"[random() % 6];
        }
        texts.push_back(text);
    }
    std::sort(texts.begin(), texts.end(), IsNaturallyBefore);
    for (std::size_t i = 0; i < texts.size(); ++i) {
        for (std::size_t k = i + 1; k < texts.size(); ++k) {
            ASSERT_FALSE(IsNaturallyBefore(texts[k], texts[i])) << texts[i] << ", " << texts[k];
            ASSERT_EQ(IsNaturallyBefore(texts[i], texts[k]), texts[i] != texts[k]);
        }
    }
}

}  // namespace
}  // namespace scenara::test
