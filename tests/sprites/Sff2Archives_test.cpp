// SPDX-License-Identifier: MIT
//
// Archives of version 2 that are sound, with all that real ones do differently from each other.
#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Sff2Cases.h"
#include "samplemaker/PngWriter.h"

namespace scenara::test {
namespace {

using samplemaker::PngOptions;
using samplemaker::PngPalette;
using samplemaker::PngSamples;
using samplemaker::WritePng;
using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

// PaletteOf(seed) with any fourth bytes.
Sff2Palette WithFourth(std::uint8_t seed, const std::function<unsigned(std::size_t)>& fourth) {
    Sff2Palette palette = NumberedPalette(seed);
    for (std::size_t i = 0; i < palette.colours.size(); ++i) {
        palette.colours[i].alpha = static_cast<std::uint8_t>(fourth(i));
    }
    return palette;
}

Sff2Options OfVersion(std::array<std::uint8_t, 4> version,
                      std::array<std::uint8_t, 4> readerVersion = kSff200) {
    Sff2Options options;
    options.version = version;
    options.readerVersion = readerVersion;
    return options;
}

Sff2Palette LongPalette() {
    Sff2Palette palette = NumberedPalette(1);
    palette.colours.insert(palette.colours.end(), 40, Rgba{1, 2, 3, 4});
    return palette;
}

TEST(Sff2Archives, FourthBytesOfColours) {
    const auto rubbish = [](std::size_t i) { return static_cast<unsigned>(i * 37 + 5) & 255U; };
    const auto none = [](std::size_t) { return 0U; };
    const auto opaque = [](std::size_t) { return 255U; };
    const Sff2Palette sheer = WithFourth(1, rubbish);
    const Seen withAlpha = {0, 0, InColours(Stripes().pixels, sheer.colours, true)};
    const auto archive = [](Sff2Palette palette) {
        return Sff2Archive{{std::move(palette)}, {StripesSprite(0)}};
    };
    ExpectCases({
        {"2.00: rubbish", archive(sheer), {StripesAt(0)}, {}, OfVersion(kSff200)},
        {"2.00: all 0", archive(WithFourth(1, none)), {StripesAt(0)}, {}, OfVersion(kSff200)},
        {"2.01: alpha", archive(sheer), {withAlpha}, {}, OfVersion(kSff201)},
        {"2.01: 0 is honoured",
         archive(WithFourth(1, none)),
         {{0, 0, InColours(Stripes().pixels, WithFourth(1, none).colours, true)}},
         {},
         OfVersion(kSff201)},
        {"2.01: colour 0 is clear and keeps its colour, whatever its alpha",
         archive(WithFourth(1, opaque)),
         {StripesAt(0)},
         {},
         OfVersion(kSff201)},
        {"of the four numbers the second decides, 0",
         archive(sheer),
         {StripesAt(0)},
         {},
         OfVersion({1, 0, 1, 2}, {0, 1, 0, 2})},
        {"of the four numbers the second decides, 1",
         archive(sheer),
         {withAlpha},
         {},
         OfVersion({0, 1, 9, 2}, {0, 0, 0, 2})},
        {"the reader's version says nothing",
         archive(sheer),
         {withAlpha},
         {},
         OfVersion(kSff201, {255, 255, 255, 255})},
    });
}

TEST(Sff2Archives, TheKeyIsColour0MadeOpaqueAndTrueColoursHaveNone) {
    ArchiveLoad load;
    load.options.Additions = true;
    load.Run(
        WriteSff2({{NumberedPalette(9)},
                   {StripesSprite(0, 0, Sff2Coding::Lz5), StripesSprite(1, 0, Sff2Coding::Png8),
                    Numbered(Sff2SpriteOf(SheerPicture(3, 2), Sff2Coding::Png32), 0, 2),
                    Numbered(Sff2SpriteOf(SheerPicture(3, 2), Sff2Coding::Raw24), 0, 3)}}));
    ASSERT_EQ(load.model.SpriteCount, 4);
    for (const std::size_t indexed : {0U, 1U}) {
        EXPECT_THAT(NumbersOf(load.Sprite(indexed)), HasSubstr("key 255,0,9,255"));
        EXPECT_EQ(load.Sprite(indexed).trueColor, 0);
        EXPECT_EQ(load.device.Created()[indexed].colorKey, Opaque({0, 9, 255}));
    }
    for (const std::size_t colours : {2U, 3U}) {
        EXPECT_THAT(NumbersOf(load.Sprite(colours)), HasSubstr("key 0,0,0,0"));
        EXPECT_EQ(load.Sprite(colours).trueColor, 1);
        EXPECT_EQ(load.device.Created()[colours].colorKey, 0U);
    }
    EXPECT_EQ(load.model.LastImageWidth, 3);
    EXPECT_EQ(load.model.LastImageHeight, 2);
}

TEST(Sff2Archives, Palettes) {
    const auto of = [](std::vector<Sff2Palette> palettes, unsigned shown) {
        return Sff2Archive{std::move(palettes), {StripesSprite(0, shown)}};
    };
    const auto all = StripedPicture(16, 40, PaletteOf(1));
    Sff2Palette wrongCount = NumberedPalette(4);
    wrongCount.statedColours = 2;
    Sff2Palette equal = NumberedPalette(8);
    equal.item = 7;
    Sff2Palette otherGroup = NumberedPalette(8);
    otherGroup.group = 2;
    otherGroup.item = 7;
    ExpectCases({
        {"each sprite names its own",
         {{NumberedPalette(2), NumberedPalette(3)}, {StripesSprite(0, 1), StripesSprite(1, 0)}},
         {StripesAt(0, 3), StripesAt(1, 2)}},
        {"linked",
         of({NumberedPalette(2), NumberedPalette(3), LinkedPalette(4, 1)}, 2),
         {StripesAt(0, 3)}},
        {"linked in a chain",
         of({NumberedPalette(2), LinkedPalette(3, 0), LinkedPalette(4, 1), LinkedPalette(5, 2)}, 3),
         {StripesAt(0, 2)}},
        {"of equal numbers the first counts",
         of({NumberedPalette(7), equal}, 1),
         {StripesAt(0, 7)}},
        {"the group is a number, too", of({NumberedPalette(7), otherGroup}, 1), {StripesAt(0, 8)}},
        {"linked to the second of equal ones",
         of({NumberedPalette(7), equal, LinkedPalette(9, 1)}, 2),
         {StripesAt(0, 7)}},
        {"the length says how many colours there are", of({wrongCount}, 0), {StripesAt(0, 4)}},
        {"of more than 256 the first count", of({LongPalette()}, 0), {StripesAt(0, 1)}},
        {"of 32, all others black and opaque, in 2.01",
         {{NumberedPalette(1, 32)}, {Numbered(Sff2SpriteOf(all, Sff2Coding::Rle8), 0, 0)}},
         {{0, 0, InColours(all.pixels, NumberedPalette(1, 32).colours, true)}}},
        {"of 32, all others black and opaque, in 2.00",
         {{NumberedPalette(1, 32)}, {Numbered(Sff2SpriteOf(all, Sff2Coding::Rle8), 0, 0)}},
         {{0, 0, InColours(all.pixels, NumberedPalette(1, 32).colours, false)}},
         {},
         OfVersion(kSff200)},
    });
}

Sff2Sprite WithAxisOf(Sff2Sprite sprite, int x, int y) {
    sprite.axisX = static_cast<std::int16_t>(x);
    sprite.axisY = static_cast<std::int16_t>(y);
    return sprite;
}

TEST(Sff2Archives, LinksOfEveryKindToEveryCoding) {
    std::vector<Sff2Case> rows;
    const auto add = [&](Sff2Coding coding, const Sff2Sprite& target, const Words& pixels,
                         bool trueColour) {
        for (const unsigned format : {1U, unsigned{target.format}, 200U}) {
            for (const unsigned depth : {0U, 5U, 24U, 99U}) {
                Sff2Sprite link = WithAxisOf(LinkedSprite(0, 1, 0), -3, 400);
                link.format = static_cast<std::uint8_t>(format);
                link.depth = static_cast<std::uint8_t>(depth);
                link.flags = static_cast<std::uint16_t>(1U - (target.flags & 1U));
                link.statedOffset = 0xFFFFFFFF;
                Sff2Sprite variant = LinkedSprite(0, 2, 0, 1);
                // True colours have no palette, so that those of the variant are the same.
                const Seen seen = trueColour ? Seen{0, 2, pixels, 0} : StripesAt(2, 2);
                rows.push_back({std::string(NameOfCoding(coding)) + std::to_string(target.depth) +
                                    " format " + std::to_string(format) + " depth " +
                                    std::to_string(depth),
                                {{NumberedPalette(1), NumberedPalette(2)},
                                 {WithAxisOf(target, 7, -8), link, variant}},
                                {{0, 0, pixels, -1, 7, -8}, {0, 1, pixels, 0, -3, 400}, seen}});
            }
        }
    };
    for (const Sff2Coding coding : kIndexedCodings) {
        add(coding, StripesSprite(0, 0, coding), KeyedByIndex(Stripes()), false);
    }
    const AlphaPicture sheer = SheerPicture(5, 3);
    for (const Sff2Coding coding : kColourCodings) {
        Sff2Sprite target = Sff2SpriteOf(sheer, coding);
        target.flags = kSff2InTdata;
        add(coding, target, WordsOf(sheer, HasAlpha(coding)), true);
    }
    ExpectCases(rows);
}

// Sprites that differ in one thing of their data are two pictures, and a link shows the one that it
// names.
TEST(Sff2Archives, LinksToDataThatDifferInOneThing) {
    const Sff2Sprite first = StripesSprite(0);
    Sff2Sprite inTdata = Sff2SpriteOf(StripedPicture(6, 4, PaletteOf(1), 7), Sff2Coding::Raw);
    inTdata = Numbered(inTdata, 0, 1);
    inTdata.flags = kSff2InTdata;
    // The same bytes in another shape.
    Sff2Sprite turned = StripesSprite(1);
    turned.data.clear();
    turned.width = 4;
    turned.height = 6;
    turned.statedLength = 24;
    turned.statedOffset = 1024;  // after the palette
    Seen turnedSeen = StripesAt(1);
    turnedSeen.linkedTo = -1;
    Seen turnedLink = StripesAt(3, 1, 1);
    ExpectCases({
        {"at the same place of ldata and of tdata",
         {{NumberedPalette(1)}, {first, inTdata, LinkedSprite(0, 2, 0), LinkedSprite(0, 3, 1)}},
         {StripesAt(0),
          {0, 1, KeyedByIndex(StripedPicture(6, 4, PaletteOf(1), 7))},
          StripesAt(2, 1, 0),
          {0, 3, KeyedByIndex(StripedPicture(6, 4, PaletteOf(1), 7)), 1}}},
        {"in another shape",
         {{NumberedPalette(1)}, {first, turned, LinkedSprite(0, 2, 0), LinkedSprite(0, 3, 1)}},
         {StripesAt(0), turnedSeen, StripesAt(2, 1, 0), turnedLink}},
    });
}

TEST(Sff2Archives, Links) {
    const std::vector<Sff2Palette> palettes = {NumberedPalette(1), NumberedPalette(2),
                                               LinkedPalette(3, 0)};
    Sff2Sprite sameData = StripesSprite(1);
    sameData.data.clear();
    sameData.statedLength = 24;
    sameData.statedOffset = 2048;  // behind the palettes
    Sff2Sprite empty = StripesSprite(0);
    empty.width = 0;
    ExpectCases({
        {"chains of links",
         {palettes,
          {StripesSprite(0), LinkedSprite(0, 1, 0), LinkedSprite(0, 2, 1), LinkedSprite(0, 3, 2)}},
         {StripesAt(0), StripesAt(1, 1, 0), StripesAt(2, 1, 0), StripesAt(3, 1, 0)}},
        {"chains through other colours, and back",
         {palettes,
          {StripesSprite(0), LinkedSprite(0, 1, 0, 1), LinkedSprite(0, 2, 1, 0),
           LinkedSprite(0, 3, 2, 1)}},
         {StripesAt(0), StripesAt(1, 2), StripesAt(2, 1, 0), StripesAt(3, 2, 1)}},
        {"a palette that is linked to the target's is the same",
         {palettes, {StripesSprite(0), LinkedSprite(0, 1, 0, 2)}},
         {StripesAt(0), StripesAt(1, 1, 0)}},
        {"the same data without a link are a picture of its own",
         {palettes, {StripesSprite(0), sameData}},
         {StripesAt(0), StripesAt(1)}},
        {"to one without pixels, of which nothing is said",
         {palettes, {empty, LinkedSprite(0, 1, 0), StripesSprite(2)}},
         {StripesAt(2)}},
        {"one without a size and without data is linked all the same",
         {palettes, {StripesSprite(0), Sff2Sprite()}},
         {StripesAt(0), StripesAt(0, 1, 0)}},
        {"the first of all, which has neither, has nothing to show and nothing is said",
         {palettes, {Sff2Sprite(), StripesSprite(2)}},
         {StripesAt(2)}},
        {"equal numbers",
         {palettes, {StripesSprite(0, 0), StripesSprite(0, 1)}},
         {StripesAt(0, 1), StripesAt(0, 2)}},
    });
}

TEST(Sff2Archives, GroupsOf16Bits) {
    ArchiveLoad load;
    load.options.Additions = true;
    load.Run(WriteSff2({{NumberedPalette(1)},
                        {Numbered(StripesSprite(0), 65535, 1), Numbered(StripesSprite(0), 32768, 2),
                         Numbered(StripesSprite(0), 1, 32767), LinkedSprite(60000, 3, 0)}}));
    std::vector<std::pair<int, int>> numbers;
    for (const SpriteEntry& entry : load.model.Sprites) {
        numbers.emplace_back(entry.group, entry.image);
    }
    EXPECT_THAT(numbers, ElementsAre(std::pair(65535, 1), std::pair(32768, 2), std::pair(1, 32767),
                                     std::pair(60000, 3)));
    EXPECT_THAT(load.Texts(), IsEmpty());
}

// An archive with data in both areas.
Sff2Archive BothAreas() {
    Sff2Archive archive = {
        {NumberedPalette(1), NumberedPalette(2)},
        {StripesSprite(0, 0, Sff2Coding::Rle8), StripesSprite(1, 1, Sff2Coding::Lz5),
         StripesSprite(2, 0), StripesSprite(3, 1, Sff2Coding::Png8)}};
    archive.sprites[1].flags = kSff2InTdata;
    archive.sprites[2].flags = 0xFFFE;  // the others mean nothing
    archive.sprites[3].flags = 0xFFFF;
    return archive;
}
std::vector<Seen> BothAreasSeen() {
    return {StripesAt(0), StripesAt(1, 2), StripesAt(2), StripesAt(3, 2)};
}

TEST(Sff2Archives, PartsInAnyOrder) {
    std::vector<Sff2Case> rows;
    Sff2Options options;
    options.gapValue = 0xC3;
    do {
        for (const std::array<std::size_t, 4>& gaps :
             {std::array<std::size_t, 4>{}, {1, 2, 3, 5}, {0, 1000, 0, 70}}) {
            options.gaps = gaps;
            std::string name;
            for (std::size_t i = 0; i < gaps.size(); ++i) {
                name += std::to_string(static_cast<int>(options.parts.at(i))) + " after " +
                        std::to_string(gaps.at(i)) + " ";
            }
            rows.push_back({name, BothAreas(), BothAreasSeen(), {}, options});
        }
    } while (std::ranges::next_permutation(options.parts).found);
    ASSERT_EQ(rows.size(), 24U * 3U);
    ExpectCases(rows);
}

TEST(Sff2Archives, Layouts) {
    std::vector<Sff2Case> rows;
    const auto add = [&](const char* name, const std::function<void(Sff2Options&)>& change) {
        Sff2Options options;
        change(options);
        rows.push_back({name, BothAreas(), BothAreasSeen(), {}, options});
    };
    for (const std::uint32_t length : {0U, 1U, 0xFFFFFFFFU}) {
        add("lengths of the areas", [&](Sff2Options& options) {
            options.ldataLength = length;
            options.tdataLength = length;
        });
    }
    add("palettes behind the sprites' data",
        [](Sff2Options& options) { options.palettesLast = true; });
    add("data in another order", [](Sff2Options& options) { options.dataOrder = {3, 2, 0, 1}; });
    rows.push_back({"gaps between the data", BothAreas(), BothAreasSeen()});
    for (Sff2Sprite& sprite : rows.back().archive.sprites) {
        sprite.gapBefore = 13;
    }
    rows.back().archive.palettes[1].gapBefore = 3;
    // What nobody uses may lie anywhere.
    rows.push_back({"no tdata", {{NumberedPalette(1)}, {StripesSprite(0)}}, {StripesAt(0)}});
    rows.back().options.tdataOffset = 0xFFFFFFFF;
    rows.push_back({"no palettes",
                    {{}, {Sff2SpriteOf(SheerPicture(2, 2), Sff2Coding::Png32)}},
                    {{0, 0, WordsOf(SheerPicture(2, 2), true)}}});
    rows.back().options.palettesOffset = 0xFFFFFFFF;
    rows.push_back({"nothing", {}});
    rows.push_back({"both areas begin at the same place",
                    {{NumberedPalette(1)}, {StripesSprite(0)}},
                    {StripesAt(0)}});
    rows.back().options.tdataOffset = 512 + 16 + 28;
    rows.back().archive.sprites[0].flags = kSff2InTdata;
    rows.back().archive.sprites[0].statedOffset = 1024;
    ExpectCases(rows);
}

TEST(Sff2Archives, AllCodings) {
    std::vector<Sff2Case> rows;
    const auto add = [&](const std::string& what, const Sff2Sprite& sprite, const Words& pixels) {
        for (const std::uint16_t flags : {std::uint16_t{0}, kSff2InTdata}) {
            for (const auto& version : {kSff200, kSff201}) {
                rows.push_back({what,
                                {{NumberedPalette(1)}, {sprite}},
                                {{0, 0, pixels}},
                                {},
                                OfVersion(version)});
                rows.back().archive.sprites[0].flags = flags;
            }
        }
    };
    // As it is, with another size before the data, and with bytes behind its last pixel.
    const auto addAll = [&](Sff2Coding coding, Sff2Sprite sprite, const Words& pixels) {
        const std::string name = NameOfCoding(coding) + std::to_string(sprite.depth);
        add(name, sprite, pixels);
        if (sprite.size) {
            for (const std::uint32_t size : {0U, 1U, *sprite.size * 8, 0xFFFFFFFFU}) {
                sprite.size = size;
                add(name + " and a size of " + std::to_string(size), sprite, pixels);
            }
        }
        sprite.data.insert(sprite.data.end(), 50, std::byte{0xEE});
        add(name + " and more bytes", sprite, pixels);
    };
    for (const Sff2Coding coding : kIndexedCodings) {
        addAll(coding, StripesSprite(0, 0, coding), KeyedByIndex(Stripes()));
        addAll(coding, Sff2SpriteOf(Stripes(), coding, PackingChoice{5}), KeyedByIndex(Stripes()));
        const IndexedPicture one = StripedPicture(1, 1, PaletteOf(1));
        addAll(coding, Sff2SpriteOf(one, coding), KeyedByIndex(one));
    }
    const AlphaPicture sheer = SheerPicture(5, 3);
    for (const Sff2Coding coding : kColourCodings) {
        addAll(coding, Sff2SpriteOf(sheer, coding), WordsOf(sheer, HasAlpha(coding)));
    }
    Sff2Sprite withEmptyRuns = Sff2SpriteOf(Stripes(), Sff2Coding::Rle8);
    for (int i = 0; i < 1000; ++i) {
        withEmptyRuns.data.insert(withEmptyRuns.data.begin(), {std::byte{0x40}, std::byte{31}});
    }
    addAll(Sff2Coding::Rle8, withEmptyRuns, KeyedByIndex(Stripes()));
    const IndexedPicture all = StripedPicture(16, 40, PaletteOf(1));
    for (const Sff2Coding coding : {Sff2Coding::Raw, Sff2Coding::Rle8, Sff2Coding::Png8}) {
        addAll(coding, Sff2SpriteOf(all, coding), KeyedByIndex(all));
    }
    ExpectCases(rows);
}

TEST(Sff2Archives, DepthCountsForRawPicturesOnly) {
    std::vector<Sff2Case> rows;
    const auto add = [&](Sff2Sprite sprite, unsigned depth, const Words& pixels) {
        sprite.depth = static_cast<std::uint8_t>(depth);
        rows.push_back(
            {"format " + std::to_string(sprite.format) + " depth " + std::to_string(depth),
             {{NumberedPalette(1)}, {sprite}},
             {{0, 0, pixels}}});
    };
    const AlphaPicture sheer = SheerPicture(5, 3);
    for (const unsigned depth : {0U, 5U, 8U, 24U, 32U, 255U}) {
        for (const Sff2Coding coding : kIndexedCodings) {
            if (coding != Sff2Coding::Raw) {
                add(StripesSprite(0, 0, coding), depth, KeyedByIndex(Stripes()));
            }
        }
        for (const Sff2Coding coding : {Sff2Coding::Png24, Sff2Coding::Png32}) {
            add(Sff2SpriteOf(sheer, coding), depth, WordsOf(sheer, HasAlpha(coding)));
        }
    }
    ExpectCases(rows);
}

// A sprite that holds a PNG file of any kind.
Sff2Sprite PngSprite(unsigned format, int width, int height, std::vector<std::byte> png) {
    Sff2Sprite sprite;
    sprite.width = static_cast<std::uint16_t>(width);
    sprite.height = static_cast<std::uint16_t>(height);
    sprite.format = static_cast<std::uint8_t>(format);
    sprite.size = 0;
    sprite.data = std::move(png);
    return sprite;
}

constexpr unsigned kPng8 = 10;
constexpr unsigned kPng24 = 11;
constexpr unsigned kPng32 = 12;

TEST(Sff2Archives, PngPicturesOfAllKinds) {
    std::vector<Sff2Case> rows;
    const auto add = [&](std::string name, unsigned format, std::vector<std::byte> png,
                         const Words& pixels) {
        rows.push_back({std::move(name),
                        {{NumberedPalette(1)}, {PngSprite(format, 6, 4, std::move(png))}},
                        {{0, 0, pixels}}});
    };
    IndexedPicture other = Stripes();
    other.palette = PaletteOf(77);
    for (const bool interlaced : {false, true}) {
        PngOptions options;
        options.interlaced = interlaced;
        const std::string suffix = interlaced ? ", interlaced" : "";
        for (const PngPalette palette :
             {PngPalette::Own, PngPalette::BlackAndClear, PngPalette::None}) {
            options.palette = palette;
            add("its own palette " + std::to_string(static_cast<int>(palette)) + suffix, kPng8,
                WritePng(other, options), KeyedByIndex(Stripes()));
        }
        options.palette = PngPalette::Own;
        for (const int bits : {1, 2, 4, 8, 16}) {
            IndexedPicture few = StripedPicture(6, 4, PaletteOf(1), 1U << std::min(bits, 8));
            options.bits = bits;
            options.samples = PngSamples::Grey;
            add("grey of " + std::to_string(bits) + suffix, kPng8, WritePng(few, options),
                KeyedByIndex(few));
            if (bits < 16) {
                options.samples = PngSamples::Indices;
                few.palette = PaletteOf(77);
                add("indices of " + std::to_string(bits) + suffix, kPng8, WritePng(few, options),
                    KeyedByIndex(few, PaletteOf(1)));
            }
            if (bits >= 8) {
                options.samples = PngSamples::GreyAndAlpha;
                add("grey and alpha of " + std::to_string(bits) + suffix, kPng8,
                    WritePng(few, options), KeyedByIndex(few, PaletteOf(1)));
            }
        }
        options = PngOptions();
        options.interlaced = interlaced;
        const AlphaPicture sheer = SheerPicture(6, 4);
        const TrueColourPicture colours = TrueColorPicture(6, 4, 3);
        const Words opaque = KeyedByColor(colours.pixels, nullptr);
        Words ownColours;
        for (const std::uint8_t index : other.pixels) {
            ownColours.push_back(Opaque(other.palette[index]));
        }
        for (const unsigned format : {kPng8, kPng24, kPng32}) {
            const std::string name = " as " + std::to_string(format) + suffix;
            add("true colours" + name, format, WritePng(colours, options), opaque);
            add("true colours with alpha" + name, format, WritePng(sheer, options),
                WordsOf(sheer, true));
            if (format != kPng8) {
                add("a palette's colours" + name, format, WritePng(other, options), ownColours);
            }
        }
    }
    ExpectCases(rows);
}

TEST(Sff2Archives, APngsOwnSizeCountsAndIsSaid) {
    std::vector<Sff2Case> rows;
    const auto add = [&](unsigned format, std::vector<std::byte> png, const Words& pixels) {
        for (const auto& [width, height] : {std::pair{3, 2}, {12, 2}, {60000, 60000}, {6, 5}}) {
            const std::string stated = std::to_string(width) + " x " + std::to_string(height);
            rows.push_back(
                {stated,
                 {{NumberedPalette(1)}, {PngSprite(format, width, height, png)}},
                 {{0, 0, pixels}},
                 {AllOf(HasSubstr("Group 0 Image 0"), HasSubstr(stated), HasSubstr("6 x 4"))}});
        }
    };
    add(kPng8, WritePng(Stripes()), KeyedByIndex(Stripes()));
    const AlphaPicture sheer = SheerPicture(6, 4);
    add(kPng32, WritePng(sheer), WordsOf(sheer, true));
    ExpectCases(rows);
}

TEST(Sff2Archives, PicturesAsWideAndAsHighAsATextureCanBe) {
    std::vector<Sff2Case> rows;
    for (const Sff2Coding coding : kIndexedCodings) {
        for (const auto& [width, height] : {std::pair{32767, 1}, {1, 32767}}) {
            const IndexedPicture picture = StripedPicture(width, height, PaletteOf(1), 32);
            rows.push_back({NameOfCoding(coding) + std::to_string(width),
                            {{NumberedPalette(1)}, {Sff2SpriteOf(picture, coding)}},
                            {{0, 0, KeyedByIndex(picture)}}});
        }
    }
    ExpectCases(rows);
}

TEST(Sff2Archives, ArePlainlyRefusedWithoutTheAdditions) {
    for (const auto& [version, text] : {std::pair{kSff200, "2.00"}, {kSff201, "2.01"}}) {
        ArchiveLoad load;
        load.Run(WriteSff2({{NumberedPalette(1)}, {StripesSprite(0)}}, OfVersion(version)));
        EXPECT_THAT(load.Kinds(), ElementsAre(kMessageSffVersion));
        EXPECT_THAT(load.Texts(), ElementsAre(AllOf(HasSubstr(kArchiveName), HasSubstr(text),
                                                    HasSubstr("only version 1 can be read"))));
        EXPECT_EQ(load.model.SpriteCount, 0);
        EXPECT_THAT(load.device.Created(), IsEmpty());
    }
}

}  // namespace
}  // namespace scenara::test
