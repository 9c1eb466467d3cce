// SPDX-License-Identifier: MIT
//
// Modes of a virtual display. It has one screen of 1024 x 768 without a frequency; other modes are
// given to it by hand.
#include "platform/x11/X11DisplayModes.h"

#include <csignal>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include "desktop/VirtualDisplay.h"

namespace scenara::test {
namespace {

using testing::Contains;
using testing::ElementsAre;

constexpr DisplaySettings kOwn{1024, 768, 24, 0};
constexpr DisplaySettings kFullScreen{320, 240, 24, 60};
constexpr DisplaySettings kEmulated = X11DisplayModes::kEmulated;
constexpr DisplaySettings kSmall{640, 480, 24, 60};

class X11DisplayModesTest : public testing::Test {
protected:
    [[nodiscard]] std::string Name() const {
        return display_.Environment().at(0).substr(std::string("DISPLAY=").size());
    }
    [[nodiscard]] std::unique_ptr<X11DisplayModes> Modes() const {
        return std::make_unique<X11DisplayModes>(
            [] {
                return ScreenRectangle{100, 100, 320, 240};
            },
            Name());
    }
    void Xrandr(const std::string& words) const {
        const std::string command =
            "xrandr --display " + Name() + " " + words + " >/dev/null 2>" + display_.Folder() + "x";
        ASSERT_EQ(std::system(command.c_str()), 0) << command;
    }
    // A mode of 60 Hz: 5.04 MHz / (400 x 210), and 25.2 MHz / (800 x 525).
    void AddFullScreenMode() const {
        Xrandr("--newmode full 5.04 320 328 360 400 240 241 244 210");
        Xrandr("--addmode screen full");
    }
    void AddSmallMode() const {
        Xrandr("--newmode small 25.2 640 656 752 800 480 490 492 525");
        Xrandr("--addmode screen small");
    }
    // What the display itself says, asked on another connection.
    [[nodiscard]] DisplaySettings Shown() const { return Modes()->Current(); }

    static std::vector<DisplaySettings> All(X11DisplayModes& modes) {
        std::vector<DisplaySettings> all;
        while (const auto mode = modes.EnumDisplaySettings(static_cast<Long>(all.size()))) {
            all.push_back(*mode);
        }
        return all;
    }

    // Runs in another process: switches to the mode, says so, and waits to be ended.
    [[nodiscard]] pid_t StartSwitched(const DisplaySettings& mode) const {
        int ready[2] = {-1, -1};
        EXPECT_EQ(::pipe(ready), 0);
        const pid_t child = ::fork();
        if (child == 0) {
            const auto modes = Modes();
            const char answer = modes->ChangeDisplaySettings(mode) ? 'y' : 'n';
            static_cast<void>(::write(ready[1], &answer, 1) == 1);
            while (true) {
                ::pause();
            }
        }
        char answer = 0;
        EXPECT_EQ(::read(ready[0], &answer, 1), 1);
        EXPECT_EQ(answer, 'y');
        ::close(ready[0]);
        ::close(ready[1]);
        return child;
    }

    VirtualDisplay display_;
};

TEST_F(X11DisplayModesTest, ListsTheScreensOwnModeAndOneOfItsMaking) {
    const auto modes = Modes();
    EXPECT_THAT(All(*modes), ElementsAre(kOwn, kEmulated));
    EXPECT_EQ(modes->Current(), kOwn);
    EXPECT_FALSE(modes->EnumDisplaySettings(2).has_value());
    EXPECT_FALSE(modes->EnumDisplaySettings(-1).has_value());
}

TEST_F(X11DisplayModesTest, TheModeOfItsMakingChangesNothingAndIsRemembered) {
    const auto modes = Modes();
    EXPECT_TRUE(modes->ChangeDisplaySettings(kEmulated));
    EXPECT_EQ(modes->Current(), kEmulated);
    EXPECT_EQ(Shown(), kOwn) << "on the display";
    EXPECT_THAT(All(*modes), ElementsAre(kOwn, kEmulated));
    EXPECT_EQ(modes->Current(), kEmulated) << "listing the modes forgets nothing";
    EXPECT_TRUE(modes->ChangeDisplaySettings(kOwn));
    EXPECT_EQ(modes->Current(), kOwn);
    EXPECT_TRUE(modes->ChangeDisplaySettings(kEmulated));
    modes->Restore();
    EXPECT_EQ(modes->Current(), kOwn);
}

TEST_F(X11DisplayModesTest, SwitchesToARealModeAndBack) {
    AddFullScreenMode();
    const auto modes = Modes();
    EXPECT_THAT(All(*modes), testing::UnorderedElementsAre(kOwn, kFullScreen));
    EXPECT_TRUE(modes->ChangeDisplaySettings(kFullScreen));
    EXPECT_EQ(modes->Current(), kFullScreen);
    EXPECT_EQ(Shown(), kFullScreen);
    EXPECT_THAT(All(*modes), testing::UnorderedElementsAre(kOwn, kFullScreen));
    EXPECT_TRUE(modes->ChangeDisplaySettings(kOwn));
    EXPECT_EQ(modes->Current(), kOwn);
    EXPECT_EQ(Shown(), kOwn);
}

TEST_F(X11DisplayModesTest, ComesBackFromOneSwitchAfterAnother) {
    AddFullScreenMode();
    AddSmallMode();
    const auto modes = Modes();
    EXPECT_TRUE(modes->ChangeDisplaySettings(kSmall));
    EXPECT_TRUE(modes->ChangeDisplaySettings(kFullScreen));
    EXPECT_EQ(Shown(), kFullScreen);
    modes->Restore();
    EXPECT_EQ(Shown(), kOwn);
}

TEST_F(X11DisplayModesTest, GivesTheScreenBackAtItsEnd) {
    AddFullScreenMode();
    {
        const auto modes = Modes();
        EXPECT_TRUE(modes->ChangeDisplaySettings(kFullScreen));
        EXPECT_EQ(Shown(), kFullScreen);
    }
    EXPECT_EQ(Shown(), kOwn);
}

TEST_F(X11DisplayModesTest, ComesBackToTheModeThatWasInForceAtTheSwitch) {
    AddFullScreenMode();
    AddSmallMode();
    const auto modes = Modes();
    Xrandr("--output screen --mode small");
    EXPECT_EQ(modes->Current(), kSmall) << "which another program has set";
    EXPECT_TRUE(modes->ChangeDisplaySettings(kFullScreen));
    modes->Restore();
    EXPECT_EQ(Shown(), kSmall);
}

TEST_F(X11DisplayModesTest, NothingElseIsSwitchedTo) {
    AddFullScreenMode();
    const auto modes = Modes();
    for (const DisplaySettings& mode :
         {DisplaySettings{320, 240, 24, 61}, DisplaySettings{320, 240, 16, 60},
          DisplaySettings{800, 600, 24, 60}, DisplaySettings{}}) {
        EXPECT_FALSE(modes->ChangeDisplaySettings(mode));
    }
    EXPECT_EQ(Shown(), kOwn);
}

TEST_F(X11DisplayModesTest, AModeThatHasGoneIsRefused) {
    AddFullScreenMode();
    AddSmallMode();
    const auto modes = Modes();
    EXPECT_THAT(All(*modes), Contains(kSmall));
    Xrandr("--delmode screen small");
    Xrandr("--rmmode small");
    EXPECT_FALSE(modes->ChangeDisplaySettings(kSmall));
    EXPECT_EQ(modes->Current(), kOwn);
    EXPECT_TRUE(modes->ChangeDisplaySettings(kFullScreen)) << "and the rest goes on";
}

TEST_F(X11DisplayModesTest, AModeThatIsLargerThanTheDisplayIsRefused) {
    AddSmallMode();
    Xrandr("--output screen --mode small");  // and with it the whole display area
    const auto modes = Modes();
    EXPECT_THAT(All(*modes), Contains(kOwn));
    EXPECT_FALSE(modes->ChangeDisplaySettings(kOwn));
    EXPECT_EQ(modes->Current(), kSmall);
    EXPECT_EQ(Shown(), kSmall);
}

TEST_F(X11DisplayModesTest, AKilledProgramLeavesTheScreenAsItWas) {
    AddFullScreenMode();
    for (const int number : {SIGKILL, SIGABRT, SIGTERM}) {
        const pid_t child = StartSwitched(kFullScreen);
        EXPECT_EQ(Shown(), kFullScreen);
        ::kill(child, number);
        ASSERT_EQ(::waitpid(child, nullptr, 0), child);
        EXPECT_TRUE(Eventually([&] { return Shown() == kOwn; })) << "signal " << number;
    }
}

TEST_F(X11DisplayModesTest, TheScreenStaysSwitchedForAsLongAsTheProgramLives) {
    AddFullScreenMode();
    const pid_t child = StartSwitched(kFullScreen);
    // Another program's own use of the display in between is no end of the first.
    for (int i = 0; i < 20; ++i) {
        EXPECT_EQ(Shown(), kFullScreen);
    }
    ::kill(child, SIGKILL);
    ASSERT_EQ(::waitpid(child, nullptr, 0), child);
    EXPECT_TRUE(Eventually([&] { return Shown() == kOwn; }));
}

TEST_F(X11DisplayModesTest, LeavesNoProcessBehind) {
    AddFullScreenMode();
    {
        const auto modes = Modes();
        for (int i = 0; i < 5; ++i) {
            EXPECT_TRUE(modes->ChangeDisplaySettings(kFullScreen));
            modes->Restore();
        }
    }
    int status = 0;
    // The children that are left are the display's: server and window manager, which go on.
    EXPECT_EQ(::waitpid(-1, &status, WNOHANG), 0) << "none is waiting to be seen off";
}

TEST_F(X11DisplayModesTest, ModesAreThoseOfTheScreenWhereverTheWindowIs) {
    for (const ScreenRectangle& place :
         {ScreenRectangle{-5000, -5000, 10, 10}, ScreenRectangle{0, 0, 0, 0},
          ScreenRectangle{2'000'000'000, 2'000'000'000, 2'000'000'000, 2'000'000'000}}) {
        X11DisplayModes modes([&] { return place; }, Name());
        EXPECT_EQ(modes.Current(), kOwn);
    }
}

TEST(X11DisplayModesWithoutADisplay, HasOneEmptyModeAndTheOneOfItsMaking) {
    for (const char* const name : {"", ":no-such-display"}) {
        X11DisplayModes modes([] { return ScreenRectangle{}; }, name);
        EXPECT_EQ(modes.EnumDisplaySettings(0), DisplaySettings{});
        EXPECT_EQ(modes.EnumDisplaySettings(1), kEmulated);
        EXPECT_EQ(modes.Current(), DisplaySettings{});
        EXPECT_TRUE(modes.ChangeDisplaySettings(kEmulated));
        EXPECT_EQ(modes.Current(), kEmulated);
        EXPECT_FALSE(modes.ChangeDisplaySettings(kSmall));
        EXPECT_TRUE(modes.ChangeDisplaySettings(DisplaySettings{}));
        EXPECT_EQ(modes.Current(), DisplaySettings{});
    }
}

}  // namespace
}  // namespace scenara::test
