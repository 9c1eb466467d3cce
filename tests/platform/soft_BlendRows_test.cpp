// SPDX-License-Identifier: MIT
#include <array>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "SoftQuads.h"
#include "platform/soft/BlendRows.h"
#include "platform/soft/Coverage.h"
#include "platform/soft/Triangles.h"
#include "platform/soft/WholeQuads.h"

namespace scenara::soft {
namespace {

using test::Blit;
using test::Corners;
using test::CornersOf;
using test::PlainTexture;
using test::TestView;
using Kind = EvenBlend::Kind;

constexpr std::uint32_t kGround = 0x406080;

constexpr PixelStates States(std::uint32_t destinationFactor, std::uint32_t operation) {
    return {true, D3DBLEND_SRCALPHA, destinationFactor, operation, D3DTOP_MODULATE};
}

constexpr PixelStates kAdd = States(D3DBLEND_ONE, D3DBLENDOP_ADD);
constexpr PixelStates kTakeAway = States(D3DBLEND_ONE, D3DBLENDOP_REVSUBTRACT);
constexpr PixelStates kCover = States(D3DBLEND_INVSRCALPHA, D3DBLENDOP_ADD);

TEST(EvenBlend, IsFoundInItsStates) {
    EXPECT_EQ(EvenBlendOf(kAdd, kWhite), (EvenBlend{Kind::Add, 255}));
    EXPECT_EQ(EvenBlendOf(kAdd, 0x80FFFFFF), (EvenBlend{Kind::Add, 128}));
    EXPECT_EQ(EvenBlendOf(kTakeAway, kWhite), (EvenBlend{Kind::TakeAway, 255}));
    EXPECT_EQ(EvenBlendOf(kCover, 0x40000000), (EvenBlend{Kind::Darken, 64}));
}

TEST(EvenBlend, IsNotFoundInOthers) {
    PixelStates states = kAdd;
    states.blending = false;
    EXPECT_FALSE(EvenBlendOf(states, kWhite)) << "no blending";
    states = kAdd;
    states.sourceFactor = D3DBLEND_ONE;
    EXPECT_FALSE(EvenBlendOf(states, kWhite)) << "transparent texels too";
    EXPECT_FALSE(EvenBlendOf(States(D3DBLEND_ONE, D3DBLENDOP_SUBTRACT), kWhite));
    EXPECT_FALSE(EvenBlendOf(States(D3DBLEND_ZERO, D3DBLENDOP_ADD), kWhite));
    EXPECT_FALSE(EvenBlendOf(States(D3DBLEND_INVSRCALPHA, D3DBLENDOP_REVSUBTRACT), 0x80000000));
    EXPECT_FALSE(EvenBlendOf(kCover, 0x80FFFFFF)) << "a veil of colours";
    EXPECT_FALSE(EvenBlendOf(kAdd, 0xFFFFFFFE)) << "another tint";
    EXPECT_FALSE(EvenBlendOf(kTakeAway, 0xFF000000)) << "another tint";
}

// All of them draw what the general path draws, whose values Blend_test has. Unlike a copied one, a
// pixel that is blended twice is another: the blocks at a rectangle's ends must not meet.

struct Case {
    PixelStates states;
    std::uint32_t tint;
};

constexpr Case kCases[] = {{kAdd, 0xFFFFFFFF},      {kAdd, 0x80FFFFFF},   {kAdd, 0x66FFFFFF},
                           {kAdd, 0x00FFFFFF},      {kTakeAway, kWhite},  {kTakeAway, 0x37FFFFFF},
                           {kTakeAway, 0x66FFFFFF}, {kCover, 0x80000000}, {kCover, 0x66000000},
                           {kCover, 0xFF000000},    {kCover, 0x64204060}};

// Stretches of 1 to `longest` texels that are visible or not; all are when it is 0.
PlainTexture Stretches(std::int32_t width, std::int32_t longest, std::mt19937& random) {
    std::int32_t left = 0;
    bool visible = longest == 0;
    return {width, 3, [&](std::int32_t, std::int32_t) {
                if (longest != 0 && left-- == 0) {
                    left = static_cast<std::int32_t>(random() % static_cast<unsigned>(longest));
                    visible = !visible;
                }
                return (visible ? 0xFF000000U : 0U) | (random() & kColorMask);
            }};
}

void ExpectAsGeneral(const Case& drawn, const Texels& texels, const Coverage& coverage,
                     const Blit& blit, bool upsideDown) {
    Corners corners = CornersOf(blit, texels.width, texels.height);
    for (Vertex& corner : corners) {
        corner.color = drawn.tint;
        corner.tv = upsideDown ? -corner.tv : corner.tv;
    }
    TestView fast(kGround);
    TestView general(kGround);
    ASSERT_TRUE(DrawWholeQuad(fast.Pixels(), drawn.states, texels, coverage, corners));
    DrawStrip(general.Pixels(), drawn.states, &texels, corners);
    ASSERT_EQ(fast, general) << blit.width << " from " << blit.sourceX << " to " << blit.x
                             << (blit.mirrored ? " mirrored" : "") << ", tint " << std::hex
                             << drawn.tint << ", operation " << drawn.states.operation;
}

TEST(EvenBlend, EveryWidthFromEveryColumnOfABlock) {
    std::mt19937 random(12);
    const std::vector<PlainTexture> textures = {
        Stretches(120, 0, random), Stretches(120, 5, random), Stretches(120, 40, random)};
    for (std::int32_t width = 1; width <= 100; ++width) {
        const PlainTexture& texture = textures[random() % textures.size()];
        const Texels texels = texture.Pixels();
        const Coverage coverage = width % 7 == 0 ? Coverage() : Coverage::Of(texels);
        for (std::int32_t column = 0; column < 16; ++column) {
            const Case& drawn = kCases[random() % std::size(kCases)];
            for (const bool mirrored : {false, true}) {
                const std::int32_t source = mirrored ? -column - width : column;
                ExpectAsGeneral(drawn, texels, coverage, {20, 30, width, 3, source, 0, mirrored},
                                column % 3 == 0);
            }
        }
        if (HasFatalFailure()) {
            return;
        }
    }
}

TEST(EvenBlend, EveryCaseClippedAtBothSides) {
    std::mt19937 random(13);
    for (const std::int32_t longest : {0, 3, 60}) {
        const PlainTexture texture = Stretches(367, longest, random);
        const Texels texels = texture.Pixels();
        for (const Coverage& coverage : {Coverage::Of(texels), Coverage()}) {
            for (const Case& drawn : kCases) {
                for (std::int32_t x = -370; x <= 320; x += 23) {
                    for (const bool mirrored : {false, true}) {
                        ExpectAsGeneral(drawn, texels, coverage, {x, 238, 367, 3, 0, 0, mirrored},
                                        x % 2 == 0);
                    }
                }
            }
            if (HasFatalFailure()) {
                return;
            }
        }
    }
}

TEST(AlphaBlend, IsFoundInItsStates) {
    using Way = AlphaBlend::Kind;
    EXPECT_EQ(AlphaBlendOf(kCover, 0x40123456), (AlphaBlend{Way::Cover, 0x40123456}));
    EXPECT_EQ(AlphaBlendOf(kAdd, kWhite), (AlphaBlend{Way::Add, kWhite}));
    EXPECT_EQ(AlphaBlendOf(kTakeAway, 0x80FFFFFF), (AlphaBlend{Way::TakeAway, 0x80FFFFFF}));
}

TEST(AlphaBlend, IsNotFoundInOthers) {
    for (PixelStates states : {kCover, kAdd, kTakeAway}) {
        states.blending = false;
        EXPECT_FALSE(AlphaBlendOf(states, kWhite));
        states.blending = true;
        states.sourceFactor = D3DBLEND_ONE;
        EXPECT_FALSE(AlphaBlendOf(states, kWhite));
    }
    EXPECT_FALSE(AlphaBlendOf(States(D3DBLEND_ONE, D3DBLENDOP_SUBTRACT), kWhite));
    EXPECT_FALSE(AlphaBlendOf(States(D3DBLEND_ZERO, D3DBLENDOP_ADD), kWhite));
    EXPECT_FALSE(AlphaBlendOf(States(D3DBLEND_SRCALPHA, D3DBLENDOP_ADD), kWhite));
    EXPECT_FALSE(AlphaBlendOf(States(D3DBLEND_INVSRCALPHA, D3DBLENDOP_REVSUBTRACT), kWhite));
}

// Blocks that are opaque, not there, cut out or of any alpha, beside each other.
PlainTexture SoftStretches(std::int32_t width, std::mt19937& random) {
    std::uint32_t way = 0;
    return {width, 3, [&](std::int32_t x, std::int32_t /*y*/) {
                way = x % 9 == 0 ? static_cast<std::uint32_t>(random() % 4) : way;
                const auto any = static_cast<std::uint32_t>(random() % 256);
                const std::uint32_t alphas[] = {0, 255, any % 2 * 255, any};
                return alphas[way] << 24U | static_cast<std::uint32_t>(random() & kColorMask);
            }};
}

TEST(AlphaBlend, OfAnyAlphaDrawsWhatTheGeneralPathDraws) {
    std::mt19937 random(14);
    const std::uint32_t tints[] = {kWhite, 0x80FFFFFF, 0x66000000, 0xFF204060, 0x37C0A080, 0};
    for (std::int32_t width = 1; width <= 100; ++width) {
        const PlainTexture texture = SoftStretches(120, random);
        const Texels texels = texture.Pixels();
        const Coverage coverage = width % 7 == 0 ? Coverage() : Coverage::Of(texels);
        for (std::int32_t column = 0; column < 16; ++column) {
            for (const PixelStates& states : {kCover, kAdd, kTakeAway}) {
                const bool mirrored = random() % 2 == 0;
                const std::int32_t source = mirrored ? -column - width : column;
                ExpectAsGeneral({states, tints[random() % std::size(tints)]}, texels, coverage,
                                {20, 30, width, 3, source, 0, mirrored}, column % 3 == 0);
            }
        }
        if (HasFatalFailure()) {
            return;
        }
    }
}

// Every alpha, of every colour, over every colour: as Blend.h has it.
TEST(AlphaBlend, RoundsAsOnePixelDoes) {
    for (std::uint32_t alpha = 0; alpha < 256; ++alpha) {
        std::vector<std::uint32_t> texels;
        std::vector<std::uint32_t> ground;
        for (std::uint32_t value = 0; value < 256; value += 5) {
            for (std::uint32_t under = 0; under < 256; under += 3) {
                texels.push_back(alpha << 24U | value << 16U | (255 - value) << 8U | value / 2);
                ground.push_back(under << 16U | under << 8U | (255 - under));
            }
        }
        for (const PixelStates& states : {kCover, kAdd, kTakeAway}) {
            std::vector<std::uint32_t> pixels = ground;
            for (std::size_t x = 0; x < texels.size(); x += kMostRun) {
                TexelRows rows;
                rows.lines = texels.data() + x;
                rows.width =
                    static_cast<std::int32_t>(std::min<std::size_t>(kMostRun, texels.size() - x));
                rows.height = 1;
                rows.destination = pixels.data() + x;
                if (!BlendByAlpha(rows, *AlphaBlendOf(states, kWhite))) {
                    GTEST_SKIP() << "this processor has no fast way";
                }
            }
            for (std::size_t x = 0; x < texels.size(); ++x) {
                ASSERT_EQ(pixels[x] & kColorMask,
                          Blended(texels[x], ground[x], states) & kColorMask)
                    << alpha << ", " << x;
            }
        }
    }
}

TEST(EvenBlend, BlocksWithoutTheirBitArePassedOver) {
    const std::vector<std::uint32_t> texels(32, 0xFF010101);
    const std::array<std::uint8_t, 1 + Coverage::kReadBeyond> bits = {0b0101};
    std::vector<std::uint32_t> pixels(View().width, kGround);
    TexelRows rows;
    rows.lines = texels.data();
    rows.bits = bits.data();
    rows.width = 32;
    rows.height = 1;
    rows.destination = pixels.data();
    rows.pitch = View().width;
    if (!BlendEvenly(rows, {Kind::Add, 255})) {
        EXPECT_EQ(pixels, std::vector<std::uint32_t>(View().width, kGround)) << "nothing of it yet";
        GTEST_SKIP() << "this processor has no fast way";
    }
    for (std::size_t x = 0; x < 40; ++x) {
        const bool drawn = x < 8 || (x >= 16 && x < 24);
        EXPECT_EQ(pixels[x] & kColorMask, drawn ? 0x416181U : kGround) << x;
    }
}

TEST(EvenBlend, LeavesNarrowRectanglesToTheGeneralPath) {
    const std::vector<std::uint32_t> texels(7, 0xFF010101);
    std::vector<std::uint32_t> pixels(View().width, kGround);
    TexelRows rows;
    rows.lines = texels.data();
    rows.width = 7;
    rows.height = 1;
    rows.destination = pixels.data();
    rows.pitch = View().width;
    EXPECT_FALSE(BlendEvenly(rows, {Kind::Add, 255}));
    EXPECT_FALSE(BlendByAlpha(rows, {AlphaBlend::Kind::Add, kWhite}));
    EXPECT_EQ(pixels, std::vector<std::uint32_t>(View().width, kGround));
}

}  // namespace
}  // namespace scenara::soft
