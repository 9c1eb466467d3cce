// SPDX-License-Identifier: MIT
//
// The list of stages in the real window: what it has, its keys, its filter, the menu of an item,
// its edge, and how one leafs through it.
#include <algorithm>
#include <array>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "desktop/DesktopProgram.h"
#include "desktop/Drop.h"
#include "desktop/Hands.h"
#include "samplemaker/Canvas.h"
#include "samplemaker/PcxWriter.h"
#include "samplemaker/Sff1Writer.h"

namespace scenara::test {
namespace {

namespace fs = std::filesystem;

using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::HasSubstr;
using testing::Not;

constexpr int kWidth = 480;
constexpr int kListLeft = 320;
constexpr int kMenus = 20;

// What a line of the list shows.
enum class Line { Empty, Dimmed, Plain, Selected };

std::string RecentFile(const std::string& path) {
    return "RecentFile = " + path + "\r\n";
}

class StageListTest : public DesktopProgram {
protected:
    // The camera goes up in all of them.
    void SetUp() override {
        DesktopProgram::SetUp();
        for (const std::string name : {"bar", "cup", "dot"}) {
            WriteStage(name, name);
        }
    }

    // `below` the folder of stages, without ".def".
    void WriteStage(const std::string& below, const std::string& name,
                    const std::string& more = {}) const {
        fs::create_directories(fs::path(StagePath(below)).parent_path());
        std::ofstream(StagePath(below))
            << "[Info]\nname = " << name << "\n"
            << more << "[Camera]\nboundleft = -150\nboundright = 150\nboundhigh = -60\n"
            << "[BGdef]\nspr = stages/bar.sff\n[BG bar]\ntype = normal\nspriteno = 0,0\n";
    }
    // Its load reports one thing.
    void BreakStage(const std::string& name) const {
        std::ofstream(StagePath(name), std::ios::app) << "[BG odd]\ntype = null\n";
    }

    void StartWithList(const std::string& file = {}) {
        WriteSettings("StageList = 255\r\n");
        Start({}, file);
        if (file.empty()) {
            ExpectMainWindow(kWidth);
        }
        ExpectLine(0, file.empty() ? Line::Plain : Line::Selected);
    }
    void ShowBar() {
        ClickListItem(0);
        ExpectTitle("bar");
        ExpectLine(0, Line::Selected);
        ASSERT_TRUE(Eventually([&] { return BarWidth() == 8; }));
    }
    void StartAndShowBar() {
        StartWithList();
        ShowBar();
    }

    [[nodiscard]] Spot OnScreen(const Spot& spot) const {
        const Place place = MainPlace().value_or(Place());
        return {place.left + spot.x, place.top + spot.y};
    }
    // By the darkest pixel of its letters, and the ground behind them.
    [[nodiscard]] Line LineIn(const Screenshot& shot, int index) const {
        constexpr int kPaper = 0xD0;
        constexpr int kDark = 0x80;
        const Spot middle = OnScreen(ListItem(index));
        const int left = OnScreen({kListLeft + kListEdge + 3, 0}).x;
        const int right = OnScreen({kWidth - 6, 0}).x;
        if (middle.y + 5 >= shot.height || right >= shot.width) {
            return Line::Empty;
        }
        const auto red = [&](int x, int y) { return static_cast<int>(shot.At(x, y) >> 16U); };
        if (red(right, middle.y) < kDark) {
            return Line::Selected;
        }
        int darkest = 0xFF;
        for (int y = middle.y - 5; y <= middle.y + 5; ++y) {
            for (int x = left; x < right; ++x) {
                darkest = std::min(darkest, red(x, y));
            }
        }
        return darkest > kPaper ? Line::Empty : darkest > kDark ? Line::Dimmed : Line::Plain;
    }
    // Those from the first one to the last one that is not empty.
    [[nodiscard]] std::vector<Line> Lines() const {
        constexpr int kMost = 14;
        const Screenshot shot = Look();
        std::vector<Line> lines;
        for (int i = 0; i < kMost; ++i) {
            lines.push_back(LineIn(shot, i));
        }
        while (!lines.empty() && lines.back() == Line::Empty) {
            lines.pop_back();
        }
        return lines;
    }
    [[nodiscard]] static std::string TextOf(const std::vector<Line>& lines) {
        std::string text;
        for (const Line line : lines) {
            text += ".,oX"[static_cast<int>(line)];
        }
        return text;
    }
    // Of one character each: "." empty, "," dimmed, "o" plain, "X" selected.
    void ExpectLines(const std::string& lines) {
        std::string seen;
        EXPECT_TRUE(Eventually([&] { return (seen = TextOf(Lines())) == lines; })) << seen;
    }
    void ExpectLine(int index, Line line) {
        ASSERT_TRUE(Eventually([&] { return LineIn(Look(), index) == line; })) << TextOf(Lines());
    }

    // The keys drive the camera: it goes up, and what is above the picture is black.
    void ExpectUpIsTheCameras(const std::string& title) {
        ASSERT_TRUE(Eventually([&] { return PictureSize().height == 240; }));
        display_.Do("keydown Up");
        EXPECT_TRUE(Eventually([&] { return PictureSize().height < 235; }));
        display_.Do("keyup Up");
        const int before = PictureSize().height;
        display_.Do("keydown Down");
        EXPECT_TRUE(Eventually([&] { return PictureSize().height > before; }));
        display_.Do("keyup Down");
        EXPECT_EQ(Title(), title);
    }

    // Its frame is as blue as what is selected.
    [[nodiscard]] bool FilterHasKeys() const {
        const Screenshot shot = Look();
        const Spot top = OnScreen({kListLeft + 80, kMenus - 2});
        for (int y = top.y; y < top.y + 6; ++y) {
            const std::uint32_t color = shot.At(top.x, y);
            if ((color & 0xFFU) > (color >> 16U) + 0x30) {
                return true;
            }
        }
        return false;
    }
    void GoToFilter() {
        Key("ctrl+f");
        ASSERT_TRUE(Eventually([&] { return FilterHasKeys(); }));
    }
    void ExpectFilterHasNoKeys() {
        EXPECT_TRUE(Eventually([&] { return !FilterHasKeys(); }));
    }

    [[nodiscard]] std::string Recent() const {
        const std::string all = Settings();
        const std::size_t begin = all.find("RecentFile = ");
        return begin == std::string::npos ? std::string() : all.substr(begin);
    }
    void ExpectRecent(const std::vector<std::string>& names) {
        std::string wanted;
        for (const std::string& name : names) {
            wanted += RecentFile(StagePath(name));
        }
        EXPECT_TRUE(Eventually([&] { return Recent() == wanted; })) << Recent();
    }

    // Of the pointer's right button, on that item.
    void OpenItemMenu(int index) {
        const Hands hands(display_.Name());
        MoveTo(OnScreen(ListItem(index)));
        display_.Do("click 3");
        ASSERT_TRUE(Eventually([&] {
            program_->TakePriorityBack();
            return std::ranges::any_of(hands.WindowsOf(program_->Number()), [](const auto& window) {
                return window.kind == ProgramWindow::Kind::Popup;
            });
        }));
    }
};

// --- what it has ---

TEST_F(StageListTest, HasTheStagesOfAllFoldersInNaturalOrder) {
    // As a collection has them: the names of files and folders, and of the stages in them.
    WriteStage("Cave/cave", "dot cave");
    WriteStage("cave/deep/hall", "dot hall");
    WriteStage("dot10", "dot 10");
    WriteStage("dot2", "dot 2");
    WriteStage("zoo/ape", "dot ape");
    StartWithList();
    ExpectLines("oooooooo");
    for (const char* const title :
         {"bar", "dot cave", "dot hall", "cup", "dot", "dot 2", "dot 10", "dot ape"}) {
        Key("Down");
        ExpectTitle(title);
    }
    ExpectLines("oooooooX");
}

class FollowingFolder : public StageListTest, public testing::WithParamInterface<bool> {};

TEST_P(FollowingFolder, ShowsWhatComesMovesAndGoes) {
    StartWithList();
    ClickListItem(2);
    ExpectTitle("dot");
    ExpectLines("ooX");
    Hands hands(display_.Name());
    const bool isInFront = GetParam();
    if (!isInFront) {
        const auto main = static_cast<xcb_window_t>(std::stoul(MainWindow()));
        hands.ShowOther({0, 0, 200, 100});
        ASSERT_TRUE(Eventually([&] {
            return hands.ActiveWindow() != main && hands.ActiveWindow() != XCB_WINDOW_NONE;
        }));
    }

    fs::copy_file(StagePath("cup"), StagePath("bee"));
    ExpectLines("oooX");
    fs::rename(StagePath("bee"), StagePath("eel"));
    ExpectLines("ooXo");
    WriteStage("den/den", "dot den");
    ExpectLines("oooXo");
    fs::rename(fs::path(StagePath("den/den")).parent_path(),
               fs::path(StagePath("zoo/den")).parent_path());
    ExpectLines("ooXoo");
    fs::remove(StagePath("bar"));
    ExpectLines("oXoo");
    std::ofstream(StagePath("ant")) << "notes\n";
    ExpectLines(",oXoo");
    fs::remove_all(fs::path(StagePath("zoo/den")).parent_path());
    ExpectLines(",oXo");
    EXPECT_EQ(Title(), "dot") << "it goes on";

    hands.CloseOther();
    ExpectWindow("^dot$");
    ClickListItem(3);
    ExpectTitle("cup");
    ExpectNoBox();
}

INSTANTIATE_TEST_SUITE_P(StageListTest, FollowingFolder, testing::Bool(),
                         [](const auto& test) { return test.param ? "InFront" : "InTheBack"; });

// --- its keys ---

TEST_F(StageListTest, KeysThatStepOpen) {
    constexpr int kLast = 40;
    for (int i = 2; i <= kLast; ++i) {
        WriteStage("dot" + std::to_string(i), "dot " + std::to_string(i));
    }
    StartWithList();
    Key("Down");
    ExpectTitle("bar");
    Key("Down");
    ExpectTitle("cup");
    Key("Up");
    ExpectTitle("bar");
    Key("Page_Down");
    const auto number = [&] { return std::atoi(Title().substr(3).c_str()); };
    EXPECT_TRUE(Eventually([&] { return number() > 8; })) << "as many as are seen: " << Title();
    EXPECT_LT(number(), 25);
    Key("End");
    ExpectTitle("dot 40");
    Key("Down");
    Key("Page_Up");
    EXPECT_TRUE(Eventually([&] { return number() < 33 && number() > 15; })) << Title();
    Key("Home");
    ExpectTitle("bar");
    Key("Up");
    Key("Down");
    ExpectTitle("cup");
}

TEST_F(StageListTest, AHeldKeyGoesToTheLastStage) {
    for (int i = 2; i <= 30; ++i) {
        WriteStage("dot" + std::to_string(i), "dot " + std::to_string(i));
    }
    std::ofstream(StagePath("bee")) << "[Info]\nname = notes\n";
    StartWithList();
    ExpectLine(1, Line::Dimmed);
    display_.Do("keydown Down");
    ExpectTitle("dot 30");
    display_.Do("keyup Down");
    ExpectNewest("dot30");
    EXPECT_EQ(Title(), "dot 30");
    ExpectNoBox();
    display_.Do("keydown Up");
    ExpectTitle("bar");
    display_.Do("keyup Up");
    ExpectNoBox();
}

TEST_F(StageListTest, ANewerChoiceEndsALoad) {
    constexpr std::size_t kPictures = 12'000;
    samplemaker::Canvas canvas(64, 64);
    samplemaker::Sff1Subfile subfile;
    subfile.data = samplemaker::WritePcx(canvas.ToPicture(samplemaker::Palette{}));
    const std::vector<std::byte> archive = samplemaker::WriteSff1({kPictures, subfile});
    std::ofstream(Folder() / "mugen/stages/dot.sff", std::ios::binary)
        .write(reinterpret_cast<const char*>(archive.data()),
               static_cast<std::streamsize>(archive.size()));
    std::ofstream(StagePath("dot"))
        << "[Info]\nname = dot\n[Camera]\nboundleft = -9\n[BGdef]\nspr = stages/dot.sff\n";
    StartAndShowBar();
    ClickListItem(2);
    EXPECT_TRUE(Eventually([&] { return Title() != "bar"; }));
    Key("Up");
    ExpectTitle("cup");
    ExpectLines("oXo");
    Key("End");
    Key("Home");
    ExpectTitle("bar");
    ExpectLines("Xoo");
    ExpectNewest("bar");
    EXPECT_THAT(Recent(), Not(HasSubstr(StagePath("dot"))));
}

TEST_F(StageListTest, LettersSelectAndEnterOpens) {
    StartAndShowBar();
    Key("d");
    ExpectLines("ooX");
    EXPECT_EQ(Title(), "bar");
    Key("Return");
    ExpectTitle("dot");
    Key("c");
    ExpectLines("oXo");
    Key("Escape");
    ExpectLines("ooX");
    ExpectUpIsTheCameras("dot");
}

TEST_F(StageListTest, AClickIntoThePictureTakesItsKeys) {
    StartAndShowBar();
    Key("Down");
    ExpectTitle("cup");
    ClickAt(100, 150);
    ExpectUpIsTheCameras("cup");
}

TEST_F(StageListTest, LeftAndRightMoveTheCameraAllTheSame) {
    StartAndShowBar();
    const int start = BarLeft();
    display_.Do("keydown Right");
    EXPECT_TRUE(Eventually([&] { return BarLeft() < start - 20; }));
    display_.Do("keyup Right");
    const int right = BarLeft();
    display_.Do("keydown Left");
    EXPECT_TRUE(Eventually([&] { return BarLeft() > right + 10; }));
    display_.Do("keyup Left");
    Key("Down");
    ExpectTitle("cup");
}

// --- its filter ---

TEST_F(StageListTest, TheFilterFindsByNameFolderAndAuthor) {
    WriteStage("cave/hall", "dot Hall", "author = \"Jane Mason\"\n");
    WriteStage("cave/lake", "dot Lake");
    StartAndShowBar();
    ExpectLines("Xoooo");  // bar, cave/hall, cave/lake, cup, dot
    GoToFilter();
    struct Row {
        const char* words;
        const char* lines;
    };
    for (const Row& row : std::array<Row, 6>{{{"cup", "o"},
                                              {"CAVE", "oo"},
                                              {"mason jan", "o"},
                                              {"b r", "X"},
                                              {"lake cave", "o"},
                                              {"lake mason", ",,"}}}) {
        Key("ctrl+a");
        Type(row.words);
        ExpectLines(row.lines);
    }
    Key("ctrl+a");
    Key("BackSpace");
    ExpectLines("Xoooo");
    EXPECT_EQ(Title(), "bar") << "not paused";
}

TEST_F(StageListTest, FromTheFilterKeysStepAndEnterOpens) {
    WriteStage("dot2", "dot 2");
    StartAndShowBar();
    GoToFilter();
    Type("d");
    ExpectLines("oo");
    Key("Down");
    ExpectTitle("dot");
    ExpectLines("Xo");
    Key("Down");
    ExpectTitle("dot 2");
    Type("x");
    ExpectLines(",,");
    EXPECT_EQ(Title(), "dot 2");
    Key("Escape");
    ExpectFilterHasNoKeys();
    ExpectUpIsTheCameras("dot 2");

    GoToFilter();  // its words are selected
    Type("cu");
    ExpectLines("o");
    Key("Return");
    ExpectTitle("cup");
    ExpectLines("X");
    ExpectFilterHasNoKeys();
    ExpectUpIsTheCameras("cup");
    Key("space");
    ExpectTitle("cup <<PAUSED>>");
}

TEST_F(StageListTest, CtrlFShowsTheListWhereItIsHidden) {
    WriteSettings();
    Start({}, StagePath("bar"));
    ExpectTitle("bar");
    display_.Do("windowsize --sync " + MainWindow() + " 480 304");
    GoToFilter();
    Type("do");
    ExpectLines("o");
    Key("Return");
    ExpectTitle("dot");
}

// --- the menu of an item ---

TEST_F(StageListTest, TheRightButtonOpensNothingButAMenu) {
    StartAndShowBar();
    OpenItemMenu(1);
    EXPECT_EQ(Title(), "bar");
    Key("Escape");
    ExpectLines("Xoo");
    EXPECT_EQ(Title(), "bar");
    OpenItemMenu(1);
    Key("o");
    ExpectTitle("cup");
    ExpectLines("oXo");
}

TEST_F(StageListTest, ItsMenuCopiesThePath) {
    StartAndShowBar();
    OpenItemMenu(2);
    Key("c");
    ExpectLines("Xoo");
    Key("ctrl+o");
    ExpectWindow("^Choose your stage!");
    Key("ctrl+v");
    Key("Return");
    ExpectTitle("dot");
}

class OpeningFolder : public StageListTest {
protected:
    // Programs are found in a folder of the test's own.
    void SetUp() override {
        StageListTest::SetUp();
        fs::create_directories(Folder() / "found");
        environment_.push_back("PATH=" + display_.Folder() + "found");
        WriteStage("cave/hall", "dot Hall");
    }
    [[nodiscard]] std::string Opened() const {
        std::ifstream file(Folder() / "opened.txt", std::ios::binary);
        std::string line;
        std::getline(file, line);
        return line;
    }
};

TEST_F(OpeningFolder, ShowsIt) {
    const fs::path opener = Folder() / "found/xdg-open";
    std::ofstream(opener) << "#!/bin/sh\necho \"$1\" >" << display_.Folder() << "opened.txt\n";
    fs::permissions(opener, fs::perms::owner_all);
    StartAndShowBar();
    OpenItemMenu(1);
    Key("f");
    EXPECT_TRUE(Eventually([&] { return !Opened().empty(); }));
    EXPECT_THAT(Opened(), HasSubstr(display_.Folder() + "mugen/stages/cave"));
    EXPECT_THAT(Opened(), Not(HasSubstr("hall")));
    ExpectNoBox();
    EXPECT_EQ(Title(), "bar");
}

TEST_F(OpeningFolder, SaysThatNothingCanShowIt) {
    StartAndShowBar();
    OpenItemMenu(1);
    Key("f");
    ExpectBox();
    Key("Return");
    ExpectNoBox();
    EXPECT_EQ(Title(), "bar");
}

// --- its edge ---

TEST_F(StageListTest, ItsEdgeIsDraggedAndStays) {
    constexpr int kWider = 80;
    StartAndShowBar();
    MoveTo(OnScreen({kListLeft + 2, 150}));
    display_.Do("mousedown 1");
    MoveTo(OnScreen({kListLeft + 2 - kWider, 160}));
    EXPECT_TRUE(Eventually([&] { return PictureSize().width == kListLeft - kWider; }));
    display_.Do("mouseup 1");
    MoveTo(OnScreen({kListLeft - 200, 160}));
    Key("alt+F4");
    ASSERT_EQ(WaitForEnd(), 0);
    Start();
    ExpectMainWindow(kWidth);
    Key("Down");
    ExpectTitle("bar");
    EXPECT_TRUE(Eventually([&] { return PictureSize().width == kListLeft - kWider; }))
        << PictureSize().width;
}

// --- leafing through it ---

TEST_F(StageListTest, WhatIsPassedBySaysNothingAndIsNotRemembered) {
    BreakStage("cup");
    StartWithList();
    const Hands hands(display_.Name());
    for (int i = 0; i < 3; ++i) {
        hands.Press("Down");
    }
    ExpectTitle("dot");
    ExpectRecent({"dot"});
    EXPECT_TRUE(Box().empty());
    Key("Up");
    ExpectBox();
    Key("Return");
    ExpectNoBox();
    ExpectTitle("cup");
    ExpectRecent({"cup", "dot"});
}

// --- what is opened elsewhere ---

class OpenedElsewhere : public StageListTest {
protected:
    // The list has the keys before.
    void SetUp() override {
        StageListTest::SetUp();
        StartAndShowBar();
    }
};

TEST_F(StageListTest, WhatTheStartOpensHasTheKeys) {
    StartWithList(StagePath("bar"));
    ExpectWindow("^bar$");
    ExpectUpIsTheCameras("bar");
}

TEST_F(OpenedElsewhere, ByTheDialogItHasTheKeys) {
    Key("ctrl+o");
    ExpectWindow("^Choose your stage!");
    Type(StagePath("cup"));
    Key("Return");
    ExpectTitle("cup");
    ExpectUpIsTheCameras("cup");
}

TEST_F(OpenedElsewhere, ByADropItHasTheKeys) {
    Drop drop(display_.Name(), static_cast<xcb_window_t>(std::stoul(MainWindow())),
              OnScreen({100, 150}), {Drop::UriOf(StagePath("cup"))});
    EXPECT_TRUE(Eventually([&] {
        program_->TakePriorityBack();
        return drop.Look() == Drop::State::Taken;
    }));
    ExpectTitle("cup");
    ExpectUpIsTheCameras("cup");
}

}  // namespace
}  // namespace scenara::test
