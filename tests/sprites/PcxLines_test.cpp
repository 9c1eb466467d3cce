// SPDX-License-Identifier: MIT
#include "sprites/PcxLines.h"

#include <cstdint>
#include <ostream>
#include <span>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "Pictures.h"
#include "base/RunTimeError.h"

namespace scenara {
namespace {

using test::Bytes;
using Line = std::vector<std::uint8_t>;

Line NextLine(PcxLines& lines, std::size_t length) {
    Line line(length, 0xEE);
    lines.Next(line);
    return line;
}

// The error of a line that the data do not fill; empty when they do.
std::string ErrorOfNextLine(PcxLines& lines, std::size_t length) {
    try {
        (void)NextLine(lines, length);
    } catch (const RunTimeError& error) {
        EXPECT_EQ(error.Kind(), RunTimeErrorKind::InputPastEnd);
        return error.what();
    }
    return {};
}

struct UnpackRow {
    const char* name;
    std::vector<std::byte> packed;
    Line unpacked;
    std::size_t consumed;
};

void PrintTo(const UnpackRow& row, std::ostream* out) {
    *out << row.name;
}

class PcxLinesUnpack : public testing::TestWithParam<UnpackRow> {};

TEST_P(PcxLinesUnpack, AsOneLine) {
    PcxLines lines(GetParam().packed, true);
    EXPECT_EQ(NextLine(lines, GetParam().unpacked.size()), GetParam().unpacked);
    EXPECT_EQ(lines.Consumed(), GetParam().consumed);
}

TEST_P(PcxLinesUnpack, ByteForByteInLinesOfOne) {
    PcxLines lines(GetParam().packed, true);
    for (const std::uint8_t byte : GetParam().unpacked) {
        EXPECT_EQ(NextLine(lines, 1), Line{byte});
    }
    EXPECT_EQ(lines.Consumed(), GetParam().consumed);
}

TEST_P(PcxLinesUnpack, IsCountedWithoutUnpacking) {
    const auto& row = GetParam();
    EXPECT_EQ(UnpackedLength(row.packed, true, row.unpacked.size()), row.unpacked.size());
    // The part that was used up yields all of it, and one byte less of it does not.
    const auto used = std::span(row.packed).first(row.consumed);
    EXPECT_EQ(UnpackedLength(used, true, row.unpacked.size()), row.unpacked.size());
    EXPECT_LT(UnpackedLength(used.first(row.consumed - 1), true, row.unpacked.size()),
              row.unpacked.size());
}

INSTANTIATE_TEST_SUITE_P(
    , PcxLinesUnpack,
    testing::Values(
        UnpackRow{"Literals", Bytes({1, 2, 0, 191}), {1, 2, 0, 191}, 4},
        UnpackRow{"ARun", Bytes({0xC0 + 3, 9}), {9, 9, 9}, 2},
        UnpackRow{"TheLongestRun", Bytes({0xFF, 7}), Line(63, 7), 2},
        UnpackRow{"RunsOfOne", Bytes({0xC1, 5, 0xC1, 0xC0, 0xC1, 0xFF}), {5, 0xC0, 0xFF}, 6},
        UnpackRow{"ARunOfAMarkValue", Bytes({0xC2, 0xC5, 8}), {0xC5, 0xC5, 8}, 3},
        UnpackRow{"RunsOfNothing", Bytes({0xC0, 77, 0xC0, 0xFF, 4, 0xC0, 1, 5}), {4, 5}, 8},
        UnpackRow{"WhatFollowsIsLeft", Bytes({1, 2, 3, 4}), {1, 2}, 2},
        UnpackRow{"ARunOfNothingBehindItIsLeft", Bytes({1, 0xC0, 9}), {1}, 1},
        UnpackRow{"ARunIsCutAtTheLastWantedByte", Bytes({0xC0 + 10, 6}), {6, 6, 6}, 2}),
    [](const testing::TestParamInfo<UnpackRow>& row) { return row.param.name; });

TEST(PcxLines, ARunGoesOnInTheNextLine) {
    const auto packed = Bytes({1, 0xC0 + 4, 8, 2, 3});
    PcxLines lines(packed, true);
    EXPECT_EQ(NextLine(lines, 3), (Line{1, 8, 8}));
    EXPECT_EQ(lines.Consumed(), 3U);
    EXPECT_EQ(NextLine(lines, 3), (Line{8, 8, 2}));
    EXPECT_EQ(NextLine(lines, 1), (Line{3}));
    EXPECT_EQ(lines.Consumed(), 5U);
}

TEST(PcxLines, ARunGoesOverWholeLines) {
    const auto packed = Bytes({0xC0 + 8, 5, 6});
    PcxLines lines(packed, true);
    for (int line = 0; line < 4; ++line) {
        EXPECT_EQ(NextLine(lines, 2), (Line{5, 5}));
    }
    EXPECT_EQ(NextLine(lines, 1), (Line{6}));
}

TEST(PcxLines, RawBytesAreThemselves) {
    const auto data = Bytes({0xC3, 0xFF, 0xC0, 0, 191, 192});
    PcxLines lines(data, false);
    EXPECT_EQ(NextLine(lines, 4), (Line{0xC3, 0xFF, 0xC0, 0}));
    EXPECT_EQ(lines.Consumed(), 4U);
    EXPECT_EQ(NextLine(lines, 2), (Line{191, 192}));
    EXPECT_EQ(lines.Consumed(), 6U);
}

TEST(PcxLines, AnEmptyLineTakesNothing) {
    PcxLines nothing({}, true);
    EXPECT_EQ(NextLine(nothing, 0), Line{});
    EXPECT_EQ(nothing.Consumed(), 0U);
}

struct ShortRow {
    const char* name;
    std::vector<std::byte> data;
    bool runLength;
    std::size_t line;
};

void PrintTo(const ShortRow& row, std::ostream* out) {
    *out << row.name;
}

class PcxLinesShort : public testing::TestWithParam<ShortRow> {};

TEST_P(PcxLinesShort, IsAnError) {
    PcxLines lines(GetParam().data, GetParam().runLength);
    EXPECT_EQ(ErrorOfNextLine(lines, GetParam().line),
              "Input past end of file: the pixels end after " +
                  std::to_string(GetParam().data.size()) + " bytes");
}

TEST_P(PcxLinesShort, IsCountedAsShort) {
    EXPECT_LT(UnpackedLength(GetParam().data, GetParam().runLength, GetParam().line),
              GetParam().line);
}

INSTANTIATE_TEST_SUITE_P(
    , PcxLinesShort,
    testing::Values(ShortRow{"NoDataAtAll", {}, true, 1}, ShortRow{"NoRawDataAtAll", {}, false, 1},
                    ShortRow{"OneLiteralShort", Bytes({1, 2}), true, 3},
                    ShortRow{"OneRawByteShort", Bytes({0xC2, 2}), false, 3},
                    ShortRow{"TheRunIsShort", Bytes({0xC0 + 3, 2}), true, 4},
                    ShortRow{"ARunWithoutItsByte", Bytes({1, 0xC0 + 3}), true, 2},
                    ShortRow{"ARunOfNothingAtTheEnd", Bytes({1, 0xC0, 3}), true, 2},
                    ShortRow{"ARunOfNothingWithoutItsByte", Bytes({1, 0xC0}), true, 2}),
    [](const testing::TestParamInfo<ShortRow>& row) { return row.param.name; });

TEST(PcxLines, CountsWhatThereIsUpToWhatIsWanted) {
    const auto packed = Bytes({1, 0xC0 + 5, 4, 0xC0, 9, 0xFF, 2, 0xC9});
    EXPECT_EQ(UnpackedLength(packed, true, 1000), 1U + 5 + 0 + 63);
    EXPECT_EQ(UnpackedLength(packed, true, 60), 60U);
    EXPECT_EQ(UnpackedLength(packed, false, 1000), 8U);
    EXPECT_EQ(UnpackedLength(packed, false, 3), 3U);
    EXPECT_EQ(UnpackedLength({}, true, 1000), 0U);
}

TEST(PcxLines, GivesAsMuchOfALineAsThereIs) {
    const auto packed = Bytes({1, 0xC0 + 3, 4, 0xC0 + 7});
    PcxLines lines(packed, true);
    Line line(6, 0xEE);
    EXPECT_EQ(lines.NextIfThere(std::span(line).first(2)), 2U);
    EXPECT_EQ(line, (Line{1, 4, 0xEE, 0xEE, 0xEE, 0xEE}));
    EXPECT_EQ(lines.NextIfThere(std::span(line).subspan(2)), 2U);
    EXPECT_EQ(line, (Line{1, 4, 4, 4, 0xEE, 0xEE}));
    EXPECT_EQ(lines.NextIfThere(line), 0U);
}

TEST(PcxLines, TheEndIsFoundInALaterLineToo) {
    const auto packed = Bytes({0xC0 + 5, 4});
    PcxLines lines(packed, true);
    EXPECT_EQ(NextLine(lines, 3), (Line{4, 4, 4}));
    EXPECT_EQ(ErrorOfNextLine(lines, 3), "Input past end of file: the pixels end after 2 bytes");
}

}  // namespace
}  // namespace scenara
