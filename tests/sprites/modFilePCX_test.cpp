// SPDX-License-Identifier: MIT
#include "sprites/modFilePCX.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "PcxDecoding.h"
#include "Pictures.h"
#include "base/RunTimeError.h"

namespace scenara::test {
namespace {

using samplemaker::PcxDepth;
using samplemaker::PcxOptions;
using samplemaker::WritePcx;
using testing::ElementsAre;
using testing::StartsWith;

std::span<const std::byte, kPcxHeaderSize> HeaderOf(const std::vector<std::byte>& pcx) {
    return std::span(pcx).first<kPcxHeaderSize>();
}

PcxHeader MakeHeader(unsigned bits, unsigned planes, unsigned width, unsigned height,
                     unsigned bytesPerLine) {
    PcxHeader header;
    header.manufacturer = 10;
    header.encoding = 1;
    header.bitsPerPixel = static_cast<std::uint8_t>(bits);
    header.planes = static_cast<std::uint8_t>(planes);
    header.xMax = static_cast<std::uint16_t>(width - 1);
    header.yMax = static_cast<std::uint16_t>(height - 1);
    header.bytesPerLine = static_cast<std::uint16_t>(bytesPerLine);
    return header;
}

// What CheckPcxHeader raises; empty when it is content.
std::string CheckError(const PcxHeader& header, std::uint64_t packed) {
    try {
        CheckPcxHeader(header, packed);
    } catch (const RunTimeError& error) {
        return error.what();
    }
    return {};
}

TEST(PcxHeader, EachFieldHasItsPlace) {
    std::vector<std::byte> bytes(kPcxHeaderSize, std::byte{0xEE});
    const auto put = [&](std::size_t at, const std::vector<std::byte>& values) {
        std::copy(values.begin(), values.end(), bytes.begin() + static_cast<std::ptrdiff_t>(at));
    };
    put(0, Bytes({10, 5, 1, 8}));
    put(4, Bytes({0x01, 0x02, 0x03, 0x04, 0x85, 0x06, 0x07, 0xF8}));
    for (unsigned i = 0; i < 48; ++i) {
        bytes[16 + i] = static_cast<std::byte>(100 + i);
    }
    put(65, Bytes({3, 0x34, 0x92}));

    const PcxHeader header = ReadPcxHeader(HeaderOf(bytes));
    EXPECT_EQ(header.manufacturer, 10);
    EXPECT_EQ(header.encoding, 1);
    EXPECT_EQ(header.bitsPerPixel, 8);
    EXPECT_EQ(header.xMin, 0x0201);
    EXPECT_EQ(header.yMin, 0x0403);
    EXPECT_EQ(header.xMax, 0x0685);
    EXPECT_EQ(header.yMax, 0xF807);
    for (unsigned i = 0; i < 48; ++i) {
        EXPECT_EQ(header.colors.at(i), 100 + i);
    }
    EXPECT_EQ(header.planes, 3);
    EXPECT_EQ(header.bytesPerLine, 0x9234);
    EXPECT_EQ(header.Width(), 0x0685 - 0x0201 + 1);
    EXPECT_EQ(header.Height(), 0xF807 - 0x0403 + 1);
    EXPECT_EQ(header.LineBytes(), 0x9234U * 3);
}

TEST(PcxHeader, BothCornersBelongToThePicture) {
    PcxHeader header;
    header.xMin = header.xMax = 7;
    header.yMin = 20;
    header.yMax = 19;
    EXPECT_EQ(header.Width(), 1);
    EXPECT_EQ(header.Height(), 0);
    header.xMin = 65535;
    header.xMax = 0;
    EXPECT_EQ(header.Width(), -65534);
}

TEST(PcxHeader, PictureBytesAreNeverCutTo32Bits) {
    PcxHeader header = MakeHeader(8, 255, 1, 65536, 65535);
    EXPECT_EQ(header.PictureBytes(), 65535ULL * 255 * 65536);
    header.yMin = 1;
    header.yMax = 0;
    EXPECT_EQ(header.PictureBytes(), 0U);
}

// Lines of 4 planes of 3 bytes, where 10 pixels of 1 bit take 2.
TEST(PcxHeader, ThePaddingOfTheLastLineIsNotNeeded) {
    const PcxHeader bits = MakeHeader(1, 4, 10, 5, 3);
    EXPECT_EQ(bits.LineBytes(), 12U);
    EXPECT_EQ(bits.PictureBytes(), 60U);
    EXPECT_EQ(bits.LastLineBytes(), 11U);
    EXPECT_EQ(bits.NeededBytes(), 59U);
    const PcxHeader unpadded = MakeHeader(8, 1, 10, 5, 10);
    EXPECT_EQ(unpadded.LastLineBytes(), 10U);
    EXPECT_EQ(unpadded.NeededBytes(), 50U);
    EXPECT_EQ(MakeHeader(8, 1, 10, 5, 900).NeededBytes(), 4U * 900 + 10);
    // Headers that do not add up do no harm.
    EXPECT_EQ(MakeHeader(8, 0, 10, 5, 10).NeededBytes(), 0U);
    EXPECT_EQ(MakeHeader(8, 1, 10, 5, 3).NeededBytes(), 15U);
    PcxHeader wrongWayRound = MakeHeader(8, 1, 10, 5, 10);
    wrongWayRound.xMin = 500;
    wrongWayRound.yMin = 500;
    EXPECT_EQ(wrongWayRound.NeededBytes(), 0U);
}

TEST(PcxHeader, OnlyOnePlaneOf8BitsHas256Colors) {
    EXPECT_TRUE(MakeHeader(8, 1, 1, 1, 1).Is256Colors());
    EXPECT_FALSE(MakeHeader(8, 3, 1, 1, 1).Is256Colors());
    EXPECT_FALSE(MakeHeader(4, 1, 1, 1, 1).Is256Colors());
    EXPECT_FALSE(MakeHeader(1, 1, 1, 1, 1).Is256Colors());
}

TEST(PcxSizes, TwoPackedBytesMakeUpTo63) {
    PcxHeader header;
    header.encoding = 1;
    EXPECT_EQ(MostUnpackedBytes(header, 0), 0U);
    EXPECT_EQ(MostUnpackedBytes(header, 1), 1U);
    EXPECT_EQ(MostUnpackedBytes(header, 2), 63U);
    EXPECT_EQ(MostUnpackedBytes(header, 5), 127U);
    header.encoding = 0;
    EXPECT_EQ(MostUnpackedBytes(header, 5), 5U);
}

TEST(PcxSizes, APackedByteTakesTwoAtMost) {
    PcxHeader header = MakeHeader(8, 1, 5, 3, 6);
    EXPECT_EQ(MostPackedBytes(header), 36U);
    header.encoding = 0;
    EXPECT_EQ(MostPackedBytes(header), 18U);
}

struct CheckRow {
    const char* name;
    PcxHeader header;
    std::uint64_t packed;
    const char* error;  // empty: the header adds up
};

PcxHeader WithCorners(unsigned xMin, unsigned yMin, unsigned xMax, unsigned yMax) {
    PcxHeader header = MakeHeader(8, 1, 1, 1, 65535);
    header.xMin = static_cast<std::uint16_t>(xMin);
    header.yMin = static_cast<std::uint16_t>(yMin);
    header.xMax = static_cast<std::uint16_t>(xMax);
    header.yMax = static_cast<std::uint16_t>(yMax);
    return header;
}

PcxHeader NotPcx() {
    PcxHeader header = MakeHeader(8, 1, 1, 1, 1);
    header.manufacturer = 11;
    return header;
}

PcxHeader Raw(PcxHeader header) {
    header.encoding = 0;
    return header;
}

constexpr std::uint64_t kPlenty = std::uint64_t{1} << 40U;

TEST(PcxCheck, SaysWhatDoesNotAddUp) {
    const CheckRow rows[] = {
        {"manufacturer", NotPcx(), kPlenty, "Bad format: not a PCX picture"},
        {"kind", MakeHeader(8, 2, 1, 1, 1), kPlenty,
         "Bad format: no PCX kind has 2 planes of 8 bits"},
        {"wrong way round", WithCorners(5, 0, 3, 0), kPlenty, "Bad format: -1 x 1 pixels"},
        {"no lines", WithCorners(0, 1, 0, 0), kPlenty, "Bad format: 1 x 0 pixels"},
        {"the largest", WithCorners(1, 1, 32767, 32767), kPlenty, ""},
        {"too wide", WithCorners(0, 0, 32767, 0), kPlenty, "Overflow: 32768 x 1 pixels"},
        {"too high", WithCorners(0, 0, 0, 32767), kPlenty, "Overflow: 1 x 32768 pixels"},
        {"as large as the header can say", WithCorners(0, 0, 65534, 65534), kPlenty,
         "Overflow: 65535 x 65535 pixels"},
        {"just enough bytes per line", MakeHeader(8, 1, 9, 1, 9), kPlenty, ""},
        {"too few bytes per line", MakeHeader(8, 1, 9, 1, 8), kPlenty,
         "Bad format: 8 bytes per line for 9 x 1 pixels"},
        {"just enough bytes for bits", MakeHeader(1, 4, 16, 2, 2), kPlenty, ""},
        {"too few bytes for bits", MakeHeader(1, 4, 17, 2, 2), kPlenty,
         "Bad format: 2 bytes per line for 17 x 2 pixels"},
        {"no bytes per line", MakeHeader(2, 1, 1, 1, 0), kPlenty,
         "Bad format: 0 bytes per line for 1 x 1 pixels"},
        {"just possible", MakeHeader(8, 1, 63, 2, 63), 4, ""},
        {"just possible without the padding", MakeHeader(8, 1, 63, 2, 64), 5, ""},
        {"raw without the padding", Raw(MakeHeader(8, 3, 10, 2, 14)), 80, ""},
        {"raw without a pixel", Raw(MakeHeader(8, 3, 10, 2, 14)), 79,
         "Input past end of file: 10 x 2 pixels cannot come from 79 bytes"},
        {"impossible packed", MakeHeader(8, 1, 63, 2, 63), 3,
         "Input past end of file: 63 x 2 pixels cannot come from 3 bytes"},
        {"just enough raw", Raw(MakeHeader(8, 3, 10, 2, 10)), 60, ""},
        {"impossible raw", Raw(MakeHeader(8, 3, 10, 2, 10)), 59,
         "Input past end of file: 10 x 2 pixels cannot come from 59 bytes"},
    };
    for (const CheckRow& row : rows) {
        EXPECT_EQ(CheckError(row.header, row.packed), row.error) << row.name;
    }
}

// Every number of bits with every number of planes: the kinds of the format pass, all others are
// said, and none of them asks the device for anything.
TEST(PcxKinds, EveryOtherCombinationIsAFailure) {
    const auto known = [](unsigned bits, unsigned planes) {
        return (bits == 1 && planes >= 1 && planes <= 4) || (bits == 2 && planes == 1) ||
               (bits == 4 && planes == 1) ||
               (bits == 8 && (planes == 1 || planes == 3 || planes == 4));
    };
    const std::vector<std::byte> data(64, std::byte{1});
    for (unsigned bits = 0; bits < 256; ++bits) {
        for (unsigned planes = 0; planes < 256; ++planes) {
            SCOPED_TRACE(std::to_string(planes) + " planes of " + std::to_string(bits) + " bits");
            PcxDecoding decoding;
            const PcxHeader header = MakeHeader(bits, planes, 1, 1, 8);
            const bool loaded = decoding.decoder.LoadPCX(header, data, decoding.picture);
            ASSERT_EQ(loaded, known(bits, planes));
            if (!loaded) {
                ASSERT_THAT(decoding.Texts(),
                            ElementsAre(HandleErrorText("Bad format: no PCX kind has " +
                                                        std::to_string(planes) + " planes of " +
                                                        std::to_string(bits) + " bits")));
                ASSERT_TRUE(decoding.device.Created().empty());
            }
        }
    }
}

TEST(LoadPCX, MakesTheTextureOfASprite) {
    PcxDecoding decoding;
    ASSERT_TRUE(decoding.Load(StripedPicture(6, 5, PaletteOf(77))));
    ASSERT_EQ(decoding.device.Created().size(), 1U);
    ExpectSpriteTexture(decoding.device.Created().front(), 6, 5, Opaque({0, 77, 255}));
    EXPECT_EQ(decoding.device.Counts().locks, 1);
    EXPECT_EQ(decoding.device.Counts().unlocks, 1);
    EXPECT_EQ(decoding.picture.width, 6);
    EXPECT_EQ(decoding.picture.height, 5);
    EXPECT_TRUE(decoding.Texts().empty());
}

TEST(LoadPCX, TheKeyIsEntry0MadeOpaque) {
    PcxDecoding decoding;
    Palette palette = PaletteOf(0);
    palette[0] = {12, 34, 56};
    ASSERT_TRUE(decoding.Load(StripedPicture(3, 3, palette)));
    EXPECT_EQ(decoding.picture.key, 0xFF0C2238U);
}

TEST(LoadPCX, Index0IsTransparentAndOthersOfItsColorAreNot) {
    PcxDecoding decoding;
    Palette palette{};  // all black
    palette[3] = {0, 0, 1};
    ASSERT_TRUE(decoding.Load(IndexedPicture{4, 2, {0, 1, 255, 3, 1, 0, 0, 2}, palette}));
    EXPECT_EQ(decoding.Pixels(), (Words{0, 0xFF000000, 0xFF000000, 0xFF000001,  //
                                        0xFF000000, 0, 0, 0xFF000000}));
    palette[0] = palette[9] = {255, 0, 255};
    ASSERT_TRUE(decoding.Load({3, 1, {0, 9, 0}, palette}));
    EXPECT_EQ(decoding.Pixels(), (Words{0x00FF00FF, 0xFFFF00FF, 0x00FF00FF}));
}

TEST(LoadPCX, ThePaletteStaysForTheNextPictures) {
    PcxDecoding decoding;
    const Palette palette = PaletteOf(9);
    decoding.SetPalette(palette);
    for (int size = 1; size < 4; ++size) {
        const auto picture = StripedPicture(size, size, PaletteOf(1));
        ASSERT_TRUE(decoding.Load(WritePcx(picture)));
        EXPECT_EQ(decoding.Pixels(), KeyedByIndex(picture, palette));
    }
}

TEST(LoadPCX, SaysYoAndKeepsTheKeyForPicturesOfSeveralPlanes) {
    PcxDecoding decoding;
    Palette palette = PaletteOf(0);
    palette[0] = {13, 29, 1};
    ASSERT_TRUE(decoding.Load(StripedPicture(2, 2, palette)));
    const std::uint32_t key = decoding.picture.key;

    const TrueColourPicture picture{3, 1, {{13, 29, 1}, {13, 29, 2}, {0, 0, 0}}};
    ASSERT_TRUE(decoding.Load(WritePcx(picture)));
    ASSERT_EQ(decoding.messages.Recorded().size(), 1U);
    EXPECT_EQ(decoding.messages.Recorded().front().kind, kMessageThreePlanes);
    EXPECT_EQ(decoding.messages.Recorded().front().text, "yo...");
    EXPECT_EQ(decoding.messages.Recorded().front().title, "");
    EXPECT_EQ(decoding.picture.key, key);
    EXPECT_EQ(decoding.device.Created().back().colorKey, key);
    EXPECT_EQ(decoding.Pixels(),
              (Words{Clear({13, 29, 1}), Opaque({13, 29, 2}), Opaque({0, 0, 0})}));

    // And for the one behind it, too.
    ASSERT_TRUE(decoding.Load(WritePcx(picture)));
    EXPECT_EQ(decoding.picture.key, key);
    EXPECT_EQ(decoding.messages.Recorded().size(), 2U);
}

TEST(LoadPCX, WithoutAKeySoFarNothingIsTransparent) {
    PcxDecoding decoding;
    const TrueColourPicture picture{2, 1, {{0, 0, 0}, {255, 255, 255}}};
    ASSERT_TRUE(decoding.Load(WritePcx(picture)));
    EXPECT_EQ(decoding.Pixels(), (Words{0xFF000000, 0xFFFFFFFF}));
    EXPECT_EQ(decoding.picture.key, 0U);
    EXPECT_EQ(decoding.device.Created().front().colorKey, 0U);
}

TEST(LoadPCX, AFailedPictureLeavesTheKeyOfTheOneBefore) {
    PcxDecoding decoding;
    ASSERT_TRUE(decoding.Load(StripedPicture(2, 2, PaletteOf(50))));
    auto cut = WritePcx(StripedPicture(9, 9, PaletteOf(51)));
    cut.resize(kPcxHeaderSize + 70);
    decoding.SetPalette(PaletteOf(51));
    ASSERT_FALSE(decoding.Load(cut));

    ASSERT_TRUE(decoding.Load(WritePcx(TrueColorPicture(2, 2, 0))));
    EXPECT_EQ(decoding.picture.key, Opaque(PaletteOf(50)[0]));
}

TEST(LoadPCX, AFailureLeavesThePictureAndTheNextOneComesOut) {
    PcxDecoding decoding;
    const auto first = StripedPicture(5, 4, PaletteOf(3));
    ASSERT_TRUE(decoding.Load(first));
    const auto* const texture = decoding.picture.texture.get();

    auto cut = WritePcx(StripedPicture(40, 40, PaletteOf(3)));
    cut.resize(kPcxHeaderSize + 1000);
    ASSERT_FALSE(decoding.Load(cut));
    EXPECT_THAT(
        decoding.Texts(),
        ElementsAre(HandleErrorText("Input past end of file: the pixels end after 1000 bytes")));
    EXPECT_EQ(decoding.messages.Recorded().front().kind, kMessageLoadPcx);
    EXPECT_EQ(decoding.picture.texture.get(), texture);
    EXPECT_EQ(decoding.picture.width, 5);
    EXPECT_EQ(decoding.picture.height, 4);
    EXPECT_EQ(decoding.Pixels(), KeyedByIndex(first));
    EXPECT_EQ(decoding.device.Counts().locks, decoding.device.Counts().unlocks);

    const auto next = StripedPicture(7, 3, PaletteOf(4));
    ASSERT_TRUE(decoding.Load(next));
    EXPECT_EQ(decoding.Pixels(), KeyedByIndex(next));
}

TEST(LoadPCX, ATextureThatCannotBeHadIsAFailure) {
    PcxDecoding decoding;
    decoding.device.RefuseNext(RunTimeErrorKind::OutOfMemory);
    EXPECT_FALSE(decoding.Load(StripedPicture(5, 4, PaletteOf(3))));
    decoding.device.FailNextAllocation();
    EXPECT_FALSE(decoding.Load(StripedPicture(5, 4, PaletteOf(3))));
    EXPECT_THAT(decoding.Texts(),
                ElementsAre(HandleErrorText("Out of memory: the device has no room"),
                            HandleErrorText("Out of memory")));
    EXPECT_EQ(decoding.picture.texture, nullptr);
    EXPECT_TRUE(decoding.Load(StripedPicture(5, 4, PaletteOf(3))));
}

TEST(LoadPCX, PicturesOfSeveralPlanesThatFailSayNoYo) {
    PcxDecoding decoding;
    auto cut = WritePcx(TrueColorPicture(20, 20, 1));
    cut.pop_back();
    ASSERT_FALSE(decoding.Load(cut));
    EXPECT_THAT(decoding.Texts(), ElementsAre(StartsWith("An ERROR has occurred!!\r\nLoadPCX")));
}

TEST(HandleError, NamesTheRoutineAndTheReason) {
    PcxDecoding decoding;
    decoding.decoder.HandleError("Overflow");
    EXPECT_THAT(decoding.Texts(), ElementsAre(HandleErrorText("Overflow")));
}

}  // namespace
}  // namespace scenara::test
