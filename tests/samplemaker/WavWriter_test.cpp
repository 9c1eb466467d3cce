// SPDX-License-Identifier: MIT
#include "samplemaker/WavWriter.h"

#include <cstddef>
#include <stdexcept>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "samplemaker/BytesAsText.h"

namespace scenara::samplemaker {
namespace {

// Two frames of 16 bits: -1 and 1 (beyond, cut off), 0.5 (16383.5, rounded away from 0) and 0.
TEST(WavWriter, Stereo16) {
    const WavSound sound{.framesPerSecond = 44100, .channels = 2, .samples = {-1, 3, 0.5F, 0}};
    EXPECT_EQ(Text(WriteWav(sound)), Literal("RIFF\x2C\0\0\0WAVEfmt \x10\0\0\0\x01\0\x02\0"
                                             "\x44\xAC\0\0\x10\xB1\x02\0\x04\0\x10\0"
                                             "data\x08\0\0\0"
                                             "\x01\x80\xFF\x7F\x00\x40\0\0"));
}

TEST(WavWriter, Mono8) {
    const WavSound sound{.framesPerSecond = 8000, .channels = 1, .samples = {0, 1, -1}};
    EXPECT_EQ(Text(WriteWav(sound, WavDepth::Bits8)),
              Literal("RIFF\x27\0\0\0WAVEfmt \x10\0\0\0\x01\0\x01\0"
                      "\x40\x1F\0\0\x40\x1F\0\0\x01\0\x08\0"
                      "data\x03\0\0\0"
                      "\x80\xFF\x01"));
}

TEST(WavWriter, RefusesHalfAFrame) {
    EXPECT_THROW(WriteWav({.channels = 2, .samples = {0}}), std::invalid_argument);
    EXPECT_THROW(WriteWav({.channels = 0, .samples = {}}), std::invalid_argument);
}

}  // namespace
}  // namespace scenara::samplemaker
