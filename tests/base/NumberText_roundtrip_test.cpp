// SPDX-License-Identifier: MIT
//
// Every number that is written reads back as itself, in the shortest form, whatever the locale.
#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <locale>
#include <random>
#include <string>

#include <gtest/gtest.h>

#include "base/Integers.h"
#include "base/NumberText.h"

namespace scenara {
namespace {

constexpr int kCount = 50000;
constexpr std::uint32_t kSeed = 88172645;

// A random pattern of bits: every finite value is as likely as any other.
template <typename Number, typename Bits>
Number AnyFinite(std::mt19937_64& random) {
    for (;;) {
        const auto value = std::bit_cast<Number>(static_cast<Bits>(random()));
        if (std::isfinite(value)) {
            return value;
        }
    }
}

// Values as content has them: a whole number, or a few digits behind the stop.
double AnyUsual(std::mt19937_64& random) {
    const double whole = static_cast<double>(random() % 200001) - 100000.0;
    return whole / std::pow(10.0, static_cast<double>(random() % 6));
}

std::string DigitsOf(const std::string& text) {
    std::string digits;
    for (const char c : text.substr(0, text.find('E'))) {
        if (c >= '0' && c <= '9' && !(digits.empty() && c == '0')) {
            digits.push_back(c);
        }
    }
    const std::size_t last = digits.find_last_not_of('0');
    return digits.substr(0, last == std::string::npos ? 0 : last + 1);
}

// The nearest number of so many digits, as the C library reads and writes it.
template <typename Number>
Number WithDigits(Number value, int digits) {
    std::array<char, 64> text{};
    EXPECT_GT(
        std::snprintf(text.data(), text.size(), "%.*e", digits - 1, static_cast<double>(value)), 0);
    return sizeof(Number) == sizeof(float) ? static_cast<Number>(std::strtof(text.data(), nullptr))
                                           : static_cast<Number>(std::strtod(text.data(), nullptr));
}

void ExpectGoodForm(const std::string& text, double value) {
    EXPECT_EQ(text.find_first_not_of("-0123456789.E+"), std::string::npos) << text;
    EXPECT_NE(text, "-0");
    EXPECT_NE(text.front(), '+');
    EXPECT_EQ(text.find('E') != std::string::npos, std::abs(value) >= 1E15) << text;
    if (text.find('.') != std::string::npos) {
        const std::string mantissa = text.substr(0, text.find('E'));
        EXPECT_NE(mantissa.back(), '0') << text;
        EXPECT_NE(mantissa.back(), '.') << text;
        EXPECT_NE(mantissa.front(), '.') << text;
    }
}

void ExpectRoundTrips() {
    std::mt19937_64 random(kSeed);  // NOLINT(cert-msc51-cpp,bugprone-random-generator-seed)
    for (int i = 0; i < kCount && !testing::Test::HasFailure(); ++i) {
        for (const double value : {AnyFinite<double, std::uint64_t>(random), AnyUsual(random)}) {
            const std::string text = NumberText(value);
            EXPECT_EQ(LeadingNumber(text), value) << text;
            EXPECT_TRUE(IsNumeric(text)) << text;
            ExpectGoodForm(text, value);
        }
        for (const float value :
             {AnyFinite<float, std::uint32_t>(random), static_cast<float>(AnyUsual(random))}) {
            const std::string text = NumberText(value);
            EXPECT_EQ(ToSingle(LeadingNumber(text)), value) << text;
            ExpectGoodForm(text, static_cast<double>(value));
        }
    }
}

TEST(NumberTextRoundTrip, HoldsForRandomNumbers) {
    ExpectRoundTrips();
}

TEST(NumberTextRoundTrip, HoldsAtTheEndsOfTheRanges) {
    using Floats = std::numeric_limits<float>;
    for (const float value : {Floats::max(), Floats::lowest(), Floats::min(), Floats::denorm_min(),
                              Floats::epsilon(), 999999930000000.0F, 1E15F}) {
        EXPECT_EQ(ToSingle(LeadingNumber(NumberText(value))), value) << NumberText(value);
    }
    using Doubles = std::numeric_limits<double>;
    for (const double value : {Doubles::max(), Doubles::lowest(), Doubles::min(),
                               Doubles::denorm_min(), -Doubles::denorm_min(), Doubles::epsilon()}) {
        EXPECT_EQ(LeadingNumber(NumberText(value)), value) << NumberText(value);
    }
}

TEST(NumberTextRoundTrip, NoShorterFormReadsBack) {
    std::mt19937_64 random(kSeed);  // NOLINT(cert-msc51-cpp,bugprone-random-generator-seed)
    for (int i = 0; i < kCount && !HasFailure(); ++i) {
        const auto wide = AnyFinite<double, std::uint64_t>(random);
        const std::string wideText = NumberText(wide);
        EXPECT_EQ(std::strtod(wideText.c_str(), nullptr), wide) << wideText;
        if (const auto digits = static_cast<int>(DigitsOf(wideText).size()); digits > 1) {
            EXPECT_NE(WithDigits(wide, digits - 1), wide) << wideText;
        }
        // From 2^24 to 1E15 all digits of a whole number are written, counting or not.
        const auto narrow = AnyFinite<float, std::uint32_t>(random);
        if (std::abs(narrow) >= 16777216.0F && std::abs(narrow) < 1E15F) {
            continue;
        }
        const std::string narrowText = NumberText(narrow);
        EXPECT_EQ(std::strtof(narrowText.c_str(), nullptr), narrow) << narrowText;
        if (const auto digits = static_cast<int>(DigitsOf(narrowText).size()); digits > 1) {
            EXPECT_NE(WithDigits(narrow, digits - 1), narrow) << narrowText;
        }
    }
}

class CommaAndGroups : public std::numpunct<char> {
protected:
    [[nodiscard]] char do_decimal_point() const override { return ','; }
    [[nodiscard]] char do_thousands_sep() const override { return '.'; }
    [[nodiscard]] std::string do_grouping() const override { return "\3"; }
};

TEST(NumberTextLocale, ADecimalCommaOfTheStreamsChangesNothing) {
    // The locale owns its facet.
    const std::locale before =
        std::locale::global(std::locale(std::locale::classic(), new CommaAndGroups));
    EXPECT_EQ(NumberText(1234.5), "1234.5");
    EXPECT_EQ(NumberText(std::int64_t{1234567}), "1234567");
    EXPECT_EQ(LeadingNumber("1234.5"), 1234.5);
    EXPECT_EQ(LeadingNumber("1234,5"), 1234);
    ExpectRoundTrips();
    std::locale::global(before);
}

}  // namespace
}  // namespace scenara
