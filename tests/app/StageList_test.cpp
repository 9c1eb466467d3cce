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

TEST_F(NewProgram, AFolderThatIsGivenAtTheStartIsReadOnceAndItsListIsShown) {
    files.Put("/other/stages/x.def", Stage("other"));
    program.Form_Load({"/other"});
    program.Form_Given({"/other"});
    EXPECT_EQ(form.lstStages.filled, 1U);
    EXPECT_THAT(form.lstStages.items, ElementsAre("x"));
    EXPECT_TRUE(form.lstStages.visible);
    program.Form_OLEDragDrop({"/other"});
    EXPECT_EQ(form.lstStages.filled, 2U) << "dropped later it may have others";
}

TEST_F(PlainNewProgram, AFolderThatIsGivenAtTheStartIsReadOnceAndReportedOnce) {
    files.Put("/empty/stages/readme.txt", "");
    const std::vector<std::string> given = {"/empty", kStageC};
    files.Put(kStageC, Stage("third"));
    program.Form_Load(given);
    user = InTurn({});
    program.Form_Given(given);
    EXPECT_THAT(MessageTexts(), ElementsAre("Err.. no files.. uh.. ", StartsWith("SFF FILE:")))
        << "the second one is the stage's, which is of another folder";
    EXPECT_EQ(form.lstStages.filled, 1U);
    EXPECT_EQ(Caption(), "third");
}

// --- the same, plain ---

class PlainlyDropped : public PlainProgram {
protected:
    PlainlyDropped() {
        files.Put("/pack/x.def", Stage("other"));
        files.Put("/hero/hero.def", "stcommon = common1.cns\n");
    }
};

TEST_F(PlainlyDropped, AFolderIsNoFile) {
    std::vector<std::string> said;
    for (const char* const folder : {"/mugen", "/pack", "/hero"}) {
        user = InTurn({});
        program.Form_OLEDragDrop({folder});
        said.push_back(std::string("Can't find file: \r\n") + folder);
        said.push_back("Not a stage!");
    }
    EXPECT_EQ(MessageTexts(), said);
    EXPECT_EQ(form.lstStages.filled, 1U);
    EXPECT_EQ(Begun(), 0);
}

TEST_F(PlainlyDropped, ACharacterIsNoStage) {
    WhileAIsShown({Drop("/hero/hero.def"), Wait});
    EXPECT_THAT(MessageTexts(), ElementsAre("Not a stage!"));
    EXPECT_EQ(show.TestChar().TestChar, "");
    EXPECT_EQ(Caption(), "first");
}

// What a start names, and a later one hands over, is what it is in either reading.
TEST_F(PlainlyDropped, WhatIsGivenIsWhatItIs) {
    const struct {
        std::vector<std::string> paths;
        const char* caption;
        const char* mugeDir;
        std::vector<std::string> recent;
    } rows[] = {
        {{"/pack"}, "other", "/mugen/", {"/pack/x.def"}},
        {{"/else/stages", "/pack"}, "other", "/else/", {"/pack/x.def"}},
        {{kStageC, kGone, kStageA}, "third", "/mugen/", {kStageC, kStageA}},
    };
    for (const auto& row : rows) {
        RunningStage stage({}, false);
        stage.files.Put("/pack/x.def", Stage("other"));
        stage.files.Put("/else/stages/y.def", Stage("else"));
        stage.Load();
        stage.user = InTurn({});
        stage.program.Form_Given(row.paths);
        const std::string& first = row.paths.front();
        EXPECT_EQ(stage.Caption(), row.caption) << first;
        EXPECT_EQ(stage.program.MugeDir, row.mugeDir) << first;
        EXPECT_EQ(stage.form.recentFiles, row.recent) << first;
    }
}

TEST_F(PlainlyDropped, AGivenMugenFolderIsTakenAndTheStageGoesOn) {
    files.Put("/else/stages/y.def", Stage("else"));
    WhileAIsShown({[&] { program.Form_Given({"/else"}); }, Wait,
                   [&] {
                       EXPECT_EQ(Caption(), "first");
                       EXPECT_EQ(program.MugeDir, "/else/");
                       EXPECT_THAT(form.lstStages.items, ElementsAre("y"));
                   }});
    EXPECT_THAT(MessageTexts(), IsEmpty());
}

// Each is told from the other when it is its turn.
TEST_F(PlainlyDropped, WhatIsGivenWhileAStageLoadsIsOpenedAfterIt) {
    WhileAIsShown({Wait}, Once([&] { program.Form_Given({"/pack"}); }));
    EXPECT_EQ(Caption(), "other");
    WhileAIsShown({Wait}, Once([&] { program.Form_OLEDragDrop({"/pack"}); }));
    EXPECT_EQ(MessageTexts().back(), "Not a stage!");
}

TEST_F(PlainlyDropped, OfSeveralPathsTheFirstIsOpened) {
    Show(DropAll({kStageC, "/hero/hero.def", kStageA}));
    EXPECT_EQ(Caption(), "third");
    EXPECT_THAT(form.recentFiles, ElementsAre(kStageC));
    EXPECT_EQ(show.TestChar().TestChar, "");
    EXPECT_THAT(MessageTexts(), IsEmpty());
}

// --- a folder of very many files ---

class ManyFiles : public Program {
protected:
    ManyFiles() {
        for (int i = 0; i < kFiles; ++i) {
            files.Put("/many/" + std::to_string(i) + ".def", "nothing");
        }
    }
    Act ExpectNothingSaid(const char* title) {
        return [this, title] {
            EXPECT_EQ(Caption(), title);
            EXPECT_TRUE(form[Menu::mnuOptions].enabled);
            EXPECT_THAT(MessageTexts(), IsEmpty());
        };
    }
    static constexpr int kFiles = 100;
    const Act drop = Drop("/many");
};

TEST_F(ManyFiles, LetMessagesThroughAndSaySoAfterAWhile) {
    const Act look = [&] {
        EXPECT_FALSE(form[Menu::mnuOptions].enabled) << "as while a stage loads";
        EXPECT_EQ(deepest, 2);
    };
    WhileAIsShown(Then(drop) + Times(40, look) +
                  Then([&] { EXPECT_THAT(Caption(), StartsWith("Looking through /many")); }) +
                  Times(2 * kFiles - 41, look) + Then([&] {
                      EXPECT_EQ(Caption(), "first");
                      EXPECT_EQ(MessageTexts().size(), 1U);
                      EXPECT_TRUE(form[Menu::mnuOptions].enabled);
                  }));
}

TEST_F(ManyFiles, AreGivenUpByEscape) {
    WhileAIsShown({drop, KeyDown(VirtualKey::Escape), ExpectNothingSaid("first"), Wait});
    EXPECT_EQ(turn, kRestFrames + 3 + 4 + 1) << "nothing more of it was read";
}

TEST_F(ManyFiles, AreGivenUpForWhatIsChosenMeanwhile) {
    WhileAIsShown({drop, Select(kItemC), ExpectNothingSaid("third"), drop, Drop(kStageA),
                   ExpectNothingSaid("first"), drop, Select(kItemA), ExpectNothingSaid("first")});
    EXPECT_EQ(Begun(), 4);
}

TEST_F(ManyFiles, AreGivenUpForTheEnd) {
    for (const bool withAStage : {false, true}) {
        RunningStage stage;
        stage.Load();
        for (int i = 0; i < kFiles; ++i) {
            stage.files.Put("/many/" + std::to_string(i) + ".def", "nothing");
        }
        const Act end = [](RunningStage& running) { running.program.Form_Unload(); };
        if (withAStage) {
            stage.user = InTurn({Drop("/many"), end});
            stage.program.lstStages_Click(kItemA);
        } else {
            stage.user = InTurn({end});
            stage.program.Form_OLEDragDrop({"/many"});
        }
        EXPECT_TRUE(stage.program.Ended());
        EXPECT_EQ(stage.direct3D.Device(), nullptr);
        EXPECT_THAT(stage.MessageTexts(), IsEmpty());
    }
}

TEST_F(Program, WhatIsGivenWhileAStageLoadsIsOpenedTogetherAndTheLastFirst) {
    const auto give = [](const std::vector<std::string>& paths) {
        return Act([paths](RunningStage& stage) { stage.program.Form_Given(paths); });
    };
    WhileAIsShown({Wait}, Once(All({give({kStageB}), give({kStageC, kStageB})})));
    EXPECT_EQ(Caption(), "third");
    EXPECT_THAT(form.recentFiles, ElementsAre(kStageC, kStageB));
    WhileAIsShown({Wait}, Once(All({give({kStageB}), Drop(kStageB), give({kStageC})})));
    EXPECT_EQ(Caption(), "third");
    EXPECT_THAT(form.recentFiles, ElementsAre(kStageC, kStageB))
        << "what was dropped is no start's";
}

TEST_F(Program, WhatIsDroppedWhileAStageLoadsIsOpenedAfterIt) {
    WhileAIsShown({Wait}, Once(DropAll({kStageC, kStageB})));
    EXPECT_EQ(Caption(), "third");
    EXPECT_THAT(form.recentFiles, ElementsAre(kStageC, kStageB));
}

}  // namespace
}  // namespace scenara::test
