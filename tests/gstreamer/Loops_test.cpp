// SPDX-License-Identifier: MIT
//
// A file that is played over and over: which samples follow which, and when.
#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstddef>
#include <memory>
#include <optional>
#include <ostream>
#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "gstreamer/Eventually.h"
#include "gstreamer/Recorder.h"
#include "gstreamer/SoundFiles.h"
#include "music/clsMusic.h"
#include "platform/gstreamer/GStreamerMedia.h"

namespace scenara::test {
namespace {

constexpr int kFrames = 6000;  // no whole number of any format's blocks

class Looping : public testing::Test {
protected:
    explicit Looping(bool flushesOnly = false)
        : media_(flushesOnly ? recorder_.MakerOfFlushingOnly() : recorder_.Maker()) {
        media_.Start();
    }

    std::unique_ptr<MediaGraph> GraphOf(const std::string& file) {
        std::unique_ptr<MediaGraph> graph = media_.FilgraphManager();
        graph->RenderFile(file);
        return graph;
    }

    static bool AtEnd(MediaGraph& graph) {
        const std::optional<double> position = graph.CurrentPosition();
        return position && position == graph.Duration();
    }

    // What is heard of the file when it is played once.
    std::vector<float> Once(const std::string& file) {
        const std::unique_ptr<MediaGraph> graph = GraphOf(file);
        graph->Run();
        EXPECT_TRUE(Eventually([&] { return AtEnd(*graph); }));
        std::vector<float> heard = recorder_.Samples();
        recorder_.Forget();
        return heard;
    }

    // The first samples of the file that is played over and over.
    std::vector<float> OverAndOver(const std::string& file, const MediaLoop& loop,
                                   std::size_t count) {
        const std::unique_ptr<MediaGraph> graph = GraphOf(file);
        graph->PutLoop(loop);
        graph->Run();
        EXPECT_TRUE(Eventually([&] { return recorder_.Count() >= count; }));
        EXPECT_FALSE(AtEnd(*graph));
        std::vector<float> heard = recorder_.Samples();
        heard.resize(std::min(heard.size(), count));
        return heard;
    }

    SoundFiles files_;
    Recorder recorder_;
    GStreamerMedia media_;
};

// The first pass, and two more.
std::vector<float> Passes(const std::vector<float>& once, const MediaLoop& loop) {
    const auto start = once.begin() + loop.start;
    const auto end = loop.end < 0 ? once.end() : once.begin() + loop.end;
    std::vector<float> passes(once.begin(), end);
    for (int pass = 0; pass < 2; ++pass) {
        passes.insert(passes.end(), start, end);
    }
    return passes;
}

// How many samples are the same at the beginning of both.
std::size_t SameSamples(const std::vector<float>& a, const std::vector<float>& b) {
    constexpr float kNear = 1.0F / 16384;  // the encoded are rounded
    const auto differ = [](float x, float y) { return std::abs(x - y) > kNear; };
    std::size_t same = 0;
    while (same < std::min(a.size(), b.size()) && !differ(a[same], b[same])) {
        ++same;
    }
    return same;
}

// --- Exact to the sample -------------------------------------------------------------------------

struct Row {
    const char* name;
    const char* encoders;
    MediaLoop loop;
    MediaLoop played;  // what it comes to
    int frames = kFrames;
};

void PrintTo(const Row& row, std::ostream* out) {
    *out << row.name;
}

class Seam : public Looping, public testing::WithParamInterface<Row> {};

TEST_P(Seam, HasEverySampleOnceAndAtItsTime) {
    const Row& row = GetParam();
    const std::string file = files_.Rising("rising", row.frames, row.encoders);
    const std::vector<float> once = Once(file);
    ASSERT_NEAR(static_cast<double>(once.size()), row.frames, 1);  // as the encoder counts them
    const std::vector<float> expected = Passes(once, row.played);
    const std::vector<float> heard = OverAndOver(file, row.loop, expected.size());
    EXPECT_EQ(SameSamples(heard, expected), expected.size());
    EXPECT_NEAR(recorder_.LargestGap(), 0, 0.01);
}

constexpr const char* kWav = "";
constexpr const char* kFlac = "flacenc";
constexpr const char* kVorbis = "vorbisenc ! oggmux";
constexpr MediaLoop kWhole{};
// None is at the end of a block, nor at a whole number of nanoseconds.
constexpr MediaLoop kPart{1345, 5321};
constexpr MediaLoop kToItsEnd{2001, -1};
constexpr MediaLoop kFromItsBeginning{0, 4001};
constexpr MediaLoop kSecondHalf{3000, -1};
constexpr Long kMost = 2147483647;

INSTANTIATE_TEST_SUITE_P(
    Of, Seam,
    testing::Values(Row{"WavWhole", kWav, kWhole, kWhole}, Row{"FlacWhole", kFlac, kWhole, kWhole},
                    Row{"VorbisWhole", kVorbis, kWhole, kWhole}, Row{"WavPart", kWav, kPart, kPart},
                    Row{"FlacPart", kFlac, kPart, kPart}, Row{"VorbisPart", kVorbis, kPart, kPart},
                    Row{"WavToItsEnd", kWav, kToItsEnd, kToItsEnd},
                    Row{"FlacToItsEnd", kFlac, kToItsEnd, kToItsEnd},
                    Row{"VorbisToItsEnd", kVorbis, kToItsEnd, kToItsEnd},
                    Row{"WavFromItsBeginning", kWav, kFromItsBeginning, kFromItsBeginning},
                    Row{"FlacFromItsBeginning", kFlac, kFromItsBeginning, kFromItsBeginning},
                    Row{"VorbisFromItsBeginning", kVorbis, kFromItsBeginning, kFromItsBeginning},
                    Row{"VorbisPartOfAPage", kVorbis, kPart, kPart, 30000},
                    // Numbers that make no sense.
                    Row{"EndBeforeStart", kWav, {3000, 1500}, kSecondHalf},
                    Row{"EndAtStart", kWav, {3000, 3000}, kSecondHalf},
                    Row{"EndHardlyAfterStart", kWav, {3000, 3001}, kSecondHalf},
                    Row{"EndOfZero", kWav, {0, 0}, kWhole},
                    Row{"EndBeyond", kWav, {3000, kMost}, kSecondHalf},
                    Row{"StartBeyond", kWav, {kMost, -1}, kWhole},
                    Row{"StartHardlyBeforeTheEnd", kWav, {kFrames - 1, -1}, kWhole},
                    Row{"BothBeyond", kWav, {50000, 60000}, kWhole},
                    Row{"BelowZero", kWav, {-kMost, -kMost}, kWhole}),
    [](const testing::TestParamInfo<Row>& test) { return std::string(test.param.name); });

// --- What cannot be played so --------------------------------------------------------------------

// What is heard around the seam may differ a little, and MP3 begins and ends with silence of its
// own.
class NearlyExact : public Looping, public testing::WithParamInterface<Row> {};

TEST_P(NearlyExact, GoesOnWithoutAGapAllTheSame) {
    const Row& row = GetParam();
    const std::string file = files_.Rising("rising", row.frames, row.encoders);
    OverAndOver(file, row.loop, std::size_t{3} * kFrames);
    EXPECT_NEAR(recorder_.LargestGap(), 0, 0.01);
}

constexpr const char* kMp3 = "lamemp3enc ! xingmux";
constexpr const char* kMp3WithoutHeader = "lamemp3enc";
constexpr const char* kOpus = "audioresample ! opusenc ! oggmux";

INSTANTIATE_TEST_SUITE_P(
    Of, NearlyExact,
    testing::Values(Row{"Mp3Whole", kMp3, kWhole, kWhole}, Row{"Mp3Part", kMp3, kPart, kPart},
                    Row{"Mp3WithoutHeaderWhole", kMp3WithoutHeader, kWhole, kWhole},
                    Row{"Mp3WithoutHeaderPart", kMp3WithoutHeader, kPart, kPart},
                    Row{"OpusWhole", kOpus, kWhole, kWhole}, Row{"OpusPart", kOpus, kPart, kPart}),
    [](const testing::TestParamInfo<Row>& test) { return std::string(test.param.name); });

TEST_F(Looping, WhatCannotBePlayedOverAndOverComesToItsEnd) {
    for (const std::string& file : {files_.Midi("a.mid"), files_.Module("a.mod")}) {
        const std::unique_ptr<MediaGraph> graph = GraphOf(file);
        graph->PutLoop(kPart);
        graph->Run();
        EXPECT_TRUE(Eventually([&] { return AtEnd(*graph); })) << file;
    }
}

class LoopingByFlushes : public Looping {
protected:
    LoopingByFlushes() : Looping(true) {}
};

TEST_F(LoopingByFlushes, AMachineThatRefusesTheNextPassComesToTheEnd) {
    clsMusic music(media_);
    music.SetFileName(files_.Rising("rising", kFrames));
    music.SetLoop(kWhole);
    music.Play();
    for (std::size_t pass = 1; pass <= 2; ++pass) {
        ASSERT_TRUE(Eventually([&] { return music.AtEnd(); }));
        EXPECT_GE(recorder_.Count(), pass * kFrames);
        RestartAtEnd(music);
        EXPECT_FALSE(music.AtEnd());
    }
}

// Less than what is repeated; it ends, however often it is begun again.
TEST_F(Looping, AFileWithHardlyAnySoundComesToItsEnd) {
    for (const int frames : {1, 10, 400}) {
        clsMusic music(media_);
        music.SetFileName(files_.Rising("short", frames));
        music.SetLoop(kWhole);
        music.Play();
        for (int time = 0; time < 3; ++time) {
            ASSERT_TRUE(Eventually([&] { return music.AtEnd(); })) << frames;
            RestartAtEnd(music);
        }
    }
}

// A file that says that it is longer than it is: there is no sound from the loop's start on.
TEST_F(Looping, AnEndlessLoopOfNothingIsNone) {
    const std::string whole = ContentOf(files_.Rising("whole", kFrames * 4, kFlac));
    const std::string file = files_.Holding("damaged", whole.substr(0, whole.size() / 4));
    const std::unique_ptr<MediaGraph> graph = GraphOf(file);
    graph->PutLoop({kFrames * 3, kFrames * 4 - 1});
    graph->Run();
    EXPECT_TRUE(Eventually([&] { return AtEnd(*graph) || !graph->GetState(); }));
}

TEST_F(Looping, AFileWithoutSamplesDoesNotPlay) {
    const std::unique_ptr<MediaGraph> graph = GraphOf(files_.Rising("nothing", 0));
    graph->PutLoop(kWhole);
    graph->Run();
    EXPECT_TRUE(Eventually([&] { return AtEnd(*graph) || !graph->GetState(); }));
    EXPECT_EQ(recorder_.Count(), 0U);
}

TEST_F(Looping, ADeviceThatGoesAwaySilencesIt) {
    const std::unique_ptr<MediaGraph> graph = GraphOf(files_.Rising("rising", kFrames));
    graph->PutLoop(kWhole);
    graph->Run();
    ASSERT_TRUE(Eventually([&] { return recorder_.Count() > kFrames; }));
    recorder_.Break();
    EXPECT_TRUE(Eventually([&] { return !graph->GetState(); }));
}

// --- Orders on the way ---------------------------------------------------------------------------

TEST_F(Looping, PausedItStaysAndGoesOnAtTheSameSample) {
    const std::string file = files_.Rising("rising", kFrames);
    const std::vector<float> expected = Passes(Once(file), kPart);
    const std::unique_ptr<MediaGraph> graph = GraphOf(file);
    graph->PutLoop(kPart);
    graph->Run();
    // In every pass, the first one too.
    for (const std::size_t count : {1000U, 6000U, 9500U}) {
        ASSERT_TRUE(Eventually([&] { return recorder_.Count() >= count; }));
        graph->Pause();
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
        graph->Run();
    }
    ASSERT_TRUE(Eventually([&] { return recorder_.Count() >= expected.size(); }));
    EXPECT_EQ(SameSamples(recorder_.Samples(), expected), expected.size());
}

TEST_F(Looping, ALoopThatIsPutWhileItPlaysHoldsFromThereOn) {
    const std::unique_ptr<MediaGraph> graph = GraphOf(files_.Rising("rising", kFrames));
    graph->Run();
    ASSERT_TRUE(Eventually([&] { return recorder_.Count() > 0; }));
    graph->PutLoop(kWhole);
    ASSERT_TRUE(Eventually([&] { return recorder_.Count() > std::size_t{3} * kFrames; }));
    EXPECT_FALSE(AtEnd(*graph));
}

TEST_F(Looping, PutBeyondTheLoopsEndItPlaysToTheFilesAndThenTheLoop) {
    const std::string file = files_.Rising("rising", kFrames);
    const std::vector<float> once = Once(file);
    const std::unique_ptr<MediaGraph> graph = GraphOf(file);
    constexpr int kFrom = 4410;  // a tenth of a second
    graph->PutLoop({0, 3000});
    graph->PutCurrentPosition(0.1);
    graph->Run();
    std::vector<float> expected(once.begin() + kFrom, once.end());
    expected.insert(expected.end(), once.begin(), once.begin() + 3000);
    ASSERT_TRUE(Eventually([&] { return recorder_.Count() >= expected.size(); }));
    EXPECT_EQ(SameSamples(recorder_.Samples(), expected), expected.size());
}

TEST_F(Looping, AGainIsHowLoudItIs) {
    const std::string file = files_.Rising("rising", kFrames);
    std::vector<float> expected = Once(file);
    for (float& sample : expected) {
        sample *= 1.5F;
    }
    const std::unique_ptr<MediaGraph> graph = GraphOf(file);
    EXPECT_TRUE(graph->PutGain(1.5));
    graph->PutLoop(kWhole);  // after it, so that it holds from the first sample on
    graph->Run();
    ASSERT_TRUE(Eventually([&] { return recorder_.Count() >= expected.size(); }));
    EXPECT_EQ(SameSamples(recorder_.Samples(), expected), expected.size());
    EXPECT_EQ(graph->Volume(), 0) << "which is another thing";
}

TEST_F(Looping, GainsThatAreNoneAreRefused) {
    const std::unique_ptr<MediaGraph> graph = GraphOf(files_.Rising("rising", kFrames));
    for (const double gain : {-0.1, 2.1, std::nan(""), HUGE_VAL}) {
        EXPECT_FALSE(graph->PutGain(gain)) << gain;
    }
}

}  // namespace
}  // namespace scenara::test
