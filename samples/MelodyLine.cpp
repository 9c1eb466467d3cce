// SPDX-License-Identifier: MIT
#include "MelodyLine.h"

#include <algorithm>

#include "samplemaker/Melody.h"

namespace scenara::samples {

std::uint32_t TicksOf(std::string_view text) {
    return samplemaker::ReadMelody(text).steps * kTicksPerStep;
}

void AddLine(samplemaker::MidiPart& part, const MelodyLine& line, std::uint32_t end) {
    for (const samplemaker::MelodyNote& note : samplemaker::ReadMelody(line.text).notes) {
        const std::uint32_t start = (line.firstBar * kStepsPerBar + note.start) * kTicksPerStep;
        const std::uint32_t length = note.length * kTicksPerStep + line.ring;
        const int accent = note.start % kStepsPerBar == 0 ? line.accent : 0;
        part.notes.push_back({start, std::min(length, end - start), note.key,
                              static_cast<std::uint8_t>(line.loudness + accent)});
    }
}

}  // namespace scenara::samples
