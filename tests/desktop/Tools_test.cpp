// SPDX-License-Identifier: MIT
//
// The debug tools and the frame limiter in the real window.
#include <filesystem>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "desktop/DesktopProgram.h"

namespace scenara::test {
namespace {

class DesktopTools : public DesktopProgram {
protected:
    void SetUp() override {
        DesktopProgram::SetUp();
        StartWithBar();
    }
};

TEST_F(DesktopTools, AnElementIsDraggedAndDumped) {
    Key("alt+o");
    Key("b");
    const int before = BarLeft();
    const std::string window = MainWindow();
    display_.Do("mousemove --window " + window + " 200 120 mousedown 1");
    display_.Do("mousemove --window " + window + " 240 120");
    EXPECT_TRUE(Eventually([&] { return BarLeft() == before + 40; })) << BarLeft();
    display_.Do("mouseup 1");
    display_.Do("mousemove --window " + window + " 100 120");
    EXPECT_EQ(BarLeft(), before + 40);

    Key("d");  // the list has the focus, and finds nothing by it
    ExpectTitle("Dumped to " + display_.Folder() + "bin/chek.txt");
    EXPECT_TRUE(std::filesystem::exists(Folder() / "bin/chek.txt"));

    Key("alt+o");
    Key("b");
    EXPECT_TRUE(Eventually([&] { return PictureSize() == SeenSize{320, 240}; })) << "no frame";
}

TEST_F(DesktopTools, TheBrowserShowsASpriteAtItsOwnSizeAndLeavesIt) {
    Key("alt+d");
    ExpectTitle("(1\\1)  Group: 0  Image: 0");
    EXPECT_TRUE(Eventually([&] { return PictureSize() == SeenSize{640, 240}; }));
    Key("alt+d");
    ExpectTitle("bar");
    EXPECT_TRUE(Eventually([&] { return PictureSize().height == 240; }));
    EXPECT_TRUE(Eventually([&] { return BarWidth() == 8; }));
    const int before = BarLeft();
    display_.Do("keydown Right");
    EXPECT_TRUE(Eventually([&] { return BarLeft() < before - 20; })) << "the stage goes on";
    display_.Do("keyup Right");
}

TEST_F(DesktopTools, TheLimiterAsksForARate) {
    // The fifth of the Options. Without a limit nothing is asked; the next time it is.
    const auto chooseLimiter = [&] {
        Key("alt+o");
        for (int i = 0; i < 4; ++i) {
            Key("Down");
        }
        Key("Return");
    };
    chooseLimiter();
    chooseLimiter();
    ExpectWindow("^Scenara$");
    Type("30");
    Key("Return");
    ExpectNoWindow("^Scenara$");
    display_.Do("windowactivate --sync " + MainWindow());
    const int before = BarLeft();
    display_.Do("keydown Right");
    EXPECT_TRUE(Eventually([&] { return BarLeft() < before - 20; }));
    display_.Do("keyup Right");
}

}  // namespace
}  // namespace scenara::test
