// SPDX-License-Identifier: MIT
#include "sprites/version1/SubfilePicture.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "ArchiveLoad.h"
#include "PcxDecoding.h"

namespace scenara::test {
namespace {

using samplemaker::PcxOptions;
using samplemaker::TrailingPalette;
using testing::_;
using testing::AllOf;
using testing::AnyOf;
using testing::Each;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Le;
using testing::StartsWith;

constexpr ViewOptions kWithAdditions{true};

// The pictures of an archive, one call after the other.
class Pictures {
public:
    explicit Pictures(const std::vector<std::byte>& bytes, const ViewOptions& options = kPlainView)
        : file(bytes),
          chain(file, ReadSffHeader(file)),
          use(file.Size()),
          pictures(file, device, messages, options) {}

    bool LoadNext() {
        EXPECT_TRUE(chain.Next());
        const std::unique_ptr<SubfileLoad> load = pictures.Begin(chain.Current());
        load->Decode();
        return pictures.Finish(*load, use, picture);
    }
    // Of the next one, which loads.
    Words Next() {
        EXPECT_TRUE(LoadNext());
        return picture.texture ? PixelsOf(*picture.texture) : Words();
    }
    // Of one that loads after some that load or not.
    Words NextAfter(std::initializer_list<bool> loads) {
        for (const bool expected : loads) {
            EXPECT_EQ(LoadNext(), expected);
        }
        return Next();
    }

    [[nodiscard]] std::vector<std::string> Texts() const { return TextsOf(messages); }

    MemoryFile file;
    RecordingDevice device;
    HeadlessMessages messages;
    SubfileChain chain;
    ArchiveUse use;
    SubfilePictures pictures;
    PcxPicture picture;
};

PcxOptions Without(TrailingPalette what) {
    PcxOptions options;
    options.trailingPalette = what;
    return options;
}

// A subfile whose numbers do not matter, with its own palette or with that of the one before.
Sff1Subfile Of(std::vector<std::byte> pcx) {
    return Shown(0, 0, std::move(pcx));
}
Sff1Subfile SharingOf(std::vector<std::byte> pcx) {
    return Sharing(Of(std::move(pcx)));
}
Sff1Subfile Of(const IndexedPicture& picture) {
    return Of(WritePcx(picture));
}
Sff1Subfile SharingOf(const IndexedPicture& picture) {
    return SharingOf(WritePcx(picture));
}

void AppendPalette(std::vector<std::byte>& pcx, std::uint8_t seed) {
    const auto whole = WritePcx(StripedPicture(4, 4, PaletteOf(seed)));
    pcx.insert(pcx.end(), whole.end() - 768, whole.end());
}

// A picture as raw or packed bytes with nothing behind its pixels.
std::vector<std::byte> BarePcx(int width, int height, bool packed, const char* behind = "") {
    PcxOptions options = Without(TrailingPalette::None);
    options.runLengths = packed;
    auto pcx = WritePcx(StripedPicture(width, height, PaletteOf(2), 200), options);
    for (const char* c = behind; *c != '\0'; ++c) {
        pcx.push_back(static_cast<std::byte>(*c));
    }
    return pcx;
}

TEST(SubfilePictures, APictureIsReadInTwo) {
    const auto a = WritePcx(StripedPicture(20, 10, PaletteOf(1)));
    const auto b = WritePcx(StripedPicture(30, 5, PaletteOf(2)), Without(TrailingPalette::None));
    const auto bytes = WriteSff1({Of(a), SharingOf(b)});
    Pictures archive(bytes);
    (void)archive.NextAfter({true});

    std::vector<std::uint64_t> positions;
    std::vector<std::size_t> wanted;
    for (const MemoryFile::Read& read : archive.file.Reads()) {
        positions.push_back(read.position);
        wanted.push_back(read.wanted);
    }
    const std::size_t second = SubfileOffsets(bytes, 2)[1];
    // The archive's header, then three each.
    EXPECT_THAT(positions, ElementsAre(0, 512, 512 + 32, 512 + 32 + 128, second, second + 32,
                                       second + 32 + 128));
    EXPECT_THAT(wanted, ElementsAre(_, 32, 128, Le(a.size() - 127), _, 128, _));
}

TEST(SubfilePictures, ThePaletteIsTheEndOfTheData) {
    const auto picture = StripedPicture(20, 10, PaletteOf(44));
    // Bytes between pixels and palette are nothing; the mark in front of it is not looked at.
    auto pcx = WritePcx(picture, Without(TrailingPalette::None));
    pcx.insert(pcx.end(), 5000, std::byte{0x77});
    AppendPalette(pcx, 44);
    Pictures archive(WriteSff1({Of(pcx)}));
    EXPECT_EQ(archive.Next(), KeyedByIndex(picture));
    EXPECT_TRUE(archive.Texts().empty());
}

TEST(SubfilePictures, TheFlagTakesThePaletteOfThePictureBefore) {
    const auto a = StripedPicture(8, 8, PaletteOf(1));
    const auto b = StripedPicture(9, 9, PaletteOf(2));
    const auto c = StripedPicture(7, 9, PaletteOf(3));
    Pictures archive(
        WriteSff1({Of(a), SharingOf(b),
                   SharingOf(WritePcx(c, Without(TrailingPalette::MarkerOnly))), Of(b)}));
    EXPECT_EQ(archive.Next(), KeyedByIndex(a));
    EXPECT_EQ(archive.Next(), KeyedByIndex(b, a.palette));
    EXPECT_EQ(archive.picture.key, Opaque(a.palette[0]));
    EXPECT_EQ(archive.Next(), KeyedByIndex(c, a.palette));
    EXPECT_EQ(archive.Next(), KeyedByIndex(b));
    EXPECT_TRUE(archive.Texts().empty());
}

TEST(SubfilePictures, TheFirstOneReadsItsOwnPaletteInSpiteOfTheFlag) {
    const auto a = StripedPicture(8, 8, PaletteOf(90));
    EXPECT_EQ(Pictures(WriteSff1({SharingOf(a)})).Next(), KeyedByIndex(a));
}

TEST(SubfilePictures, PicturesWithout256ColorsLeaveThePalette) {
    const auto a = StripedPicture(8, 8, PaletteOf(1));
    const auto b = StripedPicture(8, 8, PaletteOf(2), 16);
    Pictures archive(WriteSff1({Of(a), Of(WritePcx(b, PcxOptions{}, samplemaker::PcxDepth::Bits4)),
                                Of(WritePcx(TrueColorPicture(30, 30, 1))),
                                SharingOf(WritePcx(a, Without(TrailingPalette::None)))}));
    EXPECT_EQ(archive.NextAfter({true}), KeyedByIndex(b));
    EXPECT_EQ(archive.NextAfter({true}), KeyedByIndex(a));
    EXPECT_THAT(archive.Texts(), ElementsAre("yo..."));
}

// The palette was read before the picture failed, so the next one shares it.
TEST(SubfilePictures, APictureThatFailsLeavesItsPalette) {
    const auto b = StripedPicture(8, 8, PaletteOf(2));
    const auto bytes =
        WriteSff1({Of(StripedPicture(8, 8, PaletteOf(1))), Of(BrokenPcx(7)), SharingOf(b)});
    for (const ViewOptions& options : {kPlainView, kWithAdditions}) {
        EXPECT_EQ(Pictures(bytes, options).NextAfter({true, false}), KeyedByIndex(b, PaletteOf(7)));
    }
}

struct LengthRow {
    const char* name;
    TrailingPalette palette;
    bool samePalette;
    std::int32_t surplus;
};

// The pixels are complete, so the picture is; here as the last one of the file and before another.
TEST(LengthThatLies, IsNoError) {
    constexpr auto kNone = TrailingPalette::None;
    const auto first = StripedPicture(6, 6, PaletteOf(70));
    const auto picture = StripedPicture(40, 30, PaletteOf(71));
    for (const LengthRow& row :
         {LengthRow{"by nothing", TrailingPalette::Whole, false, 0},
          {"counts a palette that is not there", kNone, true, 768},
          {"counts palette and mark", kNone, true, 769},
          {"by one byte", kNone, true, 1},
          {"ends with the pixels", kNone, true, 0},
          {"into the next subfile", kNone, true, 1200},
          {"far past the end", kNone, true, 2'000'000'000},
          {"leaves out the shared palette", TrailingPalette::Whole, true, -768}}) {
        SCOPED_TRACE(row.name);
        Sff1Subfile lying = Of(WritePcx(picture, Without(row.palette)));
        lying.samePalette = row.samePalette;
        lying.lengthSurplus = row.surplus;
        const auto& palette = row.samePalette ? first.palette : picture.palette;
        Pictures last(WriteSff1({Of(first), lying}));
        EXPECT_EQ(last.NextAfter({true}), KeyedByIndex(picture, palette));
        Pictures between(WriteSff1({Of(first), lying, Of(first)}));
        EXPECT_EQ(between.NextAfter({true}), KeyedByIndex(picture, palette));
        EXPECT_EQ(between.Next(), KeyedByIndex(first));
        EXPECT_TRUE(last.Texts().empty() && between.Texts().empty());
    }
}

// No pixel lies in the padding of the last line, so a file may end in front of it.
TEST(LastLine, MayEndWithoutItsPadding) {
    const auto picture = StripedPicture(5, 4, PaletteOf(70));
    PcxOptions options = Without(TrailingPalette::None);
    options.runLengths = false;
    options.bytesPerLine = 12;
    auto bytes = WriteSff1({Of(picture), SharingOf(WritePcx(picture, options))});
    bytes.resize(bytes.size() - 7);
    Pictures archive(bytes);
    EXPECT_EQ(archive.NextAfter({true}), KeyedByIndex(picture));
    EXPECT_TRUE(archive.Texts().empty());

    bytes.pop_back();
    Pictures shorter(bytes);
    (void)shorter.Next();
    EXPECT_FALSE(shorter.LoadNext());
}

// `length` - 127 bytes behind the PCX header belong to the picture: one more than the length says.
TEST(LengthThatIsShort, GivesOneByteMoreThanItSays) {
    const auto picture = StripedPicture(6, 1, PaletteOf(70));
    PcxOptions options = Without(TrailingPalette::None);
    options.runLengths = false;
    const auto pcx = WritePcx(picture, options);
    ASSERT_EQ(pcx.size(), 128U + 6);
    const auto shorterBy = [&](int bytes) {
        Sff1Subfile lying = SharingOf(pcx);
        lying.lengthSurplus = -bytes;
        return WriteSff1({Of(picture), lying});
    };
    EXPECT_EQ(Pictures(shorterBy(1)).NextAfter({true}), KeyedByIndex(picture));
    Pictures tooShort(shorterBy(2));
    (void)tooShort.Next();
    EXPECT_FALSE(tooShort.LoadNext());
    EXPECT_THAT(tooShort.Texts(),
                ElementsAre(HandleErrorText("Input past end of file: 6 x 1 pixels cannot "
                                            "come from 5 bytes")));
}

TEST(LengthThatIsShort, IsAFailureWhereThePixelsEndEarly) {
    const auto picture = StripedPicture(40, 30, PaletteOf(70));
    Sff1Subfile lying = SharingOf(picture);
    lying.lengthSurplus = -768 - 50;
    Pictures archive(WriteSff1({Of(picture), lying}));
    (void)archive.Next();
    EXPECT_FALSE(archive.LoadNext());
    EXPECT_THAT(archive.Texts(), ElementsAre(StartsWith(HandleErrorText("Input past end of file: "
                                                                        "the pixels end after "))));
}

TEST(LengthThatIsShort, OfTheHeaderAloneHoldsNoPixels) {
    const auto pixel = StripedPicture(1, 1, PaletteOf(70));
    for (const std::uint32_t length : {1U, 50U, 127U}) {
        auto bytes = WriteSff1({Of(pixel), SharingOf(pixel)});
        PatchU32(bytes, SubfileOffsets(bytes, 2)[1] + 4, length);
        Pictures archive(bytes);
        (void)archive.Next();
        EXPECT_FALSE(archive.LoadNext());
        EXPECT_THAT(archive.Texts(),
                    ElementsAre(HandleErrorText(
                        "Input past end of file: 1 x 1 pixels cannot come from 0 bytes")));
    }
}

// 256 in place of the length: 129 bytes of data, and the palette from 480 bytes before the subfile.
TEST(NegativeLength, IsTakenAs256AndReported) {
    const auto picture = StripedPicture(6, 4, PaletteOf(70), 100);
    const auto pcx = WritePcx(picture, Without(TrailingPalette::None));
    ASSERT_LE(pcx.size(), 256U);
    Sff1Options options;
    options.firstGap = 480;
    options.gapValue = 0x2D;
    Palette gap;
    gap.fill({0x2D, 0x2D, 0x2D});
    for (const std::int32_t length : {-1, -256, std::numeric_limits<std::int32_t>::min()}) {
        auto bytes = WriteSff1({Shown(12, -5, pcx)}, options);
        PatchU32(bytes, 512 + 480 + 4, static_cast<std::uint32_t>(length));
        bytes.resize(2000);
        Pictures archive(bytes);
        EXPECT_EQ(archive.Next(), KeyedByIndex(picture, gap));
        EXPECT_THAT(KindsOf(archive.messages), ElementsAre(kMessageNegativeLength));
        EXPECT_THAT(archive.Texts(), ElementsAre(AllOf(HasSubstr("report by e-mail"),
                                                       HasSubstr("you have seen this message"),
                                                       HasSubstr("Group 12 Image -5"))));
    }
}

TEST(NegativeLength, HoldsNoMoreThan129BytesOfPixels) {
    PcxOptions options = Without(TrailingPalette::None);
    options.runLengths = false;
    options.bytesPerLine = 3;
    Sff1Options gap;
    gap.firstGap = 480;
    for (const int height : {43, 44}) {
        auto bytes =
            WriteSff1({Of(WritePcx(StripedPicture(3, height, PaletteOf(1)), options))}, gap);
        PatchU32(bytes, 512 + 480 + 4, 0xFFFFFFFF);
        EXPECT_EQ(Pictures(bytes).LoadNext(), height == 43);  // 3 x 43 = 129
    }
}

constexpr const char* kRestIsBlack = "Its palette is not whole in the file, the rest is black..";

TEST(MissingPalette, OfTheFirstPictureIsBlackWithAMessage) {
    Sff1Subfile lying =
        Of(WritePcx(StripedPicture(40, 30, PaletteOf(1)), Without(TrailingPalette::None)));
    lying.lengthSurplus = 768;
    for (const auto& [subfile, options] :
         {std::pair{lying, kPlainView}, std::pair{Sharing(lying), kPlainView},
          std::pair{Of(BarePcx(100, 50, false)), kWithAdditions}}) {
        Pictures archive(WriteSff1({subfile}), options);
        EXPECT_THAT(archive.Next(), Each(AnyOf(0U, 0xFF000000U)));
        EXPECT_THAT(archive.Texts(), ElementsAre(HasSubstr(kRestIsBlack)));
    }
}

TEST(MissingPalette, OfTheFirstPictureIsShownAsFarAsItIsThere) {
    const auto picture = StripedPicture(40, 30, PaletteOf(1));
    auto bytes = WriteSff1({Of(picture)});
    bytes.pop_back();  // the blue of the last colour, to which this picture does not come
    Pictures archive(bytes);
    EXPECT_EQ(archive.Next(), KeyedByIndex(picture));
    EXPECT_THAT(archive.Texts(), ElementsAre(HasSubstr(kRestIsBlack)));
}

TEST(MissingPalette, BeforeTheFileIsNotThereEither) {
    // The subfile lies at 28 and is so short that its end less 768 is before the file.
    auto bytes = std::vector<std::byte>(28);
    PatchU32(bytes, 20, 1);
    PatchU32(bytes, 24, 28);
    const auto subfile = WriteSff1(
        {Of(WritePcx(StripedPicture(6, 1, PaletteOf(1)), Without(TrailingPalette::None)))});
    bytes.insert(bytes.end(), subfile.begin() + 512, subfile.end());
    bytes.resize(2000);
    Pictures archive(bytes);
    EXPECT_THAT(archive.Next(),
                ElementsAre(0U, 0U, 0xFF000000U, 0xFF000000U, 0xFF000000U, 0xFF000000U));
    EXPECT_THAT(archive.Texts(), ElementsAre(HasSubstr(kRestIsBlack)));
}

TEST(MissingPalette, OfALaterPictureIsTheOneBeforeWithAMessage) {
    const auto a = StripedPicture(8, 8, PaletteOf(1));
    const auto b = StripedPicture(40, 30, PaletteOf(2));
    auto bytes = WriteSff1({Shown(3, 4, WritePcx(a)), Shown(-5, 6, WritePcx(b))});
    bytes.pop_back();
    Pictures archive(bytes);
    EXPECT_EQ(archive.NextAfter({true}), KeyedByIndex(b, a.palette));
    EXPECT_THAT(KindsOf(archive.messages), ElementsAre(kMessageMissingPalette));
    EXPECT_THAT(archive.Texts(), ElementsAre(AllOf(StartsWith("PCX Error:  Group -5 Image 6\r\n"),
                                                   HasSubstr("palette"))));
}

// --- addition: palettes are looked at ---

struct LookedAtRow {
    const char* name;
    std::vector<std::byte> pcx;
    bool hasPalette;
};

TEST(LookedAtPalette, IsBelievedBehindItsMarkOrBehindThePixels) {
    const LookedAtRow rows[] = {
        {"packed with nothing behind", BarePcx(100, 50, true), false},
        {"raw with nothing behind", BarePcx(100, 50, false), false},
        {"raw and shorter than a palette", BarePcx(20, 10, false), false},
        {"raw and as long as a palette", BarePcx(32, 24, false), false},
        {"raw and one row longer", BarePcx(32, 25, false), false},
        {"packed with a mark", BarePcx(100, 50, true, "\x0C"), true},
        {"raw with a mark", BarePcx(100, 50, false, "\x0C"), true},
        {"raw without a mark", BarePcx(100, 50, false), true},
        {"packed without a mark", BarePcx(100, 50, true), true},
        {"with something else between", BarePcx(100, 50, true, "something else"), true},
    };
    for (const LookedAtRow& row : rows) {
        SCOPED_TRACE(row.name);
        auto pcx = row.pcx;
        if (row.hasPalette) {
            AppendPalette(pcx, 2);
        }
        const auto bytes = WriteSff1({Of(StripedPicture(6, 6, PaletteOf(1))), Shown(0, 1, pcx),
                                      SharingOf(BarePcx(9, 9, true))});
        Pictures archive(bytes, kWithAdditions);
        (void)archive.NextAfter({true});
        const auto inForce = PaletteOf(row.hasPalette ? 2 : 1);
        EXPECT_EQ(archive.picture.key, Opaque(inForce[0]));
        EXPECT_EQ(archive.Next(), KeyedByIndex(StripedPicture(9, 9, inForce, 200)));
        const std::vector<std::string> said(
            row.hasPalette ? 0 : 1,
            "PCX Error:  Group 0 Image 1\r\nIts palette is not in the file, the one before it is "
            "used..");
        EXPECT_EQ(archive.Texts(), said);
        Pictures plain(bytes);
        (void)plain.NextAfter({true});
        EXPECT_EQ(plain.picture.key == Opaque(inForce[0]), row.hasPalette);
        EXPECT_TRUE(plain.Texts().empty());
    }
}

// What is dropped needs no colours.
TEST(MissingPalette, OfAPictureThatIsDroppedIsNotReported) {
    const auto good = WriteSff1(
        {Of(StripedPicture(8, 8, PaletteOf(1))), Of(StripedPicture(40, 30, PaletteOf(2)))});
    const std::size_t pcx = SubfileOffsets(good, 2)[1] + 32;
    const auto messagesOf = [](std::vector<std::byte> bytes, std::size_t cut) {
        bytes.resize(bytes.size() - cut);
        Pictures archive(bytes);
        (void)archive.Next();
        EXPECT_FALSE(archive.LoadNext());
        return archive.Texts();
    };
    auto noPcx = good;
    noPcx[pcx] = std::byte{0x99};
    EXPECT_THAT(messagesOf(noPcx, 1),
                ElementsAre(HandleErrorText("Bad format: not a PCX picture")));
    auto wrongWayRound = good;
    PatchU16(wrongWayRound, pcx + 4, 500);  // xMin
    EXPECT_THAT(messagesOf(wrongWayRound, 1), ElementsAre(HasSubstr("pixels")));
    EXPECT_THAT(messagesOf(good, 768 + 5), ElementsAre(HasSubstr("the pixels end after")));
}

// Flag or not, the first picture with 256 colours that comes out brings the first palette.
TEST(MissingPalette, AfterNothingWithAPaletteIsThePicturesOwn) {
    const auto a = StripedPicture(8, 8, PaletteOf(3));
    Pictures archive(WriteSff1({Of(WritePcx(TrueColorPicture(3, 3, 1))), SharingOf(a)}));
    EXPECT_EQ(archive.NextAfter({true}), KeyedByIndex(a));
}

TEST(SubfilePictures, AFileThatEndsInThePcxHeaderSaysSo) {
    auto bytes = WriteSff1({Of(StripedPicture(8, 8, PaletteOf(3)))});
    for (const std::size_t size : {512U + 32U + 127U, 512U + 32U}) {
        bytes.resize(size);
        Pictures archive(bytes);
        EXPECT_FALSE(archive.LoadNext());
        EXPECT_THAT(archive.Texts(), ElementsAre(HandleErrorText("Input past end of file: the file "
                                                                 "ends in the PCX header")));
    }
}

// Whatever sizes are claimed, no more is asked for than the picture could need.
TEST(SubfilePictures, LyingSizesReadNothingHuge) {
    const auto good = WritePcx(StripedPicture(10, 10, PaletteOf(3)));
    const auto trueLength = static_cast<std::uint32_t>(good.size());
    constexpr std::size_t kSurplus = 5'000'000;
    struct Row {
        const char* name;
        std::uint32_t length;
        unsigned lastColumnAndLine, bytesPerLine;
        std::size_t mostAskedFor, shown;
    };
    for (const Row& row :
         {Row{"its palette is far behind the file", 0x7FFFFFFF, 9, 10, 2U * 100 + 1 + 768, 1},
          {"a gigabyte cannot come from that length", trueLength, 32766, 32767, 768, 0},
          {"both", 0x7FFFFFFF, 32766, 32767, kSurplus, 0}}) {
        SCOPED_TRACE(row.name);
        auto bytes = WriteSff1({Of(good)});
        bytes.resize(bytes.size() + kSurplus);
        const std::size_t pcx = 512 + 32;
        PatchU32(bytes, 512 + 4, row.length);
        PatchU16(bytes, pcx + 8, row.lastColumnAndLine);
        PatchU16(bytes, pcx + 10, row.lastColumnAndLine);
        PatchU16(bytes, pcx + 66, row.bytesPerLine);
        Pictures archive(bytes);
        EXPECT_EQ(archive.LoadNext(), row.shown == 1);
        EXPECT_EQ(archive.device.Created().size(), row.shown);
        for (const MemoryFile::Read& read : archive.file.Reads()) {
            EXPECT_LE(read.wanted, row.mostAskedFor);
        }
    }
}

// Buffers are used again: what a long picture left in them is no part of a short one.
TEST(SubfilePictures, WhatThePictureBeforeLeftIsNotRead) {
    const auto large = StripedPicture(200, 100, PaletteOf(3));
    auto bytes = WriteSff1({Of(large), Of(large)});
    bytes.resize(SubfileOffsets(bytes, 2)[1] + 32 + 128 + 300);
    Pictures archive(bytes);
    (void)archive.Next();
    EXPECT_FALSE(archive.LoadNext());
}

}  // namespace
}  // namespace scenara::test
