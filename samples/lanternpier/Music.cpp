// SPDX-License-Identifier: MIT
//
// The evening at the pier: a koto by itself, then with a flute above it. D E F A Bb, the scale of
// old songs; 16 bars of eight steps, and around again. As MIDI the player brings the instruments.
#include <cstdint>
#include <string>
#include <string_view>

#include "MelodyLine.h"
#include "lanternpier/LanternPier.h"
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

constexpr std::uint32_t kMicrosecondsPerQuarter = 790000;

constexpr std::uint8_t kKotoProgram = 107;
constexpr std::uint8_t kFluteProgram = 77;
constexpr std::uint8_t kHarpProgram = 46;

// Plucked strings ring on a little behind the written length; a flute takes breath.
constexpr std::uint32_t kRing = kTicksPerStep - 1;
constexpr std::uint8_t kAccent = 18;

}  // namespace

std::vector<std::byte> LanternPierMusic() {
    const std::uint32_t end = TicksOf(kKoto);
    MidiPart koto{.name = "Koto", .channel = 0, .program = kKotoProgram, .volume = 127, .pan = 54};
    MidiPart flute{
        .name = "Flute", .channel = 1, .program = kFluteProgram, .volume = 100, .pan = 80};
    MidiPart harp{.name = "Harp", .channel = 2, .program = kHarpProgram, .volume = 112, .pan = 64};
    AddLine(koto, {.text = kKoto, .accent = kAccent, .ring = kRing}, end);
    AddLine(flute, {.text = kFluteFromBar9, .firstBar = 8, .accent = kAccent}, end);
    AddLine(harp, {.text = kBass, .accent = kAccent, .ring = kRing}, end);
    return samplemaker::WriteMidi({.ticksPerQuarter = kTicksPerQuarter,
                                   .microsecondsPerQuarter = kMicrosecondsPerQuarter,
                                   .length = end,
                                   .parts = {koto, flute, harp}});
}

}  // namespace scenara::samples
