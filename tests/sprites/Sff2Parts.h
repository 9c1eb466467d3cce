// SPDX-License-Identifier: MIT
//
// What archives of version 2 are made of in tests, and the words that their pixels are in a
// texture, worked out from what was written.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

#include "Pictures.h"
#include "samplemaker/Sff2Pictures.h"
#include "samplemaker/Sff2Writer.h"

namespace scenara::test {

using samplemaker::AlphaPicture;
using samplemaker::kSff200;
using samplemaker::kSff201;
using samplemaker::kSff2InTdata;
using samplemaker::PackingChoice;
using samplemaker::Rgba;
using samplemaker::Sff2Archive;
using samplemaker::Sff2Coding;
using samplemaker::Sff2Options;
using samplemaker::Sff2Palette;
using samplemaker::Sff2PaletteOf;
using samplemaker::Sff2Part;
using samplemaker::Sff2Sprite;
using samplemaker::Sff2SpriteOf;
using samplemaker::WriteSff2;

inline constexpr std::array kIndexedCodings = {Sff2Coding::Raw, Sff2Coding::Rle8, Sff2Coding::Rle5,
                                               Sff2Coding::Lz5, Sff2Coding::Png8};
inline constexpr std::array kColourCodings = {Sff2Coding::Raw24, Sff2Coding::Raw32,
                                              Sff2Coding::Png24, Sff2Coding::Png32};

[[nodiscard]] inline bool HasAlpha(Sff2Coding coding) {
    return coding == Sff2Coding::Raw32 || coding == Sff2Coding::Png32;
}

// How messages name a coding.
[[nodiscard]] inline const char* NameOfCoding(Sff2Coding coding) {
    switch (coding) {
        case Sff2Coding::Rle8: return "RLE8";
        case Sff2Coding::Rle5: return "RLE5";
        case Sff2Coding::Lz5: return "LZ5";
        case Sff2Coding::Png8: return "PNG8";
        case Sff2Coding::Png24: return "PNG24";
        case Sff2Coding::Png32: return "PNG32";
        default: return "Raw";
    }
}

[[nodiscard]] inline std::uint32_t WordOf(Rgba color) {
    return std::uint32_t{color.alpha} << 24U | std::uint32_t{color.red} << 16U |
           std::uint32_t{color.green} << 8U | color.blue;
}

// `alphaCounts`: version 2.01. Index 0 has alpha 0 in any case; what is not there is black.
[[nodiscard]] inline Words InColours(const std::vector<std::uint8_t>& indices,
                                     const std::vector<Rgba>& colours, bool alphaCounts) {
    Words words;
    for (const std::uint8_t index : indices) {
        Rgba color = index < colours.size() ? colours[index] : Rgba{0, 0, 0, 255};
        if (!alphaCounts) {
            color.alpha = 255;
        }
        if (index == 0) {
            color.alpha = 0;
        }
        words.push_back(WordOf(color));
    }
    return words;
}

[[nodiscard]] inline Words WordsOf(const AlphaPicture& picture, bool withAlpha) {
    Words words;
    for (Rgba pixel : picture.pixels) {
        pixel.alpha = withAlpha ? pixel.alpha : std::uint8_t{255};
        words.push_back(WordOf(pixel));
    }
    return words;
}

// Alpha of all values, 0 and 255 among them.
[[nodiscard]] inline AlphaPicture SheerPicture(int width, int height, unsigned seed = 0) {
    AlphaPicture picture{width, height, {}};
    for (int i = 0; i < width * height; ++i) {
        const auto part = [&](unsigned factor) {
            return static_cast<std::uint8_t>(static_cast<unsigned>(i) * factor + seed);
        };
        picture.pixels.push_back({part(13), part(29), part(1), part(51)});
    }
    return picture;
}

// PaletteOf(seed), under a number of its own.
[[nodiscard]] inline Sff2Palette NumberedPalette(std::uint8_t seed, std::size_t colours = 256) {
    Sff2Palette palette = Sff2PaletteOf(PaletteOf(seed), colours);
    palette.item = seed;
    return palette;
}

// One without data.
[[nodiscard]] inline Sff2Palette LinkedPalette(unsigned item, unsigned link) {
    Sff2Palette palette;
    palette.item = static_cast<std::uint16_t>(item);
    palette.link = static_cast<std::uint16_t>(link);
    return palette;
}

[[nodiscard]] inline Sff2Sprite Numbered(Sff2Sprite sprite, unsigned group, unsigned image,
                                         unsigned palette = 0) {
    sprite.group = static_cast<std::uint16_t>(group);
    sprite.image = static_cast<std::uint16_t>(image);
    sprite.palette = static_cast<std::uint16_t>(palette);
    return sprite;
}

// A link. It has a size of its own, as those of real archives have, which says nothing.
[[nodiscard]] inline Sff2Sprite LinkedSprite(unsigned group, unsigned image, unsigned link,
                                             unsigned palette = 0) {
    Sff2Sprite sprite;
    sprite.width = 1;
    sprite.height = 1;
    sprite.format = 1;
    sprite.link = static_cast<std::uint16_t>(link);
    return Numbered(std::move(sprite), group, image, palette);
}

}  // namespace scenara::test
