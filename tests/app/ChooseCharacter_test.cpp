// SPDX-License-Identifier: MIT
//
// How the window asks for a character, and what its menu item says.
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/HeroStage.h"
#include "base/Path.h"

namespace scenara::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

class ChooseCharacter : public testing::Test {
protected:
    // While a stage runs.
    void Run(const std::string& settings, const std::function<void()>& act) {
        stage_->files.Put(kConfiguration, "MugeDir = " + mugeDir_ + "\r\n" + settings);
        PutHero(*stage_);
        stage_->Load();
        bool did = false;
        stage_->user = InTurn({[&](RunningStage& /*running*/) {
            act();
            did = true;
        }});
        stage_->program.Form_OLEDragDrop(kStageA);
        EXPECT_TRUE(did);
    }
    void Use() { stage_->Click(Menu::mnuChar); }
    void Change(const std::string& answer) {
        stage_->dialogs.Answer(answer);
        stage_->Click(Menu::mnuChange);
    }
    const MenuItem& Item() { return stage_->form[Menu::mnuChar]; }
    const TestCharState& Character() { return stage_->program.Show().TestChar(); }

    std::string mugeDir_ = "/mugen/";
    std::unique_ptr<RunningStage> stage_ = std::make_unique<RunningStage>();
};

TEST_F(ChooseCharacter, WithNoneChosenUseAsksForOne) {
    Run("", [&] {
        stage_->dialogs.Answer(kHero);
        Use();
        ASSERT_EQ(stage_->dialogs.Asked().size(), 1U);
        EXPECT_EQ(stage_->dialogs.Asked()[0].text, "Choose test character.");
        EXPECT_EQ(stage_->dialogs.Asked()[0].initialFolder,
                  std::string("/mugen/chars") + PathSeparator);
        EXPECT_EQ(Character().TestChar, kHero);
        EXPECT_TRUE(Character().UseChar);
        EXPECT_TRUE(Item().checked);
        EXPECT_EQ(Item().caption, "Use The Hero");
    });
}

TEST_F(ChooseCharacter, WithoutAnAnswerNothingChanges) {
    Run("HCamStep = 3\r\n", [&] {
        Use();
        EXPECT_EQ(stage_->dialogs.Asked().size(), 1U);
        EXPECT_FALSE(Character().UseChar);
        EXPECT_FALSE(Item().checked);
        EXPECT_EQ(StepOf(*stage_), 3.0F);
        EXPECT_THAT(stage_->MessageTexts(), IsEmpty());
    });
}

TEST_F(ChooseCharacter, AFileThatIsNoCharacterIsReportedAndNotTaken) {
    Run(Chosen(), [&] {
        Change(kStageA);
        EXPECT_THAT(stage_->MessageTexts(), Contains("Not a Character!"));
        EXPECT_EQ(Character().TestChar, kHero);
        EXPECT_FALSE(Character().UseChar);
    });
}

TEST_F(ChooseCharacter, WhatIsNotTakenLeavesTheOneBefore) {
    Run(Chosen(), [&] {
        Use();
        Change("");
        Change(kStageA);
        EXPECT_EQ(Character().TestChar, kHero);
        EXPECT_EQ(Character().CharName, "The Hero");
        EXPECT_EQ(Item().caption, "Use The Hero");
        EXPECT_TRUE(Character().CharLoaded);
        EXPECT_EQ(StepOf(*stage_), 2.4F);
    });
}

TEST_F(ChooseCharacter, ANameHasNoAccessLetter) {
    EXPECT_FALSE(Item().isLiteral);
    CharacterMachine hero;
    hero.Put("hero.def", std::string("displayname = \"Rock & Roll\"\n") + kHeroFiles);
    Run(Chosen(), [&] {
        PutHero(*stage_, hero);
        Use();
        EXPECT_EQ(Item().caption, "Use Rock & Roll");
        EXPECT_TRUE(Item().isLiteral);
        stage_->files.Put("/mugen/chars/hero/hero.air", "");
        Change(kHero);
        EXPECT_EQ(Item().caption, "&Use Test Char") << "it could not be loaded";
        EXPECT_FALSE(Item().isLiteral);
        EXPECT_FALSE(Item().checked);
    });
}

TEST_F(ChooseCharacter, AnotherOneWithoutAStageForgetsTheName) {
    Run(Chosen("CharName = The Hero\r\n"), [] {});
    EXPECT_EQ(Item().caption, "Use The Hero");
    stage_->program.UnloadStuff();
    Change(kHero);
    EXPECT_EQ(Item().caption, "&Use Test Char");
}

TEST_F(ChooseCharacter, WithoutACharsFolderTheDialogBeginsWhereItLikes) {
    mugeDir_ = "/elsewhere/";
    Run("", [&] {
        Change("");
        EXPECT_EQ(stage_->dialogs.Asked().at(0).initialFolder, "");
    });
}

TEST_F(ChooseCharacter, MenusAreOffWhileItLoads) {
    std::vector<bool> enabled;
    Run(Chosen(), [&] {
        Use();
        EXPECT_TRUE(stage_->form[Menu::mnuStage].enabled);
    });
    stage_->user =
        InTurn({ClickOn(Menu::mnuChar), ClickOn(Menu::mnuChar)}, [&](RunningStage& running) {
            enabled.push_back(running.form[Menu::mnuOptions].enabled);
            enabled.push_back(running.form[Menu::mnuStage].enabled);
            enabled.push_back(running.form[Menu::mnuDebug].enabled);
        });
    stage_->program.Form_OLEDragDrop(kStageA);
    EXPECT_THAT(enabled, Contains(false));
    EXPECT_THAT(enabled, testing::Not(Contains(true)));
}

}  // namespace
}  // namespace scenara::test
