// SPDX-License-Identifier: MIT
//
// Morning at the harbour: a harp that rises and falls like the ships, strings that breathe below
// it, and an oboe, later a flute, that look out over the clouds. D major with the raised fourth
// of airy places; 20 bars of eight steps, and around again.
#include <cstdint>
#include <string_view>

#include "MelodyLine.h"
#include "cloudharbour/CloudHarbour.h"
#include "samplemaker/MidiWriter.h"

namespace scenara::samples {
namespace {

using samplemaker::MidiPart;

constexpr std::string_view kHarp =
    "D3 A3 D4 F#4 A4 F#4 D4 A3 | E3 B3 E4 G#4 B4 G#4 E4 B3"
    "| D3 A3 D4 F#4 A4 D5 A4 F#4 | B2 F#3 B3 D4 F#4 D4 B3 F#3"
    "| G2 D3 G3 B3 D4 B3 G3 D3 | A2 E3 A3 C#4 E4 C#4 A3 E3"
    "| D3 A3 D4 F#4 A4 F#4 D4 A3 | E3 B3 E4 G#4 B4 E5 B4 G#4"
    "| B2 F#3 B3 D4 F#4 B4 F#4 D4 | F#2 C#3 F#3 A3 C#4 A3 F#3 C#3"
    "| G2 D3 G3 B3 D4 G4 D4 B3 | D3 A3 D4 F#4 A4 F#4 D4 A3"
    "| E3 B3 E4 G4 B4 G4 E4 B3 | G2 D3 G3 B3 D4 B3 G3 D3"
    "| A2 E3 A3 D4 E4 D4 A3 E3 | A2 E3 A3 C#4 E4 A4 E4 C#4"
    "| D3 A3 D4 F#4 A4 F#4 D4 A3 | E3 B3 E4 G#4 B4 G#4 E4 B3"
    "| G2 D3 G3 B3 D4 B3 A2 E3 | D3 A3 D4 F#4 A4 - - - ";

constexpr std::string_view kOboeFromBar3 =
    "  A4 - - F#5 - - E5 - | D5 - - - B4 - - -"
    "| B4 - D5 - G5 - F#5 - | E5 - - - - - . ."
    "| A4 - - F#5 - - A5 - | G#5 - - - E5 - - -"
    "| F#5 - - - D5 - - - | C#5 - - - - - . . ";

constexpr std::string_view kFluteFromBar11 =
    "  D5 - G5 - B5 - A5 - | F#5 - - - - - . ."
    "| G5 - - - E5 - B5 - | A5 - - G5 - - D5 -"
    "| E5 - - - - - D5 - | C#5 - - - E5 - - -"
    "| D5 - - - F#5 - A5 - | G#5 - - - B5 - - -"
    "| B5 - A5 - G5 - E5 - | F#5 - - - - - - . ";

constexpr std::string_view kLowStrings =
    "D3 - - - - - - - | E3 - - - - - - - | D3 - - - - - - - | B2 - - - - - - -"
    "| G2 - - - - - - - | A2 - - - - - - - | D3 - - - - - - - | E3 - - - - - - -"
    "| B2 - - - - - - - | F#2 - - - - - - - | G2 - - - - - - - | D3 - - - - - - -"
    "| E3 - - - - - - - | G2 - - - - - - - | A2 - - - - - - - | A2 - - - - - - -"
    "| D3 - - - - - - - | E3 - - - - - - - | G2 - - - - - A2 - | D3 - - - - - - -";

constexpr std::string_view kHighStrings =
    "F#4 - - - - - - - | G#4 - - - - - - - | A4 - - - - - - - | F#4 - - - - - - -"
    "| D4 - - - - - - - | E4 - - - - - - - | F#4 - - - - - - - | B4 - - - - - - -"
    "| D4 - - - - - - - | A4 - - - - - - - | B4 - - - - - - - | A4 - - - - - - -"
    "| B4 - - - - - - - | D5 - - - - - - - | D5 - - - - - - - | C#5 - - - - - - -"
    "| A4 - - - - - - - | G#4 - - - - - - - | B4 - - - - - C#5 - | A4 - - - - - - -";

constexpr std::uint32_t kMicrosecondsPerQuarter = 780000;

}  // namespace

std::vector<std::byte> CloudHarbourMusic() {
    const std::uint32_t end = TicksOf(kHarp);
    MidiPart harp{.name = "Harp", .channel = 0, .program = 46, .volume = 112, .pan = 50};
    MidiPart oboe{.name = "Oboe", .channel = 1, .program = 68, .volume = 84, .pan = 76};
    MidiPart flute{.name = "Flute", .channel = 2, .program = 73, .volume = 92, .pan = 58};
    MidiPart strings{.name = "Strings", .channel = 3, .program = 49, .volume = 70, .pan = 64};
    AddLine(harp, {.text = kHarp, .loudness = 78, .ring = kTicksPerStep * 2}, end);
    AddLine(oboe, {.text = kOboeFromBar3, .firstBar = 2, .loudness = 82}, end);
    AddLine(flute, {.text = kFluteFromBar11, .firstBar = 10, .loudness = 84}, end);
    AddLine(strings, {.text = kLowStrings, .loudness = 66}, end);
    AddLine(strings, {.text = kHighStrings, .loudness = 62}, end);
    return samplemaker::WriteMidi({.ticksPerQuarter = kTicksPerQuarter,
                                   .microsecondsPerQuarter = kMicrosecondsPerQuarter,
                                   .length = end,
                                   .parts = {harp, oboe, flute, strings}});
}

}  // namespace scenara::samples
