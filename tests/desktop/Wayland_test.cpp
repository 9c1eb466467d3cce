// SPDX-License-Identifier: MIT
//
// A Wayland session without an X server that programs could use.
#include <string>

#include <gtest/gtest.h>

#include "desktop/DesktopProgram.h"

namespace scenara::test {
namespace {

class WithoutX : public DesktopProgram, public testing::WithParamInterface<Manager> {
protected:
    WithoutX() : DesktopProgram(GetParam()) { environment_ = {"DISPLAY", "QT_QPA_PLATFORM"}; }

    void ExpectPictureSize(const SeenSize& size) {
        EXPECT_TRUE(Eventually([&] { return PictureSize() == size; }))
            << PictureSize().width << " x " << PictureSize().height << display_.AllWindows();
    }
};

TEST_P(WithoutX, AStageIsShownAlsoInTheFullScreen) {
    const SeenSize wholeScreen{960, 720};
    WriteSettings("StageList = 255\r\n");
    Start({}, StagePath("bar"));
    ASSERT_TRUE(Eventually([&] { return PictureSize().width >= 320; })) << display_.AllWindows();
    const SeenSize before = PictureSize();
    EXPECT_NE(before, wholeScreen);
    InMenu("o", "f");
    ExpectPictureSize(wholeScreen);
    Key("Escape");
    ExpectPictureSize(before);
    OpenMenu("s");
    Key("e");
    EXPECT_EQ(WaitForEnd(), 0);
}

INSTANTIATE_TEST_SUITE_P(On, WithoutX, testing::Values(Manager::Weston, Manager::Sway),
                         [](const auto& row) { return NameOf(row.param); });

}  // namespace
}  // namespace scenara::test
