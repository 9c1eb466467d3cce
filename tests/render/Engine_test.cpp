// SPDX-License-Identifier: MIT
//
// The operations that fill and draw the one quad, text, and colours in bytes.
#include "render/Engine.h"

#include <array>
#include <limits>

#include <gtest/gtest.h>

#include "base/RunTimeError.h"
#include "render/ExpectError.h"
#include "render/StagePlayer.h"

namespace scenara::test {
namespace {

constexpr Long kMostLong = std::numeric_limits<Long>::max();
constexpr Long kLeastLong = std::numeric_limits<Long>::min();

struct Corner {
    float x = 0;
    float y = 0;
    float tu = 0;
    float tv = 0;
    std::uint32_t color = 0xFFFFFFFF;
};

void ExpectQuad(const std::array<Vertex, 4>& quad, const std::array<Corner, 4>& corners) {
    for (std::size_t i = 0; i < quad.size(); ++i) {
        SCOPED_TRACE("vertex " + std::to_string(i));
        EXPECT_FLOAT_EQ(quad.at(i).x, corners.at(i).x);
        EXPECT_FLOAT_EQ(quad.at(i).y, corners.at(i).y);
        EXPECT_EQ(quad.at(i).z, 0.0F);
        EXPECT_EQ(quad.at(i).rhw, 1.0F);
        EXPECT_FLOAT_EQ(quad.at(i).tu, corners.at(i).tu);
        EXPECT_FLOAT_EQ(quad.at(i).tv, corners.at(i).tv);
        EXPECT_EQ(quad.at(i).color, corners.at(i).color);
        EXPECT_EQ(quad.at(i).specular, 0U);
    }
}

class EngineTest : public testing::Test {
protected:
    EngineTest() {
        sky = player.build.Sprite("sky", 64, 32);
        odd = player.build.Sprite("odd", 100, 3);
        player.engine.Engine_Init();
        static_cast<void>(player.record.TakeLines());
    }

    void Blt(Integer slot, Long x, Long y, Long w, Long h, Long srcX, Long srcY) {
        player.engine.D3DBlt(nullptr, slot, x, y, w, h, srcX, srcY);
    }
    void BltFlip(Integer slot, Long x, Long y, Long w, Long h, Long srcX, Long srcY) {
        player.engine.D3DBltFlip(nullptr, slot, x, y, w, h, srcX, srcY);
    }

    StagePlayer player;
    Integer sky = -1;
    Integer odd = -1;
};

using Blits = EngineTest;

TEST_F(Blits, D3DBltPlacesTheFourVertices) {
    Blt(sky, 10, 20, 16, 8, 4, 2);
    ExpectQuad(player.record.Quads().at(0).corners, {{{10, 28, 0.0625F, 0.3125F},
                                                      {10, 20, 0.0625F, 0.0625F},
                                                      {26, 28, 0.3125F, 0.3125F},
                                                      {26, 20, 0.3125F, 0.0625F}}});
    EXPECT_EQ(player.record.TakeLines(), (Lines{"SetTexture 0 sky", "DrawPrimitiveUP 5 2 32",
                                                "quad sky 10,20 16x8 from 4,2"}));
}

TEST_F(Blits, D3DBltTakesTheTextureFromTheTableWhateverItIsHanded) {
    player.engine.D3DBlt(player.model.Sprites.at(1).texture, sky, 0, 0, 64, 32, 0, 0);
    player.engine.D3DBltFlip(player.model.Sprites.at(1).texture, sky, 0, 0, 64, 32, 0, 0);
    EXPECT_EQ(player.record.TakeQuads(), (Lines{"sky 0,0 64x32", "sky 0,0 64x32 mirrored"}));
}

TEST_F(Blits, D3DBltDividesByWhateverSizeTheTextureHas) {
    Blt(odd, -5, -7, 1, 1, 33, 1);
    ExpectQuad(player.engine.Quad(), {{{-5, -6, 0.33F, 2.0F / 3.0F},
                                       {-5, -7, 0.33F, 1.0F / 3.0F},
                                       {-4, -6, 0.34F, 2.0F / 3.0F},
                                       {-4, -7, 0.34F, 1.0F / 3.0F}}});
}

TEST_F(Blits, D3DBltTakesSourcesOutsideOfTheTexture) {
    Blt(sky, 0, 0, 64, 32, -64, 64);
    ExpectQuad(player.engine.Quad(),
               {{{0, 32, -1, 3}, {0, 0, -1, 2}, {64, 32, 0, 3}, {64, 0, 0, 2}}});
}

TEST_F(Blits, D3DBltFlipNegatesWhatCountsAcross) {
    BltFlip(sky, 10, 20, 16, 8, 4, 2);
    ExpectQuad(player.record.Quads().at(0).corners, {{{10, 28, -0.0625F, 0.3125F},
                                                      {10, 20, -0.0625F, 0.0625F},
                                                      {26, 28, -0.3125F, 0.3125F},
                                                      {26, 20, -0.3125F, 0.0625F}}});
    EXPECT_EQ(player.record.TakeLines(), (Lines{"SetTexture 0 sky", "DrawPrimitiveUP 5 2 32",
                                                "quad sky 10,20 16x8 from 4,2 mirrored"}));
}

TEST_F(Blits, D3DBltFlipOfTheWholeWidthRunsBackOverTheWholeTexture) {
    BltFlip(odd, 3, 4, 100, 3, 0, 0);
    ExpectQuad(player.engine.Quad(),
               {{{3, 7, 0, 1}, {3, 4, 0, 0}, {103, 7, -1, 1}, {103, 4, -1, 0}}});
}

TEST_F(Blits, ColoursOfAnEarlierQuadDoNotStay) {
    const std::array<Corner, 4> whole{{{0, 32, 0, 1}, {0, 0, 0, 0}, {64, 32, 1, 1}, {64, 0, 1, 0}}};
    player.engine.Set_Vertex(0, 0, 1, 1, 1, 2, 3, 4);
    Blt(sky, 0, 0, 64, 32, 0, 0);
    ExpectQuad(player.engine.Quad(), whole);
    player.engine.Set_Vertex(0, 0, 1, 1, 1, 2, 3, 4);
    BltFlip(sky, 0, 0, 64, 32, 0, 0);
    EXPECT_EQ(player.record.TakeQuads(), (Lines{"sky 0,0 64x32", "sky 0,0 64x32 mirrored"}));
}

TEST_F(Blits, SumsAre32BitsWideAndNotOneMore) {
    Blt(sky, kMostLong - 64, kMostLong - 32, 64, 32, kMostLong - 64, kMostLong - 32);
    EXPECT_EQ(player.record.DrawnCount(), 1U);
    Blt(sky, kLeastLong + 1, kLeastLong + 1, -1, -1, kLeastLong + 1, kLeastLong + 1);
    EXPECT_EQ(player.record.DrawnCount(), 2U);
}

TEST_F(Blits, SumsBeyond32BitsAreAnOverflowAndDrawNothing) {
    using Sum = std::array<Long, 5>;  // x, y, width, source x and y
    for (const Sum& sum :
         {Sum{kMostLong, 0, 1, 0, 0}, Sum{0, kMostLong, 1, 0, 0}, Sum{0, 0, 1, kMostLong, 0},
          Sum{0, 0, 1, 0, kMostLong}, Sum{kLeastLong, 0, -1, 0, 0}}) {
        ExpectError(RunTimeErrorKind::Overflow,
                    [&] { Blt(sky, sum[0], sum[1], sum[2], 1, sum[3], sum[4]); });
        ExpectError(RunTimeErrorKind::Overflow,
                    [&] { BltFlip(sky, sum[0], sum[1], sum[2], 1, sum[3], sum[4]); });
    }
    EXPECT_EQ(player.record.TakeLines(), Lines());
}

TEST_F(Blits, SlotsOutsideOfTheTableAreAnErrorAndDrawNothing) {
    for (const Integer slot : {Integer{-1}, Integer{2}, Integer{32767}, Integer{-32768}}) {
        SCOPED_TRACE(slot);
        ExpectError(RunTimeErrorKind::SubscriptOutOfRange, [&] { Blt(slot, 0, 0, 1, 1, 0, 0); });
        ExpectError(RunTimeErrorKind::SubscriptOutOfRange,
                    [&] { BltFlip(slot, 0, 0, 1, 1, 0, 0); });
    }
    EXPECT_EQ(player.record.TakeLines(), Lines());
}

TEST_F(Blits, AnyFailingCallOfTheDeviceIsAnError) {
    for (const char* const call : {"SetTexture", "DrawPrimitiveUP"}) {
        SCOPED_TRACE(call);
        player.record.Spoil(call, Record::Trouble::Fails);
        ExpectError(RunTimeErrorKind::Direct3D, [&] { Blt(sky, 0, 0, 1, 1, 0, 0); });
        player.record.Spoil(call, Record::Trouble::Fails);
        ExpectError(RunTimeErrorKind::Direct3D, [&] { BltFlip(sky, 0, 0, 1, 1, 0, 0); });
    }
    EXPECT_EQ(player.record.DrawnCount(), 0U);
    Blt(sky, 0, 0, 1, 1, 0, 0);
    EXPECT_EQ(player.record.DrawnCount(), 1U);
}

TEST_F(Blits, AnErrorNamesTheCallAndItsNumber) {
    player.record.Spoil("SetTexture", Record::Trouble::Fails, 1, D3DERR_DEVICELOST);
    try {
        Blt(sky, 0, 0, 1, 1, 0, 0);
        FAIL() << "no error";
    } catch (const RunTimeError& error) {
        EXPECT_STREQ(error.what(), "Direct3D error: SetTexture, 0x88760868");
    }
}

using Quads = EngineTest;

TEST_F(Quads, BeginAsOneWholeTexture) {
    const auto& quad = player.engine.Quad();
    const std::array<std::array<float, 2>, 4> corners{{{0, 0}, {1, 0}, {0, 1}, {1, 1}}};
    for (std::size_t i = 0; i < quad.size(); ++i) {
        EXPECT_EQ(quad.at(i).tu, corners.at(i).at(0)) << i;
        EXPECT_EQ(quad.at(i).tv, corners.at(i).at(1)) << i;
        EXPECT_EQ(quad.at(i).z, 0.0F) << i;
        EXPECT_EQ(quad.at(i).rhw, 1.0F) << i;
        EXPECT_EQ(quad.at(i).specular, 0U) << i;
    }
}

TEST_F(Quads, BeginAnewWithEachDevice) {
    Blt(sky, 0, 0, 16, 8, 4, 2);
    player.engine.Engine_Init();
    EXPECT_EQ(player.engine.Quad().at(1).tu, 1.0F);
    EXPECT_EQ(player.engine.Quad().at(2).tu, 0.0F);
    EXPECT_EQ(player.engine.Quad().at(2).tv, 1.0F);
}

TEST_F(Quads, SetVertexGivesEachCornerItsColour) {
    player.engine.Set_Vertex(128.5F, 56, 64, 128.25F, 0xFFFF0000, 0xFF00FF00, 0xFF0000FF,
                             0xFFFFE100);
    ExpectQuad(player.engine.Quad(), {{{128.5F, 56, 0, 0, 0xFFFF0000},
                                       {192.5F, 56, 1, 0, 0xFF00FF00},
                                       {128.5F, 184.25F, 0, 1, 0xFF0000FF},
                                       {192.5F, 184.25F, 1, 1, 0xFFFFE100}}});
    EXPECT_EQ(player.record.TakeLines(), Lines());
}

TEST_F(Quads, SetVertexKeepsTheTextureCoordinatesOfTheLastDraw) {
    Blt(sky, 0, 0, 16, 8, 4, 2);
    player.engine.Set_Vertex(1, 2, 3, 4, 5, 6, 7, 8);
    ExpectQuad(player.engine.Quad(), {{{1, 2, 0.0625F, 0.3125F, 5},
                                       {4, 2, 0.0625F, 0.0625F, 6},
                                       {1, 6, 0.3125F, 0.3125F, 7},
                                       {4, 6, 0.3125F, 0.0625F, 8}}});
}

struct Shadow {
    const char* name = "";
    Byte type = 0;
    std::array<Single, 4> place{};
    std::array<Corner, 4> corners;
};

constexpr std::uint32_t kShadow = 0x64000000;
const Shadow kShadows[] = {
    {"type 1 leans left",
     1,
     {128, 56, 64, 128},
     {{{96, 120, 0, 0, kShadow},
       {160, 120, 1, 0, kShadow},
       {128, 184, 0, 1, kShadow},
       {192, 184, 1, 1, kShadow}}}},
    {"type 2 leans right",
     2,
     {128, 56, 64, 128},
     {{{160, 120, 0, 0, kShadow},
       {224, 120, 1, 0, kShadow},
       {128, 184, 0, 1, kShadow},
       {192, 184, 1, 1, kShadow}}}},
    {"halves of pixels are kept",
     2,
     {0.5F, 1, 3, 5},
     {{{2, 3.5F, 0, 0, kShadow},
       {5, 3.5F, 1, 0, kShadow},
       {0.5F, 6, 0, 1, kShadow},
       {3.5F, 6, 1, 1, kShadow}}}},
};

TEST_F(Quads, SetShadowLeansToTheSideOfItsType) {
    for (const Shadow& row : kShadows) {
        SCOPED_TRACE(row.name);
        const auto& [x, y, width, height] = row.place;
        player.engine.Set_Shadow(row.type, x, y, width, height);
        ExpectQuad(player.engine.Quad(), row.corners);
    }
}

TEST_F(Quads, SetShadowOfAnyOtherTypeChangesNothing) {
    for (const Byte type : {Byte{0}, Byte{3}, Byte{255}}) {
        SCOPED_TRACE(type);
        player.engine.Set_Vertex(1, 2, 3, 4, 5, 6, 7, 8);
        player.engine.Set_Shadow(type, 128, 56, 64, 128);
        ExpectQuad(player.engine.Quad(),
                   {{{1, 2, 0, 0, 5}, {4, 2, 1, 0, 6}, {1, 6, 0, 1, 7}, {4, 6, 1, 1, 8}}});
    }
}

TEST_F(Quads, DrawQuadDrawsTheQuadAsItIs) {
    player.engine.Set_Shadow(1, 128, 56, 64, 128);
    player.engine.DrawQuad();
    ExpectQuad(player.record.Quads().at(0).corners, kShadows[0].corners);
    EXPECT_EQ(player.record.TakeLines().at(0), "DrawPrimitiveUP 5 2 32");
}

using DrawText = EngineTest;

TEST_F(DrawText, RectangleRunsFromTheCornerByWidthAndHeight) {
    player.engine.Draw_Text(5, 5, 200, 20, "Cam 12.5,0  60 FPS", -1, 0);
    player.engine.Draw_Text(220, 220, 100, 20, "FPS: 60", kLeastLong, 10);
    player.engine.Draw_Text(-30, -10, 20, 5, "", 0, 0);
    EXPECT_EQ(player.record.TakeLines(),
              (Lines{"DrawText 'Cam 12.5,0  60 FPS' in 5 5 205 25, color and format 4294967295 0",
                     "DrawText 'FPS: 60' in 220 220 320 240, color and format 2147483648 10",
                     "DrawText '' in -30 -10 -10 -5, color and format 0 0"}));
}

TEST_F(DrawText, FailureIsAnError) {
    player.record.Spoil("DrawText", Record::Trouble::Fails);
    ExpectError(RunTimeErrorKind::Direct3D,
                [&] { player.engine.Draw_Text(5, 5, 200, 20, "Cam", -1, 0); });
}

using Parts = std::array<Integer, 3>;

// What stands in the three variables after it; before, -7, -8 and -9.
Parts Split(Long color) {
    Parts parts{-7, -8, -9};
    GetRGB(color, parts[0], parts[1], parts[2]);
    return parts;
}

TEST(GetRGB, SplitsFromTheLowestByteUp) {
    EXPECT_EQ(Split(0), (Parts{0, 0, 0}));
    EXPECT_EQ(Split(0x112233), (Parts{0x33, 0x22, 0x11}));
    EXPECT_EQ(Split(0xFF), (Parts{255, 0, 0}));
    EXPECT_EQ(Split(0xFF00), (Parts{0, 255, 0}));
    EXPECT_EQ(Split(0xFF0000), (Parts{0, 0, 255}));
    EXPECT_EQ(Split(16777215), (Parts{255, 255, 255}));
}

TEST(GetRGB, NegativeColoursAreSplitByTheirBits) {
    EXPECT_EQ(Split(-1), (Parts{255, 255, 255}));
    EXPECT_EQ(Split(-16777215), (Parts{1, 0, 0}));
    EXPECT_EQ(Split(-16777216), (Parts{0, 0, 0}));
}

TEST(GetRGB, BlueIs256AtTheLimit) {
    EXPECT_EQ(Split(16777216), (Parts{0, 0, 256}));
}

TEST(GetRGB, BeyondTheLimitsNothingIsWritten) {
    for (const Long color : {16777217, -16777217, kMostLong, kLeastLong}) {
        EXPECT_EQ(Split(color), (Parts{-7, -8, -9})) << color;
    }
}

Long ColorOf(Byte b0, Byte b1, Byte b2, Byte b3) {
    return BytesToColor(std::array<Byte, 4>{b0, b1, b2, b3});
}

TEST(BytesToColor, BytesStandInTurnFromTheHighestOn) {
    EXPECT_EQ(ColorOf(0x10, 0x20, 0x30, 0x40), 0x10203040);
    EXPECT_EQ(ColorOf(0xFF, 0x10, 0x20, 0x30), static_cast<Long>(0xFF102030));
}

TEST(BytesToColor, ASmallByteGivesOneDigit) {
    EXPECT_EQ(ColorOf(0x05, 0x10, 0x20, 0x30), 0x5102030);
    EXPECT_EQ(ColorOf(0x10, 0x05, 0x20, 0x30), 0x1052030);
    EXPECT_EQ(ColorOf(1, 2, 3, 15), 0x123F);
    EXPECT_EQ(ColorOf(0x10, 0x0F, 0x10, 0x0F), 0x10F10F);
}

TEST(BytesToColor, AZeroByteGivesTwoDigits) {
    EXPECT_EQ(ColorOf(0, 0, 0, 0), 0);
    EXPECT_EQ(ColorOf(0xFF, 0, 0, 0), static_cast<Long>(0xFF000000));
    EXPECT_EQ(ColorOf(1, 0, 0, 1), 0x100001);
    EXPECT_EQ(ColorOf(0, 0, 0, 9), 9);
}

TEST(BytesToColor, EightDigitsAreASignedNumber) {
    EXPECT_EQ(ColorOf(255, 255, 255, 255), -1);
    EXPECT_EQ(ColorOf(0x80, 0, 0, 0), kLeastLong);
    EXPECT_EQ(ColorOf(0x7F, 255, 255, 255), kMostLong);
}

}  // namespace
}  // namespace scenara::test
