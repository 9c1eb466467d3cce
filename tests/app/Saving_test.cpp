// SPDX-License-Identifier: MIT
//
// What is saved while the program goes on.
#include <algorithm>
#include <ostream>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/RunningStage.h"
#include "support/AllocationCount.h"

namespace scenara::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

// Frames in which nothing has been written yet, and after which something has been.
constexpr int kAlmostASecond = 58;
constexpr int kMoreThanASecond = 75;

class NewSaving : public NewProgram {
protected:
    explicit NewSaving(bool additions = true) : NewProgram(additions) {
        files.Put(kStageB, Stage("second"));
    }

    [[nodiscard]] std::ptrdiff_t Writings() const {
        return std::ranges::count(files.Written(), kConfiguration);
    }
    [[nodiscard]] const std::string& Saved() const { return files.Get(kConfiguration); }

    // Without a stage: frames pass, and the machine asks in each.
    void Pass(int frames) {
        for (int i = 0; i < frames; ++i) {
            clock.Advance();
            static_cast<void>(program.Form_Idle());
        }
    }
};

// After its start.
class Saving : public NewSaving {
protected:
    Saving() { Load(); }
};

std::vector<Act> Rest(int frames) {
    return Times(static_cast<std::size_t>(frames), Wait);
}

struct Change {
    const char* name;
    Act act;
    std::string line;
};

void PrintTo(const Change& change, std::ostream* out) {
    *out << change.name;
}

const std::vector<Change> kChanges = {
    {"Info", Choose(Menu::mnuInfo), "Info = True\r\n"},
    {"Music", Choose(Menu::mnuMusic), "BGMusic = False\r\n"},
    {"List", Choose(Menu::mnuStageList), "StageList = 255\r\n"},
    {"Debug", Choose(Menu::mnuDebugBG), "DebugBG = True\r\n"},
    {"AnotherStage", Choose(Menu::mnuStageNext),
     "RecentFile = /mugen/stages/b.def\r\nRecentFile = /mugen/stages/a.def\r\n"},
    {"TheCamerasStep", Tap(VirtualKey::A), "HCamStep = 1.5\r\n"}};

std::string NameOf(const testing::TestParamInfo<Change>& change) {
    return change.param.name;
}

class SavedChange : public Saving, public testing::WithParamInterface<Change> {};

TEST_P(SavedChange, IsSavedASecondLaterAndOnlyOnce) {
    std::ptrdiff_t before = 0;
    WhileAIsShown(Rest(2 * kMoreThanASecond) +  // the opening itself is a change
                  Then([&] {
                      EXPECT_THAT(Saved(), HasSubstr("RecentFile = /mugen/stages/a.def\r\n"));
                      EXPECT_THAT(Saved(), Not(HasSubstr(GetParam().line)));
                      before = Writings();
                  }) +
                  Then(GetParam().act) + Rest(kAlmostASecond) +
                  Then([&] { EXPECT_EQ(Writings(), before); }) +
                  Rest(kMoreThanASecond - kAlmostASecond) +
                  Then([&] { EXPECT_THAT(Saved(), HasSubstr(GetParam().line)); }) +
                  Rest(10 * kMoreThanASecond) + Then([&] { EXPECT_EQ(Writings(), before + 1); }));
    EXPECT_THAT(MessageTexts(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Of, SavedChange, testing::ValuesIn(kChanges), NameOf);

class PlainChange : public NewSaving, public testing::WithParamInterface<Change> {
protected:
    PlainChange() : NewSaving(false) { Load(); }
};

TEST_P(PlainChange, IsNotSavedBeforeTheEnd) {
    WhileAIsShown(Rest(2 * kMoreThanASecond) + Then(GetParam().act) + Rest(2 * kMoreThanASecond) +
                  Then([&] {
                      EXPECT_FALSE(program.Form_Idle());
                      program.SaveNow();
                  }));
    EXPECT_EQ(Writings(), 0);
    program.Form_Unload();
    EXPECT_THAT(Saved(), HasSubstr(GetParam().line));
}

INSTANTIATE_TEST_SUITE_P(Of, PlainChange, testing::ValuesIn(kChanges), NameOf);

class WhileTheStageStands : public Saving, public testing::WithParamInterface<Menu> {};

TEST_P(WhileTheStageStands, SavingGoesOn) {
    WhileAIsShown(std::vector<Act>{Choose(GetParam()), Choose(Menu::mnuMusic)} +
                  Rest(kMoreThanASecond) +
                  Then([&] { EXPECT_THAT(Saved(), HasSubstr("BGMusic = False")); }));
}

INSTANTIATE_TEST_SUITE_P(By, WhileTheStageStands, testing::Values(Menu::mnuPause, Menu::mnuDebug));

TEST_F(Saving, GoesOnWithoutAStage) {
    Pass(10 * kMoreThanASecond);
    EXPECT_EQ(Writings(), 0) << "the file says the same in other words";
    Click(Menu::mnuInfo);
    Pass(kAlmostASecond);
    EXPECT_EQ(Writings(), 0);
    EXPECT_TRUE(program.Form_Idle()) << "nothing else would make the machine ask";
    Pass(kMoreThanASecond - kAlmostASecond);
    EXPECT_THAT(Saved(), HasSubstr("Info = True\r\n"));
    clock.Advance(10);
    EXPECT_FALSE(program.Form_Idle()) << "it can sleep";
}

// A machine that sleeps asks once more after the last event and then not again.
TEST_F(Saving, AChangeRightAfterALookIsNotForgotten) {
    Pass(100);
    for (int frames = 1; frames < 15; ++frames) {
        Pass(frames);
        Click(Menu::mnuInfo);
        EXPECT_TRUE(program.Form_Idle());
        Pass(2 * kMoreThanASecond);
        EXPECT_EQ(Writings(), frames);
    }
}

TEST_F(Saving, ALookAsksForNoMemory) {
    form.recentFiles = {"/a path/that is longer/than any short text.def"};
    Pass(kMoreThanASecond);
    form[Menu::mnuMusic].checked = false;
    Pass(kMoreThanASecond);
    EXPECT_EQ(Writings(), 2);
    form[Menu::mnuMusic].checked = true;
    const std::size_t before = AllocationCount();
    Pass(kAlmostASecond);  // with a change that waits
    EXPECT_EQ(AllocationCount(), before);
}

TEST_F(Saving, GoesOnWhileAStageLoadsAndWhileADialogIsOpen) {
    WhileAIsShown({}, Once([&] {
                      form[Menu::mnuInfo].checked = true;
                      Pass(kMoreThanASecond);
                      EXPECT_NE(loop.LoadingStage, 0);
                      EXPECT_THAT(Saved(), HasSubstr("Info = True\r\n"));
                  }));
    EXPECT_EQ(Writings(), 1);

    Click(Menu::mnuMusic);
    dialogs.Observe([&](const DialogQuestion&) {
        EXPECT_THAT(Saved(), Not(HasSubstr("BGMusic = False")));
        Pass(kMoreThanASecond);
        EXPECT_THAT(Saved(), HasSubstr("BGMusic = False"));
    });
    Click(Menu::mnuFPS);
    Click(Menu::mnuFPS);
    EXPECT_EQ(dialogs.Asked().size(), 1U);
}

TEST_F(Saving, SavesAtOnceBeforeTheSessionEnds) {
    program.SaveNow();
    EXPECT_EQ(Writings(), 0) << "nothing has changed";
    Click(Menu::mnuInfo);
    program.SaveNow();
    EXPECT_THAT(Saved(), HasSubstr("Info = True\r\n"));
    Pass(2 * kMoreThanASecond);
    EXPECT_EQ(Writings(), 1);
    EXPECT_FALSE(program.Ended()) << "the session may go on";
}

class PlainSaving : public NewSaving {
protected:
    PlainSaving() : NewSaving(false) { Load(); }
};

TEST_F(PlainSaving, WhatTheAdditionsWereOffForIsSavedWhenTheyAreOn) {
    Click(Menu::mnuInfo);
    Click(Menu::mnuAdditions);
    Pass(kMoreThanASecond);
    EXPECT_THAT(Saved(), HasSubstr("Info = True\r\n"));
}

// --- what cannot be saved ---

constexpr const char* kDiskFull = "Run-time error: Disk full: /program/QX.CFG";

TEST_F(Saving, WhatCannotBeSavedIsReportedOnceAndTheProgramGoesOn) {
    files.FillDisk();
    Click(Menu::mnuInfo);
    Pass(20 * kMoreThanASecond);
    EXPECT_THAT(MessageTexts(), ElementsAre(kDiskFull));
    EXPECT_EQ(Writings(), 1) << "not tried again and again";
    Click(Menu::mnuMusic);
    Pass(20 * kMoreThanASecond);
    EXPECT_THAT(MessageTexts(), ElementsAre(kDiskFull)) << "not with each change";
    EXPECT_EQ(Writings(), 2);
    program.SaveNow();
    EXPECT_EQ(Writings(), 3) << "the last chance";
    Pass(20 * kMoreThanASecond);
    EXPECT_THAT(MessageTexts(), ElementsAre(kDiskFull));
    EXPECT_EQ(Saved(), "MugeDir = /mugen/\r\n");
    EXPECT_FALSE(program.Ended());
}

TEST_F(Saving, SavingAtOnceLeavesItToTheNextLookToReport) {
    files.FillDisk();
    Click(Menu::mnuInfo);
    program.SaveNow();
    EXPECT_EQ(Writings(), 1);
    EXPECT_THAT(MessageTexts(), IsEmpty()) << "the session waits";
    Pass(2 * kMoreThanASecond);
    EXPECT_THAT(MessageTexts(), ElementsAre(kDiskFull));
}

TEST_F(Saving, AFailureInARunningStageLeavesItRunning) {
    files.FillDisk();
    int shown = 0;
    WhileAIsShown(Rest(10 * kMoreThanASecond) + Then([&] { shown = sink.shown; }) + Rest(5) +
                  Then([&] { EXPECT_EQ(sink.shown, shown + 6); }));
    EXPECT_THAT(MessageTexts(), ElementsAre(kDiskFull));
}

TEST_F(NewSaving, SettingsThatCouldNotBeReadAreNotWrittenOver) {
    files.Put(kConfiguration, ".3\r\n");
    Load();
    Click(Menu::mnuInfo);
    Pass(2 * kMoreThanASecond);
    program.SaveNow();
    program.Form_Unload();
    EXPECT_EQ(Saved(), ".3\r\n");
}

// --- the first start ---

class FirstStart : public NewSaving, public testing::WithParamInterface<bool> {
protected:
    FirstStart() : NewSaving(GetParam()) {}
};

TEST_P(FirstStart, SavesTheFolderThatWasChosenAtOnceWithAdditions) {
    files.Delete(kConfiguration);
    dialogs.Answer("/mugen");
    Load();
    ASSERT_EQ(files.Has(kConfiguration), GetParam()) << "plain, at the end";
    if (GetParam()) {
        EXPECT_THAT(Saved(), HasSubstr("MugeDir = /mugen/\r\n"));
    }
    Pass(2 * kMoreThanASecond);
    EXPECT_EQ(Writings(), GetParam() ? 1 : 0);
    program.Form_Unload();
    EXPECT_THAT(Saved(), HasSubstr("MugeDir = /mugen/\r\n"));
}

INSTANTIATE_TEST_SUITE_P(PlainAndAdditions, FirstStart, testing::Bool());

TEST_F(NewSaving, AFolderThatCannotBeSavedIsReportedOnceAndStagesOpenAllTheSame) {
    files.Delete(kConfiguration);
    files.FillDisk();
    dialogs.Answer("/mugen");
    Load();
    EXPECT_EQ(form.lstStages.items.size(), 3U);
    WhileAIsShown(Rest(2 * kMoreThanASecond));
    const std::vector<std::string> texts = MessageTexts();
    EXPECT_EQ(std::count(texts.begin(), texts.end(), kDiskFull), 1);
    EXPECT_EQ(Caption(), "first");
}

TEST_F(NewSaving, NothingIsWrittenBeforeTheFolderIsChosen) {
    files.Delete(kConfiguration);
    dialogs.Observe([&](const DialogQuestion&) {
        Pass(2 * kMoreThanASecond);
        program.SaveNow();
        window.RequestEnd();
    });
    Load();
    program.Form_Unload();
    EXPECT_TRUE(program.Ended());
    EXPECT_FALSE(files.Has(kConfiguration));
    EXPECT_EQ(Writings(), 0);
}

TEST_F(NewSaving, ASecondInstanceWritesNothing) {
    process.PretendAnother();
    Load();
    Pass(2 * kMoreThanASecond);
    program.SaveNow();
    program.Form_Unload();
    EXPECT_THAT(files.Written(), IsEmpty());
}

}  // namespace
}  // namespace scenara::test
