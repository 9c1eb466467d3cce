// SPDX-License-Identifier: MIT
#include "samplemaker/Sff2Writer.h"

#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "FileParts.h"

namespace scenara::samplemaker {
namespace {

const std::vector<std::byte> kTwo = {std::byte{0xAA}, std::byte{0xAB}};
const std::vector<std::byte> kThree = {std::byte{0xBA}, std::byte{0xBB}, std::byte{0xBC}};

// Where the header says that the parts are.
constexpr std::size_t kSpritesAt = 36;
constexpr std::size_t kPalettesAt = 44;
constexpr std::size_t kLdataAt = 52;
constexpr std::size_t kTdataAt = 60;

Sff2Palette TwoColours() {
    Sff2Palette palette;
    palette.colours = {{1, 2, 3, 4}, {5, 6, 7, 8}};
    return palette;
}

Sff2Sprite Holding(std::vector<std::byte> data, std::uint16_t flags = 0) {
    Sff2Sprite sprite;
    sprite.data = std::move(data);
    sprite.flags = flags;
    return sprite;
}

TEST(Sff2Writer, FileHeader) {
    const std::vector<std::byte> file =
        WriteSff2({{TwoColours()}, {Holding(kTwo), Holding(kThree, kSff2InTdata)}});

    // clang-format off
    EXPECT_EQ(Part(file, 0, 68), (Values{
        'E', 'l', 'e', 'c', 'b', 'y', 't', 'e', 'S', 'p', 'r', 0,
        0, 1, 0, 2,
        0, 0, 0, 0, 0, 0, 0, 0,
        0, 0, 0, 2,
        0, 0, 0, 0, 0, 0, 0, 0,
        0x10, 2, 0, 0,  2, 0, 0, 0,    // sprites at 528
        0, 2, 0, 0,     1, 0, 0, 0,    // palettes at 512
        0x48, 2, 0, 0,  10, 0, 0, 0,   // ldata at 584
        0x52, 2, 0, 0,  3, 0, 0, 0})); // tdata at 594
    // clang-format on
    EXPECT_EQ(Part(file, 68, 512 - 68), Values(512 - 68, 0));
    EXPECT_EQ(file.size(), 512U + 16 + 2 * 28 + 10 + 3);
}

TEST(Sff2Writer, PaletteNodeAndItsColours) {
    Sff2Palette palette = TwoColours();
    palette.group = 65535;
    palette.item = 258;
    Sff2Palette linked;
    linked.link = 300;
    const std::vector<std::byte> file = WriteSff2({{TwoColours(), palette, linked}, {}});

    // clang-format off
    EXPECT_EQ(Part(file, 512, 48), (Values{
        1, 0,        1, 0,  2, 0,  0, 0,    0, 0, 0, 0,  8, 0, 0, 0,
        0xFF, 0xFF,  2, 1,  2, 0,  0, 0,    8, 0, 0, 0,  8, 0, 0, 0,
        1, 0,        1, 0,  0, 0,  0x2C, 1, 0, 0, 0, 0,  0, 0, 0, 0}));
    // clang-format on
    EXPECT_EQ(Part(file, 560, 8), (Values{1, 2, 3, 4, 5, 6, 7, 8}));
}

TEST(Sff2Writer, SpriteNode) {
    Sff2Sprite sprite = Holding(kTwo, kSff2InTdata);
    sprite.group = 65535;
    sprite.image = 258;
    sprite.width = 640;
    sprite.height = 65535;
    sprite.axisX = -17;
    sprite.axisY = 160;
    sprite.link = 9;
    sprite.format = 4;
    sprite.depth = 5;
    sprite.palette = 513;
    const std::vector<std::byte> file = WriteSff2({{}, {Holding(kThree, kSff2InTdata), sprite}});

    // clang-format off
    EXPECT_EQ(Part(file, 540, 28), (Values{
        0xFF, 0xFF,
        2, 1,
        0x80, 2,  0xFF, 0xFF,  // size
        0xEF, 0xFF,  160, 0,   // axis
        9, 0,
        4, 5,                  // format, depth
        3, 0, 0, 0,            // offset
        2, 0, 0, 0,            // length
        1, 2,                  // palette
        1, 0}));
    // clang-format on
    EXPECT_EQ(Part(file, 568, 5), (Values{0xBA, 0xBB, 0xBC, 0xAA, 0xAB}));
}

TEST(Sff2Writer, TheSizeStandsBeforeTheDataAndBelongsToThem) {
    Sff2Sprite sprite = Holding(kTwo);
    sprite.size = 0x12345678;
    const std::vector<std::byte> file = WriteSff2({{}, {sprite}});
    EXPECT_EQ(U32At(file, 512 + 20), 6U);
    EXPECT_EQ(Part(file, 540, 6), (Values{0x78, 0x56, 0x34, 0x12, 0xAA, 0xAB}));
}

TEST(Sff2Writer, LinkedNodesHaveNoOffset) {
    Sff2Sprite linked;
    linked.link = 0;
    const std::vector<std::byte> file = WriteSff2({{TwoColours()}, {Holding(kTwo), linked}});
    EXPECT_EQ(U32At(file, 528 + 16), 8U);
    EXPECT_EQ(U32At(file, 528 + 28 + 16), 0U);
    EXPECT_EQ(U32At(file, 528 + 28 + 20), 0U);
}

TEST(Sff2Writer, TheDataMayLieInAnyOrderWithGaps) {
    std::vector<Sff2Sprite> sprites = {Holding(kTwo), Holding(kThree)};
    sprites[1].gapBefore = 1;
    Sff2Palette palette = TwoColours();
    palette.gapBefore = 2;
    Sff2Options options;
    options.palettesLast = true;
    options.dataOrder = {1, 0};
    options.gapValue = 0xEE;
    const std::vector<std::byte> file = WriteSff2({{palette}, sprites}, options);

    EXPECT_EQ(U32At(file, 528 + 16), 4U);
    EXPECT_EQ(U32At(file, 528 + 28 + 16), 1U);
    EXPECT_EQ(U32At(file, 512 + 8), 8U);
    EXPECT_EQ(Part(file, 584, 16), (Values{0xEE, 0xBA, 0xBB, 0xBC, 0xAA, 0xAB, 0xEE, 0xEE,  //
                                           1, 2, 3, 4, 5, 6, 7, 8}));
}

TEST(Sff2Writer, ThePartsMayLieInAnyOrderWithGaps) {
    Sff2Options options;
    options.parts = {Sff2Part::Tdata, Sff2Part::Ldata, Sff2Part::Sprites, Sff2Part::Palettes};
    options.gaps = {1, 2, 3, 4};
    options.gapValue = 0xEE;
    const std::vector<std::byte> file =
        WriteSff2({{TwoColours()}, {Holding(kTwo), Holding(kThree, kSff2InTdata)}}, options);

    EXPECT_EQ(U32At(file, kTdataAt), 513U);
    EXPECT_EQ(U32At(file, kLdataAt), 513U + 3 + 2);
    EXPECT_EQ(U32At(file, kSpritesAt), 518U + 10 + 3);
    EXPECT_EQ(U32At(file, kPalettesAt), 531U + 56 + 4);
    EXPECT_EQ(file.size(), 591U + 16);
    EXPECT_EQ(Part(file, 512, 7), (Values{0xEE, 0xBA, 0xBB, 0xBC, 0xEE, 0xEE, 1}));
}

TEST(Sff2Writer, HeaderAndNodesSayWhatTheyAreToldTo) {
    Sff2Options options;
    options.version = kSff200;
    options.readerVersion = {9, 8, 7, 6};
    options.spritesOffset = 101;
    options.spritesNumber = 102;
    options.palettesOffset = 103;
    options.palettesNumber = 104;
    options.ldataOffset = 105;
    options.ldataLength = 106;
    options.tdataOffset = 107;
    options.tdataLength = 0xFFFFFFFF;
    Sff2Palette palette = TwoColours();
    palette.statedColours = 1000;
    palette.statedOffset = 201;
    palette.statedLength = 202;
    Sff2Sprite sprite = Holding(kTwo);
    sprite.statedOffset = 301;
    sprite.statedLength = 0;
    const std::vector<std::byte> file = WriteSff2({{palette}, {sprite}}, options);

    EXPECT_EQ(Part(file, 12, 4), (Values{0, 0, 0, 2}));
    EXPECT_EQ(Part(file, 24, 4), (Values{9, 8, 7, 6}));
    for (std::uint32_t i = 0; i < 7; ++i) {
        EXPECT_EQ(U32At(file, kSpritesAt + 4 * i), 101 + i);
    }
    EXPECT_EQ(U32At(file, kTdataAt + 4), 0xFFFFFFFFU);
    EXPECT_EQ(Part(file, 512 + 4, 2), (Values{0xE8, 3}));
    EXPECT_EQ(U32At(file, 512 + 8), 201U);
    EXPECT_EQ(U32At(file, 512 + 12), 202U);
    EXPECT_EQ(U32At(file, 528 + 16), 301U);
    EXPECT_EQ(U32At(file, 528 + 20), 0U);
    EXPECT_EQ(file.size(), 528U + 28 + 10);
}

TEST(Sff2Writer, RefusesWhatTheFieldsCannotHold) {
    Sff2Palette palette;
    palette.colours.resize(65536);
    EXPECT_THROW(WriteSff2({{palette}, {}}), std::invalid_argument);
    palette.colours.pop_back();
    EXPECT_NO_THROW(WriteSff2({{palette}, {}}));

    Sff2Options options;
    options.dataOrder = {0, 0};
    EXPECT_THROW(WriteSff2({{}, {Holding(kTwo), Holding(kTwo)}}, options), std::invalid_argument);
    options.dataOrder = {0};
    EXPECT_THROW(WriteSff2({{}, {Holding(kTwo), Holding(kTwo)}}, options), std::invalid_argument);
    options = {};
    options.parts[0] = Sff2Part::Tdata;
    EXPECT_THROW(WriteSff2({}, options), std::invalid_argument);
}

}  // namespace
}  // namespace scenara::samplemaker
