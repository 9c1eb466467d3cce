// SPDX-License-Identifier: MIT
//
// Writes sound as a WAV file: a RIFF container with uncompressed samples.
//
//   offset  size  field                        offset  size  field
//   0       4     "RIFF"                       24      4     frames per second
//   4       4     bytes behind this            28      4     bytes per second
//   8       8     "WAVEfmt "                   32      2     bytes per frame
//   16      4     16                           34      2     bits per sample
//   20      2     1: uncompressed              36      4     "data"
//   22      2     channels                     40      4     bytes of samples
//
// A frame is one sample of each channel, left first. Samples are signed in 16 bits, and in 8 bits
// unsigned around 128. What the format cannot hold raises std::invalid_argument.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace scenara::samplemaker {

enum class WavDepth : std::uint16_t { Bits8 = 8, Bits16 = 16 };

struct WavSound {
    std::uint32_t framesPerSecond = 22050;
    std::uint16_t channels = 1;
    std::vector<float> samples;  // frame by frame, -1 to 1; what is beyond is cut off
};

std::vector<std::byte> WriteWav(const WavSound& sound, WavDepth depth = WavDepth::Bits16);

}  // namespace scenara::samplemaker
