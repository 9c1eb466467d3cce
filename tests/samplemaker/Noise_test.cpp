// SPDX-License-Identifier: MIT
#include "samplemaker/Noise.h"

#include <set>

#include <gtest/gtest.h>

namespace scenara::samplemaker {
namespace {

TEST(Noise, StaysBetween0And1AndVaries) {
    double low = 1;
    double high = 0;
    for (int i = 0; i < 2000; ++i) {
        const double value = LayeredNoise(i * 0.37 - 300, i * 0.11, 4, 5);
        ASSERT_GE(value, 0);
        ASSERT_LE(value, 1);
        low = value < low ? value : low;
        high = value > high ? value : high;
    }
    EXPECT_LT(low, 0.35);
    EXPECT_GT(high, 0.65);
}

TEST(Noise, IsItsLatticeValueOnTheLattice) {
    EXPECT_DOUBLE_EQ(SmoothNoise(3, -2, 9), LatticeValue(3, -2, 9));
    EXPECT_NE(LatticeValue(3, -2, 9), LatticeValue(3, -2, 10));
    EXPECT_NE(LatticeValue(3, -2, 9), LatticeValue(-2, 3, 9));
}

// Tiled pictures need this: the last column fits the first.
TEST(Noise, RepeatsWithItsPeriod) {
    for (int i = 0; i < 100; ++i) {
        const double x = i * 0.25;  // exact in binary, so that both sides round alike
        EXPECT_DOUBLE_EQ(LayeredNoise(x, 0.5, 3, 7, 8), LayeredNoise(x + 8, 0.5, 3, 7, 8));
        EXPECT_DOUBLE_EQ(LayeredNoise(x, 0.5, 3, 7, 8), LayeredNoise(x - 40, 0.5, 3, 7, 8));
    }
    EXPECT_NE(LayeredNoise(1.5, 0.5, 3, 7, 8), LayeredNoise(5.5, 0.5, 3, 7, 8));
}

TEST(Random, KeepsItsRangesAndIsTheSameForTheSameSeed) {
    Random random(1);
    Random same(1);
    std::set<int> seen;
    for (int i = 0; i < 1000; ++i) {
        const int value = random.Whole(-2, 3);
        EXPECT_EQ(value, same.Whole(-2, 3));
        seen.insert(value);
    }
    EXPECT_EQ(seen, (std::set<int>{-2, -1, 0, 1, 2, 3}));
    for (int i = 0; i < 1000; ++i) {
        const double unit = random.Unit();
        ASSERT_GE(unit, 0);
        ASSERT_LT(unit, 1);
    }
}

}  // namespace
}  // namespace scenara::samplemaker
