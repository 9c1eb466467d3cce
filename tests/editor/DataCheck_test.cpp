// SPDX-License-Identifier: MIT
#include "editor/DataCheck.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "editor/ElementList.h"
#include "render/ExpectError.h"
#include "render/PrepareStage.h"
#include "support/MemoryFiles.h"
#include "support/StageFixture.h"

namespace scenara {
namespace {

namespace fs = std::filesystem;
using test::ExpectError;
using test::MemoryFiles;
using test::StageMachine;

// --- numbers ---

TEST(DumpNumber, HasNoZeroBeforeTheStop) {
    EXPECT_EQ(DumpNumber(0.5F), ".5");
    EXPECT_EQ(DumpNumber(-0.5F), "-.5");
    EXPECT_EQ(DumpNumber(0.0625F), ".0625");
    EXPECT_EQ(DumpNumber(-0.1F), "-.1");
}

TEST(DumpNumber, IsTheShortestOtherwise) {
    EXPECT_EQ(DumpNumber(0), "0");
    EXPECT_EQ(DumpNumber(-0.0F), "0");
    EXPECT_EQ(DumpNumber(1), "1");
    EXPECT_EQ(DumpNumber(-1), "-1");
    EXPECT_EQ(DumpNumber(10.5F), "10.5");
    EXPECT_EQ(DumpNumber(-20.25F), "-20.25");
    EXPECT_EQ(DumpNumber(1.1115F), "1.1115");
}

// --- the text ---

constexpr const char* kStage =
    "[Info]\n"
    "name = \"Quay\"\n"
    "[Begin Action 5]\n"
    "3,1, -4,12, 7\n"
    "loopstart\n"
    "3,2, 0,0, -1, h\n"
    "[Begin Action 6]\n"
    "[Begin Action -7]\n"
    "100000,0,0,0,5\n"
    "[BGdef]\n"
    "spr = none.sff\n"
    "[BG Far sky]\n"
    "type = normal\n"
    "spriteno = 1, 2\n"
    "start = -160, 20\n"
    "delta = .5, -.25\n"
    "mask = 1\n"
    "[BG]\n"
    "type = anim\n"
    "actionno = 5\n"
    "layerno = 1\n"
    "[BG tail]\n"
    "type = parallax\n"
    "actionno = 9\n"
    "positionlink = 1\n"
    "delta = 2\n";

constexpr const char* kDump =
    "\r\n"
    "[Begin action 5]\r\n"
    "3,1,-4,12,7\r\n"
    "3,2,0,0,-1,h\r\n"
    "\r\n"
    "[Begin action -7]\r\n"
    "100000,0,0,0,5\r\n"
    "[BG Far sky]\r\n"
    "type = normal\r\n"
    "actionno = 0\r\n"
    "layerno = 0\r\n"
    "spriteno = 1,2\r\n"
    "start = -160,20\r\n"
    "delta = .5,-.25\r\n"
    "mask = 1\r\n"
    "\r\n"
    "[BG No name]\r\n"
    "type = anim\r\n"
    "actionno = 5\r\n"
    "layerno = 1\r\n"
    "spriteno = 0,0\r\n"
    "start = 0,0\r\n"
    "delta = 1,1\r\n"
    "mask = 1\r\n"
    "\r\n"
    "[BG tail]\r\n"
    "type = parallax\r\n"
    "actionno = 9\r\n"
    "layerno = 0\r\n"
    "spriteno = 0,0\r\n"
    "start = 0,0\r\n"
    "delta = 2,1\r\n"
    "mask = 0\r\n"
    "\r\n";

// A stage that is ready for its first frame.
std::unique_ptr<StageMachine> Loaded(const std::string& definition, bool additions = false) {
    auto machine = std::make_unique<StageMachine>();
    machine->view.Additions = additions;
    EXPECT_TRUE(machine->Load(definition));
    Camera camera;
    PlaceCamera(machine->model, camera, View());
    PrepareElements(machine->model, machine->view, View());
    return machine;
}

TEST(DataCheckText, IsThatOfItsActionsAndElements) {
    EXPECT_EQ(DataCheckText(Loaded(kStage)->model, false), kDump);
}

TEST(DataCheckText, OfAnEmptyStageIsEmpty) {
    EXPECT_EQ(DataCheckText(StageModel(), false), "");
}

TEST(DataCheckText, HasTheElementsOwnDeltaOfALinkedElement) {
    const auto machine = Loaded(kStage);
    EXPECT_EQ(machine->model.Elements[2].deltaX, 1) << "it moves with the element it is linked to";
    EXPECT_NE(DataCheckText(machine->model, false)
                  .find("[BG tail]\r\ntype = parallax\r\nactionno = 9\r\n"
                        "layerno = 0\r\nspriteno = 0,0\r\nstart = 0,0\r\n"
                        "delta = 2,1\r\n"),
              std::string::npos);
}

TEST(DataCheckText, HasTheFilesOwnNumbersOfAScaledStage) {
    const auto machine = Loaded(
        "[StageInfo]\nhires = 1\n[BG a]\ntype = normal\nstart = 101, 7\ndelta = .3, .7\n", true);
    EXPECT_EQ(DataCheckText(machine->model, false),
              "[BG a]\r\ntype = normal\r\nactionno = 0\r\nlayerno = 0\r\nspriteno = 0,0\r\n"
              "start = 101,7\r\ndelta = .3,.7\r\nmask = 0\r\n\r\n");
}

TEST(DataCheckText, HasMinusOneForAnActionThatIsNotThere) {
    EXPECT_NE(DataCheckText(Loaded("[BG a]\ntype = anim\nactionno = 44\n")->model, false)
                  .find("actionno = -1\r\n"),
              std::string::npos);
}

TEST(DataCheckText, HasWithAdditionsTheKeyForPicturesThatCountsAndFractions) {
    const std::string text =
        DataCheckText(Loaded("[BG a]\ntype = normal\nactionno = 4\nstart = 1.5,-.25\n"
                             "[BG b]\ntype = parallax\nspriteno = 2,3\n"
                             "[BG c]\ntype = parallax\nspriteno = 2,3\nactionno = 4\n"
                             "[Begin Action 4]\n1,0, -2.5,7, 3\n",
                             true)
                          ->model,
                      true);
    EXPECT_EQ(text,
              "\r\n[Begin action 4]\r\n1,0,-2.5,7,3\r\n"
              "[BG a]\r\ntype = normal\r\nactionno = 4\r\nlayerno = 0\r\nstart = 1.5,-.25\r\n"
              "delta = 1,1\r\nmask = 1\r\n\r\n"
              "[BG b]\r\ntype = parallax\r\nlayerno = 0\r\nspriteno = 2,3\r\nstart = 0,0\r\n"
              "delta = 1,1\r\nmask = 0\r\n\r\n"
              "[BG c]\r\ntype = parallax\r\nactionno = 4\r\nlayerno = 0\r\nstart = 0,0\r\n"
              "delta = 1,1\r\nmask = 1\r\n\r\n");
}

TEST(DataCheckText, ShowsWhatTheEditorHasDone) {
    const auto machine = Loaded(kStage);
    SwapElements(machine->model, 0, 2);
    DeleteElement(machine->model, 1);
    machine->model.Elements[0].layerno = 1;
    const std::string text = DataCheckText(machine->model, false);
    const std::size_t tail = text.find("[BG tail]");
    EXPECT_LT(tail, text.find("[BG Far sky]"));
    EXPECT_EQ(text.find("[BG No name]"), std::string::npos);
    EXPECT_LT(text.find("layerno = 1"), text.find("layerno = 0"));
}

TEST(DataCheckText, KeepsBytesAsTheyAre) {
    StageModel model;
    model.Elements.emplace_back().name = "Caf\xE9 \x81";
    EXPECT_TRUE(DataCheckText(model, false).starts_with("[BG Caf\xE9 \x81]\r\n"));
}

TEST(DataCheckText, OfAnActionOutOfTheTableIsAnError) {
    StageModel model;
    model.Elements.emplace_back().kind = ElementKind::Animated;
    model.Elements[0].actionIndex = 3;
    ExpectError(RunTimeErrorKind::SubscriptOutOfRange,
                [&] { static_cast<void>(DataCheckText(model, false)); });
}

TEST(DataCheckText, HoldsTheLargestAndSmallestNumbers) {
    StageModel model;
    BackgroundElement& element = model.Elements.emplace_back();
    element.name = "x";
    element.type = "normal";
    element.actionIndex = -32768;
    element.layerno = 32767;
    element.spriteGroup = -2147483647 - 1;
    element.spriteImage = -1;
    element.startX = 2147483647;
    element.startY = -2147483647 - 1;
    EXPECT_EQ(DataCheckText(model, false),
              "[BG x]\r\ntype = normal\r\nactionno = -32768\r\nlayerno = 32767\r\n"
              "spriteno = -2147483648,-1\r\nstart = 2147483647,-2147483648\r\ndelta = 1,1\r\n"
              "mask = 0\r\n\r\n");
}

// --- the file ---

TEST(DataCheck, WritesTheTextIntoTheProgramsFolder) {
    MemoryFiles files;
    files.Put("/program/chek.txt", "what was there before, and longer than all of the new text");
    const auto machine = Loaded("[BG a]\ntype = normal\n");
    EXPECT_EQ(DataCheck(machine->model, false, files), "/program/chek.txt");
    EXPECT_EQ(files.Get("/program/chek.txt"), DataCheckText(machine->model, false));
    EXPECT_EQ(DataCheckCaption("/program/chek.txt"), "Dumped to /program/chek.txt");
}

RunTimeErrorKind ErrorOf(MemoryFiles& files) {
    const auto machine = Loaded(kStage);
    try {
        static_cast<void>(DataCheck(machine->model, false, files));
    } catch (const RunTimeError& error) {
        return error.Kind();
    }
    ADD_FAILURE() << "nothing was raised";
    return RunTimeErrorKind::Overflow;
}

TEST(DataCheck, ThatCannotBeOpenedWrittenOrClosedIsAnError) {
    MemoryFiles refusing;
    refusing.Refuse(DataCheckPath(refusing));
    EXPECT_EQ(ErrorOf(refusing), RunTimeErrorKind::PathFileAccess);
    MemoryFiles full;
    full.FillDisk();
    EXPECT_EQ(ErrorOf(full), RunTimeErrorKind::DiskFull);
    MemoryFiles lost;
    lost.FailAtClose();
    EXPECT_EQ(ErrorOf(lost), RunTimeErrorKind::DiskFull);
}

// --- read again ---

// All that the dump holds of a stage.
std::vector<std::string> Held(const StageModel& model) {
    std::vector<std::string> fields;
    const auto add = [&](const std::string& what, const auto& value) {
        std::ostringstream text;
        text.precision(9);
        text << what << " " << value;
        fields.push_back(text.str());
    };
    for (const StageAction& action : model.Actions) {
        if (action.frameCount == 0) {
            continue;
        }
        add("action", action.actionNo);
        for (const StageFrame& frame : action.frames) {
            add("group", frame.group);
            add("image", frame.image);
            add("x", frame.offsetX);
            add("y", frame.offsetY);
            add("time", frame.time);
            add("flip", frame.flip);
        }
    }
    for (const BackgroundElement& element : model.Elements) {
        add("name", element.name);
        add("type", element.type);
        const bool named = element.type == "anim" && element.actionIndex != -1;
        add("actionno",
            named ? model.Actions.at(static_cast<std::size_t>(element.actionIndex)).actionNo
                  : element.actionIndex);
        add("layerno", element.layerno);
        add("group", element.spriteGroup);
        add("image", element.spriteImage);
        add("startX", element.startX);
        add("startY", element.startY);
        add("deltaX", element.deltaRead[0]);
        add("deltaY", element.deltaRead[1]);
        add("mask", element.mask);
    }
    return fields;
}

void ExpectReadsAgain(const std::string& definition, bool additions) {
    const auto first = Loaded(definition, additions);
    const auto again =
        Loaded("[Info]\r\nname = dump\r\n" + DataCheckText(first->model, additions), additions);
    EXPECT_EQ(Held(first->model), Held(again->model));
}

TEST(ReadAgain, TheDumpHoldsTheSameStage) {
    ExpectReadsAgain(kStage, false);
    ExpectReadsAgain(kStage, true);
}

TEST(ReadAgain, NamesAreWhatTheyWere) {
    const std::string stage =
        "[BG]\n[BG ]\n[BG  two blanks ]\n[BG a[b]\n[BG c]d]\n[BG [e]]\n[BG \"f\"]\n[BG it's]\n"
        "[BG Begin action 3]\n[BG Caf\xE9]\n[bg x = 1, 2]\n";
    EXPECT_EQ(Held(Loaded(stage)->model).size(), 11U * 11U);
    ExpectReadsAgain(stage, false);
    ExpectReadsAgain(stage, true);
}

TEST(ReadAgain, NumbersAreWhatTheyWere) {
    const std::string stage =
        "[Begin Action 32767]\n-1,-1,-32768,32767,-1\n"
        "[BG a]\ndelta = -.0001, 123456.789\nstart = 2147483647, -2147483648\n"
        "[BG b]\ndelta = .333333343, -.1\nspriteno = -5, 12\nlayerno = -3\nmask = 7\n";
    ExpectReadsAgain(stage, false);
    ExpectReadsAgain(stage, true);
}

// What is read back from the dump of a stage with odd values, each against what its file says.
TEST(ReadAgain, EveryFieldIsWhatTheFileSays) {
    const auto first = Loaded(
        "[Begin Action -32768]\n"
        "-1, -2, -3, -4, -5, hv\n"
        "32767, 12, 0, 7, 0\n"
        "[Begin Action 12]\n"
        "0,0,0,0,1\n"
        "[BG \"sky\", far]\n"
        "type = anim\nactionno = -32768\nlayerno = 1\nstart = -160, 7\ndelta = -.25, 0\n"
        "[BG  two  blanks ]\n"
        "type = normal\nspriteno = 3, 4\nstart = 0, -5\ndelta = 1.125, -1e-3\nmask = 1\n"
        "[BG a[b]\n"
        "type = parallax\nactionno = 77\nlayerno = -3\ndelta = .333333343, 20000\nmask = -1\n"
        "[BG]\n"
        "type = anim\nactionno = 12\nspriteno = -1, -1\n");
    const auto again = Loaded("[Info]\r\nname = dump\r\n" + DataCheckText(first->model, false));
    EXPECT_EQ(Held(again->model), Held(first->model));
    EXPECT_THAT(
        Held(again->model),
        testing::ElementsAre(
            "action -32768", "group -1", "image -2", "x -3", "y -4", "time -5", "flip hv",  //
            "group 32767", "image 12", "x 0", "y 7", "time 0", "flip ",                     //
            "action 12", "group 0", "image 0", "x 0", "y 0", "time 1", "flip ",             //
            "name \"sky\", far", "type anim", "actionno -32768", "layerno 1", "group 0", "image 0",
            "startX -160", "startY 7", "deltaX -0.25", "deltaY 0", "mask 1",  //
            "name  two  blanks ", "type normal", "actionno 0", "layerno 0", "group 3", "image 4",
            "startX 0", "startY -5", "deltaX 1.125", "deltaY -0.00100000005", "mask 1",  //
            "name a[b", "type parallax", "actionno 77", "layerno -3", "group 0", "image 0",
            "startX 0", "startY 0", "deltaX 0.333333343", "deltaY 20000", "mask -1",  //
            "name No name", "type anim", "actionno 12", "layerno 0", "group -1", "image -1",
            "startX 0", "startY 0", "deltaX 1", "deltaY 1", "mask 1"));
}

TEST(ReadAgain, WhatTheEditorHasDoneIsThere) {
    const auto first = Loaded(kStage);
    StageModel& model = first->model;
    SwapElements(model, 0, 1);
    CloneElement(model, 0);
    model.Elements[1].startX = -7;
    model.Elements[2].layerno = 1;
    const auto again = Loaded("[Info]\r\nname = dump\r\n" + DataCheckText(model, false));
    EXPECT_EQ(Held(again->model), Held(model));
    ASSERT_EQ(again->model.Elements.size(), 4U);
    EXPECT_EQ(again->model.Elements[1].name, "No name");
    EXPECT_EQ(again->model.Elements[1].startX, -7);
    EXPECT_EQ(again->model.Elements[2].name, "Far sky");
    EXPECT_EQ(again->model.Elements[2].layerno, 1);
}

// Every definition of a folder and the folders in it.
int ReadAll(const std::string& folder) {
    int count = 0;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(folder)) {
        if (entry.path().extension() != ".def") {
            continue;
        }
        SCOPED_TRACE(entry.path().filename().string());
        std::ifstream file(entry.path(), std::ios::binary);
        const std::string bytes{std::istreambuf_iterator<char>(file), {}};
        ExpectReadsAgain(bytes, false);
        ExpectReadsAgain(bytes, true);
        ++count;
    }
    return count;
}

TEST(ReadAgain, BundledStagesAreTheSame) {
    EXPECT_GT(ReadAll(SCENARA_BUNDLED_DATA "/stages"), 0);
}

TEST(ReadAgain, RealStagesAreTheSame) {
    const std::string folder = SCENARA_SAMPLE_DATA "/stages";
    if (!fs::exists(folder)) {
        GTEST_SKIP() << "no real MUGEN folder at " SCENARA_SAMPLE_DATA;
    }
    EXPECT_GT(ReadAll(folder), 0);
}

}  // namespace
}  // namespace scenara
