// SPDX-License-Identifier: MIT
//
// The mouse over the picture beyond the left button's drags, and the keys that move the camera or
// size the window at once.
#include <cstdint>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/RunningStage.h"

namespace scenara::test {
namespace {

using testing::IsEmpty;

constexpr const char* kRoomy =
    "[Info]\nname = first\nmugenversion = 1.0\n[Camera]\nstartx = 10\nstarty = -30\n"
    "boundleft = -100\nboundright = 100\nboundhigh = -60\n"
    "[BGdef]\nspr = stages/a.sff\n"
    "[BG wall]\ntype = normal\nspriteno = 0,0\nstart = 0,0\ntile = 1,0\n";
constexpr const char* kZooming =
    "[Info]\nname = first\nmugenversion = 1.0\n[Camera]\nstartx = 10\nboundleft = -100\n"
    "boundright = 100\nboundhigh = -60\nzoomout = 1\nzoomin = 2\nstartzoom = 2\n"
    "[BGdef]\nspr = stages/a.sff\n"
    "[BG wall]\ntype = normal\nspriteno = 0,0\nstart = 0,0\ntile = 1,0\n";

class OverThePicture : public Program {
protected:
    explicit OverThePicture(bool additions = true) : Program(additions) {
        files.Put(kStageA, kRoomy);
    }

    // Shown coordinates.
    void ExpectCamera(double x, double y) {
        EXPECT_EQ(-model.CamX, static_cast<Single>(x));
        EXPECT_EQ(model.CamY, static_cast<Single>(y));
    }
    void Pull(Long fromX, Long fromY, Long toX, Long toY) {
        program.Form_MiddleDown(fromX, fromY);
        program.Form_MiddleMove(toX, toY);
        program.Form_MiddleUp();
    }
};

class PlainOverThePicture : public OverThePicture {
protected:
    PlainOverThePicture() : OverThePicture(false) {}
};

// --- a double click ---

TEST_F(OverThePicture, ADoubleClickGoesToTheFullScreenAndBack) {
    WhileAIsShown({[&] { program.Form_DblClick(); },
                   [&] {
                       EXPECT_EQ(program.FullScreenState, 1);
                       EXPECT_TRUE(form[Menu::mnuFS].checked);
                       program.Form_DblClick();
                   },
                   [&] {
                       EXPECT_EQ(program.FullScreenState, 0);
                       EXPECT_FALSE(form[Menu::mnuFS].checked);
                   }});
}

TEST_F(OverThePicture, ADoubleClickPicksInDebugBGAndInTheBrowser) {
    for (const Menu item : {Menu::mnuDebugBG, Menu::mnuDebug}) {
        WhileAIsShown({Choose(item), [&] { program.Form_DblClick(); },
                       [&] { EXPECT_EQ(program.FullScreenState, 0); }, Choose(item)});
    }
}

TEST_F(OverThePicture, WithoutAStageOrWhileOneLoadsADoubleClickIsNothing) {
    program.Form_DblClick();
    EXPECT_EQ(program.FullScreenState, 0);
    WhileAIsShown({[&] { EXPECT_EQ(program.FullScreenState, 0); }},
                  [&] { program.Form_DblClick(); });
    EXPECT_THAT(MessageTexts(), IsEmpty());
}

// --- the wheel ---

TEST_F(OverThePicture, TheWheelMovesTheCameraByItsSteps) {
    WhileAIsShown({[&] {
        show.CameraState().HCamStep = 4;
        show.CameraState().VCamStep = 3;
        ExpectCamera(10, -30);
        program.Form_MouseScroll(0, -2);
        ExpectCamera(10, -36);
        program.Form_MouseScroll(0, 1);
        ExpectCamera(10, -33);
        program.Form_MouseScroll(3, 0);
        ExpectCamera(22, -33);
        program.Form_MouseScroll(-1, 1);
        ExpectCamera(18, -30);
        program.Form_MouseScroll(1000, 1000);
        ExpectCamera(98, 0);  // whole steps, within the bounds
    }});
}

TEST_F(OverThePicture, TheWheelIsTheBrowsersThere) {
    WhileAIsShown({Choose(Menu::mnuDebug), [&] {
                       program.Form_MouseScroll(2, 2);
                       ExpectCamera(10, -30);
                   }});
}

// --- the middle button ---

TEST_F(OverThePicture, TheMiddleButtonPullsThePictureWithThePointer) {
    WhileAIsShown({[&] {
        program.Form_MiddleDown(100, 100);
        program.Form_MiddleMove(130, 80);
        ExpectCamera(-20, -10);
        program.Form_MiddleMove(90, 110);
        ExpectCamera(20, -40);
        program.Form_MiddleUp();
        program.Form_MiddleMove(0, 0);
        ExpectCamera(20, -40);  // it is let go
    }});
}

TEST_F(OverThePicture, PulledBeyondABoundItIsUnderThePointerAgainAfterwards) {
    WhileAIsShown({[&] {
        program.Form_MiddleDown(100, 100);
        program.Form_MiddleMove(400, 400);
        ExpectCamera(-100, -60);
        program.Form_MiddleMove(100, 100);
        ExpectCamera(10, -30);
    }});
}

TEST_F(OverThePicture, WhatElseMovesTheCameraMeanwhileStays) {
    WhileAIsShown({[&] {
        program.Form_MiddleDown(100, 100);
        program.Form_MiddleMove(90, 100);
        ExpectCamera(20, -30);
        program.Form_MouseScroll(5, 0);
        ExpectCamera(25, -30);
        program.Form_MiddleMove(80, 100);
        ExpectCamera(35, -30);
    }});
}

TEST_F(OverThePicture, ThePullGoesByTheShownScale) {
    files.Put(kStageA, kZooming);
    WhileAIsShown({[&] {
                       Pull(100, 100, 110, 100);
                       ExpectCamera(5, 0);
                   },
                   [&] {
                       Click(Menu::mnuDebug);
                       Pull(100, 100, 110, 100);
                       ExpectCamera(5, 0);
                   }});
}

TEST_F(OverThePicture, InStagesForOlderVersionsTheCameraKeepsToWholeUnits) {
    std::string older = kZooming;
    older.replace(older.find("1.0"), 3, "0.9");
    files.Put(kStageA, older);
    WhileAIsShown({[&] {
        Pull(100, 100, 107, 100);
        ExpectCamera(6, 0);
    }});
}

struct Ends {
    const char* name;
    Act deed;
};

class ThePull : public OverThePicture, public testing::WithParamInterface<Ends> {
protected:
    ThePull() {
        files.Put(kStageA, kZooming);
        files.Put(kStageC, kZooming);
    }
};

TEST_P(ThePull, Ends) {
    CameraPlace before;
    WhileAIsShown({[&] {
                       program.Form_MiddleDown(100, 100);
                       program.Form_MiddleMove(102, 100);
                       ExpectCamera(9, 0);
                       GetParam().deed(*this);
                   },
                   Wait, Wait,
                   [&] {
                       before = {model.CamX, model.CamY};
                       program.Form_MiddleMove(140, 100);
                       EXPECT_EQ(model.CamX, before.x);
                       program.Form_MiddleMove(180, 100);
                       EXPECT_EQ(model.CamX, before.x) << "for good";
                   }});
}

INSTANTIATE_TEST_SUITE_P(With, ThePull,
                         testing::Values(Ends{"AnotherStage", Select(kItemC)},
                                         Ends{"TheSameAgain", Choose(Menu::mnuReload)},
                                         Ends{"AnotherZoom", Choose(Menu::mnuZoomOut)},
                                         Ends{"TheFullScreen", Choose(Menu::mnuFS)},
                                         Ends{"TheSprites", All({Choose(Menu::mnuDebug),
                                                                 Choose(Menu::mnuDebug)})}),
                         [](const auto& row) { return row.param.name; });

// --- while the stage is paused ---

TEST_F(OverThePicture, EachMoveIsDrawnOnceWhileTheStageIsPaused) {
    std::vector<std::uint32_t> before;
    int shown = 0;
    const auto changed = [&] {
        EXPECT_NE(sink.last, before);
        before = sink.last;
        EXPECT_EQ(sink.shown, shown + 1);
        shown = sink.shown;
    };
    WhileAIsShown({Choose(Menu::mnuPause), Wait, Wait,
                   [&] {
                       before = sink.last;
                       shown = sink.shown;
                       program.Form_MouseScroll(0, -5);
                   },
                   Wait, changed, [&] { Pull(100, 100, 100, 104); }, Wait, changed,
                   [&] { Click(Menu::mnuCameraStart); }, Wait, changed});
}

// --- keys ---

TEST_F(OverThePicture, HomePutsTheCameraToItsStartAtTheZoomThatItHas) {
    files.Put(kStageA, kZooming);
    WhileAIsShown({[&] {
        Click(Menu::mnuZoomOut);
        const double zoom = model.CamZoom;
        ASSERT_LT(zoom, 2);
        show.PutCamera({-50, -20});
        ExpectCamera(50, -20);
        Click(Menu::mnuCameraStart);
        ExpectCamera(10, 0);
        EXPECT_EQ(model.CamZoom, zoom);
    }});
}

TEST_F(OverThePicture, SpaceStopsTheStageAndLetsItGoOn) {
    WhileAIsShown({KeyDown(VirtualKey::Space),
                   [&] {
                       EXPECT_EQ(loop.Paused, 255);
                       EXPECT_EQ(Caption(), "first <<PAUSED>>");
                   },
                   KeyDown(VirtualKey::Space), [&] { EXPECT_EQ(loop.Paused, 0); },
                   Choose(Menu::mnuDebug), KeyDown(VirtualKey::Space),
                   [&] { EXPECT_EQ(loop.Paused, 0) << "sprites stand still anyway"; }});
    Click(Menu::mnuClose);
    KeyDown(VirtualKey::Space)(*this);
    EXPECT_EQ(loop.Paused, 0) << "there is nothing to stop";
    EXPECT_FALSE(form[Menu::mnuPause].checked);
}

TEST_F(OverThePicture, SpaceWhileAStageLoadsIsNothing) {
    WhileAIsShown({[&] { EXPECT_EQ(loop.Paused, 0); }}, KeyDown(VirtualKey::Space));
}

TEST_F(OverThePicture, ExitEndsALoadWithItsKey) {
    WhileAIsShown({}, Once(Choose(Menu::mnuExit)));
    EXPECT_TRUE(program.Ended());
    EXPECT_EQ(sink.shown, 0);
}

TEST_F(PlainOverThePicture, ExitWaitsForALoad) {
    WhileAIsShown({Wait}, Choose(Menu::mnuExit));
    EXPECT_FALSE(program.Ended());
}

TEST_F(OverThePicture, FindShowsTheList) {
    program.ShowStageList = 0;
    Click(Menu::mnuFind);
    EXPECT_NE(program.ShowStageList, 0);
    EXPECT_TRUE(form.lstStages.visible);
    Click(Menu::mnuFind);
    EXPECT_TRUE(form.lstStages.visible) << "it stays";
}

// --- the window's size ---

class PictureTimes : public OverThePicture {
protected:
    PictureTimes() { window.SetWorkArea({1010, 800}); }
    // The list takes 160 where it is there.
    void Resize(Menu item, Long width, Long height) {
        Click(item);
        LetSizeCome();
        ExpectSize(width, height);
    }
};

TEST_F(PictureTimes, SizeTheWindowForThem) {
    if (program.ShowStageList != 0) {
        Click(Menu::mnuStageList);
    }
    WhileAIsShown({[&] { Click(Menu::mnuPicture200); }, [&] { ExpectPicture(640, 480); },
                   [&] { Click(Menu::mnuPicture100); }, [&] { ExpectPicture(320, 240); },
                   [&] { Click(Menu::mnuPicture300); }, [&] { ExpectPicture(960, 720); },
                   [&] { Click(Menu::mnuPicture400); }, [&] { ExpectPicture(960, 720); },
                   [&] { Click(Menu::mnuPicture100); },
                   [&] {
                       Click(Menu::mnuStageList);
                       Click(Menu::mnuPicture200);
                   },
                   [&] {
                       ExpectPicture(640, 480);
                       ExpectSize(800, 480);
                       Click(Menu::mnuPicture300);
                   },
                   [&] {
                       ExpectPicture(640, 480);
                       window.SetFrame({8, 400});
                       Click(Menu::mnuPicture100);
                   },
                   [&] { Click(Menu::mnuPicture200); }, [&] { ExpectPicture(320, 240); }});
}

TEST_F(PictureTimes, LeaveAWindowAloneThatFillsTheScreen) {
    WhileAIsShown({[&] { window.Maximise(); },
                   [&] {
                       const std::size_t wishes = window.Wishes().size();
                       Click(Menu::mnuPicture100);
                       EXPECT_EQ(window.Wishes().size(), wishes);
                   }});
}

TEST_F(PictureTimes, LeaveTheWindowAloneThatTheFullScreenCovers) {
    WhileAIsShown({Choose(Menu::mnuFS), [&] {
                       const std::size_t wishes = window.Wishes().size();
                       Click(Menu::mnuPicture100);
                       EXPECT_EQ(window.Wishes().size(), wishes);
                   }});
}

// --- plainly ---

TEST_F(PlainOverThePicture, NothingOfThatDoesAnything) {
    WhileAIsShown({[&] {
        const Single x = model.CamX;
        const Single y = model.CamY;
        const std::size_t wishes = window.Wishes().size();
        program.Form_DblClick();
        program.Form_MouseScroll(3, 3);
        Pull(100, 100, 150, 50);
        KeyDown(VirtualKey::Space)(*this);
        show.PutCamera({1, 1});
        for (const Menu item : {Menu::mnuCameraStart, Menu::mnuPicture200, Menu::mnuFind,
                                Menu::mnuKeys, Menu::mnuAboutBox}) {
            Click(item);
        }
        EXPECT_EQ(model.CamX, x);
        EXPECT_EQ(model.CamY, y);
        EXPECT_EQ(program.FullScreenState, 0);
        EXPECT_EQ(loop.Paused, 0);
        EXPECT_EQ(window.Wishes().size(), wishes);
        EXPECT_TRUE(dialogs.Keys().empty());
        EXPECT_THAT(MessageTexts(), IsEmpty());
    }});
}

TEST_F(OverThePicture, ThePageOfKeysIsShown) {
    Click(Menu::mnuKeys);
    EXPECT_EQ(dialogs.Keys().size(), 6U);
}

}  // namespace
}  // namespace scenara::test
