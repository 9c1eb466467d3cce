// SPDX-License-Identifier: MIT
//
// What is saved while the program goes on.
#include <algorithm>
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

constexpr const char* kConfiguration = "/program/QX.CFG";
constexpr Long kItemA = 0;

// Frames in which nothing has been written yet, and after which something has been.
constexpr int kAlmostASecond = 58;
constexpr int kMoreThanASecond = 75;

struct SavingMachine {
    explicit SavingMachine(bool additions = true) : stage({}, additions) {
        stage.files.Put("/mugen/stages/b.def", RunningStage::Stage("second"));
    }

    [[nodiscard]] int Writings() const {
        const std::vector<std::string>& all = stage.files.Written();
        return static_cast<int>(std::count(all.begin(), all.end(), kConfiguration));
    }
    [[nodiscard]] const std::string& Saved() const { return stage.files.Get(kConfiguration); }

    // Without a stage: frames pass, and the machine asks in each.
    void Pass(int frames) {
        for (int i = 0; i < frames; ++i) {
            stage.clock.Advance();
            static_cast<void>(stage.program.Form_Idle());
        }
    }

    RunningStage stage;
};

// One act after another while the first stage is shown, with frames between them.
class Acts {
public:
    Acts& Rest(int frames) {
        acts_.resize(acts_.size() + static_cast<std::size_t>(frames), Wait);
        return *this;
    }
    Acts& Do(Act act) {
        acts_.push_back(std::move(act));
        return *this;
    }
    void Run(RunningStage& stage) {
        stage.user = InTurn(std::move(acts_));
        stage.program.lstStages_Click(kItemA);
    }

private:
    std::vector<Act> acts_;
};

struct Change {
    const char* name;
    Act act;
    std::string line;
};

std::vector<Change> Changes() {
    const auto clicks = [](Menu item) {
        return [item](RunningStage& running) { running.Click(item); };
    };
    return {
        {"info", clicks(Menu::mnuInfo), "Info = True\r\n"},
        {"music", clicks(Menu::mnuMusic), "BGMusic = False\r\n"},
        {"list", clicks(Menu::mnuStageList), "StageList = 255\r\n"},
        {"debug", clicks(Menu::mnuDebugBG), "DebugBG = True\r\n"},
        {"another stage", clicks(Menu::mnuStageNext),
         "RecentFile = /mugen/stages/b.def\r\nRecentFile = /mugen/stages/a.def\r\n"},
        {"the camera's step", [](RunningStage& running) { running.keyboard.Tap(VirtualKey::A); },
         "HCamStep = 1.5\r\n"}};
}

TEST(Saving, AChangeIsSavedASecondLaterAndOnlyOnce) {
    for (const Change& change : Changes()) {
        SCOPED_TRACE(change.name);
        SavingMachine machine;
        machine.stage.Load();
        int before = 0;
        Acts()
            .Rest(2 * kMoreThanASecond)  // the opening itself is a change
            .Do([&](RunningStage&) {
                EXPECT_THAT(machine.Saved(), HasSubstr("RecentFile = /mugen/stages/a.def\r\n"));
                EXPECT_THAT(machine.Saved(), Not(HasSubstr(change.line)));
                before = machine.Writings();
            })
            .Do(change.act)
            .Rest(kAlmostASecond)
            .Do([&](RunningStage&) { EXPECT_EQ(machine.Writings(), before); })
            .Rest(kMoreThanASecond - kAlmostASecond)
            .Do([&](RunningStage&) { EXPECT_THAT(machine.Saved(), HasSubstr(change.line)); })
            .Rest(10 * kMoreThanASecond)
            .Do([&](RunningStage&) { EXPECT_EQ(machine.Writings(), before + 1); })
            .Run(machine.stage);
        EXPECT_THAT(machine.stage.MessageTexts(), IsEmpty());
    }
}

TEST(Saving, PlainNothingIsSavedBeforeTheEnd) {
    for (const Change& change : Changes()) {
        SCOPED_TRACE(change.name);
        SavingMachine machine(false);
        machine.stage.Load();
        Acts()
            .Rest(2 * kMoreThanASecond)
            .Do(change.act)
            .Rest(2 * kMoreThanASecond)
            .Do([](RunningStage& running) {
                EXPECT_FALSE(running.program.Form_Idle());
                running.program.SaveNow();
            })
            .Run(machine.stage);
        EXPECT_EQ(machine.Writings(), 0);
        machine.stage.program.Form_Unload();
        EXPECT_THAT(machine.Saved(), HasSubstr(change.line));
    }
}

TEST(Saving, GoesOnWhilePausedAndInTheSpriteBrowser) {
    for (const Menu item : {Menu::mnuPause, Menu::mnuDebug}) {
        SavingMachine machine;
        machine.stage.Load();
        Acts()
            .Do([&](RunningStage& running) { running.Click(item); })
            .Do([](RunningStage& running) { running.Click(Menu::mnuMusic); })
            .Rest(kMoreThanASecond)
            .Do([&](RunningStage&) { EXPECT_THAT(machine.Saved(), HasSubstr("BGMusic = False")); })
            .Run(machine.stage);
    }
}

TEST(Saving, GoesOnWithoutAStage) {
    SavingMachine machine;
    machine.stage.Load();
    machine.Pass(10 * kMoreThanASecond);
    EXPECT_EQ(machine.Writings(), 0) << "the file says the same in other words";
    machine.stage.Click(Menu::mnuInfo);
    machine.Pass(kAlmostASecond);
    EXPECT_EQ(machine.Writings(), 0);
    EXPECT_TRUE(machine.stage.program.Form_Idle()) << "nothing else would make the machine ask";
    machine.Pass(kMoreThanASecond - kAlmostASecond);
    EXPECT_THAT(machine.Saved(), HasSubstr("Info = True\r\n"));
    machine.stage.clock.Advance(10);
    EXPECT_FALSE(machine.stage.program.Form_Idle()) << "it can sleep";
}

// A machine that sleeps asks once more after the last event and then not again.
TEST(Saving, AChangeRightAfterALookIsNotForgotten) {
    SavingMachine machine;
    machine.stage.Load();
    machine.Pass(100);
    for (int frames = 1; frames < 15; ++frames) {
        machine.Pass(frames);
        machine.stage.Click(Menu::mnuInfo);
        EXPECT_TRUE(machine.stage.program.Form_Idle());
        machine.Pass(2 * kMoreThanASecond);
        EXPECT_EQ(machine.Writings(), frames);
    }
}

TEST(Saving, ALookAsksForNoMemory) {
    SavingMachine machine;
    machine.stage.Load();
    machine.stage.form.recentFiles = {"/a path/that is longer/than any short text.def"};
    machine.Pass(kMoreThanASecond);
    machine.stage.form[Menu::mnuMusic].checked = false;
    machine.Pass(kMoreThanASecond);
    EXPECT_EQ(machine.Writings(), 2);
    machine.stage.form[Menu::mnuMusic].checked = true;
    const std::size_t before = AllocationCount();
    machine.Pass(kAlmostASecond);  // with a change that waits
    EXPECT_EQ(AllocationCount(), before);
}

TEST(Saving, GoesOnWhileAStageLoadsAndWhileADialogIsOpen) {
    SavingMachine machine;
    machine.stage.Load();
    machine.stage.user = InTurn({}, [&](RunningStage& running) {
        machine.Pass(kMoreThanASecond);
        EXPECT_NE(running.program.Show().Loop().LoadingStage, 0);
        EXPECT_THAT(machine.Saved(), HasSubstr("RecentFile = /mugen/stages/a.def\r\n"));
    });
    machine.stage.program.lstStages_Click(kItemA);
    EXPECT_EQ(machine.Writings(), 1);

    machine.stage.Click(Menu::mnuMusic);
    machine.stage.dialogs.Observe([&](const DialogQuestion&) {
        EXPECT_THAT(machine.Saved(), Not(HasSubstr("BGMusic = False")));
        machine.Pass(kMoreThanASecond);
        EXPECT_THAT(machine.Saved(), HasSubstr("BGMusic = False"));
    });
    machine.stage.Click(Menu::mnuFPS);
    machine.stage.Click(Menu::mnuFPS);
    EXPECT_EQ(machine.stage.dialogs.Asked().size(), 1U);
}

TEST(Saving, SavesAtOnceBeforeTheSessionEnds) {
    SavingMachine machine;
    machine.stage.Load();
    machine.stage.program.SaveNow();
    EXPECT_EQ(machine.Writings(), 0) << "nothing has changed";
    machine.stage.Click(Menu::mnuInfo);
    machine.stage.program.SaveNow();
    EXPECT_THAT(machine.Saved(), HasSubstr("Info = True\r\n"));
    machine.Pass(2 * kMoreThanASecond);
    EXPECT_EQ(machine.Writings(), 1);
    EXPECT_FALSE(machine.stage.program.Ended()) << "the session may go on";
}

TEST(Saving, WhatTheAdditionsWereOffForIsSavedWhenTheyAreOn) {
    SavingMachine machine(false);
    machine.stage.Load();
    machine.stage.Click(Menu::mnuInfo);
    machine.stage.Click(Menu::mnuAdditions);
    machine.Pass(kMoreThanASecond);
    EXPECT_THAT(machine.Saved(), HasSubstr("Info = True\r\n"));
}

// --- what cannot be saved ---

constexpr const char* kDiskFull = "Run-time error: Disk full: /program/QX.CFG";

TEST(Saving, WhatCannotBeSavedIsReportedOnceAndTheProgramGoesOn) {
    SavingMachine machine;
    machine.stage.Load();
    machine.stage.files.FillDisk();
    machine.stage.Click(Menu::mnuInfo);
    machine.Pass(20 * kMoreThanASecond);
    EXPECT_THAT(machine.stage.MessageTexts(), ElementsAre(kDiskFull));
    EXPECT_EQ(machine.Writings(), 1) << "not tried again and again";
    machine.stage.Click(Menu::mnuMusic);
    machine.Pass(20 * kMoreThanASecond);
    EXPECT_THAT(machine.stage.MessageTexts(), ElementsAre(kDiskFull)) << "not with each change";
    EXPECT_EQ(machine.Writings(), 2);
    machine.stage.program.SaveNow();
    EXPECT_EQ(machine.Writings(), 3) << "the last chance";
    machine.Pass(20 * kMoreThanASecond);
    EXPECT_THAT(machine.stage.MessageTexts(), ElementsAre(kDiskFull));
    EXPECT_EQ(machine.Saved(), "MugeDir = /mugen/\r\n");
    EXPECT_FALSE(machine.stage.program.Ended());
}

TEST(Saving, SavingAtOnceLeavesItToTheNextLookToReport) {
    SavingMachine machine;
    machine.stage.Load();
    machine.stage.files.FillDisk();
    machine.stage.Click(Menu::mnuInfo);
    machine.stage.program.SaveNow();
    EXPECT_EQ(machine.Writings(), 1);
    EXPECT_THAT(machine.stage.MessageTexts(), IsEmpty()) << "the session waits";
    machine.Pass(2 * kMoreThanASecond);
    EXPECT_THAT(machine.stage.MessageTexts(), ElementsAre(kDiskFull));
}

TEST(Saving, AFailureInARunningStageLeavesItRunning) {
    SavingMachine machine;
    machine.stage.Load();
    machine.stage.files.FillDisk();
    int shown = 0;
    Acts()
        .Rest(10 * kMoreThanASecond)
        .Do([&](RunningStage& running) { shown = running.sink.shown; })
        .Rest(5)
        .Do([&](RunningStage& running) { EXPECT_EQ(running.sink.shown, shown + 6); })
        .Run(machine.stage);
    EXPECT_THAT(machine.stage.MessageTexts(), ElementsAre(kDiskFull));
}

TEST(Saving, SettingsThatCouldNotBeReadAreNotWrittenOver) {
    SavingMachine machine;
    machine.stage.files.Put(kConfiguration, ".3\r\n");
    machine.stage.Load();
    machine.stage.Click(Menu::mnuInfo);
    machine.Pass(2 * kMoreThanASecond);
    machine.stage.program.SaveNow();
    machine.stage.program.Form_Unload();
    EXPECT_EQ(machine.Saved(), ".3\r\n");
}

// --- the first start ---

TEST(Saving, TheFolderThatWasChosenIsSavedAtOnce) {
    for (const bool additions : {true, false}) {
        SavingMachine machine(additions);
        machine.stage.files.Delete(kConfiguration);
        machine.stage.dialogs.Answer("/mugen");
        machine.stage.Load();
        ASSERT_EQ(machine.stage.files.Has(kConfiguration), additions) << "plain, at the end";
        if (additions) {
            EXPECT_THAT(machine.Saved(), HasSubstr("MugeDir = /mugen/\r\n"));
        }
        machine.Pass(2 * kMoreThanASecond);
        EXPECT_EQ(machine.Writings(), additions ? 1 : 0);
        machine.stage.program.Form_Unload();
        EXPECT_THAT(machine.Saved(), HasSubstr("MugeDir = /mugen/\r\n"));
    }
}

TEST(Saving, AFolderThatCannotBeSavedIsReportedOnceAndStagesOpenAllTheSame) {
    SavingMachine machine;
    machine.stage.files.Delete(kConfiguration);
    machine.stage.files.FillDisk();
    machine.stage.dialogs.Answer("/mugen");
    machine.stage.Load();
    EXPECT_EQ(machine.stage.form.lstStages.items.size(), 3U);
    Acts().Rest(2 * kMoreThanASecond).Run(machine.stage);
    const std::vector<std::string> texts = machine.stage.MessageTexts();
    EXPECT_EQ(std::count(texts.begin(), texts.end(), kDiskFull), 1);
    EXPECT_EQ(machine.stage.Caption(), "first");
}

TEST(Saving, NothingIsWrittenBeforeTheFolderIsChosen) {
    SavingMachine machine;
    machine.stage.files.Delete(kConfiguration);
    machine.stage.dialogs.Observe([&](const DialogQuestion&) {
        machine.Pass(2 * kMoreThanASecond);
        machine.stage.program.SaveNow();
        machine.stage.window.RequestEnd();
    });
    machine.stage.Load();
    machine.stage.program.Form_Unload();
    EXPECT_TRUE(machine.stage.program.Ended());
    EXPECT_FALSE(machine.stage.files.Has(kConfiguration));
    EXPECT_EQ(machine.Writings(), 0);
}

TEST(Saving, ASecondInstanceWritesNothing) {
    SavingMachine machine;
    machine.stage.process.PretendAnother();
    machine.stage.Load();
    machine.Pass(2 * kMoreThanASecond);
    machine.stage.program.SaveNow();
    machine.stage.program.Form_Unload();
    EXPECT_THAT(machine.stage.files.Written(), IsEmpty());
}

}  // namespace
}  // namespace scenara::test
