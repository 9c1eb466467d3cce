// SPDX-License-Identifier: MIT
#include "samplemaker/WavWriter.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <stdexcept>

#include "samplemaker/ByteWriter.h"

namespace scenara::samplemaker {
namespace {

constexpr std::uint32_t kHeaderBehindSize = 36;
constexpr std::uint32_t kFormatSize = 16;
constexpr std::uint16_t kUncompressed = 1;

constexpr float kLoudest16 = 32767;
constexpr float kLoudest8 = 127;
constexpr long kMiddle8 = 128;

long Level(float sample, float loudest) {
    return std::lround(std::clamp(sample, -1.0F, 1.0F) * loudest);
}

void Check(const WavSound& sound, std::uint64_t bytes) {
    if (sound.channels == 0 || sound.samples.size() % sound.channels != 0) {
        throw std::invalid_argument("WAV: the samples are not whole frames");
    }
    if (bytes > std::numeric_limits<std::uint32_t>::max() - kHeaderBehindSize) {
        throw std::invalid_argument("WAV: the sound is longer than its header can tell");
    }
}

}  // namespace

std::vector<std::byte> WriteWav(const WavSound& sound, WavDepth depth) {
    const auto bits = static_cast<std::uint16_t>(depth);
    const std::uint16_t sampleSize = bits / 8;
    const std::uint64_t size = std::uint64_t{sound.samples.size()} * sampleSize;
    Check(sound, size);
    const auto bytes = static_cast<std::uint32_t>(size);
    const auto frameSize = static_cast<std::uint16_t>(sound.channels * sampleSize);

    ByteWriter out;
    out.Text("RIFF");
    out.U32(kHeaderBehindSize + bytes);
    out.Text("WAVEfmt ");
    out.U32(kFormatSize);
    out.U16(kUncompressed);
    out.U16(sound.channels);
    out.U32(sound.framesPerSecond);
    out.U32(sound.framesPerSecond * frameSize);
    out.U16(frameSize);
    out.U16(bits);
    out.Text("data");
    out.U32(bytes);
    for (const float sample : sound.samples) {
        if (depth == WavDepth::Bits8) {
            out.U8(static_cast<std::uint8_t>(kMiddle8 + Level(sample, kLoudest8)));
        } else {
            out.U16(static_cast<std::uint16_t>(Level(sample, kLoudest16)));
        }
    }
    return std::move(out).Take();
}

}  // namespace scenara::samplemaker
