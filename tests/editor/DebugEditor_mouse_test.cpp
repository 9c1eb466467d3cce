// SPDX-License-Identifier: MIT
//
// Selecting and dragging with the mouse.
#include <gtest/gtest.h>

#include "editor/EditedStage.h"
#include "render/ExpectError.h"

namespace scenara {
namespace {

using test::EditedStage;
using test::ExpectError;
using test::StageBuilder;

class Mouse : public testing::Test {
protected:
    explicit Mouse(const ViewOptions& options = kPlainView) : stage(options) {}

    // An element of 10 x 10 pixels at (50, 60), and the pointer at (52, 63) of it.
    BackgroundElement& Square(Long x = 50, Long y = 60) {
        return StageBuilder::At(stage.build.Still(square), x, y);
    }
    void Down(Long x = 52, Long y = 63) { stage.editor.MouseDown({x, y}); }
    void Move(Long x, Long y) { stage.editor.MouseMove({x, y}); }

    void ExpectAt(Single x, Single y, std::size_t index = 0) {
        EXPECT_EQ(stage.Element(index).posX, x);
        EXPECT_EQ(stage.Element(index).posY, y);
    }
    void ExpectStart(Long x, Long y, std::size_t index = 0) {
        EXPECT_EQ(stage.Element(index).startX, x);
        EXPECT_EQ(stage.Element(index).startY, y);
    }
    void ExpectIndices(Integer selected, Integer followed) {
        EXPECT_EQ(stage.editor.SelectedIndex(), selected);
        EXPECT_EQ(stage.editor.FollowedIndex(), followed);
    }

    EditedStage stage;
    const Integer square = stage.Square();
};

// --- selection ---

using MouseSelection = Mouse;

TEST_F(MouseSelection, IsNothingAtFirst) {
    ExpectIndices(-1, -1);
    EXPECT_EQ(stage.editor.Outline(), std::nullopt);
}

TEST_F(MouseSelection, ButtonDownPicksTheTopmostElement) {
    Square();
    Square();
    stage.Start();
    Down();
    ExpectIndices(1, 1);
    EXPECT_EQ(stage.editor.Outline(), (ViewFrame{50, 60, 60, 70}));
}

TEST_F(MouseSelection, ButtonUpEndsTheDragAndKeepsTheSelection) {
    Square();
    stage.Start();
    Down();
    stage.editor.MouseUp();
    ExpectIndices(0, -1);
    Move(100, 100);
    ExpectAt(50, 60);
}

TEST_F(MouseSelection, ClickOnNothingClearsIt) {
    Square();
    stage.Start();
    Down();
    Down(0, 0);
    ExpectIndices(-1, -1);
    EXPECT_EQ(stage.editor.Outline(), std::nullopt);
}

TEST_F(MouseSelection, DoesNotHappenWhileDebugBGIsUnchecked) {
    Square();
    stage.Start();
    stage.flags.DebugBG = 0;
    Down();
    ExpectIndices(-1, -1);
}

TEST_F(MouseSelection, IsNeitherShownNorDraggedWhileDebugBGIsUnchecked) {
    Square();
    stage.Start();
    Down();
    stage.flags.DebugBG = 0;
    EXPECT_EQ(stage.editor.Outline(), std::nullopt);
    Move(100, 100);
    ExpectAt(50, 60);
}

TEST_F(MouseSelection, OfAnotherStageIsForgotten) {
    Square();
    stage.Start();
    Down();
    stage.editor.Clear();
    ExpectIndices(-1, -1);
    stage.model.Clear();
    EXPECT_EQ(stage.editor.Outline(), std::nullopt);
    Move(100, 100);
    Down();
    ExpectIndices(-1, -1);
}

TEST_F(MouseSelection, OutlineGoesWithTheElement) {
    Square();
    stage.Start();
    Down();
    Move(55, 60);
    EXPECT_EQ(stage.editor.Outline(), (ViewFrame{53, 57, 63, 67}));
}

// --- drag ---

using Drag = Mouse;

TEST_F(Drag, ButtonDownAloneMovesNothing) {
    Square();
    stage.model.CamStartX = 20;
    stage.model.CamStartY = -10;
    stage.Start();
    const Single x = stage.Element(0).posX;
    const Single y = stage.Element(0).posY;
    Down(static_cast<Long>(x) + 1, static_cast<Long>(y) + 1);
    ExpectIndices(0, 0);
    Move(static_cast<Long>(x) + 1, static_cast<Long>(y) + 1);
    ExpectAt(x, y);
    ExpectStart(-110, 60);
}

TEST_F(Drag, MovesByWhatThePointerMoves) {
    Square();
    stage.Start();
    Down();
    Move(59, 60);
    ExpectAt(57, 57);
    ExpectStart(-103, 57);
    Move(40, 90);
    ExpectAt(38, 87);
    ExpectStart(-122, 87);
}

TEST_F(Drag, KeepsTheFractionOfAPosition) {
    Square();
    stage.Start();
    stage.Element(0).posX = 50.25F;
    Down();
    Move(53, 63);
    ExpectAt(51.25F, 60);
    ExpectStart(-109, 60);
}

TEST_F(Drag, GoesOutOfTheView) {
    Square();
    stage.Start();
    Down();
    Move(-48, 463);
    ExpectAt(-50, 460);
    ExpectStart(-210, 460);
    EXPECT_EQ(stage.editor.Outline(), std::nullopt);
}

// The camera goes 8 to the right and 2 up, so the element 4 to the left and 1 down.
TEST_F(Drag, TheCamerasMoveIsNoMoveOfTheElement) {
    BackgroundElement& element = Square();
    element.deltaX = 0.5F;
    element.deltaY = 0.5F;
    stage.Start();
    stage.model.BoundHigh = -1000;
    stage.camera.HCamStep = 4;
    stage.camera.VCamStep = 1;
    Down();
    stage.keyboard.Hold({VirtualKey::Right, VirtualKey::Up});
    stage.PlayFrame();
    stage.keyboard.Hold({});
    stage.PlayFrame();
    ExpectAt(46, 61);
    Move(52, 63);
    ExpectAt(46, 61);
    Move(53, 63);
    ExpectAt(47, 61);
    ExpectStart(-109, 60);
}

// The key was accepted at the end of the last pass, and the elements follow in the next one.
TEST_F(Drag, AStepThatIsStillToComeIsMadeOnce) {
    Square();
    stage.Start();
    stage.camera.HCamStep = 4;
    Down();
    stage.keyboard.Hold({VirtualKey::Right});
    stage.FrontPass();
    ControlCamera(stage.model, stage.camera, StepUnits(), stage.flags,
                  {stage.keyboard, stage.clock, stage.pointer, stage.window});
    stage.keyboard.Hold({});
    EXPECT_EQ(stage.model.CamX, -8);
    Move(53, 63);
    ExpectAt(51, 60);
    // The pass follows by one step, whatever the distance.
    stage.BackPass();
    ExpectAt(47, 60);
    ExpectStart(-109, 60);
}

TEST_F(Drag, HoldsADriftingElementUnderThePointer) {
    Square().velocityX = 2;
    stage.Start();
    Down();
    stage.Frames(3);
    ExpectAt(56, 60);
    Move(52, 63);
    ExpectAt(50, 60);
    // It has drifted by 6, so it is to start 6 further to the left.
    ExpectStart(-116, 60);
    EXPECT_EQ(stage.Element(0).ctrlPos[0], 6);
}

TEST(DragWithAdditions, HoldsADriftingElementUnderThePointer) {
    EditedStage stage{ViewOptions()};
    BackgroundElement& square = StageBuilder::At(stage.build.Still(stage.Square()), 50, 60);
    square.velocityX = 2;
    stage.Start();
    stage.editor.MouseDown({52, 63});
    stage.Frames(3);
    stage.editor.MouseMove({52, 63});
    EXPECT_EQ(stage.editor.Outline(), (ViewFrame{50, 60, 60, 70}));
    EXPECT_EQ(stage.Element(0).startX, -116);
    stage.Frames(1);
    EXPECT_EQ(stage.editor.Outline(), (ViewFrame{52, 60, 62, 70})) << "it drifts on";
}

TEST_F(Drag, BeginsAnewWithEachButtonDown) {
    Square();
    stage.Start();
    Down();
    Move(62, 63);
    stage.editor.MouseUp();
    Down(65, 65);
    Move(66, 65);
    ExpectAt(61, 60);
    ExpectStart(-99, 60);
}

TEST_F(Drag, TakesLinkedElementsAlong) {
    Square();
    BackgroundElement& child = Square(0, 0);
    child.positionlink = 1;
    child.startX = 30;
    child.startY = 5;
    Square(200, 200);
    stage.Start();
    ExpectAt(80, 65, 1);
    Down();
    ExpectIndices(0, 0);
    Move(59, 60);
    ExpectAt(57, 57, 0);
    ExpectAt(87, 62, 1);
    ExpectStart(30, 5, 1);  // counted from the parent's
    ExpectAt(200, 200, 2);
}

TEST_F(Drag, OfALinkedElementMovesItAlone) {
    Square();
    BackgroundElement& child = Square(0, 0);
    child.positionlink = 1;
    child.startX = 30;
    child.startY = 0;
    stage.Start();
    Down(82, 63);
    ExpectIndices(1, 1);
    Move(83, 65);
    ExpectAt(50, 60, 0);
    ExpectAt(81, 62, 1);
    ExpectStart(-110, 60, 0);
    ExpectStart(31, 2, 1);
}

TEST_F(Drag, GoesOnWithTheElementThatAKeyMoves) {
    Square(0, 0);
    Square(0, 0);
    Square();
    stage.Start();
    Down();
    stage.Press(VirtualKey::NumpadMinus);
    ExpectIndices(1, 1);
    Move(53, 63);
    ExpectAt(51, 60, 1);
    ExpectAt(0, 0, 2);
}

TEST_F(Drag, BeyondTheRangeOfAStartIsAnOverflowAndMovesNothingMore) {
    Square();
    stage.Start();
    stage.Element(0).startX = 2147483640;
    Down();
    Move(59, 60);
    ExpectStart(2147483647, 57);
    ExpectError(RunTimeErrorKind::Overflow, [&] { Move(60, 50); });
    ExpectAt(57, 57);
    ExpectStart(2147483647, 57);
    ExpectIndices(0, -1);
    Move(60, 50);  // not said again
    ExpectAt(57, 57);
    Down(59, 60);
    Move(52, 63);
    ExpectAt(50, 60);
    ExpectStart(2147483640, 60);
}

TEST_F(Drag, OfAnElementThatIsGoneIsAnError) {
    Square();
    stage.Start();
    Down();
    stage.model.Clear();
    ExpectError(RunTimeErrorKind::SubscriptOutOfRange, [&] { Move(60, 60); });
}

// --- scaled stages ---

class ScaledDrag : public Mouse {
protected:
    ScaledDrag() : Mouse(ViewOptions{true}) {}

    // An element that starts at (20, 30) of what the file counts in, and stands at (x, y).
    void Begin(Single scale, Long x, Long y) {
        stage.model.StageXScale = scale;
        stage.model.StageYScale = scale;
        BackgroundElement& element = Square();
        element.startX = 20;
        element.startY = 30;
        stage.Start();
        Down(x + 1, y + 1);
        ExpectIndices(0, 0);
    }
};

// At a half the canvas has two pixels to a unit, one to what elements count in.
TEST_F(ScaledDrag, StartsCountInTheFilesUnits) {
    Begin(0.5F, 340, 30);
    Move(344, 29);
    ExpectStart(23, 28);
}

TEST_F(ScaledDrag, RoundingDoesNotAddUp) {
    Begin(2, 200, 60);
    // A pixel is half a unit: ties go to the even one.
    const Long expected[] = {20, 21, 22, 22, 22, 23, 24};
    for (Long moved = 1; moved <= 7; ++moved) {
        Move(201 + moved, 61);
        ExpectStart(expected[moved - 1], 30);
    }
    Move(201, 61);
    ExpectStart(20, 30);
}

// Also when it changes on the way.
TEST_F(ScaledDrag, FollowsThePointerAtEveryZoom) {
    stage.model.ZoomOut = 0.5F;
    stage.model.ZoomIn = 2;
    stage.model.StartZoom = 2;
    stage.model.ZOffset = 30;
    Begin(1, 200, 30);  // 160 + 2 x 20
    Move(221, 51);
    ExpectStart(30, 40);
    stage.model.CamZoom = 0.5;
    Move(226, 46);
    ExpectStart(40, 30);
}

// It is the start that is dragged, wherever the camera goes meanwhile.
TEST_F(ScaledDrag, TheCameraMayMove) {
    Begin(1, 180, 30);
    stage.camera.previousX = stage.model.CamX = -50;
    Move(191, 31);
    ExpectStart(30, 30);
}

}  // namespace
}  // namespace scenara
