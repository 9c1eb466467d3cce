// SPDX-License-Identifier: MIT
//
// Which stage is shown, as the user sees it: messages, captions, recent files, and every way from
// one stage to another, from inside of a running loop and from outside.
#include <set>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/RunningStage.h"

namespace scenara::test {
namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::Field;
using testing::IsEmpty;
using testing::Not;

constexpr const char* kA = "/mugen/stages/a.def";
constexpr const char* kC = "/mugen/stages/c.def";
constexpr const char* kGone = "/mugen/stages/gone.def";
constexpr const char* kNoStage = "/mugen/stages/notes.def";

auto Said(const std::string& text, MessageIcon icon) {
    return AllOf(Field(&Message::text, text), Field(&Message::icon, icon),
                 Field(&Message::title, ""));
}

// Items of the list, in its order: a, b, c, and notes where there is such a file.
constexpr Long kItemA = 0;
constexpr Long kItemC = 2;

class Opening : public testing::Test {
protected:
    Opening() { stage.Load(); }

    // Shows stage a, lets the user act, and ends the loop.
    void WhileAIsShown(std::vector<Act> acts, Act loading = {}) {
        stage.user = InTurn(std::move(acts), std::move(loading));
        stage.program.lstStages_Click(kItemA);
    }

    RunningStage stage;
};

TEST_F(Opening, AMissingFileIsSaidTwiceAndTheShownStageGoesOn) {
    WhileAIsShown(
        {[](RunningStage& running) { running.program.Form_OLEDragDrop(kGone); }, Wait, Wait, Wait});
    EXPECT_THAT(stage.messages.Recorded(),
                ElementsAre(Said("Can't find file: \r\n/mugen/stages/gone.def", MessageIcon::None),
                            Said("Not a stage!", MessageIcon::Exclamation)));
    EXPECT_EQ(stage.Caption(), "first");
    EXPECT_EQ(stage.program.Show().Loop().StageRunning, 1);
    EXPECT_EQ(stage.program.Show().Loop().TotalFrames, 5) << "one before each act, and the last";
    EXPECT_THAT(stage.form.recentFiles, ElementsAre(kA));
}

TEST_F(Opening, AFileWithoutTheWordIsNoStage) {
    stage.files.Put(kNoStage, "[BGdef]\nspr = a.sff\n");
    WhileAIsShown({[](RunningStage& running) { running.program.Form_OLEDragDrop(kNoStage); }});
    EXPECT_THAT(stage.messages.Recorded(),
                ElementsAre(Said("Not a stage!", MessageIcon::Exclamation)));
    EXPECT_EQ(stage.Caption(), "first");
}

TEST_F(Opening, TheWordCountsWhereverItStands) {
    stage.files.Put(kNoStage, "; no CAMera here\n[Info]\nname = fourth\n");
    stage.user = InTurn({});
    stage.program.Form_OLEDragDrop(kNoStage);
    EXPECT_EQ(stage.Caption(), "fourth");
}

TEST_F(Opening, TheCaptionIsThePathAndThenTheTitle) {
    WhileAIsShown({});
    EXPECT_THAT(stage.window.Captions(), testing::Contains(testing::StrEq(kA)));
    EXPECT_EQ(stage.Caption(), "first");
    EXPECT_EQ(stage.program.Show().Which.CurrentStageFile, kA);
}

TEST_F(Opening, ARecentFileLeavesTheCaptionAlone) {
    stage.form.recentFiles = {kA};
    stage.user = InTurn({});
    stage.program.MnuRecentFiles_Click(1);
    EXPECT_THAT(stage.window.Captions(), Not(testing::Contains(kA)));
    EXPECT_EQ(stage.Caption(), "first");
}

TEST_F(Opening, ARecentFileMovesToTheTopEvenWhenItIsGone) {
    stage.form.recentFiles = {kA, kC, kGone};
    stage.user = InTurn({[](RunningStage& running) { running.program.MnuRecentFiles_Click(3); }});
    stage.program.MnuRecentFiles_Click(2);
    EXPECT_THAT(stage.form.recentFiles, ElementsAre(kGone, kC, kA));
    EXPECT_THAT(stage.messages.Recorded(),
                ElementsAre(Said("Can't find file: \r\n/mugen/stages/gone.def", MessageIcon::None),
                            Said("Not a stage!", MessageIcon::CriticalStop)));
    EXPECT_EQ(stage.Caption(), "third") << "goes on";
    EXPECT_EQ(stage.program.Show().Loop().StageRunning, 1);
}

TEST_F(Opening, ARecentFileThatTheMenuDoesNotHaveIsAnError) {
    stage.form.recentFiles = {kA};
    for (const Long index : {-1, 0, 2}) {
        stage.program.MnuRecentFiles_Click(index);
    }
    EXPECT_THAT(
        stage.MessageTexts(),
        testing::AllOf(testing::SizeIs(3),
                       testing::Each("Run-time error: Subscript out of range: recent file")));
}

TEST_F(Opening, AfterCloseARecentFileIsShown) {
    stage.form.recentFiles = {kA};
    WhileAIsShown({[](RunningStage& running) { running.Click(Menu::mnuClose); }});
    stage.user = InTurn({});
    stage.program.MnuRecentFiles_Click(1);
    EXPECT_EQ(stage.Caption(), "first");
    EXPECT_EQ(stage.program.Show().Loop().StageRunning, 1);
}

TEST_F(Opening, KeepsTheSixLastStagesNewestFirst) {
    const std::vector<std::string> names = {"1", "2", "3", "4", "5", "6", "7"};
    const auto path = [](const std::string& name) { return "/mugen/stages/n" + name + ".def"; };
    for (const std::string& name : names) {
        stage.files.Put(path(name), RunningStage::Stage(name));
        stage.user = InTurn({});
        stage.program.Form_OLEDragDrop(path(name));
    }
    EXPECT_THAT(stage.form.recentFiles,
                ElementsAre(path("7"), path("6"), path("5"), path("4"), path("3"), path("2")));
    EXPECT_TRUE(stage.form[Menu::MnuRecentFiles].visible);
    stage.user = InTurn({});
    stage.program.Form_OLEDragDrop(path("4"));
    EXPECT_THAT(stage.form.recentFiles,
                ElementsAre(path("4"), path("7"), path("6"), path("5"), path("3"), path("2")));
}

TEST_F(Opening, NextWithoutASelectionOpensTheFirst) {
    stage.user = InTurn({});
    stage.Click(Menu::mnuStageNext);
    EXPECT_EQ(stage.form.lstStages.ListIndex, 0);
    EXPECT_EQ(stage.Caption(), "first");
    EXPECT_EQ(stage.program.Show().Which.CurrentStageFile, kA);
}

TEST_F(Opening, NextAndPreviousWalkTheListAndStopAtItsEnds) {
    std::vector<Long> selected;
    const auto click = [&](Menu item) {
        return [&selected, item](RunningStage& running) {
            running.Click(item);
            selected.push_back(running.form.lstStages.ListIndex);
        };
    };
    WhileAIsShown({click(Menu::mnuStagePrev), click(Menu::mnuStageNext), click(Menu::mnuStageNext),
                   click(Menu::mnuStageNext), click(Menu::mnuStagePrev)});
    EXPECT_THAT(selected, ElementsAre(0, 1, 2, 2, 1));
    EXPECT_EQ(stage.Begun(), 4) << "a, b, c, b: each opened once";
    EXPECT_EQ(stage.Caption(), "second");
}

TEST_F(Opening, PreviousWithoutASelectionIsAnError) {
    stage.Click(Menu::mnuStagePrev);
    EXPECT_THAT(stage.MessageTexts(),
                ElementsAre("Run-time error: Invalid property value: ListIndex"));
    EXPECT_EQ(stage.form.lstStages.ListIndex, -1);
    EXPECT_EQ(stage.Begun(), 0);
}

TEST_F(Opening, AnErrorOfAHandlerLeavesTheShownStageAlone) {
    WhileAIsShown({[](RunningStage& running) {
                       running.form.lstStages.ListIndex = -1;
                       running.Click(Menu::mnuStagePrev);
                   },
                   Wait, Wait});
    EXPECT_THAT(stage.MessageTexts(),
                ElementsAre("Run-time error: Invalid property value: ListIndex"));
    EXPECT_EQ(stage.program.Show().Loop().TotalFrames, 4);
}

TEST_F(Opening, AnEmptyListHasNoNextAndErrorsOtherwise) {
    stage.form.lstStages.items.clear();
    stage.Click(Menu::mnuStageNext);
    EXPECT_THAT(stage.MessageTexts(), IsEmpty());
    stage.Click(Menu::mnuStagePrev);
    stage.Click(Menu::mnuR);
    EXPECT_THAT(stage.MessageTexts(),
                ElementsAre("Run-time error: Invalid property value: ListIndex",
                            "Run-time error: Invalid property value: ListIndex"));
    EXPECT_EQ(stage.Begun(), 0);
}

TEST_F(Opening, RandomReachesEveryStageAndNothingElse) {
    std::set<Long> reached;
    for (int i = 0; i < 100; ++i) {
        stage.clock.Advance();
        stage.user = InTurn({});
        stage.Click(Menu::mnuR);
        reached.insert(stage.form.lstStages.ListIndex);
        ASSERT_EQ(stage.program.Show().Which.CurrentStageFile,
                  "/mugen/stages/" +
                      stage.form.lstStages.items.at(
                          static_cast<std::size_t>(stage.form.lstStages.ListIndex)) +
                      ".def");
    }
    EXPECT_THAT(reached, ElementsAre(0, 1, 2));
    EXPECT_EQ(stage.Begun(), 100);
}

TEST_F(Opening, RandomWithOneStageOpensIt) {
    stage.form.lstStages.items = {"c"};
    stage.user = InTurn({});
    stage.Click(Menu::mnuR);
    EXPECT_EQ(stage.form.lstStages.ListIndex, 0);
    EXPECT_EQ(stage.Caption(), "third");
}

TEST_F(Opening, AClickOnTheSelectedItemOpensItAgain) {
    WhileAIsShown({Wait, [](RunningStage& running) { running.program.lstStages_Click(kItemA); }});
    EXPECT_EQ(stage.Begun(), 2);
}

TEST_F(Opening, AnItemThatTheListDoesNotHaveIsAnError) {
    stage.program.lstStages_Click(3);
    stage.program.lstStages_Click(-2);
    EXPECT_EQ(stage.MessageTexts().size(), 2U);
    stage.program.lstStages_Click(-1);  // nothing is selected any more
    EXPECT_EQ(stage.MessageTexts().size(), 2U);
    EXPECT_EQ(stage.Begun(), 0);
}

TEST_F(Opening, WhileAStageLoadsTheListSelectsAndOpensNothing) {
    WhileAIsShown({}, [](RunningStage& running) { running.program.lstStages_Click(kItemC); });
    EXPECT_EQ(stage.Caption(), "first");
    EXPECT_EQ(stage.program.Show().Which.CurrentStageFile, kA);
    EXPECT_EQ(stage.form.lstStages.ListIndex, kItemC);
    EXPECT_EQ(stage.Begun(), 1);
}

TEST_F(Opening, WhileAStageLoadsTheMenusOpenNothing) {
    stage.form.recentFiles = {kC};
    WhileAIsShown({}, [](RunningStage& running) {
        for (const Menu item :
             {Menu::mnuOpen, Menu::mnuReload, Menu::mnuClose, Menu::mnuExit, Menu::mnuStageNext,
              Menu::mnuStagePrev, Menu::mnuR, Menu::mnuAdditions}) {
            running.Click(item);
        }
        running.program.MnuRecentFiles_Click(1);
    });
    EXPECT_THAT(stage.dialogs.Asked(), IsEmpty());
    EXPECT_THAT(stage.MessageTexts(), IsEmpty());
    EXPECT_EQ(stage.Begun(), 1);
    EXPECT_EQ(stage.Caption(), "first");
    EXPECT_FALSE(stage.program.Ended());
    EXPECT_TRUE(stage.program.Show().Options().Additions);
}

TEST_F(Opening, AFileDroppedWhileAStageLoadsIsOpenedWhenThatIsDone) {
    bool dropped = false;
    std::vector<std::string> captions;
    WhileAIsShown({[&](RunningStage& running) { captions.push_back(running.Caption()); }},
                  [&](RunningStage& running) {
                      if (!std::exchange(dropped, true)) {
                          running.program.Form_OLEDragDrop(kC);
                      }
                  });
    EXPECT_THAT(captions, ElementsAre("third")) << "no picture of the first one is waited for";
    EXPECT_THAT(stage.form.recentFiles, ElementsAre(kC, kA));
    EXPECT_EQ(stage.Begun(), 2);
}

TEST_F(Opening, CloseOpensNothingThatWasDroppedBefore) {
    bool dropped = false;
    WhileAIsShown({[](RunningStage& running) { running.Click(Menu::mnuClose); }},
                  [&](RunningStage& running) {
                      if (!std::exchange(dropped, true)) {
                          running.program.Form_OLEDragDrop(kC);
                      }
                  });
    EXPECT_EQ(stage.Caption(), stage.program.AppTitle);
    EXPECT_EQ(stage.program.Show().Loop().StageRunning, 0);
}

TEST_F(Opening, OfSeveralDroppedFilesTheLastIsOpened) {
    int drops = 0;
    WhileAIsShown({}, [&](RunningStage& running) {
        if (drops < 2) {
            running.program.Form_OLEDragDrop(++drops == 1 ? kGone : kC);
        }
    });
    EXPECT_THAT(stage.MessageTexts(), IsEmpty());
    EXPECT_EQ(stage.Caption(), "third");
}

TEST_F(Opening, ADroppedFileThatIsNoStageLeavesTheLoadedOne) {
    bool dropped = false;
    WhileAIsShown({Wait}, [&](RunningStage& running) {
        if (!std::exchange(dropped, true)) {
            running.program.Form_OLEDragDrop(kGone);
        }
    });
    EXPECT_EQ(stage.MessageTexts().size(), 2U);
    EXPECT_EQ(stage.Caption(), "first");
    EXPECT_EQ(stage.program.Show().Loop().TotalFrames, 2);
}

TEST_F(Opening, ADropOntoTheWindowWithoutAStageOpensIt) {
    stage.user = InTurn({});
    stage.program.Form_OLEDragDrop(kC);
    EXPECT_EQ(stage.Caption(), "third");
    EXPECT_EQ(stage.form.lstStages.ListIndex, -1);
}

TEST_F(Opening, AChoiceThatIsNoStageLeavesTheOneThatWasAskedForBefore) {
    WhileAIsShown({[](RunningStage& running) {
        running.program.lstStages_Click(kItemC);
        running.program.Form_OLEDragDrop(kGone);
    }});
    EXPECT_THAT(stage.MessageTexts(),
                ElementsAre("Can't find file: \r\n/mugen/stages/gone.def", "Not a stage!"));
    EXPECT_EQ(stage.Caption(), "third");
    EXPECT_EQ(stage.program.Show().Loop().StageRunning, 1);
}

TEST_F(Opening, TheDialogBeginsInTheStagesFolder) {
    stage.dialogs.Answer(kC);
    stage.user = InTurn({});
    stage.Click(Menu::mnuOpen);
    EXPECT_THAT(stage.dialogs.Asked(),
                ElementsAre(DialogQuestion{DialogQuestion::Kind::OpenFile, "Choose your stage!",
                                           "/mugen/stages/"}));
    EXPECT_EQ(stage.Caption(), "third");
}

TEST_F(Opening, TheDialogBeginsAnywhereWhenThatFolderIsMissing) {
    stage.program.MugeDir = "/elsewhere/";
    stage.Click(Menu::mnuOpen);
    ASSERT_EQ(stage.dialogs.Asked().size(), 1U);
    EXPECT_EQ(stage.dialogs.Asked()[0].initialFolder, "");
}

TEST_F(Opening, ACancelledDialogChangesNothing) {
    WhileAIsShown({[](RunningStage& running) { running.Click(Menu::mnuOpen); }, Wait});
    EXPECT_EQ(stage.dialogs.Asked().size(), 1U);
    EXPECT_EQ(stage.program.Show().Which.CurrentStageFile, kA);
    EXPECT_EQ(stage.Begun(), 1);
    EXPECT_EQ(stage.program.Show().Loop().TotalFrames, 3);
    EXPECT_THAT(stage.MessageTexts(), IsEmpty());
}

TEST_F(Opening, WhatTheDialogGivesEndsBehindTheEnding) {
    stage.files.Put("/mugen/stages/x.def.d/Y.DEF", RunningStage::Stage("deep"));
    stage.dialogs.Answer("/mugen/stages/x.def.d/Y.DEF~1");
    stage.user = InTurn({});
    stage.Click(Menu::mnuOpen);
    EXPECT_EQ(stage.program.Show().Which.CurrentStageFile, "/mugen/stages/x.def.d/Y.DEF");
    EXPECT_EQ(stage.Caption(), "deep");
}

TEST_F(Opening, CloseReleasesTheStageAndGivesTheTitleBack) {
    WhileAIsShown({Wait, [](RunningStage& running) { running.Click(Menu::mnuClose); }});
    EXPECT_EQ(stage.Caption(), "Scenara 1.0 DirectX 8 Experiment");
    EXPECT_EQ(stage.program.Show().Loop().StageRunning, 0);
    EXPECT_EQ(stage.direct3D.Device(), nullptr);
    EXPECT_EQ(stage.program.Show().Model().ElementCount, 0);
    EXPECT_EQ(stage.turn, 5) << "three images, two acts, and the loop has ended";
    EXPECT_TRUE(stage.form.lstStages.takesKeys);
}

TEST_F(Opening, CloseWithoutAStageJustGivesTheTitle) {
    stage.Click(Menu::mnuClose);
    stage.Click(Menu::mnuClose);
    EXPECT_EQ(stage.Caption(), "Scenara 1.0 DirectX 8 Experiment");
    EXPECT_THAT(stage.MessageTexts(), IsEmpty());
    stage.user = InTurn({});
    stage.program.lstStages_Click(kItemA);
    EXPECT_EQ(stage.sink.shown, 1) << "a stage shows as ever";
}

TEST_F(Opening, CloseCancelsWhatWasAskedFor) {
    WhileAIsShown({[](RunningStage& running) {
        running.Click(Menu::mnuStageNext);
        running.Click(Menu::mnuClose);
    }});
    EXPECT_EQ(stage.Begun(), 1);
    EXPECT_EQ(stage.Caption(), stage.program.AppTitle);
}

TEST_F(Opening, NextBehindCloseOpensTheNext) {
    WhileAIsShown({[](RunningStage& running) {
                       running.Click(Menu::mnuClose);
                       running.Click(Menu::mnuStageNext);
                       running.Click(Menu::mnuStageNext);
                   },
                   Wait});
    EXPECT_EQ(stage.Begun(), 2);
    EXPECT_EQ(stage.Caption(), "third");
    EXPECT_EQ(stage.program.Show().Loop().TotalFrames, 2);
}

TEST_F(Opening, NextBehindAnEndedLoopOpensTheNext) {
    WhileAIsShown({[](RunningStage& running) { running.Click(Menu::mnuClose); }});
    stage.user = InTurn({});
    stage.Click(Menu::mnuStageNext);
    EXPECT_EQ(stage.Caption(), "second");
}

TEST_F(Opening, ReloadShowsTheFileAsItIsNow) {
    WhileAIsShown({[](RunningStage& running) {
                       running.files.Put(kA, RunningStage::Stage("mended"));
                       running.Click(Menu::mnuReload);
                   },
                   Wait});
    EXPECT_EQ(stage.Caption(), "mended");
    EXPECT_EQ(stage.Begun(), 2);
    EXPECT_EQ(stage.program.Show().Loop().TotalFrames, 2);
    EXPECT_THAT(stage.dialogs.Asked(), IsEmpty());
}

TEST_F(Opening, ReloadMeansTheShownStageNotTheOneThatWasRefused) {
    WhileAIsShown({[](RunningStage& running) { running.program.Form_OLEDragDrop(kGone); },
                   [](RunningStage& running) { running.Click(Menu::mnuReload); }, Wait});
    EXPECT_EQ(stage.Begun(), 2);
    EXPECT_EQ(stage.Caption(), "first");
    EXPECT_EQ(stage.program.Show().Which.CurrentStageFile, kA);
}

TEST_F(Opening, ReloadOfAFileThatIsGoneKeepsTheShownStage) {
    WhileAIsShown({[](RunningStage& running) {
                       running.files.Delete(kA);
                       running.Click(Menu::mnuReload);
                   },
                   Wait});
    EXPECT_THAT(stage.MessageTexts(),
                ElementsAre("Can't find file: \r\n/mugen/stages/a.def", "Not a stage!"));
    EXPECT_EQ(stage.program.Show().Loop().TotalFrames, 3);
}

TEST_F(Opening, ReloadWithoutAStageAsksForOne) {
    stage.dialogs.Answer(kC);
    stage.user = InTurn({});
    stage.Click(Menu::mnuReload);
    EXPECT_EQ(stage.dialogs.Asked().size(), 1U);
    EXPECT_EQ(stage.Caption(), "third");
}

TEST(PlainReload, ReleasesTheStageUnderTheLoopWhichGoesOn) {
    RunningStage stage({}, false);
    stage.Load();
    stage.user = InTurn({Wait,
                         [](RunningStage& running) {
                             running.Click(Menu::mnuReload);
                             EXPECT_EQ(running.program.QuitRequested, kFalse);
                         },
                         Wait, Wait});
    stage.program.lstStages_Click(kItemA);
    EXPECT_EQ(stage.turn, 3 + 4 + 1) << "the loop was not ended by it";
    EXPECT_EQ(stage.sink.shown, 2) << "the window keeps its last picture";
    EXPECT_EQ(stage.program.Show().Loop().StageRunning, 0);
    EXPECT_EQ(stage.Begun(), 1);
    EXPECT_THAT(stage.MessageTexts(), IsEmpty());
}

TEST(PlainReload, ASecondOneAsksForAStageAndShowsIt) {
    RunningStage stage({}, false);
    stage.Load();
    stage.dialogs.Answer(kC);
    const Act reload = [](RunningStage& running) { running.Click(Menu::mnuReload); };
    stage.user = InTurn({reload, reload, Wait});
    stage.program.lstStages_Click(kItemA);
    EXPECT_EQ(stage.dialogs.Asked().size(), 1U);
    EXPECT_EQ(stage.Caption(), "third");
    EXPECT_EQ(stage.program.Show().Loop().TotalFrames, 2);
    EXPECT_EQ(stage.deepest, 1);
}

TEST(Browsing, TenThousandStagesThroughNextUseNoMoreStackThanOne) {
    constexpr int kStages = 10'000;
    RunningStage stage;
    for (int i = 0; i < kStages; ++i) {
        stage.files.Put("/mugen/stages/s" + std::to_string(i) + ".def", "[Camera]\n");
    }
    stage.Load();
    ASSERT_EQ(stage.form.lstStages.items.size(), kStages + 3U);
    int inPump = 0;
    stage.user = [&](RunningStage& running, int) {
        if (running.program.Show().Loop().LoadingStage == 0) {
            ++inPump;
            const Long before = running.form.lstStages.ListIndex;
            running.Click(Menu::mnuStageNext);
            if (running.form.lstStages.ListIndex == before) {
                running.program.QuitRequested = kTrue;  // the last one
            }
        }
    };
    stage.Click(Menu::mnuStageNext);
    EXPECT_EQ(inPump, kStages + 3);
    EXPECT_EQ(stage.Begun(), kStages + 3);
    EXPECT_EQ(stage.deepest, 1) << "no pump inside of a pump";
    EXPECT_EQ(stage.form.lstStages.ListIndex, kStages + 2);
    EXPECT_EQ(stage.form.recentFiles.size(), 6U);
    EXPECT_EQ(stage.program.Show().Loop().StageRunning, 1);
}

}  // namespace
}  // namespace scenara::test
