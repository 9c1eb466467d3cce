// SPDX-License-Identifier: MIT
//
// The machine and its graphs, apart from formats: orders ahead of time, loudness, the end.
#include "platform/gstreamer/GStreamerMedia.h"

#include <atomic>
#include <cmath>
#include <future>
#include <limits>
#include <memory>
#include <optional>
#include <string>

#include <gtest/gtest.h>
#include <sys/resource.h>

#include "gstreamer/Eventually.h"
#include "gstreamer/Listener.h"
#include "gstreamer/SoundFiles.h"

namespace scenara::test {
namespace {

class Media : public testing::Test {
protected:
    Media() { media_.Start(); }

    std::unique_ptr<MediaGraph> GraphOf(const std::string& file) {
        std::unique_ptr<MediaGraph> graph = media_.FilgraphManager();
        graph->RenderFile(file);
        return graph;
    }

    std::unique_ptr<MediaGraph> OpenGraphOf(const std::string& file) {
        std::unique_ptr<MediaGraph> graph = GraphOf(file);
        EXPECT_TRUE(Eventually([&graph] { return graph->Volume().has_value(); }));
        return graph;
    }

    // Whether the sides are as loud as that, relative to the tone.
    bool Sounds(double left, double right) {
        const auto near = [](double heard, double expected) {
            return std::abs(heard - expected * kToneLoudness) < 0.01 * kToneLoudness;
        };
        return Eventually(
            [&] { return near(listener_.Left(), left) && near(listener_.Right(), right); });
    }

    static bool AtEnd(MediaGraph& graph) {
        const std::optional<double> position = graph.CurrentPosition();
        return position && position == graph.Duration();
    }

    SoundFiles files_;
    Listener listener_;
    GStreamerMedia media_{listener_.Maker()};
};

TEST_F(Media, BeforeItIsStartedThereAreNoGraphs) {
    GStreamerMedia media(listener_.Maker());
    EXPECT_EQ(media.FilgraphManager(), nullptr);
}

TEST_F(Media, StartingTwiceIsStartingOnce) {
    media_.Start();
    EXPECT_NE(OpenGraphOf(files_.Wav("a.wav")), nullptr);
}

TEST_F(Media, AGraphWithoutAFileCanDoNothing) {
    const std::unique_ptr<MediaGraph> graph = media_.FilgraphManager();
    EXPECT_FALSE(graph->Run());
    EXPECT_FALSE(graph->PutCurrentPosition(0));
    EXPECT_EQ(graph->GetState(), std::nullopt);
    EXPECT_EQ(graph->Duration(), std::nullopt);
    EXPECT_EQ(graph->SourceWidth(), std::nullopt);
    EXPECT_EQ(graph->SourceHeight(), std::nullopt);
}

TEST_F(Media, AGraphTakesOneFile) {
    const std::unique_ptr<MediaGraph> graph = OpenGraphOf(files_.Wav("a.wav"));
    EXPECT_FALSE(graph->RenderFile(files_.Wav("b.wav")));
}

// Before the library has even been started, as when the program begins with a stage.
TEST_F(Media, OrdersAreRememberedUntilTheFileIsOpen) {
    GStreamerMedia media(listener_.Maker());
    media.Start();
    const std::unique_ptr<MediaGraph> graph = media.FilgraphManager();
    ASSERT_TRUE(graph->RenderFile(files_.Wav("a.wav")));
    EXPECT_TRUE(graph->PutVolume(-2000));
    EXPECT_TRUE(graph->PutCurrentPosition(0));
    EXPECT_TRUE(graph->Run());
    EXPECT_EQ(graph->GetState(), FilterState::Running);
    EXPECT_TRUE(Sounds(0.1, 0.1));
    EXPECT_TRUE(Eventually([&] { return AtEnd(*graph); }));
}

TEST_F(Media, APositionBeyondTheEndThatWasOrderedAheadIsTheEnd) {
    const std::unique_ptr<MediaGraph> graph = GraphOf(files_.Wav("a.wav"));
    graph->PutCurrentPosition(7);
    EXPECT_TRUE(Eventually([&] { return AtEnd(*graph); }));
}

TEST_F(Media, WhatCannotBePlayedFailsInEveryCall) {
    const std::unique_ptr<MediaGraph> graph = GraphOf(files_.Holding("a.mp3", "no music"));
    ASSERT_TRUE(Eventually([&] { return !graph->GetState(); }));
    EXPECT_FALSE(graph->Run());
    EXPECT_FALSE(graph->Pause());
    EXPECT_FALSE(graph->Stop());
    EXPECT_FALSE(graph->PutCurrentPosition(0));
    EXPECT_FALSE(graph->PutRate(1));
    EXPECT_FALSE(graph->PutVolume(0));
    EXPECT_FALSE(graph->PutBalance(0));
    EXPECT_EQ(graph->Duration(), std::nullopt);
    EXPECT_EQ(graph->CurrentPosition(), std::nullopt);
    EXPECT_EQ(graph->Rate(), std::nullopt);
    EXPECT_EQ(graph->Volume(), std::nullopt);
    EXPECT_EQ(graph->Balance(), std::nullopt);
}

TEST_F(Media, NumbersThatAreNoneAreRefused) {
    const std::unique_ptr<MediaGraph> graph = OpenGraphOf(files_.Wav("a.wav"));
    EXPECT_FALSE(graph->PutCurrentPosition(std::numeric_limits<double>::quiet_NaN()));
    EXPECT_FALSE(graph->PutCurrentPosition(std::numeric_limits<double>::infinity()));
    EXPECT_FALSE(graph->PutCurrentPosition(-1));
    EXPECT_FALSE(graph->PutRate(std::numeric_limits<double>::quiet_NaN()));
    EXPECT_FALSE(graph->PutRate(0));
    EXPECT_FALSE(graph->PutRate(1000));
    EXPECT_EQ(graph->CurrentPosition(), 0);
    EXPECT_EQ(graph->Rate(), 1);
}

// ---------------------------------------------------------------------------------------------
// Loudness: -2000 is a tenth, -600 is the half but for a part in a thousand (10^-0.3 = 0.5012)
// ---------------------------------------------------------------------------------------------

TEST_F(Media, VolumeIsHowLoudItIs) {
    const std::unique_ptr<MediaGraph> graph = OpenGraphOf(files_.Wav("a.wav"));
    graph->PutRate(0.1);
    graph->Run();
    EXPECT_TRUE(Sounds(1, 1));
    graph->PutVolume(-2000);
    EXPECT_TRUE(Sounds(0.1, 0.1));
    graph->PutVolume(-600);
    EXPECT_TRUE(Sounds(0.5012, 0.5012));
    graph->PutVolume(0);
    EXPECT_TRUE(Sounds(1, 1));
    graph->PutVolume(-10000);
    EXPECT_TRUE(Eventually([this] { return listener_.Left() == 0 && listener_.Right() == 0; }));
}

TEST_F(Media, BalanceAttenuatesTheOtherSide) {
    const std::unique_ptr<MediaGraph> graph = OpenGraphOf(files_.Wav("a.wav"));
    graph->PutRate(0.1);
    graph->Run();
    EXPECT_TRUE(Sounds(1, 1));
    graph->PutBalance(-2000);
    EXPECT_TRUE(Sounds(1, 0.1));
    graph->PutBalance(600);
    EXPECT_TRUE(Sounds(0.5012, 1));
    graph->PutBalance(10000);
    EXPECT_TRUE(Sounds(0, 1));
    graph->PutBalance(-10000);
    EXPECT_TRUE(Sounds(1, 0));
}

// ---------------------------------------------------------------------------------------------
// Length: the player of modules sends more than there is, if it is not kept from it
// ---------------------------------------------------------------------------------------------

TEST_F(Media, NoMoreIsHeardThanThereIs) {
    for (const std::string& file : {files_.Wav("a.wav"), files_.Module("a.mod")}) {
        const double before = listener_.Heard();
        const std::unique_ptr<MediaGraph> graph = OpenGraphOf(file);
        graph->Run();
        ASSERT_TRUE(Eventually([&] { return AtEnd(*graph); }));
        EXPECT_NEAR(listener_.Heard() - before, graph->Duration().value_or(0), 0.0005) << file;
    }
}

// ---------------------------------------------------------------------------------------------
// Lives
// ---------------------------------------------------------------------------------------------

TEST_F(Media, AGraphThatIsGoneIsSilent) {
    std::unique_ptr<MediaGraph> graph = OpenGraphOf(files_.Wav("a.wav"));
    graph->PutRate(0.1);
    graph->Run();
    ASSERT_TRUE(Sounds(1, 1));
    graph.reset();
    // Opening another one takes longer than letting go of this one, for it is done in between.
    graph = OpenGraphOf(files_.Wav("b.wav"));
    graph = OpenGraphOf(files_.Wav("c.wav"));
    const int blocks = listener_.Blocks();
    graph = OpenGraphOf(files_.Wav("d.wav"));
    EXPECT_LE(listener_.Blocks(), blocks + 1);
}

TEST_F(Media, TheMachineMayEndWhileItPlays) {
    GStreamerMedia media(listener_.Maker());
    media.Start();
    const std::unique_ptr<MediaGraph> graph = media.FilgraphManager();
    graph->RenderFile(files_.Midi("a.mid"));
    graph->Run();
    EXPECT_TRUE(Eventually([&] { return graph->CurrentPosition().value_or(0) > 0; }));
}

TEST_F(Media, TheMachineMayEndAtOnce) {
    GStreamerMedia media(listener_.Maker());
    media.Start();
    GStreamerMedia another;
    another.Start();
}

TEST_F(Media, WithoutASinkNothingPlays) {
    GStreamerMedia media([]() -> GstElement* { return nullptr; });
    media.Start();
    const std::unique_ptr<MediaGraph> graph = media.FilgraphManager();
    graph->RenderFile(files_.Wav("a.wav"));
    EXPECT_TRUE(Eventually([&] { return !graph->GetState(); }));
}

// ---------------------------------------------------------------------------------------------
// A busy machine, a slow one, one that hangs
// ---------------------------------------------------------------------------------------------

// The program lowers its own priority when a stage opens, long after the machine was started.
TEST_F(Media, SoundKeepsThePriorityOfBeforeTheProgramYielded) {
    constexpr int kLowest = 19;
    const int before = getpriority(PRIO_PROCESS, 0);
    if (before == kLowest) {
        GTEST_SKIP() << "it cannot be lowered";
    }
    ASSERT_EQ(setpriority(PRIO_PROCESS, 0, kLowest), 0);
    const std::unique_ptr<MediaGraph> graph = OpenGraphOf(files_.Wav("a.wav"));
    graph->Run();
    ASSERT_TRUE(Eventually([this] { return listener_.Blocks() > 0; }));
    EXPECT_EQ(listener_.Niceness(), before);
}

TEST_F(Media, WhatIsAskedBeforeTheFileIsOpenFailsAndOrdersHold) {
    std::promise<void> open;
    GStreamerMedia media([opened = open.get_future().share(), make = listener_.Maker()] {
        opened.wait();
        return make();
    });
    media.Start();
    const std::unique_ptr<MediaGraph> graph = media.FilgraphManager();
    EXPECT_TRUE(graph->RenderFile(files_.Wav("a.wav")));
    EXPECT_TRUE(graph->PutRate(0.5));
    EXPECT_TRUE(graph->PutBalance(-10000));
    EXPECT_TRUE(graph->Run());
    EXPECT_EQ(graph->GetState(), FilterState::Running);
    EXPECT_EQ(graph->Duration(), std::nullopt);
    EXPECT_EQ(graph->CurrentPosition(), std::nullopt);
    EXPECT_EQ(graph->Volume(), std::nullopt);
    open.set_value();
    EXPECT_TRUE(Sounds(1, 0));
    EXPECT_EQ(listener_.Rate(), 0.5);
    EXPECT_EQ(graph->Rate(), 0.5);
}

TEST_F(Media, AMachineThatHangsIsLeftBehind) {
    std::promise<void> release;
    const auto hangs = std::make_shared<std::atomic<bool>>(false);
    std::unique_ptr<MediaGraph> graph;
    {
        GStreamerMedia media([released = release.get_future().share(), hangs]() -> GstElement* {
            *hangs = true;
            released.wait();
            return nullptr;
        });
        media.Start();
        graph = media.FilgraphManager();
        graph->RenderFile(files_.Wav("a.wav"));
        ASSERT_TRUE(Eventually([&hangs] { return hangs->load(); }));
    }
    EXPECT_GT(hangs.use_count(), 1);  // it is still there, and ends when it can
    release.set_value();
    EXPECT_TRUE(Eventually([&hangs] { return hangs.use_count() == 1; }));
}

// ---------------------------------------------------------------------------------------------
// What cannot be sought
// ---------------------------------------------------------------------------------------------

class Unseekable : public Media {
protected:
    Unseekable() {
        unseekable_.Start();
        graph_ = unseekable_.FilgraphManager();
        graph_->RenderFile(files_.Wav("a.wav"));
        EXPECT_TRUE(Eventually([this] { return graph_->Volume().has_value(); }));
    }

    bool Ends() {
        return Eventually([this] { return AtEnd(*graph_); });
    }

    GStreamerMedia unseekable_{listener_.MakerOfUnseekable()};
    std::unique_ptr<MediaGraph> graph_;
};

TEST_F(Unseekable, PutToItsBeginningItPlaysFromThereEachTime) {
    for (int time = 1; time <= 3; ++time) {
        EXPECT_TRUE(graph_->PutCurrentPosition(0));
        EXPECT_TRUE(graph_->Run());
        EXPECT_TRUE(Ends());
        EXPECT_NEAR(listener_.Heard(), time * kToneLength, 0.01);
    }
}

TEST_F(Unseekable, BegunAnewItKeepsVolumeAndBalance) {
    graph_->PutVolume(-2000);
    graph_->Run();
    ASSERT_TRUE(Ends());
    graph_->PutBalance(-10000);
    graph_->PutCurrentPosition(0);
    EXPECT_TRUE(Sounds(0.1, 0));
}

TEST_F(Unseekable, PutElsewhereItPlaysOn) {
    graph_->Run();
    ASSERT_TRUE(Eventually([this] { return listener_.Blocks() > 0; }));
    EXPECT_TRUE(graph_->PutCurrentPosition(0.5));
    EXPECT_TRUE(Ends());
    EXPECT_NEAR(listener_.Heard(), kToneLength, 0.01);
}

TEST_F(Unseekable, PutElsewhereAtItsEndItStaysThere) {
    graph_->Run();
    ASSERT_TRUE(Ends());
    EXPECT_TRUE(graph_->PutCurrentPosition(0.5));
    EXPECT_TRUE(Ends());
    EXPECT_EQ(graph_->GetState(), FilterState::Running);
}

TEST_F(Unseekable, KeepsItsSpeedAndSaysSo) {
    EXPECT_TRUE(graph_->PutRate(2));
    EXPECT_TRUE(Eventually([this] { return graph_->Rate() == 1; }));
    graph_->Run();
    EXPECT_TRUE(Ends());
    EXPECT_NEAR(listener_.Heard(), kToneLength, 0.01);
}

// On whatever sink this machine has, and not heard.
TEST_F(Media, TheMachinesOwnSinkPlaysAndSaysNothing) {
    testing::internal::CaptureStderr();
    testing::internal::CaptureStdout();
    {
        GStreamerMedia media;
        media.Start();
        for (const std::string& file : {files_.Wav("a.wav"), files_.Midi("a.mid"),
                                        files_.Module("a.mod"), files_.Holding("b", "none")}) {
            const std::unique_ptr<MediaGraph> graph = media.FilgraphManager();
            graph->RenderFile(file);
            graph->PutVolume(-10000);
            graph->Run();
            EXPECT_TRUE(Eventually([&] { return !graph->GetState() || AtEnd(*graph); })) << file;
        }
    }
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
}

}  // namespace
}  // namespace scenara::test
