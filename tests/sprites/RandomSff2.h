// SPDX-License-Identifier: MIT
//
// RandomSff2: sound archives of version 2 with all that such archives may have, and the entries
// that a stage then has, known from what was put in. The same seed gives the same ones everywhere.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <numeric>
#include <utility>
#include <vector>

#include "Pictures.h"
#include "Sff2Parts.h"
#include "samplemaker/PngWriter.h"

namespace scenara::test {

struct RandomSff2Entry {
    int group = 0;
    int image = 0;
    int axisX = 0;
    int axisY = 0;
    int width = 0;
    int height = 0;
    int linkedTo = -1;
    bool trueColor = false;
    std::uint32_t key = 0;
    Words pixels;
};

class RandomSff2 {
public:
    explicit RandomSff2(std::uint32_t seed) : random_(seed) { Make(); }

    Sff2Archive archive;
    Sff2Options options;
    std::vector<RandomSff2Entry> entries;  // those that are to be in Sprites

private:
    // What stands in the archive once, for all sprites that show it.
    struct Data {
        int width = 0;
        int height = 0;
        bool trueColor = false;
        std::vector<std::uint8_t> indices;  // or
        Words words;
    };
    static constexpr std::size_t kEmpty = ~std::size_t{0};

    void Make() {
        alphaCounts_ = !random_.OneIn(3);
        options.version = alphaCounts_ ? kSff201 : kSff200;
        for (unsigned left = 1 + random_.Below(6); left > 0; --left) {
            AddPalette();
        }
        for (unsigned left = random_.Below(24); left > 0; --left) {
            AddSprite();
        }
        ArrangeParts();
    }

    void AddPalette() {
        const auto number = static_cast<std::uint16_t>(archive.palettes.size());
        Sff2Palette palette;
        palette.group = static_cast<std::uint16_t>(random_.Below(3));
        palette.item = static_cast<std::uint16_t>(10 * random_.Below(1000) + number);
        std::size_t owner = number;
        if (number > 0 && random_.OneIn(4)) {
            palette.link = static_cast<std::uint16_t>(random_.Below(number));
            owner = owners_[palette.link];
        } else {
            const unsigned few = 1 + random_.Below(256);
            const unsigned count = random_.OneIn(3) ? few : random_.OneIn(2) ? 32 : 256;
            for (unsigned i = 0; i < count; ++i) {
                palette.colours.push_back(AnyColour());
            }
            palette.gapBefore = random_.OneIn(4) ? random_.Below(20) : 0;
            if (random_.OneIn(5)) {
                palette.statedColours = static_cast<std::uint16_t>(random_.Below(65536));
            }
        }
        colours_.push_back(palette.colours);
        if (number > 0 && random_.OneIn(6)) {
            const std::size_t same = random_.Below(number);
            palette.group = archive.palettes[same].group;
            palette.item = archive.palettes[same].item;
            owner = owners_[same];
        }
        owners_.push_back(owner);
        archive.palettes.push_back(std::move(palette));
    }

    [[nodiscard]] Rgba AnyColour() {
        const std::uint8_t alpha = random_.OneIn(2) ? std::uint8_t{255} : random_.Byte();
        return {random_.Byte(), random_.Byte(), random_.Byte(), alpha};
    }

    void AddSprite() {
        const auto number = static_cast<unsigned>(archive.sprites.size());
        Sff2Sprite sprite;
        std::size_t data = kEmpty;
        if (number > 0 && random_.OneIn(3)) {
            const unsigned link = random_.Below(number);
            sprite = AnyLink(link);
            data = dataOf_[link];
        } else {
            sprite = AnyPicture();
            data = data_.size() - 1;
            if (random_.OneIn(15)) {
                (random_.OneIn(2) ? sprite.width : sprite.height) = 0;
                data = kEmpty;
            }
        }
        sprite.group = static_cast<std::uint16_t>(random_.Below(65536));
        sprite.image = static_cast<std::uint16_t>(random_.Below(32768));
        sprite.palette = static_cast<std::uint16_t>(
            random_.Below(static_cast<unsigned>(archive.palettes.size())));
        sprite.axisX = random_.Number();
        sprite.axisY = random_.Number();
        dataOf_.push_back(data);
        if (data != kEmpty) {
            Expect(sprite, data);
        }
        archive.sprites.push_back(std::move(sprite));
    }

    [[nodiscard]] Sff2Sprite AnyLink(unsigned to) {
        Sff2Sprite link;
        link.link = static_cast<std::uint16_t>(to);
        link.width = static_cast<std::uint16_t>(random_.Below(60000));
        link.height = static_cast<std::uint16_t>(random_.Below(60000));
        link.format = random_.OneIn(2) ? std::uint8_t{1} : random_.Byte();
        link.depth = random_.Byte();
        link.flags = static_cast<std::uint16_t>(random_.Below(4));
        if (random_.OneIn(3)) {
            link.statedOffset = random_.Below(0xFFFFFFFF);
        }
        return link;
    }

    // Its data are the last of data_.
    [[nodiscard]] Sff2Sprite AnyPicture() {
        Data data;
        data.width = static_cast<int>(1 + random_.Below(random_.OneIn(4) ? 60 : 12));
        data.height = static_cast<int>(1 + random_.Below(random_.OneIn(4) ? 60 : 12));
        Sff2Sprite sprite;
        if (random_.OneIn(3)) {
            const Sff2Coding coding = kColourCodings.at(random_.Below(kColourCodings.size()));
            AlphaPicture picture{data.width, data.height, {}};
            for (int left = data.width * data.height; left > 0; --left) {
                picture.pixels.push_back(AnyColour());
            }
            sprite = Sff2SpriteOf(picture, coding);
            data.trueColor = true;
            data.words = WordsOf(picture, HasAlpha(coding));
        } else {
            const Sff2Coding coding = kIndexedCodings.at(random_.Below(kIndexedCodings.size()));
            const bool of5Bits = coding == Sff2Coding::Rle5 || coding == Sff2Coding::Lz5;
            const IndexedPicture picture =
                AnyIndexed(data.width, data.height, of5Bits || random_.OneIn(3) ? 32 : 256);
            const PackingChoice choice{random_.OneIn(3) ? 0 : random_.Below(100000)};
            sprite = Sff2SpriteOf(picture, coding, choice);
            if (coding == Sff2Coding::Png8) {
                sprite.data = AnyPng(picture);
            }
            data.indices = picture.pixels;
        }
        if (sprite.size && random_.OneIn(3)) {
            sprite.size = random_.OneIn(2) ? 0 : random_.Below(0xFFFFFFFF);
        }
        if (sprite.format != 0 && random_.OneIn(3)) {
            sprite.depth = random_.Byte();
        }
        sprite.flags = static_cast<std::uint16_t>(random_.Below(random_.OneIn(3) ? 65536 : 2));
        sprite.gapBefore = random_.OneIn(4) ? random_.Below(30) : 0;
        for (unsigned left = random_.OneIn(5) ? random_.Below(20) : 0; left > 0; --left) {
            sprite.data.push_back(static_cast<std::byte>(random_.Byte()));
        }
        data_.push_back(std::move(data));
        return sprite;
    }

    // Runs, lines that repeat, and noise.
    [[nodiscard]] IndexedPicture AnyIndexed(int width, int height, unsigned colors) {
        IndexedPicture picture{width, height, {}, {}};
        const auto pixels = static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
        const unsigned longest = 1 + random_.Below(random_.OneIn(3) ? 400 : 6);
        while (picture.pixels.size() < pixels) {
            const std::size_t there = picture.pixels.size();
            const std::size_t count =
                std::min<std::size_t>(1 + random_.Below(longest), pixels - there);
            const bool repeats = there > 0 && random_.OneIn(3);
            const std::size_t back = repeats ? 1 + random_.Below(static_cast<unsigned>(there)) : 0;
            const auto color = static_cast<std::uint8_t>(random_.Below(colors));
            for (std::size_t i = 0; i < count; ++i) {
                const std::uint8_t old =
                    repeats ? picture.pixels[picture.pixels.size() - back] : color;
                picture.pixels.push_back(old);
            }
        }
        return picture;
    }

    [[nodiscard]] std::vector<std::byte> AnyPng(const IndexedPicture& picture) {
        using samplemaker::PngFilter;
        using samplemaker::PngPalette;
        using samplemaker::PngSamples;
        samplemaker::PngOptions png;
        constexpr std::array kSamples = {PngSamples::Indices, PngSamples::Grey,
                                         PngSamples::GreyAndAlpha};
        constexpr std::array kPalettes = {PngPalette::BlackAndClear, PngPalette::Own,
                                          PngPalette::None};
        png.samples = kSamples.at(random_.OneIn(3) ? random_.Below(3) : 0);
        png.palette = kPalettes.at(random_.Below(3));
        png.filter = random_.OneIn(2) ? PngFilter::Best : PngFilter::InTurn;
        png.interlaced = random_.OneIn(4);
        png.chunkSize = random_.OneIn(4) ? 1 + random_.Below(50) : 0;
        const unsigned most = *std::ranges::max_element(picture.pixels);
        if (png.samples != PngSamples::GreyAndAlpha && random_.OneIn(2)) {
            png.bits = most < 2 ? 1 : most < 4 ? 2 : most < 16 ? 4 : 8;
        }
        if (png.samples != PngSamples::Indices && random_.OneIn(4)) {
            png.bits = 16;
        }
        return WritePng(picture, png);
    }

    void Expect(const Sff2Sprite& sprite, std::size_t number) {
        const Data& data = data_[number];
        RandomSff2Entry entry;
        entry.group = sprite.group;
        entry.image = sprite.image;
        entry.axisX = sprite.axisX;
        entry.axisY = sprite.axisY;
        entry.width = data.width;
        entry.height = data.height;
        entry.trueColor = data.trueColor;
        std::size_t owner = kEmpty;
        if (data.trueColor) {
            entry.pixels = data.words;
        } else {
            owner = owners_[sprite.palette];
            entry.pixels = InColours(data.indices, colours_[owner], alphaCounts_);
            Rgba key = colours_[owner][0];
            key.alpha = 255;
            entry.key = WordOf(key);
        }
        const auto place = static_cast<int>(entries.size());
        const auto [first, isNew] = first_.try_emplace({number, owner}, place);
        entry.linkedTo = isNew ? -1 : first->second;
        entries.push_back(std::move(entry));
    }

    void ArrangeParts() {
        for (std::size_t i = options.parts.size(); i > 1; --i) {
            std::swap(options.parts.at(i - 1),
                      options.parts.at(random_.Below(static_cast<unsigned>(i))));
        }
        for (std::size_t& gap : options.gaps) {
            gap = random_.OneIn(3) ? random_.Below(100) : 0;
        }
        options.gapValue = random_.Byte();
        options.palettesLast = random_.OneIn(2);
        if (random_.OneIn(3)) {
            options.dataOrder.resize(archive.sprites.size());
            std::iota(options.dataOrder.begin(), options.dataOrder.end(), std::size_t{0});
            for (std::size_t i = options.dataOrder.size(); i > 1; --i) {
                std::swap(options.dataOrder[i - 1],
                          options.dataOrder[random_.Below(static_cast<unsigned>(i))]);
            }
        }
        if (random_.OneIn(3)) {
            options.ldataLength = random_.Below(0xFFFFFFFF);
            options.tdataLength = random_.OneIn(2) ? 0 : random_.Below(0xFFFFFFFF);
        }
        if (random_.OneIn(3)) {
            options.readerVersion = {random_.Byte(), random_.Byte(), random_.Byte(),
                                     random_.Byte()};
        }
    }

    Random random_;
    bool alphaCounts_ = true;
    std::vector<std::vector<Rgba>> colours_;  // of each palette that has data
    std::vector<std::size_t> owners_;         // whose colours each palette has
    std::vector<Data> data_;
    std::vector<std::size_t> dataOf_;  // of each sprite
    std::map<std::pair<std::size_t, std::size_t>, int> first_;
};

}  // namespace scenara::test
