// SPDX-License-Identifier: MIT
//
// Files that are dragged from another program and dropped onto the window.
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "desktop/DesktopProgram.h"
#include "desktop/Drop.h"

namespace scenara::test {
namespace {

namespace fs = std::filesystem;

constexpr int kBarMiddle = 10;
constexpr int kNext = 250;

class Dropping : public DesktopProgram {
protected:
    void SetUp() override {
        DesktopProgram::SetUp();
        StartWithBar();
    }

    // Onto the middle of the window; how that ends.
    Drop::State Result(const std::vector<std::string>& uris) const {
        const Place place = MainPlace().value_or(Place());
        Drop drop(display_.Name(), static_cast<xcb_window_t>(std::stoul(MainWindow())),
                  {place.left + place.width / 2, place.top + place.height / 2}, uris);
        Drop::State state = Drop::State::Offered;
        static_cast<void>(Eventually([&] {
            program_->TakePriorityBack();
            state = drop.Look();
            return state == Drop::State::Taken || state == Drop::State::Refused;
        }));
        return state;
    }
    [[nodiscard]] Drop::State ResultOfPaths(const std::vector<std::string>& paths) const {
        std::vector<std::string> uris;
        for (const std::string& path : paths) {
            uris.push_back(Drop::UriOf(path));
        }
        return Result(uris);
    }
    void ExpectSaved(const std::string& line) {
        EXPECT_TRUE(Eventually([&] { return Settings().find(line) != std::string::npos; }))
            << Settings();
    }
};

TEST_F(Dropping, AStageOpens) {
    EXPECT_EQ(ResultOfPaths({StagePath("cup")}), Drop::State::Taken);
    ExpectTitle("cup");
    EXPECT_EQ(ResultOfPaths({StagePath("dot")}), Drop::State::Taken) << "once more";
    ExpectTitle("dot");
}

TEST_F(Dropping, OfSeveralFilesTheFirstOneOpens) {
    ExpectNewest("bar");
    EXPECT_EQ(ResultOfPaths({StagePath("dot"), StagePath("cup")}), Drop::State::Taken);
    ExpectTitle("dot");
    ExpectSaved("RecentFile = " + StagePath("dot") + "\r\nRecentFile = " + StagePath("cup") +
                "\r\nRecentFile = " + StagePath("bar") + "\r\n");
}

TEST_F(Dropping, AFolderFillsTheList) {
    fs::create_directories(Folder() / "other/stages");
    fs::copy_file(StagePath("dot"), Folder() / "other/stages/more.def");
    fs::copy_file(Folder() / "mugen/stages/bar.sff", Folder() / "other/stages/bar.sff");
    EXPECT_EQ(ResultOfPaths({display_.Folder() + "other"}), Drop::State::Taken);
    ExpectSaved("MugeDir = " + display_.Folder() + "other/\r\n");
    EXPECT_EQ(Title(), "bar") << "it goes on";
    ClickAt(kNext, kBarMiddle);
    ExpectTitle("dot");
}

TEST_F(Dropping, NamesOfAnyBytesAreOpened) {
    const std::string odd = display_.Folder() + "mugen/stages/50%25 #?\xFF\n'.def";
    fs::copy_file(StagePath("cup"), odd);
    EXPECT_EQ(ResultOfPaths({odd}), Drop::State::Taken);
    ExpectTitle("cup");
}

TEST_F(Dropping, WhatLiesElsewhereIsLeftOut) {
    EXPECT_EQ(Result({"https://example.org/cup.def"}), Drop::State::Refused);
    EXPECT_EQ(Result({}), Drop::State::Refused);
    EXPECT_EQ(Result({"https://example.org/dot.def", Drop::UriOf(StagePath("cup"))}),
              Drop::State::Taken);
    ExpectTitle("cup");
}

TEST_F(Dropping, WhileABoxIsOpenNothingIsTaken) {
    Key("alt+a");
    Key("a");
    ExpectBox();
    EXPECT_EQ(ResultOfPaths({StagePath("cup")}), Drop::State::Refused);
    EXPECT_FALSE(Box().empty());
    Key("Return");
    ExpectNoBox();
    EXPECT_EQ(Title(), "bar");
    EXPECT_EQ(ResultOfPaths({StagePath("cup")}), Drop::State::Taken);
    ExpectTitle("cup");
}

}  // namespace
}  // namespace scenara::test
