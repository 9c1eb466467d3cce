// SPDX-License-Identifier: MIT
#include "app/StageFinder.h"

#include <filesystem>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/StageSearch.h"
#include "base/NaturalOrder.h"
#include "platform/BackgroundThread.h"
#include "platform/Disk.h"
#include "stage/StageInfo.h"
#include "support/MemoryFiles.h"

namespace scenara::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<std::string> TextsOf(const FoundStages& found) {
    std::vector<std::string> texts;
    for (const StageEntry& stage : found.stages) {
        texts.push_back(stage.text);
    }
    return texts;
}

TEST(FindStages, FindsThoseInFoldersBelowInNaturalOrder) {
    MemoryFiles files;
    for (const char* const name :
         {"stage10.def", "stage2.def", "readme.txt", "cave/cave.def", "cave/cave.sff", "pack/a.def",
          "pack/deep/b.def", "pack/Hall/hall.def", "x.def/y.def"}) {
        files.Put(std::string("/m/stages/") + name, "");
    }
    const FoundStages found = FindStages(files, "/m/");
    EXPECT_THAT(TextsOf(found), ElementsAre("cave", "pack/a", "pack/deep/b", "pack/hall", "stage2",
                                            "stage10", "x.def/y"));
    EXPECT_EQ(found.stages[0].file, "/m/stages/cave/cave.def");
    EXPECT_FALSE(found.isCut);
    EXPECT_EQ(found.folders.size(), 6U);
    EXPECT_EQ(found.folders[0], "/m/stages/");
}

TEST(FindStages, TellsThoseOfOneNameApart) {
    MemoryFiles files;
    for (const char* const name : {"cave.def", "cave/cave.def", "hall/hall.def", ".def"}) {
        files.Put(std::string("/m/stages/") + name, "");
    }
    EXPECT_THAT(TextsOf(FindStages(files, "/m/")),
                ElementsAre(".def", "cave", "cave/cave", "hall"));
}

TEST(FindStages, HasNoneWhereThereIsNoFolder) {
    MemoryFiles files;
    const FoundStages found = FindStages(files, "/m/");
    EXPECT_THAT(found.stages, IsEmpty());
    EXPECT_THAT(found.folders, ElementsAre("/m/stages/")) << "it may come";
}

TEST(FindStages, CanBeGivenUp) {
    MemoryFiles files;
    files.Put("/m/stages/a.def", "");
    files.Put("/m/stages/b/b.def", "");
    int asked = 0;
    const FoundStages found = FindStages(files, "/m/", [&] { return ++asked == 1; });
    EXPECT_THAT(TextsOf(found), ElementsAre("a"));
}

class StagesOnDisk : public Disk {};

TEST_F(StagesOnDisk, FoldersThatLinksLeadToAreLookedIntoOnce) {
    Put("stages/cave/cave.def", "");
    std::filesystem::create_directory_symlink(At("stages"), At("stages/cave/loop"));
    std::filesystem::create_directory_symlink(At("stages/cave"), At("stages/another"));
    EXPECT_EQ(FindStages(files_, At("")).stages.size(), 1U);
}

TEST_F(StagesOnDisk, FoldersAreLookedIntoToADepth) {
    std::string deep = "stages/";
    for (std::size_t i = 0; i < kDeepestListedFolder + 3; ++i) {
        Put(deep + "s.def", "");
        deep += "d/";
    }
    const FoundStages found = FindStages(files_, At(""));
    EXPECT_EQ(found.stages.size(), kDeepestListedFolder);
    EXPECT_TRUE(found.isCut);
}

// --- what the files say ---

StageEntry Told(const std::string& text, const char* name = "a") {
    MemoryFiles files;
    files.Put(std::string("/m/stages/") + name + ".def", text);
    FoundStages found = FindStages(files, "/m/");
    KnownStages known;
    known.Tell(files, found.stages.at(0));
    return found.stages.at(0);
}

TEST(StageInfo, IsReadFromItsSection) {
    const struct {
        const char* text;
        const char* name;
        const char* displayName;
        const char* author;
    } rows[] = {
        {"[Info]\nname = \"Cave\"\nauthor = Ann\ndisplayname = The Cave\n[Camera]\n", "Cave",
         "The Cave", "Ann"},
        {"; x\r\n[info]\r\nNAME=Cave ; of old\r\n", "Cave", "", ""},
        {"name = no\n[Info]\nname = a\nname = b\n[BG]\nauthor = c\n[Info]\nauthor = d", "a", "",
         ""},
        {"[Info]\nname =\nname = b", "b", "", ""},
        {"", "", "", ""},
        {"[Info", "", "", ""},
    };
    for (const auto& row : rows) {
        const StageInfo info = StageInfoIn(row.text);
        EXPECT_EQ(info.name, row.name) << row.text;
        EXPECT_EQ(info.displayName, row.displayName) << row.text;
        EXPECT_EQ(info.author, row.author) << row.text;
    }
}

TEST(KnownStages, TellWhatIsAStage) {
    EXPECT_TRUE(Told("[Camera]\n").isStage);
    EXPECT_TRUE(Told(std::string(70'000, 'x') + "[Camera]\n").isStage);
    EXPECT_FALSE(Told("notes").isStage);
    EXPECT_FALSE(Told("").isStage);
    EXPECT_TRUE(Told("notes").isRead);
    EXPECT_TRUE(Told(std::string((1U << 20U) + 1, 'x')).isStage) << "too long to be looked through";
}

TEST(KnownStages, WhatCannotBeReadMayBeAStage) {
    MemoryFiles files;
    files.Put("/m/stages/a.def", "notes");
    FoundStages found = FindStages(files, "/m/");
    files.Break("/m/stages/a.def");
    KnownStages().Tell(files, found.stages[0]);
    EXPECT_TRUE(found.stages[0].isStage);
    EXPECT_FALSE(found.stages[0].isRead);
}

TEST_F(StagesOnDisk, AFileThatHasChangedIsReadAgain) {
    Put("stages/a.def", "[Info]\nname = first\n[Camera]\n");
    KnownStages known;
    const auto name = [&] {
        FoundStages found = FindStages(files_, At(""));
        known.Tell(files_, found.stages.at(0));
        return found.stages.at(0).info.name + (found.stages.at(0).isStage ? "" : ", none");
    };
    EXPECT_EQ(name(), "first");
    EXPECT_EQ(name(), "first");
    Put("stages/a.def", "[Info]\nname = another\n");
    EXPECT_EQ(name(), "another, none");
}

TEST(HasEveryWord, LooksInNameFolderAndAuthorInAnyCase) {
    const StageEntry stage = Told(
        "[Info]\nname = Night \xC9"
        "cole\nauthor = Ann Lee\n[Camera]\n",
        "pack/hall");
    for (const char* const words : {"", "  ", "night", "HALL pack", "lee NIGHT", "an",
                                    "\xC3\xA9"
                                    "cole",
                                    "\t\xC3\x89"
                                    "COLE ann"}) {
        EXPECT_TRUE(HasEveryWord(stage, FoldCase(words))) << words;
    }
    for (const char* const words : {"day", "night day", "def", "nighthall", "lee\nann"}) {
        EXPECT_FALSE(HasEveryWord(stage, FoldCase(words))) << words;
    }
}

// --- beside the program ---

TEST_F(StagesOnDisk, ASearchTellsNamesAndThenWhatTheFilesSay) {
    Put("stages/a.def", "[Info]\nname = first\n[Camera]\n");
    std::atomic<int> woken = 0;
    BackgroundThread thread([&] { ++woken; });
    StageSearch search(files_, &thread);
    search.Begin(At(""));
    std::optional<FoundStages> last;
    for (int i = 0; i < 1000 && !(last && last->stages.at(0).isRead); ++i) {
        search.AwaitNews(std::chrono::milliseconds(10));
        if (auto news = search.TakeNews()) {
            last = std::move(news);
        }
    }
    ASSERT_TRUE(last);
    EXPECT_EQ(last->stages.at(0).info.name, "first");
    EXPECT_GE(woken, 1);
    EXPECT_FALSE(search.TakeNews());
}

TEST_F(StagesOnDisk, ASearchThatIsBegunAnewTakesThePlaceOfTheOneBefore) {
    Put("one/stages/a.def", "");
    Put("two/stages/b.def", "");
    BackgroundThread thread([] {});
    StageSearch search(files_, &thread);
    for (int i = 0; i < 20; ++i) {
        search.Begin(At("one/"));
        search.Begin(At("two/"));
        std::optional<FoundStages> found;
        while (!found) {
            search.AwaitNews(std::chrono::milliseconds(10));
            found = search.TakeNews();
        }
        EXPECT_THAT(TextsOf(*found), ElementsAre("b"));
    }
}

TEST_F(StagesOnDisk, ASearchThatIsLetGoOfEndsByItself) {
    for (int i = 0; i < 300; ++i) {
        Put("stages/" + std::to_string(i) + ".def", "[Camera]");
    }
    BackgroundThread thread([] {});
    for (int i = 0; i < 20; ++i) {
        StageSearch search(files_, &thread);
        search.Begin(At(""));
    }
}

}  // namespace
}  // namespace scenara::test
