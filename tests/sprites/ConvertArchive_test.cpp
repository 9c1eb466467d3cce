// SPDX-License-Identifier: MIT
//
// Archives of version 1 that the program loads, beside what a literal reader makes of them after
// they were converted.
#include "support/ConvertArchive.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <set>
#include <span>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "ArchiveLoad.h"
#include "LiteralSff2.h"
#include "samplemaker/PcxWriter.h"
#include "sprites/SpriteArchive.h"
#include "support/Rounds.h"

namespace scenara::test {
namespace {

using File = std::vector<std::byte>;

struct CodingName {
    const char* name;
    ConvertTo coding;
};
constexpr CodingName kCodings[] = {
    {"raw", ConvertTo::Raw}, {"RLE8", ConvertTo::Rle8}, {"RLE5", ConvertTo::Rle5},
    {"LZ5", ConvertTo::Lz5}, {"PNG8", ConvertTo::Png8}, {"mixed", ConvertTo::Mixed},
};

void ExpectSameSprite(const LiteralSprite& sprite, const SpriteEntry& entry) {
    EXPECT_EQ(static_cast<std::int16_t>(sprite.group), entry.group);
    EXPECT_EQ(static_cast<std::int16_t>(sprite.image), entry.image);
    EXPECT_EQ(sprite.axisX, entry.axisX);
    EXPECT_EQ(sprite.axisY, entry.axisY);
    EXPECT_EQ(sprite.isLinked, entry.linkedTo >= 0);
    EXPECT_EQ(static_cast<int>(sprite.width), entry.texture->Width());
    EXPECT_EQ(static_cast<int>(sprite.height), entry.texture->Height());
    EXPECT_EQ(sprite.pixels, PixelsOf(*entry.texture));
}

void ExpectSameStage(const File& version1, const ConvertOptions& options) {
    ArchiveLoad load;
    load.options = ViewOptions();
    load.Run(version1);
    const File converted = ConvertArchive(version1, options);
    const std::vector<LiteralSprite> sprites = LiteralSff2(converted).Sprites();
    ASSERT_EQ(sprites.size(), load.model.Sprites.size());
    for (std::size_t i = 0; i < sprites.size(); ++i) {
        SCOPED_TRACE("sprite " + std::to_string(i));
        ExpectSameSprite(sprites[i], load.model.Sprites[i]);
        ASSERT_FALSE(testing::Test::HasFailure());
    }
}

// The pictures of a character, the last one first.
void ExpectSameCharacter(const File& version1, const ConvertOptions& options) {
    MemoryFile file{std::span<const std::byte>(version1)};
    const std::string name = "test.sff";
    RecordingDevice device;
    HeadlessMessages messages;
    const ViewOptions view;
    ArchiveRules rules;
    rules.palettes = ArchiveRules::Palettes::InForce;
    const auto archive = OpenArchive({file, name, device, messages, view}, rules);
    while (archive->Next()) {
    }
    const std::size_t count = archive->Count();
    ASSERT_FALSE(archive->Reach(count));
    const File converted = ConvertArchive(version1, options);
    const std::vector<LiteralSprite> sprites = LiteralSff2(converted).Sprites();
    ASSERT_EQ(sprites.size(), count);
    for (std::size_t i = sprites.size(); i-- > 0;) {
        SCOPED_TRACE("sprite " + std::to_string(i));
        const SpriteArchive::Shown shown = archive->PictureOf(i);
        ASSERT_TRUE(shown.there);
        auto load = archive->Begin(shown.place);
        ASSERT_NE(load, nullptr);
        load->Decode();
        SpritePicture picture;
        ASSERT_TRUE(archive->Finish(std::move(load), i, picture));
        ASSERT_EQ(sprites[i].pixels, PixelsOf(*picture.texture));
        EXPECT_EQ(sprites[i].axisX, archive->At(i).axisX);
    }
}

Palette RandomPalette(Random& random) {
    Palette palette;
    for (Rgb& color : palette) {
        color = {random.Byte(), random.Byte(), random.Byte()};
    }
    return palette;
}

// Pictures of all depths, with palettes of their own, shared and missing ones, and links.
File RandomVersion1(Random& random) {
    std::vector<Sff1Subfile> subfiles;
    for (unsigned left = 1 + random.Below(12); left > 0; --left) {
        const auto group = static_cast<std::int16_t>(random.Below(5));
        const std::int16_t image = random.Number();
        Sff1Subfile subfile;
        if (!subfiles.empty() && random.OneIn(4)) {
            subfile = Linked(
                group, image,
                static_cast<std::int16_t>(random.Below(static_cast<unsigned>(subfiles.size()))));
        } else {
            const unsigned colors = random.OneIn(3) ? 256 : 1 + random.Below(32);
            IndexedPicture picture{1 + static_cast<int>(random.Below(40)),
                                   1 + static_cast<int>(random.Below(40)),
                                   {},
                                   RandomPalette(random)};
            for (int i = 0; i < picture.width * picture.height; ++i) {
                const bool repeats = i > 0 && !random.OneIn(3);
                picture.pixels.push_back(repeats ? picture.pixels.back()
                                                 : static_cast<std::uint8_t>(random.Below(colors)));
            }
            samplemaker::PcxOptions pcx;
            const bool shares = random.OneIn(2);
            if (shares && random.OneIn(2)) {
                pcx.trailingPalette = samplemaker::TrailingPalette::None;
            }
            const bool isShallow = colors <= 16 && random.OneIn(4);
            subfile = Shown(
                group, image,
                WritePcx(picture, pcx,
                         isShallow ? samplemaker::PcxDepth::Bits4 : samplemaker::PcxDepth::Bits8));
            subfile.samePalette = shares;
        }
        subfiles.push_back(WithAxis(std::move(subfile), random.Number(), random.Number()));
    }
    return WriteSff1(subfiles);
}

TEST(ConvertArchive, ShowsTheSameOfRandomArchives) {
    Random random(31);
    for (int round = Rounds(400); round > 0; --round) {
        const File version1 = RandomVersion1(random);
        const CodingName& coding = kCodings[random.Below(6)];
        ConvertOptions options;
        options.coding = coding.coding;
        if (random.OneIn(3)) {
            options.version = samplemaker::kSff200;
        }
        SCOPED_TRACE(std::string(coding.name) + ", round " + std::to_string(round));
        ExpectSameStage(version1, options);
        options.reader = ConvertFor::Character;
        ExpectSameCharacter(version1, options);
        ASSERT_FALSE(HasFailure());
    }
}

std::vector<unsigned> FormatsOf(const File& version1, const ConvertOptions& options) {
    std::vector<unsigned> formats;
    for (const LiteralSprite& sprite : LiteralSff2(ConvertArchive(version1, options)).Sprites()) {
        formats.push_back(sprite.format);
    }
    return formats;
}

TEST(ConvertArchive, UsesTheCodingThatItIsAskedFor) {
    std::vector<Sff1Subfile> subfiles;
    for (std::int16_t i = 0; i < 5; ++i) {
        subfiles.push_back(Shown(0, i, WritePcx(StripedPicture(9, 9, PaletteOf(1), 32))));
    }
    subfiles.push_back(Shown(0, 5, WritePcx(StripedPicture(9, 9, PaletteOf(1)))));
    const File version1 = WriteSff1(subfiles);

    using Formats = std::vector<unsigned>;
    const auto converted = [&](ConvertTo coding, std::array<std::uint8_t, 4> version) {
        return FormatsOf(version1, {ConvertFor::Stage, coding, version});
    };
    const auto in201 = [&](ConvertTo coding) { return converted(coding, samplemaker::kSff201); };
    EXPECT_EQ(in201(ConvertTo::Raw), (Formats{0, 0, 0, 0, 0, 0}));
    EXPECT_EQ(in201(ConvertTo::Rle8), (Formats{2, 2, 2, 2, 2, 2}));
    EXPECT_EQ(in201(ConvertTo::Rle5), (Formats{3, 3, 3, 3, 3, 2}));
    EXPECT_EQ(in201(ConvertTo::Lz5), (Formats{4, 4, 4, 4, 4, 2}));
    EXPECT_EQ(in201(ConvertTo::Png8), (Formats{10, 10, 10, 10, 10, 10}));
    EXPECT_EQ(in201(ConvertTo::Mixed), (Formats{4, 0, 2, 10, 3, 2}));
    EXPECT_EQ(converted(ConvertTo::Mixed, samplemaker::kSff200), (Formats{4, 0, 2, 0, 3, 2}));
}

TEST(ConvertArchive, PicturesShareAPaletteAsLongAsTheirColorsAgree) {
    const auto picture = [](std::uint8_t seed, unsigned colors) {
        return WritePcx(StripedPicture(9, 9, PaletteOf(seed), colors));
    };
    const File version1 =
        WriteSff1({Shown(0, 0, picture(1, 20)), Sharing(Shown(0, 1, picture(9, 256))),
                   Shown(0, 2, picture(1, 50)), Shown(0, 3, picture(2, 50)), Linked(0, 4, 0)});
    const File converted = ConvertArchive(version1, {ConvertFor::Stage, ConvertTo::Rle8});
    std::vector<unsigned> palettes;
    for (const LiteralSprite& sprite : LiteralSff2(converted).Sprites()) {
        palettes.push_back(sprite.palette);
    }
    EXPECT_EQ(palettes, (std::vector<unsigned>{0, 0, 0, 1, 0}));
    EXPECT_EQ(LiteralSff2(converted).Palettes(), 2U);
    EXPECT_EQ(LiteralSff2(ConvertArchive(version1)).Palettes(), 4U) << "linked ones behind them";
}

TEST(ConvertArchive, SeveralPlanesBecomeIndices) {
    const File version1 = WriteSff1({Shown(0, 0, WritePcx(StripedPicture(4, 4, PaletteOf(3)))),
                                     Shown(0, 1, WritePcx(TrueColorPicture(12, 12, 5)))});
    ExpectSameStage(version1, {});
    ExpectSameCharacter(version1, {ConvertFor::Character, ConvertTo::Png8});
}

TEST(ConvertArchive, RaisesWhatCannotBeConverted) {
    const auto sound = Shown(0, 0, WritePcx(StripedPicture(4, 4, PaletteOf(3))));
    struct Row {
        const char* name;
        File version1;
    };
    File endsEarly = WriteSff1({sound, sound});
    endsEarly.resize(600);
    const Row rows[] = {
        {"a damaged picture", WriteSff1({sound, Shown(0, 1, BrokenPcx())})},
        {"a link to itself", WriteSff1({sound, Linked(0, 1, 1)})},
        {"a chain that breaks", endsEarly},
        {"no archive", File(5)},
        {"too many colours", WriteSff1({Shown(0, 0, WritePcx(TrueColorPicture(99, 99, 5)))})},
        {"version 2", ConvertArchive(WriteSff1({sound}))},
    };
    for (const Row& row : rows) {
        EXPECT_THROW(static_cast<void>(ConvertArchive(row.version1)), std::runtime_error)
            << row.name;
    }
}

File ReadWhole(const std::filesystem::path& path) {
    std::ifstream stream(path, std::ios::binary);
    const std::string text((std::istreambuf_iterator<char>(stream)), {});
    const auto bytes = std::as_bytes(std::span(text));
    return {bytes.begin(), bytes.end()};
}

TEST(ConvertArchive, ShowsTheSameOfRealArchives) {
    const auto folder = std::filesystem::path(SCENARA_SAMPLE_DATA);
    if (!std::filesystem::is_directory(folder)) {
        GTEST_SKIP() << "no folder " << folder << " (set SCENARA_SAMPLE_DATA to a MUGEN folder)";
    }
    for (const char* const stage : {"stages/kfm.sff", "stages/stage0.sff"}) {
        SCOPED_TRACE(stage);
        ExpectSameStage(ReadWhole(folder / stage), {});
    }
    SCOPED_TRACE("kfm");
    ExpectSameCharacter(ReadWhole(folder / "chars/kfm/kfm.sff"),
                        {ConvertFor::Character, ConvertTo::Mixed});
}

}  // namespace
}  // namespace scenara::test
