// SPDX-License-Identifier: MIT
//
// Sff2Nodes: the structure of a version 2 sprite archive (.sff): a header, a table of palettes, a
// table of sprites, and two areas of data.
//
// Little-endian. File header, as far as it matters:
//
//   offset size
//        0   12  signature, not checked
//       12    4  version, lowest part first: 2.00 is 0, 0, 0, 2 and 2.01 is 0, 1, 0, 2
//       36    4  where the sprites begin
//       40    4  how many there are
//       44    4  where the palettes begin
//       48    4  how many there are
//       52    4  where "ldata" begin
//       60    4  where "tdata" begin
//
// What else there is (lengths of the areas, the version of a reader that can read it) is wrong in
// odd files and not needed. Palette:
//
//        0    4  group, item; of equal ones the first counts
//        4    2  number of colours; the length says how many there are
//        6    2  the palette that it is linked to, where its length is 0
//        8    4  offset in ldata
//       12    4  length; 0 = linked
//
// Sprite:
//
//        0    4  group, image
//        4    4  width, height
//        8    4  axis x, axis y; signed
//       12    2  the sprite that it is linked to, where its length is 0
//       14    1  coding
//       15    1  bits of a pixel: 5, 8, 24, 32; true only for raw pictures, and not of links
//       16    4  offset in ldata or tdata
//       20    4  length; 0 = linked
//       24    2  palette; a link's own counts, not that of its picture
//       26    2  flags; 1: offset in tdata
//
// Nothing is believed that cannot be true: a table has as many entries as the file has room for.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "base/Integers.h"
#include "platform/Files.h"

namespace scenara {

struct Sff2Header {
    bool alphaCounts = false;  // from 2.01 on: palettes have alpha; before, that byte is rubbish
    std::uint32_t firstSprite = 0;
    std::uint32_t spriteCount = 0;
    std::uint32_t firstPalette = 0;
    std::uint32_t paletteCount = 0;
    std::uint32_t ldata = 0;
    std::uint32_t tdata = 0;
};

// Raises RunTimeError "Input past end of file" for a file that ends in its header.
[[nodiscard]] Sff2Header ReadSff2Header(InputFile& archive);

struct Sff2PaletteNode {
    std::uint16_t group = 0;
    std::uint16_t item = 0;
    std::uint16_t link = 0;
    std::uint32_t offset = 0;
    std::uint32_t length = 0;
};

// All that the file has, of the first 65536: sprites cannot name others.
[[nodiscard]] std::vector<Sff2PaletteNode> ReadSff2Palettes(InputFile& archive,
                                                            const Sff2Header& header);

// How the pixels of a sprite are packed. The file may have any other number.
enum class Sff2Coding : std::uint8_t {
    Raw = 0,
    Invalid = 1,  // of links
    Rle8 = 2,
    Rle5 = 3,
    Lz5 = 4,
    Png8 = 10,
    Png24 = 11,
    Png32 = 12,
};

// "LZ5" and the like; of a number that is none "Coding 7".
[[nodiscard]] std::string NameOf(Sff2Coding coding);

struct Sff2SpriteNode {
    std::uint16_t group = 0;
    std::uint16_t image = 0;
    std::uint16_t width = 0;
    std::uint16_t height = 0;
    Integer axisX = 0;
    Integer axisY = 0;
    std::uint16_t link = 0;
    Sff2Coding coding = Sff2Coding::Raw;
    std::uint8_t depth = 0;
    std::uint32_t offset = 0;
    std::uint32_t length = 0;
    std::uint16_t palette = 0;
    bool inTdata = false;

    [[nodiscard]] bool IsLinked() const { return length == 0; }
    // By its coding it has colours of its own, and its palette means nothing.
    [[nodiscard]] bool IsTrueColor() const {
        return coding == Sff2Coding::Png24 || coding == Sff2Coding::Png32 ||
               (coding == Sff2Coding::Raw && (depth == 24 || depth == 32));
    }
    // Nothing to show; no fault either.
    [[nodiscard]] bool IsEmpty() const { return width == 0 || height == 0; }
};

// The table of sprites, read in pieces.
class Sff2SpriteTable {
public:
    // The archive outlives it.
    Sff2SpriteTable(InputFile& archive, const Sff2Header& header);

    // Moves to the next sprite; false at the end. What the disk raises goes through.
    [[nodiscard]] bool Next();
    [[nodiscard]] const Sff2SpriteNode& Current() const { return node_; }

    // How many the header says, and how many the file has room for.
    [[nodiscard]] std::uint32_t Announced() const { return announced_; }
    [[nodiscard]] std::uint32_t InFile() const { return inFile_; }

private:
    InputFile& archive_;
    std::uint64_t start_;
    std::uint32_t announced_;
    std::uint32_t inFile_;
    std::uint32_t seen_ = 0;
    std::vector<std::byte> piece_;  // of the table, from a sprite on
    std::size_t at_ = 0;            // in the piece
    Sff2SpriteNode node_;
};

}  // namespace scenara
