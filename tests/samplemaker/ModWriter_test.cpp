// SPDX-License-Identifier: MIT
#include "samplemaker/ModWriter.h"

#include <cstddef>
#include <stdexcept>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "samplemaker/BytesAsText.h"

namespace scenara::samplemaker {
namespace {

constexpr std::size_t kSoundSize = 30;
constexpr std::size_t kPatternAt = 1084;
constexpr std::size_t kCellSize = 4;

// Two sounds, two patterns, played 1 0 1.
ModTune SmallTune() {
    ModTune tune{.title = "small",
                 .sounds = {{.name = "one", .volume = 64, .samples = {1, -1, 2, -2, 3, -3}},
                            {.name = "two",
                             .volume = 32,
                             .samples = {9, 8, 7, 6},
                             .loopStart = 2,
                             .loopLength = 2}},
                 .patterns = std::vector<ModPattern>(2),
                 .order = {1, 0, 1}};
    return tune;
}

std::string Written(const ModTune& tune) {
    const std::vector<std::byte> bytes = WriteMod(tune);
    return Text(bytes);
}

TEST(ModWriter, HeadingsOfTheSounds) {
    const std::string file = Written(SmallTune());
    EXPECT_EQ(file.substr(0, 20), "small" + std::string(15, '\0'));
    EXPECT_EQ(file.substr(20, kSoundSize),
              "one" + std::string(19, '\0') + Literal("\0\x03\0\x40\0\0\0\x01"));
    EXPECT_EQ(file.substr(50, kSoundSize),
              "two" + std::string(19, '\0') + Literal("\0\x02\0\x20\0\x01\0\x01"));
    EXPECT_EQ(file.substr(80, kSoundSize), std::string(22, '\0') + Literal("\0\0\0\0\0\0\0\x01"));
}

TEST(ModWriter, OrderAndSize) {
    const std::string file = Written(SmallTune());
    EXPECT_EQ(file.substr(950, 6), Literal("\x03\x7F\x01\0\x01\0"));
    EXPECT_EQ(file.substr(1080, 4), "M.K.");
    EXPECT_EQ(file.size(), kPatternAt + 2 * 1024 + 6 + 4);
    EXPECT_EQ(file.substr(kPatternAt + 2 * 1024), "\x01\xFF\x02\xFE\x03\xFD\x09\x08\x07\x06");
}

// Row 1, channel 2 of pattern 1: C of the middle octave (428 = 0x1AC) by sound 2, effect 12, 0x20.
TEST(ModWriter, Cells) {
    ModTune tune = SmallTune();
    tune.patterns[1][1][2] = {12, 2, 12, 0x20};
    const std::string file = Written(tune);
    const std::size_t at = kPatternAt + 1024 + (1 * 4 + 2) * kCellSize;
    EXPECT_EQ(file.substr(at, kCellSize), "\x01\xAC\x2C\x20");
    EXPECT_EQ(file.substr(at + kCellSize, kCellSize), std::string(4, '\0'));
}

TEST(ModWriter, HighSoundNumbersAreSplit) {
    ModTune tune = SmallTune();
    tune.sounds.resize(31);
    tune.patterns[0][0][0] = {35, 31, 0, 0};  // the highest note: 113
    EXPECT_EQ(Written(tune).substr(kPatternAt, kCellSize), Literal("\x10\x71\xF0\0"));
}

TEST(ModWriter, RefusesWhatTheFormatCannotHold) {
    const auto refuses = [](auto change) {
        ModTune tune = SmallTune();
        change(tune);
        EXPECT_THROW(WriteMod(tune), std::invalid_argument);
    };
    refuses([](ModTune& tune) { tune.title = std::string(21, 'x'); });
    refuses([](ModTune& tune) { tune.sounds.resize(32); });
    refuses([](ModTune& tune) { tune.sounds[0].name = std::string(23, 'x'); });
    refuses([](ModTune& tune) { tune.sounds[0].volume = 65; });
    refuses([](ModTune& tune) { tune.sounds[0].samples.push_back(1); });
    refuses([](ModTune& tune) { tune.sounds[0].samples.resize(131072); });
    refuses([](ModTune& tune) { tune.sounds[1].loopLength = 4; });
    refuses([](ModTune& tune) { tune.order = {}; });
    refuses([](ModTune& tune) { tune.order = {0}; });
    refuses([](ModTune& tune) { tune.order = {2}; });
    refuses([](ModTune& tune) { tune.patterns[0][0][0].note = 36; });
    refuses([](ModTune& tune) { tune.patterns[0][0][0].sound = 3; });
    refuses([](ModTune& tune) { tune.patterns[0][0][0].effect = 16; });
}

}  // namespace
}  // namespace scenara::samplemaker
