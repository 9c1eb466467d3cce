// SPDX-License-Identifier: MIT
#include "app/TestChar.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/CharacterPass.h"
#include "app/MenuTree.h"
#include "base/Path.h"
#include "base/RunTimeError.h"
#include "character/CharacterMachine.h"
#include "platform/headless/HeadlessKeyboard.h"
#include "platform/headless/HeadlessWindow.h"
#include "platform/soft/SoftDirect3D.h"
#include "support/StageFixture.h"

namespace scenara::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// Answers with one file, and remembers what it was asked.
class AnsweringDialogs : public Dialogs {
public:
    std::string BrowseForFolder(const std::string& /*prompt*/) override { return {}; }
    std::string OpenFile(const std::string& title, const std::string& initialFolder) override {
        asked.push_back(title + " in " + initialFolder);
        return answer;
    }
    std::string InputBox(const std::string& /*prompt*/) override { return {}; }

    std::string answer;
    std::vector<std::string> asked;
};

// A main window's pieces around a stage that runs, with the hero's files on the disk.
class TestCharTest : public testing::Test {
protected:
    TestCharTest() {
        DesignMenus(form_);
        form_.Caption = "The Stage";
        engine_.Engine_Init();
        model_.P1StartX = -70;
        model_.ZOffset = 200;
        model_.BoundLeft = -100;
        model_.BoundRight = 100;
        camera_.HCamStep = 3;
        camera_.VCamStep = 4;
        loop_.StageRunning = 1;
    }

    Files& files() { return disk_.files; }
    TestCharContext Context() {
        return {state_,
                model_,
                camera_,
                savedSteps_,
                loop_,
                form_,
                flags_,
                engine_,
                disk_.files,
                disk_.messages,
                options_,
                {[this](const std::string& caption) {
                     captions_.push_back(caption);
                     form_.Caption = caption;
                 },
                 [this] { OnEvents(); },
                 {}}};
    }
    ChooseCharContext Choose() {
        return {dialogs_, mugeDir_, [this](const std::string& path) {
                    asked_.push_back(path);
                    return isChar_;
                }};
    }
    void Use() { mnuChar_Click(Context(), Choose()); }
    void Change() { mnuChange_Click(Context(), Choose()); }

    // What is seen from inside of a load.
    void OnEvents() {
        menusWhileLoading_ = form_[Menu::mnuOptions].enabled || form_[Menu::mnuStage].enabled;
        loadingWhileLoading_ = loop_.LoadingStage;
        goneWhileLoading_ = watched_.expired();
    }
    [[nodiscard]] const MenuItem& Item() const { return form_[Menu::mnuChar]; }

    CharacterMachine disk_;
    HeadlessWindow window_;
    SoftDirect3D direct3D_{KeptTextureMemory()};
    StageModel model_;
    Engine engine_{direct3D_, window_, disk_.messages, model_};
    Camera camera_;
    SavedSteps savedSteps_;
    LoopState loop_;
    Form form_;
    ViewFlags flags_;
    ViewOptions options_;
    TestCharState state_;
    AnsweringDialogs dialogs_;
    std::string mugeDir_ = "/mugen/";
    bool isChar_ = true;
    std::vector<std::string> asked_;
    std::vector<std::string> captions_;
    std::weak_ptr<Direct3DTexture8> watched_;
    bool goneWhileLoading_ = false;
    std::optional<bool> menusWhileLoading_;
    Byte loadingWhileLoading_ = 0;
};

TEST_F(TestCharTest, UseLoadsAndPlacesTheChosenOne) {
    state_.TestChar = kHero;
    Use();
    EXPECT_TRUE(state_.UseChar);
    EXPECT_TRUE(state_.CharLoaded);
    EXPECT_TRUE(Item().checked);
    EXPECT_EQ(Item().caption, "Use The Hero");
    EXPECT_EQ(state_.CharName, "The Hero");
    ASSERT_EQ(state_.Characters.size(), 1U);
    EXPECT_EQ(state_.Characters[0].X, 90.0F);
    EXPECT_EQ(state_.Characters[0].Y, 200.0F);
    EXPECT_THAT(dialogs_.asked, IsEmpty());
    EXPECT_THAT(disk_.Texts(), IsEmpty());
}

TEST_F(TestCharTest, WithNoneChosenUseAsksForOne) {
    dialogs_.answer = kHero;
    Use();
    EXPECT_THAT(dialogs_.asked,
                ElementsAre(std::string("Choose test character. in /mugen/chars") + PathSeparator));
    EXPECT_THAT(asked_, ElementsAre(kHero));
    EXPECT_EQ(state_.TestChar, kHero);
    EXPECT_TRUE(state_.UseChar);
    EXPECT_EQ(camera_.HCamStep, 2.4F);
}

TEST_F(TestCharTest, WithoutAnAnswerNothingChanges) {
    Use();
    EXPECT_FALSE(state_.UseChar);
    EXPECT_FALSE(Item().checked);
    EXPECT_EQ(camera_.HCamStep, 3.0F);
    EXPECT_THAT(disk_.Texts(), IsEmpty());
}

TEST_F(TestCharTest, AFileThatIsNoCharacterIsSaidAndNotTaken) {
    dialogs_.answer = "/mugen/stages/a.def";
    isChar_ = false;
    state_.TestChar = kHero;
    Change();
    EXPECT_THAT(disk_.Texts(), ElementsAre("Not a Character!"));
    EXPECT_EQ(state_.TestChar, kHero);
    state_.TestChar.clear();
    Use();
    EXPECT_EQ(state_.TestChar, "");
    EXPECT_FALSE(state_.UseChar);
}

TEST_F(TestCharTest, TheCameraTakesTheWalkingStepAndGivesItBack) {
    state_.TestChar = kHero;
    Use();
    EXPECT_EQ(camera_.HCamStep, 2.4F);
    EXPECT_EQ(camera_.VCamStep, 4.0F);
    EXPECT_EQ(savedSteps_.HCamStep, 3.0F);
    EXPECT_EQ(savedSteps_.VCamStep, 4.0F);
    camera_.VCamStep = 9;
    Use();
    EXPECT_FALSE(state_.UseChar);
    EXPECT_FALSE(Item().checked);
    EXPECT_EQ(camera_.HCamStep, 3.0F);
    EXPECT_EQ(camera_.VCamStep, 4.0F);
    EXPECT_TRUE(state_.CharLoaded) << "until the stage goes";
}

TEST_F(TestCharTest, ASavedStepOfNothingComesBackAsOne) {
    state_.TestChar = kHero;
    Use();
    savedSteps_.HCamStep = 0;
    Use();
    EXPECT_EQ(camera_.HCamStep, 1.0F);
}

TEST_F(TestCharTest, StepsThatThePointerSetsAreNotTheUsersOwn) {
    flags_.MouseScroll = kByteTrue;
    savedSteps_ = {5, 6};
    state_.TestChar = kHero;
    Use();
    EXPECT_EQ(savedSteps_.HCamStep, 5.0F);
    EXPECT_EQ(savedSteps_.VCamStep, 6.0F);
}

TEST_F(TestCharTest, ACharacterThatWalksBackwardsOrNotLeavesTheCameraInItsBounds) {
    state_.TestChar = kHero;
    disk_.Put("hero.cns", "[Size]\nwalk.fwd = -2\n");
    Use();
    EXPECT_EQ(camera_.HCamStep, 2.0F);
    Use();
    ReleaseTestChar(state_);
    disk_.Put("hero.cns", "[Size]\nwalk.fwd = 0\n");
    Use();
    EXPECT_EQ(camera_.HCamStep, 3.0F);
}

TEST_F(TestCharTest, WithoutAStageOnlyTheCheckMarkIsSet) {
    loop_.StageRunning = 0;
    state_.TestChar = kHero;
    Use();
    EXPECT_TRUE(state_.UseChar);
    EXPECT_FALSE(state_.CharLoaded);
    EXPECT_EQ(camera_.HCamStep, 3.0F);
    StartTestChar(Context());
    EXPECT_TRUE(state_.CharLoaded);
    EXPECT_EQ(camera_.HCamStep, 2.4F);
    EXPECT_EQ(savedSteps_.HCamStep, 3.0F);
}

TEST_F(TestCharTest, StaysOnFromStageToStage) {
    state_.TestChar = kHero;
    Use();
    ReleaseTestChar(state_);
    EXPECT_FALSE(state_.CharLoaded);
    EXPECT_THAT(state_.Characters, IsEmpty());
    model_.P1StartX = 30;
    StartTestChar(Context());
    EXPECT_TRUE(state_.CharLoaded);
    EXPECT_EQ(state_.Characters.at(0).X, 190.0F);
    EXPECT_EQ(camera_.HCamStep, 2.4F);
    EXPECT_EQ(savedSteps_.HCamStep, 3.0F) << "the user's, not the character's";
}

TEST_F(TestCharTest, AStageStartWithoutItLoadsNothing) {
    state_.TestChar = kHero;
    StartTestChar(Context());
    EXPECT_FALSE(state_.CharLoaded);
    EXPECT_EQ(camera_.HCamStep, 3.0F);
}

TEST_F(TestCharTest, AFailedLoadClearsTheSettingAndTheCheckMark) {
    state_.TestChar = kHero;
    disk_.Put("hero.air", "");
    Use();
    EXPECT_FALSE(state_.CharLoaded);
    EXPECT_EQ(state_.TestChar, "");
    EXPECT_FALSE(state_.UseChar);
    EXPECT_FALSE(Item().checked);
    EXPECT_EQ(camera_.HCamStep, 3.0F);
    EXPECT_THAT(state_.Characters, IsEmpty());
    EXPECT_TRUE(form_[Menu::mnuOptions].enabled);
    EXPECT_TRUE(form_[Menu::mnuStage].enabled);
    EXPECT_EQ(disk_.messages.Recorded().size(), 1U);
    EXPECT_THAT(captions_, ElementsAre("Loading The Hero", "The Stage"));
    dialogs_.answer = kHero;
    disk_.Put("hero.air", kHeroAnimation);
    Use();
    EXPECT_EQ(dialogs_.asked.size(), 1U) << "the next use asks";
    EXPECT_TRUE(state_.CharLoaded);
}

TEST_F(TestCharTest, AFailedLoadForgetsTheNameOfTheOneBefore) {
    state_.TestChar = kHero;
    Use();
    ASSERT_EQ(state_.CharName, "The Hero");
    dialogs_.answer = "/mugen/chars/gone.def";
    Change();
    EXPECT_EQ(state_.CharName, "");
    EXPECT_EQ(Item().caption, "&Use Test Char");
    EXPECT_EQ(form_.Caption, "The Stage");
}

TEST_F(TestCharTest, AnotherChoiceWithoutAStageForgetsTheName) {
    state_.TestChar = kHero;
    Use();
    loop_.StageRunning = 0;
    dialogs_.answer = "/mugen/chars/other.def";
    Change();
    EXPECT_EQ(state_.TestChar, "/mugen/chars/other.def");
    EXPECT_EQ(state_.CharName, "");
    EXPECT_EQ(Item().caption, "&Use Test Char");
}

TEST_F(TestCharTest, ANameHasNoAccessLetter) {
    EXPECT_FALSE(Item().isLiteral);
    disk_.Put("hero.def", std::string("displayname = \"Rock & Roll\"\n") + kHeroFiles);
    state_.TestChar = kHero;
    Use();
    EXPECT_EQ(Item().caption, "Use Rock & Roll");
    EXPECT_TRUE(Item().isLiteral);
    dialogs_.answer = "/mugen/chars/gone.def";
    Change();
    EXPECT_FALSE(Item().isLiteral);
}

TEST_F(TestCharTest, ACharacterWithoutANameIsUsedAllTheSame) {
    disk_.Put("hero.def", kHeroFiles);
    state_.TestChar = kHero;
    Use();
    EXPECT_TRUE(state_.CharLoaded);
    EXPECT_EQ(Item().caption, "Use ");
    EXPECT_THAT(captions_, ElementsAre("Loading ", "The Stage"));
}

TEST_F(TestCharTest, WithoutACharsFolderTheDialogBeginsWhereItLikes) {
    mugeDir_ = "/elsewhere/";
    Change();
    EXPECT_THAT(dialogs_.asked, ElementsAre("Choose test character. in "));
}

TEST_F(TestCharTest, WhatIsNotTakenLeavesTheOneBefore) {
    state_.TestChar = kHero;
    Use();
    Change();  // no answer
    dialogs_.answer = "/mugen/chars/stage.def";
    isChar_ = false;
    Change();
    EXPECT_EQ(state_.TestChar, kHero);
    EXPECT_EQ(state_.CharName, "The Hero");
    EXPECT_EQ(Item().caption, "Use The Hero");
    EXPECT_TRUE(state_.CharLoaded);
    EXPECT_EQ(camera_.HCamStep, 2.4F);
    EXPECT_THAT(captions_, ElementsAre("Loading The Hero", "The Stage")) << "it loaded once";
}

TEST_F(TestCharTest, ChangingWithoutADeviceKeepsTheUsersStepsSaved) {
    state_.TestChar = kHero;
    Use();
    engine_.Engine_Deinit();
    dialogs_.answer = kHero;
    EXPECT_THROW(Change(), RunTimeError);
    EXPECT_FALSE(state_.CharLoaded);
    EXPECT_EQ(UsersSteps(camera_, savedSteps_, state_, flags_).HCamStep, 3.0F);
    EXPECT_TRUE(form_[Menu::mnuOptions].enabled);
}

TEST_F(TestCharTest, AFailureAtTheNextStageGivesTheStepsBack) {
    state_.TestChar = kHero;
    Use();
    ReleaseTestChar(state_);
    disk_.Put("hero.air", "");
    StartTestChar(Context());
    EXPECT_FALSE(state_.UseChar);
    EXPECT_EQ(camera_.HCamStep, 3.0F);
}

TEST_F(TestCharTest, ChangingLoadsTheOtherOneAtOnce) {
    state_.TestChar = kHero;
    Use();
    disk_.files.Put("/mugen/chars/other.def",
                    "displayname = Other\n[Files]\nanim = hero/hero.air\nsprite = hero/hero.sff\n"
                    "cns = other.cns\n");
    disk_.files.Put("/mugen/chars/other.cns", "[Size]\nwalk.fwd = 1.25\n");
    dialogs_.answer = "/mugen/chars/other.def";
    state_.Characters[0].X = 7;
    Change();
    EXPECT_EQ(state_.CharName, "Other");
    EXPECT_EQ(Item().caption, "Use Other");
    EXPECT_EQ(state_.Characters.at(0).X, 90.0F);
    EXPECT_EQ(camera_.HCamStep, 1.25F);
    EXPECT_EQ(savedSteps_.HCamStep, 3.0F);
}

TEST_F(TestCharTest, ChangingToABrokenOneSwitchesItOff) {
    state_.TestChar = kHero;
    Use();
    dialogs_.answer = "/mugen/chars/gone.def";
    Change();
    EXPECT_FALSE(state_.UseChar);
    EXPECT_FALSE(Item().checked);
    EXPECT_FALSE(state_.CharLoaded);
    EXPECT_EQ(state_.TestChar, "");
    EXPECT_THAT(state_.Characters, IsEmpty());
    EXPECT_EQ(camera_.HCamStep, 3.0F);
    EXPECT_EQ(camera_.VCamStep, 4.0F);
}

TEST_F(TestCharTest, ThePicturesBeforeAreGoneWhenTheNextLoads) {
    state_.TestChar = kHero;
    Use();
    watched_ = state_.Characters.at(0).Sprites.at(0).texture;
    dialogs_.answer = kHero;
    goneWhileLoading_ = false;
    Change();
    EXPECT_TRUE(goneWhileLoading_);
}

TEST_F(TestCharTest, OneIsDriven) {
    state_.CharCount = 7;
    state_.CharZoom = 3;
    state_.TestChar = kHero;
    Use();
    EXPECT_EQ(state_.CharCount, 1);
    EXPECT_EQ(state_.CharZoom, 1.0F);
    EXPECT_EQ(state_.Characters.size(), 1U);
}

// A key has moved the camera by the user's step, and the elements follow in the next pass.
TEST_F(TestCharTest, ElementsFollowTheLastMoveByTheStepOfThatMove) {
    BackgroundElement element;
    element.deltaX = 0.5F;
    element.deltaY = 1;
    element.posX = 100;
    element.posY = 50;
    model_.Elements.push_back(element);
    model_.CamX = -3;  // right
    model_.CamY = -4;  // up
    state_.TestChar = kHero;
    Use();
    EXPECT_EQ(model_.Elements[0].posX, 98.5F);
    EXPECT_EQ(model_.Elements[0].posY, 54.0F);
    EXPECT_EQ(camera_.previousX, -3.0F);
    EXPECT_EQ(camera_.previousY, -4.0F);
    model_.CamX -= camera_.HCamStep;  // 2.4
    Use();
    EXPECT_FLOAT_EQ(model_.Elements[0].posX, 98.5F - 1.2F);
    EXPECT_EQ(camera_.HCamStep, 3.0F);
}

TEST_F(TestCharTest, PlainTheyFollowItByTheNewStep) {
    options_.Additions = false;
    BackgroundElement element;
    element.deltaX = 1;
    element.posX = 100;
    model_.Elements.push_back(element);
    model_.CamX = -3;
    state_.TestChar = kHero;
    Use();
    EXPECT_EQ(model_.Elements[0].posX, 100.0F);
    EXPECT_EQ(camera_.previousX, 0.0F) << "the next pass brings it there, by 2.4";
}

TEST_F(TestCharTest, ChangingWhileItIsOffLeavesItOff) {
    dialogs_.answer = kHero;
    Change();
    EXPECT_TRUE(state_.CharLoaded);
    EXPECT_FALSE(state_.UseChar);
    EXPECT_FALSE(Item().checked);
    EXPECT_EQ(camera_.HCamStep, 3.0F);
}

TEST_F(TestCharTest, ChangingWithoutAStageOnlyTakesTheChoice) {
    loop_.StageRunning = 0;
    dialogs_.answer = kHero;
    Change();
    EXPECT_EQ(state_.TestChar, kHero);
    EXPECT_FALSE(state_.CharLoaded);
}

TEST_F(TestCharTest, ASecondUseDoesNotLoadAgain) {
    state_.TestChar = kHero;
    Use();
    Use();
    disk_.Put("hero.air", "");
    state_.Characters.at(0).X = 7;
    Use();
    EXPECT_TRUE(state_.CharLoaded);
    EXPECT_EQ(state_.Characters.at(0).X, 90.0F) << "but it is placed anew";
    EXPECT_THAT(disk_.Texts(), IsEmpty());
}

TEST_F(TestCharTest, WhileItLoadsMenusAreOffAndAStageIsLoading) {
    state_.TestChar = kHero;
    Use();
    ASSERT_TRUE(menusWhileLoading_);
    EXPECT_FALSE(*menusWhileLoading_);
    EXPECT_EQ(loadingWhileLoading_, 1);
    EXPECT_TRUE(form_[Menu::mnuOptions].enabled);
    EXPECT_TRUE(form_[Menu::mnuStage].enabled);
    EXPECT_EQ(loop_.LoadingStage, 0);
    EXPECT_THAT(captions_, ElementsAre("Loading The Hero", "The Stage"));
}

TEST_F(TestCharTest, WithoutADeviceTheErrorLeavesNothingHalfDone) {
    engine_.Engine_Deinit();
    state_.TestChar = kHero;
    EXPECT_THROW(Use(), RunTimeError);
    EXPECT_TRUE(form_[Menu::mnuOptions].enabled);
    EXPECT_EQ(loop_.LoadingStage, 0);
    EXPECT_FALSE(state_.CharLoaded);
}

TEST_F(TestCharTest, TheConfigurationGetsTheUsersSteps) {
    state_.TestChar = kHero;
    EXPECT_EQ(UsersSteps(camera_, savedSteps_, state_, flags_).HCamStep, 3.0F);
    Use();
    EXPECT_EQ(UsersSteps(camera_, savedSteps_, state_, flags_).HCamStep, 3.0F);
    EXPECT_EQ(UsersSteps(camera_, savedSteps_, state_, flags_).VCamStep, 4.0F);
    Use();
    camera_.HCamStep = 8;
    EXPECT_EQ(UsersSteps(camera_, savedSteps_, state_, flags_).HCamStep, 8.0F);
    flags_.MouseScroll = kByteTrue;
    EXPECT_EQ(UsersSteps(camera_, savedSteps_, state_, flags_).HCamStep, 3.0F);
}

// --- its part in a pass ---

class CharacterPassTest : public TestCharTest {
protected:
    CharacterPassTest() {
        state_.TestChar = kHero;
        Use();
    }
    Figure Advance(const KeySet& keys = {}) {
        keyboard_.Hold(keys);
        return AdvanceCharacter({state_, camera_, keyboard_, flags_, options_}, model_);
    }

    HeadlessKeyboard keyboard_;
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

TEST_F(CharacterPassTest, GivesTheSameFigureAgainWhereTheCameraIsNow) {
    const CharacterPass pass{state_, camera_, keyboard_, flags_, options_};
    const Figure first = Advance({VirtualKey::Right});
    const Single place = state_.Characters[0].X;
    camera_.previousX = -20;
    camera_.previousY = -8;
    for (int i = 0; i < 2; ++i) {
        const Figure again = SameCharacter(pass, model_);
        EXPECT_EQ(again.texture, first.texture);
        EXPECT_EQ(again.x, first.x - 20);
        EXPECT_EQ(again.y, first.y + 8);
        EXPECT_EQ(again.width, first.width);
    }
    EXPECT_EQ(state_.Characters[0].X, place);
    options_.Additions = false;
    EXPECT_EQ(SameCharacter(pass, model_).texture, nullptr);
    options_.Additions = true;
    Use();  // off
    EXPECT_EQ(SameCharacter(pass, model_).texture, nullptr);
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
    flags_.MouseScroll = kByteTrue;
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
    options_.Additions = false;
    EXPECT_EQ(Advance({VirtualKey::Right}).texture, nullptr);
    EXPECT_EQ(camera_.lead, CameraLead::Keys);
    EXPECT_EQ(state_.Characters.at(0).X, 90.0F);
    options_.Additions = true;
    ReleaseTestChar(state_);
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
