// SPDX-License-Identifier: MIT
//
// Several monitors side by side.
#include <optional>
#include <string>

#include <gtest/gtest.h>

#include "desktop/DesktopProgram.h"
#include "desktop/WindowPixels.h"

namespace scenara::test {
namespace {

constexpr int kMonitorWidth = 900;
constexpr int kMonitorHeight = 700;

class TwoMonitors : public DesktopProgram, public testing::WithParamInterface<Manager> {
protected:
    TwoMonitors() : DesktopProgram(DisplaySetup{GetParam(), kMonitorWidth, kMonitorHeight, 2}) {
        environment_ = {"QT_WAYLAND_DISABLE_WINDOWDECORATION=1"};
    }
};

// The full screen covers one of them, whole, and nothing of the other one.
TEST_P(TwoMonitors, TheFullScreenCoversOne) {
    display_.FillBackground();
    WriteSettings();
    Start({}, StagePath("bar"));
    ASSERT_TRUE(Eventually([&] { return PictureSize().width > 0; })) << display_.AllWindows();
    InMenu("o", "f");
    std::optional<Place> covered;
    std::string wrong;
    EXPECT_TRUE(Eventually([&] {
        const Screenshot shot = Look();
        covered = PaintedIn(shot);
        wrong = covered ? WrongPixels(shot, {*covered, 1, false, false}) : "nothing";
        return covered && covered->width == kMonitorWidth && covered->height == kMonitorHeight &&
               covered->left % kMonitorWidth == 0 && wrong.empty();
    })) << (covered ? covered->left : -1)
        << ", " << (covered ? covered->width : -1) << " wide: " << wrong << display_.AllWindows();
}

INSTANTIATE_TEST_SUITE_P(On, TwoMonitors,
                         testing::Values(Manager::Openbox, Manager::I3, Manager::Weston,
                                         Manager::Sway),
                         [](const auto& row) { return NameOf(row.param); });

}  // namespace
}  // namespace scenara::test
