// SPDX-License-Identifier: MIT
#include "character/UpdateCharacter.h"

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/headless/HeadlessKeyboard.h"
#include "support/AllocationCount.h"
#include "support/NullDevice.h"

namespace scenara::test {
namespace {

using testing::Each;
using testing::ElementsAre;

// A character whose frames show sprites of their own: in each slot, textures slot * 10 + n are
// 20 + slot * 10 + n wide, 50 high, axis 8,40.
class UpdateCharacterTest : public testing::Test {
protected:
    UpdateCharacterTest() {
        model_.BoundLeft = -100;
        model_.BoundRight = 100;
        model_.ZOffset = 200;
        model_.P1StartX = -70;
        state_.Characters.emplace_back();
        for (int i = 0; i < 30; ++i) {
            CharSprite sprite;
            sprite.axisX = 8;
            sprite.axisY = 40;
            sprite.texture = std::make_shared<NullTexture>(20 + i, 50);
            Hero().Sprites.push_back(std::move(sprite));
        }
        Action(kStanding, {4, 4});
        Action(kTurning, {2, 3});
        Action(kWalking, {1, 2, 3});
        Hero().HasTurn = true;
        Hero().WalkSpeed = 2;
        PlaceCharacter(state_, model_, View());
    }

    TestCharacter& Hero() { return state_.Characters.front(); }
    CharAction& Slot(Integer slot) { return Hero().Actions.at(static_cast<std::size_t>(slot)); }

    // Frames of these times, each with a texture of its own.
    void Action(Integer slot, const std::vector<int>& times, Integer loopStart = 0) {
        CharAction action;
        action.LoopStart = loopStart;
        for (const int time : times) {
            CharFrame frame;
            frame.time = static_cast<Integer>(time);
            frame.texture =
                static_cast<Integer>(slot * 10 + static_cast<int>(action.frames.size()));
            action.frames.push_back(frame);
        }
        Slot(slot) = action;
    }
    void Place() { PlaceCharacter(state_, model_, View()); }

    CameraLead Update(const KeySet& keys = {}) {
        keyboard_.Hold(keys);
        along_ = UpdateCharacter(state_, model_, keyboard_, camera_, View());
        const CameraLead side = along_ > 0 ? CameraLead::Right : CameraLead::Left;
        return along_ == 0 ? CameraLead::Stand : side;
    }
    // What it does and where it is then.
    [[nodiscard]] std::string Now() {
        const char* const actions[] = {"standing ", "turning ", "walking "};
        EXPECT_EQ(Hero().Walking, Hero().Action == kWalking);
        return actions[Hero().Action] + std::to_string(static_cast<int>(Hero().X)) +
               (Hero().Facing == kFacingLeft ? " left" : " right");
    }
    // The same after each frame with these keys.
    std::vector<std::string> Does(const std::vector<KeySet>& frames) {
        std::vector<std::string> lines;
        for (const KeySet& keys : frames) {
            static_cast<void>(Update(keys));
            lines.push_back(Now());
        }
        return lines;
    }
    // What the camera is to do in each of them.
    std::vector<CameraLead> Follows(const std::vector<KeySet>& frames) {
        std::vector<CameraLead> follows;
        for (const KeySet& keys : frames) {
            follows.push_back(Update(keys));
        }
        return follows;
    }
    // Elements to stand on, and which of them is the ground.
    std::vector<BackgroundElement>& StandOn(Integer link, Long startY, std::size_t count = 1) {
        BackgroundElement element;
        element.linkParent = -1;
        element.startY = startY;
        element.posY = static_cast<Single>(startY);
        model_.Elements.assign(count, element);
        model_.ZOffset = 0;
        model_.ZOffsetLink = link;
        return model_.Elements;
    }
    // Where it is drawn after a frame with these keys.
    std::pair<Single, Single> DrawnAt(const KeySet& keys = {}) {
        static_cast<void>(Update(keys));
        return {Hero().DrawX, Hero().DrawY};
    }

    // The textures of so many frames, in a row.
    std::vector<int> Shown(int frames, const KeySet& keys = {}) {
        std::vector<int> textures;
        for (int i = 0; i < frames; ++i) {
            static_cast<void>(Update(keys));
            textures.push_back(Hero().DrawTexture);
        }
        return textures;
    }

    static inline const KeySet kRight{VirtualKey::Right};
    static inline const KeySet kLeft{VirtualKey::Left};
    static inline const KeySet kBoth{VirtualKey::Right, VirtualKey::Left};

    StageModel model_;
    TestCharState state_;
    HeadlessKeyboard keyboard_;
    CameraPlace camera_;
    Single along_ = 0;  // how far the camera was to go with the last frame
};

// --- placing ---

using PlaceCharacterTest = UpdateCharacterTest;

TEST_F(PlaceCharacterTest, StandsAtTheFirstPlayersPlace) {
    EXPECT_EQ(Now(), "standing 90 right");
    EXPECT_EQ(Hero().Y, 200.0F);
    EXPECT_EQ(Hero().FrameTime, 4);
}

struct StartRow {
    const char* name;
    Integer start;  // p1startx
    Single with;    // where it stands with additions
};

TEST_F(PlaceCharacterTest, WithAdditionsItStandsWhereItCanWalk) {
    model_.ScreenLeft = 15;
    model_.ScreenRight = 10;
    for (const StartRow& row : {
             StartRow{"between the bounds", -70, 90},
             {"at the left one", -245, -85},
             {"beyond it", -246, -85},
             {"far beyond it", -32768, -85},
             {"at the right one", 250, 410},
             {"beyond it, too", 251, 410},
         }) {
        SCOPED_TRACE(row.name);
        model_.P1StartX = row.start;
        PlaceCharacter(state_, model_, View(), ViewOptions());
        EXPECT_EQ(Hero().X, row.with);
        Place();
        EXPECT_EQ(Hero().X, static_cast<Single>(row.start + 160)) << "plainly";
    }
    std::swap(model_.BoundLeft, model_.BoundRight);
    model_.BoundLeft = 5000;
    PlaceCharacter(state_, model_, View(), ViewOptions());
    EXPECT_EQ(Hero().X, 5015.0F) << "bounds the wrong way round: at the left one";
}

TEST_F(PlaceCharacterTest, ForgetsTheLastStage) {
    EXPECT_THAT(Does({kLeft}), ElementsAre("turning 90 left"));
    model_.P1StartX = 5;
    Place();
    EXPECT_FALSE(state_.Turning);
    EXPECT_FALSE(state_.LeftHeld);
    EXPECT_THAT(Does({{}, {}}), ElementsAre("standing 165 right", "standing 165 right"));
    EXPECT_EQ(Hero().DrawTexture, 0) << "it does not turn";
}

TEST_F(PlaceCharacterTest, WithoutAGroundLineStandsOnTheLinkedElement) {
    StandOn(1, 33, 2)[1].posY = 33.5F;
    Place();
    EXPECT_EQ(Hero().Y, 33.5F);
    model_.ZOffset = 7;
    Place();
    EXPECT_EQ(Hero().Y, 7.0F);
}

TEST_F(PlaceCharacterTest, WithoutEitherStaysWhereItIs) {
    model_.ZOffset = 0;
    for (const Integer link : {Integer{-1}, Integer{3}}) {
        model_.ZOffsetLink = link;
        Hero().Y = 12;
        Place();
        EXPECT_EQ(Hero().Y, 12.0F);
    }
}

TEST_F(PlaceCharacterTest, WithoutFramesOfStandingTheClockIsAtZero) {
    Slot(kStanding).frames.clear();
    Place();
    EXPECT_EQ(Hero().FrameTime, 0);
    EXPECT_THAT(Shown(2), ElementsAre(-1, -1)) << "and nothing is shown";
    EXPECT_THAT(Shown(1, kRight), ElementsAre(20)) << "until it walks";
}

// --- keys and states ---

TEST_F(UpdateCharacterTest, WalksRightWhileTheKeyIsHeld) {
    EXPECT_THAT(Does({kRight, {}, {}}),
                ElementsAre("walking 92 right", "standing 92 right", "standing 92 right"));
    state_.CharCount = 0;  // only so many are moved
    EXPECT_EQ(Update(kRight), CameraLead::Stand);
    EXPECT_EQ(Now(), "standing 92 right");
    state_.CharCount = 5;
    EXPECT_THAT(Does({kRight}), ElementsAre("walking 94 right"));
}

TEST_F(UpdateCharacterTest, TurnsBeforeItWalksTheOtherWay) {
    EXPECT_THAT(Shown(5, kLeft), ElementsAre(10, 10, 11, 11, 11));
    EXPECT_TRUE(state_.Turning);
    EXPECT_EQ(Hero().X, 90.0F) << "standing where it was";
    EXPECT_THAT(Shown(3, kLeft), ElementsAre(11, 20, 21)) << "the last once more, then it walks";
    EXPECT_EQ(Now(), "walking 86 left");
}

TEST_F(UpdateCharacterTest, KeysWaitWhileItTurns) {
    EXPECT_THAT(Does({kLeft, kRight, kRight, kRight, kRight}), Each("turning 90 left"));
    static_cast<void>(Update());
    EXPECT_FALSE(state_.Turning);
}

TEST_F(UpdateCharacterTest, AKeyLetGoInATurnLeavesItStanding) {
    static_cast<void>(Does({kLeft, {}, {}, {}, {}, {}}));
    EXPECT_FALSE(state_.Turning);
    EXPECT_THAT(Shown(2), ElementsAre(0, 0));
    EXPECT_EQ(Now(), "standing 90 left");
}

TEST_F(UpdateCharacterTest, WithoutPicturesOfTurningItWalksAtOnce) {
    Slot(kTurning).frames.clear();
    for (const bool announced : {false, true}) {
        Place();
        Hero().HasTurn = announced;
        EXPECT_THAT(Shown(1, kLeft), ElementsAre(20));
        EXPECT_EQ(Now(), "walking 88 left");
        EXPECT_EQ(Hero().DrawFacing, kFacingLeft);
        EXPECT_FALSE(state_.Turning);
    }
}

TEST_F(UpdateCharacterTest, LeftWinsWhileBothAreHeld) {
    Hero().HasTurn = false;
    EXPECT_THAT(Does({kBoth}), ElementsAre("walking 88 left"));
}

TEST_F(UpdateCharacterTest, LettingOneOfTwoKeysGoStandsForAFrame) {
    Hero().HasTurn = false;
    EXPECT_THAT(Does({kBoth, kLeft, kLeft}),
                ElementsAre("walking 88 left", "standing 88 left", "walking 86 left"));
    Place();
    EXPECT_THAT(Does({kBoth, kRight}), ElementsAre("walking 88 left", "standing 88 right"));
    EXPECT_FALSE(state_.LeftHeld);
    EXPECT_THAT(Does({kRight}), ElementsAre("walking 90 right"));
}

TEST_F(UpdateCharacterTest, EachChangeOfDirectionIsTurnedOnceAndNoMore) {
    EXPECT_THAT(Shown(8, kLeft), ElementsAre(10, 10, 11, 11, 11, 11, 20, 21));
    EXPECT_THAT(Shown(2, kLeft), ElementsAre(21, 22)) << "it walks on";
    EXPECT_THAT(Shown(8, kRight), ElementsAre(10, 10, 11, 11, 11, 11, 20, 21)) << "and back";
    EXPECT_EQ(Hero().Facing, kFacingRight);
}

// Answers once more for a key that was pressed and let go, as a real one does.
class RememberingKeyboard : public Keyboard {
public:
    Integer GetAsyncKeyState(VirtualKey key) override {
        const bool was = pressed.Contains(key);
        pressed.Remove(key);
        return was ? Integer{1} : Integer{0};
    }
    KeySet pressed;
};

TEST_F(UpdateCharacterTest, AKeyPressedAndLetGoInATurnIsForgotten) {
    RememberingKeyboard keyboard;
    keyboard.pressed = kLeft;
    static_cast<void>(UpdateCharacter(state_, model_, keyboard, camera_, View()));
    EXPECT_TRUE(state_.Turning);
    keyboard.pressed = kRight;
    for (int i = 0; i < 8; ++i) {
        static_cast<void>(UpdateCharacter(state_, model_, keyboard, camera_, View()));
    }
    EXPECT_EQ(Now(), "standing 90 left");
}

// --- the clock ---

TEST_F(UpdateCharacterTest, EachFrameIsShownForItsTime) {
    EXPECT_THAT(Shown(10), ElementsAre(0, 0, 0, 0, 1, 1, 1, 1, 0, 0));
    EXPECT_THAT(Shown(8, kRight), ElementsAre(20, 21, 21, 22, 22, 22, 20, 21))
        << "one of time 1 for exactly one";
    Place();
    Slot(kStanding).frames[1].texture = -1;
    EXPECT_THAT(Shown(9), ElementsAre(0, 0, 0, 0, -1, -1, -1, -1, 0)) << "one shows nothing";
}

TEST_F(UpdateCharacterTest, AnActionBeginsWithItsFirstFrame) {
    static_cast<void>(Shown(5));
    for (int time = 0; time < 2; ++time) {
        EXPECT_THAT(Shown(2, kRight), ElementsAre(20, 21));
        EXPECT_THAT(Shown(2), ElementsAre(0, 0));
    }
}

TEST_F(UpdateCharacterTest, ALoopGoesBackToItsStart) {
    Action(kWalking, {1, 1, 1, 1, 1}, 3);
    EXPECT_THAT(Shown(10, kRight), ElementsAre(20, 21, 22, 23, 24, 23, 24, 23, 24, 23));
    Place();
    Action(kWalking, {1, 1}, 2);
    EXPECT_THAT(Shown(4, kRight), ElementsAre(20, 21, 20, 21)) << "behind the last: to the first";
}

TEST_F(UpdateCharacterTest, AFrameOfNegativeTimeStaysAndOneOfNoTimeIsPassedOver) {
    struct Row {
        std::vector<int> times;
        std::vector<int> shown;
    };
    for (const Row& row : {Row{{2, -1, 3}, {0, 0, 1, 1, 1, 1}},
                           {{-1, 3}, {0, 0, 0}},
                           {{0, 1, 0, 0, 2}, {1, 4, 4, 1, 4, 4, 1}},
                           {{0, 0}, {0, 0, 0}}}) {  // nothing else is there
        Action(kStanding, row.times);
        Place();
        EXPECT_EQ(Shown(static_cast<int>(row.shown.size())), row.shown);
    }
}

TEST_F(UpdateCharacterTest, ATurnThatWouldHoldForEverEnds) {
    Action(kTurning, {1, -1});
    EXPECT_THAT(Shown(3, kLeft), ElementsAre(10, 11, 20));
    EXPECT_FALSE(state_.Turning);
    Action(kTurning, {0, 0});
    Place();
    EXPECT_THAT(Shown(2, kLeft), ElementsAre(11, 20)) << "one of no time";
}

// --- where it is drawn ---

TEST_F(UpdateCharacterTest, TheAxisLiesOnThePlaceWhicheverWayItFaces) {
    EXPECT_EQ(DrawnAt(), std::pair(82.0F, 160.0F));  // 90 - 8, 200 - 40
    EXPECT_EQ(Hero().DrawFacing, 1);
    EXPECT_EQ(Hero().DrawWidth, 20);
    EXPECT_EQ(Hero().DrawHeight, 50);
    Hero().HasTurn = false;
    EXPECT_EQ(DrawnAt(kLeft).first, 98.0F) << "90 + 8, the right edge, before the step";
    EXPECT_EQ(Hero().DrawFacing, -1);
    EXPECT_EQ(Hero().DrawWidth, 40);
}

TEST_F(UpdateCharacterTest, AFlippedFrameFacesTheOtherWay) {
    Slot(kStanding).frames[0].flip = 1;
    Slot(kStanding).frames[0].offsetX = 3;
    EXPECT_EQ(DrawnAt().first, 95.0F);  // 90 + 8 - 3
    EXPECT_EQ(Hero().DrawFacing, -1);
    EXPECT_EQ(Hero().Facing, 1);
    EXPECT_FALSE(state_.FrameFlipped) << "cleared when handed over";
}

TEST_F(UpdateCharacterTest, ScaleAndZoomAreOfPictureAndOffsetAndZoomOfTheStep) {
    Slot(kStanding).frames[0].offsetX = 4;
    Slot(kStanding).frames[0].offsetY = -10;
    Hero().XScale = 0.5F;
    Hero().YScale = 2;
    EXPECT_EQ(DrawnAt(), std::pair(88.0F, 100.0F));  // 90 - (8 - 4) / 2, 200 - (40 + 10) * 2
    EXPECT_EQ(state_.CharZoom, 1.0F) << "by placing";
    Hero().XScale = Hero().YScale = 1;
    state_.CharZoom = 2;
    EXPECT_EQ(DrawnAt(), std::pair(82.0F, 100.0F));  // 90 - (8 - 4) * 2, 200 - (40 + 10) * 2
    EXPECT_THAT(Does({kRight}), ElementsAre("walking 94 right"));
    Place();
    EXPECT_EQ(state_.CharZoom, 1.0F);
}

TEST_F(UpdateCharacterTest, TheCamerasHeightIsTakenOff) {
    camera_ = {-50, -30};
    EXPECT_EQ(DrawnAt(), std::pair(82.0F, 190.0F));
}

TEST_F(UpdateCharacterTest, OnALinkedElementItGoesUpAndDownWithIt) {
    StandOn(0, 180)[0].sinOffset[1] = 5;
    Place();
    EXPECT_EQ(Hero().Y, 180.0F);
    EXPECT_EQ(DrawnAt().second, 145.0F) << "180 + 5, less the axis";
    model_.Elements[0].motion[1] = 10;
    EXPECT_EQ(DrawnAt().second, 155.0F);
    camera_ = {0, -20};
    model_.Elements[0].posY = 400;
    EXPECT_EQ(DrawnAt().second, 175.0F) << "as at a delta of 1, whatever the element's is";
    model_.Elements[0].startFraction[1] = -0.5F;
    model_.ZOffset = 7;
    EXPECT_EQ(DrawnAt().second, 181.5F) << "below the element";
    model_.hires = 1;
    EXPECT_EQ(DrawnAt().second, 84.25F) << "(179.5 + 15) / 2";
    model_.StageYScale = -3;
    EXPECT_EQ(DrawnAt().second, -304.75F) << "and -3 times that";
}

TEST_F(UpdateCharacterTest, OnAnElementThatIsLinkedItselfTheParentSwings) {
    auto& elements = StandOn(1, 100, 2);
    elements[0].sinOffset[1] = 5;
    elements[0].motion[1] = 3;
    elements[1].linkParent = 0;
    elements[1].motion[1] = 2;
    elements[1].startY = -30;
    elements[1].sinOffset[1] = 77;
    Place();
    EXPECT_EQ(DrawnAt().second, 40.0F);  // 100 - 30 + 5 + 3 + 2 - 40
}

TEST_F(UpdateCharacterTest, PlacedAgainItStandsWhereGroundAndCameraAreNow) {
    StandOn(0, 180);
    Place();
    EXPECT_EQ(DrawnAt(kRight).second, 140.0F);
    const TestCharacter before = Hero();
    for (int i = 0; i < 2; ++i) {
        PlaceAgain(state_, model_, camera_);
        EXPECT_EQ(Hero().DrawY, 140.0F);
    }
    model_.Elements[0].startY = 150;  // dragged
    PlaceAgain(state_, model_, camera_);
    EXPECT_EQ(Hero().DrawY, 110.0F);
    camera_.y = -20;  // the camera has risen
    PlaceAgain(state_, model_, camera_);
    EXPECT_EQ(Hero().DrawY, 130.0F);
    EXPECT_EQ(Hero().X, before.X);
    EXPECT_EQ(Hero().DrawX, before.DrawX);
    EXPECT_EQ(Hero().Frame, before.Frame);
    EXPECT_EQ(Hero().FrameTime, before.FrameTime);
}

TEST_F(UpdateCharacterTest, PlacedAgainOnAGroundLineOnlyTheCameraCounts) {
    EXPECT_EQ(DrawnAt().second, 160.0F);
    camera_.y = -20;
    for (int i = 0; i < 2; ++i) {
        PlaceAgain(state_, model_, camera_);
        EXPECT_EQ(Hero().DrawY, 180.0F);
    }
}

// --- the stage's bounds, and the camera ---

TEST_F(UpdateCharacterTest, ItStaysWithinHalfAViewOfTheBounds) {
    model_.ScreenLeft = 15;
    model_.ScreenRight = 10;
    Hero().HasTurn = false;
    static_cast<void>(Shown(500, kRight));
    EXPECT_EQ(Hero().X, 410.0F) << "100 + 160 - 10, and 160";
    static_cast<void>(Shown(500, kLeft));
    EXPECT_EQ(Hero().X, -84.0F) << "-100 - 160 + 15 is -245, a step of 2 short, and 160";
}

// Zoomed out by half the camera sees from -160 to 480 at its place 0, so from -260 to 580 in all.
TEST_F(UpdateCharacterTest, ItGoesAsFarAsTheCameraSeesWhenItIsFarthestAway) {
    model_.ZoomOut = 0.5F;
    model_.ScreenLeft = 15;
    model_.ScreenRight = 10;
    Hero().HasTurn = false;
    for (const double zoom : {0.5, 1.0}) {
        model_.CamZoom = zoom;
        static_cast<void>(Shown(500, kRight));
        EXPECT_EQ(Hero().X, 570.0F) << "580 - 10";
        static_cast<void>(Shown(500, kLeft));
        EXPECT_EQ(Hero().X, -244.0F) << "-260 + 15, a step of 2 short";
    }
}

TEST_F(UpdateCharacterTest, AStepIsWholeOrNotMade) {
    Hero().WalkSpeed = 30;
    static_cast<void>(Shown(50, kRight));
    EXPECT_EQ(Hero().X, 420.0F);  // 90 + 11 * 30; 420 is the last
    Hero().WalkSpeed = 7;
    static_cast<void>(Shown(1, kRight));
    EXPECT_EQ(Hero().X, 420.0F) << "427 would be beyond";
}

TEST_F(UpdateCharacterTest, BeyondABoundItMayWalkBack) {
    Hero().X = 1000;
    Hero().HasTurn = false;
    EXPECT_THAT(Does({kRight, {}, kLeft}),
                ElementsAre("walking 1000 right", "standing 1000 right", "walking 998 left"));
}

TEST_F(UpdateCharacterTest, TheCameraGoesAlongFromTheMiddleOn) {
    using enum CameraLead;
    Hero().HasTurn = false;
    Hero().X = 158;
    EXPECT_THAT(Follows({kRight, kRight, {}}), ElementsAre(Stand, Right, Stand)) << "160, 162";
    Hero().X = 162;
    EXPECT_THAT(Follows({kLeft, kLeft, kLeft}), ElementsAre(Stand, Left, Left));
    Place();
    camera_ = {-40, 0};  // 40 to the right: the middle is that of the view as it is drawn
    Hero().X = 198;
    EXPECT_THAT(Follows({kRight, kRight}), ElementsAre(Stand, Right));
}

// The camera is a sum of the same steps as the character's place, in the other direction.
TEST_F(UpdateCharacterTest, TheCameraGoesAlongInEachFrameOfAWideStage) {
    Hero().HasTurn = false;
    Hero().WalkSpeed = 2.4F;
    Hero().X = 160;
    model_.BoundRight = 5000;
    for (int frame = 0; frame < 1500; ++frame) {
        ASSERT_EQ(Update(kRight), CameraLead::Right) << frame;
        camera_.x -= 2.4F;
    }
}

struct OutOfThePicture {
    const char* name;
    Single camera;  // stored
    Single x;
    Integer facing;
    Single along;
};

// The edges of the picture, less ScreenLeft and ScreenRight, are 15 and 310.
TEST_F(UpdateCharacterTest, TheCameraGoesAsFarAsTheCharacterIsSeen) {
    model_.ScreenLeft = 15;
    model_.ScreenRight = 10;
    model_.BoundLeft = -1000;
    model_.BoundRight = 1000;
    Hero().HasTurn = false;
    for (const OutOfThePicture& row : {
             OutOfThePicture{"in the middle", 0, 160, kFacingRight, 2},
             {"before the middle", 0, 100, kFacingRight, 0},
             {"at the right edge", 0, 308, kFacingRight, 2},
             {"beyond it", 0, 330, kFacingRight, 22},
             {"coming back to it", 0, 330, kFacingLeft, 18},
             {"far beyond it", 500, 500, kFacingRight, 692},
             {"at the left edge", 0, 17, kFacingLeft, -2},
             {"beyond the left edge", -40, 50, kFacingLeft, -7},
             {"coming back to the left edge", -40, 50, kFacingRight, -3},
         }) {
        Hero().X = row.x;
        camera_.x = row.camera;
        static_cast<void>(Update());
        static_cast<void>(Update(row.facing == kFacingRight ? kRight : kLeft));
        EXPECT_EQ(along_, row.along) << row.name;
    }
    Hero().X = 900;
    camera_.x = 0;
    static_cast<void>(Update());
    EXPECT_EQ(along_, 590) << "also while it stands";
}

// At a zoom of 2 the picture goes from 80 to 240, at .5 from -160 to 480.
TEST_F(UpdateCharacterTest, ZoomMovesTheEdgesAtWhichTheCameraMustGo) {
    model_.ZoomOut = 0.5F;
    model_.ScreenLeft = 15;
    model_.ScreenRight = 10;
    model_.BoundLeft = -1000;
    model_.BoundRight = 1000;
    Hero().HasTurn = false;
    for (const auto& [zoom, x, along] : {std::tuple(2.0, 250.0F, 22.0F),
                                         {2.0, 90.0F, -3.0F},
                                         {0.5, 476.0F, 8.0F},
                                         {0.5, -140.0F, 0.0F}}) {
        model_.CamZoom = zoom;
        Hero().X = x;
        camera_.x = 0;
        static_cast<void>(Update());
        static_cast<void>(Update(kRight));
        EXPECT_EQ(along_, along) << zoom << ", " << x;
    }
}

TEST_F(UpdateCharacterTest, TheCameraStandsWhereTheCharacterCannotGo) {
    EXPECT_EQ(Update(kLeft), CameraLead::Stand);
    EXPECT_TRUE(state_.Turning);
    Place();
    Hero().HasTurn = false;
    Hero().WalkSpeed = 0;
    Hero().X = 170;
    EXPECT_EQ(Update(kRight), CameraLead::Stand) << "it walks on the spot";
    static_cast<void>(Update());
    Hero().WalkSpeed = 2;
    model_.ScreenRight = 130;  // the end is within the last view
    Hero().X = 289;            // 129 to the right, 100 + 160 - 130 = 130 are allowed
    camera_.x = -120;
    EXPECT_EQ(Update(kRight), CameraLead::Stand);
    EXPECT_EQ(Hero().X, 289.0F);
}

TEST_F(UpdateCharacterTest, OneThatWalksBackwardsStaysWithinTheBounds) {
    Hero().WalkSpeed = -2;
    Hero().X = 150;
    EXPECT_EQ(Update(kRight), CameraLead::Left);
    EXPECT_EQ(Hero().X, 148.0F);
    static_cast<void>(Shown(500, kRight));
    EXPECT_EQ(Hero().X, -100.0F);
}

TEST_F(UpdateCharacterTest, AsksForNoMemory) {
    const std::size_t before = AllocationCount();
    for (int i = 0; i < 100; ++i) {
        static_cast<void>(Update(kRight));
        static_cast<void>(Update(kLeft));
    }
    PlaceAgain(state_, model_, camera_);
    EXPECT_EQ(AllocationCount(), before);
}

}  // namespace
}  // namespace scenara::test
