// SPDX-License-Identifier: MIT
#include "samplemaker/MidiWriter.h"

#include <cstddef>
#include <stdexcept>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "samplemaker/BytesAsText.h"

namespace scenara::samplemaker {
namespace {

MidiTune TuneOf(const std::vector<MidiNote>& notes) {
    return {.length = 1000, .parts = {{.notes = notes}}};
}

// 500000 us are 0x07A120; 300 ticks are 0x82 0x2C; 20000 ticks are 0x81 0x9C 0x20.
TEST(MidiWriter, ATuneOfTwoNotes) {
    const MidiTune tune{.ticksPerQuarter = 480,
                        .length = 20300,
                        .parts = {{.name = "ab",
                                   .channel = 3,
                                   .program = 24,
                                   .volume = 90,
                                   .pan = 10,
                                   .notes = {{300, 20000, 60, 100}}}}};
    EXPECT_EQ(Text(WriteMidi(tune)), Literal("MThd\0\0\0\x06\0\x01\0\x02\x01\xE0"
                                             "MTrk\0\0\0\x0D"
                                             "\0\xFF\x51\x03\x07\xA1\x20"
                                             "\x81\x9E\x4C\xFF\x2F\0"
                                             "MTrk\0\0\0\x20"
                                             "\0\xFF\x03\x02"
                                             "ab"
                                             "\0\xC3\x18"
                                             "\0\xB3\x07\x5A"
                                             "\0\xB3\x0A\x0A"
                                             "\x82\x2C\x93\x3C\x64"
                                             "\x81\x9C\x20\x83\x3C\0"
                                             "\0\xFF\x2F\0"));
}

// The same key twice in a row: let go of before it is struck again, in whatever order it is given.
TEST(MidiWriter, AKeyIsLetGoOfBeforeItIsStruckAgain) {
    const std::string text = Text(WriteMidi(TuneOf({{10, 5, 60, 100}, {0, 10, 60, 90}})));
    EXPECT_NE(text.find(Literal("\0\x90\x3C\x5A"
                                "\x0A\x80\x3C\0"
                                "\0\x90\x3C\x64"
                                "\x05\x80\x3C\0")),
              std::string::npos);
}

TEST(MidiWriter, RefusesWhatTheFormatCannotHold) {
    EXPECT_NO_THROW(WriteMidi(TuneOf({{0, 1000, 127, 127}})));
    EXPECT_THROW(WriteMidi(TuneOf({{0, 1001}})), std::invalid_argument);
    EXPECT_THROW(WriteMidi(TuneOf({{1001, 1}})), std::invalid_argument);
    EXPECT_THROW(WriteMidi(TuneOf({{0, 0}})), std::invalid_argument);
    EXPECT_THROW(WriteMidi(TuneOf({{0, 1, 128}})), std::invalid_argument);
    EXPECT_THROW(WriteMidi(TuneOf({{0, 1, 60, 128}})), std::invalid_argument);
    EXPECT_THROW(WriteMidi({.parts = {{.channel = 16}}}), std::invalid_argument);
    EXPECT_THROW(WriteMidi({.microsecondsPerQuarter = 0x1000000}), std::invalid_argument);
    EXPECT_THROW(WriteMidi({.length = 0x10000000}), std::invalid_argument);
    EXPECT_THROW(WriteMidi({.ticksPerQuarter = 0}), std::invalid_argument);
}

}  // namespace
}  // namespace scenara::samplemaker
