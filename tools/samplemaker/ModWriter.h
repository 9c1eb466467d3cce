// SPDX-License-Identifier: MIT
//
// Writes a tracker module of four channels (.mod): recorded sounds and the rows that play them.
//
//   offset  size   field
//   0       20     title
//   20      930    31 sounds: name (22), length, finetune, volume, start and length of the loop
//   950     1      patterns in the order, 1 to 128
//   951     1      127
//   952     128    the order: numbers of patterns
//   1080    4      "M.K."
//   1084    1024n  patterns: 64 rows of 4 cells of 4 bytes
//                  the sounds: signed bytes
//
// Lengths are counted in pairs of bytes and, like all numbers, big-endian. A cell is the sound's
// number and the note's period, with an effect and its parameter; periods are times between
// samples, so that a smaller one is a higher note. What the format cannot hold raises
// std::invalid_argument.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace scenara::samplemaker {

inline constexpr int kModChannels = 4;
inline constexpr int kModRows = 64;
inline constexpr int kModNotes = 36;  // three octaves
// A sound of this many samples per second is in tune when its note 12 is a C.
inline constexpr double kModRateOfNote12 = 8287.14;

struct ModSound {
    std::string name{};  // up to 22 bytes
    std::uint8_t volume = 64;
    std::vector<std::int8_t> samples{};  // an even number
    std::uint32_t loopStart = 0;         // even, in samples
    std::uint32_t loopLength = 0;        // even; 0: it is played once
};

struct ModCell {
    static constexpr int kNoNote = -1;

    int note = kNoNote;       // 0 to 35, 12 to the octave, 0 is a C
    std::uint8_t sound = 0;   // from 1 on; 0: the one before
    std::uint8_t effect = 0;  // 0 to 15
    std::uint8_t parameter = 0;
};

using ModRow = std::array<ModCell, kModChannels>;
using ModPattern = std::array<ModRow, kModRows>;

struct ModTune {
    std::string title{};  // up to 20 bytes
    std::vector<ModSound> sounds{};
    std::vector<ModPattern> patterns{};
    std::vector<std::uint8_t> order{};
};

std::vector<std::byte> WriteMod(const ModTune& tune);

}  // namespace scenara::samplemaker
