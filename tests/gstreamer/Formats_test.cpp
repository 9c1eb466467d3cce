// SPDX-License-Identifier: MIT
//
// Every format that stages come with: how long it is, where it is put, how it ends and begins
// again.
#include <chrono>
#include <functional>
#include <ostream>
#include <string>
#include <thread>

#include <gtest/gtest.h>

#include "gstreamer/Eventually.h"
#include "gstreamer/Listener.h"
#include "gstreamer/SoundFiles.h"
#include "music/clsMusic.h"
#include "platform/gstreamer/GStreamerMedia.h"

namespace scenara::test {
namespace {

struct Format {
    const char* name;
    std::function<std::string(const SoundFiles&)> make;
    // How much longer the format makes the tone, at most: some consist of blocks.
    double surplus = 0;
    // Whether the length is known before it has been played.
    bool knowsItsLength = true;
};

void PrintTo(const Format& format, std::ostream* out) {
    *out << format.name;
}

Format Encoded(const char* name, const char* encoders, double surplus, bool knowsItsLength = true) {
    return {name,
            [name, encoders](const SoundFiles& files) { return files.Encoded(name, encoders); },
            surplus, knowsItsLength};
}

class Formats : public testing::TestWithParam<Format> {
protected:
    Formats() {
        media_.Start();
        music_.SetFileName(GetParam().make(files_));
    }

    bool IsOpen() {
        return Eventually([this] { return music_.HasAudio(); });
    }

    bool GetsGoing() {
        return Eventually([this, blocks = listener_.Blocks()] {
            return listener_.Blocks() > blocks && music_.Position() > 0 && !music_.AtEnd();
        });
    }

    bool Ends() {
        return Eventually([this] { return music_.AtEnd(); });
    }

    void ExpectRightLength() {
        EXPECT_GE(music_.Duration(), kToneLength - 0.01);
        EXPECT_LE(music_.Duration(), kToneLength + GetParam().surplus + 0.01);
    }

    SoundFiles files_;
    Listener listener_;
    GStreamerMedia media_{listener_.Maker()};
    clsMusic music_{media_};
};

TEST_P(Formats, IsOpenedWithoutBeingPlayed) {
    ASSERT_TRUE(IsOpen());
    EXPECT_EQ(music_.State(), 0);
    EXPECT_EQ(music_.Position(), 0);
    EXPECT_EQ(music_.Volume(), 0);
    EXPECT_EQ(music_.Balance(), 0);
    EXPECT_EQ(music_.Speed(), 1);
    EXPECT_FALSE(music_.AtEnd());
    if (GetParam().knowsItsLength) {
        ExpectRightLength();
    }
}

TEST_P(Formats, PlaysToItsEndAndAgain) {
    music_.Play();
    EXPECT_EQ(music_.State(), 1);
    ASSERT_TRUE(IsOpen());
    ASSERT_TRUE(Ends());
    EXPECT_EQ(music_.Position(), music_.Duration());
    EXPECT_EQ(music_.State(), 1);
    EXPECT_GT(listener_.Blocks(), 0);
    ExpectRightLength();
    const double length = music_.Duration();

    RestartAtEnd(music_);
    EXPECT_FALSE(music_.AtEnd());
    ASSERT_TRUE(GetsGoing());
    RestartAtEnd(music_);  // not before the end
    ASSERT_TRUE(Ends());
    EXPECT_EQ(music_.Position(), music_.Duration());
    EXPECT_NEAR(music_.Duration(), length, 0.001);

    // Stopped at the end, and played again.
    music_.StopPlaying();
    EXPECT_TRUE(music_.AtEnd());
    music_.Play();
    ASSERT_TRUE(GetsGoing());
    EXPECT_TRUE(Ends());
}

TEST_P(Formats, PausedItStays) {
    music_.Play();
    ASSERT_TRUE(GetsGoing());
    music_.Pause();
    EXPECT_EQ(music_.State(), 2);
    // Nothing is played for a while, which without the pause would be so at the end only.
    ASSERT_TRUE(Eventually([this] {
        const int blocks = listener_.Blocks();
        std::this_thread::sleep_for(std::chrono::milliseconds(100));
        return listener_.Blocks() == blocks;
    }));
    EXPECT_FALSE(music_.AtEnd());
    music_.Play();
    EXPECT_TRUE(Ends());
}

TEST_P(Formats, GoesWhereItIsPut) {
    ASSERT_TRUE(IsOpen());
    if (!GetParam().knowsItsLength) {
        // The length is found out by playing.
        music_.Play();
        ASSERT_TRUE(Ends());
        music_.StopPlaying();
    }
    music_.SetPosition(0.25);
    EXPECT_EQ(music_.Position(), 0.25);
    music_.Play();
    ASSERT_TRUE(Eventually([this] { return music_.Position() > 0.25; }));
    ASSERT_TRUE(Ends());

    music_.SetPosition(100);
    EXPECT_TRUE(music_.AtEnd());
    music_.SetPosition(-1);
    EXPECT_FALSE(music_.AtEnd());
    ASSERT_TRUE(GetsGoing());
    music_.SetPosition(100);
    EXPECT_EQ(music_.Position(), music_.Duration());
    RestartAtEnd(music_);
    EXPECT_TRUE(GetsGoing());
    EXPECT_TRUE(Ends());
}

TEST_P(Formats, TakesSpeedVolumeAndBalance) {
    ASSERT_TRUE(IsOpen());
    music_.SetSpeed(1.5);
    EXPECT_EQ(music_.Speed(), 1.5);
    music_.SetVolume(-1200);
    EXPECT_EQ(music_.Volume(), -1200);
    music_.SetBalance(-300);
    EXPECT_EQ(music_.Balance(), -300);
    EXPECT_FALSE(music_.AtEnd());
    music_.Play();
    ASSERT_TRUE(Eventually([this] { return listener_.Rate() == 1.5; }));
    ASSERT_TRUE(Ends());
    ExpectRightLength();

    RestartAtEnd(music_);
    ASSERT_TRUE(GetsGoing());
    EXPECT_EQ(listener_.Rate(), 1.5);
    music_.SetSpeed(2);
    EXPECT_TRUE(Eventually([this] { return listener_.Rate() == 2; }));
    EXPECT_TRUE(Ends());
}

// Encoded sound comes in blocks, MP3 with blocks of silence around it.
constexpr double kMp3Surplus = 0.1;

INSTANTIATE_TEST_SUITE_P(
    All, Formats,
    testing::Values(
        Format{"wav", [](const SoundFiles& files) { return files.Wav("tone.wav"); }},
        Format{"wav8", [](const SoundFiles& files) { return files.Wav8("tone.wav"); }},
        Format{"wav_adpcm", [](const SoundFiles& files) { return files.WavAdpcm("tone.wav"); },
               0.05},
        Encoded("flac", "flacenc", 0), Encoded("vorbis", "vorbisenc ! oggmux", 0.03),
        Encoded("opus", "audioresample ! opusenc ! oggmux", 0.03),
        Encoded("mp3", "lamemp3enc ! xingmux", kMp3Surplus),
        Encoded("mp3_cbr", "lamemp3enc target=bitrate cbr=true bitrate=128 ! xingmux", kMp3Surplus),
        Encoded("mp3_without_header", "lamemp3enc", kMp3Surplus, false),
        Encoded("mp3_cbr_without_header", "lamemp3enc target=bitrate cbr=true bitrate=128",
                kMp3Surplus, false),
        Format{"midi", [](const SoundFiles& files) { return files.Midi("tone.mid"); }},
        Format{"module", [](const SoundFiles& files) { return files.Module("tone.mod"); }, 0.12}),
    [](const testing::TestParamInfo<Format>& test) { return std::string(test.param.name); });

}  // namespace
}  // namespace scenara::test
