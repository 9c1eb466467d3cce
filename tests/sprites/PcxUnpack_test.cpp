// SPDX-License-Identifier: MIT
#include "sprites/PcxUnpack.h"

#include <algorithm>
#include <initializer_list>
#include <random>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "support/Rounds.h"

namespace scenara {
namespace {

using Bytes = std::vector<std::byte>;
using Words = std::vector<std::uint32_t>;

// Packed bytes consumed, pixels written.
using Extent = std::pair<std::size_t, std::size_t>;

Extent ExtentOf(UnpackResult result) {
    return {result.consumed, result.written};
}

constexpr std::uint32_t kGuard = 0xDEADBEEF;
constexpr std::size_t kGuards = 128;

Bytes BytesOf(std::initializer_list<int> values) {
    Bytes bytes;
    for (const int value : values) {
        bytes.push_back(static_cast<std::byte>(value));
    }
    return bytes;
}

// A word per index that no other has and that no guard is.
ColorTable Colors() {
    ColorTable colors{};
    for (std::size_t i = 0; i < colors.size(); ++i) {
        colors[i] = 0xFF000000U + static_cast<std::uint32_t>(i * 0x010203U);
    }
    return colors;
}

Words ColorsOf(std::initializer_list<std::size_t> indices) {
    Words words;
    for (const std::size_t index : indices) {
        words.push_back(Colors()[index]);
    }
    return words;
}

struct Unpacked {
    Extent extent;
    Words pixels;
};

// The same by the letter of the format: byte by byte and pixel by pixel, with no regard to speed.
Unpacked ByTheLetter(std::span<const std::byte> packed, std::size_t wanted) {
    const ColorTable colors = Colors();
    Unpacked unpacked{};
    int repeats = -1;  // what the byte before asked for; below 0: nothing
    for (std::size_t i = 0; i < packed.size() && unpacked.pixels.size() < wanted; ++i) {
        const int value = std::to_integer<int>(packed[i]);
        if (repeats < 0 && value >= 192) {
            repeats = value - 192;
            continue;
        }
        for (int made = repeats < 0 ? 1 : repeats; made > 0; --made) {
            if (unpacked.pixels.size() < wanted) {
                unpacked.pixels.push_back(colors[static_cast<std::size_t>(value)]);
            }
        }
        repeats = -1;
        unpacked.extent.first = i + 1;
    }
    unpacked.extent.second = unpacked.pixels.size();
    return unpacked;
}

// Unpacks into exactly `wanted` + `slack` words and looks whether the words around them are whole.
// The packed bytes end where their memory ends, so that reading on does not stay unseen either when
// addresses are checked.
Unpacked Unpack(UnpackPath path, std::span<const std::byte> packed, std::size_t wanted,
                std::size_t slack = kUnpackSlack) {
    const Bytes input(packed.begin(), packed.end());
    Words memory(kGuards + wanted + slack + kGuards, kGuard);
    const std::span<std::uint32_t> room = std::span(memory).subspan(kGuards, wanted + slack);
    const UnpackResult result = UnpackPcx(path, input, Colors(), room, wanted);

    const auto isGuard = [](std::uint32_t word) { return word == kGuard; };
    const std::span<const std::uint32_t> words = memory;
    EXPECT_TRUE(std::ranges::all_of(words.first(kGuards), isGuard)) << "written in front";
    EXPECT_TRUE(std::ranges::all_of(words.last(kGuards), isGuard)) << "written behind";
    EXPECT_LE(result.written, wanted);
    const auto pixels = room.first(std::min(result.written, wanted));
    return {ExtentOf(result), Words(pixels.begin(), pixels.end())};
}

// True when the path gives what the format says.
bool SameAsByTheLetter(UnpackPath path, std::span<const std::byte> packed, std::size_t wanted,
                       std::size_t slack) {
    const Unpacked expected = ByTheLetter(packed, wanted);
    const Unpacked got = Unpack(path, packed, wanted, slack);
    EXPECT_EQ(got.extent, expected.extent);
    EXPECT_TRUE(got.pixels == expected.pixels) << "other pixels";
    return !testing::Test::HasFailure();
}

class PcxUnpack : public testing::TestWithParam<UnpackPath> {};

std::string PathName(const testing::TestParamInfo<UnpackPath>& info) {
    switch (info.param) {
        case UnpackPath::Plain: return "Plain";
        case UnpackPath::Sse2: return "Sse2";
        case UnpackPath::Avx2: return "Avx2";
    }
    return "Unknown";
}

INSTANTIATE_TEST_SUITE_P(Paths, PcxUnpack,
                         testing::Values(UnpackPath::Plain, UnpackPath::Sse2, UnpackPath::Avx2),
                         PathName);

// ---- What the format says, by hand

struct ByHand {
    const char* name;
    Bytes packed;
    std::size_t wanted;
    Words pixels;
    std::size_t consumed;
};

TEST_P(PcxUnpack, IsWhatTheFormatSays) {
    Words longest(63, Colors()[8]);
    longest.push_back(Colors()[3]);
    const ByHand rows[] = {
        {"a byte below 192 is one pixel", BytesOf({0, 7, 191}), 3, ColorsOf({0, 7, 191}), 3},
        {"one from 192 on repeats the next", BytesOf({195, 9, 5, 193, 4}), 5,
         ColorsOf({9, 9, 9, 5, 4}), 5},
        {"the repeated byte may look like a repeat", BytesOf({194, 255, 193, 192, 193, 193, 1}), 5,
         ColorsOf({255, 255, 192, 193, 1}), 7},
        {"a repeat of 0 takes two bytes and makes nothing", BytesOf({1, 192, 200, 192, 3, 2}), 2,
         ColorsOf({1, 2}), 6},
        {"the longest run", BytesOf({255, 8, 3}), 64, longest, 3},
        {"it stops after the last wanted pixel", BytesOf({1, 194, 2, 192, 9, 3, 4}), 3,
         ColorsOf({1, 2, 2}), 3},
        {"a run beyond the last wanted pixel is cut", BytesOf({1, 255, 2, 3}), 3,
         ColorsOf({1, 2, 2}), 3},
        {"data that end too early give what they have", BytesOf({1, 194, 2}), 10,
         ColorsOf({1, 2, 2}), 3},
        {"a repeat without its byte is not taken", BytesOf({1, 2, 255}), 10, ColorsOf({1, 2}), 2},
        {"nothing wanted takes nothing", BytesOf({1, 2, 3}), 0, {}, 0},
        {"no data make nothing", {}, 5, {}, 0},
    };
    for (const ByHand& row : rows) {
        const auto got = Unpack(GetParam(), row.packed, row.wanted);
        EXPECT_EQ(got.pixels, row.pixels) << row.name;
        EXPECT_EQ(got.extent, (Extent{row.consumed, row.pixels.size()})) << row.name;
    }
}

TEST_P(PcxUnpack, NoMoreIsWantedThanThereIsRoomFor) {
    const Bytes packed(300, std::byte{5});
    Words memory(120, kGuard);
    const auto room = std::span(memory).first(100);
    EXPECT_EQ(ExtentOf(UnpackPcx(GetParam(), packed, Colors(), room, 300)), (Extent{100, 100}));
    EXPECT_EQ(std::ranges::count(memory, kGuard), 20);
}

// ---- Every path against the letter of the format

// The ends of blocks, wherever a row of high bytes lies across them.
TEST_P(PcxUnpack, RowsOfHighBytesAtEveryPlace) {
    for (std::size_t before = 0; before <= 66; ++before) {
        for (const std::size_t row :
             {1U, 2U, 3U, 4U, 5U, 31U, 32U, 63U, 64U, 65U, 66U, 128U, 129U}) {
            Bytes packed(before, std::byte{17});
            packed.insert(packed.end(), row, std::byte{194});
            packed.insert(packed.end(), 140, std::byte{3});
            ASSERT_TRUE(SameAsByTheLetter(GetParam(), packed, 1000, kUnpackSlack))
                << before << " bytes, then " << row << " high ones";
        }
    }
}

TEST_P(PcxUnpack, EveryByteBehindEveryByte) {
    for (int first = 0; first < 256; ++first) {
        Bytes packed;
        for (int second = 0; second < 256; ++second) {
            packed.push_back(static_cast<std::byte>(first));
            packed.push_back(static_cast<std::byte>(second));
        }
        ASSERT_TRUE(SameAsByTheLetter(GetParam(), packed, std::size_t{63} * 512, kUnpackSlack))
            << first;
    }
}

// As many pixels as a block can make, and the end of what is wanted or of the room within them.
TEST_P(PcxUnpack, LongestRunsUpToEveryLastPixel) {
    Bytes packed;
    for (int pair = 0; pair < 100; ++pair) {
        packed.push_back(std::byte{255});
        packed.push_back(static_cast<std::byte>(pair));
    }
    for (const bool oddStart : {false, true}) {
        for (std::size_t wanted = 1900; wanted <= 2200; ++wanted) {
            for (const std::size_t slack : {std::size_t{0}, kUnpackSlack}) {
                ASSERT_TRUE(SameAsByTheLetter(GetParam(), packed, wanted, slack))
                    << wanted << " wanted, " << slack << " slack, odd start " << oddStart;
            }
        }
        packed.insert(packed.begin(), std::byte{1});
    }
}

// Seeded inputs of very different kinds. The standard's engine gives the same ones everywhere.
class Inputs {
public:
    explicit Inputs(std::uint32_t seed) : engine_(seed) {}

    // 0 to most.
    std::size_t Number(std::size_t most) { return engine_() % (most + 1); }

    Bytes Packed(std::size_t size) {
        const std::size_t kind = Number(5);
        Bytes packed(size);
        for (std::byte& byte : packed) {
            byte = static_cast<std::byte>(Byte(kind));
        }
        return packed;
    }

private:
    std::size_t Byte(std::size_t kind) {
        switch (kind) {
            case 0: return Number(255);
            case 1: return Number(191);                                     // pixels only
            case 2: return 192 + Number(63);                                // repeats of repeats
            case 3: return Number(3) == 0 ? 192 : Number(255);              // many of no pixels
            case 4: return Number(2) == 0 ? 193 + Number(7) : Number(220);  // like pictures
            default: return Number(1) == 0 ? 240 + Number(15) : Number(9);  // long ones
        }
    }

    std::mt19937 engine_;
};

TEST_P(PcxUnpack, RandomInputs) {
    Inputs inputs(1);
    const int rounds = test::Rounds(4000);
    for (int round = 0; round < rounds; ++round) {
        const Bytes packed = inputs.Packed(inputs.Number(round % 20 == 0 ? 3000 : 400));
        const std::size_t all = ByTheLetter(packed, packed.size() * 63).extent.second;
        const std::size_t wanteds[] = {all, inputs.Number(all), all + inputs.Number(100)};
        const std::size_t slacks[] = {kUnpackSlack, 0, inputs.Number(kUnpackSlack)};
        const std::size_t wanted = wanteds[inputs.Number(2)];
        const std::size_t slack = slacks[inputs.Number(2)];
        ASSERT_TRUE(SameAsByTheLetter(GetParam(), packed, wanted, slack))
            << "round " << round << ": " << packed.size() << " bytes, " << wanted << " wanted, "
            << slack << " slack";
    }
}

TEST_P(PcxUnpack, EveryTruncation) {
    Inputs inputs(2);
    for (int round = 0; round < 12; ++round) {
        const Bytes packed = inputs.Packed(270);
        const std::size_t all = ByTheLetter(packed, packed.size() * 63).extent.second;
        for (std::size_t length = 0; length <= packed.size(); ++length) {
            ASSERT_TRUE(SameAsByTheLetter(GetParam(), std::span(packed).first(length), all,
                                          round % 2 == 0 ? kUnpackSlack : 0))
                << "round " << round << ", first " << length << " bytes";
        }
    }
}

TEST_P(PcxUnpack, EverySmallNumberOfWantedPixels) {
    Inputs inputs(3);
    for (int round = 0; round < 12; ++round) {
        const Bytes packed = inputs.Packed(300);
        for (std::size_t wanted = 0; wanted <= 300; ++wanted) {
            for (const std::size_t slack : {std::size_t{0}, std::size_t{1}, kUnpackSlack}) {
                ASSERT_TRUE(SameAsByTheLetter(GetParam(), packed, wanted, slack))
                    << "round " << round << ", " << wanted << " wanted, " << slack << " slack";
            }
        }
    }
}

// What lies behind the packed bytes, here the rest of a larger block, changes nothing.
TEST_P(PcxUnpack, BytesBehindTheDataDoNotMatter) {
    Inputs inputs(4);
    Bytes block = inputs.Packed(500);
    for (std::size_t length = 0; length <= 200; ++length) {
        const auto packed = std::span(block).first(length);
        Words first(3000 + kUnpackSlack);
        Words second(first);
        std::ranges::fill(std::span(block).subspan(length), std::byte{5});
        const Extent one = ExtentOf(UnpackPcx(GetParam(), packed, Colors(), first, 3000));
        std::ranges::fill(std::span(block).subspan(length), std::byte{255});
        const Extent two = ExtentOf(UnpackPcx(GetParam(), packed, Colors(), second, 3000));
        ASSERT_EQ(one, two) << length;
        ASSERT_TRUE(std::equal(
            first.begin(), first.begin() + static_cast<std::ptrdiff_t>(one.second), second.begin()))
            << length;
    }
}

}  // namespace
}  // namespace scenara
