// SPDX-License-Identifier: MIT
//
// Archives of version 2 that are wrong somewhere: the sprite is named, and all others are shown.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "HugeTextures.h"
#include "LiteralUnpack.h"
#include "Sff2Cases.h"
#include "samplemaker/PngWriter.h"
#include "sprites/TextureBudget.h"
#include "support/PngBytes.h"

namespace scenara::test {
namespace {

using samplemaker::PngOptions;
using samplemaker::WritePng;
using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

constexpr const char* kSkips = "Skipping sprite..";

// Sprites 7,8 and so on, which are to be dropped, between two good ones.
Sff2Case Dropped(std::string name, std::vector<Sff2Sprite> sprites, std::vector<TextMatcher> said) {
    Sff2Case row = {std::move(name),
                    {{NumberedPalette(1)}, {StripesSprite(0)}},
                    {StripesAt(0), StripesAt(9)},
                    std::move(said)};
    unsigned image = 8;
    for (Sff2Sprite& sprite : sprites) {
        row.archive.sprites.push_back(Numbered(std::move(sprite), 7, image));
        ++image;
    }
    row.archive.sprites.push_back(StripesSprite(9));
    return row;
}

// That 7,`image` was dropped, and why.
TextMatcher Named(const std::string& coding, const std::string& why = "", int image = 8) {
    return AllOf(
        StartsWith("SFF Error:  Group 7 Image " + std::to_string(image) + "\r\n" + coding + ": "),
        HasSubstr(why), HasSubstr(kSkips));
}

TextMatcher BadLink(int image, int link) {
    return AllOf(StartsWith("Link Error:  Group 7 Image " + std::to_string(image) + "\r\n"),
                 HasSubstr(" " + std::to_string(link) + " "), HasSubstr(kSkips));
}

TEST(Sff2Faults, LinksThatNameNone) {
    Sff2Sprite unknown = Sff2SpriteOf(Stripes(), Sff2Coding::Raw);
    unknown.format = 7;
    std::vector<Sff2Case> rows;
    for (const unsigned link : {1U, 2U, 3U, 60000U, 65535U}) {
        rows.push_back(Dropped("to " + std::to_string(link), {LinkedSprite(7, 8, link)},
                               {BadLink(8, static_cast<int>(link))}));
    }
    rows.push_back(Dropped("to one that was dropped", {unknown, LinkedSprite(7, 9, 1)},
                           {Named("Coding 7"), BadLink(9, 1)}));
    rows.push_back(Dropped("to a link that names none",
                           {LinkedSprite(7, 8, 9), LinkedSprite(7, 9, 1)},
                           {BadLink(8, 9), BadLink(9, 1)}));
    Sff2Case otherColours =
        Dropped("to one that was dropped, in other colours", {unknown, LinkedSprite(7, 9, 1)},
                {Named("Coding 7"), Named("Coding 7", "", 9)});
    otherColours.archive.palettes.push_back(NumberedPalette(2));
    otherColours.archive.sprites[2].palette = 1;
    rows.push_back(otherColours);
    ExpectCases(rows);
}

TEST(Sff2Faults, Palettes) {
    const Seen black = {0, 0, KeyedByIndex(Stripes(), Palette())};
    const auto of = [](std::vector<Sff2Palette> palettes, unsigned shown) {
        return Sff2Archive{std::move(palettes), {StripesSprite(0, shown), StripesSprite(1)}};
    };
    const auto said = [](unsigned palette) -> std::vector<TextMatcher> {
        return {AllOf(StartsWith("SFF Error:  stages/test.sff\r\n"),
                      HasSubstr("Palette " + std::to_string(palette)), HasSubstr("black"))};
    };
    Sff2Palette away = NumberedPalette(2);
    away.statedOffset = 0xFFFFFFFF;
    Sff2Palette badFirst = LinkedPalette(2, 60000);
    Sff2Palette beyond = NumberedPalette(2);
    beyond.statedLength = 0xFFFFFFFF;
    const Sff2Palette good = NumberedPalette(1);
    const auto withLast = [&](Sff2Case row, std::size_t bytes, bool palettesLast) {
        row.options.palettesLast = palettesLast;
        row.change = [bytes](std::vector<std::byte>& file) { file.resize(file.size() - bytes); };
        return row;
    };
    Palette half = PaletteOf(2);
    std::fill(half.begin() + 10, half.end(), Rgb{});
    const Seen halfBlack = {0, 0, KeyedByIndex(Stripes(), half)};
    ExpectCases({
        {"past the end", of({good}, 1), {black, StripesAt(1)}, said(1)},
        {"far past the end", of({good}, 65535), {black, StripesAt(1)}, said(65535)},
        {"linked to itself", of({good, LinkedPalette(2, 1)}, 1), {black, StripesAt(1)}, said(1)},
        {"linked forwards",
         of({good, LinkedPalette(2, 2), NumberedPalette(3)}, 1),
         {black, StripesAt(1)},
         said(1)},
        {"linked past the end",
         of({good, LinkedPalette(2, 60000)}, 1),
         {black, StripesAt(1)},
         said(1)},
        {"linked to one that is bad",
         of({good, LinkedPalette(2, 9), LinkedPalette(3, 1)}, 2),
         {black, StripesAt(1)},
         said(1)},
        {"of equal ones the first counts, bad as it is",
         of({good, badFirst, NumberedPalette(2)}, 2),
         {black, StripesAt(1)},
         said(1)},
        {"behind the file", of({good, away}, 1), {black, StripesAt(1)}, said(1)},
        withLast({"the file ends in it",
                  of({good, NumberedPalette(2)}, 1),
                  {halfBlack, StripesAt(1)},
                  said(1)},
                 1024 - 10 * 4 - 3, true),
        withLast({"the file ends before it",
                  of({good, NumberedPalette(2)}, 1),
                  {black, StripesAt(1)},
                  said(1)},
                 1024, true),
        {"a length beyond the file that is not needed",
         {{good, NumberedPalette(3), beyond}, {StripesSprite(0, 2), StripesSprite(1)}},
         {StripesAt(0, 2), StripesAt(1)}},
        {"said once",
         {{good}, {StripesSprite(0, 1), StripesSprite(1), StripesSprite(2, 1)}},
         {black, StripesAt(1), {0, 2, black.pixels}},
         said(1)},
        {"not said where nothing needs it",
         of({good, LinkedPalette(2, 1)}, 0),
         {StripesAt(0), StripesAt(1)}},
    });
}

TEST(Sff2Faults, Sizes) {
    std::vector<Sff2Case> rows;
    for (const Sff2Coding coding : {Sff2Coding::Raw, Sff2Coding::Rle8, Sff2Coding::Png32}) {
        for (const auto& [width, height] : {std::pair{0, 4}, {6, 0}, {0, 0}, {0, 65535}}) {
            Sff2Sprite empty = coding == Sff2Coding::Png32
                                   ? Sff2SpriteOf(SheerPicture(6, 4), coding)
                                   : Sff2SpriteOf(Stripes(), coding);
            empty.width = static_cast<std::uint16_t>(width);
            empty.height = static_cast<std::uint16_t>(height);
            rows.push_back(Dropped("of no pixels, nothing is said", {empty}, {}));
        }
    }
    for (const Sff2Coding coding : kIndexedCodings) {
        for (const auto& [width, height] : {std::pair{32768, 1}, {1, 32768}, {65535, 2}}) {
            rows.push_back(Dropped(
                NameOfCoding(coding) + (" " + std::to_string(width)),
                {Sff2SpriteOf(StripedPicture(width, height, PaletteOf(1), 32), coding)},
                {Named(NameOfCoding(coding), coding == Sff2Coding::Png8 ? "" : "Overflow")}));
        }
    }
    ExpectCases(rows);
}

TEST(Sff2Faults, CodingsThatThereAreNot) {
    std::vector<Sff2Case> rows;
    for (const unsigned format : {1U, 5U, 6U, 9U, 13U, 128U, 255U}) {
        Sff2Sprite sprite = Sff2SpriteOf(Stripes(), Sff2Coding::Rle8);
        sprite.format = static_cast<std::uint8_t>(format);
        rows.push_back(Dropped("format " + std::to_string(format), {sprite},
                               {Named("Coding " + std::to_string(format), "no such coding")}));
    }
    ExpectCases(rows);
}

// All codings, once each.
std::vector<std::pair<Sff2Coding, Sff2Sprite>> SpriteOfEachCoding() {
    std::vector<std::pair<Sff2Coding, Sff2Sprite>> sprites;
    for (const Sff2Coding coding : kIndexedCodings) {
        sprites.emplace_back(coding, Sff2SpriteOf(Stripes(), coding));
    }
    for (const Sff2Coding coding : kColourCodings) {
        sprites.emplace_back(coding, Sff2SpriteOf(SheerPicture(6, 4), coding));
    }
    return sprites;
}

TEST(Sff2Faults, DataThatEndBeforeTheirPixels) {
    std::vector<Sff2Case> rows;
    for (const auto& [coding, whole] : SpriteOfEachCoding()) {
        // Of a PNG the end is no part of its pixels.
        const bool isPng = whole.format >= 10;
        for (const std::size_t less : {std::size_t{isPng ? 30U : 1U}, whole.data.size() / 2}) {
            Sff2Sprite cut = whole;
            cut.data.resize(cut.data.size() - less);
            rows.push_back(Dropped(NameOfCoding(coding) + (" less " + std::to_string(less)), {cut},
                                   {Named(NameOfCoding(coding), isPng ? "" : "end before")}));
        }
        Sff2Sprite none = whole;
        none.data.clear();
        none.size = 24;
        rows.push_back(Dropped(NameOfCoding(coding) + std::string(" of nothing"), {none},
                               {Named(NameOfCoding(coding))}));
    }
    ExpectCases(rows);
}

TEST(Sff2Faults, DataThatAreWrong) {
    Sff2Sprite early = Sff2SpriteOf(Stripes(), Sff2Coding::Lz5);
    early.data = Bytes({1, 0x3F, 0, 0x00, 0xFF, 0xFF});
    Sff2Sprite tooFar = early;
    tooFar.data = Bytes({2, 0x21, 0x3F, 1, 0xFF, 0xFF});  // one pixel, and a copy from two back
    Sff2Sprite noPng = Sff2SpriteOf(Stripes(), Sff2Coding::Png8);
    noPng.data[1] = std::byte{'p'};
    Sff2Sprite wrongPixels = Sff2SpriteOf(SheerPicture(6, 4), Sff2Coding::Png32);
    wrongPixels.data[wrongPixels.data.size() - 30] ^= std::byte{0xFF};
    ExpectCases({
        Dropped("LZ5 copies before there is anything", {early}, {Named("LZ5", "before its first")}),
        Dropped("LZ5 copies from before the start", {tooFar}, {Named("LZ5", "before its first")}),
        Dropped("a PNG that is none", {noPng}, {Named("PNG8")}),
        Dropped("a PNG whose pixels are damaged", {wrongPixels}, {Named("PNG32", "damaged")}),
    });
}

// The sprite of one coding, alone behind a good one, at the end of a file of which `less` bytes are
// missing.
void LoadCut(ArchiveLoad& load, const Sff2Sprite& sprite, std::size_t less) {
    load.options.Additions = true;
    std::vector<std::byte> bytes =
        WriteSff2({{NumberedPalette(1)}, {StripesSprite(0), Numbered(sprite, 7, 8)}});
    bytes.resize(bytes.size() - less);
    load.Run(bytes);
}

// A picture of `pixels`, cut after the first of them: the rest is `nothing`.
Words Rest(Words pixels, std::size_t whole, std::uint32_t nothing) {
    std::fill(pixels.begin() + static_cast<std::ptrdiff_t>(whole), pixels.end(), nothing);
    return pixels;
}

// No pixel of it has colour 0.
IndexedPicture Full() {
    IndexedPicture picture = Stripes();
    for (std::uint8_t& pixel : picture.pixels) {
        ++pixel;
    }
    return picture;
}

void ExpectCut(const Sff2Sprite& sprite, Sff2Coding coding, std::size_t less, const Words& seen,
               bool isWhole) {
    SCOPED_TRACE(NameOfCoding(coding) + (" less " + std::to_string(less)));
    for (const DeviceLines lines : {DeviceLines::AsWanted, DeviceLines::Wide}) {
        ArchiveLoad load(lines);
        LoadCut(load, sprite, less);
        ASSERT_EQ(load.model.SpriteCount, 2) << testing::PrintToString(load.Texts());
        EXPECT_EQ(load.Pixels(1), seen);
        const std::vector<TextMatcher> said = {
            AllOf(StartsWith("SFF Error:  Group 7 Image 8\r\n" + std::string(NameOfCoding(coding)) +
                             ": "),
                  HasSubstr("The file ends in it"))};
        EXPECT_THAT(load.Texts(),
                    testing::ElementsAreArray(isWhole ? std::vector<TextMatcher>() : said));
    }
}

TEST(Sff2Faults, WhereTheFileEndsWhatIsThereIsKept) {
    const IndexedPicture full = Full();
    const Words words = KeyedByIndex(full);
    const std::uint32_t clear = Clear(full.palette[0]);
    const std::size_t wanted = full.pixels.size();
    const std::pair<Sff2Coding, Sff2Packing> packings[] = {{Sff2Coding::Rle8, Sff2Packing::Rle8},
                                                           {Sff2Coding::Rle5, Sff2Packing::Rle5},
                                                           {Sff2Coding::Lz5, Sff2Packing::Lz5}};
    for (std::uint32_t seed = 0; seed < 20; ++seed) {
        for (const auto& [coding, packing] : packings) {
            const Sff2Sprite sprite = Sff2SpriteOf(full, coding, PackingChoice{seed});
            for (std::size_t less = 0; less < sprite.data.size(); ++less) {
                const std::vector<std::byte> part(
                    sprite.data.begin(), sprite.data.end() - static_cast<std::ptrdiff_t>(less));
                const std::size_t done = LiteralUnpack(part, wanted).Unpack(packing).indices.size();
                ExpectCut(sprite, coding, less, Rest(words, done, clear), done == wanted);
            }
        }
        if (HasFailure()) {
            return;
        }
    }
    const Sff2Sprite raw = Sff2SpriteOf(full, Sff2Coding::Raw);
    for (std::size_t less = 0; less < wanted; ++less) {
        ExpectCut(raw, Sff2Coding::Raw, less, Rest(words, wanted - less, clear), less == 0);
    }
    const AlphaPicture sheer = SheerPicture(6, 4);
    for (const auto& [coding, size] : {std::pair{Sff2Coding::Raw24, 3U}, {Sff2Coding::Raw32, 4U}}) {
        const Sff2Sprite colours = Sff2SpriteOf(sheer, coding);
        for (std::size_t less = 0; less < wanted * size; ++less) {
            const std::size_t done = (wanted * size - less) / size;
            ExpectCut(colours, coding, less, Rest(WordsOf(sheer, HasAlpha(coding)), done, 0),
                      less == 0);
        }
    }
}

// How many lines of its pixels a PNG that is cut still yields is up to its reader: some, none after
// the first that is missing.
TEST(Sff2Faults, WhereTheFileEndsThePngsLinesAreKept) {
    const AlphaPicture sheer = SheerPicture(6, 40);
    const IndexedPicture full = StripedPicture(6, 40, PaletteOf(1));
    const std::pair<Sff2Sprite, Words> sprites[] = {
        {Sff2SpriteOf(full, Sff2Coding::Png8), KeyedByIndex(full)},
        {Sff2SpriteOf(sheer, Sff2Coding::Png24), WordsOf(sheer, false)},
        {Sff2SpriteOf(sheer, Sff2Coding::Png32), WordsOf(sheer, true)}};
    for (const auto& [sprite, words] : sprites) {
        SCOPED_TRACE(int{sprite.format});
        const std::uint32_t nothing = sprite.format == 10 ? Clear(full.palette[0]) : 0;
        std::size_t most = 0;
        std::size_t least = 40;
        for (std::size_t less = 30; less < sprite.data.size() - 60; ++less) {
            ArchiveLoad load;
            LoadCut(load, sprite, less);
            if (load.model.SpriteCount == 1) {
                // There is no line, or not even a header.
                EXPECT_THAT(load.Texts(), ElementsAre(HasSubstr("Group 7 Image 8\r\nPNG")));
                continue;
            }
            ASSERT_EQ(load.model.SpriteCount, 2);
            EXPECT_THAT(load.Texts(), ElementsAre(AllOf(HasSubstr("Group 7 Image 8\r\nPNG"),
                                                        HasSubstr("The file ends in it"))));
            const Words seen = load.Pixels(1);
            std::size_t lines = 0;
            while (lines < 40 &&
                   std::equal(seen.begin() + static_cast<std::ptrdiff_t>(lines * 6),
                              seen.begin() + static_cast<std::ptrdiff_t>(lines * 6 + 6),
                              words.begin() + static_cast<std::ptrdiff_t>(lines * 6))) {
                ++lines;
            }
            for (std::size_t at = lines * 6; at < seen.size(); ++at) {
                ASSERT_TRUE(seen[at] == nothing || seen[at] == words[at]) << at << " " << less;
            }
            most = std::max(most, lines);
            least = std::min(least, lines);
        }
        EXPECT_GT(most, 20U);
        EXPECT_LT(least, 20U);
    }
}

TEST(Sff2Faults, NumbersThatTheFileHasNoRoomFor) {
    const Sff2Archive archive = {{NumberedPalette(1)}, {StripesSprite(0), StripesSprite(1)}};
    const auto with = [&](std::string name, std::vector<Seen> seen, const std::string& said,
                          auto change) {
        Sff2Case row = {std::move(name), archive, std::move(seen), {}};
        if (!said.empty()) {
            row.said = {AllOf(StartsWith("SFF Error:  stages/test.sff\r\n"), HasSubstr(said))};
        }
        change(row.options);
        return row;
    };
    std::vector<Sff2Case> rows;
    // With the sprites at its end the file has exactly two.
    const std::array<Sff2Part, 4> spritesLast = {Sff2Part::Palettes, Sff2Part::Ldata,
                                                 Sff2Part::Tdata, Sff2Part::Sprites};
    for (const std::uint32_t number : {3U, 65536U, 0x80000000U, 0xFFFFFFFFU}) {
        rows.push_back(with("sprites", {StripesAt(0), StripesAt(1)},
                            "Sprite 3 of " + std::to_string(number) + ": the file ends there.",
                            [&](Sff2Options& options) {
                                options.parts = spritesLast;
                                options.spritesNumber = number;
                            }));
        rows.push_back(with("palettes", {StripesAt(0), StripesAt(1)}, "",
                            [&](Sff2Options& options) { options.palettesNumber = number; }));
    }
    for (const std::uint32_t offset : {0x10000U, 0x80000000U, 0xFFFFFFFFU}) {
        rows.push_back(with("sprites behind the file", {}, "Sprite 1 of 2: the file ends there.",
                            [&](Sff2Options& options) { options.spritesOffset = offset; }));
        Sff2Case row =
            with("palettes behind the file",
                 {{0, 0, KeyedByIndex(Stripes(), Palette())},
                  {0, 1, KeyedByIndex(Stripes(), Palette())}},
                 "Palette 0", [&](Sff2Options& options) { options.palettesOffset = offset; });
        rows.push_back(row);
    }
    rows.push_back(with("fewer sprites than there are", {StripesAt(0)}, "",
                        [](Sff2Options& options) { options.spritesNumber = 1; }));
    ExpectCases(rows);
}

TEST(Sff2Faults, OffsetsBehindTheFile) {
    std::vector<Sff2Case> rows;
    for (const auto& [coding, whole] : SpriteOfEachCoding()) {
        for (const std::uint32_t offset : {0x10000U, 0x7FFFFFFFU, 0xFFFFFFFFU, 0xFFFFFE00U}) {
            for (const std::uint16_t flags : {std::uint16_t{0}, kSff2InTdata}) {
                Sff2Sprite away = whole;
                away.statedOffset = offset;
                away.flags = flags;
                rows.push_back(Dropped(NameOfCoding(coding) + (" at " + std::to_string(offset)),
                                       {away}, {Named(NameOfCoding(coding))}));
            }
        }
    }
    ExpectCases(rows);
}

TEST(Sff2Faults, BombsTakeNoMemory) {
    for (const auto& [coding, small] : SpriteOfEachCoding()) {
        for (const int side : {3000, 8000, 16000, 30000, 32767, 65535}) {
            for (const bool longData : {false, true}) {
                SCOPED_TRACE(NameOfCoding(coding) + (" " + std::to_string(side)) +
                             (longData ? " with data far beyond the file" : ""));
                Sff2Sprite bomb = small;
                bomb.width = static_cast<std::uint16_t>(side);
                bomb.height = bomb.width;
                if (bomb.format >= 10) {
                    PngOptions options;
                    options.statedWidth = bomb.width;
                    options.statedHeight = bomb.height;
                    bomb.data = coding == Sff2Coding::Png8 ? WritePng(Stripes(), options)
                                                           : WritePng(SheerPicture(6, 4), options);
                }
                if (longData) {
                    bomb.statedLength = 0xFFFFFFFF;
                }
                const Sff2Case row = Dropped("", {bomb}, {Named(NameOfCoding(coding))});
                ArchiveLoad load;
                const std::vector<std::byte> bytes = WriteSff2(row.archive);
                ExpectLoads(row, bytes, load);
                EXPECT_EQ(load.device.Created().size(), 2U) << "those of the good ones";
                EXPECT_LE(load.BytesAskedFor(), 4 * bytes.size());
            }
        }
    }
}

// Of a tenth of a bit for each pixel: its bytes can yield it, and it is larger than all textures of
// so small an archive may be.
TEST(Sff2Faults, AHugePictureOfAFewBytesIsDroppedAlone) {
    const PngShape shape{9000, 9000, 1, 0, false};
    const PngBytes lines(std::size_t{9000} * (1 + 9000 / 8));
    std::vector<PngChunk> chunks = {PngHeader(shape)};
    for (const PngChunk& chunk : PngDataChunks(Deflated(lines))) {
        chunks.push_back(chunk);
    }
    chunks.push_back({"IEND", {}});
    Sff2Sprite huge;
    huge.width = 9000;
    huge.height = 9000;
    huge.format = 10;
    huge.size = 0;
    huge.data = PngFileOf(chunks);
    const Sff2Case row = Dropped("", {huge}, {Named("PNG8", "Out of memory")});
    ArchiveLoad load;
    ExpectLoads(row, WriteSff2(row.archive), load);
    EXPECT_EQ(load.device.Created().size(), 2U);
}

// Each sprite begins two bytes after the one before it and takes all that follows: 8 MB as a
// texture, of a file of less than 200 KB. Then comes a small one.
TEST(Sff2Faults, SpritesThatLieOverEachOtherEndTheLoad) {
    constexpr std::size_t kSprites = 3000;
    Sff2Archive archive = {{NumberedPalette(1)}, {}};
    Sff2Sprite sprite;
    sprite.width = 1400;
    sprite.height = 1400;
    sprite.format = 2;
    sprite.size = 0;
    for (std::size_t i = 0; i < 1400 * 1400 / 63 + 2 * kSprites; ++i) {
        sprite.data.push_back(std::byte{0x7F});  // 63 pixels
        sprite.data.push_back(std::byte{0x11});
    }
    archive.sprites.push_back(sprite);
    sprite.data.clear();
    sprite.size.reset();
    for (std::size_t i = 1; i < kSprites; ++i) {
        sprite.image = static_cast<std::uint16_t>(i);
        sprite.statedOffset = static_cast<std::uint32_t>(1024 + 2 * i);
        sprite.statedLength = 65000;
        archive.sprites.push_back(sprite);
    }
    archive.sprites.push_back(StripesSprite(9));
    const std::vector<std::byte> bytes = WriteSff2(archive);
    ASSERT_LT(bytes.size(), 200000U);
    std::vector<Integer> counts;
    for (const unsigned helpers : {0U, 3U}) {
        ArchiveLoad load;
        load.options.Additions = true;
        load.helpers = helpers;
        load.Run(bytes);
        counts.push_back(load.model.SpriteCount);
        EXPECT_GT(load.model.SpriteCount, 10);
        EXPECT_NE(load.model.Sprites.back().image, 9) << "the rest is skipped";
        EXPECT_THAT(load.Texts(),
                    ElementsAre("SFF Error:  stages/test.sff\r\nThe sprites lie over each other.  "
                                "The rest is skipped.."));
        std::uint64_t made = 0;
        for (const TextureParameters& texture : load.device.Created()) {
            made += std::uint64_t{4} * static_cast<std::uint64_t>(texture.width) *
                    static_cast<std::uint64_t>(texture.height);
        }
        EXPECT_LE(made, 512 * bytes.size() + (std::uint64_t{256} << 20U));
        EXPECT_LE(load.BytesAskedFor(), 100 * bytes.size());
    }
    EXPECT_EQ(counts[0], counts[1]);
}

// Each is alone in its bytes; it is all of them that are too much. A small one still fits.
TEST(Sff2Faults, BeyondTheSumOfAllTexturesAreDropped) {
    constexpr int kSide = 1448;
    constexpr std::size_t kTexture = std::size_t{4} * kSide * kSide;
    constexpr std::size_t kFit = TextureBudget::kMostBytes / kTexture;
    Sff2Archive archive = {{NumberedPalette(1)}, {}};
    for (std::size_t i = 0; i < kFit + 3; ++i) {
        Sff2Sprite sprite;
        sprite.width = kSide;
        sprite.height = kSide;
        sprite.format = 3;
        sprite.size = 0;
        for (int packets = kSide * kSide / 256 + 1; packets > 0; --packets) {
            sprite.data.push_back(std::byte{255});  // 256 pixels of colour 0
            sprite.data.push_back(std::byte{0});
        }
        archive.sprites.push_back(Numbered(std::move(sprite), 7, static_cast<unsigned>(i)));
    }
    archive.sprites.push_back(StripesSprite(9));
    OneLineDevice device;
    ArchiveLoad load;
    load.options.Additions = true;
    MemoryFile file(WriteSff2(archive));
    LoadSprites(load.model, {file, load.name, device, load.messages, load.options}, load.window);
    EXPECT_EQ(load.model.Sprites.size(), kFit + 1);
    EXPECT_EQ(load.model.Sprites.back().image, 9);
    const auto first = static_cast<int>(kFit);
    EXPECT_THAT(load.Texts(), ElementsAre(Named("RLE5", "Out of memory", first),
                                          Named("RLE5", "Out of memory", first + 1),
                                          Named("RLE5", "Out of memory", first + 2)));
}

// Damaged ones that claim the same bytes.
TEST(Sff2Faults, DamagedSpritesThatLieOverEachOtherAreNotAllTried) {
    Sff2Archive archive = {{NumberedPalette(1)}, {}};
    Sff2Sprite sprite;
    sprite.width = 1000;
    sprite.height = 1000;
    sprite.format = 2;
    sprite.size = 0;
    sprite.data = std::vector<std::byte>(100000, std::byte{0x40});  // runs of no pixels
    archive.sprites.push_back(sprite);
    sprite.data.clear();
    sprite.size.reset();
    for (std::size_t i = 1; i < 3000; ++i) {
        sprite.image = static_cast<std::uint16_t>(i);
        sprite.statedOffset = static_cast<std::uint32_t>(1024 + i);
        sprite.statedLength = 90000;
        archive.sprites.push_back(sprite);
    }
    const std::vector<std::byte> bytes = WriteSff2(archive);
    for (const unsigned helpers : {0U, 3U}) {
        ArchiveLoad load;
        load.options.Additions = true;
        load.helpers = helpers;
        load.Run(bytes);
        EXPECT_EQ(load.model.SpriteCount, 0);
        EXPECT_LE(load.messages.Recorded().size(), 40U);
        EXPECT_THAT(load.Texts().back(), HasSubstr("The sprites lie over each other."));
        EXPECT_LE(load.BytesAskedFor(), 40 * bytes.size());
    }
}

// A picture of one pixel and much else, in thousands of palettes, none of which is there.
TEST(Sff2Faults, BytesWithoutPixelsAreNotReadForEverInOtherColours) {
    const PngShape shape{1, 1, 8, 0, false};
    const std::vector<PngChunk> between = {{"tEXt", PngBytes(200000, std::byte{'x'})}};
    Sff2Sprite sprite;
    sprite.width = 1;
    sprite.height = 1;
    sprite.format = 10;
    sprite.size = 0;
    sprite.data = PngFileOf(shape, between, {1});
    Sff2Archive archive = {{NumberedPalette(1)}, {sprite}};
    for (unsigned i = 1; i < 2000; ++i) {
        archive.sprites.push_back(LinkedSprite(0, i, 0, i));
    }
    const std::vector<std::byte> bytes = WriteSff2(archive);
    std::vector<std::vector<std::string>> said;
    for (const unsigned helpers : {0U, 3U}) {
        ArchiveLoad load;
        load.options.Additions = true;
        load.helpers = helpers;
        load.Run(bytes);
        EXPECT_GT(load.model.SpriteCount, 64);
        EXPECT_THAT(load.Texts().back(), HasSubstr("The sprites lie over each other."));
        EXPECT_LE(load.BytesAskedFor(), 200 * bytes.size());
        said.push_back(load.Texts());
    }
    EXPECT_EQ(said[0], said[1]);
}

TEST(Sff2Faults, MachinesWithoutPngSayItOfEachPicture) {
    const std::vector<std::byte> bytes =
        WriteSff2({{NumberedPalette(1)},
                   {StripesSprite(0), StripesSprite(1, 0, Sff2Coding::Png8),
                    Numbered(Sff2SpriteOf(SheerPicture(2, 2), Sff2Coding::Png32), 0, 2)}});
    ArchiveLoad load;
    load.options.Additions = true;
    MemoryFile file(bytes);
    LoadSprites(load.model, {file, load.name, load.device, load.messages, load.options},
                load.window);
    EXPECT_EQ(load.model.SpriteCount, 1);
    EXPECT_THAT(load.Texts(),
                ElementsAre(HasSubstr("Image 1\r\nPNG8: Bad format: PNG pictures cannot"),
                            HasSubstr("Image 2\r\nPNG32: Bad format: PNG pictures cannot")));
}

TEST(Sff2Faults, TheOnlyPictureThatFailsIsSaidToBeThat) {
    Sff2Sprite bad = StripesSprite(0);
    bad.format = 5;
    ArchiveLoad load;
    load.options.Additions = true;
    load.Run(WriteSff2({{NumberedPalette(1)}, {bad}}));
    EXPECT_THAT(load.Kinds(), ElementsAre(kMessagePcxError, kMessageOnlyImage));
}

TEST(Sff2Faults, AFileThatEndsInItsHeaderSaysSo) {
    const std::vector<std::byte> whole = WriteSff2({{NumberedPalette(1)}, {StripesSprite(0)}});
    for (const std::size_t size : {0U, 15U, 16U, 28U, 40U, 63U}) {
        ArchiveLoad load;
        load.options.Additions = true;
        load.Run(std::span(whole).first(size));
        EXPECT_THAT(load.Kinds(), ElementsAre(kMessageSffError));
        EXPECT_THAT(load.Texts(), ElementsAre(AllOf(StartsWith("SFF Error:  stages/test.sff\r\n"),
                                                    HasSubstr("Input past end of file"))));
    }
}

}  // namespace
}  // namespace scenara::test
