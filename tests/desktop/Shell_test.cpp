// SPDX-License-Identifier: MIT
//
// What is around a stage in the real window: the first start, the ways to a stage, the list, the
// limiter, and what is remembered.
#include <filesystem>
#include <fstream>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "desktop/DesktopProgram.h"

namespace scenara::test {
namespace {

using testing::AnyOf;
using testing::HasSubstr;

// Where the items of the menu bar are. ("S" is the access letter of two of them.)
constexpr int kBarMiddle = 10;
constexpr int kStage = 25;
constexpr int kStageList = 175;
constexpr int kPrevious = 222;
constexpr int kNext = 250;
constexpr int kRandom = 273;

TEST_F(DesktopProgram, PlainlyTheFirstStartAsksForTheFolderUntilOneIsChosen) {
    std::ofstream(Folder() / "bin/Scenara.ini", std::ios::binary) << "Additions = False\r\n";
    Start();
    ExpectBox();
    Key("Return");
    ExpectWindow("^Point me to your MUGEN Directory please");
    const std::string first = Window("^Point me");
    Key("Escape");
    ASSERT_TRUE(Eventually([&] {
        const std::string next = Window("^Point me");
        return !next.empty() && next != first;
    })) << "it asks again";
    ExpectWindow("^Point me");
    Key("ctrl+a");
    Type(display_.Folder() + "mugen");
    Key("Return");
    ExpectMainWindow(320);
    ClickAt(kNext, kBarMiddle);
    ExpectTitle("bar");
    Key("alt+F4");
    ASSERT_EQ(WaitForEnd(), 0);
    EXPECT_THAT(Settings(), HasSubstr("MugeDir = " + display_.Folder() + "mugen/\r\n"));
}

TEST_F(DesktopProgram, AStageIsOpenedInEveryWay) {
    StartWithBar();
    ExpectNewest("bar");
    ClickListItem(2);
    ExpectTitle("dot");
    ExpectNewest("dot");
    ClickAt(kPrevious, kBarMiddle);
    ExpectTitle("cup");
    ExpectNewest("cup");
    ClickAt(kNext, kBarMiddle);
    ExpectTitle("dot");
    ExpectNewest("dot");

    // The oldest of the recent files stands right above Exit.
    ClickAt(kStage, kBarMiddle);
    Key("Up");
    Key("Up");
    Key("Return");
    ExpectTitle("bar");

    ClickAt(kStage, kBarMiddle);
    Key("o");
    ExpectWindow("^Choose your stage!");
    Type(StagePath("cup"));
    Key("Return");
    ExpectTitle("cup");

    ClickAt(kRandom, kBarMiddle);
    ASSERT_TRUE(Eventually([&] { return Title().size() == 3; }));
    EXPECT_THAT(Title(), AnyOf("bar", "cup", "dot"));

    ClickAt(kStage, kBarMiddle);
    Key("c");
    ExpectTitle("Scenara 1.0 DirectX 8 Experiment");
    EXPECT_TRUE(Eventually([&] { return Count(kGround) == 0; })) << "the title picture";
}

TEST_F(DesktopProgram, AFileOnTheCommandLineIsOpened) {
    WriteSettings();
    Start({}, std::filesystem::relative(StagePath("cup")).string());
    ExpectTitle("cup");
    Key("alt+F4");
    EXPECT_EQ(WaitForEnd(), 0);
}

TEST_F(DesktopProgram, AFileOnTheCommandLineThatIsNotThereIsReported) {
    WriteSettings();
    Start({}, StagePath("nowhere"));
    ExpectBox();
    Key("Return");
    ExpectNoBox();
    Key("alt+F4");
    EXPECT_EQ(WaitForEnd(), 0);
}

TEST_F(DesktopProgram, TheListComesAndGoesAndTheWindowKeepsItsSize) {
    constexpr std::uint32_t kPaper = 0xFFFFFF;
    StartWithBar();
    const SeenSize size = WindowSize();
    const int before = BarLeft();
    for (int time = 0; time < 2; ++time) {
        EXPECT_GT(Count(kPaper), 10000);
        ClickAt(kStageList, kBarMiddle);
        EXPECT_TRUE(Eventually([&] { return BarLeft() == before + 80; })) << "in the middle";
        EXPECT_TRUE(Eventually([&] { return Count(kPaper) < 1000; }));
        EXPECT_EQ(PictureSize(), (SeenSize{320, 240}));
        ClickAt(kStageList, kBarMiddle);
        EXPECT_TRUE(Eventually([&] { return BarLeft() == before; }));
        EXPECT_EQ(PictureSize(), (SeenSize{320, 240}));
        EXPECT_EQ(WindowSize(), size);
    }
}

// Also where a window manager puts a frame around it.
TEST_F(DesktopProgram, TheWindowComesUpWhereItWas) {
    StartWithBar();
    const auto geometry = [&] {
        const std::string shell = display_.Answer("getwindowgeometry --shell " + MainWindow());
        return shell.substr(shell.find("\nX="));
    };
    const std::string first = geometry();
    display_.Do("windowmove --sync " + MainWindow() + " 150 130");
    display_.Do("windowsize --sync " + MainWindow() + " 700 500");
    ASSERT_TRUE(Eventually([&] { return WindowSize() == SeenSize{700, 500}; }));
    const std::string moved = geometry();
    ASSERT_NE(moved, first);
    Key("alt+F4");
    ASSERT_EQ(WaitForEnd(), 0);
    for (int start = 0; start < 2; ++start) {
        Start();
        ExpectWindow("^Scenara 1.0");
        EXPECT_TRUE(Eventually([&] { return geometry() == moved; })) << geometry() << moved;
        Key("alt+F4");
        ASSERT_EQ(WaitForEnd(), 0);
    }
}

TEST_F(DesktopProgram, EverythingIsRememberedAtTheSecondStart) {
    StartWithBar();
    ExpectNewest("bar");
    Key("alt+o");
    Key("i");
    ClickListItem(1);
    ExpectTitle("cup");
    ExpectNewest("cup");
    Key("alt+F4");
    ASSERT_EQ(WaitForEnd(), 0);
    EXPECT_EQ(Settings(), "Version = 1.0A\r\nMugeDir = " + display_.Folder() +
                              "mugen/\r\nHCamStep = 1\r\nVCamStep = 1\r\nBGMusic = True\r\n"
                              "Info = True\r\nChar = False\r\nDeform = False\r\n"
                              "DebugBG = False\r\nCharName = \r\nStageList = 255\r\n"
                              "RecentFile = " +
                              StagePath("cup") + "\r\nRecentFile = " + StagePath("bar") + "\r\n");

    Start();
    ExpectMainWindow(480);
    ClickAt(kStage, kBarMiddle);
    Key("Up");
    Key("Up");
    Key("Return");
    ExpectTitle("bar");
    EXPECT_TRUE(Eventually([&] { return PictureSize().height > 200; }));
}

}  // namespace
}  // namespace scenara::test
