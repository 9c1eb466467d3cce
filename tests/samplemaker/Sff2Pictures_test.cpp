// SPDX-License-Identifier: MIT
#include "samplemaker/Sff2Pictures.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <stdexcept>
#include <vector>

#include <gtest/gtest.h>

#include "FileParts.h"
#include "samplemaker/PngWriter.h"

namespace scenara::samplemaker {
namespace {

IndexedPicture Indexed() {
    IndexedPicture picture{3, 2, {1, 2, 3, 31, 31, 31}, {}};
    picture.palette[0] = {9, 8, 7};
    picture.palette[255] = {6, 5, 4};
    return picture;
}

AlphaPicture Translucent() {
    return {2, 1, {{1, 2, 3, 4}, {5, 6, 7, 8}}};
}

struct CodingRow {
    Sff2Coding coding;
    bool ofColours;
    int format;
    int depth;
    std::optional<std::uint32_t> size;  // what stands before the data
    Values data;                        // how they begin
};

TEST(Sff2Pictures, EachCodingHasItsFieldsAndData) {
    const Values png = {0x89, 'P', 'N', 'G'};
    const CodingRow rows[] = {
        {Sff2Coding::Raw, false, 0, 8, std::nullopt, {1, 2, 3, 31, 31, 31}},
        {Sff2Coding::Rle8, false, 2, 8, 6, {1, 2, 3, 0x43, 31}},
        {Sff2Coding::Rle5, false, 3, 5, 6, {0, 0x83, 1, 2, 3, 0x5F}},
        {Sff2Coding::Lz5, false, 4, 5, 6, {0, 0x21, 0x22, 0x23, 0x7F}},
        {Sff2Coding::Png8, false, 10, 8, 6, png},
        {Sff2Coding::Raw24, true, 0, 24, std::nullopt, {1, 2, 3, 5, 6, 7}},
        {Sff2Coding::Raw32, true, 0, 32, std::nullopt, {1, 2, 3, 4, 5, 6, 7, 8}},
        {Sff2Coding::Png24, true, 11, 24, 6, png},
        {Sff2Coding::Png32, true, 12, 32, 8, png},
    };
    for (const CodingRow& row : rows) {
        SCOPED_TRACE(static_cast<int>(row.coding));
        const Sff2Sprite sprite = row.ofColours ? Sff2SpriteOf(Translucent(), row.coding)
                                                : Sff2SpriteOf(Indexed(), row.coding);
        EXPECT_EQ(sprite.width, row.ofColours ? 2 : 3);
        EXPECT_EQ(sprite.height, row.ofColours ? 1 : 2);
        EXPECT_EQ(sprite.format, row.format);
        EXPECT_EQ(sprite.depth, row.depth);
        EXPECT_EQ(sprite.size, row.size);
        EXPECT_EQ(Part(sprite.data, 0, row.data == png ? 4 : 100), row.data);
        if (row.ofColours) {
            EXPECT_THROW(Sff2SpriteOf(Indexed(), row.coding), std::invalid_argument);
        } else {
            EXPECT_THROW(Sff2SpriteOf(Translucent(), row.coding), std::invalid_argument);
        }
    }
}

TEST(Sff2Pictures, AnIndexedPngHasAPaletteThatMeansNothing) {
    PngOptions options;
    options.palette = PngPalette::BlackAndClear;
    EXPECT_EQ(Sff2SpriteOf(Indexed(), Sff2Coding::Png8).data, WritePng(Indexed(), options));
}

TEST(Sff2Pictures, PacksAsAsked) {
    EXPECT_EQ(Sff2SpriteOf(Indexed(), Sff2Coding::Lz5, {7}).data, PackLz5(Indexed().pixels, {7}));
}

TEST(Sff2Pictures, PalettesAreOpaqueButForColour0) {
    const Sff2Palette whole = Sff2PaletteOf(Indexed().palette);
    ASSERT_EQ(whole.colours.size(), 256U);
    EXPECT_EQ(whole.colours[0], (Rgba{9, 8, 7, 0}));
    EXPECT_EQ(whole.colours[1], (Rgba{0, 0, 0, 255}));
    EXPECT_EQ(whole.colours[255], (Rgba{6, 5, 4, 255}));
    EXPECT_EQ(Sff2PaletteOf(Indexed().palette, 32).colours.size(), 32U);
    EXPECT_THROW(Sff2PaletteOf(Indexed().palette, 0), std::invalid_argument);
    EXPECT_THROW(Sff2PaletteOf(Indexed().palette, 257), std::invalid_argument);
}

TEST(Sff2Pictures, RefusesWhatIsNoPicture) {
    IndexedPicture picture = Indexed();
    picture.pixels.pop_back();
    EXPECT_THROW(Sff2SpriteOf(picture, Sff2Coding::Raw), std::invalid_argument);
    picture = {65536, 1, std::vector<std::uint8_t>(65536), {}};
    EXPECT_THROW(Sff2SpriteOf(picture, Sff2Coding::Raw), std::invalid_argument);
    EXPECT_THROW(Sff2SpriteOf(AlphaPicture{0, 1, {}}, Sff2Coding::Raw32), std::invalid_argument);
    picture = Indexed();
    picture.pixels[0] = 32;
    EXPECT_THROW(Sff2SpriteOf(picture, Sff2Coding::Rle5), std::invalid_argument);
}

}  // namespace
}  // namespace scenara::samplemaker
