// SPDX-License-Identifier: MIT
#include "app/StageFiles.h"

#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/Path.h"
#include "platform/Disk.h"
#include "platform/headless/HeadlessMessages.h"
#include "support/MemoryFiles.h"

namespace scenara::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

bool StageOf(const std::string& text) {
    MemoryFiles files;
    files.Put("/a.def", text);
    return IsStage(files, "/a.def");
}

TEST(IsStage, TakesAFileWithTheWordInAnyLine) {
    EXPECT_TRUE(StageOf("[Info]\r\n[Camera]\r\n"));
    EXPECT_TRUE(StageOf("; no cAMeRA here"));
    EXPECT_TRUE(StageOf("camera"));
    EXPECT_TRUE(StageOf("xxcameraxx"));
    EXPECT_TRUE(StageOf("\r\r\ncamera\n"));
}

TEST(IsStage, LeavesEveryOtherFile) {
    EXPECT_FALSE(StageOf(""));
    EXPECT_FALSE(StageOf("camer"));
    EXPECT_FALSE(StageOf("[BG camer\na]"));
    EXPECT_FALSE(StageOf("came ra"));
    MemoryFiles none;
    EXPECT_FALSE(IsStage(none, "/a.def"));
}

TEST(IsStage, FindsTheWordWhereverTheBlocksOfTheFileEnd) {
    for (std::size_t before = 65536 - 8; before <= 65536 + 2; ++before) {
        EXPECT_TRUE(StageOf(std::string(before, 'x') + "Camera")) << before;
        EXPECT_TRUE(StageOf(std::string(before, 'x') + "Camera" + std::string(70000, 'x')));
        EXPECT_FALSE(StageOf(std::string(before, 'x') + "Camer" + std::string(70000, 'x')));
    }
    EXPECT_TRUE(StageOf(std::string(131072 - 3, 'c') + "camera"));
}

TEST(IsChar, LooksForAnotherWord) {
    MemoryFiles files;
    files.Put("/kfm.def", "[Files]\nstcommon = common1.cns\ncmd = kfm.cmd\n");
    files.Put("/stage.def", "[Camera]\n");
    EXPECT_TRUE(IsChar(files, "/kfm.def"));
    EXPECT_FALSE(IsStage(files, "/kfm.def"));
    EXPECT_FALSE(IsChar(files, "/stage.def"));
    EXPECT_FALSE(IsChar(files, "/none.def"));
}

TEST(LoadFilestoList, AddsNamesWithoutTheirEnding) {
    MemoryFiles files;
    HeadlessMessages messages;
    for (const std::string name : {"kfm.def", "a.define.def", "note.txt", "kfm.sff", ".def"}) {
        files.Put("/mugen/stages/" + name, "");
    }
    files.Put("/mugen/stages/deeper/x.def", "");
    ListBox list;
    list.items = {"was there"};
    LoadFilestoList(list, "/mugen/stages/", ".def", files, messages);
    EXPECT_THAT(list.items, ElementsAre("was there", "", "a", "kfm"));
    EXPECT_EQ(list.ListIndex, -1);
    EXPECT_THAT(messages.Recorded(), IsEmpty());
}

TEST(LoadFilestoList, LooksForDefWhateverTheEnding) {
    MemoryFiles files;
    HeadlessMessages messages;
    files.Put("/a.def.txt", "");
    files.Put("/b.txt", "");
    ListBox list;
    LoadFilestoList(list, "/", ".txt", files, messages);
    EXPECT_THAT(list.items, ElementsAre("a", "b.txt"));
}

TEST(LoadFilestoList, SaysWhenThereAreNone) {
    MemoryFiles files;
    HeadlessMessages messages;
    ListBox list;
    LoadFilestoList(list, "/mugen/stages/", ".def", files, messages);
    ASSERT_EQ(messages.Recorded().size(), 1U);
    EXPECT_EQ(messages.Recorded()[0].text, "Err.. no files.. uh.. ");
    EXPECT_EQ(messages.Recorded()[0].icon, MessageIcon::None);
    EXPECT_THAT(list.items, IsEmpty());
}

class StageFolder : public Disk {};

TEST_F(StageFolder, KeepsTheLettersOfNamesAndSortsThem) {
    HeadlessMessages messages;
    for (const std::string name : {"Zoo.def", "STAGE.DEF", "alps.Def", "bay.txt"}) {
        Put("stages/" + name, "");
    }
    PutFolder("stages/folder.def");
    ListBox list;
    LoadFilestoList(list, At("stages"), ".def", files_, messages);
    EXPECT_THAT(list.items, ElementsAre("alps", "STAGE", "Zoo"));
}

TEST_F(StageFolder, MayHoldTenThousandStages) {
    constexpr int kStages = 10'000;
    PutFolder("stages");
    for (int i = 0; i < kStages; ++i) {
        // Made in another order than they sort.
        Put("stages/s" + std::to_string(10'000 + i * 7 % kStages) + ".def", "");
    }
    HeadlessMessages messages;
    ListBox list;
    LoadFilestoList(list, StagesFolder(At("")), ".def", files_, messages);
    ASSERT_EQ(list.items.size(), static_cast<std::size_t>(kStages));
    for (int i = 0; i < kStages; ++i) {
        ASSERT_EQ(list.items[static_cast<std::size_t>(i)], "s" + std::to_string(10'000 + i));
    }
    EXPECT_TRUE(files_.FileExists(StageFile(At(""), list.items.back())));
}

TEST(StageFile, IsBuiltFromTheFolderAndTheItem) {
    const std::string separator(1, PathSeparator);
    EXPECT_EQ(StageFile("/mugen/", "kfm"), "/mugen/stages" + separator + "kfm.def");
    EXPECT_EQ(StagesFolder("/mugen//"), "/mugen//stages" + separator);
}

TEST(ChosenStage, EndsBehindTheFirstDefOfTheName) {
    EXPECT_EQ(ChosenStage("/m/kfm.def"), "/m/kfm.def");
    EXPECT_EQ(ChosenStage(std::string("/m/KFM.DEF\0\0\0", 13)), "/m/KFM.DEF");
    EXPECT_EQ(ChosenStage("/m/a.define.def"), "/m/a.def");
    EXPECT_EQ(ChosenStage("/old.def.d/kfm.def"), "/old.def.d/kfm.def");
    EXPECT_EQ(ChosenStage("C:\\x.def\\kfm.def~"), "C:\\x.def\\kfm.def");
    EXPECT_EQ(ChosenStage("/x.def/readme.txt"), "/x.def/readme.txt");
}

}  // namespace
}  // namespace scenara::test
