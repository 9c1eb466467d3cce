// SPDX-License-Identifier: MIT
//
// MelodyLine: a line of written melody, and how an instrument plays it.
#pragma once

#include <cstdint>
#include <string_view>

#include "samplemaker/MidiWriter.h"

namespace scenara::samples {

// Two steps are a quarter note, eight of them a bar.
constexpr std::uint16_t kTicksPerQuarter = 96;
constexpr std::uint32_t kTicksPerStep = kTicksPerQuarter / 2;
constexpr std::uint32_t kStepsPerBar = 8;

struct MelodyLine {
    std::string_view text{};  // as samplemaker/Melody.h reads it
    std::uint32_t firstBar = 0;
    std::uint8_t loudness = 100;
    std::uint8_t accent = 10;  // how much louder the first step of a bar is
    std::uint32_t ring = 0;    // ticks that a note sounds on after its written length
};

// The tick at which a tune of this text ends.
std::uint32_t TicksOf(std::string_view text);

// Adds the line's notes. None sounds beyond the tune's end.
void AddLine(samplemaker::MidiPart& part, const MelodyLine& line, std::uint32_t end);

}  // namespace scenara::samples
