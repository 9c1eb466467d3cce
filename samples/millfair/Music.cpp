// SPDX-License-Identifier: MIT
//
// A barrel organ on the quay: a slow waltz in F major, two pipes, its bass and its afterbeats. 16
// bars of six steps, and around again.
#include <cstdint>
#include <string_view>

#include "MelodyLine.h"
#include "millfair/MillFair.h"
#include "samplemaker/MidiWriter.h"

namespace scenara::samples {
namespace {

using samplemaker::MidiPart;

constexpr std::string_view kPipes =
    "C5 - A5 - G5 F5 | F5 - E5 - - - | D5 - Bb5 - A5 G5 | G5 - F5 - - -"
    "| E5 - G5 - Bb5 - | D6 - C6 - Bb5 A5 | G5 - A5 - B5 - | C6 - - - . ."
    "| C5 - A5 - G5 F5 | F5 - E5 - F5 G5 | A5 - D6 - C6 Bb5 | Bb5 - G5 - - -"
    "| D5 - F5 - Bb5 - | A5 - C6 - A5 F5 | E5 - G5 - Bb5 E5 | F5 - - - . .";

// A third or a sixth below.
constexpr std::string_view kSecondPipes =
    "A4 - F5 - E5 D5 | D5 - C5 - - - | Bb4 - G5 - F5 E5 | E5 - D5 - - -"
    "| C5 - E5 - G5 - | F5 - F5 - G5 F5 | E5 - F5 - F5 - | E5 - - - . ."
    "| A4 - F5 - E5 D5 | D5 - C5 - D5 E5 | F#5 - A5 - A5 G5 | G5 - D5 - - -"
    "| Bb4 - D5 - F5 - | F5 - A5 - F5 C5 | Bb4 - E5 - G5 C5 | A4 - - - . .";

constexpr std::string_view kBass =
    "F2 - - . . . | C3 - - . . . | G2 - - . . . | D3 - - . . . | C3 - - . . . | F2 - - . . ."
    "| G2 - - . . . | C3 - - . . . | F2 - - . . . | A2 - - . . . | D3 - - . . . | G2 - - . . ."
    "| Bb2 - - . . . | C3 - - . . . | C3 - - . . . | F2 - - . . .";

constexpr std::string_view kLowAfterbeats =
    ". . A3 . A3 . | . . G3 . G3 . | . . Bb3 . Bb3 . | . . A3 . A3 . | . . Bb3 . Bb3 ."
    "| . . A3 . A3 . | . . B3 . B3 . | . . Bb3 . Bb3 . | . . A3 . A3 . | . . A3 . A3 ."
    "| . . A3 . A3 . | . . Bb3 . Bb3 . | . . Bb3 . Bb3 . | . . A3 . A3 . | . . Bb3 . Bb3 ."
    "| . . A3 . A3 .";

constexpr std::string_view kHighAfterbeats =
    ". . C4 . C4 . | . . C4 . C4 . | . . D4 . D4 . | . . F4 . F4 . | . . E4 . E4 ."
    "| . . C4 . C4 . | . . D4 . D4 . | . . E4 . E4 . | . . C4 . C4 . | . . C4 . C4 ."
    "| . . C4 . C4 . | . . D4 . D4 . | . . D4 . D4 . | . . C4 . C4 . | . . E4 . E4 ."
    "| . . C4 . C4 .";

constexpr std::uint32_t kFairQuarter = 500000;  // microseconds

}  // namespace

std::vector<std::byte> MillFairMusic() {
    const std::uint32_t end = TicksOf(kPipes);
    MidiPart pipes{.name = "Pipes", .channel = 0, .program = 74, .volume = 96, .pan = 52};
    MidiPart organ{.name = "Organ", .channel = 1, .program = 19, .volume = 70, .pan = 76};
    // Bars here are of other lengths than those that accents go by.
    AddLine(pipes, {.text = kPipes, .loudness = 84, .accent = 0}, end);
    AddLine(pipes, {.text = kSecondPipes, .loudness = 66, .accent = 0}, end);
    AddLine(organ, {.text = kBass, .loudness = 80, .accent = 0}, end);
    AddLine(organ, {.text = kLowAfterbeats, .loudness = 58, .accent = 0}, end);
    AddLine(organ, {.text = kHighAfterbeats, .loudness = 54, .accent = 0}, end);
    return samplemaker::WriteMidi({.ticksPerQuarter = kTicksPerQuarter,
                                   .microsecondsPerQuarter = kFairQuarter,
                                   .length = end,
                                   .parts = {pipes, organ}});
}

}  // namespace scenara::samples
