// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <random>
#include <string>

#include <gtest/gtest.h>

#include "SoftQuads.h"
#include "platform/soft/CopyRows.h"
#include "platform/soft/Coverage.h"

namespace scenara::soft {
namespace {

using test::PlainTexture;
using test::TestView;

constexpr std::int32_t kWidth = 400;
constexpr std::int32_t kHeight = 12;
constexpr std::uint32_t kGround = 0x406080;

// Stretches of visible and of transparent texels, of 1 to `longest`.
PlainTexture Stretches(std::uint32_t longest, std::mt19937& random) {
    std::uint32_t left = 0;
    bool visible = false;
    return {kWidth, kHeight,
            [&](std::int32_t x, std::int32_t y) {
                if (left == 0) {
                    left = 1 + static_cast<std::uint32_t>(random() % longest);
                    visible = !visible;
                }
                --left;
                const auto number = static_cast<std::uint32_t>(y * kWidth + x);
                return (visible ? 0xFF000000U : 0U) | (number + 1);
            },
            5};
}

class CopyRowsTest : public testing::TestWithParam<RowPath> {
protected:
    // Both ways round, rectangles of every width from random places.
    static void CheckEveryWidth(const PlainTexture& texture, bool masked, std::mt19937& random) {
        const auto below = [&](std::int32_t limit) {
            return static_cast<std::int32_t>(random() % static_cast<std::uint32_t>(limit));
        };
        for (std::int32_t width = 1; width <= View().width; ++width) {
            const std::int32_t height = 1 + below(kHeight);
            const std::int32_t column = below(kWidth - width + 1);
            const std::int32_t line = below(kHeight - height + 1);
            Check(texture, {width, height, column}, line, width % 2 == 0, masked);
        }
    }

    struct Part {
        std::int32_t width, height, column;
    };
    static void Check(const PlainTexture& texture, const Part& part, std::int32_t line,
                      bool upwards, bool masked) {
        TexelRows rows;
        rows.width = part.width;
        rows.height = part.height;
        rows.column = part.column;
        for (const bool mirrored : {false, true}) {
            rows.mirrored = mirrored;
            CheckOne(texture, rows, line, upwards, masked);
        }
    }

private:
    static void CheckOne(const PlainTexture& texture, TexelRows rows, std::int32_t line,
                         bool upwards, bool masked);
};

// Draws a rectangle, upwards or downwards, and compares all of the view with what is to be there.
void CopyRowsTest::CheckOne(const PlainTexture& texture, TexelRows rows, std::int32_t line,
                            bool upwards, bool masked) {
    const Texels texels = texture.Pixels();
    const Coverage coverage = Coverage::Of(texels);
    const std::int32_t firstLine = upwards ? line + rows.height - 1 : line;
    rows.lines = texels.Line(firstLine);
    rows.linePitch = upwards ? -texels.pitch : texels.pitch;
    if (masked) {
        ASSERT_EQ(coverage.WhatKind(), Coverage::Kind::Masked);
        rows.bits = coverage.LineBits(firstLine);
        rows.bitPitch = upwards ? -coverage.LinePitch() : coverage.LinePitch();
    }
    constexpr std::int32_t kTop = 100;
    const std::int32_t left = View().width - rows.width;
    TestView view(kGround);
    rows.destination = &view.Pixels().pixels[static_cast<std::size_t>(kTop * View().width + left)];
    rows.pitch = View().width;
    masked ? MaskRows(rows, GetParam()) : CopyRows(rows, GetParam());

    std::size_t changed = 0;
    for (std::int32_t y = 0; y < rows.height; ++y) {
        for (std::int32_t x = 0; x < rows.width; ++x) {
            const std::int32_t column =
                rows.mirrored ? rows.column + rows.width - 1 - x : rows.column + x;
            const std::uint32_t texel =
                texture.Texel({column, upwards ? firstLine - y : firstLine + y});
            const bool visible = !masked || (texel >> 24U) == 255;
            changed += visible ? 1U : 0U;
            ASSERT_EQ(view.At(left + x, kTop + y), visible ? texel & kColorMask : kGround)
                << rows.width << " from " << rows.column << ": " << x << "," << y;
        }
    }
    const auto around =
        view.Pixels().pixels.subspan((kTop - 2) * View().width, (kHeight + 4) * View().width);
    ASSERT_EQ(static_cast<std::size_t>(std::ranges::count(around, kGround)),
              around.size() - changed)
        << "nothing beside it";
}

TEST_P(CopyRowsTest, CopyEveryWidthFromEveryPlace) {
    std::mt19937 random(6);
    CheckEveryWidth(Stretches(20, random), false, random);
}

TEST_P(CopyRowsTest, MaskEveryWidthFromEveryPlace) {
    std::mt19937 random(7);
    for (const std::uint32_t longest : {1U, 3U, 12U, 60U}) {
        CheckEveryWidth(Stretches(longest, random), true, random);
    }
}

// The ends of rectangles, at all places in a block.
TEST_P(CopyRowsTest, MaskSmallRectanglesAtEveryColumn) {
    std::mt19937 random(8);
    const PlainTexture texture = Stretches(4, random);
    for (std::int32_t width = 1; width <= 40; ++width) {
        for (std::int32_t column = 50; column < 82; ++column) {
            Check(texture, {width, 2, column}, 3, false, true);
        }
    }
}

std::string NameOf(const testing::TestParamInfo<RowPath>& path) {
    switch (path.param) {
        case RowPath::Avx512: return "Avx512";
        case RowPath::Avx2: return "Avx2";
        case RowPath::Sse2: return "Sse2";
        default: return "Plain";
    }
}

INSTANTIATE_TEST_SUITE_P(OnEveryPath, CopyRowsTest,
                         testing::Values(RowPath::Plain, RowPath::Sse2, RowPath::Avx2,
                                         RowPath::Avx512),
                         NameOf);

}  // namespace
}  // namespace scenara::soft
