// SPDX-License-Identifier: MIT
//
// The background editor and its bar through the main window: what they do to the stage that is
// shown, and what they leave alone.
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/ToolStage.h"

namespace scenara::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

constexpr const char* kDump = "/program/chek.txt";

using EditorTools = Tools;

class PlainEditorTools : public Tools {
protected:
    PlainEditorTools() : Tools(false) {}
};

TEST_F(EditorTools, ShowTheBarAndTheFrameWhileDebugBGIsChecked) {
    WhileAIsShown({[&] {
                       EXPECT_FALSE(form.hscHScroll.Visible);
                       kSelectTwo(*this);
                       ExpectNothingSelected();
                   },
                   kEdit,
                   [&] {
                       ExpectBar(-100, 100, 0);
                       kSelectTwo(*this);
                       EXPECT_EQ(show.Editor().SelectedIndex(), 1);
                       EXPECT_EQ(form.selection, kFrameOfTwo);
                   },
                   [&] {
                       EXPECT_EQ(form.selection, kFrameOfTwo);
                       Click(Menu::mnuDebugBG);
                       EXPECT_FALSE(form.hscHScroll.Visible);
                   },
                   [&] { ExpectNothingSelected(); }});
}

TEST_F(PlainEditorTools, TheBarTakesNothingOfThePicture) {
    std::size_t wishes = 0;
    const auto expectAsked = [&] {
        ASSERT_EQ(window.Wishes().size(), wishes + 1);
        EXPECT_EQ(window.Wishes().back().width, 800);
        EXPECT_EQ(window.Wishes().back().height, 600);
    };
    const Act count = [&] { wishes = window.Wishes().size(); };
    WhileAIsShown({[&] {
                       window.MoveTo({0, 0, 800 * 15, 600 * 15});
                   },
                   Wait, count, kEdit, expectAsked, count, kEdit, expectAsked});
}

TEST_F(EditorTools, ADragIsInTheDumpThatTheDKeyWrites) {
    WhileAIsShown({kEdit,
                   [&] {
                       program.Form_MouseDown(162, 3);
                       EXPECT_EQ(form.selection, kFrameOfOne);
                       program.Form_MouseMove(172, 8);
                       EXPECT_EQ(form.selection, (ViewFrame{170, 5, 179, 12}));
                       program.Form_MouseUp();
                       program.Form_MouseMove(300, 200);
                       EXPECT_EQ(form.selection, (ViewFrame{170, 5, 179, 12}));
                   },
                   Hold(VirtualKey::D), LetGo,
                   [&] { EXPECT_EQ(Caption(), "Dumped to /program/chek.txt"); }});
    EXPECT_EQ(files.Get(kDump),
              "[BG one]\r\ntype = normal\r\nlayerno = 0\r\nspriteno = 0,0\r\n"
              "start = 10,5\r\ndelta = 1,1\r\nmask = 0\r\n\r\n"
              "[BG two]\r\ntype = normal\r\nlayerno = 0\r\nspriteno = 0,0\r\n"
              "start = 50,20\r\ndelta = 1,1\r\nmask = 0\r\n\r\n");
    EXPECT_THAT(MessageTexts(), IsEmpty());
}

// "d" in the list of stages finds one that begins so.
using EditorToolsAtStart = NewProgram;

TEST_F(EditorToolsAtStart, KeysTypedBeforeAStageOrWhileItLoadsDumpNothing) {
    files.Put(kConfiguration, "MugeDir = /mugen/\r\nDebugBG = True\r\n");
    Load();
    ASSERT_TRUE(form[Menu::mnuDebugBG].checked);
    const auto tapD = Tap(VirtualKey::D);
    tapD(*this);
    WhileAIsShown(Times(3, Wait), tapD);
    EXPECT_FALSE(files.Has(kDump));
    EXPECT_EQ(Caption(), "first");
    WhileAIsShown({Wait, tapD, Wait, Wait});
    EXPECT_TRUE(files.Has(kDump)) << "and in the stage it does";
}

TEST_F(EditorTools, ADumpThatCannotBeOpenedIsSaidByItsPath) {
    files.Refuse(kDump);
    WhileAIsShown(
        {kEdit, Hold(VirtualKey::D), LetGo, Wait, [&] { EXPECT_EQ(loop.StageRunning, 1); }});
    EXPECT_THAT(MessageTexts(),
                ElementsAre("Run-time error: Path/File access error: /program/chek.txt"));
}

TEST_F(EditorTools, ADumpThatCannotBeWrittenIsSaidAndTheStageGoesOn) {
    files.FillDisk();
    int shown = 0;
    WhileAIsShown({kEdit, Hold(VirtualKey::D), LetGo, [&] { shown = sink.shown; }, Wait,
                   [&] {
                       EXPECT_EQ(loop.StageRunning, 1);
                       EXPECT_EQ(model.ElementCount, 2);
                       EXPECT_EQ(sink.shown, shown + 2);
                       EXPECT_EQ(Caption(), "tools");
                   }});
    EXPECT_THAT(MessageTexts(), ElementsAre(StartsWith("Run-time error: Disk full")));
}

TEST_F(EditorTools, TheBarMovesTheCameraAndFollowsTheKeys) {
    WhileAIsShown({kEdit,
                   [&] {
                       program.hscHScroll_Change(40);
                       EXPECT_EQ(model.CamX, -40);
                       EXPECT_EQ(form.hscHScroll.Value, 40);
                       EXPECT_EQ(model.Elements.at(1).posX, 170);
                   },
                   Hold(VirtualKey::Right),
                   [&] {
                       keyboard.Hold({});
                       // A step in each of the frame's two passes.
                       EXPECT_EQ(model.CamX, -42);
                       EXPECT_EQ(form.hscHScroll.Value, 42);
                   }});
}

TEST_F(EditorTools, TheBarKeepsToItsBoundsAndToDebugBG) {
    WhileAIsShown({kEdit, [&] {
                       program.hscHScroll_Change(500);
                       EXPECT_EQ(model.CamX, -100);
                       program.hscHScroll_Change(-500);
                       EXPECT_EQ(model.CamX, 100);
                       Click(Menu::mnuDebugBG);
                       program.hscHScroll_Change(40);
                       EXPECT_EQ(model.CamX, 100);
                   }});
}

TEST_F(EditorTools, TheBarStaysBetweenTwoStages) {
    int loading = 0;
    WhileAIsShown({kEdit,
                   [&] {
                       program.hscHScroll_Change(40);
                       program.lstStages_Click(kItemC);
                       EXPECT_TRUE(form.hscHScroll.Visible);
                   },
                   [&] {
                       EXPECT_EQ(Caption(), "third");
                       ExpectBar(-100, 100, 0);
                       Click(Menu::mnuClose);
                       EXPECT_FALSE(form.hscHScroll.Visible);
                   }},
                  [&] {
                      if (form[Menu::mnuDebugBG].checked) {
                          ++loading;
                          ExpectBar(0, 0, 0);
                      }
                  });
    EXPECT_GT(loading, 0);
}

TEST_F(EditorTools, TheBarStaysWhenTheStageIsLoadedAgain) {
    for (const Menu item : {Menu::mnuReload, Menu::mnuAdditions, Menu::mnuStageNext}) {
        SCOPED_TRACE(static_cast<int>(item));
        form[Menu::mnuDebugBG].checked = true;
        WhileAIsShown({[&] {
            Click(item);
            EXPECT_TRUE(form.hscHScroll.Visible);
        }});
    }
}

TEST_F(EditorTools, TheBarGoesWithAStageThatCannotBeShown) {
    WhileAIsShown({kEdit, [&] {
                       program.lstStages_Click(kItemC);
                       EXPECT_TRUE(form.hscHScroll.Visible);
                       files.Delete(kStageC);
                   }});
    EXPECT_FALSE(form.hscHScroll.Visible);
}

TEST_F(EditorTools, AreSeenWhilePaused) {
    WhileAIsShown({kEdit, kPause, Wait, [&] {
                       const Long frames = loop.TotalFrames;
                       program.Form_MouseDown(162, 3);
                       EXPECT_EQ(form.selection, kFrameOfOne);
                       program.Form_MouseMove(172, 8);
                       EXPECT_EQ(form.selection, (ViewFrame{170, 5, 179, 12}));
                       program.hscHScroll_Change(30);
                       EXPECT_EQ(form.selection, (ViewFrame{140, 5, 149, 12}));
                       EXPECT_EQ(loop.TotalFrames, frames);
                   }});
}

TEST_F(PlainEditorTools, TheBarIsShownWhenAStageIsOpenedPaused) {
    form[Menu::mnuDebugBG].checked = true;
    Click(Menu::mnuPause);
    WhileAIsShown({[&] {
        EXPECT_EQ(loop.Paused, 255);
        EXPECT_TRUE(form.hscHScroll.Visible);
    }});
    EXPECT_GE(turn, 1);
}

// Plain, no key acts while the stage is paused; with additions those of the editor do so at once.
class KeysTappedWhilePaused : public Tools, public testing::WithParamInterface<bool> {
protected:
    KeysTappedWhilePaused() : Tools(GetParam()) {}
};

TEST_P(KeysTappedWhilePaused, DoNothingAfterwards) {
    WhileAIsShown({kEdit, kSelectTwo, Wait, kPause,
                   GetParam() ? Act(Wait) : Tap(VirtualKey::Delete), Tap(VirtualKey::Right), kPause,
                   Wait, Wait,
                   [&] {
                       EXPECT_EQ(model.ElementCount, 2);
                       EXPECT_EQ(model.CamX, 0);
                       keyboard.Tap(VirtualKey::Delete);
                   },
                   [&] {
                       EXPECT_EQ(model.ElementCount, 1);
                       EXPECT_EQ(Caption(), "Deleted..");
                   }});
}

INSTANTIATE_TEST_SUITE_P(PlainAndAdditions, KeysTappedWhilePaused, testing::Bool());

TEST_F(EditorTools, NoKeyDeletesInTheFullScreen) {
    WhileAIsShown(
        {kEdit, kSelectTwo, Wait, Choose(Menu::mnuFS), Hold(VirtualKey::Delete), LetGo, [&] {
             EXPECT_EQ(program.FullScreenState, 1);
             EXPECT_EQ(model.ElementCount, 2);
         }});
}

TEST_F(EditorTools, TheSelectionGoesWithTheStage) {
    for (const Menu item : {Menu::mnuStageNext, Menu::mnuReload, Menu::mnuClose}) {
        SCOPED_TRACE(static_cast<int>(item));
        form[Menu::mnuDebugBG].checked = true;
        show.Flags().DebugBG = kByteTrue;
        WhileAIsShown({[&] {
            kSelectTwo(*this);
            EXPECT_EQ(form.selection, kFrameOfTwo);
            Click(item);
            ExpectNothingSelected();
        }});
        ExpectNothingSelected();
    }
}

// What was pressed before does nothing now.
TEST_F(EditorTools, WhatTheCaptionTellsGoesAfterFiveSeconds) {
    constexpr std::size_t kFrames = 290;  // a little less
    WhileAIsShown(std::vector<Act>{kEdit, kSelectTwo, Wait, Tap(VirtualKey::D), Wait} +
                  Times(kFrames, Wait) +
                  Then([&] { EXPECT_EQ(Caption(), "Dumped to /program/chek.txt"); }) +
                  Times(20, Wait) + Then([&] { EXPECT_EQ(Caption(), "tools"); }));
}

TEST_F(EditorTools, KeysFromBeforeAPauseDoNothingInIt) {
    WhileAIsShown({kEdit, kSelectTwo,
                   [&] {
                       keyboard.Tap(VirtualKey::Delete);
                       Click(Menu::mnuPause);
                   },
                   Wait,
                   [&] {
                       EXPECT_EQ(model.ElementCount, 2);
                       keyboard.Tap(VirtualKey::Insert);
                   },
                   [&] {
                       EXPECT_EQ(model.ElementCount, 3);
                       EXPECT_EQ(form.selection, kFrameOfTwo);
                       EXPECT_EQ(Caption(), "Cloned.. <<PAUSED>>");
                   }});
}

// --- events that come too early or too late ---

using EventsOfTools = Tools;

TEST_F(EventsOfTools, BeforeAnyStageDoNothing) {
    form[Menu::mnuDebugBG].checked = true;
    EveryEvent();
    ExpectNothingSelected();
    ExpectNoBrowser();
    EXPECT_EQ(form.hscHScroll.Value, 0);
    EXPECT_EQ(form.hscSGFX.Value, 0);
    EXPECT_THAT(MessageTexts(), IsEmpty());
}

TEST_F(EventsOfTools, WhileAStageLoadsDoNothing) {
    form[Menu::mnuDebugBG].checked = true;
    int events = 0;
    WhileAIsShown({[&] {
                      ExpectNothingSelected();
                      EXPECT_EQ(model.CamX, 0);
                      EXPECT_EQ(model.Elements.at(0).startX, 0);
                      EXPECT_EQ(Caption(), "tools");
                  }},
                  [&] {
                      ++events;
                      EveryEvent();
                  });
    EXPECT_GT(events, 0);
    EXPECT_EQ(form.hscSGFX.Value, 0);
    EXPECT_THAT(MessageTexts(), IsEmpty());
}

TEST_F(EventsOfTools, BehindCloseDoNothing) {
    form[Menu::mnuDebugBG].checked = true;
    WhileAIsShown({[&] {
        Click(Menu::mnuClose);
        EveryEvent();
        ExpectNothingSelected();
        EXPECT_EQ(Caption(), program.AppTitle);
    }});
    EveryEvent();
    ExpectNothingSelected();
    EXPECT_EQ(Caption(), program.AppTitle);
    EXPECT_FALSE(form.hscHScroll.Visible);
    EXPECT_THAT(MessageTexts(), IsEmpty());
}

TEST_F(EventsOfTools, OfTheMouseDoNothingInTheBrowser) {
    form[Menu::mnuDebugBG].checked = true;
    WhileAIsShown({kBrowse, Wait, [&] {
                       EXPECT_FALSE(form.hscHScroll.Visible);
                       kSelectTwo(*this);
                       program.hscHScroll_Change(40);
                       ExpectNothingSelected();
                       EXPECT_EQ(model.CamX, 0);
                   }});
}

}  // namespace
}  // namespace scenara::test
