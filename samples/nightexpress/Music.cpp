// SPDX-License-Identifier: MIT
//
// The train at night: wheels on the rails, a bass that never rests, and a tune above a broken
// chord. A tracker module of three patterns with sounds that are computed here; E minor, four bars
// to the pattern, sixteen rows to the bar.
#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <numbers>
#include <string_view>
#include <vector>

#include "nightexpress/NightExpress.h"
#include "samplemaker/Melody.h"
#include "samplemaker/ModWriter.h"

namespace scenara::samples {
namespace {

using samplemaker::ModCell;
using samplemaker::ModPattern;
using samplemaker::ModSound;

// A step of the lines below is two rows; each line is a pattern.
constexpr std::string_view kBassA =
    "E2 E2 E3 E2 E2 E3 E2 D3 | C2 C2 C3 C2 C2 C3 C2 D2"
    "| G2 G2 D3 G2 G2 D3 G2 F#2 | D2 D2 D3 D2 D2 A2 B2 D3";
constexpr std::string_view kBassB =
    "A2 A2 E3 A2 A2 E3 A2 G2 | B2 B2 F#3 B2 B2 F#3 B2 A2"
    "| C3 C3 G3 C3 C3 G3 C3 B2 | B2 B2 F#3 B2 D3 D3 C3 B2";
constexpr std::string_view kChordsA =
    "E4 B4 G4 B4 E4 B4 G4 B4 | E4 C5 G4 C5 E4 C5 G4 C5"
    "| D4 B4 G4 B4 D4 B4 G4 B4 | D4 A4 F#4 A4 D4 A4 F#4 A4";
constexpr std::string_view kChordsB =
    "E4 C5 A4 C5 E4 C5 A4 C5 | D#4 B4 F#4 B4 D#4 B4 F#4 B4"
    "| E4 C5 G4 C5 E4 C5 G4 C5 | D#4 B4 F#4 B4 D#4 A4 F#4 B4";
constexpr std::string_view kTuneNone = "";
constexpr std::string_view kTuneA =
    "B4 -  -  E5 -  -  D5 B4 | G4 -  -  A4 -  -  G4 - "
    "| B4 -  -  D5 -  -  E5 D5 | A4 -  -  -  -  -  .  . ";
constexpr std::string_view kTuneB =
    "C5 -  -  E5 -  -  D5 C5 | B4 -  -  D#5 - -  B4 - "
    "| C5 -  B4 A4 G4 -  E4 - | F#4 - -  -  B4 -  .  . ";
constexpr int kRowsPerStep = 2;

// Channels and sounds. A sound's number is its place, from 1 on.
enum Channel : std::size_t { kBassChannel, kChordChannel, kTuneChannel, kDrumChannel };
enum Sound : std::uint8_t { kBass = 1, kChord, kTune, kKick, kRail, kChuff };

constexpr std::uint8_t kSetVolume = 12;

constexpr int kRowsPerBar = 16;

std::int8_t Level(double value) {
    return static_cast<std::int8_t>(std::lround(std::clamp(value, -1.0, 1.0) * 127));
}

// One round of a wave of `period` samples, made of overtones: softer, the higher they are.
std::vector<std::int8_t> Wave(std::size_t period, int overtones) {
    std::vector<std::int8_t> wave;
    for (std::size_t i = 0; i < period; ++i) {
        const double angle =
            2 * std::numbers::pi * static_cast<double>(i) / static_cast<double>(period);
        double sum = 0;
        for (int n = 1; n <= overtones; ++n) {
            sum += std::sin(n * angle) / (n * n);
        }
        wave.push_back(Level(0.8 * sum));
    }
    return wave;
}

// The wave again and again, dying away: half as loud after `halfLife` samples.
std::vector<std::int8_t> Plucked(const std::vector<std::int8_t>& wave, std::size_t length,
                                 double halfLife) {
    std::vector<std::int8_t> sound;
    for (std::size_t i = 0; i < length; ++i) {
        const double loudness = std::exp2(-static_cast<double>(i) / halfLife);
        sound.push_back(Level(loudness * wave[i % wave.size()] / 127.0));
    }
    return sound;
}

// Noise from a plain congruential generator, the same on every machine.
std::vector<std::int8_t> Hiss(std::size_t length, double halfLife) {
    std::vector<std::int8_t> sound;
    std::uint32_t state = 1;
    for (std::size_t i = 0; i < length; ++i) {
        state = state * 1664525U + 1013904223U;
        const double noise = static_cast<double>(state >> 16U) / 32768.0 - 1;
        sound.push_back(Level(noise * std::exp2(-static_cast<double>(i) / halfLife)));
    }
    return sound;
}

// A beat that falls in pitch.
std::vector<std::int8_t> Beat() {
    constexpr std::size_t kLength = 1600;
    std::vector<std::int8_t> sound;
    double angle = 0;
    for (std::size_t i = 0; i < kLength; ++i) {
        const double time = static_cast<double>(i) / kLength;
        angle += 0.13 * std::exp2(-5 * time) + 0.012;
        sound.push_back(Level((1 - time) * std::sin(angle)));
    }
    return sound;
}

// With a wave of 32 samples note 12 is C4; with twice as many it is C3.
constexpr std::size_t kPeriod = 32;
constexpr int kKeyOfNote0 = 48;
constexpr int kOctave = 12;

std::vector<ModSound> Sounds() {
    return {{.name = "bass", .volume = 42, .samples = Plucked(Wave(2 * kPeriod, 6), 2400, 700)},
            {.name = "chord", .volume = 20, .samples = Plucked(Wave(kPeriod, 9), 4000, 1400)},
            {.name = "tune",
             .volume = 28,
             .samples = Wave(kPeriod, 3),
             .loopStart = 0,
             .loopLength = kPeriod},
            {.name = "kick", .volume = 46, .samples = Beat()},
            {.name = "rail", .volume = 16, .samples = Hiss(400, 70)},
            {.name = "chuff", .volume = 22, .samples = Hiss(1600, 330)}};
}

void AddLine(ModPattern& pattern, Channel channel, Sound sound, std::string_view line,
             int keyOfNote0) {
    for (const samplemaker::MelodyNote& note : samplemaker::ReadMelody(line).notes) {
        pattern.at(note.start * kRowsPerStep).at(channel) = {.note = note.key - keyOfNote0,
                                                             .sound = sound};
        // A sound without an end is silenced where the next note is not in the way.
        const std::size_t end = (note.start + note.length) * kRowsPerStep;
        if (end < pattern.size()) {
            pattern.at(end).at(channel) = {.effect = kSetVolume, .parameter = 0};
        }
    }
}

// Wheels on a joint of the rails, twice in a bar, and steam between.
void AddDrums(ModPattern& pattern) {
    constexpr std::array<Sound, kRowsPerBar> kBar = {kKick,  {}, kRail, kRail, kChuff, {},
                                                     kRail,  {}, kKick, {},    kRail,  kRail,
                                                     kChuff, {}, kRail, kRail};
    for (std::size_t row = 0; row < pattern.size(); ++row) {
        const Sound sound = kBar.at(row % kRowsPerBar);
        if (sound != Sound{}) {
            pattern.at(row).at(kDrumChannel) = {.note = kOctave, .sound = sound};
        }
    }
}

ModPattern Pattern(std::string_view bass, std::string_view chords, std::string_view tune) {
    ModPattern pattern{};
    AddLine(pattern, kBassChannel, kBass, bass, kKeyOfNote0 - kOctave);
    AddLine(pattern, kChordChannel, kChord, chords, kKeyOfNote0);
    AddLine(pattern, kTuneChannel, kTune, tune, kKeyOfNote0);
    AddDrums(pattern);
    return pattern;
}

}  // namespace

std::vector<std::byte> NightExpressMusic() {
    ModPattern begin = Pattern(kBassA, kChordsA, kTuneNone);
    // Whatever sounded at the end of the round before.
    begin.at(0).at(kTuneChannel) = {.effect = kSetVolume, .parameter = 0};
    return samplemaker::WriteMod(
        {.title = "night express",
         .sounds = Sounds(),
         .patterns = {begin, Pattern(kBassA, kChordsA, kTuneA), Pattern(kBassB, kChordsB, kTuneB)},
         .order = {0, 1, 2, 1, 2}});
}

}  // namespace scenara::samples
