// SPDX-License-Identifier: MIT
//
// Edits while the stage is paused: with additions each is drawn at once, and only once.
#include <cstdint>
#include <ostream>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/ToolStage.h"

namespace scenara::test {
namespace {

// A wall stands still and covers the whole view. The two pictures are drawn over it.
constexpr const char* kBeforeAWall =
    "[Info]\nname = tools\n[Camera]\nboundleft = -100\nboundright = 100\n"
    "[BGdef]\nspr = stages/a.sff\n"
    "[BG wall]\ntype = normal\nspriteno = 0,1\nstart = 0,0\ndelta = 0,0\ntile = 1,1\n"
    "[BG one]\ntype = normal\nspriteno = 0,0\nstart = 0,0\ndelta = 1,1\n"
    "[BG two]\ntype = normal\nspriteno = 0,0\nstart = 50,20\ndelta = 1,1\n"
    "[BG three]\ntype = normal\nspriteno = 1,0\nstart = 52,22\ndelta = 1,1\n";

struct PausedEdit {
    const char* name;
    Act act;
    bool changesThePicture;
};

void PrintTo(const PausedEdit& edit, std::ostream* out) {
    *out << edit.name;
}

class PausedEdits : public Tools, public testing::WithParamInterface<PausedEdit> {
protected:
    using Pixels = std::vector<std::uint32_t>;

    explicit PausedEdits(bool additions = true) : Tools(additions, kBeforeAWall) {}

    void Edit() {
        Long frames = 0;
        WhileAIsShown({kEdit, Wait, All({ClickAt(211, 21), kPause, Tap(VirtualKey::Up)}), Wait,
                       [&] {
                           EXPECT_EQ(show.Editor().SelectedIndex(), 2);
                           before = sink.last;
                           frames = loop.TotalFrames;
                           GetParam().act(*this);
                       },
                       [&] {
                           LetGo(*this);
                           after = sink.last;
                           direct3D.Device()->BackBuffer()[0] = kMark;
                       },
                       Wait,
                       [&] {
                           mark = direct3D.Device()->BackBuffer()[0];
                           elements = model.ElementCount;
                           EXPECT_EQ(loop.TotalFrames, frames);
                       }});
        EXPECT_THAT(MessageTexts(), testing::IsEmpty());
    }

    // The pictures before the edit, after it, and after the back buffer got a mark that the next
    // drawing covers; and how many elements there are in the end.
    Pixels before;
    Pixels after;
    std::uint32_t mark = 0;
    Integer elements = 0;
    static constexpr std::uint32_t kMark = 0xFF12AB;
};

TEST_P(PausedEdits, AreDrawnOnceWithAdditions) {
    Edit();
    EXPECT_EQ(after != before, GetParam().changesThePicture);
    EXPECT_EQ(mark, kMark) << "and not again in the next pass";
}

class PlainPausedEdits : public PausedEdits {
protected:
    PlainPausedEdits() : PausedEdits(false) {}
};

TEST_P(PlainPausedEdits, WaitUntilTheStageGoesOn) {
    Edit();
    EXPECT_EQ(after, before);
    EXPECT_EQ(mark, kMark);
    EXPECT_EQ(elements, 4) << "keys do nothing";
}

const std::vector<PausedEdit> kEdits = {
    {"Drag",
     [](RunningStage& stage) {
         stage.program.Form_MouseDown(211, 21);
         stage.program.Form_MouseMove(231, 41);
     },
     true},
    {"Bar", [](RunningStage& stage) { stage.program.hscHScroll_Change(40); }, true},
    {"Click", ClickAt(161, 1), false},
    {"Up", Hold(VirtualKey::NumpadPlus), true},
    {"Delete", Hold(VirtualKey::Delete), true},
    {"ArrowKey", Hold(VirtualKey::Right), false},
    {"Nothing", Wait, false}};

std::string NameOf(const testing::TestParamInfo<PausedEdit>& edit) {
    return edit.param.name;
}

INSTANTIATE_TEST_SUITE_P(Of, PausedEdits, testing::ValuesIn(kEdits), NameOf);
INSTANTIATE_TEST_SUITE_P(Of, PlainPausedEdits, testing::ValuesIn(kEdits), NameOf);

}  // namespace
}  // namespace scenara::test
