// SPDX-License-Identifier: MIT
#include "sprites/PcxLines.h"

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "Pictures.h"
#include "base/RunTimeError.h"

namespace scenara::test {
namespace {

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

TEST(PcxLines, UnpackAsOneLineAndByteForByteAndAreCounted) {
    const UnpackRow rows[] = {
        {"literals", Bytes({1, 2, 0, 191}), {1, 2, 0, 191}, 4},
        {"a run", Bytes({0xC0 + 3, 9}), {9, 9, 9}, 2},
        {"the longest run", Bytes({0xFF, 7}), Line(63, 7), 2},
        {"runs of one", Bytes({0xC1, 5, 0xC1, 0xC0, 0xC1, 0xFF}), {5, 0xC0, 0xFF}, 6},
        {"a run of a mark value", Bytes({0xC2, 0xC5, 8}), {0xC5, 0xC5, 8}, 3},
        {"runs of nothing", Bytes({0xC0, 77, 0xC0, 0xFF, 4, 0xC0, 1, 5}), {4, 5}, 8},
        {"what follows is left", Bytes({1, 2, 3, 4}), {1, 2}, 2},
        {"a run of nothing behind it is left", Bytes({1, 0xC0, 9}), {1}, 1},
        {"a run is cut at the last wanted byte", Bytes({0xC0 + 10, 6}), {6, 6, 6}, 2},
    };
    for (const auto& [name, packed, unpacked, consumed] : rows) {
        SCOPED_TRACE(name);
        PcxLines whole(packed, true);
        EXPECT_EQ(NextLine(whole, unpacked.size()), unpacked);
        EXPECT_EQ(whole.Consumed(), consumed);

        PcxLines single(packed, true);
        for (const std::uint8_t byte : unpacked) {
            EXPECT_EQ(NextLine(single, 1), Line{byte});
        }
        EXPECT_EQ(single.Consumed(), consumed);

        EXPECT_EQ(UnpackedLength(packed, true, unpacked.size()), unpacked.size());
        // The part that was used up yields all of it, and one byte less of it does not.
        const auto used = std::span(packed).first(consumed);
        EXPECT_EQ(UnpackedLength(used, true, unpacked.size()), unpacked.size());
        EXPECT_LT(UnpackedLength(used.first(consumed - 1), true, unpacked.size()), unpacked.size());
    }
}

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

TEST(PcxLines, DataThatAreShortAreAnErrorAndCountedAsShort) {
    for (const auto& [name, data, runLength, line] :
         {ShortRow{"no data at all", {}, true, 1}, ShortRow{"no raw data at all", {}, false, 1},
          ShortRow{"one literal short", Bytes({1, 2}), true, 3},
          ShortRow{"one raw byte short", Bytes({0xC2, 2}), false, 3},
          ShortRow{"the run is short", Bytes({0xC0 + 3, 2}), true, 4},
          ShortRow{"a run without its byte", Bytes({1, 0xC0 + 3}), true, 2},
          ShortRow{"a run of nothing at the end", Bytes({1, 0xC0, 3}), true, 2},
          ShortRow{"a run of nothing without its byte", Bytes({1, 0xC0}), true, 2}}) {
        SCOPED_TRACE(name);
        PcxLines lines(data, runLength);
        EXPECT_EQ(ErrorOfNextLine(lines, line), "Input past end of file: the pixels end after " +
                                                    std::to_string(data.size()) + " bytes");
        EXPECT_LT(UnpackedLength(data, runLength, line), line);
    }
}

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
}  // namespace scenara::test
