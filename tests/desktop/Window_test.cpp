// SPDX-License-Identifier: MIT
//
// A stage in the real window, as a user has it before them.
#include <algorithm>
#include <fstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "desktop/DesktopProgram.h"

namespace scenara::test {
namespace {

class DesktopWindow : public DesktopProgram {
protected:
    void SetUp() override {
        DesktopProgram::SetUp();
        StartWithBar();
    }
};

TEST_F(DesktopWindow, ScrollsWhileAnArrowKeyIsHeld) {
    const Bar before = *Seen();
    display_.Do("keydown Right");
    EXPECT_TRUE(Eventually([&] { return BarLeft() < before.left - 20; })) << "to the left";
    display_.Do("keyup Right");
    ASSERT_TRUE(Eventually([&] {
        const int first = BarLeft();
        return first == BarLeft();
    })) << "and stands when it is let go";
    const int moved = BarLeft();
    display_.Do("keydown Left");
    EXPECT_TRUE(Eventually([&] { return BarLeft() > moved + 20; }));
    display_.Do("keyup Left");
    ExpectTitle("bar");  // the list has the focus, and has not moved
}

TEST_F(DesktopWindow, StopsWhilePaused) {
    Key("alt+p");
    ExpectTitle("bar <<PAUSED>>");
    const int before = BarLeft();
    display_.Do("keydown Right");
    for (int look = 0; look < 5; ++look) {
        EXPECT_EQ(BarLeft(), before);
    }
    display_.Do("keyup Right");
    Key("Pause");  // the key by itself does it, too
    ExpectTitle("bar");
    display_.Do("keydown Right");
    EXPECT_TRUE(Eventually([&] { return BarLeft() < before - 20; }));
    display_.Do("keyup Right");
}

TEST_F(DesktopWindow, ShowsThePictureAsLargeAsThereIsRoom) {
    display_.Do("windowsize " + MainWindow() + " 860 560");
    EXPECT_TRUE(Eventually([&] { return BarWidth() == 16; })) << "twice";
    display_.Do("windowsize " + MainWindow() + " 640 430");
    EXPECT_TRUE(Eventually([&] { return BarWidth() == 12; })) << "one and a half times";
    Key("alt+x");
    Key("w");
    EXPECT_TRUE(Eventually([&] { return BarWidth() == 8; })) << "at whole multiples only";
    display_.Do("windowsize " + MainWindow() + " 490 290");
    EXPECT_TRUE(Eventually([&] { return BarWidth() == 8; }));
}

TEST_F(DesktopWindow, AMenuShowsTheInfoLineAndThePictureGoesOn) {
    // The line's own text, white on the picture; the list beside it is white as well.
    const auto whiteInPicture = [&] {
        const Screenshot shot = display_.Look();
        const int right = BarLeft();
        int white = 0;
        for (int y = 0; y < shot.height; ++y) {
            for (int x = 0; x < std::min(right, shot.width); ++x) {
                white += shot.At(x, y) == 0xFFFFFFU ? 1 : 0;
            }
        }
        return white;
    };
    const int before = whiteInPicture();
    Key("alt+o");
    Key("i");
    EXPECT_TRUE(Eventually([&] { return whiteInPicture() > before + 50; }));
    const int bar = BarLeft();
    display_.Do("keydown Right");
    EXPECT_TRUE(Eventually([&] { return BarLeft() < bar; }));
    display_.Do("keyup Right");
}

TEST_F(DesktopProgram, KeysAndTheWheelZoomAlsoInTheFullScreen) {
    std::ofstream file(StagePath("cup"));
    file << "[Info]\nname = cup\n[Camera]\nzoomout = 1\nzoomin = 3\nstartzoom = 2\n"
         << "[BGdef]\nspr = stages/bar.sff\n[BG bar]\ntype = normal\nspriteno = 0,0\n";
    file.close();
    WriteSettings();
    Start({}, StagePath("cup"));
    ExpectTitle("cup");
    ASSERT_TRUE(Eventually([&] { return BarWidth() == 16; })) << "as it starts";
    Key("ctrl+plus");
    Key("ctrl+KP_Add");
    Key("ctrl+equal");  // of a keyboard that has + above it
    EXPECT_TRUE(Eventually([&] { return BarWidth() == 21; })) << "8 x 2.6";
    Key("ctrl+minus");
    EXPECT_TRUE(Eventually([&] { return BarWidth() == 19; })) << "8 x 2.4";
    Key("ctrl+0");
    EXPECT_TRUE(Eventually([&] { return BarWidth() == 16; }));
    display_.Do("mousemove --window " + MainWindow() + " 100 150 keydown ctrl click 5 keyup ctrl");
    EXPECT_TRUE(Eventually([&] { return BarWidth() == 14; })) << "8 x 1.8";
    display_.Do("click 5");  // without Ctrl it does nothing
    Key("alt+o");
    Key("f");
    EXPECT_TRUE(Eventually([&] { return BarWidth() == 42; })) << "three times";
    Key("ctrl+0");
    EXPECT_TRUE(Eventually([&] { return BarWidth() == 48; }));
    display_.Do("keydown ctrl click 4 keyup ctrl");
    EXPECT_TRUE(Eventually([&] { return BarWidth() == 54; })) << "8 x 2.2, three times";
    Key("Escape");
    EXPECT_TRUE(Eventually([&] { return BarWidth() == 18; }));
}

// Every frame of it takes seconds.
TEST_F(DesktopProgram, AStageThatIsTooHeavySaysSoAndCanBeLeft) {
    std::ofstream file(StagePath("heavy"));
    file << "[Info]\nname = heavy\n[Camera]\nboundleft = -9\n[BGdef]\nspr = stages/bar.sff\n";
    for (int i = 0; i < 30'000; ++i) {
        file << "[BG light]\ntype = normal\nspriteno = 0,1\ntile = 1,1\ntrans = add\n";
    }
    file.close();
    StartWithBar();
    ClickListItem(3);
    ExpectTitle("heavy <<TOO HEAVY>>");
    ClickListItem(0);
    ExpectTitle("bar");
    ClickListItem(3);
    ExpectTitle("heavy <<TOO HEAVY>>");
    Key("alt+F4");
    EXPECT_EQ(WaitForEnd(), 0);
}

TEST_F(DesktopWindow, ClosingItEndsTheProgram) {
    Key("alt+F4");
    EXPECT_EQ(WaitForEnd(), 0);
}

TEST_F(DesktopWindow, TheExitItemEndsTheProgram) {
    ClickAt(25, 10);  // the Stage menu
    Key("e");
    EXPECT_EQ(WaitForEnd(), 0);
}

TEST_F(DesktopWindow, PlainASecondInstanceSaysSoAndEnds) {
    std::ofstream(Folder() / "bin/Scenara.ini", std::ios::binary) << "Additions = False\r\n";
    std::vector<std::string> environment = display_.Environment();
    environment.push_back("ASAN_OPTIONS=detect_leaks=0");
    Child second({display_.Folder() + "bin/scenara"}, environment,
                 display_.Folder() + "second.txt");
    ExpectBox();
    Key("Return");
    EXPECT_EQ(second.ExitStatus(), 0);
    EXPECT_TRUE(Eventually([&] { return Seen().has_value(); })) << "the first one goes on";
}

TEST(WithoutADisplay, TheProgramSaysSoAndEnds) {
    const TemporaryFolder folder;
    Child program({SCENARA_PROGRAM}, {"DISPLAY=:4095", "QT_QPA_PLATFORM="},
                  folder.Path() + "out.txt");
    EXPECT_EQ(program.ExitStatus(), 1);
    std::ifstream said(folder.Path() + "out.txt");
    std::string line;
    std::getline(said, line);
    EXPECT_EQ(line, "scenara: there is no display to show a window on");
}

// Where the window was narrower before, and where the user tries.
TEST_F(DesktopProgram, TheWindowIsWideEnoughForItsMenus) {
    WriteSettings();  // 320 wide
    Start({}, StagePath("bar"));
    ExpectTitle("bar");
    constexpr int kMostOfMenus = 479;
    int width = 0;
    EXPECT_TRUE(Eventually([&] {
        width = WindowSize().width;
        return width > 320 && width <= kMostOfMenus;
    })) << width;
    const std::string hints = display_.Property("-id " + MainWindow(), "WM_NORMAL_HINTS");
    EXPECT_NE(hints.find("minimum size: " + std::to_string(width) + " by"), std::string::npos)
        << hints;
    display_.Do("windowsize " + MainWindow() + " 200 500");
    EXPECT_TRUE(Eventually([&] { return WindowSize().height == 500; }));
    EXPECT_EQ(WindowSize().width, width);
}

}  // namespace
}  // namespace scenara::test
