// SPDX-License-Identifier: MIT
#include "samplemaker/PcxWriter.h"

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <stdexcept>
#include <vector>

#include <gtest/gtest.h>

namespace scenara::samplemaker {
namespace {

using Bytes = std::vector<int>;

constexpr std::size_t kHeaderSize = 128;

IndexedPicture Indexed(int width, int height, std::initializer_list<std::uint8_t> pixels) {
    IndexedPicture picture{width, height, pixels, {}};
    for (std::size_t i = 0; i < picture.palette.size(); ++i) {
        const auto level = static_cast<std::uint8_t>(i);
        picture.palette[i] = {level, static_cast<std::uint8_t>(255 - level), 7};
    }
    return picture;
}

Bytes Part(const std::vector<std::byte>& file, std::size_t begin, std::size_t end) {
    Bytes part;
    for (std::size_t at = begin; at < end && at < file.size(); ++at) {
        part.push_back(std::to_integer<int>(file[at]));
    }
    return part;
}

// What lies behind the header, without a trailing palette.
Bytes Lines(const IndexedPicture& picture, PcxOptions options, PcxDepth depth = PcxDepth::Bits8) {
    options.trailingPalette = TrailingPalette::None;
    const std::vector<std::byte> file = WritePcx(picture, options, depth);
    return Part(file, kHeaderSize, file.size());
}

TEST(PcxWriter, HeaderFieldsStandWhereTheFormatPutsThem) {
    PcxOptions options;
    options.version = 3;
    options.xMin = 258;
    options.yMin = 5;
    const std::vector<std::byte> file = WritePcx(Indexed(3, 2, {1, 2, 3, 4, 5, 6}), options);

    EXPECT_EQ(Part(file, 0, 16), (Bytes{10, 3, 1, 8, 2, 1, 5, 0, 4, 1, 6, 0, 72, 0, 72, 0}));
    EXPECT_EQ(Part(file, 16, 64), Bytes(48, 0)) << "whole-byte pictures have no header palette";
    EXPECT_EQ(Part(file, 64, 70), (Bytes{0, 1, 4, 0, 1, 0}));
    EXPECT_EQ(Part(file, 70, 128), Bytes(58, 0));
}

TEST(PcxWriter, PaletteOfWholeBytePicturesFollowsByte12) {
    const std::vector<std::byte> file = WritePcx(Indexed(2, 1, {8, 9}));

    ASSERT_EQ(file.size(), kHeaderSize + 2 + 769);
    EXPECT_EQ(Part(file, 128, 137), (Bytes{8, 9, 12, 0, 255, 7, 1, 254, 7}));
    EXPECT_EQ(Part(file, file.size() - 3, file.size()), (Bytes{255, 0, 7}));
}

TEST(PcxWriter, TrailingPaletteCanBeLeftOutWithOrWithoutItsMark) {
    PcxOptions options;
    options.trailingPalette = TrailingPalette::MarkerOnly;
    EXPECT_EQ(Part(WritePcx(Indexed(2, 1, {8, 9}), options), 128, 999), (Bytes{8, 9, 12}));
    options.trailingPalette = TrailingPalette::None;
    EXPECT_EQ(Part(WritePcx(Indexed(2, 1, {8, 9}), options), 128, 999), (Bytes{8, 9}));
}

TEST(PcxWriter, RunsAndHighValuesArePacked) {
    EXPECT_EQ(Lines(Indexed(6, 1, {5, 5, 5, 191, 192, 255}), {}),
              (Bytes{0xC3, 5, 191, 0xC1, 192, 0xC1, 255}));
}

TEST(PcxWriter, ALongRunIsCutAt63) {
    IndexedPicture picture = Indexed(1, 1, {});
    picture.width = 64;
    picture.pixels.assign(64, 9);
    EXPECT_EQ(Lines(picture, {}), (Bytes{0xFF, 9, 9}));
}

TEST(PcxWriter, RawLinesAreNotPacked) {
    PcxOptions options;
    options.runLengths = false;
    options.padding = 77;
    const IndexedPicture picture = Indexed(3, 1, {200, 200, 200});

    EXPECT_EQ(Lines(picture, options), (Bytes{200, 200, 200, 77}));
    EXPECT_EQ(Part(WritePcx(picture, options), 2, 3), Bytes{0});
}

TEST(PcxWriter, BytesPerLineMayBeOddAndPaddingIsChosen) {
    PcxOptions options;
    options.bytesPerLine = 5;
    options.padding = 200;
    const IndexedPicture picture = Indexed(3, 2, {1, 2, 3, 4, 5, 6});

    EXPECT_EQ(Lines(picture, options), (Bytes{1, 2, 3, 0xC2, 200, 4, 5, 6, 0xC2, 200}));
    EXPECT_EQ(Part(WritePcx(picture, options), 66, 68), (Bytes{5, 0}));
}

TEST(PcxWriter, RunsStopAtLineEndsOrRunOn) {
    const IndexedPicture picture = Indexed(2, 2, {7, 7, 7, 7});
    PcxOptions options;
    EXPECT_EQ(Lines(picture, options), (Bytes{0xC2, 7, 0xC2, 7}));
    options.runBreaks = RunBreaks::Nowhere;
    EXPECT_EQ(Lines(picture, options), (Bytes{0xC4, 7}));
}

TEST(PcxWriter, RunsStopAtPlaneEndsOrRunOn) {
    const TrueColourPicture picture{2, 1, {{7, 7, 9}, {7, 7, 9}}};
    const auto lines = [&picture](RunBreaks breaks) {
        PcxOptions options;
        options.runBreaks = breaks;
        return Part(WritePcx(picture, options), 128, 999);
    };
    EXPECT_EQ(lines(RunBreaks::AtPlaneEnds), (Bytes{0xC2, 7, 0xC2, 7, 0xC2, 9}));
    EXPECT_EQ(lines(RunBreaks::AtLineEnds), (Bytes{0xC4, 7, 0xC2, 9}));
    EXPECT_EQ(lines(RunBreaks::Nowhere), (Bytes{0xC4, 7, 0xC2, 9}));
}

TEST(PcxWriter, TrueColourLinesHoldRedGreenBlueAndMaybeAFourthPlane) {
    const TrueColourPicture picture{2, 2, {{1, 2, 3}, {4, 5, 6}, {7, 8, 9}, {10, 11, 12}}};
    const std::vector<std::byte> three = WritePcx(picture);
    EXPECT_EQ(Part(three, 128, 999), (Bytes{1, 4, 2, 5, 3, 6, 7, 10, 8, 11, 9, 12}));
    EXPECT_EQ(Part(three, 65, 66), Bytes{3});

    const std::vector<std::byte> four = WritePcx(picture, std::uint8_t{99});
    EXPECT_EQ(Part(four, 128, 999),
              (Bytes{1, 4, 2, 5, 3, 6, 0xC2, 99, 7, 10, 8, 11, 9, 12, 0xC2, 99}));
    EXPECT_EQ(Part(four, 65, 66), Bytes{4});
}

struct DepthCase {
    const char* name;
    PcxDepth depth;
    std::vector<std::uint8_t> pixels;  // one line
    int bits;
    int planes;
    Bytes lines;  // padding 0xFF, raw
};

class PcxWriterDepth : public testing::TestWithParam<DepthCase> {};

TEST_P(PcxWriterDepth, PacksLeftmostPixelHighestAndLowestPlaneFirst) {
    const DepthCase& row = GetParam();
    IndexedPicture picture = Indexed(static_cast<int>(row.pixels.size()), 1, {});
    picture.pixels = row.pixels;
    PcxOptions options;
    options.runLengths = false;
    options.padding = 0xFF;
    const std::vector<std::byte> file = WritePcx(picture, options, row.depth);

    EXPECT_EQ(Part(file, 3, 4), Bytes{row.bits});
    EXPECT_EQ(Part(file, 65, 66), Bytes{row.planes});
    EXPECT_EQ(Part(file, 16, 22), (Bytes{0, 255, 7, 1, 254, 7})) << "header palette";
    EXPECT_EQ(Part(file, 128, file.size()), row.lines);
}

INSTANTIATE_TEST_SUITE_P(
    All, PcxWriterDepth,
    testing::Values(
        DepthCase{"Bits1", PcxDepth::Bits1, {1, 0, 1, 1, 0, 0, 0, 0, 0}, 1, 1, {0xB0, 0x7F}},
        DepthCase{"Bits2", PcxDepth::Bits2, {3, 0, 2, 1, 1}, 2, 1, {0xC9, 0x7F}},
        DepthCase{"Bits4", PcxDepth::Bits4, {15, 1, 6}, 4, 1, {0xF1, 0x6F}},
        DepthCase{
            "Bits1Planes2", PcxDepth::Bits1Planes2, {0, 1, 2, 3}, 1, 2, {0x5F, 0xFF, 0x3F, 0xFF}},
        DepthCase{"Bits1Planes3",
                  PcxDepth::Bits1Planes3,
                  {4, 1, 2, 7},
                  1,
                  3,
                  {0x5F, 0xFF, 0x3F, 0xFF, 0x9F, 0xFF}},
        DepthCase{"Bits1Planes4",
                  PcxDepth::Bits1Planes4,
                  {8, 1, 2, 15},
                  1,
                  4,
                  {0x5F, 0xFF, 0x3F, 0xFF, 0x1F, 0xFF, 0x9F, 0xFF}}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(PcxWriter, RefusesWhatTheFormatCannotHold) {
    const IndexedPicture good = Indexed(9, 1, {0, 0, 0, 0, 0, 0, 0, 0, 4});
    EXPECT_THROW(WritePcx(good, {}, PcxDepth::Bits2), std::invalid_argument);
    EXPECT_NO_THROW(WritePcx(good, {}, PcxDepth::Bits1Planes3));

    EXPECT_THROW(WritePcx(Indexed(0, 1, {})), std::invalid_argument);
    EXPECT_THROW(WritePcx(Indexed(2, 2, {1, 2, 3})), std::invalid_argument);
    EXPECT_THROW(WritePcx(TrueColourPicture{2, 1, {{1, 2, 3}}}), std::invalid_argument);
    EXPECT_THROW(WritePcx(Indexed(65537, 65537, {})), std::invalid_argument);

    PcxOptions options;
    options.bytesPerLine = 8;
    EXPECT_THROW(WritePcx(good, options), std::invalid_argument);
    options.bytesPerLine = 65536;
    EXPECT_THROW(WritePcx(good, options), std::invalid_argument);
    options = {};
    options.xMin = 65528;
    EXPECT_THROW(WritePcx(good, options), std::invalid_argument);
    options.xMin = -1;
    EXPECT_THROW(WritePcx(good, options), std::invalid_argument);
}

}  // namespace
}  // namespace scenara::samplemaker
