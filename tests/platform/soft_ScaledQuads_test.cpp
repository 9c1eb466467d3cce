// SPDX-License-Identifier: MIT
#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "RandomQuads.h"
#include "SoftQuads.h"
#include "platform/soft/ScaledQuads.h"
#include "platform/soft/Triangles.h"
#include "support/Rounds.h"

namespace scenara::soft {
namespace {

using test::Corners;
using test::InOtherOrder;
using test::kCovering;
using test::NearestOf;
using test::Numbered;
using test::PlainTexture;
using test::RandomQuad;
using test::ScaledBlit;
using test::ScaledCornersOf;
using test::TestView;

constexpr std::uint32_t kGround = 0x406080;

std::optional<ScaledQuad> Recognized(const Corners& corners) {
    return AsScaledQuad(corners, {{}, 64, 32, 64});
}

struct RecognizedRow {
    std::string what;
    ScaledBlit blit;
    ScaledRun columns;
    ScaledRun lines;
};

TEST(ScaledQuads, AreRecognizedInBothOrders) {
    for (const RecognizedRow& row : {
             RecognizedRow{"enlarged",
                           {10, 20, 128, 96, 0, 0, 64, 32},
                           {10, 138, 0, 64, false},
                           {20, 116, 0, 32, false}},
             {"reduced",
              {10, 20, 16, 9, 0, 0, 64, 32},
              {10, 26, 0, 64, false},
              {20, 29, 0, 32, false}},
             {"a part",
              {10, 20, 16, 9, 7, 3, 51, 29},
              {10, 26, 7, 51, false},
              {20, 29, 3, 29, false}},
             {"repeated",
              {-9, -8, 16, 9, -7, 300, 500, 1},
              {-9, 7, -7, 500, false},
              {-8, 1, 300, 1, false}},
             {"mirrored",
              {10, 20, 16, 9, 7, 3, 51, 29, true},
              {10, 26, -58, 51, true},
              {20, 29, 3, 29, false}},
             {"upside down",
              {10, 20, 16, 9, 7, 3, 51, 29, false, true},
              {10, 26, 7, 51, false},
              {20, 29, -32, 29, true}},
             {"of the same size",
              {10, 20, 64, 32, 0, 0, 64, 32},
              {10, 74, 0, 64, false},
              {20, 52, 0, 32, false}},
         }) {
        const Corners corners = ScaledCornersOf(row.blit, 64, 32);
        const ScaledQuad expected{row.columns, row.lines, kWhite};
        EXPECT_EQ(Recognized(corners), expected) << row.what;
        EXPECT_EQ(Recognized(InOtherOrder(corners)), expected) << row.what;
    }
}

struct OtherQuad {
    std::string what;
    float Vertex::*member;
    float by;
    std::size_t first;
    std::size_t second;
};

TEST(ScaledQuads, OthersAreNotRecognized) {
    constexpr float kNan = std::numeric_limits<float>::quiet_NaN();
    const Corners scaled = ScaledCornersOf({10, 20, 99, 77, 0, 0, 64, 32}, 64, 32);
    ASSERT_TRUE(Recognized(scaled));
    for (const OtherQuad& other : {
             OtherQuad{"between pixels", &Vertex::x, 0.5F, 0, 1},
             {"between lines", &Vertex::y, -0.25F, 1, 3},
             {"turned round", &Vertex::x, -200, 2, 3},
             {"upside down on the screen", &Vertex::y, -200, 0, 2},
             {"of no height", &Vertex::y, -77, 0, 2},
             {"too wide", &Vertex::x, 262144, 2, 3},
             {"too far", &Vertex::x, -16777216, 0, 1},
             {"half a texel off", &Vertex::tu, 0.5F / 64, 0, 1},
             {"a hundredth of a line off", &Vertex::tv, 0.01F / 32, 0, 2},
             {"far texels", &Vertex::tu, 16385, 0, 1},
             {"slanted", &Vertex::x, 1, 1, 1},
             {"slanted texels", &Vertex::tu, 0.25F, 2, 2},
             {"no number", &Vertex::x, kNan, 0, 1},
             {"no texel", &Vertex::tu, kNan, 0, 1},
         }) {
        Corners corners = scaled;
        corners.at(other.first).*other.member += other.by;
        if (other.second != other.first) {
            corners.at(other.second).*other.member += other.by;
        }
        EXPECT_FALSE(Recognized(corners)) << other.what;
    }
    Corners corners = scaled;
    corners[2].color ^= 1U;
    EXPECT_FALSE(Recognized(corners)) << "two colours";
    EXPECT_FALSE(AsScaledQuad(std::span(scaled).first(3), {{}, 64, 32, 64})) << "a triangle";
}

TEST(ScaledQuads, OfOneCoordinateAreRecognized) {
    Corners corners = ScaledCornersOf({10, 20, 16, 9, 0, 0, 64, 1}, 64, 32);
    for (Vertex& corner : corners) {
        corner.tv = 5.5F / 32;
    }
    const ScaledQuad expected{{10, 26, 0, 64, false}, {20, 29, 5.5, 0, false}, kWhite};
    EXPECT_EQ(Recognized(corners), expected);
}

// Against whole numbers: quads that are much larger than the view, as it goes over them.
TEST(ScaledQuads, OfAnySizeShowWhatTheRuleSays) {
    const PlainTexture texture(700, 500, [](std::int32_t x, std::int32_t y) {
        return (x / 9 % 2 == y / 7 % 2 ? 0xFF000000U : 0U) | Numbered(x, y);
    });
    const Texels texels = texture.Pixels();
    const Coverage coverage = Coverage::Of(texels);
    for (const std::int32_t width : {175, 350, 699, 701, 1400, 3500, 70000, 262144}) {
        for (const std::int32_t height : {125, 501, 1000, 20000}) {
            for (const bool backwards : {false, true}) {
                const ScaledBlit blit{
                    (320 - width) / 3, (240 - height) / 4, width, height, 0, 0, 700, 500,
                    backwards,         !backwards};
                TestView view(kGround);
                ASSERT_TRUE(DrawScaledQuad(view.Pixels(), kCovering, texels, coverage,
                                           ScaledCornersOf(blit, 700, 500)));
                for (std::int32_t y = std::max(blit.y, 0); y < std::min(blit.y + height, 240);
                     y += 3) {
                    const auto line = static_cast<std::int32_t>(
                        NearestOf(0, 500, height, y - blit.y, blit.flipped));
                    for (std::int32_t x = std::max(blit.x, 0); x < std::min(blit.x + width, 320);
                         ++x) {
                        const auto column = static_cast<std::int32_t>(
                            NearestOf(0, 700, width, x - blit.x, blit.mirrored));
                        const std::uint32_t texel = texture.Texel({column, line});
                        ASSERT_EQ(view.At(x, y), texel >> 24U == 0 ? kGround : texel & kColorMask)
                            << width << " x " << height << " at " << x << "," << y;
                    }
                }
            }
        }
    }
}

// Over the texture's edge: the last column shown may be as far before the first one as it would be
// after it without the edge.
TEST(ScaledQuads, OfHalfATextureShowWhatTheRuleSays) {
    const PlainTexture texture(
        20, 1, [](std::int32_t x, std::int32_t y) { return 0xFF000000U | Numbered(x, y); });
    for (std::int32_t start = 0; start < 20; ++start) {
        for (const bool mirrored : {false, true}) {
            TestView view(kGround);
            ASSERT_TRUE(
                DrawScaledQuad(view.Pixels(), kCovering, texture.Pixels(), Coverage(),
                               ScaledCornersOf({5, 0, 13, 9, start, 0, 11, 1, mirrored}, 20, 1)));
            for (std::int32_t x = 0; x < 13; ++x) {
                const auto column =
                    static_cast<std::int32_t>(NearestOf(start, 11, 13, x, mirrored)) % 20;
                EXPECT_EQ(view.At(5 + x, 3), texture.Texel({column, 0}) & kColorMask)
                    << start << (mirrored ? " mirrored" : "") << " at " << x;
            }
        }
    }
}

// The proof that this path is the general one, only faster: random quads on both.
TEST(ScaledQuads, DrawWhatTheGeneralPathDraws) {
    std::mt19937 random(12);
    RandomQuad any(random);
    const int rounds = test::Rounds(1500);
    int leftToOthers = 0;
    for (int round = 0; round < rounds; ++round) {
        const PlainTexture texture = any.Texture();
        const Texels texels = texture.Pixels();
        const Coverage coverage = any.Between(0, 2) > 0 ? Coverage::Of(texels) : Coverage();
        const CanvasSize size = any.Size();
        TestView fast = any.Coloured(size);
        TestView general = fast;
        for (int quad = 0; quad < 4; ++quad) {
            const ScaledBlit blit = any.ScaledBlitOf(texels, size);
            Corners corners = ScaledCornersOf(blit, texels.width, texels.height);
            if (any.Between(0, 9) == 0) {  // one line of texels
                corners[0].tv = corners[1].tv = corners[2].tv = corners[3].tv;
            }
            if (any.Between(0, 1) == 0) {
                corners = InOtherOrder(corners);
            }
            PixelStates states = any.States();
            states.sampling.clampColumns = any.Between(0, 1) == 0;
            states.sampling.clampLines = any.Between(0, 1) == 0;
            states.sampling.linear = any.Between(0, 1) == 0;
            const Target part = any.Clipped(fast.Pixels());
            if (!DrawScaledQuad(part, states, texels, coverage, corners)) {
                ASSERT_TRUE(states.sampling.linear && states.blending);
                ++leftToOthers;
                continue;
            }
            Target same = part;
            same.pixels = general.Pixels().pixels;
            DrawStrip(same, states, &texels, corners);
            ASSERT_EQ(fast, general)
                << "round " << round << ": " << blit.columns << " x " << blit.lines << " texels of "
                << texels.width << " x " << texels.height << " from " << blit.sourceX << ","
                << blit.sourceY << " over " << blit.width << " x " << blit.height << " at "
                << blit.x << "," << blit.y << (blit.mirrored ? " mirrored" : "")
                << (blit.flipped ? " flipped, " : ", ") << std::hex << blit.color;
        }
    }
    EXPECT_LT(leftToOthers, rounds);
}

}  // namespace
}  // namespace scenara::soft
