// SPDX-License-Identifier: MIT
//
// Melody: a line of music written as text.
//
//   "E4 - G4 . Bb4 F#5 | A4"
//
// Each word is one step: a note begins ("Bb4" is the B flat above the C in the middle, C4), the
// note before goes on ("-"), or there is silence ("."). "|" is for the eye and as good as a blank.
// Anything else, and a
// "-" behind silence, raises std::invalid_argument.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

namespace scenara::samplemaker {

struct MelodyNote {
    std::uint32_t start = 0;   // steps
    std::uint32_t length = 0;  // steps
    std::uint8_t key = 0;      // semitones, C4 is 60

    friend bool operator==(const MelodyNote&, const MelodyNote&) = default;
};

struct Melody {
    std::uint32_t steps = 0;  // of the whole line, rests at its end included
    std::vector<MelodyNote> notes;
};

[[nodiscard]] Melody ReadMelody(std::string_view text);

}  // namespace scenara::samplemaker
