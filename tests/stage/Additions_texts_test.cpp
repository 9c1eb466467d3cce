// SPDX-License-Identifier: MIT
//
// What counts as a section header, what may stand before a key, and how texts are cut, with
// additions and without.
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "BothReadings.h"
#include "samplemaker/Sff1Writer.h"
#include "stage/SectionHeader.h"
#include "support/FuzzChecks.h"

namespace scenara::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// --- headers ---

TEST(BeginsWithBracket, WhateverBlanksStandBefore) {
    EXPECT_TRUE(BeginsWithBracket("[BG sky]"));
    EXPECT_TRUE(BeginsWithBracket("   [BG sky]"));
    EXPECT_FALSE(BeginsWithBracket("spr = [x]y.sff"));
    EXPECT_FALSE(BeginsWithBracket("x[BG sky]"));
    EXPECT_FALSE(BeginsWithBracket(""));
    EXPECT_FALSE(BeginsWithBracket("   "));
    EXPECT_FALSE(BeginsWithBracket("]["));
}

// Plainly the line is a header, of a section of settings.
TEST(AdditionsTexts, AValueWithBracketsIsNoHeader) {
    StageMachine machine;
    machine.files.Put("/mugen/stages/[x]y.sff", SmallArchiveBytes());
    const std::string definition = "[BGdef]\r\nspr = stages/[x]y.sff\r\n";
    ASSERT_TRUE(machine.Load(definition));
    EXPECT_EQ(machine.model.SpriteCount, 3);
    EXPECT_THAT(machine.MessageTexts(), IsEmpty());

    PlainMachine plain;
    plain.files.Put("/mugen/stages/[x]y.sff", SmallArchiveBytes());
    ASSERT_TRUE(plain.Load(definition));
    EXPECT_EQ(plain.model.SpriteCount, 0);
}

TEST(AdditionsTexts, ALineWithBracketsDoesNotEndItsSection) {
    const BothReadings read(
        "[BG sky]\r\ntrans = [add]\r\nid = 5\r\n"
        "\t [BG indented]\r\nid = 6\r\n");
    ASSERT_EQ(read.With().ElementCount, 2);
    EXPECT_EQ(read.With().Elements[0].id, 5);
    EXPECT_EQ(read.With().Elements[1].id, 6);
    EXPECT_EQ(read.PlainElement().id, 0);
}

TEST(AdditionsTexts, AFrameLineWithBracketsIsAFrame) {
    const BothReadings read("[Begin Action 1]\r\n4,1, 0,0, 5 [second]\r\n");
    ASSERT_EQ(read.With().Actions.at(0).frameCount, 1);
    EXPECT_EQ(read.WithFrame().group, 4);
    EXPECT_EQ(read.Plain().Actions.at(0).frameCount, 0);
}

// --- keys ---

TEST(AdditionsTexts, AKeyInsideOfAnotherWordIsNotThatKey) {
    const BothReadings read(
        "[Camera]\r\nstartx = 7\r\n[PlayerInfo]\r\nP2StartX = 70\r\np1Startx = -60\r\n");
    EXPECT_EQ(read.With().CamStartX, 7);
    EXPECT_EQ(read.With().P1StartX, -60);
    EXPECT_EQ(read.Plain().CamStartX, -60) << "what the additions are for";
}

TEST(AdditionsTexts, AKeyMayBeInAnyCaseAndBehindBlanks) {
    const BothReadings read("[Camera]\r\n  StartX = 7\r\n\tBOUNDLEFT=-9\r\nboundRight =11\r\n");
    EXPECT_EQ(read.With().CamStartX, 7);
    EXPECT_EQ(read.With().BoundLeft, -9);
    EXPECT_EQ(read.With().BoundRight, 11);
    EXPECT_EQ(read.Plain().CamStartX, 7);
    EXPECT_EQ(read.Plain().BoundLeft, -9);
    EXPECT_EQ(read.Plain().BoundRight, 11);
}

TEST(AdditionsTexts, AKeyBehindItsLetterOnTheLineIsNotMissed) {
    // "x" also stands in the value, "id" in the first word.
    const BothReadings read(
        "[BG]\r\nid = 3\r\nxscale = 2,3\r\n[BGCtrlDef]\r\n[BGCtrl]\r\nX = 4\r\nctrlid = 8\r\n");
    EXPECT_EQ(read.WithElement().id, 3);
    EXPECT_EQ(read.WithElement().xscaleTop, 2);
    const BgCtrl& control = read.With().CtrlDefs.at(0).controls.at(0);
    EXPECT_EQ(control.x, 4);
    EXPECT_THAT(control.ctrlIds, ElementsAre(8));
}

// --- texts ---

TEST(AdditionsTexts, ANameIsTakenWholeInItsOwnCaseWithoutItsQuotes) {
    const BothReadings read("[Info]\r\nname = \"Dock9 by Night\"\r\n");
    EXPECT_EQ(read.With().StageTitle, "Dock9 by Night");
    EXPECT_EQ(read.Plain().StageTitle, "\"dock9");
}

TEST(AdditionsTexts, QuotesThatDoNotSurroundTheNameStay) {
    for (const char* const name : {"\"Dock", "Dock\"", "\"", "The \"Dock\" at", "\"Dock\" 9"}) {
        const BothReadings read(std::string("[Info]\r\nname = ") + name + "\r\n");
        EXPECT_EQ(read.With().StageTitle, name);
    }
}

TEST(AdditionsTexts, QuotesWithNothingInThemAreAnEmptyName) {
    EXPECT_EQ(BothReadings("[Info]\r\nname = \"\"\r\n").With().StageTitle, "");
    EXPECT_EQ(BothReadings("[Info]\r\nname =\r\n").With().StageTitle, "");
}

TEST(AdditionsTexts, ACommentIsNoPartOfAText) {
    const BothReadings read("[Info]\r\nname = \"Dock 9\" ; by the sea\r\n");
    EXPECT_EQ(read.With().StageTitle, "Dock 9");
}

TEST(AdditionsTexts, ATextMayHoldAnotherEqualsSign) {
    EXPECT_EQ(BothReadings("[Info]\r\nname = 2 + 2 = 5\r\n").With().StageTitle, "2 + 2 = 5");
}

// In Shift-JIS the byte 0x81 begins a character; plain reading ends a line at it.
TEST(AdditionsTexts, BytesAbove127StayAsTheyAre) {
    const std::string name = "\x83\x41\x81\x40 3 \xC4\xD6";
    const BothReadings read("[Info]\r\nname = \"" + name + "\"\r\n");
    EXPECT_EQ(read.With().StageTitle, name);
    EXPECT_EQ(read.Plain().StageTitle, "\"\x83\x61") << "cut, and its second byte a small letter";
}

// The second bytes of Shift-JIS characters may look like brackets.
TEST(AdditionsTexts, BytesThatLookLikeBracketsMakeNoHeader) {
    const std::string name = "\x83\x5B\x83\x5D";
    const BothReadings read("[Info]\r\nname = " + name + "\r\n");
    EXPECT_EQ(read.With().StageTitle, name);
    EXPECT_EQ(read.Plain().StageTitle, "");
}

TEST(AdditionsTexts, MusicIsTakenWholeInItsOwnCase) {
    const BothReadings read("[Music]\r\nbgmusic = sound/Track2 Long.MP3\r\n");
    EXPECT_EQ(read.With().MusicFile, "sound/Track2 Long.MP3");
    EXPECT_EQ(read.WithMusic(), "/mugen/sound/Track2 Long.MP3");
    EXPECT_EQ(read.Plain().MusicFile, "sound/track2");
    EXPECT_EQ(read.PlainMusic(), "/mugen/sound/track2");
}

TEST(AdditionsTexts, WithoutAValueThereIsNoMusic) {
    const BothReadings read("[Music]\r\nbgmusic =\r\nbgvolume = 5\r\n");
    EXPECT_EQ(read.With().MusicFile, "");
    EXPECT_EQ(read.WithMusic(), "");
}

TEST(AdditionsTexts, TheArchivesNameIsTakenWholeInItsOwnCase) {
    StageMachine machine;
    ASSERT_TRUE(machine.Load("[BGdef]\r\nspr = stages/Level2 New.SFF\r\n"));
    EXPECT_THAT(machine.MessageTexts(),
                ElementsAre("SFF FILE:\r\nstages/Level2 New.SFF\r\nCOULD NOT BE FOUND!"));
    PlainMachine plain;
    ASSERT_TRUE(plain.Load("[BGdef]\r\nspr = stages/Level2 New.SFF\r\n"));
    EXPECT_THAT(plain.MessageTexts(),
                ElementsAre("SFF FILE:\r\nstages/level2\r\nCOULD NOT BE FOUND!"));
}

TEST(AdditionsTexts, OtherTextsAreReadAsEver) {
    const BothReadings read("[BG]\r\ntype = NORMAL\r\ntrans = Add1 or so\r\n");
    EXPECT_EQ(read.WithElement().type, "normal");
    EXPECT_EQ(read.WithElement().trans, "add1");
    EXPECT_EQ(read.PlainElement().trans, "add1");
}

// --- a key given twice ---

TEST(AdditionsTexts, OfAKeyGivenTwiceTheFirstCounts) {
    const BothReadings read(
        "[Camera]\r\nstartx = 3\r\nboundhigh = -4\r\n[BGdef]\r\nstartx = 5\r\n"
        "[BG a]\r\nid = 1\r\ndelta = 2\r\nid = 7\r\ndelta = 8, 9\r\n"
        "[BG b]\r\nid = 11\r\n"
        "[BGCtrlDef c]\r\nlooptime = 20\r\nctrlid = 1, 2\r\nlooptime = 30\r\nctrlid = 3\r\n"
        "[BGCtrl d]\r\ntime = 1, 2, 3\r\nx = 4\r\ntime = 5, 6, 7\r\nx = 8\r\n"
        "[BGCtrl e]\r\ntime = 9\r\n");
    const BgCtrl& first = read.With().CtrlDefs.at(0).controls.at(0);
    EXPECT_EQ(read.With().CamStartX, 3);
    EXPECT_EQ(read.With().BoundHigh, -4);
    EXPECT_EQ(read.With().Elements.at(0).id, 1);
    EXPECT_EQ(read.With().Elements.at(0).deltaX, 2);
    EXPECT_EQ(read.With().Elements.at(0).deltaY, 1);
    EXPECT_EQ(read.With().Elements.at(1).id, 11) << "another section";
    EXPECT_EQ(read.With().CtrlDefs.at(0).looptime, 20);
    EXPECT_THAT(read.With().CtrlDefs.at(0).ctrlIds, ElementsAre(1, 2));
    EXPECT_EQ(first.startTime, 1);
    EXPECT_EQ(first.endTime, 2);
    EXPECT_EQ(first.loopTime, 3);
    EXPECT_EQ(first.x, 4);
    EXPECT_EQ(read.With().CtrlDefs.at(0).controls.at(1).startTime, 9);

    EXPECT_EQ(read.Plain().CamStartX, 5) << "plainly the last one counts";
    EXPECT_EQ(read.PlainElement().id, 7);
    EXPECT_EQ(read.PlainElement().deltaY, 9);
    EXPECT_THAT(read.Plain().CtrlDefs.at(0).ctrlIds, ElementsAre(3));
    EXPECT_EQ(read.Plain().CtrlDefs.at(0).controls.at(0).endTime, 6);
}

TEST(AdditionsTexts, AKeyWithoutAValueHasNotBeenGiven) {
    const BothReadings read("[BG]\r\nid\r\nid = 5\r\nmask = 99999\r\nmask = 1\r\n");
    EXPECT_EQ(read.WithElement().id, 5);
    EXPECT_EQ(read.WithElement().mask, 1) << "one that does not fit is none";
}

TEST(AdditionsTexts, AnEmptyValueLeavesTheKeyToAnotherLine) {
    const BothReadings read(
        "[Info]\r\nbgmusic =\r\nstartx = \t\r\n[Music]\r\nbgmusic = a.mp3\r\nstartx = 4\r\n"
        "[BG]\r\ntype =\r\ntype = normal\r\ndelta = ; none\r\nstart = , 6\r\n"
        "[BGCtrlDef]\r\nctrlid = , 5\r\n");
    EXPECT_EQ(read.With().CamStartX, 4);
    EXPECT_EQ(read.With().MusicFile, "a.mp3");
    EXPECT_EQ(read.WithElement().type, "normal");
    EXPECT_EQ(read.WithElement().deltaX, 1) << "as without the key";
    EXPECT_EQ(read.WithElement().startX, 0);
    EXPECT_EQ(read.WithElement().startY, 6) << "the value beside it counts";
    EXPECT_THAT(read.With().CtrlDefs.at(0).ctrlIds, ElementsAre(5));
    EXPECT_THAT(read.WithTexts(), IsEmpty());
    EXPECT_EQ(read.PlainElement().deltaX, 0) << "plainly nothing is 0";
    EXPECT_THAT(read.Plain().CtrlDefs.at(0).ctrlIds, ElementsAre(0, 5));
}

TEST(AdditionsTexts, AnEmptyNumberBeforeACommaIsNoneToo) {
    const BothReadings read("[BG]\r\nid = , 3\r\nid = 5\r\n[Info]\r\nbgmusic = ,a.mp3\r\n");
    EXPECT_EQ(read.WithElement().id, 5);
    EXPECT_EQ(read.With().MusicFile, ",a.mp3") << "a text is whole";
}

TEST(AdditionsTexts, BlanksWithinTheNameOfASectionDoNotCount) {
    const BothReadings read("[BG Def]\r\ndebugbg = 1\r\n[Stage Info]\r\nhires = 1\r\n");
    EXPECT_EQ(read.With().debugbg, 1);
    EXPECT_EQ(read.With().hires, 1);
    EXPECT_EQ(read.Plain().debugbg, 0);
}

TEST(AdditionsTexts, AValueBeforeItsTypeIsReportedOnceWhereItDoesNotFit) {
    const BothReadings read("[BGCtrlDef]\r\n[BGCtrl]\r\nvalue = 70000\r\ntype = anim\r\n");
    EXPECT_THAT(read.WithTexts(), ElementsAre("Overflow: value, line 3"));
    EXPECT_EQ(read.With().CtrlDefs.at(0).controls.at(0).given, 0);
}

TEST(AdditionsTexts, EveryFrameCounts) {
    const BothReadings read("[Begin Action 1]\r\n1,1, 0,0, 5\r\n2,2, 0,0, 6\r\n");
    ASSERT_EQ(read.With().Actions.at(0).frameCount, 2);
    EXPECT_EQ(read.With().Actions.at(0).frames.at(1).group, 2);
}

// --- full-width blanks ---

struct BlankRow {
    const char* name;
    const char* line;
    Single x;
    Single y;
};

TEST(AdditionsTexts, FullWidthBlanksAreBlanksAroundKeysAndValues) {
    for (const BlankRow& row : {
             BlankRow{"before the key",
                      "\x81\x40"
                      "delta = 2, 3",
                      2, 3},
             {"several",
              "\x81\x40 \x81\x40"
              "delta = 2, 3",
              2, 3},
             {"before the sign", "delta\x81\x40= 2, 3", 2, 3},
             {"before the value",
              "delta =\x81\x40"
              "2, 3",
              2, 3},
             {"around the comma",
              "delta = 2\x81\x40,\x81\x40"
              "3",
              2, 3},
             {"at the end", "delta = 2, 3\x81\x40", 2, 3},
         }) {
        SCOPED_TRACE(row.name);
        const BothReadings read("[BG]\r\n" + std::string(row.line) + "\r\n");
        EXPECT_EQ(read.WithElement().deltaX, row.x);
        EXPECT_EQ(read.WithElement().deltaY, row.y);
    }
}

TEST(AdditionsTexts, AFullWidthBlankWithinANameStays) {
    const BothReadings read(
        "[Info]\r\nname = \x81\x40"
        "Old\x81\x40Town\x81\x40\r\n");
    EXPECT_EQ(read.With().StageTitle, "Old\x81\x40Town");
}

}  // namespace
}  // namespace scenara::test
