// SPDX-License-Identifier: MIT
//
// Morning at the harbour: a harp that rises and falls like the ships, strings that breathe below
// it, and an oboe, later a flute, that look out over the clouds. D major with the raised fourth
// of airy places; 20 bars of eight steps, and around again.
#include <cstdint>
#include <string_view>

#include "cloudharbour/CloudHarbour.h"
#include "samplemaker/Melody.h"
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

constexpr std::uint16_t kTicksPerQuarter = 96;
constexpr std::uint32_t kTicksPerStep = kTicksPerQuarter / 2;
constexpr std::uint32_t kStepsPerBar = 8;
constexpr std::uint32_t kMicrosecondsPerQuarter = 780000;

struct Voice {
    std::string_view line;
    std::uint32_t firstBar = 0;
    std::uint8_t loudness = 90;
    std::uint32_t ring = 0;  // ticks that a note sounds on after its written length
};

void Add(MidiPart& part, const Voice& voice, std::uint32_t end) {
    for (const samplemaker::MelodyNote& note : samplemaker::ReadMelody(voice.line).notes) {
        const std::uint32_t start = (voice.firstBar * kStepsPerBar + note.start) * kTicksPerStep;
        const std::uint32_t length = note.length * kTicksPerStep + voice.ring;
        // A bar's first step carries it; what lies between is lighter.
        const int accent = note.start % kStepsPerBar == 0 ? 10 : 0;
        part.notes.push_back({start, start + length > end ? end - start : length, note.key,
                              static_cast<std::uint8_t>(voice.loudness + accent)});
    }
}

}  // namespace

std::vector<std::byte> CloudHarbourMusic() {
    const std::uint32_t end = samplemaker::ReadMelody(kHarp).steps * kTicksPerStep;
    MidiPart harp{.name = "Harp", .channel = 0, .program = 46, .volume = 112, .pan = 50};
    MidiPart oboe{.name = "Oboe", .channel = 1, .program = 68, .volume = 84, .pan = 76};
    MidiPart flute{.name = "Flute", .channel = 2, .program = 73, .volume = 92, .pan = 58};
    MidiPart strings{.name = "Strings", .channel = 3, .program = 49, .volume = 70, .pan = 64};
    Add(harp, {kHarp, 0, 78, kTicksPerStep * 2}, end);
    Add(oboe, {kOboeFromBar3, 2, 82}, end);
    Add(flute, {kFluteFromBar11, 10, 84}, end);
    Add(strings, {kLowStrings, 0, 66}, end);
    Add(strings, {kHighStrings, 0, 62}, end);
    return samplemaker::WriteMidi({.ticksPerQuarter = kTicksPerQuarter,
                                   .microsecondsPerQuarter = kMicrosecondsPerQuarter,
                                   .length = end,
                                   .parts = {harp, oboe, flute, strings}});
}

}  // namespace scenara::samples
