// SPDX-License-Identifier: MIT
//
// The window and its controls: the stage list beside the picture, sizes the user gave, and what a
// stage that is opened makes of them.
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/RunningStage.h"

namespace scenara::test {
namespace {

constexpr Long kListWidth = 160;

class Layout : public testing::Test {
protected:
    void Load(bool withList) {
        stage.files.Put("/program/QX.CFG", std::string("MugeDir = /mugen/\r\nStageList = ") +
                                               (withList ? "255" : "0") + "\r\n");
        stage.Load();
    }

    void ExpectWindow(Long width, Long height) {
        EXPECT_EQ(stage.window.Place().width, width * 15);
        EXPECT_EQ(stage.window.Place().height, height * 15);
    }
    void ExpectPicture(Long width, Long height) {
        EXPECT_EQ(stage.form.picDraw.width, width);
        EXPECT_EQ(stage.form.picDraw.height, height);
    }
    void ExpectList(Long left, Long height) {
        EXPECT_TRUE(stage.form.lstStages.visible);
        EXPECT_EQ(stage.form.lstStages.left, left);
        EXPECT_EQ(stage.form.lstStages.top, 0);
        EXPECT_EQ(stage.form.lstStages.width, kListWidth);
        EXPECT_EQ(stage.form.lstStages.height, height);
    }

    RunningStage stage;
};

TEST_F(Layout, TheListMakesTheWindowWiderAndNarrowerAgain) {
    Load(false);
    stage.program.Form_Activate();
    EXPECT_FALSE(stage.form.lstStages.visible);
    stage.Click(Menu::mnuStageList);
    EXPECT_EQ(stage.program.ShowStageList, 255);
    ExpectWindow(320 + kListWidth, 240);
    ExpectPicture(320, 240);
    ExpectList(320, 240);
    stage.Click(Menu::mnuStageList);
    EXPECT_EQ(stage.program.ShowStageList, 0);
    ExpectWindow(320, 240);
    ExpectPicture(320, 240);
    EXPECT_FALSE(stage.form.lstStages.visible);
}

TEST_F(Layout, TheListAddsToTheSizeThatTheUserGave) {
    Load(false);
    stage.program.Form_Activate();
    stage.program.Form_Resize(800, 600);
    stage.Click(Menu::mnuStageList);
    ExpectWindow(800 + kListWidth, 600);
    ExpectPicture(800, 600);
    ExpectList(800, 600);
    stage.Click(Menu::mnuStageList);
    ExpectWindow(800, 600);
    ExpectPicture(800, 600);
}

TEST_F(Layout, AWindowNarrowerThanItsListKeepsASize) {
    Load(true);
    stage.program.Form_Activate();
    stage.program.Form_Resize(100, 240);
    ExpectPicture(0, 240);
    stage.Click(Menu::mnuStageList);
    ExpectWindow(0, 240);
    EXPECT_EQ(stage.form.innerWidth, 0);
    ExpectPicture(0, 240);
    stage.Click(Menu::mnuStageList);
    ExpectWindow(kListWidth, 240);
}

TEST_F(Layout, AListThatWasShownComesUpWithTheWindow) {
    Load(true);
    EXPECT_EQ(stage.program.ShowStageList, 255);
    stage.program.Form_Activate();
    EXPECT_EQ(stage.program.ShowStageList, 255);
    ExpectWindow(320 + kListWidth, 240);
    ExpectPicture(320, 240);
    ExpectList(320, 240);
    EXPECT_EQ(stage.window.Place().left, (1024 - 480) / 2 * 15);
    EXPECT_EQ(stage.window.Place().top, (768 - 240) / 2 * 15);
}

TEST_F(Layout, ItsItemsAreTheFilesWithoutTheirEnding) {
    stage.files.Put("/mugen/stages/deep/d.def", "camera");
    stage.files.Put("/mugen/stages/readme.txt", "camera");
    Load(false);
    EXPECT_THAT(stage.form.lstStages.items, testing::ElementsAre("a", "b", "c"));
    EXPECT_EQ(stage.form.lstStages.ListIndex, -1);
}

TEST_F(Layout, AStageOpenedWithoutTheListTakesTheWindowAsItIs) {
    Load(false);
    stage.program.Form_Activate();
    stage.program.Form_Resize(800, 600);
    stage.user = InTurn({});
    stage.program.lstStages_Click(0);
    ExpectPicture(800, 600);
    ExpectWindow(320, 240);  // the recorded window: nobody has asked it for another size
}

TEST_F(Layout, TheListMayBeShownAndHiddenWhileAStageRunsOrLoads) {
    Load(false);
    stage.program.Form_Activate();
    const Act click = [](RunningStage& running) { running.Click(Menu::mnuStageList); };
    // The load of three images: shown, hidden, shown.
    stage.user = InTurn({[this](RunningStage&) {
                             ExpectPicture(320, 240);
                             ExpectList(320, 240);
                         },
                         click,
                         [this](RunningStage&) {
                             ExpectPicture(320, 240);
                             ExpectWindow(320, 240);
                         }},
                        click);
    stage.program.lstStages_Click(0);
    EXPECT_EQ(stage.program.ShowStageList, 0);
    EXPECT_TRUE(stage.MessageTexts().empty());
}

TEST_F(Layout, ResizingWhileAStageLoadsHoldsBehindIt) {
    Load(false);
    stage.program.Form_Activate();
    stage.user = InTurn({}, [](RunningStage& running) { running.program.Form_Resize(640, 480); });
    stage.program.lstStages_Click(0);
    ExpectPicture(640, 480);
}

}  // namespace
}  // namespace scenara::test
