// SPDX-License-Identifier: MIT
#include "music/clsMusic.h"

#include <cstdint>
#include <limits>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/headless/HeadlessClock.h"
#include "platform/headless/HeadlessMedia.h"

namespace scenara {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// A player on the headless machine, with one file of two seconds: /mugen/sound/a.mid.
class Music : public testing::Test {
protected:
    Music() { media_.AddFile(kFile, {.duration = 2}); }

    // The player with that file, and nothing recorded yet.
    clsMusic& Loaded() {
        music_.SetFileName(kFile);
        media_.ForgetCalls();
        return music_;
    }

    void Seconds(std::uint32_t seconds) { clock_.Advance(60 * seconds); }

    static constexpr const char* kFile = "/mugen/sound/a.mid";
    HeadlessClock clock_;
    HeadlessMedia media_{clock_};
    clsMusic music_{media_};
};

// ---------------------------------------------------------------------------------------------
// Without a file
// ---------------------------------------------------------------------------------------------

TEST_F(Music, WithoutAFileEverythingIsZeroAndNothingHappens) {
    music_.Play();
    music_.Pause();
    music_.StopPlaying();
    music_.SetPosition(1);
    music_.SetSpeed(2);
    music_.SetVolume(-100);
    music_.SetBalance(100);
    EXPECT_EQ(music_.FileName(), "");
    EXPECT_EQ(music_.Position(), 0);
    EXPECT_EQ(music_.Duration(), 0);
    EXPECT_EQ(music_.State(), 0);
    EXPECT_EQ(music_.Speed(), 0);
    EXPECT_EQ(music_.Volume(), 0);
    EXPECT_EQ(music_.Balance(), 0);
    EXPECT_EQ(music_.Width(), 0);
    EXPECT_EQ(music_.Height(), 0);
    EXPECT_FALSE(music_.HasAudio());
    EXPECT_FALSE(music_.HasVideo());
    EXPECT_FALSE(music_.AtEnd());
    EXPECT_THAT(media_.Calls(), IsEmpty());
    EXPECT_EQ(media_.GraphsAlive(), 0);
}

TEST_F(Music, KeepsTheWindowsHandle) {
    EXPECT_EQ(music_.Window(), 0);
    music_.SetWindow(1234);
    EXPECT_EQ(music_.Window(), 1234);
}

TEST_F(Music, LoopAndGainAreHandedToTheFilesGraph) {
    music_.SetLoop({1, 2});  // to none
    music_.SetGain(1);
    Loaded().SetLoop({1000, -1});
    music_.SetGain(1.5);
    music_.SetGain(-1);
    music_.SetGain(3);
    EXPECT_THAT(media_.Calls(),
                ElementsAre("PutLoop 1000 -1", "PutGain 1.5", "PutGain 0", "PutGain 2"));
}

// ---------------------------------------------------------------------------------------------
// Setting the file
// ---------------------------------------------------------------------------------------------

TEST_F(Music, AFileIsRenderedAndNotPlayed) {
    music_.SetFileName(kFile);
    EXPECT_EQ(music_.FileName(), kFile);
    EXPECT_THAT(media_.Calls(), ElementsAre("RenderFile /mugen/sound/a.mid"));
    EXPECT_TRUE(music_.HasAudio());
    EXPECT_FALSE(music_.HasVideo());
    EXPECT_EQ(music_.State(), 0);
    EXPECT_EQ(music_.Duration(), 2);
    EXPECT_EQ(music_.Position(), 0);
    EXPECT_EQ(music_.Speed(), 1);
}

TEST_F(Music, AnotherFileStopsTheOneBeforeAndLetsItGo) {
    Loaded().Play();
    media_.ForgetCalls();
    media_.AddFile("b.mp3", {.duration = 3});
    music_.SetFileName("b.mp3");
    EXPECT_THAT(media_.Calls(), ElementsAre("Stop", "Release", "RenderFile b.mp3"));
    EXPECT_EQ(media_.GraphsAlive(), 1);
    EXPECT_EQ(music_.Duration(), 3);
    EXPECT_EQ(music_.State(), 0);
}

TEST_F(Music, AMissingFileIsSilentInEveryCall) {
    music_.SetFileName("no such file");
    EXPECT_EQ(music_.FileName(), "no such file");
    EXPECT_FALSE(music_.HasAudio());
    music_.Play();
    music_.Pause();
    music_.SetPosition(1);
    music_.SetSpeed(2);
    music_.SetVolume(-100);
    music_.SetBalance(100);
    EXPECT_EQ(music_.Position(), 0);
    EXPECT_EQ(music_.Duration(), 0);
    EXPECT_EQ(music_.State(), 0);
    EXPECT_EQ(music_.Speed(), 0);
    EXPECT_EQ(music_.Volume(), 0);
    EXPECT_EQ(music_.Balance(), 0);
    music_.StopPlaying();
    music_.SetFileName(kFile);
    EXPECT_TRUE(music_.HasAudio());
}

TEST_F(Music, AMissingFileAfterAGoodOneHasNoAudio) {
    Loaded();
    ASSERT_TRUE(music_.HasAudio());
    music_.SetFileName("no such file");
    EXPECT_FALSE(music_.HasAudio());
}

TEST_F(Music, AFileWithoutSoundPlaysAllTheSame) {
    media_.AddFile("mute.mid", {.duration = 2, .hasAudio = false});
    music_.SetFileName("mute.mid");
    EXPECT_FALSE(music_.HasAudio());
    EXPECT_EQ(music_.Volume(), 0);
    music_.Play();
    EXPECT_EQ(music_.State(), 1);
}

TEST_F(Music, WithoutGraphsEverythingIsSilent) {
    media_.RefuseGraphs();
    music_.SetFileName(kFile);
    music_.Play();
    RestartAtEnd(music_);
    EXPECT_EQ(music_.FileName(), kFile);
    EXPECT_FALSE(music_.HasAudio());
    EXPECT_EQ(music_.State(), 0);
    EXPECT_THAT(media_.Calls(), IsEmpty());
}

TEST_F(Music, TheLastGraphGoesWithThePlayer) {
    {
        clsMusic other(media_);
        other.SetFileName(kFile);
        ASSERT_EQ(media_.GraphsAlive(), 1);
    }
    EXPECT_EQ(media_.GraphsAlive(), 0);
}

// ---------------------------------------------------------------------------------------------
// A file that is still being opened
// ---------------------------------------------------------------------------------------------

TEST_F(Music, HasAudioIsFoundOutOnceTheFileIsOpen) {
    media_.AddFile("slow.mid", {.duration = 2, .opening = true});
    music_.SetFileName("slow.mid");
    EXPECT_FALSE(music_.HasAudio());
    media_.AddFile("slow.mid", {.duration = 2});
    EXPECT_TRUE(music_.HasAudio());
}

TEST_F(Music, PlayBeforeTheFileIsOpenIsOrderedAtOnce) {
    media_.AddFile("slow.mid", {.duration = 2, .opening = true});
    music_.SetFileName("slow.mid");
    media_.ForgetCalls();
    music_.Play();
    EXPECT_THAT(media_.Calls(), ElementsAre("PutCurrentPosition 0", "Run"));
    EXPECT_EQ(music_.State(), 1);
}

// ---------------------------------------------------------------------------------------------
// Playing
// ---------------------------------------------------------------------------------------------

TEST_F(Music, StateTellsStoppedRunningAndPaused) {
    clsMusic& music = Loaded();
    EXPECT_EQ(music.State(), 0);
    Seconds(1);  // away from the end and the beginning
    music.SetPosition(1);
    media_.ForgetCalls();
    music.Play();
    EXPECT_EQ(music.State(), 1);
    music.Pause();
    EXPECT_EQ(music.State(), 2);
    music.StopPlaying();
    EXPECT_EQ(music.State(), 0);
    EXPECT_THAT(media_.Calls(), ElementsAre("Run", "Pause", "Stop"));
}

TEST_F(Music, PlayGoesOnFromWhereItWasStopped) {
    clsMusic& music = Loaded();
    music.Play();
    Seconds(1);
    music.StopPlaying();
    Seconds(5);
    EXPECT_EQ(music.Position(), 1);
    media_.ForgetCalls();
    music.Play();
    EXPECT_THAT(media_.Calls(), ElementsAre("Run"));
    EXPECT_EQ(music.Position(), 1);
}

TEST_F(Music, PlayAtTheEndBeginsAgain) {
    clsMusic& music = Loaded();
    music.Play();
    Seconds(5);
    ASSERT_EQ(music.Position(), 2);
    media_.ForgetCalls();
    music.Play();
    EXPECT_THAT(media_.Calls(), ElementsAre("PutCurrentPosition 0", "Run"));
    EXPECT_EQ(music.Position(), 0);
}

TEST_F(Music, PlayWithAnEmptyNameDoesNothing) {
    Loaded();
    music_.SetFileName("");
    media_.ForgetCalls();
    music_.Play();
    EXPECT_THAT(media_.Calls(), IsEmpty());
}

// ---------------------------------------------------------------------------------------------
// Position, speed, volume, balance
// ---------------------------------------------------------------------------------------------

TEST_F(Music, PositionStaysInsideOfTheFile) {
    clsMusic& music = Loaded();
    music.SetPosition(0.5);
    EXPECT_EQ(music.Position(), 0.5);
    music.SetPosition(-3);
    EXPECT_EQ(music.Position(), 0);
    music.SetPosition(7);
    EXPECT_EQ(music.Position(), 2);
    EXPECT_TRUE(music.AtEnd());
    EXPECT_THAT(media_.Calls(), ElementsAre("PutCurrentPosition 0.5", "PutCurrentPosition 0",
                                            "PutCurrentPosition 2"));
}

TEST_F(Music, WhileTheDurationIsUnknownEveryPositionIsTheBeginning) {
    media_.AddFile("vbr.mp3", {.duration = 2, .durationKnown = false});
    music_.SetFileName("vbr.mp3");
    EXPECT_EQ(music_.Duration(), 0);
    music_.SetPosition(1);
    EXPECT_EQ(music_.Position(), 0);
}

TEST_F(Music, SpeedIsAtLeastATenth) {
    clsMusic& music = Loaded();
    for (const double speed : {0.0, -1.0, 0.05, std::numeric_limits<double>::quiet_NaN()}) {
        music.SetSpeed(1);
        music.SetSpeed(speed);
        EXPECT_EQ(music.Speed(), 0.1) << speed;
    }
    music.SetSpeed(0.1);
    EXPECT_EQ(music.Speed(), 0.1);
    music.SetSpeed(2.5);
    EXPECT_EQ(music.Speed(), 2.5);
}

TEST_F(Music, SpeedIsHowFastThePositionGoesOn) {
    clsMusic& music = Loaded();
    music.Play();
    music.SetSpeed(0.5);
    Seconds(2);
    EXPECT_EQ(music.Position(), 1);
}

TEST_F(Music, VolumeStaysBetweenSilenceAndFull) {
    clsMusic& music = Loaded();
    EXPECT_EQ(music.Volume(), 0);
    music.SetVolume(-2000);
    EXPECT_EQ(music.Volume(), -2000);
    music.SetVolume(-10001);
    EXPECT_EQ(music.Volume(), -10000);
    music.SetVolume(1);
    EXPECT_EQ(music.Volume(), 0);
    EXPECT_THAT(media_.Calls(), ElementsAre("PutVolume -2000", "PutVolume -10000", "PutVolume 0"));
}

TEST_F(Music, BalanceStaysBetweenTheSides) {
    clsMusic& music = Loaded();
    EXPECT_EQ(music.Balance(), 0);
    music.SetBalance(300);
    EXPECT_EQ(music.Balance(), 300);
    music.SetBalance(10001);
    EXPECT_EQ(music.Balance(), 10000);
    music.SetBalance(-10001);
    EXPECT_EQ(music.Balance(), -10000);
    EXPECT_THAT(media_.Calls(),
                ElementsAre("PutBalance 300", "PutBalance 10000", "PutBalance -10000"));
}

TEST_F(Music, WhatHoldsForOneFileDoesNotHoldForTheNext) {
    clsMusic& music = Loaded();
    music.SetVolume(-2000);
    music.SetSpeed(2);
    music.SetBalance(100);
    music.SetFileName(kFile);
    EXPECT_EQ(music.Volume(), 0);
    EXPECT_EQ(music.Speed(), 1);
    EXPECT_EQ(music.Balance(), 0);
}

// ---------------------------------------------------------------------------------------------
// The loop's look once a second
// ---------------------------------------------------------------------------------------------

TEST_F(Music, AtItsEndTheFileBeginsAgainEachTime) {
    clsMusic& music = Loaded();
    music.Play();
    media_.ForgetCalls();
    Seconds(1);
    RestartAtEnd(music);
    EXPECT_THAT(media_.Calls(), IsEmpty());
    Seconds(1);
    RestartAtEnd(music);
    EXPECT_EQ(music.Position(), 0);
    EXPECT_EQ(music.State(), 1);
    Seconds(3);
    RestartAtEnd(music);
    EXPECT_EQ(music.Position(), 0);
    Seconds(1);
    EXPECT_EQ(music.Position(), 1);
}

TEST_F(Music, AStoppedFileIsNotRestartedBeforeItsEnd) {
    clsMusic& music = Loaded();
    music.Play();
    Seconds(1);
    music.StopPlaying();
    media_.ForgetCalls();
    Seconds(9);
    RestartAtEnd(music);
    EXPECT_THAT(media_.Calls(), IsEmpty());
    EXPECT_EQ(music.State(), 0);
}

TEST_F(Music, AFileThatIsStoppedAtItsEndStaysOff) {
    clsMusic& music = Loaded();
    music.Play();
    Seconds(2);
    music.StopPlaying();
    ASSERT_TRUE(music.AtEnd());
    media_.ForgetCalls();
    RestartAtEnd(music);
    EXPECT_THAT(media_.Calls(), IsEmpty());
    EXPECT_EQ(music.State(), 0);
}

TEST_F(Music, AFileThatWasNeverPlayedIsNotStarted) {
    clsMusic& music = Loaded();
    Seconds(9);
    RestartAtEnd(music);
    EXPECT_THAT(media_.Calls(), IsEmpty());
}

TEST_F(Music, AMissingFileIsNotRestarted) {
    music_.SetFileName("no such file");
    music_.Play();
    media_.ForgetCalls();
    RestartAtEnd(music_);
    EXPECT_THAT(media_.Calls(), IsEmpty());
}

// With music switched off it is never played, and being opened must not change that.
TEST_F(Music, AFileThatIsStillBeingOpenedIsNotStarted) {
    media_.AddFile("slow.mid", {.duration = 2, .opening = true});
    music_.SetFileName("slow.mid");
    media_.ForgetCalls();
    RestartAtEnd(music_);
    EXPECT_THAT(media_.Calls(), IsEmpty());
    EXPECT_EQ(music_.State(), 0);
}

TEST_F(Music, AFileOfUnknownDurationIsNotRestartedWhileItIsUnknown) {
    media_.AddFile("vbr.mp3", {.duration = 2, .durationKnown = false});
    music_.SetFileName("vbr.mp3");
    media_.ForgetCalls();
    RestartAtEnd(music_);
    EXPECT_THAT(media_.Calls(), IsEmpty());
}

}  // namespace
}  // namespace scenara
