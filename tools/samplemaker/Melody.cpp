// SPDX-License-Identifier: MIT
#include "samplemaker/Melody.h"

#include <algorithm>
#include <sstream>
#include <stdexcept>
#include <string>

namespace scenara::samplemaker {
namespace {

constexpr int kOctave = 12;

[[noreturn]] void Refuse(const std::string& word) {
    throw std::invalid_argument("melody: \"" + word + "\"");
}

int SemitoneOf(char name) {
    constexpr std::string_view kSemitones = "C D EF G A B";
    const auto place = kSemitones.find(name);
    return name == ' ' || place == std::string_view::npos ? -1 : static_cast<int>(place);
}

// Octaves 0 to 9; octave -1, where keys begin, cannot be written.
std::uint8_t KeyOf(const std::string& word) {
    const bool shifted = word.size() == 3 && (word[1] == '#' || word[1] == 'b');
    const int semitone = word.empty() ? -1 : SemitoneOf(word[0]);
    const char octave = word.empty() ? ' ' : word.back();
    if (semitone < 0 || (word.size() != 2 && !shifted) || octave < '0' || octave > '9') {
        Refuse(word);
    }
    int shift = 0;
    if (shifted) {
        shift = word[1] == '#' ? 1 : -1;
    }
    return static_cast<std::uint8_t>(kOctave * (octave - '0' + 1) + semitone + shift);
}

}  // namespace

Melody ReadMelody(std::string_view text) {
    Melody melody;
    bool sounds = false;
    std::string bare(text);
    std::replace(bare.begin(), bare.end(), '|', ' ');
    std::istringstream words(bare);
    for (std::string word; words >> word;) {
        if (word == "-") {
            if (!sounds) {
                Refuse(word);
            }
            ++melody.notes.back().length;
        } else if (word == ".") {
            sounds = false;
        } else {
            melody.notes.push_back({melody.steps, 1, KeyOf(word)});
            sounds = true;
        }
        ++melody.steps;
    }
    return melody;
}

}  // namespace scenara::samplemaker
