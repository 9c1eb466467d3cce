// SPDX-License-Identifier: MIT
#include "platform/ScreenPixels.h"

#include <ostream>
#include <random>

#include <gtest/gtest.h>

#include "support/Rounds.h"

namespace scenara::test {
namespace {

struct Row {
    const char* name;
    ScaledScreen screen;
    ScreenRectangle units;
    ScreenRectangle pixels;
};

std::ostream& operator<<(std::ostream& out, const Row& row) {
    return out << row.name;
}

constexpr Long kMost = 2147483647;

constexpr Row kRows[] = {
    {"a unit is a pixel", {900, 40, 1}, {950, 60, 320, 240}, {950, 60, 320, 240}},
    {"on the first screen", {0, 0, 2}, {50, 30, 320, 240}, {100, 60, 640, 480}},
    {"on the second one", {900, 0, 2}, {950, 30, 320, 240}, {1000, 60, 640, 480}},
    {"on one below", {0, 768, 1.5}, {10, 788, 100, 80}, {15, 798, 150, 120}},
    {"on one to the left", {-1920, -30, 1.5}, {-1900, 0, 100, 80}, {-1890, 15, 150, 120}},
    {"partly out of it", {900, 0, 2}, {890, -5, 100, 50}, {880, -10, 200, 100}},
    {"rounded", {0, 0, 1.25}, {1, 2, 3, 5}, {1, 3, 4, 6}},
    {"absurd", {-kMost, kMost, 3}, {kMost, -kMost, kMost, 0}, {kMost, -kMost - 1, kMost, 0}},
};

class InPixels : public testing::TestWithParam<Row> {};

TEST_P(InPixels, Stands) {
    const Row& row = GetParam();
    const ScreenRectangle pixels = InScreenPixels(row.units, row.screen);
    EXPECT_EQ(pixels.left, row.pixels.left);
    EXPECT_EQ(pixels.top, row.pixels.top);
    EXPECT_EQ(pixels.width, row.pixels.width);
    EXPECT_EQ(pixels.height, row.pixels.height);
}

INSTANTIATE_TEST_SUITE_P(Of, InPixels, testing::ValuesIn(kRows));

// A window that is wholly on a screen is so in pixels, too.
TEST(ScreenPixels, AWindowStaysOnItsScreen) {
    std::mt19937 random(22);
    const auto number = [&](Long least, Long most) {
        return std::uniform_int_distribution<Long>(least, most)(random);
    };
    for (int round = 0; round < Rounds(3000); ++round) {
        const Long times = number(1, 4);
        const ScreenRectangle screen{number(-4000, 4000), number(-4000, 4000),
                                     number(100, 900) * times, number(100, 900) * times};
        const Long width = number(1, screen.width / times);
        const Long height = number(1, screen.height / times);
        const ScreenRectangle units{screen.left + number(0, screen.width / times - width),
                                    screen.top + number(0, screen.height / times - height), width,
                                    height};
        const ScreenRectangle pixels =
            InScreenPixels(units, {screen.left, screen.top, static_cast<double>(times)});
        ASSERT_GE(pixels.left, screen.left);
        ASSERT_GE(pixels.top, screen.top);
        ASSERT_LE(pixels.left + pixels.width, screen.left + screen.width);
        ASSERT_LE(pixels.top + pixels.height, screen.top + screen.height);
        ASSERT_EQ(pixels.width, width * times);
    }
}

}  // namespace
}  // namespace scenara::test
