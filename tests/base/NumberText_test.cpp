// SPDX-License-Identifier: MIT
#include "base/NumberText.h"

#include <array>
#include <cmath>
#include <cstdint>
#include <limits>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

namespace scenara {
namespace {

using namespace std::string_view_literals;

constexpr double kInfinity = std::numeric_limits<double>::infinity();

struct Reading {
    std::string_view text;
    double value;
};

TEST(LeadingNumber, TakesTheLongestNumberThatTheTextBeginsWith) {
    constexpr std::array<Reading, 36> kReadings = {{
        {"12", 12},      {"12abc", 12},     {"-.5 px", -0.5},
        {"1e3", 1000},   {"+7", 7},         {"-7", -7},
        {"007", 7},      {"5.", 5},         {"5.x", 5},
        {".5", 0.5},     {"+.5", 0.5},      {"1.5.5", 1.5},
        {"1..5", 1},     {"1,5", 1},  // a comma separates values
        {"1 2", 1},      {"12-3", 12},      {"  \t 3", 3},
        {" \t-3\t", -3}, {"1E3", 1000},     {"1e+3", 1000},
        {"1e-3", 0.001}, {"1e003", 1000},   {"1.e2", 100},
        {".5e1", 5},     {"1e", 1},         {"1e+", 1},
        {"1e-x", 1},     {"1e 3", 1},       {"1e3.5", 1000},
        {"2e2e2", 200},  {"1d3", 1},        {"0x10", 0},
        {"1_000", 1},    {"12\0003"sv, 12}, {"2147483648", 2147483648.0},
        {"0.1", 0.1},
    }};
    for (const Reading& row : kReadings) {
        EXPECT_EQ(LeadingNumber(row.text), row.value) << '"' << row.text << '"';
    }
}

TEST(LeadingNumber, IsZeroWhereTheTextBeginsWithNone) {
    for (const std::string_view text :
         {"",    " ",      "\t",  "abc",  "x1",  ".",         "-",   "+",   "-.",   "+.",
          ".e5", "e5",     "-e5", "--1",  "+-1", "-+1",       "- 1", "+ 1", "\n1",  "\r1",
          "\v1", "\xA0.5", "$1",  "&H10", "inf", "-infinity", "nan", "NaN", "\0001"}) {
        EXPECT_EQ(LeadingNumber(text), 0.0) << '"' << text << '"';
    }
}

TEST(LeadingNumber, LooksNoFurtherThanTheEndOfItsText) {
    EXPECT_EQ(LeadingNumber("1234"sv.substr(0, 2)), 12);
    EXPECT_EQ(LeadingNumber("1e55"sv.substr(0, 3)), 100000);
    EXPECT_EQ(LeadingNumber("1e5"sv.substr(0, 2)), 1);
    EXPECT_EQ(LeadingNumber("1.5"sv.substr(0, 2)), 1);
    EXPECT_EQ(LeadingNumber(std::string_view{}), 0);
}

TEST(LeadingNumber, TakesTheNearestDoubleToALongNumber) {
    EXPECT_EQ(LeadingNumber("9007199254740993"), 9007199254740992.0);
    EXPECT_EQ(LeadingNumber("9007199254740993.00000000000000000000000000000001"),
              9007199254740994.0);
    EXPECT_EQ(LeadingNumber("1.7976931348623157e308"), std::numeric_limits<double>::max());
    EXPECT_EQ(LeadingNumber("4.9406564584124654e-324"), std::numeric_limits<double>::denorm_min());
    EXPECT_EQ(LeadingNumber("0." + std::string(1000, '3')), 1.0 / 3.0);
}

TEST(LeadingNumber, GoesToInfinityBeyondTheRangeOfADouble) {
    const std::string huge = "1" + std::string(400, '0');
    const std::string tiny = "0." + std::string(400, '0');
    for (const std::string& text :
         {std::string("1e309"), std::string("1.8e308"), huge, huge + ".5", huge + "e-5",
          tiny + "1e999", std::string("1e2147483648"), std::string("1e99999999999999999999"),
          std::string("1e+99999999999999999999"), "00" + huge, std::string("1e9223372036854775807"),
          std::string("0080e0009223372036854775807"), std::string("12.5E+400 px")}) {
        EXPECT_EQ(LeadingNumber(text), kInfinity) << text;
        EXPECT_EQ(LeadingNumber("-" + text), -kInfinity) << text;
    }
}

TEST(LeadingNumber, GoesToZeroBelowTheSmallestDouble) {
    const std::string huge = "123" + std::string(400, '0');
    const std::string tiny = "." + std::string(400, '0');
    for (const std::string& text :
         {std::string("1e-400"), tiny + "1", "0" + tiny, tiny + "1e5", tiny + "1e+5",
          huge + "e-999", std::string("1e-99999999999999999999"),
          std::string("1e-9223372036854775808")}) {
        EXPECT_EQ(LeadingNumber(text), 0.0) << text;
        EXPECT_EQ(LeadingNumber("-" + text), 0.0) << text;
    }
}

TEST(LeadingNumber, MovesLongRowsOfZerosByTheExponent) {
    const std::string zeros(400, '0');
    EXPECT_EQ(LeadingNumber("0." + zeros + "1e401"), 1.0);
    EXPECT_EQ(LeadingNumber("1" + zeros + "e-400"), 1.0);
    EXPECT_EQ(LeadingNumber("0e999"), 0.0);
    EXPECT_EQ(LeadingNumber("0.000e99999999999999999999"), 0.0);
    EXPECT_EQ(LeadingNumber(zeros + "5"), 5.0);
}

TEST(IsNumeric, IsTrueForOneNumberWithBlanksAroundIt) {
    for (const std::string_view text : {"0", "12", " 12 ", "-1", "+1", ".5", "5.", "-.5", "+5.25",
                                        "1e3", "1E-3", "  1e+3", "1e999"}) {
        EXPECT_TRUE(IsNumeric(text)) << '"' << text << '"';
    }
}

TEST(IsNumeric, IsFalseForAnythingElse) {
    for (const std::string_view text :
         {"",    " ",   ".",   "-",   "+",    "e5",  "abc", "12abc", "1 2", "1,2", "1.2.3", "1e",
          "1e+", "--1", "+-1", "- 1", "0x10", "inf", "nan", "\t1",   "1\t", "1\n", "1\r"}) {
        EXPECT_FALSE(IsNumeric(text)) << '"' << text << '"';
    }
    EXPECT_FALSE(IsNumeric("1\0"sv));
}

TEST(NumberText, WritesWholeNumbersPlainly) {
    EXPECT_EQ(NumberText(std::int16_t{-32768}), "-32768");
    EXPECT_EQ(NumberText(std::int32_t{0}), "0");
    EXPECT_EQ(NumberText(std::numeric_limits<std::int32_t>::min()), "-2147483648");
    EXPECT_EQ(NumberText(std::numeric_limits<std::int64_t>::max()), "9223372036854775807");
    EXPECT_EQ(NumberText(std::numeric_limits<std::int64_t>::min()), "-9223372036854775808");
    EXPECT_EQ(NumberText(5.0), "5");
    EXPECT_EQ(NumberText(-120.0F), "-120");
    EXPECT_EQ(NumberText(1000.0), "1000");
}

TEST(NumberText, WritesTheShortestFractionThatReadsBack) {
    EXPECT_EQ(NumberText(0.5), "0.5");
    EXPECT_EQ(NumberText(-0.5F), "-0.5");
    EXPECT_EQ(NumberText(0.1F), "0.1");
    EXPECT_EQ(NumberText(0.1), "0.1");
    EXPECT_EQ(NumberText(static_cast<double>(0.1F)), "0.10000000149011612");
    EXPECT_EQ(NumberText(0.1 + 0.2), "0.30000000000000004");
    EXPECT_EQ(NumberText(1.0 / 3.0), "0.3333333333333333");
    EXPECT_EQ(NumberText(1.0F / 3.0F), "0.33333334");
    EXPECT_EQ(NumberText(123.250F), "123.25");
}

TEST(NumberText, WritesZeroWithoutASign) {
    EXPECT_EQ(NumberText(0.0), "0");
    EXPECT_EQ(NumberText(-0.0), "0");
    EXPECT_EQ(NumberText(-0.0F), "0");
}

TEST(NumberText, HasNoExponentBelow1E15) {
    EXPECT_EQ(NumberText(999999999999999.0), "999999999999999");
    EXPECT_EQ(NumberText(-999999999999999.0), "-999999999999999");
    EXPECT_EQ(NumberText(999999999999999.9), "999999999999999.9");
    EXPECT_EQ(NumberText(100000000000000.0), "100000000000000");
    EXPECT_EQ(NumberText(0.00001), "0.00001");
    EXPECT_EQ(NumberText(1.5E-7F), "0.00000015");
    EXPECT_EQ(NumberText(-1E-20), "-0.00000000000000000001");
    EXPECT_EQ(NumberText(std::numeric_limits<double>::denorm_min()),
              "0." + std::string(323, '0') + "5");
    EXPECT_EQ(NumberText(16777216.0F), "16777216");
}

TEST(NumberText, HasAnExponentFrom1E15On) {
    EXPECT_EQ(NumberText(1E15), "1E+15");
    EXPECT_EQ(NumberText(-1E15), "-1E+15");
    EXPECT_EQ(NumberText(1E15F), "1E+15");
    EXPECT_EQ(NumberText(1234567890123456.0), "1.234567890123456E+15");
    EXPECT_EQ(NumberText(std::numeric_limits<double>::max()), "1.7976931348623157E+308");
    EXPECT_EQ(NumberText(std::numeric_limits<float>::max()), "3.4028235E+38");
}

}  // namespace
}  // namespace scenara
