// SPDX-License-Identifier: MIT
//
// By what a desktop knows the window's program, and the picture that it shows beside the window.
#include <string>

#include <gtest/gtest.h>

#include "desktop/DesktopProgram.h"

namespace scenara::test {
namespace {

class Icon : public DesktopProgram {};

TEST_F(Icon, IsGivenToTheWindowManagerInAllItsSizes) {
    WriteSettings();
    Start();
    ExpectWindow("^Scenara 1.0");
    std::string icon;
    const auto has = [&](int size) {
        const std::string text = std::to_string(size);
        return icon.find("Icon (" + text + " x " + text + ")") != std::string::npos;
    };
    EXPECT_TRUE(Eventually([&] {
        icon = display_.Property("-len 4000000 -id " + MainWindow(), "_NET_WM_ICON");
        return has(16) && has(24) && has(32) && has(48) && has(64) && has(128) && has(256);
    })) << icon.substr(0, 1000);
    // The entry says this class (StartupWMClass).
    const std::string klass = display_.Property("-id " + MainWindow(), "WM_CLASS");
    EXPECT_NE(klass.find("\"scenara\""), std::string::npos) << klass;
}

class IconOnWayland : public DesktopProgram {
protected:
    IconOnWayland() : DesktopProgram(Manager::Sway) {
        environment_ = {"DISPLAY", "QT_QPA_PLATFORM"};
    }
};

// A compositor has the icon from the entry of that name.
TEST_F(IconOnWayland, IsFoundByTheNameOfTheEntry) {
    WriteSettings();
    Start();
    std::string tree;
    EXPECT_TRUE(Eventually([&] {
        tree = display_.Tell("-t get_tree");
        return tree.find("\"app_id\": \"scenara\"") != std::string::npos;
    })) << tree;
}

}  // namespace
}  // namespace scenara::test
