// SPDX-License-Identifier: MIT
//
// The window's size and place are the user's: nothing that the program does with a stage, the list
// or the full screen changes them.
#include <filesystem>
#include <fstream>
#include <optional>
#include <string>

#include <gtest/gtest.h>

#include "desktop/DesktopProgram.h"
#include "desktop/WindowPixels.h"

namespace scenara::test {
namespace {

namespace fs = std::filesystem;

enum class State { Free, Tiled, Maximised };

struct Case {
    Manager manager;
    State state;
};

constexpr int kWidth = 1024;
constexpr int kHeight = 768;

class KeptSize : public DesktopProgram, public testing::WithParamInterface<Case> {
protected:
    KeptSize() : DesktopProgram(DisplaySetup{GetParam().manager, kWidth, kHeight}) {
        environment_ = {"QT_WAYLAND_DISABLE_WINDOWDECORATION=1"};
    }

    [[nodiscard]] static bool Is(Manager manager) { return GetParam().manager == manager; }

    // Brings the window to the state, at a size that no program would choose.
    void Arrange() {
        const bool isFree = GetParam().state == State::Free;
        switch (GetParam().manager) {
            case Manager::Openbox:
                display_.Do("windowmove " + MainWindow() + " 31 47 windowsize " + MainWindow() +
                            " 701 533");
                if (!isFree) {
                    display_.ChangeState(
                        true, MainWindow(), "_NET_WM_STATE_MAXIMIZED_HORZ",
                        GetParam().state == State::Maximised ? "_NET_WM_STATE_MAXIMIZED_VERT" : "");
                }
                break;
            case Manager::Weston: Key("super+shift+m"); break;
            case Manager::I3:
            case Manager::Sway:
                display_.Tell(isFree ? "'floating enable, resize set 701 533, move position 31 47'"
                                     : "floating disable");
                break;
        }
    }
    [[nodiscard]] bool IsArranged() const {
        const Place place = MainPlace().value_or(Place());
        switch (GetParam().state) {
            case State::Free: return place.width > 690 && place.width < 702 && place.height < 534;
            case State::Tiled: return place.width > kWidth - 10;
            case State::Maximised: return place.height > kHeight - 60 && place.width > kWidth - 10;
        }
        return false;
    }

    // The window is where it was, and shows what it is to show.
    void ExpectPlace(const std::string& what, bool listed = true) {
        std::optional<Place> place;
        std::string wrong;
        EXPECT_TRUE(Eventually([&] {
            place = MainPlace();
            wrong = place ? WrongPixels(Look(), {*place, 1, true, listed}) : "no window";
            return place && place == place_ && wrong.empty();
        })) << what
            << ": from " << place_.value_or(Place()).width << " x "
            << place_.value_or(Place()).height << " to " << place.value_or(Place()).width << " x "
            << place.value_or(Place()).height << " " << wrong << display_.AllWindows();
    }

    // What is opened again later is seen by what it has no more.
    void WriteWithTile() const {
        std::ofstream(StagePath("bar"), std::ios::app)
            << "[BG tile]\ntype = normal\nspriteno = 0,1\nstart = -160,0\n";
    }

    void ToggleList() { Key("alt+l"); }

    std::optional<Place> place_;
};

TEST_P(KeptSize, WhateverIsShown) {
    display_.FillBackground();
    WriteWithTile();
    WriteSettings("StageList = 255\r\n");
    Start({}, StagePath("bar"));
    ASSERT_TRUE(Eventually([&] { return PictureSize().width > 0; })) << display_.AllWindows();
    Arrange();
    ASSERT_TRUE(Eventually([&] { return IsArranged(); })) << display_.AllWindows();
    place_ = MainPlace();
    fs::copy_file(StagePath("cup"), StagePath("bar"), fs::copy_options::overwrite_existing);
    InMenu("s", "l");
    ExpectPlace("opened again");
    ToggleList();
    ExpectPlace("without the list", false);
    ToggleList();
    ExpectPlace("with the list");
    InMenu("o", "f");
    EXPECT_TRUE(Eventually([&] {
        return WrongPixels(Look(), {{0, 0, kWidth, kHeight}, 1, false, false}).empty();
    })) << "full screen";
    Key("Escape");
    ExpectPlace("after the full screen");
}

std::string NameOfCase(const testing::TestParamInfo<Case>& row) {
    const State state = row.param.state;
    return NameOf(row.param.manager) + (state == State::Free    ? "Free"
                                        : state == State::Tiled ? "Tiled"
                                                                : "Maximised");
}

constexpr Case kCases[] = {
    {Manager::Openbox, State::Free},      {Manager::Openbox, State::Tiled},
    {Manager::Openbox, State::Maximised}, {Manager::I3, State::Free},
    {Manager::I3, State::Tiled},          {Manager::Weston, State::Maximised},
    {Manager::Sway, State::Free},         {Manager::Sway, State::Tiled},
};

INSTANTIATE_TEST_SUITE_P(On, KeptSize, testing::ValuesIn(kCases), NameOfCase);

}  // namespace
}  // namespace scenara::test
