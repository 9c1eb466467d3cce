// SPDX-License-Identifier: MIT
//
// The size that the window comes up with where no settings have one.
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <optional>
#include <ostream>
#include <string>

#include <gtest/gtest.h>

#include "desktop/DesktopProgram.h"
#include "desktop/WindowPixels.h"

namespace scenara::test {
namespace {

struct Case {
    const char* name;
    int screenWidth;
    int screenHeight;
    bool listed;
    SeenSize box;  // of the picture
};

std::ostream& operator<<(std::ostream& out, const Case& row) {
    return out << row.name;
}

class FirstStart : public DesktopProgram, public testing::WithParamInterface<Case> {
protected:
    FirstStart() : DesktopProgram(Screen()) {}

    static DisplaySetup Screen() {
        DisplaySetup setup{Manager::Openbox, GetParam().screenWidth, GetParam().screenHeight};
        setup.centres = false;  // that is up to the program
        return setup;
    }

    // Of the picture's box, whose left column has one colour, and which ends above the status line.
    [[nodiscard]] static SeenSize BoxIn(const Screenshot& shot, const Place& window) {
        constexpr int kListWidth = 160;
        int below = window.top + window.height;
        const std::uint32_t line = shot.At(window.left, below - 1);
        while (below > window.top && shot.At(window.left, below - 1) == line) {
            --below;
        }
        if (below == window.top) {
            return {};
        }
        const std::uint32_t color = shot.At(window.left, below - 1);
        SeenSize box{window.width - (GetParam().listed ? kListWidth : 0), 0};
        while (below - box.height > window.top &&
               shot.At(window.left, below - box.height - 1) == color) {
            ++box.height;
        }
        return box;
    }

    // As the window manager says.
    [[nodiscard]] std::optional<Place> WithFrame(const Place& window) const {
        const std::string said = display_.Property("-id " + MainWindow(), "_NET_FRAME_EXTENTS");
        int left = 0;
        int right = 0;
        int top = 0;
        int bottom = 0;
        const std::size_t numbers = said.find('=');
        if (numbers == std::string::npos || std::sscanf(said.c_str() + numbers, "= %d, %d, %d, %d",
                                                        &left, &right, &top, &bottom) != 4) {
            return std::nullopt;
        }
        return Place{window.left - left, window.top - top, window.width + left + right,
                     window.height + top + bottom};
    }

    // As far from one side as from the other, but for a rest.
    [[nodiscard]] static bool IsInTheMiddle(int begin, int length, int screen) {
        return std::abs(begin - (screen - begin - length)) <= 1;
    }
};

TEST_P(FirstStart, TheWindowIsAsLargeAsTheScreenHasRoomForAndStandsInTheMiddle) {
    const Case& row = GetParam();
    display_.FillBackground();
    WriteSettings(row.listed ? "StageList = 255\r\n" : "");
    std::filesystem::remove(Folder() / "bin/Scenara.ini");
    Start({}, StagePath("bar"));
    std::optional<Place> window;
    SeenSize box;
    std::string wrong;
    ASSERT_TRUE(Eventually([&] {
        window = MainPlace();
        if (!window) {
            wrong = "no window";
            return false;
        }
        const Screenshot shot = Look();
        wrong = WrongPixels(shot, {*window, 1, true, row.listed});
        if (wrong.empty()) {
            box = BoxIn(shot, *window);
        }
        return wrong.empty() && box == row.box;
    })) << wrong
        << "; a box of " << box.width << " x " << box.height << display_.AllWindows();
    Place frame;
    EXPECT_TRUE(Eventually([&] {
        frame = WithFrame(MainPlace().value_or(Place())).value_or(Place());
        return frame.height > window->height &&
               IsInTheMiddle(frame.left, frame.width, row.screenWidth) &&
               IsInTheMiddle(frame.top, frame.height, row.screenHeight);
    })) << frame.width
        << " x " << frame.height << " at " << frame.left << ", " << frame.top;
}

constexpr Case kCases[] = {
    {"Large", 1920, 1080, false, {1280, 720}},
    {"LargeWithTheList", 1920, 1080, true, {1280, 720}},
    {"NotQuiteLarge", 1590, 1000, false, {960, 720}},
    {"Small", 1024, 768, false, {640, 480}},
    {"SmallWithTheList", 1024, 768, true, {640, 480}},
};

INSTANTIATE_TEST_SUITE_P(On, FirstStart, testing::ValuesIn(kCases),
                         [](const auto& row) { return row.param.name; });

}  // namespace
}  // namespace scenara::test
