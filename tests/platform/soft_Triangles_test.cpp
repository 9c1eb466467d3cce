// SPDX-License-Identifier: MIT
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <random>
#include <span>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "SoftQuads.h"
#include "platform/soft/Triangles.h"
#include "support/Rounds.h"

namespace scenara::soft {
namespace {

using test::Blit;
using test::Corner;
using test::Corners;
using test::CornersOf;
using test::kAdding;
using test::kViewPixels;
using test::PlainTexture;
using test::TestView;

constexpr PixelStates kPlain;
constexpr std::uint32_t kInk = 0xFF123456;
constexpr std::uint32_t kInkColor = 0x123456;

// Adds 1 to each channel of what it covers, so that a pixel drawn twice shows.
constexpr std::uint32_t kOnce = 0xFF010101;
constexpr std::uint32_t kOnceColor = 0x010101;

using Points = std::vector<std::pair<double, double>>;

// A strip of one colour through the points.
std::vector<Vertex> StripOf(const Points& points, std::uint32_t color) {
    std::vector<Vertex> strip;
    for (const auto& [x, y] : points) {
        strip.push_back(Corner(x, y, color));
    }
    return strip;
}

void Draw(TestView& view, const Points& points, std::uint32_t color = kInk,
          const PixelStates& states = kPlain) {
    DrawStrip(view.Pixels(), states, nullptr, StripOf(points, color));
}

// The same with a texture.
void Draw(TestView& view, const PlainTexture& texture, std::span<const Vertex> corners,
          const PixelStates& states = kPlain) {
    const Texels texels = texture.Pixels();
    DrawStrip(view.Pixels(), states, &texels, corners);
}

// Each texel is its line times 16 and its column and 1.
PlainTexture Counted(std::int32_t width, std::int32_t height, std::int32_t padding = 0) {
    return {width, height,
            [](std::int32_t x, std::int32_t y) {
                return 0xFF000000U + static_cast<std::uint32_t>(y * 16 + x + 1);
            },
            padding};
}

TEST(Triangles, APixelBelongsToTheTriangleThatHasItsCenter) {
    TestView view;
    // Centres of pixels 10 to 12 across, 20 and 21 down.
    Draw(view, {{10.4, 20.4}, {12.6, 20.4}, {10.4, 21.6}, {12.6, 21.6}});
    EXPECT_EQ(view.Count(kInkColor), 6U);
    EXPECT_EQ(view.At(10, 20), kInkColor);
    EXPECT_EQ(view.At(12, 21), kInkColor);
}

TEST(Triangles, OnlyTopAndLeftEdgesHaveTheCentersThatLieOnThem) {
    TestView view;
    // A triangle with all edges through centres: 10 pixels in its first line, one less in each
    // below, none of the long edge.
    Draw(view, {{10.5, 30.5}, {20.5, 30.5}, {10.5, 40.5}});
    EXPECT_EQ(view.Count(kInkColor), 55U);
    for (std::int32_t line = 0; line < 10; ++line) {
        EXPECT_EQ(view.At(10, 30 + line), kInkColor);
        EXPECT_EQ(view.At(19 - line, 30 + line), kInkColor);
        EXPECT_EQ(view.At(20 - line, 30 + line), 0U);
    }
    EXPECT_EQ(view.At(10, 40), 0U);

    TestView turned;  // its bottom edge and its right edge are level and upright now
    Draw(turned, {{20.5, 30.5}, {20.5, 40.5}, {10.5, 40.5}});
    EXPECT_EQ(turned.Count(kInkColor), 45U);
    EXPECT_EQ(turned.At(19, 31), kInkColor) << "on the long edge, a left one";
    EXPECT_EQ(turned.At(20, 35), 0U);
    EXPECT_EQ(turned.At(15, 40), 0U);
}

TEST(Triangles, CounterClockwiseOnesAreCulled) {
    TestView view;
    Draw(view, {{10, 10}, {10, 50}, {50, 10}});
    EXPECT_EQ(view.Count(kInkColor), 0U);
    Draw(view, {{10, 10}, {50, 10}, {10, 50}});
    EXPECT_GT(view.Count(kInkColor), 0U);
}

TEST(Triangles, AStripTakesEverySecondOneTheOtherWayRound) {
    const std::pair<double, double> leftTop{10, 10};
    const std::pair<double, double> rightTop{20, 10};
    const std::pair<double, double> leftBottom{10, 20};
    const std::pair<double, double> rightBottom{20, 20};
    for (const Points& drawn : {Points{leftTop, rightTop, leftBottom, rightBottom},
                                Points{leftBottom, leftTop, rightBottom, rightTop}}) {
        TestView view;
        Draw(view, drawn);
        EXPECT_EQ(view.Count(kInkColor), 100U);
    }
    for (const Points& culled : {Points{rightTop, leftTop, rightBottom, leftBottom},
                                 Points{leftBottom, rightBottom, leftTop, rightTop}}) {
        TestView view;
        Draw(view, culled);
        EXPECT_EQ(view.Count(kInkColor), 0U);
    }
}

TEST(Triangles, ALongStripIsDrawnToItsEnd) {
    TestView view;
    Points points;
    for (int i = 0; i <= 30; ++i) {
        points.emplace_back(i * 10, 100);
        points.emplace_back(i * 10, 110);
    }
    // Upper first would be counter-clockwise.
    for (std::size_t i = 0; i < points.size(); i += 2) {
        std::swap(points[i], points[i + 1]);
    }
    Draw(view, points, kOnce, kAdding);
    EXPECT_EQ(view.Count(kOnceColor), 3000U);
}

TEST(Triangles, LinesAndPointsDrawNothing) {
    TestView view;
    Draw(view, {{10, 10}, {200, 200}, {100, 100}});
    Draw(view, {{10, 10.5}, {200, 10.5}, {100, 10.5}});
    Draw(view, {{10.5, 10.5}, {10.5, 10.5}, {10.5, 10.5}});
    EXPECT_EQ(view, TestView());
}

// Fans around a point that fill the view: every pixel once, wherever the point and the rim are.
TEST(Triangles, ThatShareEdgesDrawEveryPixelOnce) {
    std::mt19937 random(3);
    const auto within = [&](double from, double to, bool fine) {
        const double place = std::uniform_real_distribution<double>(from, to)(random);
        return fine ? place : std::floor(place * 2) / 2;  // halves go through many centres
    };
    for (int round = 0; round < 400; ++round) {
        const bool fine = round % 2 == 0;
        const Points rim{
            {0, 0},     {within(0, 320, fine), 0},   {320, 0}, {320, within(0, 240, fine)},
            {320, 240}, {within(0, 320, fine), 240}, {0, 240}, {0, within(0, 240, fine)}};
        const std::pair middle{within(0, 320, fine), within(0, 240, fine)};
        TestView view;
        for (std::size_t i = 0; i < rim.size(); ++i) {
            Draw(view, {middle, rim[i], rim[(i + 1) % rim.size()]}, kOnce, kAdding);
        }
        ASSERT_EQ(view.Count(kOnceColor), kViewPixels)
            << "round " << round << " around " << middle.first << ", " << middle.second;
    }
}

// Two sides of one edge that reaches far out of the view.
TEST(Triangles, ThatShareAFarEdgeDrawEveryPixelOnce) {
    std::mt19937 random(4);
    std::uniform_real_distribution<double> anywhere(-1e9, 1e9);
    std::uniform_real_distribution<double> inView(0, 240);
    constexpr double kFar = 4e9;
    for (int round = 0; round < 200; ++round) {
        const std::pair a{inView(random), -std::abs(anywhere(random)) - 1};
        const std::pair b{inView(random), std::abs(anywhere(random)) + 241};
        TestView view;
        Draw(view, {a, b, {-kFar, inView(random)}}, kOnce, kAdding);
        Draw(view, {a, {kFar, inView(random)}, b}, kOnce, kAdding);
        ASSERT_EQ(view.Count(0) + view.Count(kOnceColor), kViewPixels) << "none twice";
        ASSERT_GT(view.Count(kOnceColor), 0U);
    }
}

// By hand: of the corners a pixel's centre has shares of half a pixel in 320 and in 240.
TEST(Triangles, AGradientHasTheColorsOfTheCentersOfPixels) {
    TestView view;
    const Corners corners{Corner(0, 0, 0xFFFF0000), Corner(320, 0, 0xFF00FF00),
                          Corner(0, 240, 0xFF0000FF), Corner(320, 240, 0xFFFFE100)};
    DrawStrip(view.Pixels(), kPlain, nullptr, corners);
    EXPECT_EQ(view.At(0, 0), 0xFE0001U);      // 254.07, 0.40, 0.53
    EXPECT_EQ(view.At(319, 0), 0x00FF00U);    // 0.13, 254.59, 0.40
    EXPECT_EQ(view.At(0, 239), 0x0000FEU);    // 0.13, 0.40, 254.47
    EXPECT_EQ(view.At(319, 239), 0xFEE100U);  // 254.07, 224.71, 0.40
    EXPECT_EQ(view.At(159, 119), 0x017F7FU);  // 0.93, 127.10, 126.97
}

TEST(Triangles, AGradientOfAlphaBlends) {
    TestView view(0x000000);
    const Corners corners{Corner(0, 0, 0x00FFFFFF), Corner(320, 0, 0xFFFFFFFF),
                          Corner(0, 9, 0x00FFFFFF), Corner(320, 9, 0xFFFFFFFF)};
    const PlainTexture white(1, 1, [](auto, auto) { return kWhite; });
    Draw(view, white, corners, test::kCovering);
    EXPECT_EQ(view.At(0, 4), 0x000000U);    // 0.40
    EXPECT_EQ(view.At(99, 4), 0x4F4F4FU);   // 79.29
    EXPECT_EQ(view.At(319, 4), 0xFFFFFFU);  // 254.60
    EXPECT_EQ(view.At(319, 9), 0x000000U) << "below";
}

TEST(Triangles, WithoutATextureAreWhiteTimesTheirColor) {
    TestView view(0x406080);
    PixelStates states = test::kCovering;
    const Points points{{0, 0}, {320, 0}, {0, 240}, {320, 240}};
    Draw(view, points, 0x64000000, states);
    EXPECT_EQ(view.At(0, 0), 0x273A4EU) << "alpha 100";
    states.alphaOperation = D3DTOP_SELECTARG1;
    Draw(view, points, 0x64000000, states);
    EXPECT_EQ(view.At(0, 0), 0U) << "white's alpha";
}

TEST(Triangles, ScaledTexturesShowTheTexelUnderEachCenter) {
    TestView view;
    // 2.5 pixels per texel, at a place between pixels: texel edges at 10.25, 12.75, 15.25, 17.75
    // across and at 20.25, 22.75, 25.25 down.
    const Corners corners{Corner(10.25, 20.25, kWhite, 0, 0), Corner(17.75, 20.25, kWhite, 1, 0),
                          Corner(10.25, 25.25, kWhite, 0, 1), Corner(17.75, 25.25, kWhite, 1, 1)};
    Draw(view, Counted(3, 2, 5), corners);
    const std::uint32_t columns[] = {1, 1, 1, 2, 2, 3, 3, 3};  // centres 10.5, 11.5 … 17.5
    for (std::int32_t x = 0; x < 8; ++x) {
        EXPECT_EQ(view.At(10 + x, 20), columns[x]) << x;
        EXPECT_EQ(view.At(10 + x, 22), columns[x]) << x;
        EXPECT_EQ(view.At(10 + x, 23), 16 + columns[x]) << x;
        EXPECT_EQ(view.At(10 + x, 24), 16 + columns[x]) << x;
    }
    EXPECT_EQ(view.Count(0), kViewPixels - 40);
}

TEST(Triangles, TexturesWrapAroundInBothDirections) {
    TestView view;
    const Blit blit{100, 100, 20, 10, -7, -3, false};
    Draw(view, Counted(3, 2), CornersOf(blit, 3, 2));
    for (std::int32_t y = 0; y < 10; ++y) {
        for (std::int32_t x = 0; x < 20; ++x) {
            const auto column = static_cast<std::uint32_t>((x + 2) % 3);  // -7 is 2, 3 times back
            const auto line = static_cast<std::uint32_t>((y + 1) % 2);
            EXPECT_EQ(view.At(100 + x, 100 + y), line * 16 + column + 1) << x << "," << y;
        }
    }
}

// Slanted as Set_Shadow makes them: a texture's line stays a line, shifted by half a pixel each.
TEST(Triangles, ASlantedTextureIsShiftedLineByLine) {
    TestView view;
    // Leaning left: the upper edge 8 to the left over 8 lines, so line y begins at 92 + y + 0.5.
    const Corners corners{Corner(92, 50, kWhite, 0, 0), Corner(100, 50, kWhite, 1, 0),
                          Corner(100, 58, kWhite, 0, 1), Corner(108, 58, kWhite, 1, 1)};
    Draw(view, Counted(8, 8), corners);
    for (std::int32_t y = 0; y < 8; ++y) {
        EXPECT_EQ(view.At(91 + y, 50 + y), 0U);
        for (std::int32_t x = 0; x < 8; ++x) {
            const auto expected = static_cast<std::uint32_t>(y * 16 + x + 1);
            EXPECT_EQ(view.At(92 + y + x, 50 + y), expected) << x << "," << y;
        }
        EXPECT_EQ(view.At(100 + y, 50 + y), 0U) << "on a right edge";
    }
}

// Every width that a texture can have: its last columns, plain and mirrored.
TEST(Triangles, MapTexelsOneToOneAtEveryWidth) {
    const PlainTexture texture(32767, 1, [](std::int32_t x, std::int32_t /*y*/) {
        return 0xFF000000U + static_cast<std::uint32_t>(x);
    });
    TestView view(0xFFFFFF);
    for (std::int32_t width = 1; width <= 32767; ++width) {
        Texels texels = texture.Pixels();
        texels.width = width;
        const std::int32_t shown = std::min(width, View().width);
        // The whole texture with its end at the view's right edge, and mirrored at its left edge.
        const Blit plain{View().width - width, 0, width, 1, 0, 0, false};
        const Blit mirrored{0, 1, width, 1, 0, 0, true};
        DrawStrip(view.Pixels(), kPlain, &texels, CornersOf(plain, width, 1));
        DrawStrip(view.Pixels(), kPlain, &texels, CornersOf(mirrored, width, 1));
        for (std::int32_t i = 0; i < shown; ++i) {
            const auto texel = static_cast<std::uint32_t>(width - 1 - i);
            ASSERT_EQ(view.At(View().width - 1 - i, 0), texel) << width;
            ASSERT_EQ(view.At(i, 1), texel) << width << " mirrored";
        }
        if (width <= View().width) {
            ASSERT_EQ(view.Count(0xFFFFFF), kViewPixels - 2 * static_cast<std::size_t>(width));
        }
    }
    EXPECT_EQ(view.Count(0xFFFFFF), kViewPixels - 2U * View().width);
}

TEST(Triangles, OfHugeSizeCoverTheView) {
    for (const double size : {1e4, 1e7, 2147483648.0, 1e15, 1e30, 3e38}) {
        TestView view;
        Draw(view, {{-size, -size}, {size, -size}, {-size, size}, {size, size}}, kOnce, kAdding);
        EXPECT_EQ(view.Count(kOnceColor), kViewPixels) << size;
    }
}

TEST(Triangles, ALargeQuadShowsItsTexelsAtAnyDistance) {
    // 2^24 pixels to the left, where a float still tells whole pixels: 4000 repeats away.
    constexpr std::int32_t kFar = 1 << 24;
    const PlainTexture texture(4096, 1, [](std::int32_t x, std::int32_t /*y*/) {
        return 0xFF000000U + static_cast<std::uint32_t>(x);
    });
    TestView view(0xFFFFFF);
    const Blit blit{-kFar, 0, kFar + 256, 1, 0, 0, false};
    Draw(view, texture, CornersOf(blit, 4096, 1));
    for (std::int32_t x = 0; x < 256; ++x) {
        ASSERT_EQ(view.At(x, 0), static_cast<std::uint32_t>(x));  // 2^24 is 4096 times 4096
    }
    EXPECT_EQ(view.At(256, 0), 0xFFFFFFU);
}

constexpr float kHostile[] = {std::numeric_limits<float>::quiet_NaN(),
                              std::numeric_limits<float>::infinity(),
                              -std::numeric_limits<float>::infinity(),
                              std::numeric_limits<float>::max(),
                              -std::numeric_limits<float>::max(),
                              std::numeric_limits<float>::denorm_min(),
                              std::numeric_limits<float>::min(),
                              1e20F,
                              -1e10F,
                              4294967296.0F,
                              2147483648.0F,
                              -2147483648.0F,
                              0.0F,
                              -0.0F};

TEST(Triangles, WithACoordinateThatIsNoNumberDrawNothing) {
    const PlainTexture texture(2, 2, [](auto, auto) { return kInk; });
    const auto draws = [&](const std::array<Vertex, 3>& corners) {
        TestView view;
        Draw(view, texture, corners);
        return !(view == TestView());
    };
    const std::array corners{Corner(0, 0, kWhite, 0, 0), Corner(300, 0, kWhite, 1, 0),
                             Corner(0, 200, kWhite, 0, 1)};
    EXPECT_TRUE(draws(corners));
    for (float Vertex::*const member : {&Vertex::x, &Vertex::y, &Vertex::tu, &Vertex::tv}) {
        for (const float value : {kHostile[0], kHostile[1], kHostile[2]}) {
            for (std::size_t i = 0; i < 3; ++i) {
                auto wrong = corners;
                wrong.at(i).*member = value;
                EXPECT_FALSE(draws(wrong));
            }
        }
    }
    auto meaningless = corners;
    meaningless[0].tu = meaningless[1].tu = meaningless[2].tu = 1e13F;
    EXPECT_FALSE(draws(meaningless)) << "no texels are that far";
}

// Whatever the corners are: it ends soon, and the sanitizers see nothing.
TEST(Triangles, TakeAnyCorners) {
    std::mt19937 random(5);
    const PlainTexture texture(7, 5, [](auto, auto) { return 0x80FFFFFFU; });
    const Texels texels = texture.Pixels();
    TestView view;
    const auto value = [&]() -> float {
        if (random() % 3 == 0) {
            return std::uniform_real_distribution<float>(-400, 400)(random);
        }
        return kHostile[random() % std::size(kHostile)];
    };
    const int rounds = test::Rounds(10000);
    for (int round = 0; round < rounds; ++round) {
        Corners corners;
        for (Vertex& corner : corners) {
            corner.x = value();
            corner.y = value();
            corner.z = value();
            corner.rhw = value();
            corner.tu = value();
            corner.tv = value();
            corner.color = static_cast<std::uint32_t>(random());
        }
        DrawStrip(view.Pixels(), test::kCovering, round % 2 == 0 ? &texels : nullptr, corners);
    }
    EXPECT_NE(view, TestView()) << "some of them are drawn";
}

}  // namespace
}  // namespace scenara::soft
