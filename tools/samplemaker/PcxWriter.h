// SPDX-License-Identifier: MIT
//
// Writes PCX pictures (the published ZSoft format) in every variant that programs meet in practice.
//
//   offset  size  header field
//   0       1     10
//   1       1     version
//   2       1     encoding: 1 run lengths, 0 raw
//   3       1     bits per pixel and plane
//   4       8     xmin, ymin, xmax, ymax, both ends included
//   12      4     resolution
//   16      48    palette of 16 colours, for pictures below 8 bits
//   65      1     planes
//   66      2     bytes per line and plane
//   68      2     1: the palette is in colour
//   128           the lines; each line holds its planes one after the other
//   end           8 bits x 1 plane: byte 12, then 256 x red, green, blue
//
// A byte of 192 or more in the lines says how often the next byte repeats (1 to 63 times).
// The options are checked: what the format cannot hold raises std::invalid_argument.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "samplemaker/Picture.h"

namespace scenara::samplemaker {

// Where a run must end. The format asks for line ends; both other habits are found in real files.
enum class RunBreaks { AtPlaneEnds, AtLineEnds, Nowhere };

// What follows the lines of a picture of 8 bits x 1 plane. Sprite archives leave the palette out
// where a picture shares the one before it, some with and some without the byte 12.
enum class TrailingPalette { Whole, MarkerOnly, None };

struct PcxOptions {
    std::uint8_t version = 5;
    bool runLengths = true;  // false: encoding 0, the lines as they are
    RunBreaks runBreaks = RunBreaks::AtLineEnds;
    TrailingPalette trailingPalette = TrailingPalette::Whole;
    int bytesPerLine = 0;      // 0: the least even number that holds a line; any larger one will do
    std::uint8_t padding = 0;  // what the unused bits and bytes at line ends hold
    int xMin = 0;              // 0 to 65535, as yMin; the far corner follows from the size
    int yMin = 0;
};

// How an indexed picture lies in the file; each pixel must fit into the bits x planes.
enum class PcxDepth {
    Bits8,         // 8 x 1, palette behind the lines
    Bits1,         // 1 x 1, here and below the palette's first 16 colours in the header
    Bits2,         // 2 x 1
    Bits4,         // 4 x 1
    Bits1Planes2,  // plane 0 holds the lowest bit of each pixel
    Bits1Planes3,
    Bits1Planes4,
};

std::vector<std::byte> WritePcx(const IndexedPicture& picture, const PcxOptions& options = {},
                                PcxDepth depth = PcxDepth::Bits8);

// A picture of 8 bits x 3 planes: red, green, blue.
std::vector<std::byte> WritePcx(const TrueColourPicture& picture, const PcxOptions& options = {});

// The same with a fourth plane, which holds `fourth` in every pixel.
std::vector<std::byte> WritePcx(const TrueColourPicture& picture, std::uint8_t fourth,
                                const PcxOptions& options = {});

}  // namespace scenara::samplemaker
