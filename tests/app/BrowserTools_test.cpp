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

// The window takes each sprite's size.
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

TEST_F(BrowserTools, ClickedOffWhileTheFirstSpriteComesTheyAreOff) {
    WhileAIsShown({kBrowse, kBrowse, [&] {
                       ExpectNoBrowser();
                       ExpectSize(320, 240);
                       EXPECT_EQ(Caption(), "tools");
                       EXPECT_EQ(window.OwnPicture().width, 0);
                   }});
    EXPECT_THAT(MessageTexts(), IsEmpty());
}

TEST_F(BrowserTools, OfAStageWithoutSpritesShowNothing) {
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
                    End{"AStageThatCannotBeShown",
                        {All({Select(kItemC),
                              [](RunningStage& running) { running.files.Delete(kStageC); }})},
                        kStageC,
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
