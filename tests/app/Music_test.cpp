// SPDX-License-Identifier: MIT
//
// The music of stages in the whole program: when it is named, begun, begun again and stopped.
#include <ostream>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/RunningStage.h"

namespace scenara::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kRenderA = "RenderFile /mugen/sound/a.mid";
constexpr const char* kRenderB = "RenderFile /mugen/sound/b.mid";
constexpr const char* kRenderNothing = "RenderFile ";
constexpr const char* kAsRecorded = "PutGain 1";
constexpr const char* kWholeFile = "PutLoop 0 -1";
constexpr const char* kToStart = "PutCurrentPosition 0";

using Calls = std::vector<std::string>;

// Each turn is a frame, 60 to the second.
std::vector<Act> Frames(std::size_t count) {
    return Times(count, Wait);
}

// Stages a, with music of a second and a half; b, with other music; c, with none.
class StageMusic : public Program {
protected:
    explicit StageMusic(bool additions = true) : Program(additions) {
        files.Put(kStageA, WithMusic("first", "a"));
        files.Put(kStageB, WithMusic("second", "b"));
        media.AddFile("/mugen/sound/a.mid", {.duration = 1.5});
        media.AddFile("/mugen/sound/b.mid", {.duration = 1.5});
    }

    static std::string WithMusic(const std::string& title, const std::string& tune) {
        return Stage(title) + "[Music]\nbgmusic = sound/" + tune + ".mid\n";
    }

    void WhileCIsShown(std::vector<Act> acts) {
        user = InTurn(std::move(acts));
        program.lstStages_Click(kItemC);
    }

    void ShowAAndClose() {
        WhileAIsShown({Wait, Choose(Menu::mnuClose)});
        media.ForgetCalls();
    }

    Act Note(Calls& calls) {
        return [this, &calls] { calls = media.Calls(); };
    }
};

class PlainStageMusic : public StageMusic {
protected:
    PlainStageMusic() : StageMusic(false) {}
};

TEST_F(StageMusic, ThePlayerHasTheWindowsHandle) {
    EXPECT_EQ(program.Music().Window(), static_cast<Long>(HeadlessWindow::kHandle));
}

// --- Begun ---------------------------------------------------------------------------------------

TEST_F(StageMusic, IsOpenedAndPlayedOnceTheStageHasBeenLookedAt) {
    Calls whileLoading;
    WhileAIsShown({Wait}, Note(whileLoading));
    EXPECT_THAT(whileLoading, testing::IsEmpty());
    EXPECT_THAT(media.Calls(), ElementsAre(kRenderA, kAsRecorded, kWholeFile, "Run"));
    EXPECT_EQ(program.Music().FileName(), "/mugen/sound/a.mid");
}

TEST_F(StageMusic, IsNamedAndNotPlayedWithMusicUnchecked) {
    Click(Menu::mnuMusic);
    WhileAIsShown(Frames(130));
    EXPECT_THAT(media.Calls(), ElementsAre(kRenderA, kAsRecorded, kWholeFile));
}

TEST_F(StageMusic, ThatIsOffIsRememberedByTheSettings) {
    files.Put(kConfiguration, "MugeDir = /mugen/\r\nBGMusic = False\r\n");
    program.Form_Load();
    WhileAIsShown({Wait});
    EXPECT_THAT(media.Calls(), ElementsAre(kRenderA, kAsRecorded, kWholeFile));
}

TEST_F(StageMusic, AStageWithoutMusicPlaysNothing) {
    WhileCIsShown(Frames(130));
    EXPECT_THAT(media.Calls(), IsEmpty());
}

TEST_F(StageMusic, AMissingFileIsSilent) {
    files.Put(kStageA, WithMusic("first", "missing"));
    WhileAIsShown(Frames(130));
    EXPECT_THAT(media.Calls(), ElementsAre("RenderFile /mugen/sound/missing.mid", kAsRecorded,
                                           kWholeFile, kToStart, "Run"));
    EXPECT_THAT(MessageTexts(), IsEmpty());
}

// --- Begun again ---------------------------------------------------------------------------------

// It ends at 1.5 seconds, which is frame 90, and begins again in the frame after.
TEST_F(StageMusic, ThatCannotBePlayedOverAndOverBeginsAgainInTheFrameAfterItsEnd) {
    Calls before;
    WhileAIsShown(Frames(88) + Then(Note(before)) + Frames(4));
    EXPECT_THAT(before, ElementsAre(kRenderA, kAsRecorded, kWholeFile, "Run"));
    EXPECT_THAT(media.Calls(),
                ElementsAre(kRenderA, kAsRecorded, kWholeFile, "Run", kToStart, "Run"));
}

// It is looked at every second: at 1.75 it is silent, at 2.25 it plays.
TEST_F(PlainStageMusic, BeginsAgainAtTheSecondAfterItsEnd) {
    Calls atItsEnd;
    const Act end = [&] {
        EXPECT_TRUE(program.Music().AtEnd());
        atItsEnd = media.Calls();
    };
    WhileAIsShown(Frames(105) + Then(end) + Frames(30));
    EXPECT_THAT(atItsEnd, ElementsAre(kRenderA, "Run"));
    EXPECT_THAT(media.Calls(), ElementsAre(kRenderA, "Run", kToStart, "Run"));
}

struct TuneRow {
    const char* name;
    const char* settings;
    const char* gain;
    const char* loop;
};

void PrintTo(const TuneRow& row, std::ostream* out) {
    *out << row.name;
}

class StageMusicTuned : public StageMusic, public testing::WithParamInterface<TuneRow> {};

TEST_P(StageMusicTuned, AsItsStageWantsIt) {
    files.Put(kStageA, WithMusic("first", "a") + GetParam().settings);
    WhileAIsShown({Wait});
    EXPECT_THAT(media.Calls(), ElementsAre(kRenderA, GetParam().gain, GetParam().loop, "Run"));
}

INSTANTIATE_TEST_SUITE_P(
    By, StageMusicTuned,
    testing::Values(TuneRow{"LoopPoints", "bgmloopstart = 1000\nbgmloopend = 90000\n", "PutGain 1",
                            "PutLoop 1000 90000"},
                    TuneRow{"Volume", "bgmvolume = 50\n", "PutGain 0.5", "PutLoop 0 -1"},
                    TuneRow{"VolumeOfAnOlderStage", "bgvolume = -255\n", "PutGain 0",
                            "PutLoop 0 -1"},
                    TuneRow{"OnlyThePercentFromVersion1On",
                            "bgmvolume = 150\nbgvolume = -255\n[Info]\nmugenversion = 1.0\n",
                            "PutGain 1.5", "PutLoop 0 -1"}),
    [](const testing::TestParamInfo<TuneRow>& test) { return std::string(test.param.name); });

TEST_F(PlainStageMusic, IsPlayedAsItIs) {
    files.Put(kStageA, WithMusic("first", "a") + "bgmloopstart = 1000\nbgmvolume = 50\n");
    WhileAIsShown({Wait});
    EXPECT_THAT(media.Calls(), ElementsAre(kRenderA, "Run"));
}

// While paused, and in the sprite browser.
class PlainStageMusicInterrupted : public PlainStageMusic,
                                   public testing::WithParamInterface<Menu> {};

TEST_P(PlainStageMusicInterrupted, IsNotBegunAgainAndIsAfterwards) {
    Calls meanwhile;
    WhileAIsShown(Frames(10) + Then(Choose(GetParam())) + Frames(200) + Then(Note(meanwhile)) +
                  Then(Choose(GetParam())) + Frames(3));
    EXPECT_THAT(meanwhile, ElementsAre(kRenderA, "Run"));
    EXPECT_THAT(media.Calls(), ElementsAre(kRenderA, "Run", kToStart, "Run"));
}

INSTANTIATE_TEST_SUITE_P(By, PlainStageMusicInterrupted,
                         testing::Values(Menu::mnuPause, Menu::mnuDebug));

// As a file does that is played over and over without the program.
class StageMusicInterrupted : public StageMusic, public testing::WithParamInterface<Menu> {};

TEST_P(StageMusicInterrupted, GoesOn) {
    WhileAIsShown(Frames(10) + Then(Choose(GetParam())) + Frames(100));
    EXPECT_THAT(media.Calls(),
                ElementsAre(kRenderA, kAsRecorded, kWholeFile, "Run", kToStart, "Run"));
}

INSTANTIATE_TEST_SUITE_P(By, StageMusicInterrupted,
                         testing::Values(Menu::mnuPause, Menu::mnuDebug));

TEST_F(PlainStageMusic, IsNotBegunAgainWithoutADevice) {
    const Act q = KeyDown(VirtualKey::Q);
    WhileAIsShown(Frames(10) + Then(q) + Frames(200));
    EXPECT_THAT(media.Calls(), ElementsAre(kRenderA, "Run"));
}

TEST_F(StageMusic, SwitchedOffAtItsVeryEndItStaysOff) {
    WhileAIsShown(Frames(89) + Then(Choose(Menu::mnuMusic)) + Frames(130));
    EXPECT_THAT(media.Calls(), ElementsAre(kRenderA, kAsRecorded, kWholeFile, "Run", "Stop"));
}

// --- Stopped -------------------------------------------------------------------------------------

class StageMusicStopped : public StageMusic, public testing::WithParamInterface<Menu> {};

TEST_P(StageMusicStopped, ByTheItem) {
    WhileAIsShown({Choose(GetParam())});
    EXPECT_EQ(program.Ended(), GetParam() == Menu::mnuExit);
    EXPECT_THAT(media.Calls(), ElementsAre(kRenderA, kAsRecorded, kWholeFile, "Run", "Stop"));
}

INSTANTIATE_TEST_SUITE_P(By, StageMusicStopped, testing::Values(Menu::mnuClose, Menu::mnuExit));

TEST_F(StageMusic, IsStoppedByAStageThatCannotBeLoaded) {
    WhileAIsShown({Wait, [&] { Open(kGone); }});
    ASSERT_EQ(MessageTexts().size(), 1U);
    EXPECT_EQ(loop.StageRunning, 0);
    EXPECT_EQ(program.Music().State(), 0);
}

TEST_F(StageMusic, IsStoppedByAnErrorInAPass) {
    WhileAIsShown({Wait, [&] { direct3D.Device()->Lose(); }});
    ASSERT_EQ(MessageTexts().size(), 1U);
    EXPECT_EQ(program.Music().State(), 0);
    EXPECT_THAT(media.Calls(), ElementsAre(kRenderA, kAsRecorded, kWholeFile, "Run", "Stop"));
}

TEST_F(StageMusic, ReloadBeginsItAnew) {
    WhileAIsShown({Wait, Choose(Menu::mnuReload), Wait, Wait});
    EXPECT_THAT(media.Calls(), ElementsAre(kRenderA, kAsRecorded, kWholeFile, "Run", "Stop", "Stop",
                                           "Release", kRenderA, kAsRecorded, kWholeFile, "Run"));
}

TEST_F(PlainStageMusic, IsStoppedByReloadUnderTheRunningLoop) {
    WhileAIsShown(std::vector<Act>{Wait, Choose(Menu::mnuReload)} + Frames(200));
    EXPECT_THAT(media.Calls(), ElementsAre(kRenderA, "Run", "Stop"));
}

TEST_F(PlainStageMusic, AStageWithoutMusicStopsNothing) {
    ShowAAndClose();
    WhileCIsShown({Wait, Choose(Menu::mnuClose)});
    EXPECT_THAT(media.Calls(), IsEmpty());
}

TEST_F(StageMusic, TheNextStagesMusicReplacesIt) {
    WhileAIsShown({Wait, Choose(Menu::mnuStageNext), Wait, Wait});
    EXPECT_THAT(media.Calls(), ElementsAre(kRenderA, kAsRecorded, kWholeFile, "Run", "Stop", "Stop",
                                           "Release", kRenderB, kAsRecorded, kWholeFile, "Run"));
    EXPECT_EQ(media.GraphsAlive(), 1);
}

TEST_F(StageMusic, OneFileIsOpenHoweverManyStagesWereShown) {
    std::vector<Act> acts;
    for (int time = 0; time < 20; ++time) {
        acts = acts +
               std::vector<Act>{Choose(Menu::mnuStageNext), Wait, Choose(Menu::mnuStagePrev), Wait};
    }
    WhileAIsShown(acts);
    EXPECT_EQ(media.GraphsAlive(), 1);
    EXPECT_EQ(program.Music().State(), 1);
}

// --- The menu item -------------------------------------------------------------------------------

TEST_F(StageMusic, UncheckingStopsItAndCheckingGoesOn) {
    Calls off;
    WhileAIsShown({Wait, Choose(Menu::mnuMusic), Note(off), Choose(Menu::mnuMusic)});
    EXPECT_THAT(off, ElementsAre(kRenderA, kAsRecorded, kWholeFile, "Run", "Stop"));
    EXPECT_THAT(media.Calls(),
                ElementsAre(kRenderA, kAsRecorded, kWholeFile, "Run", "Stop", "Run"));
}

TEST_F(StageMusic, TheItemIsOffWhileAStageLoads) {
    int clicks = 0;
    WhileAIsShown({Wait}, [&] {
        ++clicks;
        Click(Menu::mnuMusic);
        EXPECT_TRUE(form[Menu::mnuMusic].checked);
    });
    EXPECT_GT(clicks, 0);
    EXPECT_THAT(media.Calls(), ElementsAre(kRenderA, kAsRecorded, kWholeFile, "Run"));
}

TEST_F(PlainStageMusic, CheckingPlaysTheFileOfTheStageBefore) {
    ShowAAndClose();
    WhileCIsShown({Wait, Choose(Menu::mnuMusic), Choose(Menu::mnuMusic), Choose(Menu::mnuClose)});
    EXPECT_THAT(media.Calls(), ElementsAre("Stop", "Run"));
}

TEST_F(StageMusic, NothingOfTheStageBeforeIsHeard) {
    ShowAAndClose();
    WhileCIsShown({Wait, Choose(Menu::mnuMusic), Choose(Menu::mnuMusic), Wait});
    EXPECT_THAT(media.Calls(), ElementsAre("Stop", "Release", kRenderNothing, "Stop"));
    EXPECT_EQ(program.Music().State(), 0);
}

// Checked without a stage the last one's music plays; it ends with whatever is shown next.
TEST_F(StageMusic, WhatPlaysWithoutAStageIsStoppedByCloseToo) {
    WhileAIsShown({Wait, Choose(Menu::mnuClose)});
    Click(Menu::mnuMusic);
    Click(Menu::mnuMusic);
    ASSERT_EQ(program.Music().State(), 1);
    Click(Menu::mnuClose);
    EXPECT_EQ(program.Music().State(), 0);
}

}  // namespace
}  // namespace scenara::test
