// SPDX-License-Identifier: MIT
#include "app/Configuration.h"

#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/Configured.h"
#include "app/RecentFiles.h"
#include "base/Path.h"
#include "base/RunTimeError.h"

namespace scenara::test {
namespace {

using namespace std::string_literals;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Property;
using testing::Throws;

const std::string kSeparator(1, PathSeparator);

// --- First start ---------------------------------------------------------------------------------

TEST(LoadConfig, AsksForTheEngineFolderAtTheFirstStart) {
    Configured program;
    program.dialogs.Answer("/games/mugen");
    EXPECT_TRUE(program.Load());
    EXPECT_EQ(program.MugeDir, "/games/mugen" + kSeparator);
    ASSERT_EQ(program.messages.Recorded().size(), 1U);
    EXPECT_EQ(program.messages.Recorded()[0].text,
              "Browse to your MUGEN directory please so I know where to get stuff.  I won't ask "
              "you for it again unless I forget.");
    EXPECT_THAT(program.dialogs.Asked(),
                ElementsAre(DialogQuestion{
                    DialogQuestion::Kind::BrowseForFolder,
                    "Point me to your MUGEN Directory please:\r\nex. C:\\GAMES\\MUGEN", ""}));
    EXPECT_FALSE(program.files.Has("/program/QX.CFG")) << "written at the end";
    EXPECT_TRUE(program.form[Menu::mnuMusic].checked) << "as designed";
    EXPECT_EQ(program.ShowStageList, 0);
}

TEST(LoadConfig, AsksUntilAFolderIsChosen) {
    Configured program;
    program.dialogs.Answer("");
    program.dialogs.Answer("");
    program.dialogs.Answer("/m");
    EXPECT_TRUE(program.Load());
    EXPECT_EQ(program.MugeDir, "/m" + kSeparator);
    EXPECT_EQ(program.dialogs.Asked().size(), 3U);
    EXPECT_EQ(program.messages.Recorded().size(), 1U);
}

TEST(LoadConfig, AnEmptyFileCountsAsNoneAndARootKeepsItsOwnSeparator) {
    for (const auto& [answer, folder] : {std::pair{"/games/mugen", "/games/mugen" + kSeparator},
                                         std::pair{"C:\\", "C:\\" + kSeparator}}) {
        Configured program;
        program.dialogs.Answer(answer);
        EXPECT_TRUE(program.Load(""));
        EXPECT_EQ(program.MugeDir, folder);
    }
}

TEST(LoadConfig, DoesNotAskOnWhenTheProgramIsToEnd) {
    Configured program;
    program.dialogs.Observe(
        [&](const DialogQuestion&) { program.ended = program.dialogs.Asked().size() == 2; });
    EXPECT_FALSE(program.Load());
    EXPECT_EQ(program.dialogs.Asked().size(), 2U);
    EXPECT_EQ(program.MugeDir, "");
}

TEST(LoadConfig, AFolderChosenWhileTheProgramEndsCounts) {
    Configured program;
    program.dialogs.Observe([&](const DialogQuestion&) { program.ended = true; });
    program.dialogs.Answer("/m");
    EXPECT_TRUE(program.Load());
    EXPECT_EQ(program.MugeDir, "/m" + kSeparator);
}

// --- Reading -------------------------------------------------------------------------------------

TEST(LoadConfig, ReadsEverySetting) {
    Configured program;
    EXPECT_TRUE(
        program.Load("Version = 1.0A\r\nMugeDir = C:\\Games\\Mugen\\\r\n"
                     "TestChar = C:\\Chars\\KFM.def\r\nHCamStep = 2.5\r\nVCamStep = -3\r\n"
                     "BGMusic = False\r\nInfo = True\r\nChar = False\r\nDeform = True\r\n"
                     "DebugBG = True\r\nCharName = Kung Fu Man\r\nStageList = 255\r\n"
                     "RecentFile = /B.def\r\nRecentFile = /A.def\r\n"));
    EXPECT_EQ(program.MugeDir, "C:\\Games\\Mugen\\");
    EXPECT_EQ(program.TestChar, "C:\\Chars\\KFM.def");
    EXPECT_EQ(program.HCamStep, 2.5F);
    EXPECT_EQ(program.VCamStep, -3.0F);
    EXPECT_EQ(program.CharName, "Kung Fu Man");
    EXPECT_EQ(program.form[Menu::mnuChar].caption, "Use Kung Fu Man");
    EXPECT_FALSE(program.form[Menu::mnuMusic].checked);
    EXPECT_TRUE(program.form[Menu::mnuInfo].checked);
    EXPECT_FALSE(program.form[Menu::mnuChar].checked);
    EXPECT_TRUE(program.form[Menu::mnuDeform].checked);
    EXPECT_TRUE(program.form[Menu::mnuDebugBG].checked);
    EXPECT_EQ(program.ShowStageList, 255);
    EXPECT_THAT(program.form.recentFiles, ElementsAre("/B.def", "/A.def"));
    EXPECT_TRUE(program.form[Menu::MnuRecentFiles].visible);
    EXPECT_THAT(program.charClicks, IsEmpty());
    EXPECT_THAT(program.messages.Recorded(), IsEmpty());
    EXPECT_THAT(program.dialogs.Asked(), IsEmpty());
}

TEST(LoadConfig, TakesLinesInAnyOrderCaseAndSpacing) {
    Configured program;
    EXPECT_TRUE(program.Load("STAGELIST=255\nrecentfile=/a.def\n  info   =   TRUE\rmugedir=/m/"));
    EXPECT_EQ(program.ShowStageList, 255);
    EXPECT_THAT(program.form.recentFiles, ElementsAre("/a.def"));
    EXPECT_TRUE(program.form[Menu::mnuInfo].checked);
    EXPECT_EQ(program.MugeDir, "/m/");
}

TEST(LoadConfig, LeavesWhatTheFileDoesNotGive) {
    Configured program;
    program.HCamStep = 4;
    EXPECT_TRUE(program.Load("\r\nnothing here\r\nInfos = True\r\nStageLists = 255\r\n"));
    EXPECT_EQ(program.HCamStep, 4.0F);
    EXPECT_EQ(program.MugeDir, "");
    EXPECT_TRUE(program.form[Menu::mnuMusic].checked);
    EXPECT_FALSE(program.form[Menu::mnuInfo].checked);
    EXPECT_EQ(program.ShowStageList, 0);
    EXPECT_FALSE(program.form[Menu::MnuRecentFiles].visible);
    EXPECT_THAT(program.messages.Recorded(), IsEmpty());
}

TEST(LoadConfig, AFlagIsTrueOrFalse) {
    for (const auto& [value, checked] :
         std::vector<std::pair<std::string, bool>>{{"True", true},
                                                   {"true ; a note", true},
                                                   {"False", false},
                                                   {"", false},
                                                   {"-1", false},
                                                   {"yes", false},
                                                   {"true x", false}}) {
        Configured program;
        EXPECT_TRUE(program.Load("BGMusic = " + value + "\r\n"));
        EXPECT_EQ(program.form[Menu::mnuMusic].checked, checked) << value;
    }
}

TEST(LoadConfig, TheListIsShownFor255Alone) {
    for (const std::string value : {"0", "255.0", "yes", "256", "-1", ""}) {
        Configured program;
        EXPECT_TRUE(program.Load("StageList = " + value));
        EXPECT_EQ(program.ShowStageList, 0) << value;
    }
}

TEST(LoadConfig, RunsTheCharCommandAtItsPlace) {
    Configured program;
    EXPECT_TRUE(program.Load("TestChar = /kfm.def\r\nChar = True\r\nCharName = Kung Fu Man\r\n"));
    EXPECT_THAT(program.charClicks, ElementsAre("/kfm.def|")) << "the name is not known yet";
    EXPECT_EQ(program.form[Menu::mnuChar].caption, "Use Kung Fu Man");
    for (const std::string value : {"False", "", "1"}) {
        Configured other;
        EXPECT_TRUE(other.Load("Char = " + value));
        EXPECT_THAT(other.charClicks, IsEmpty()) << value;
    }
}

TEST(LoadConfig, ANameWithoutACharacterRenamesNothing) {
    Configured program;
    EXPECT_TRUE(program.Load("CharName = Kung Fu Man\r\n"));
    EXPECT_EQ(program.CharName, "Kung Fu Man");
    EXPECT_EQ(program.form[Menu::mnuChar].caption, "&Use Test Char");
    Configured empty;
    EXPECT_TRUE(empty.Load("TestChar = /kfm.def\r\nCharName = \r\n"));
    EXPECT_EQ(empty.form[Menu::mnuChar].caption, "&Use Test Char");
}

TEST(LoadConfig, RecentFilesHaveNoBoundOfTheirOwn) {
    Configured program;
    std::string text;
    for (int i = 0; i < 9; ++i) {
        text += "RecentFile = /" + std::to_string(i) + ".def\r\n";
    }
    EXPECT_TRUE(program.Load(text));
    ASSERT_EQ(program.form.recentFiles.size(), 9U);
    EXPECT_EQ(program.form.recentFiles[0], "/0.def");
    EXPECT_EQ(program.form.recentFiles[8], "/8.def");
}

TEST(LoadConfig, ANumberThatDoesNotFitIsSaidAndLeavesTheRest) {
    Configured program;
    program.HCamStep = 3;
    EXPECT_TRUE(program.Load("HCamStep = 1e99\r\nVCamStep = 2\r\nHCamStep = -1e99\r\n"));
    EXPECT_EQ(program.HCamStep, 3.0F);
    EXPECT_EQ(program.VCamStep, 2.0F);
    ASSERT_EQ(program.messages.Recorded().size(), 1U) << "once";
    EXPECT_EQ(program.messages.Recorded()[0].text, "Overflow: hcamstep, line 1");
}

TEST(LoadConfig, SeveralKeysOnALineAllCount) {
    Configured program;
    // The second key is written in another case than the program's own, so it counts, too.
    EXPECT_TRUE(program.Load("bgmusic = x INFO = True\r\n"));
    EXPECT_FALSE(program.form[Menu::mnuMusic].checked);
    EXPECT_TRUE(program.form[Menu::mnuInfo].checked);
}

TEST(LoadConfig, TheEngineFolderGetsTheSeparatorThatItLacks) {
    struct Row {
        const char* name;
        std::string text;
        std::string folder;
    };
    for (const Row& row : {Row{"none", "MugeDir = /x/mugen\r\n", "/x/mugen" + kSeparator},
                           {"one", "MugeDir = /x/mugen/\r\n", "/x/mugen/"},
                           {"the other one", "MugeDir = C:\\mugen\\\r\n", "C:\\mugen\\"},
                           {"two", "MugeDir = /x/mugen//\r\n", "/x/mugen//"},
                           {"blanks behind it", "MugeDir = /x/mugen/ \r\n", "/x/mugen/"},
                           {"no folder", "MugeDir = \r\n", ""},
                           {"the old form", ".3\r\n/x/mugen\r\n", "/x/mugen" + kSeparator},
                           {"the old form with one", ".3\r\n/x/mugen/\r\n", "/x/mugen/"},
                           {"the old form without a folder", ".3\r\n\r\n", ""}}) {
        Configured program;
        EXPECT_TRUE(program.Load(row.text)) << row.name;
        EXPECT_EQ(program.MugeDir, row.folder) << row.name;
    }
}

// --- The old form --------------------------------------------------------------------------------

TEST(LoadConfig, ReadsTheOldForm) {
    Configured program;
    EXPECT_TRUE(program.Load(".3 whatever\r\n C:\\Mugen \r\nInfo = True\r\n"));
    EXPECT_EQ(program.MugeDir, " C:\\Mugen " + kSeparator) << "the whole line";
    EXPECT_FALSE(program.form[Menu::mnuInfo].checked) << "and nothing else";
}

TEST(LoadConfig, TheOldFormIsToldByTheFirstTwoCharacters) {
    Configured program;
    EXPECT_TRUE(program.Load("0.3\r\nMugeDir = /m/\r\n"));
    EXPECT_EQ(program.MugeDir, "/m/");
}

TEST(LoadConfig, AFileThatEndsTooEarlyIsAnError) {
    for (const std::string& text : {".3"s, ".3\r\n"s}) {
        Configured program;
        EXPECT_THAT(
            [&] { program.Load(text); },
            Throws<RunTimeError>(Property(&RunTimeError::Kind, RunTimeErrorKind::InputPastEnd)))
            << text;
    }
}

// --- Writing -------------------------------------------------------------------------------------

TEST(SaveConfig, WritesTheseBytes) {
    Configured program;
    program.MugeDir = "C:\\Games\\Mugen\\";
    program.TestChar = "C:\\Chars\\KFM.def";
    program.CharName = "Kung Fu Man";
    program.HCamStep = 2.5F;
    program.VCamStep = -0.1F;
    program.ShowStageList = 255;
    program.form[Menu::mnuInfo].checked = true;
    AppendRecentFile(program.form, "/B.def");
    AppendRecentFile(program.form, "/A.def");
    EXPECT_EQ(program.Save(),
              "Version = 1.0A\r\nMugeDir = C:\\Games\\Mugen\\\r\n"
              "TestChar = C:\\Chars\\KFM.def\r\nHCamStep = 2.5\r\nVCamStep = -0.1\r\n"
              "BGMusic = True\r\nInfo = True\r\nChar = False\r\nDeform = False\r\n"
              "DebugBG = False\r\nCharName = Kung Fu Man\r\nStageList = 255\r\n"
              "RecentFile = /B.def\r\nRecentFile = /A.def\r\n");
}

TEST(SaveConfig, LeavesAnEmptyTestCharOut) {
    Configured program;
    EXPECT_EQ(program.Save(),
              "Version = 1.0A\r\nMugeDir = \r\nHCamStep = 0\r\nVCamStep = 0\r\nBGMusic = True\r\n"
              "Info = False\r\nChar = False\r\nDeform = False\r\nDebugBG = False\r\n"
              "CharName = \r\nStageList = 0\r\n");
}

TEST(SaveConfig, DeformFollowsTheTestCharacter) {
    Configured program;
    program.form[Menu::mnuChar].checked = true;
    program.form[Menu::mnuDeform].checked = false;
    EXPECT_THAT(program.Save(), testing::HasSubstr("\r\nChar = True\r\nDeform = True\r\n"));
    program.form[Menu::mnuChar].checked = false;
    program.form[Menu::mnuDeform].checked = true;
    EXPECT_THAT(program.Save(), testing::HasSubstr("\r\nChar = False\r\nDeform = False\r\n"));
}

TEST(SaveConfig, AFullDiskLeavesTheOldSettings) {
    Configured program;
    program.files.Put("/program/QX.CFG", "MugeDir = /m/\r\n");
    program.files.FillDisk();
    EXPECT_THROW(program.Save(), RunTimeError);
    EXPECT_EQ(program.files.Get("/program/QX.CFG"), "MugeDir = /m/\r\n");
}

}  // namespace
}  // namespace scenara::test
