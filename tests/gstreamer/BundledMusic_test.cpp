// SPDX-License-Identifier: MIT
//
// The tunes of the bundled stages, as the program plays them.
#include <string>

#include <gtest/gtest.h>

#include "gstreamer/Eventually.h"
#include "gstreamer/Listener.h"
#include "music/clsMusic.h"
#include "platform/gstreamer/GStreamerMedia.h"

namespace scenara::test {
namespace {

struct Tune {
    const char* file;
    double seconds;
};

class BundledMusic : public testing::TestWithParam<Tune> {};

TEST_P(BundledMusic, IsOfTheLengthThatIsWrittenAndPlays) {
    Listener listener;
    GStreamerMedia media(listener.Maker());
    media.Start();
    clsMusic music(media);
    music.SetFileName(std::string(SCENARA_BUNDLED_DATA "/sound/") + GetParam().file);
    ASSERT_TRUE(Eventually([&] { return music.HasAudio(); }));
    EXPECT_NEAR(music.Duration(), GetParam().seconds, 0.01);
    music.SetPosition(music.Duration() - 0.2);
    music.Play();
    ASSERT_TRUE(Eventually([&] { return music.AtEnd(); }));
    RestartAtEnd(music);
    EXPECT_TRUE(Eventually([&] { return music.Position() > 0 && listener.Left() > 0; }));
}

// 128 steps of 0.395 s, as many of 0.45 s, 96 of 0.25 s; 5 patterns of 64 rows of 0.12 s; 96 steps
// of 5700 / 22050 s.
INSTANTIATE_TEST_SUITE_P(All, BundledMusic,
                         testing::Values(Tune{"pier.mid", 50.56}, Tune{"lagoon.mid", 57.6},
                                         Tune{"fair.mid", 24}, Tune{"express.mod", 38.4},
                                         Tune{"panes.wav", 24.816}),
                         [](const testing::TestParamInfo<Tune>& test) {
                             const std::string name = test.param.file;
                             return name.substr(0, name.find('.'));
                         });

}  // namespace
}  // namespace scenara::test
