// SPDX-License-Identifier: MIT
//
// What is wrong with a stage, as values: each problem has its code and its severity and knows where
// it is.
#include <algorithm>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "PlainMachine.h"
#include "samplemaker/Sff1Writer.h"
#include "sprites/sff2.h"
#include "stage/DefinitionReader.h"
#include "stage/FinishElements.h"
#include "stage/LoadStage.h"
#include "stage/ReadKeyValue.h"
#include "stage/StageKeys.h"
#include "support/FuzzChecks.h"

namespace scenara::test {
namespace {

constexpr const char* kArchive = "/mugen/stages/a.sff";

struct ProblemRow {
    const char* name;
    const char* definition;
    bool additions;
    const char* code;
    Severity severity;
    MessagePlace place;
};

const ProblemRow kProblems[] = {
    {"a value too large",
     "[BGdef]\n\n[BG]\ntype = dummy\nid = 1\nMask = 99999\n",
     false,
     "overflow",
     Severity::Warning,
     {6, 1, kTestStage}},
    {"a value too large, behind blanks",
     "[BG]\ntype = dummy\n\t  delta = 1e39\n",
     true,
     "overflow",
     Severity::Warning,
     {3, 4, kTestStage}},
    {"a frame's value too large",
     "[Begin Action 1]\n0,0, 0,99999, 5\n",
     false,
     "overflow",
     Severity::Warning,
     {2, 0, kTestStage}},
    {"an action's number too large",
     "[Begin Action 99999]\n",
     false,
     "overflow",
     Severity::Warning,
     {1, 0, kTestStage}},
    {"a flip where the time was",
     "[Begin Action 1]\n0,0, 0,0, h\n",
     false,
     "flip-for-time",
     Severity::Warning,
     {2, 0, kTestStage}},
    {"a flip that nobody knows",
     "[Begin Action 1]\n0,0, 0,0, 5, q\n",
     false,
     "unknown-flip",
     Severity::Warning,
     {2, 0, kTestStage}},
    {"windowdelta",
     "[BG]\ntype = dummy\nwindowdelta = 1,1\n",
     false,
     "windowdelta",
     Severity::Warning,
     {3, 0, kTestStage}},
    {"a null element",
     "\n[BG]\ntype = null\n",
     false,
     "null-element",
     Severity::Note,
     {3, 0, kTestStage}},
    {"an element of no kind that is known",
     "\n[BG]\ntype = what\n[BG]\ntype = dummy\n",
     true,
     "unknown-type",
     Severity::Warning,
     {2, 0, kTestStage}},
    {"the same at the end",
     "[BG]\ntype = dummy\n[BG]\ntype = what\n",
     true,
     "unknown-type",
     Severity::Warning,
     {3, 0, kTestStage}},
    {"a control of no group",
     "\n[BGCtrl x]\ntype = enabled\n",
     true,
     "lone-control",
     Severity::Warning,
     {2, 0, kTestStage}},
    {"a tile count below zero",
     "[BG]\ntype = dummy\ntile = -1, 0\n",
     false,
     "negative-tile-x",
     Severity::Warning,
     {0, 0, kTestStage}},
    {"no archive",
     "[BGdef]\nspr = gone.sff\n",
     false,
     "archive-missing",
     Severity::Error,
     {0, 0, kTestStage}},
    {"a damaged archive",
     "[BGdef]\nspr = a.sff\n",
     false,
     "archive-damaged",
     Severity::Error,
     {0, 0, kArchive}},
};

TEST(Problems, KnowWhatTheyAreAndWhere) {
    for (const ProblemRow& row : kProblems) {
        SCOPED_TRACE(row.name);
        StageMachine machine;
        machine.view.Additions = row.additions;
        machine.files.Put(kArchive, std::string("ElecbyteSpr"));
        ASSERT_TRUE(machine.Load(row.definition));
        const std::vector<Message>& said = machine.messages.Recorded();
        const auto found = std::find_if(said.begin(), said.end(), [&](const Message& message) {
            return message.kind.code == row.code;
        });
        ASSERT_NE(found, said.end());
        EXPECT_EQ(found->kind.severity, row.severity);
        EXPECT_EQ(found->place.file, row.place.file);
        EXPECT_EQ(found->place.line, row.place.line);
        EXPECT_EQ(found->place.column, row.place.column);
    }
}

// A list of problems is sorted and filtered by them: no two kinds may have the same code.
TEST(Problems, HaveCodesOfTheirOwn) {
    const MessageKind kinds[] = {
        kMessageOverflow,      kMessagePosZero,        kMessageDoomFix,
        kMessageVerticalFlip,  kMessageWindowDelta,    kMessageNullElement,
        kMessageUnknownType,   kMessageLoneControl,    kMessageNegativeTileX,
        kMessageNegativeTileY, kMessageArchiveMissing, kMessageDefinitionUnreadable,
        kMessagePcxError,      kMessageOnlyImage,      kMessageLinkError,
        kMessageSffError,      kMessageSffVersion,
    };
    for (const MessageKind& kind : kinds) {
        EXPECT_EQ(std::ranges::count(kinds, kind), 1) << kind.code;
    }
}

}  // namespace
}  // namespace scenara::test
