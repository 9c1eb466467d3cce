// SPDX-License-Identifier: MIT
//
// The hall of glass: a slow waltz on glass bells, in A minor. Computed as sound; what still rings
// at the end is mixed into the beginning, so that it goes around without a seam.
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <numbers>
#include <string_view>
#include <vector>

#include "samplemaker/Melody.h"
#include "samplemaker/WavWriter.h"
#include "thousandpanes/ThousandPanes.h"

namespace scenara::samples {
namespace {

// Six steps to the bar.
constexpr std::string_view kArpeggio =
    "A3 E4 A4 C5 A4 E4 | F3 C4 F4 A4 F4 C4 | C4 G4 C5 E5 C5 G4 | G3 D4 G4 B4 G4 D4"
    "| A3 E4 A4 C5 A4 E4 | D4 A4 D5 F5 D5 A4 | E4 B4 E5 G#5 E5 B4 | E4 B4 D5 E5 D5 B4"
    "| F3 C4 F4 A4 F4 C4 | G3 D4 G4 B4 G4 D4 | C4 G4 C5 E5 C5 G4 | A3 E4 A4 C5 A4 E4"
    "| D4 A4 D5 F5 D5 A4 | A3 E4 A4 C5 A4 E4 | E4 B4 E5 G#5 E5 B4 | A3 E4 A4 C5 A4 E4";
constexpr std::string_view kBells =
    ".  .  .  .  .  .  | .  .  A5 .  C6 .  | G5 .  .  .  E5 .  | D5 .  .  .  .  . "
    "| E5 .  A5 .  B5 .  | C6 .  .  .  A5 .  | B5 .  .  .  .  .  | G#5 . B5 .  E6 . "
    "| C6 .  .  .  A5 .  | B5 .  .  .  G5 .  | E5 .  .  G5 .  C6 | A5 .  .  .  .  . "
    "| F5 .  .  A5 .  D6 | C6 .  .  .  A5 .  | B5 .  .  G#5 . .  | A5 .  .  .  .  . ";

constexpr std::uint32_t kFramesPerSecond = 22050;
constexpr std::uint32_t kFramesPerStep = 5700;  // a bit more than a quarter of a second

// Glass rings in tones that are no whole multiples; the high ones die first.
struct Partial {
    double pitch = 1;  // times the note's
    double loudness = 0;
    double halfLife = 0;  // seconds
};

constexpr std::array<Partial, 4> kSoftGlass = {
    {{1, 0.11, 0.35}, {2, 0.035, 0.2}, {3.01, 0.012, 0.12}, {5.4, 0.004, 0.05}}};
constexpr std::array<Partial, 4> kBrightGlass = {
    {{1, 0.15, 0.6}, {2.01, 0.05, 0.35}, {4.1, 0.03, 0.15}, {6.8, 0.012, 0.06}}};

// Below this part of its loudness nobody hears it any more.
constexpr double kHalvings = 9;

double PitchOf(std::uint8_t key) {
    constexpr double kPitchOfA4 = 440;
    constexpr int kA4 = 69;
    return kPitchOfA4 * std::exp2((key - kA4) / 12.0);
}

void Ring(std::vector<float>& sound, std::size_t start, double pitch, const Partial& partial) {
    constexpr double kAttack = 0.004;  // seconds
    const double step = 2 * std::numbers::pi * pitch * partial.pitch / kFramesPerSecond;
    const auto length = static_cast<std::size_t>(kHalvings * partial.halfLife * kFramesPerSecond);
    for (std::size_t i = 0; i < length; ++i) {
        const double time = static_cast<double>(i) / kFramesPerSecond;
        const double rise = time < kAttack ? time / kAttack : 1;
        const double loudness = rise * partial.loudness * std::exp2(-time / partial.halfLife);
        sound[(start + i) % sound.size()] +=
            static_cast<float>(loudness * std::sin(step * static_cast<double>(i)));
    }
}

void Play(std::vector<float>& sound, std::string_view line,
          const std::array<Partial, 4>& instrument) {
    for (const samplemaker::MelodyNote& note : samplemaker::ReadMelody(line).notes) {
        for (const Partial& partial : instrument) {
            Ring(sound, std::size_t{note.start} * kFramesPerStep, PitchOf(note.key), partial);
        }
    }
}

}  // namespace

std::vector<std::byte> ThousandPanesMusic() {
    const std::size_t steps = samplemaker::ReadMelody(kArpeggio).steps;
    std::vector<float> sound(steps * kFramesPerStep);
    Play(sound, kArpeggio, kSoftGlass);
    Play(sound, kBells, kBrightGlass);
    return samplemaker::WriteWav(
        {.framesPerSecond = kFramesPerSecond, .channels = 1, .samples = std::move(sound)});
}

}  // namespace scenara::samples
