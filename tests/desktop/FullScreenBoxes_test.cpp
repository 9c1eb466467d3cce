// SPDX-License-Identifier: MIT
//
// The full screen goes from stage to stage by keys, and a box over it is answered by keys, whatever
// the window manager makes of the full screen meanwhile.
#include <algorithm>
#include <chrono>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <optional>
#include <string>
#include <thread>

#include <gtest/gtest.h>

#include "desktop/DesktopProgram.h"
#include "desktop/Screenshot.h"

namespace scenara::test {
namespace {

// Four times the view: the full screen has no rest.
constexpr int kWidth = 1280;
constexpr int kHeight = 960;
constexpr int kTimes = 4;

// Weston shows a pointer, and the smallest box is this many times as large.
constexpr int kPointer = 1000;
constexpr int kBox = 10 * kPointer;

int CountIn(const Screenshot& shot, std::uint32_t color) {
    return static_cast<int>(std::count(shot.rgb.begin(), shot.rgb.end(), color));
}

class FullScreenBoxes : public DesktopProgram, public testing::WithParamInterface<Manager> {
protected:
    FullScreenBoxes() : DesktopProgram(DisplaySetup{GetParam(), kWidth, kHeight}) {}

    // After "bar" comes one that something is reported of, and then "cup".
    void SetUp() override {
        DesktopProgram::SetUp();
        AddTile("cup", 1);
        AddTile("dot", 2);
        std::filesystem::copy_file(StagePath("bar"), StagePath("box"));
        std::ofstream(StagePath("box"), std::ios::app) << "[BG odd]\ntype = null\n";
        AddTile("box", 2);
    }

    // How many pixels of the screen are not the picture's.
    [[nodiscard]] static int OthersIn(const Screenshot& shot) {
        int others = kWidth * kHeight;
        for (const std::uint32_t color : {kGround, kBar, kLeaf, kBrick}) {
            others -= CountIn(shot, color);
        }
        return others;
    }

    // The picture of a stage with a tile of that colour (0: without one) covers the screen.
    void ExpectCovered(std::uint32_t tile, const std::string& what) {
        constexpr int kTile = kTileWidth * kTimes * kTileHeight * kTimes;
        Screenshot shot;
        EXPECT_TRUE(Eventually([&] {
            shot = Look();
            const auto isRight = [&](std::uint32_t color) {
                return std::abs(CountIn(shot, color) - (tile == color ? kTile : 0)) < kPointer;
            };
            return OthersIn(shot) < kPointer && isRight(kLeaf) && isRight(kBrick);
        })) << what
            << ": " << OthersIn(shot) << " are not the picture's, " << CountIn(shot, kLeaf)
            << " the tile's" << display_.AllWindows();
    }
    void ExpectBox(const std::string& what) {
        EXPECT_TRUE(Eventually([&] { return OthersIn(Look()) > kBox; }))
            << what << display_.AllWindows();
    }

    // The window has come to rest.
    void StartBar() {
        display_.FillBackground();
        WriteSettings("StageList = 255\r\n");
        Start({}, StagePath("bar"));
        ASSERT_TRUE(Eventually([&] {
            const std::optional<Place> last = place_;
            place_ = MainPlace();
            std::this_thread::sleep_for(std::chrono::milliseconds(200));
            return place_ && place_ == last && PictureSize().width > 0;
        })) << display_.AllWindows();
    }
    // As it was.
    void ExpectWindow() {
        EXPECT_TRUE(Eventually([&] { return MainPlace() == place_ && OthersIn(Look()) > kBox; }))
            << display_.AllWindows();
    }
    // Until it is gone: sway gives it the keyboard late. The full screen takes no notice.
    void Answer() {
        EXPECT_TRUE(Eventually([&] {
            Key("Return");
            std::this_thread::sleep_for(std::chrono::seconds(1));
            return OthersIn(Look()) < kPointer;
        })) << "a box that is not answered"
            << display_.AllWindows();
    }

private:
    std::optional<Place> place_;
};

TEST_P(FullScreenBoxes, AreAnsweredByKeysAndTheFullScreenIsThereAfterThem) {
    StartBar();
    GoFullScreen({0, 0});
    ExpectCovered(0, "at first");
    Key("Next");
    ExpectBox("a stage with a problem");
    Answer();
    ExpectCovered(kBrick, "after the box");
    Key("Next");
    ExpectCovered(kLeaf, "the next stage");
    Key("Prior");
    ExpectBox("the same on the way back");
    Answer();
    ExpectCovered(kBrick, "after that");
    Key("Prior");
    ExpectCovered(0, "the stage before");
    Key("Escape");
    ExpectWindow();
}

// By the window manager's own means, where it has them.
class FullScreenTaken : public FullScreenBoxes {};

TEST_P(FullScreenTaken, IsLeft) {
    StartBar();
    GoFullScreen({0, 0});
    ExpectCovered(0, "at first");
    display_.Tell("fullscreen disable");
    ExpectWindow();
    GoFullScreen({0, 0});
    ExpectCovered(0, "anew");
}

INSTANTIATE_TEST_SUITE_P(On, FullScreenBoxes,
                         testing::Values(Manager::Openbox, Manager::I3, Manager::Weston,
                                         Manager::Sway),
                         [](const auto& row) { return NameOf(row.param); });

INSTANTIATE_TEST_SUITE_P(By, FullScreenTaken, testing::Values(Manager::I3, Manager::Sway),
                         [](const auto& row) { return NameOf(row.param); });

}  // namespace
}  // namespace scenara::test
