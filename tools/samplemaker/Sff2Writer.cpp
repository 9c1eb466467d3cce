// SPDX-License-Identifier: MIT
#include "samplemaker/Sff2Writer.h"

#include <algorithm>
#include <limits>
#include <numeric>
#include <span>
#include <string_view>
#include <utility>

#include "samplemaker/ByteWriter.h"
#include "samplemaker/Require.h"

namespace scenara::samplemaker {
namespace {

using std::string_view_literals::operator""sv;

constexpr std::size_t kSff2HeaderSize = 512;

std::uint32_t ToU32(std::size_t number) {
    Require(number <= std::numeric_limits<std::uint32_t>::max(),
            "SFF: the archive is larger than its numbers can tell");
    return static_cast<std::uint32_t>(number);
}

std::uint16_t ToU16(std::size_t number) {
    Require(number <= std::numeric_limits<std::uint16_t>::max(), "SFF: too many colours");
    return static_cast<std::uint16_t>(number);
}

std::vector<std::size_t> DataOrder(std::size_t count, const std::vector<std::size_t>& wanted) {
    std::vector<std::size_t> asListed(count);
    std::iota(asListed.begin(), asListed.end(), std::size_t{0});
    if (wanted.empty()) {
        return asListed;
    }
    Require(std::ranges::is_permutation(asListed, wanted),
            "SFF: the order of the data must name each sprite once");
    return wanted;
}

// Where the data of a node lie, from the beginning of ldata or tdata on.
struct Stretch {
    std::uint32_t offset = 0;
    std::uint32_t length = 0;
};

// Everything but the header, as it will lie in the file.
class Sff2Parts {
public:
    Sff2Parts(const Sff2Archive& archive, const Sff2Options& options) : options_(options) {
        std::vector<Stretch> palettes(archive.palettes.size());
        std::vector<Stretch> sprites(archive.sprites.size());
        const auto addPalettes = [&] {
            for (std::size_t i = 0; i < palettes.size(); ++i) {
                palettes[i] = AddPalette(archive.palettes[i]);
            }
        };
        if (!options.palettesLast) {
            addPalettes();
        }
        for (const std::size_t i : DataOrder(sprites.size(), options.dataOrder)) {
            sprites[i] = AddSprite(archive.sprites[i]);
        }
        if (options.palettesLast) {
            addPalettes();
        }
        for (std::size_t i = 0; i < palettes.size(); ++i) {
            WriteNode(archive.palettes[i], palettes[i]);
        }
        for (std::size_t i = 0; i < sprites.size(); ++i) {
            WriteNode(archive.sprites[i], sprites[i]);
        }
    }

    [[nodiscard]] std::vector<std::byte> Take(Sff2Part part) && {
        return std::move(Of(part)).Take();
    }

private:
    ByteWriter& Of(Sff2Part part) { return parts_.at(static_cast<std::size_t>(part)); }

    Stretch AddPalette(const Sff2Palette& palette) {
        ByteWriter& out = Of(Sff2Part::Ldata);
        out.Fill(palette.gapBefore, options_.gapValue);
        const std::size_t offset = out.Size();
        for (const Rgba& colour : palette.colours) {
            out.U8(colour.red);
            out.U8(colour.green);
            out.U8(colour.blue);
            out.U8(colour.alpha);
        }
        return {ToU32(offset), ToU32(out.Size() - offset)};
    }

    Stretch AddSprite(const Sff2Sprite& sprite) {
        const bool inTdata = (sprite.flags & kSff2InTdata) != 0;
        ByteWriter& out = Of(inTdata ? Sff2Part::Tdata : Sff2Part::Ldata);
        out.Fill(sprite.gapBefore, options_.gapValue);
        const std::size_t offset = out.Size();
        if (sprite.size) {
            out.U32(*sprite.size);
        }
        out.Append(sprite.data);
        return {ToU32(offset), ToU32(out.Size() - offset)};
    }

    // What has no data has no offset either.
    static std::uint32_t OffsetOf(const Stretch& data) {
        return data.length == 0 ? 0 : data.offset;
    }

    void WriteNode(const Sff2Palette& palette, const Stretch& data) {
        ByteWriter& out = Of(Sff2Part::Palettes);
        out.U16(palette.group);
        out.U16(palette.item);
        out.U16(palette.statedColours ? *palette.statedColours : ToU16(palette.colours.size()));
        out.U16(palette.link);
        out.U32(palette.statedOffset.value_or(OffsetOf(data)));
        out.U32(palette.statedLength.value_or(data.length));
    }

    void WriteNode(const Sff2Sprite& sprite, const Stretch& data) {
        ByteWriter& out = Of(Sff2Part::Sprites);
        out.U16(sprite.group);
        out.U16(sprite.image);
        out.U16(sprite.width);
        out.U16(sprite.height);
        out.U16(static_cast<std::uint16_t>(sprite.axisX));
        out.U16(static_cast<std::uint16_t>(sprite.axisY));
        out.U16(sprite.link);
        out.U8(sprite.format);
        out.U8(sprite.depth);
        out.U32(sprite.statedOffset.value_or(OffsetOf(data)));
        out.U32(sprite.statedLength.value_or(data.length));
        out.U16(sprite.palette);
        out.U16(sprite.flags);
    }

    const Sff2Options& options_;
    std::array<ByteWriter, 4> parts_;
};

void WriteSff2Header(ByteWriter& out, const Sff2Archive& archive, const Sff2Options& options,
                     const std::array<Stretch, 4>& parts) {
    const auto part = [&](Sff2Part which) { return parts.at(static_cast<std::size_t>(which)); };
    out.Text("ElecbyteSpr\0"sv);
    for (const std::uint8_t value : options.version) {
        out.U8(value);
    }
    out.Fill(8, 0);
    for (const std::uint8_t value : options.readerVersion) {
        out.U8(value);
    }
    out.Fill(8, 0);
    out.U32(options.spritesOffset.value_or(part(Sff2Part::Sprites).offset));
    out.U32(options.spritesNumber.value_or(ToU32(archive.sprites.size())));
    out.U32(options.palettesOffset.value_or(part(Sff2Part::Palettes).offset));
    out.U32(options.palettesNumber.value_or(ToU32(archive.palettes.size())));
    out.U32(options.ldataOffset.value_or(part(Sff2Part::Ldata).offset));
    out.U32(options.ldataLength.value_or(part(Sff2Part::Ldata).length));
    out.U32(options.tdataOffset.value_or(part(Sff2Part::Tdata).offset));
    out.U32(options.tdataLength.value_or(part(Sff2Part::Tdata).length));
    out.Fill(kSff2HeaderSize - out.Size(), 0);
}

}  // namespace

std::vector<std::byte> WriteSff2(const Sff2Archive& archive, const Sff2Options& options) {
    constexpr std::array kAllParts = {Sff2Part::Palettes, Sff2Part::Sprites, Sff2Part::Ldata,
                                      Sff2Part::Tdata};
    Require(std::ranges::is_permutation(options.parts, kAllParts),
            "SFF: the order of the parts must name each once");
    Sff2Parts parts(archive, options);
    std::array<Stretch, 4> stretches;
    ByteWriter body;
    for (std::size_t i = 0; i < options.parts.size(); ++i) {
        body.Fill(options.gaps.at(i), options.gapValue);
        const std::vector<std::byte> bytes = std::move(parts).Take(options.parts.at(i));
        stretches.at(static_cast<std::size_t>(options.parts.at(i))) = {
            ToU32(kSff2HeaderSize + body.Size()), ToU32(bytes.size())};
        body.Append(bytes);
    }
    static_cast<void>(ToU32(kSff2HeaderSize + body.Size()));

    ByteWriter out;
    WriteSff2Header(out, archive, options, stretches);
    out.Append(std::move(body).Take());
    return std::move(out).Take();
}

}  // namespace scenara::samplemaker
