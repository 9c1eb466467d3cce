// SPDX-License-Identifier: MIT
//
// How the window asks for a character, and what its menu item says.
#include <functional>
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

class ChooseCharacter : public HeroProgram {
protected:
    // While a stage runs.
    void Run(const std::string& settings, const std::function<void()>& act) {
        Start(settings);
        bool did = false;
        user = InTurn({[&] {
            act();
            did = true;
        }});
        program.Form_OLEDragDrop({kStageA});
        EXPECT_TRUE(did);
    }
    void Use() { Click(Menu::mnuChar); }
    void Change(const std::string& answer) {
        dialogs.Answer(answer);
        Click(Menu::mnuChange);
    }
    const MenuItem& Item() { return form[Menu::mnuChar]; }
};

TEST_F(ChooseCharacter, WithNoneChosenUseAsksForOne) {
    Run("", [&] {
        dialogs.Answer(kHero);
        Use();
        ASSERT_EQ(dialogs.Asked().size(), 1U);
        EXPECT_EQ(dialogs.Asked()[0].text, "Choose test character.");
        EXPECT_EQ(dialogs.Asked()[0].initialFolder, std::string("/mugen/chars") + PathSeparator);
        EXPECT_EQ(Character().TestChar, kHero);
        EXPECT_TRUE(Character().UseChar);
        EXPECT_TRUE(Item().checked);
        EXPECT_TRUE(Character().CharLoaded);
        EXPECT_EQ(Item().caption, "Use The Hero");
        EXPECT_FLOAT_EQ(Step(), 2.4F);
        EXPECT_EQ(Caption(), "first");
        Use();
        EXPECT_FLOAT_EQ(Step(), 1);
        EXPECT_THAT(MessageTexts(), IsEmpty());
    });
}

TEST_F(ChooseCharacter, WithoutAnAnswerNothingChanges) {
    Run("HCamStep = 3\r\n", [&] {
        Use();
        EXPECT_EQ(dialogs.Asked().size(), 1U);
        EXPECT_FALSE(Character().UseChar);
        EXPECT_FALSE(Item().checked);
        EXPECT_EQ(Step(), 3.0F);
        EXPECT_THAT(MessageTexts(), IsEmpty());
    });
}

TEST_F(ChooseCharacter, AFileThatIsNoCharacterIsReportedAndNotTaken) {
    Run(Chosen(), [&] {
        Change(kStageA);
        EXPECT_THAT(MessageTexts(), Contains("Not a Character!"));
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
        EXPECT_EQ(Step(), 2.4F);
        EXPECT_THAT(MessageTexts(), ElementsAre("Not a Character!"));
    });
}

TEST_F(ChooseCharacter, ANameHasNoAccessLetter) {
    EXPECT_FALSE(Item().isLiteral);
    CharacterMachine hero;
    hero.Put("hero.def", std::string("displayname = \"Rock & Roll\"\n") + kHeroFiles);
    Run(Chosen(), [&] {
        PutHero(*this, hero);
        Use();
        EXPECT_EQ(Item().caption, "Use Rock & Roll");
        EXPECT_TRUE(Item().isLiteral);
        files.Put("/mugen/chars/hero/hero.air", "");
        Change(kHero);
        EXPECT_EQ(Item().caption, "&Use Test Char") << "it could not be loaded";
        EXPECT_FALSE(Item().isLiteral);
        EXPECT_FALSE(Item().checked);
    });
}

TEST_F(ChooseCharacter, AnotherOneWithoutAStageForgetsTheName) {
    Run(Chosen("CharName = The Hero\r\n"), [] {});
    EXPECT_EQ(Item().caption, "Use The Hero");
    program.UnloadStuff();
    Change(kHero);
    EXPECT_EQ(Item().caption, "&Use Test Char");
}

TEST_F(ChooseCharacter, WithoutACharsFolderTheDialogBeginsWhereItLikes) {
    Run("MugeDir = /elsewhere/\r\n", [&] {
        Change("");
        EXPECT_EQ(dialogs.Asked().at(0).initialFolder, "");
    });
}

TEST_F(ChooseCharacter, MenusAreOffWhileItLoads) {
    std::vector<bool> enabled;
    Run(Chosen(), [&] {
        Use();
        EXPECT_TRUE(form[Menu::mnuStage].enabled);
    });
    WhileAIsShown({Choose(Menu::mnuChar), Choose(Menu::mnuChar)}, [&] {
        enabled.push_back(form[Menu::mnuOptions].enabled);
        enabled.push_back(form[Menu::mnuStage].enabled);
        enabled.push_back(form[Menu::mnuDebug].enabled);
    });
    EXPECT_THAT(enabled, Contains(false));
    EXPECT_THAT(enabled, testing::Not(Contains(true)));
}

}  // namespace
}  // namespace scenara::test
