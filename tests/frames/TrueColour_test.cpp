// SPDX-License-Identifier: MIT
//
// Pictures with alpha, from archives of version 2, over painted ground: true colours and palettes
// with alpha, as golden pictures (with --update they are made anew), and in numbers that were
// worked out by hand.
#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <ostream>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "frames/PaintedStage.h"
#include "samplemaker/Sff2Pictures.h"
#include "samplemaker/Sff2Writer.h"
#include "support/GoldenPicture.h"
#include "support/MemoryFiles.h"

namespace scenara::test {
namespace {

using samplemaker::AlphaPicture;
using samplemaker::IndexedPicture;
using samplemaker::Rgba;
using samplemaker::Sff2Archive;
using samplemaker::Sff2Coding;
using samplemaker::Sff2Palette;
using samplemaker::Sff2Sprite;

Sff2Sprite Numbered(Sff2Sprite sprite, unsigned group, int axisX, int axisY) {
    sprite.group = static_cast<std::uint16_t>(group);
    sprite.axisX = static_cast<std::int16_t>(axisX);
    sprite.axisY = static_cast<std::int16_t>(axisY);
    return sprite;
}

AlphaPicture Coloured(int width, int height, auto colourAt) {
    AlphaPicture picture{width, height, {}};
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            picture.pixels.push_back(colourAt(x, y));
        }
    }
    return picture;
}

IndexedPicture Indexed(int width, int height, auto indexAt) {
    IndexedPicture picture{width, height, {}, {}};
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            picture.pixels.push_back(static_cast<std::uint8_t>(indexAt(x, y)));
        }
    }
    return picture;
}

std::uint8_t Part(double value) {
    return static_cast<std::uint8_t>(std::lround(std::clamp(value, 0.0, 255.0)));
}

// --- the pictures ---
//
//   0,0  ground  320 x 240, axis 160,0: squares of 20 pixels in two greys
//   1,0  glow     64 x 64,  axis 32,32: orange that fades from its middle, yellow there
//   2,0  leaf     24 x 16,  axis 0,0: green above blue, fades to the right, a white dot upper left
//   3,0  slab     40 x 30,  axis 20,30: no alpha; its left half is black
//   4,0  pane     40 x 30,  axis 20,30: colour 0 around columns of one red with the alphas 255,
//   192,
//                 128, 64, 32 and 0
//   5,0  floor   480 x 60,  axis 240,0: stripes of 20 pixels that fade upwards

Sff2Archive GlowingPictures() {
    Sff2Archive archive;
    Sff2Palette palette;
    palette.colours = {{255, 0, 255, 0},   {64, 64, 72, 255},  {88, 88, 100, 255},
                       {208, 48, 40, 255}, {208, 48, 40, 192}, {208, 48, 40, 128},
                       {208, 48, 40, 64},  {208, 48, 40, 32},  {208, 48, 40, 0}};
    archive.palettes.push_back(palette);
    const auto put = [&](unsigned group, int axisX, int axisY, const Sff2Sprite& sprite) {
        archive.sprites.push_back(Numbered(sprite, group, axisX, axisY));
    };
    put(0, 160, 0,
        Sff2SpriteOf(
            Indexed(320, 240, [](int x, int y) { return (x / 20 + y / 20) % 2 == 0 ? 1 : 2; }),
            Sff2Coding::Rle8));
    put(1, 32, 32,
        Sff2SpriteOf(Coloured(64, 64,
                              [](int x, int y) {
                                  const double far = std::hypot(x - 31.5, y - 31.5) / 32;
                                  return Rgba{250, Part(230 - 150 * far), Part(120 - 120 * far),
                                              Part(255 * (1 - far) * 1.3)};
                              }),
                     Sff2Coding::Png32));
    put(2, 0, 0,
        Sff2SpriteOf(Coloured(24, 16,
                              [](int x, int y) {
                                  const Rgba dot{255, 255, 255, 255};
                                  const Rgba leaf = y < 8 ? Rgba{40, 200, 80, Part(240 - 10 * x)}
                                                          : Rgba{40, 80, 220, Part(240 - 10 * x)};
                                  return x < 4 && y < 4 ? dot : leaf;
                              }),
                     Sff2Coding::Png32));
    put(3, 20, 30,
        Sff2SpriteOf(
            Coloured(
                40, 30,
                [](int x, int y) {
                    return x < 20 ? Rgba{0, 0, 0, 255} : Rgba{Part(6 * x), Part(8 * y), 160, 255};
                }),
            Sff2Coding::Png24));
    put(4, 20, 30,
        Sff2SpriteOf(Indexed(40, 30,
                             [](int x, int y) {
                                 const bool inside = x >= 5 && x < 35 && y >= 5 && y < 25;
                                 return inside ? 3 + (x - 5) / 5 : 0;
                             }),
                     Sff2Coding::Lz5));
    put(5, 240, 0,
        Sff2SpriteOf(Coloured(480, 60,
                              [](int x, int y) {
                                  return x / 20 % 2 == 0 ? Rgba{112, 72, 48, Part(40 + 4 * y)}
                                                         : Rgba{192, 152, 104, Part(40 + 4 * y)};
                              }),
                     Sff2Coding::Raw32));
    return archive;
}

// A stage of such pictures, with additions.
class GlowingStage : public ShotStage {
public:
    GlowingStage(const Sff2Archive& archive, const std::string& definition, bool smooth = false)
        : ShotStage(WithArchive(archive, definition), "/mugen/stages/glow.def", "/mugen/", {},
                    ViewOptions{true, smooth}) {
        EXPECT_THAT(MessageTexts(), testing::IsEmpty());
    }

private:
    static std::unique_ptr<Files> WithArchive(const Sff2Archive& archive,
                                              const std::string& definition) {
        auto files = std::make_unique<MemoryFiles>();
        files->Put("/mugen/stages/glow.sff",
                   std::span<const std::byte>(samplemaker::WriteSff2(archive)));
        files->Put("/mugen/stages/glow.def", "[BGdef]\nspr = stages/glow.sff\n" + definition);
        return files;
    }
};

// --- golden pictures ---

struct GlowCase {
    const char* name;
    int frames;
    const char* keys;
    std::string definition;
    bool smooth = false;
};

// What a test's name in a report ends with.
void PrintTo(const GlowCase& row, std::ostream* out) {
    *out << row.name;
}

// The same pictures in a row, the same keys for each.
std::string RowOfPictures(int y, const std::string& keys) {
    std::string row;
    int x = -120;
    for (const char* const sprite : {"1,0", "2,0", "3,0", "4,0"}) {
        row += "[BG]\ntype = normal\nspriteno = " + std::string(sprite) +
               "\nstart = " + std::to_string(x) + "," + std::to_string(y) + "\n" + keys;
        x += 80;
    }
    return row;
}

// Scaled by 1.4 and by .8, and all of that twice.
const std::string kScaledGlow = "[StageInfo]\nlocalcoord = 200,150\nxscale = 1.4\nyscale = .8\n" +
                                std::string(kRoom) + kBackdrop + "tile = 1,1\n" +
                                "[BG]\ntype = normal\nspriteno = 1,0\nstart = -40,70\n"
                                "[BG]\ntype = normal\nspriteno = 2,0\nstart = -60,20\ntile = 4,2\n"
                                "tilespacing = -5,3\n"
                                "[BG]\ntype = normal\nspriteno = 4,0\nstart = 30,80\nmask = 1\n"
                                "[BG]\ntype = normal\nspriteno = 1,0\nstart = 20,120\ntrans = add\n"
                                "[BG]\ntype = parallax\nspriteno = 5,0\nstart = 0,120\n"
                                "xscale = 1,2\n";

const GlowCase kGlowCases[] = {
    // True colours look alike with mask and without. The pane does not.
    {"truecolour_mask", 1, "", RowOfPictures(70, "") + RowOfPictures(170, "mask = 1\n")},
    // Colour 0 and what has the alpha 0 are left out whatever `mask` says.
    {"truecolour_add", 1, "",
     RowOfPictures(70, "trans = add\n") + RowOfPictures(170, "trans = add1\nmask = 1\n")},
    {"truecolour_sub", 1, "",
     RowOfPictures(70, "trans = sub\n") + RowOfPictures(170, "trans = sub\nmask = 1\n")},
    {"truecolour_addalpha", 1, "",
     RowOfPictures(70, "trans = addalpha\nalpha = 128,128\n") +
         RowOfPictures(170, "trans = addalpha\nalpha = 256,64\nmask = 1\n")},
    // Apart, side by side, and over one another: there each copy lies on those before it.
    {"truecolour_tiled", 1, "",
     "[BG]\ntype = normal\nspriteno = 2,0\nstart = 0,0\ntile = 1,2\ntilespacing = 12,6\n"
     "[BG]\ntype = normal\nspriteno = 2,0\nstart = 0,60\ntile = 1,2\n"
     "[BG]\ntype = normal\nspriteno = 2,0\nstart = -140,110\ntile = 12,3\ntilespacing = -8,-4\n"
     "[BG]\ntype = normal\nspriteno = 1,0\nstart = -130,190\ntile = 8,0\ntilespacing = -28\n"
     "[BG]\ntype = normal\nspriteno = 4,0\nstart = 0,239\ntile = 1,0\nmask = 1\n"
     "window = 160,0, 319,239\n"},
    {"truecolour_parallax", 25, "right:25",
     "[BG]\ntype = parallax\nspriteno = 5,0\nstart = 0,170\nxscale = 1,2\n"
     "[BG]\ntype = parallax\nspriteno = 2,0\nstart = 0,90\nxscale = 1,3\ntile = 1,1\n"
     "window = 40,90, 279,130\n"
     "[BG]\ntype = parallax\nspriteno = 5,0\nstart = 0,20\nxscale = 1,2\ntrans = add\n"},
    // Frames that are mirrored, and have a blending of their own.
    {"truecolour_frames", 1, "",
     "[BG]\ntype = anim\nactionno = 1\nstart = -120,60\n"
     "[BG]\ntype = anim\nactionno = 2\nstart = -40,60\n"
     "[BG]\ntype = anim\nactionno = 3\nstart = 40,60\n"
     "[BG]\ntype = anim\nactionno = 4\nstart = 80,60\n"
     "[BG]\ntype = anim\nactionno = 5\nstart = -60,160\n"
     "[BG]\ntype = anim\nactionno = 6\nstart = 60,160\n"
     "[Begin Action 1]\n2,0, 0,0, -1\n[Begin Action 2]\n2,0, 0,0, -1, h\n"
     "[Begin Action 3]\n2,0, 0,0, -1, v\n[Begin Action 4]\n2,0, 0,0, -1, hv, a\n"
     "[Begin Action 5]\n4,0, 0,0, -1, h\n[Begin Action 6]\n1,0, 0,0, -1, , as96d200\n"},
    {"truecolour_scaled", 5, "right:5", kScaledGlow},
    {"truecolour_smooth", 5, "right:5", kScaledGlow, true},
};

class TrueColourGolden : public testing::TestWithParam<GlowCase> {};

TEST_P(TrueColourGolden, IsThePictureThatItWas) {
    const auto& [name, frames, keys, definition, smooth] = GetParam();
    const bool scaled = definition.starts_with("[StageInfo]");
    GlowingStage stage(GlowingPictures(),
                       scaled ? definition : std::string(kRoom) + kBackdrop + definition, smooth);
    stage.Run(keys, frames);
    EXPECT_TRUE(MatchesGolden(name, stage.Picture(), stage.PictureSize().width,
                              stage.PictureSize().height));
}

INSTANTIATE_TEST_SUITE_P(Feature, TrueColourGolden, testing::ValuesIn(kGlowCases),
                         [](const auto& suite) { return std::string(suite.param.name); });

// --- in numbers ---

constexpr Rgba kBehind = {100, 60, 20, 255};
constexpr std::uint8_t kInkRed = 200;
constexpr std::uint8_t kInkGreen = 40;
constexpr std::uint8_t kInkBlue = 240;

enum class Ink { Raw32, Png32, Palette };

// A ground of one colour, as 0,0, and 20 x 20 pixels of another one with this alpha, as 1,0.
Sff2Archive InkOnGround(Ink ink, std::uint8_t alpha) {
    const Rgba colour{kInkRed, kInkGreen, kInkBlue, alpha};
    Sff2Archive archive;
    Sff2Palette palette;
    palette.colours = {{1, 2, 3, 0}, kBehind, colour};
    archive.palettes.push_back(palette);
    archive.sprites.push_back(Numbered(
        Sff2SpriteOf(Indexed(320, 240, [](int, int) { return 1; }), Sff2Coding::Raw), 0, 160, 0));
    const Sff2Sprite shown =
        ink == Ink::Palette
            ? Sff2SpriteOf(Indexed(20, 20, [](int, int) { return 2; }), Sff2Coding::Png8)
            : Sff2SpriteOf(Coloured(20, 20, [&](int, int) { return colour; }),
                           ink == Ink::Raw32 ? Sff2Coding::Raw32 : Sff2Coding::Png32);
    archive.sprites.push_back(Numbered(shown, 1, 0, 0));
    return archive;
}

struct Channels {
    int red;
    int green;
    int blue;
};

struct InkCase {
    const char* keys;
    int alpha;
    Channels shown;
};

// 128 of 255 of the ink are 100, 20 and 120.
const InkCase kInkCases[] = {
    {"", 128, {150, 50, 130}},  // half of both
    {"", 0, {100, 60, 20}},
    {"", 255, {200, 40, 240}},
    {"", 51, {120, 56, 64}},  // a fifth of the way
    {"trans = add\n", 128, {200, 80, 140}},
    {"trans = add\n", 0, {100, 60, 20}},
    {"trans = add\n", 255, {255, 100, 255}},
    // A quarter of the ground is taken away, that is half where there is a half of the picture.
    {"trans = add1\n", 128, {175, 65, 135}},
    {"trans = add1\n", 255, {250, 70, 250}},
    {"trans = add1\n", 0, {100, 60, 20}},
    {"trans = sub\n", 128, {0, 40, 0}},
    {"trans = sub\n", 51, {60, 52, 0}},
    {"trans = sub\n", 0, {100, 60, 20}},
    // Three quarters of the ground, and a quarter of the picture.
    {"trans = addalpha\nalpha = 128,128\n", 128, {125, 55, 75}},
    {"trans = addalpha\nalpha = 256,0\n", 128, {150, 50, 130}},
    {"trans = addalpha\nalpha = 0,0\n", 128, {50, 30, 10}},
    {"trans = addalpha\nalpha = 0,0\n", 0, {100, 60, 20}},
};

Channels ChannelsOf(std::uint32_t rgb) {
    return {static_cast<int>(rgb >> 16U & 0xFFU), static_cast<int>(rgb >> 8U & 0xFFU),
            static_cast<int>(rgb & 0xFFU)};
}

// Each of up to two quads rounds.
void ExpectShown(const GlowingStage& stage, int x, int y, const Channels& expected) {
    const auto [red, green, blue] = ChannelsOf(stage.Rgb(x, y));
    EXPECT_NEAR(red, expected.red, 1);
    EXPECT_NEAR(green, expected.green, 1);
    EXPECT_NEAR(blue, expected.blue, 1);
}

std::string InkElement(const std::string& keys) {
    return "[BG]\ntype = normal\nspriteno = 1,0\nstart = 0,100\n" + keys;
}

TEST(TrueColourPixels, AreWhatTheirAlphaSays) {
    for (const InkCase& row : kInkCases) {
        for (const Ink ink : {Ink::Raw32, Ink::Png32, Ink::Palette}) {
            for (const std::string mask : {"mask = 0\n", "mask = 1\n"}) {
                SCOPED_TRACE(row.keys + mask + "alpha " + std::to_string(row.alpha) + ", kind " +
                             std::to_string(static_cast<int>(ink)));
                GlowingStage stage(InkOnGround(ink, static_cast<std::uint8_t>(row.alpha)),
                                   kBackdrop + InkElement(row.keys + mask));
                stage.Run(1);
                const bool opaque =
                    ink == Ink::Palette && std::string(row.keys).empty() && mask == "mask = 0\n";
                ExpectShown(stage, 170, 110,
                            opaque ? Channels{kInkRed, kInkGreen, kInkBlue} : row.shown);
                ExpectShown(stage, 180, 110, {100, 60, 20});
            }
        }
    }
}

// Where two copies of a half lie on one another, a quarter of the ground is left.
TEST(TrueColourPixels, OfOverlappingCopiesAddUp) {
    for (const Ink ink : {Ink::Png32, Ink::Palette}) {
        GlowingStage stage(InkOnGround(ink, 128),
                           kBackdrop + InkElement("mask = 1\ntile = 3,0\ntilespacing = -10\n"));
        stage.Run(1);
        ExpectShown(stage, 165, 110, {150, 50, 130});
        ExpectShown(stage, 175, 110, {175, 45, 185});
        ExpectShown(stage, 185, 110, {175, 45, 185});
        ExpectShown(stage, 195, 110, {150, 50, 130});
        ExpectShown(stage, 201, 110, {100, 60, 20});
    }
}

// Colour 0 keeps its colour for pictures that are not masked, whatever its alpha.
TEST(TrueColourPixels, OfColour0AreTheirColourOrNothing) {
    for (const int alpha : {0, 128, 255}) {
        Sff2Archive archive = InkOnGround(Ink::Palette, 255);
        archive.palettes[0].colours[0] = {1, 2, 3, static_cast<std::uint8_t>(alpha)};
        archive.sprites[1] = Numbered(
            Sff2SpriteOf(Indexed(20, 20, [](int, int) { return 0; }), Sff2Coding::Rle8), 1, 0, 0);
        GlowingStage stage(archive, kBackdrop + InkElement("") +
                                        "[BG]\ntype = normal\nspriteno = 1,0\nstart = 40,100\n"
                                        "mask = 1\n");
        stage.Run(1);
        EXPECT_EQ(stage.Rgb(170, 110), 0x010203U) << alpha;
        EXPECT_EQ(stage.Rgb(210, 110), 0x643C14U) << alpha;
    }
}

// Every way to store a picture of true colours shows the same, moving and blended.
TEST(TrueColourPixels, AreTheSameInEveryCoding) {
    struct Pair {
        Sff2Coding one;
        Sff2Coding other;
        bool hasAlpha;
    };
    for (const Pair& pair : {Pair{Sff2Coding::Raw32, Sff2Coding::Png32, true},
                             Pair{Sff2Coding::Raw24, Sff2Coding::Png24, false},
                             Pair{Sff2Coding::Png24, Sff2Coding::Png32, false}}) {
        const AlphaPicture picture = Coloured(61, 37, [&](int x, int y) {
            const auto alpha = static_cast<std::uint8_t>(pair.hasAlpha ? 7 * x + 3 * y : 255);
            return Rgba{Part(4 * x), Part(6 * y), Part(x + y), alpha};
        });
        const auto shown = [&](Sff2Coding coding) {
            Sff2Archive archive = InkOnGround(Ink::Png32, 9);
            archive.sprites[1] = Numbered(Sff2SpriteOf(picture, coding), 1, 0, 0);
            GlowingStage stage(archive, std::string(kRoom) + kBackdrop +
                                            InkElement("velocity = .3,.2\ntile = 3,2\n") +
                                            InkElement("trans = add\n"));
            stage.Run("right+up:20", 20);
            return stage.Picture();
        };
        EXPECT_EQ(shown(pair.one), shown(pair.other));
    }
}

}  // namespace
}  // namespace scenara::test
