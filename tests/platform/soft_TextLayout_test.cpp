// SPDX-License-Identifier: MIT
#include <limits>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "platform/soft/TextLayout.h"

namespace scenara::soft {
namespace {

// "i" is 4 pixels wide, the euro sign 20, all others 10.
class TestWidths : public CharacterWidths {
public:
    std::int32_t WidthOf(char32_t character) override {
        ++asked;
        EXPECT_FALSE(IsControl(character)) << static_cast<std::uint32_t>(character);
        return character == U'i' ? 4 : character == U'\u20AC' ? 20 : 10;
    }
    std::size_t asked = 0;
};

using Lines = std::vector<std::string>;

Lines LinesOf(std::string_view text, std::uint32_t format = 0, std::int64_t room = 0) {
    TestWidths widths;
    LineCutter cutter(text, EncodingOf(text), format, room, widths);
    Lines lines;
    while (const auto line = cutter.Next()) {
        lines.emplace_back(*line);
    }
    return lines;
}

// Each line's text, left and top: "a 100,200; b 100,220".
std::string PlacesOf(std::string_view text, const RECT& rectangle, std::uint32_t format) {
    TestWidths widths;
    TextLayout layout(text, EncodingOf(text), rectangle, format, 20, widths);
    std::string places;
    while (const auto line = layout.Next()) {
        places.append(places.empty() ? "" : "; ").append(line->text).append(" ");
        places.append(std::to_string(line->left)).append(",").append(std::to_string(line->top));
    }
    return places;
}

TEST(LineCutter, EndsLinesAtEveryKindOfLineBreak) {
    EXPECT_EQ(LinesOf("a\r\nb\nc\rd"), (Lines{"a", "b", "c", "d"}));
    EXPECT_EQ(LinesOf("a\n\nb\r\rc\r\n\r\nd"), (Lines{"a", "", "b", "", "c", "", "d"}));
    EXPECT_EQ(LinesOf("a\n\rb"), (Lines{"a", "", "b"}));
    EXPECT_EQ(LinesOf(" a & b "), (Lines{" a & b "}));
    EXPECT_EQ(LinesOf(""), Lines());
}

TEST(LineCutter, BeginsNoLineBehindABreakAtTheEnd) {
    EXPECT_EQ(LinesOf("a\n"), (Lines{"a"}));
    EXPECT_EQ(LinesOf("a\r\n"), (Lines{"a"}));
    EXPECT_EQ(LinesOf("\n"), (Lines{""}));
    EXPECT_EQ(LinesOf("a\n\n"), (Lines{"a", ""}));
    EXPECT_EQ(LinesOf("a\n", DT_WORDBREAK, 100), (Lines{"a"}));
}

TEST(LineCutter, SeesNoBreaksInASingleLine) {
    EXPECT_EQ(LinesOf("a\r\nb c\n", DT_SINGLELINE), (Lines{"a\r\nb c\n"}));
    EXPECT_EQ(LinesOf("a\r\nb c\n", DT_SINGLELINE | DT_WORDBREAK, 0), (Lines{"a\r\nb c\n"}));
}

TEST(LineCutter, BreaksBeforeTheFirstWordThatDoesNotFit) {
    EXPECT_EQ(LinesOf("aa bb cc", DT_WORDBREAK, 80), (Lines{"aa bb cc"}));
    EXPECT_EQ(LinesOf("aa bb cc", DT_WORDBREAK, 79), (Lines{"aa bb", "cc"}));
    EXPECT_EQ(LinesOf("aa bb cc", DT_WORDBREAK, 50), (Lines{"aa bb", "cc"}));
    EXPECT_EQ(LinesOf("aa bb cc", DT_WORDBREAK, 49), (Lines{"aa", "bb", "cc"}));
    EXPECT_EQ(LinesOf("ii ii ii", DT_WORDBREAK, 49), (Lines{"ii ii ii"}))
        << "widths are the characters' own: 6 x 4 + 2 x 10 = 44";
    EXPECT_EQ(LinesOf("aa bb cc", 0, 49), (Lines{"aa bb cc"})) << "only where it is asked for";
}

TEST(LineCutter, NeverBreaksAWord) {
    EXPECT_EQ(LinesOf("aaaaaa bb", DT_WORDBREAK, 30), (Lines{"aaaaaa", "bb"}));
    EXPECT_EQ(LinesOf("bb aaaaaa", DT_WORDBREAK, 30), (Lines{"bb", "aaaaaa"}));
    for (const std::int64_t room :
         {std::int64_t{0}, std::int64_t{-1}, std::numeric_limits<std::int64_t>::min()}) {
        EXPECT_EQ(LinesOf("a bb c", DT_WORDBREAK, room), (Lines{"a", "bb", "c"})) << room;
    }
}

TEST(LineCutter, DropsTheBlanksWhereItBreaksAndNoOthers) {
    EXPECT_EQ(LinesOf("aa   bb", DT_WORDBREAK, 30), (Lines{"aa", "bb"}));
    EXPECT_EQ(LinesOf("aa   \nbb  ", DT_WORDBREAK, 30), (Lines{"aa   ", "bb  "}));
    EXPECT_EQ(LinesOf("  aaaa bb", DT_WORDBREAK, 30), (Lines{"  aaaa", "bb"}));
    EXPECT_EQ(LinesOf("a   b   c", DT_WORDBREAK, 50), (Lines{"a   b", "c"}));
    EXPECT_EQ(LinesOf("      ", DT_WORDBREAK, 30), (Lines{"      "}));
}

TEST(LineCutter, KeepsTheTextsOwnBreaksWhenItBreaksWords) {
    EXPECT_EQ(LinesOf("aa\r\nbb cc\n\ndd", DT_WORDBREAK, 40), (Lines{"aa", "bb", "cc", "", "dd"}));
}

TEST(LineCutter, MeasuresCharactersAndNotBytes) {
    // Two characters of 10 pixels, a blank, and one of 20.
    EXPECT_EQ(LinesOf("\u00E9\u00E9 \u20AC", DT_WORDBREAK, 50), (Lines{"\u00E9\u00E9 \u20AC"}));
    EXPECT_EQ(LinesOf("\u00E9\u00E9 \u20AC", DT_WORDBREAK, 49), (Lines{"\u00E9\u00E9", "\u20AC"}));
    EXPECT_EQ(LinesOf("\xE9\xE9 \x80", DT_WORDBREAK, 50), (Lines{"\xE9\xE9 \x80"}));
    EXPECT_EQ(LinesOf("\xE9\xE9 \x80", DT_WORDBREAK, 49), (Lines{"\xE9\xE9", "\x80"}));
}

TEST(LineCutter, TakesTimeInProportionToTheText) {
    std::string text;
    for (int word = 0; word < 10000; ++word) {
        text += "aa ";
    }
    TestWidths widths;
    LineCutter cutter(text, TextEncoding::Utf8, DT_WORDBREAK, 20, widths);
    std::size_t lines = 0;
    while (cutter.Next()) {
        ++lines;
    }
    EXPECT_EQ(lines, 10000U);
    EXPECT_LE(widths.asked, 3 * text.size());
}

constexpr RECT kRectangle{100, 200, 200, 300};

TEST(TextLayout, BeginsInTheUpperLeftCorner) {
    EXPECT_EQ(PlacesOf("a\nbb", kRectangle, 0), "a 100,200; bb 100,220");
}

TEST(TextLayout, PlacesEveryLineByItsOwnWidth) {
    EXPECT_EQ(PlacesOf("a\nbi", kRectangle, DT_RIGHT), "a 190,200; bi 186,220");
    EXPECT_EQ(PlacesOf("a\nbi", kRectangle, DT_CENTER), "a 145,200; bi 143,220");
    EXPECT_EQ(PlacesOf("a", kRectangle, DT_CENTER | DT_RIGHT), "a 145,200");
}

TEST(TextLayout, PlacesAllLinesTogetherInTheHeight) {
    EXPECT_EQ(PlacesOf("a\nb", kRectangle, DT_BOTTOM), "a 100,260; b 100,280");
    EXPECT_EQ(PlacesOf("a\nb", kRectangle, DT_VCENTER), "a 100,230; b 100,250");
    EXPECT_EQ(PlacesOf("a", kRectangle, DT_VCENTER | DT_BOTTOM), "a 100,240");
    EXPECT_EQ(PlacesOf("aaaaaa aaaaaa", kRectangle, DT_BOTTOM | DT_WORDBREAK),
              "aaaaaa 100,260; aaaaaa 100,280")
        << "lines that the width made count like the text's own";
}

TEST(TextLayout, PlacesBottomRight) {
    EXPECT_EQ(PlacesOf("ab", kRectangle, 10), "ab 180,280");
}

TEST(TextLayout, CentresByTheLowerHalfOfAnOddRest) {
    // 99 - 20 = 79 pixels are left, 39 of them before; 5 - 20 = -15, and -8 before.
    EXPECT_EQ(PlacesOf("aa", {0, 0, 99, 99}, DT_CENTER | DT_VCENTER), "aa 39,39");
    EXPECT_EQ(PlacesOf("aa", {0, 0, 5, 5}, DT_CENTER | DT_VCENTER), "aa -8,-8");
}

TEST(TextLayout, GivesControlCharactersNoWidth) {
    EXPECT_EQ(PlacesOf("a\t\x01\x7F\x1B", kRectangle, DT_RIGHT), "a\t\x01\x7F\x1B 190,200");
    EXPECT_EQ(PlacesOf("a\r\nb", kRectangle, DT_RIGHT | DT_SINGLELINE), "a\r\nb 180,200");
    EXPECT_EQ(PlacesOf("a\xC2\x85", kRectangle, DT_RIGHT), "a\xC2\x85 190,200");
}

TEST(TextLayout, KeepsItsHeadInTheLargestAndInTurnedRectangles) {
    constexpr std::int32_t kLeast = std::numeric_limits<std::int32_t>::min();
    constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();
    EXPECT_EQ(PlacesOf("a", {kLeast, kLeast, kMost, kMost}, DT_CENTER | DT_VCENTER),
              "a -6,-11");  // -2^31 + floor((2^32 - 1 - 10) / 2)
    EXPECT_EQ(PlacesOf("a", {kMost, kMost, kLeast, kLeast}, DT_RIGHT | DT_BOTTOM),
              "a -2147483658,-2147483668");
    EXPECT_EQ(PlacesOf("a", {200, 300, 100, 200}, DT_CENTER), "a 145,300");
}

}  // namespace
}  // namespace scenara::soft
