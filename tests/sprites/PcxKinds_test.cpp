// SPDX-License-Identifier: MIT
//
// Every kind of PCX picture, packed in every way that programs pack them, on devices with every
// kind of line.
#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <ostream>
#include <string>
#include <tuple>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "ArchiveLoad.h"
#include "PcxDecoding.h"
#include "Pictures.h"
#include "platform/soft/SoftDevice.h"
#include "samplemaker/ByteWriter.h"
#include "sprites/modFilePCX.h"

namespace scenara::test {
namespace {

using samplemaker::PcxDepth;
using samplemaker::PcxOptions;
using samplemaker::RunBreaks;
using samplemaker::WritePcx;

// Header and lines written by hand, so that nothing rests on the writer alone.
std::vector<std::byte> HandMade(std::uint8_t encoding, std::uint8_t bits, std::uint8_t planes,
                                std::uint8_t width, std::uint8_t height, std::uint8_t bytesPerLine,
                                const std::vector<std::byte>& data) {
    samplemaker::ByteWriter out;
    for (const std::uint8_t value : {std::uint8_t{10}, std::uint8_t{5}, encoding, bits}) {
        out.U8(value);
    }
    out.U32(0);  // xMin, yMin
    out.U16(static_cast<std::uint16_t>(width - 1));
    out.U16(static_cast<std::uint16_t>(height - 1));
    out.U32(0);
    for (unsigned i = 0; i < 16; ++i) {  // colour i is (i, 2 i, 3 i)
        out.U8(static_cast<std::uint8_t>(i));
        out.U8(static_cast<std::uint8_t>(i * 2));
        out.U8(static_cast<std::uint8_t>(i * 3));
    }
    out.U8(0);
    out.U8(planes);
    out.U16(bytesPerLine);
    out.Fill(kPcxHeaderSize - out.Size(), 0);
    out.Append(data);
    return std::move(out).Take();
}

// The colours of HandMade's header.
Words HeaderColors(const std::vector<unsigned>& indices, bool keyed) {
    Words words;
    for (const unsigned i : indices) {
        words.push_back((keyed && i == 0 ? 0 : 0xFF000000U) | i << 16U | i * 2 << 8U | i * 3);
    }
    return words;
}

void ExpectHandMade(const char* name, const std::vector<std::byte>& pcx, const Words& pixels) {
    SCOPED_TRACE(name);
    PcxDecoding decoding;
    decoding.SetPalette(PaletteOf(200));  // not for these
    ASSERT_TRUE(decoding.Load(pcx));
    EXPECT_EQ(decoding.Pixels(), pixels);
    EXPECT_EQ(decoding.picture.consumed, pcx.size() - kPcxHeaderSize);
}

TEST(HandMadePcx, OfFewColorsHasThoseOfItsHeader) {
    const auto keyed = [](const std::vector<unsigned>& indices) {
        return HeaderColors(indices, true);
    };
    const auto opaque = [](const std::vector<unsigned>& indices) {
        return HeaderColors(indices, false);
    };
    // 10 pixels: 1010011001 and 0111111110; what lies behind in the bytes is padding.
    ExpectHandMade("1 bit", HandMade(0, 1, 1, 10, 2, 2, Bytes({0xA6, 0x7F, 0x7F, 0xBF})),
                   keyed({1, 0, 1, 0, 0, 1, 1, 0, 0, 1, 0, 1, 1, 1, 1, 1, 1, 1, 1, 0}));
    ExpectHandMade("2 bits", HandMade(0, 2, 1, 5, 2, 2, Bytes({0x1B, 0xBF, 0xE4, 0x7F})),
                   keyed({0, 1, 2, 3, 2, 3, 2, 1, 0, 1}));
    ExpectHandMade("4 bits", HandMade(1, 4, 1, 3, 2, 2, Bytes({0x0F, 0x5A, 0xC1, 0xE1, 0x7B})),
                   keyed({0, 15, 5, 14, 1, 7}));
    // The first plane holds the lowest bit: 1100, 1010 -> 3 1 2 0.
    ExpectHandMade("2 planes", HandMade(0, 1, 2, 4, 1, 1, Bytes({0xCF, 0xAF})),
                   opaque({3, 1, 2, 0}));
    ExpectHandMade("3 planes", HandMade(0, 1, 3, 8, 1, 1, Bytes({0x55, 0x33, 0x0F})),
                   opaque({0, 1, 2, 3, 4, 5, 6, 7}));
    ExpectHandMade(
        "4 planes",
        HandMade(0, 1, 4, 16, 1, 2, Bytes({0x55, 0x55, 0x33, 0x33, 0x0F, 0x0F, 0x00, 0xFF})),
        opaque({0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15}));
}

TEST(HandMadePcx, PlanesOf8BitsAreRedGreenBlueLineByLine) {
    ExpectHandMade("with padding",
                   HandMade(0, 8, 3, 2, 2, 3,
                            Bytes({1, 2, 99, 3, 4, 99, 5, 6, 99,  //
                                   7, 8, 99, 9, 10, 99, 11, 12, 99})),
                   {0xFF010305, 0xFF020406, 0xFF07090B, 0xFF080A0C});
    ExpectHandMade("a fourth plane is not shown",
                   HandMade(0, 8, 4, 1, 2, 1, Bytes({1, 2, 3, 0, 4, 5, 6, 7})),
                   {0xFF010203, 0xFF040506});
    // 12 bytes: line 0 red 1 1, green 1 1, blue 1 2; line 1 all 2.
    ExpectHandMade("a run goes over lines and planes",
                   HandMade(1, 8, 3, 2, 2, 2, Bytes({0xC5, 1, 0xC7, 2})),
                   {0xFF010101, 0xFF010102, 0xFF020202, 0xFF020202});
}

TEST(HandMadePcx, RunsOfNothingAreNothingIn256ColorsToo) {
    for (const DeviceLines lines : {DeviceLines::AsWanted, DeviceLines::Wide}) {
        PcxDecoding decoding(lines);
        const Palette palette = PaletteOf(8);
        decoding.SetPalette(palette);
        ASSERT_TRUE(
            decoding.Load(HandMade(1, 8, 1, 2, 2, 2, Bytes({0xC0, 5, 1, 0xC0, 9, 0xC3, 2}))));
        EXPECT_EQ(decoding.Pixels(), (Words{Opaque(palette[1]), Opaque(palette[2]),
                                            Opaque(palette[2]), Opaque(palette[2])}));
    }
}

// Any number but 0 stands for run lengths.
TEST(HandMadePcx, EveryEncodingBut0IsRunLength) {
    const Palette palette = PaletteOf(8);
    const Words raw{Opaque(palette[0xC2]), Opaque(palette[7]), Opaque(palette[8])};
    const Words runs{Opaque(palette[7]), Opaque(palette[7]), Opaque(palette[8])};
    for (const auto& [encoding, pixels] :
         {std::pair{0, raw}, std::pair{1, runs}, std::pair{2, runs}, std::pair{255, runs}}) {
        PcxDecoding decoding;
        decoding.SetPalette(palette);
        ASSERT_TRUE(decoding.Load(
            HandMade(static_cast<std::uint8_t>(encoding), 8, 1, 3, 1, 3, Bytes({0xC2, 7, 8, 9}))));
        EXPECT_EQ(decoding.Pixels(), pixels) << encoding;
        EXPECT_EQ(decoding.picture.consumed, 3U) << encoding;
    }
}

// The version byte says nothing that the other fields do not say.
TEST(HandMadePcx, EveryVersionIsTaken) {
    for (const unsigned version : {0U, 2U, 3U, 4U, 5U, 255U}) {
        PcxDecoding decoding;
        auto pcx = HandMade(0, 8, 1, 1, 1, 1, Bytes({1}));
        pcx[1] = static_cast<std::byte>(version);
        EXPECT_TRUE(decoding.Load(pcx)) << version;
    }
}

struct Packing {
    bool runLengths;
    RunBreaks breaks;
};

void PrintTo(const Packing& packing, std::ostream* out) {
    *out << (packing.runLengths ? "runs " : "raw ") << static_cast<int>(packing.breaks);
}

constexpr std::array<Packing, 4> kPackings = {
    Packing{false, RunBreaks::AtLineEnds}, Packing{true, RunBreaks::AtPlaneEnds},
    Packing{true, RunBreaks::AtLineEnds}, Packing{true, RunBreaks::Nowhere}};

// A kind of few colours, or one of true colours.
struct Kind {
    const char* name;
    std::optional<PcxDepth> depth;
    int planes;
    int bits;  // of a plane
    unsigned colors;
};

void PrintTo(const Kind& kind, std::ostream* out) {
    *out << kind.name;
}

constexpr std::array<Kind, 9> kKinds = {{{"8 bits", PcxDepth::Bits8, 1, 8, 256},
                                         {"1 bit", PcxDepth::Bits1, 1, 1, 2},
                                         {"2 bits", PcxDepth::Bits2, 1, 2, 4},
                                         {"4 bits", PcxDepth::Bits4, 1, 4, 16},
                                         {"2 planes of 1", PcxDepth::Bits1Planes2, 2, 1, 4},
                                         {"3 planes of 1", PcxDepth::Bits1Planes3, 3, 1, 8},
                                         {"4 planes of 1", PcxDepth::Bits1Planes4, 4, 1, 16},
                                         {"3 planes of 8", std::nullopt, 3, 8, 0},
                                         {"4 planes of 8", std::nullopt, 4, 8, 0}}};

class PcxOfEveryKind : public testing::TestWithParam<std::tuple<Kind, Packing, DeviceLines>> {
protected:
    // Writes a picture of the kind and gives the words that it must become.
    static std::vector<std::byte> Write(const Kind& kind, int width, int height,
                                        const PcxOptions& options, Words& expected) {
        if (!kind.depth) {
            const auto picture = TrueColorPicture(width, height, 5);
            expected = KeyedByColor(picture.pixels, nullptr);
            return kind.planes == 3 ? WritePcx(picture, options) : WritePcx(picture, 0xDD, options);
        }
        const auto picture = StripedPicture(width, height, PaletteOf(21), kind.colors);
        expected =
            kind.planes == 1 ? KeyedByIndex(picture) : KeyedByColor(ColorsOf(picture), nullptr);
        return WritePcx(picture, options, *kind.depth);
    }
};

TEST_P(PcxOfEveryKind, PixelForPixel) {
    const auto [kind, packing, lines] = GetParam();
    for (const int width : {1, 2, 7, 8, 9, 31, 64, 129}) {
        for (const int height : {1, 2, 5}) {
            for (const int surplus : {0, 1, 2, 3, 64, 65, 200}) {
                PcxOptions options;
                options.runLengths = packing.runLengths;
                options.runBreaks = packing.breaks;
                options.bytesPerLine = (width * kind.bits + 7) / 8 + surplus;
                options.padding = static_cast<std::uint8_t>(0xC0 + surplus);
                options.xMin = width * 5;
                options.yMin = 65000 + height;
                SCOPED_TRACE(std::to_string(width) + " x " + std::to_string(height) + ", " +
                             std::to_string(options.bytesPerLine) + " bytes per line");

                Words expected;
                const auto pcx = Write(kind, width, height, options, expected);
                PcxDecoding decoding(lines);
                decoding.SetPalette(PaletteOf(21));
                ASSERT_TRUE(decoding.Load(pcx));
                ASSERT_EQ(decoding.picture.width, width);
                ASSERT_EQ(decoding.picture.height, height);
                ASSERT_EQ(decoding.Pixels(), expected);
            }
        }
    }
}

INSTANTIATE_TEST_SUITE_P(, PcxOfEveryKind,
                         testing::Combine(testing::ValuesIn(kKinds), testing::ValuesIn(kPackings),
                                          testing::Values(DeviceLines::AsWanted, DeviceLines::Tight,
                                                          DeviceLines::Wide)));

// What the pixels of a picture took is known to the byte, whatever follows them.
TEST(PcxConsumed, EndsWithTheLastLine) {
    for (const DeviceLines lines : {DeviceLines::AsWanted, DeviceLines::Wide}) {
        for (const Packing& packing : kPackings) {
            PcxOptions options;
            options.runLengths = packing.runLengths;
            options.runBreaks = packing.breaks;
            options.trailingPalette = samplemaker::TrailingPalette::None;
            auto pcx = WritePcx(StripedPicture(33, 9, PaletteOf(1)), options);
            const std::size_t pixels = pcx.size() - kPcxHeaderSize;
            pcx.insert(pcx.end(), 500, std::byte{0x0C});
            PcxDecoding decoding(lines);
            ASSERT_TRUE(decoding.Load(pcx));
            EXPECT_EQ(decoding.picture.consumed, pixels);
        }
    }
}

TEST(PcxMemory, PaddingIsNotGivenAPictureOfMemory) {
    // 600 pixels that lie 65534 bytes apart: 39 MB of padding as bytes, 157 MB as pixels.
    PcxOptions options;
    options.bytesPerLine = 65534;
    const auto picture = StripedPicture(1, 600, PaletteOf(2));
    PcxDecoding decoding;
    ASSERT_TRUE(decoding.Load(picture, options));
    EXPECT_EQ(decoding.Pixels(), KeyedByIndex(picture));
    EXPECT_LE(decoding.device.Created().front().wantedPitch, 1 + 64);
}

// Kinds and sizes that the data could yield at their best, and do not.
TEST(PcxMemory, DataThatClaimMuchAndHoldLittleGetNone) {
    for (const unsigned bits : {8U, 1U}) {
        std::vector<std::byte> pcx = HandMade(1, static_cast<std::uint8_t>(bits), 1, 1, 1, 1, {});
        PatchU16(pcx, 8, 2999);
        PatchU16(pcx, 10, 2999);
        PatchU16(pcx, 66, bits == 8 ? 3000 : 375);
        pcx.resize(pcx.size() + (bits == 8 ? 300'000 : 40'000), std::byte{7});
        PcxDecoding decoding;
        ASSERT_FALSE(decoding.Load(pcx));
        EXPECT_THAT(decoding.Texts(), testing::ElementsAre(testing::HasSubstr("pixels end after")));
        EXPECT_TRUE(decoding.device.Created().empty());
    }
}

TEST(PcxMemory, ButDataThatHoldAsMuchAreShown) {
    IndexedPicture flat{2000, 1000, {}, PaletteOf(6)};
    flat.pixels.assign(2'000'000, 5);
    PcxDecoding decoding;
    ASSERT_TRUE(decoding.Load(flat));
    EXPECT_EQ(decoding.Pixels(), KeyedByIndex(flat));
}

TEST(PcxMemory, ThePictureOfADeviceWithArenaIsTheSame) {
    const auto device = std::make_unique<SoftDevice>();
    HeadlessMessages messages;
    for (const int width : {1, 3, 64, 250}) {
        PcxDecoder decoder(*device, messages);
        const auto picture = StripedPicture(width, 40, PaletteOf(2));
        PcxOptions options;
        options.bytesPerLine = width + 3;
        const auto pcx = WritePcx(picture, options);
        decoder.SetPalette(std::span(pcx).last<kPcxPaletteSize>());
        PcxPicture shown;
        ASSERT_TRUE(decoder.LoadPCX(ReadPcxHeader(std::span(pcx).first<kPcxHeaderSize>()),
                                    std::span(pcx).subspan(kPcxHeaderSize), shown));
        EXPECT_EQ(PixelsOf(*shown.texture), KeyedByIndex(picture));
    }
}

TEST(PcxLargest, AreAsLargeAs16BitsAllow) {
    for (const auto& [width, height] : {std::pair{32767, 1}, std::pair{1, 32767}}) {
        const auto picture = StripedPicture(width, height, PaletteOf(2));
        PcxDecoding decoding;
        ASSERT_TRUE(decoding.Load(picture));
        EXPECT_EQ(decoding.Pixels(), KeyedByIndex(picture));
    }
    for (const auto& [width, height] : {std::pair{32768, 1}, std::pair{1, 32768}}) {
        PcxDecoding decoding;
        ASSERT_FALSE(decoding.Load(StripedPicture(width, height, PaletteOf(2))));
        EXPECT_THAT(
            decoding.Texts(),
            testing::ElementsAre(HandleErrorText("Overflow: " + std::to_string(width) + " x " +
                                                 std::to_string(height) + " pixels")));
        EXPECT_TRUE(decoding.device.Created().empty());
    }
}

}  // namespace
}  // namespace scenara::test
