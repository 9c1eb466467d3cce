// SPDX-License-Identifier: MIT
//
// LiteralSff2: a sound archive of version 2 read field by field, with nothing checked that the
// fields do not need. std::out_of_range is raised where they lead out of the file.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <vector>

#include "Pictures.h"
#include "samplemaker/AvPng.h"
#include "samplemaker/LiteralDecoders.h"

namespace scenara::test {

struct LiteralSprite {
    unsigned group = 0;
    unsigned image = 0;
    int axisX = 0;
    int axisY = 0;
    bool isLinked = false;
    unsigned format = 0;  // of the picture, where it is linked
    unsigned width = 0;
    unsigned height = 0;
    unsigned palette = 0;  // with data of its own
    bool inTdata = false;
    Words pixels;  // index 0 has alpha 0
};

class LiteralSff2 {
public:
    explicit LiteralSff2(const std::vector<std::byte>& file) : file_(file) {}

    [[nodiscard]] std::vector<LiteralSprite> Sprites() const {
        std::vector<LiteralSprite> sprites;
        for (std::size_t i = 0; i < U32(40); ++i) {
            sprites.push_back(Sprite(U32(36) + 28 * i));
        }
        return sprites;
    }

    [[nodiscard]] std::size_t Palettes() const { return U32(48); }

private:
    [[nodiscard]] unsigned U8(std::size_t at) const {
        return std::to_integer<unsigned>(file_.at(at));
    }
    [[nodiscard]] unsigned U16(std::size_t at) const { return U8(at) | U8(at + 1) << 8U; }
    [[nodiscard]] std::uint32_t U32(std::size_t at) const { return U16(at) | U16(at + 2) << 16U; }

    [[nodiscard]] LiteralSprite Sprite(std::size_t node) const {
        LiteralSprite sprite;
        sprite.group = U16(node);
        sprite.image = U16(node + 2);
        sprite.axisX = static_cast<std::int16_t>(U16(node + 8));
        sprite.axisY = static_cast<std::int16_t>(U16(node + 10));
        sprite.isLinked = U32(node + 20) == 0;
        sprite.palette = U16(node + 24);
        std::size_t shown = node;
        while (U32(shown + 20) == 0) {
            shown = U32(36) + 28 * std::size_t{U16(shown + 12)};
        }
        sprite.format = U8(shown + 14);
        sprite.width = U16(shown + 4);
        sprite.height = U16(shown + 6);
        sprite.inTdata = (U16(shown + 26) & 1U) != 0;
        std::size_t palette = U32(44) + 16 * std::size_t{sprite.palette};
        while (U32(palette + 12) == 0) {
            sprite.palette = U16(palette + 6);
            palette = U32(44) + 16 * std::size_t{sprite.palette};
        }
        const std::vector<std::uint8_t> indices = Indices(shown);
        Words colors;
        for (unsigned index = 0; index < 256; ++index) {
            colors.push_back(Color(palette, index));
        }
        sprite.pixels.resize(indices.size());
        std::transform(indices.begin(), indices.end(), sprite.pixels.begin(),
                       [&](std::uint8_t index) { return colors[index]; });
        return sprite;
    }

    [[nodiscard]] std::vector<std::uint8_t> Indices(std::size_t node) const {
        const std::size_t base = (U16(node + 26) & 1U) != 0 ? U32(60) : U32(52);
        const std::size_t from = base + U32(node + 16);
        const std::size_t to = from + U32(node + 20);
        static_cast<void>(file_.at(to - 1));
        const std::size_t begin = U8(node + 14) == 0 ? from : from + 4;
        const std::vector<std::byte> data(file_.begin() + static_cast<std::ptrdiff_t>(begin),
                                          file_.begin() + static_cast<std::ptrdiff_t>(to));
        const std::size_t count = std::size_t{U16(node + 4)} * U16(node + 6);
        switch (U8(node + 14)) {
            case 0: return Raw(data, count);
            case 2: return samplemaker::LiteralRle8(data, count).pixels;
            case 3: return samplemaker::LiteralRle5(data, count).pixels;
            case 4: return samplemaker::LiteralLz5(data, count).pixels;
            case 10: return samplemaker::DecodePngByAv(data).indices;
            default: throw std::out_of_range("unknown format");
        }
    }

    static std::vector<std::uint8_t> Raw(const std::vector<std::byte>& data, std::size_t count) {
        static_cast<void>(data.at(count - 1));
        const auto* const bytes = reinterpret_cast<const std::uint8_t*>(data.data());
        return {bytes, bytes + count};
    }

    // Past the palette's colours it is black.
    [[nodiscard]] std::uint32_t Color(std::size_t palette, unsigned index) const {
        const std::size_t at = U32(52) + U32(palette + 8) + 4 * std::size_t{index};
        const bool isThere = index < U16(palette + 4);
        const Rgb color =
            isThere ? Rgb{static_cast<std::uint8_t>(U8(at)), static_cast<std::uint8_t>(U8(at + 1)),
                          static_cast<std::uint8_t>(U8(at + 2))}
                    : Rgb{};
        return index == 0 ? Clear(color) : Opaque(color);
    }

    const std::vector<std::byte>& file_;
};

}  // namespace scenara::test
