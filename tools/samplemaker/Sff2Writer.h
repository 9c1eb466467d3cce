// SPDX-License-Identifier: MIT
//
// Writes MUGEN sprite archives of version 2 (.sff) into memory.
//
//   offset  size  file header (512 bytes)            offset  size  palette node (16 bytes)
//   0       12    "ElecbyteSpr", 0                   0       4     group, item
//   12      4     version, lowest part first         4       2     number of colours
//   16      8     0                                  6       2     index of the palette linked to
//   24      4     version a reader needs             8       4     offset in ldata
//   28      8     0                                  12      4     length, 0: linked
//   36      8     sprite nodes: offset, number
//   44      8     palette nodes: offset, number      offset  size  sprite node (28 bytes)
//   52      8     ldata: offset, length              0       4     group, image
//   60      8     tdata: offset, length              4       4     width, height
//   68            0                                  8       4     axis x, axis y (signed)
//                                                    12      2     index of the sprite linked to
//   format  data                           depth     14      2     format, depth (a byte each)
//   0       rows from the top, as bytes    8, 24, 32 16      4     offset in ldata or tdata
//   2       size, RLE8                     8         20      4     length, 0: linked
//   3       size, RLE5                     5         24      2     index of the palette
//   4       size, LZ5                      5         26      2     flags, 1: the data are in tdata
//   10      size, PNG of 256 colours       8
//   11, 12  size, PNG without or with alpha 24, 32
//
// A palette's data are 4 bytes a colour: red, green, blue, and alpha, which counts from
// version 2.01 on. `size` is 4 bytes, that of the unpacked pixels.
//
// The four parts behind the header may lie in any order, with bytes between them. Everything of
// that can be chosen, so that readers can be tried with what real archives hold and with what they
// should not. What the fields cannot hold raises std::invalid_argument.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "samplemaker/Picture.h"

namespace scenara::samplemaker {

struct Sff2Palette {
    std::uint16_t group = 1;
    std::uint16_t item = 1;
    std::vector<Rgba> colours{};  // none: a linked palette
    std::uint16_t link = 0;
    std::size_t gapBefore = 0;  // bytes between its data and what lies before them
    // What the node says instead of the truth.
    std::optional<std::uint16_t> statedColours{};
    std::optional<std::uint32_t> statedOffset{};
    std::optional<std::uint32_t> statedLength{};
};

inline constexpr std::uint16_t kSff2InTdata = 1;

struct Sff2Sprite {
    std::uint16_t group = 0;
    std::uint16_t image = 0;
    std::uint16_t width = 0;
    std::uint16_t height = 0;
    std::int16_t axisX = 0;
    std::int16_t axisY = 0;
    std::uint16_t link = 0;  // which sprite's picture a linked one shows
    std::uint8_t format = 0;
    std::uint8_t depth = 8;
    std::uint16_t palette = 0;
    std::uint16_t flags = 0;
    std::optional<std::uint32_t> size{};  // the 4 bytes before the data, where they are to be there
    std::vector<std::byte> data{};        // none, and no size: a linked sprite
    std::size_t gapBefore = 0;            // bytes between its data and what lies before them
    // What the node says instead of the truth.
    std::optional<std::uint32_t> statedOffset{};
    std::optional<std::uint32_t> statedLength{};
};

struct Sff2Archive {
    std::vector<Sff2Palette> palettes;
    std::vector<Sff2Sprite> sprites;
};

enum class Sff2Part { Palettes, Sprites, Ldata, Tdata };

inline constexpr std::array<std::uint8_t, 4> kSff200 = {0, 0, 0, 2};
inline constexpr std::array<std::uint8_t, 4> kSff201 = {0, 1, 0, 2};

struct Sff2Options {
    std::array<std::uint8_t, 4> version = kSff201;
    std::array<std::uint8_t, 4> readerVersion = kSff200;
    // How the parts lie in the file, each of them once, and the bytes before each, in that order.
    std::array<Sff2Part, 4> parts = {Sff2Part::Palettes, Sff2Part::Sprites, Sff2Part::Ldata,
                                     Sff2Part::Tdata};
    std::array<std::size_t, 4> gaps{};
    std::uint8_t gapValue = 0;
    bool palettesLast = false;  // in ldata; else they lie before the sprites
    // Whose data lie first, second, … in ldata and in tdata; none: as the nodes stand.
    std::vector<std::size_t> dataOrder{};
    // What the header says instead of the truth.
    std::optional<std::uint32_t> spritesOffset{};
    std::optional<std::uint32_t> spritesNumber{};
    std::optional<std::uint32_t> palettesOffset{};
    std::optional<std::uint32_t> palettesNumber{};
    std::optional<std::uint32_t> ldataOffset{};
    std::optional<std::uint32_t> ldataLength{};
    std::optional<std::uint32_t> tdataOffset{};
    std::optional<std::uint32_t> tdataLength{};
};

std::vector<std::byte> WriteSff2(const Sff2Archive& archive, const Sff2Options& options = {});

}  // namespace scenara::samplemaker
