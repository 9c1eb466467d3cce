// SPDX-License-Identifier: MIT
#include "support/ConvertArchive.h"

#include <algorithm>
#include <map>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>

#include "platform/headless/HeadlessMessages.h"
#include "platform/soft/SoftDevice.h"
#include "samplemaker/Picture.h"
#include "samplemaker/Sff2Pictures.h"
#include "sprites/SpriteArchive.h"
#include "sprites/version1/SffArchive.h"
#include "sprites/version1/SubfilePalette.h"
#include "support/MemoryFiles.h"

namespace scenara::test {
namespace {

using samplemaker::IndexedPicture;
using samplemaker::PackingChoice;
using samplemaker::Rgb;
using samplemaker::Sff2Archive;
using samplemaker::Sff2Coding;
using samplemaker::Sff2Palette;
using samplemaker::Sff2Sprite;

constexpr MessageKind kBadArchive{"archive"};
constexpr MessageKind kBadPicture{"picture"};
constexpr MessageKind kBadLink{"link"};

constexpr std::uint32_t kAlpha = 0xFF000000;
constexpr int kSmallPalette = 32;

Rgb ColorOf(std::uint32_t word) {
    return {static_cast<std::uint8_t>(word >> 16U), static_cast<std::uint8_t>(word >> 8U),
            static_cast<std::uint8_t>(word)};
}

// Entry i is (i, i, i): pictures in it show their indices.
PaletteBytes IndicesAsColors() {
    PaletteBytes palette{};
    for (std::size_t i = 0; i < palette.size(); ++i) {
        palette[i] = static_cast<std::byte>(i / 3);
    }
    return palette;
}

// An archive, with the pictures as the program makes them, each asked for once in their order.
class Pictures {
public:
    Pictures(std::span<const std::byte> archive, ArchiveRules::Palettes palettes,
             std::optional<PaletteBytes> given)
        : file_(archive) {
        if (ReadArchiveVersion(file_).Is2()) {
            throw std::runtime_error("the archive to convert is not of version 1");
        }
        archive_ = OpenArchive({file_, name_, device_, messages_, view_},
                               {palettes, given, kBadArchive, kBadPicture, kBadLink});
        while (archive_->Next()) {
        }
        SubfileChain chain(file_, ReadSffHeader(file_));
        while (chain.Next()) {
            const auto header = ReadSubfilePcxHeader(file_, chain.Current());
            is256Colors_.push_back(header && header->Is256Colors());
        }
    }

    // To the next sprite. What is wrong there, as that the chain breaks off, raises.
    [[nodiscard]] bool Reach(std::size_t place) {
        const std::size_t said = messages_.Recorded().size();
        const bool isThere = archive_->Reach(place);
        if (messages_.Recorded().size() != said) {
            Fail();
        }
        if (isThere) {
            archive_->Keep(place);
        }
        return isThere;
    }

    [[nodiscard]] const ArchiveSprite& At(std::size_t place) const { return archive_->At(place); }
    [[nodiscard]] bool Is256Colors(std::size_t place) const { return is256Colors_.at(place); }

    [[nodiscard]] std::size_t LinkOf(std::size_t place) {
        const auto link = archive_->LinkOf(place);
        if (!link || *link >= place) {
            throw std::runtime_error("a link that leads nowhere");
        }
        return *link;
    }

    [[nodiscard]] SpritePicture Load(std::size_t place) {
        SpritePicture picture;
        auto load = archive_->Begin(place);
        load->Decode();
        if (!archive_->Finish(std::move(load), place, picture)) {
            Fail();
        }
        return picture;
    }

private:
    [[noreturn]] void Fail() const { throw std::runtime_error(messages_.Recorded().back().text); }

    MemoryFile file_;
    std::string name_ = "the archive to convert";
    HeadlessMessages messages_;
    SoftDevice device_;
    ViewOptions view_;
    std::unique_ptr<SpriteArchive> archive_;
    std::vector<bool> is256Colors_;
};

std::vector<std::uint32_t> WordsOf(Direct3DTexture8& texture) {
    const auto width = static_cast<std::size_t>(texture.Width());
    const LockedPixels locked = texture.LockRectToRead();
    std::vector<std::uint32_t> words;
    for (std::size_t y = 0; y < static_cast<std::size_t>(texture.Height()); ++y) {
        const auto line = locked.words.subspan(y * static_cast<std::size_t>(locked.pitch), width);
        words.insert(words.end(), line.begin(), line.end());
    }
    texture.UnlockRect();
    return words;
}

// The colours of the indices that pixels have, and of 0; nothing for the others.
using Colors = std::array<std::optional<Rgb>, 256>;

struct Picture {
    IndexedPicture indexed;  // without its palette
    Colors colors{};
};

// `indices`: the words in IndicesAsColors. Without them the indices are free, but for that of the
// transparent pixels.
Picture PictureOf(const SpritePicture& shown, const std::vector<std::uint32_t>* indices) {
    Picture picture;
    picture.indexed.width = shown.texture->Width();
    picture.indexed.height = shown.texture->Height();
    picture.colors[0] = ColorOf(shown.key);
    std::map<std::uint32_t, std::uint8_t> given;
    const std::vector<std::uint32_t> words = WordsOf(*shown.texture);
    for (std::size_t i = 0; i < words.size(); ++i) {
        std::uint8_t index = 0;
        if (indices != nullptr) {
            index = static_cast<std::uint8_t>((*indices)[i]);
        } else if ((words[i] & kAlpha) != 0) {
            index = given.try_emplace(words[i], static_cast<std::uint8_t>(given.size() + 1))
                        .first->second;
        }
        if (given.size() > 255) {
            throw std::runtime_error("a picture has too many colours for a palette");
        }
        picture.indexed.pixels.push_back(index);
        picture.colors.at(index) = ColorOf(words[i]);
    }
    return picture;
}

// Takes more colours in where they agree with those that are there.
bool Merge(Colors& palette, const Colors& more) {
    for (std::size_t i = 0; i < palette.size(); ++i) {
        if (palette.at(i) && more.at(i) && palette.at(i) != more.at(i)) {
            return false;
        }
    }
    for (std::size_t i = 0; i < palette.size(); ++i) {
        if (more.at(i)) {
            palette.at(i) = more.at(i);
        }
    }
    return true;
}

// What of the two sizes that archives have holds the colours.
Sff2Palette PaletteOf(const Colors& colors, std::size_t item, bool withAlpha) {
    samplemaker::Palette palette{};
    std::size_t count = kSmallPalette;
    for (std::size_t i = 0; i < colors.size(); ++i) {
        palette.at(i) = colors.at(i).value_or(Rgb{});
        if (colors.at(i) && i >= kSmallPalette) {
            count = palette.size();
        }
    }
    Sff2Palette node = samplemaker::Sff2PaletteOf(palette, count);
    node.item = static_cast<std::uint16_t>(item);
    if (!withAlpha) {
        for (std::size_t i = 0; i < count; ++i) {
            node.colours[i].alpha = static_cast<std::uint8_t>(i * 89 + item);
        }
    }
    return node;
}

class Converter {
public:
    Converter(std::span<const std::byte> version1, const ConvertOptions& options)
        : options_(options),
          shown_(version1,
                 options.reader == ConvertFor::Stage ? ArchiveRules::Palettes::AsTheyCome
                                                     : ArchiveRules::Palettes::InForce,
                 std::nullopt),
          indices_(version1, ArchiveRules::Palettes::OneForAll, IndicesAsColors()) {}

    std::vector<std::byte> Convert() && {
        for (std::size_t place = 0; shown_.Reach(place) && indices_.Reach(place); ++place) {
            archive_.sprites.push_back(shown_.At(place).linked ? Linked(place) : Shown(place));
        }
        AddPalettes();
        samplemaker::Sff2Options written;
        written.version = options_.version;
        return samplemaker::WriteSff2(archive_, written);
    }

private:
    [[nodiscard]] bool HasPngs() const { return options_.version == samplemaker::kSff201; }
    [[nodiscard]] bool IsMixed() const { return options_.coding == ConvertTo::Mixed; }

    void TakeNumbers(Sff2Sprite& sprite, std::size_t place) const {
        const ArchiveSprite& shown = shown_.At(place);
        sprite.group = static_cast<std::uint16_t>(shown.group);
        sprite.image = static_cast<std::uint16_t>(shown.image);
        sprite.axisX = shown.axisX;
        sprite.axisY = shown.axisY;
    }

    [[nodiscard]] Sff2Sprite Linked(std::size_t place) {
        const std::size_t link = shown_.LinkOf(place);
        const Sff2Sprite& target = archive_.sprites.at(link);
        Sff2Sprite sprite;
        TakeNumbers(sprite, place);
        sprite.width = target.width;
        sprite.height = target.height;
        sprite.palette = target.palette;
        sprite.link = static_cast<std::uint16_t>(link);
        sprite.format = 1;
        return sprite;
    }

    [[nodiscard]] Sff2Sprite Shown(std::size_t place) {
        const Picture picture = PictureAt(place);
        if (palettes_.empty() || !Merge(palettes_.back(), picture.colors)) {
            palettes_.push_back(picture.colors);
        }
        Sff2Sprite sprite =
            samplemaker::Sff2SpriteOf(picture.indexed, CodingOf(picture, place), PackingOf(place));
        TakeNumbers(sprite, place);
        sprite.palette = static_cast<std::uint16_t>(palettes_.size() - 1);
        if (IsMixed() && place % 2 == 1) {
            sprite.flags = samplemaker::kSff2InTdata;
        }
        return sprite;
    }

    [[nodiscard]] Picture PictureAt(std::size_t place) {
        const SpritePicture shown = shown_.Load(place);
        if (!shown_.Is256Colors(place)) {
            return PictureOf(shown, nullptr);
        }
        const std::vector<std::uint32_t> indices = WordsOf(*indices_.Load(place).texture);
        return PictureOf(shown, &indices);
    }

    [[nodiscard]] Sff2Coding CodingOf(const Picture& picture, std::size_t place) const {
        constexpr ConvertTo kInTurn[] = {ConvertTo::Lz5, ConvertTo::Raw, ConvertTo::Rle8,
                                         ConvertTo::Png8, ConvertTo::Rle5};
        const ConvertTo wanted = IsMixed() ? kInTurn[place % 5] : options_.coding;
        const bool isSmall = std::ranges::all_of(
            picture.indexed.pixels, [](std::uint8_t pixel) { return pixel < kSmallPalette; });
        switch (wanted) {
            case ConvertTo::Raw: return Sff2Coding::Raw;
            case ConvertTo::Png8: return HasPngs() ? Sff2Coding::Png8 : Sff2Coding::Raw;
            case ConvertTo::Rle5: return isSmall ? Sff2Coding::Rle5 : Sff2Coding::Rle8;
            case ConvertTo::Lz5: return isSmall ? Sff2Coding::Lz5 : Sff2Coding::Rle8;
            default: return Sff2Coding::Rle8;
        }
    }

    [[nodiscard]] PackingChoice PackingOf(std::size_t place) const {
        const bool isOdd = IsMixed() && place % 3 != 0;
        return {isOdd ? static_cast<std::uint32_t>(place) : 0};
    }

    // Mixed: as many linked palettes behind the others, for every other sprite.
    void AddPalettes() {
        const std::size_t count = palettes_.size();
        for (std::size_t i = 0; i < count; ++i) {
            archive_.palettes.push_back(PaletteOf(palettes_[i], i + 1, HasPngs()));
        }
        if (!IsMixed()) {
            return;
        }
        for (std::size_t i = 0; i < count; ++i) {
            Sff2Palette linked;
            linked.item = static_cast<std::uint16_t>(count + i + 1);
            linked.link = static_cast<std::uint16_t>(i);
            archive_.palettes.push_back(linked);
        }
        for (std::size_t i = 1; i < archive_.sprites.size(); i += 2) {
            Sff2Sprite& sprite = archive_.sprites[i];
            sprite.palette = static_cast<std::uint16_t>(sprite.palette + count);
        }
    }

    ConvertOptions options_;
    Pictures shown_;
    Pictures indices_;
    std::vector<Colors> palettes_;
    Sff2Archive archive_;
};

}  // namespace

std::vector<std::byte> ConvertArchive(std::span<const std::byte> version1,
                                      const ConvertOptions& options) {
    return Converter(version1, options).Convert();
}

}  // namespace scenara::test
