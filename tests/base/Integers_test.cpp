// SPDX-License-Identifier: MIT
#include "base/Integers.h"

#include <array>
#include <cfenv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <random>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/RunTimeError.h"

namespace scenara {
namespace {

using testing::HasSubstr;
using testing::Property;
using testing::Throws;
using testing::ThrowsMessage;

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNotANumber = std::numeric_limits<double>::quiet_NaN();

auto RaisesOverflow() {
    return Throws<RunTimeError>(Property(&RunTimeError::Kind, RunTimeErrorKind::Overflow));
}

struct Rounding {
    double value;
    double whole;
};

constexpr std::array<Rounding, 24> kRoundings = {{
    {0.0, 0},
    {0.5, 0},
    {1.5, 2},
    {2.5, 2},
    {3.5, 4},
    {4.5, 4},
    {-0.5, 0},
    {-1.5, -2},
    {-2.5, -2},
    {-3.5, -4},
    {0.49999999999999994, 0},  // the largest below a half: + 0.5 would make it 1
    {0.5000000000000001, 1},
    {-0.49999999999999994, 0},
    {-0.5000000000000001, -1},
    {2.4999999999999996, 2},
    {2.5000000000000004, 3},
    {1E-300, 0},
    {-1E-300, 0},
    {32766.5, 32766},
    {2147483646.5, 2147483646},
    {4503599627370495.5, 4503599627370496.0},  // the last half there is
    {4503599627370497.0, 4503599627370497.0},
    {9007199254740993.0, 9007199254740992.0},
    {-1E300, -1E300},
}};

TEST(RoundToEven, TakesTheNearestAndTheEvenOneOfTwo) {
    for (const Rounding& row : kRoundings) {
        EXPECT_EQ(RoundToEven(row.value), row.whole) << testing::PrintToString(row.value);
    }
}

TEST(RoundToEven, DoesNotDependOnTheRoundingModeOfTheMachine) {
    for (const int mode : {FE_UPWARD, FE_DOWNWARD, FE_TOWARDZERO}) {
        for (const Rounding& row : kRoundings) {
            ASSERT_EQ(std::fesetround(mode), 0);
            const double whole = RoundToEven(row.value);
            std::fesetround(FE_TONEAREST);
            EXPECT_EQ(whole, row.whole) << testing::PrintToString(row.value) << " in " << mode;
        }
    }
}

TEST(RoundToEven, AgreesWithTheMachineOnManyValues) {
    std::mt19937_64 random(20011);  // NOLINT(cert-msc51-cpp,bugprone-random-generator-seed)
    std::uniform_real_distribution<double> size(-1.0, 53.0);
    std::uniform_real_distribution<double> part(-1.0, 1.0);
    for (int i = 0; i < 100000; ++i) {
        const double value = part(random) * std::exp2(size(random));
        const double half = std::floor(value) + 0.5;
        ASSERT_EQ(RoundToEven(value), std::nearbyint(value)) << testing::PrintToString(value);
        ASSERT_EQ(RoundToEven(half), std::nearbyint(half)) << testing::PrintToString(half);
    }
}

TEST(RoundToEven, KeepsInfinitiesAndNotANumber) {
    EXPECT_EQ(RoundToEven(kInfinity), kInfinity);
    EXPECT_EQ(RoundToEven(-kInfinity), -kInfinity);
    EXPECT_TRUE(std::isnan(RoundToEven(kNotANumber)));
}

TEST(ToInteger, RoundsTiesToEven) {
    EXPECT_EQ(ToInteger(2.5), 2);
    EXPECT_EQ(ToInteger(3.5), 4);
    EXPECT_EQ(ToInteger(-0.5), 0);
    EXPECT_EQ(ToInteger(-2.5), -2);
    EXPECT_EQ(ToInteger(319.99), 320);
}

TEST(ToInteger, TakesWhatFitsOnceItIsRounded) {
    EXPECT_EQ(ToInteger(32767), 32767);
    EXPECT_EQ(ToInteger(32767.4999), 32767);
    EXPECT_EQ(ToInteger(-32768), -32768);
    EXPECT_EQ(ToInteger(-32768.5), -32768);
}

TEST(ToInteger, RaisesOverflowBeyondItsRange) {
    for (const double value : {32767.5, 32768.0, 65536.0, 2147483648.0, -32768.5001, -32769.0,
                               1E300, -1E300, kInfinity, -kInfinity, kNotANumber, -kNotANumber}) {
        EXPECT_THAT([&] { return ToInteger(value); }, RaisesOverflow()) << value;
    }
}

TEST(ToInteger, OverflowSaysTheNumberAsItWas) {
    EXPECT_THAT([] { return ToInteger(40000); },
                ThrowsMessage<RunTimeError>("Overflow: 40000 as a 16-bit number"));
    EXPECT_THAT([] { return ToInteger(-40000.25); },
                ThrowsMessage<RunTimeError>("Overflow: -40000.25 as a 16-bit number"));
    EXPECT_THAT([] { return ToInteger(1E20); },
                ThrowsMessage<RunTimeError>("Overflow: 1E+20 as a 16-bit number"));
}

TEST(ToLong, RoundsTiesToEven) {
    EXPECT_EQ(ToLong(2.5), 2);
    EXPECT_EQ(ToLong(3.5), 4);
    EXPECT_EQ(ToLong(-0.5), 0);
    EXPECT_EQ(ToLong(-65537.5), -65538);
}

TEST(ToLong, TakesWhatFitsOnceItIsRounded) {
    EXPECT_EQ(ToLong(2147483647), 2147483647);
    EXPECT_EQ(ToLong(2147483647.4999), 2147483647);
    EXPECT_EQ(ToLong(-2147483648.0), std::numeric_limits<Long>::min());
    EXPECT_EQ(ToLong(-2147483648.5), std::numeric_limits<Long>::min());
}

TEST(ToLong, RaisesOverflowBeyondItsRange) {
    for (const double value : {2147483647.5, 2147483648.0, 4294967296.0, -2147483648.5001,
                               -2147483649.0, 1E19, kInfinity, -kInfinity, kNotANumber}) {
        EXPECT_THAT([&] { return ToLong(value); }, RaisesOverflow()) << value;
    }
    EXPECT_THAT([] { return ToLong(2147483648.0); },
                ThrowsMessage<RunTimeError>("Overflow: 2147483648 as a 32-bit number"));
}

TEST(ToSingle, TakesTheNearestFloat) {
    EXPECT_EQ(ToSingle(0.1), 0.1F);
    EXPECT_EQ(ToSingle(-2.5), -2.5F);
    EXPECT_EQ(ToSingle(16777217.0), 16777216.0F);
    EXPECT_EQ(ToSingle(1E-60), 0.0F);
}

TEST(ToSingle, TakesWhateverIsNearestToTheLargestFloat) {
    constexpr Single kLargest = std::numeric_limits<Single>::max();
    EXPECT_EQ(ToSingle(static_cast<double>(kLargest)), kLargest);
    EXPECT_EQ(ToSingle(-static_cast<double>(kLargest)), -kLargest);
    EXPECT_EQ(ToSingle(3.4028235E38), kLargest);  // its shortest text, a little above it
    EXPECT_EQ(ToSingle(-3.4028235E38), -kLargest);
}

TEST(ToSingle, RaisesOverflowBeyondItsRange) {
    const double halfAStepAbove = std::ldexp(33554431.0, 103);
    EXPECT_EQ(ToSingle(std::nextafter(halfAStepAbove, 0.0)), std::numeric_limits<Single>::max());
    for (const double value :
         {halfAStepAbove, -halfAStepAbove, 3.5E38, 1E300, kInfinity, -kInfinity, kNotANumber}) {
        EXPECT_THAT([&] { return ToSingle(value); }, RaisesOverflow()) << value;
    }
    EXPECT_THAT([] { return ToSingle(1E39); },
                ThrowsMessage<RunTimeError>("Overflow: 1E+39 as a 32-bit float"));
}

TEST(Incremented, CountsUpToTheTopOfTheRangeAndNoFurther) {
    EXPECT_EQ(Incremented(Integer{0}), 1);
    EXPECT_EQ(Incremented(Integer{-32768}), -32767);
    EXPECT_EQ(Incremented(Integer{32766}), 32767);
    EXPECT_THAT([] { return Incremented(Integer{32767}); }, RaisesOverflow());
    EXPECT_THAT([] { return Incremented(Integer{32767}); },
                ThrowsMessage<RunTimeError>(HasSubstr("16-bit counter")));

    EXPECT_EQ(Incremented(Long{32767}), 32768);
    EXPECT_EQ(Incremented(Long{-1}), 0);
    EXPECT_EQ(Incremented(Long{2147483646}), 2147483647);
    EXPECT_THAT([] { return Incremented(Long{2147483647}); }, RaisesOverflow());
    EXPECT_THAT([] { return Incremented(Long{2147483647}); },
                ThrowsMessage<RunTimeError>(HasSubstr("32-bit counter")));
}

TEST(StoredBooleans, AreMinusOneAndZeroIn16Bits) {
    static_assert(sizeof(kTrue) == 2 && sizeof(kFalse) == 2);
    EXPECT_EQ(kTrue, -1);
    EXPECT_EQ(kFalse, 0);
}

}  // namespace
}  // namespace scenara
