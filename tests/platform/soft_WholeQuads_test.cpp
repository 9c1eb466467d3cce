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
#include "platform/soft/Triangles.h"
#include "platform/soft/WholeQuads.h"
#include "support/Rounds.h"

namespace scenara::soft {
namespace {

using test::Blit;
using test::Corners;
using test::CornersOf;
using test::InOtherOrder;
using test::kCovering;
using test::Numbered;
using test::PlainTexture;
using test::RandomQuad;
using test::TestView;

constexpr PixelStates kPlain;
constexpr std::uint32_t kGround = 0x406080;

Texels OfSize(std::int32_t width, std::int32_t height) {
    return {{}, width, height, width};
}

std::optional<WholeQuad> Recognized(const Corners& corners, std::int32_t width = 64,
                                    std::int32_t height = 32) {
    return AsWholeQuad(corners, OfSize(width, height));
}

TEST(WholeQuads, AreRecognizedInBothOrders) {
    const WholeQuad expected{{10, 40, 8, false}, {20, 45, 4, false}, kWhite};
    const Corners corners = CornersOf({10, 20, 30, 25, 8, 4}, 64, 32);
    EXPECT_EQ(Recognized(corners), expected);
    EXPECT_EQ(Recognized(InOtherOrder(corners)), expected);
}

TEST(WholeQuads, AreRecognizedMirrored) {
    // Mirrored, the first pixel shows the texel before the negative source column.
    const WholeQuad expected{{10, 40, -9, true}, {20, 45, 4, false}, kWhite};
    const Corners corners = CornersOf({10, 20, 30, 25, 8, 4, true}, 64, 32);
    EXPECT_EQ(Recognized(corners), expected);
    EXPECT_EQ(Recognized(InOtherOrder(corners)), expected);
}

TEST(WholeQuads, AreRecognizedUpsideDown) {
    Corners corners = CornersOf({10, 20, 30, 25, 8, 4}, 64, 32);
    std::swap(corners[0].tv, corners[1].tv);
    std::swap(corners[2].tv, corners[3].tv);
    EXPECT_EQ(Recognized(corners), (WholeQuad{{10, 40, 8, false}, {20, 45, 28, true}, kWhite}));
}

TEST(WholeQuads, AreRecognizedWhereverTheyAre) {
    const WholeQuad expected{{-3000, -2970, -500, false}, {5000, 5025, 777, false}, kWhite};
    EXPECT_EQ(Recognized(CornersOf({-3000, 5000, 30, 25, -500, 777}, 64, 32)), expected);
}

TEST(WholeQuads, KeepOneColorForAllCorners) {
    Corners corners = CornersOf({10, 20, 30, 25, 0, 0, false, 0x80C0FFEE}, 64, 32);
    ASSERT_TRUE(Recognized(corners));
    EXPECT_EQ(Recognized(corners)->color, 0x80C0FFEEU);
    corners[2].color ^= 1U;
    EXPECT_FALSE(Recognized(corners));
}

struct OtherQuad {
    std::string what;
    std::size_t corner;
    float Vertex::*member;
    float value;
};

TEST(WholeQuads, OthersAreNotRecognized) {
    constexpr float kNan = std::numeric_limits<float>::quiet_NaN();
    constexpr float kInfinity = std::numeric_limits<float>::infinity();
    const Corners whole = CornersOf({10, 20, 32, 16, 0, 0}, 64, 32);
    ASSERT_TRUE(Recognized(whole));
    for (const OtherQuad& other : {
             OtherQuad{"a corner to the left", 0, &Vertex::x, 9},
             {"a corner below", 0, &Vertex::y, 37},
             {"a corner to the right", 3, &Vertex::x, 43},
             {"slanted texels", 1, &Vertex::tu, 0.5F},
             {"slanted lines", 2, &Vertex::tv, 0.25F},
             {"no number", 1, &Vertex::x, kNan},
             {"endless", 3, &Vertex::x, kInfinity},
             {"no texture coordinate", 1, &Vertex::tv, kNan},
             {"endless texels", 2, &Vertex::tu, kInfinity},
         }) {
        Corners corners = whole;
        corners.at(other.corner).*other.member = other.value;
        EXPECT_FALSE(Recognized(corners)) << other.what;
    }
    const auto moved = [&](float Vertex::*member, float by, std::size_t first, std::size_t second) {
        Corners corners = whole;
        corners.at(first).*member += by;
        corners.at(second).*member += by;
        return Recognized(corners).has_value();
    };
    EXPECT_FALSE(moved(&Vertex::x, 0.5F, 0, 1)) << "between pixels";
    EXPECT_FALSE(moved(&Vertex::y, -0.25F, 1, 3)) << "between lines";
    EXPECT_FALSE(moved(&Vertex::x, 1, 2, 3)) << "wider than its texels";
    EXPECT_FALSE(moved(&Vertex::y, 1, 0, 2)) << "higher than its texels";
    EXPECT_FALSE(moved(&Vertex::x, -33, 2, 3)) << "turned round";
    EXPECT_FALSE(moved(&Vertex::x, -32, 2, 3)) << "of no width";
    EXPECT_FALSE(moved(&Vertex::y, -17, 0, 2)) << "upside down on the screen";
    EXPECT_FALSE(moved(&Vertex::tu, 0.5F / 64, 0, 1)) << "half a texel off";
    EXPECT_FALSE(moved(&Vertex::x, 16777218, 2, 3)) << "too far";

    Corners corners = whole;
    corners[1].x = corners[0].x = -20000000;  // whole, but where texels are guesses
    EXPECT_FALSE(Recognized(corners));
    EXPECT_FALSE(AsWholeQuad(std::span(whole).first(3), OfSize(64, 32)));
}

// Texture coordinates are floats: at the far end of a wide texture they are off by up to 1/1000 of
// a texel.
TEST(WholeQuads, AreRecognizedAtEveryWidth) {
    for (std::int32_t width = 1; width <= 32767; ++width) {
        const std::int32_t column = width / 3;
        for (const bool mirrored : {false, true}) {
            const auto quad =
                AsWholeQuad(CornersOf({5, 6, width - column, 7, column, 0, mirrored}, width, 7),
                            OfSize(width, 7));
            ASSERT_TRUE(quad) << width;
            ASSERT_EQ(quad->columns.texel, mirrored ? -column - 1 : column) << width;
        }
    }
}

// What is drawn, against what is to be there.

void ExpectDrawn(const PlainTexture& texture, const Blit& blit, const PixelStates& states,
                 const Coverage& coverage) {
    const Texels texels = texture.Pixels();
    TestView view(kGround);
    ASSERT_TRUE(DrawWholeQuad(view.Pixels(), states, texels, coverage,
                              CornersOf(blit, texels.width, texels.height)));
    TestView expected(kGround);
    for (std::int32_t y = std::max(blit.y, 0); y < std::min(blit.y + blit.height, View().height);
         ++y) {
        for (std::int32_t x = std::max(blit.x, 0); x < std::min(blit.x + blit.width, View().width);
             ++x) {
            const std::uint32_t texel =
                texture.Texel(TexelOf(blit, texels.width, texels.height, x - blit.x, y - blit.y));
            if (!states.blending || texel >> 24U == 255) {
                expected.Pixels().pixels[static_cast<std::size_t>(y * View().width + x)] = texel;
            }
        }
    }
    ASSERT_EQ(view, expected) << texels.width << " x " << texels.height << ": " << blit.width
                              << " x " << blit.height << " from " << blit.sourceX << ","
                              << blit.sourceY << " to " << blit.x << "," << blit.y
                              << (blit.mirrored ? " mirrored" : "");
}

TEST(WholeQuads, MapTexelsOneToOneAtEveryWidth) {
    std::mt19937 random(9);
    for (std::int32_t width = 1; width <= 700; ++width) {
        const PlainTexture texture(
            width, 4,
            [&](std::int32_t x, std::int32_t y) {
                return (random() % 3 == 0 ? 0U : 0xFF000000U) | Numbered(x, y);
            },
            static_cast<std::int32_t>(random() % 3));
        const Coverage coverage = width % 4 == 0 ? Coverage() : Coverage::Of(texture.Pixels());
        const auto column = static_cast<std::int32_t>(random() % static_cast<unsigned>(width));
        const auto part =
            1 + static_cast<std::int32_t>(random() % static_cast<unsigned>(width - column));
        for (const bool mirrored : {false, true}) {
            for (const PixelStates& states : {kPlain, kCovering}) {
                // All of it from the left edge, all of it to the right edge, and a part.
                for (const Blit& blit : {Blit{0, 3, width, 4, 0, 0, mirrored},
                                         {320 - width, 3, width, 4, 0, 0, mirrored},
                                         {7, 236, part, 3, column, 1, mirrored}}) {
                    ExpectDrawn(texture, blit, states, coverage);
                }
            }
        }
        if (HasFatalFailure()) {
            return;
        }
    }
}

TEST(WholeQuads, WrapAroundTheTexture) {
    const PlainTexture texture(50, 20, [](std::int32_t x, std::int32_t y) {
        return ((x + y) % 5 == 0 ? 0U : 0xFF000000U) | Numbered(x, y);
    });
    const Coverage coverage = Coverage::Of(texture.Pixels());
    for (const bool mirrored : {false, true}) {
        for (const Blit& blit : {Blit{10, 10, 50, 20, 1, 0, mirrored},
                                 {10, 10, 50, 20, 49, 19, mirrored},
                                 {-30, -15, 400, 300, 0, 0, mirrored},
                                 {0, 0, 320, 240, -1, -1, mirrored},
                                 {0, 0, 320, 240, -1234, 4321, mirrored},
                                 {5, 5, 1, 1, 1049, 20, mirrored}}) {
            ExpectDrawn(texture, blit, kPlain, coverage);
            ExpectDrawn(texture, blit, kCovering, coverage);
        }
    }
}

TEST(WholeQuads, OffTheViewDrawNothing) {
    const PlainTexture texture(50, 20, [](auto, auto) { return kWhite; });
    const Texels texels = texture.Pixels();
    for (const Blit& blit : {Blit{-50, 0, 50, 20},
                             {320, 0, 50, 20},
                             {0, -20, 50, 20},
                             {0, 240, 50, 20},
                             {-16000000, 16000000, 50, 20},
                             {16000000, 0, 50, 20}}) {
        TestView view(kGround);
        EXPECT_TRUE(
            DrawWholeQuad(view.Pixels(), kPlain, texels, Coverage(), CornersOf(blit, 50, 20)));
        EXPECT_EQ(view, TestView(kGround));
    }
}

// Textures that repeat every few pixels, too, in one direction or both.
TEST(WholeQuads, OfShortRepeatsMapTexelsOneToOne) {
    for (const std::int32_t width : {1, 3, 7, 8, 9, 16, 17, 33, 320, 400}) {
        for (const std::int32_t height : {1, 2, 16, 17, 240, 300}) {
            const PlainTexture texture(width, height, [](std::int32_t x, std::int32_t y) {
                return ((x + y) % 5 == 1 ? 0U : 0xFF000000U) | Numbered(x, y);
            });
            const Coverage coverage = Coverage::Of(texture.Pixels());
            for (const bool mirrored : {false, true}) {
                for (const Blit& blit : {Blit{0, 0, 320, 240, 0, 0, mirrored},
                                         {-3, -5, 400, 300, 1, 2, mirrored},
                                         {7, 9, 100, 3, -11, 12, mirrored},
                                         {7, 9, 3, 100, 11, -12, mirrored}}) {
                    ExpectDrawn(texture, blit, kPlain, coverage);
                    ExpectDrawn(texture, blit, kCovering, coverage);
                }
            }
            if (HasFatalFailure()) {
                return;
            }
        }
    }
}

// The proof that the fast path is the general one, only faster: random quads on both.

TEST(WholeQuads, DrawWhatTheGeneralPathDraws) {
    std::mt19937 random(10);
    RandomQuad any(random);
    const int rounds = test::Rounds(1500);
    for (int round = 0; round < rounds; ++round) {
        const PlainTexture texture = any.Texture();
        const Texels texels = texture.Pixels();
        const Coverage coverage = any.Between(0, 1) == 0 ? Coverage::Of(texels) : Coverage();
        const CanvasSize size = any.Size();
        TestView fast = any.Coloured(size);
        TestView general = fast;
        // Several on one another, as they are in a frame.
        for (int quad = 0; quad < 4; ++quad) {
            const Blit blit = any.BlitOf(texels, size);
            Corners corners = CornersOf(blit, texels.width, texels.height);
            if (any.Between(0, 1) == 0) {
                corners = InOtherOrder(corners);
            }
            if (any.Between(0, 3) == 0) {  // upside down
                for (Vertex& corner : corners) {
                    corner.tv = -corner.tv;
                }
            }
            PixelStates states = any.States();
            states.sampling.linear = any.Between(0, 3) == 0;  // on whole pixels the same
            states.sampling.clampColumns = any.Between(0, 5) == 0;
            states.sampling.clampLines = any.Between(0, 5) == 0;
            const Target part = any.Clipped(fast.Pixels());
            if (!DrawWholeQuad(part, states, texels, coverage, corners)) {
                ASSERT_TRUE(states.sampling.clampColumns || states.sampling.clampLines);
                continue;
            }
            Target same = part;
            same.pixels = general.Pixels().pixels;
            DrawStrip(same, states, &texels, corners);
            ASSERT_EQ(fast, general)
                << "round " << round << ": texture " << texels.width << " x " << texels.height
                << ", " << blit.width << " x " << blit.height << " from " << blit.sourceX << ","
                << blit.sourceY << " to " << blit.x << "," << blit.y
                << (blit.mirrored ? " mirrored, " : ", ") << std::hex << blit.color;
        }
    }
}

// Where a float's error brings the outermost texels off: recognized or not, both paths agree.
TEST(WholeQuads, AgreeWithTheGeneralPathAboutFarTexels) {
    std::mt19937 random(11);
    RandomQuad any(random);
    int recognized = 0;
    const int rounds = test::Rounds(2000);
    for (int round = 0; round < rounds; ++round) {
        const std::int32_t width = any.Between(1, 3000);
        const PlainTexture texture(width, 1, Numbered);
        const Texels texels = texture.Pixels();
        const std::int32_t far = 1 << any.Between(8, 26);
        const std::int32_t shift = any.Between(-far, far);
        const std::int32_t blitWidth = any.Between(1, any.Between(0, 1) == 0 ? 320 : far);
        const Blit blit{any.Between(-blitWidth, 319), 0, blitWidth, 1, shift, 0,
                        any.Between(0, 1) == 0};
        const Corners corners = CornersOf(blit, width, 1);
        TestView fast(kGround);
        if (!DrawWholeQuad(fast.Pixels(), kPlain, texels, Coverage(), corners)) {
            continue;
        }
        ++recognized;
        TestView general(kGround);
        DrawStrip(general.Pixels(), kPlain, &texels, corners);
        ASSERT_EQ(fast, general) << width << ": " << blit.width << " from " << blit.sourceX
                                 << " to " << blit.x;
    }
    EXPECT_GT(recognized, rounds / 4);
    EXPECT_LT(recognized, rounds);
}

}  // namespace
}  // namespace scenara::soft
