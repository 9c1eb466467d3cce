// SPDX-License-Identifier: MIT
//
// The loop, with the order of its steps, on the virtual clock.
#include <limits>
#include <map>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/RunningStage.h"
#include "support/Rounds.h"

namespace scenara::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

// The archive's three images let messages through while they load: turns 1 to 3.
constexpr int kLoading = 3;
constexpr int kEveryFrame = std::numeric_limits<int>::max();
constexpr int kNoEnd = kEveryFrame - kLoading;

class RunStage : public NewProgram {
protected:
    explicit RunStage(bool additions = true) : NewProgram(additions) {}

    // So many frames of the stage, with acts at the end of some.
    void Run(int frames, std::map<int, Act> acts = {}) {
        user = [frames, acts = std::move(acts)](RunningStage& stage, int at) {
            for (const int frame : {at - kLoading, kEveryFrame}) {
                if (const auto act = acts.find(frame); act != acts.end()) {
                    act->second(stage);
                }
            }
            QuitAt(kLoading + frames)(stage, at);
        };
        turn = 0;
        program.RunStage();
    }
    // The texts of the information line in their order.
    Act NoteTexts() {
        return [this] {
            if (texts.empty() || texts.back() != show.InfoText()) {
                texts.push_back(show.InfoText());
            }
        };
    }
    // Whether the stage is paused at the end of each frame, after the act of that frame.
    std::vector<int> Paused(const std::map<int, Act>& acts) {
        std::vector<int> paused;
        std::map<int, Act> all;
        for (int frame = 1; frame <= 5; ++frame) {
            const auto act = acts.find(frame);
            all[frame] = All({act == acts.end() ? Act(Wait) : act->second,
                              [&] { paused.push_back(loop.Paused); }});
        }
        Run(5, all);
        return paused;
    }

    std::vector<std::string> texts;
};

class OfBoth : public RunStage, public testing::WithParamInterface<bool> {
protected:
    OfBoth() : RunStage(GetParam()) {}
};
INSTANTIATE_TEST_SUITE_P(PlainAndAdditions, OfBoth, testing::Bool());

class PlainRunStage : public RunStage {
protected:
    PlainRunStage() : RunStage(false) {}
};

TEST_F(RunStage, ShowsFramesUntilItIsToQuit) {
    Run(100);
    // Every frame but the last ends with a check for messages that finds the clock gone on.
    EXPECT_EQ(sink.shown, 100);
    EXPECT_EQ(loop.TotalFrames, 100);
    EXPECT_EQ(loop.StageRunning, 1) << "quitting releases nothing by itself";
    EXPECT_EQ(process.Yields(), 1) << "the rest of the machine is left to others";
    EXPECT_EQ(show.InfoText(), "") << "no line is made";
    EXPECT_EQ(Caption(), "first");
    EXPECT_EQ(form.Caption, "first");
    EXPECT_THAT(MessageTexts(), IsEmpty());
}

TEST_F(RunStage, CollapsesTheLoadingPictureAndSizesTheDrawing) {
    form.picLoad.width = 300;
    form.picLoad.height = 200;
    Run(1);
    EXPECT_EQ(form.picLoad.width, 1);
    EXPECT_EQ(form.picLoad.height, 1);
    EXPECT_FALSE(form.picLoad.visible);
    ExpectPicture(320, 240);
}

TEST_F(RunStage, ClosingShowsTheTitlePicture) {
    for (const bool additions : {true, false}) {
        form[Menu::mnuAdditions].checked = additions;
        show.Options().Additions = additions;
        Run(1);
        program.Menu_Click(Menu::mnuClose);
        EXPECT_EQ(form.picLoad.visible, additions);
    }
}

TEST_F(PlainRunStage, MakesRoomForTheListBesideThePicture) {
    program.ShowStageList = 255;
    form.lstStages.width = 130;
    Run(1);
    ExpectSize(450, 240);
    EXPECT_EQ(form.lstStages.left, 320);
    EXPECT_EQ(form.lstStages.height, 240);
}

TEST_F(RunStage, MenusThatOpenStagesAreOffWhileOneLoads) {
    std::vector<bool> stageMenu;
    Run(2,
        {{kEveryFrame, [&] {
              stageMenu.push_back(form[Menu::mnuStage].enabled && form[Menu::mnuOptions].enabled);
          }}});
    EXPECT_THAT(stageMenu, ElementsAre(false, false, false, true, true));
}

TEST_F(RunStage, AFrameLimitOfNothingChecksOncePerPass) {
    loop.FpsLimit = 0;
    Run(20);
    EXPECT_EQ(sink.shown, 20);
    EXPECT_EQ(window.DoEventsCount(), kLoading + 20U);
}

TEST_F(RunStage, NothingIsPumpedWhenNothingWaits) {
    loop.FpsLimit = 0;
    window.SetMessageWaiting(false);
    // Loading pumps without asking whether a message waits. After that nothing pumps.
    Run(0);
    EXPECT_EQ(turn, kLoading);
    program.API_doevents();
    EXPECT_EQ(turn, kLoading) << "nothing waits";
    window.SetMessageWaiting(true);
    program.API_doevents();
    EXPECT_EQ(turn, kLoading + 1);
}

TEST_F(RunStage, TheSecondsCountIsClampedToTheLimit) {
    Click(Menu::mnuInfo);
    Run(130, {{kEveryFrame, NoteTexts()}});
    // The first frame comes at 1050 ms; 61 frames later, and not before, more than a second is
    // over.
    EXPECT_THAT(texts, ElementsAre("", "Cam 0,0  1 FPS", "Cam 0,0  60 FPS"));
}

TEST_F(RunStage, WithoutALimitTheSecondsCountIsWhatItIs) {
    loop.FpsLimit = 0;
    Click(Menu::mnuInfo);
    Run(130, {{kEveryFrame, NoteTexts()}});
    EXPECT_THAT(texts, ElementsAre("", "Cam 0,0  1 FPS", "Cam 0,0  61 FPS"));
}

TEST_P(OfBoth, WhilePausedNothingIsCountedAndPlainlyThePictureIsShownAgain) {
    const int again = GetParam() ? 0 : 10;
    Run(20, {{5,
              [&] {
                  Click(Menu::mnuPause);
                  EXPECT_EQ(Caption(), "first <<PAUSED>>");
              }},
             {15, [&] {
                  EXPECT_EQ(loop.TotalFrames, 5);
                  EXPECT_EQ(sink.shown, 5 + again);
                  Click(Menu::mnuPause);
                  EXPECT_EQ(Caption(), "first");
              }}});
    EXPECT_EQ(loop.TotalFrames, 10);
    EXPECT_EQ(sink.shown, 10 + again);
}

TEST_P(OfBoth, WhilePausedTheInformationLineComesAndGoesOverTheSamePicture) {
    std::vector<std::vector<std::uint32_t>> pictures;
    const Act keep = [&] { pictures.push_back(sink.last); };
    const Act toggle = All({keep, Choose(Menu::mnuInfo)});
    Click(Menu::mnuInfo);
    user = InTurn({Choose(Menu::mnuPause), keep, Wait, Wait, toggle, toggle, keep});
    program.RunStage();
    ASSERT_EQ(pictures.size(), 4U);
    EXPECT_EQ(pictures[1], pictures[0]) << "the half tones do not add up";
    EXPECT_NE(pictures[2], pictures[0]) << "unchecking takes it away";
    EXPECT_EQ(pictures[3], pictures[0]) << "checking brings it back";
}

TEST_F(RunStage, TheInformationLineIsThereAsSoonAsItIsCheckedPausedOrNot) {
    Run(100, {{70, Choose(Menu::mnuPause)}, {75, Choose(Menu::mnuInfo)}, {80, NoteTexts()}});
    EXPECT_THAT(texts, ElementsAre("Cam 0,0  60 FPS"));
}

TEST_P(OfBoth, APauseCountsWithAdditionsForNoSecondOfTheFrames) {
    Click(Menu::mnuInfo);
    Run(300,
        {{70, Choose(Menu::mnuPause)}, {170, Choose(Menu::mnuPause)}, {kEveryFrame, NoteTexts()}});
    if (GetParam()) {
        EXPECT_THAT(texts, ElementsAre("", "Cam 0,0  1 FPS", "Cam 0,0  60 FPS"));
    } else {
        EXPECT_THAT(texts, ElementsAre("", "Cam 0,0  1 FPS", "Cam 0,0  60 FPS", "Cam 0,0  9 FPS",
                                       "Cam 0,0  60 FPS"));
    }
}

TEST_F(RunStage, InTheSpriteBrowserNothingIsDrawnShownOrAsked) {
    Run(20, {{5, [&] {
                  show.SpriteBrowserMode = 255;
                  keyboard.Press(VirtualKey::Pause);
              }}});
    EXPECT_EQ(loop.TotalFrames, 5);
    EXPECT_EQ(sink.shown, 5);
    EXPECT_EQ(loop.Paused, 0);
    EXPECT_EQ(turn, kLoading + 20) << "messages and pacing go on";
}

using PauseKey = RunStage;

TEST_F(PauseKey, ActsOncePerPressWithAdditions) {
    Run(13, {{2, Press(VirtualKey::Pause)},
             {8, All({[&] { EXPECT_EQ(loop.Paused, 255); }, Release(VirtualKey::Pause)})},
             {10, Press(VirtualKey::Pause)}});
    EXPECT_EQ(loop.Paused, 0);
}

TEST_F(PauseKey, TapsInSuccessivePassesCountEach) {
    const Act tap = Tap(VirtualKey::Pause);
    EXPECT_THAT(Paused({{1, tap}, {2, tap}, {3, tap}}), ElementsAre(0, 255, 0, 255, 255));
}

TEST_F(PlainRunStage, ThePauseKeyActsInEveryPass) {
    EXPECT_THAT(Paused({{1, Press(VirtualKey::Pause)}}), ElementsAre(0, 255, 0, 255, 0));
}

using Restart = RunStage;

TEST_F(Restart, AFileThatIsNotThereLeavesTheWindowWithoutAStage) {
    show.Which.CurrentStageFile = kGone;
    program.RunStage();
    EXPECT_EQ(loop.StageRunning, 0);
    EXPECT_EQ(loop.LoadingStage, 0);
    LetRest();
    EXPECT_EQ(MessageTexts().size(), 1U);
    EXPECT_EQ(sink.shown, 0);
    EXPECT_TRUE(form[Menu::mnuStage].enabled);
    EXPECT_EQ(direct3D.Device(), nullptr);

    user = QuitAt(kLoading + 3);
    Open(kStageA);
    EXPECT_EQ(sink.shown, 3) << "the next one shows";
}

TEST_F(Restart, WithoutADisplayNothingIsLoaded) {
    direct3D.FailAt(StartStep::Device);
    program.RunStage();
    EXPECT_EQ(loop.StageRunning, 0);
    LetRest();
    EXPECT_THAT(MessageTexts(), ElementsAre(StartsWith("The display could not be started.")));
    EXPECT_TRUE(form[Menu::mnuStage].enabled);
}

TEST_F(Restart, AnErrorInAPassIsSaidAndEndsTheStageOnly) {
    Run(kNoEnd, {{4, [&] { direct3D.Device()->Lose(); }}});
    EXPECT_THAT(MessageTexts(),
                ElementsAre(StartsWith("Run-time error: Direct3D error: BeginScene")));
    EXPECT_EQ(loop.StageRunning, 0);
    EXPECT_FALSE(program.Ended());

    turn = 0;
    user = QuitAt(kLoading + 3);
    Open(kStageA);
    EXPECT_EQ(loop.StageRunning, 1);
}

TEST_F(Restart, AStageReleasedUnderTheLoopLeavesTheLastPicture) {
    Run(10, {{4, [&] { program.UnloadStuff(); }}});
    EXPECT_EQ(sink.shown, 4) << "nothing is drawn, shown or counted without a device";
    EXPECT_EQ(loop.TotalFrames, 0);
    EXPECT_EQ(turn, kLoading + 10) << "messages go on";
    EXPECT_THAT(MessageTexts(), IsEmpty());
}

TEST_F(Restart, FromInsideOfThePumpBeginsTheLoopAnew) {
    Run(10, {{4, [&] {
                  Open(kStageB);
                  EXPECT_EQ(Caption(), "first") << "noted, and nothing more";
              }}});
    EXPECT_EQ(Caption(), "second");
    EXPECT_EQ(loop.TotalFrames, 6) << "counted anew";
    EXPECT_EQ(deepest, 1);
}

TEST_F(Restart, TheLastOfSeveralRequestsHolds) {
    Run(6, {{4, [&] {
                 Open(kGone);
                 Open(kStageB);
             }}});
    EXPECT_EQ(Caption(), "second");
    LetRest();
    EXPECT_THAT(MessageTexts(), Contains(StartsWith("SFF FILE")).Times(1));
}

TEST_F(Restart, ThousandsOfStagesUseNoMoreStackThanOne) {
    const int stages = Rounds(3000);
    int opened = 0;
    user = [&](RunningStage&, int) {
        if (loop.LoadingStage != 0) {
            return;
        }
        if (opened == stages) {
            program.QuitRequested = kTrue;
        } else {
            ++opened;
            Open(kStageB);
        }
    };
    loop.FpsLimit = 0;
    program.RunStage();
    EXPECT_EQ(opened, stages);
    EXPECT_EQ(deepest, 1) << "no pump inside of a pump";
}

using Ending = RunStage;

TEST_F(Ending, InTheLoopReleasesTheStage) {
    Run(kNoEnd, {{4, Choose(Menu::mnuExit)}});
    EXPECT_TRUE(program.Ended());
    EXPECT_EQ(direct3D.Device(), nullptr);
    EXPECT_TRUE(model.Sprites.empty());
}

TEST_F(Ending, WhileAStageLoadsEndsBehindTheImage) {
    Run(1, {{1 - kLoading, [&] {
                 program.Form_Unload();
                 EXPECT_FALSE(program.Ended()) << "the load still works on the tables";
                 EXPECT_EQ(model.Sprites.size(), 1U);
             }}});
    EXPECT_TRUE(program.Ended());
    EXPECT_EQ(turn, 1);
    EXPECT_EQ(sink.shown, 0);
}

TEST_F(Ending, CancelsARequestToOpen) {
    Run(kNoEnd, {{4, [&] {
                      Open(kStageB);
                      program.Form_Unload();
                  }}});
    EXPECT_TRUE(program.Ended());
    EXPECT_THAT(window.Captions(), testing::Not(Contains("second")));
}

// Frames of the headless clock until its ticks begin anew, and a little less.
constexpr std::uint32_t kFramesOf24Days = 128'848'900;

TEST_P(OfBoth, TheStageGoesOnWhereTheTicksBeginAnew) {
    Click(Menu::mnuInfo);
    Run(200, {{10, [&] { clock.Advance(kFramesOf24Days); }}, {kEveryFrame, NoteTexts()}});
    EXPECT_EQ(sink.shown, 200);
    EXPECT_LT(clock.GetTickCount(), 0);
    EXPECT_THAT(texts, ElementsAre("", "Cam 0,0  1 FPS", "Cam 0,0  10 FPS", "Cam 0,0  60 FPS"))
        << "once a second, before and after";
    EXPECT_THAT(MessageTexts(), IsEmpty());
}

TEST_F(RunStage, ACounterThatOverflowsIsAnErrorOfThePass) {
    show.Which.CurrentStageFile = kStageB;
    loop.FpsLimit = 0;
    window.SetMessageWaiting(false);  // the clock stands still, so no second is ever over
    program.RunStage();
    EXPECT_THAT(MessageTexts(), Contains(StartsWith("Run-time error: Overflow")));
    EXPECT_EQ(sink.shown, 32768) << "the first one begins the second";
}

TEST_F(RunStage, UnloadStuffReleasesEverythingAndCountsFromNothing) {
    Run(5);
    program.UnloadStuff();
    EXPECT_EQ(loop.StageRunning, 0);
    EXPECT_EQ(loop.TotalFrames, 0);
    EXPECT_EQ(model.ElementCount, 0);
    EXPECT_TRUE(model.Sprites.empty());
    EXPECT_EQ(direct3D.Device(), nullptr);
    program.UnloadStuff();  // nothing is left to release
}

using LimitFrames = RunStage;

TEST_F(LimitFrames, PumpsInEveryPassWithoutALook) {
    window.SetMessageWaiting(false);
    program.Form_Load();
    program.LimitFrames(60);  // the first does not wait
    EXPECT_EQ(window.DoEventsCount(), 1U);
    program.LimitFrames(20);  // three frames of the clock
    EXPECT_EQ(window.DoEventsCount(), 4U);
}

}  // namespace
}  // namespace scenara::test
