// SPDX-License-Identifier: MIT
#include "render/CameraControl.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "render/StagePlayer.h"

namespace scenara::test {
namespace {

struct ShownPlace {
    Single x;
    Single y;
};

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
        ControlCamera(player.model, player.camera, StepUnits(), player.flags,
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
    // One move from here with these keys.
    void ExpectMove(const KeySet& keys, ShownPlace from, ShownPlace to) {
        Show(from.x, from.y);
        Hold(keys);
        Control();
        ExpectShown(to.x, to.y);
    }

    StagePlayer player;
};

// --- arrow keys ---

using ArrowKeys = CameraControlTest;

struct Move {
    const char* name;
    KeySet keys;
    ShownPlace from;
    ShownPlace to;
};

constexpr auto kRight = VirtualKey::Right;
constexpr auto kLeft = VirtualKey::Left;
constexpr auto kUp = VirtualKey::Up;
constexpr auto kDown = VirtualKey::Down;

TEST_F(ArrowKeys, MoveByWholeStepsWithinTheBounds) {
    Steps(2, 3);
    for (const Move& row : std::vector<Move>{
             {"a step right", {kRight}, {0, -10}, {2, -10}},
             {"a step left", {kLeft}, {0, -10}, {-2, -10}},
             {"a step up", {kUp}, {0, -10}, {0, -13}},
             {"a step down", {kDown}, {0, -10}, {0, -7}},
             {"onto the right bound", {kRight}, {18, -10}, {20, -10}},
             {"onto the left bound", {kLeft}, {-8, -10}, {-10, -10}},
             {"onto the upper bound", {kUp}, {0, -27}, {0, -30}},
             {"onto the lower bound", {kDown}, {0, -3}, {0, 0}},
             {"at the right bound", {kRight}, {20, -10}, {20, -10}},
             {"at the left bound", {kLeft}, {-10, -10}, {-10, -10}},
             {"at the upper bound", {kUp}, {0, -30}, {0, -30}},
             {"at the lower bound", {kDown}, {0, 0}, {0, 0}},
             {"no part of a step right", {kRight}, {18.5F, -10}, {18.5F, -10}},
             {"no part of a step left", {kLeft}, {-8.5F, -10}, {-8.5F, -10}},
             {"no part of a step up", {kUp}, {0, -27.5F}, {0, -27.5F}},
             {"no part of a step down", {kDown}, {0, -2.5F}, {0, -2.5F}},
             {"back from beyond the right bound", {kLeft}, {50, -10}, {48, -10}},
             {"not further beyond the right bound", {kRight}, {50, -10}, {50, -10}},
             {"back from beyond the left bound", {kRight}, {-50, -10}, {-48, -10}},
             {"back from beyond the upper bound", {kDown}, {0, -50}, {0, -47}},
             {"not further beyond the upper bound", {kUp}, {0, -50}, {0, -50}},
             {"back from beyond the lower bound", {kUp}, {0, 50}, {0, 47}},
             {"opposite ones cancel out", {kRight, kLeft, kUp, kDown}, {0, -10}, {0, -10}},
             // They are looked at in this order: right, left, up, down.
             {"left has room after right", {kRight, kLeft, kUp, kDown}, {20, -30}, {18, -27}},
             {"right has room before left", {kRight, kLeft, kUp, kDown}, {-10, 0}, {-10, 0}},
             {"two parts of a step from the corner", {kRight, kUp}, {19, -29}, {19, -29}},
             {"other keys",
              {VirtualKey::Pause, VirtualKey::Escape, VirtualKey::RightButton},
              {0, -10},
              {0, -10}},
         }) {
        SCOPED_TRACE(row.name);
        ExpectMove(row.keys, row.from, row.to);
    }
}

TEST_F(ArrowKeys, DoNotRiseWhereTheUpperBoundLiesBelowTheGroundView) {
    player.model.BoundHigh = 11;
    Steps(1, 1);
    ExpectMove({kUp}, {0, 0}, {0, 0});
    ExpectMove({kDown}, {0, 0}, {0, 0});
}

TEST_F(ArrowKeys, TakeBoundsOfAnySize) {
    player.model.BoundLeft = -2147483647 - 1;
    player.model.BoundRight = 2147483647;
    Steps(2, 3);
    ExpectMove({kRight}, {100000, -10}, {100002, -10});
    ExpectMove({kLeft}, {-100000, -10}, {-100002, -10});
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
    ControlCamera(player.model, player.camera, StepUnits(), player.flags,
                  {keyboard, player.clock, player.pointer, player.window});
    ExpectShown(2, 0);
}

// --- Z and A ---

using StepKeys = CameraControlTest;

// One look at the keys, and the steps that come of it.
struct StepLook {
    Long time;
    KeySet keys;
    CameraSteps steps;
};
struct StepScript {
    const char* name;
    CameraSteps steps;
    std::vector<StepLook> looks;
};

const KeySet kZ{VirtualKey::Z};
const KeySet kA{VirtualKey::A};
const KeySet kZAndA{VirtualKey::Z, VirtualKey::A};

const StepScript kStepScripts[] = {
    {"Z lowers and A raises both by a half",
     {3, 5.25F},
     {{1000, kZ, {2.5F, 4.75F}}, {2000, kA, {3, 5.25F}}}},
    {"they act once more than 150 milliseconds have passed",
     {5, 5},
     {{1000, kZ, {4.5F, 4.5F}},
      {1149, kZ, {4.5F, 4.5F}},
      {1150, kZ, {4.5F, 4.5F}},
      {1151, kZ, {4, 4}},
      {1301, kZ, {4, 4}},
      {1302, kZ, {3.5F, 3.5F}}}},
    {"they share the gate",
     {5, 5},
     {{1000, kZ, {4.5F, 4.5F}}, {1100, kA, {4.5F, 4.5F}}, {1200, kA, {5, 5}}, {1300, kZ, {5, 5}}}},
    {"those that are not down do not close the gate",
     {5, 5},
     {{1000, {}, {5, 5}}, {1001, {kRight}, {5, 5}}, {1002, kA, {5.5F, 5.5F}}}},
    // One key is accepted; for the other the clock has not gone on since.
    {"held together only one is accepted", {5, 5}, {{1000, kZAndA, {4.5F, 4.5F}}}},
    {"held together at a half the one that does nothing",
     {0.5F, 0.5F},
     {{2000, kZAndA, {0.5F, 0.5F}}}},
    {"Z stops at a half",
     {1, 1.5F},
     {{1000, kZ, {0.5F, 1}}, {2000, kZ, {0.5F, 0.5F}}, {3000, kZ, {0.5F, 0.5F}}}},
    {"Z lowers below a half as long as something is left",
     {0.75F, 0.25F},
     {{1000, kZ, {0.25F, 0.5F}}}},
    {"A stops at 10",
     {9, 9.75F},
     {{1000, kA, {9.5F, 10}}, {2000, kA, {10, 10}}, {3000, kA, {10, 10}}}},
    {"A makes 10 of anything above", {40, 9.5F}, {{1000, kA, {10, 10}}}},
    {"at the end of the clock",
     {5, 5},
     {{2147483646, kZ, {4.5F, 4.5F}}, {2147483647, kZ, {4.5F, 4.5F}}}},
};

TEST_F(StepKeys, ChangeTheStepsByHalvesAndNotTooOften) {
    for (const StepScript& row : kStepScripts) {
        player.camera = Camera();
        Steps(row.steps.HCamStep, row.steps.VCamStep);
        for (const StepLook& look : row.looks) {
            SCOPED_TRACE(std::string(row.name) + " at " + std::to_string(look.time));
            player.clock.now = look.time;
            Hold(look.keys);
            Control();
            ExpectSteps(look.steps.HCamStep, look.steps.VCamStep);
        }
    }
}

TEST_F(StepKeys, ActAfterTheArrowKeys) {
    Steps(2, 2);
    Show(0, 0);
    player.clock.now = 1000;
    Hold({VirtualKey::A, kRight});
    Control();
    ExpectShown(2, 0);
    ExpectSteps(2.5F, 2.5F);
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

struct Pointed {
    const char* name;
    ShownPlace pointer;
    CameraSteps steps;
    ShownPlace shown;
    WindowPlace window = {1500, 750, 9600, 7200};
};

TEST_F(MouseScroll, MovesTowardsThePointerByItsDistanceFromTheMiddle) {
    for (const Pointed& row : {
             Pointed{"right and up", {520, 210}, {10, 2}, {10, -2}},
             {"left and down", {415, 291}, {0.5F, 0.025F}, {-0.5F, 0.025F}},
             {"in the middle", {420, 290}, {0, 0}, {0, 0}},
             {"faster than the keys", {820, 290}, {40, 0}, {40, 0}},
             // The middle is at 100 + 160.5.
             {"321 pixels wide", {261, 290}, {0.05F, 0}, {0.05F, 0}, {1500, 750, 321 * 15, 7200}},
             {"left of the screen", {-220, -240}, {10, 0}, {10, 0}, {-9600, -7200, 9600, 7200}},
         }) {
        SCOPED_TRACE(row.name);
        Show(0, 0);
        player.window.MoveTo(row.window);
        PointAt(static_cast<Long>(row.pointer.x), static_cast<Long>(row.pointer.y));
        ExpectSteps(row.steps.HCamStep, row.steps.VCamStep);
        ExpectShown(row.shown.x, row.shown.y);
    }
}

TEST_F(MouseScroll, StaysWithinTheBounds) {
    player.model.BoundRight = 15;
    player.model.BoundHigh = -3;
    for (int i = 0; i < 5; ++i) {
        PointAt(520, 210);
    }
    ExpectShown(10, -2);
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
        ControlCamera(player.model, player.camera, StepUnits(), player.flags,
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

struct Gate {
    const char* name;
    Long lastKeyTick;
    Long now;
    bool open;
};

TEST_F(KeysBehind, FindTheGateOpenWhenNoKeyWasAcceptedForLongEnough) {
    for (const Gate& row : {
             Gate{"long ago", 0, 1000, true},
             {"150 milliseconds ago", 850, 1000, false},
             {"longer ago", 849, 1000, true},
             {"where the ticks begin anew", 2147483647, -2147483647 - 1 + 149, false},
             {"and longer ago", 2147483647, -2147483647 - 1 + 150, true},
         }) {
        player.camera.lastKeyTick = row.lastKeyTick;
        player.clock.now = row.now;
        ControlWith({VirtualKey::Right});
        EXPECT_EQ(witness.open, row.open) << row.name;
    }
}

// --- single steps ---

using SingleSteps = CameraControlTest;

TEST_F(SingleSteps, OfNothingMoveNothing) {
    Show(20, 0);
    StepRight(player.model, {});
    StepLeft(player.model, {});
    StepUp(player.model, {});
    StepDown(player.model, {});
    ExpectShown(20, 0);
}

struct FractionalSteps {
    const char* name;
    Long bound;
    Single step;
    Single hair;
    Single end;  // where it stands after very many steps
};

// 320 steps of 427 / 320 add up to a little more or less than 427.
TEST_F(SingleSteps, ThatEndAHairBeyondABoundEndOnIt) {
    constexpr Single kHair = 1.0F / 256;
    constexpr Single kOfWideView = 427.0F / 320;
    for (const FractionalSteps& row : {
             FractionalSteps{"that fit", 427, kOfWideView, kHair, 427},
             {"that fit, downwards", 854, 854.0F / 320, kHair, 854},
             {"that do not", 428, kOfWideView, kHair, 427},
             {"whole ones", 10, 3, kHair, 9},
             {"beyond a bound that cannot be reached", -5, 1, kHair, 0},
         }) {
        SCOPED_TRACE(row.name);
        StageModel& model = player.model;
        model.BoundRight = row.bound;
        model.BoundLeft = -row.bound;
        model.BoundLow = static_cast<Integer>(row.bound);
        model.BoundHigh = static_cast<Integer>(-row.bound);
        const CameraStep step{row.step, row.hair};
        for (const Single side : {1.0F, -1.0F}) {
            Show(0, 0);
            for (int i = 0; i < 1000; ++i) {
                side > 0 ? StepRight(model, step) : StepLeft(model, step);
                side > 0 ? StepDown(model, step) : StepUp(model, step);
            }
            EXPECT_NEAR(-model.CamX, side * row.end, 0.01F);
            EXPECT_NEAR(model.CamY, side * row.end, 0.01F);
            EXPECT_TRUE(-model.CamX * side <= static_cast<Single>(std::max(row.bound, Long{0})));
        }
    }
    player.model.BoundRight = 427;
    Show(0, 0);
    for (int i = 0; i < 1000; ++i) {
        StepRight(player.model, {kOfWideView, 0});
    }
    EXPECT_LT(-player.model.CamX, 426) << "plainly a sum that is too large is one";
}

// --- a figure that leads the camera ---

using CameraLeadTest = CameraControlTest;

struct Led {
    const char* name;
    CameraLead lead;
    Byte front;  // the pass
    Single from;
    Single to;
};

TEST_F(CameraLeadTest, MakesOneStepOfItsOwnBehindTheBackPassWithinTheBounds) {
    Steps(1, 1);
    player.camera.leadStep = 3;
    for (const Led& row : {
             Led{"right", CameraLead::Right, 0, 0, 3},
             {"not in the front pass", CameraLead::Right, kByteTrue, 3, 3},
             {"left", CameraLead::Left, 0, 3, 0},
             {"to the right bound and no further", CameraLead::Right, 0, 18, 20},
             {"to the left bound and no further", CameraLead::Left, 0, -8, -10},
             {"not from beyond the right bound", CameraLead::Right, 0, 25, 25},
             {"not from beyond the left bound", CameraLead::Left, 0, -12, -12},
         }) {
        SCOPED_TRACE(row.name);
        player.camera.lead = row.lead;
        player.flags.DrawFrontLayer = row.front;
        ExpectMove({}, {row.from, 0}, {row.to, 0});
    }
}

TEST_F(CameraLeadTest, LeavesLeftAndRightWithoutEffectAndTheOtherKeysWithTheirs) {
    player.camera.lead = CameraLead::Stand;
    for (const Byte front : {Byte{0}, kByteTrue}) {
        player.flags.DrawFrontLayer = front;
        ExpectMove({kRight}, {5, -5}, {5, -5});
        ExpectMove({kLeft}, {5, -5}, {5, -5});
        ExpectMove({kUp}, {5, -5}, {5, -6});
        ExpectMove({kDown}, {5, -5}, {5, -4});
    }
    Hold({VirtualKey::A});
    player.clock.now += 1000;
    Control();
    ExpectSteps(1.5F, 1.5F);
}

}  // namespace
}  // namespace scenara::test
