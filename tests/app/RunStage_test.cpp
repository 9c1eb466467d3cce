// SPDX-License-Identifier: MIT
//
// The loop, with the order of its steps, on the virtual clock.
#include <algorithm>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/RunningStage.h"

namespace scenara::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

// The archive's three images let messages through while they load: turns 1 to 3.
constexpr int kLoading = 3;

TEST(RunStage, ShowsFramesUntilItIsToQuit) {
    RunningStage stage(QuitAt(kLoading + 10));
    stage.program.RunStage();
    // Every frame but the last ends with a check for messages that finds the clock gone on.
    EXPECT_EQ(stage.sink.shown, 10);
    EXPECT_EQ(stage.program.Show().Loop().TotalFrames, 10);
    EXPECT_EQ(stage.program.Show().Loop().StageRunning, 1) << "quitting releases nothing by itself";
    EXPECT_THAT(stage.MessageTexts(), IsEmpty());
}

TEST(RunStage, CollapsesTheLoadingPictureAndSizesTheDrawing) {
    RunningStage stage(QuitAt(kLoading + 1));
    stage.form.picLoad.width = 300;
    stage.form.picLoad.height = 200;
    stage.program.RunStage();
    EXPECT_EQ(stage.form.picLoad.width, 1);
    EXPECT_EQ(stage.form.picLoad.height, 1);
    EXPECT_FALSE(stage.form.picLoad.visible);
    EXPECT_EQ(stage.form.picDraw.width, 320);
    EXPECT_EQ(stage.form.picDraw.height, 240);
}

TEST(RunStage, MakesRoomForTheListBesideThePicture) {
    RunningStage stage(QuitAt(kLoading + 1));
    stage.program.ShowStageList = 255;
    stage.form.lstStages.width = 130;
    stage.program.RunStage();
    EXPECT_EQ(stage.window.Place().width, 450 * 15);
    EXPECT_EQ(stage.window.Place().height, 240 * 15);
    EXPECT_EQ(stage.form.lstStages.left, 320);
    EXPECT_EQ(stage.form.lstStages.height, 240);
}

TEST(RunStage, TheCaptionIsTheStagesTitle) {
    RunningStage stage(QuitAt(kLoading + 1));
    stage.program.RunStage();
    EXPECT_EQ(stage.Caption(), "first");
    EXPECT_EQ(stage.form.Caption, "first");
}

TEST(RunStage, MenusThatOpenStagesAreOffWhileOneLoads) {
    std::vector<bool> stageMenu;
    RunningStage stage([&](RunningStage& running, int turn) {
        stageMenu.push_back(running.form[Menu::mnuStage].enabled &&
                            running.form[Menu::mnuOptions].enabled);
        QuitAt(kLoading + 2)(running, turn);
    });
    stage.program.RunStage();
    EXPECT_THAT(stageMenu, ElementsAre(false, false, false, true, true));
}

TEST(RunStage, LeavesTheRestOfTheMachineToOthers) {
    RunningStage stage(QuitAt(kLoading + 5));
    stage.program.RunStage();
    EXPECT_EQ(stage.process.Yields(), 1);
}

TEST(RunStage, AFrameLimitOfNothingChecksOncePerPass) {
    RunningStage stage(QuitAt(kLoading + 20));
    stage.program.Show().Loop().FpsLimit = 0;
    stage.program.RunStage();
    EXPECT_EQ(stage.sink.shown, 20);
    EXPECT_EQ(stage.window.DoEventsCount(), kLoading + 20U);
}

TEST(RunStage, NothingIsPumpedWhenNothingWaits) {
    int turns = 0;
    RunningStage stage([&](RunningStage& running, int) {
        ++turns;
        running.window.SetMessageWaiting(false);
    });
    stage.program.Show().Loop().FpsLimit = 0;
    stage.window.SetMessageWaiting(false);
    // Loading lets messages through without a look; then nobody does. The device ends the loop.
    stage.user = [&](RunningStage& running, int turn) {
        ++turns;
        if (turn == kLoading) {
            running.program.QuitRequested = kTrue;
        }
    };
    stage.program.RunStage();
    EXPECT_EQ(turns, kLoading);
    stage.program.API_doevents();
    EXPECT_EQ(turns, kLoading) << "nothing waits";
    stage.window.SetMessageWaiting(true);
    stage.program.API_doevents();
    EXPECT_EQ(turns, kLoading + 1);
}

TEST(RunStage, TheSecondsCountIsClampedToTheLimit) {
    std::vector<std::string> texts;
    const auto user = [&](RunningStage& running, int turn) {
        if (texts.empty() || texts.back() != running.program.Show().InfoText()) {
            texts.push_back(running.program.Show().InfoText());
        }
        QuitAt(kLoading + 130)(running, turn);
    };
    RunningStage stage(user);
    stage.program.Menu_Click(Menu::mnuInfo);
    stage.program.RunStage();
    // The first frame comes at 1050 ms; 61 frames later, and not before, more than a second is
    // over.
    EXPECT_THAT(texts, ElementsAre("", "Cam 0,0  1 FPS", "Cam 0,0  60 FPS"));

    texts.clear();
    RunningStage unlimited(user);
    unlimited.program.Show().Loop().FpsLimit = 0;
    unlimited.program.Menu_Click(Menu::mnuInfo);
    unlimited.program.RunStage();
    EXPECT_THAT(texts, ElementsAre("", "Cam 0,0  1 FPS", "Cam 0,0  61 FPS"));
}

TEST(RunStage, WithoutInfoNoLineIsMade) {
    RunningStage stage(QuitAt(kLoading + 100));
    stage.program.RunStage();
    EXPECT_EQ(stage.program.Show().InfoText(), "");
}

TEST(RunStage, WhilePausedThePictureIsShownAgainAndNothingIsCounted) {
    RunningStage stage([](RunningStage& running, int turn) {
        if (turn == kLoading + 5) {
            running.program.Menu_Click(Menu::mnuPause);
            EXPECT_EQ(running.Caption(), "first <<PAUSED>>");
        }
        if (turn == kLoading + 15) {
            EXPECT_EQ(running.program.Show().Loop().TotalFrames, 5);
            EXPECT_EQ(running.sink.shown, 15);
            running.program.Menu_Click(Menu::mnuPause);
            EXPECT_EQ(running.Caption(), "first");
        }
        QuitAt(kLoading + 20)(running, turn);
    });
    stage.program.RunStage();
    EXPECT_EQ(stage.program.Show().Loop().TotalFrames, 10);
    EXPECT_EQ(stage.sink.shown, 20);
}

TEST(RunStage, WhilePausedTheInformationLineComesAndGoesOverTheSamePicture) {
    for (const bool additions : {false, true}) {
        std::vector<std::vector<std::uint32_t>> pictures;
        const auto keep = [&](RunningStage& running) { pictures.push_back(running.sink.last); };
        const auto toggle = [&](RunningStage& running) {
            keep(running);
            running.Click(Menu::mnuInfo);
        };
        RunningStage stage(InTurn({[](RunningStage& running) { running.Click(Menu::mnuPause); },
                                   keep, Wait, Wait, toggle, toggle, keep}),
                           additions);
        stage.Click(Menu::mnuInfo);
        stage.program.RunStage();
        ASSERT_EQ(pictures.size(), 4U);
        EXPECT_EQ(pictures[1], pictures[0]) << "the half tones do not add up";
        EXPECT_NE(pictures[2], pictures[0]) << "unchecking takes it away";
        EXPECT_EQ(pictures[3], pictures[0]) << "checking brings it back";
    }
}

TEST(RunStage, InTheSpriteBrowserNothingIsDrawnShownOrAsked) {
    RunningStage stage([](RunningStage& running, int turn) {
        if (turn == kLoading + 5) {
            running.program.Show().SpriteBrowserMode = 255;
            running.keyboard.Press(VirtualKey::Pause);
        }
        QuitAt(kLoading + 20)(running, turn);
    });
    stage.program.RunStage();
    EXPECT_EQ(stage.program.Show().Loop().TotalFrames, 5);
    EXPECT_EQ(stage.sink.shown, 5);
    EXPECT_EQ(stage.program.Show().Loop().Paused, 0);
    EXPECT_EQ(stage.turn, kLoading + 20) << "messages and pacing go on";
}

TEST(PauseKey, ActsOncePerPressWithAdditions) {
    RunningStage stage([](RunningStage& running, int turn) {
        if (turn == kLoading + 2) {
            running.keyboard.Press(VirtualKey::Pause);
        }
        if (turn == kLoading + 8) {
            EXPECT_EQ(running.program.Show().Loop().Paused, 255);
            running.keyboard.Release(VirtualKey::Pause);
        }
        if (turn == kLoading + 10) {
            running.keyboard.Press(VirtualKey::Pause);
        }
        QuitAt(kLoading + 13)(running, turn);
    });
    stage.program.RunStage();
    EXPECT_EQ(stage.program.Show().Loop().Paused, 0);
}

TEST(PauseKey, TapsInSuccessivePassesCountEach) {
    std::vector<int> paused;
    RunningStage stage([&](RunningStage& running, int turn) {
        if (turn > kLoading && turn <= kLoading + 3) {
            running.keyboard.Tap(VirtualKey::Pause);
        }
        paused.push_back(running.program.Show().Loop().Paused);
        QuitAt(kLoading + 5)(running, turn);
    });
    stage.program.RunStage();
    EXPECT_THAT(std::vector(paused.end() - 5, paused.end()), ElementsAre(0, 255, 0, 255, 255));
}

TEST(PauseKey, ActsInEveryPassWithoutAdditions) {
    std::vector<int> paused;
    RunningStage stage(
        [&](RunningStage& running, int turn) {
            if (turn == kLoading + 1) {
                running.keyboard.Press(VirtualKey::Pause);
            }
            paused.push_back(running.program.Show().Loop().Paused);
            QuitAt(kLoading + 5)(running, turn);
        },
        false);
    stage.program.RunStage();
    EXPECT_THAT(std::vector(paused.end() - 5, paused.end()), ElementsAre(0, 255, 0, 255, 0));
}

TEST(Restart, AFileThatIsNotThereLeavesTheWindowWithoutAStage) {
    RunningStage stage;
    stage.program.Show().Which.CurrentStageFile = "/mugen/stages/gone.def";
    stage.program.RunStage();
    EXPECT_EQ(stage.program.Show().Loop().StageRunning, 0);
    EXPECT_EQ(stage.program.Show().Loop().LoadingStage, 0);
    EXPECT_EQ(stage.MessageTexts().size(), 1U);
    EXPECT_EQ(stage.sink.shown, 0);
    EXPECT_TRUE(stage.form[Menu::mnuStage].enabled);
    EXPECT_EQ(stage.direct3D.Device(), nullptr);

    stage.user = QuitAt(kLoading + 3);
    stage.Open("/mugen/stages/a.def");
    EXPECT_EQ(stage.sink.shown, 3) << "the next one shows";
}

TEST(Restart, WithoutADisplayNothingIsLoaded) {
    RunningStage stage;
    stage.direct3D.FailAt(StartStep::Device);
    stage.program.RunStage();
    EXPECT_EQ(stage.program.Show().Loop().StageRunning, 0);
    EXPECT_THAT(stage.MessageTexts(), ElementsAre(StartsWith("The display could not be started.")));
    EXPECT_TRUE(stage.form[Menu::mnuStage].enabled);
}

TEST(Restart, AnErrorInAPassIsSaidAndEndsTheStageOnly) {
    RunningStage stage([](RunningStage& running, int turn) {
        if (turn == kLoading + 4) {
            running.direct3D.Device()->Lose();
        }
    });
    stage.program.RunStage();
    EXPECT_THAT(stage.MessageTexts(),
                ElementsAre(StartsWith("Run-time error: Direct3D error: BeginScene")));
    EXPECT_EQ(stage.program.Show().Loop().StageRunning, 0);
    EXPECT_FALSE(stage.program.Ended());

    stage.turn = 0;
    stage.user = QuitAt(kLoading + 3);
    stage.Open("/mugen/stages/a.def");
    EXPECT_EQ(stage.program.Show().Loop().StageRunning, 1);
}

TEST(Restart, AStageReleasedUnderTheLoopLeavesTheLastPicture) {
    RunningStage stage([](RunningStage& running, int turn) {
        if (turn == kLoading + 4) {
            running.program.UnloadStuff();
        }
        QuitAt(kLoading + 10)(running, turn);
    });
    stage.program.RunStage();
    EXPECT_EQ(stage.sink.shown, 4) << "nothing is drawn, shown or counted without a device";
    EXPECT_EQ(stage.program.Show().Loop().TotalFrames, 0);
    EXPECT_EQ(stage.turn, kLoading + 10) << "messages go on";
    EXPECT_THAT(stage.MessageTexts(), IsEmpty());
}

TEST(Restart, FromInsideOfThePumpBeginsTheLoopAnew) {
    RunningStage stage([](RunningStage& running, int turn) {
        if (turn == kLoading + 4) {
            running.Open("/mugen/stages/b.def");
            EXPECT_EQ(running.Caption(), "first") << "noted, and nothing more";
        }
        QuitAt(kLoading + 10)(running, turn);
    });
    stage.program.RunStage();
    EXPECT_EQ(stage.Caption(), "second");
    EXPECT_EQ(stage.program.Show().Loop().TotalFrames, 6) << "counted anew";
    EXPECT_EQ(stage.deepest, 1);
}

TEST(Restart, TheLastOfSeveralRequestsHolds) {
    RunningStage stage([](RunningStage& running, int turn) {
        if (turn == kLoading + 4) {
            running.Open("/mugen/stages/gone.def");
            running.Open("/mugen/stages/b.def");
        }
        QuitAt(kLoading + 6)(running, turn);
    });
    stage.program.RunStage();
    EXPECT_EQ(stage.Caption(), "second");
    EXPECT_THAT(stage.MessageTexts(), Contains(StartsWith("SFF FILE")).Times(1));
}

TEST(Restart, TenThousandStagesUseNoMoreStackThanOne) {
    int opened = 0;
    RunningStage stage;
    stage.user = [&](RunningStage& running, int) {
        if (running.program.Show().Loop().LoadingStage != 0) {
            return;
        }
        if (opened == 10'000) {
            running.program.QuitRequested = kTrue;
        } else {
            ++opened;
            running.Open("/mugen/stages/b.def");
        }
    };
    stage.program.Show().Loop().FpsLimit = 0;
    stage.program.RunStage();
    EXPECT_EQ(opened, 10'000);
    EXPECT_EQ(stage.deepest, 1) << "no pump inside of a pump";
}

TEST(Ending, InTheLoopReleasesTheStage) {
    RunningStage stage([](RunningStage& running, int turn) {
        if (turn == kLoading + 4) {
            running.program.Menu_Click(Menu::mnuExit);
        }
    });
    stage.program.RunStage();
    EXPECT_TRUE(stage.program.Ended());
    EXPECT_EQ(stage.direct3D.Device(), nullptr);
    EXPECT_TRUE(stage.program.Show().Model().Sprites.empty());
}

TEST(Ending, WhileAStageLoadsEndsBehindTheImage) {
    RunningStage stage([](RunningStage& running, int turn) {
        if (turn == 1) {
            running.program.Form_Unload();
            EXPECT_FALSE(running.program.Ended()) << "the load still works on the tables";
            EXPECT_EQ(running.program.Show().Model().Sprites.size(), 1U);
        }
    });
    stage.program.RunStage();
    EXPECT_TRUE(stage.program.Ended());
    EXPECT_EQ(stage.turn, 1);
    EXPECT_EQ(stage.sink.shown, 0);
}

TEST(Ending, CancelsARequestToOpen) {
    RunningStage stage([](RunningStage& running, int turn) {
        if (turn == kLoading + 4) {
            running.Open("/mugen/stages/b.def");
            running.program.Form_Unload();
        }
    });
    stage.program.RunStage();
    EXPECT_TRUE(stage.program.Ended());
    EXPECT_THAT(stage.window.Captions(), testing::Not(Contains("second")));
}

// Frames of the headless clock until its ticks begin anew, and a little less.
constexpr std::uint32_t kFramesOf24Days = 128'848'900;

TEST(Counters, TheStageGoesOnWhereTheTicksBeginAnew) {
    for (const bool additions : {true, false}) {
        std::vector<std::string> texts;
        RunningStage stage(
            [&](RunningStage& running, int turn) {
                if (turn == kLoading + 10) {
                    running.clock.Advance(kFramesOf24Days);
                }
                if (texts.empty() || texts.back() != running.program.Show().InfoText()) {
                    texts.push_back(running.program.Show().InfoText());
                }
                QuitAt(kLoading + 200)(running, turn);
            },
            additions);
        stage.program.Menu_Click(Menu::mnuInfo);
        stage.program.RunStage();
        EXPECT_EQ(stage.sink.shown, 200);
        EXPECT_LT(stage.clock.GetTickCount(), 0);
        EXPECT_THAT(texts, ElementsAre("", "Cam 0,0  1 FPS", "Cam 0,0  10 FPS", "Cam 0,0  60 FPS"))
            << "once a second, before and after";
        EXPECT_THAT(stage.MessageTexts(), testing::IsEmpty());
    }
}

TEST(Counters, AnOverflowIsAnErrorOfThePass) {
    RunningStage stage;
    stage.program.Show().Which.CurrentStageFile = "/mugen/stages/b.def";
    stage.program.Show().Loop().FpsLimit = 0;
    stage.window.SetMessageWaiting(false);  // the clock stands still, so no second is ever over
    stage.program.RunStage();
    EXPECT_THAT(stage.MessageTexts(), Contains(StartsWith("Run-time error: Overflow")));
    EXPECT_EQ(stage.sink.shown, 32768) << "the first one begins the second";
}

TEST(UnloadStuff, ReleasesEverythingAndCountsFromNothing) {
    RunningStage stage(QuitAt(kLoading + 5));
    stage.program.RunStage();
    stage.program.UnloadStuff();
    EXPECT_EQ(stage.program.Show().Loop().StageRunning, 0);
    EXPECT_EQ(stage.program.Show().Loop().TotalFrames, 0);
    EXPECT_EQ(stage.program.Show().Model().ElementCount, 0);
    EXPECT_TRUE(stage.program.Show().Model().Sprites.empty());
    EXPECT_EQ(stage.direct3D.Device(), nullptr);
    stage.program.UnloadStuff();  // nothing is left to release
}

TEST(LimitFrames, PumpsInEveryPassWithoutALook) {
    RunningStage stage;
    stage.window.SetMessageWaiting(false);
    stage.program.Form_Load();
    stage.program.LimitFrames(60);  // the first does not wait
    EXPECT_EQ(stage.window.DoEventsCount(), 1U);
    stage.program.LimitFrames(20);  // three frames of the clock
    EXPECT_EQ(stage.window.DoEventsCount(), 4U);
}

}  // namespace
}  // namespace scenara::test
