// SPDX-License-Identifier: MIT
//
// PngPictures: pictures in the PNG format (the W3C's recommendation), as version 2 sprite archives
// hold them, from bytes in memory.
//
// Every kind of PNG is read: grey, colours, palettes, 1 to 16 bits a sample, interlaced or not.
// What it says about gamma, colour spaces, texts and the rest of its ancillary chunks is ignored.
// Several threads may open and read pictures at once, each picture by one thread at a time.
//
// Bad input: what cannot be a picture is refused by Open, before memory is taken for pixels. Of
// damaged or cut pixels the lines before the damage are read.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>

#include "base/Integers.h"
#include "base/NotCopied.h"

namespace scenara {

// The widest and the highest PNG that is read.
inline constexpr std::int32_t kMostPngPixels = 32767;

// How a PNG's pixels are wanted.
enum class PngWanted : Byte {
    // The sample values alone: the PNG's own palette and transparency may be rubbish, or missing.
    Indices,
    Colours,
};

class PngPicture : NotCopied {
public:
    virtual ~PngPicture() = default;

    // Pixels, 1 to kMostPngPixels, by the PNG's own header.
    [[nodiscard]] virtual std::int32_t Width() const = 0;
    [[nodiscard]] virtual std::int32_t Height() const = 0;

    // RGB or RGBA: it has no indices, and gives colours whatever it was opened for.
    [[nodiscard]] virtual bool IsTrueColour() const = 0;

    // Each of the two writes the pixels, line y from word y * pitch on, and answers how many lines
    // from the top were read whole: fewer than Height() where the data end early or are damaged.
    // The other words are left as they were, but for pixels that were read before the damage was
    // found (of interlaced pictures, and of the line after the last whole one). A checksum that is
    // wrong is damage; an end that is missing after the last pixel is not.
    //
    // A picture is read once, and later calls read no lines. Raises RunTimeError when `words` has
    // no room for the lines, when a line is longer than `pitch`, or for the wrong call of the two.

    // As ARGB words, not premultiplied: palettes and greys as colours, 16 bits scaled to 8, alpha
    // of the PNG's own making. For pictures that were opened for Colours, or are true-colour.
    [[nodiscard]] virtual std::int32_t ReadColours(std::span<std::uint32_t> words,
                                                   std::int32_t pitch) = 0;

    // The word of `colors` at each sample value, which is not scaled where it has fewer than 8
    // bits; of 16 bits the upper 8. Alpha of grey pictures does not count. For pictures that were
    // opened for Indices, and are not true-colour.
    [[nodiscard]] virtual std::int32_t ReadIndexed(std::span<const std::uint32_t, 256> colors,
                                                   std::span<std::uint32_t> words,
                                                   std::int32_t pitch) = 0;
};

class PngPictures : NotCopied {
public:
    virtual ~PngPictures() = default;

    // Reads the header, and all else that comes before the pixels. `bytes` outlive the picture;
    // what they have after its end is not looked at. Raises RunTimeError for what is no PNG, for a
    // damaged header, for sizes beyond kMostPngPixels, and for more pixels than `bytes` can yield.
    [[nodiscard]] virtual std::unique_ptr<PngPicture> Open(std::span<const std::byte> bytes,
                                                           PngWanted wanted) const = 0;
};

}  // namespace scenara
