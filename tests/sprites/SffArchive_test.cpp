// SPDX-License-Identifier: MIT
#include "sprites/SffArchive.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "ArchiveLoad.h"
#include "base/RunTimeError.h"
#include "support/MemoryFiles.h"

namespace scenara {
namespace {

using test::Linked;
using test::MemoryFile;
using test::PatchU16;
using test::PatchU32;
using test::Sff1Options;
using test::Sff1Subfile;
using test::Shown;
using test::SubfileOffsets;
using test::WriteSff1;
using testing::HasSubstr;

constexpr std::size_t kHeaderBytes = 28;

std::vector<std::byte> Zeros(std::size_t count) {
    return std::vector<std::byte>(count);
}

TEST(SffHeader, EachFieldHasItsPlace) {
    std::vector<std::byte> bytes(512, std::byte{0xEE});
    PatchU32(bytes, 12, 0x01000100);
    PatchU32(bytes, 20, 0x80402010);
    PatchU32(bytes, 24, 0xFEDCBA98);
    MemoryFile file(bytes);
    const SffHeader header = ReadSffHeader(file);
    EXPECT_THAT(header.version, testing::ElementsAre(0, 1, 0, 1));
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

TEST(SffHeader, TheLastVersionByteIsTheMainNumber) {
    const auto header = [](std::uint8_t a, std::uint8_t b, std::uint8_t c, std::uint8_t d) {
        SffHeader made;
        made.version = {a, b, c, d};
        return made;
    };
    EXPECT_EQ(header(0, 1, 0, 1).VersionText(), "1.01");
    EXPECT_EQ(header(0, 0, 0, 2).VersionText(), "2.00");
    EXPECT_EQ(header(0, 1, 0, 2).VersionText(), "2.01");
    EXPECT_FALSE(header(0, 1, 0, 1).IsVersion2());
    EXPECT_FALSE(header(2, 2, 2, 0).IsVersion2());
    EXPECT_TRUE(header(0, 0, 0, 2).IsVersion2());
    EXPECT_TRUE(header(0, 1, 0, 2).IsVersion2());
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
            EXPECT_EQ(chain.Index(), positions.size());
            positions.push_back(chain.Position());
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
    const SubfileHeader first = archive.chain.Header();
    EXPECT_EQ(archive.chain.Position(), 512U);
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
    const SubfileHeader second = archive.chain.Header();
    EXPECT_EQ(archive.chain.Position(), 512U + 32 + 5);
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

TEST(SubfileChain, EndsWhenTheNumberOfImagesIsSeen) {
    Sff1Options options;
    options.images = 2;
    const auto bytes = WriteSff1({Linked(0, 0, 0), Linked(0, 1, 0), Linked(0, 2, 0)}, options);
    ChainOf archive(bytes);
    EXPECT_EQ(archive.Walk().size(), 2U);
    EXPECT_FALSE(archive.chain.Broken());
}

TEST(SubfileChain, OfNoImagesIsEmptyWhereverItPoints) {
    auto bytes = WriteSff1({});
    PatchU32(bytes, 24, 0xFFFFFFFF);
    ChainOf archive(bytes);
    EXPECT_TRUE(archive.Walk().empty());
    EXPECT_FALSE(archive.chain.Broken());
}

TEST(SubfileChain, BreaksWhereTheFileEnds) {
    auto bytes = WriteSff1({Linked(0, 0, 0), Linked(0, 1, 0)});
    bytes.pop_back();
    ChainOf archive(bytes);
    EXPECT_EQ(archive.Walk().size(), 1U);
    EXPECT_EQ(archive.chain.Broken(), "Subfile 2 of 2 at 544: the file ends there.");
}

TEST(SubfileChain, BreaksBehindTheFile) {
    auto bytes = WriteSff1({Linked(0, 0, 0), Linked(0, 1, 0)});
    PatchU32(bytes, 512, 0xFFFFFFFF);
    ChainOf archive(bytes);
    EXPECT_EQ(archive.Walk().size(), 1U);
    EXPECT_EQ(archive.chain.Broken(), "Subfile 2 of 2 at 4294967295: the file ends there.");
}

// 0 is what the last subfile of most archives says; no subfile lies in the file's header.
TEST(SubfileChain, EndsInTheFileHeader) {
    for (const std::uint32_t next : {0U, 1U, 27U}) {
        auto bytes = WriteSff1({Linked(0, 0, 0), Linked(0, 1, 0)});
        PatchU32(bytes, 512, next);
        ChainOf archive(bytes);
        EXPECT_EQ(archive.Walk().size(), 1U);
        EXPECT_EQ(archive.chain.Broken(),
                  "Subfile 2 of 2 at " + std::to_string(next) + ": the chain ends there.");
    }
}

TEST(SubfileChain, BreaksWhereItGoesRound) {
    const std::vector<Sff1Subfile> three = {Linked(0, 0, 0), Linked(0, 1, 0), Linked(0, 2, 0)};
    Sff1Options options;
    options.images = 0xFFFFFFFF;
    for (const std::uint32_t back : {512U, 544U, 576U}) {
        auto bytes = WriteSff1(three, options);
        PatchU32(bytes, 576, back);
        ChainOf archive(bytes);
        EXPECT_EQ(archive.Walk().size(), 3U);
        EXPECT_EQ(archive.chain.Broken(), "Subfile 4 of 4294967295 at " + std::to_string(back) +
                                              ": it was read before, the chain goes round.");
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

TEST(SubfileChain, BreaksWhenItsPicturesUseTheFileManyTimes) {
    const std::vector<Sff1Subfile> subfiles(100, Linked(0, 0, 0));
    const auto bytes = WriteSff1(subfiles);
    {
        ChainOf shown(bytes);
        std::size_t seen = 0;
        while (shown.chain.Next()) {
            shown.chain.CountShownBytes(bytes.size());
            ++seen;
        }
        EXPECT_LE(seen, 3U);
        ASSERT_TRUE(shown.chain.Broken());
        EXPECT_THAT(*shown.chain.Broken(), HasSubstr("the subfiles lie over each other."));
    }
    {
        ChainOf lost(bytes);
        std::size_t seen = 0;
        while (lost.chain.Next()) {
            lost.chain.CountLostBytes(bytes.size());
            ++seen;
        }
        EXPECT_GT(seen, 3U);
        EXPECT_LE(seen, 10U);
        ASSERT_TRUE(lost.chain.Broken());
        EXPECT_THAT(*lost.chain.Broken(), HasSubstr("the subfiles lie over each other."));
    }
}

TEST(SubfileChain, PicturesThatUseEachByteOnceNeverBreakIt) {
    const std::vector<Sff1Subfile> subfiles(200, Shown(0, 0, Zeros(300)));
    const auto bytes = WriteSff1(subfiles);
    ChainOf archive(bytes);
    std::size_t seen = 0;
    while (archive.chain.Next()) {
        archive.chain.CountShownBytes(300);
        ++seen;
    }
    EXPECT_EQ(seen, 200U);
    EXPECT_FALSE(archive.chain.Broken());
}

}  // namespace
}  // namespace scenara
