// SPDX-License-Identifier: MIT
//
// The evening at the pier: a koto by itself, then with a flute above it. D E F A Bb, the scale of
// old songs; 16 bars of eight steps, and around again. As MIDI the player brings the instruments.
#include <cstdint>
#include <string>
#include <string_view>

#include "lanternpier/LanternPier.h"
#include "samplemaker/Melody.h"
#include "samplemaker/MidiWriter.h"

namespace scenara::samples {
namespace {

using samplemaker::MidiPart;

constexpr std::string_view kKoto =
    "D5 .  A4 .  Bb4 . A4 .  | F4 .  A4 -  -  .  E4 F4"
    "| D4 -  A4 .  F4 .  E4 .  | D4 -  -  -  .  .  .  . "
    "| A4 .  Bb4 . D5 .  E5 .  | F5 -  E5 .  D5 -  Bb4 . "
    "| A4 .  Bb4 A4 F4 . E4 .  | A4 -  -  -  .  .  .  . "
    "| D4 A4 D5 A4 D4 A4 D5 A4 | D4 A4 D5 F5 E5 D5 A4 . "
    "| F4 Bb4 D5 Bb4 F4 Bb4 D5 Bb4 | E4 A4 E5 A4 E4 A4 . . "
    "| D4 A4 D5 A4 F4 A4 D5 A4 | Bb3 F4 Bb4 F4 Bb3 F4 D5 Bb4"
    "| A3 E4 A4 E4 F4 E4 D4 .  | D4 -  -  -  .  .  .  . ";

constexpr std::string_view kFluteFromBar9 =
    "  .  .  .  .  A5 -  -  -  | Bb5 - A5 -  F5 -  E5 - "
    "| F5 -  -  -  D5 -  -  -  | E5 -  -  -  -  -  .  . "
    "| .  .  A5 -  Bb5 - D6 -  | D6 -  -  -  Bb5 - A5 - "
    "| A5 -  Bb5 A5 F5 - E5 -  | D5 -  -  -  -  -  -  . ";

constexpr std::string_view kBass =
    "D3 - - - A2 - - - | D3 - - - A2 - - - | Bb2 - - - A2 - - - | D3 - - - - - . ."
    "| A2 - - - D3 - - - | Bb2 - - - D3 - - - | F2 - - - E3 - - - | A2 - - - - - . ."
    "| D3 - - - D2 - - - | D3 - - - D2 - - - | Bb2 - - - Bb2 - - - | A2 - - - A2 - - -"
    "| D3 - - - F3 - - - | Bb2 - - - Bb2 - - - | A2 - - - A2 - - - | D3 - - - D2 - - .";

constexpr std::uint16_t kTicksPerQuarter = 96;
constexpr std::uint32_t kTicksPerStep = kTicksPerQuarter / 2;
constexpr std::uint32_t kStepsPerBar = 8;
constexpr std::uint32_t kMicrosecondsPerQuarter = 790000;

constexpr std::uint8_t kKotoProgram = 107;
constexpr std::uint8_t kFluteProgram = 77;
constexpr std::uint8_t kHarpProgram = 46;

// Plucked strings ring on a little behind the written length; a flute takes breath.
void Add(MidiPart& part, std::string_view line, std::uint32_t firstStep, std::uint32_t end,
         std::uint32_t ring) {
    for (const samplemaker::MelodyNote& note : samplemaker::ReadMelody(line).notes) {
        const std::uint32_t start = (firstStep + note.start) * kTicksPerStep;
        const std::uint32_t length = note.length * kTicksPerStep + ring;
        // The first step of a bar is played a little louder.
        const bool accent = note.start % kStepsPerBar == 0;
        part.notes.push_back({start, start + length > end ? end - start : length, note.key,
                              static_cast<std::uint8_t>(accent ? 118 : 100)});
    }
}

}  // namespace

std::vector<std::byte> LanternPierMusic() {
    const std::uint32_t end = samplemaker::ReadMelody(kKoto).steps * kTicksPerStep;
    MidiPart koto{.name = "Koto", .channel = 0, .program = kKotoProgram, .volume = 127, .pan = 54};
    MidiPart flute{
        .name = "Flute", .channel = 1, .program = kFluteProgram, .volume = 100, .pan = 80};
    MidiPart harp{.name = "Harp", .channel = 2, .program = kHarpProgram, .volume = 112, .pan = 64};
    Add(koto, kKoto, 0, end, kTicksPerStep - 1);
    Add(flute, kFluteFromBar9, kStepsPerBar * 8, end, 0);
    Add(harp, kBass, 0, end, kTicksPerStep - 1);
    return samplemaker::WriteMidi({.ticksPerQuarter = kTicksPerQuarter,
                                   .microsecondsPerQuarter = kMicrosecondsPerQuarter,
                                   .length = end,
                                   .parts = {koto, flute, harp}});
}

}  // namespace scenara::samples
