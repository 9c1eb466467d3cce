// SPDX-License-Identifier: MIT
//
// The engine folder: the question at the first start, another folder later, and what the window
// tells where there are no stages.
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/RunningStage.h"

namespace scenara::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

constexpr const char* kNothingChosen =
    "No MUGEN folder is chosen.\r\nExtras > MUGEN Folder... chooses one";

class FirstStart : public NewProgram {
protected:
    FirstStart() { files.Delete(kConfiguration); }

    void Start(std::vector<std::string> given = {}) {
        program.MugeDir.clear();
        program.Form_Load(given);
    }
    [[nodiscard]] std::string Saved() const {
        return files.Has(kConfiguration) ? files.Get(kConfiguration) : std::string();
    }
};

TEST_F(FirstStart, CanBeLeftWithoutAFolder) {
    Start();
    EXPECT_FALSE(program.Ended());
    EXPECT_EQ(messages.Recorded().size(), 1U) << "what is asked next, and no more";
    EXPECT_EQ(dialogs.Asked().size(), 1U);
    EXPECT_THAT(form.lstStages.items, IsEmpty());
    EXPECT_EQ(form.titleNote, kNothingChosen);
    EXPECT_THAT(Saved(), HasSubstr("MugeDir = \r\n"));
}

TEST_F(FirstStart, LeftWithoutAFolderIsNotRepeated) {
    Start();
    RunningStage second;
    second.files.Put(kConfiguration, Saved());
    second.program.MugeDir.clear();
    second.program.Form_Load();
    EXPECT_THAT(second.MessageTexts(), IsEmpty());
    EXPECT_THAT(second.dialogs.Asked(), IsEmpty());
    EXPECT_EQ(second.program.MugeDir, "");
    EXPECT_EQ(second.form.titleNote, kNothingChosen);
}

TEST_F(FirstStart, AsksInTheUsersOwnFolderAndSavesWhatIsChosen) {
    dialogs.Answer("/mugen");
    Start();
    EXPECT_EQ(dialogs.Asked().at(0).initialFolder, "");
    EXPECT_EQ(program.MugeDir, "/mugen/");
    EXPECT_THAT(form.lstStages.items, ElementsAre("a", "b"));
    EXPECT_EQ(form.titleNote, "");
    EXPECT_THAT(Saved(), HasSubstr("MugeDir = /mugen/\r\n"));
}

TEST_F(FirstStart, TakesTheFolderThatItIsGivenWithoutAQuestion) {
    Start({kStageA, "/mugen/stages"});
    EXPECT_THAT(MessageTexts(), IsEmpty());
    EXPECT_THAT(dialogs.Asked(), IsEmpty());
    EXPECT_EQ(program.MugeDir, "/mugen/");
    EXPECT_THAT(form.lstStages.items, ElementsAre("a", "b"));
    EXPECT_THAT(Saved(), HasSubstr("MugeDir = /mugen/\r\n"));
}

TEST_F(FirstStart, OpensAStageAllTheSameWhereNoFolderIsChosen) {
    Start({kStageA});
    EXPECT_EQ(dialogs.Asked().size(), 1U);
    Show(Drop(kStageA));
    EXPECT_EQ(Caption(), "first");
    EXPECT_TRUE(ShowsSomething()) << "its archive is where the stage is";
    EXPECT_EQ(messages.Recorded().size(), 1U);
}

TEST_F(FirstStart, OffersNoStagesToOpenWhereNoFolderIsChosen) {
    Start();
    files.Put("stages/a.def", "camera");
    program.mnuOpen_Click();
    EXPECT_EQ(dialogs.Asked().back().initialFolder, "");
}

// --- a later start ---

TEST_F(NewProgram, ASavedFolderThatIsGoneIsToldInTheWindow) {
    files.Put(kConfiguration, "MugeDir = /gone\r\n");
    program.Form_Load();
    EXPECT_THAT(MessageTexts(), IsEmpty());
    EXPECT_EQ(form.titleNote,
              "The MUGEN folder is not there:\r\n/gone/\r\nExtras > MUGEN Folder... chooses one");
    program.Form_Unload();
    EXPECT_THAT(files.Get(kConfiguration), HasSubstr("MugeDir = /gone/\r\n"))
        << "it may be back at the next start";
}

TEST_F(NewProgram, AFolderWithoutStagesIsToldInTheWindow) {
    files.Put("/empty/stages/readme.txt", "");
    files.Put(kConfiguration, "MugeDir = /empty/\r\n");
    program.Form_Load();
    EXPECT_THAT(MessageTexts(), IsEmpty());
    EXPECT_THAT(form.titleNote, HasSubstr("No stages are there:\r\n/empty/stages/"));
}

TEST_F(NewProgram, AGivenFolderTakesThePlaceOfTheSavedOneForGood) {
    files.Put("/other/stages/x.def", "camera");
    program.Form_Load({"/other"});
    EXPECT_EQ(program.MugeDir, "/other/");
    EXPECT_THAT(form.lstStages.items, ElementsAre("x"));
    program.SaveNow();
    EXPECT_THAT(files.Get(kConfiguration), HasSubstr("MugeDir = /other/\r\n"));
}

TEST_F(PlainNewProgram, AGivenFolderTakesThePlaceOfTheSavedOneForGood) {
    files.Put("/other/stages/x.def", "camera");
    program.Form_Load({"/other"});
    EXPECT_THAT(form.lstStages.items, ElementsAre("x"));
    program.Form_Unload();
    EXPECT_THAT(files.Get(kConfiguration), HasSubstr("MugeDir = /other/\r\n"));
}

TEST_F(PlainNewProgram, AGivenFolderIsNotAskedForAtTheFirstStart) {
    files.Delete(kConfiguration);
    program.Form_Load({"/mugen"});
    EXPECT_THAT(dialogs.Asked(), IsEmpty());
    EXPECT_THAT(MessageTexts(), IsEmpty());
    EXPECT_EQ(program.MugeDir, "/mugen/");
}

// --- another folder ---

class AnotherFolder : public Program {
protected:
    AnotherFolder() {
        files.Put("/other/stages/x.def", Stage("other"));
        files.Put("/other/stages/a.def", Stage("another"));
    }

    void Choose(const std::string& folder) {
        dialogs.Answer(folder);
        Click(Menu::mnuMugenFolder);
    }
};

TEST_F(AnotherFolder, FillsTheListAnewAndIsSaved) {
    const std::uint32_t filled = form.lstStages.filled;
    form.lstStages.ListIndex = 2;
    Choose("/other");
    EXPECT_EQ(dialogs.Asked().back().initialFolder, "/mugen/");
    EXPECT_THAT(form.lstStages.items, ElementsAre("a", "x"));
    EXPECT_GT(form.lstStages.filled, filled);
    EXPECT_EQ(form.lstStages.ListIndex, -1);
    EXPECT_NE(program.ShowStageList, 0) << "it is to be seen";
    program.SaveNow();
    EXPECT_THAT(files.Get(kConfiguration), HasSubstr("MugeDir = /other/\r\n"));
    EXPECT_THAT(MessageTexts(), IsEmpty());
}

TEST_F(AnotherFolder, ChangesNothingWhenItIsCancelled) {
    const auto before = form.lstStages.items;
    Choose("");
    EXPECT_EQ(form.lstStages.items, before);
    EXPECT_EQ(program.MugeDir, "/mugen/");
}

TEST_F(AnotherFolder, BeginsInTheUsersOwnWhereTheLastOneIsGone) {
    program.MugeDir = "/gone/";
    Choose("");
    EXPECT_EQ(dialogs.Asked().back().initialFolder, "");
}

TEST_F(AnotherFolder, LeavesTheStageThatIsShown) {
    WhileAIsShown({Wait, [&] { Choose("/other"); }, [&] { sink.last.clear(); }, Wait,
                   [&] {
                       EXPECT_EQ(Caption(), "first");
                       EXPECT_TRUE(ShowsSomething());
                       EXPECT_EQ(form.lstStages.ListIndex, -1) << "another one of its name";
                       Click(Menu::mnuReload);
                   },
                   Wait,
                   [&] {
                       EXPECT_EQ(Caption(), "first");
                       EXPECT_TRUE(ShowsSomething()) << "its archive is where it was";
                       Choose("/mugen");
                       EXPECT_EQ(form.lstStages.ListIndex, kItemA) << "that is shown";
                   }});
    EXPECT_THAT(MessageTexts(), IsEmpty());
}

TEST_F(AnotherFolder, ReplacesWhatTheWindowTellsOfNone) {
    program.MugeDir = "/gone/";
    Choose("/other");
    EXPECT_EQ(form.titleNote, "");
    dialogs.Answer("/mugen/stages/empty");
    Choose("Use It All the Same");
    EXPECT_EQ(program.MugeDir, "/mugen/stages/empty/");
    EXPECT_THAT(form.titleNote, StartsWith("The MUGEN folder is not there:"));
    EXPECT_THAT(MessageTexts(), IsEmpty()) << "the window says it";
}

TEST_F(AnotherFolder, CannotBeChosenPlainlyOrWhileAStageLoads) {
    WhileAIsShown({Wait}, [&] { Click(Menu::mnuMugenFolder); });
    EXPECT_THAT(dialogs.Asked(), IsEmpty());
    Click(Menu::mnuAdditions);
    Click(Menu::mnuMugenFolder);
    EXPECT_THAT(dialogs.Asked(), IsEmpty());
}

// --- what is dropped, or given at a start ---

Act DropAll(std::vector<std::string> paths) {
    return
        [paths = std::move(paths)](RunningStage& stage) { stage.program.Form_OLEDragDrop(paths); };
}

TEST_F(Program, OfSeveralStagesTheFirstIsShownAndAllAreRecent) {
    Show(DropAll({kStageC, kGone, kStageA, kStageB}));
    EXPECT_EQ(Caption(), "third");
    EXPECT_THAT(form.recentFiles, ElementsAre(kStageC, kStageA, kStageB));
    EXPECT_THAT(MessageTexts(), IsEmpty());
}

TEST_F(Program, OfVeryManyStagesTheFirstAreRecent) {
    std::vector<std::string> paths;
    for (char name = 'k'; name <= 't'; ++name) {
        paths.push_back(std::string("/mugen/stages/") + name + ".def");
        files.Put(paths.back(), Stage("first"));
    }
    Show(DropAll(paths));
    EXPECT_THAT(form.recentFiles, testing::ElementsAreArray(paths.begin(), paths.begin() + 6));
}

TEST_F(Program, ADroppedMugenFolderIsTakenAndTheStageGoesOn) {
    files.Put("/other/stages/x.def", Stage("other"));
    WhileAIsShown({DropAll({"/other/stages/"}), Wait, [&] {
                       EXPECT_EQ(Caption(), "first");
                       EXPECT_EQ(program.MugeDir, "/other/");
                       EXPECT_THAT(form.lstStages.items, ElementsAre("x"));
                   }});
    EXPECT_THAT(MessageTexts(), IsEmpty());
}

TEST_F(Program, ADroppedFolderOfStagesShowsItsFirst) {
    files.Put("/pack/x.def", Stage("other"));
    files.Put("/pack/a.txt", "camera");
    Show(Drop("/pack"));
    EXPECT_EQ(Caption(), "other");
    EXPECT_EQ(program.MugeDir, "/mugen/");
}

TEST_F(Program, AFolderOfNothingIsReported) {
    files.Put("/pack/a.txt", "camera");
    program.Form_OLEDragDrop({"/pack"});
    ASSERT_EQ(messages.Recorded().size(), 1U);
    EXPECT_THAT(messages.Recorded()[0].text, HasSubstr("nothing to show in the folder\r\n/pack"));
    EXPECT_EQ(messages.Recorded()[0].icon, MessageIcon::Exclamation);
}

TEST_F(Program, WhatIsDroppedWhileAStageLoadsIsOpenedAfterIt) {
    WhileAIsShown({Wait}, Once(DropAll({kStageC, kStageB})));
    EXPECT_EQ(Caption(), "third");
    EXPECT_THAT(form.recentFiles, ElementsAre(kStageC, kStageB, kStageA));
}

}  // namespace
}  // namespace scenara::test
