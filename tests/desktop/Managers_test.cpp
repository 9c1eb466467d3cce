// SPDX-License-Identifier: MIT
//
// Windows whose size is not the program's to choose: a size that it asks for never comes, or must
// not even be asked for.
#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <optional>
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

    // Each stage but the first has a tile in its upper left corner.
    void SetUp() override {
        DesktopProgram::SetUp();
        AddTile("cup", 1);
        AddTile("dot", 2);
    }

    // At whole multiples the picture's size tells the window's.
    void StartWithList() {
        WriteSettings("StageList = 255\r\n");
        std::ofstream(Folder() / "bin/Scenara.ini", std::ios::binary | std::ios::app)
            << "WholeMultiplesOnly = True\r\n";
        Start();
    }

    // The list stands at the screen's right edge.
    void ExpectListAtTheEdge() {
        ASSERT_TRUE(Eventually([&] {
            const std::optional<Spot> list = ListIn(Look());
            list_ = list.value_or(Spot());
            return list_.x > kScreenWidth - kListWidth - kBorders;
        })) << display_.AllWindows();
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
            << BarIn(shot).value_or(Bar()).left << (ListIn(shot) ? ", a list" : ", no list")
            << display_.AllWindows();
    }

    // Twice a stage is opened from the list, by `choose`; `toggleList` hides it and shows it again.
    void WalkThroughEverySize(const std::function<void(int index)>& choose,
                              const std::function<void()>& toggleList) {
        ExpectListAtTheEdge();
        choose(1);
        ExpectPicture(kTwice, true);
        EXPECT_EQ(Count(kLeaf), kTileWidth * 2 * kTileHeight * 2);
        choose(2);
        EXPECT_TRUE(Eventually([&] { return Count(kBrick) > 0; }));
        ExpectPicture(kTwice, true);
        toggleList();
        ExpectPicture(kTwice, false);
        toggleList();
        ExpectPicture(kTwice, true);
        InMenu("o", "b");  // the editor's bar, below
        ExpectPicture(kTwice, true);
        InMenu("o", "b");
        ExpectPicture(kTwice, true);
        InMenu("o", "f");
        ExpectPicture(kWholeScreen, false);
        Key("Escape");
        ExpectPicture(kTwice, true);
    }

    void ExpectKeysAndExit() {
        const int before = BarLeft();
        display_.Do("keydown Right");
        EXPECT_TRUE(Eventually([&] { return BarLeft() < before; })) << "the window has the keys";
        display_.Do("keyup Right");
        OpenMenu("s");
        Key("e");
        EXPECT_EQ(WaitForEnd(), 0);
    }

    Spot list_;

private:
    static constexpr int kScreenWidth = 1024;
    static constexpr int kBorders = 8;
};

class Tiled : public FilledScreen {
protected:
    Tiled() : FilledScreen(Manager::I3) {}
};

// The window that it asks for would be smaller, and end above it.
TEST_F(Tiled, TheSpritesBarIsSeenAtOnce) {
    constexpr int kBarHeight = 8;  // at least
    StartWithList();
    ExpectListAtTheEdge();
    MoveTo({list_.x + 20, list_.y + kFilter + 5});
    display_.Do("click 1");
    ExpectPicture(kTwice, true);
    Key("alt+d");
    EXPECT_TRUE(Eventually([&] { return PictureSize() == SeenSize{640, 240}; })) << "a sprite";
    EXPECT_TRUE(Eventually([&] {
        const Screenshot shot = Look();
        int light = 0;  // pixels below one another
        for (int y = shot.height / 2; y < shot.height && light < kBarHeight; ++y) {
            light = (shot.At(shot.width / 3, y) & 0x808080) == 0x808080 ? light + 1 : 0;
        }
        return light == kBarHeight;
    })) << "its bar";
}

TEST_F(Tiled, ControlsStandWhereTheWindowReallyEnds) {
    StartWithList();
    const auto clickAt = [this](const Spot& spot) {
        MoveTo(spot);
        display_.Do("click 1");
    };
    WalkThroughEverySize(
        [&](int index) {
            clickAt({list_.x + 60, list_.y + kFilter + 7 + index * kListItem});
        },
        [&] {
            constexpr int kStageList = 175;
            clickAt({kStageList, list_.y - 10});
        });
    ExpectKeysAndExit();
}

class Wayland : public FilledScreen {
protected:
    Wayland() : FilledScreen(Manager::Weston) {}
};

// The compositor ends a program whose maximised window has another size.
TEST_F(Wayland, AMaximisedWindowIsNeverSizedAndCanBeRestored) {
    const SeenSize once{320, 240};
    constexpr std::uint32_t kPaper = 0xFFFFFF;
    const auto listIsThere = [&] { return Count(kPaper) > 10000; };
    StartWithList();
    ASSERT_TRUE(Eventually(listIsThere)) << display_.AllWindows();
    Key("super+shift+m");
    // By the keyboard alone: Weston may lose a pointer that was there before it. The list has the
    // keys from the start.
    int steps = 0;
    WalkThroughEverySize(
        [&](int index) {
            for (; steps <= index; ++steps) {
                Key("Down");
            }
        },
        [this] { Key("alt+l"); });
    Key("super+shift+m");
    EXPECT_TRUE(Eventually([&] { return PictureSize() == once && listIsThere(); })) << "restored";
    InMenu("o", "f");
    ExpectPicture(kWholeScreen, false);
    Key("Escape");
    EXPECT_TRUE(Eventually([&] { return PictureSize() == once && listIsThere(); }));
    ExpectKeysAndExit();
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

TEST_F(HalfTiled, APlainWindowKeepsItsSize) {
    std::ofstream(Folder() / "bin/Scenara.ini", std::ios::binary) << "Additions = False\r\n";
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
