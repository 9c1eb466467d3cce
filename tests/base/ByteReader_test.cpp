// SPDX-License-Identifier: MIT
#include "base/ByteReader.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <initializer_list>
#include <limits>
#include <span>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/RunTimeError.h"

namespace scenara {
namespace {

using testing::Property;
using testing::Throws;
using testing::ThrowsMessage;

constexpr std::uint64_t kHuge = std::numeric_limits<std::uint64_t>::max();

std::vector<std::byte> Bytes(std::initializer_list<int> values) {
    std::vector<std::byte> bytes;
    for (const int value : values) {
        bytes.push_back(static_cast<std::byte>(value));
    }
    return bytes;
}

auto RaisesInputPastEnd() {
    return Throws<RunTimeError>(Property(&RunTimeError::Kind, RunTimeErrorKind::InputPastEnd));
}

TEST(ByteReader, ReadsLittleEndianValuesOneBehindTheOther) {
    const auto block =
        Bytes({0xFE, 0x34, 0x92, 0x34, 0x92, 0x78, 0x56, 0x34, 0x92, 0x78, 0x56, 0x34, 0x92});
    ByteReader reader(block, "block");

    EXPECT_EQ(reader.U8(), 0xFE);
    EXPECT_EQ(reader.U16(), 0x9234);
    EXPECT_EQ(reader.I16(), 0x9234 - 0x10000);
    EXPECT_EQ(reader.U32(), 0x92345678U);
    EXPECT_EQ(reader.I32(), static_cast<std::int32_t>(0x92345678LL - 0x100000000LL));
    EXPECT_EQ(reader.Position(), block.size());
}

TEST(ByteReader, ReadsTheEndsOfEveryRange) {
    const auto block =
        Bytes({0xFF, 0xFF, 0x00, 0x80, 0xFF, 0x7F,                          // 16 bits
               0xFF, 0xFF, 0xFF, 0xFF, 0x00, 0x00, 0x00, 0x80, 0xFF, 0xFF,  // 32 bits
               0xFF, 0x7F, 0xFF, 0xFF, 0xFF, 0xFF});
    ByteReader reader(block, "block");

    EXPECT_EQ(reader.U16(), 65535);
    EXPECT_EQ(reader.I16(), -32768);
    EXPECT_EQ(reader.I16(), 32767);
    EXPECT_EQ(reader.U32(), 4294967295U);
    EXPECT_EQ(reader.I32(), std::numeric_limits<std::int32_t>::min());
    EXPECT_EQ(reader.I32(), std::numeric_limits<std::int32_t>::max());
    EXPECT_EQ(reader.I32(), -1);
}

TEST(ByteReader, PositionFollowsTheReads) {
    const auto block = Bytes({1, 2, 3, 4, 5});
    ByteReader reader(block, "block");
    EXPECT_EQ(reader.Position(), 0U);

    reader.Skip(2);
    EXPECT_EQ(reader.Position(), 2U);

    const auto rest = reader.Take(3);
    EXPECT_EQ(std::vector<std::byte>(rest.begin(), rest.end()), Bytes({3, 4, 5}));
    EXPECT_EQ(reader.Position(), 5U);
}

TEST(ByteReader, TakesFromTheBlockItselfNotFromACopy) {
    const auto block = Bytes({1, 2, 3});
    ByteReader reader(block, "block");
    reader.Skip(1);
    EXPECT_EQ(reader.Take(2).data(), block.data() + 1);
}

struct Reading {
    const char* name;
    std::size_t size;
    std::function<void(ByteReader&)> read;
};

const std::array<Reading, 7> kReadings = {{
    {"U8", 1, [](ByteReader& reader) { reader.U8(); }},
    {"U16", 2, [](ByteReader& reader) { reader.U16(); }},
    {"I16", 2, [](ByteReader& reader) { reader.I16(); }},
    {"U32", 4, [](ByteReader& reader) { reader.U32(); }},
    {"I32", 4, [](ByteReader& reader) { reader.I32(); }},
    {"Take", 3, [](ByteReader& reader) { reader.Take(3); }},
    {"Skip", 5, [](ByteReader& reader) { reader.Skip(5); }},
}};

TEST(ByteReader, EveryReadAtEveryLengthIsWholeOrFailsAndTakesNothing) {
    for (const Reading& reading : kReadings) {
        for (std::size_t there = 0; there <= 6; ++there) {
            SCOPED_TRACE(std::string(reading.name) + " with " + std::to_string(there) + " there");
            // Exactly as large as said, so that the sanitizers see a read behind it.
            const std::vector<std::byte> block(there + 2);
            ByteReader reader(block, "block");
            reader.Skip(2);
            if (reading.size <= there) {
                EXPECT_NO_THROW(reading.read(reader));
                EXPECT_EQ(reader.Position(), 2 + reading.size);
            } else {
                EXPECT_THAT([&] { reading.read(reader); }, RaisesInputPastEnd());
                EXPECT_EQ(reader.Position(), 2U);
            }
        }
    }
}

TEST(ByteReader, ErrorNamesBlockWantedOffsetAndWhatIsThere) {
    const std::vector<std::byte> block(67);
    ByteReader reader(block, "PCX header");
    reader.Skip(66);
    EXPECT_THAT([&] { reader.U16(); },
                ThrowsMessage<RunTimeError>(
                    "Input past end of file: PCX header: 2 bytes wanted at 66, 1 there"));
}

TEST(ByteReader, GoesOnAfterAFailedRead) {
    const auto block = Bytes({7, 8});
    ByteReader reader(block, "block");
    EXPECT_THROW(reader.U32(), RunTimeError);
    EXPECT_EQ(reader.U16(), 0x0807);
}

TEST(ByteReader, NothingCanBeTakenAnywhereAlsoFromAnEmptyBlock) {
    ByteReader none({}, "nothing");
    EXPECT_TRUE(none.Take(0).empty());
    EXPECT_THAT([&] { none.U8(); },
                ThrowsMessage<RunTimeError>(
                    "Input past end of file: nothing: 1 bytes wanted at 0, 0 there"));

    const auto block = Bytes({1});
    ByteReader reader(block, "block");
    reader.Skip(1);
    EXPECT_TRUE(reader.Take(0).empty());
}

TEST(ByteReader, HugeCountsDoNotWrapAround) {
    const std::vector<std::byte> block(8);
    for (const std::uint64_t count : {kHuge, kHuge - 3, kHuge - 4, std::uint64_t{1} << 63U,
                                      std::uint64_t{1} << 32U, std::uint64_t{5}}) {
        ByteReader reader(block, "block");
        reader.Skip(4);
        EXPECT_THAT([&] { reader.Take(count); }, RaisesInputPastEnd()) << count;
        EXPECT_THAT([&] { reader.Skip(count); }, RaisesInputPastEnd()) << count;
        EXPECT_EQ(reader.Position(), 4U);
    }
}

}  // namespace
}  // namespace scenara
