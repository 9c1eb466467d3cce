// SPDX-License-Identifier: MIT
#include <memory>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/RunTimeError.h"
#include "character/CharacterMachine.h"
#include "show/ShownStage.h"

namespace scenara::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// A stage that runs, with the hero's files on the disk.
class TestCharTest : public testing::Test {
protected:
    TestCharTest() {
        for (const char* const name : {"hero.def", "hero.air", "hero.cns", "hero.sff"}) {
            const std::string path = std::string("/mugen/chars/hero/") + name;
            shown_.files.Put(path, hero_.files.Get(path));
        }
        shown_.duringProgress = [this] {
            statesWhileLoading_.push_back(show_.State());
            goneWhileLoading_ = watched_.expired();
        };
        show_.TheEngine().Engine_Init();
        model_.P1StartX = -70;
        model_.ZOffset = 200;
        model_.BoundLeft = -100;
        model_.BoundRight = 100;
        camera_.HCamStep = 3;
        camera_.VCamStep = 4;
        loop_.StageRunning = 1;
    }

    // At (100, 50).
    void PutElement(Single deltaX) {
        BackgroundElement element;
        element.deltaX = deltaX;
        element.deltaY = 1;
        element.posX = 100;
        element.posY = 50;
        model_.Elements.push_back(element);
    }
    // A file of the hero's folder.
    void Put(const std::string& name, const std::string& bytes) {
        shown_.files.Put("/mugen/chars/hero/" + name, bytes);
    }
    void Use() { show_.UseCharacter(!state_.UseChar); }
    void UseHero() {
        state_.TestChar = kHero;
        Use();
    }
    void ExpectSteps(Single across, Single up) {
        EXPECT_EQ(camera_.HCamStep, across);
        EXPECT_EQ(camera_.VCamStep, up);
    }
    void ExpectUsersSteps(Single across, Single up) {
        EXPECT_EQ(camera_.users.HCamStep, across);
        EXPECT_EQ(camera_.users.VCamStep, up);
    }
    // Switched off, with nothing loaded.
    void ExpectNone() {
        EXPECT_FALSE(state_.UseChar);
        EXPECT_FALSE(state_.CharLoaded);
        EXPECT_EQ(state_.TestChar, "");
        EXPECT_THAT(state_.Characters, IsEmpty());
        ExpectSteps(3, 4);
    }
    // Without the stage's pictures and characters, and yet a stage.
    void Release() {
        show_.Release();
        show_.TheEngine().Engine_Init();
        loop_.StageRunning = 1;
    }
    void StartAgain(const std::string& p1startx = "-70") {
        EXPECT_TRUE(shown_.Start("[PlayerInfo]\np1startx = " + p1startx +
                                 "\n[Camera]\nboundleft = -100\nboundright = 100\n"
                                 "[StageInfo]\nzoffset = 200\n"));
    }

    CharacterMachine hero_;
    ShownStage shown_;
    StageShow& show_ = shown_.show;
    StageModel& model_ = show_.Model();
    Camera& camera_ = show_.CameraState();
    LoopState& loop_ = show_.Loop();
    TestCharState& state_ = show_.TestChar();
    std::weak_ptr<Direct3DTexture8> watched_;
    bool goneWhileLoading_ = false;
    std::vector<ShowState> statesWhileLoading_;
};

TEST_F(TestCharTest, UseLoadsAndPlacesTheChosenOne) {
    UseHero();
    EXPECT_TRUE(state_.UseChar);
    EXPECT_TRUE(state_.CharLoaded);
    EXPECT_EQ(state_.CharName, "The Hero");
    ASSERT_EQ(state_.Characters.size(), 1U);
    EXPECT_EQ(state_.Characters[0].X, 90.0F);
    EXPECT_EQ(state_.Characters[0].Y, 200.0F);
    EXPECT_THAT(shown_.Texts(), IsEmpty());
}

TEST_F(TestCharTest, TheCameraTakesTheWalkingStepAndGivesItBack) {
    UseHero();
    ExpectSteps(2.4F, 4.0F);
    ExpectUsersSteps(3.0F, 4.0F);
    camera_.VCamStep = 9;
    Use();
    EXPECT_FALSE(state_.UseChar);
    ExpectSteps(3.0F, 4.0F);
    EXPECT_TRUE(state_.CharLoaded) << "until the stage goes";
}

TEST_F(TestCharTest, ASavedStepOfNothingComesBackAsOne) {
    UseHero();
    camera_.users.HCamStep = 0;
    Use();
    EXPECT_EQ(camera_.HCamStep, 1.0F);
}

TEST_F(TestCharTest, StepsThatThePointerSetsAreNotTheUsersOwn) {
    show_.Flags().MouseScroll = kByteTrue;
    camera_.users = {5, 6};
    UseHero();
    ExpectUsersSteps(5.0F, 6.0F);
}

TEST_F(TestCharTest, ACharacterThatWalksBackwardsOrNotLeavesTheCameraInItsBounds) {
    state_.TestChar = kHero;
    Put("hero.cns", "[Size]\nwalk.fwd = -2\n");
    Use();
    EXPECT_EQ(camera_.HCamStep, 2.0F);
    Use();
    Release();
    Put("hero.cns", "[Size]\nwalk.fwd = 0\n");
    Use();
    EXPECT_EQ(camera_.HCamStep, 3.0F);
}

TEST_F(TestCharTest, WithoutAStageOnlyTheCheckMarkIsSet) {
    loop_.StageRunning = 0;
    UseHero();
    EXPECT_TRUE(state_.UseChar);
    EXPECT_FALSE(state_.CharLoaded);
    EXPECT_EQ(camera_.HCamStep, 3.0F);
    StartAgain();
    EXPECT_TRUE(state_.CharLoaded);
    EXPECT_EQ(camera_.HCamStep, 2.4F);
    EXPECT_EQ(camera_.users.HCamStep, 3.0F);
}

TEST_F(TestCharTest, StaysOnFromStageToStage) {
    UseHero();
    Release();
    EXPECT_FALSE(state_.CharLoaded);
    EXPECT_THAT(state_.Characters, IsEmpty());
    StartAgain("30");
    EXPECT_TRUE(state_.CharLoaded);
    EXPECT_EQ(state_.Characters.at(0).X, 190.0F);
    EXPECT_EQ(camera_.HCamStep, 2.4F);
    EXPECT_EQ(camera_.users.HCamStep, 3.0F) << "the user's, not the character's";
}

TEST_F(TestCharTest, AStageStartWithoutItLoadsNothing) {
    state_.TestChar = kHero;
    StartAgain();
    EXPECT_FALSE(state_.CharLoaded);
    EXPECT_EQ(camera_.HCamStep, 3.0F);
}

TEST_F(TestCharTest, AFailedLoadClearsTheSettingAndTheCheckMark) {
    state_.TestChar = kHero;
    Put("hero.air", "");
    Use();
    ExpectNone();
    EXPECT_EQ(shown_.messages.Recorded().size(), 1U);
    EXPECT_THAT(shown_.captions, ElementsAre("Loading The Hero", "as before"));
    Put("hero.air", kHeroAnimation);
    UseHero();
    EXPECT_TRUE(state_.CharLoaded);
}

TEST_F(TestCharTest, AnotherChoiceWithoutAStageForgetsTheName) {
    UseHero();
    loop_.StageRunning = 0;
    show_.ChooseCharacter("/mugen/chars/other.def");
    EXPECT_EQ(state_.TestChar, "/mugen/chars/other.def");
    EXPECT_EQ(state_.CharName, "");
}

TEST_F(TestCharTest, ACharacterWithoutANameIsUsedAllTheSame) {
    Put("hero.def", kHeroFiles);
    UseHero();
    EXPECT_TRUE(state_.CharLoaded);
    EXPECT_THAT(shown_.captions, ElementsAre("Loading ", "as before"));
}

TEST_F(TestCharTest, ChangingWithoutADeviceKeepsTheUsersStepsSaved) {
    UseHero();
    show_.TheEngine().Engine_Deinit();
    EXPECT_THROW(show_.ChooseCharacter(kHero), RunTimeError);
    EXPECT_FALSE(state_.CharLoaded);
    EXPECT_EQ(show_.UsersSteps().HCamStep, 3.0F);
}

TEST_F(TestCharTest, AFailureAtTheNextStageGivesTheStepsBack) {
    UseHero();
    Release();
    Put("hero.air", "");
    StartAgain();
    EXPECT_FALSE(state_.UseChar);
    EXPECT_EQ(camera_.HCamStep, 3.0F);
}

TEST_F(TestCharTest, ChangingLoadsTheOtherOneAtOnce) {
    UseHero();
    shown_.files.Put("/mugen/chars/other.def",
                     "displayname = Other\n[Files]\nanim = hero/hero.air\nsprite = hero/hero.sff\n"
                     "cns = other.cns\n");
    shown_.files.Put("/mugen/chars/other.cns", "[Size]\nwalk.fwd = 1.25\n");
    state_.Characters[0].X = 7;
    show_.ChooseCharacter("/mugen/chars/other.def");
    EXPECT_EQ(state_.CharName, "Other");
    EXPECT_EQ(state_.Characters.at(0).X, 90.0F);
    EXPECT_EQ(camera_.HCamStep, 1.25F);
    EXPECT_EQ(camera_.users.HCamStep, 3.0F);
}

TEST_F(TestCharTest, ChangingToABrokenOneSwitchesItOffAndForgetsTheName) {
    UseHero();
    ASSERT_EQ(state_.CharName, "The Hero");
    show_.ChooseCharacter("/mugen/chars/gone.def");
    ExpectNone();
    EXPECT_EQ(state_.CharName, "");
}

TEST_F(TestCharTest, ThePicturesBeforeAreGoneWhenTheNextLoads) {
    UseHero();
    watched_ = state_.Characters.at(0).Sprites.at(0).texture;
    goneWhileLoading_ = false;
    show_.ChooseCharacter(kHero);
    EXPECT_TRUE(goneWhileLoading_);
}

TEST_F(TestCharTest, OneIsDriven) {
    state_.CharCount = 7;
    state_.CharZoom = 3;
    UseHero();
    EXPECT_EQ(state_.CharCount, 1);
    EXPECT_EQ(state_.CharZoom, 1.0F);
    EXPECT_EQ(state_.Characters.size(), 1U);
}

TEST_F(TestCharTest, PlainTheyFollowItByTheNewStep) {
    show_.Options().Additions = false;
    PutElement(1);
    model_.CamX = -3;
    UseHero();
    EXPECT_EQ(model_.Elements[0].posX, 100.0F);
    EXPECT_EQ(camera_.previousX, 0.0F) << "the next pass brings it there, by 2.4";
}

TEST_F(TestCharTest, ChangingWhileItIsOffLeavesItOff) {
    show_.ChooseCharacter(kHero);
    EXPECT_TRUE(state_.CharLoaded);
    EXPECT_FALSE(state_.UseChar);
    EXPECT_EQ(camera_.HCamStep, 3.0F);
}

TEST_F(TestCharTest, ChangingWithoutAStageOnlyTakesTheChoice) {
    loop_.StageRunning = 0;
    show_.ChooseCharacter(kHero);
    EXPECT_EQ(state_.TestChar, kHero);
    EXPECT_FALSE(state_.CharLoaded);
}

TEST_F(TestCharTest, ASecondUseDoesNotLoadAgain) {
    UseHero();
    Use();
    Put("hero.air", "");
    state_.Characters.at(0).X = 7;
    Use();
    EXPECT_TRUE(state_.CharLoaded);
    EXPECT_EQ(state_.Characters.at(0).X, 90.0F) << "but it is placed anew";
    EXPECT_THAT(shown_.Texts(), IsEmpty());
}

TEST_F(TestCharTest, WhileItLoadsTheStateSaysSo) {
    UseHero();
    EXPECT_THAT(statesWhileLoading_, ElementsAre(ShowState::Loading));
    EXPECT_EQ(shown_.states.back(), ShowState::Running);
    EXPECT_EQ(loop_.LoadingStage, 0);
    EXPECT_THAT(shown_.captions, ElementsAre("Loading The Hero", "as before"));
}

TEST_F(TestCharTest, WithoutADeviceTheErrorLeavesNothingHalfDone) {
    show_.TheEngine().Engine_Deinit();
    state_.TestChar = kHero;
    EXPECT_THROW(Use(), RunTimeError);
    EXPECT_EQ(loop_.LoadingStage, 0);
    EXPECT_FALSE(state_.CharLoaded);
}

TEST_F(TestCharTest, TheConfigurationGetsTheUsersSteps) {
    state_.TestChar = kHero;
    EXPECT_EQ(show_.UsersSteps().HCamStep, 3.0F);
    Use();
    EXPECT_EQ(show_.UsersSteps().HCamStep, 3.0F);
    EXPECT_EQ(show_.UsersSteps().VCamStep, 4.0F);
    Use();
    camera_.HCamStep = 8;
    EXPECT_EQ(show_.UsersSteps().HCamStep, 8.0F);
    show_.Flags().MouseScroll = kByteTrue;
    EXPECT_EQ(show_.UsersSteps().HCamStep, 3.0F);
}

// --- its part in a pass ---

class CharacterPassTest : public TestCharTest {
protected:
    CharacterPassTest() { UseHero(); }
    Figure Advance(const KeySet& keys = {}) {
        shown_.keyboard.Hold(keys);
        return show_.Next();
    }
};

// Standing: 0,0, 4 x 6 pixels, axis 1,2, at .5 and .75 of its size, on 90,200.
TEST_F(CharacterPassTest, GivesTheFigureAsTheCameraSeesIt) {
    camera_.previousX = -20;
    camera_.previousY = -8;
    const Figure figure = Advance();
    ASSERT_NE(figure.texture, nullptr);
    EXPECT_EQ((*figure.texture)->Width(), 4);
    EXPECT_EQ(figure.x, 69.5F);   // 90 - 0.5 - 20
    EXPECT_EQ(figure.y, 206.5F);  // 200 - 1.5 + 8
    EXPECT_EQ(figure.width, 2.0F);
    EXPECT_EQ(figure.height, 4.5F);
    EXPECT_FALSE(figure.mirrored);
    EXPECT_EQ(camera_.lead, CameraLead::Stand);
}

// Its feet stay on the ground, and the middle of the view stays where it is.
TEST_F(CharacterPassTest, GivesTheFigureAsItIsZoomed) {
    camera_.previousX = -20;
    model_.CamZoom = 2;
    const Figure figure = Advance();
    EXPECT_EQ(figure.x, -21.0F);  // 160 + 2 (69.5 - 160)
    EXPECT_EQ(figure.y, 197.0F);  // 200 + 2 (198.5 - 200)
    EXPECT_EQ(figure.width, 4.0F);
    EXPECT_EQ(figure.height, 9.0F);
}

TEST_F(CharacterPassTest, GivesTheSameFigureAgainWhereTheCameraIsNow) {
    const Figure first = Advance({VirtualKey::Right});
    const Single place = state_.Characters[0].X;
    camera_.previousX = -20;
    camera_.previousY = -8;
    for (int i = 0; i < 2; ++i) {
        const Figure again = show_.Again();
        EXPECT_EQ(again.texture, first.texture);
        EXPECT_EQ(again.x, first.x - 20);
        EXPECT_EQ(again.y, first.y + 8);
        EXPECT_EQ(again.width, first.width);
    }
    EXPECT_EQ(state_.Characters[0].X, place);
    show_.Options().Additions = false;
    EXPECT_EQ(show_.Again().texture, nullptr);
    show_.Options().Additions = true;
    Use();  // off
    EXPECT_EQ(show_.Again().texture, nullptr);
}

TEST_F(CharacterPassTest, LeadsTheCameraByItsOwnStep) {
    state_.Characters[0].X = 170;
    camera_.HCamStep = 0.5F;  // what Z has made of it
    static_cast<void>(Advance({VirtualKey::Right}));
    EXPECT_EQ(camera_.lead, CameraLead::Right);
    EXPECT_EQ(camera_.leadStep, 2.4F);
    EXPECT_EQ(camera_.HCamStep, 0.5F);
    state_.Characters[0].HasTurn = false;
    state_.Characters[0].X = 150;
    static_cast<void>(Advance());
    EXPECT_EQ(camera_.lead, CameraLead::Stand);
    const Figure figure = Advance({VirtualKey::Left});
    EXPECT_EQ(camera_.lead, CameraLead::Left);
    EXPECT_TRUE(figure.mirrored);
}

TEST_F(CharacterPassTest, ThePointerLeadsTheCameraItself) {
    show_.Flags().MouseScroll = kByteTrue;
    state_.Characters[0].X = 170;
    static_cast<void>(Advance({VirtualKey::Right}));
    EXPECT_EQ(camera_.lead, CameraLead::Stand);
    EXPECT_TRUE(state_.Characters[0].Walking);
}

TEST_F(CharacterPassTest, OffOrPlainThereIsNoFigureAndTheKeysLead) {
    static_cast<void>(Advance());
    Use();  // off
    EXPECT_EQ(Advance({VirtualKey::Right}).texture, nullptr);
    EXPECT_EQ(camera_.lead, CameraLead::Keys);
    Use();
    show_.Options().Additions = false;
    EXPECT_EQ(Advance({VirtualKey::Right}).texture, nullptr);
    EXPECT_EQ(camera_.lead, CameraLead::Keys);
    EXPECT_EQ(state_.Characters.at(0).X, 90.0F);
    show_.Options().Additions = true;
    Release();
    EXPECT_EQ(Advance().texture, nullptr);
    EXPECT_EQ(camera_.lead, CameraLead::Keys);
}

TEST_F(CharacterPassTest, ABlankFrameIsNoFigure) {
    state_.Characters[0].Actions[0].frames[0].texture = -1;
    EXPECT_EQ(Advance().texture, nullptr);
    EXPECT_EQ(camera_.lead, CameraLead::Stand);
}

}  // namespace
}  // namespace scenara::test
