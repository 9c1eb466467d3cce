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

constexpr DisplaySettings kBefore{1024, 768, 24, 60};
constexpr DisplaySettings kFull = HeadlessDisplayModes::kFullScreen;
constexpr WindowHandle kOtherProgram = 0;

const Act kEnter = Choose(Menu::mnuFS);
const Act kEscape = KeyDown(VirtualKey::Escape);

// With the display's mode switched, as plain it always is.
class FullScreen : public Program {
protected:
    explicit FullScreen(bool additions = true) : Program(additions) {
        form[Menu::mnuSwitchMode].checked = true;
    }

    void ExpectOn() {
        EXPECT_EQ(program.FullScreenState, 1);
        EXPECT_TRUE(fullScreen.Shown());
        EXPECT_TRUE(form[Menu::mnuFS].checked);
    }
    void ExpectOff() {
        EXPECT_EQ(program.FullScreenState, 0);
        EXPECT_FALSE(fullScreen.Shown());
        EXPECT_FALSE(form[Menu::mnuFS].checked);
        EXPECT_EQ(display.Current(), kBefore);
    }
};

class PlainFullScreen : public FullScreen {
protected:
    PlainFullScreen() : FullScreen(false) {}
};

TEST_F(FullScreen, SwitchesTheDisplayAndCoversIt) {
    WhileAIsShown({kEnter, [&] {
                       ExpectOn();
                       EXPECT_THAT(display.Switches(), ElementsAre(kFull));
                       EXPECT_EQ(program.FullScreenWindow, HeadlessFullScreen::kHandle);
                       EXPECT_EQ(program.ScreenWidth, 1024);
                       EXPECT_EQ(program.ScreenHeight, 768);
                   }});
    EXPECT_EQ(sink.shown, kRestFrames + 3) << "the stage goes on";
    EXPECT_THAT(MessageTexts(), IsEmpty());
}

TEST_F(FullScreen, TheHeldEscapeKeyLeavesIt) {
    WhileAIsShown({kEnter,
                   [&] {
                       window.MoveTo({150, 300, 9600, 7200});
                       keyboard.Press(VirtualKey::Escape);
                   },
                   [&] {
                       ExpectOff();
                       EXPECT_THAT(display.Switches(), ElementsAre(kFull, kBefore));
                       ExpectPlace(10, 20, 640, 480);
                       EXPECT_EQ(window.ShowCount(), 2U) << "once by the device";
                   },
                   Wait, Wait});
    EXPECT_EQ(sink.shown, kRestFrames + 6);
    EXPECT_EQ(display.Switches().size(), 2U) << "holding it on leaves nothing more";
}

TEST_F(FullScreen, ThePressOfEscapeLeavesIt) {
    WhileAIsShown({kEnter, [&] {
                       program.Form_KeyDown(VirtualKey::Escape);
                       ExpectOff();
                   }});
    EXPECT_NE(direct3D.Device(), nullptr);
}

TEST_F(PlainFullScreen, TheWindowIsSizedAndCentredWhenItIsBack) {
    program.Form_Activate();
    WhileAIsShown({kEnter, [&] {
                       window.MoveTo({150, 300, 9600, 7200});
                       program.Form_KeyDown(VirtualKey::Escape);
                       program.Form_Activate();
                   }});
    ExpectPlace((1024 - 320) / 2, (768 - 240) / 2, 320, 240);
}

TEST_F(PlainFullScreen, TheListIsBesideThePictureWhenTheWindowIsBack) {
    program.mnuStageList_Click();
    WhileAIsShown({kEnter, [&] {
                       program.Form_KeyDown(VirtualKey::Escape);
                       program.Form_Activate();
                   }});
    EXPECT_EQ(window.Place().width, (320 + 160) * 15);
    EXPECT_EQ(form.picDraw.width, 320);
    EXPECT_EQ(form.lstStages.left, 320);
    EXPECT_TRUE(form.lstStages.visible);
    EXPECT_EQ(program.ShowStageList, 255);
}

TEST_F(FullScreen, AnotherProgramInFrontLeavesItWithinASecond) {
    int stillOn = 0;
    WhileAIsShown(Then(kEnter) + Times(70, [&] { ExpectOn(); }) +
                  Then([&] { window.SetForeground(kOtherProgram); }) +
                  Times(62, [&] { stillOn += program.FullScreenState; }) +
                  Then([&] { ExpectOff(); }));
    EXPECT_GT(stillOn, 0) << "it is looked at once a second only";
}

TEST_F(FullScreen, TheMainWindowInFrontLeavesIt) {
    WhileAIsShown(Then(kEnter) + Then([&] { window.SetForeground(HeadlessWindow::kHandle); }) +
                  Times(62, Wait) + Then([&] { ExpectOff(); }));
}

TEST_F(FullScreen, AnotherProgramInFrontLeavesItWhilePausedToo) {
    WhileAIsShown(Then(kEnter) + Then(Choose(Menu::mnuPause)) + Times(70, [&] { ExpectOn(); }) +
                  Then([&] { window.SetForeground(kOtherProgram); }) + Times(62, Wait) + Then([&] {
                      ExpectOff();
                      EXPECT_NE(loop.Paused, 0);
                  }));
}

TEST_F(PlainFullScreen, WhilePausedNobodyLooksWhoIsInFront) {
    WhileAIsShown(Then(kEnter) + Then([&] {
                      Click(Menu::mnuPause);
                      window.SetForeground(kOtherProgram);
                  }) +
                  Times(100, [&] { ExpectOn(); }) + Then(Choose(Menu::mnuPause)) +
                  Then([&] { ExpectOff(); }));
}

TEST_F(PlainFullScreen, WithoutSuchAModeOnlyTheMarkIsSet) {
    display.SetModes({{640, 480, 24, 60}, {320, 240, 24, 75}, {320, 240, 32, 60}, kBefore});
    WhileAIsShown({kEnter, Wait});
    EXPECT_TRUE(form[Menu::mnuFS].checked);
    EXPECT_EQ(program.FullScreenState, 0);
    EXPECT_FALSE(fullScreen.Shown());
    EXPECT_THAT(display.Switches(), IsEmpty());
    EXPECT_EQ(program.FullScreenWindow, 0U);
    EXPECT_EQ(program.ScreenWidth, 0);
    Click(Menu::mnuFS);
    EXPECT_FALSE(form[Menu::mnuFS].checked);
    EXPECT_EQ(program.FullScreenState, 0);
}

TEST_F(PlainFullScreen, AModeOf16BitsIsDescribedAlikeAndTaken) {
    const DisplaySettings sixteen{320, 240, 16, 60};
    display.SetModes({kBefore, sixteen, kFull});
    WhileAIsShown({kEnter});
    EXPECT_THAT(display.Switches(), ElementsAre(sixteen));
}

// With additions the picture is shown at any size.
TEST_F(FullScreen, LeavesTheDisplayAloneUnlessItIsToBeSwitched) {
    Click(Menu::mnuSwitchMode);
    WhileAIsShown({kEnter, [&] {
                       ExpectOn();
                       EXPECT_EQ(program.FullScreenWindow, HeadlessFullScreen::kHandle);
                       EXPECT_EQ(display.Current(), kBefore);
                       program.Form_KeyDown(VirtualKey::Escape);
                       ExpectOff();
                   }});
    EXPECT_THAT(display.Switches(), IsEmpty());
}

TEST_F(FullScreen, TakesTheSmallestModeThatHoldsTheCanvas) {
    const DisplaySettings held{400, 300, 24, 60};
    display.SetModes(
        {{640, 480, 24, 60}, {320, 200, 24, 60}, held, {320, 240, 24, 60, true}, kBefore});
    WhileAIsShown({kEnter, [&] {
                       ExpectOn();
                       EXPECT_THAT(display.Switches(), ElementsAre(held));
                       program.Form_KeyDown(VirtualKey::Escape);
                       ExpectOff();
                   }});
    EXPECT_THAT(display.Switches(), ElementsAre(held, kBefore));
}

TEST_F(FullScreen, WithoutAModeThatHoldsTheCanvasItStaysInTheOneInForce) {
    const DisplaySettings small{256, 192, 24, 60};
    display.SetModes({small});
    display.SetCurrent(small);
    WhileAIsShown({kEnter, [&] { ExpectOn(); }});
    EXPECT_THAT(display.Switches(), IsEmpty());
}

TEST_F(FullScreen, CanBeChosenWhileAStageIsThereOnly) {
    EXPECT_FALSE(form[Menu::mnuFS].enabled);
    WhileAIsShown({[&] { EXPECT_TRUE(form[Menu::mnuFS].enabled); }, Choose(Menu::mnuClose)});
    EXPECT_FALSE(form[Menu::mnuFS].enabled);
    Click(Menu::mnuFS);
    EXPECT_FALSE(form[Menu::mnuFS].checked);
}

TEST_F(FullScreen, HidesTheWindowFromASwitchOfTheDisplayOnly) {
    WhileAIsShown({kEnter, [&] {
                       EXPECT_EQ(fullScreen.MainWindow(), FullScreenForm::Beneath::Hides);
                       program.Form_KeyDown(VirtualKey::Escape);
                       Click(Menu::mnuSwitchMode);
                       Click(Menu::mnuFS);
                       ExpectOn();
                       EXPECT_EQ(fullScreen.MainWindow(), FullScreenForm::Beneath::Stays);
                   }});
}

TEST_F(FullScreen, PageUpAndPageDownGoThroughTheStages) {
    files.Put(kStageB, Stage("second"));
    const Act previous = KeyDown(VirtualKey::PageUp);
    const Act next = KeyDown(VirtualKey::PageDown);
    const auto shows = [&](const char* title) {
        return Act([this, title] {
            EXPECT_EQ(Caption(), title);
            ExpectOn();
        });
    };
    WhileAIsShown({kEnter, next, shows("second"), next, shows("third"), next, shows("third"),
                   previous, shows("second"), previous, previous, shows("first")});
    EXPECT_THAT(MessageTexts(), IsEmpty());
}

// Each press counts: two on, none at the end, one back.
TEST_F(FullScreen, PageDownWhileAStageLoadsIsTakenWhenThatIsDone) {
    files.Put("/mugen/stages/d.def", Stage("fourth"));
    files.Put("/mugen/stages/e.def", Stage("fifth"));
    Load();
    const Act next = KeyDown(VirtualKey::PageDown);
    const Act loading =
        Once(All({next, KeyDown(VirtualKey::Escape), next, next, KeyDown(VirtualKey::PageUp)}));
    bool changes = false;
    WhileAIsShown({kEnter, [&] { changes = true; }, Select(kItemC),
                   [&] {
                       EXPECT_EQ(Caption(), "fourth");
                       EXPECT_EQ(form.lstStages.ListIndex, 3);
                       ExpectOn();
                   }},
                  [&](RunningStage& running) {
                      if (changes) {
                          loading(running);
                      }
                  });
    EXPECT_EQ(Begun(), 3);
    EXPECT_THAT(MessageTexts(), IsEmpty());
}

TEST_F(FullScreen, InTheWindowPageDownIsTheLists) {
    WhileAIsShown({KeyDown(VirtualKey::PageDown), [&] { EXPECT_EQ(Caption(), "first"); }});
    EXPECT_EQ(Begun(), 1);
}

TEST_F(PlainFullScreen, PageDownDoesNothing) {
    WhileAIsShown({kEnter, KeyDown(VirtualKey::PageDown), [&] {
                       ExpectOn();
                       EXPECT_EQ(Caption(), "first");
                   }});
    EXPECT_EQ(Begun(), 1);
}

// The item can be chosen there where a machine shows its menus.
TEST_F(FullScreen, TheNextStageIsShownInTheDisplaysOwnModeWhenItIsNoLongerToBeSwitched) {
    WhileAIsShown({kEnter, Choose(Menu::mnuSwitchMode), Select(kItemC), [&] {
                       ExpectOn();
                       EXPECT_EQ(display.Current(), kBefore);
                   }});
    EXPECT_THAT(display.Switches(), ElementsAre(kFull, kBefore));
}

TEST_F(PlainFullScreen, WithoutAStageOnlyTheMarkChanges) {
    WhileAIsShown({Choose(Menu::mnuClose)});
    Click(Menu::mnuFS);
    EXPECT_TRUE(form[Menu::mnuFS].checked);
    EXPECT_EQ(program.FullScreenState, 0);
    EXPECT_FALSE(fullScreen.Shown());
    Click(Menu::mnuFS);
    EXPECT_FALSE(form[Menu::mnuFS].checked);
}

TEST_F(FullScreen, TheNextStageIsFullScreenTooAndTheModeBeforeComesBack) {
    WhileAIsShown({kEnter, Select(kItemC), [&] {
                       EXPECT_EQ(Caption(), "third");
                       ExpectOn();
                       EXPECT_THAT(display.Switches(), ElementsAre(kFull, kFull));
                       program.Form_KeyDown(VirtualKey::Escape);
                       ExpectOff();
                   }});
    EXPECT_EQ(Begun(), 2);
}

TEST_F(FullScreen, AStageAfterItIsInTheWindowAgain) {
    WhileAIsShown({kEnter,
                   [&] {
                       program.Form_KeyDown(VirtualKey::Escape);
                       program.lstStages_Click(kItemC);
                   },
                   [&] { ExpectOff(); }});
    EXPECT_EQ(Begun(), 2);
}

TEST_F(FullScreen, EscapeWhileTheNextStageLoadsIsPassedOver) {
    WhileAIsShown({kEnter, Select(kItemC), [&] { ExpectOn(); }}, kEscape);
}

TEST_F(FullScreen, ADisplayThatRefusesShowsTheFormInItsOwnMode) {
    display.RefuseToSwitch();
    WhileAIsShown({kEnter, [&] {
                       ExpectOn();
                       program.Form_KeyDown(VirtualKey::Escape);
                       ExpectOff();
                       EXPECT_THAT(display.Switches(), ElementsAre(kFull));
                   }});
}

TEST_F(FullScreen, AModeThatTheDisplayDoesNotListIsAskedForAgain) {
    const DisplaySettings unlisted{1366, 768, 24, 60};
    display.SetCurrent(unlisted);
    WhileAIsShown({kEnter, kEscape});
    EXPECT_THAT(display.Switches(), ElementsAre(kFull, unlisted));
    EXPECT_FALSE(fullScreen.Shown());
}

TEST_F(FullScreen, EscapeOutsideOfItLeavesTheWindowAlone) {
    WhileAIsShown({[&] {
                       window.MoveTo({150, 300, 9600, 7200});
                       keyboard.Press(VirtualKey::Escape);
                       program.Form_KeyDown(VirtualKey::Escape);
                   },
                   Wait});
    EXPECT_EQ(window.Place().width, 9600);
    EXPECT_THAT(display.Switches(), IsEmpty());
}

TEST_F(FullScreen, AStageThatFailsGivesTheScreenBack) {
    WhileAIsShown({kEnter, [&] { direct3D.Device()->Lose(); }});
    EXPECT_THAT(MessageTexts(), ElementsAre(StartsWith("Run-time error: Direct3D error")));
    ExpectOff();
}

TEST_F(FullScreen, ANextStageThatCannotBeShownGivesTheScreenBack) {
    WhileAIsShown({kEnter, [&] {
                       program.lstStages_Click(kItemC);
                       files.Delete(kStageC);
                   }});
    EXPECT_THAT(MessageTexts(), ElementsAre(StartsWith("Unable to load ")));
    ExpectOff();
}

// A machine may show its menus there, too.
TEST_F(FullScreen, TheSpriteBrowserEndsIt) {
    WhileAIsShown({kEnter, Choose(Menu::mnuDebug), Wait, [&] {
                       ExpectOff();
                       EXPECT_EQ(show.SpriteBrowserMode, 255);
                   }});
}

TEST_F(FullScreen, CloseGivesTheScreenBack) {
    WhileAIsShown({kEnter, Choose(Menu::mnuClose)});
    ExpectOff();
}

TEST_F(PlainFullScreen, EscapeLeavesItAndReleasesTheDevice) {
    WhileAIsShown({kEnter,
                   [&] {
                       program.Form_KeyDown(VirtualKey::Escape);
                       EXPECT_EQ(program.FullScreenState, 0);
                   },
                   Wait, Wait});
    EXPECT_FALSE(fullScreen.Shown());
    EXPECT_EQ(direct3D.Device(), nullptr);
    EXPECT_EQ(sink.shown, 2);
}

TEST_F(PlainFullScreen, QReleasesTheDeviceAndEscapeStillLeavesIt) {
    WhileAIsShown({kEnter,
                   [&] {
                       program.Form_KeyDown(VirtualKey::Q);
                       EXPECT_EQ(program.FullScreenState, 1);
                       keyboard.Press(VirtualKey::Escape);
                   },
                   [&] { EXPECT_EQ(program.FullScreenState, 0); }});
    EXPECT_FALSE(fullScreen.Shown());
}

}  // namespace
}  // namespace scenara::test
