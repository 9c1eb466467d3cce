// SPDX-License-Identifier: MIT
//
// The background editor and the sprite browser through the main window: what the mouse, the bars
// and the keys do to the stage that is shown, and what they leave alone.
#include <algorithm>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/RunningStage.h"
#include "samplemaker/PcxWriter.h"
#include "samplemaker/Sff1Writer.h"

namespace scenara::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

constexpr Long kItemA = 0;
constexpr Long kItemC = 2;

// Two pictures of 9 x 7 pixels, at (160, 0) and at (210, 20) of the view.
constexpr const char* kTwoElements =
    "[Info]\nname = tools\n[Camera]\nboundleft = -100\nboundright = 100\n"
    "[BGdef]\nspr = stages/a.sff\n"
    "[BG one]\ntype = normal\nspriteno = 0,0\nstart = 0,0\ndelta = 1,1\n"
    "[BG two]\ntype = normal\nspriteno = 0,0\nstart = 50,20\ndelta = 1,1\n";
constexpr ViewFrame kFrameOfOne{160, 0, 169, 7};
constexpr ViewFrame kFrameOfTwo{210, 20, 219, 27};

Act Choose(Menu item) {
    return [item](RunningStage& running) { running.Click(item); };
}

const Act kEdit = Choose(Menu::mnuDebugBG);
// Lets messages through: what is done next, is done inside.
const Act kBrowse = Choose(Menu::mnuDebug);

void SelectTwo(RunningStage& running) {
    running.program.Form_MouseDown(215, 25);
    running.program.Form_MouseUp();
}

Act Tap(VirtualKey key) {
    return [key](RunningStage& running) { running.keyboard.Tap(key); };
}

// A key that is down for a pass.
Act Hold(VirtualKey key) {
    return [key](RunningStage& running) { running.keyboard.Hold({key}); };
}
void LetGo(RunningStage& running) {
    running.keyboard.Hold({});
}

class Tools : public testing::Test {
protected:
    Tools() {
        stage.files.Put("/mugen/stages/a.def", kTwoElements);
        stage.Load();
    }

    void WhileAIsShown(std::vector<Act> acts, Act loading = {}) {
        stage.user = InTurn(std::move(acts), std::move(loading));
        stage.program.lstStages_Click(kItemA);
    }

    // Everything that the mouse and the bars tell of.
    static void EveryEvent(RunningStage& running) {
        running.program.Form_MouseDown(162, 3);
        running.program.Form_MouseMove(172, 8);
        running.program.Form_MouseUp();
        running.program.hscHScroll_Change(40);
        running.program.hscSGFX_Change(1);
        running.program.hscSGFX_Scroll(2);
    }

    void ExpectNothingSelected() {
        EXPECT_EQ(stage.program.Show().Editor().SelectedIndex(), -1);
        EXPECT_EQ(stage.form.selection, std::nullopt);
    }
    void ExpectNoBrowser() {
        EXPECT_EQ(stage.program.Show().SpriteBrowserMode, 0);
        EXPECT_FALSE(stage.form.hscSGFX.Visible);
    }
    void ExpectSize(Long width, Long height) {
        EXPECT_EQ(stage.window.Place().width, width * 15);
        EXPECT_EQ(stage.window.Place().height, height * 15);
    }

    RunningStage stage;
};

// --- the editor ---

using EditorTools = Tools;

TEST_F(EditorTools, ShowTheBarAndTheFrameWhileDebugBGIsChecked) {
    WhileAIsShown({[this](RunningStage& running) {
                       EXPECT_FALSE(running.form.hscHScroll.Visible);
                       SelectTwo(running);
                       ExpectNothingSelected();
                   },
                   kEdit,
                   [](RunningStage& running) {
                       EXPECT_TRUE(running.form.hscHScroll.Visible);
                       EXPECT_EQ(running.form.hscHScroll.Min, -100);
                       EXPECT_EQ(running.form.hscHScroll.Max, 100);
                       SelectTwo(running);
                       EXPECT_EQ(running.program.Show().Editor().SelectedIndex(), 1);
                       EXPECT_EQ(running.form.selection, kFrameOfTwo);
                   },
                   [](RunningStage& running) {
                       EXPECT_EQ(running.form.selection, kFrameOfTwo);
                       running.Click(Menu::mnuDebugBG);
                       EXPECT_FALSE(running.form.hscHScroll.Visible);
                   },
                   [this](RunningStage&) { ExpectNothingSelected(); }});
}

TEST_F(EditorTools, TheBarTakesNothingOfThePicture) {
    std::size_t wishes = 0;
    const auto expectAsked = [&](RunningStage& running) {
        ASSERT_EQ(running.window.Wishes().size(), wishes + 1);
        EXPECT_EQ(running.window.Wishes().back().width, 800);
        EXPECT_EQ(running.window.Wishes().back().height, 600);
    };
    const Act count = [&](RunningStage& running) { wishes = running.window.Wishes().size(); };
    WhileAIsShown({[](RunningStage& running) {
                       running.window.MoveTo({0, 0, 800 * 15, 600 * 15});
                   },
                   Wait, count, kEdit, expectAsked, count, kEdit, expectAsked});
}

TEST_F(EditorTools, ADragIsInTheDumpThatTheDKeyWrites) {
    WhileAIsShown({kEdit,
                   [](RunningStage& running) {
                       running.program.Form_MouseDown(162, 3);
                       EXPECT_EQ(running.form.selection, kFrameOfOne);
                       running.program.Form_MouseMove(172, 8);
                       EXPECT_EQ(running.form.selection, (ViewFrame{170, 5, 179, 12}));
                       running.program.Form_MouseUp();
                       running.program.Form_MouseMove(300, 200);
                       EXPECT_EQ(running.form.selection, (ViewFrame{170, 5, 179, 12}));
                   },
                   Hold(VirtualKey::D), LetGo,
                   [](RunningStage& running) {
                       EXPECT_EQ(running.Caption(), "Dumped to /program/chek.txt");
                   }});
    EXPECT_EQ(stage.files.Get("/program/chek.txt"),
              "[BG one]\r\ntype = normal\r\nactionno = 0\r\nlayerno = 0\r\nspriteno = 0,0\r\n"
              "start = 10,5\r\ndelta = 1,1\r\nmask = 0\r\n\r\n"
              "[BG two]\r\ntype = normal\r\nactionno = 0\r\nlayerno = 0\r\nspriteno = 0,0\r\n"
              "start = 50,20\r\ndelta = 1,1\r\nmask = 0\r\n\r\n");
    EXPECT_THAT(stage.MessageTexts(), IsEmpty());
}

// "d" in the list of stages finds one that begins so.
TEST(EditorToolsAtStart, KeysTypedBeforeAStageOrWhileItLoadsDumpNothing) {
    RunningStage stage;
    stage.files.Put("/program/QX.CFG", "MugeDir = /mugen/\r\nDebugBG = True\r\n");
    stage.Load();
    ASSERT_TRUE(stage.form[Menu::mnuDebugBG].checked);
    const auto tapD = [](RunningStage& running) { running.keyboard.Tap(VirtualKey::D); };
    tapD(stage);
    stage.user = InTurn({Wait, Wait, Wait}, tapD);
    stage.program.Form_OLEDragDrop("/mugen/stages/a.def");
    EXPECT_FALSE(stage.files.Has("/program/chek.txt"));
    EXPECT_EQ(stage.Caption(), "first");
    stage.user = InTurn({Wait, tapD, Wait, Wait});
    stage.program.Form_OLEDragDrop("/mugen/stages/a.def");
    EXPECT_TRUE(stage.files.Has("/program/chek.txt")) << "and in the stage it does";
}

TEST_F(EditorTools, ADumpThatCannotBeOpenedIsSaidByItsPath) {
    stage.files.Refuse("/program/chek.txt");
    WhileAIsShown({kEdit, Hold(VirtualKey::D), LetGo, Wait, [](RunningStage& running) {
                       EXPECT_EQ(running.program.Show().Loop().StageRunning, 1);
                   }});
    EXPECT_THAT(stage.MessageTexts(),
                ElementsAre("Run-time error: Path/File access error: /program/chek.txt"));
}

TEST_F(EditorTools, ADumpThatCannotBeWrittenIsSaidAndTheStageGoesOn) {
    stage.files.FillDisk();
    int shown = 0;
    WhileAIsShown({kEdit, Hold(VirtualKey::D), LetGo,
                   [&](RunningStage& running) { shown = running.sink.shown; }, Wait,
                   [&](RunningStage& running) {
                       EXPECT_EQ(running.program.Show().Loop().StageRunning, 1);
                       EXPECT_EQ(running.program.Show().Model().ElementCount, 2);
                       EXPECT_EQ(running.sink.shown, shown + 2);
                       EXPECT_EQ(running.Caption(), "tools");
                   }});
    EXPECT_THAT(stage.MessageTexts(), ElementsAre(StartsWith("Run-time error: Disk full")));
}

TEST_F(EditorTools, TheBarMovesTheCameraAndFollowsTheKeys) {
    WhileAIsShown({kEdit,
                   [](RunningStage& running) {
                       running.program.hscHScroll_Change(40);
                       EXPECT_EQ(running.program.Show().Model().CamX, -40);
                       EXPECT_EQ(running.form.hscHScroll.Value, 40);
                       EXPECT_EQ(running.program.Show().Model().Elements.at(1).posX, 170);
                   },
                   Hold(VirtualKey::Right),
                   [](RunningStage& running) {
                       running.keyboard.Hold({});
                       // A step in each of the frame's two passes.
                       EXPECT_EQ(running.program.Show().Model().CamX, -42);
                       EXPECT_EQ(running.form.hscHScroll.Value, 42);
                   }});
}

TEST_F(EditorTools, TheBarKeepsToItsBoundsAndToDebugBG) {
    WhileAIsShown({kEdit, [](RunningStage& running) {
                       running.program.hscHScroll_Change(500);
                       EXPECT_EQ(running.program.Show().Model().CamX, -100);
                       running.program.hscHScroll_Change(-500);
                       EXPECT_EQ(running.program.Show().Model().CamX, 100);
                       running.Click(Menu::mnuDebugBG);
                       running.program.hscHScroll_Change(40);
                       EXPECT_EQ(running.program.Show().Model().CamX, 100);
                   }});
}

TEST_F(EditorTools, TheBarStaysBetweenTwoStages) {
    int loading = 0;
    WhileAIsShown({kEdit,
                   [](RunningStage& running) {
                       running.program.hscHScroll_Change(40);
                       running.program.lstStages_Click(kItemC);
                       EXPECT_TRUE(running.form.hscHScroll.Visible);
                   },
                   [](RunningStage& running) {
                       EXPECT_EQ(running.Caption(), "third");
                       EXPECT_TRUE(running.form.hscHScroll.Visible);
                       EXPECT_EQ(running.form.hscHScroll.Min, -100);
                       EXPECT_EQ(running.form.hscHScroll.Max, 100);
                       EXPECT_EQ(running.form.hscHScroll.Value, 0);
                       running.Click(Menu::mnuClose);
                       EXPECT_FALSE(running.form.hscHScroll.Visible);
                   }},
                  [&](RunningStage& running) {
                      if (running.form[Menu::mnuDebugBG].checked) {
                          ++loading;
                          EXPECT_TRUE(running.form.hscHScroll.Visible);
                          EXPECT_EQ(running.form.hscHScroll.Min, 0);
                          EXPECT_EQ(running.form.hscHScroll.Max, 0);
                          EXPECT_EQ(running.form.hscHScroll.Value, 0);
                      }
                  });
    EXPECT_GT(loading, 0);
}

TEST_F(EditorTools, TheBarStaysWhenTheStageIsLoadedAgain) {
    for (const Menu item : {Menu::mnuReload, Menu::mnuAdditions, Menu::mnuStageNext}) {
        SCOPED_TRACE(static_cast<int>(item));
        stage.form[Menu::mnuDebugBG].checked = true;
        WhileAIsShown({[item](RunningStage& running) {
            running.Click(item);
            EXPECT_TRUE(running.form.hscHScroll.Visible);
        }});
    }
}

TEST_F(EditorTools, TheBarGoesWithAStageThatCannotBeShown) {
    WhileAIsShown({kEdit, [](RunningStage& running) {
                       running.program.lstStages_Click(kItemC);
                       EXPECT_TRUE(running.form.hscHScroll.Visible);
                       running.files.Delete("/mugen/stages/c.def");
                   }});
    EXPECT_FALSE(stage.form.hscHScroll.Visible);
}

TEST_F(EditorTools, AreSeenWhilePaused) {
    WhileAIsShown({kEdit, Choose(Menu::mnuPause), Wait, [](RunningStage& running) {
                       const Long frames = running.program.Show().Loop().TotalFrames;
                       running.program.Form_MouseDown(162, 3);
                       EXPECT_EQ(running.form.selection, kFrameOfOne);
                       running.program.Form_MouseMove(172, 8);
                       EXPECT_EQ(running.form.selection, (ViewFrame{170, 5, 179, 12}));
                       running.program.hscHScroll_Change(30);
                       EXPECT_EQ(running.form.selection, (ViewFrame{140, 5, 149, 12}));
                       EXPECT_EQ(running.program.Show().Loop().TotalFrames, frames);
                   }});
}

TEST(PausedOpening, ShowsTheCameraBar) {
    RunningStage stage({}, false);
    stage.Load();
    stage.form[Menu::mnuDebugBG].checked = true;
    stage.Click(Menu::mnuPause);
    stage.user = InTurn({[](RunningStage& running) {
        EXPECT_EQ(running.program.Show().Loop().Paused, 255);
        EXPECT_TRUE(running.form.hscHScroll.Visible);
    }});
    stage.program.lstStages_Click(kItemA);
    EXPECT_GE(stage.turn, 1);
}

// Plain, none of them acts; with additions those of the editor do so at once.
TEST(KeysTappedWhilePaused, DoNothingAfterwards) {
    for (const bool additions : {false, true}) {
        RunningStage stage({}, additions);
        stage.files.Put("/mugen/stages/a.def", kTwoElements);
        stage.Load();
        stage.user = InTurn({kEdit, SelectTwo, Wait, Choose(Menu::mnuPause),
                             additions ? Act(Wait) : Tap(VirtualKey::Delete),
                             Tap(VirtualKey::Right), Choose(Menu::mnuPause), Wait, Wait,
                             [](RunningStage& running) {
                                 EXPECT_EQ(running.program.Show().Model().ElementCount, 2);
                                 EXPECT_EQ(running.program.Show().Model().CamX, 0);
                                 running.keyboard.Tap(VirtualKey::Delete);
                             },
                             [](RunningStage& running) {
                                 EXPECT_EQ(running.program.Show().Model().ElementCount, 1);
                                 EXPECT_EQ(running.Caption(), "Deleted..");
                             }});
        stage.program.lstStages_Click(kItemA);
    }
}

TEST_F(EditorTools, NoKeyDeletesInTheFullScreen) {
    WhileAIsShown({kEdit, SelectTwo, Wait, Choose(Menu::mnuFS), Hold(VirtualKey::Delete), LetGo,
                   [](RunningStage& running) {
                       EXPECT_EQ(running.program.FullScreenState, 1);
                       EXPECT_EQ(running.program.Show().Model().ElementCount, 2);
                   }});
}

TEST_F(EditorTools, TheSelectionGoesWithTheStage) {
    for (const Menu item : {Menu::mnuStageNext, Menu::mnuReload, Menu::mnuClose}) {
        SCOPED_TRACE(static_cast<int>(item));
        stage.form[Menu::mnuDebugBG].checked = true;
        stage.program.Show().Flags().DebugBG = kByteTrue;
        WhileAIsShown({[this, item](RunningStage& running) {
            SelectTwo(running);
            EXPECT_EQ(running.form.selection, kFrameOfTwo);
            running.Click(item);
            ExpectNothingSelected();
        }});
        ExpectNothingSelected();
    }
}

// --- edits while the stage is paused ---

// Behind the two pictures a wall that stands still, drawn over whatever was there.
constexpr const char* kBeforeAWall =
    "[Info]\nname = tools\n[Camera]\nboundleft = -100\nboundright = 100\n"
    "[BGdef]\nspr = stages/a.sff\n"
    "[BG wall]\ntype = normal\nspriteno = 0,1\nstart = 0,0\ndelta = 0,0\ntile = 1,1\n"
    "[BG one]\ntype = normal\nspriteno = 0,0\nstart = 0,0\ndelta = 1,1\n"
    "[BG two]\ntype = normal\nspriteno = 0,0\nstart = 50,20\ndelta = 1,1\n"
    "[BG three]\ntype = normal\nspriteno = 1,0\nstart = 52,22\ndelta = 1,1\n";

struct PausedEdit {
    const char* name;
    Act act;
    bool byKey;
    bool changesThePicture;
};

void PrintTo(const PausedEdit& edit, std::ostream* out) {
    *out << edit.name;
}

class PausedEdits : public testing::TestWithParam<PausedEdit> {
protected:
    using Pixels = std::vector<std::uint32_t>;

    // The pictures before the edit, after it, and after the back buffer got a mark that the next
    // drawing covers; and how many elements there are in the end.
    struct Seen {
        Pixels before;
        Pixels after;
        std::uint32_t mark = 0;
        Integer elements = 0;
        Long frames = 0;
    };
    static constexpr std::uint32_t kMark = 0xFF12AB;

    static Seen Edited(bool additions) {
        Seen seen;
        RunningStage stage({}, additions);
        stage.files.Put("/mugen/stages/a.def", kBeforeAWall);
        stage.Load();
        stage.user = InTurn({kEdit, Wait,
                             [](RunningStage& running) {
                                 running.program.Form_MouseDown(211, 21);
                                 running.program.Form_MouseUp();
                                 running.Click(Menu::mnuPause);
                                 running.keyboard.Tap(VirtualKey::Up);
                             },
                             Wait,
                             [&](RunningStage& running) {
                                 EXPECT_EQ(running.program.Show().Editor().SelectedIndex(), 2);
                                 seen.before = running.sink.last;
                                 seen.frames = running.program.Show().Loop().TotalFrames;
                                 GetParam().act(running);
                             },
                             [&](RunningStage& running) {
                                 running.keyboard.Hold({});
                                 seen.after = running.sink.last;
                                 running.direct3D.Device()->BackBuffer()[0] = kMark;
                             },
                             Wait,
                             [&](RunningStage& running) {
                                 seen.mark = running.sink.last[0];
                                 seen.elements = running.program.Show().Model().ElementCount;
                                 EXPECT_EQ(running.program.Show().Loop().TotalFrames, seen.frames);
                             }});
        stage.program.lstStages_Click(kItemA);
        EXPECT_THAT(stage.MessageTexts(), IsEmpty());
        return seen;
    }
};

TEST_P(PausedEdits, AreDrawnOnceWithAdditions) {
    const Seen seen = Edited(true);
    EXPECT_EQ(seen.after != seen.before, GetParam().changesThePicture);
    EXPECT_EQ(seen.mark, kMark) << "and not again in the next pass";
}

TEST_P(PausedEdits, PlainlyWaitUntilTheStageGoesOn) {
    const Seen seen = Edited(false);
    EXPECT_EQ(seen.after, seen.before);
    EXPECT_EQ(seen.mark, kMark);
    EXPECT_EQ(seen.elements, 4) << "keys do nothing";
}

INSTANTIATE_TEST_SUITE_P(
    Of, PausedEdits,
    testing::Values(PausedEdit{"Drag",
                               [](RunningStage& running) {
                                   running.program.Form_MouseDown(211, 21);
                                   running.program.Form_MouseMove(231, 41);
                               },
                               false, true},
                    PausedEdit{"Bar",
                               [](RunningStage& running) { running.program.hscHScroll_Change(40); },
                               false, true},
                    PausedEdit{"Click",
                               [](RunningStage& running) {
                                   running.program.Form_MouseDown(161, 1);
                                   running.program.Form_MouseUp();
                               },
                               false, false},
                    PausedEdit{"Up", Hold(VirtualKey::NumpadPlus), true, true},
                    PausedEdit{"Delete", Hold(VirtualKey::Delete), true, true},
                    PausedEdit{"ArrowKey", Hold(VirtualKey::Right), true, false},
                    PausedEdit{"Nothing", Wait, false, false}),
    [](const auto& row) { return std::string(row.param.name); });

// What was pressed before does nothing now.
TEST_F(EditorTools, KeysFromBeforeAPauseDoNothingInIt) {
    WhileAIsShown({kEdit, SelectTwo,
                   [](RunningStage& running) {
                       running.keyboard.Tap(VirtualKey::Delete);
                       running.Click(Menu::mnuPause);
                   },
                   Wait,
                   [](RunningStage& running) {
                       EXPECT_EQ(running.program.Show().Model().ElementCount, 2);
                       running.keyboard.Tap(VirtualKey::Insert);
                   },
                   [](RunningStage& running) {
                       EXPECT_EQ(running.program.Show().Model().ElementCount, 3);
                       EXPECT_EQ(running.form.selection, kFrameOfTwo);
                       EXPECT_EQ(running.Caption(), "Cloned..");
                   }});
}

// --- events that come too early or too late ---

using EventsOfTools = Tools;

TEST_F(EventsOfTools, BeforeAnyStageDoNothing) {
    stage.form[Menu::mnuDebugBG].checked = true;
    EveryEvent(stage);
    ExpectNothingSelected();
    ExpectNoBrowser();
    EXPECT_EQ(stage.form.hscHScroll.Value, 0);
    EXPECT_EQ(stage.form.hscSGFX.Value, 0);
    EXPECT_THAT(stage.MessageTexts(), IsEmpty());
}

TEST_F(EventsOfTools, WhileAStageLoadsDoNothing) {
    stage.form[Menu::mnuDebugBG].checked = true;
    int events = 0;
    WhileAIsShown({[this](RunningStage& running) {
                      ExpectNothingSelected();
                      EXPECT_EQ(running.program.Show().Model().CamX, 0);
                      EXPECT_EQ(running.program.Show().Model().Elements.at(0).startX, 0);
                      EXPECT_EQ(running.Caption(), "tools");
                  }},
                  [&](RunningStage& running) {
                      ++events;
                      EveryEvent(running);
                  });
    EXPECT_GT(events, 0);
    EXPECT_EQ(stage.form.hscSGFX.Value, 0);
    EXPECT_THAT(stage.MessageTexts(), IsEmpty());
}

TEST_F(EventsOfTools, BehindCloseDoNothing) {
    stage.form[Menu::mnuDebugBG].checked = true;
    WhileAIsShown({[this](RunningStage& running) {
        running.Click(Menu::mnuClose);
        EveryEvent(running);
        ExpectNothingSelected();
        EXPECT_EQ(running.Caption(), running.program.AppTitle);
    }});
    EveryEvent(stage);
    ExpectNothingSelected();
    EXPECT_EQ(stage.Caption(), stage.program.AppTitle);
    EXPECT_FALSE(stage.form.hscHScroll.Visible);
    EXPECT_THAT(stage.MessageTexts(), IsEmpty());
}

TEST_F(EventsOfTools, OfTheMouseDoNothingInTheBrowser) {
    stage.form[Menu::mnuDebugBG].checked = true;
    WhileAIsShown({kBrowse, Wait, [this](RunningStage& running) {
                       EXPECT_FALSE(running.form.hscHScroll.Visible);
                       SelectTwo(running);
                       running.program.hscHScroll_Change(40);
                       ExpectNothingSelected();
                       EXPECT_EQ(running.program.Show().Model().CamX, 0);
                   }});
}

// --- the sprite browser ---

using BrowserTools = Tools;

TEST_F(BrowserTools, ShowTheSpritesOneByOneWhileTheStageStandsStill) {
    int shown = 0;
    Long frames = 0;
    int yields = 0;
    WhileAIsShown({Wait, kBrowse, Wait,
                   [&](RunningStage& running) {
                       EXPECT_EQ(running.program.Show().SpriteBrowserMode, 255);
                       EXPECT_TRUE(running.form.hscSGFX.Visible);
                       EXPECT_EQ(running.form.hscSGFX.Min, 0);
                       EXPECT_EQ(running.form.hscSGFX.Max, 2);
                       EXPECT_EQ(running.Caption(), "(1\\3)  Group: 0  Image: 0");
                       EXPECT_EQ(running.window.OwnPicture().width, 9);
                       EXPECT_EQ(running.window.OwnPicture().height, 7);
                       ExpectSize(160, 7);
                       shown = running.sink.shown;
                       frames = running.program.Show().Loop().TotalFrames;
                       yields = running.turn;
                   },
                   Wait,
                   [&](RunningStage& running) {
                       EXPECT_EQ(running.sink.shown, shown);
                       EXPECT_EQ(running.program.Show().Loop().TotalFrames, frames);
                       EXPECT_EQ(running.turn, yields + 2) << "messages go on";
                       running.program.hscSGFX_Change(1);
                       EXPECT_EQ(running.Caption(), "(2\\3)  Group: 0  Image: 1");
                       EXPECT_EQ(running.window.OwnPicture().width, 5);
                   },
                   Wait,
                   [](RunningStage& running) {
                       running.program.hscSGFX_Scroll(2);
                       EXPECT_EQ(running.Caption(), "0") << "the camera's place";
                       EXPECT_EQ(running.form.hscSGFX.Value, 2);
                   },
                   Wait,
                   [this](RunningStage& running) {
                       running.Click(Menu::mnuDebug);
                       ExpectNoBrowser();
                       EXPECT_EQ(running.Caption(), "tools");
                   },
                   Wait,
                   [&](RunningStage& running) {
                       ExpectSize(320, 240);
                       EXPECT_GT(running.sink.shown, shown);
                   }});
    EXPECT_THAT(stage.MessageTexts(), IsEmpty());
}

// An archive of one sprite of this size.
std::string ArchiveOf(int width, int height) {
    samplemaker::IndexedPicture picture;
    picture.width = width;
    picture.height = height;
    picture.pixels.assign(static_cast<std::size_t>(width) * static_cast<std::size_t>(height), 1);
    std::vector<samplemaker::Sff1Subfile> subfiles(1);
    subfiles[0].data = WritePcx(picture);
    const std::vector<std::byte> bytes = WriteSff1(subfiles);
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

TEST_F(BrowserTools, CutASpriteThatIsLargerThanTheScreen) {
    stage.files.Put("/mugen/stages/a.sff", ArchiveOf(1100, 800));
    stage.window.SetFrame({10, 50});
    WhileAIsShown({kBrowse, Wait, [this](RunningStage& running) {
                       EXPECT_EQ(running.window.OwnPicture().width, 1024 - 10);
                       EXPECT_EQ(running.window.OwnPicture().height, 768 - 50);
                       ExpectSize(1024, 768);
                   }});
}

TEST_F(BrowserTools, KeepTheListsRoom) {
    stage.program.mnuStageList_Click();
    WhileAIsShown({kBrowse, Wait, [this](RunningStage&) { ExpectSize(160 + 160, 7); }});
}

TEST_F(BrowserTools, LeaveThePauseInTheTitle) {
    WhileAIsShown({Choose(Menu::mnuPause), kBrowse, Wait, [](RunningStage& running) {
                       running.Click(Menu::mnuDebug);
                       EXPECT_EQ(running.Caption(), "tools <<PAUSED>>");
                   }});
}

TEST_F(BrowserTools, KeysTappedInTheBrowserDoNothingBehindIt) {
    WhileAIsShown({kEdit, SelectTwo, Wait, kBrowse, Wait, Tap(VirtualKey::Delete),
                   Tap(VirtualKey::Pause), Tap(VirtualKey::Right), Choose(Menu::mnuDebug), Wait,
                   Wait, [](RunningStage& running) {
                       EXPECT_EQ(running.program.Show().SpriteBrowserMode, 0);
                       EXPECT_EQ(running.program.Show().Model().ElementCount, 2);
                       EXPECT_EQ(running.program.Show().Loop().Paused, 0);
                       EXPECT_EQ(running.program.Show().Model().CamX, 0);
                   }});
}

TEST_F(BrowserTools, AnotherStageEndsTheBrowser) {
    int shown = 0;
    WhileAIsShown({kBrowse, Wait,
                   [&](RunningStage& running) {
                       shown = running.sink.shown;
                       running.program.lstStages_Click(kItemC);
                   },
                   [&](RunningStage& running) {
                       ExpectNoBrowser();
                       EXPECT_EQ(running.Caption(), "third");
                       ExpectSize(320, 240);
                       EXPECT_EQ(running.sink.shown, shown + 1);
                   }});
}

TEST_F(BrowserTools, CloseEndsTheBrowser) {
    WhileAIsShown({kBrowse, Wait, Choose(Menu::mnuClose)});
    ExpectNoBrowser();
    stage.LetSizeCome();
    ExpectSize(320, 240);
    EXPECT_EQ(stage.Caption(), stage.program.AppTitle);
}

TEST_F(BrowserTools, ExitWhileASpriteIsShownSavesOnce) {
    const auto saved = [this] {
        return std::ranges::count(stage.files.Written(), "/program/QX.CFG");
    };
    const auto before = saved();
    WhileAIsShown({kBrowse, Choose(Menu::mnuExit)});
    EXPECT_TRUE(stage.program.Ended());
    EXPECT_EQ(saved(), before + 1);
    EXPECT_THAT(stage.MessageTexts(), IsEmpty());
}

TEST_F(BrowserTools, CloseWhileTheThumbIsDraggedKeepsTheTitle) {
    WhileAIsShown({kBrowse, Wait, [](RunningStage& running) { running.program.hscSGFX_Scroll(1); },
                   Choose(Menu::mnuClose)});
    EXPECT_EQ(stage.Caption(), stage.program.AppTitle);
    ExpectNoBrowser();
}

TEST_F(BrowserTools, ClickedOffWhileTheFirstSpriteComesTheyAreOff) {
    WhileAIsShown({kBrowse, kBrowse, [this](RunningStage& running) {
                       ExpectNoBrowser();
                       ExpectSize(320, 240);
                       EXPECT_EQ(running.Caption(), "tools");
                       EXPECT_EQ(running.window.OwnPicture().width, 0);
                   }});
    EXPECT_THAT(stage.MessageTexts(), IsEmpty());
}

TEST_F(BrowserTools, OfAStageWithoutSpritesShowNothing) {
    stage.files.Put("/mugen/stages/a.def", "[Info]\nname = empty\n[Camera]\nstartx = 0\n");
    WhileAIsShown({kBrowse,
                   [this](RunningStage& running) {
                       EXPECT_EQ(running.program.Show().SpriteBrowserMode, 255);
                       EXPECT_EQ(running.Caption(), "empty");
                       EXPECT_EQ(running.window.OwnPicture().width, 0);
                       ExpectSize(320, 240);
                       running.program.hscSGFX_Change(0);
                       running.program.hscSGFX_Scroll(0);
                       EXPECT_EQ(running.Caption(), "empty");
                   },
                   kBrowse, [this](RunningStage&) { ExpectNoBrowser(); }});
    EXPECT_THAT(stage.MessageTexts(), ElementsAre(StartsWith("SFF FILE:")));
}

TEST_F(BrowserTools, TheStageThatIsLoadedAgainEndsTheBrowser) {
    for (const Menu item : {Menu::mnuReload, Menu::mnuAdditions}) {
        SCOPED_TRACE(static_cast<int>(item));
        WhileAIsShown({kBrowse, Wait, Choose(item), [this](RunningStage& running) {
                           ExpectNoBrowser();
                           ExpectSize(320, 240);
                           EXPECT_EQ(running.Caption(), "tools");
                       }});
    }
    EXPECT_THAT(stage.MessageTexts(), IsEmpty());
}

TEST_F(BrowserTools, AStageThatCannotBeShownEndsTheBrowser) {
    WhileAIsShown({kBrowse, Wait, [](RunningStage& running) {
                       running.program.lstStages_Click(kItemC);
                       running.files.Delete("/mugen/stages/c.def");
                   }});
    ExpectNoBrowser();
    stage.LetSizeCome();
    ExpectSize(320, 240);
    EXPECT_EQ(stage.program.Show().Loop().StageRunning, 0);
    EXPECT_EQ(stage.MessageTexts().size(), 1U);
}

TEST_F(BrowserTools, TheFullScreenEndsTheBrowser) {
    int shown = 0;
    WhileAIsShown({kBrowse, Wait,
                   [&](RunningStage& running) {
                       running.Click(Menu::mnuFS);
                       ExpectNoBrowser();
                       EXPECT_EQ(running.program.FullScreenState, 1);
                       EXPECT_EQ(running.Caption(), "tools");
                       shown = running.sink.shown;
                   },
                   [&](RunningStage& running) { EXPECT_EQ(running.sink.shown, shown + 1); }});
}

}  // namespace
}  // namespace scenara::test
