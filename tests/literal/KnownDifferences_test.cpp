// SPDX-License-Identifier: MIT
//
// Rules for additions that the program does not carry out. Each row fails once it does: the rule
// then belongs to the others in LiteralRules, and the row to Rules_test.cpp.
#include <ostream>
#include <string>

#include <gtest/gtest.h>

#include "frames/PaintedStage.h"
#include "literal/Comparison.h"

namespace scenara::test {
namespace {

struct Known {
    const char* rule;
    bool LiteralRules::*differs;
    const char* definition;
};
void PrintTo(const Known& known, std::ostream* out) {
    *out << known.rule;
}

constexpr Known kKnown[] = {
    {"the picture is cleared before each frame", &LiteralRules::clearsPicture,
     "[BG a]\ntype = normal\nspriteno = 1,0\nstart = 0,90\nvelocity = 5\n"},
    {"a mirrored frame keeps its tiling", &LiteralRules::tilesMirrored,
     "[Begin Action 1]\n1,0, 0,0, 9, H\n"
     "[BG a]\ntype = anim\nactionno = 1\nstart = 0,90\ntile = 3\ntilespacing = 50\n"},
    {"a whole swing in a period", &LiteralRules::wholeSwings,
     "[BG a]\ntype = normal\nspriteno = 1,0\nstart = 0,90\nsin.y = 20,12,90\n"},
    {"moved once in a frame with layerno below 0", &LiteralRules::movesOnce,
     "[BG a]\ntype = normal\nspriteno = 1,0\nstart = 0,90\nlayerno = -1\nvelocity = 5\n"},
    {"hidden elements drift on", &LiteralRules::movesHidden,
     "[BG a]\ntype = normal\nspriteno = 1,0\nstart = 0,90\nvelocity = 5\n"
     "[BGCtrlDef]\n[BGCtrl]\ntype = visible\ntime = 1\nvalue = 0\n"
     "[BGCtrl]\ntype = visible\ntime = 4\nvalue = 1\n"},
    {"rows are sheared from the middle of the view", &LiteralRules::shearsFromMiddle,
     "[BG a]\ntype = parallax\nspriteno = 3,0\nstart = 60,90\nxscale = 1,2\n"},
};

class KnownDifference : public testing::TestWithParam<Known> {};

TEST_P(KnownDifference, IsTheOnlyOne) {
    const Known& known = GetParam();
    RandomStage stage;
    stage.archive = PaintedArchive();
    stage.definition = std::string("[BGdef]\nspr = random.sff\n") + known.definition;
    stage.keys.resize(8);
    LiteralRules rules;
    EXPECT_EQ(FirstDifference(stage, ViewOptions{}, rules), "");
    rules.*known.differs = true;
    EXPECT_NE(FirstDifference(stage, ViewOptions{}, rules), "") << "the program does it now";
}

INSTANTIATE_TEST_SUITE_P(Literal, KnownDifference, testing::ValuesIn(kKnown));

}  // namespace
}  // namespace scenara::test
