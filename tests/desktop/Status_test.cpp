// SPDX-License-Identifier: MIT
//
// The line below the picture, in the real window.
#include <fstream>
#include <optional>
#include <string>

#include <gtest/gtest.h>

#include "desktop/DesktopProgram.h"
#include "desktop/WindowPixels.h"

namespace scenara::test {
namespace {

class StatusBelowThePicture : public DesktopProgram {
protected:
    void StartBar() {
        WriteSettings();
        display_.FillBackground();
        Start({}, StagePath("bar"));
        std::string wrong;
        ASSERT_TRUE(Eventually([&] {
            const std::optional<Place> place = MainPlace();
            wrong = place ? WrongPixels(Look(), {*place, 1, true, false}) : "no window";
            return wrong.empty();
        })) << wrong;
    }
};

TEST_F(StatusBelowThePicture, AClickOnTheProblemsListsThem) {
    std::ofstream(StagePath("bar"), std::ios::app) << "[BG odd]\ntype = null\n";
    WriteSettings();
    Start({}, StagePath("bar"));
    ExpectBox();
    Key("Return");
    ExpectNoBox();
    ASSERT_TRUE(Eventually([&] { return PictureSize().width > 0; })) << display_.AllWindows();
    const SeenSize size = WindowSize();
    ClickAt(size.width - 40, size.height - 10);
    ExpectWindow("^Problems$");
}

TEST_F(StatusBelowThePicture, TheFullScreenHasNone) {
    StartBar();
    InMenu("o", "f");
    std::string wrong;
    EXPECT_TRUE(Eventually([&] {
        const Screenshot shot = Look();
        wrong = WrongPixels(shot, {{0, 0, shot.width, shot.height}, 1, false, false});
        return wrong.empty();
    })) << wrong;
}

}  // namespace
}  // namespace scenara::test
