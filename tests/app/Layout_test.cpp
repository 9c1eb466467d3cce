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

class Layout : public NewProgram {
protected:
    void Load(bool withList) {
        files.Put(kConfiguration, std::string("MugeDir = /mugen/\r\nStageList = ") +
                                      (withList ? "255" : "0") + "\r\n");
        RunningStage::Load();
    }

    // With the window up.
    void Begin(bool withList) {
        Load(withList);
        program.Form_Activate();
    }

    void UserSizes(Long width, Long height) {
        LetSizeCome();
        window.MoveTo({0, 0, width * kUnitsPerPixel, height * kUnitsPerPixel});
        LetSizeCome();
    }

    void ClickList() {
        Click(Menu::mnuStageList);
        LetSizeCome();
    }
    void ExpectList(Long left, Long height) {
        EXPECT_TRUE(form.lstStages.visible);
        EXPECT_EQ(form.lstStages.left, left);
        EXPECT_EQ(form.lstStages.top, 0);
        EXPECT_EQ(form.lstStages.width, kListWidth);
        EXPECT_EQ(form.lstStages.height, height);
    }
};

TEST_F(Layout, TheListMakesTheWindowWiderAndNarrowerAgain) {
    Begin(false);
    EXPECT_FALSE(form.lstStages.visible);
    Click(Menu::mnuStageList);
    EXPECT_EQ(program.ShowStageList, 255);
    LetSizeCome();
    ExpectSize(320 + kListWidth, 240);
    ExpectPicture(320, 240);
    ExpectList(320, 240);
    ClickList();
    EXPECT_EQ(program.ShowStageList, 0);
    ExpectSize(320, 240);
    ExpectPicture(320, 240);
    EXPECT_FALSE(form.lstStages.visible);
}

TEST_F(Layout, TheListAddsToTheSizeThatTheUserGave) {
    Begin(false);
    UserSizes(800, 600);
    ClickList();
    ExpectSize(800 + kListWidth, 600);
    ExpectPicture(800, 600);
    ExpectList(800, 600);
    ClickList();
    ExpectSize(800, 600);
    ExpectPicture(800, 600);
}

TEST_F(Layout, AWindowNarrowerThanItsListKeepsASize) {
    Begin(true);
    UserSizes(100, 240);
    ExpectPicture(0, 240);
    ClickList();
    ExpectSize(0, 240);
    EXPECT_EQ(form.innerWidth, 0);
    ExpectPicture(0, 240);
    ClickList();
    ExpectSize(kListWidth, 240);
}

TEST_F(Layout, AListThatWasShownComesUpWithTheWindow) {
    Load(true);
    EXPECT_EQ(program.ShowStageList, 255);
    EXPECT_EQ(form.innerWidth, 320 + kListWidth) << "before it is shown";
    ExpectPicture(320, 240);
    ExpectList(320, 240);
    program.Form_Activate();
    EXPECT_EQ(program.ShowStageList, 255);
    LetSizeCome();
    ExpectPlace((1024 - 480) / 2, (768 - 240) / 2, 320 + kListWidth, 240);
    ExpectPicture(320, 240);
    ExpectList(320, 240);
}

TEST_F(Layout, TheWindowComesUpWithTheRoomThatTheViewTakesOnThisScreen) {
    window.SetRoomForView({366, 275});
    Load(true);
    EXPECT_EQ(form.innerWidth, 366 + kListWidth) << "before it is shown";
    EXPECT_EQ(form.innerHeight, 275);
    program.Form_Activate();
    LetSizeCome();
    ExpectSize(366 + kListWidth, 275);
    ExpectPicture(366, 275);
}

TEST_F(Layout, ItsItemsAreTheFilesWithoutTheirEnding) {
    files.Put("/mugen/stages/deep/d.def", "camera");
    files.Put("/mugen/stages/readme.txt", "camera");
    Load(false);
    EXPECT_THAT(form.lstStages.items, testing::ElementsAre("a", "b", "c"));
    EXPECT_EQ(form.lstStages.ListIndex, -1);
}

TEST_F(Layout, AStageOpenedWithoutTheListTakesTheWindowAsItIs) {
    Begin(false);
    UserSizes(800, 600);
    const std::size_t wishes = window.Wishes().size();
    WhileAIsShown({});
    ExpectPicture(800, 600);
    EXPECT_EQ(window.Wishes().size(), wishes);
}

// Nothing is laid out for a size that may never come.
TEST_F(Layout, ControlsStandAsTheyDidUntilTheSizeHasCome) {
    Begin(false);
    UserSizes(800, 600);
    Click(Menu::mnuStageList);
    ExpectPicture(800, 600);
    EXPECT_FALSE(form.lstStages.visible);
    LetSizeCome();
    ExpectList(800, 600);
    Click(Menu::mnuStageList);
    ExpectPicture(800, 600);
    EXPECT_TRUE(form.lstStages.visible);
    LetSizeCome();
    EXPECT_FALSE(form.lstStages.visible);
}

TEST_F(Layout, TwoClicksBeforeTheSizeHasComeAreNone) {
    Begin(false);
    UserSizes(800, 600);
    Click(Menu::mnuStageList);
    ClickList();
    ExpectSize(800, 600);
    ExpectPicture(800, 600);
}

// Each row asks for a size, and is given none.
TEST_F(Layout, AMaximisedWindowIsLaidOutAsItIs) {
    struct Row {
        const char* name;
        std::vector<Act> acts;
        bool listed;
    };
    const std::vector<Row> rows = {
        {"a stage from the list", {Wait}, true},
        {"the list hidden", {Choose(Menu::mnuStageList), Wait}, false},
        {"the list hidden and shown",
         {Choose(Menu::mnuStageList), Wait, Choose(Menu::mnuStageList), Wait},
         true},
        {"the editor's bar", {Choose(Menu::mnuDebugBG), Wait}, true},
        {"the sprite browser", {Choose(Menu::mnuDebug), Wait, Wait}, true},
        {"... and back", {Choose(Menu::mnuDebug), Wait, Choose(Menu::mnuDebug), Wait}, true},
        {"the full screen and back",
         {Choose(Menu::mnuFS), Wait, Choose(Menu::mnuFS), [&] { program.Form_Activate(); }, Wait},
         true},
    };
    Begin(true);
    LetSizeCome();
    window.Maximise();
    LetSizeCome();
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        WhileAIsShown(row.acts);
        ExpectPlace(0, 0, 1024, 768);
        if (row.listed) {
            ExpectPicture(1024 - kListWidth, 768);
            ExpectList(1024 - kListWidth, 768);
        } else {
            ExpectPicture(1024, 768);
            EXPECT_FALSE(form.lstStages.visible);
            program.mnuStageList_Click();
        }
        user = {};
        LetSizeCome();
    }
    EXPECT_TRUE(MessageTexts().empty());
}

TEST_F(Layout, TheListMayBeShownAndHiddenWhileAStageRunsOrLoads) {
    Begin(false);
    const Act click = Choose(Menu::mnuStageList);
    // The load of three images: shown, hidden, shown.
    WhileAIsShown({[&] {
                       ExpectSize(320 + kListWidth, 240);
                       ExpectPicture(320, 240);
                       ExpectList(320, 240);
                   },
                   click,
                   [&] {
                       ExpectPicture(320, 240);
                       ExpectSize(320, 240);
                   }},
                  click);
    EXPECT_EQ(program.ShowStageList, 0);
    EXPECT_TRUE(MessageTexts().empty());
}

TEST_F(Layout, ResizingWhileAStageLoadsHoldsBehindIt) {
    Begin(false);
    WhileAIsShown({}, [&] { program.Form_Resize(640, 480); });
    ExpectPicture(640, 480);
}

}  // namespace
}  // namespace scenara::test
