// SPDX-License-Identifier: MIT
#include "character/LoadCharacter.h"

#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "character/CharacterMachine.h"

namespace scenara::test {
namespace {

using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;

TEST(LoadCharacter, FillsTheRecord) {
    CharacterMachine machine;
    machine.character.flag = 3;
    machine.character.Walking = true;
    EXPECT_TRUE(machine.Load());
    EXPECT_EQ(machine.character.DisplayName, "The Hero");
    EXPECT_EQ(machine.character.XScale, 0.5F);
    EXPECT_EQ(machine.character.YScale, 0.75F);
    EXPECT_EQ(machine.character.WalkSpeed, 2.4F);
    EXPECT_TRUE(machine.character.HasTurn);
    EXPECT_EQ(machine.character.flag, 0);
    EXPECT_FALSE(machine.character.Walking);
    EXPECT_EQ(machine.character.ActionIn(kStanding).frames.size(), 2U);
    EXPECT_EQ(machine.character.ActionIn(kTurning).frames.size(), 2U);
    EXPECT_EQ(machine.character.ActionIn(kWalking).frames.size(), 2U);
    EXPECT_THAT(machine.Texts(), IsEmpty());
}

TEST(LoadCharacter, SaysWhoIsLoading) {
    CharacterMachine machine;
    EXPECT_TRUE(machine.Load());
    EXPECT_THAT(machine.captions, ElementsAre("Loading The Hero"));
}

TEST(LoadCharacter, AMissingDefinitionIsSaidWithFolderAndExtensionTwice) {
    CharacterMachine machine;
    EXPECT_FALSE(machine.Load("/mugen/chars/gone.def"));
    EXPECT_THAT(machine.Texts(),
                ElementsAre("/mugen/chars//mugen/chars/gone.def.def could not be found.\r\n"
                            "Unable to load /mugen/chars/gone.def."));
    EXPECT_EQ(machine.messages.Recorded()[0].title, "Cohortia");
    EXPECT_EQ(machine.messages.Recorded()[0].icon, MessageIcon::Exclamation);
}

TEST(LoadCharacter, ACharacterThatDoesNotWalkIsRefused) {
    CharacterMachine machine;
    machine.Put("hero.air",
                "[Begin Action 0]\n0,0, 0,0, 7\n[Begin Action 20]\n[Begin Action 21]\n"
                "20,0, 0,0, 5\n");
    EXPECT_FALSE(machine.Load());
    EXPECT_THAT(machine.Texts(),
                ElementsAre("Unable to load /mugen/chars/hero/hero.def - character has no walking "
                            "frames."));
    EXPECT_EQ(machine.messages.Recorded()[0].title, "Cohortia");
    EXPECT_EQ(machine.messages.Recorded()[0].icon, MessageIcon::Exclamation);
}

TEST(LoadCharacter, PlainANegativeGroupIsSaidWithTheName) {
    CharacterMachine machine;
    machine.Put("hero.air", std::string(kHeroAnimation) + "-1,0, 0,0, 5\n");
    machine.view.Additions = false;
    EXPECT_FALSE(machine.Load());
    EXPECT_THAT(machine.Texts(), ElementsAre("Unable to load \"The Hero\""));
    EXPECT_EQ(machine.messages.Recorded()[0].title, "Cohortia");
    EXPECT_EQ(machine.messages.Recorded()[0].icon, MessageIcon::Exclamation);
    machine.view.Additions = true;
    EXPECT_TRUE(machine.Load());
}

TEST(LoadCharacter, WithoutTurningItStillLoads) {
    CharacterMachine machine;
    machine.Put("hero.air", "[Begin Action 20]\n20,0, 0,0, 5\n");
    EXPECT_TRUE(machine.Load());
    EXPECT_FALSE(machine.character.HasTurn);
    EXPECT_THAT(machine.Texts(), IsEmpty());
}

TEST(LoadCharacter, WithoutItsConstantsItLoadsAndThatIsSaid) {
    CharacterMachine machine;
    machine.Put("hero.def", "[Files]\nanim = hero.air\nsprite = hero.sff\ncns = gone.cns\n");
    EXPECT_TRUE(machine.Load());
    EXPECT_EQ(machine.character.XScale, 1.0F);
    EXPECT_EQ(machine.character.YScale, 1.0F);
    EXPECT_EQ(machine.character.WalkSpeed, 1.0F);
    EXPECT_THAT(machine.Texts(),
                ElementsAre("Unable to load /mugen/chars/hero/hero.def - gone.cns could not be "
                            "found."));
}

TEST(LoadCharacter, WithoutItsAnimationsOrItsArchiveItDoesNot) {
    CharacterMachine machine;
    machine.Put("hero.def", "[Files]\nanim = gone.air\nsprite = hero.sff\ncns = hero.cns\n");
    EXPECT_FALSE(machine.Load());
    machine.Put("hero.def", "[Files]\nanim = hero.air\nsprite = sub/gone.sff\ncns = hero.cns\n");
    EXPECT_FALSE(machine.Load());
    machine.Put("hero.def", "[Files]\nanim = hero.air\ncns = hero.cns\n");
    EXPECT_FALSE(machine.Load());
    EXPECT_THAT(
        machine.Texts(),
        ElementsAre("Unable to load /mugen/chars/hero/hero.def - gone.air could not be found.",
                    "Unable to load /mugen/chars/hero/hero.def - sub/gone.sff could not be found.",
                    "Unable to load /mugen/chars/hero/hero.def - its .sff file could not be "
                    "found."));
    EXPECT_THAT(machine.messages.Recorded(), Each(testing::Field(&Message::title, "Cohortia")));
    EXPECT_THAT(machine.messages.Recorded(),
                Each(testing::Field(&Message::icon, MessageIcon::Exclamation)));
}

TEST(LoadCharacter, AFileThatBreaksOffIsSaidByName) {
    for (const char* name : {"hero.def", "hero.air", "hero.sff"}) {
        CharacterMachine machine;
        machine.files.Break(std::string("/mugen/chars/hero/") + name);
        EXPECT_FALSE(machine.Load());
        EXPECT_THAT(machine.Texts(),
                    ElementsAre(std::string("Unable to load /mugen/chars/hero/hero.def - Device "
                                            "I/O error: /mugen/chars/hero/") +
                                name + "."));
        EXPECT_EQ(machine.messages.Recorded()[0].title, "Cohortia");
        EXPECT_EQ(machine.messages.Recorded()[0].icon, MessageIcon::Exclamation);
    }
}

TEST(LoadCharacter, ConstantsThatBreakOffAreSaidAndLeftOut) {
    CharacterMachine machine;
    machine.files.Break("/mugen/chars/hero/hero.cns");
    EXPECT_TRUE(machine.Load());
    EXPECT_EQ(machine.character.XScale, 1.0F);
    EXPECT_EQ(machine.character.WalkSpeed, 1.0F);
    EXPECT_THAT(machine.Texts(), ElementsAre("Unable to load /mugen/chars/hero/hero.def - Device "
                                             "I/O error: /mugen/chars/hero/hero.cns."));
    EXPECT_EQ(machine.messages.Recorded()[0].title, "Cohortia");
}

TEST(LoadCharacter, APaletteThatBreaksOffColoursNothing) {
    CharacterMachine machine;
    machine.Put("hero.def", std::string("pal.defaults = 2\n") + kHeroFiles + "pal2 = red.act\n");
    machine.Put("red.act", std::string(768, 'x'));
    EXPECT_TRUE(machine.Load());
    const Words coloured = machine.Pixels(kWalking, 1);
    machine.files.Break("/mugen/chars/hero/red.act");
    EXPECT_TRUE(machine.Load());
    EXPECT_NE(machine.Pixels(kWalking, 1), coloured);
    EXPECT_THAT(machine.Texts(), IsEmpty());
}

// The palette that the definition names counts for nothing then, file or not.
TEST(LoadCharacter, WithoutDefaultPaletteTheArchivesFirstColoursHold) {
    CharacterMachine machine;
    machine.view.Additions = false;
    machine.Put("hero.def", std::string(kHeroFiles) + "pal1 = red.act\n");
    machine.Put("red.act", std::string(768, 'x'));
    EXPECT_TRUE(machine.Load());
    EXPECT_EQ(machine.Pixels(kWalking, 1),
              KeyedByIndex(StripedPicture(8, 6, PaletteOf(5)), PaletteOf(1)));
    EXPECT_EQ(machine.character.ColorKey, 0xFF0100);
}

TEST(LoadCharacter, FilesMayLieInOtherFoldersUnderAnyCase) {
    CharacterMachine machine;
    machine.Put("hero.def",
                "[Files]\nanim = MOVES\\Hero.AIR\nsprite = ../Shared/all.Sff\n"
                "cns = HERO.cns\n");
    machine.Put("moves/hero.air", kHeroAnimation);
    machine.files.Put("/mugen/chars/hero/../shared/ALL.sff",
                      std::span<const std::byte>(WriteSff1(HeroSubfiles())));
    EXPECT_TRUE(machine.Load("/mugen/chars/HERO/hero.DEF"));
    EXPECT_EQ(machine.character.WalkSpeed, 2.4F);
    EXPECT_EQ(machine.character.Sprites.size(), 5U);
}

TEST(LoadCharacter, FileNamesMayHaveBlanksAndDots) {
    CharacterMachine machine;
    machine.Put("hero.def",
                "[Files]\n  anim\t=   my hero v1.5.air   ; moves\nsprite =my  hero.sff\n"
                "cns= the hero .cns\n");
    machine.Put("my hero v1.5.air", kHeroAnimation);
    machine.Put("the hero.cns", "[Size]\nwalk.fwd = 2\n");
    machine.files.Put("/mugen/chars/hero/my  hero.sff",
                      std::span<const std::byte>(WriteSff1(HeroSubfiles())));
    EXPECT_TRUE(machine.Load());
    EXPECT_EQ(machine.character.WalkSpeed, 2.0F) << "the blank in front of the extension is cut";
    EXPECT_EQ(machine.character.Sprites.size(), 5U);
    EXPECT_THAT(machine.Texts(), IsEmpty());
}

TEST(LoadCharacter, AnArchiveOfVersion2IsSaid) {
    CharacterMachine machine;
    Sff1Options options;
    options.version = {0, 1, 0, 2};
    machine.PutArchive(HeroSubfiles(), options);
    EXPECT_FALSE(machine.Load());
    EXPECT_THAT(machine.Texts(),
                ElementsAre("Unable to load /mugen/chars/hero/hero.def - hero.sff is an archive of "
                            "version 2.01, only version 1 can be read."));
}

TEST(LoadCharacter, AnArchiveThatEndsInItsHeaderIsSaid) {
    CharacterMachine machine;
    machine.Put("hero.sff", "ElecbyteSpr");
    EXPECT_FALSE(machine.Load());
    EXPECT_EQ(machine.messages.Recorded().size(), 1U);
    EXPECT_EQ(machine.messages.Recorded()[0].title, "Cohortia");
}

TEST(LoadCharacter, MemoryThatIsNotThereIsSaid) {
    CharacterMachine machine;
    machine.device.FailNextAllocation();
    EXPECT_TRUE(machine.Load()) << "one picture";
    EXPECT_EQ(machine.character.Sprites.size(), 4U);
}

TEST(LoadCharacter, AProgramThatEndsLoadsNoMorePictures) {
    CharacterMachine machine;
    machine.endAtTurn = 2;
    EXPECT_TRUE(machine.Load());
    EXPECT_EQ(machine.character.Sprites.size(), 2U);
    EXPECT_THAT(machine.Texts(), IsEmpty());
}

TEST(LoadCharacter, ALoadForgetsTheOneBefore) {
    CharacterMachine machine;
    EXPECT_TRUE(machine.Load());
    EXPECT_FALSE(machine.Load("/mugen/chars/gone.def"));
    EXPECT_TRUE(machine.character.Sprites.empty());
    EXPECT_EQ(machine.character.DisplayName, "");
}

}  // namespace
}  // namespace scenara::test
