// SPDX-License-Identifier: MIT
#include "character/CharacterDefinition.h"

#include <string>

#include <gtest/gtest.h>

#include "support/MemoryFiles.h"

namespace scenara {
namespace {

struct Named {
    std::string displayName = {}, anim = {}, sprite = {}, cns = {}, palette = {};
};

void ExpectRead(const char* name, const std::string& text, const Named& expected) {
    SCOPED_TRACE(name);
    test::MemoryFile file(text);
    const CharacterDefinition definition = ReadCharacterDefinition(file);
    EXPECT_EQ(definition.displayName, expected.displayName);
    EXPECT_EQ(definition.cns, expected.cns);
    EXPECT_EQ(definition.sprite, expected.sprite);
    EXPECT_EQ(definition.anim, expected.anim);
    EXPECT_EQ(definition.palette, expected.palette);
}

TEST(CharacterDefinition, NamesTheFilesOfACharacter) {
    ExpectRead(
        "all of them",
        "; a character\r\n[Info]\r\nname = \"hero\"\r\ndisplayname = \"The Hero\" ;shown\r\n"
        "pal.defaults = 3, 1\r\n\r\n[Files]\r\ncmd = hero.cmd\r\ncns = con.cns ;Constants\r\n"
        "st = states.cns\r\nstcommon = common1.cns\r\nsprite = pic.sff\r\nanim = mov.air\r\n"
        "pal1 = one.act\r\npal3 = three.act\r\n",
        {"The Hero", "mov", "pic", "con", "three"});
    ExpectRead("case does not matter and stays in values",
               "DisplayName = \"Ä Hero\"\nPAL.Defaults=2\n[FILES]\nAnim = Sub/Mov.AIR\n"
               "SPRITE=Pic.Sff\nCns\t=\tX y.CNS\nPal2 = Two.Act\n",
               {"Ä Hero", "Sub/Mov", "Pic", "X y", "Two"});
    ExpectRead("LF after a byte order mark, and a last line without an end",
               "\357\273\277displayname=\"A\"\n[Files]\nanim = a.air\nsprite = b.sff",
               {"A", "a", "b"});
    ExpectRead("CR", "\357\273\277displayname=\"A\"\r[Files]\ranim = a.air\rsprite = b.sff",
               {"A", "a", "b"});
    ExpectRead("CR LF",
               "\357\273\277displayname=\"A\"\r\n[Files]\r\nanim = a.air\r\nsprite = b.sff",
               {"A", "a", "b"});
    ExpectRead("backslashes of folders", "[Files]\nanim = ..\\other\\a.air\n",
               {"", "..\\other\\a"});
    ExpectRead("slashes of folders", "[Files]\nanim =   ../other/a  .air\n", {"", "../other/a"});
    ExpectRead("names count in the files section only",
               "anim = a.air\nsprite = a.sff\ncns = a.cns\n[Files]\nanim = b.air\n", {"", "b"});
    ExpectRead("comments say nothing",
               "; displayname = \"no\"\n ;[Files]\nanim = a.air\nx = 1 ; displayname = \"no\"\n"
               "[Files]\n; anim = b.air\n\t;sprite = b.sff\ncns = c.cns ; sprite = d.sff\n",
               {"", "", "", "c"});
    ExpectRead("an empty file", "", {});
}

TEST(CharacterDefinition, EitherWordIsEnoughButTheExtensionGivesTheName) {
    ExpectRead("another word for animations", "[Files]\nmoves = a.air\n", {"", "a"});
    ExpectRead("another word for sprites", "[Files]\npictures = a.sff\n", {"", "", "a"});
    ExpectRead("no extensions", "[Files]\nanim = a\nsprite = b.\ncns = c\n", {});
    ExpectRead("nothing between", "[Files]\nanim = .air\n", {});
    ExpectRead("no equals sign", "[Files]\nanim a.air\n", {});
    ExpectRead("the wrong way round", "[Files]\n.air = anim\n", {});
    ExpectRead("both words", "[Files]\nsprite = anim.sff\nanim = sprite.air\n",
               {"", "sprite", "anim"});
    ExpectRead("constants need their word at the start", "[Files]\nst = a.cns\nxcns = b.cns\n", {});
    ExpectRead("at the start of a longer one", "[Files]\nCNS1 = a.cns\n", {"", "", "", "a"});
}

TEST(CharacterDefinition, TheFirstPaletteOfTheChosenNumberCounts) {
    const auto palette = [](const char* name) { return Named{"", "", "", "", name}; };
    ExpectRead("the first", "pal.defaults = 1\n[Files]\npal2 = b.act\npal1 = a.act\npal1 = c.act\n",
               palette("a"));
    ExpectRead("the extension in a comment",
               "pal.defaults = 1 ;one\n[Files]\npal1 = a ; .act\npal1 = c.act\n", palette("c"));
    ExpectRead("none of that number", "pal.defaults = 4\n[Files]\npal1 = a.act\n", {});
    ExpectRead("no default", "[Files]\npal1 = a.act\n", {});
    ExpectRead("an empty default", "pal.defaults =\n[Files]\npal1 = a.act\npal = b.act\n", {});
}

TEST(CharacterDefinition, ANameWithoutQuotesIsWhatStandsBehindTheSign) {
    ExpectRead("without quotes", "displayname =  Some One ; who\n", {"Some One"});
    ExpectRead("half open", "displayname = \"Half open  ; who\n", {"Half open"});
    ExpectRead("empty", "displayname = \"\"\n", {});
    ExpectRead("two of them", "displayname = \" a \" \"b\"\n", {" a "});
    ExpectRead("no sign", "displayname\n", {});
    // "[Info]": 1 and 6 have no bit in common.
    ExpectRead("after the files", "[Files]\nanim = a.air\n[Info]\ndisplayname = \"Late\"\n",
               {"Late", "a"});
    // Its brackets at 16 and 18 share a bit.
    ExpectRead("with brackets, it is taken before it ends the files",
               "[Files]\ndisplayname = \"[A]\"\nanim = a.air\n", {"[A]"});
}

TEST(CharacterDefinition, TheNextHeaderEndsTheFiles) {
    ExpectRead("its bracket stands at 14, 1 and 14 have no bit in common",
               "[Files]\nanim = a.air\n[Palette Keys]\nsprite = b.sff\n", {"", "a", "b"});
    ExpectRead("a common bit", "[Files]\nanim = a.air\n[Other]\nsprite = b.sff\n", {"", "a"});
}

// "]" at 8; 1 and 8 have no bit in common. "[Arcade2]" has it at 9.
TEST(CharacterDefinition, AHeaderOfSixLettersDoesNotEndTheFiles) {
    ExpectRead("six letters", "[Files]\n[Arcade]\nsprite = b.sff\n", {"", "", "b"});
    ExpectRead("seven", "[Files]\n[Arcade]\n[Arcade2]\nsprite = b.sff\n", {});
    EXPECT_FALSE(EndsFilesSection("[Arcade]"));
    EXPECT_TRUE(EndsFilesSection("[Arcade2]"));
    EXPECT_TRUE(EndsFilesSection("  [Arcade]")) << "blanks count: 3 and 10 share a bit";
    EXPECT_FALSE(EndsFilesSection("[Arcade2] ; the end"));
    EXPECT_FALSE(EndsFilesSection("[Arcade2"));
    EXPECT_FALSE(EndsFilesSection("Arcade2]"));
    EXPECT_FALSE(EndsFilesSection(""));
}

}  // namespace
}  // namespace scenara
