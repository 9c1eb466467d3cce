// SPDX-License-Identifier: MIT
#include "app/ScreenModule.h"

#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/headless/HeadlessDisplayModes.h"

namespace scenara {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(ScreenModule, DescribesModes) {
    EXPECT_EQ(DescribeMode({320, 240, 24, 60}), "320 x 240, 24bit color, 60 Hz");
    EXPECT_EQ(DescribeMode({320, 240, 16, 60}), "320 x 240, 24bit color, 60 Hz");
    EXPECT_EQ(DescribeMode({320, 240, 15, 60}), "320 x 240, 24bit color, 60 Hz");
    EXPECT_EQ(DescribeMode({640, 480, 4, 75}), "640 x 480, 16 colors, 75 Hz");
    EXPECT_EQ(DescribeMode({640, 480, 8, 2}), "640 x 480, 256 colors, 2 Hz");
    EXPECT_EQ(DescribeMode({640, 480, 1, 60}), "640 x 480, 24bit color, 60 Hz");
    EXPECT_EQ(DescribeMode({1920, 1080, 25, 144}), "1920 x 1080, 32bit color, 144 Hz");
    EXPECT_EQ(DescribeMode({1024, 768, 32, 1}), "1024 x 768, 32bit color, (Hardware default)");
    EXPECT_EQ(DescribeMode({1024, 768, 32, 0}), "1024 x 768, 32bit color, (Hardware default)");
}

TEST(ScreenModule, ListsTheModesInTheirOrder) {
    HeadlessDisplayModes display({{1024, 768, 32, 60}, {320, 240, 16, 60}, {320, 240, 24, 60}});
    ScreenModule screen(display);
    EXPECT_THAT(screen.Modes(), IsEmpty());
    screen.Enumerate();
    EXPECT_THAT(screen.Modes(),
                ElementsAre(DisplaySettings{1024, 768, 32, 60}, DisplaySettings{320, 240, 16, 60},
                            DisplaySettings{320, 240, 24, 60}));
    display.SetModes({{640, 480, 24, 60}});
    screen.Enumerate();
    EXPECT_THAT(screen.Modes(), ElementsAre(DisplaySettings{640, 480, 24, 60}));
}

TEST(ScreenModule, FindsTheFirstModeOfADescription) {
    HeadlessDisplayModes display(
        {{320, 240, 24, 75}, {1320, 240, 24, 60}, {320, 240, 16, 60}, {320, 240, 24, 60}});
    ScreenModule screen(display);
    EXPECT_EQ(screen.Find(FullScreenMode(CanvasSize())), kNoMode) << "before there is a table";
    screen.Enumerate();
    EXPECT_EQ(screen.Find(FullScreenMode(CanvasSize())), 1) << "which contains the words";
    EXPECT_EQ(screen.Find("320 x 240, 24bit color, 75 Hz"), 0);
    display.SetModes({{320, 240, 32, 60}, {320, 240, 8, 60}, {320, 240, 24, 59}});
    screen.Enumerate();
    EXPECT_EQ(screen.Find(FullScreenMode(CanvasSize())), kNoMode);
}

TEST(ScreenModule, FindsTheSmallestModeThatHasRoom) {
    const struct {
        const char* what;
        std::vector<DisplaySettings> modes;
        CanvasSize canvas;
        Integer found;
    } rows[] = {
        {"none", {}, {320, 240}, kNoMode},
        {"none is large enough", {{640, 480, 24, 60}, {480, 800, 24, 60}}, {641, 240}, kNoMode},
        {"of the same size", {{640, 480, 24, 60}, {320, 240, 24, 60}}, {320, 240}, 1},
        {"the smallest",
         {{1920, 1080, 24, 60}, {800, 600, 24, 60}, {1024, 768, 24, 60}},
         {640, 480},
         1},
        {"wide enough", {{800, 600, 24, 60}, {1024, 768, 24, 60}}, {854, 480}, 1},
        {"not one of the machine's making",
         {{640, 480, 24, 60}, {320, 240, 24, 60, true}},
         {320, 240},
         0},
        {"most colours",
         {{640, 480, 8, 60}, {640, 480, 24, 75}, {640, 480, 16, 60}},
         {320, 240},
         1},
        {"at 60 Hz", {{640, 480, 24, 75}, {640, 480, 24, 59}, {640, 480, 24, 50}}, {320, 240}, 1},
        {"the first of several", {{640, 480, 24, 60}, {640, 480, 24, 60}}, {320, 240}, 0},
    };
    for (const auto& row : rows) {
        HeadlessDisplayModes display(row.modes);
        ScreenModule screen(display);
        screen.Enumerate();
        EXPECT_EQ(screen.FindRoomFor(row.canvas), row.found) << row.what;
    }
}

TEST(ScreenModule, TheCurrentModeEqualsTheOneInForceInAllValues) {
    HeadlessDisplayModes display({{640, 480, 24, 60},
                                  {1024, 768, 24, 75},
                                  {1024, 768, 16, 60},
                                  {1024, 768, 24, 60},
                                  {1024, 768, 24, 60}});
    ScreenModule screen(display);
    screen.Enumerate();
    EXPECT_EQ(screen.CurrentMode(), 3);
    display.SetCurrent({1024, 768, 24, 59});
    EXPECT_EQ(screen.CurrentMode(), kNoMode);
    display.SetCurrent({640, 480, 24, 60});
    EXPECT_EQ(screen.CurrentMode(), 0);
}

TEST(ScreenModule, SwitchesToAModeOfTheTable) {
    HeadlessDisplayModes display;
    ScreenModule screen(display);
    screen.Enumerate();
    const Integer before = screen.CurrentMode();
    EXPECT_EQ(before, 2);
    EXPECT_TRUE(screen.SwitchTo(screen.Find(FullScreenMode(CanvasSize()))));
    EXPECT_EQ(screen.CurrentMode(), 1);
    EXPECT_TRUE(screen.SwitchTo(before));
    EXPECT_EQ(screen.CurrentMode(), 2);
    EXPECT_THAT(display.Switches(),
                ElementsAre(DisplaySettings{320, 240, 24, 60}, DisplaySettings{1024, 768, 24, 60}));

    display.RefuseToSwitch();
    EXPECT_FALSE(screen.SwitchTo(1));
    EXPECT_EQ(screen.CurrentMode(), 2);
}

TEST(ScreenModule, NothingElseIsSwitchedTo) {
    HeadlessDisplayModes display;
    ScreenModule screen(display);
    screen.Enumerate();
    for (const int mode : {-1, -32768, 3, 32767}) {
        EXPECT_FALSE(screen.SwitchTo(static_cast<Integer>(mode))) << mode;
    }
    EXPECT_THAT(display.Switches(), IsEmpty());
}

TEST(ScreenModule, ADisplayWithoutAnEndOfModesIsCutOff) {
    HeadlessDisplayModes display(std::vector<DisplaySettings>(40'000, {800, 600, 24, 60}));
    ScreenModule screen(display);
    screen.Enumerate();
    EXPECT_EQ(screen.Modes().size(), 32'767U);
    EXPECT_EQ(screen.CurrentMode(), 0);
}

}  // namespace
}  // namespace scenara
