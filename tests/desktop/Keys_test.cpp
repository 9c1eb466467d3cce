// SPDX-License-Identifier: MIT
//
// Shortcuts, and the mouse over the picture, in the real window.
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "desktop/DesktopProgram.h"
#include "samplemaker/Canvas.h"
#include "samplemaker/PcxWriter.h"
#include "samplemaker/Sff1Writer.h"

namespace scenara::test {
namespace {

constexpr SeenSize kOnce{320, 240};
constexpr SeenSize kWholeScreen{960, 720};

class DesktopKeys : public DesktopProgram {
protected:
    void SetUp() override {
        DesktopProgram::SetUp();
        StartWithBar();
        ClickAt(100, 150);  // the list has had the keys
        start_ = BarLeft();
    }

    void ExpectPicture(const SeenSize& size) {
        EXPECT_TRUE(Eventually([&] { return PictureSize() == size; }))
            << PictureSize().width << " x " << PictureSize().height;
    }
    void ExpectBarAt(int left) {
        EXPECT_TRUE(Eventually([&] { return BarLeft() == left; })) << BarLeft();
    }
    // The camera goes to the right.
    void Walk() {
        display_.Do("keydown Right");
        EXPECT_TRUE(Eventually([&] { return BarLeft() < start_ - 20; }));
        display_.Do("keyup Right");
    }

    int start_ = 0;
};

TEST_F(DesktopKeys, LoadTheStageAgain) {
    AddTile("bar", 1);
    Key("ctrl+r");
    EXPECT_TRUE(Eventually([&] { return Count(kLeaf) > 0; }));
    AddTile("bar", 2);
    Key("F5");
    EXPECT_TRUE(Eventually([&] { return Count(kBrick) > 0; }));
    Key("F11");
    ExpectPicture(kWholeScreen);
    AddTile("bar", 1);
    Key("F5");
    EXPECT_TRUE(Eventually([&] { return Count(kBrick) == 0 && Count(kLeaf) > 0; })) << "there too";
}

TEST_F(DesktopKeys, GoToTheFullScreenAndBack) {
    Key("F11");
    ExpectPicture(kWholeScreen);
    Key("F11");
    ExpectPicture(kOnce);
    MoveTo(OfView(50, 50));
    display_.Do("click --repeat 2 --delay 50 1");
    ExpectPicture(kWholeScreen);
    display_.Do("mousemove 500 300 click --repeat 2 --delay 50 1");
    ExpectPicture(kOnce);
    Key("alt+o");
    Key("b");
    EXPECT_TRUE(Eventually([&] { return BarWidth() == 8 && OfView(0, 0).y > 0; }));
    MoveTo(OfView(50, 50));
    display_.Do("click --repeat 2 --delay 50 1");
    Key("d");
    ExpectTitle("Dumped to " + display_.Folder() + "bin/chek.txt");
    EXPECT_NE(PictureSize(), kWholeScreen) << "there it picks";
}

TEST_F(DesktopKeys, SpaceStopsTheStageWhileTheListHasNotTheFocus) {
    Key("space");
    ExpectTitle("bar <<PAUSED>>");
    Key("space");
    ExpectTitle("bar");
    ClickListItem(0);
    ExpectTitle("bar");
    Key("space");
    Key("Escape");  // gives the keys back
    Key("space");
    ExpectTitle("bar <<PAUSED>>");
}

TEST_F(DesktopKeys, CtrlQEnds) {
    Key("ctrl+q");
    EXPECT_EQ(WaitForEnd(), 0);
}

TEST_F(DesktopKeys, CtrlQEndsWhileAStageLoads) {
    constexpr std::size_t kPictures = 12'000;
    samplemaker::Canvas canvas(64, 64);
    samplemaker::Sff1Subfile subfile;
    subfile.data = samplemaker::WritePcx(canvas.ToPicture(samplemaker::Palette{}));
    const std::vector<std::byte> archive = samplemaker::WriteSff1({kPictures, subfile});
    std::ofstream(Folder() / "mugen/stages/dot.sff", std::ios::binary)
        .write(reinterpret_cast<const char*>(archive.data()),
               static_cast<std::streamsize>(archive.size()));
    std::ofstream(StagePath("dot"))
        << "[Info]\nname = dot\n[Camera]\nboundleft = -9\n[BGdef]\nspr = stages/dot.sff\n";
    ClickListItem(2);
    EXPECT_TRUE(Eventually([&] { return Title() != "bar"; }));
    Key("ctrl+q");
    EXPECT_EQ(WaitForEnd(), 0) << "its menu is disabled then";
}

TEST_F(DesktopKeys, SizeTheWindowForThePicture) {
    Key("ctrl+2");
    ExpectPicture({640, 480});
    EXPECT_EQ(WindowSize().width, 640 + 160);
    Key("ctrl+3");  // with the list there is no room
    Key("ctrl+4");
    Key("alt+l");
    EXPECT_TRUE(Eventually([&] { return OfView(0, 0).x > 0 && PictureSize().width >= 640; }));
    Key("ctrl+4");
    Key("ctrl+1");
    ExpectPicture(kOnce);
    EXPECT_TRUE(Eventually([&] { return WindowSize().height < 300; })) << WindowSize().height;

    const std::string window = MainWindow();
    display_.ChangeState(true, window, "_NET_WM_STATE_MAXIMIZED_VERT",
                         "_NET_WM_STATE_MAXIMIZED_HORZ");
    EXPECT_TRUE(Eventually([&] { return WindowSize().width == 1024; }));
    const SeenSize large = PictureSize();
    Key("ctrl+1");
    Key("space");
    ExpectTitle("bar <<PAUSED>>");  // that came after it
    EXPECT_EQ(PictureSize(), large);
    EXPECT_EQ(WindowSize().width, 1024);
}

TEST_F(DesktopKeys, HomePutsTheCameraToItsStart) {
    Walk();
    Key("Home");
    ExpectBarAt(start_);
    Key("F11");
    ExpectPicture(kWholeScreen);
    const int middle = BarLeft();
    display_.Do("keydown Left");
    EXPECT_TRUE(Eventually([&] { return BarLeft() > middle + 30; }));
    display_.Do("keyup Left");
    Key("Home");
    ExpectBarAt(middle);
}

TEST_F(DesktopKeys, AHeldKeyStaysHeldWhileAShortcutIsPressed) {
    display_.Do("keydown Right");
    EXPECT_TRUE(Eventually([&] { return BarLeft() < start_ - 10; }));
    display_.Do("keydown ctrl key 0 keyup ctrl");
    const int before = BarLeft();
    EXPECT_TRUE(Eventually([&] { return BarLeft() < before - 10; }));
    display_.Do("keyup Right");
}

// With Alt released first, D repeats as if it was pressed alone; it would write a dump.
TEST_F(DesktopKeys, AKeyThatWentDownWithAltIsNoneOfTheEditors) {
    Key("alt+o");
    Key("b");
    EXPECT_TRUE(Eventually([&] { return BarWidth() == 8; }));
    display_.Do("keydown alt keydown d");
    EXPECT_TRUE(Eventually([&] { return Title().starts_with("(1"); })) << Title();
    display_.Do("keyup alt");
    ASSERT_EQ(std::system("sleep 1"), 0);  // it repeats
    display_.Do("keyup d");
    Key("Escape");
    ExpectTitle("bar");
    EXPECT_FALSE(std::filesystem::exists(Folder() / "bin/chek.txt"));
}

TEST_F(DesktopKeys, TheWheelMovesTheCamera) {
    MoveTo(OfView(50, 50));
    display_.Do("keydown shift click --repeat 7 5 keyup shift");
    ExpectBarAt(start_ - 7);
    display_.Do("keydown shift click --repeat 9 4 keyup shift");
    ExpectBarAt(start_ + 2);
    display_.Do("click --repeat 4 7");  // a touchpad's, sideways
    ExpectBarAt(start_ - 2);

    std::ofstream(StagePath("bar"))
        << "[Info]\nname = bar\n[Camera]\nboundhigh = -60\n[BGdef]\nspr = stages/bar.sff\n"
        << "[BG bar]\ntype = normal\nspriteno = 0,0\n";
    Key("F5");
    ExpectBarAt(start_);
    display_.Do("click --repeat 6 4");
    ExpectPicture({320, 234});
    display_.Do("click --repeat 2 5");
    ExpectPicture({320, 236});
}

TEST_F(DesktopKeys, TheMiddleButtonPullsThePicture) {
    const Spot from = OfView(100, 100);
    MoveTo(from);
    display_.Do("mousedown 2");
    MoveTo({from.x + 40, from.y});
    ExpectBarAt(start_ + 40);
    MoveTo({from.x - 25, from.y});
    ExpectBarAt(start_ - 25);
    display_.Do("mouseup 2");
    MoveTo(from);
    EXPECT_EQ(BarLeft(), start_ - 25);
    // Paused, too, and at the scale that it is shown at.
    Key("F11");
    ExpectPicture(kWholeScreen);
    Key("space");
    const int before = BarLeft();
    display_.Do("mousemove 500 300 mousedown 2");
    display_.Do("mousemove 530 300");
    ExpectBarAt(before + 30);
    display_.Do("mouseup 2");
}

TEST_F(DesktopKeys, StandOnAPage) {
    Key("alt+a");
    Key("k");
    ExpectWindow("^Keys$");
    Key("space");  // is not for the stage then
    Key("Escape");
    EXPECT_TRUE(Eventually([&] { return Window("^Keys$").empty(); }));
    EXPECT_EQ(Title(), "bar");
    Key("space");
    ExpectTitle("bar <<PAUSED>>");
}

// --- plainly ---

class PlainKeys : public DesktopProgram {};

TEST_F(PlainKeys, NoneOfThemDoesAnything) {
    std::ofstream(Folder() / "bin/Scenara.ini") << "Additions = False\n";
    WriteSettings();
    Start({}, StagePath("bar"));
    ExpectTitle("bar");
    ASSERT_TRUE(Eventually([&] { return BarWidth() == 8; }));
    const int left = BarLeft();
    for (const char* const key :
         {"ctrl+r", "F5", "F11", "space", "ctrl+q", "ctrl+2", "ctrl+o", "ctrl+f", "Home"}) {
        Key(key);
    }
    MoveTo(OfView(50, 50));
    display_.Do("click --repeat 2 --delay 50 1 click 4 keydown shift click 5 keyup shift");
    display_.Do("mousedown 2");
    display_.Do("mousemove_relative 30 0");
    display_.Do("mouseup 2");
    Key("alt+p");
    ExpectTitle("bar <<PAUSED>>");  // after all of them
    EXPECT_EQ(BarLeft(), left);
    EXPECT_EQ(PictureSize(), kOnce);
}

}  // namespace
}  // namespace scenara::test
