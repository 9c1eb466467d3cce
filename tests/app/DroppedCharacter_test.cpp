// SPDX-License-Identifier: MIT
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/HeroStage.h"

namespace scenara::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using DroppedCharacter = HeroProgram;

TEST_F(DroppedCharacter, WalksOnTheStageThatIsShown) {
    Start();
    WhileAIsShown({Wait, Drop(kHero), Wait, [&] {
                       EXPECT_TRUE(Character().CharLoaded);
                       EXPECT_TRUE(Character().UseChar);
                       EXPECT_EQ(form[Menu::mnuChar].caption, "Use The Hero");
                       EXPECT_TRUE(form[Menu::mnuChar].checked);
                       EXPECT_EQ(Caption(), "first");
                   }});
    EXPECT_THAT(MessageTexts(), IsEmpty());
}

// A start may name it in either reading.
TEST_F(DroppedCharacter, ThatAStartNamesWalksPlainlyToo) {
    Start({}, false);
    WhileAIsShown({Wait, [&] { program.Form_Given({kHero}); }, Wait,
                   [&] {
                       EXPECT_TRUE(Character().CharLoaded);
                       EXPECT_TRUE(Character().UseChar);
                   }});
    EXPECT_THAT(MessageTexts(), IsEmpty());
}

TEST_F(DroppedCharacter, TakesThePlaceOfTheOneThatIsOn) {
    Start(Chosen("Char = True\r\n"));
    const std::string other = "/mugen/chars/hero/other.def";
    files.Put(other, files.Get(kHero));
    WhileAIsShown({Wait, Drop(other), Wait, [&] {
                       EXPECT_EQ(Character().TestChar, other);
                       EXPECT_TRUE(Character().CharLoaded);
                       EXPECT_TRUE(Character().UseChar) << "it stays on";
                   }});
    EXPECT_THAT(MessageTexts(), IsEmpty());
}

TEST_F(DroppedCharacter, IsSaidToWaitForAStage) {
    Start();
    program.Form_OLEDragDrop({"/mugen/chars/hero"});
    EXPECT_THAT(MessageTexts(),
                ElementsAre("This is a character. The next stage that you open shows it."));
    Show(Drop(kStageA));
    EXPECT_TRUE(Character().CharLoaded);
    EXPECT_TRUE(Character().UseChar);
}

TEST_F(DroppedCharacter, ComesOnWithTheStageThatIsDroppedWithIt) {
    Start();
    user = InTurn({[&] { EXPECT_TRUE(Character().CharLoaded); }});
    program.Form_OLEDragDrop({kHero, kStageA});
    EXPECT_EQ(Caption(), "first");
    EXPECT_TRUE(Character().UseChar);
    EXPECT_THAT(MessageTexts(), IsEmpty());
}

}  // namespace
}  // namespace scenara::test
