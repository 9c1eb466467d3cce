// SPDX-License-Identifier: MIT
//
// Archives that lie about themselves: what is good in them is shown, what is not is said, and what
// is read stays in proportion to the file.
#include <cstddef>
#include <cstdint>
#include <functional>
#include <new>
#include <span>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "ArchiveLoad.h"
#include "base/RunTimeError.h"
#include "sprites/sff2.h"
#include "sprites/version1/SffArchive.h"

namespace scenara::test {
namespace {

using samplemaker::PcxOptions;
using samplemaker::TrailingPalette;
using testing::AllOf;
using testing::Each;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

Sff1Subfile Small(std::int16_t group, std::int16_t image) {
    return Shown(group, image, WritePcx(StripedPicture(4, 3, PaletteOf(1))));
}

std::vector<std::byte> ThreeOf(std::uint32_t images) {
    Sff1Options options;
    options.images = images;
    options.lastNext = samplemaker::LastNext::EndOfFile;
    return WriteSff1({Small(0, 0), Small(0, 1), Small(0, 2)}, options);
}

TEST(DamagedArchive, OfVersion2IsNamedWithItsVersion) {
    for (const auto& [minor, version] : {std::pair{std::uint8_t{0}, "2.00"}, {1, "2.01"}}) {
        Sff1Options options;
        options.version = {0, minor, 0, 2};
        ArchiveLoad load;
        load.Run(WriteSff1({Small(0, 0)}, options));
        EXPECT_THAT(load.Kinds(), ElementsAre(kMessageSffVersion));
        EXPECT_THAT(load.Texts(), ElementsAre(AllOf(StartsWith("SFF Error:"),
                                                    HasSubstr(kArchiveName), HasSubstr(version))));
        EXPECT_EQ(load.model.SpriteCount, 0);
        EXPECT_EQ(load.file->Reads().size(), 1U);
    }
}

TEST(DamagedArchive, SignatureAndOtherVersionBytesAreNotChecked) {
    auto bytes = WriteSff1({Small(0, 0)});
    for (std::size_t at = 0; at < 20; ++at) {
        bytes[at] = std::byte{0x99};
    }
    ArchiveLoad load;
    load.Run(bytes);
    EXPECT_EQ(load.model.SpriteCount, 1);
    EXPECT_THAT(load.Texts(), IsEmpty());
}

TEST(DamagedArchive, ThatEndsInItsHeaderSaysSo) {
    for (const std::size_t size : {0U, 1U, 27U}) {
        ArchiveLoad load;
        load.Run(std::vector<std::byte>(size));
        EXPECT_THAT(load.Kinds(), ElementsAre(kMessageSffError));
        EXPECT_THAT(load.Texts(), ElementsAre(AllOf(StartsWith("SFF Error:  stages/test.sff\r\n"),
                                                    HasSubstr("Input past end of file"))));
    }
}

TEST(DamagedArchive, KeepsWhatIsBeforeTheBreakAndSaysWhereItIs) {
    constexpr std::uint32_t kAll = 0xFFFFFFFF;
    const auto good = ThreeOf(3);
    const auto offsets = SubfileOffsets(good, 3);
    struct Row {
        std::uint32_t images;
        std::size_t at;  // of a number of the file
        std::size_t number;
        Integer kept;
        const char* reason;
    };
    const char* const kEnds = "the file ends there.";
    const char* const kRound = "it was read before, the chain goes round.";
    std::vector<Row> rows;
    for (const std::uint32_t images : {4U, 32768U, 0x7FFFFFFFU, 0x80000000U, kAll}) {
        rows.push_back({images, 24, offsets[0], 3, kEnds});
    }
    for (const std::size_t away : {0x7FFFFFFFU, 0x80000000U, kAll}) {
        rows.push_back({3, offsets[1], away, 2, kEnds});
        rows.push_back({3, 24, away, 0, kEnds});
    }
    for (const std::size_t back : offsets) {
        rows.push_back({1000, offsets[2], back, 3, kRound});
    }
    // The header wants more, but the file's header is no picture.
    rows.push_back({kAll, offsets[2], 0, 3, "the chain ends there."});
    for (const Row& row : rows) {
        auto bytes = ThreeOf(row.images);
        PatchU32(bytes, row.at, static_cast<std::uint32_t>(row.number));
        ArchiveLoad load;
        load.Run(bytes);
        EXPECT_EQ(load.model.SpriteCount, row.kept);
        EXPECT_THAT(load.Kinds(), ElementsAre(kMessageSffError));
        const std::size_t where = row.at == 24 && row.kept == 3 ? bytes.size() : row.number;
        EXPECT_THAT(
            load.Texts(),
            ElementsAre("SFF Error:  stages/test.sff\r\nSubfile " + std::to_string(row.kept + 1) +
                        " of " + std::to_string(row.images) + " at " + std::to_string(where) +
                        ": " + row.reason + "  The rest is skipped.."));
        EXPECT_LE(load.BytesAskedFor(), 4 * bytes.size());
    }
}

// From the middle of a picture everything is nonsense; the load ends all the same.
TEST(DamagedArchive, WhoseChainGoesIntoAPictureEnds) {
    const auto good = ThreeOf(0xFFFFFFFF);
    const auto offsets = SubfileOffsets(good, 3);
    for (std::size_t into = offsets[0] + 1; into < offsets[1]; into += 3) {
        auto bytes = good;
        PatchU32(bytes, offsets[1], static_cast<std::uint32_t>(into));
        ArchiveLoad load;
        load.Run(bytes);
        ASSERT_GE(load.model.SpriteCount, 2);
        ASSERT_FALSE(load.messages.Recorded().empty());
        ASSERT_EQ(load.messages.Recorded().back().kind, kMessageSffError);
        ASSERT_LE(load.BytesAskedFor(), 20 * bytes.size());
    }
}

TEST(DamagedArchive, OfTooManySubfilesKeepsWhatTheTableHolds) {
    for (const std::size_t count : {32767U, 32768U, 32800U}) {
        std::vector<Sff1Subfile> subfiles(count, Linked(0, 0, 0));
        subfiles[0] = Small(0, 0);
        ArchiveLoad load;
        load.Run(WriteSff1(subfiles));
        EXPECT_EQ(load.model.SpriteCount, 32767);
        EXPECT_EQ(load.model.Sprites.size(), 32767U);
        EXPECT_EQ(load.Sprite(32766).selfIndex, 32766);
        EXPECT_EQ(load.Texts().size(), count > 32767 ? 1U : 0U);
        EXPECT_THAT(load.Kinds(), Each(kMessageSffError));
        EXPECT_THAT(load.Texts(), Each(StartsWith("SFF Error:  stages/test.sff\r\nOverflow")));
    }
}

TEST(DamagedArchive, OfPicturesAsLargeAsTheirHeadersCanSay) {
    // Four corners of what a PCX header can hold, with a length to match or not.
    struct Row {
        unsigned xMin, yMin, xMax, yMax, bytesPerLine, planes;
    };
    const Row rows[] = {{0, 0, 65534, 65534, 65535, 1},
                        {0, 0, 65535, 65535, 65535, 3},
                        {1, 1, 32767, 32767, 32767, 1},
                        {1, 1, 32767, 32767, 65535, 4},
                        {9, 9, 8, 8, 1, 1},
                        {65535, 65535, 0, 0, 65535, 1}};
    for (const Row& row : rows) {
        for (const std::uint32_t length : {0x7FFFFFFFU, 900U, 0x80000000U}) {
            auto bytes = WriteSff1({Small(0, 0), Small(0, 1), Small(0, 2)});
            const std::size_t subfile = SubfileOffsets(bytes, 2)[1];
            const std::size_t pcx = subfile + 32;
            PatchU32(bytes, subfile + 4, length);
            PatchU16(bytes, pcx + 4, row.xMin);
            PatchU16(bytes, pcx + 6, row.yMin);
            PatchU16(bytes, pcx + 8, row.xMax);
            PatchU16(bytes, pcx + 10, row.yMax);
            PatchU16(bytes, pcx + 66, row.bytesPerLine);
            bytes[pcx + 65] = static_cast<std::byte>(row.planes);
            ArchiveLoad load;
            load.Run(bytes);
            ASSERT_EQ(load.model.SpriteCount, 2);
            EXPECT_EQ(load.Sprite(1).image, 2);
            EXPECT_THAT(load.Kinds(), testing::Contains(kMessagePcxError));
            EXPECT_EQ(load.device.Created().size(), 2U);  // none for what cannot be
            EXPECT_LE(load.BytesAskedFor(), 4 * bytes.size());
        }
    }
}

// Every picture says that its data go to the end of the file; each still gets no more than it can
// need, which is twice its pixels, a palette and its mark.
TEST(DamagedArchive, WhoseLengthsAllReachTheEndIsReadInProportion) {
    PcxOptions options;
    options.trailingPalette = TrailingPalette::None;
    std::vector<Sff1Subfile> subfiles = {Small(0, 0)};
    const auto picture = StripedPicture(50, 40, PaletteOf(9));
    for (std::int16_t image = 1; image < 200; ++image) {
        Sff1Subfile lying = Shown(0, image, WritePcx(picture, options));
        lying.samePalette = true;
        lying.lengthSurplus = 0x70000000;
        subfiles.push_back(lying);
    }
    const auto bytes = WriteSff1(subfiles);
    ArchiveLoad load;
    load.Run(bytes);
    EXPECT_EQ(load.model.SpriteCount, 200);
    EXPECT_THAT(load.Texts(), IsEmpty());
    EXPECT_LE(load.BytesAskedFor(), 200U * (32 + 128 + 2 * 2000 + 769) + 28);
}

// Subfiles 160 bytes apart, each with a picture of all that follows. The first few bytes are told
// by `encoding`: raw pictures come out, packed ones end early.
std::vector<std::byte> OverEachOther(std::size_t count, bool runLength) {
    std::vector<std::byte> bytes = WriteSff1({});
    PatchU32(bytes, 20, static_cast<std::uint32_t>(count));
    const std::size_t size = 512 + count * 160 + 4000;
    bytes.resize(size, std::byte{0x11});
    for (std::size_t i = 0; i < count; ++i) {
        const std::size_t at = 512 + i * 160;
        const std::size_t pcx = at + 32;
        const std::size_t behind = size - (pcx + 128);
        PatchU32(bytes, at, static_cast<std::uint32_t>(at + 160));
        PatchU32(bytes, at + 4, static_cast<std::uint32_t>(128 + behind));
        PatchU16(bytes, at + 14, static_cast<unsigned>(i));
        std::fill_n(bytes.begin() + static_cast<std::ptrdiff_t>(at + 16), 16 + 128, std::byte{0});
        bytes[pcx] = std::byte{10};
        bytes[pcx + 2] = static_cast<std::byte>(runLength ? 1 : 0);
        bytes[pcx + 3] = std::byte{8};
        PatchU16(bytes, pcx + 8, 99);
        const std::size_t height = runLength ? behind / 100 * 2 : behind / 100;
        PatchU16(bytes, pcx + 10, static_cast<unsigned>(height - 1));
        bytes[pcx + 65] = std::byte{1};
        PatchU16(bytes, pcx + 66, 100);
    }
    return bytes;
}

TEST(DamagedArchive, WhosePicturesLieOverEachOtherEndsWithAMessage) {
    const auto bytes = OverEachOther(2000, false);
    for (const unsigned helpers : {0U, 1U, 2U}) {
        ArchiveLoad load;
        load.helpers = helpers;
        load.Run(bytes);
        EXPECT_THAT(load.Texts(), ElementsAre(HasSubstr("the subfiles lie over each other.")));
        EXPECT_GE(load.model.SpriteCount, 1);
        // With those that were under way when it came out.
        const std::size_t ahead = 4U * helpers;
        EXPECT_LE(load.BytesAskedFor(), (10 + ahead) * bytes.size());
        std::size_t pixels = 0;
        for (const TextureParameters& made : load.device.Created()) {
            pixels += static_cast<std::size_t>(made.width) * static_cast<std::size_t>(made.height);
        }
        EXPECT_LE(pixels, (4 + ahead) * bytes.size());
    }
}

TEST(DamagedArchive, WhoseBrokenPicturesLieOverEachOtherEndsWithAMessage) {
    const auto bytes = OverEachOther(2000, true);
    ArchiveLoad load;
    load.Run(bytes);
    EXPECT_EQ(load.model.SpriteCount, 0);
    EXPECT_THAT(load.Texts().back(), HasSubstr("the subfiles lie over each other."));
    EXPECT_LE(load.BytesAskedFor(), 20 * bytes.size());
    EXPECT_LE(load.messages.Recorded().size(), 100U);
}

// A file that fails from one position on.
class BadDisk : public InputFile {
public:
    BadDisk(const std::vector<std::byte>& bytes, std::uint64_t badFrom,
            std::function<void()> failure)
        : file_(bytes), badFrom_(badFrom), failure_(std::move(failure)) {}

    [[nodiscard]] std::uint64_t Size() const override { return file_.Size(); }
    std::size_t ReadAt(std::uint64_t position, std::span<std::byte> into) override {
        if (position >= badFrom_) {
            failure_();
        }
        return file_.ReadAt(position, into);
    }

private:
    MemoryFile file_;
    std::uint64_t badFrom_;
    std::function<void()> failure_;
};

TEST(DamagedArchive, ReadsThatFailEndItWithAMessage) {
    const auto deviceError = [] { throw RunTimeError(RunTimeErrorKind::DeviceIo); };
    const auto heapIsFull = [] { throw std::bad_alloc(); };
    struct Row {
        std::function<void()> failure;
        const char* said;
    };
    const auto bytes = ThreeOf(3);
    for (const Row& row : {Row{deviceError, "Device I/O error"}, {heapIsFull, "Out of memory"}}) {
        for (const std::size_t badFrom :
             {std::size_t{0}, std::size_t{512}, SubfileOffsets(bytes, 2)[1] + 32}) {
            BadDisk disk(bytes, badFrom, row.failure);
            ArchiveLoad load;
            const ViewOptions options;
            LoadSprites(load.model, {disk, load.name, load.device, load.messages, options},
                        load.window);
            EXPECT_EQ(load.model.SpriteCount, badFrom > 512 ? 1 : 0);
            ASSERT_FALSE(load.messages.Recorded().empty());
            EXPECT_EQ(load.Texts().back(),
                      std::string("SFF Error:  stages/test.sff\r\n") + row.said);
        }
    }
}

}  // namespace
}  // namespace scenara::test
