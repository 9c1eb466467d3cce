// SPDX-License-Identifier: MIT
//
// ConvertArchive: an archive of version 1 as one of version 2 that shows the same.
//
// Every subfile becomes a sprite node, in their order, with its group, image and axis; a linked one
// stays linked to the same index. Pixels and colours are those that the program makes of version 1,
// with additions, for a stage or for a character. Colours that no pixel has are lost: a palette
// node holds what the pictures need that share it, the others are black. Pictures share a node with
// the one before as long as their colours agree. Pictures of several planes become indexed ones.
//
// What the program cannot load, and a picture of more than 255 colours beside its transparent one,
// raise std::runtime_error.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "samplemaker/Sff2Writer.h"

namespace scenara::test {

// Whose rules say in which palette a picture is.
enum class ConvertFor { Stage, Character };

// Rle5 and Lz5 are for pictures of colours below 32, the others become RLE8. Mixed takes all of
// them in turn, puts every other picture into tdata, packs some in odd ways, and has linked
// palettes.
enum class ConvertTo { Raw, Rle8, Rle5, Lz5, Png8, Mixed };

struct ConvertOptions {
    ConvertFor reader = ConvertFor::Stage;
    ConvertTo coding = ConvertTo::Mixed;
    // 2.00 has no PNGs: Png8 becomes raw. The fourth bytes of its colours are rubbish.
    std::array<std::uint8_t, 4> version = samplemaker::kSff201;
};

[[nodiscard]] std::vector<std::byte> ConvertArchive(std::span<const std::byte> version1,
                                                    const ConvertOptions& options = {});

}  // namespace scenara::test
