// SPDX-License-Identifier: MIT
//
// Afternoon in the lagoon: a vibraphone that rocks like the water, high bells now and then, a slow
// choir below. A flat major with its fourth raised; 16 bars of eight steps, and around again.
#include <cstdint>
#include <string_view>

#include "MelodyLine.h"
#include "glasslagoon/GlassLagoon.h"
#include "samplemaker/MidiWriter.h"

namespace scenara::samples {
namespace {

using samplemaker::MidiPart;

constexpr std::string_view kVibraphone =
    "Ab3 Eb4 Bb4 C5 Eb5 C5 Bb4 Eb4 | Bb3 F4 Ab4 D5 F5 D5 Ab4 F4"
    "| Ab3 Eb4 Bb4 C5 Eb5 G5 Eb5 Bb4 | G3 D4 F4 Bb4 D5 Bb4 F4 D4"
    "| F3 C4 Eb4 Ab4 C5 Ab4 Eb4 C4 | Db3 Ab3 C4 F4 Ab4 F4 C4 Ab3"
    "| Eb3 Bb3 F4 Ab4 Bb4 Ab4 F4 Bb3 | Eb3 Bb3 Eb4 G4 Bb4 D5 Bb4 G4"
    "| Ab3 Eb4 Bb4 C5 Eb5 C5 Bb4 Eb4 | Bb3 F4 Ab4 D5 F5 Ab5 F5 D5"
    "| C4 G4 Bb4 Eb5 G5 Eb5 Bb4 G4 | F3 C4 Eb4 Ab4 C5 Eb5 C5 Ab4"
    "| Db3 Ab3 C4 F4 Ab4 C5 Ab4 F4 | Eb3 Bb3 Db4 G4 Bb4 G4 Db4 Bb3"
    "| Ab3 Eb4 Bb4 C5 Eb5 G5 Eb5 C5 | Ab3 Eb4 Bb4 D5 Eb5 - - - ";

constexpr std::string_view kBellsFromBar2 =
    "  . . . . D6 - - - | . . C6 - - - - . | . . . . Bb5 - - - | . . Ab5 - - - G5 -"
    "| F5 - - - . . . . | . . . . Ab5 - Bb5 - | G5 - - - - - . . | . . . . Eb6 - - -"
    "| . . D6 - - - Ab5 - | Bb5 - - - - - . . | . . . . C6 - - - | . . Ab5 - - - F5 -"
    "| G5 - - - - - . . | . . . . Bb5 - - - | . . D6 - Eb6 - - -";

constexpr std::string_view kLowChoir =
    "Ab2 - - - - - - - | Bb2 - - - - - - - | Ab2 - - - - - - - | G2 - - - - - - -"
    "| F2 - - - - - - - | Db2 - - - - - - - | Eb2 - - - - - - - | Eb2 - - - - - - -"
    "| Ab2 - - - - - - - | Bb2 - - - - - - - | C3 - - - - - - - | F2 - - - - - - -"
    "| Db2 - - - - - - - | Eb2 - - - - - - - | Ab2 - - - - - - - | Ab2 - - - - - - -";

constexpr std::string_view kHighChoir =
    "C4 - - - - - - - | D4 - - - - - - - | Eb4 - - - - - - - | D4 - - - - - - -"
    "| C4 - - - - - - - | C4 - - - - - - - | Bb3 - - - - - - - | Bb3 - - - D4 - - -"
    "| C4 - - - - - - - | D4 - - - - - - - | Eb4 - - - - - - - | Eb4 - - - - - - -"
    "| F4 - - - - - - - | Eb4 - - - - - Db4 - | C4 - - - - - - - | D4 - - - C4 - - -";

constexpr std::uint32_t kLagoonQuarter = 900000;  // microseconds

}  // namespace

std::vector<std::byte> GlassLagoonMusic() {
    const std::uint32_t end = TicksOf(kVibraphone);
    MidiPart vibraphone{
        .name = "Vibraphone", .channel = 0, .program = 11, .volume = 108, .pan = 54};
    MidiPart bells{.name = "Bells", .channel = 1, .program = 9, .volume = 74, .pan = 84};
    MidiPart choir{.name = "Choir", .channel = 2, .program = 91, .volume = 72, .pan = 64};
    AddLine(vibraphone, {.text = kVibraphone, .loudness = 70, .ring = kTicksPerStep * 3}, end);
    AddLine(bells,
            {.text = kBellsFromBar2, .firstBar = 1, .loudness = 58, .ring = kTicksPerStep * 2},
            end);
    AddLine(choir, {.text = kLowChoir, .loudness = 64}, end);
    AddLine(choir, {.text = kHighChoir, .loudness = 58}, end);
    return samplemaker::WriteMidi({.ticksPerQuarter = kTicksPerQuarter,
                                   .microsecondsPerQuarter = kLagoonQuarter,
                                   .length = end,
                                   .parts = {vibraphone, bells, choir}});
}

}  // namespace scenara::samples
