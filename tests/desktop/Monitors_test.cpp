// SPDX-License-Identifier: MIT
//
// Several monitors side by side.
#include <cstdlib>
#include <optional>
#include <ostream>
#include <string>

#include <gtest/gtest.h>

#include "desktop/DesktopProgram.h"
#include "desktop/WindowPixels.h"

namespace scenara::test {
namespace {

constexpr int kMonitorWidth = 900;
constexpr int kMonitorHeight = 700;
constexpr Place kSecond{kMonitorWidth, 0, kMonitorWidth, kMonitorHeight};

struct Case {
    const char* name;
    Manager manager;
    const char* scale;  // the screen's pixels to one of the toolkit's
};

std::ostream& operator<<(std::ostream& out, const Case& row) {
    return out << row.name;
}

std::string InWords(const std::optional<Place>& place) {
    return place ? DesktopProgram::Words({place->left, place->top}) + ", " +
                       std::to_string(place->width) + " x " + std::to_string(place->height)
                 : "nothing";
}

bool IsWithin(const Place& inner, const Place& outer) {
    return inner.left >= outer.left && inner.top >= outer.top &&
           inner.left + inner.width <= outer.left + outer.width &&
           inner.top + inner.height <= outer.top + outer.height;
}

class TwoMonitors : public DesktopProgram, public testing::WithParamInterface<Case> {
protected:
    TwoMonitors()
        : DesktopProgram(DisplaySetup{GetParam().manager, kMonitorWidth, kMonitorHeight, 2}) {
        environment_ = {"QT_WAYLAND_DISABLE_WINDOWDECORATION=1"};
        scale_ = GetParam().scale;
    }

    // What the picture's parts are to be where the window, or the full screen, stands.
    [[nodiscard]] std::string WrongIn(const Screenshot& shot, const Place& place,
                                      bool isWindow) const {
        return WrongPixels(shot, {place, std::strtod(scale_.c_str(), nullptr), isWindow, false});
    }

    void MoveToTheSecondMonitor() {
        switch (GetParam().manager) {
            case Manager::Openbox: display_.Do("windowmove " + MainWindow() + " 950 80"); break;
            case Manager::I3: display_.Tell("move container to output monitor1, focus"); break;
            case Manager::Sway:
            case Manager::Weston: break;  // it came up there
        }
    }

    // The window rests on the second monitor, painted as it should be.
    void ExpectWindow() {
        std::optional<Place> place;
        std::string wrong;
        ASSERT_TRUE(Eventually([&] {
            const std::optional<Place> before = place;
            place = MainPlace();
            wrong = place ? WrongIn(Look(), *place, true) : "no window";
            return place && place == before && IsWithin(*place, kSecond) && wrong.empty();
        })) << InWords(place)
            << ": " << wrong << display_.AllWindows();
        place_ = place;
    }

    std::optional<Place> place_;
};

// It covers the one that the window is on, whole, and nothing of the other one.
TEST_P(TwoMonitors, TheFullScreenCoversTheOneOfTheWindow) {
    display_.FillBackground();
    WriteSettings();
    switch (GetParam().manager) {
        case Manager::Weston:  // where the pointer is
            MoveTo({kMonitorWidth + kMonitorWidth / 2, 10});
            MoveTo({kMonitorWidth + kMonitorWidth / 2, kMonitorHeight - 10});
            break;
        // Each monitor has a workspace. (It falls over itself when a window is to go to another.)
        case Manager::Sway: display_.Tell("workspace 2"); break;
        case Manager::Openbox:
        case Manager::I3: break;
    }
    Start({}, StagePath("bar"));
    ASSERT_TRUE(Eventually([&] { return PictureSize().width > 0; })) << display_.AllWindows();
    MoveToTheSecondMonitor();
    ExpectWindow();
    const std::optional<Place> before = place_;
    GoFullScreen({kSecond.left + 1, kSecond.top + 1});
    std::optional<Place> covered;
    std::string wrong;
    EXPECT_TRUE(Eventually([&] {
        const Screenshot shot = Look();
        covered = PaintedIn(shot);
        wrong = covered ? WrongIn(shot, *covered, false) : "nothing";
        return covered == kSecond && wrong.empty();
    })) << InWords(covered)
        << ": " << wrong << display_.AllWindows();
    Key("Escape");
    ExpectWindow();
    EXPECT_EQ(place_, before) << InWords(before) << " to " << InWords(place_);
}

constexpr Case kCases[] = {
    {"Openbox", Manager::Openbox, "1"},
    {"OpenboxOneAndAHalf", Manager::Openbox, "1.5"},
    {"OpenboxTwice", Manager::Openbox, "2"},
    {"I3", Manager::I3, "1"},
    {"I3Twice", Manager::I3, "2"},
    {"Weston", Manager::Weston, "1"},
    {"Sway", Manager::Sway, "1"},
    {"SwayTwice", Manager::Sway, "2"},
};

INSTANTIATE_TEST_SUITE_P(On, TwoMonitors, testing::ValuesIn(kCases),
                         [](const auto& row) { return row.param.name; });

}  // namespace
}  // namespace scenara::test
