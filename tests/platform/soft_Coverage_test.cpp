// SPDX-License-Identifier: MIT
#include <cstddef>
#include <cstdint>
#include <vector>

#include <gtest/gtest.h>

#include "SoftQuads.h"
#include "platform/soft/Coverage.h"

namespace scenara::soft {
namespace {

using test::PlainTexture;
using Kind = Coverage::Kind;

bool HasBit(const Coverage& coverage, std::int32_t y, std::int32_t block) {
    return (coverage.LineBits(y)[block / 8] >> (block % 8) & 1) != 0;
}

// A texture of one alpha but for the pixel at 5, 3.
Coverage Of(std::uint32_t alpha, std::uint32_t other) {
    const PlainTexture texture(
        10, 7,
        [&](std::int32_t x, std::int32_t y) {
            return (x == 5 && y == 3 ? other : alpha) << 24U | 0x00123456U;
        },
        3);
    return Coverage::Of(texture.Pixels());
}

TEST(Coverage, TellsWhatKindOfTextureItIs) {
    EXPECT_EQ(Coverage().WhatKind(), Kind::Unknown);
    EXPECT_EQ(Of(255, 255).WhatKind(), Kind::Opaque);
    EXPECT_EQ(Of(255, 0).WhatKind(), Kind::Masked);
    EXPECT_EQ(Of(0, 255).WhatKind(), Kind::Masked);
    EXPECT_EQ(Of(0, 0).WhatKind(), Kind::Masked);
    EXPECT_FALSE(Of(255, 255).HasBits()) << "all of it is seen";
}

TEST(Coverage, OnePixelWithAnotherAlphaMakesATextureTranslucent) {
    for (std::uint32_t alpha = 1; alpha < 255; ++alpha) {
        EXPECT_EQ(Of(255, alpha).WhatKind(), Kind::Translucent) << alpha;
        EXPECT_EQ(Of(0, alpha).WhatKind(), Kind::Translucent) << alpha;
    }
}

TEST(Coverage, DoesNotLookAtWhatLiesBehindTheLines) {
    // The padding is opaque, the pixels are not there; then the other way round.
    const PlainTexture nothing(
        9, 4, [](auto, auto) { return 0x00FFFFFFU; }, 20);
    const Coverage coverage = Coverage::Of(nothing.Pixels());
    ASSERT_EQ(coverage.WhatKind(), Kind::Masked);
    for (std::int32_t y = 0; y < 4; ++y) {
        EXPECT_FALSE(HasBit(coverage, y, 0)) << y;
        EXPECT_FALSE(HasBit(coverage, y, 1)) << y;
    }
}

TEST(Coverage, EveryVisiblePixelSetsTheBitOfItsBlockAlone) {
    for (const std::int32_t width : {1, 7, 8, 9, 63, 64, 65, 130}) {
        constexpr std::int32_t kHeight = 3;
        for (std::int32_t place = 0; place < width * kHeight; ++place) {
            const bool soft = place % 2 == 0;
            const PlainTexture texture(width, kHeight, [&](std::int32_t x, std::int32_t y) {
                return y * width + x == place ? (soft ? 0x01000000U : 0xFF000000U) : 0U;
            });
            const Coverage coverage = Coverage::Of(texture.Pixels());
            ASSERT_EQ(coverage.WhatKind(), soft ? Kind::Translucent : Kind::Masked);
            ASSERT_TRUE(coverage.HasBits());
            for (std::int32_t y = 0; y < kHeight; ++y) {
                for (std::int32_t block = 0; block * kBlockTexels < width; ++block) {
                    const bool expected =
                        y == place / width && block == place % width / kBlockTexels;
                    ASSERT_EQ(HasBit(coverage, y, block), expected)
                        << width << ": " << place << " in " << y << ", " << block;
                }
            }
        }
    }
}

TEST(Coverage, TakesLittleMemory) {
    // A bit per 8 pixels of 32 bits, in whole bytes per line.
    const PlainTexture texture(1280, 2,
                               [](std::int32_t x, auto) { return x % 2 == 0 ? 0U : 0xFF000000U; });
    EXPECT_EQ(Coverage::Of(texture.Pixels()).LinePitch(), 20);
}

}  // namespace
}  // namespace scenara::soft
