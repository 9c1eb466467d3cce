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

namespace scenara {
namespace {

using samplemaker::PcxOptions;
using samplemaker::TrailingPalette;
using test::BrokenPcx;
using test::HandleErrorText;
using test::KeyedByIndex;
using test::MemoryFile;
using test::Opaque;
using test::PaletteOf;
using test::PatchU16;
using test::PatchU32;
using test::Sff1Options;
using test::Sff1Subfile;
using test::Shown;
using test::StripedPicture;
using test::SubfileOffsets;
using test::Words;
using test::WritePcx;
using test::WriteSff1;
using testing::AnyOf;
using testing::Each;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

// The pictures of an archive, one call after the other.
class Pictures {
public:
    explicit Pictures(const std::vector<std::byte>& bytes, const ViewOptions& options = kPlainView)
        : file(bytes),
          chain(file, ReadSffHeader(file)),
          pictures(file, device, messages, options) {}

    bool LoadNext() {
        EXPECT_TRUE(chain.Next());
        return pictures.Load(chain.Current(), chain.Use(), picture);
    }

    [[nodiscard]] Words Pixels() const { return test::PixelsOf(*picture.texture); }

    [[nodiscard]] std::vector<std::string> Texts() const {
        std::vector<std::string> texts;
        for (const Message& message : messages.Recorded()) {
            texts.push_back(message.text);
        }
        return texts;
    }

    MemoryFile file;
    test::RecordingDevice device;
    HeadlessMessages messages;
    SubfileChain chain;
    SubfilePictures pictures;
    PcxPicture picture;
};

PcxOptions Without(TrailingPalette what) {
    PcxOptions options;
    options.trailingPalette = what;
    return options;
}

Sff1Subfile Sharing(std::vector<std::byte> pcx) {
    Sff1Subfile subfile = Shown(1, 1, std::move(pcx));
    subfile.samePalette = true;
    return subfile;
}

TEST(SubfilePictures, APictureIsReadInTwo) {
    const auto a = StripedPicture(20, 10, PaletteOf(1));
    const auto b = StripedPicture(30, 5, PaletteOf(2));
    const auto pcxB = WritePcx(b, Without(TrailingPalette::None));
    Pictures archive(WriteSff1({Shown(0, 0, WritePcx(a)), Sharing(pcxB)}));
    const std::size_t second =
        SubfileOffsets(WriteSff1({Shown(0, 0, WritePcx(a)), Sharing(pcxB)}), 2)[1];
    ASSERT_TRUE(archive.LoadNext());
    ASSERT_TRUE(archive.LoadNext());

    const auto& reads = archive.file.Reads();
    ASSERT_EQ(reads.size(), 7U);  // the archive's header, then three each
    EXPECT_EQ(reads[1].position, 512U);
    EXPECT_EQ(reads[1].wanted, 32U);
    EXPECT_EQ(reads[2].position, 512U + 32);
    EXPECT_EQ(reads[2].wanted, 128U);
    EXPECT_EQ(reads[3].position, 512U + 32 + 128);
    EXPECT_LE(reads[3].wanted, WritePcx(a).size() - 127);
    EXPECT_EQ(reads[4].position, second);
    EXPECT_EQ(reads[5].position, second + 32);
    EXPECT_EQ(reads[5].wanted, 128U);
    EXPECT_EQ(reads[6].position, second + 32 + 128);
}

TEST(SubfilePictures, ThePaletteIsTheEndOfTheData) {
    const auto picture = StripedPicture(20, 10, PaletteOf(44));
    // Bytes between pixels and palette are nothing; the mark in front of it is not looked at.
    auto pcx = WritePcx(picture, Without(TrailingPalette::None));
    pcx.insert(pcx.end(), 5000, std::byte{0x77});
    const auto whole = WritePcx(picture);
    pcx.insert(pcx.end(), whole.end() - 768, whole.end());
    Pictures archive(WriteSff1({Shown(0, 0, pcx)}));
    ASSERT_TRUE(archive.LoadNext());
    EXPECT_EQ(archive.Pixels(), KeyedByIndex(picture));
    EXPECT_TRUE(archive.Texts().empty());
}

TEST(SubfilePictures, TheFlagTakesThePaletteOfThePictureBefore) {
    const auto a = StripedPicture(8, 8, PaletteOf(1));
    const auto b = StripedPicture(9, 9, PaletteOf(2));
    const auto c = StripedPicture(7, 9, PaletteOf(3));
    Pictures archive(WriteSff1({Shown(0, 0, WritePcx(a)), Sharing(WritePcx(b)),
                                Sharing(WritePcx(c, Without(TrailingPalette::MarkerOnly))),
                                Shown(0, 3, WritePcx(b))}));
    ASSERT_TRUE(archive.LoadNext());
    EXPECT_EQ(archive.Pixels(), KeyedByIndex(a));
    ASSERT_TRUE(archive.LoadNext());
    EXPECT_EQ(archive.Pixels(), KeyedByIndex(b, a.palette));
    EXPECT_EQ(archive.picture.key.Argb(), Opaque(a.palette[0]));
    ASSERT_TRUE(archive.LoadNext());
    EXPECT_EQ(archive.Pixels(), KeyedByIndex(c, a.palette));
    ASSERT_TRUE(archive.LoadNext());
    EXPECT_EQ(archive.Pixels(), KeyedByIndex(b));
    EXPECT_TRUE(archive.Texts().empty());
}

TEST(SubfilePictures, TheFirstOneReadsItsOwnPaletteInSpiteOfTheFlag) {
    const auto a = StripedPicture(8, 8, PaletteOf(90));
    Pictures archive(WriteSff1({Sharing(WritePcx(a))}));
    ASSERT_TRUE(archive.LoadNext());
    EXPECT_EQ(archive.Pixels(), KeyedByIndex(a));
}

TEST(SubfilePictures, PicturesWithout256ColorsLeaveThePalette) {
    const auto a = StripedPicture(8, 8, PaletteOf(1));
    const auto b = StripedPicture(8, 8, PaletteOf(2), 16);
    const auto c = test::TrueColorPicture(30, 30, 1);
    Pictures archive(WriteSff1(
        {Shown(0, 0, WritePcx(a)),
         Shown(0, 1, WritePcx(b, PcxOptions{}, samplemaker::PcxDepth::Bits4)),
         Shown(0, 2, WritePcx(c)), Sharing(WritePcx(a, Without(TrailingPalette::None)))}));
    ASSERT_TRUE(archive.LoadNext());
    ASSERT_TRUE(archive.LoadNext());
    EXPECT_EQ(archive.Pixels(), KeyedByIndex(b));
    ASSERT_TRUE(archive.LoadNext());
    ASSERT_TRUE(archive.LoadNext());
    EXPECT_EQ(archive.Pixels(), KeyedByIndex(a));
    EXPECT_THAT(archive.Texts(), ElementsAre("yo..."));
}

// The palette was read before the picture failed, so the next one shares it.
TEST(SubfilePictures, APictureThatFailsLeavesItsPalette) {
    const auto b = StripedPicture(8, 8, PaletteOf(2));
    Pictures archive(WriteSff1({Shown(0, 0, WritePcx(StripedPicture(8, 8, PaletteOf(1)))),
                                Shown(0, 1, BrokenPcx(7)), Sharing(WritePcx(b))}));
    ASSERT_TRUE(archive.LoadNext());
    ASSERT_FALSE(archive.LoadNext());
    ASSERT_TRUE(archive.LoadNext());
    EXPECT_EQ(archive.Pixels(), KeyedByIndex(b, PaletteOf(7)));
}

struct LengthRow {
    const char* name;
    TrailingPalette palette;
    bool samePalette;
    std::int32_t surplus;
};

void PrintTo(const LengthRow& row, std::ostream* out) {
    *out << row.name;
}

class LengthThatLies : public testing::TestWithParam<LengthRow> {};

// The pixels are complete, so the picture is; here as the last one of the file and before another.
TEST_P(LengthThatLies, IsNoError) {
    const auto first = StripedPicture(6, 6, PaletteOf(70));
    const auto picture = StripedPicture(40, 30, PaletteOf(71));
    Sff1Subfile lying = Shown(0, 1, WritePcx(picture, Without(GetParam().palette)));
    lying.samePalette = GetParam().samePalette;
    lying.lengthSurplus = GetParam().surplus;
    const auto& palette = GetParam().samePalette ? first.palette : picture.palette;
    for (const bool last : {true, false}) {
        std::vector<Sff1Subfile> subfiles = {Shown(0, 0, WritePcx(first)), lying};
        if (!last) {
            subfiles.push_back(Shown(0, 2, WritePcx(first)));
        }
        Pictures archive(WriteSff1(subfiles));
        ASSERT_TRUE(archive.LoadNext());
        ASSERT_TRUE(archive.LoadNext());
        EXPECT_EQ(archive.Pixels(), KeyedByIndex(picture, palette));
        EXPECT_TRUE(archive.Texts().empty());
        if (!last) {
            ASSERT_TRUE(archive.LoadNext());
            EXPECT_EQ(archive.Pixels(), KeyedByIndex(first));
        }
    }
}

INSTANTIATE_TEST_SUITE_P(
    , LengthThatLies,
    testing::Values(LengthRow{"ByNothing", TrailingPalette::Whole, false, 0},
                    LengthRow{"CountsAPaletteThatIsNotThere", TrailingPalette::None, true, 768},
                    LengthRow{"CountsPaletteAndMark", TrailingPalette::None, true, 769},
                    LengthRow{"ByOneByte", TrailingPalette::None, true, 1},
                    LengthRow{"EndsWithThePixels", TrailingPalette::None, true, 0},
                    LengthRow{"IntoTheNextSubfile", TrailingPalette::None, true, 1200},
                    LengthRow{"FarPastTheEnd", TrailingPalette::None, true, 2'000'000'000},
                    LengthRow{"LeavesOutTheSharedPalette", TrailingPalette::Whole, true, -768}),
    [](const testing::TestParamInfo<LengthRow>& row) { return row.param.name; });

// No pixel lies in the padding of the last line, so a file may end in front of it.
TEST(LastLine, MayEndWithoutItsPadding) {
    const auto picture = StripedPicture(5, 4, PaletteOf(70));
    PcxOptions options = Without(TrailingPalette::None);
    options.runLengths = false;
    options.bytesPerLine = 12;
    auto bytes = WriteSff1({Shown(0, 0, WritePcx(picture)), Sharing(WritePcx(picture, options))});
    bytes.resize(bytes.size() - 7);
    Pictures archive(bytes);
    ASSERT_TRUE(archive.LoadNext());
    ASSERT_TRUE(archive.LoadNext());
    EXPECT_EQ(archive.Pixels(), KeyedByIndex(picture));
    EXPECT_TRUE(archive.Texts().empty());

    bytes.pop_back();
    Pictures shorter(bytes);
    ASSERT_TRUE(shorter.LoadNext());
    ASSERT_FALSE(shorter.LoadNext());
}

// `length` - 127 bytes behind the PCX header belong to the picture: one more than the length says.
TEST(LengthThatIsShort, GivesOneByteMoreThanItSays) {
    const auto picture = StripedPicture(6, 1, PaletteOf(70));
    PcxOptions options = Without(TrailingPalette::None);
    options.runLengths = false;
    const auto pcx = WritePcx(picture, options);
    ASSERT_EQ(pcx.size(), 128U + 6);
    for (const int shorter : {1, 2}) {
        Sff1Subfile lying = Sharing(pcx);
        lying.lengthSurplus = -shorter;
        Pictures archive(WriteSff1({Shown(0, 0, WritePcx(picture)), lying}));
        ASSERT_TRUE(archive.LoadNext());
        ASSERT_EQ(archive.LoadNext(), shorter == 1);
        if (shorter == 1) {
            EXPECT_EQ(archive.Pixels(), KeyedByIndex(picture));
        } else {
            EXPECT_THAT(archive.Texts(),
                        ElementsAre(HandleErrorText("Input past end of file: 6 x 1 pixels cannot "
                                                    "come from 5 bytes")));
        }
    }
}

TEST(LengthThatIsShort, IsAFailureWhereThePixelsEndEarly) {
    const auto picture = StripedPicture(40, 30, PaletteOf(70));
    Sff1Subfile lying = Sharing(WritePcx(picture));
    lying.lengthSurplus = -768 - 50;
    Pictures archive(WriteSff1({Shown(0, 0, WritePcx(picture)), lying}));
    ASSERT_TRUE(archive.LoadNext());
    ASSERT_FALSE(archive.LoadNext());
    EXPECT_THAT(archive.Texts(), ElementsAre(StartsWith(HandleErrorText("Input past end of file: "
                                                                        "the pixels end after "))));
}

TEST(LengthThatIsShort, OfTheHeaderAloneHoldsNoPixels) {
    for (const std::int32_t length : {1, 50, 127}) {
        auto bytes = WriteSff1({Shown(0, 0, WritePcx(StripedPicture(1, 1, PaletteOf(70)))),
                                Sharing(WritePcx(StripedPicture(1, 1, PaletteOf(70))))});
        PatchU32(bytes, SubfileOffsets(bytes, 2)[1] + 4, static_cast<std::uint32_t>(length));
        Pictures archive(bytes);
        ASSERT_TRUE(archive.LoadNext());
        ASSERT_FALSE(archive.LoadNext());
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
    for (const std::int32_t length : {-1, -256, std::numeric_limits<std::int32_t>::min()}) {
        Sff1Options options;
        options.firstGap = 480;
        options.gapValue = 0x2D;
        auto bytes = WriteSff1({Shown(12, -5, pcx)}, options);
        PatchU32(bytes, 512 + 480 + 4, static_cast<std::uint32_t>(length));
        bytes.resize(2000);
        Pictures archive(bytes);
        ASSERT_TRUE(archive.LoadNext());

        ASSERT_EQ(archive.messages.Recorded().size(), 1U);
        EXPECT_EQ(archive.messages.Recorded()[0].kind, kMessageNegativeLength);
        EXPECT_THAT(archive.Texts()[0], HasSubstr("report by e-mail"));
        EXPECT_THAT(archive.Texts()[0], HasSubstr("you have seen this message"));
        EXPECT_THAT(archive.Texts()[0], HasSubstr("Group 12 Image -5"));
        samplemaker::Palette gap;
        gap.fill({0x2D, 0x2D, 0x2D});
        EXPECT_EQ(archive.Pixels(), KeyedByIndex(picture, gap));
    }
}

TEST(NegativeLength, HoldsNoMoreThan129BytesOfPixels) {
    PcxOptions options = Without(TrailingPalette::None);
    options.runLengths = false;
    Sff1Options gap;
    gap.firstGap = 480;
    for (const int height : {43, 44}) {
        auto bytes =
            WriteSff1({Shown(0, 0,
                             [&] {
                                 options.bytesPerLine = 3;
                                 return WritePcx(StripedPicture(3, height, PaletteOf(1)), options);
                             }())},
                      gap);
        PatchU32(bytes, 512 + 480 + 4, 0xFFFFFFFF);
        Pictures archive(bytes);
        EXPECT_EQ(archive.LoadNext(), height == 43);  // 3 x 43 = 129
    }
}

constexpr const char* kRestIsBlack = "Its palette is not whole in the file, the rest is black..";

TEST(MissingPalette, OfTheFirstPictureIsBlackWithAMessage) {
    for (const bool flag : {false, true}) {
        Sff1Subfile subfile = Shown(
            0, 0, WritePcx(StripedPicture(40, 30, PaletteOf(1)), Without(TrailingPalette::None)));
        subfile.lengthSurplus = 768;
        subfile.samePalette = flag;
        Pictures archive(WriteSff1({subfile}));
        ASSERT_TRUE(archive.LoadNext());
        EXPECT_THAT(archive.Texts(), ElementsAre(HasSubstr(kRestIsBlack)));
        EXPECT_THAT(archive.Pixels(), Each(AnyOf(0U, 0xFF000000U)));
    }
}

TEST(MissingPalette, OfTheFirstPictureIsShownAsFarAsItIsThere) {
    auto bytes = WriteSff1({Shown(0, 0, WritePcx(StripedPicture(40, 30, PaletteOf(1))))});
    bytes.pop_back();  // the blue of the last colour
    Pictures archive(bytes);
    ASSERT_TRUE(archive.LoadNext());
    EXPECT_THAT(archive.Texts(), ElementsAre(HasSubstr(kRestIsBlack)));
    Pictures whole(WriteSff1({Shown(0, 0, WritePcx(StripedPicture(40, 30, PaletteOf(1))))}));
    ASSERT_TRUE(whole.LoadNext());
    // A picture of 40 stripes does not come to the last colour.
    EXPECT_EQ(archive.Pixels(), whole.Pixels());
}

TEST(MissingPalette, BeforeTheFileIsNotThereEither) {
    // The subfile lies at 28 and is so short that its end less 768 is before the file.
    auto bytes = std::vector<std::byte>(28);
    PatchU32(bytes, 20, 1);
    PatchU32(bytes, 24, 28);
    auto subfile = WriteSff1({Shown(
        0, 0, WritePcx(StripedPicture(6, 1, PaletteOf(1)), Without(TrailingPalette::None)))});
    bytes.insert(bytes.end(), subfile.begin() + 512, subfile.end());
    bytes.resize(2000);
    Pictures archive(bytes);
    ASSERT_TRUE(archive.LoadNext());
    EXPECT_THAT(archive.Texts(), ElementsAre(HasSubstr(kRestIsBlack)));
    EXPECT_THAT(archive.Pixels(),
                ElementsAre(0U, 0U, 0xFF000000U, 0xFF000000U, 0xFF000000U, 0xFF000000U));
}

TEST(MissingPalette, OfALaterPictureIsTheOneBeforeWithAMessage) {
    const auto a = StripedPicture(8, 8, PaletteOf(1));
    const auto b = StripedPicture(40, 30, PaletteOf(2));
    auto bytes = WriteSff1({Shown(3, 4, WritePcx(a)), Shown(-5, 6, WritePcx(b))});
    bytes.pop_back();
    Pictures archive(bytes);
    ASSERT_TRUE(archive.LoadNext());
    ASSERT_TRUE(archive.LoadNext());
    EXPECT_EQ(archive.Pixels(), KeyedByIndex(b, a.palette));
    ASSERT_EQ(archive.messages.Recorded().size(), 1U);
    EXPECT_EQ(archive.messages.Recorded()[0].kind, kMessageMissingPalette);
    EXPECT_THAT(archive.Texts()[0], StartsWith("PCX Error:  Group -5 Image 6\r\n"));
    EXPECT_THAT(archive.Texts()[0], HasSubstr("palette"));
}

// --- addition: palettes are looked at ---

constexpr ViewOptions kWithAdditions{true};

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

void AppendPalette(std::vector<std::byte>& pcx, std::uint8_t seed) {
    const auto whole = WritePcx(StripedPicture(4, 4, PaletteOf(seed)));
    pcx.insert(pcx.end(), whole.end() - 768, whole.end());
}

struct LookedAtRow {
    const char* name;
    std::vector<std::byte> pcx;
    bool hasPalette;
};

TEST(LookedAtPalette, IsBelievedBehindItsMarkOrBehindThePixels) {
    std::vector<LookedAtRow> rows = {
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
    for (LookedAtRow& row : rows) {
        if (row.hasPalette) {
            AppendPalette(row.pcx, 2);
        }
        const auto first = StripedPicture(6, 6, PaletteOf(1));
        const auto bytes = WriteSff1(
            {Shown(0, 0, WritePcx(first)), Shown(0, 1, row.pcx), Sharing(BarePcx(9, 9, true))});
        Pictures archive(bytes, kWithAdditions);
        ASSERT_TRUE(archive.LoadNext());
        ASSERT_TRUE(archive.LoadNext());
        const auto inForce = PaletteOf(row.hasPalette ? 2 : 1);
        EXPECT_EQ(archive.picture.key.Argb(), Opaque(inForce[0])) << row.name;
        const samplemaker::IndexedPicture shared = StripedPicture(9, 9, inForce, 200);
        ASSERT_TRUE(archive.LoadNext());
        EXPECT_EQ(archive.Pixels(), KeyedByIndex(shared)) << row.name;
        if (row.hasPalette) {
            EXPECT_TRUE(archive.Texts().empty()) << row.name;
        } else {
            EXPECT_THAT(archive.Texts(),
                        ElementsAre("PCX Error:  Group 0 Image 1\r\nIts palette is "
                                    "not in the file, the one before it is used.."))
                << row.name;
        }
        Pictures plain(bytes);
        ASSERT_TRUE(plain.LoadNext());
        ASSERT_TRUE(plain.LoadNext());
        EXPECT_EQ(plain.picture.key.Argb() == Opaque(inForce[0]), row.hasPalette) << row.name;
        EXPECT_TRUE(plain.Texts().empty()) << row.name;
    }
}

TEST(LookedAtPalette, ThatTheFirstPictureDoesNotHaveIsBlack) {
    Pictures archive(WriteSff1({Shown(0, 0, BarePcx(100, 50, false))}), kWithAdditions);
    ASSERT_TRUE(archive.LoadNext());
    EXPECT_THAT(archive.Texts(), ElementsAre(HasSubstr(kRestIsBlack)));
    EXPECT_THAT(archive.Pixels(), Each(AnyOf(0U, 0xFF000000U)));
}

TEST(LookedAtPalette, OfAPictureThatFailsIsLeftToTheNextOne) {
    const auto b = StripedPicture(8, 8, PaletteOf(2));
    Pictures archive(WriteSff1({Shown(0, 0, WritePcx(StripedPicture(8, 8, PaletteOf(1)))),
                                Shown(0, 1, BrokenPcx(7)), Sharing(WritePcx(b))}),
                     kWithAdditions);
    ASSERT_TRUE(archive.LoadNext());
    ASSERT_FALSE(archive.LoadNext());
    ASSERT_TRUE(archive.LoadNext());
    EXPECT_EQ(archive.Pixels(), KeyedByIndex(b, PaletteOf(7)));
}

// What is dropped needs no colours.
TEST(MissingPalette, OfAPictureThatIsDroppedIsNotReported) {
    const auto good = WriteSff1({Shown(0, 0, WritePcx(StripedPicture(8, 8, PaletteOf(1)))),
                                 Shown(0, 1, WritePcx(StripedPicture(40, 30, PaletteOf(2))))});
    const std::size_t pcx = SubfileOffsets(good, 2)[1] + 32;
    const auto messagesOf = [](std::vector<std::byte> bytes, std::size_t cut) {
        bytes.resize(bytes.size() - cut);
        Pictures archive(bytes);
        EXPECT_TRUE(archive.LoadNext());
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
    Pictures archive(
        WriteSff1({Shown(0, 0, WritePcx(test::TrueColorPicture(3, 3, 1))), Sharing(WritePcx(a))}));
    ASSERT_TRUE(archive.LoadNext());
    ASSERT_TRUE(archive.LoadNext());
    EXPECT_EQ(archive.Pixels(), KeyedByIndex(a));
}

TEST(SubfilePictures, AFileThatEndsInThePcxHeaderSaysSo) {
    const auto whole = WriteSff1({Shown(0, 0, WritePcx(StripedPicture(8, 8, PaletteOf(3))))});
    for (const std::size_t size : {512U + 32U, 512U + 32U + 127U}) {
        Pictures archive(std::vector<std::byte>(whole.begin(),
                                                whole.begin() + static_cast<std::ptrdiff_t>(size)));
        ASSERT_FALSE(archive.LoadNext());
        EXPECT_THAT(archive.Texts(), ElementsAre(HandleErrorText("Input past end of file: the file "
                                                                 "ends in the PCX header")));
    }
}

// Whatever sizes are claimed, no more is asked for than the picture could need.
TEST(SubfilePictures, LyingSizesReadNothingHuge) {
    const auto picture = StripedPicture(10, 10, PaletteOf(3));
    auto good = WriteSff1({Shown(0, 0, WritePcx(picture))});
    good.resize(good.size() + 5'000'000);
    const std::size_t pcx = 512 + 32;
    const auto mostAskedFor = [](const MemoryFile& file) {
        std::size_t most = 0;
        for (const MemoryFile::Read& read : file.Reads()) {
            most = std::max(most, read.wanted);
        }
        return most;
    };

    auto longer = good;
    PatchU32(longer, 512 + 4, 0x7FFFFFFF);
    Pictures first(longer);
    EXPECT_TRUE(first.LoadNext());  // its palette is far behind the file
    EXPECT_LE(mostAskedFor(first.file), 2U * 100 + 1 + 768);

    auto larger = good;
    PatchU16(larger, pcx + 8, 32766);
    PatchU16(larger, pcx + 10, 32766);
    PatchU16(larger, pcx + 66, 32767);
    Pictures second(larger);
    EXPECT_FALSE(second.LoadNext());
    EXPECT_LE(mostAskedFor(second.file), 768U);  // a gigabyte cannot come from that length
    EXPECT_TRUE(second.device.Created().empty());

    auto both = larger;
    PatchU32(both, 512 + 4, 0x7FFFFFFF);
    Pictures third(both);
    EXPECT_FALSE(third.LoadNext());
    EXPECT_LE(mostAskedFor(third.file), both.size());
    EXPECT_TRUE(third.device.Created().empty());
}

// Buffers are used again: what a long picture left in them is no part of a short one.
TEST(SubfilePictures, WhatThePictureBeforeLeftIsNotRead) {
    const auto large = StripedPicture(200, 100, PaletteOf(3));
    auto bytes = WriteSff1({Shown(0, 0, WritePcx(large)), Shown(0, 1, WritePcx(large))});
    bytes.resize(SubfileOffsets(bytes, 2)[1] + 32 + 128 + 300);
    Pictures archive(bytes);
    ASSERT_TRUE(archive.LoadNext());
    ASSERT_FALSE(archive.LoadNext());
}

}  // namespace
}  // namespace scenara
