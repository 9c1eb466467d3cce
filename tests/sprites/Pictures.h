// SPDX-License-Identifier: MIT
//
// Pictures of the sprite room's tests: small ones to write into files, and the words that their
// pixels are in a texture, worked out without the decoder.
#pragma once

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <random>
#include <vector>

#include "samplemaker/Picture.h"

namespace scenara::test {

using samplemaker::IndexedPicture;
using samplemaker::Palette;
using samplemaker::Rgb;
using samplemaker::TrueColourPicture;

using Words = std::vector<std::uint32_t>;

// ARGB, opaque and with alpha 0.
constexpr std::uint32_t Opaque(Rgb color) {
    return 0xFF000000U | std::uint32_t{color.red} << 16U | std::uint32_t{color.green} << 8U |
           color.blue;
}
constexpr std::uint32_t Clear(Rgb color) {
    return Opaque(color) & 0x00FFFFFFU;
}

inline std::vector<std::byte> Bytes(std::initializer_list<unsigned> values) {
    std::vector<std::byte> bytes;
    for (const unsigned value : values) {
        bytes.push_back(static_cast<std::byte>(value));
    }
    return bytes;
}

// A palette that tells which colour a pixel has: entry i is (i, seed, 255 - i).
inline Palette PaletteOf(std::uint8_t seed) {
    Palette palette;
    for (std::size_t i = 0; i < palette.size(); ++i) {
        palette[i] = {static_cast<std::uint8_t>(i), seed, static_cast<std::uint8_t>(255 - i)};
    }
    return palette;
}

// `colors` palette entries in use, from 0; every index comes up.
inline IndexedPicture StripedPicture(int width, int height, const Palette& palette,
                                     unsigned colors = 256) {
    IndexedPicture picture{width, height, {}, palette};
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const auto value = static_cast<unsigned>(x / 2 + y * 7);
            picture.pixels.push_back(static_cast<std::uint8_t>(value % colors));
        }
    }
    return picture;
}

inline TrueColourPicture TrueColorPicture(int width, int height, std::uint8_t seed) {
    TrueColourPicture picture{width, height, {}};
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            picture.pixels.push_back({static_cast<std::uint8_t>(x * 13),
                                      static_cast<std::uint8_t>(y * 29 + seed),
                                      static_cast<std::uint8_t>(x + y)});
        }
    }
    return picture;
}

// One plane: index 0 is transparent and keeps its colour, whatever the other indices look like.
inline Words KeyedByIndex(const IndexedPicture& picture, const Palette& palette) {
    Words words;
    for (const std::uint8_t index : picture.pixels) {
        words.push_back(index == 0 ? Clear(palette[0]) : Opaque(palette[index]));
    }
    return words;
}

inline Words KeyedByIndex(const IndexedPicture& picture) {
    return KeyedByIndex(picture, picture.palette);
}

// Several planes: what looks like the key is transparent; nothing is where there is no key.
inline Words KeyedByColor(const std::vector<Rgb>& pixels, const Rgb* key) {
    Words words;
    for (const Rgb& pixel : pixels) {
        words.push_back(key != nullptr && pixel == *key ? Clear(pixel) : Opaque(pixel));
    }
    return words;
}

inline std::vector<Rgb> ColorsOf(const IndexedPicture& picture) {
    std::vector<Rgb> colors;
    for (const std::uint8_t index : picture.pixels) {
        colors.push_back(picture.palette[index]);
    }
    return colors;
}

// The same numbers on every machine and with every library, unlike std::uniform_int_distribution.
class Random {
public:
    explicit Random(std::uint32_t seed) : engine_(seed) {}

    // 0 to `limit` - 1.
    [[nodiscard]] unsigned Below(unsigned limit) {
        return static_cast<unsigned>(engine_()) % limit;
    }
    [[nodiscard]] bool OneIn(unsigned odds) { return Below(odds) == 0; }
    [[nodiscard]] std::uint8_t Byte() { return static_cast<std::uint8_t>(Below(256)); }
    [[nodiscard]] std::int16_t Number() { return static_cast<std::int16_t>(Below(0x10000)); }

private:
    std::mt19937 engine_;
};

}  // namespace scenara::test
