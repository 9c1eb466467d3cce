// SPDX-License-Identifier: MIT
#include "sprites/version2/Sff2Unpack.h"

#include <algorithm>
#include <initializer_list>
#include <span>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "sprites/LiteralUnpack.h"
#include "sprites/RandomPacked.h"
#include "sprites/version2/Sff2Count.h"
#include "support/Rounds.h"

namespace scenara {
namespace {

using test::LiteralUnpack;
using test::RandomPacked;

using Bytes = std::vector<std::byte>;
using Indices = std::vector<std::uint8_t>;
using Words = std::vector<std::uint32_t>;

constexpr std::uint32_t kGuard = 0xDEADBEEF;
constexpr std::size_t kGuards = 128;

// A word per index that no other has and that no guard is.
ColorTable Colors() {
    ColorTable colors{};
    for (std::size_t i = 0; i < colors.size(); ++i) {
        colors[i] = 0xFF000000U + static_cast<std::uint32_t>(i * 0x010203U);
    }
    return colors;
}

// Unpacks into exactly `wanted` + `slack` words and looks whether the words around them are whole,
// and whether the pixels are `expected`. The packed bytes end where their memory ends, so that
// reading on does not stay unseen when addresses are checked.
bool Makes(Sff2Packing packing, std::span<const std::byte> packed, std::size_t wanted,
           std::size_t slack, std::span<const std::uint8_t> expected, bool damaged) {
    static const ColorTable colors = Colors();
    const Bytes input(packed.begin(), packed.end());
    Words memory(kGuards + wanted + slack + kGuards, kGuard);
    const std::span<std::uint32_t> room = std::span(memory).subspan(kGuards, wanted + slack);
    const Sff2Unpacked result = UnpackSff2(packing, input, colors, room, wanted);

    const auto isGuard = [](std::uint32_t word) { return word == kGuard; };
    const std::span<const std::uint32_t> words = memory;
    EXPECT_TRUE(std::ranges::all_of(words.first(kGuards), isGuard)) << "written in front";
    EXPECT_TRUE(std::ranges::all_of(words.last(kGuards), isGuard)) << "written behind";
    EXPECT_EQ(result.written, expected.size());
    EXPECT_EQ(result.damaged, damaged);
    const Sff2Unpacked counted = CountSff2(packing, input, wanted);
    EXPECT_EQ(counted.written, result.written) << "counted";
    EXPECT_EQ(counted.damaged, damaged) << "counted";
    const auto isColorOf = [](std::uint32_t word, std::uint8_t index) {
        return word == colors[index];
    };
    EXPECT_TRUE(
        std::ranges::equal(room.first(std::min(result.written, wanted)), expected, isColorOf))
        << "other pixels";
    return !testing::Test::HasFailure();
}

bool SameAsByTheLetter(Sff2Packing packing, std::span<const std::byte> packed, std::size_t wanted,
                       std::size_t slack) {
    const auto literal = LiteralUnpack(packed, wanted).Unpack(packing);
    return Makes(packing, packed, wanted, slack, literal.indices, literal.damaged);
}

// ---- What the formats say, by hand

Bytes BytesOf(std::initializer_list<int> values) {
    Bytes bytes;
    for (const int value : values) {
        bytes.push_back(static_cast<std::byte>(value));
    }
    return bytes;
}

struct Runs {
    std::size_t count;
    int index;
};

Indices IndicesOf(std::initializer_list<Runs> runs) {
    Indices indices;
    for (const Runs& run : runs) {
        indices.insert(indices.end(), run.count, static_cast<std::uint8_t>(run.index));
    }
    return indices;
}

Bytes operator+(Bytes first, const Bytes& second) {
    first.insert(first.end(), second.begin(), second.end());
    return first;
}
Indices operator+(Indices first, const Indices& second) {
    first.insert(first.end(), second.begin(), second.end());
    return first;
}

// `count` pixels that repeat the last `back` ones of `indices`.
Indices Repeated(Indices indices, std::size_t back, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) {
        const std::uint8_t index = indices[indices.size() - back];
        indices.push_back(index);
    }
    return indices;
}

struct ByHand {
    const char* name;
    Sff2Packing packing;
    Bytes packed;
    std::size_t wanted;
    Indices indices;
    bool damaged = false;
};

// In LZ5: the colours 1 to 7, seven packets of a group whose eighth one is `copy`.
Bytes SevenThen(bool copy) {
    return BytesOf({copy ? 0x80 : 0, 33, 34, 35, 36, 37, 38, 39});
}
Indices Seven() {
    return {1, 2, 3, 4, 5, 6, 7};
}

// 1024 pixels, a whole group: the colours 1 and 2, 263 each of 3, 4 and 5, 231 of 6, and 7 and 8.
Bytes Long() {
    return BytesOf({0, 33, 34, 3, 255, 4, 255, 5, 255, 6, 223, 39, 40});
}
Indices LongIndices() {
    return IndicesOf({{1, 1}, {1, 2}, {263, 3}, {263, 4}, {263, 5}, {231, 6}, {1, 7}, {1, 8}});
}

// 270 pixels, a whole group: 263 of the colour 1, then the colours 2 to 8.
Bytes OneToEight() {
    return BytesOf({0, 1, 255, 34, 35, 36, 37, 38, 39, 40});
}
Indices OneToEightIndices() {
    return IndicesOf({{263, 1}}) + Indices{2, 3, 4, 5, 6, 7, 8};
}

std::vector<ByHand> RowsByHand() {
    constexpr Sff2Packing kRle8 = Sff2Packing::Rle8;
    constexpr Sff2Packing kRle5 = Sff2Packing::Rle5;
    constexpr Sff2Packing kLz5 = Sff2Packing::Lz5;
    return {
        {"nothing wanted", kRle8, BytesOf({1, 2}), 0, {}},
        {"no data", kRle8, {}, 5, {}},
        {"bytes that are one pixel", kRle8, BytesOf({0, 63, 128, 255}), 4, {0, 63, 128, 255}},
        {"a run", kRle8, BytesOf({67, 9, 1}), 4, {9, 9, 9, 1}},
        {"64 to 127 as a run's colour", kRle8, BytesOf({65, 64, 66, 127}), 3, {64, 127, 127}},
        {"a run of 0 takes its colour", kRle8, BytesOf({1, 64, 70, 64, 2, 3}), 2, {1, 3}},
        {"the longest run", kRle8, BytesOf({127, 8, 3}), 64, IndicesOf({{63, 8}, {1, 3}})},
        {"a run is cut at the last wanted pixel", kRle8, BytesOf({1, 127, 2}), 3, {1, 2, 2}},
        {"a run without its colour", kRle8, BytesOf({1, 2, 66}), 9, {1, 2}},
        {"data that end early", kRle8, BytesOf({1, 66, 2}), 9, {1, 2, 2}},

        {"nothing wanted", kRle5, BytesOf({1, 2}), 0, {}},
        {"no data", kRle5, {}, 5, {}},
        {"no colour byte is colour 0, one more than r", kRle5, BytesOf({2, 0}), 3, {0, 0, 0}},
        {"a colour byte", kRle5, BytesOf({1, 128, 9, 0, 128, 31}), 3, {9, 9, 31}},
        {"data: one more than d >> 5", kRle5, BytesOf({0, 131, 4, 5, 32 + 6, 224 + 7}), 12,
         IndicesOf({{1, 4}, {1, 5}, {2, 6}, {8, 7}})},
        {"data without a colour byte", kRle5, BytesOf({0, 2, 5, 6}), 3, {0, 5, 6}},
        {"the longest first run", kRle5, BytesOf({255, 129, 3, 4}), 257,
         IndicesOf({{256, 3}, {1, 4}})},
        {"a colour byte above 31", kRle5, BytesOf({0, 128, 200, 0, 128, 32}), 2, {200, 32}},
        {"n = 127", kRle5, BytesOf({0, 127}) + Bytes(127, std::byte{0xE3}) + BytesOf({0, 128, 1}),
         1018, IndicesOf({{1, 0}, {1016, 3}, {1, 1}})},
        {"a run is cut at the last wanted pixel", kRle5, BytesOf({9, 0}), 3, {0, 0, 0}},
        {"a data run is cut at the last wanted pixel", kRle5, BytesOf({0, 1, 0xE3}), 3, {0, 3, 3}},
        {"r without h", kRle5, BytesOf({0, 0, 5}), 9, {0}},
        {"r and h without the colour byte", kRle5, BytesOf({0, 0, 5, 129}), 9, {0}},
        {"a first run counts before its data", kRle5, BytesOf({1, 130, 7}), 9, {7, 7}},
        {"as many data bytes as there are", kRle5, BytesOf({0, 130, 7, 8}), 9, {7, 8}},

        {"nothing wanted", kLz5, BytesOf({0, 33}), 0, {}},
        {"no data", kLz5, {}, 5, {}},
        {"a control byte alone", kLz5, BytesOf({255}), 5, {}},
        {"short runs", kLz5, BytesOf({0, 32, 224 + 31}), 8, IndicesOf({{1, 0}, {7, 31}})},
        {"a long run is 8 at least", kLz5, BytesOf({0, 5, 0}), 8, IndicesOf({{8, 5}})},
        {"and 263 at most", kLz5, BytesOf({0, 5, 255, 33}), 264, IndicesOf({{263, 5}, {1, 1}})},
        {"a group of fewer than eight", kLz5, BytesOf({0, 33, 34}), 9, {1, 2}},
        {"a second group", kLz5, SevenThen(false) + BytesOf({40, 0, 41}), 9,
         Seven() + Indices{8, 9}},
        {"a short copy", kLz5, SevenThen(true) + BytesOf({2, 4}), 10, Seven() + Indices{3, 4, 5}},
        {"a short copy of 64", kLz5, SevenThen(true) + BytesOf({63, 6}), 71,
         Repeated(Seven(), 7, 64)},
        {"a copy into what it writes", kLz5, SevenThen(true) + BytesOf({9, 0}), 17,
         Repeated(Seven(), 1, 10)},
        {"a long copy is 3 at least", kLz5, SevenThen(true) + BytesOf({0, 6, 0}), 10,
         Seven() + Indices{1, 2, 3}},
        {"and 258 at most", kLz5, SevenThen(true) + BytesOf({0, 2, 255}), 265,
         Repeated(Seven(), 3, 258)},
        {"back 1024", kLz5, Long() + BytesOf({1, 0xC0, 255, 1}), 1028,
         LongIndices() + Indices{1, 2, 3, 3}},
        {"the upper bits of back are those of the first byte", kLz5,
         Long() + BytesOf({3, 0x40, 240, 0, 0x80, 250, 0}), 1030,
         LongIndices() + Indices{4, 5, 5, 3, 4, 4}},
        // Upper bits 0, 0, 1 and 3 make 7, so that it goes 8 back.
        {"the fourth short copy has no byte", kLz5,
         OneToEight() + BytesOf({0x0F, 1, 0, 1, 0, 65, 0, 193, 41}), 279,
         OneToEightIndices() + Indices{8, 8, 8, 8, 8, 8, 7, 8, 9}},
        {"long copies and runs do not count", kLz5,
         OneToEight() + BytesOf({0x37, 1, 0, 0x40, 0, 0, 1, 0, 40, 65, 0, 193, 41}), 283,
         OneToEightIndices() + Indices{8, 8, 1, 1, 1, 1, 1, 8, 8, 8, 1, 1, 9}},
        {"the next four begin without bits", kLz5,
         OneToEight() + BytesOf({255, 193, 0, 193, 0, 193, 0, 193, 1, 2, 1, 1, 1, 1, 65}), 286,
         OneToEightIndices() + Indices{8, 8, 8, 8, 8, 8, 1, 1, 8, 1, 8, 1, 8, 1, 8, 1}},
        {"a run is cut at the last wanted pixel", kLz5, BytesOf({0, 5, 255}), 3, {5, 5, 5}},
        {"a copy is cut at the last wanted pixel", kLz5, SevenThen(true) + BytesOf({63, 6}), 9,
         Seven() + Indices{1, 2}},
        {"a long run without its count", kLz5, BytesOf({0, 33, 5}), 9, {1}},
        {"a short copy without its byte", kLz5, SevenThen(true) + BytesOf({1}), 9, Seven()},
        {"a long copy without its last byte", kLz5, SevenThen(true) + BytesOf({0, 1}), 9, Seven()},
        {"what is not whole is not damaged", kLz5, SevenThen(true) + BytesOf({0x40, 0}), 9,
         Seven()},
        {"back to the first pixel", kLz5, SevenThen(true) + BytesOf({1, 6}), 9,
         Seven() + Indices{1, 2}},
        {"a short copy from before it", kLz5, SevenThen(true) + BytesOf({1, 7}), 9, Seven(), true},
        {"a long copy from before it", kLz5, SevenThen(true) + BytesOf({0x40, 0, 0}), 9, Seven(),
         true},
        {"a fourth copy from before it", kLz5, BytesOf({0x1E, 33, 193, 0, 1, 0, 1, 0, 1}), 9,
         IndicesOf({{7, 1}}), true},
        {"a copy before all pixels", kLz5, BytesOf({1, 1, 0}), 9, {}, true},
        {"damage behind the last wanted pixel", kLz5, SevenThen(true) + BytesOf({1, 7}), 7,
         Seven()},
    };
}

// Where all is there, more bytes behind it change nothing; with them the fast loops come so far.
TEST(Sff2Unpack, IsWhatTheFormatsSay) {
    for (const ByHand& row : RowsByHand()) {
        SCOPED_TRACE(row.name);
        const auto literal = LiteralUnpack(row.packed, row.wanted).Unpack(row.packing);
        EXPECT_EQ(literal.indices, row.indices) << "by the letter";
        EXPECT_EQ(literal.damaged, row.damaged) << "by the letter";
        const bool ended = row.indices.size() < row.wanted && !row.damaged;
        for (const std::size_t more : {0U, 1U, 2U, 3U, 300U}) {
            for (const std::size_t slack : {std::size_t{0}, kUnpackSlack}) {
                if (more == 0 || !ended) {
                    const Bytes packed = row.packed + Bytes(more, std::byte{0x81});
                    Makes(row.packing, packed, row.wanted, slack, row.indices, row.damaged);
                }
            }
        }
    }
}

// ---- Against pixels that are known, and against the letter of the formats

class Sff2UnpackEach : public testing::TestWithParam<Sff2Packing> {};

std::string PackingName(const testing::TestParamInfo<Sff2Packing>& info) {
    switch (info.param) {
        case Sff2Packing::Rle8: return "Rle8";
        case Sff2Packing::Rle5: return "Rle5";
        case Sff2Packing::Lz5: return "Lz5";
    }
    return "Unknown";
}

INSTANTIATE_TEST_SUITE_P(Packings, Sff2UnpackEach,
                         testing::Values(Sff2Packing::Rle8, Sff2Packing::Rle5, Sff2Packing::Lz5),
                         PackingName);

TEST_P(Sff2UnpackEach, RandomStreams) {
    RandomPacked random(1);
    const int rounds = test::Rounds(4000);
    for (int round = 0; round < rounds; ++round) {
        const auto stream = random.Make(GetParam(), random.Number(round % 20 == 0 ? 2000 : 150));
        const std::size_t all = stream.indices.size();
        const std::size_t wanteds[] = {all, random.Number(all), all + random.Number(100)};
        const std::size_t slacks[] = {kUnpackSlack, 0, random.Number(kUnpackSlack),
                                      kUnpackSlack + random.Number(100)};
        const std::size_t wanted = wanteds[random.Number(2)];
        const std::size_t slack = slacks[random.Number(3)];
        const std::span<const std::uint8_t> meant =
            std::span(stream.indices).first(std::min(all, wanted));
        const auto literal = LiteralUnpack(stream.packed, wanted).Unpack(GetParam());
        ASSERT_TRUE(std::ranges::equal(literal.indices, meant) && !literal.damaged)
            << "by the letter, round " << round;
        ASSERT_TRUE(Makes(GetParam(), stream.packed, wanted, slack, meant, false))
            << "round " << round << ": " << stream.packed.size() << " bytes, " << wanted
            << " wanted, " << slack << " slack";
    }
}

TEST_P(Sff2UnpackEach, RandomBytes) {
    RandomPacked random(2);
    const int rounds = test::Rounds(6000);
    for (int round = 0; round < rounds; ++round) {
        const Bytes packed = random.Rubbish(random.Number(round % 20 == 0 ? 2000 : 200));
        const std::size_t wanted = random.Number(round % 3 == 0 ? 300 : 10000);
        const std::size_t slack = round % 2 == 0 ? kUnpackSlack : random.Number(kUnpackSlack);
        ASSERT_TRUE(SameAsByTheLetter(GetParam(), packed, wanted, slack))
            << "round " << round << ": " << packed.size() << " bytes, " << wanted << " wanted, "
            << slack << " slack";
    }
}

// A valid stream with a byte or two changed: damage far inside.
TEST_P(Sff2UnpackEach, ChangedBytes) {
    RandomPacked random(3);
    const int rounds = test::Rounds(3000);
    for (int round = 0; round < rounds; ++round) {
        auto stream = random.Make(GetParam(), 1 + random.Number(150));
        for (std::size_t changes = 1 + random.Number(2); changes > 0; --changes) {
            stream.packed[random.Number(stream.packed.size() - 1)] =
                static_cast<std::byte>(random.Number(255));
        }
        ASSERT_TRUE(SameAsByTheLetter(GetParam(), stream.packed, stream.indices.size(),
                                      round % 2 == 0 ? kUnpackSlack : 0))
            << "round " << round;
    }
}

TEST_P(Sff2UnpackEach, EveryTruncation) {
    RandomPacked random(4);
    for (int round = 0; round < 16; ++round) {
        const auto stream = random.Make(GetParam(), 120);
        for (std::size_t length = 0; length <= stream.packed.size(); ++length) {
            ASSERT_TRUE(SameAsByTheLetter(GetParam(), std::span(stream.packed).first(length),
                                          stream.indices.size(), round % 2 == 0 ? kUnpackSlack : 0))
                << "round " << round << ", first " << length << " bytes";
        }
    }
}

TEST_P(Sff2UnpackEach, WantedPixelsThatEndAtAndInPackets) {
    RandomPacked random(5);
    for (int round = 0; round < 8; ++round) {
        const auto stream = random.Make(GetParam(), 60);
        for (const std::size_t border : stream.borders) {
            for (std::size_t wanted = border < 2 ? 0 : border - 2; wanted <= border + 2; ++wanted) {
                for (const std::size_t slack : {std::size_t{0}, std::size_t{1}, std::size_t{15},
                                                kUnpackSlack - 1, kUnpackSlack}) {
                    ASSERT_TRUE(SameAsByTheLetter(GetParam(), stream.packed, wanted, slack))
                        << "round " << round << ", " << wanted << " wanted, " << slack << " slack";
                }
            }
        }
    }
}

TEST_P(Sff2UnpackEach, NoMoreIsWantedThanThereIsRoomFor) {
    RandomPacked random(6);
    for (int round = 0; round < 200; ++round) {
        const auto stream = random.Make(GetParam(), 200);
        const std::size_t all = stream.indices.size();
        Words memory(all + kGuards, kGuard);
        const std::size_t room = random.Number(all);
        const Sff2Unpacked result =
            UnpackSff2(GetParam(), stream.packed, Colors(), std::span(memory).first(room), all);
        ASSERT_EQ(result.written, room);
        ASSERT_EQ(
            std::count(memory.begin() + static_cast<std::ptrdiff_t>(room), memory.end(), kGuard),
            std::ssize(memory) - static_cast<std::ptrdiff_t>(room));
    }
}

TEST_P(Sff2UnpackEach, NoMoreThanTheSlackIsWrittenBehindThePixels) {
    RandomPacked random(7);
    for (int round = 0; round < 200; ++round) {
        const auto stream = random.Make(GetParam(), 200);
        const std::size_t wanted = random.Number(stream.indices.size());
        Words memory(wanted + kUnpackSlack + 1000, kGuard);
        const Sff2Unpacked result = UnpackSff2(GetParam(), stream.packed, Colors(), memory, wanted);
        ASSERT_EQ(result.written, wanted);
        ASSERT_EQ(std::ranges::count(std::span(memory).last(1000), kGuard), 1000);
    }
}

// What lies behind the packed bytes, here the rest of a larger block, changes nothing.
TEST_P(Sff2UnpackEach, BytesBehindTheDataDoNotMatter) {
    RandomPacked random(8);
    const auto stream = random.Make(GetParam(), 200);
    const std::size_t most = stream.packed.size();
    for (std::size_t length = 0; length <= most; ++length) {
        Words made[2];
        Sff2Unpacked results[2];
        for (const std::size_t which : {0U, 1U}) {
            Bytes block(stream.packed);
            std::fill(block.begin() + static_cast<std::ptrdiff_t>(length), block.end(),
                      which == 0 ? std::byte{5} : std::byte{255});
            block.resize(most + 64, std::byte{7});
            made[which].resize(stream.indices.size() + kUnpackSlack);
            results[which] = UnpackSff2(GetParam(), std::span(block).first(length), Colors(),
                                        made[which], stream.indices.size());
            made[which].resize(results[which].written);
        }
        ASSERT_EQ(results[0].damaged, results[1].damaged) << length;
        ASSERT_EQ(made[0], made[1]) << length;
    }
}

}  // namespace
}  // namespace scenara
