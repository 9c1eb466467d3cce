// SPDX-License-Identifier: MIT
#include "samplemaker/Sff2Pictures.h"

#include <algorithm>
#include <span>
#include <stdexcept>
#include <utility>

#include "samplemaker/ByteWriter.h"
#include "samplemaker/PngWriter.h"
#include "samplemaker/Require.h"

namespace scenara::samplemaker {
namespace {

constexpr int kLongestSide = 0xFFFF;

template <typename Picture>
Sff2Sprite SpriteOfSize(const Picture& picture, std::uint8_t format, std::uint8_t depth) {
    Require(picture.width >= 1 && picture.height >= 1 && picture.width <= kLongestSide &&
                picture.height <= kLongestSide,
            "SFF: a side is not 1 to 65535 pixels");
    const auto pixels =
        static_cast<std::size_t>(picture.width) * static_cast<std::size_t>(picture.height);
    Require(picture.pixels.size() == pixels, "SFF: the pixels are not width x height");
    Sff2Sprite sprite;
    sprite.width = static_cast<std::uint16_t>(picture.width);
    sprite.height = static_cast<std::uint16_t>(picture.height);
    sprite.format = format;
    sprite.depth = depth;
    if (format != 0) {
        const std::size_t bytes = depth > 8 ? depth / 8 : 1;
        sprite.size = static_cast<std::uint32_t>(pixels * bytes);
    }
    return sprite;
}

std::vector<std::byte> RawColours(const AlphaPicture& picture, bool withAlpha) {
    ByteWriter out;
    for (const Rgba& pixel : picture.pixels) {
        out.U8(pixel.red);
        out.U8(pixel.green);
        out.U8(pixel.blue);
        if (withAlpha) {
            out.U8(pixel.alpha);
        }
    }
    return std::move(out).Take();
}

TrueColourPicture WithoutAlpha(const AlphaPicture& picture) {
    TrueColourPicture plain{picture.width, picture.height, {}};
    for (const Rgba& pixel : picture.pixels) {
        plain.pixels.push_back({pixel.red, pixel.green, pixel.blue});
    }
    return plain;
}

}  // namespace

Sff2Sprite Sff2SpriteOf(const IndexedPicture& picture, Sff2Coding coding, PackingChoice choice) {
    const auto with = [&](std::uint8_t format, std::uint8_t depth, auto data) {
        Sff2Sprite sprite = SpriteOfSize(picture, format, depth);
        sprite.data = data();
        return sprite;
    };
    switch (coding) {
        case Sff2Coding::Raw:
            return with(0, 8, [&] {
                const auto bytes = std::as_bytes(std::span(picture.pixels));
                return std::vector(bytes.begin(), bytes.end());
            });
        case Sff2Coding::Rle8: return with(2, 8, [&] { return PackRle8(picture.pixels, choice); });
        case Sff2Coding::Rle5: return with(3, 5, [&] { return PackRle5(picture.pixels, choice); });
        case Sff2Coding::Lz5: return with(4, 5, [&] { return PackLz5(picture.pixels, choice); });
        case Sff2Coding::Png8:
            return with(10, 8, [&] {
                PngOptions options;
                options.palette = PngPalette::BlackAndClear;
                return WritePng(picture, options);
            });
        default: throw std::invalid_argument("SFF: this coding is not for indexed pictures");
    }
}

Sff2Sprite Sff2SpriteOf(const AlphaPicture& picture, Sff2Coding coding) {
    const auto with = [&](std::uint8_t format, std::uint8_t depth, auto data) {
        Sff2Sprite sprite = SpriteOfSize(picture, format, depth);
        sprite.data = data();
        return sprite;
    };
    switch (coding) {
        case Sff2Coding::Raw24: return with(0, 24, [&] { return RawColours(picture, false); });
        case Sff2Coding::Raw32: return with(0, 32, [&] { return RawColours(picture, true); });
        case Sff2Coding::Png24:
            return with(11, 24, [&] { return WritePng(WithoutAlpha(picture)); });
        case Sff2Coding::Png32: return with(12, 32, [&] { return WritePng(picture); });
        default: throw std::invalid_argument("SFF: this coding is for indexed pictures");
    }
}

Sff2Palette Sff2PaletteOf(const Palette& palette, std::size_t colours) {
    Require(colours >= 1 && colours <= palette.size(), "SFF: a palette has 1 to 256 colours");
    Sff2Palette out;
    for (const Rgb& colour : std::span(palette).first(colours)) {
        const std::uint8_t alpha = out.colours.empty() ? 0 : 255;
        out.colours.push_back({colour.red, colour.green, colour.blue, alpha});
    }
    return out;
}

}  // namespace scenara::samplemaker
