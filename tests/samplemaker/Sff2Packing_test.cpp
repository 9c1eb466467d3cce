// SPDX-License-Identifier: MIT
#include "samplemaker/Sff2Packing.h"

#include <cstddef>
#include <cstdint>
#include <set>
#include <span>
#include <stdexcept>
#include <string_view>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "FileParts.h"
#include "LiteralDecoders.h"
#include "RandomPixels.h"
#include "samplemaker/Noise.h"
#include "support/Rounds.h"

namespace scenara::samplemaker {
namespace {

using Pixels = std::vector<std::uint8_t>;

struct Packing {
    const char* name;
    std::vector<std::byte> (*pack)(std::span<const std::uint8_t> pixels, PackingChoice choice);
    LiteralPixels (*unpack)(const std::vector<std::byte>& packed, std::size_t wanted);
    int colours;
};

constexpr Packing kPackings[] = {
    {"RLE8", PackRle8, LiteralRle8, 256},
    {"RLE5", PackRle5, LiteralRle5, 32},
    {"LZ5", PackLz5, LiteralLz5, 32},
};
constexpr const Packing& kRle8 = kPackings[0];
constexpr const Packing& kRle5 = kPackings[1];
constexpr const Packing& kLz5 = kPackings[2];

TEST(Sff2Packing, GivesBackAllPixelsAndNeedsAllBytes) {
    Random random(11);
    for (int round = test::Rounds(4000); round > 0; --round) {
        const Packing& packing = kPackings[static_cast<std::size_t>(random.Whole(0, 2))];
        const Pixels pixels = RandomPixels(random, random.Whole(1, 2500), packing.colours);
        const PackingChoice choice{random.Whole(0, 1) == 0 ? 0 : random.Next()};
        const std::vector<std::byte> packed = packing.pack(pixels, choice);
        const LiteralPixels unpacked = packing.unpack(packed, pixels.size());
        ASSERT_EQ(unpacked.pixels, pixels) << packing.name << ", seed " << choice.seed;
        ASSERT_EQ(unpacked.bytesRead, packed.size()) << packing.name << ", seed " << choice.seed;
    }
}

TEST(Sff2Packing, TheShortestIsNoLongerThanAnyOther) {
    Random random(12);
    for (int round = test::Rounds(2000); round > 0; --round) {
        const Packing& packing = kPackings[static_cast<std::size_t>(random.Whole(0, 2))];
        const Pixels pixels = RandomPixels(random, random.Whole(200, 1000), packing.colours);
        const PackingChoice choice{random.Next() | 1U};
        ASSERT_LE(packing.pack(pixels, {}).size(), packing.pack(pixels, choice).size())
            << packing.name << ", seed " << choice.seed;
    }
}

TEST(Sff2Packing, NothingIsNoBytes) {
    for (const Packing& packing : kPackings) {
        EXPECT_TRUE(packing.pack({}, {}).empty()) << packing.name;
        EXPECT_TRUE(packing.pack({}, {5}).empty()) << packing.name;
    }
}

TEST(Sff2Packing, RefusesColoursThatItCannotHold) {
    const Pixels pixels = {0, 31, 32};
    EXPECT_NO_THROW(PackRle8(pixels));
    EXPECT_THROW(PackRle5(pixels), std::invalid_argument);
    EXPECT_THROW(PackLz5(pixels), std::invalid_argument);
    EXPECT_THROW(PackLz5(pixels, {1}), std::invalid_argument);
    EXPECT_NO_THROW(PackLz5(std::span(pixels).first(2)));
}

// A picture written as runs: how many pixels, of which colour.
Pixels OfRuns(const std::vector<std::pair<std::size_t, int>>& runs) {
    Pixels pixels;
    for (const auto& [count, colour] : runs) {
        pixels.insert(pixels.end(), count, static_cast<std::uint8_t>(colour));
    }
    return pixels;
}

struct PackedBytes {
    const char* name;
    const Packing& packing;
    std::vector<std::pair<std::size_t, int>> runs;
    Values bytes;
};

TEST(Sff2Packing, WritesTheseBytes) {
    const PackedBytes cases[] = {
        {"single pixels", kRle8, {{1, 0}, {1, 63}, {1, 128}, {1, 255}}, {0, 63, 128, 255}},
        {"colours that look like runs", kRle8, {{1, 64}, {1, 127}}, {0x41, 64, 0x41, 127}},
        {"longest run", kRle8, {{63, 9}}, {0x7F, 9}},
        {"longer run", kRle8, {{64, 9}}, {0x7F, 9, 9}},
        {"longer run of such a colour", kRle8, {{64, 99}}, {0x7F, 99, 0x41, 99}},
        {"colour 0 has no byte", kRle5, {{300, 0}}, {255, 0, 43, 0}},
        {"colour byte", kRle5, {{256, 31}}, {255, 0x80, 31}},
        {"data bytes", kRle5, {{1, 3}, {8, 4}, {1, 31}, {9, 0}}, {0, 0x84, 3, 0xE4, 31, 0xE0, 0}},
        {"long runs are packets",
         kRle5,
         {{1, 3}, {17, 0}, {25, 5}},
         {0, 0x80, 3, 16, 0, 24, 0x80, 5}},
        {"runs", kLz5, {{1, 3}, {7, 4}, {8, 0}, {263, 31}}, {0, 0x23, 0xE4, 0, 0, 31, 255}},
        {"a run and the run before it", kLz5, {{264, 1}}, {0, 1, 255, 0x21}},
    };
    for (const PackedBytes& row : cases) {
        EXPECT_EQ(Part(row.packing.pack(OfRuns(row.runs), {}), 0, 100), row.bytes) << row.name;
    }
}

TEST(Sff2Packing, TheFourthShortCopyStandsInTheBitsOfAllFour) {
    // Four pairs of pixels, each once more in another order.
    Pixels pixels = {1, 2, 3, 4, 5, 6, 7, 8};
    const Pixels again = {5, 6, 1, 2, 7, 8, 3, 4};
    pixels.insert(pixels.end(), again.begin(), again.end());
    const std::vector<std::byte> packed = PackLz5(pixels);
    // From 4, 10, 6 and 12 back; 12 - 1 is 00 00 10 11.
    EXPECT_EQ(Part(packed, 0, packed.size()),
              (Values{0x00, 0x21, 0x22, 0x23, 0x24, 0x25, 0x26, 0x27, 0x28,  //
                      0x0F, 0x01, 3, 0x01, 9, 0x81, 5, 0xC1}));
    EXPECT_EQ(LiteralLz5(packed, pixels.size()).pixels, pixels);
}

TEST(Sff2Packing, Lz5FindsWhatRepeats) {
    Random random(13);
    const Pixels tile = RandomPixels(random, 600, 32);
    Pixels pixels;
    for (int i = 0; i < 100; ++i) {
        pixels.insert(pixels.end(), tile.begin(), tile.end());
    }
    EXPECT_LT(PackLz5(pixels).size(), pixels.size() / 50);
    EXPECT_LT(PackLz5(OfRuns({{100000, 7}})).size(), 100000U / 80);
}

TEST(Sff2Packing, VariesItsPackets) {
    Random random(14);
    std::set<std::string_view> seen;
    for (std::uint32_t seed = 1; seed <= 200; ++seed) {
        const Pixels pixels = RandomPixels(random, 2500, 32);
        for (const Packing& packing : kPackings) {
            seen.merge(packing.unpack(packing.pack(pixels, {seed}), pixels.size()).forms);
        }
    }
    EXPECT_EQ(
        seen,
        (std::set<std::string_view>{
            "beyond the end", "RLE8 run of nothing", "RLE8 run of a pixel", "RLE8 longest run",
            "RLE5 no colour byte", "RLE5 colour byte of 0", "RLE5 no data bytes",
            "RLE5 most data bytes", "RLE5 longest run", "LZ5 shortest long run", "LZ5 longest run",
            "LZ5 far copy", "LZ5 long copy where a short one would do", "LZ5 longest copy",
            "LZ5 long copy of what it writes", "LZ5 longest short copy", "LZ5 fourth short copy"}));
}

}  // namespace
}  // namespace scenara::samplemaker
