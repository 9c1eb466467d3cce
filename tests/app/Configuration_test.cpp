// SPDX-License-Identifier: MIT
#include "app/Configuration.h"

#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/MenuTree.h"
#include "app/RecentFiles.h"
#include "base/Path.h"
#include "base/RunTimeError.h"
#include "platform/headless/HeadlessDialogs.h"
#include "platform/headless/HeadlessMessages.h"
#include "support/MemoryFiles.h"

namespace scenara::test {
namespace {

using namespace std::string_literals;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Property;
using testing::Throws;

constexpr const char* kPath = "/program/QX.CFG";
const std::string kSeparator(1, PathSeparator);

// A program's settings, and the machine around them.
struct Program {
    Program() { DesignMenus(form); }

    bool Load() {
        return LoadConfig(settings, {files, messages, dialogs,
                                     [this] {
                                         charClicks.push_back(TestChar + "|" + CharName);
                                         form[Menu::mnuChar].checked = true;
                                     },
                                     [this] { return ended; }});
    }
    bool Load(const std::string& text) {
        files.Put(kPath, text);
        return Load();
    }
    std::string Save() {
        SaveConfig(settings, "1.0", files);
        return files.Get(kPath);
    }

    std::string MugeDir;
    Single HCamStep = 0;
    Single VCamStep = 0;
    std::string TestChar;
    std::string CharName;
    Byte ShowStageList = 0;
    Form form;
    Settings settings{MugeDir, HCamStep, VCamStep, TestChar, CharName, ShowStageList, form};

    MemoryFiles files;
    HeadlessMessages messages;
    HeadlessDialogs dialogs;
    bool ended = false;
    std::vector<std::string> charClicks;  // what was known at each
};

// --- First start ---------------------------------------------------------------------------------

TEST(LoadConfig, AsksForTheEngineFolderAtTheFirstStart) {
    Program program;
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
    EXPECT_FALSE(program.files.Has(kPath)) << "written at the end";
    EXPECT_TRUE(program.form[Menu::mnuMusic].checked) << "as designed";
    EXPECT_EQ(program.ShowStageList, 0);
}

TEST(LoadConfig, AsksUntilAFolderIsChosen) {
    Program program;
    program.dialogs.Answer("");
    program.dialogs.Answer("");
    program.dialogs.Answer("/m");
    EXPECT_TRUE(program.Load());
    EXPECT_EQ(program.MugeDir, "/m" + kSeparator);
    EXPECT_EQ(program.dialogs.Asked().size(), 3U);
    EXPECT_EQ(program.messages.Recorded().size(), 1U);
}

TEST(LoadConfig, ARootKeepsItsOwnSeparator) {
    Program program;
    program.dialogs.Answer("C:\\");
    EXPECT_TRUE(program.Load());
    EXPECT_EQ(program.MugeDir, "C:\\" + kSeparator);
}

TEST(LoadConfig, DoesNotAskOnWhenTheProgramIsToEnd) {
    Program program;
    program.dialogs.Observe(
        [&](const DialogQuestion&) { program.ended = program.dialogs.Asked().size() == 2; });
    EXPECT_FALSE(program.Load());
    EXPECT_EQ(program.dialogs.Asked().size(), 2U);
    EXPECT_EQ(program.MugeDir, "");
}

TEST(LoadConfig, AFolderChosenWhileTheProgramEndsCounts) {
    Program program;
    program.dialogs.Observe([&](const DialogQuestion&) { program.ended = true; });
    program.dialogs.Answer("/m");
    EXPECT_TRUE(program.Load());
    EXPECT_EQ(program.MugeDir, "/m" + kSeparator);
}

// --- Reading -------------------------------------------------------------------------------------

TEST(LoadConfig, ReadsEverySetting) {
    Program program;
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
    Program program;
    EXPECT_TRUE(program.Load("STAGELIST=255\nrecentfile=/a.def\n  info   =   TRUE\rmugedir=/m/"));
    EXPECT_EQ(program.ShowStageList, 255);
    EXPECT_THAT(program.form.recentFiles, ElementsAre("/a.def"));
    EXPECT_TRUE(program.form[Menu::mnuInfo].checked);
    EXPECT_EQ(program.MugeDir, "/m/");
}

TEST(LoadConfig, LeavesWhatTheFileDoesNotGive) {
    Program program;
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
        Program program;
        EXPECT_TRUE(program.Load("BGMusic = " + value + "\r\n"));
        EXPECT_EQ(program.form[Menu::mnuMusic].checked, checked) << value;
    }
}

TEST(LoadConfig, TheListIsShownFor255Alone) {
    for (const std::string value : {"0", "255.0", "yes", "256", "-1", ""}) {
        Program program;
        EXPECT_TRUE(program.Load("StageList = " + value));
        EXPECT_EQ(program.ShowStageList, 0) << value;
    }
}

TEST(LoadConfig, RunsTheCharCommandAtItsPlace) {
    Program program;
    EXPECT_TRUE(program.Load("TestChar = /kfm.def\r\nChar = True\r\nCharName = Kung Fu Man\r\n"));
    EXPECT_THAT(program.charClicks, ElementsAre("/kfm.def|")) << "the name is not known yet";
    EXPECT_EQ(program.form[Menu::mnuChar].caption, "Use Kung Fu Man");
    for (const std::string value : {"False", "", "1"}) {
        Program other;
        EXPECT_TRUE(other.Load("Char = " + value));
        EXPECT_THAT(other.charClicks, IsEmpty()) << value;
    }
}

TEST(LoadConfig, ANameWithoutACharacterRenamesNothing) {
    Program program;
    EXPECT_TRUE(program.Load("CharName = Kung Fu Man\r\n"));
    EXPECT_EQ(program.CharName, "Kung Fu Man");
    EXPECT_EQ(program.form[Menu::mnuChar].caption, "&Use Test Char");
    Program empty;
    EXPECT_TRUE(empty.Load("TestChar = /kfm.def\r\nCharName = \r\n"));
    EXPECT_EQ(empty.form[Menu::mnuChar].caption, "&Use Test Char");
}

TEST(LoadConfig, RecentFilesHaveNoBoundOfTheirOwn) {
    Program program;
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
    Program program;
    program.HCamStep = 3;
    EXPECT_TRUE(program.Load("HCamStep = 1e99\r\nVCamStep = 2\r\nHCamStep = -1e99\r\n"));
    EXPECT_EQ(program.HCamStep, 3.0F);
    EXPECT_EQ(program.VCamStep, 2.0F);
    ASSERT_EQ(program.messages.Recorded().size(), 1U) << "once";
    EXPECT_EQ(program.messages.Recorded()[0].text, "Overflow: hcamstep, line 1");
}

TEST(LoadConfig, SeveralKeysOnALineAllCount) {
    Program program;
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
        Program program;
        EXPECT_TRUE(program.Load(row.text)) << row.name;
        EXPECT_EQ(program.MugeDir, row.folder) << row.name;
    }
}

// --- The old form --------------------------------------------------------------------------------

TEST(LoadConfig, ReadsTheOldForm) {
    Program program;
    EXPECT_TRUE(program.Load(".3 whatever\r\n C:\\Mugen \r\nInfo = True\r\n"));
    EXPECT_EQ(program.MugeDir, " C:\\Mugen " + kSeparator) << "the whole line";
    EXPECT_FALSE(program.form[Menu::mnuInfo].checked) << "and nothing else";
}

TEST(LoadConfig, TheOldFormIsToldByTheFirstTwoCharacters) {
    Program program;
    EXPECT_TRUE(program.Load("0.3\r\nMugeDir = /m/\r\n"));
    EXPECT_EQ(program.MugeDir, "/m/");
}

TEST(LoadConfig, AFileThatEndsTooEarlyIsAnError) {
    for (const std::string& text : {".3"s, ".3\r\n"s}) {
        Program program;
        EXPECT_THAT(
            [&] { program.Load(text); },
            Throws<RunTimeError>(Property(&RunTimeError::Kind, RunTimeErrorKind::InputPastEnd)))
            << text;
    }
}

TEST(LoadConfig, AFileOfNoBytesCountsAsNone) {
    Program program;
    program.dialogs.Answer("/games/mugen");
    EXPECT_TRUE(program.Load(""));
    EXPECT_EQ(program.MugeDir, "/games/mugen/");
}

// --- Writing -------------------------------------------------------------------------------------

TEST(SaveConfig, WritesTheseBytes) {
    Program program;
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
    Program program;
    EXPECT_EQ(program.Save(),
              "Version = 1.0A\r\nMugeDir = \r\nHCamStep = 0\r\nVCamStep = 0\r\nBGMusic = True\r\n"
              "Info = False\r\nChar = False\r\nDeform = False\r\nDebugBG = False\r\n"
              "CharName = \r\nStageList = 0\r\n");
}

TEST(SaveConfig, DeformFollowsTheTestCharacter) {
    Program program;
    program.form[Menu::mnuChar].checked = true;
    program.form[Menu::mnuDeform].checked = false;
    EXPECT_THAT(program.Save(), testing::HasSubstr("\r\nChar = True\r\nDeform = True\r\n"));
    program.form[Menu::mnuChar].checked = false;
    program.form[Menu::mnuDeform].checked = true;
    EXPECT_THAT(program.Save(), testing::HasSubstr("\r\nChar = False\r\nDeform = False\r\n"));
}

TEST(SaveConfig, AFullDiskLeavesTheOldSettings) {
    Program program;
    program.files.Put(kPath, "MugeDir = /m/\r\n");
    program.files.FillDisk();
    EXPECT_THROW(program.Save(), RunTimeError);
    EXPECT_EQ(program.files.Get(kPath), "MugeDir = /m/\r\n");
}

// --- There and back ------------------------------------------------------------------------------

TEST(Configuration, EveryTextComesBackAsItWas) {
    for (const std::string& text : {
             ""s,
             "/games/mugen 1.0 beta/"s,
             "/5 10/x.def"s,
             "C:\\Program Files\\M\\"s,
             "/a;b; c/"s,
             "=/a=b = c/="s,
             "/UPPER/lower/MiXed/"s,
             "/na\xC3\xAFve/\xC3\x81/\x81\xFF/"s,  // UTF-8 and not
             "/a,b, c,/"s,
             "/tab\there/"s,
             "/mugedir/"s,
             "/MugeDir = /x/"s,
             "mugedir"s,
             "/testchar/testchar.def"s,
             "/charname = x"s,
             "/recentfile/RecentFile = /y"s,
             "/Info = true/Deform = x/DEBUGBG = True"s,
             "/info = true"s,
             "INFO = TRUE"s,
             "/;INFO = TRUE"s,
             "/CHAR = TRUE"s,
             "/StageList = 255"s,
             "STAGELIST = 255"s,
             "/HCAMSTEP = 7 VCAMSTEP = 8"s,
             ".3"s,
             "/two  blanks   inside/"s,
             " a blank before"s,
             "a blank behind "s,
             "   "s,
             " "s,
             "/a\nb\r\nCHAR = True\r\n/"s,
             "\r"s,
             std::string(5000, 'x'),
         }) {
        Program saved;
        saved.MugeDir = text;
        saved.TestChar = text;
        saved.CharName = text;
        saved.HCamStep = 1.25F;
        saved.VCamStep = 1e-7F;
        saved.form.recentFiles = {text, "/between.def", text};

        Program loaded;
        EXPECT_TRUE(loaded.Load(saved.Save())) << text;
        EXPECT_EQ(loaded.MugeDir, WithSeparator(text));
        EXPECT_EQ(loaded.TestChar, text);
        EXPECT_EQ(loaded.CharName, text);
        EXPECT_EQ(loaded.HCamStep, 1.25F) << text;
        EXPECT_EQ(loaded.VCamStep, 1e-7F) << text;
        EXPECT_THAT(loaded.form.recentFiles, ElementsAre(text, "/between.def", text));
        EXPECT_TRUE(loaded.form[Menu::mnuMusic].checked) << text;
        EXPECT_FALSE(loaded.form[Menu::mnuInfo].checked) << text;
        EXPECT_FALSE(loaded.form[Menu::mnuDeform].checked) << text;
        EXPECT_FALSE(loaded.form[Menu::mnuDebugBG].checked) << text;
        EXPECT_EQ(loaded.ShowStageList, 0) << text;
        EXPECT_THAT(loaded.charClicks, IsEmpty()) << text;
        EXPECT_THAT(loaded.messages.Recorded(), IsEmpty()) << text;
    }
}

TEST(Configuration, EveryByteOfAPathComesBack) {
    for (int byte = 1; byte < 256; ++byte) {
        const std::string path = "/m" + std::string(1, static_cast<char>(byte)) + "n/";
        const std::string end = std::string(1, static_cast<char>(byte));
        Program saved;
        saved.MugeDir = path;
        saved.form.recentFiles = {end};
        Program loaded;
        EXPECT_TRUE(loaded.Load(saved.Save()));
        EXPECT_EQ(loaded.MugeDir, path) << byte;
        EXPECT_THAT(loaded.form.recentFiles, ElementsAre(end)) << byte;
    }
}

TEST(Configuration, EveryStepComesBack) {
    for (const Single step :
         {0.0F, 1.0F, -1.0F, 0.1F, 1.0F / 3, 16777217.0F, std::numeric_limits<Single>::max(),
          std::numeric_limits<Single>::min(), std::numeric_limits<Single>::denorm_min()}) {
        Program saved;
        saved.HCamStep = step;
        saved.VCamStep = -step;
        Program loaded;
        EXPECT_TRUE(loaded.Load(saved.Save()));
        EXPECT_EQ(loaded.HCamStep, step);
        EXPECT_EQ(loaded.VCamStep, -step);
        EXPECT_THAT(loaded.messages.Recorded(), IsEmpty());
    }
}

TEST(Configuration, FlagsComeBackButForDeform) {
    for (unsigned flags = 0; flags < 16; ++flags) {
        Program saved;
        const auto flag = [&](unsigned bit) { return (flags >> bit & 1U) != 0; };
        saved.form[Menu::mnuMusic].checked = flag(0);
        saved.form[Menu::mnuInfo].checked = flag(1);
        saved.form[Menu::mnuChar].checked = flag(2);
        saved.form[Menu::mnuDebugBG].checked = flag(3);
        saved.form[Menu::mnuDeform].checked = !flag(2);
        saved.ShowStageList = flag(0) ? 255 : 0;
        Program loaded;
        EXPECT_TRUE(loaded.Load(saved.Save()));
        EXPECT_EQ(loaded.form[Menu::mnuMusic].checked, flag(0));
        EXPECT_EQ(loaded.form[Menu::mnuInfo].checked, flag(1));
        EXPECT_EQ(loaded.charClicks.size(), flag(2) ? 1U : 0U);
        EXPECT_EQ(loaded.form[Menu::mnuDebugBG].checked, flag(3));
        EXPECT_EQ(loaded.form[Menu::mnuDeform].checked, flag(2));
        EXPECT_EQ(loaded.ShowStageList, saved.ShowStageList);
    }
}

// --- Files that are something else ---------------------------------------------------------------

TEST(LoadConfig, ReadsNoMoreThanTheBeginningOfAHugeFile) {
    Program program;
    std::string text = "MugeDir = /m/\r\n";
    while (text.size() < 1'048'576 - 20) {
        text += "x\r\n";
    }
    EXPECT_TRUE(program.Load(text + "Info = True\r\nRecentFile = /cut/off/in/the/middle.def\r\n" +
                             std::string(3'000'000, 'x') + "\r\nBGMusic = False\r\n"));
    EXPECT_EQ(program.MugeDir, "/m/");
    EXPECT_TRUE(program.form[Menu::mnuInfo].checked);
    EXPECT_THAT(program.form.recentFiles, IsEmpty()) << "no half path";
    EXPECT_TRUE(program.form[Menu::mnuMusic].checked);
}

TEST(LoadConfig, AnEndlessLineIsNone) {
    Program program;
    EXPECT_THAT(
        [&] { program.Load("MugeDir = " + std::string(5'000'000, 'x')); },
        Throws<RunTimeError>(Property(&RunTimeError::Kind, RunTimeErrorKind::InputPastEnd)));
    EXPECT_EQ(program.MugeDir, "");
}

TEST(LoadConfig, SaysTheSameOnlyOnce) {
    Program program;
    std::string text;
    while (text.size() < 1'000'000) {
        text += ";INFO=\nHCAMSTEP=1e99\n";
    }
    EXPECT_TRUE(program.Load(text));
    ASSERT_EQ(program.messages.Recorded().size(), 2U);
    EXPECT_EQ(program.messages.Recorded()[0].text, "pos=0");
    EXPECT_EQ(program.messages.Recorded()[1].text, "Overflow: hcamstep, line 2");
}

TEST(LoadConfig, AnyBytesAreRead) {
    std::string bytes;
    std::uint32_t state = 1;
    while (bytes.size() < 200'000) {
        state = state * 1664525U + 1013904223U;
        bytes.push_back(static_cast<char>(state >> 24U));
        if (state % 97 == 0) {
            bytes += "Info = ";
        }
        if (state % 89 == 0) {
            bytes += "\nRecentFile =";
        }
    }
    Program program;
    EXPECT_TRUE(program.Load(bytes));
    EXPECT_GT(program.form.recentFiles.size(), 100U);
    const std::string saved = program.Save();
    Program again;
    EXPECT_TRUE(again.Load(saved));
    EXPECT_EQ(again.form.recentFiles.size(), program.form.recentFiles.size());
}

}  // namespace
}  // namespace scenara::test
