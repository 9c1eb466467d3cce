// SPDX-License-Identifier: MIT
#include "render/CameraControl.h"

#include <gtest/gtest.h>

#include "render/StagePlayer.h"

namespace scenara {
namespace {

using test::StagePlayer;

// The camera in shown coordinates, from -10 to 20 across and from -30 to 0 upwards.
class CameraControlTest : public testing::Test {
protected:
    CameraControlTest() {
        player.model.BoundLeft = -10;
        player.model.BoundRight = 20;
        player.model.BoundHigh = -30;
        player.model.BoundLow = 0;
    }

    void Show(Single x, Single y) {
        player.model.CamX = -x;
        player.model.CamY = y;
    }
    void Steps(Single across, Single down) {
        player.camera.HCamStep = across;
        player.camera.VCamStep = down;
    }
    void Hold(const KeySet& keys) { player.keyboard.Hold(keys); }
    void Control() {
        ControlCamera(player.model, player.camera, player.flags,
                      {player.keyboard, player.clock, player.pointer, player.window});
    }
    void ExpectShown(Single x, Single y) {
        EXPECT_EQ(player.model.CamX, -x);
        EXPECT_EQ(player.model.CamY, y);
    }
    void ExpectSteps(Single across, Single down) {
        EXPECT_EQ(player.camera.HCamStep, across);
        EXPECT_EQ(player.camera.VCamStep, down);
    }
    // One move from here with this key.
    void ExpectMove(VirtualKey key, Single fromX, Single fromY, Single toX, Single toY) {
        SCOPED_TRACE(static_cast<int>(key));
        Show(fromX, fromY);
        Hold({key});
        Control();
        ExpectShown(toX, toY);
    }

    StagePlayer player;
};

// --- arrow keys ---

using ArrowKeys = CameraControlTest;

TEST_F(ArrowKeys, MoveByOneStep) {
    Steps(2, 3);
    ExpectMove(VirtualKey::Right, 0, -10, 2, -10);
    ExpectMove(VirtualKey::Left, 0, -10, -2, -10);
    ExpectMove(VirtualKey::Up, 0, -10, 0, -13);
    ExpectMove(VirtualKey::Down, 0, -10, 0, -7);
}

TEST_F(ArrowKeys, MoveOntoTheBound) {
    Steps(2, 3);
    ExpectMove(VirtualKey::Right, 18, -10, 20, -10);
    ExpectMove(VirtualKey::Left, -8, -10, -10, -10);
    ExpectMove(VirtualKey::Up, 0, -27, 0, -30);
    ExpectMove(VirtualKey::Down, 0, -3, 0, 0);
}

TEST_F(ArrowKeys, DoNotMoveAtTheBound) {
    Steps(2, 3);
    ExpectMove(VirtualKey::Right, 20, -10, 20, -10);
    ExpectMove(VirtualKey::Left, -10, -10, -10, -10);
    ExpectMove(VirtualKey::Up, 0, -30, 0, -30);
    ExpectMove(VirtualKey::Down, 0, 0, 0, 0);
}

TEST_F(ArrowKeys, MakeNoPartOfAStep) {
    Steps(2, 3);
    ExpectMove(VirtualKey::Right, 18.5F, -10, 18.5F, -10);
    ExpectMove(VirtualKey::Left, -8.5F, -10, -8.5F, -10);
    ExpectMove(VirtualKey::Up, 0, -27.5F, 0, -27.5F);
    ExpectMove(VirtualKey::Down, 0, -2.5F, 0, -2.5F);
}

TEST_F(ArrowKeys, StopUpToAStepShortOfTheBound) {
    Steps(8, 8);
    Show(0, 0);
    Hold({VirtualKey::Right, VirtualKey::Up});
    for (int i = 0; i < 10; ++i) {
        Control();
    }
    ExpectShown(16, -24);
}

TEST_F(ArrowKeys, HeldAtTheLeftBoundLeaveTheCameraThere) {
    Steps(1, 1);
    Show(-10, 0);
    Hold({VirtualKey::Left});
    for (int i = 0; i < 10; ++i) {
        Control();
    }
    ExpectShown(-10, 0);
}

TEST_F(ArrowKeys, ComeBackFromOutsideOfTheBounds) {
    Steps(2, 3);
    ExpectMove(VirtualKey::Left, 50, -10, 48, -10);
    ExpectMove(VirtualKey::Right, 50, -10, 50, -10);
    ExpectMove(VirtualKey::Right, -50, -10, -48, -10);
    ExpectMove(VirtualKey::Down, 0, -50, 0, -47);
    ExpectMove(VirtualKey::Up, 0, -50, 0, -50);
    ExpectMove(VirtualKey::Up, 0, 50, 0, 47);
}

TEST_F(ArrowKeys, OppositeOnesCancelOutAwayFromTheBounds) {
    Steps(2, 3);
    Show(0, -10);
    Hold({VirtualKey::Right, VirtualKey::Left, VirtualKey::Up, VirtualKey::Down});
    Control();
    ExpectShown(0, -10);
}

TEST_F(ArrowKeys, AreTestedInTheOrderRightLeftUpDown) {
    Steps(2, 3);
    // At the right bound Right is not possible before Left, at the left one Left is after Right.
    Show(20, -30);
    Hold({VirtualKey::Right, VirtualKey::Left, VirtualKey::Up, VirtualKey::Down});
    Control();
    ExpectShown(18, -27);
    Show(-10, 0);
    Control();
    ExpectShown(-10, 0);
}

TEST_F(ArrowKeys, MoveNothingUntilTheyAreDown) {
    Steps(2, 3);
    Show(0, -10);
    Hold({VirtualKey::Pause, VirtualKey::Escape, VirtualKey::RightButton});
    Control();
    ExpectShown(0, -10);
}

TEST_F(ArrowKeys, DoNotRiseWhereTheUpperBoundLiesBelowTheGroundView) {
    player.model.BoundHigh = 11;
    Steps(1, 1);
    ExpectMove(VirtualKey::Up, 0, 0, 0, 0);
    ExpectMove(VirtualKey::Down, 0, 0, 0, 0);
}

TEST_F(ArrowKeys, TakeBoundsOfAnySize) {
    player.model.BoundLeft = -2147483647 - 1;
    player.model.BoundRight = 2147483647;
    Steps(2, 3);
    ExpectMove(VirtualKey::Right, 100000, -10, 100002, -10);
    ExpectMove(VirtualKey::Left, -100000, -10, -100002, -10);
}

// Any answer but 0 is a key that is down.
class PressedBefore : public Keyboard {
public:
    Integer GetAsyncKeyState(VirtualKey key) override { return key == VirtualKey::Right ? 1 : 0; }
};

TEST_F(ArrowKeys, PressedSinceTheLastLookAreDown) {
    Steps(2, 3);
    Show(0, 0);
    PressedBefore keyboard;
    ControlCamera(player.model, player.camera, player.flags,
                  {keyboard, player.clock, player.pointer, player.window});
    ExpectShown(2, 0);
}

// --- Z and A ---

class StepKeys : public CameraControlTest {
protected:
    // Holds these keys at this time.
    void At(Long time, const KeySet& keys) {
        player.clock.now = time;
        Hold(keys);
        Control();
    }
};

TEST_F(StepKeys, ZLowersAndARaisesBothByAHalf) {
    Steps(3, 5.25F);
    At(1000, {VirtualKey::Z});
    ExpectSteps(2.5F, 4.75F);
    At(2000, {VirtualKey::A});
    ExpectSteps(3, 5.25F);
}

TEST_F(StepKeys, ActOnceMoreThan150MillisecondsHavePassed) {
    Steps(5, 5);
    At(1000, {VirtualKey::Z});
    ExpectSteps(4.5F, 4.5F);
    At(1149, {VirtualKey::Z});
    At(1150, {VirtualKey::Z});
    ExpectSteps(4.5F, 4.5F);
    At(1151, {VirtualKey::Z});
    ExpectSteps(4, 4);
    At(1301, {VirtualKey::Z});
    ExpectSteps(4, 4);
    At(1302, {VirtualKey::Z});
    ExpectSteps(3.5F, 3.5F);
}

TEST_F(StepKeys, ShareTheGate) {
    Steps(5, 5);
    At(1000, {VirtualKey::Z});
    At(1100, {VirtualKey::A});
    ExpectSteps(4.5F, 4.5F);
    At(1200, {VirtualKey::A});
    ExpectSteps(5, 5);
    At(1300, {VirtualKey::Z});
    ExpectSteps(5, 5);
}

TEST_F(StepKeys, ThatAreNotDownDoNotCloseTheGate) {
    Steps(5, 5);
    At(1000, {});
    At(1001, {VirtualKey::Right});
    At(1002, {VirtualKey::A});
    ExpectSteps(5.5F, 5.5F);
}

// One key is accepted; for the other the clock has not gone on since.
TEST_F(StepKeys, HeldTogetherOnlyOneIsAccepted) {
    Steps(5, 5);
    At(1000, {VirtualKey::Z, VirtualKey::A});
    ExpectSteps(4.5F, 4.5F);
    Steps(0.5F, 0.5F);
    At(2000, {VirtualKey::Z, VirtualKey::A});
    ExpectSteps(0.5F, 0.5F);
}

TEST_F(StepKeys, ZStopsAtAHalf) {
    Steps(1, 1.5F);
    At(1000, {VirtualKey::Z});
    ExpectSteps(0.5F, 1);
    At(2000, {VirtualKey::Z});
    ExpectSteps(0.5F, 0.5F);
    At(3000, {VirtualKey::Z});
    ExpectSteps(0.5F, 0.5F);
}

TEST_F(StepKeys, ZLowersBelowAHalfAsLongAsSomethingIsLeft) {
    Steps(0.75F, 0.25F);
    At(1000, {VirtualKey::Z});
    ExpectSteps(0.25F, 0.5F);
}

TEST_F(StepKeys, AStopsAt10) {
    Steps(9, 9.75F);
    At(1000, {VirtualKey::A});
    ExpectSteps(9.5F, 10);
    At(2000, {VirtualKey::A});
    ExpectSteps(10, 10);
    At(3000, {VirtualKey::A});
    ExpectSteps(10, 10);
}

TEST_F(StepKeys, AMakes10OfAnythingAbove) {
    Steps(40, 9.5F);
    At(1000, {VirtualKey::A});
    ExpectSteps(10, 10);
}

TEST_F(StepKeys, ActAfterTheArrowKeys) {
    Steps(2, 2);
    Show(0, 0);
    At(1000, {VirtualKey::A, VirtualKey::Right});
    ExpectShown(2, 0);
    ExpectSteps(2.5F, 2.5F);
}

TEST_F(StepKeys, TakeTheClockToItsEnd) {
    Steps(5, 5);
    At(2147483646, {VirtualKey::Z});
    ExpectSteps(4.5F, 4.5F);
    At(2147483647, {VirtualKey::Z});
    ExpectSteps(4.5F, 4.5F);
}

// --- the pointer ---

class MouseScroll : public CameraControlTest {
protected:
    MouseScroll() {
        player.flags.MouseScroll = kByteTrue;
        player.model.BoundLeft = -1000;
        player.model.BoundRight = 1000;
        player.model.BoundHigh = -1000;
        player.model.BoundLow = 1000;
        // 640 x 480 pixels at (100, 50): its middle is (420, 290).
        player.window.MoveTo({1500, 750, 9600, 7200});
        Show(0, 0);
        Steps(3, 4);
    }
    void PointAt(Long x, Long y) {
        player.pointer.MoveTo({x, y});
        Control();
    }
};

TEST_F(MouseScroll, MovesTowardsThePointerByItsDistance) {
    PointAt(520, 210);
    ExpectSteps(10, 2);
    ExpectShown(10, -2);
}

TEST_F(MouseScroll, StepsAreTheDistancesOnTheOtherSidesToo) {
    PointAt(415, 291);
    ExpectSteps(0.5F, 0.025F);
    ExpectShown(-0.5F, 0.025F);
}

TEST_F(MouseScroll, InTheMiddleNothingMoves) {
    PointAt(420, 290);
    ExpectSteps(0, 0);
    ExpectShown(0, 0);
}

TEST_F(MouseScroll, MayGoFasterThanTheKeys) {
    PointAt(820, 290);
    ExpectSteps(40, 0);
    ExpectShown(40, 0);
}

TEST_F(MouseScroll, StaysWithinTheBounds) {
    player.model.BoundRight = 15;
    player.model.BoundHigh = -3;
    for (int i = 0; i < 5; ++i) {
        PointAt(520, 210);
    }
    ExpectShown(10, -2);
}

TEST_F(MouseScroll, OfAWindowOfAnOddSizeMeasuresFromItsMiddle) {
    // 321 pixels wide: the middle is at 100 + 160.5.
    player.window.MoveTo({1500, 750, 321 * 15, 7200});
    PointAt(261, 290);
    ExpectSteps(0.05F, 0);
    ExpectShown(0.05F, 0);
}

TEST_F(MouseScroll, OfAWindowLeftOfTheScreenWorksTheSame) {
    player.window.MoveTo({-9600, -7200, 9600, 7200});
    PointAt(-220, -240);
    ExpectSteps(10, 0);
    ExpectShown(10, 0);
}

TEST_F(MouseScroll, ActsAfterTheKeys) {
    Hold({VirtualKey::Right});
    PointAt(520, 290);
    ExpectShown(13, 0);  // 3 of the key, 10 of the pointer
}

TEST_F(MouseScroll, SwitchedOffLeavesStepsAndCamera) {
    player.flags.MouseScroll = 0;
    PointAt(520, 210);
    ExpectSteps(3, 4);
    ExpectShown(0, 0);
}

// --- keys behind the camera's ---

// Sees what the camera has made of a pass so far.
class Witness : public GatedKeys {
public:
    explicit Witness(const StagePlayer& player) : player_(player) {}
    void AtEndOfPass() override {
        ++passes;
        step = player_.camera.HCamStep;
        shown = -player_.model.CamX;
        open = KeyGateIsOpen(player_.camera, player_.clock.now);
    }

    int passes = 0;
    Single step = 0;
    Single shown = 0;
    bool open = false;

private:
    const StagePlayer& player_;
};

class KeysBehind : public MouseScroll {
protected:
    void ControlWith(const KeySet& keys) {
        Hold(keys);
        ControlCamera(player.model, player.camera, player.flags,
                      {player.keyboard, player.clock, player.pointer, player.window, &witness});
    }

    Witness witness{player};
};

TEST_F(KeysBehind, FollowTheStepKeysAndGoBeforeThePointer) {
    player.pointer.MoveTo({520, 290});
    ControlWith({VirtualKey::Right, VirtualKey::A});
    EXPECT_EQ(witness.passes, 1);
    EXPECT_EQ(witness.shown, 3);
    EXPECT_EQ(witness.step, 3.5F);
    EXPECT_FALSE(witness.open);
    ExpectShown(13, 0);  // and 10 of the pointer
}

TEST_F(KeysBehind, FindTheGateOpenWhenNoKeyWasAccepted) {
    player.pointer.MoveTo({420, 290});
    ControlWith({VirtualKey::Right});
    EXPECT_TRUE(witness.open);
    player.camera.lastKeyTick = player.clock.now - 150;
    ControlWith({});
    EXPECT_FALSE(witness.open);
    player.camera.lastKeyTick = player.clock.now - 151;
    ControlWith({});
    EXPECT_TRUE(witness.open);
}

TEST_F(KeysBehind, FindTheGateClosedForAsLongWhereTheTicksBeginAnew) {
    player.camera.lastKeyTick = 2147483647;
    player.clock.now = -2147483648 + 149;
    ControlWith({});
    EXPECT_FALSE(witness.open);
    player.clock.now = -2147483648 + 150;
    ControlWith({});
    EXPECT_TRUE(witness.open);
}

// --- single steps ---

using SingleSteps = CameraControlTest;

TEST_F(SingleSteps, AreMadeWholeOrNotAtAll) {
    Show(18, -27);
    StepRight(player.model, 2);
    StepUp(player.model, 3);
    ExpectShown(20, -30);
    StepRight(player.model, 2);
    StepUp(player.model, 3);
    ExpectShown(20, -30);
    Show(-9, -1);
    StepLeft(player.model, 2);
    StepDown(player.model, 3);
    ExpectShown(-9, -1);
    Show(-8, -3);
    StepLeft(player.model, 2);
    StepDown(player.model, 3);
    ExpectShown(-10, 0);
}

TEST_F(SingleSteps, OfNothingMoveNothing) {
    Show(20, 0);
    StepRight(player.model, 0);
    StepLeft(player.model, 0);
    StepUp(player.model, 0);
    StepDown(player.model, 0);
    ExpectShown(20, 0);
}

// --- a figure that leads the camera ---

using CameraLeadTest = CameraControlTest;

TEST_F(CameraLeadTest, MakesOneStepOfItsOwnBehindTheBackPass) {
    Steps(1, 1);
    player.camera.leadStep = 3;
    player.camera.lead = CameraLead::Right;
    player.flags.DrawFrontLayer = 0;
    Control();
    ExpectShown(3, 0);
    player.flags.DrawFrontLayer = kByteTrue;
    Control();
    ExpectShown(3, 0);
    player.camera.lead = CameraLead::Left;
    player.flags.DrawFrontLayer = 0;
    Control();
    ExpectShown(0, 0);
}

TEST_F(CameraLeadTest, KeepsToTheBounds) {
    Steps(1, 1);
    player.camera.leadStep = 3;
    player.flags.DrawFrontLayer = 0;
    player.camera.lead = CameraLead::Right;
    Show(18, 0);
    Control();
    ExpectShown(18, 0);
    player.camera.lead = CameraLead::Left;
    Show(-8, 0);
    Control();
    ExpectShown(-8, 0);
}

TEST_F(CameraLeadTest, LeavesLeftAndRightWithoutEffectAndTheOtherKeysWithTheirs) {
    player.camera.lead = CameraLead::Stand;
    for (const Byte front : {Byte{0}, kByteTrue}) {
        player.flags.DrawFrontLayer = front;
        ExpectMove(VirtualKey::Right, 5, -5, 5, -5);
        ExpectMove(VirtualKey::Left, 5, -5, 5, -5);
        ExpectMove(VirtualKey::Up, 5, -5, 5, -6);
        ExpectMove(VirtualKey::Down, 5, -5, 5, -4);
    }
    Hold({VirtualKey::A});
    player.clock.now += 1000;
    Control();
    ExpectSteps(1.5F, 1.5F);
}

}  // namespace
}  // namespace scenara
