// SPDX-License-Identifier: MIT
//
// The editing keys, their captions and their gate.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "editor/EditedStage.h"
#include "render/ExpectError.h"
#include "support/AllocationCount.h"

namespace scenara {
namespace {

using test::EditedStage;
using test::ExpectError;
using testing::ElementsAre;
using testing::IsEmpty;

class EditingKeys : public testing::Test {
protected:
    EditingKeys() {
        const Integer square = stage.Square();
        for (const char* name : {"sky", "hill", "wall", "floor"}) {
            stage.Named(name, square, 0, 0);
        }
        stage.Start();
    }

    void Press(VirtualKey key) { stage.Press(key); }
    Integer Layer(std::size_t index) { return stage.Element(index).layerno; }

    EditedStage stage;
};

// --- numpad plus ---

using NumpadPlus = EditingKeys;

TEST_F(NumpadPlus, MovesTheElementUpAndSaysWhereItIs) {
    stage.editor.Select(0);
    Press(VirtualKey::NumpadPlus);
    EXPECT_EQ(stage.Names(), "hill sky wall floor");
    EXPECT_EQ(stage.editor.SelectedIndex(), 1);
    Press(VirtualKey::NumpadPlus);
    EXPECT_EQ(stage.Names(), "hill wall sky floor");
    EXPECT_THAT(stage.captions, ElementsAre("\"sky\" - Background Element #2/4",
                                            "\"sky\" - Background Element #3/4"));
}

TEST_F(NumpadPlus, BringsTheLastElementToTheFrontLayerInstead) {
    stage.editor.Select(3);
    Press(VirtualKey::NumpadPlus);
    EXPECT_EQ(stage.Names(), "sky hill wall floor");
    EXPECT_EQ(stage.editor.SelectedIndex(), 3);
    EXPECT_EQ(Layer(3), 1);
    Press(VirtualKey::NumpadPlus);
    EXPECT_EQ(Layer(3), 1);
    EXPECT_THAT(stage.captions, IsEmpty());
}

TEST_F(NumpadPlus, TakesTheDraggedElementAlong) {
    stage.editor.MouseDown({0, 0});  // the floor, on top of the others
    EXPECT_EQ(stage.editor.FollowedIndex(), 3);
    Press(VirtualKey::NumpadMinus);
    EXPECT_EQ(stage.editor.FollowedIndex(), 2);
    Press(VirtualKey::NumpadPlus);
    EXPECT_EQ(stage.editor.FollowedIndex(), 3);
    stage.editor.MouseUp();
    Press(VirtualKey::NumpadMinus);
    EXPECT_EQ(stage.editor.SelectedIndex(), 2);
    EXPECT_EQ(stage.editor.FollowedIndex(), -1);
}

// --- numpad minus ---

using NumpadMinus = EditingKeys;

TEST_F(NumpadMinus, MovesTheElementDownAndSaysWhereItIs) {
    stage.editor.Select(3);
    Press(VirtualKey::NumpadMinus);
    EXPECT_EQ(stage.Names(), "sky hill floor wall");
    Press(VirtualKey::NumpadMinus);
    EXPECT_EQ(stage.Names(), "sky floor hill wall");
    EXPECT_EQ(stage.editor.SelectedIndex(), 1);
    EXPECT_THAT(stage.captions, ElementsAre("\"floor\" - Background Element #3/4",
                                            "\"floor\" - Background Element #2/4"));
}

TEST_F(NumpadMinus, LeavesTheFirstTwoElements) {
    for (const Integer index : {Integer{0}, Integer{1}}) {
        stage.Element(static_cast<std::size_t>(index)).layerno = 1;
        stage.editor.Select(index);
        Press(VirtualKey::NumpadMinus);
        EXPECT_EQ(stage.editor.SelectedIndex(), index);
        EXPECT_EQ(Layer(static_cast<std::size_t>(index)), 1);
    }
    EXPECT_EQ(stage.Names(), "sky hill wall floor");
    EXPECT_THAT(stage.captions, IsEmpty());
}

TEST_F(NumpadMinus, BringsAnElementOutOfTheFrontLayerFirst) {
    stage.Element(2).layerno = 1;
    stage.editor.Select(2);
    Press(VirtualKey::NumpadMinus);
    EXPECT_EQ(Layer(2), 0);
    EXPECT_EQ(stage.Names(), "sky hill wall floor");
    EXPECT_THAT(stage.captions, IsEmpty());
    Press(VirtualKey::NumpadMinus);
    EXPECT_EQ(stage.Names(), "sky wall hill floor");
}

TEST_F(NumpadMinus, MovesElementsOfOtherLayersAsTheyAre) {
    stage.Element(2).layerno = 2;
    stage.Element(3).layerno = -1;
    stage.editor.Select(2);
    Press(VirtualKey::NumpadMinus);
    EXPECT_EQ(stage.Names(), "sky wall hill floor");
    EXPECT_EQ(Layer(1), 2);
    stage.editor.Select(3);
    Press(VirtualKey::NumpadMinus);
    EXPECT_EQ(Layer(2), -1);
}

// --- Delete ---

using DeleteKey = EditingKeys;

TEST_F(DeleteKey, TakesTheElementOutAndSelectsNothing) {
    stage.editor.Select(1);
    Press(VirtualKey::Delete);
    EXPECT_EQ(stage.Names(), "sky wall floor");
    EXPECT_EQ(stage.model.ElementCount, 3);
    EXPECT_EQ(stage.editor.SelectedIndex(), -1);
    EXPECT_THAT(stage.captions, ElementsAre("Deleted.."));
    Press(VirtualKey::Delete);
    EXPECT_EQ(stage.Names(), "sky wall floor");
    EXPECT_THAT(stage.captions, ElementsAre("Deleted.."));
}

TEST_F(DeleteKey, LeavesTheFirstElement) {
    stage.editor.Select(0);
    Press(VirtualKey::Delete);
    EXPECT_EQ(stage.Names(), "sky hill wall floor");
    EXPECT_EQ(stage.editor.SelectedIndex(), 0);
    EXPECT_THAT(stage.captions, IsEmpty());
}

TEST_F(DeleteKey, EndsTheDrag) {
    stage.editor.MouseDown({5, 5});
    Press(VirtualKey::Delete);
    EXPECT_EQ(stage.Names(), "sky hill wall");
    EXPECT_EQ(stage.editor.FollowedIndex(), -1);
    const Single x = stage.Element(2).posX;
    stage.editor.MouseMove({50, 50});
    EXPECT_EQ(stage.Element(2).posX, x);
}

// --- Insert ---

using InsertKey = EditingKeys;

TEST_F(InsertKey, PutsACopyBehindTheElementAndSelectsIt) {
    stage.editor.Select(1);
    Press(VirtualKey::Insert);
    EXPECT_EQ(stage.Names(), "sky hill hill wall floor");
    EXPECT_EQ(stage.model.ElementCount, 5);
    EXPECT_EQ(stage.editor.SelectedIndex(), 2);
    EXPECT_THAT(stage.captions, ElementsAre("Cloned.."));
}

TEST_F(InsertKey, WhileDraggingThePointerTakesTheCopy) {
    stage.editor.MouseDown({5, 5});
    Press(VirtualKey::Insert);
    EXPECT_EQ(stage.editor.FollowedIndex(), 4);
    stage.editor.MouseMove({25, 5});
    EXPECT_EQ(stage.Element(3).posX, 0);
    EXPECT_EQ(stage.Element(4).posX, 20);
    EXPECT_EQ(stage.Element(3).startX, -160);
    EXPECT_EQ(stage.Element(4).startX, -140);
}

TEST_F(InsertKey, CopiesTheFirstElementToo) {
    stage.editor.Select(0);
    Press(VirtualKey::Insert);
    EXPECT_EQ(stage.Names(), "sky sky hill wall floor");
}

TEST_F(InsertKey, InAFullListEndsThePassWithAnOverflow) {
    stage.model.Elements.resize(kMaxRecords);
    stage.model.ElementCount = 32767;
    stage.editor.Select(2);
    ExpectError(RunTimeErrorKind::Overflow, [&] { Press(VirtualKey::Insert); });
    EXPECT_EQ(stage.editor.SelectedIndex(), 2);
    EXPECT_THAT(stage.captions, IsEmpty());
}

// --- D ---

using DumpKey = EditingKeys;

TEST_F(DumpKey, WritesTheDumpWhateverIsSelected) {
    Press(VirtualKey::D);
    EXPECT_EQ(stage.dumps, 1);
    stage.editor.Select(2);
    Press(VirtualKey::D);
    EXPECT_EQ(stage.dumps, 2);
    EXPECT_EQ(stage.editor.SelectedIndex(), 2);
}

TEST_F(DumpKey, DoesNothingWhileDebugBGIsUnchecked) {
    stage.flags.DebugBG = 0;
    Press(VirtualKey::D);
    EXPECT_EQ(stage.dumps, 0);
}

// --- without a selection, and with a wrong one ---

TEST_F(EditingKeys, WithoutASelectionDoNothingAndCloseNoGate) {
    for (const VirtualKey key : {VirtualKey::NumpadPlus, VirtualKey::NumpadMinus,
                                 VirtualKey::Delete, VirtualKey::Insert}) {
        Press(key);
    }
    EXPECT_EQ(stage.Names(), "sky hill wall floor");
    EXPECT_THAT(stage.captions, IsEmpty());
    EXPECT_EQ(stage.camera.lastKeyTick, 0);
}

TEST_F(EditingKeys, UncheckingDebugBGClearsTheSelection) {
    stage.editor.MouseDown({5, 5});
    stage.flags.DebugBG = 0;
    Press(VirtualKey::Delete);
    EXPECT_EQ(stage.Names(), "sky hill wall floor");
    EXPECT_EQ(stage.editor.SelectedIndex(), -1);
    EXPECT_EQ(stage.editor.FollowedIndex(), -1);
    stage.flags.DebugBG = kByteTrue;
    Press(VirtualKey::Delete);
    EXPECT_EQ(stage.Names(), "sky hill wall floor");
}

TEST_F(EditingKeys, OnAnIndexOutOfTheListAreAnError) {
    for (const VirtualKey key : {VirtualKey::NumpadPlus, VirtualKey::NumpadMinus,
                                 VirtualKey::Delete, VirtualKey::Insert}) {
        for (const Integer index : {Integer{4}, Integer{32767}}) {
            SCOPED_TRACE(static_cast<int>(key));
            stage.editor.Select(index);
            ExpectError(RunTimeErrorKind::SubscriptOutOfRange, [&] { Press(key); });
        }
    }
    stage.editor.Select(-2);
    for (const VirtualKey key : {VirtualKey::NumpadPlus, VirtualKey::Delete, VirtualKey::Insert}) {
        ExpectError(RunTimeErrorKind::SubscriptOutOfRange, [&] { Press(key); });
    }
    EXPECT_EQ(stage.Names(), "sky hill wall floor");
}

TEST_F(EditingKeys, ThatEndInAnErrorCloseTheGate) {
    stage.editor.Select(4);
    ExpectError(RunTimeErrorKind::SubscriptOutOfRange, [&] { Press(VirtualKey::Delete); });
    EXPECT_EQ(stage.camera.lastKeyTick, 2000);
}

TEST_F(EditingKeys, AskForNoMemoryWhileNobodyPressesThem) {
    stage.editor.MouseDown({5, 5});
    Press(VirtualKey::NumpadMinus);
    const std::size_t before = test::AllocationCount();
    for (int pass = 0; pass < 10; ++pass) {
        stage.clock.now += 1000;
        stage.editor.AtEndOfPass();
        EXPECT_TRUE(stage.editor.Outline().has_value());
    }
    EXPECT_EQ(test::AllocationCount(), before);
}

// --- the gate ---

class KeyGate : public EditingKeys {
protected:
    // Whether this key, held in the frame at this time, has changed the list or the layer.
    void HoldAt(Long time, const KeySet& keys) {
        stage.clock.now = time;
        stage.keyboard.Hold(keys);
        stage.PlayFrame();
    }
    std::size_t Moves() { return stage.captions.size(); }
};

TEST_F(KeyGate, OpensOnceMoreThan150MillisecondsHavePassed) {
    stage.editor.Select(0);
    HoldAt(1000, {VirtualKey::NumpadPlus});
    EXPECT_EQ(Moves(), 1U);  // in two passes
    HoldAt(1150, {VirtualKey::NumpadPlus});
    EXPECT_EQ(Moves(), 1U);
    HoldAt(1151, {VirtualKey::NumpadPlus});
    EXPECT_EQ(Moves(), 2U);
    HoldAt(1301, {VirtualKey::NumpadPlus});
    EXPECT_EQ(Moves(), 2U);
    HoldAt(1302, {VirtualKey::NumpadPlus});
    EXPECT_EQ(Moves(), 3U);
}

// At 60 frames in a second a step is made in every tenth frame: 160 ms is the first that is more.
TEST_F(KeyGate, AHeldKeyMovesSixTimesInASecond) {
    for (int i = 0; i < 10; ++i) {
        stage.Named("more", 0, 0, 0);
    }
    stage.editor.Select(0);
    for (int frame = 0; frame < 60; ++frame) {
        HoldAt(1000 + frame * 1000 / 60, {VirtualKey::NumpadPlus});
    }
    EXPECT_EQ(Moves(), 6U);
}

TEST_F(KeyGate, IsSharedWithTheCamerasStepKeys) {
    stage.editor.Select(1);
    stage.camera.HCamStep = stage.camera.VCamStep = 5;
    HoldAt(1000, {VirtualKey::A});
    EXPECT_EQ(stage.camera.HCamStep, 5.5F);
    HoldAt(1100, {VirtualKey::NumpadPlus});
    EXPECT_EQ(Moves(), 0U);
    HoldAt(1200, {VirtualKey::NumpadPlus});
    EXPECT_EQ(Moves(), 1U);
    HoldAt(1300, {VirtualKey::Z});
    EXPECT_EQ(stage.camera.HCamStep, 5.5F);
    HoldAt(1351, {VirtualKey::Z});
    EXPECT_EQ(stage.camera.HCamStep, 5);
}

TEST_F(KeyGate, LetsOneKeyThrough) {
    stage.editor.Select(1);
    HoldAt(1000, {VirtualKey::NumpadPlus, VirtualKey::NumpadMinus, VirtualKey::Delete,
                  VirtualKey::Insert, VirtualKey::D});
    EXPECT_EQ(stage.Names(), "sky wall hill floor");
    EXPECT_EQ(stage.dumps, 0);
    HoldAt(2000, {VirtualKey::Z, VirtualKey::Delete});
    EXPECT_EQ(stage.Names(), "sky wall hill floor");
}

TEST_F(KeyGate, HoldsForTheDumpToo) {
    HoldAt(1000, {VirtualKey::D});
    HoldAt(1150, {VirtualKey::D});
    EXPECT_EQ(stage.dumps, 1);
    HoldAt(1151, {VirtualKey::D});
    EXPECT_EQ(stage.dumps, 2);
}

TEST_F(KeyGate, IsClosedByAKeyThatFindsNothingToDo) {
    stage.editor.Select(1);
    HoldAt(1000, {VirtualKey::NumpadMinus});
    HoldAt(1100, {VirtualKey::NumpadPlus});
    EXPECT_EQ(Moves(), 0U);
}

TEST_F(KeyGate, HoldsWhereTheTicksBeginAnew) {
    stage.editor.Select(0);
    stage.camera.lastKeyTick = 2147483647;
    HoldAt(-2147483648 + 149, {VirtualKey::NumpadPlus});
    EXPECT_EQ(Moves(), 0U);
    HoldAt(-2147483648 + 150, {VirtualKey::NumpadPlus});
    EXPECT_EQ(Moves(), 1U);
}

// --- presses from before ---

class OldPresses : public EditingKeys {
protected:
    // A pass a second later.
    void Pass() {
        stage.clock.now += 1000;
        editor.AtEndOfPass();
    }

    HeadlessKeyboard keyboard;
    DebugEditor editor{
        {stage.model, stage.camera, stage.picture, stage.flags, stage.view, keyboard, stage.clock},
        {[](const std::string&) {}, [this] { ++stage.dumps; }}};
};

TEST_F(OldPresses, FromBeforeTheSelectionDeleteNothing) {
    Pass();
    keyboard.Tap(VirtualKey::Delete);
    Pass();
    editor.MouseDown({5, 5});
    Pass();
    EXPECT_EQ(stage.Names(), "sky hill wall floor");
    keyboard.Tap(VirtualKey::Delete);
    Pass();
    EXPECT_EQ(stage.Names(), "sky hill wall");
}

TEST_F(OldPresses, FromBeforeDebugBGWasCheckedDumpNothing) {
    stage.flags.DebugBG = 0;
    Pass();
    keyboard.Tap(VirtualKey::D);
    Pass();
    stage.flags.DebugBG = kByteTrue;
    Pass();
    EXPECT_EQ(stage.dumps, 0);
    keyboard.Tap(VirtualKey::D);
    Pass();
    EXPECT_EQ(stage.dumps, 1);
}

TEST_F(OldPresses, FromWhilePausedDeleteNothing) {
    editor.MouseDown({5, 5});
    Pass();
    keyboard.Tap(VirtualKey::Delete);
    editor.ForgetPresses();  // the stage goes on
    Pass();
    EXPECT_EQ(stage.Names(), "sky hill wall floor");
    keyboard.Tap(VirtualKey::Delete);
    Pass();
    EXPECT_EQ(stage.Names(), "sky hill wall");
}

TEST_F(OldPresses, WithoutAFrameDoNothingThenAndAfterwards) {
    editor.Select(3);
    stage.flags.Unframed = kByteTrue;
    keyboard.Tap(VirtualKey::Delete);
    Pass();
    stage.flags.Unframed = 0;
    Pass();
    EXPECT_EQ(stage.Names(), "sky hill wall floor");
    EXPECT_EQ(editor.SelectedIndex(), 3);
    keyboard.Tap(VirtualKey::Delete);
    Pass();
    EXPECT_EQ(stage.Names(), "sky hill wall");
}

TEST_F(OldPresses, BehindTheClickCountThoughTheGateIsClosed) {
    Pass();
    stage.camera.lastKeyTick = stage.clock.now;
    editor.MouseDown({5, 5});
    keyboard.Tap(VirtualKey::Delete);
    editor.AtEndOfPass();
    EXPECT_EQ(stage.Names(), "sky hill wall floor");
    Pass();
    EXPECT_EQ(stage.Names(), "sky hill wall");
}

TEST_F(OldPresses, WhileTheGateIsClosedCount) {
    editor.MouseDown({5, 5});
    Pass();
    stage.camera.lastKeyTick = stage.clock.now;
    keyboard.Tap(VirtualKey::Delete);
    editor.AtEndOfPass();
    EXPECT_EQ(stage.Names(), "sky hill wall floor");
    Pass();
    EXPECT_EQ(stage.Names(), "sky hill wall");
}

}  // namespace
}  // namespace scenara
