// SPDX-License-Identifier: MIT
#include "sprites/RunUnpack.h"

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

struct Unpacked {
    Extent extent;
    Words pixels;
};

// A path for one of the formats. All packed bytes here are written as PCX has them; for RLE8, whose
// bytes that ask for a run differ from PCX's in the uppermost bit, that bit of every byte is
// turned.
struct Way {
    RunMark mark;
    UnpackPath path;

    [[nodiscard]] std::size_t Index(std::size_t asInPcx) const {
        return mark == RunMark::Pcx ? asInPcx : asInPcx ^ 128U;
    }
    [[nodiscard]] Bytes Packed(std::span<const std::byte> asInPcx) const {
        Bytes bytes;
        for (const std::byte byte : asInPcx) {
            bytes.push_back(static_cast<std::byte>(Index(std::to_integer<std::size_t>(byte))));
        }
        return bytes;
    }
};

// The same by the letter of the format: byte by byte and pixel by pixel, with no regard to speed.
Unpacked ByTheLetter(const Way& way, std::span<const std::byte> packed, std::size_t wanted) {
    const int firstMark = way.mark == RunMark::Pcx ? 192 : 64;
    const ColorTable colors = Colors();
    Unpacked unpacked{};
    int repeats = -1;  // what the byte before asked for; below 0: nothing
    for (std::size_t i = 0; i < packed.size() && unpacked.pixels.size() < wanted; ++i) {
        const int value = std::to_integer<int>(packed[i]);
        if (repeats < 0 && value >= firstMark && value < firstMark + 64) {
            repeats = value - firstMark;
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
Unpacked Unpack(const Way& way, std::span<const std::byte> packed, std::size_t wanted,
                std::size_t slack = kUnpackSlack) {
    const Bytes input(packed.begin(), packed.end());
    Words memory(kGuards + wanted + slack + kGuards, kGuard);
    const std::span<std::uint32_t> room = std::span(memory).subspan(kGuards, wanted + slack);
    const UnpackResult result = UnpackRuns(way.mark, way.path, input, Colors(), room, wanted);

    const auto isGuard = [](std::uint32_t word) { return word == kGuard; };
    const std::span<const std::uint32_t> words = memory;
    EXPECT_TRUE(std::ranges::all_of(words.first(kGuards), isGuard)) << "written in front";
    EXPECT_TRUE(std::ranges::all_of(words.last(kGuards), isGuard)) << "written behind";
    EXPECT_LE(result.written, wanted);
    const auto pixels = room.first(std::min(result.written, wanted));
    return {ExtentOf(result), Words(pixels.begin(), pixels.end())};
}

// True when the path gives what the format says.
bool SameAsByTheLetter(const Way& way, std::span<const std::byte> asInPcx, std::size_t wanted,
                       std::size_t slack) {
    const Bytes packed = way.Packed(asInPcx);
    const Unpacked expected = ByTheLetter(way, packed, wanted);
    const Unpacked got = Unpack(way, packed, wanted, slack);
    EXPECT_EQ(got.extent, expected.extent);
    EXPECT_TRUE(got.pixels == expected.pixels) << "other pixels";
    return !testing::Test::HasFailure();
}

class RunUnpack : public testing::TestWithParam<Way> {};

std::string WayName(const testing::TestParamInfo<Way>& info) {
    const std::string mark = info.param.mark == RunMark::Pcx ? "Pcx" : "Rle8";
    switch (info.param.path) {
        case UnpackPath::Plain: return mark + "Plain";
        case UnpackPath::Sse2: return mark + "Sse2";
        case UnpackPath::Avx2: return mark + "Avx2";
    }
    return "Unknown";
}

INSTANTIATE_TEST_SUITE_P(
    Paths, RunUnpack,
    testing::Values(Way{RunMark::Pcx, UnpackPath::Plain}, Way{RunMark::Pcx, UnpackPath::Sse2},
                    Way{RunMark::Pcx, UnpackPath::Avx2}, Way{RunMark::Rle8, UnpackPath::Plain},
                    Way{RunMark::Rle8, UnpackPath::Sse2}, Way{RunMark::Rle8, UnpackPath::Avx2}),
    WayName);

// ---- What the format says, by hand

struct ByHand {
    const char* name;
    Bytes packed;
    std::size_t wanted;
    Words pixels;
    std::size_t consumed;
};

TEST_P(RunUnpack, IsWhatTheFormatSays) {
    const Way way = GetParam();
    const auto colorsOf = [&](std::initializer_list<std::size_t> asInPcx) {
        Words words;
        for (const std::size_t index : asInPcx) {
            words.push_back(Colors()[way.Index(index)]);
        }
        return words;
    };
    Words longest(63, Colors()[way.Index(8)]);
    longest.push_back(Colors()[way.Index(3)]);
    const ByHand rows[] = {
        {"a byte that asks for no run is one pixel", BytesOf({0, 7, 191}), 3, colorsOf({0, 7, 191}),
         3},
        {"one that asks for a run repeats the next", BytesOf({195, 9, 5, 193, 4}), 5,
         colorsOf({9, 9, 9, 5, 4}), 5},
        {"the repeated byte may look like a repeat", BytesOf({194, 255, 193, 192, 193, 193, 1}), 5,
         colorsOf({255, 255, 192, 193, 1}), 7},
        {"a repeat of 0 takes two bytes and makes nothing", BytesOf({1, 192, 200, 192, 3, 2}), 2,
         colorsOf({1, 2}), 6},
        {"the longest run", BytesOf({255, 8, 3}), 64, longest, 3},
        {"it stops after the last wanted pixel", BytesOf({1, 194, 2, 192, 9, 3, 4}), 3,
         colorsOf({1, 2, 2}), 3},
        {"a run beyond the last wanted pixel is cut", BytesOf({1, 255, 2, 3}), 3,
         colorsOf({1, 2, 2}), 3},
        {"data that end too early give what they have", BytesOf({1, 194, 2}), 10,
         colorsOf({1, 2, 2}), 3},
        {"a repeat without its byte is not taken", BytesOf({1, 2, 255}), 10, colorsOf({1, 2}), 2},
        {"nothing wanted takes nothing", BytesOf({1, 2, 3}), 0, {}, 0},
        {"no data make nothing", {}, 5, {}, 0},
    };
    for (const ByHand& row : rows) {
        const auto got = Unpack(way, way.Packed(row.packed), row.wanted);
        EXPECT_EQ(got.pixels, row.pixels) << row.name;
        EXPECT_EQ(got.extent, (Extent{row.consumed, row.pixels.size()})) << row.name;
    }
}

TEST_P(RunUnpack, NoMoreIsWantedThanThereIsRoomFor) {
    const Bytes packed(300, std::byte{5});
    Words memory(120, kGuard);
    const auto room = std::span(memory).first(100);
    EXPECT_EQ(ExtentOf(UnpackRuns(GetParam().mark, GetParam().path, packed, Colors(), room, 300)),
              (Extent{100, 100}));
    EXPECT_EQ(std::ranges::count(memory, kGuard), 20);
}

// ---- Every path against the letter of the format

// The ends of blocks, wherever a row of high bytes lies across them.
TEST_P(RunUnpack, RowsOfHighBytesAtEveryPlace) {
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

TEST_P(RunUnpack, EveryByteBehindEveryByte) {
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
TEST_P(RunUnpack, LongestRunsUpToEveryLastPixel) {
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

TEST_P(RunUnpack, RandomInputs) {
    Inputs inputs(1);
    const int rounds = test::Rounds(4000);
    for (int round = 0; round < rounds; ++round) {
        const Bytes packed = inputs.Packed(inputs.Number(round % 20 == 0 ? 3000 : 400));
        const std::size_t all =
            ByTheLetter({RunMark::Pcx, UnpackPath::Plain}, packed, packed.size() * 63)
                .extent.second;
        const std::size_t wanteds[] = {all, inputs.Number(all), all + inputs.Number(100)};
        const std::size_t slacks[] = {kUnpackSlack, 0, inputs.Number(kUnpackSlack)};
        const std::size_t wanted = wanteds[inputs.Number(2)];
        const std::size_t slack = slacks[inputs.Number(2)];
        ASSERT_TRUE(SameAsByTheLetter(GetParam(), packed, wanted, slack))
            << "round " << round << ": " << packed.size() << " bytes, " << wanted << " wanted, "
            << slack << " slack";
    }
}

TEST_P(RunUnpack, EveryTruncation) {
    Inputs inputs(2);
    for (int round = 0; round < 12; ++round) {
        const Bytes packed = inputs.Packed(270);
        const std::size_t all =
            ByTheLetter({RunMark::Pcx, UnpackPath::Plain}, packed, packed.size() * 63)
                .extent.second;
        for (std::size_t length = 0; length <= packed.size(); ++length) {
            ASSERT_TRUE(SameAsByTheLetter(GetParam(), std::span(packed).first(length), all,
                                          round % 2 == 0 ? kUnpackSlack : 0))
                << "round " << round << ", first " << length << " bytes";
        }
    }
}

TEST_P(RunUnpack, EverySmallNumberOfWantedPixels) {
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
TEST_P(RunUnpack, BytesBehindTheDataDoNotMatter) {
    Inputs inputs(4);
    Bytes block = inputs.Packed(500);
    const auto unpack = [&](std::span<const std::byte> packed, std::span<std::uint32_t> pixels) {
        return UnpackRuns(GetParam().mark, GetParam().path, packed, Colors(), pixels, 3000);
    };
    for (std::size_t length = 0; length <= 200; ++length) {
        const auto packed = std::span(block).first(length);
        Words first(3000 + kUnpackSlack);
        Words second(first);
        std::ranges::fill(std::span(block).subspan(length), std::byte{5});
        const Extent one = ExtentOf(unpack(packed, first));
        std::ranges::fill(std::span(block).subspan(length), std::byte{255});
        const Extent two = ExtentOf(unpack(packed, second));
        ASSERT_EQ(one, two) << length;
        ASSERT_TRUE(std::equal(
            first.begin(), first.begin() + static_cast<std::ptrdiff_t>(one.second), second.begin()))
            << length;
    }
}

}  // namespace
}  // namespace scenara
