// SPDX-License-Identifier: MIT
//
// The debug tools and the frame limiter in the real window.
#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "desktop/DesktopProgram.h"

namespace scenara::test {
namespace {

class DesktopDump : public DesktopProgram {
protected:
    [[nodiscard]] std::string Dump() const {
        std::ifstream file(Folder() / "bin/chek.txt", std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
};

class DesktopTools : public DesktopDump {
protected:
    void SetUp() override {
        DesktopProgram::SetUp();
        StartWithBar();
    }
    // The camera's bar takes of the picture's room.
    void BeginEditing() {
        const int top = OfView(0, 0).y;
        Key("alt+o");
        Key("b");
        ASSERT_TRUE(Eventually([&] { return BarWidth() == 8 && OfView(0, 0).y < top; }));
    }
};

TEST_F(DesktopTools, AnElementIsDraggedAndDumped) {
    BeginEditing();
    const int before = BarLeft();
    const std::string window = MainWindow();
    display_.Do("mousemove --window " + window + " 200 120 mousedown 1");
    display_.Do("mousemove --window " + window + " 240 110");
    EXPECT_TRUE(Eventually([&] { return BarLeft() == before + 40; })) << BarLeft();
    display_.Do("mouseup 1");
    display_.Do("mousemove --window " + window + " 100 120");
    EXPECT_EQ(BarLeft(), before + 40);

    Key("d");  // the list has the focus, and would find "dot" by it
    ExpectTitle("Dumped to " + display_.Folder() + "bin/chek.txt");
    EXPECT_EQ(Dump(),
              "[BG bar]\r\ntype = normal\r\nlayerno = 0\r\nspriteno = 0,0\r\n"
              "start = 40,-10\r\ndelta = 1,1\r\nmask = 0\r\n\r\n");

    Key("alt+o");
    Key("b");
    // Where the picture was dragged up from there is nothing any more.
    EXPECT_TRUE(Eventually([&] { return PictureSize() == SeenSize{320, 230}; })) << "no frame";
    EXPECT_THAT(Title(), testing::AnyOf("bar", "Dumped to " + display_.Folder() + "bin/chek.txt"))
        << "no other stage";
}

TEST_F(DesktopTools, TheCamerasBarMovesThePicture) {
    const SeenSize size = WindowSize();
    BeginEditing();
    EXPECT_EQ(WindowSize(), size);
    const int before = BarLeft();
    const std::string window = MainWindow();
    // Its thumb is in the middle, as the camera is.
    const std::string y = " " + std::to_string(size.height - kStatusLine - 6);
    display_.Do("mousemove --window " + window + " 240" + y + " mousedown 1");
    display_.Do("mousemove --window " + window + " 270" + y);
    EXPECT_TRUE(Eventually([&] { return BarLeft() < before - 10; })) << "to the left";
    display_.Do("mousemove --window " + window + " 200" + y);
    EXPECT_TRUE(Eventually([&] { return BarLeft() > before + 10; }));
    display_.Do("mousemove --window " + window + " 240" + y);
    EXPECT_TRUE(Eventually([&] { return BarLeft() == before; })) << "and back";
    display_.Do("mouseup 1");
}

// How often each pixel of a tile is shown, each way: as its caption tells, and as the screen does.
int TimesIn(const std::string& title) {
    return std::atoi(title.c_str() + title.rfind(' '));
}

TEST_F(DesktopTools, TheBrowserShowsSpritesAsLargeAsFitsAndLeavesTheWindowAlone) {
    constexpr int kTile = kTileWidth * kTileHeight;
    const auto times = [this](const std::string& place, std::uint32_t colour) {
        EXPECT_TRUE(Eventually([&] { return Title().starts_with(place); })) << Title();
        EXPECT_TRUE(Eventually([&] {
            const int each = TimesIn(Title());
            return each > 0 && Count(colour) == each * each * kTile;
        })) << Title()
            << " " << Count(colour);
        return TimesIn(Title());
    };
    const SeenSize size = WindowSize();
    Key("alt+d");
    EXPECT_TRUE(Eventually([&] { return Title().starts_with("(1\\3)  Group: 0  Image: 0"); }));
    EXPECT_FALSE(std::filesystem::exists(Folder() / "bin/chek.txt")) << "with Alt it is no dump";
    EXPECT_EQ(WindowSize(), size);

    // The bar's button for the next one, above the status line.
    ClickAt(size.width - 6, size.height - kStatusLine - 6);
    const int fits = times("(2\\3)  Group: 0  Image: 1", kLeaf);
    EXPECT_GT(fits, 1);
    Key("Right");
    EXPECT_EQ(times("(3\\3)  Group: 0  Image: 2", kBrick), fits);
    ClickAt(size.width / 3, size.height / 2);
    display_.Do("click 5");  // the wheel
    EXPECT_TRUE(Eventually([&] { return TimesIn(Title()) < fits; })) << Title();
    const int less = times("(3\\3)", kBrick);
    Key("Left");
    EXPECT_EQ(times("(2\\3)", kLeaf), less) << "what was chosen holds";
    EXPECT_EQ(WindowSize(), size);

    Key("Escape");
    ExpectTitle("bar");
    EXPECT_EQ(WindowSize(), size);
    EXPECT_TRUE(Eventually([&] { return BarWidth() == 8; }));
    const int before = BarLeft();
    display_.Do("keydown Right");
    EXPECT_TRUE(Eventually([&] { return BarLeft() < before - 20; })) << "the stage goes on";
    display_.Do("keyup Right");
}

// On a screen with more pixels to one of the window's.
class DesktopScale : public DesktopProgram, public testing::WithParamInterface<const char*> {};

TEST_P(DesktopScale, TheBrowsersPixelsAreTheScreens) {
    scale_ = GetParam();
    WriteSettings();
    Start({}, StagePath("bar"));
    ExpectTitle("bar");
    Key("alt+d");
    EXPECT_TRUE(Eventually([&] { return Title().starts_with("(1\\3)"); })) << Title();
    Key("End");
    EXPECT_TRUE(Eventually([&] { return Title().starts_with("(3\\3)"); })) << Title();
    EXPECT_TRUE(Eventually([&] {
        const int each = TimesIn(Title());
        return each > 0 && Count(kBrick) == each * each * kTileWidth * kTileHeight;
    })) << Title()
        << " " << Count(kBrick);
}

INSTANTIATE_TEST_SUITE_P(Factors, DesktopScale, testing::Values("1.25", "1.5", "2"),
                         [](const auto& row) {
                             std::string name = row.param;
                             std::ranges::replace(name, '.', '_');
                             return "Of" + name;
                         });

// A stage with more problems than boxes.
class DesktopProblems : public DesktopProgram {};

TEST_F(DesktopProblems, AreSaidInAFewBoxesAndListed) {
    std::ofstream(StagePath("bar"), std::ios::app)
        << "[BG a]\ntype = normal\nspriteno = 0,0\nvelocity = 1e99\n"
        << "[BG b]\ntype = normal\nspriteno = 0,0\nvelocity = 1e99\n"
        << "[BG c]\ntype = normal\nspriteno = 0,0\nvelocity = 1e99\n"
        << "[BG d]\ntype = normal\nspriteno = 0,0\nvelocity = 1e99\n"
        << "[BG e]\ntype = normal\nspriteno = 0,0\nvelocity = 1e99\n";
    WriteSettings();
    Start({}, StagePath("bar"));
    // Three, and one that says how many more; each is another window.
    std::set<std::string> boxes;
    for (int i = 0; i < 4; ++i) {
        EXPECT_TRUE(Eventually([&] {
            const std::string box = Box();
            return !box.empty() && boxes.insert(box).second;
        })) << i;
        Key("Return");
    }
    ExpectTitle("bar");
    ExpectNoBox();

    Key("alt+x");
    Key("p");
    ExpectWindow("^Problems$");
    // The stage goes on, and the keys are the list's.
    const int before = BarLeft();
    display_.Do("keydown Right");
    EXPECT_EQ(BarLeft(), before);
    display_.Do("keyup Right");
    Key("Escape");
    EXPECT_TRUE(Eventually([&] { return Window("^Problems$").empty(); }));
    ExpectTitle("bar");
}

// A stage with the two tiles over its picture.
class DesktopTiles : public DesktopDump {
protected:
    void SetUp() override {
        DesktopProgram::SetUp();
        std::ofstream(StagePath("bar"), std::ios::app)
            << "[BG leaf]\ntype = normal\nspriteno = 0,1\nstart = -140,100\n"
            << "[BG brick]\ntype = normal\nspriteno = 0,2\nstart = -110,120\n";
        StartWithBar();
    }
};

// Their places in the view: the leaf from (20, 100) on, the brick from (50, 120), so that they
// share what is from (50, 120) to (80, 140).
TEST_F(DesktopTiles, AreMovedInTheListClonedAndDeletedByKeys) {
    constexpr int kTile = kTileWidth * kTileHeight;
    constexpr int kShared = 30 * 20;
    const auto expectCounts = [this](int leaf, int brick) {
        EXPECT_TRUE(Eventually([&] { return Count(kLeaf) == leaf && Count(kBrick) == brick; }))
            << Count(kLeaf) << " " << Count(kBrick);
    };
    expectCounts(kTile - kShared, kTile);
    const Spot shared = OfView(65, 130);
    const Spot corner = OfView(20, 100);  // the frame's
    const Spot grip = OfView(30, 110);
    const Spot target = OfView(30, 40);
    Key("alt+o");
    Key("b");
    MoveTo(grip);
    display_.Do("click 1");
    ASSERT_TRUE(Eventually([&] { return ColorAt(corner) != kLeaf; })) << "the frame";

    Key("KP_Add");
    ExpectTitle("\"leaf\" - Background Element #3/3");
    EXPECT_TRUE(Eventually([&] { return ColorAt(shared) == kLeaf; }));
    Key("KP_Subtract");
    ExpectTitle("\"leaf\" - Background Element #2/3");
    EXPECT_TRUE(Eventually([&] { return ColorAt(shared) == kBrick; }));

    Key("Insert");
    ExpectTitle("Cloned..");
    // The copy is dragged to where nothing is; the original shows whole corners again.
    display_.Do("mousedown 1");
    MoveTo(target);
    EXPECT_TRUE(Eventually([&] { return ColorAt(target) == kLeaf; }));
    display_.Do("mouseup 1");
    EXPECT_TRUE(Eventually([&] { return ColorAt(corner) == kLeaf; })) << "the original stays";

    // Once more where a tap comes too early for an element that has just been picked; behind the
    // first that counts nothing is selected.
    EXPECT_TRUE(Eventually([&] {
        Key("Delete");
        return Title() == "Deleted..";
    }));
    expectCounts(kTile - kShared, kTile);
    Key("d");
    ExpectTitle("Dumped to " + display_.Folder() + "bin/chek.txt");
    EXPECT_THAT(Dump(), testing::HasSubstr("[BG leaf]\r\n"));
    EXPECT_EQ(Dump().find("[BG leaf]"), Dump().rfind("[BG leaf]"));
}

TEST_F(DesktopTools, TheLimiterAsksForARate) {
    // The fifth of the Options. Without a limit nothing is asked; the next time it is.
    const auto chooseLimiter = [&] {
        Key("alt+o");
        for (int i = 0; i < 4; ++i) {
            Key("Down");
        }
        Key("Return");
    };
    chooseLimiter();
    chooseLimiter();
    ExpectBox();
    Type("30");
    Key("Return");
    ExpectNoBox();
    display_.Do("windowactivate --sync " + MainWindow());
    const int before = BarLeft();
    display_.Do("keydown Right");
    EXPECT_TRUE(Eventually([&] { return BarLeft() < before - 20; }));
    display_.Do("keyup Right");
}

}  // namespace
}  // namespace scenara::test
