// SPDX-License-Identifier: MIT
#include "stage/SectionHeader.h"

#include <string>
#include <string_view>

#include <gtest/gtest.h>

namespace scenara::test {
namespace {

TEST(SectionHeader, LineWithBothBracketsIsAHeader) {
    EXPECT_TRUE(IsSectionHeader("[Info]"));
    EXPECT_TRUE(IsSectionHeader("  [BG 1]  behind"));
    EXPECT_TRUE(IsSectionHeader("[]"));
    EXPECT_TRUE(IsSectionHeader("before [BG 1]"));
    EXPECT_TRUE(IsSectionHeader("spr = [x]y.sff"));
    EXPECT_TRUE(IsSectionHeader("]BG["));
}

TEST(SectionHeader, LineWithOneBracketIsNone) {
    EXPECT_FALSE(IsSectionHeader("[BG 1"));
    EXPECT_FALSE(IsSectionHeader("BG 1]"));
    EXPECT_FALSE(IsSectionHeader("BG 1"));
    EXPECT_FALSE(IsSectionHeader(""));
}

TEST(SectionHeader, NameStandsBetweenTheBrackets) {
    for (const char* const header : {"[info]", "[Info]", " [ INFO ] behind", "x[info"}) {
        EXPECT_EQ(SectionName(header), "info") << header;
    }
    for (const char* const header : {"[]", "[", "info]", "]info["}) {
        EXPECT_EQ(SectionName(header), "") << header;
    }
}

TEST(SectionHeader, BgStartsAnElement) {
    EXPECT_EQ(KindOfSection("[BG]"), SectionKind::Element);
    EXPECT_EQ(KindOfSection("[BG 1]"), SectionKind::Element);
    EXPECT_EQ(KindOfSection("[bg sky]"), SectionKind::Element);
    EXPECT_EQ(KindOfSection("[BGsky]"), SectionKind::Element);
    EXPECT_EQ(KindOfSection("[My bg]"), SectionKind::Element);
    EXPECT_EQ(KindOfSection("[x] bg"), SectionKind::Element);
}

TEST(SectionHeader, BgGoesBeforeBeginAction) {
    EXPECT_EQ(KindOfSection("[Begin Action 1 bg]"), SectionKind::Element);
}

TEST(SectionHeader, BeginActionStartsAnAction) {
    EXPECT_EQ(KindOfSection("[Begin Action 10]"), SectionKind::Action);
    EXPECT_EQ(KindOfSection("[BEGIN ACTION 10]"), SectionKind::Action);
    EXPECT_EQ(KindOfSection("[begin action]"), SectionKind::Action);
    EXPECT_EQ(KindOfSection("[begin action default ctrl]"), SectionKind::Action);
}

TEST(SectionHeader, BeginActionNeedsItsOneBlank) {
    EXPECT_EQ(KindOfSection("[BeginAction 10]"), SectionKind::Settings);
    EXPECT_EQ(KindOfSection("[Begin  Action 10]"), SectionKind::Settings);
    EXPECT_EQ(KindOfSection("[Action 10]"), SectionKind::Settings);
}

TEST(SectionHeader, BeginActionGoesBeforeBgCtrlDef) {
    EXPECT_EQ(KindOfSection("[Begin Action BGCtrlDef]"), SectionKind::Action);
}

TEST(SectionHeader, BgCtrlDefStartsAControlGroup) {
    EXPECT_EQ(KindOfSection("[BGCtrlDef]"), SectionKind::CtrlDef);
    EXPECT_EQ(KindOfSection("[BGCtrlDef Geese]"), SectionKind::CtrlDef);
    EXPECT_EQ(KindOfSection("[bgctrldef 1]"), SectionKind::CtrlDef);
}

TEST(SectionHeader, BgCtrlStartsAControl) {
    EXPECT_EQ(KindOfSection("[BGCtrl]"), SectionKind::Ctrl);
    EXPECT_EQ(KindOfSection("[BGCtrl Fly]"), SectionKind::Ctrl);
    EXPECT_EQ(KindOfSection("[bgCTRL 1]"), SectionKind::Ctrl);
}

TEST(SectionHeader, ControlNamedDefaultIsASettingsSection) {
    EXPECT_EQ(KindOfSection("[BGCtrl default]"), SectionKind::Settings);
}

TEST(SectionHeader, ElementNamedDefaultIsASettingsSection) {
    EXPECT_EQ(KindOfSection("[BG default]"), SectionKind::Settings);
    EXPECT_EQ(KindOfSection("[BG undefined]"), SectionKind::Settings);
    EXPECT_EQ(KindOfSection("[BG Ctrl room]"), SectionKind::Settings);
}

TEST(SectionHeader, AnythingElseIsSettings) {
    for (const std::string_view header :
         {"[Info]", "[Camera]", "[PlayerInfo]", "[Bound]", "[StageInfo]", "[Shadow]",
          "[Reflection]", "[Music]", "[BGdef]", "[BGDEF]", "[]", "[B G]"}) {
        EXPECT_EQ(KindOfSection(header), SectionKind::Settings) << header;
    }
}

struct FirstWordRow {
    std::string_view header;
    SectionKind kind;
};

TEST(SectionHeader, WithAdditionsTheFirstWordGoesFirst) {
    using enum SectionKind;
    for (const FirstWordRow& row : {
             FirstWordRow{"[BG default]", Element},
             {"[BG undefined]", Element},
             {"[BG Ctrl room]", Element},
             {"[bg2 defence]", Element},
             {"[ BG begin action]", Element},
             {"[BG BGCtrlDef]", Element},
             {"[BG\x81\x40"
              "def]",
              Element},
             {"[BGCtrl default]", Ctrl},
             {"[BGCtrl]", Ctrl},
             {"[BGCtrlDef ctrl]", CtrlDef},
             {"[BGCtrlDef1]", CtrlDef},
             {"[Begin Action 1 bg]", Action},
             {"[Begin  Action 10]", Action},
             {"[BeginAction 10]", Action},
             {"[Begin Action10]", Action},
             {"[BGDef]", Settings},
             {"[BGDef bg]", Settings},
             {"[BG Def]", Settings},
             {"[Begin]", Settings},
             {"[Action 10]", Settings},
             {"[Music]", Settings},
             {"[]", Settings},
             // Without such a word it is as plainly.
             {"[My bg]", Element},
             {"[BGsky]", Element},
             {"[BGdefault]", Settings},
         }) {
        EXPECT_EQ(KindByFirstWord(row.header), row.kind) << row.header;
    }
}

TEST(SectionHeader, ElementNameIsTheTextBehindTheFirstBlank) {
    EXPECT_EQ(ElementName("[BG 1]"), "1");
    EXPECT_EQ(ElementName("[BG Wall Reflection on floor]"), "Wall Reflection on floor");
    EXPECT_EQ(ElementName("[BG  two blanks ]"), " two blanks ");
    EXPECT_EQ(ElementName("[ BG Sky]"), "BG Sky");
    EXPECT_EQ(ElementName("[BG ]"), "");
}

TEST(SectionHeader, ElementNameEndsAtTheBracket) {
    EXPECT_EQ(ElementName("[BG Sky] behind"), "Sky");
    EXPECT_EQ(ElementName("[BG a]b]"), "a");
}

TEST(SectionHeader, ElementWithoutBlankHasNoName) {
    EXPECT_EQ(ElementName("[BG]"), "No name");
    EXPECT_EQ(ElementName("  [BG]  "), "No name");
    EXPECT_EQ(ElementName("[BG] behind"), "No name");
    EXPECT_EQ(ElementName("[BGSky]"), "No name");
}

TEST(SectionHeader, ActionNumberStandsBehindAction) {
    EXPECT_EQ(ActionNumber("[Begin Action 10]"), 10);
    EXPECT_EQ(ActionNumber("[BEGIN ACTION   10  ]"), 10);
    EXPECT_EQ(ActionNumber("[Begin Action10]"), 10);
    EXPECT_EQ(ActionNumber("[Begin Action -3]"), -3);
    EXPECT_EQ(ActionNumber("[Begin Action 12abc]"), 12);
    EXPECT_EQ(ActionNumber("[Begin Action 99999999999]"), 99999999999.0);
}

TEST(SectionHeader, ActionWithoutNumberIsZero) {
    EXPECT_EQ(ActionNumber("[Begin Action]"), 0);
    EXPECT_EQ(ActionNumber("[Begin Action x]"), 0);
    EXPECT_EQ(ActionNumber("[Info]"), 0);
}

TEST(SectionHeader, MillionCharacters) {
    const std::string name(1'000'000, 'x');
    EXPECT_TRUE(IsSectionHeader("[BG " + name + "]"));
    EXPECT_EQ(KindOfSection("[BG " + name + "]"), SectionKind::Element);
    EXPECT_EQ(ElementName("[BG " + name + "]"), name);
    EXPECT_EQ(ActionNumber("[" + name + " action 7]"), 7);
}

}  // namespace
}  // namespace scenara::test
