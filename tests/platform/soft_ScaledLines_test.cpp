// SPDX-License-Identifier: MIT
#include <algorithm>
#include <array>
#include <cstdint>
#include <random>
#include <vector>

#include <gtest/gtest.h>

#include "SoftQuads.h"
#include "platform/soft/ScaledLines.h"
#include "support/Rounds.h"

namespace scenara::soft {
namespace {

using test::NearestOf;
using test::PlainTexture;

class ScaledLinesTest : public testing::Test {
protected:
    [[nodiscard]] std::int32_t Between(std::int32_t from, std::int32_t to) {
        return std::uniform_int_distribution<std::int32_t>(from, to)(random_);
    }

    // Any scale from 1/40 to 40, and often one of which a block's texels lie near to each other.
    [[nodiscard]] ScaledRun AnyRun() {
        const std::int32_t length = Between(1, 1500);
        const std::int32_t texels = Between(0, 1) == 0
                                        ? std::clamp(length * Between(1, 1600) / 40, 1, 4000)
                                        : Between((length + 1) / 2, 2 * length);
        const std::int32_t begin = Between(-1000, 100);
        return {begin, begin + length, static_cast<double>(Between(-900, 900)), texels,
                Between(0, 1) == 0};
    }

    std::mt19937 random_{31};
};

TEST_F(ScaledLinesTest, StepsFollowTheRule) {
    for (int round = 0; round < test::Rounds(3000); ++round) {
        const ScaledRun run = AnyRun();
        const std::int32_t from = Between(0, run.Length() - 1);
        ScaledSteps steps(run, run.begin + from, ScaledSteps::Of::Texels);
        ScaledSteps parts(run, run.begin + from, ScaledSteps::Of::Parts);
        for (std::int32_t pixel = from; pixel < std::min(from + 30, run.Length()); ++pixel) {
            const auto start = static_cast<std::int64_t>(run.start);
            ASSERT_EQ(steps.Next(), NearestOf(start, run.texels, run.Length(), pixel, false))
                << run.texels << " over " << run.Length() << " at " << pixel;
            const std::int64_t twice =
                256 * (2 * std::int64_t{pixel} + 1) * run.texels + run.Length();
            ASSERT_EQ(parts.Next(), 256 * start + twice / (std::int64_t{2} * run.Length()) - 128);
        }
    }
}

// Every path writes the same: the texels of the blocks that it is told of, and nothing else.
TEST_F(ScaledLinesTest, EveryPathWritesTheTexelsOfTheSteps) {
    constexpr std::uint32_t kUntouched = 0x12345678;
    for (int round = 0; round < test::Rounds(3000); ++round) {
        const PlainTexture texture(Between(1, 600), 1, [](std::int32_t x, std::int32_t /*y*/) {
            return 0xFF000000U + static_cast<std::uint32_t>(x);
        });
        const Texels texels = texture.Pixels();
        const ScaledRun run = AnyRun();
        const std::int32_t begin = Between(run.begin, run.end - 1);
        const std::int32_t end = Between(begin + 1, std::min(run.end, begin + kMostRun));
        const bool clamped = Between(0, 1) == 0;
        const std::uint64_t some = (static_cast<std::uint64_t>(random_()) << 32U) | random_();
        for (const RowPath path : {RowPath::Plain, RowPath::Sse2, RowPath::Avx2, RowPath::Avx512}) {
            const ScaledColumns columns(run, begin, end, texels, {false, clamped}, 9, path);
            ASSERT_EQ(columns.Width(), end - begin);
            std::vector<std::uint32_t> line(kMostRun, kUntouched);
            std::vector<std::uint32_t> expected = line;
            const std::uint64_t blocks = columns.AllBlocks() & some;
            ScaledSteps steps(run, begin, ScaledSteps::Of::Texels);
            TexelAxis axis(texels.width, run.mirrored, clamped);
            for (std::int32_t x = 0; x < columns.Width(); ++x) {
                const std::uint32_t texel = texture.Texel({axis.TexelAt(steps.Next()), 0});
                const std::int32_t last = (columns.Width() - 1) / kBlockTexels;
                const bool inLast =
                    x >= columns.Width() - kBlockTexels && (blocks >> last & 1U) != 0;
                if ((blocks >> (x / kBlockTexels) & 1U) != 0 || inLast) {
                    expected[static_cast<std::size_t>(x)] = texel;
                }
            }
            columns.Write(texels.Line(0), texels.Line(0), blocks, line.data());
            ASSERT_EQ(line, expected) << "round " << round << ", path " << static_cast<int>(path);
        }
    }
}

// The same of means, with all that alphas can be to them.
TEST_F(ScaledLinesTest, EveryPathWritesTheSameMeans) {
    using Alphas = rows::MeanAlphas;
    for (int round = 0; round < test::Rounds(3000); ++round) {
        const auto alphas = static_cast<Alphas>(round % 3);
        const bool mostlyOpaque = Between(0, 1) == 0;
        const PlainTexture texture(Between(1, 600), 2, [&](auto, auto) {
            const auto color = static_cast<std::uint32_t>(random_() & kColorMask);
            const auto any = static_cast<std::uint32_t>(random_() & 255U);
            const std::uint32_t alpha = alphas == Alphas::Cut ? (any & 1U) * 255U : any;
            return (mostlyOpaque && random_() % 16 != 0 ? 255U : alpha) << 24U | color;
        });
        const Texels texels = texture.Pixels();
        const ScaledRun run = AnyRun();
        const std::int32_t begin = Between(run.begin, run.end - 1);
        const std::int32_t end = Between(begin + 1, std::min(run.end, begin + kMostRun));
        const Sampling sampling{true, Between(0, 1) == 0};
        const rows::MeanLines lines{
            texels.Line(0), texels.Line(1), static_cast<std::uint32_t>(Between(0, 255)),
            alphas,         texels.Line(0), texels.Line(1)};
        std::vector<std::uint32_t> expected;
        ScaledSteps steps(run, begin, ScaledSteps::Of::Parts);
        TexelAxis axis(texels.width, run.mirrored, sampling.clampColumns);
        for (std::int32_t x = begin; x < end; ++x) {
            const TwoTexels two(axis, steps.Next());
            expected.push_back(MeanOf({lines.above[two.first], lines.above[two.second],
                                       lines.below[two.first], lines.below[two.second]},
                                      two.parts, lines.partsBelow, alphas != Alphas::Unused));
        }
        for (const RowPath path : {RowPath::Plain, RowPath::Avx2, RowPath::Avx512}) {
            const ScaledColumns columns(run, begin, end, texels, sampling, 9, path);
            std::vector<std::uint32_t> line(expected.size());
            columns.Write(lines, columns.AllBlocks(), line.data());
            for (std::size_t x = 0; x < line.size(); ++x) {
                // Without an alpha the colour is any.
                const bool hidden = alphas != Alphas::Unused && expected[x] >> 24U == 0;
                ASSERT_EQ(hidden ? line[x] >> 24U : line[x], hidden ? 0 : expected[x])
                    << "round " << round << ", path " << static_cast<int>(path) << " at " << x;
            }
        }
    }
}

// What is told to be hidden has no texel that is seen, however far apart a block's texels are.
TEST_F(ScaledLinesTest, NoVisibleTexelIsInAHiddenBlock) {
    int hidden = 0;
    for (int round = 0; round < test::Rounds(2000); ++round) {
        const std::int32_t rare = Between(1, 60);
        const PlainTexture texture(Between(1, 1500), 1, [&](auto, auto) {
            return Between(0, rare) == 0 ? 0xFF112233U : 0x00112233U;
        });
        const Texels texels = texture.Pixels();
        const Coverage coverage = Coverage::Of(texels);
        if (coverage.WhatKind() != Coverage::Kind::Masked) {
            continue;
        }
        const ScaledRun run = AnyRun();
        const std::int32_t end = Between(run.begin + 1, std::min(run.end, run.begin + kMostRun));
        const bool linear = Between(0, 1) == 0;
        const ScaledColumns columns(run, run.begin, end, texels, {linear}, 9);
        const std::uint64_t visible =
            columns.VisibleBlocks(coverage.LineBits(0), coverage.LineBits(0));
        ASSERT_EQ(visible & ~columns.AllBlocks(), 0U);
        std::array<std::uint32_t, kMostRun> line{};
        const std::uint64_t unseen = columns.AllBlocks() & ~visible;
        const std::uint32_t* const words = texels.Line(0);
        if (linear) {
            columns.Write({words, words, 77, rows::MeanAlphas::Cut, words, words}, unseen,
                          line.data());
        } else {
            columns.Write(words, words, unseen, line.data());
        }
        for (const std::uint32_t texel : line) {
            ASSERT_EQ(texel >> 24U, 0U) << "round " << round;
        }
        hidden += visible == columns.AllBlocks() ? 0 : 1;
    }
    EXPECT_GT(hidden, test::Rounds(2000) / 10);
}

}  // namespace
}  // namespace scenara::soft
