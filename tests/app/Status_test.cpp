// SPDX-License-Identifier: MIT
#include "app/Status.h"

#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "RunningStage.h"

namespace scenara {

void PrintTo(const StatusBar& status, std::ostream* out) {
    *out << (status.visible ? "seen: " : "hidden: ") << status.stages << "|" << status.name << "|"
         << status.author << "|" << status.canvas << "|" << status.archivePath << "|"
         << status.archive << "|" << status.version << "|" << status.problems;
}

}  // namespace scenara

namespace scenara::test {
namespace {

constexpr const char* kArchivePath = "/mugen/stages/a.sff";
constexpr const char* kVersion = "SFF 1.01";

StatusBar OfStage(std::string name, std::string author = {}, std::string canvas = "320 x 240",
                  std::string problems = "No problems") {
    return {true,         {},      std::move(name), std::move(author),  std::move(canvas),
            kArchivePath, "a.sff", kVersion,        std::move(problems)};
}

StatusBar Stages(std::string count) {
    StatusBar status;
    status.visible = true;
    status.stages = std::move(count);
    return status;
}

struct Row {
    const char* name;
    std::string definition;
    StatusBar status;
};

std::ostream& operator<<(std::ostream& out, const Row& row) {
    return out << row.name;
}

constexpr const char* kRest =
    "[Camera]\nstartx = 0\n[BGdef]\nspr = stages/a.sff\n"
    "[BG wall]\ntype = normal\nspriteno = 0,0\n";

std::string Definition(const std::string& info, const std::string& rest = kRest) {
    return "[Info]\n" + info + rest;
}

class StatusOfStage : public Program, public testing::WithParamInterface<Row> {
protected:
    StatusOfStage() { files.Put("/mugen/stages/cut.sff", std::string("no whole header")); }
};

TEST_P(StatusOfStage, SaysWhatIsShown) {
    files.Put(kStageA, GetParam().definition);
    if (GetParam().status.archivePath != kArchivePath) {
        files.Delete(kArchivePath);  // it would be found by its stage's name
    }
    StatusBar status;
    WhileAIsShown({Wait, [&] { status = form.statusBar; }});
    EXPECT_EQ(status, GetParam().status);
}

StatusBar WithoutArchive() {
    StatusBar status = OfStage("Dock", {}, "320 x 240", "1 problem");
    status.archivePath.clear();
    status.archive.clear();
    status.version.clear();
    return status;
}

StatusBar WithBrokenArchive() {
    StatusBar status = OfStage("Dock", {}, "320 x 240", "1 problem");
    status.archivePath = "/mugen/stages/cut.sff";
    status.archive = "cut.sff";
    status.version.clear();
    return status;
}

const std::vector<Row>& Rows() {
    static const std::vector<Row> rows = {
        {"NameAndAuthor", Definition("name = \"Dock 9\"\nauthor = \"A. Painter\"\n"),
         OfStage("Dock 9", "by A. Painter")},
        {"NoAuthor", Definition("name = Dock\n"), OfStage("Dock")},
        {"AnEmptyAuthor", Definition("name = Dock\nauthor = \"\"\n"), OfStage("Dock")},
        {"AuthorOfAnotherSection", Definition("name = Dock\n[Music]\nauthor = x\n"),
         OfStage("Dock")},
        {"NoName", Definition("author = x\n"), OfStage("a.def", "by x")},
        {"ANameOfBlanks", Definition("name = \"  \"\n"), OfStage("a.def")},
        {"ALargeCanvas", Definition("name = Dock\n[StageInfo]\nlocalcoord = 1280,720\n"),
         OfStage("Dock", {}, "1280 x 720")},
        {"OneProblem", Definition("name = Dock\n", std::string(kRest) + "[BG x]\ntype = null\n"),
         OfStage("Dock", {}, "320 x 240", "1 problem")},
        {"Problems",
         Definition("name = Dock\n", std::string(kRest) + "[BG x]\ntype = null\n[BG y]\n"
                                                          "type = null\n"),
         OfStage("Dock", {}, "320 x 240", "2 problems")},
        {"NoArchive", Definition("name = Dock\n", "[Camera]\n[BGdef]\nspr = gone.sff\n"),
         WithoutArchive()},
        {"AnArchiveWithoutAHeader",
         Definition("name = Dock\n", "[Camera]\n[BGdef]\nspr = cut.sff\n"), WithBrokenArchive()},
        {"AnEndlessName", Definition("name = " + std::string(100000, 'x') + "\n"),
         OfStage(std::string(500, 'x'))},
    };
    return rows;
}

INSTANTIATE_TEST_SUITE_P(On, StatusOfStage, testing::ValuesIn(Rows()),
                         [](const auto& row) { return row.param.name; });

using Status = Program;

TEST_F(Status, WithoutAStageSaysHowManyThereAre) {
    static_cast<void>(program.Form_Idle());
    EXPECT_EQ(form.statusBar, Stages("3 stages"));
    WhileAIsShown({Wait, Choose(Menu::mnuClose)});
    static_cast<void>(program.Form_Idle());
    EXPECT_EQ(form.statusBar, Stages("3 stages")) << "closed";
}

TEST_F(Status, OfOneStageInTheListThereIsNoPlural) {
    form.lstStages.items.resize(1);
    form.lstStages.total = 1;
    static_cast<void>(program.Form_Idle());
    EXPECT_EQ(form.statusBar.stages, "1 stage");
}

TEST_F(Status, SaysWhatTheFilterLeavesAndThatThereAreMore) {
    form.lstStages.items.resize(1);
    static_cast<void>(program.Form_Idle());
    EXPECT_EQ(form.statusBar.stages, "1 of 3 stages");
    form.lstStages.items.clear();
    form.lstStages.isCut = true;
    static_cast<void>(program.Form_Idle());
    EXPECT_EQ(form.statusBar.stages, "0 of 3 stages, and more that are not listed");
}

TEST_F(Status, AnEmptyListHasNothingToSay) {
    form.lstStages.items.clear();
    form.lstStages.total = 0;
    static_cast<void>(program.Form_Idle());
    EXPECT_EQ(form.statusBar, Stages(""));
}

TEST_F(Status, WhileAStageLoadsItIsCalledAsItsFileIs) {
    StatusBar loading;
    WhileAIsShown({Wait}, Once([&] {
                      static_cast<void>(program.Form_Idle());
                      loading = form.statusBar;
                  }));
    StatusBar expected;
    expected.visible = true;
    expected.name = "a.def";
    EXPECT_EQ(loading, expected);
}

TEST_F(Status, AnotherStageTakesThePlaceOfTheFirst) {
    std::vector<std::string> names;
    const auto note = [&] { names.push_back(form.statusBar.name); };
    WhileAIsShown({Wait, note, Select(kItemC), Wait, note});
    EXPECT_EQ(names, (std::vector<std::string>{"first", "third"}));
}

TEST_F(Status, WithoutAdditionsThereIsNone) {
    StatusBar plain;
    StatusBar again;
    WhileAIsShown({Wait, Choose(Menu::mnuAdditions), Wait, [&] { plain = form.statusBar; },
                   Choose(Menu::mnuAdditions), Wait, [&] { again = form.statusBar; }});
    EXPECT_EQ(plain, StatusBar());
    EXPECT_EQ(again, OfStage("first"));
}

TEST(PlainStatus, IsNeverSeen) {
    RunningStage stage({}, false);
    stage.Load();
    static_cast<void>(stage.program.Form_Idle());
    EXPECT_EQ(stage.form.statusBar, StatusBar());
}

// It has to have its place before the window is measured for the first time.
TEST_F(NewProgram, TheStatusLineIsThereWhenTheWindowComesUp) {
    Load();
    EXPECT_TRUE(form.statusBar.visible);
}

}  // namespace
}  // namespace scenara::test
