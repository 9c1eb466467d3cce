// SPDX-License-Identifier: MIT
#include "sprites/version1/SffArchive.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "ArchiveLoad.h"
#include "base/RunTimeError.h"
#include "sprites/SpriteArchive.h"
#include "support/MemoryFiles.h"
#include "support/Raises.h"

namespace scenara::test {
namespace {

using testing::HasSubstr;

constexpr std::size_t kHeaderBytes = 28;

std::vector<std::byte> Zeros(std::size_t count) {
    return std::vector<std::byte>(count);
}

TEST(SffHeader, EachFieldHasItsPlace) {
    std::vector<std::byte> bytes(512, std::byte{0xEE});
    PatchU32(bytes, 20, 0x80402010);
    PatchU32(bytes, 24, 0xFEDCBA98);
    MemoryFile file(bytes);
    const SffHeader header = ReadSffHeader(file);
    EXPECT_EQ(header.imageCount, 0x80402010U);
    EXPECT_EQ(header.firstSubfile, 0xFEDCBA98U);
}

TEST(SffHeader, OnlyThePartThatMattersMustBeThere) {
    for (std::size_t size = 0; size <= kHeaderBytes + 1; ++size) {
        MemoryFile file(Zeros(size));
        if (size >= kHeaderBytes) {
            EXPECT_EQ(ReadSffHeader(file).imageCount, 0U);
            continue;
        }
        try {
            (void)ReadSffHeader(file);
            ADD_FAILURE() << size;
        } catch (const RunTimeError& error) {
            EXPECT_EQ(error.Kind(), RunTimeErrorKind::InputPastEnd);
            EXPECT_THAT(error.what(), HasSubstr("archive header"));
        }
    }
}

TEST(ArchiveVersion, TheLastByteIsTheMainNumber) {
    struct Row {
        std::array<std::uint8_t, 4> parts;
        const char* text;
        bool is2;
    };
    const Row rows[] = {{{0, 1, 0, 1}, "1.01", false},
                        {{2, 2, 2, 0}, "0.22", false},
                        {{0, 0, 0, 2}, "2.00", true},
                        {{0, 1, 0, 2}, "2.01", true}};
    for (const Row& row : rows) {
        std::vector<std::byte> bytes(28, std::byte{0xEE});
        for (std::size_t i = 0; i < row.parts.size(); ++i) {
            bytes[12 + i] = static_cast<std::byte>(row.parts[i]);
        }
        MemoryFile file(bytes);
        const ArchiveVersion version = ReadArchiveVersion(file);
        EXPECT_EQ(version.parts, row.parts);
        EXPECT_EQ(version.Text(), row.text);
        EXPECT_EQ(version.Is2(), row.is2);
        EXPECT_EQ(MayRead(version, kPlainView), !row.is2);
    }
}

TEST(ArchiveVersion, AFileThatEndsInAnyHeaderHasNone) {
    for (std::size_t size = 0; size < 28; ++size) {
        MemoryFile file(Zeros(size));
        EXPECT_THAT([&] { return ReadArchiveVersion(file); },
                    Raises(RunTimeErrorKind::InputPastEnd))
            << size;
    }
}

// The chain of an archive in memory.
class ChainOf {
public:
    explicit ChainOf(const std::vector<std::byte>& bytes)
        : file(bytes), chain(file, ReadSffHeader(file)) {}

    // Goes through it; the positions that it came to.
    std::vector<std::size_t> Walk() {
        std::vector<std::size_t> positions;
        while (chain.Next()) {
            positions.push_back(chain.Current().position);
        }
        EXPECT_FALSE(chain.Next());  // the end is the end
        return positions;
    }

    MemoryFile file;
    SubfileChain chain;
};

TEST(SubfileChain, EachFieldHasItsPlaceAndSign) {
    Sff1Subfile subfile = Shown(-2, -3, Zeros(5));
    subfile.axisX = -400;
    subfile.axisY = 300;
    subfile.linkIndex = -7;
    subfile.comment = "thirteen byte";
    subfile.lengthSurplus = -15;
    auto bytes = WriteSff1({subfile, Linked(32767, -32768, 12)});
    bytes[512 + 18] = std::byte{0x80};  // any number but 0 is the flag

    ChainOf archive(bytes);
    ASSERT_TRUE(archive.chain.Next());
    const Subfile first = archive.chain.Current();
    EXPECT_EQ(archive.chain.Current().position, 512U);
    EXPECT_EQ(first.next, 512U + 32 + 5);
    EXPECT_EQ(first.length, -10);
    EXPECT_EQ(first.axisX, -400);
    EXPECT_EQ(first.axisY, 300);
    EXPECT_EQ(first.group, -2);
    EXPECT_EQ(first.image, -3);
    EXPECT_EQ(first.link, -7);
    EXPECT_TRUE(first.samePalette);
    EXPECT_FALSE(first.IsLinked());

    ASSERT_TRUE(archive.chain.Next());
    const Subfile second = archive.chain.Current();
    EXPECT_EQ(archive.chain.Current().position, 512U + 32 + 5);
    EXPECT_EQ(second.length, 0);
    EXPECT_EQ(second.group, 32767);
    EXPECT_EQ(second.image, -32768);
    EXPECT_EQ(second.link, 12);
    EXPECT_FALSE(second.samePalette);
    EXPECT_TRUE(second.IsLinked());
    EXPECT_FALSE(archive.chain.Next());
    EXPECT_FALSE(archive.chain.Broken());
}

TEST(SubfileChain, RunsThroughTheFileInAnyOrder) {
    Sff1Options options;
    options.fileOrder = {2, 0, 3, 1};
    options.firstGap = 9;
    const std::vector<Sff1Subfile> subfiles = {Shown(0, 0, Zeros(3)), Shown(0, 1, Zeros(40)),
                                               Shown(0, 2, Zeros(7)), Shown(0, 3, Zeros(1))};
    const auto bytes = WriteSff1(subfiles, options);
    ChainOf archive(bytes);
    EXPECT_EQ(archive.Walk(), (std::vector<std::size_t>{521 + 39, 521 + 107, 521, 521 + 74}));
    EXPECT_FALSE(archive.chain.Broken());
}

// Three subfiles at 512, 544 and 576; what one row changes, and how the chain ends then.
struct EndRow {
    const char* name;
    std::uint32_t images;
    std::size_t at;  // of a number of the file
    std::uint32_t number;
    std::size_t size;
    std::size_t seen;
    std::optional<std::string> broken;
};

TEST(SubfileChain, EndsWhereItEndsOrBreaks) {
    constexpr std::uint32_t kAll = 0xFFFFFFFF;
    constexpr std::size_t kFirst = 24;  // where the file says where its first subfile is
    constexpr std::size_t kWhole = 608;
    const auto round = [](std::uint32_t back) {
        return "Subfile 4 of 4294967295 at " + std::to_string(back) +
               ": it was read before, the chain goes round.";
    };
    const EndRow rows[] = {
        {"all are seen", 3, kFirst, 512, kWhole, 3, std::nullopt},
        {"two were asked for", 2, kFirst, 512, kWhole, 2, std::nullopt},
        {"no images, wherever it points", 0, kFirst, kAll, kWhole, 0, std::nullopt},
        {"the file ends", 3, kFirst, 512, kWhole - 1, 2,
         "Subfile 3 of 3 at 576: the file ends there."},
        {"it leaves the file", 3, 544, kAll, kWhole, 2,
         "Subfile 3 of 3 at 4294967295: the file ends there."},
        // 0 is what the last subfile of most archives says; none lies in the file's header.
        {"0", 3, 544, 0, kWhole, 2, "Subfile 3 of 3 at 0: the chain ends there."},
        {"1", 3, 544, 1, kWhole, 2, "Subfile 3 of 3 at 1: the chain ends there."},
        {"the header's last byte", 3, 544, 27, kWhole, 2,
         "Subfile 3 of 3 at 27: the chain ends there."},
        {"back to the first", kAll, 576, 512, kWhole, 3, round(512)},
        {"back to the second", kAll, 576, 544, kWhole, 3, round(544)},
        {"back to itself", kAll, 576, 576, kWhole, 3, round(576)},
    };
    for (const EndRow& row : rows) {
        Sff1Options options;
        options.images = row.images;
        auto bytes = WriteSff1({Linked(0, 0, 0), Linked(0, 1, 0), Linked(0, 2, 0)}, options);
        PatchU32(bytes, row.at, row.number);
        bytes.resize(row.size);
        ChainOf archive(bytes);
        EXPECT_EQ(archive.Walk().size(), row.seen) << row.name;
        EXPECT_EQ(archive.chain.Broken(), row.broken) << row.name;
    }
}

// Every header is a new one, but they lie five bytes apart: each holds its own next offset and one
// byte of its length, and the rest of it are its followers'.
TEST(SubfileChain, BreaksWhereSubfilesLieOverEachOther) {
    auto bytes = WriteSff1({});
    PatchU32(bytes, 20, 0xFFFFFFFF);
    PatchU32(bytes, 24, 512);
    bytes.resize(512 + 60000);
    for (std::size_t at = 512; at + 37 < bytes.size(); at += 5) {
        PatchU32(bytes, at, static_cast<std::uint32_t>(at + 5));
    }
    ChainOf archive(bytes);
    const std::size_t seen = archive.Walk().size();
    // Each uses 32 bytes of the file; twice its bytes may be used.
    EXPECT_LE(seen, 2 * bytes.size() / 32 + 1);
    EXPECT_GE(seen, bytes.size() / 32);
    ASSERT_TRUE(archive.chain.Broken());
    EXPECT_THAT(*archive.chain.Broken(), HasSubstr("the subfiles lie over each other."));
}

struct UseRow {
    const char* name;
    std::uint64_t shown;  // bytes after each subfile, in hundredths of the file
    std::uint64_t lost;
    std::size_t least;
    std::size_t most;
};

TEST(ArchiveUse, IsTooMuchWhereAFileIsUsedManyTimes) {
    constexpr std::uint64_t kSize = 10000;
    const UseRow rows[] = {{"each byte once", 1, 0, 100, 100},
                           {"all of it shown each time", 100, 0, 2, 3},
                           {"all of it lost each time", 0, 100, 4, 10}};
    for (const UseRow& row : rows) {
        ArchiveUse use(kSize);
        std::size_t seen = 0;
        while (seen < 100 && !use.IsTooMuch()) {
            use.CountShown(kSize * row.shown / 100);
            use.CountLost(kSize * row.lost / 100);
            ++seen;
        }
        EXPECT_GE(seen, row.least) << row.name;
        EXPECT_LE(seen, row.most) << row.name;
    }
}

}  // namespace
}  // namespace scenara::test
