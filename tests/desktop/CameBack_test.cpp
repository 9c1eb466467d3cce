// SPDX-License-Identifier: MIT
//
// The window comes up as the user had it, and what counts as that.
#include <fstream>
#include <iterator>
#include <optional>
#include <ostream>
#include <string>

#include <gtest/gtest.h>

#include "desktop/DesktopProgram.h"

namespace scenara::test {
namespace {

constexpr int kWidth = 1024;  // of the screen
constexpr int kHeight = 768;

class CameBack : public DesktopProgram {
protected:
    // With these lines beside its other settings, and a stage.
    void StartWith(const std::string& lines) {
        WriteSettings();
        std::ofstream(Folder() / "bin/Scenara.ini", std::ios::binary) << lines;
        Start({}, StagePath("bar"));
        ExpectTitle("bar");
    }
    [[nodiscard]] std::string Extras() const {
        std::ifstream file(Folder() / "bin/Scenara.ini", std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    [[nodiscard]] bool IsSaved(const std::string& line) const {
        return Extras().find(line + "\r\n") != std::string::npos;
    }
    void ExpectSize(const SeenSize& size) {
        ASSERT_TRUE(Eventually([&] { return WindowSize() == size; }))
            << WindowSize().width << " x " << WindowSize().height;
    }
};

struct OneWay {
    const char* name;
    const char* state;
};

std::ostream& operator<<(std::ostream& out, const OneWay& row) {
    return out << row.name;
}

class CameBackTiled : public CameBack, public testing::WithParamInterface<OneWay> {};

// The size that a window manager gives for a while is not the user's, and does not come up again.
TEST_P(CameBackTiled, KeepsTheSizeFromBefore) {
    const SeenSize free{601, 433};
    StartWith("WindowWidth = 500\r\nWindowHeight = 300\r\n");
    display_.Do("windowmove " + MainWindow() + " 31 47 windowsize " + MainWindow() + " 601 433");
    ExpectSize(free);
    ASSERT_TRUE(Eventually([&] { return IsSaved("WindowWidth = 601"); })) << Extras();
    const std::optional<Place> place = MainPlace();
    display_.ChangeState(true, MainWindow(), GetParam().state);
    ASSERT_TRUE(Eventually([&] {
        const SeenSize size = WindowSize();
        return size.width > kWidth - 10 || size.height > kHeight - 60;
    }));
    Key("alt+F4");
    EXPECT_EQ(WaitForEnd(), 0);
    EXPECT_TRUE(IsSaved("WindowWidth = 601")) << Extras();
    EXPECT_TRUE(IsSaved("WindowHeight = 433")) << Extras();
    Start({}, StagePath("bar"));
    ExpectTitle("bar");
    EXPECT_TRUE(Eventually([&] { return MainPlace() == place; })) << display_.AllWindows();
}

constexpr OneWay kOneWay[] = {
    {"Vertically", "_NET_WM_STATE_MAXIMIZED_VERT"},
    {"Horizontally", "_NET_WM_STATE_MAXIMIZED_HORZ"},
};

INSTANTIATE_TEST_SUITE_P(Maximised, CameBackTiled, testing::ValuesIn(kOneWay),
                         [](const auto& row) { return row.param.name; });

// The frame counts, which is only known when the window is there.
TEST_F(CameBack, NoLargerThanTheScreenWithItsFrame) {
    StartWith("WindowLeft = 0\r\nWindowTop = 0\r\nWindowWidth = 2000\r\nWindowHeight = 2000\r\n");
    std::optional<Place> place;
    EXPECT_TRUE(Eventually([&] {
        place = MainPlace();
        return place && place->left >= 0 && place->top > 0 && place->width > kWidth - 20 &&
               place->height > kHeight - 60 && place->left + place->width <= kWidth &&
               place->top + place->height <= kHeight;
    })) << place.value_or(Place()).left
        << ", " << place.value_or(Place()).top << ": " << place.value_or(Place()).width << " x "
        << place.value_or(Place()).height;
}

}  // namespace
}  // namespace scenara::test
