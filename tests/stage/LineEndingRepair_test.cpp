// SPDX-License-Identifier: MIT
#include "stage/LineEndingRepair.h"

#include <memory>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "StubbornFiles.h"
#include "base/RunTimeError.h"
#include "support/MemoryFiles.h"

namespace scenara::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kStage = "/mugen/stages/a.def";
constexpr const char* kCopy = "/program/fix.def";

bool Needs(const std::string& bytes) {
    MemoryFile file(bytes);
    return NeedsLineEndingRepair(file);
}

// A first line that is too long, and what follows it.
std::string LongLine(const std::string& rest) {
    return std::string(501, 'x') + rest;
}

TEST(LineEndingRepair, FirstLineOf500CharactersIsWell) {
    EXPECT_FALSE(Needs(std::string(500, 'x') + "\r\nmore"));
    EXPECT_FALSE(Needs(std::string(500, 'x')));
    EXPECT_FALSE(Needs(""));
}

TEST(LineEndingRepair, FirstLineOf501CharactersIsToBeRepaired) {
    EXPECT_TRUE(Needs(std::string(501, 'x') + "\r\nmore"));
    EXPECT_TRUE(Needs(std::string(501, 'x')));
}

TEST(LineEndingRepair, LineFeedsDoNotEndTheFirstLine) {
    EXPECT_TRUE(Needs(std::string(501, '\n')));
    EXPECT_TRUE(Needs("[Info]\n" + std::string(494, 'x')));
    EXPECT_FALSE(Needs("[Info]\n" + std::string(493, 'x')));
}

TEST(LineEndingRepair, OnlyTheStartOfTheFileIsLookedAt) {
    MemoryFile file(std::string(1'000'000, 'x'));
    EXPECT_TRUE(NeedsLineEndingRepair(file));
    for (const MemoryFile::Read& read : file.Reads()) {
        EXPECT_LE(read.position + read.wanted, 1000U);
    }
}

TEST(LineEndingRepair, WellFileIsReadAsItIs) {
    MemoryFiles files;
    files.Put(kStage, std::string("[Info]\r\n"));
    std::string path = kStage;
    const LineEndingRepair repair(files, path);
    EXPECT_EQ(path, kStage);
    EXPECT_THAT(files.Written(), IsEmpty());
}

TEST(LineEndingRepair, PathNamesTheCopyWhileTheRepairLives) {
    MemoryFiles files;
    files.Put(kStage, LongLine("\n[BG]\n"));
    std::string path = kStage;
    {
        const LineEndingRepair repair(files, path);
        EXPECT_EQ(path, kCopy);
        EXPECT_THAT(files.Written(), ElementsAre(kCopy));
        EXPECT_EQ(files.Get(kCopy), LongLine("\r\n[BG]\r\n"));
    }
    EXPECT_EQ(path, kStage);
    EXPECT_FALSE(files.Has(kCopy));
    EXPECT_EQ(files.Get(kStage), LongLine("\n[BG]\n"));
}

TEST(LineEndingRepair, UndoDeletesTheCopyAndRestoresThePath) {
    MemoryFiles files;
    files.Put(kStage, LongLine("\n"));
    std::string path = kStage;
    LineEndingRepair repair(files, path);
    repair.Undo();
    EXPECT_EQ(path, kStage);
    EXPECT_FALSE(files.Has(kCopy));
    repair.Undo();
    EXPECT_EQ(path, kStage);
}

std::string CopyOf(const std::string& bytes) {
    MemoryFiles files;
    files.Put(kStage, bytes);
    std::string path = kStage;
    const LineEndingRepair repair(files, path);
    return path == kCopy ? files.Get(kCopy) : "(no copy)";
}

TEST(LineEndingRepair, OnlyBareLineFeedsAreChanged) {
    EXPECT_EQ(CopyOf(LongLine("\na\r\nb\rc\n\nd\n\re")), LongLine("\r\na\r\nb\rc\r\n\r\nd\r\n\re"));
    EXPECT_EQ(CopyOf("\n" + LongLine("")), "\r\n" + LongLine(""));
}

TEST(LineEndingRepair, CopyIsWholeWhateverItsSize) {
    for (const std::size_t size : {65'534U, 65'535U, 65'536U, 65'537U, 131'072U, 1'000'000U}) {
        const std::string before(size, 'x');
        EXPECT_EQ(CopyOf(before + "\nb"), before + "\r\nb") << size;
        EXPECT_EQ(CopyOf(before + "\r\nb"), before + "\r\nb") << size;
        EXPECT_EQ(CopyOf(before + "\r"), before + "\r") << size;
    }
}

TEST(LineEndingRepair, EveryByteGoesIntoTheCopy) {
    std::string bytes = LongLine("");
    for (int byte = 0; byte < 256; ++byte) {
        if (byte != '\n') {
            bytes.push_back(static_cast<char>(byte));
        }
    }
    EXPECT_EQ(CopyOf(bytes), bytes);
}

TEST(LineEndingRepair, MissingFileRaisesAndKeepsThePath) {
    MemoryFiles files;
    std::string path = kStage;
    EXPECT_THROW(LineEndingRepair(files, path), RunTimeError);
    EXPECT_EQ(path, kStage);
    EXPECT_THAT(files.Written(), IsEmpty());
}

TEST(LineEndingRepair, FullDiskLeavesTheOriginal) {
    MemoryFiles files;
    files.Put(kStage, LongLine("\n"));
    files.FillDisk();
    std::string path = kStage;
    const LineEndingRepair repair(files, path);
    EXPECT_EQ(path, kStage);
    EXPECT_THAT(files.Written(), ElementsAre(kCopy));
    EXPECT_FALSE(files.Has(kCopy));
}

TEST(LineEndingRepair, FolderThatCannotBeWrittenToLeavesTheOriginal) {
    StubbornFiles files;
    files.Put(kStage, LongLine("\n"));
    files.refuseWriting = true;
    std::string path = kStage;
    const LineEndingRepair repair(files, path);
    EXPECT_EQ(path, kStage);
}

TEST(LineEndingRepair, OriginalThatFailsHalfWayLeavesNoCopy) {
    StubbornFiles files;
    files.Put(kStage, LongLine(std::string(200'000, '\n')));
    files.failFrom = 70'000;
    std::string path = kStage;
    const LineEndingRepair repair(files, path);
    EXPECT_EQ(path, kStage);
    EXPECT_THAT(files.Written(), ElementsAre(kCopy));
    EXPECT_FALSE(files.Has(kCopy));
}

TEST(LineEndingRepair, CopyThatIsGoneAlreadyIsNoError) {
    MemoryFiles files;
    files.Put(kStage, LongLine("\n"));
    std::string path = kStage;
    {
        const LineEndingRepair repair(files, path);
        files.Delete(kCopy);
    }
    EXPECT_EQ(path, kStage);
}

TEST(LineEndingRepair, FileThatIsThereAlreadyIsNotWrittenOver) {
    MemoryFiles files;
    files.Put(kStage, LongLine("\n"));
    files.Put(kCopy, std::string("somebody's"));
    std::string path = kStage;
    {
        const LineEndingRepair repair(files, path);
        EXPECT_EQ(path, kStage);
    }
    EXPECT_EQ(files.Get(kCopy), "somebody's");
    EXPECT_THAT(files.Written(), IsEmpty());
}

TEST(LineEndingRepair, StageOfTheCopysOwnNameIsNotTouched) {
    MemoryFiles files;
    files.Put("/Program/Fix.def", LongLine("\n"));
    std::string path = "/Program/Fix.def";
    {
        const LineEndingRepair repair(files, path);
        EXPECT_EQ(path, "/Program/Fix.def");
    }
    EXPECT_EQ(files.Get("/Program/Fix.def"), LongLine("\n"));
    EXPECT_THAT(files.Written(), IsEmpty());
}

}  // namespace
}  // namespace scenara::test
