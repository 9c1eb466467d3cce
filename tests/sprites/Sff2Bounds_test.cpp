// SPDX-License-Identifier: MIT
//
// What a small archive of version 2 may ask for: memory and time stay in proportion to it, and what
// is sound is shown all the same.
#include <cstdint>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "HugeTextures.h"
#include "Sff2Cases.h"
#include "base/RunTimeError.h"
#include "support/PngBytes.h"

namespace scenara::test {
namespace {

using testing::Contains;
using testing::HasSubstr;

// Sprites that all name the data of the first one, each of another width.
std::vector<std::byte> SharersOf(const Sff2Sprite& first, unsigned count) {
    Sff2Archive archive = {{NumberedPalette(1)}, {first}};
    const auto length = static_cast<std::uint32_t>(first.data.size() + 4);
    for (unsigned i = 1; i < count; ++i) {
        Sff2Sprite sprite;
        sprite.format = first.format;
        sprite.width = static_cast<std::uint16_t>(first.width - i);
        sprite.height = first.height;
        sprite.image = static_cast<std::uint16_t>(i);
        sprite.statedOffset = 1024;  // after the one palette
        sprite.statedLength = length;
        archive.sprites.push_back(sprite);
    }
    return WriteSff2(archive);
}

std::uint64_t TextureBytesOf(const ArchiveLoad& load) {
    std::uint64_t sum = 0;
    for (const TextureParameters& made : load.device.Created()) {
        sum += sizeof(std::uint32_t) * static_cast<std::uint64_t>(made.width) *
               static_cast<std::uint64_t>(made.height);
    }
    return sum;
}

TEST(Sff2Bounds, DataThatClaimMuchAndHoldLittleGetNoTexture) {
    constexpr int kSide = 3000;
    Sff2Sprite sprite;
    sprite.format = 2;
    sprite.width = kSide;
    sprite.height = kSide;
    sprite.size = 0;
    // Runs of no pixels of colour 64, so few bytes that they could be it.
    sprite.data.assign(kSide * kSide / 100, std::byte{0x40});
    for (const unsigned helpers : {0U, 3U}) {
        ArchiveLoad load;
        load.options.Additions = true;
        load.helpers = helpers;
        load.Run(SharersOf(sprite, 50));
        EXPECT_EQ(load.model.SpriteCount, 0);
        EXPECT_TRUE(load.device.Created().empty());
        EXPECT_THAT(load.Texts(), Contains(HasSubstr("end before")));
    }
}

PngBytes PngWithAWrongSum(int side) {
    const PngShape shape{side, side, 1, 0, false};
    const PngBytes lines(static_cast<std::size_t>(side) *
                         static_cast<std::size_t>(1 + (side + 7) / 8));
    PngBytes packed = Deflated(lines, 9);
    packed.back() ^= std::byte{1};
    std::vector<PngChunk> chunks = {PngHeader(shape)};
    for (const PngChunk& chunk : PngDataChunks(packed)) {
        chunks.push_back(chunk);
    }
    chunks.push_back({"IEND", {}});
    return PngFileOf(chunks);
}

TEST(Sff2Bounds, DamagedPngsAreTriedUpToASum) {
    constexpr int kSide = 3000;  // 36 MB each
    Sff2Sprite bomb;
    bomb.format = 10;
    bomb.width = 2000;
    bomb.height = 1;
    bomb.size = 0;
    bomb.data = PngWithAWrongSum(kSide);
    for (const unsigned helpers : {0U, 3U}) {
        ArchiveLoad load;
        load.options.Additions = true;
        load.helpers = helpers;
        load.Run(SharersOf(bomb, 500));
        EXPECT_EQ(load.model.SpriteCount, 0);
        EXPECT_LE(TextureBytesOf(load), std::uint64_t{400} << 20U) << helpers;
        EXPECT_THAT(load.Texts().back(), HasSubstr("Too many of its pictures are damaged."));
    }
}

TEST(Sff2Bounds, ColourVariantsAreAllShown) {
    IndexedPicture picture{640, 360, {}, PaletteOf(1)};
    for (int i = 0; i < 640 * 360; ++i) {
        picture.pixels.push_back(static_cast<std::uint8_t>(i / 9));
    }
    constexpr unsigned kVariants = 600;  // 550 MB
    Sff2Archive archive = {{NumberedPalette(1)}, {Sff2SpriteOf(picture, Sff2Coding::Rle8)}};
    for (unsigned i = 1; i < kVariants; ++i) {
        Sff2Palette palette = NumberedPalette(static_cast<std::uint8_t>(i));
        palette.item = static_cast<std::uint16_t>(i + 1);
        archive.palettes.push_back(palette);
        archive.sprites.push_back(LinkedSprite(0, i, 0, i));
    }
    const std::vector<std::byte> bytes = WriteSff2(archive);
    OneLineDevice device;
    ArchiveLoad load;
    load.options.Additions = true;
    load.file = std::make_unique<MemoryFile>(std::span(bytes));
    LoadSprites(load.model,
                {*load.file, load.name, device, load.messages, load.options, &load.png, 0},
                load.window);
    EXPECT_EQ(load.model.Sprites.size(), kVariants);
    EXPECT_TRUE(load.Texts().empty());
}

// A file of which some bytes cannot be read.
class BadSector : public InputFile {
public:
    BadSector(std::span<const std::byte> bytes, std::uint64_t from, std::uint64_t to)
        : file_(bytes), from_(from), to_(to) {}

    [[nodiscard]] std::uint64_t Size() const override { return file_.Size(); }
    std::size_t ReadAt(std::uint64_t position, std::span<std::byte> into) override {
        if (position < to_ && position + into.size() > from_) {
            throw RunTimeError(RunTimeErrorKind::DeviceIo);
        }
        return file_.ReadAt(position, into);
    }

private:
    MemoryFile file_;
    std::uint64_t from_;
    std::uint64_t to_;
};

TEST(Sff2Bounds, APaletteThatCannotBeReadIsBlack) {
    constexpr unsigned kSprites = 40;
    Sff2Archive archive = {{NumberedPalette(1), NumberedPalette(2)}, {}};
    for (unsigned i = 0; i < kSprites; ++i) {
        archive.sprites.push_back(StripesSprite(i, i == 25 ? 1 : 0));
    }
    const std::vector<std::byte> bytes = WriteSff2(archive);
    const std::uint64_t second = 512 + 2 * 16 + kSprites * 28 + 1024;
    for (const unsigned helpers : {0U, 1U, 3U}) {
        ArchiveLoad load;
        load.options.Additions = true;
        BadSector file(bytes, second, second + 1024);
        LoadSprites(
            load.model,
            {file, load.name, load.device, load.messages, load.options, &load.png, helpers, 0},
            load.window);
        EXPECT_EQ(load.model.Sprites.size(), kSprites) << helpers;
        EXPECT_THAT(load.Texts(), testing::ElementsAre(HasSubstr("Palette 1 is not whole")));
    }
}

TEST(Sff2Bounds, ImagesThatNobodyCanNameAreLeftOut) {
    ArchiveLoad load;
    load.options.Additions = true;
    load.Run(WriteSff2({{NumberedPalette(1)},
                        {Numbered(StripesSprite(0), 1, 32767), Numbered(StripesSprite(0), 1, 32768),
                         Numbered(StripesSprite(0), 1, 65535)}}));
    ASSERT_EQ(load.model.Sprites.size(), 1U);
    EXPECT_EQ(load.Sprite(0).image, 32767);
    EXPECT_THAT(load.Texts(), testing::ElementsAre(HasSubstr("Group 1 Image 32768"),
                                                   testing::AllOf(HasSubstr("Group 1 Image 65535"),
                                                                  HasSubstr("above 32767"))));
}

TEST(Sff2Bounds, EachOfTwoThatShareDamagedDataIsNamed) {
    Sff2Sprite bad = Sff2SpriteOf(Stripes(), Sff2Coding::Lz5);
    bad.data = Bytes({1, 0x3F, 0, 0x00, 0xFF, 0xFF});
    Sff2Sprite same = bad;
    same.image = 1;
    same.data.clear();
    same.size.reset();
    same.statedOffset = 1024;
    same.statedLength = 10;
    ArchiveLoad load;
    load.options.Additions = true;
    load.Run(WriteSff2({{NumberedPalette(1)}, {bad, same}}));
    EXPECT_THAT(load.Texts(),
                testing::ElementsAre(HasSubstr("Image 0\r\nLZ5: "), HasSubstr("Image 1\r\nLZ5: ")));
}

}  // namespace
}  // namespace scenara::test
