// SPDX-License-Identifier: MIT
//
// Writes PNG pictures into memory, ordinary ones and such as readers should be tried with.
//
//   "\x89PNG\r\n\x1A\n", then chunks: length, name, data, checksum of name and data; all big-endian
//   IHDR   width, height (4 bytes each), bits of a sample, kind, 0, 0, 1 where interlaced
//   PLTE   red, green, blue of each index
//   tRNS   the alpha of each index; or the one colour that is transparent, 2 bytes a sample
//   IDAT   the rows, deflated; they may be cut into any number of chunks
//   IEND   nothing
//
// A row is a byte for its filter, and its samples from the leftmost on, those below 8 bits packed
// into bytes from the highest bit down. Interlaced pictures are seven smaller ones, one after the
// other. What the format cannot hold raises std::invalid_argument.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "samplemaker/Picture.h"

namespace scenara::samplemaker {

// What the samples of an indexed picture are said to be. Grey ones are the indices, too.
enum class PngSamples { Indices, Grey, GreyAndAlpha };

// Sprite archives hold pictures whose own palette means nothing.
enum class PngPalette { Own, BlackAndClear, None };

// Which filter the rows have: the one that makes each row small, the same for all, or all in turn.
enum class PngFilter { Best, None, Sub, Up, Average, Paeth, InTurn };

struct PngOptions {
    int bits = 8;  // of a sample. Indices: 1, 2, 4, 8; grey: also 16; all others: 8 or 16
    PngSamples samples = PngSamples::Indices;
    PngPalette palette = PngPalette::Own;
    PngFilter filter = PngFilter::Best;
    bool interlaced = false;
    std::size_t chunkSize = 0;         // bytes of an IDAT, 0: all in one
    std::optional<Rgb> transparent{};  // of pictures without alpha: the colour that tRNS names
    std::optional<std::uint32_t> statedWidth{};  // what the header says instead of the truth
    std::optional<std::uint32_t> statedHeight{};
};

// Each pixel must fit into the bits. With 16 bits, both bytes of a sample hold it.
std::vector<std::byte> WritePng(const IndexedPicture& picture, const PngOptions& options = {});
std::vector<std::byte> WritePng(const TrueColourPicture& picture, const PngOptions& options = {});
std::vector<std::byte> WritePng(const AlphaPicture& picture, const PngOptions& options = {});

}  // namespace scenara::samplemaker
