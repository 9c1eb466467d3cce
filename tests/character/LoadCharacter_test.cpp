// SPDX-License-Identifier: MIT
#include "character/LoadCharacter.h"

#include <functional>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "character/CharacterMachine.h"
#include "character/CharacterMessages.h"

namespace scenara::test {
namespace {

using testing::AllOf;
using testing::Each;
using testing::ElementsAre;
using testing::Field;
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

std::string Unable(const std::string& reason) {
    return "Unable to load /mugen/chars/hero/hero.def - " + reason + ".";
}

// Whatever is wrong is said in one box of the character's.
void ExpectSaid(const char* name, const std::function<void(CharacterMachine&)>& change, bool loads,
                const std::string& said) {
    SCOPED_TRACE(name);
    CharacterMachine machine;
    change(machine);
    EXPECT_EQ(machine.Load(), loads);
    EXPECT_THAT(machine.Texts(), ElementsAre(said));
    EXPECT_THAT(machine.messages.Recorded(),
                Each(AllOf(Field(&Message::title, "Cohortia"),
                           Field(&Message::icon, MessageIcon::Exclamation))));
    if (loads) {  // without its constants
        EXPECT_EQ(machine.messages.Recorded().front().kind, kMessageCharacterPart);
        EXPECT_EQ(machine.character.XScale, 1.0F);
        EXPECT_EQ(machine.character.YScale, 1.0F);
        EXPECT_EQ(machine.character.WalkSpeed, 1.0F);
    }
}

TEST(LoadCharacter, SaysWhatIsMissingOrBroken) {
    const auto file = [](const char* name, const char* text) {
        return [=](CharacterMachine& machine) { machine.Put(name, text); };
    };
    const auto broken = [](const char* name) {
        return [=](CharacterMachine& machine) {
            machine.files.Break(std::string("/mugen/chars/hero/") + name);
        };
    };
    const std::string cannotRead = "Device I/O error: /mugen/chars/hero/";
    ExpectSaid("no walking",
               file("hero.air",
                    "[Begin Action 0]\n0,0, 0,0, 7\n[Begin Action 20]\n[Begin Action 21]\n"
                    "20,0, 0,0, 5\n"),
               false, Unable("character has no walking frames"));
    ExpectSaid(
        "plain: a negative group",
        [](CharacterMachine& machine) {
            machine.Put("hero.air", std::string(kHeroAnimation) + "-1,0, 0,0, 5\n");
            machine.view.Additions = false;
        },
        false, "Unable to load \"The Hero\"");
    ExpectSaid("no constants",
               file("hero.def", "[Files]\nanim = hero.air\nsprite = hero.sff\ncns = gone.cns\n"),
               true, Unable("gone.cns could not be found"));
    ExpectSaid("no animations",
               file("hero.def", "[Files]\nanim = gone.air\nsprite = hero.sff\ncns = hero.cns\n"),
               false, Unable("gone.air could not be found"));
    ExpectSaid(
        "no archive",
        file("hero.def", "[Files]\nanim = hero.air\nsprite = sub/gone.sff\ncns = hero.cns\n"),
        false, Unable("sub/gone.sff could not be found"));
    ExpectSaid("no archive is named",
               file("hero.def", "[Files]\nanim = hero.air\ncns = hero.cns\n"), false,
               Unable("its .sff file could not be found"));
    ExpectSaid("a broken definition", broken("hero.def"), false, Unable(cannotRead + "hero.def"));
    ExpectSaid("broken animations", broken("hero.air"), false, Unable(cannotRead + "hero.air"));
    ExpectSaid("a broken archive", broken("hero.sff"), false, Unable(cannotRead + "hero.sff"));
    ExpectSaid("broken constants", broken("hero.cns"), true, Unable(cannotRead + "hero.cns"));
    ExpectSaid(
        "an archive of version 2",
        [](CharacterMachine& machine) {
            Sff1Options options;
            options.version = {0, 1, 0, 2};
            machine.PutArchive(HeroSubfiles(), options);
            machine.view.Additions = false;
        },
        false, Unable("hero.sff is an archive of version 2.01, only version 1 can be read"));
    ExpectSaid("an archive that ends in its header", file("hero.sff", "ElecbyteSpr"), false,
               Unable("Input past end of file: archive header: 12 bytes wanted at 0, 11 there"));
}

struct PlacedRow {
    const char* name;
    const char* file;
    std::string text;
    bool additions;
    MessageKind kind;
    std::int64_t line;
    const char* place;
};

// Which file, and which line of it.
TEST(LoadCharacter, SaysWhereItIs) {
    const std::string animation = kHeroAnimation;
    const PlacedRow rows[] = {
        {"a missing file", "hero.def", "[Files]\nanim = gone.air\n", true, kMessageCharacterPart, 0,
         "hero.def"},
        {"a negative group", "hero.air", animation + "-1,0, 0,0, 5\n", false, kMessageNegativeGroup,
         10, "hero.air"},
        {"a number of a frame", "hero.air", animation + "0,0, 0,0, 99999\n", true,
         kMessageCharacterOverflow, 10, "hero.air"},
        {"a constant", "hero.cns", "[Size]\n\nxscale = 1e39\n", true, kMessageCharacterOverflow, 3,
         "hero.cns"},
        {"an archive", "hero.sff", "ElecbyteSpr", true, kMessageCharacterFailed, 0, "hero.def"},
    };
    for (const PlacedRow& row : rows) {
        SCOPED_TRACE(row.name);
        CharacterMachine machine;
        machine.view.Additions = row.additions;
        machine.Put(row.file, row.text);
        machine.Load();
        ASSERT_FALSE(machine.messages.Recorded().empty());
        const Message& message = machine.messages.Recorded().front();
        EXPECT_EQ(message.kind.code, row.kind.code);
        EXPECT_EQ(message.place,
                  (MessagePlace{row.line, 0, std::string("/mugen/chars/hero/") + row.place}));
        EXPECT_EQ(message.title, "Cohortia");
    }
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

TEST(LoadCharacter, WithAdditionsANegativeGroupIsAFrame) {
    CharacterMachine machine;
    machine.Put("hero.air", std::string(kHeroAnimation) + "-1,0, 0,0, 5\n");
    EXPECT_TRUE(machine.Load());
}

TEST(LoadCharacter, WithoutTurningItStillLoads) {
    CharacterMachine machine;
    machine.Put("hero.air", "[Begin Action 20]\n20,0, 0,0, 5\n");
    EXPECT_TRUE(machine.Load());
    EXPECT_FALSE(machine.character.HasTurn);
    EXPECT_THAT(machine.Texts(), IsEmpty());
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
