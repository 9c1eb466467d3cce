// SPDX-License-Identifier: MIT
//
// LoadStage and the file that it reads: line ends, the repaired copy, and what cannot be read.
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "ModelText.h"
#include "PlainMachine.h"
#include "StubbornFiles.h"
#include "platform/posix/PosixFiles.h"
#include "platform/posix/ProgramFolder.h"
#include "stage/KeyOffer.h"
#include "stage/LoadStage.h"
#include "support/FuzzChecks.h"

namespace scenara::test {
namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::EndsWith;
using testing::IsEmpty;
using testing::StartsWith;

constexpr const char* kCopy = "/program/fix.def";

// Short enough to need no repair; says something in its last line but one.
constexpr std::string_view kShort =
    "; Comment\n\n[Info]\nname = Old Town\n[BG Sky]\nstart = 5, 6\n\n[Begin Action 3]\n"
    "0,0, 0,0, 5\nloopstart\n0,1, 0,0, 5\n[BGCtrlDef]\nctrlid = 5\n[BGCtrl]\ntime = 99999999999\n"
    "type = anim";

// With a first line of more than 500 characters where lines end in LF.
std::string Long() {
    return "; " + std::string(600, 'x') + "\n" + std::string(kShort);
}

std::string WithLineEnds(std::string_view text, std::string_view lineEnd) {
    std::string result;
    for (const char c : text) {
        if (c == '\n') {
            result.append(lineEnd);
        } else {
            result.push_back(c);
        }
    }
    return result;
}

struct Loaded {
    std::string model;
    std::vector<std::string> said;
    std::vector<std::string> written;
};

Loaded LoadBytes(const std::string& bytes) {
    PlainMachine machine;
    EXPECT_TRUE(machine.Load(bytes));
    EXPECT_FALSE(machine.files.Has(kCopy));
    return {ModelText(machine.model), machine.OtherMessageTexts(), machine.files.Written()};
}

TEST(DefinitionFiles, EveryLineEndGivesTheSameStage) {
    const Loaded expected = LoadBytes(WithLineEnds(kShort, "\r\n"));
    EXPECT_THAT(expected.said, ElementsAre("Overflow: time, line 15"));
    EXPECT_THAT(expected.model, testing::HasSubstr("StageTitle='old town'"));
    EXPECT_THAT(expected.model, testing::HasSubstr("type='anim'"));
    for (const std::string_view lineEnd : {"\n", "\r"}) {
        const Loaded loaded = LoadBytes(WithLineEnds(kShort, lineEnd));
        EXPECT_EQ(loaded.model, expected.model);
        EXPECT_EQ(loaded.said, expected.said);
        EXPECT_THAT(loaded.written, IsEmpty());
    }
}

TEST(DefinitionFiles, LineEndsMayBeMixed) {
    const Loaded expected = LoadBytes("[BG a]\r\nid = 5\r\n\r\n[BG b]\r\nid = 6");
    const Loaded loaded = LoadBytes("[BG a]\rid = 5\n\r\n[BG b]\nid = 6\r");
    EXPECT_EQ(loaded.model, expected.model);
}

TEST(DefinitionFiles, ByteOrderMarkIsSkipped) {
    const Loaded expected = LoadBytes("[BG Sky]\r\nid = 5\r\n");
    EXPECT_EQ(LoadBytes("\xEF\xBB\xBF[BG Sky]\r\nid = 5\r\n").model, expected.model);
    EXPECT_EQ(LoadBytes("\xEF\xBB\xBFzoffset = 5").model, LoadBytes("zoffset = 5").model);
}

// The repaired copy

TEST(DefinitionFiles, LongFirstLineLoadsLikeTheSameFileWithCrLf) {
    const Loaded expected = LoadBytes(WithLineEnds("; x\n" + std::string(kShort), "\r\n"));
    EXPECT_THAT(expected.written, IsEmpty());
    for (const std::string& bytes : {Long(), WithLineEnds(Long(), "\r\n")}) {
        const Loaded loaded = LoadBytes(bytes);
        EXPECT_EQ(loaded.model, expected.model);
        EXPECT_THAT(loaded.said, ElementsAre("Overflow: time, line 16"));
        EXPECT_EQ(loaded.said, expected.said);
        EXPECT_THAT(loaded.written, ElementsAre(kCopy));
    }
}

TEST(DefinitionFiles, RepairedFileMayBeginWithAByteOrderMark) {
    EXPECT_EQ(LoadBytes("\xEF\xBB\xBF" + Long()).model, LoadBytes(Long()).model);
}

TEST(DefinitionFiles, CopyIsWhatIsReadAndPathNamesIt) {
    PlainMachine machine;
    StubbornFiles files;
    files.Put(kTestStage, Long());
    std::string path = kTestStage;
    std::string pathThen;
    std::string copyThen;
    HeadlessMessages messages([&](const Message& message) {
        if (message.kind == kMessageOverflow) {
            pathThen = path;
            copyThen = files.Has(kCopy) ? files.Get(kCopy) : "(no copy)";
        }
    });
    EXPECT_TRUE(LoadStage(machine.model, path, machine.Context(files, messages, machine.window)));
    EXPECT_EQ(pathThen, kCopy);
    EXPECT_EQ(copyThen, WithLineEnds(Long(), "\r\n"));
    EXPECT_EQ(files.opened.back(), kCopy);
    EXPECT_EQ(path, kTestStage);
    EXPECT_FALSE(files.Has(kCopy));
}

TEST(DefinitionFiles, CopyIsGoneBeforeTheArchiveIsLookedFor) {
    PlainMachine machine;
    machine.files.Put(kTestStage, Long());
    std::string path = kTestStage;
    bool asked = false;
    HeadlessMessages messages([&](const Message& message) {
        if (message.kind == kMessageArchiveMissing) {
            asked = true;
            EXPECT_EQ(path, kTestStage);
            EXPECT_FALSE(machine.files.Has(kCopy));
        }
    });
    EXPECT_TRUE(LoadStage(machine.model, path, machine.Context(messages, machine.window)));
    EXPECT_TRUE(asked);
}

TEST(DefinitionFiles, ArchiveBesideARepairedDefinitionIsFound) {
    PlainMachine machine;
    machine.files.Put("/mugen/stages/a.sff", SmallArchiveBytes());
    ASSERT_TRUE(machine.Load(Long() + "\n[BGdef]\nspr = a.sff\n"));
    EXPECT_THAT(machine.files.Written(), ElementsAre(kCopy));
    EXPECT_EQ(machine.model.SpriteCount, 3);
}

TEST(DefinitionFiles, FullDiskReadsTheOriginal) {
    const Loaded expected = LoadBytes(Long());
    PlainMachine machine;
    machine.files.FillDisk();
    ASSERT_TRUE(machine.Load(Long()));
    EXPECT_EQ(ModelText(machine.model), expected.model);
    EXPECT_EQ(machine.OtherMessageTexts(), expected.said);
    EXPECT_FALSE(machine.files.Has(kCopy));
}

// What cannot be read

struct Failed {
    std::string model;
    std::string path;
    std::vector<std::string> said;
    bool result = true;
};

Failed LoadFrom(Files& files, const std::string& path) {
    PlainMachine machine;
    Failed failed;
    failed.path = path;
    failed.result = LoadStage(machine.model, failed.path,
                              machine.Context(files, machine.messages, machine.window));
    failed.model = ModelText(machine.model);
    failed.said = machine.MessageTexts();
    return failed;
}

TEST(DefinitionFiles, MissingDefinitionIsSaidAndFails) {
    MemoryFiles files;
    const Failed failed = LoadFrom(files, kTestStage);
    EXPECT_FALSE(failed.result);
    EXPECT_THAT(
        failed.said,
        ElementsAre(AllOf(StartsWith("Unable to load /mugen/stages/test.def - File not found"),
                          EndsWith("."))));
    EXPECT_EQ(failed.path, kTestStage);
    EXPECT_EQ(failed.model, ModelText(StageModel()));
}

TEST(DefinitionFiles, MissingDefinitionEmptiesTheModel) {
    PlainMachine machine;
    ASSERT_TRUE(machine.Load(kShort));
    EXPECT_FALSE(machine.LoadFile("/mugen/stages/none.def"));
    EXPECT_EQ(ModelText(machine.model), ModelText(StageModel()));
}

TEST(DefinitionFiles, FolderInPlaceOfTheDefinitionIsSaidAndFails) {
    const TemporaryFolder folder;
    std::filesystem::create_directory(folder.Path() + "folder.def");
    PosixFiles files(folder.Path());
    const Failed failed = LoadFrom(files, folder.Path() + "folder.def");
    EXPECT_FALSE(failed.result);
    EXPECT_THAT(failed.said,
                ElementsAre(StartsWith("Unable to load " + folder.Path() + "folder.def - ")));
    EXPECT_EQ(failed.path, folder.Path() + "folder.def");
}

TEST(DefinitionFiles, NoPathAtAllIsSaidAndFails) {
    const TemporaryFolder folder;
    PosixFiles files(folder.Path());
    for (const std::string& path :
         {std::string(), folder.Path(), folder.Path() + "none/a.def", std::string("a\0b.def", 7)}) {
        const Failed failed = LoadFrom(files, path);
        EXPECT_FALSE(failed.result) << path;
        EXPECT_EQ(failed.said.size(), 1U) << path;
        EXPECT_EQ(failed.path, path);
    }
}

TEST(DefinitionFiles, ReadingThatFailsHalfWayIsSaidAndKeepsWhatWasRead) {
    StubbornFiles files;
    files.Put(kTestStage, "[BG a]\r\n;" + std::string(100'000, 'x') + "\r\n[BG b]\r\n");
    files.failFrom = 80'000;
    const Failed failed = LoadFrom(files, kTestStage);
    EXPECT_FALSE(failed.result);
    EXPECT_THAT(
        failed.said,
        ElementsAre(StartsWith("Unable to load /mugen/stages/test.def - Device I/O error")));
    EXPECT_EQ(failed.path, kTestStage);
    EXPECT_THAT(failed.model, testing::HasSubstr("ElementCount=1\n"));
}

TEST(DefinitionFiles, MemoryThatRunsOutIsSaidAndFails) {
    StubbornFiles files;
    files.Put(kTestStage, "[BG a]\r\n");
    files.outOfMemory = true;
    const Failed failed = LoadFrom(files, kTestStage);
    EXPECT_FALSE(failed.result);
    EXPECT_THAT(failed.said, ElementsAre("Unable to load /mugen/stages/test.def - Out of memory."));
    EXPECT_EQ(failed.path, kTestStage);
}

TEST(DefinitionFiles, CopyThatFailsHalfWayIsDeleted) {
    // The original can be copied; the copy, longer by its carriage returns, cannot be read to its
    // end.
    StubbornFiles files;
    const std::string definition = Long() + std::string(100'000, '\n');
    files.Put(kTestStage, definition);
    files.failFrom = definition.size();
    const Failed failed = LoadFrom(files, kTestStage);
    EXPECT_FALSE(failed.result);
    EXPECT_THAT(
        failed.said,
        ElementsAre("Overflow: time, line 16",
                    StartsWith("Unable to load /mugen/stages/test.def - Device I/O error")));
    EXPECT_EQ(failed.path, kTestStage);
    EXPECT_THAT(files.Written(), ElementsAre(kCopy));
    EXPECT_FALSE(files.Has(kCopy));
}

}  // namespace
}  // namespace scenara::test
