// SPDX-License-Identifier: MIT
//
// PNG files put together by hand, right or wrong: chunk by chunk, with every kind of pixels.
#pragma once

#include <cstddef>
#include <cstdint>
#include <iosfwd>
#include <random>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace scenara::test {

using PngBytes = std::vector<std::byte>;

struct PngShape {
    int width = 1;
    int height = 1;
    int bits = 8;       // per sample
    int colorType = 0;  // 0 grey, 2 RGB, 3 palette, 4 grey with alpha, 6 RGBA
    bool interlaced = false;

    // Samples per pixel.
    [[nodiscard]] int Channels() const;
};

// "type 2, 8 bits, 20 x 30, interlaced"
[[nodiscard]] std::string TextOf(const PngShape& shape);
void PrintTo(const PngShape& shape, std::ostream* out);

// Every colour type with every number of bits that it may have, not interlaced, of this size.
[[nodiscard]] std::vector<PngShape> PngShapes(int width, int height);

// Pixel by pixel from the top left, Channels() values for each.
using PngSamples = std::vector<std::uint16_t>;

[[nodiscard]] PngSamples RandomPngSamples(const PngShape& shape, std::mt19937& random);

// The lines of all passes, each behind the byte of its filter, not packed yet. `filter`: 0 to 4; 5
// takes another one for each line.
[[nodiscard]] PngBytes PngLines(const PngShape& shape, const PngSamples& samples, int filter = 5);

// `level`: 0 (stored) to 9.
[[nodiscard]] PngBytes Deflated(std::span<const std::byte> bytes, int level = 6);

struct PngChunk {
    std::string name;
    PngBytes data;
    bool wrongChecksum = false;
};

[[nodiscard]] PngChunk PngHeader(const PngShape& shape);

// `data` as chunks of `most` bytes.
[[nodiscard]] std::vector<PngChunk> PngDataChunks(std::span<const std::byte> data,
                                                  std::size_t most = std::size_t{1} << 30U);

[[nodiscard]] PngBytes PngBytesOf(std::string_view text);

// The signature and the chunks.
[[nodiscard]] PngBytes PngFileOf(std::span<const PngChunk> chunks);

// Header, `between`, pixels, end.
[[nodiscard]] PngBytes PngFileOf(const PngShape& shape, std::span<const PngChunk> between,
                                 const PngSamples& samples);

// Any bytes; the checksums of what can be taken for chunks become right.
[[nodiscard]] PngBytes WithRightChecksums(std::span<const std::byte> file);

}  // namespace scenara::test
