// SPDX-License-Identifier: MIT
//
// The music of stages in the whole program: when it is named, begun, begun again and stopped.
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/RunningStage.h"

namespace scenara::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr Long kItemA = 0;
constexpr Long kItemC = 2;

constexpr const char* kRenderA = "RenderFile /mugen/sound/a.mid";
constexpr const char* kRenderB = "RenderFile /mugen/sound/b.mid";
constexpr const char* kRenderNothing = "RenderFile ";
constexpr const char* kToStart = "PutCurrentPosition 0";

using Calls = std::vector<std::string>;

Act Click(Menu item) {
    return [item](RunningStage& stage) { stage.Click(item); };
}

// One act after another.
std::vector<Act> operator+(std::vector<Act> first, const std::vector<Act>& then) {
    first.insert(first.end(), then.begin(), then.end());
    return first;
}

// Each turn is a frame, 60 to the second.
std::vector<Act> Frames(std::size_t count) {
    return {count, Wait};
}

// Stages a, with music of a second and a half; b, with other music; c, with none.
struct StageMusic : testing::Test {
    explicit StageMusic(bool additions = true) : stage({}, additions) {
        stage.Load();
        stage.files.Put("/mugen/stages/a.def", WithMusic("first", "a"));
        stage.files.Put("/mugen/stages/b.def", WithMusic("second", "b"));
        stage.media.AddFile("/mugen/sound/a.mid", {.duration = 1.5});
        stage.media.AddFile("/mugen/sound/b.mid", {.duration = 1.5});
    }

    static std::string WithMusic(const std::string& title, const std::string& tune) {
        return RunningStage::Stage(title) + "[Music]\nbgmusic = sound/" + tune + ".mid\n";
    }

    // Shows it, with that done by the user, and leaves the loop.
    void Show(Long item, std::vector<Act> acts, Act loading = {}) {
        stage.user = InTurn(std::move(acts), std::move(loading));
        stage.program.lstStages_Click(item);
    }

    Act Note(Calls& calls) {
        return [&calls](RunningStage& running) { calls = running.media.Calls(); };
    }

    RunningStage stage;
};

struct PlainStageMusic : StageMusic {
    PlainStageMusic() : StageMusic(false) {}
};

TEST_F(StageMusic, ThePlayerHasTheWindowsHandle) {
    EXPECT_EQ(stage.program.Music().Window(), static_cast<Long>(HeadlessWindow::kHandle));
}

// --- Begun ---------------------------------------------------------------------------------------

TEST_F(StageMusic, IsNamedByTheLoaderAndPlayedOnceTheStageIsReady) {
    Calls whileLoading;
    Show(kItemA, {Wait}, Note(whileLoading));
    EXPECT_THAT(whileLoading, ElementsAre(kRenderA));
    EXPECT_THAT(stage.media.Calls(), ElementsAre(kRenderA, "Run"));
    EXPECT_EQ(stage.program.Music().FileName(), "/mugen/sound/a.mid");
}

TEST_F(StageMusic, IsNamedAndNotPlayedWithMusicUnchecked) {
    stage.Click(Menu::mnuMusic);
    Show(kItemA, Frames(130));
    EXPECT_THAT(stage.media.Calls(), ElementsAre(kRenderA));
}

TEST(StageMusicOff, IsRememberedByTheSettings) {
    RunningStage stage;
    stage.files.Put("/program/QX.CFG", "MugeDir = /mugen/\r\nBGMusic = False\r\n");
    stage.Load();
    stage.files.Put("/mugen/stages/a.def", StageMusic::WithMusic("first", "a"));
    stage.media.AddFile("/mugen/sound/a.mid", {.duration = 1.5});
    stage.user = InTurn({Wait});
    stage.program.lstStages_Click(kItemA);
    EXPECT_THAT(stage.media.Calls(), ElementsAre(kRenderA));
}

TEST_F(StageMusic, AStageWithoutMusicPlaysNothing) {
    Show(kItemC, Frames(130));
    EXPECT_THAT(stage.media.Calls(), IsEmpty());
}

TEST_F(StageMusic, AMissingFileIsSilent) {
    stage.files.Put("/mugen/stages/a.def", WithMusic("first", "missing"));
    Show(kItemA, Frames(130));
    EXPECT_THAT(stage.media.Calls(),
                ElementsAre("RenderFile /mugen/sound/missing.mid", kToStart, "Run"));
    EXPECT_THAT(stage.MessageTexts(), IsEmpty());
}

// --- Begun again ---------------------------------------------------------------------------------

// It ends at 1.5 seconds and is looked at every second: at 1.75 it is silent, at 2.25 it plays.
TEST_F(StageMusic, BeginsAgainAtTheSecondBehindItsEnd) {
    Calls atItsEnd;
    const Act end = [&](RunningStage& running) {
        EXPECT_TRUE(running.program.Music().AtEnd());
        atItsEnd = running.media.Calls();
    };
    Show(kItemA, Frames(105) + std::vector<Act>{end} + Frames(30));
    EXPECT_THAT(atItsEnd, ElementsAre(kRenderA, "Run"));
    EXPECT_THAT(stage.media.Calls(), ElementsAre(kRenderA, "Run", kToStart, "Run"));
}

TEST_F(StageMusic, IsNotBegunAgainWhilePausedAndIsAfterwards) {
    Calls paused;
    Show(kItemA, Frames(10) + std::vector<Act>{Click(Menu::mnuPause)} + Frames(200) +
                     std::vector<Act>{Note(paused), Click(Menu::mnuPause)} + Frames(3));
    EXPECT_THAT(paused, ElementsAre(kRenderA, "Run"));
    EXPECT_THAT(stage.media.Calls(), ElementsAre(kRenderA, "Run", kToStart, "Run"));
}

TEST_F(PlainStageMusic, IsNotBegunAgainWithoutADevice) {
    const Act q = [](RunningStage& running) { running.program.Form_KeyDown(VirtualKey::Q); };
    Show(kItemA, Frames(10) + std::vector<Act>{q} + Frames(200));
    EXPECT_THAT(stage.media.Calls(), ElementsAre(kRenderA, "Run"));
}

TEST_F(StageMusic, IsNotBegunAgainInTheSpriteBrowserAndIsAfterwards) {
    Calls browsing;
    Show(kItemA, Frames(10) + std::vector<Act>{Click(Menu::mnuDebug)} + Frames(200) +
                     std::vector<Act>{Note(browsing), Click(Menu::mnuDebug)} + Frames(3));
    EXPECT_THAT(browsing, ElementsAre(kRenderA, "Run"));
    EXPECT_THAT(stage.media.Calls(), ElementsAre(kRenderA, "Run", kToStart, "Run"));
}

TEST_F(StageMusic, SwitchedOffAtItsVeryEndItStaysOff) {
    Show(kItemA, Frames(105) + std::vector<Act>{Click(Menu::mnuMusic)} + Frames(130));
    EXPECT_THAT(stage.media.Calls(), ElementsAre(kRenderA, "Run", "Stop"));
}

// --- Stopped -------------------------------------------------------------------------------------

TEST_F(StageMusic, IsStoppedByClose) {
    Show(kItemA, {Click(Menu::mnuClose)});
    EXPECT_THAT(stage.media.Calls(), ElementsAre(kRenderA, "Run", "Stop"));
}

TEST_F(StageMusic, IsStoppedByExit) {
    Show(kItemA, {Click(Menu::mnuExit)});
    ASSERT_TRUE(stage.program.Ended());
    EXPECT_THAT(stage.media.Calls(), ElementsAre(kRenderA, "Run", "Stop"));
}

TEST_F(StageMusic, IsStoppedByAStageThatCannotBeLoaded) {
    Show(kItemA, {Wait, [](RunningStage& running) { running.Open("/mugen/stages/gone.def"); }});
    ASSERT_EQ(stage.MessageTexts().size(), 1U);
    EXPECT_EQ(stage.program.Show().Loop().StageRunning, 0);
    EXPECT_EQ(stage.program.Music().State(), 0);
}

TEST_F(StageMusic, IsStoppedByAnErrorInAPass) {
    Show(kItemA, {Wait, [](RunningStage& running) { running.direct3D.Device()->Lose(); }});
    ASSERT_EQ(stage.MessageTexts().size(), 1U);
    EXPECT_EQ(stage.program.Music().State(), 0);
    EXPECT_THAT(stage.media.Calls(), ElementsAre(kRenderA, "Run", "Stop"));
}

TEST_F(StageMusic, ReloadBeginsItAnew) {
    Show(kItemA, {Wait, Click(Menu::mnuReload), Wait, Wait});
    EXPECT_THAT(stage.media.Calls(),
                ElementsAre(kRenderA, "Run", "Stop", "Stop", "Release", kRenderA, "Run"));
}

TEST_F(PlainStageMusic, IsStoppedByReloadUnderTheRunningLoop) {
    Show(kItemA, std::vector<Act>{Wait, Click(Menu::mnuReload)} + Frames(200));
    EXPECT_THAT(stage.media.Calls(), ElementsAre(kRenderA, "Run", "Stop"));
}

TEST_F(PlainStageMusic, AStageWithoutMusicStopsNothing) {
    Show(kItemA, {Wait, Click(Menu::mnuClose)});
    stage.media.ForgetCalls();
    Show(kItemC, {Wait, Click(Menu::mnuClose)});
    EXPECT_THAT(stage.media.Calls(), IsEmpty());
}

TEST_F(StageMusic, TheNextStagesMusicReplacesIt) {
    Show(kItemA, {Wait, Click(Menu::mnuStageNext), Wait, Wait});
    EXPECT_THAT(stage.media.Calls(),
                ElementsAre(kRenderA, "Run", "Stop", "Stop", "Release", kRenderB, "Run"));
    EXPECT_EQ(stage.media.GraphsAlive(), 1);
}

TEST_F(StageMusic, OneFileIsOpenHoweverManyStagesWereShown) {
    std::vector<Act> acts;
    for (int time = 0; time < 20; ++time) {
        acts = acts +
               std::vector<Act>{Click(Menu::mnuStageNext), Wait, Click(Menu::mnuStagePrev), Wait};
    }
    Show(kItemA, acts);
    EXPECT_EQ(stage.media.GraphsAlive(), 1);
    EXPECT_EQ(stage.program.Music().State(), 1);
}

// --- The menu item -------------------------------------------------------------------------------

TEST_F(StageMusic, UncheckingStopsItAndCheckingGoesOn) {
    Calls off;
    Show(kItemA, {Wait, Click(Menu::mnuMusic), Note(off), Click(Menu::mnuMusic)});
    EXPECT_THAT(off, ElementsAre(kRenderA, "Run", "Stop"));
    EXPECT_THAT(stage.media.Calls(), ElementsAre(kRenderA, "Run", "Stop", "Run"));
}

TEST_F(StageMusic, TheItemIsOffWhileAStageLoads) {
    int clicks = 0;
    Show(kItemA, {Wait}, [&clicks](RunningStage& running) {
        ++clicks;
        running.Click(Menu::mnuMusic);
        EXPECT_TRUE(running.form[Menu::mnuMusic].checked);
    });
    EXPECT_GT(clicks, 0);
    EXPECT_THAT(stage.media.Calls(), ElementsAre(kRenderA, "Run"));
}

TEST_F(PlainStageMusic, CheckingPlaysTheFileOfTheStageBefore) {
    Show(kItemA, {Wait, Click(Menu::mnuClose)});
    stage.media.ForgetCalls();
    Show(kItemC, {Wait, Click(Menu::mnuMusic), Click(Menu::mnuMusic), Click(Menu::mnuClose)});
    EXPECT_THAT(stage.media.Calls(), ElementsAre("Stop", "Run"));
}

TEST_F(StageMusic, NothingOfTheStageBeforeIsHeard) {
    Show(kItemA, {Wait, Click(Menu::mnuClose)});
    stage.media.ForgetCalls();
    Show(kItemC, {Wait, Click(Menu::mnuMusic), Click(Menu::mnuMusic), Wait});
    EXPECT_THAT(stage.media.Calls(), ElementsAre("Stop", "Release", kRenderNothing, "Stop"));
    EXPECT_EQ(stage.program.Music().State(), 0);
}

// Checked without a stage the last one's music plays; it ends with whatever is shown next.
TEST_F(StageMusic, WhatPlaysWithoutAStageIsStoppedByCloseToo) {
    Show(kItemA, {Wait, Click(Menu::mnuClose)});
    stage.Click(Menu::mnuMusic);
    stage.Click(Menu::mnuMusic);
    ASSERT_EQ(stage.program.Music().State(), 1);
    stage.Click(Menu::mnuClose);
    EXPECT_EQ(stage.program.Music().State(), 0);
}

}  // namespace
}  // namespace scenara::test
