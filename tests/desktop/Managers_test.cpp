// SPDX-License-Identifier: MIT
//
// Windows whose size is not the program's to choose: a size that it asks for never comes, or must
// not even be asked for.
#include <cstdlib>
#include <string>

#include <gtest/gtest.h>

#include "desktop/DesktopProgram.h"

namespace scenara::test {
namespace {

constexpr SeenSize kTwice{640, 480};
constexpr SeenSize kWholeScreen{960, 720};
constexpr int kListWidth = 160;

// The program fills the screen, beside its list or without it.
class FilledScreen : public DesktopProgram {
protected:
    using DesktopProgram::DesktopProgram;

    void StartWithList() {
        WriteSettings("StageList = 255\r\n");
        Start();
    }

    // The list stands at the screen's right edge, and what starts it is where clicks are measured.
    void ExpectListAtTheEdge() {
        ASSERT_TRUE(Eventually([&] {
            const std::optional<Spot> list = ListIn(Look());
            list_ = list.value_or(Spot());
            return list_.x > kScreenWidth - kListWidth - kBorders;
        })) << display_.AllWindows();
    }
    void ClickListed(int index) { ClickAt(Spot{list_.x + 60, list_.y + 7 + index * 14}); }
    void ClickStageList() {
        constexpr int kItem = 175;
        constexpr int kMenuAbove = 10;
        ClickAt(Spot{kScreenWidth - kListWidth - list_.x + kItem, list_.y - kMenuAbove});
    }

    // In the middle of what the list leaves.
    void ExpectPicture(const SeenSize& size, bool listed) {
        const int room = kScreenWidth - (listed ? kListWidth : 0);
        Screenshot shot;
        EXPECT_TRUE(Eventually([&] {
            shot = Look();
            const int bar = BarIn(shot).value_or(Bar()).left;
            return PictureSizeIn(shot) == size && std::abs(bar - room / 2) <= kBorders &&
                   ListIn(shot).has_value() == listed;
        })) << PictureSizeIn(shot).width
            << " x " << PictureSizeIn(shot).height << ", the bar at "
            << BarIn(shot).value_or(Bar()).left << (ListIn(shot) ? ", a list" : ", no list");
    }

    // The keys are held until it is there: a Wayland compositor shuts a menu that was asked for by
    // keys that are up again.
    void OpenMenu(const std::string& letter) {
        const Screenshot before = Look();
        const auto differs = [&](const Screenshot& now) {
            int count = 0;
            for (int y = list_.y; y < list_.y + 60; ++y) {
                for (int x = 0; x < 200; ++x) {
                    count += now.At(x, y) != before.At(x, y) ? 1 : 0;
                }
            }
            return count;
        };
        display_.Do("keydown alt keydown " + letter);
        EXPECT_TRUE(Eventually([&] { return differs(Look()) > 1000; })) << "the menu " << letter;
        display_.Do("keyup " + letter + " keyup alt");
    }

    void WalkThroughEverySize() {
        ExpectListAtTheEdge();
        ClickListed(0);
        ExpectPicture(kTwice, true);
        ClickListed(1);
        ExpectPicture(kTwice, true);
        ClickStageList();
        ExpectPicture(kTwice, false);
        ClickStageList();
        ExpectPicture(kTwice, true);
        OpenMenu("o");
        Key("b");  // the editor's bar, below
        ExpectPicture(kTwice, true);
        OpenMenu("o");
        Key("f");
        ExpectPicture(kWholeScreen, false);
        Key("Escape");
        ExpectPicture(kTwice, true);
        const int before = BarLeft();
        display_.Do("keydown Right");
        EXPECT_TRUE(Eventually([&] { return BarLeft() < before; })) << "the window has the keys";
        display_.Do("keyup Right");
        OpenMenu("s");
        Key("e");
        EXPECT_EQ(WaitForEnd(), 0);
    }

private:
    static constexpr int kScreenWidth = 1024;
    static constexpr int kBorders = 8;

    Spot list_;
};

class Tiled : public FilledScreen {
protected:
    Tiled() : FilledScreen(Manager::I3) {}
};

TEST_F(Tiled, ControlsStandWhereTheWindowReallyEnds) {
    StartWithList();
    WalkThroughEverySize();
}

class Wayland : public FilledScreen {
protected:
    Wayland() : FilledScreen(Manager::Weston) {}
};

// The compositor ends a program whose maximised window has another size.
TEST_F(Wayland, AMaximisedWindowIsNeverSized) {
    StartWithList();
    constexpr std::uint32_t kPaper = 0xFFFFFF;
    ASSERT_TRUE(Eventually([&] { return Count(kPaper) > 10000; })) << display_.AllWindows();
    Key("super+shift+m");
    WalkThroughEverySize();
}

class HalfTiled : public DesktopProgram {
protected:
    // As a window manager marks a window that it has put beside another one.
    void Mark(const std::string& option) const {
        const std::string command = "env " + display_.Environment().front() + " xprop -id " +
                                    MainWindow() + " -f _NET_WM_STATE 32a " + option;
        ASSERT_EQ(std::system(command.c_str()), 0);
    }
};

TEST_F(HalfTiled, AWindowKeepsItsSize) {
    StartWithBar();
    display_.Do("windowsize --sync " + MainWindow() + " 800 559");
    EXPECT_TRUE(Eventually([&] { return PictureSize() == kTwice; }));
    Mark("-set _NET_WM_STATE _NET_WM_STATE_MAXIMIZED_VERT");
    ClickAt(640 + 60, 28 + 14);
    ExpectTitle("cup");
    EXPECT_TRUE(Eventually([&] { return PictureSize() == kTwice; }));
    EXPECT_EQ(WindowSize(), (SeenSize{800, 559}));
    Mark("-remove _NET_WM_STATE");
    ClickAt(640 + 60, 28);
    ExpectTitle("bar");
    EXPECT_TRUE(Eventually([&] { return WindowSize() == SeenSize{480, 259}; }));
}

}  // namespace
}  // namespace scenara::test
