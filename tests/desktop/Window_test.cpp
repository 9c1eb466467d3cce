// SPDX-License-Identifier: MIT
//
// The real window on a virtual display, as a user has it before them.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "desktop/VirtualDisplay.h"
#include "samplemaker/Canvas.h"
#include "samplemaker/PcxWriter.h"
#include "samplemaker/Sff1Writer.h"

namespace scenara::test {
namespace {

namespace fs = std::filesystem;

constexpr std::uint32_t kGround = 0x305070;
constexpr std::uint32_t kBar = 0xF0C040;

// A picture of 640 x 240, one colour, with a bar of 8 columns in its middle, where the axis is.
std::string Archive() {
    samplemaker::Palette palette{};
    palette[1] = {0x30, 0x50, 0x70};
    palette[2] = {0xF0, 0xC0, 0x40};
    samplemaker::Canvas canvas(640, 240);
    canvas.FillRect(0, 0, 640, 240, 1);
    canvas.FillRect(320, 0, 8, 240, 2);
    samplemaker::Sff1Subfile subfile;
    subfile.axisX = 320;
    subfile.data = samplemaker::WritePcx(canvas.ToPicture(palette));
    const std::vector<std::byte> bytes = samplemaker::WriteSff1({subfile});
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

// Where the bar is on the screen, in a row through the middle of it; nothing when it is not seen.
struct Bar {
    int left = 0;
    int width = 0;
};

class DesktopWindow : public testing::Test {
protected:
    void SetUp() override {
        // The program beside a folder with one stage of ours, under the name it looks for.
        const fs::path folder = display_.Folder();
        fs::create_directories(folder / "bin");
        fs::create_directories(folder / "mugen/stages");
        fs::copy_file(SCENARA_PROGRAM, folder / "bin/scenara");
        std::ofstream(folder / "mugen/stages/lanternpier.def")
            << "[Info]\nname = bar\n[Camera]\nboundleft = -150\nboundright = 150\n"
               "[BGdef]\nspr = stages/bar.sff\n[BG bar]\ntype = normal\nspriteno = 0,0\n";
        std::ofstream(folder / "mugen/stages/bar.sff", std::ios::binary) << Archive();
        std::vector<std::string> environment = display_.Environment();
        environment.push_back("XDG_RUNTIME_DIR=" + display_.Folder());
        environment.push_back("QT_QPA_PLATFORM=xcb");
        environment.push_back("ASAN_OPTIONS=detect_leaks=0");  // the toolkit's own
        program_.emplace(std::vector<std::string>{(folder / "bin/scenara").string()}, environment,
                         display_.Folder() + "program.txt");
        ASSERT_TRUE(Eventually([&] { return !Window().empty(); }))
            << "no window came up; there are: " << display_.AllWindows();
        ASSERT_TRUE(Eventually([&] { return Seen().value_or(Bar()).width == 8; }))
            << "no picture, one to one";
        display_.Do("windowactivate --sync " + Window());
    }

    // Everything that is waited for asks for the window or looks at the screen.
    [[nodiscard]] std::string Window() const {
        program_->TakePriorityBack();
        return display_.Do("search --onlyvisible --name '^bar'");
    }
    [[nodiscard]] std::string Title() const { return display_.Do("getwindowname " + Window()); }

    [[nodiscard]] std::optional<Bar> Seen() const {
        program_->TakePriorityBack();
        const Screenshot shot = display_.Look();
        for (int y = shot.height / 2; y < shot.height; y += 40) {
            Bar bar;
            for (int x = 0; x < shot.width; ++x) {
                if (shot.At(x, y) == kBar) {
                    bar.left = bar.width == 0 ? x : bar.left;
                    ++bar.width;
                }
            }
            if (bar.width > 0) {
                return bar;
            }
        }
        return std::nullopt;
    }
    [[nodiscard]] int BarLeft() const { return Seen().value_or(Bar()).left; }

    VirtualDisplay display_;
    std::optional<Child> program_;
};

TEST_F(DesktopWindow, ScrollsWhileAnArrowKeyIsHeld) {
    const Bar before = *Seen();
    display_.Do("keydown Right");
    EXPECT_TRUE(Eventually([&] { return BarLeft() < before.left - 20; })) << "to the left";
    display_.Do("keyup Right");
    ASSERT_TRUE(Eventually([&] {
        const int first = BarLeft();
        return first == BarLeft();
    })) << "and stands when it is let go";
    const int moved = BarLeft();
    display_.Do("keydown Left");
    EXPECT_TRUE(Eventually([&] { return BarLeft() > moved + 20; }));
    display_.Do("keyup Left");
}

TEST_F(DesktopWindow, StopsWhilePaused) {
    display_.Do("key alt+p");
    ASSERT_TRUE(Eventually([&] { return Title() == "bar <<PAUSED>>"; })) << Title();
    const int before = BarLeft();
    display_.Do("keydown Right");
    for (int look = 0; look < 5; ++look) {
        EXPECT_EQ(BarLeft(), before);
    }
    display_.Do("keyup Right");
    display_.Do("key Pause");  // the key by itself does it, too
    ASSERT_TRUE(Eventually([&] { return Title() == "bar"; })) << Title();
    display_.Do("keydown Right");
    EXPECT_TRUE(Eventually([&] { return BarLeft() < before - 20; }));
    display_.Do("keyup Right");
}

TEST_F(DesktopWindow, ShowsThePictureAtWholeMultiples) {
    display_.Do("windowsize " + Window() + " 700 560");
    EXPECT_TRUE(Eventually([&] { return Seen().value_or(Bar()).width == 16; })) << "twice";
    display_.Do("windowsize " + Window() + " 330 290");
    EXPECT_TRUE(Eventually([&] { return Seen().value_or(Bar()).width == 8; }));
}

TEST_F(DesktopWindow, AMenuShowsTheInfoLineAndThePictureGoesOn) {
    const auto whitePixels = [&] {
        const Screenshot shot = display_.Look();
        return std::count(shot.rgb.begin(), shot.rgb.end(), 0xFFFFFFU);
    };
    const auto before = whitePixels();
    display_.Do("key alt+o");
    display_.Do("key i");
    EXPECT_TRUE(Eventually([&] { return whitePixels() > before + 50; }));
    const int bar = BarLeft();
    display_.Do("keydown Right");
    EXPECT_TRUE(Eventually([&] { return BarLeft() < bar; }));
    display_.Do("keyup Right");
}

TEST_F(DesktopWindow, ClosingItEndsTheProgram) {
    display_.Do("key alt+F4");
    EXPECT_EQ(program_->ExitStatus(), 0);
}

TEST_F(DesktopWindow, TheExitItemEndsTheProgram) {
    display_.Do("key alt+s");
    display_.Do("key e");
    EXPECT_EQ(program_->ExitStatus(), 0);
}

TEST_F(DesktopWindow, ASecondInstanceSaysSoAndEnds) {
    std::vector<std::string> environment = display_.Environment();
    environment.push_back("XDG_RUNTIME_DIR=" + display_.Folder());
    environment.push_back("ASAN_OPTIONS=detect_leaks=0");
    Child second({display_.Folder() + "bin/scenara"}, environment,
                 display_.Folder() + "second.txt");
    const auto box = [&] { return display_.Do("search --onlyvisible --name '^Scenara$'"); };
    ASSERT_TRUE(Eventually([&] { return !box().empty(); }));
    display_.Do("windowactivate --sync " + box());
    display_.Do("key Return");
    EXPECT_EQ(second.ExitStatus(), 0);
    EXPECT_TRUE(Eventually([&] { return Seen().has_value(); })) << "the first one goes on";
}

TEST(WithoutADisplay, TheProgramSaysSoAndEnds) {
    const TemporaryFolder folder;
    Child program({SCENARA_PROGRAM}, {"DISPLAY=:4095", "QT_QPA_PLATFORM="},
                  folder.Path() + "out.txt");
    EXPECT_EQ(program.ExitStatus(), 1);
    std::ifstream said(folder.Path() + "out.txt");
    std::string line;
    std::getline(said, line);
    EXPECT_EQ(line, "scenara: there is no display to show a window on");
}

}  // namespace
}  // namespace scenara::test
