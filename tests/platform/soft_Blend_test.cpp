// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <random>
#include <vector>

#include <gtest/gtest.h>

#include "SoftQuads.h"
#include "platform/soft/Blend.h"
#include "platform/soft/PixelRows.h"

namespace scenara::soft {
namespace {

using test::kAdding;
using test::kCovering;

constexpr std::uint32_t kGround = 0x406080;

std::uint32_t ColorOf(std::uint32_t pixel) {
    return pixel & kColorMask;
}

PixelStates States(std::uint32_t source, std::uint32_t destination, std::uint32_t operation) {
    return {true, source, destination, operation, D3DTOP_MODULATE};
}

// What other devices were seen to draw.
TEST(Blend, GivesTheMeasuredValues) {
    EXPECT_EQ(ColorOf(Blended(0x80FFFFFF, kGround, kCovering)), 0xA0B0C0U);
    EXPECT_EQ(ColorOf(Blended(0x40FF0000, kGround, kCovering)), 0x704860U);
    const std::uint32_t shadow = TintOf(0x64000000, D3DTOP_MODULATE);
    EXPECT_EQ(ColorOf(Blended(Tinted(0x80FFFFFF, shadow), kGround, kCovering)), 0x334D67U);
    EXPECT_EQ(ColorOf(Blended(Tinted(0xFFFFFFFF, shadow), kGround, kCovering)), 0x273A4EU);
}

TEST(Blend, AnAlphaOf0LeavesThePixelAndOneOf255ReplacesIt) {
    for (std::uint32_t value = 0; value < 256; ++value) {
        const std::uint32_t gray = value * 0x010101;
        EXPECT_EQ(ColorOf(Blended(0x00FF8000, gray, kCovering)), gray);
        EXPECT_EQ(ColorOf(Blended(0xFF000000 | gray, kGround, kCovering)), gray);
    }
}

TEST(Blend, WithoutBlendingTheSourceIsDrawnWhateverItsAlpha) {
    PixelStates states = kCovering;
    states.blending = false;
    EXPECT_EQ(ColorOf(Blended(0x00112233, kGround, states)), 0x112233U);
    EXPECT_EQ(ColorOf(Blended(0x80112233, kGround, states)), 0x112233U);
}

struct FactorRow {
    std::uint32_t source;
    std::uint32_t destination;
    std::uint32_t operation;
    std::uint32_t expected;  // of 0x66AA5020 (alpha 102 = 0.4) over 0x406080
};

TEST(Blend, EveryFactorAndOperation) {
    constexpr std::uint32_t kZero = D3DBLEND_ZERO;
    constexpr std::uint32_t kOne = D3DBLEND_ONE;
    constexpr std::uint32_t kAlpha = D3DBLEND_SRCALPHA;
    constexpr std::uint32_t kInverse = D3DBLEND_INVSRCALPHA;
    constexpr std::uint32_t kAdd = D3DBLENDOP_ADD;
    constexpr std::uint32_t kSubtract = D3DBLENDOP_SUBTRACT;
    constexpr std::uint32_t kReverse = D3DBLENDOP_REVSUBTRACT;
    // Source channels 170, 80, 32; destination channels 64, 96, 128.
    const FactorRow rows[] = {
        {kZero, kZero, kAdd, 0x000000},         {kOne, kZero, kAdd, 0xAA5020},
        {kZero, kOne, kAdd, 0x406080},          {kOne, kOne, kAdd, 0xEAB0A0},  // 234, 176, 160
        {kAlpha, kZero, kAdd, 0x44200D},                                       // 68, 32, 12.8
        {kInverse, kZero, kAdd, 0x663013},                                     // 102, 48, 19.2
        {kZero, kAlpha, kAdd, 0x1A2633},                                       // 25.6, 38.4, 51.2
        {kZero, kInverse, kAdd, 0x263A4D},                                     // 38.4, 57.6, 76.8
        {kAlpha, kInverse, kAdd, 0x6A5A5A},                                    // 106.4, 89.6, 89.6
        {kAlpha, kOne, kAdd, 0x84808D},                                        // 132, 128, 140.8
        {kInverse, kAlpha, kAdd, 0x805646},                                    // 127.6, 86.4, 70.4
        {kOne, kOne, kSubtract, 0x6A0000},                                     // 106, below, below
        {kOne, kOne, kReverse, 0x001060},                                      // below, 16, 96
        {kAlpha, kOne, kSubtract, 0x040000},                                   // 4, below, below
        {kAlpha, kOne, kReverse, 0x004073},                                    // below, 64, 115.2
        {kAlpha, kInverse, kReverse, 0x001A40},                                // below, 25.6, 64
    };
    for (const FactorRow& row : rows) {
        EXPECT_EQ(ColorOf(Blended(0x66AA5020, kGround,
                                  States(row.source, row.destination, row.operation))),
                  row.expected)
            << row.source << " " << row.destination << " " << row.operation;
    }
}

TEST(Blend, SumsStopAt255) {
    EXPECT_EQ(ColorOf(Blended(0xFF80FF01, 0x80FFFE, kAdding)), 0xFFFFFFU);
    EXPECT_EQ(ColorOf(Blended(0xFF7F0000, 0x800000, kAdding)), 0xFF0000U);
    EXPECT_EQ(ColorOf(Blended(0xFF7F0000, 0x7F0000, kAdding)), 0xFE0000U);
}

TEST(Blend, RoundsEveryProductToTheNearestValue) {
    for (std::uint32_t a = 0; a < 256; ++a) {
        for (std::uint32_t b = 0; b < 256; ++b) {
            const auto expected =
                static_cast<std::uint32_t>(std::lround(static_cast<double>(a * b) / 255.0));
            EXPECT_EQ(DividedBy255(a * b), expected) << a << " * " << b;
        }
    }
}

TEST(Blend, TheAlphaIsTheTexturesAloneOrTimesTheVertices) {
    EXPECT_EQ(Tinted(0x80FF8040, TintOf(0x64FFFFFF, D3DTOP_SELECTARG1)), 0x80FF8040U);
    EXPECT_EQ(Tinted(0x80FF8040, TintOf(0x64FFFFFF, D3DTOP_MODULATE)), 0x32FF8040U);  // 50.2
}

TEST(Blend, TheColorIsAlwaysTheTexturesTimesTheVertices) {
    // 255 * 128 / 255, 128 * 64 / 255 = 32.1, 64 * 255 / 255
    EXPECT_EQ(Tinted(0x80FF8040, TintOf(0xFF8040FF, D3DTOP_SELECTARG1)), 0x80802040U);
    EXPECT_EQ(Tinted(0x80FF8040, TintOf(0xFF8040FF, D3DTOP_MODULATE)), 0x80802040U);
}

// Rows, against the arithmetic of one pixel.

constexpr std::uint32_t kFactors[] = {D3DBLEND_ZERO, D3DBLEND_ONE, D3DBLEND_SRCALPHA,
                                      D3DBLEND_INVSRCALPHA};
constexpr std::uint32_t kOperations[] = {D3DBLENDOP_ADD, D3DBLENDOP_SUBTRACT,
                                         D3DBLENDOP_REVSUBTRACT};

// Every alpha with every value of two channels; the third goes its own way.
std::vector<std::uint32_t> ManySources() {
    std::vector<std::uint32_t> pixels;
    for (std::uint32_t alpha = 0; alpha < 256; ++alpha) {
        for (std::uint32_t value = 0; value < 256; ++value) {
            pixels.push_back(alpha << 24U | value << 16U | (255 - value) << 8U | (value ^ alpha));
        }
    }
    return pixels;
}

TEST(PixelRows, BlendAsSinglePixelsDo) {
    const std::vector<std::uint32_t> sources = ManySources();
    std::mt19937 random(1);
    std::vector<std::uint32_t> under(sources.size());
    std::ranges::generate(under, [&] { return static_cast<std::uint32_t>(random()); });
    for (const std::uint32_t source : kFactors) {
        for (const std::uint32_t destination : kFactors) {
            for (const std::uint32_t operation : kOperations) {
                const PixelStates states = States(source, destination, operation);
                std::vector<std::uint32_t> row = under;
                BlendRow(row, sources, states);
                for (std::size_t i = 0; i < row.size(); ++i) {
                    ASSERT_EQ(ColorOf(row[i]), ColorOf(Blended(sources[i], under[i], states)))
                        << std::hex << sources[i] << " over " << under[i] << std::dec << ": "
                        << source << " " << destination << " " << operation;
                }
            }
        }
    }
}

TEST(PixelRows, TintAsSinglePixelsDo) {
    const std::vector<std::uint32_t> sources = ManySources();
    for (const std::uint32_t tint : {0x00000000U, 0xFFFFFFFFU, 0x64000000U, 0xFF80FF01U,
                                     0x7FFE0180U, 0xC0FFFFFFU, 0x01020304U}) {
        std::vector<std::uint32_t> row = sources;
        TintRow(row, tint);
        for (std::size_t i = 0; i < row.size(); ++i) {
            ASSERT_EQ(row[i], Tinted(sources[i], tint)) << std::hex << sources[i] << " " << tint;
        }
    }
}

// Rows of every length, with opaque, transparent and other pixels in all places, keep what lies
// behind them.
TEST(PixelRows, OfEveryLengthStayWithinIt) {
    std::mt19937 random(2);
    const std::uint32_t alphas[] = {0x00, 0xFF, 0x80, 0x01};
    for (std::size_t length = 0; length < 40; ++length) {
        for (int round = 0; round < 20; ++round) {
            std::vector<std::uint32_t> source(length);
            for (std::uint32_t& pixel : source) {
                pixel = alphas[random() % 4] << 24U | (random() & kColorMask);
            }
            std::vector<std::uint32_t> row(length + 3, kGround);
            BlendRow(row, source, kCovering);
            for (std::size_t i = 0; i < row.size(); ++i) {
                const std::uint32_t expected =
                    i < length ? Blended(source[i], kGround, kCovering) : kGround;
                ASSERT_EQ(ColorOf(row[i]), ColorOf(expected)) << i << " of " << length;
            }
            std::vector<std::uint32_t> tinted = source;
            TintRow(tinted, 0x80406080);
            for (std::size_t i = 0; i < length; ++i) {
                ASSERT_EQ(tinted[i], Tinted(source[i], 0x80406080)) << i << " of " << length;
            }
        }
    }
}

}  // namespace
}  // namespace scenara::soft
