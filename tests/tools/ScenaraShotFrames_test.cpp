// SPDX-License-Identifier: MIT
//
// Frames by scenara-shot: how many, which keys, which files.
#include <algorithm>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "ShotProgram.h"
#include "support/FuzzChecks.h"
#include "support/GoldenPicture.h"

namespace scenara::test {
namespace {

using testing::Each;
using testing::HasSubstr;

// A wall that stays where it is, and a picture of 9 x 7 pixels, axis 0,0, that stands at 160,100
// and moves with the camera.
constexpr const char* kStage =
    "[Camera]\nboundleft = -100\nboundright = 100\nboundhigh = -50\nboundlow = 0\n"
    "[BGdef]\nspr = a.sff\n"
    "[BG wall]\ntype = normal\nspriteno = 0,1\nstart = 0,0\ndelta = 0,0\ntile = 1,1\n"
    "[BG picture]\ntype = normal\nspriteno = 0,0\nstart = 0,100\n";

class ScenaraShotFrames : public ScenaraShot {
protected:
    void SetUp() override {
        PutStage("a.def", kStage);
        Write(Path("mugen/stages/a.sff"), SmallArchiveBytes());
    }

    // The picture that a run with these arguments leaves in FILE.png.
    std::vector<std::uint32_t> Shot(const std::string& arguments,
                                    const std::string& file = "a.png") {
        EXPECT_EQ(RunHere("a.def --out " + Path("a.png") + " " + arguments), 0);
        EXPECT_EQ(err_, "");
        return Read(file);
    }

    [[nodiscard]] std::vector<std::uint32_t> Read(const std::string& file) const {
        const std::optional<Picture> picture = ReadPicture(Path(file));
        if (!picture) {
            ADD_FAILURE() << file << " is no picture";
            return {};
        }
        return picture->pixels;
    }
};

TEST_F(ScenaraShotFrames, OneFrameIsDrawnWhenNobodySaysHowMany) {
    EXPECT_EQ(Shot(""), Shot("--frames 1"));
}

TEST_F(ScenaraShotFrames, EveryPixelIsOpaque) {
    for (const std::uint32_t pixel : Shot("")) {
        ASSERT_EQ(pixel >> 24U, 0xFFU);
    }
}

TEST_F(ScenaraShotFrames, TheCameraMovesTwicePerFrameAndThePictureFollows) {
    const auto unmoved = Shot("--frames 5");
    const auto moved = Shot("--frames 5 --keys right:3");
    EXPECT_NE(moved, unmoved);
    // Three frames of two steps of one pixel: what stood at 160 stands at 154.
    for (std::size_t y = 100; y < 107; ++y) {
        for (std::size_t x = 0; x < 9; ++x) {
            ASSERT_EQ(moved[y * 320 + 154 + x], unmoved[y * 320 + 160 + x]) << x << ',' << y;
        }
    }
}

TEST_F(ScenaraShotFrames, ASizeHoldsForEveryPictureThatIsWritten) {
    EXPECT_EQ(RunHere("a.def --frames 2 --every 2 --size 100x100 --smooth --out " + Path("a.png")),
              0);
    for (const char* file : {"a.png", "a-00001.png"}) {
        const std::optional<Picture> picture = ReadPicture(Path(file));
        ASSERT_TRUE(picture) << file;
        EXPECT_EQ(picture->width, 100);
        EXPECT_EQ(picture->height, 75);
    }
    EXPECT_EQ(RunHere("a.def --size 100 --out " + Path("a.png")), 2);
}

TEST_F(ScenaraShotFrames, TheKeysOfAFrameActInThatFrame) {
    // A move made in frame 1 is seen in frame 2, but for its second step, which follows behind.
    const auto first = Shot("--frames 1 --keys right:1");
    EXPECT_EQ(first, Shot("--frames 1"));
    const auto second = Shot("--frames 2 --keys right:1");
    EXPECT_NE(second, first);
    EXPECT_EQ(Shot("--frames 7 --keys none:3,right:2"), Shot("--frames 7 --keys right:2"));
    EXPECT_EQ(Shot("--frames 4 --keys left+right:3"), Shot("--frames 4"));
}

TEST_F(ScenaraShotFrames, UpShowsWhatLiesAbove) {
    const auto unmoved = Shot("--frames 5");
    const auto moved = Shot("--frames 5 --keys up:3");
    EXPECT_EQ(moved[106 * 320 + 160], unmoved[100 * 320 + 160]) << "six pixels further down";
    EXPECT_NE(moved, unmoved);
}

TEST_F(ScenaraShotFrames, EveryKthFrameIsWrittenAndTheLastOne) {
    const auto last = Shot("--frames 10 --every 4 --keys right:10");
    EXPECT_EQ(Read("a-00001.png"), Shot("--frames 4 --keys right:10"));
    EXPECT_EQ(Read("a-00002.png"), Shot("--frames 8 --keys right:10"));
    EXPECT_FALSE(fs::exists(Path("a-00003.png")));
    EXPECT_EQ(last, Shot("--frames 10 --keys right:10"));
}

TEST_F(ScenaraShotFrames, InfoStandsInItsRectangleFromTheFirstFrameOn) {
    const auto without = Shot("");
    const auto with = Shot("--info");
    std::size_t different = 0;
    for (std::size_t i = 0; i < with.size(); ++i) {
        if (with[i] != without[i]) {
            ++different;
            const std::size_t x = i % 320;
            const std::size_t y = i / 320;
            ASSERT_TRUE(x >= 5 && x < 205 && y >= 5 && y < 25) << x << ',' << y;
        }
    }
    EXPECT_GT(different, 100U) << "there is text";
}

TEST_F(ScenaraShotFrames, ManyFramesWithoutAFileJustRun) {
    EXPECT_EQ(RunHere("a.def --frames 500"), 0);
    EXPECT_EQ(out_, "");
    EXPECT_EQ(err_, "");
}

TEST_F(ScenaraShotFrames, AStageThatCannotBeShownLeavesNoPicture) {
    EXPECT_EQ(RunHere("gone.def --out " + Path("a.png")), 1);
    EXPECT_FALSE(fs::exists(Path("a.png")));
}

TEST_F(ScenaraShotFrames, APictureThatCannotBeWrittenIsAFailure) {
    EXPECT_EQ(RunHere("a.def --out " + Path("no/such/a.png")), 1);
    EXPECT_THAT(err_, HasSubstr("no/such/a.png"));
}

TEST_F(ScenaraShotFrames, WrongUseIsExplained) {
    for (const char* wrong : {"--frames 0", "--frames x", "--every 3", "--keys jump:3",
                              "--out a.png --every 0", "--keys right:"}) {
        EXPECT_EQ(RunHere(std::string("a.def ") + wrong), 2) << wrong;
        EXPECT_THAT(err_, HasSubstr("Usage: scenara-shot")) << wrong;
    }
}

// The whole of what an author sees: every stage, with the camera at every edge, without a word.
TEST_F(ScenaraShotFrames, TheBundledStagesShowEverywhere) {
    for (const char* stage : {"cloudharbour.def", "glasslagoon.def", "lanternpier.def",
                              "millfair.def", "nightexpress.def", "thousandpanes.def"}) {
        std::vector<std::vector<std::uint32_t>> pictures;
        for (const char* keys : {"none:1", "left:200", "right:200", "up:100"}) {
            EXPECT_EQ(Run("--mugen " SCENARA_BUNDLED_DATA " " + std::string(stage) + " --keys " +
                          keys + " --frames 220 --info --out " + Path("a.png")),
                      0);
            EXPECT_EQ(err_, "") << stage;
            EXPECT_THAT(pictures, Each(testing::Ne(Read("a.png")))) << stage << ' ' << keys;
            pictures.push_back(Read("a.png"));
        }
    }
}

// A stage's own zoom is kept, so these are its ends.
std::vector<std::string> ZoomEnds(const std::string& definition) {
    return definition.find("zoomin") == std::string::npos
               ? std::vector<std::string>{""}
               : std::vector<std::string>{"--zoom .01 ", "--zoom 64 "};
}

// With debugbg the view is magenta where no element is.
TEST_F(ScenaraShotFrames, TheBundledStagesCoverTheViewAtEveryBound) {
    const std::string hidden = "debugbg = 0";
    for (const char* stage : {"cloudharbour.def", "glasslagoon.def", "lanternpier.def",
                              "millfair.def", "nightexpress.def", "thousandpanes.def"}) {
        std::string definition = Contents(SCENARA_BUNDLED_DATA "/stages/" + std::string(stage));
        const auto place = definition.find(hidden);
        ASSERT_NE(place, std::string::npos) << stage;
        PutStage("holes.def", definition.replace(place, hidden.size(), "debugbg = 1"));
        for (const std::string& zoom : ZoomEnds(definition)) {
            for (const char* keys : {"left:200", "right:200", "left+up:200", "right+up:200"}) {
                EXPECT_EQ(
                    Run("--mugen " SCENARA_BUNDLED_DATA " " + Path("mugen/stages/holes.def") +
                        " --keys " + keys + " --frames 210 " + zoom + "--out " + Path("a.png")),
                    0);
                const auto pixels = Read("a.png");
                EXPECT_EQ(std::count(pixels.begin(), pixels.end(), 0xFFFF00FFU), 0)
                    << stage << ' ' << zoom << keys;
            }
        }
    }
}

TEST_F(ScenaraShotFrames, RealStagesShowEverywhere) {
    if (!fs::exists(SCENARA_SAMPLE_DATA)) {
        GTEST_SKIP() << "no real MUGEN folder at " SCENARA_SAMPLE_DATA;
    }
    for (const char* stage : {"kfm.def", "stage0.def"}) {
        for (const char* keys : {"left:200", "right:200", "up:100"}) {
            EXPECT_EQ(Run("--mugen " SCENARA_SAMPLE_DATA " " + std::string(stage) + " --keys " +
                          keys + " --frames 220 --out " + Path("a.png")),
                      0);
            EXPECT_EQ(err_, "") << stage;
            // No gap: the view is covered, so nothing is left of the black it begins with. (The
            // stages' own blacks are few.)
            const auto pixels = Read("a.png");
            EXPECT_LT(std::count(pixels.begin(), pixels.end(), 0xFF000000U), 76800 / 50)
                << stage << ' ' << keys;
        }
    }
}

}  // namespace
}  // namespace scenara::test
