// SPDX-License-Identifier: MIT
//
// Pictures as sprites and palettes of version 2 archives, in every coding that these have.
//
// Group, image, axis and palette are left for the caller to fill in.
#pragma once

#include <cstdint>

#include "samplemaker/Picture.h"
#include "samplemaker/Sff2Packing.h"
#include "samplemaker/Sff2Writer.h"

namespace scenara::samplemaker {

enum class Sff2Coding {
    Raw,  // indexed pictures
    Rle8,
    Rle5,  // colours 0 to 31 only, as Lz5
    Lz5,
    Png8,   // with a palette of its own that means nothing
    Raw24,  // pictures with alpha, which those of 24 bits lose
    Raw32,
    Png24,
    Png32,
};

// A coding of the other kind, colours that it does not hold, and sides that are not 1 to 65535
// raise std::invalid_argument. `choice` is for RLE8, RLE5 and LZ5.
Sff2Sprite Sff2SpriteOf(const IndexedPicture& picture, Sff2Coding coding,
                        PackingChoice choice = {});
Sff2Sprite Sff2SpriteOf(const AlphaPicture& picture, Sff2Coding coding);

// The first `colours` (1 to 256): colour 0 with alpha 0, the others with 255.
Sff2Palette Sff2PaletteOf(const Palette& palette, std::size_t colours = 256);

}  // namespace scenara::samplemaker
