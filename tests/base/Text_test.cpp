// SPDX-License-Identifier: MIT
#include "base/Text.h"

#include <array>
#include <random>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

namespace scenara {
namespace {

using namespace std::string_view_literals;

char AsChar(int byte) {
    return static_cast<char>(static_cast<unsigned char>(byte));
}

TEST(IsDigit, IsTrueForTheTenDigitsOnly) {
    for (int byte = 0; byte < 256; ++byte) {
        EXPECT_EQ(IsDigit(AsChar(byte)),
                  "0123456789"sv.find(AsChar(byte)) != std::string_view::npos)
            << byte;
    }
}

TEST(LowerCase, ChangesTheAsciiLettersOnly) {
    constexpr std::string_view kUpper = "ABCDEFGHIJKLMNOPQRSTUVWXYZ";
    constexpr std::string_view kLower = "abcdefghijklmnopqrstuvwxyz";
    for (int byte = 0; byte < 256; ++byte) {
        const char c = AsChar(byte);
        const std::size_t letter = kUpper.find(c);
        EXPECT_EQ(LowerCase(c), letter == std::string_view::npos ? c : kLower[letter]) << byte;
    }
}

TEST(LowerCase, WorksOnWholeTexts) {
    EXPECT_EQ(LowerCase("[BG Layer_1]"), "[bg layer_1]");
    EXPECT_EQ(LowerCase("\xC4rger \xC3\x84rger"), "\xC4rger \xC3\x84rger");
    EXPECT_EQ(LowerCase("A\0B"sv), "a\0b"sv);
    EXPECT_EQ(LowerCase(""), "");
}

TEST(Trim, CutsBlanksAtBothEnds) {
    EXPECT_EQ(Trim("  a b  "), "a b");
    EXPECT_EQ(Trim("a"), "a");
    EXPECT_EQ(Trim("a "), "a");
    EXPECT_EQ(Trim(" a"), "a");
    EXPECT_EQ(Trim("   "), "");
    EXPECT_EQ(Trim(""), "");
}

TEST(Trim, TakesNothingButCharacter32ForABlank) {
    EXPECT_EQ(Trim("\ta\t"), "\ta\t");
    EXPECT_EQ(Trim(" \t a \r\n"), "\t a \r\n");
    EXPECT_EQ(Trim("\xA0"), "\xA0");
    EXPECT_EQ(Trim("\0 "sv), "\0"sv);
}

TEST(Contains, FindsAPartAnywhereInItsOwnCase) {
    EXPECT_TRUE(Contains("layerno = 1", "layer"));
    EXPECT_TRUE(Contains("layerno = 1", "= 1"));
    EXPECT_TRUE(Contains("layerno", "layerno"));
    EXPECT_TRUE(Contains("layerno", ""));
    EXPECT_TRUE(Contains("", ""));
    EXPECT_FALSE(Contains("layerno", "Layer"));
    EXPECT_FALSE(Contains("layer", "layerno"));
    EXPECT_FALSE(Contains("", "a"));
}

TEST(EqualsIgnoringCase, LooksPastTheCaseOfAsciiLetters) {
    EXPECT_TRUE(EqualsIgnoringCase("Stage.DEF", "sTAGE.def"));
    EXPECT_TRUE(EqualsIgnoringCase("", ""));
    EXPECT_FALSE(EqualsIgnoringCase("stage.def", "stage.de"));
    EXPECT_FALSE(EqualsIgnoringCase("stage.de", "stage.def"));
    EXPECT_FALSE(EqualsIgnoringCase("a", ""));
    EXPECT_FALSE(EqualsIgnoringCase("a\0b"sv, "a\0c"sv));
}

TEST(EqualsIgnoringCase, KeepsNeighboursOfTheLettersAndBytesAbove127Apart) {
    EXPECT_FALSE(EqualsIgnoringCase("@", "`"));
    EXPECT_FALSE(EqualsIgnoringCase("[", "{"));
    EXPECT_FALSE(EqualsIgnoringCase("\xC4", "\xE4"));
    EXPECT_TRUE(
        EqualsIgnoringCase("\xC4"
                           "A",
                           "\xC4"
                           "a"));
}

// Bytes 128 to 159 of Windows-1252, in order; the five open places stand for their own number.
constexpr std::array<std::string_view, 32> kHighControls = {
    "\u20AC",   "\xC2\x81", "\u201A", "\u0192", "\u201E", "\u2026",   "\u2020", "\u2021",
    "\u02C6",   "\u2030",   "\u0160", "\u2039", "\u0152", "\xC2\x8D", "\u017D", "\xC2\x8F",
    "\xC2\x90", "\u2018",   "\u2019", "\u201C", "\u201D", "\u2022",   "\u2013", "\u2014",
    "\u02DC",   "\u2122",   "\u0161", "\u203A", "\u0153", "\xC2\x9D", "\u017E", "\u0178"};

TEST(ToUtf8, KnowsEveryByteOfWindows1252) {
    for (int byte = 128; byte < 256; ++byte) {
        // From 160 on the numbers are those of the code points.
        const std::string latin = {AsChar(0xC0 | byte >> 6), AsChar(0x80 | (byte & 0x3F))};
        const std::string expected =
            byte < 160 ? std::string(kHighControls.at(static_cast<std::size_t>(byte - 128)))
                       : latin;
        EXPECT_EQ(ToUtf8(std::string{'a', AsChar(byte)}), "a" + expected) << byte;
    }
}

TEST(ToUtf8, KeepsAscii) {
    std::string ascii;
    for (int byte = 0; byte < 128; ++byte) {
        ascii.push_back(AsChar(byte));
    }
    EXPECT_EQ(ToUtf8(ascii), ascii);
    EXPECT_EQ(ToUtf8(ascii + '\xE9'), ascii + "\u00E9");
    EXPECT_EQ(ToUtf8(""), "");
}

TEST(ToUtf8, TakesValidUtf8AsItIs) {
    for (const std::string_view text :
         {"\xC2\x80"sv, "\xDF\xBF"sv, "\xE0\xA0\x80"sv, "\xED\x9F\xBF"sv, "\xEE\x80\x80"sv,
          "\xEF\xBF\xBF"sv, "\xF0\x90\x80\x80"sv, "\xF4\x8F\xBF\xBF"sv, "Caf\u00E9 \u4E2D x"sv,
          "a\0\u00E9"sv}) {
        EXPECT_EQ(ToUtf8(text), text);
    }
}

TEST(ToUtf8, TakesWhatIsNotQuiteUtf8ByteByByte) {
    struct Row {
        std::string_view name;
        std::string_view bytes;
        std::string_view text;
    };
    constexpr std::array<Row, 13> kRows = {{
        {"lone continuation", "\xBF", "\u00BF"},
        {"overlong in two bytes", "\xC0\x80", "\u00C0\u20AC"},
        {"overlong in two bytes, last", "\xC1\xBF", "\u00C1\u00BF"},
        {"overlong in three bytes", "\xE0\x9F\xBF", "\u00E0\u0178\u00BF"},
        {"overlong in four bytes", "\xF0\x8F\xBF\xBF", "\u00F0\xC2\x8F\u00BF\u00BF"},
        {"surrogate", "\xED\xA0\x80", "\u00ED\u00A0\u20AC"},
        {"beyond U+10FFFF", "\xF4\x90\x80\x80", "\u00F4\xC2\x90\u20AC\u20AC"},
        {"lead that never is one", "\xF5\x80\x80\x80", "\u00F5\u20AC\u20AC\u20AC"},
        {"cut after one of two", "a\xC3", "a\u00C3"},
        {"cut after two of three", "\xE2\x82", "\u00E2\u201A"},
        {"cut after three of four", "\xF0\x9F\x98", "\u00F0\u0178\u02DC"},
        {"broken by a letter", "\xE2\x82x", "\u00E2\u201Ax"},
        // One bad byte makes the text one of the code page, all of it.
        {"valid, then not", "\xC3\xA9\xE9", "\u00C3\u00A9\u00E9"},
    }};
    for (const Row& row : kRows) {
        EXPECT_EQ(ToUtf8(row.bytes), row.text) << row.name;
    }
}

TEST(ToUtf8, AlwaysGivesValidUtf8) {
    std::mt19937 random(1252);  // NOLINT(cert-msc51-cpp,bugprone-random-generator-seed)
    for (int i = 0; i < 20000; ++i) {
        std::string bytes(random() % 8, '\0');
        for (char& byte : bytes) {
            byte = AsChar(static_cast<int>(random() % 256));
        }
        const std::string text = ToUtf8(bytes);
        // Valid text is left alone; anything else would change once more.
        ASSERT_EQ(ToUtf8(text), text);
    }
}

TEST(CrLf, IsCarriageReturnAndLineFeed) {
    EXPECT_EQ(kCrLf, "\x0D\x0A");
}

std::u32string CodePointsOf(std::string_view bytes, TextEncoding encoding) {
    std::u32string points;
    for (std::size_t at = 0; at < bytes.size();) {
        const CodePoint point = CodePointAt(bytes, at, encoding);
        points.push_back(point.value);
        at += point.length;
    }
    return points;
}

TEST(EncodingOf, IsUtf8WhenAllOfItIs) {
    EXPECT_EQ(EncodingOf(""), TextEncoding::Utf8);
    EXPECT_EQ(EncodingOf("plain"), TextEncoding::Utf8);
    EXPECT_EQ(EncodingOf("\u00E9\u20AC"), TextEncoding::Utf8);
    EXPECT_EQ(EncodingOf("\u00E9\xE9"), TextEncoding::Ansi);
    EXPECT_EQ(EncodingOf("caf\xE9"), TextEncoding::Ansi);
}

TEST(CodePointAt, ReadsUtf8OfEveryLength) {
    // The first and the last code point of each length.
    EXPECT_EQ(
        CodePointsOf("\0\x7F\u0080\u07FF\u0800\uFFFF\U00010000\U0010FFFF"sv, TextEncoding::Utf8),
        (std::u32string{0, 0x7F, 0x80, 0x7FF, 0x800, 0xFFFF, 0x10000, 0x10FFFF}));
    EXPECT_EQ(CodePointsOf("a\u00E9\u20AC\U0001F600", TextEncoding::Utf8),
              (std::u32string{'a', 0xE9, 0x20AC, 0x1F600}));
}

TEST(CodePointAt, ReadsTheAnsiCodePageByteByByte) {
    EXPECT_EQ(CodePointsOf("a\xC3\xA9\x80\x81\x9F", TextEncoding::Ansi),
              (std::u32string{'a', 0xC3, 0xA9, 0x20AC, 0x81, 0x178}));
}

TEST(CodePointAt, TakesWhatIsNotUtf8AsTheCodePage) {
    EXPECT_EQ(CodePointsOf("\xE9", TextEncoding::Utf8), std::u32string{0xE9});
    EXPECT_EQ(CodePointsOf("\x80z\xE2\x82", TextEncoding::Utf8),
              (std::u32string{0x20AC, 'z', 0xE2, 0x201A}));
}

TEST(CodePointAt, AgreesWithToUtf8OnAnyBytes) {
    std::mt19937 random(7);
    for (int round = 0; round < 2000; ++round) {
        std::string bytes(random() % 8, '\0');
        for (char& c : bytes) {
            c = AsChar(static_cast<int>(random() % 256));
        }
        ASSERT_EQ(CodePointsOf(bytes, EncodingOf(bytes)),
                  CodePointsOf(ToUtf8(bytes), TextEncoding::Utf8));
    }
}

TEST(Beginning, EndsBetweenTwoCharacters) {
    EXPECT_EQ(Beginning("harbour", 7), "harbour");
    EXPECT_EQ(Beginning("harbour", 100), "harbour");
    EXPECT_EQ(Beginning("harbour", 4), "harb");
    EXPECT_EQ(Beginning("", 4), "");
    EXPECT_EQ(Beginning("a\xC3\xA4z", 2), "a") << "an umlaut has two bytes";
    EXPECT_EQ(Beginning("a\xC3\xA4z", 3), "a\xC3\xA4");
    EXPECT_EQ(Beginning("\xE4\xF6\xFC", 2), "\xE4\xF6") << "in the code page each has one";
    EXPECT_EQ(Beginning("\x81\x82\x83\x84\x85\x86", 5).size(), 2U) << "no more than three go";
}

}  // namespace
}  // namespace scenara
