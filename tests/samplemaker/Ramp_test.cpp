// SPDX-License-Identifier: MIT
#include "samplemaker/Ramp.h"

#include <stdexcept>

#include <gtest/gtest.h>

namespace scenara::samplemaker {
namespace {

TEST(Ramp, LevelsOutsideCountAsTheNearerEnd) {
    const Ramp ramp{10, 4};
    EXPECT_EQ(ramp.Flat(-3), 10);
    EXPECT_EQ(ramp.Flat(0.5), 12);
    EXPECT_EQ(ramp.Flat(7), 13);
    EXPECT_EQ(ramp.Step(-1), 10);
    EXPECT_EQ(ramp.Step(99), 13);
    for (int y = 0; y < 4; ++y) {
        for (int x = 0; x < 4; ++x) {
            EXPECT_EQ(ramp.At(x, y, -1), 10);
            EXPECT_EQ(ramp.At(x, y, 2), 13);
        }
    }
}

// A level between two entries shows both, as often as it is near to each.
TEST(Ramp, DitheringKeepsTheMeanLevel) {
    const Ramp ramp{1, 2};
    for (int sixteenths = 0; sixteenths <= 16; ++sixteenths) {
        int light = 0;
        for (int y = 0; y < 4; ++y) {
            for (int x = 0; x < 4; ++x) {
                light += ramp.At(x, y, sixteenths / 16.0) == 2 ? 1 : 0;
            }
        }
        EXPECT_EQ(light, sixteenths);
    }
}

TEST(Ramp, ThePatternRepeatsEveryFourPixelsAlsoLeftOfZero) {
    EXPECT_EQ(DitherThreshold(1, 2), DitherThreshold(5, -2));
    EXPECT_EQ(DitherThreshold(-3, 0), DitherThreshold(1, 4));
}

TEST(PaletteBuilder, MixesColoursBetweenStops) {
    PaletteBuilder builder({9, 8, 7});
    const Ramp ramp = builder.AddRamp(5, {{0, {0, 100, 0}}, {0.5, {40, 100, 0}}, {1, {40, 0, 8}}});
    const std::uint8_t single = builder.AddColour({1, 2, 3});

    const Palette& colours = builder.Colours();
    EXPECT_EQ(colours[0], (Rgb{9, 8, 7}));
    EXPECT_EQ(ramp.first, 1);
    EXPECT_EQ(ramp.count, 5);
    EXPECT_EQ(colours[1], (Rgb{0, 100, 0}));
    EXPECT_EQ(colours[2], (Rgb{20, 100, 0}));
    EXPECT_EQ(colours[3], (Rgb{40, 100, 0}));
    EXPECT_EQ(colours[4], (Rgb{40, 50, 4}));
    EXPECT_EQ(colours[5], (Rgb{40, 0, 8}));
    EXPECT_EQ(single, 6);
    EXPECT_EQ(colours[6], (Rgb{1, 2, 3}));
}

TEST(PaletteBuilder, RefusesWhatDoesNotFit) {
    PaletteBuilder builder;
    EXPECT_THROW(builder.AddRamp(2, {}), std::invalid_argument);
    EXPECT_THROW(builder.AddRamp(0, {{0, {}}}), std::invalid_argument);
    EXPECT_NO_THROW(builder.AddRamp(255, {{0, {}}}));
    EXPECT_THROW(builder.AddColour({}), std::invalid_argument);
}

}  // namespace
}  // namespace scenara::samplemaker
