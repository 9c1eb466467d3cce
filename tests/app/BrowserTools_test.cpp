// SPDX-License-Identifier: MIT
//
// The sprite browser through the main window, and what ends it.
#include <algorithm>
#include <ostream>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/ToolStage.h"
#include "samplemaker/PcxWriter.h"
#include "samplemaker/Sff1Writer.h"

namespace scenara::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

using BrowserTools = Tools;

class PlainBrowserTools : public Tools {
protected:
    PlainBrowserTools() : Tools(false) {}
};

TEST_F(PlainBrowserTools, ShowTheSpritesOneByOneWhileTheStageStandsStill) {
    int shown = 0;
    Long frames = 0;
    int yields = 0;
    WhileAIsShown({Wait, kBrowse, Wait,
                   [&] {
                       EXPECT_EQ(show.SpriteBrowserMode, 255);
                       EXPECT_TRUE(form.hscSGFX.Visible);
                       EXPECT_EQ(form.hscSGFX.Min, 0);
                       EXPECT_EQ(form.hscSGFX.Max, 2);
                       EXPECT_EQ(Caption(), "(1\\3)  Group: 0  Image: 0");
                       EXPECT_EQ(window.OwnPicture().width, 9);
                       EXPECT_EQ(window.OwnPicture().height, 7);
                       ExpectSize(160, 7);
                       shown = sink.shown;
                       frames = loop.TotalFrames;
                       yields = turn;
                   },
                   Wait,
                   [&] {
                       EXPECT_EQ(sink.shown, shown);
                       EXPECT_EQ(loop.TotalFrames, frames);
                       EXPECT_EQ(turn, yields + 2) << "messages go on";
                       program.hscSGFX_Change(1);
                       EXPECT_EQ(Caption(), "(2\\3)  Group: 0  Image: 1");
                       EXPECT_EQ(window.OwnPicture().width, 5);
                   },
                   Wait,
                   [&] {
                       program.hscSGFX_Scroll(2);
                       EXPECT_EQ(Caption(), "0") << "the camera's place";
                       EXPECT_EQ(form.hscSGFX.Value, 2);
                   },
                   Wait,
                   [&] {
                       Click(Menu::mnuDebug);
                       ExpectNoBrowser();
                       EXPECT_EQ(Caption(), "tools");
                   },
                   Wait,
                   [&] {
                       ExpectSize(320, 240);
                       EXPECT_GT(sink.shown, shown);
                   }});
    EXPECT_THAT(MessageTexts(), IsEmpty());
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

TEST_F(PlainBrowserTools, CutASpriteThatIsLargerThanTheScreen) {
    files.Put("/mugen/stages/a.sff", ArchiveOf(1100, 800));
    window.SetFrame({10, 50});
    WhileAIsShown({kBrowse, Wait, [&] {
                       EXPECT_EQ(window.OwnPicture().width, 1024 - 10);
                       EXPECT_EQ(window.OwnPicture().height, 768 - 50);
                       ExpectSize(1024, 768);
                   }});
}

TEST_F(PlainBrowserTools, KeepTheListsRoom) {
    program.mnuStageList_Click();
    WhileAIsShown({kBrowse, Wait, [&] { ExpectSize(160 + 160, 7); }});
}

TEST_F(BrowserTools, LeaveThePauseInTheTitle) {
    WhileAIsShown({kPause, kBrowse, Wait, [&] {
                       Click(Menu::mnuDebug);
                       EXPECT_EQ(Caption(), "tools <<PAUSED>>");
                   }});
}

TEST_F(BrowserTools, KeysTappedInTheBrowserDoNothingBehindIt) {
    WhileAIsShown({kEdit, kSelectTwo, Wait, kBrowse, Wait, Tap(VirtualKey::Delete),
                   Tap(VirtualKey::Pause), Tap(VirtualKey::Right), kBrowse, Wait, Wait, [&] {
                       EXPECT_EQ(show.SpriteBrowserMode, 0);
                       EXPECT_EQ(model.ElementCount, 2);
                       EXPECT_EQ(loop.Paused, 0);
                       EXPECT_EQ(model.CamX, 0);
                   }});
}

TEST_F(BrowserTools, ExitWhileASpriteIsShownSavesOnce) {
    const auto saved = [this] { return std::ranges::count(files.Written(), kConfiguration); };
    const auto before = saved();
    WhileAIsShown({kBrowse, Choose(Menu::mnuExit)});
    EXPECT_TRUE(program.Ended());
    EXPECT_EQ(saved(), before + 1);
    EXPECT_THAT(MessageTexts(), IsEmpty());
}

TEST_F(PlainBrowserTools, LeftTheyGiveTheWindowItsSizeBack) {
    WhileAIsShown({[&] {
                       window.MoveTo(WindowPlace{0, 0, 500 * 15, 400 * 15});
                   },
                   Wait, kBrowse, Wait, [&] { ExpectSize(160, 7); }, kBrowse, Wait,
                   [&] { ExpectSize(500, 400); }});
}

// --- with additions ---

// How large the sprite is that stands over the black of the box, and where it begins.
ViewFrame Shown(const HeadlessWindow::Picture& box) {
    ViewFrame frame{box.width, box.height, 0, 0};
    for (Long y = 0; y < box.height; ++y) {
        for (Long x = 0; x < box.width; ++x) {
            if (box.pixels.at(static_cast<std::size_t>(y) * static_cast<std::size_t>(box.width) +
                              static_cast<std::size_t>(x)) != 0xFF000000) {
                frame = {std::min(frame.left, x), std::min(frame.top, y),
                         std::max(frame.right, x + 1), std::max(frame.bottom, y + 1)};
            }
        }
    }
    return frame;
}

TEST_F(BrowserTools, FillThePicturesBoxAndLeaveTheWindowAlone) {
    program.mnuStageList_Click();
    std::size_t wishes = 0;
    int shown = 0;
    WhileAIsShown(
        {[&] { wishes = window.Wishes().size(); }, kBrowse,
         [&] {
             EXPECT_EQ(Caption(), "(1\\3)  Group: 0  Image: 0  Size: 9 x 7  Axis: 0, 0  Zoom: 34x");
             EXPECT_EQ(window.Filled().width, 320) << "beside the list";
             EXPECT_EQ(window.Filled().height, 240);
             shown = sink.shown;
             program.hscSGFX_Scroll(1);
             EXPECT_EQ(Caption(), "(2\\3)  Group: 0  Image: 1  Size: 5 x 3  Axis: 0, 0  Zoom: 64x");
         },
         Wait, kBrowse,
         [&] {
             ExpectNoBrowser();
             EXPECT_EQ(Caption(), "tools");
             EXPECT_EQ(window.Wishes().size(), wishes) << "the window keeps its size";
         },
         [&] { EXPECT_GT(sink.shown, shown); }});
}

TEST_F(BrowserTools, FollowTheBoxsSizeInPixelsOfTheScreen) {
    WhileAIsShown({kBrowse, [&] {
                       window.SetPictureBox({90, 71});
                       program.Form_Resize(45, 36);
                       EXPECT_EQ(Shown(window.Filled()), (ViewFrame{0, 0, 90, 70}));
                       EXPECT_THAT(Caption(), testing::EndsWith("Zoom: 10x"));
                   }});
}

TEST_F(BrowserTools, FollowTheBoxWhenTheListComesAndGoes) {
    WhileAIsShown({kBrowse, [&] {
                       window.SetPictureBox({90, 71});
                       program.mnuStageList_Click();
                       EXPECT_EQ(Shown(window.Filled()), (ViewFrame{0, 0, 90, 70}));
                       window.SetPictureBox({50, 41});
                       program.mnuStageList_Click();
                       EXPECT_EQ(Shown(window.Filled()), (ViewFrame{2, 3, 47, 38}));
                   }});
}

TEST_F(BrowserTools, ZoomByTheWheelAndTheMenuAndAreDragged) {
    window.SetPictureBox({90, 71});
    const auto zoom = [this] { return Caption().substr(Caption().rfind(' ') + 1); };
    WhileAIsShown({[&] { EXPECT_FALSE(form[Menu::mnuZoomIn].enabled); }, kBrowse,
                   [&] {
                       program.Form_MouseWheel(2, 0, 0);
                       EXPECT_EQ(zoom(), "16x");
                       program.Form_MouseDown(50, 50);
                       program.Form_MouseMove(-10, 50);
                       program.Form_MouseUp();
                       program.Form_MouseMove(0, 0);
                       EXPECT_EQ(zoom(), "16x");
                       ASSERT_TRUE(form[Menu::mnuZoomIn].enabled);
                       Click(Menu::mnuZoomIn);
                       EXPECT_EQ(zoom(), "20x");
                       Click(Menu::mnuZoomOut);
                       EXPECT_EQ(zoom(), "16x");
                       Click(Menu::mnuZoomStart);
                       EXPECT_EQ(zoom(), "10x");
                       EXPECT_EQ(model.CamZoom, 1);
                   },
                   kBrowse, [&] { EXPECT_FALSE(form[Menu::mnuZoomIn].enabled); }});
}

TEST_F(BrowserTools, SayThePauseBesideTheSprite) {
    WhileAIsShown({kBrowse, kPause,
                   [&] { EXPECT_THAT(Caption(), testing::EndsWith("x <<PAUSED>>")); }, kPause,
                   [&] { EXPECT_THAT(Caption(), testing::EndsWith("Zoom: 34x")); }});
}

TEST_F(BrowserTools, OfAStageWithoutSpritesSayThatThereAreNone) {
    files.Put(kStageA, "[Info]\nname = empty\n[Camera]\nstartx = 0\n");
    WhileAIsShown({kBrowse,
                   [&] {
                       EXPECT_EQ(Caption(), "No sprites");
                       EXPECT_EQ(window.BoxText(), "This stage has no sprites.");
                       EXPECT_EQ(Shown(window.Filled()).right, 0);
                       program.hscSGFX_Change(0);
                       program.Form_MouseWheel(1, 5, 5);
                       EXPECT_EQ(Caption(), "No sprites");
                   },
                   kBrowse, [&] { EXPECT_EQ(Caption(), "empty"); }});
}

TEST_F(PlainBrowserTools, ClickedOffWhileTheFirstSpriteComesTheyAreOff) {
    WhileAIsShown({kBrowse, kBrowse, [&] {
                       ExpectNoBrowser();
                       ExpectSize(320, 240);
                       EXPECT_EQ(Caption(), "tools");
                       EXPECT_EQ(window.OwnPicture().width, 0);
                   }});
    EXPECT_THAT(MessageTexts(), IsEmpty());
}

TEST_F(PlainBrowserTools, OfAStageWithoutSpritesShowNothing) {
    files.Put(kStageA, "[Info]\nname = empty\n[Camera]\nstartx = 0\n");
    WhileAIsShown({kBrowse,
                   [&] {
                       EXPECT_EQ(show.SpriteBrowserMode, 255);
                       EXPECT_EQ(Caption(), "empty");
                       EXPECT_EQ(window.OwnPicture().width, 0);
                       ExpectSize(320, 240);
                       program.hscSGFX_Change(0);
                       program.hscSGFX_Scroll(0);
                       EXPECT_EQ(Caption(), "empty");
                   },
                   kBrowse, [&] { ExpectNoBrowser(); }});
    EXPECT_THAT(MessageTexts(), ElementsAre(StartsWith("SFF FILE:")));
}

TEST_F(BrowserTools, OfAStageWithoutANameGoBackToItsFilesName) {
    files.Put(kStageA, "[Info]\n[Camera]\nstartx = 0\n");
    WhileAIsShown({kBrowse, kBrowse, [&] { EXPECT_EQ(Caption(), "a.def"); }});
}

// --- what ends it ---

struct End {
    const char* name;
    std::vector<Act> acts;
    const char* caption;  // afterwards; "" is the title of the program
    int shown;            // pictures of the stage then
    std::size_t messages = 0;
};

void PrintTo(const End& end, std::ostream* out) {
    *out << end.name;
}

class BrowserEnds : public Tools, public testing::WithParamInterface<End> {};

TEST_P(BrowserEnds, AndTheWindowIsAsBefore) {
    int shown = 0;
    pace = UserPace::Leafing;
    WhileAIsShown(std::vector<Act>{kBrowse, Wait, [&] { shown = sink.shown; }} + GetParam().acts +
                  Then(Wait));
    LetSizeCome();
    ExpectNoBrowser();
    ExpectSize(320, 240);
    EXPECT_EQ(Caption(), *GetParam().caption == '\0' ? program.AppTitle : GetParam().caption);
    EXPECT_EQ(sink.shown - shown, GetParam().shown);
    EXPECT_EQ(loop.StageRunning, GetParam().shown == 0 ? 0 : 1);
    EXPECT_EQ(MessageTexts().size(), GetParam().messages);
}

INSTANTIATE_TEST_SUITE_P(
    With, BrowserEnds,
    testing::Values(End{"AnotherStage", {Select(kItemC)}, "third", 2},
                    End{"Reload", {Choose(Menu::mnuReload)}, "tools", 2},
                    End{"Additions", {Choose(Menu::mnuAdditions)}, "tools", 2},
                    End{"Close", {Choose(Menu::mnuClose)}, "", 0},
                    End{"CloseWhileTheThumbIsDragged",
                        {[](RunningStage& running) { running.program.hscSGFX_Scroll(1); },
                         Choose(Menu::mnuClose)},
                        "",
                        0},
                    End{"Escape", {KeyDown(VirtualKey::Escape)}, "tools", 2},
                    End{"AStageThatCannotBeShown",
                        {All({Select(kItemC),
                              [](RunningStage& running) { running.files.Delete(kStageC); }})},
                        "",
                        0,
                        1}),
    [](const auto& row) { return std::string(row.param.name); });

TEST_F(BrowserTools, TheFullScreenEndsTheBrowser) {
    int shown = 0;
    WhileAIsShown({kBrowse, Wait,
                   [&] {
                       Click(Menu::mnuFS);
                       ExpectNoBrowser();
                       EXPECT_EQ(program.FullScreenState, 1);
                       EXPECT_EQ(Caption(), "tools");
                       shown = sink.shown;
                   },
                   [&] { EXPECT_EQ(sink.shown, shown + 1); }});
}

}  // namespace
}  // namespace scenara::test
