// SPDX-License-Identifier: MIT
//
// Settings that are read as they were written, and files that are something else.
#include <cstdint>
#include <limits>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/Configured.h"
#include "base/Path.h"
#include "base/RunTimeError.h"

namespace scenara::test {
namespace {

using namespace std::string_literals;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Property;
using testing::Throws;

// --- There and back ------------------------------------------------------------------------------

// Among them one with bytes that are UTF-8 and bytes that are not.
TEST(Configuration, EveryTextComesBackAsItWas) {
    for (const std::string& text : {""s,
                                    "/games/mugen 1.0 beta/"s,
                                    "/5 10/x.def"s,
                                    "C:\\Configured Files\\M\\"s,
                                    "/a;b; c/"s,
                                    "=/a=b = c/="s,
                                    "/UPPER/lower/MiXed/"s,
                                    "/na\xC3\xAFve/\xC3\x81/\x81\xFF/"s,
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
                                    std::string(5000, 'x')}) {
        Configured saved;
        saved.MugeDir = text;
        saved.TestChar = text;
        saved.CharName = text;
        saved.HCamStep = 1.25F;
        saved.VCamStep = 1e-7F;
        saved.form.recentFiles = {text, "/between.def", text};

        Configured loaded;
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
        Configured saved;
        saved.MugeDir = path;
        saved.form.recentFiles = {end};
        Configured loaded;
        EXPECT_TRUE(loaded.Load(saved.Save()));
        EXPECT_EQ(loaded.MugeDir, path) << byte;
        EXPECT_THAT(loaded.form.recentFiles, ElementsAre(end)) << byte;
    }
}

TEST(Configuration, EveryStepComesBack) {
    for (const Single step :
         {0.0F, 1.0F, -1.0F, 0.1F, 1.0F / 3, 16777217.0F, std::numeric_limits<Single>::max(),
          std::numeric_limits<Single>::min(), std::numeric_limits<Single>::denorm_min()}) {
        Configured saved;
        saved.HCamStep = step;
        saved.VCamStep = -step;
        Configured loaded;
        EXPECT_TRUE(loaded.Load(saved.Save()));
        EXPECT_EQ(loaded.HCamStep, step);
        EXPECT_EQ(loaded.VCamStep, -step);
        EXPECT_THAT(loaded.messages.Recorded(), IsEmpty());
    }
}

TEST(Configuration, FlagsComeBackButForDeform) {
    for (unsigned flags = 0; flags < 16; ++flags) {
        Configured saved;
        const auto flag = [&](unsigned bit) { return (flags >> bit & 1U) != 0; };
        saved.form[Menu::mnuMusic].checked = flag(0);
        saved.form[Menu::mnuInfo].checked = flag(1);
        saved.form[Menu::mnuChar].checked = flag(2);
        saved.form[Menu::mnuDebugBG].checked = flag(3);
        saved.form[Menu::mnuDeform].checked = !flag(2);
        saved.ShowStageList = flag(0) ? 255 : 0;
        Configured loaded;
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
    Configured program;
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
    Configured program;
    EXPECT_THAT(
        [&] { program.Load("MugeDir = " + std::string(5'000'000, 'x')); },
        Throws<RunTimeError>(Property(&RunTimeError::Kind, RunTimeErrorKind::InputPastEnd)));
    EXPECT_EQ(program.MugeDir, "");
}

TEST(LoadConfig, SaysTheSameOnlyOnce) {
    Configured program;
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
    Configured program;
    EXPECT_TRUE(program.Load(bytes));
    EXPECT_GT(program.form.recentFiles.size(), 100U);
    const std::string saved = program.Save();
    Configured again;
    EXPECT_TRUE(again.Load(saved));
    EXPECT_EQ(again.form.recentFiles.size(), program.form.recentFiles.size());
}

}  // namespace
}  // namespace scenara::test
