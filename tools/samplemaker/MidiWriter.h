// SPDX-License-Identifier: MIT
//
// Writes a tune as a standard MIDI file of format 1: a track with the tempo, then a track for each
// instrument.
//
//   header   "MThd", 6, format, number of tracks, ticks per quarter note
//   track    "MTrk", length in bytes, then events: ticks since the one before, and what happens
//
// Numbers are big-endian; the ticks before an event are written in groups of 7 bits, the highest
// first, each but the last with its eighth bit set. Every track ends at the tune's end, so that the
// file is as long as the tune is, whatever rests there are in it. What the format cannot hold, and
// notes that reach beyond the end, raise std::invalid_argument.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace scenara::samplemaker {

struct MidiNote {
    std::uint32_t start = 0;   // ticks
    std::uint32_t length = 0;  // ticks, above 0
    std::uint8_t key = 60;     // semitones, 60 is the C in the middle; 0 to 127
    std::uint8_t velocity = 100;
};

struct MidiPart {
    std::string name{};
    std::uint8_t channel = 0;  // 0 to 15; 9 are drums
    std::uint8_t program = 0;  // the instrument: 0 to 127, in the order of General MIDI
    std::uint8_t volume = 100;
    std::uint8_t pan = 64;  // 0 left to 127 right
    std::vector<MidiNote> notes{};
};

struct MidiTune {
    std::uint16_t ticksPerQuarter = 96;
    std::uint32_t microsecondsPerQuarter = 500000;
    std::uint32_t length = 0;  // ticks
    std::vector<MidiPart> parts{};
};

std::vector<std::byte> WriteMidi(const MidiTune& tune);

}  // namespace scenara::samplemaker
