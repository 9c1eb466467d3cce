// SPDX-License-Identifier: MIT
#include "character/CharacterDefinition.h"

#include <string>

#include <gtest/gtest.h>

#include "support/MemoryFiles.h"

namespace scenara {
namespace {

CharacterDefinition Read(const std::string& text) {
    test::MemoryFile file(text);
    return ReadCharacterDefinition(file);
}

TEST(CharacterDefinition, NamesTheFilesOfACharacter) {
    const CharacterDefinition definition = Read(
        "; a character\r\n[Info]\r\nname = \"hero\"\r\ndisplayname = \"The Hero\" ;shown\r\n"
        "pal.defaults = 3, 1\r\n\r\n[Files]\r\ncmd = hero.cmd\r\ncns = con.cns ;Constants\r\n"
        "st = states.cns\r\nstcommon = common1.cns\r\nsprite = pic.sff\r\nanim = mov.air\r\n"
        "pal1 = one.act\r\npal3 = three.act\r\n");
    EXPECT_EQ(definition.displayName, "The Hero");
    EXPECT_EQ(definition.cns, "con");
    EXPECT_EQ(definition.sprite, "pic");
    EXPECT_EQ(definition.anim, "mov");
    EXPECT_EQ(definition.palette, "three");
}

TEST(CharacterDefinition, CaseDoesNotMatterAndStaysInValues) {
    const CharacterDefinition definition = Read(
        "DisplayName = \"Ä Hero\"\nPAL.Defaults=2\n[FILES]\nAnim = Sub/Mov.AIR\n"
        "SPRITE=Pic.Sff\nCns\t=\tX y.CNS\nPal2 = Two.Act\n");
    EXPECT_EQ(definition.displayName, "Ä Hero");
    EXPECT_EQ(definition.anim, "Sub/Mov");
    EXPECT_EQ(definition.sprite, "Pic");
    EXPECT_EQ(definition.cns, "X y");
    EXPECT_EQ(definition.palette, "Two");
}

TEST(CharacterDefinition, ReadsEveryLineEndAndAByteOrderMark) {
    for (const std::string end : {"\n", "\r", "\r\n"}) {
        const CharacterDefinition definition = Read(
            "\xEF\xBB\xBF"
            "displayname=\"A\"" +
            end + "[Files]" + end + "anim = a.air" + end + "sprite = b.sff");
        EXPECT_EQ(definition.displayName, "A");
        EXPECT_EQ(definition.anim, "a");
        EXPECT_EQ(definition.sprite, "b") << "on a last line without an end";
    }
}

TEST(CharacterDefinition, KeepsBothKindsOfSlashInFolders) {
    EXPECT_EQ(Read("[Files]\nanim = ..\\other\\a.air\n").anim, "..\\other\\a");
    EXPECT_EQ(Read("[Files]\nanim =   ../other/a  .air\n").anim, "../other/a");
}

TEST(CharacterDefinition, NamesCountInTheFilesSectionOnly) {
    const CharacterDefinition definition =
        Read("anim = a.air\nsprite = a.sff\ncns = a.cns\n[Files]\nanim = b.air\n");
    EXPECT_EQ(definition.anim, "b");
    EXPECT_EQ(definition.sprite, "");
    EXPECT_EQ(definition.cns, "");
}

TEST(CharacterDefinition, CommentsSayNothing) {
    const CharacterDefinition definition = Read(
        "; displayname = \"no\"\n ;[Files]\nanim = a.air\nx = 1 ; displayname = \"no\"\n"
        "[Files]\n; anim = b.air\n\t;sprite = b.sff\ncns = c.cns ; sprite = d.sff\n");
    EXPECT_EQ(definition.displayName, "");
    EXPECT_EQ(definition.anim, "");
    EXPECT_EQ(definition.sprite, "");
    EXPECT_EQ(definition.cns, "c");
}

TEST(CharacterDefinition, EitherWordIsEnoughButTheExtensionGivesTheName) {
    EXPECT_EQ(Read("[Files]\nmoves = a.air\n").anim, "a");
    EXPECT_EQ(Read("[Files]\npictures = a.sff\n").sprite, "a");
    EXPECT_EQ(Read("[Files]\nanim = a\nsprite = b.\ncns = c\n").anim, "");
    EXPECT_EQ(Read("[Files]\nanim = .air\n").anim, "") << "nothing between";
    EXPECT_EQ(Read("[Files]\nanim a.air\n").anim, "") << "no equals sign";
    EXPECT_EQ(Read("[Files]\n.air = anim\n").anim, "") << "the wrong way round";
    const CharacterDefinition both = Read("[Files]\nsprite = anim.sff\nanim = sprite.air\n");
    EXPECT_EQ(both.sprite, "anim");
    EXPECT_EQ(both.anim, "sprite");
}

TEST(CharacterDefinition, ConstantsNeedTheirWordAtTheStart) {
    EXPECT_EQ(Read("[Files]\nst = a.cns\nxcns = b.cns\n").cns, "");
    EXPECT_EQ(Read("[Files]\nCNS1 = a.cns\n").cns, "a");
}

TEST(CharacterDefinition, TheFirstPaletteOfTheChosenNumberCounts) {
    EXPECT_EQ(Read("pal.defaults = 1\n[Files]\npal2 = b.act\npal1 = a.act\npal1 = c.act\n").palette,
              "a");
    EXPECT_EQ(Read("pal.defaults = 1 ;one\n[Files]\npal1 = a ; .act\npal1 = c.act\n").palette, "c");
    EXPECT_EQ(Read("pal.defaults = 4\n[Files]\npal1 = a.act\n").palette, "");
}

TEST(CharacterDefinition, WithoutADefaultThereIsNoPalette) {
    EXPECT_EQ(Read("[Files]\npal1 = a.act\n").palette, "");
    EXPECT_EQ(Read("pal.defaults =\n[Files]\npal1 = a.act\npal = b.act\n").palette, "");
}

TEST(CharacterDefinition, ANameWithoutQuotesIsWhatStandsBehindTheSign) {
    EXPECT_EQ(Read("displayname =  Some One ; who\n").displayName, "Some One");
    EXPECT_EQ(Read("displayname = \"Half open  ; who\n").displayName, "Half open");
    EXPECT_EQ(Read("displayname = \"\"\n").displayName, "");
    EXPECT_EQ(Read("displayname = \" a \" \"b\"\n").displayName, " a ");
    EXPECT_EQ(Read("displayname\n").displayName, "");
}

TEST(CharacterDefinition, TheNextHeaderEndsTheFiles) {
    EXPECT_EQ(Read("[Files]\nanim = a.air\n[Palette Keys]\nsprite = b.sff\n").sprite, "b")
        << "its bracket stands at 14, 1 and 14 have no bit in common";
    EXPECT_EQ(Read("[Files]\nanim = a.air\n[Other]\nsprite = b.sff\n").sprite, "");
}

// "]" at 8; 1 and 8 have no bit in common. "[Arcade2]" has it at 9.
TEST(CharacterDefinition, AHeaderOfSixLettersDoesNotEndTheFiles) {
    EXPECT_EQ(Read("[Files]\n[Arcade]\nsprite = b.sff\n").sprite, "b");
    EXPECT_EQ(Read("[Files]\n[Arcade]\n[Arcade2]\nsprite = b.sff\n").sprite, "");
    EXPECT_FALSE(EndsFilesSection("[Arcade]"));
    EXPECT_TRUE(EndsFilesSection("[Arcade2]"));
    EXPECT_TRUE(EndsFilesSection("  [Arcade]")) << "blanks count: 3 and 10 share a bit";
    EXPECT_FALSE(EndsFilesSection("[Arcade2] ; the end"));
    EXPECT_FALSE(EndsFilesSection("[Arcade2"));
    EXPECT_FALSE(EndsFilesSection("Arcade2]"));
    EXPECT_FALSE(EndsFilesSection(""));
}

TEST(CharacterDefinition, TheDisplayNameMayFollowTheFiles) {
    // "[Info]": 1 and 6 have no bit in common.
    const CharacterDefinition definition =
        Read("[Files]\nanim = a.air\n[Info]\ndisplayname = \"Late\"\n");
    EXPECT_EQ(definition.displayName, "Late");
}

TEST(CharacterDefinition, ANameWithBracketsIsTakenBeforeItEndsTheFiles) {
    // Its brackets at 16 and 18 share a bit.
    EXPECT_EQ(Read("[Files]\ndisplayname = \"[A]\"\n").displayName, "[A]");
}

TEST(CharacterDefinition, AnEmptyFileGivesNothing) {
    const CharacterDefinition definition = Read("");
    EXPECT_EQ(definition.displayName + definition.anim + definition.sprite + definition.cns +
                  definition.palette,
              "");
}

}  // namespace
}  // namespace scenara
