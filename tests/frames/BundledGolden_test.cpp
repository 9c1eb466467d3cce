// SPDX-License-Identifier: MIT
//
// The bundled stage that zooms, turns and goes over from frame to frame, as pictures of whole
// frames: at both ends of its zoom and between them, with the camera at different places. As in
// Golden_test.cpp, with --update they are made anew.
#include <memory>
#include <ostream>
#include <string>

#include <gtest/gtest.h>

#include "frames/PaintedStage.h"
#include "platform/posix/PosixFiles.h"
#include "support/GoldenPicture.h"

namespace scenara::test {
namespace {

struct BundledCase {
    const char* name;
    const char* stage;
    double zoom;
    const char* keys;
    int frames;
};

// What a test's name in a report ends with.
void PrintTo(const BundledCase& row, std::ostream* out) {
    *out << row.name;
}

class BundledGolden : public testing::TestWithParam<BundledCase> {};

TEST_P(BundledGolden, IsThePictureThatItWas) {
    const auto& [name, file, zoom, keys, frames] = GetParam();
    const std::string mugen = SCENARA_BUNDLED_DATA;
    ShotStage stage(std::make_unique<PosixFiles>(""), mugen + "/stages/" + file, mugen, "",
                    ViewOptions(), keys);
    stage.Zoom(zoom);
    stage.Run(frames);
    EXPECT_EQ(stage.Model().CamZoom, zoom);
    EXPECT_TRUE(MatchesGolden(name, stage.Picture(), stage.PictureSize().width,
                              stage.PictureSize().height));
}

// A rocket bursts in each, and both puppets are on their way.
INSTANTIATE_TEST_SUITE_P(
    , BundledGolden,
    testing::Values(BundledCase{"millfair_far", "millfair.def", 0.75, "left+up:14", 206},
                    BundledCase{"millfair_as_drawn", "millfair.def", 1, "", 102},
                    BundledCase{"millfair_near", "millfair.def", 1.25, "right:30", 340}),
    [](const auto& suite) { return std::string(suite.param.name); });

}  // namespace
}  // namespace scenara::test
