// SPDX-License-Identifier: MIT
#include "platform/WindowOnScreens.h"

#include <ostream>
#include <random>
#include <vector>

#include <gtest/gtest.h>

#include "support/Rounds.h"

namespace scenara::test {
namespace {

using Spot = WindowStand::Spot;

const std::vector<ScreenRectangle> kOne = {{0, 0, 1024, 740}};
// A laptop with a larger screen to its left and one above it.
const std::vector<ScreenRectangle> kThree = {
    {0, 28, 1366, 740}, {-1920, 0, 1920, 1080}, {0, -1080, 1920, 1080}};
const std::vector<ScreenRectangle> kLargerLast = {{0, 0, 1366, 740}, {1366, 0, 1920, 1080}};
const std::vector<ScreenRectangle> kLargerFirst = {{0, 0, 1920, 1080}, {1920, 0, 1366, 740}};
const std::vector<ScreenRectangle> kOneUpright = {{0, 0, 1920, 1080}, {1920, 0, 1080, 1900}};

struct Row {
    const char* name;
    const std::vector<ScreenRectangle>& screens;
    WindowStand wanted;
    WindowStand comesUp;
};

std::ostream& operator<<(std::ostream& out, const Row& row) {
    return out << row.name;
}

constexpr Spot kSpot{100, 50};
constexpr InnerSize kSize{800, 600};
constexpr InnerSize kHuge{2147483647, 2147483647};

const Row kRows[] = {
    {"as it was", kOne, {kSpot, kSize}, {kSpot, kSize}},
    {"no spot is known", kOne, {{}, kSize}, {{}, kSize}},
    {"larger than the screen", kOne, {Spot{0, 0}, {4000, 3000}}, {Spot{0, 0}, {1024, 740}}},
    {"maximised", kOne, {kSpot, kSize, true}, {kSpot, kSize, true}},
    {"partly out of it to the left", kOne, {Spot{-700, 50}, kSize}, {Spot{-700, 50}, kSize}},
    {"too far to the left", kOne, {Spot{-705, 50}, kSize}, {{}, kSize}},
    {"partly out of it to the right", kOne, {Spot{928, 50}, kSize}, {Spot{928, 50}, kSize}},
    {"too far to the right", kOne, {Spot{929, 50}, kSize}, {{}, kSize}},
    {"out of it at the top", kOne, {Spot{100, -1}, kSize}, {{}, kSize}},
    {"low", kOne, {Spot{100, 716}, kSize}, {Spot{100, 716}, kSize}},
    {"too low", kOne, {Spot{100, 717}, kSize}, {{}, kSize}},
    {"a narrow one, whole", kOne, {Spot{0, 0}, {60, 40}}, {Spot{0, 0}, {60, 40}}},
    {"a narrow one, not whole", kOne, {Spot{-1, 0}, {60, 40}}, {{}, {60, 40}}},
    {"below a bar of the system's", kThree, {Spot{10, 28}, kSize}, {Spot{10, 28}, kSize}},
    {"under a bar, with a screen above it", kThree, {Spot{10, 10}, kSize}, {{}, kSize}},
    {"on the screen to the left",
     kThree,
     {Spot{-1900, 0}, {1900, 1040}},
     {Spot{-1900, 0}, {1900, 1040}}},
    {"larger than its own screen", kThree, {Spot{0, 30}, {1900, 1040}}, {Spot{0, 30}, {1366, 740}}},
    {"that screen is gone", kOne, {Spot{-1900, 0}, {1900, 1040}}, {{}, {1024, 740}}},
    {"absurd", kThree, {Spot{2147483647, 2147483647}, kHuge}, {{}, {1920, 1080}}},
    {"absurd to the other side",
     kThree,
     {Spot{-2147483647 - 1, -2147483647 - 1}, kHuge},
     {{}, {1920, 1080}}},
    {"no spot, on any of several", kThree, {{}, kSize}, {{}, kSize}},
    {"no spot, the larger screen last", kLargerLast, {{}, {1800, 1000}}, {{}, {1800, 1000}}},
    {"no spot, the larger screen first", kLargerFirst, {{}, {1800, 1000}}, {{}, {1800, 1000}}},
    {"no spot, for an upright screen only", kOneUpright, {{}, {1000, 1800}}, {{}, {1000, 1800}}},
    {"no spot, larger than both, the larger last", kLargerLast, {{}, kHuge}, {{}, {1920, 1080}}},
    {"no spot, larger than both, the larger first", kLargerFirst, {{}, kHuge}, {{}, {1920, 1080}}},
    {"no spot, too high for both", kLargerLast, {{}, {800, 2000}}, {{}, {800, 1080}}},
    {"its screen is gone, another has room",
     kLargerLast,
     {Spot{-1900, 0}, {1900, 1040}},
     {{}, {1900, 1040}}},
};

class OnScreensRow : public testing::TestWithParam<Row> {};

TEST_P(OnScreensRow, ComesUp) {
    const Row& row = GetParam();
    const WindowStand on = OnScreens(row.wanted, row.screens);
    EXPECT_EQ(on.spot, row.comesUp.spot);
    EXPECT_EQ(on.size, row.comesUp.size);
    EXPECT_EQ(on.maximised, row.comesUp.maximised);
}

INSTANTIATE_TEST_SUITE_P(Of, OnScreensRow, testing::ValuesIn(kRows));

TEST(OnScreens, WithoutScreensNothingChanges) {
    EXPECT_EQ(OnScreens({kSpot, kHuge}, {}), (WindowStand{kSpot, kHuge}));
}

// Counted pixel by pixel: what is kept can be taken hold of.
TEST(OnScreens, WhatComesUpWhereItWasCanBeMoved) {
    std::mt19937 random(21);
    const auto number = [&](Long least, Long most) {
        return std::uniform_int_distribution<Long>(least, most)(random);
    };
    for (int round = 0; round < Rounds(3000); ++round) {
        std::vector<ScreenRectangle> screens;
        for (Long i = number(1, 3); i > 0; --i) {
            screens.push_back(
                {number(-400, 400), number(-400, 400), number(150, 500), number(100, 400)});
        }
        const WindowStand wanted{Spot{number(-600, 800), number(-600, 600)},
                                 {number(40, 600), number(30, 500)}};
        const WindowStand on = OnScreens(wanted, screens);
        bool reachable = false;
        for (const ScreenRectangle& screen : screens) {
            Long columns = 0;
            for (Long x = wanted.spot->left; x < wanted.spot->left + wanted.size.width; ++x) {
                columns += x >= screen.left && x < screen.left + screen.width ? 1 : 0;
            }
            const bool rows = wanted.spot->top >= screen.top &&
                              wanted.spot->top + kLeastSeenHeight <= screen.top + screen.height;
            reachable = reachable || (rows && columns >= std::min<Long>(96, wanted.size.width));
        }
        ASSERT_EQ(on.spot.has_value(), reachable);
        ASSERT_TRUE(!on.spot || on.spot == wanted.spot);
    }
}

}  // namespace
}  // namespace scenara::test
