// SPDX-License-Identifier: MIT
//
// The full screen: into it, and every way out of it.
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/RunningStage.h"

namespace scenara::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

constexpr Long kItemA = 0;
constexpr Long kItemC = 2;
constexpr DisplaySettings kBefore{1024, 768, 24, 60};
constexpr DisplaySettings kFull = HeadlessDisplayModes::kFullScreen;
constexpr WindowHandle kOtherProgram = 0;

void EnterFullScreen(RunningStage& stage) {
    stage.Click(Menu::mnuFS);
}

class FullScreen : public testing::Test {
protected:
    FullScreen() { stage.Load(); }

    void WhileAIsShown(std::vector<Act> acts, Act loading = {}) {
        stage.user = InTurn(std::move(acts), std::move(loading));
        stage.program.lstStages_Click(kItemA);
    }

    void ExpectOn() {
        EXPECT_EQ(stage.program.FullScreenState, 1);
        EXPECT_TRUE(stage.fullScreen.Shown());
        EXPECT_TRUE(stage.form[Menu::mnuFS].checked);
    }
    void ExpectOff() {
        EXPECT_EQ(stage.program.FullScreenState, 0);
        EXPECT_FALSE(stage.fullScreen.Shown());
        EXPECT_FALSE(stage.form[Menu::mnuFS].checked);
        EXPECT_EQ(stage.display.Current(), kBefore);
    }

    RunningStage stage;
};

TEST_F(FullScreen, SwitchesTheDisplayAndCoversIt) {
    WhileAIsShown({EnterFullScreen, [this](RunningStage& running) {
                       ExpectOn();
                       EXPECT_THAT(running.display.Switches(), ElementsAre(kFull));
                       EXPECT_EQ(running.program.FullScreenWindow, HeadlessFullScreen::kHandle);
                       EXPECT_EQ(running.program.ScreenWidth, 1024);
                       EXPECT_EQ(running.program.ScreenHeight, 768);
                   }});
    EXPECT_EQ(stage.sink.shown, 3) << "the stage goes on";
    EXPECT_THAT(stage.MessageTexts(), IsEmpty());
}

TEST_F(FullScreen, TheHeldEscapeKeyLeavesIt) {
    WhileAIsShown({EnterFullScreen,
                   [](RunningStage& running) {
                       running.window.MoveTo({150, 300, 9600, 7200});
                       running.keyboard.Press(VirtualKey::Escape);
                   },
                   [this](RunningStage& running) {
                       ExpectOff();
                       EXPECT_THAT(running.display.Switches(), ElementsAre(kFull, kBefore));
                       EXPECT_EQ(running.window.Place().width, 320 * 15);
                       EXPECT_EQ(running.window.Place().height, 240 * 15);
                       EXPECT_EQ(running.window.ShowCount(), 2U) << "once by the device";
                   },
                   Wait, Wait});
    EXPECT_EQ(stage.sink.shown, 6);
    EXPECT_EQ(stage.display.Switches().size(), 2U) << "holding it on leaves nothing more";
}

TEST_F(FullScreen, ThePressOfEscapeLeavesIt) {
    WhileAIsShown({EnterFullScreen, [this](RunningStage& running) {
                       running.program.Form_KeyDown(VirtualKey::Escape);
                       ExpectOff();
                   }});
    EXPECT_NE(stage.direct3D.Device(), nullptr);
}

TEST_F(FullScreen, TheWindowIsSizedAndCentredWhenItIsBack) {
    stage.program.Form_Activate();
    WhileAIsShown({EnterFullScreen, [](RunningStage& running) {
                       running.window.MoveTo({150, 300, 9600, 7200});
                       running.program.Form_KeyDown(VirtualKey::Escape);
                       running.program.Form_Activate();
                   }});
    EXPECT_EQ(stage.window.Place().left, (1024 - 320) / 2 * 15);
    EXPECT_EQ(stage.window.Place().top, (768 - 240) / 2 * 15);
    EXPECT_EQ(stage.window.Place().width, 320 * 15);
}

TEST_F(FullScreen, TheListIsBesideThePictureWhenTheWindowIsBack) {
    stage.program.mnuStageList_Click();
    WhileAIsShown({EnterFullScreen, [](RunningStage& running) {
                       running.program.Form_KeyDown(VirtualKey::Escape);
                       running.program.Form_Activate();
                   }});
    EXPECT_EQ(stage.window.Place().width, (320 + 160) * 15);
    EXPECT_EQ(stage.form.picDraw.width, 320);
    EXPECT_EQ(stage.form.lstStages.left, 320);
    EXPECT_TRUE(stage.form.lstStages.visible);
    EXPECT_EQ(stage.program.ShowStageList, 255);
}

TEST_F(FullScreen, AnotherProgramInFrontLeavesItWithinASecond) {
    std::vector<Act> acts = {EnterFullScreen};
    acts.insert(acts.end(), 70, [this](RunningStage&) { ExpectOn(); });
    acts.emplace_back([](RunningStage& running) { running.window.SetForeground(kOtherProgram); });
    int stillOn = 0;
    acts.insert(acts.end(), 62,
                [&](RunningStage& running) { stillOn += running.program.FullScreenState; });
    acts.emplace_back([this](RunningStage&) { ExpectOff(); });
    WhileAIsShown(acts);
    EXPECT_GT(stillOn, 0) << "it is looked at once a second only";
}

TEST_F(FullScreen, TheMainWindowInFrontLeavesIt) {
    std::vector<Act> acts = {EnterFullScreen, [](RunningStage& running) {
                                 running.window.SetForeground(HeadlessWindow::kHandle);
                             }};
    acts.insert(acts.end(), 62, Wait);
    acts.emplace_back([this](RunningStage&) { ExpectOff(); });
    WhileAIsShown(acts);
}

TEST_F(FullScreen, WhilePausedNobodyLooksWhoIsInFront) {
    std::vector<Act> acts = {EnterFullScreen, [](RunningStage& running) {
                                 running.Click(Menu::mnuPause);
                                 running.window.SetForeground(kOtherProgram);
                             }};
    acts.insert(acts.end(), 100, [this](RunningStage&) { ExpectOn(); });
    acts.emplace_back([](RunningStage& running) { running.Click(Menu::mnuPause); });
    acts.emplace_back([this](RunningStage&) { ExpectOff(); });
    WhileAIsShown(acts);
}

TEST_F(FullScreen, WithoutSuchAModeOnlyTheMarkIsSet) {
    stage.display.SetModes({{640, 480, 24, 60}, {320, 240, 24, 75}, {320, 240, 32, 60}, kBefore});
    WhileAIsShown({EnterFullScreen, Wait});
    EXPECT_TRUE(stage.form[Menu::mnuFS].checked);
    EXPECT_EQ(stage.program.FullScreenState, 0);
    EXPECT_FALSE(stage.fullScreen.Shown());
    EXPECT_THAT(stage.display.Switches(), IsEmpty());
    EXPECT_EQ(stage.program.FullScreenWindow, 0U);
    EXPECT_EQ(stage.program.ScreenWidth, 0);
    stage.Click(Menu::mnuFS);
    EXPECT_FALSE(stage.form[Menu::mnuFS].checked);
    EXPECT_EQ(stage.program.FullScreenState, 0);
}

TEST_F(FullScreen, AModeOf16BitsIsDescribedAlikeAndTaken) {
    const DisplaySettings sixteen{320, 240, 16, 60};
    stage.display.SetModes({kBefore, sixteen, kFull});
    WhileAIsShown({EnterFullScreen});
    EXPECT_THAT(stage.display.Switches(), ElementsAre(sixteen));
}

TEST_F(FullScreen, WithoutAStageOnlyTheMarkChanges) {
    WhileAIsShown({[](RunningStage& running) { running.Click(Menu::mnuClose); }});
    EnterFullScreen(stage);
    EXPECT_TRUE(stage.form[Menu::mnuFS].checked);
    EXPECT_EQ(stage.program.FullScreenState, 0);
    EXPECT_FALSE(stage.fullScreen.Shown());
    EnterFullScreen(stage);
    EXPECT_FALSE(stage.form[Menu::mnuFS].checked);
}

TEST_F(FullScreen, TheNextStageIsFullScreenTooAndTheModeBeforeComesBack) {
    WhileAIsShown({EnterFullScreen,
                   [](RunningStage& running) { running.program.lstStages_Click(kItemC); },
                   [this](RunningStage& running) {
                       EXPECT_EQ(running.Caption(), "third");
                       ExpectOn();
                       EXPECT_THAT(running.display.Switches(), ElementsAre(kFull, kFull));
                       running.program.Form_KeyDown(VirtualKey::Escape);
                       ExpectOff();
                   }});
    EXPECT_EQ(stage.Begun(), 2);
}

TEST_F(FullScreen, AStageAfterItIsInTheWindowAgain) {
    WhileAIsShown({EnterFullScreen,
                   [](RunningStage& running) {
                       running.program.Form_KeyDown(VirtualKey::Escape);
                       running.program.lstStages_Click(kItemC);
                   },
                   [this](RunningStage&) { ExpectOff(); }});
    EXPECT_EQ(stage.Begun(), 2);
}

TEST_F(FullScreen, EscapeWhileTheNextStageLoadsIsPassedOver) {
    WhileAIsShown(
        {EnterFullScreen, [](RunningStage& running) { running.program.lstStages_Click(kItemC); },
         [this](RunningStage&) { ExpectOn(); }},
        [](RunningStage& running) { running.program.Form_KeyDown(VirtualKey::Escape); });
}

TEST_F(FullScreen, ADisplayThatRefusesShowsTheFormInItsOwnMode) {
    stage.display.RefuseToSwitch();
    WhileAIsShown({EnterFullScreen, [this](RunningStage& running) {
                       ExpectOn();
                       running.program.Form_KeyDown(VirtualKey::Escape);
                       ExpectOff();
                       EXPECT_THAT(running.display.Switches(), ElementsAre(kFull));
                   }});
}

TEST_F(FullScreen, AModeThatTheDisplayDoesNotListIsAskedForAgain) {
    const DisplaySettings unlisted{1366, 768, 24, 60};
    stage.display.SetCurrent(unlisted);
    WhileAIsShown({EnterFullScreen, [](RunningStage& running) {
                       running.program.Form_KeyDown(VirtualKey::Escape);
                   }});
    EXPECT_THAT(stage.display.Switches(), ElementsAre(kFull, unlisted));
    EXPECT_FALSE(stage.fullScreen.Shown());
}

TEST_F(FullScreen, EscapeOutsideOfItLeavesTheWindowAlone) {
    WhileAIsShown({[](RunningStage& running) {
                       running.window.MoveTo({150, 300, 9600, 7200});
                       running.keyboard.Press(VirtualKey::Escape);
                       running.program.Form_KeyDown(VirtualKey::Escape);
                   },
                   Wait});
    EXPECT_EQ(stage.window.Place().width, 9600);
    EXPECT_THAT(stage.display.Switches(), IsEmpty());
}

TEST_F(FullScreen, AStageThatFailsGivesTheScreenBack) {
    WhileAIsShown(
        {EnterFullScreen, [](RunningStage& running) { running.direct3D.Device()->Lose(); }});
    EXPECT_THAT(stage.MessageTexts(), ElementsAre(StartsWith("Run-time error: Direct3D error")));
    ExpectOff();
}

TEST_F(FullScreen, ANextStageThatCannotBeShownGivesTheScreenBack) {
    WhileAIsShown({EnterFullScreen, [](RunningStage& running) {
                       running.program.lstStages_Click(kItemC);
                       running.files.Delete("/mugen/stages/c.def");
                   }});
    EXPECT_THAT(stage.MessageTexts(), ElementsAre(StartsWith("Unable to load ")));
    ExpectOff();
}

// A machine may show its menus there, too.
TEST_F(FullScreen, TheSpriteBrowserEndsIt) {
    WhileAIsShown({EnterFullScreen, [](RunningStage& running) { running.Click(Menu::mnuDebug); },
                   Wait,
                   [this](RunningStage& running) {
                       ExpectOff();
                       EXPECT_EQ(running.program.Show().SpriteBrowserMode, 255);
                   }});
}

TEST_F(FullScreen, CloseGivesTheScreenBack) {
    WhileAIsShown({EnterFullScreen, [](RunningStage& running) { running.Click(Menu::mnuClose); }});
    ExpectOff();
}

TEST(PlainFullScreen, EscapeLeavesItAndReleasesTheDevice) {
    RunningStage stage({}, false);
    stage.Load();
    stage.user = InTurn({EnterFullScreen,
                         [](RunningStage& running) {
                             running.program.Form_KeyDown(VirtualKey::Escape);
                             EXPECT_EQ(running.program.FullScreenState, 0);
                         },
                         Wait, Wait});
    stage.program.lstStages_Click(kItemA);
    EXPECT_FALSE(stage.fullScreen.Shown());
    EXPECT_EQ(stage.direct3D.Device(), nullptr);
    EXPECT_EQ(stage.sink.shown, 2);
}

TEST(PlainFullScreen, QReleasesTheDeviceAndEscapeStillLeavesIt) {
    RunningStage stage({}, false);
    stage.Load();
    stage.user =
        InTurn({EnterFullScreen,
                [](RunningStage& running) {
                    running.program.Form_KeyDown(VirtualKey::Q);
                    EXPECT_EQ(running.program.FullScreenState, 1);
                    running.keyboard.Press(VirtualKey::Escape);
                },
                [](RunningStage& running) { EXPECT_EQ(running.program.FullScreenState, 0); }});
    stage.program.lstStages_Click(kItemA);
    EXPECT_FALSE(stage.fullScreen.Shown());
}

}  // namespace
}  // namespace scenara::test
