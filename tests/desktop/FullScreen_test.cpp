// SPDX-License-Identifier: MIT
//
// The full screen of the real window: what it shows, at which mode of the display, and how it is
// left.
#include <csignal>
#include <cstdlib>
#include <fstream>
#include <string>

#include <gtest/gtest.h>

#include "desktop/DesktopProgram.h"
#include "platform/x11/X11DisplayModes.h"

namespace scenara::test {
namespace {

// Where "Next" is in the menu bar.
constexpr int kBarMiddle = 10;
constexpr int kNext = 250;

class FullScreen : public DesktopProgram {
protected:
    void GoFullScreen() {
        Key("alt+o");
        Key("f");
        ExpectFocus();
    }
    // From now on the form is left when it loses it.
    void ExpectFocus() {
        EXPECT_TRUE(Eventually([&] {
            const std::string place = display_.Answer("getactivewindow getwindowgeometry --shell");
            return place.find("\nX=0\nY=0\n") != std::string::npos;
        }));
    }
    // A mode of 640 x 480 beside the display's own, and the wish to use it.
    void OfferSmallMode() {
        const std::string xrandr = "xrandr --display " + display_.Name() + " ";
        ASSERT_EQ(
            std::system((xrandr + "--newmode small 25.2 640 656 752 800 480 490 492 525").c_str()),
            0);
        ASSERT_EQ(std::system((xrandr + "--addmode screen small").c_str()), 0);
        std::ofstream(Folder() / "bin/Scenara.ini", std::ios::binary)
            << "SwitchDisplayMode = True\r\n";
    }
    // How wide the display's mode is.
    [[nodiscard]] Long ModeInForce() const {
        X11DisplayModes modes([] { return ScreenRectangle{100, 100, 320, 240}; }, display_.Name());
        return modes.Current().width;
    }
};

TEST_F(FullScreen, IsLeftByEscape) {
    StartWithBar();
    GoFullScreen();
    EXPECT_TRUE(Eventually([&] { return PictureSize() == SeenSize{960, 720}; })) << "three times";
    Key("Escape");
    EXPECT_TRUE(Eventually([&] { return PictureSize() == SeenSize{320, 240}; }));
    ExpectTitle("bar");
}

// At this scale the toolkit takes a screen of 1024 columns for one of 1023.
TEST_F(FullScreen, LeavesNothingOfTheScreenAsItWas) {
    constexpr std::uint32_t kRed = 0xFF0000;
    constexpr int kPixels = 1024 * 768;
    ASSERT_EQ(::setenv("QT_SCALE_FACTOR", "1.7", 1), 0);
    ASSERT_EQ(std::system(("xsetroot -display " + display_.Name() + " -solid red").c_str()), 0);
    ASSERT_TRUE(Eventually([&] { return Count(kRed) == kPixels; }));
    WriteSettings();
    Start();
    ExpectWindow("^Scenara 1.0");
    ClickAt(kNext * 17 / 10, kBarMiddle * 17 / 10);
    ExpectTitle("bar");
    GoFullScreen();
    EXPECT_TRUE(Eventually([&] { return Count(kRed) == 0; })) << Count(kRed);
    ::unsetenv("QT_SCALE_FACTOR");
}

TEST_F(FullScreen, IsLeftWhenAnotherWindowHasTheFocus) {
    StartWithBar();
    GoFullScreen();
    ASSERT_TRUE(Eventually([&] { return PictureSize() == SeenSize{960, 720}; }));
    const Child other({"xev", "-name", "elsewhere"}, display_.Environment(),
                      display_.Folder() + "other.txt");
    ExpectWindow("^elsewhere$");
    EXPECT_TRUE(Eventually([&] { return BarWidth() == 8; }));
}

TEST_F(FullScreen, TakesTheSmallestModeThatHoldsThePictureAndGivesItBack) {
    OfferSmallMode();
    StartWithBar();
    GoFullScreen();
    EXPECT_TRUE(Eventually([&] { return ModeInForce() == 640; }));
    EXPECT_TRUE(Eventually([&] { return PictureSize() == SeenSize{640, 480}; })) << "twice";
    Key("Escape");
    EXPECT_TRUE(Eventually([&] { return ModeInForce() == 1024; }));
    EXPECT_TRUE(Eventually([&] { return PictureSize() == SeenSize{320, 240}; }));
    ExpectTitle("bar");
}

// That the environment has no display, or another one, does not matter.
TEST_F(FullScreen, TakesAModeOfTheDisplayThatTheToolkitIsToldOf) {
    OfferSmallMode();
    WriteSettings();
    environment_ = {"DISPLAY"};
    program_.emplace(std::vector<std::string>{display_.Folder() + "bin/scenara", "-display",
                                              display_.Name(), StagePath("bar")},
                     ProgramEnvironment(), display_.Folder() + "program.txt");
    ExpectTitle("bar");
    GoFullScreen();
    EXPECT_TRUE(Eventually([&] { return ModeInForce() == 640; }));
    Key("Escape");
    EXPECT_TRUE(Eventually([&] { return ModeInForce() == 1024; }));
}

// Each time that it is asked a busy manager answers, too late and all at once; and the program
// stops to ask before that.
TEST_F(FullScreen, ComesThoughTheWindowManagerIsBusyForLong) {
    OfferSmallMode();
    StartWithBar();
    Key("alt+o");
    display_.SignalManager(SIGSTOP);
    Key("f");
    ASSERT_TRUE(Eventually([&] { return ModeInForce() == 640; }));
    ASSERT_EQ(std::system("sleep 0.5"), 0);  // some frames
    EXPECT_EQ(ModeInForce(), 640) << "it is not left";
    display_.SignalManager(SIGCONT);
    EXPECT_TRUE(Eventually([&] { return PictureSize() == SeenSize{640, 480}; }));
    ExpectFocus();
    EXPECT_EQ(ModeInForce(), 640);
    Key("Escape");
    EXPECT_TRUE(Eventually([&] { return ModeInForce() == 1024; }));
}

}  // namespace
}  // namespace scenara::test
