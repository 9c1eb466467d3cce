// SPDX-License-Identifier: MIT
//
// The window and its controls: the stage list beside the picture, sizes the user gave, and what a
// stage that is opened makes of them.
#include <cstddef>
#include <string>
#include <vector>

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

    void UserSizes(Long width, Long height) {
        stage.LetSizeCome();
        stage.window.MoveTo({0, 0, width * kUnitsPerPixel, height * kUnitsPerPixel});
        stage.LetSizeCome();
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
    stage.LetSizeCome();
    ExpectWindow(320 + kListWidth, 240);
    ExpectPicture(320, 240);
    ExpectList(320, 240);
    stage.Click(Menu::mnuStageList);
    stage.LetSizeCome();
    EXPECT_EQ(stage.program.ShowStageList, 0);
    ExpectWindow(320, 240);
    ExpectPicture(320, 240);
    EXPECT_FALSE(stage.form.lstStages.visible);
}

TEST_F(Layout, TheListAddsToTheSizeThatTheUserGave) {
    Load(false);
    stage.program.Form_Activate();
    UserSizes(800, 600);
    stage.Click(Menu::mnuStageList);
    stage.LetSizeCome();
    ExpectWindow(800 + kListWidth, 600);
    ExpectPicture(800, 600);
    ExpectList(800, 600);
    stage.Click(Menu::mnuStageList);
    stage.LetSizeCome();
    ExpectWindow(800, 600);
    ExpectPicture(800, 600);
}

TEST_F(Layout, AWindowNarrowerThanItsListKeepsASize) {
    Load(true);
    stage.program.Form_Activate();
    UserSizes(100, 240);
    ExpectPicture(0, 240);
    stage.Click(Menu::mnuStageList);
    stage.LetSizeCome();
    ExpectWindow(0, 240);
    EXPECT_EQ(stage.form.innerWidth, 0);
    ExpectPicture(0, 240);
    stage.Click(Menu::mnuStageList);
    stage.LetSizeCome();
    ExpectWindow(kListWidth, 240);
}

TEST_F(Layout, AListThatWasShownComesUpWithTheWindow) {
    Load(true);
    EXPECT_EQ(stage.program.ShowStageList, 255);
    stage.program.Form_Activate();
    EXPECT_EQ(stage.program.ShowStageList, 255);
    stage.LetSizeCome();
    ExpectWindow(320 + kListWidth, 240);
    ExpectPicture(320, 240);
    ExpectList(320, 240);
    EXPECT_EQ(stage.window.Place().left, (1024 - 480) / 2 * 15);
    EXPECT_EQ(stage.window.Place().top, (768 - 240) / 2 * 15);
}

TEST_F(Layout, TheWindowComesUpWithTheRoomThatTheViewTakesOnThisScreen) {
    stage.window.SetRoomForView({366, 275});
    Load(true);
    stage.program.Form_Activate();
    stage.LetSizeCome();
    ExpectWindow(366 + kListWidth, 275);
    ExpectPicture(366, 275);
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
    UserSizes(800, 600);
    const std::size_t wishes = stage.window.Wishes().size();
    stage.user = InTurn({});
    stage.program.lstStages_Click(0);
    ExpectPicture(800, 600);
    EXPECT_EQ(stage.window.Wishes().size(), wishes);
}

// Nothing is laid out for a size that may never come.
TEST_F(Layout, ControlsStandAsTheyDidUntilTheSizeHasCome) {
    Load(false);
    stage.program.Form_Activate();
    UserSizes(800, 600);
    stage.Click(Menu::mnuStageList);
    ExpectPicture(800, 600);
    EXPECT_FALSE(stage.form.lstStages.visible);
    stage.LetSizeCome();
    ExpectList(800, 600);
    stage.Click(Menu::mnuStageList);
    ExpectPicture(800, 600);
    EXPECT_TRUE(stage.form.lstStages.visible);
    stage.LetSizeCome();
    EXPECT_FALSE(stage.form.lstStages.visible);
}

TEST_F(Layout, TwoClicksBeforeTheSizeHasComeAreNone) {
    Load(false);
    stage.program.Form_Activate();
    UserSizes(800, 600);
    stage.Click(Menu::mnuStageList);
    stage.Click(Menu::mnuStageList);
    stage.LetSizeCome();
    ExpectWindow(800, 600);
    ExpectPicture(800, 600);
}

// Each row asks for a size, and is given none.
TEST_F(Layout, AMaximisedWindowIsLaidOutAsItIs) {
    struct Row {
        const char* name;
        std::vector<Act> acts;
        bool listed;
    };
    const auto click = [](Menu item) -> Act {
        return [item](RunningStage& running) { running.Click(item); };
    };
    const std::vector<Row> rows = {
        {"a stage from the list", {Wait}, true},
        {"the list hidden", {click(Menu::mnuStageList), Wait}, false},
        {"the list hidden and shown",
         {click(Menu::mnuStageList), Wait, click(Menu::mnuStageList), Wait},
         true},
        {"the editor's bar", {click(Menu::mnuDebugBG), Wait}, true},
        {"the sprite browser", {click(Menu::mnuDebug), Wait, Wait}, true},
        {"... and back", {click(Menu::mnuDebug), Wait, click(Menu::mnuDebug), Wait}, true},
        {"the full screen and back",
         {click(Menu::mnuFS), Wait, click(Menu::mnuFS),
          [](RunningStage& running) { running.program.Form_Activate(); }, Wait},
         true},
    };
    Load(true);
    stage.program.Form_Activate();
    stage.LetSizeCome();
    stage.window.Maximise();
    stage.LetSizeCome();
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        stage.user = InTurn(row.acts);
        stage.program.lstStages_Click(0);
        ExpectWindow(1024, 768);
        EXPECT_EQ(stage.window.Place().left, 0);
        EXPECT_EQ(stage.window.Place().top, 0);
        if (row.listed) {
            ExpectPicture(1024 - kListWidth, 768);
            ExpectList(1024 - kListWidth, 768);
        } else {
            ExpectPicture(1024, 768);
            EXPECT_FALSE(stage.form.lstStages.visible);
            stage.program.mnuStageList_Click();
        }
        stage.user = {};
        stage.LetSizeCome();
    }
    EXPECT_TRUE(stage.MessageTexts().empty());
}

TEST_F(Layout, TheListMayBeShownAndHiddenWhileAStageRunsOrLoads) {
    Load(false);
    stage.program.Form_Activate();
    const Act click = [](RunningStage& running) { running.Click(Menu::mnuStageList); };
    // The load of three images: shown, hidden, shown.
    stage.user = InTurn({[this](RunningStage&) {
                             ExpectWindow(320 + kListWidth, 240);
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
