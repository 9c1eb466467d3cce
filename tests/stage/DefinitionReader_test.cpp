// SPDX-License-Identifier: MIT
#include "stage/DefinitionReader.h"

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "ModelText.h"
#include "platform/headless/HeadlessMessages.h"

namespace scenara::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct Definition {
    StageModel model;
    std::string spr;
    std::vector<std::string> said;
};

// The lines, numbered from 1.
Definition ReadLines(std::initializer_list<std::string_view> lines) {
    Definition definition;
    HeadlessMessages messages;
    DefinitionReader reader(definition.model, messages, kPlainView);
    std::int64_t number = 0;
    for (const std::string_view line : lines) {
        reader.ReadLine(line, ++number);
    }
    definition.spr = reader.Spr();
    for (const Message& message : messages.Recorded()) {
        EXPECT_EQ(message.title, "");
        EXPECT_EQ(message.icon, MessageIcon::None);
        definition.said.push_back(message.text);
    }
    return definition;
}

// Reading that has nothing to say.
StageModel ModelOf(std::initializer_list<std::string_view> lines) {
    Definition definition = ReadLines(lines);
    EXPECT_THAT(definition.said, IsEmpty());
    return std::move(definition.model);
}

// Cleaning

TEST(DefinitionReader, CommentLinesAreSkipped) {
    const StageModel model = ModelOf({";[BG 1]", "; zoffset = 5", "   ; zoffset = 5", ";"});
    EXPECT_EQ(model.ElementCount, 0);
    EXPECT_EQ(model.ZOffset, 0);
}

TEST(DefinitionReader, CommentsAreCutOff) {
    const StageModel model = ModelOf({"[BG Sky] ; not [this]", "id = 5;6", "start = 1, 2 ; , 3"});
    EXPECT_EQ(model.Elements.at(0).name, "Sky");
    EXPECT_EQ(model.Elements.at(0).id, 5);
    EXPECT_EQ(model.Elements.at(0).startY, 2);
}

TEST(DefinitionReader, HeaderThatIsCutByACommentIsNone) {
    EXPECT_EQ(ModelOf({"[BG a;b]"}).ElementCount, 0);
}

TEST(DefinitionReader, EmptyLinesAndLinesOfBlanksAndTabsAreIgnored) {
    const StageModel model =
        ModelOf({"[Begin Action 1]", "", "   ", "\t", " \t \t ", "\t;\t,", "0,0, 0,0, 1"});
    EXPECT_EQ(model.Actions.at(0).frameCount, 1);
}

TEST(DefinitionReader, TabsAreTakenOut) {
    const StageModel model = ModelOf({"\t[BG\t Sky]", "\tla\tyerno\t=\t1", "start\t=\t1\t0,\t5"});
    EXPECT_EQ(model.Elements.at(0).name, "Sky");
    EXPECT_EQ(model.Elements.at(0).layerno, 1);
    EXPECT_EQ(model.Elements.at(0).startX, 10);
    EXPECT_EQ(model.Elements.at(0).startY, 5);
}

TEST(DefinitionReader, TabBeforeTheNameIsNoBlank) {
    EXPECT_EQ(ModelOf({"[BG\tSky]"}).Elements.at(0).name, "No name");
}

// Sections

TEST(DefinitionReader, LinesBeforeTheFirstHeaderAreSettings) {
    EXPECT_EQ(ModelOf({"zoffset = 5"}).ZOffset, 5);
}

TEST(DefinitionReader, SettingsStandInAnySettingsSection) {
    const StageModel model = ModelOf({"[Music]", "zoffset = 5", "[Nobody knows]", "tension = 6",
                                      "[BGdef]", "name = x", "[]", "boundleft = -7"});
    EXPECT_EQ(model.ZOffset, 5);
    EXPECT_EQ(model.Tension, 6);
    EXPECT_EQ(model.StageTitle, "x");
    EXPECT_EQ(model.BoundLeft, -7);
}

TEST(DefinitionReader, SettingsStandInNoOtherSection) {
    const StageModel model = ModelOf({"[BG 1]", "zoffset = 5", "[Begin Action 1]", "zoffset = 5",
                                      "[BGCtrlDef]", "zoffset = 5", "[BGCtrl]", "zoffset = 5"});
    EXPECT_EQ(model.ZOffset, 0);
}

TEST(DefinitionReader, ElementKeysStandInElementSectionsOnly) {
    const StageModel model = ModelOf({"[BG 1]", "id = 5", "[Info]", "id = 6", "[Begin Action 1]",
                                      "id = 7", "[BGCtrlDef]", "id = 8", "[BGCtrl]", "id = 9"});
    EXPECT_EQ(model.Elements.at(0).id, 5);
}

TEST(DefinitionReader, ElementNamedDefaultIsASettingsSection) {
    const StageModel model = ModelOf({"[BG 1]", "[BG default]", "id = 5", "zoffset = 6"});
    EXPECT_EQ(model.ElementCount, 1);
    EXPECT_EQ(model.Elements.at(0).id, 0);
    EXPECT_EQ(model.ZOffset, 6);
}

TEST(DefinitionReader, ValueWithBothBracketsStartsASettingsSection) {
    const Definition definition = ReadLines({"[BG 1]", "spr = [x]y.sff", "zoffset = 6"});
    EXPECT_EQ(definition.spr, "");
    EXPECT_EQ(definition.model.ZOffset, 6);
}

TEST(DefinitionReader, LastSprCounts) {
    EXPECT_EQ(ReadLines({"spr = A.sff", "[Info]", "SPR = B.sff"}).spr, "b.sff");
}

TEST(DefinitionReader, UnknownKeysAreSilent) {
    const std::string known = ModelText(ModelOf({"[Info]", "[BG 1]", "[BGCtrlDef]", "[BGCtrl]"}));
    EXPECT_EQ(ModelText(ModelOf({"[Info]", "author = x", "nonsense", "=", "[BG 1]", "zoom = 5",
                                 "= = =", ",,,", "[BGCtrlDef]", "x", "[BGCtrl]", "y"})),
              known);
}

// Elements

TEST(DefinitionReader, ElementsAreAppendedInFileOrder) {
    const StageModel model =
        ModelOf({"[BG 1]", "id = 5", "[BG]", "[Info]", "[BG Wall Left]", "id = 7"});
    ASSERT_EQ(model.ElementCount, 3);
    ASSERT_EQ(model.Elements.size(), 3U);
    EXPECT_EQ(model.Elements[0].name, "1");
    EXPECT_EQ(model.Elements[0].id, 5);
    EXPECT_EQ(model.Elements[1].name, "No name");
    EXPECT_EQ(model.Elements[1].id, 0);
    EXPECT_EQ(model.Elements[2].name, "Wall Left");
    EXPECT_EQ(model.Elements[2].id, 7);
}

TEST(DefinitionReader, NewElementHasDeltasOfOne) {
    const StageModel model = ModelOf({"[BG 1]", "delta = 3, 4", "[BG 2]"});
    EXPECT_EQ(model.Elements.at(1).deltaX, 1);
    EXPECT_EQ(model.Elements.at(1).deltaY, 1);
}

TEST(DefinitionReader, NullElementIsDroppedAndSaid) {
    const Definition definition = ReadLines({"[BG 1]", "type = null"});
    EXPECT_EQ(definition.model.ElementCount, 0);
    EXPECT_TRUE(definition.model.Elements.empty());
    EXPECT_THAT(definition.said, ElementsAre("NULL BG 0"));
}

TEST(DefinitionReader, NullElementMayBeFirst) {
    const Definition definition =
        ReadLines({"[BG a]", "Type = NULL", "id = 1", "[BG b]", "id = 2", "[BG c]", "id = 3"});
    ASSERT_EQ(definition.model.Elements.size(), 2U);
    EXPECT_EQ(definition.model.ElementCount, 2);
    EXPECT_EQ(definition.model.Elements[0].name, "b");
    EXPECT_EQ(definition.model.Elements[0].id, 2);
    EXPECT_EQ(definition.model.Elements[1].id, 3);
    EXPECT_THAT(definition.said, ElementsAre("NULL BG 0"));
}

TEST(DefinitionReader, NullElementMayStandBetweenOthers) {
    const Definition definition = ReadLines(
        {"[BG a]", "id = 1", "[BG b]", "id = 2", "type = null", "id = 22", "[BG c]", "id = 3"});
    ASSERT_EQ(definition.model.Elements.size(), 2U);
    EXPECT_EQ(definition.model.Elements[0].id, 1);
    EXPECT_EQ(definition.model.Elements[1].name, "c");
    EXPECT_EQ(definition.model.Elements[1].id, 3);
    EXPECT_THAT(definition.said, ElementsAre("NULL BG 1"));
}

TEST(DefinitionReader, NullElementMayBeLast) {
    const Definition definition =
        ReadLines({"[BG a]", "id = 1", "[BG b]", "type = null", "id = 2", "[Info]", "zoffset = 5"});
    ASSERT_EQ(definition.model.Elements.size(), 1U);
    EXPECT_EQ(definition.model.Elements[0].id, 1);
    EXPECT_EQ(definition.model.ZOffset, 5);
    EXPECT_THAT(definition.said, ElementsAre("NULL BG 1"));
}

TEST(DefinitionReader, EachNullElementIsSaid) {
    const Definition definition = ReadLines(
        {"[BG a]", "type = null", "[BG b]", "[BG c]", "type = null", "[BG d]", "type = null"});
    EXPECT_THAT(definition.said, ElementsAre("NULL BG 0", "NULL BG 1", "NULL BG 1"));
    ASSERT_EQ(definition.model.Elements.size(), 1U);
    EXPECT_EQ(definition.model.Elements[0].name, "b");
}

TEST(DefinitionReader, RestOfANullSectionIsReadAndDiscarded) {
    const Definition definition =
        ReadLines({"[BG a]", "type = null", "type = normal", "windowdelta = 1", "[BG b]"});
    ASSERT_EQ(definition.model.Elements.size(), 1U);
    EXPECT_EQ(definition.model.Elements[0].name, "b");
    EXPECT_EQ(definition.model.Elements[0].type, "");
    EXPECT_THAT(definition.said, ElementsAre("NULL BG 0", "Windowdelta not supported just yet.."));
}

// Actions

TEST(DefinitionReader, ActionsHoldTheirFramesInOrder) {
    const StageModel model = ModelOf({"[Begin Action 7]", "1,2, 3,4, 5, H", "6,7, 8,9, 10",
                                      "[Begin Action -3]", "[BEGIN ACTION 9]", "1,1, 0,0, -1"});
    ASSERT_EQ(model.ActionCount, 3);
    ASSERT_EQ(model.Actions.size(), 3U);
    EXPECT_EQ(model.Actions[0].actionNo, 7);
    ASSERT_EQ(model.Actions[0].frames.size(), 2U);
    EXPECT_EQ(model.Actions[0].frameCount, 2);
    const StageFrame& frame = model.Actions[0].frames[0];
    EXPECT_EQ(frame.group, 1);
    EXPECT_EQ(frame.image, 2);
    EXPECT_EQ(frame.offsetX, 3);
    EXPECT_EQ(frame.offsetY, 4);
    EXPECT_EQ(frame.time, 5);
    EXPECT_EQ(frame.flip, "h");
    EXPECT_EQ(model.Actions[0].frames[1].group, 6);
    EXPECT_EQ(model.Actions[0].frames[1].flip, "");
    EXPECT_EQ(model.Actions[1].actionNo, -3);
    EXPECT_EQ(model.Actions[1].frameCount, 0);
    EXPECT_EQ(model.Actions[2].actionNo, 9);
    EXPECT_EQ(model.Actions[2].frames.at(0).time, -1);
}

TEST(DefinitionReader, LineWithoutCommaIsNoFrame) {
    EXPECT_EQ(ModelOf({"[Begin Action 7]", "Clsn2Default: 1", "5"}).Actions.at(0).frameCount, 0);
}

TEST(DefinitionReader, CommaInACommentMakesNoFrame) {
    EXPECT_EQ(ModelOf({"[Begin Action 7]", "5 ; 1, 2"}).Actions.at(0).frameCount, 0);
}

TEST(DefinitionReader, FramesOutsideOfActionsAreIgnored) {
    const StageModel model =
        ModelOf({"1,2, 3,4, 5", "[Begin Action 7]", "1,2, 3,4, 5", "[BG 1]", "1,2, 3,4, 5"});
    EXPECT_EQ(model.Actions.at(0).frameCount, 1);
}

TEST(DefinitionReader, FrameThatLacksItsTimeHasTimeZero) {
    const Definition definition =
        ReadLines({"[Begin Action 7]", "0,1, 0,0, 9", "0,1, 0,0, h", "0,2, 0,0, 8"});
    EXPECT_THAT(definition.said, ElementsAre("DOOM FIX"));
    const StageAction& action = definition.model.Actions.at(0);
    ASSERT_EQ(action.frames.size(), 3U);
    EXPECT_EQ(action.frames[1].time, 0);
    EXPECT_EQ(action.frames[1].flip, "");
    EXPECT_EQ(action.frames[2].time, 8);
}

TEST(DefinitionReader, FlipOtherThanHIsSaid) {
    const Definition definition =
        ReadLines({"[Begin Action 7]", "0,1, 0,0, 9, V", "0,1, 0,0, 9, h", "0,1, 0,0, 9, HV"});
    EXPECT_THAT(definition.said, ElementsAre("vertical flip not coded yet dude..",
                                             "vertical flip not coded yet dude.."));
    EXPECT_EQ(definition.model.Actions.at(0).frameCount, 3);
}

TEST(DefinitionReader, EmptyFlipIsSilent) {
    const StageModel model = ModelOf({"[Begin Action 7]", "0,0, 0,0, 5, , A", "0,0, 0,0, 5,"});
    ASSERT_EQ(model.Actions.at(0).frameCount, 2);
    EXPECT_EQ(model.Actions.at(0).frames.at(0).flip, "");
    EXPECT_EQ(model.Actions.at(0).frames.at(1).flip, "");
}

TEST(DefinitionReader, LoopstartIsTheNumberOfFramesBeforeIt) {
    const StageModel model =
        ModelOf({"[Begin Action 1]", "Loopstart", "0,0, 0,0, 1", "[Begin Action 2]", "0,0, 0,0, 1",
                 "0,0, 0,0, 2", "  LOOPSTART ; here", "0,0, 0,0, 3", "[Begin Action 3]",
                 "0,0, 0,0, 1", "loopstart"});
    EXPECT_EQ(model.Actions.at(0).loopstart, 0);
    EXPECT_EQ(model.Actions.at(1).loopstart, 2);
    EXPECT_EQ(model.Actions.at(1).frameCount, 3);
    EXPECT_EQ(model.Actions.at(2).loopstart, 1);
}

TEST(DefinitionReader, ActionWithoutLoopstartReturnsToItsFirstFrame) {
    EXPECT_EQ(ModelOf({"[Begin Action 1]", "0,0, 0,0, 1"}).Actions.at(0).loopstart, 0);
}

TEST(DefinitionReader, LastLoopstartCounts) {
    EXPECT_EQ(ModelOf({"[Begin Action 1]", "0,0", "loopstart", "0,0", "0,0", "loopstart", "0,0"})
                  .Actions.at(0)
                  .loopstart,
              3);
}

TEST(DefinitionReader, ActionNumberThatDoesNotFitIsReportedOnce) {
    const Definition definition = ReadLines({"[Info]", "[Begin Action 40000]", "0,0, 0,0, 1"});
    EXPECT_THAT(definition.said, ElementsAre("Overflow: Begin Action, line 2"));
    ASSERT_EQ(definition.model.ActionCount, 1);
    EXPECT_EQ(definition.model.Actions[0].actionNo, 0);
    EXPECT_EQ(definition.model.Actions[0].frameCount, 1);
}

TEST(DefinitionReader, ValueThatDoesNotFitNamesItsLine) {
    const Definition definition =
        ReadLines({"", "; comment", "[BG 1]", "layerno = 1", "layerno = 40000", "id = 5"});
    EXPECT_THAT(definition.said, ElementsAre("Overflow: layerno, line 5"));
    EXPECT_EQ(definition.model.Elements.at(0).layerno, 1);
    EXPECT_EQ(definition.model.Elements.at(0).id, 5);
}

// Controls

TEST(DefinitionReader, ControlsBelongToTheGroupBeforeThem) {
    const StageModel model =
        ModelOf({"[BGCtrlDef One]", "looptime = 100", "ctrlid = 5, 6", "[BGCtrl a]", "type = anim",
                 "ctrlid = 7", "[BGCtrl b]", "type = null", "[BGCtrlDef Two]", "[BGCtrl c]",
                 "type = velset", "time = 4"});
    ASSERT_EQ(model.CtrlDefCount, 2);
    ASSERT_EQ(model.CtrlDefs.size(), 2U);
    EXPECT_EQ(model.CtrlDefs[0].looptime, 100);
    EXPECT_THAT(model.CtrlDefs[0].ctrlIds, ElementsAre(5, 6));
    ASSERT_EQ(model.CtrlDefs[0].controls.size(), 2U);
    EXPECT_EQ(model.CtrlDefs[0].controlCount, 2);
    EXPECT_EQ(model.CtrlDefs[0].controls[0].type, "anim");
    EXPECT_THAT(model.CtrlDefs[0].controls[0].ctrlIds, ElementsAre(7));
    EXPECT_EQ(model.CtrlDefs[0].controls[1].type, "null");
    EXPECT_EQ(model.CtrlDefs[1].controlCount, 1);
    EXPECT_EQ(model.CtrlDefs[1].controls.at(0).endTime, 4);
}

TEST(DefinitionReader, ControlWithoutListLeavesItToItsGroup) {
    const StageModel model = ModelOf(
        {"[BGCtrlDef]", "ctrlid = 5", "[BGCtrl]", "ctrlid = 6", "[BGCtrl]", "type = visible"});
    EXPECT_THAT(model.CtrlDefs.at(0).controls.at(1).ctrlIds, IsEmpty());
    EXPECT_THAT(model.CtrlDefs.at(0).ctrlIds, ElementsAre(5));
}

TEST(DefinitionReader, ControlMayStandBehindOtherSections) {
    const StageModel model =
        ModelOf({"[BGCtrlDef]", "[BG 1]", "[Begin Action 1]", "[Info]", "[BGCtrl]", "type = anim"});
    EXPECT_EQ(model.CtrlDefs.at(0).controls.at(0).type, "anim");
}

TEST(DefinitionReader, ControlWithoutGroupIsSaidOnceAndDropped) {
    const Definition definition = ReadLines(
        {"[Info]", "[BGCtrl a]", "type = anim", "[BGCtrl b]", "[BGCtrlDef]", "[BGCtrl c]"});
    EXPECT_THAT(definition.said, ElementsAre("BGCtrl without a BGCtrlDef, line 2"));
    ASSERT_EQ(definition.model.CtrlDefCount, 1);
    EXPECT_EQ(definition.model.CtrlDefs[0].controlCount, 1);
    EXPECT_EQ(definition.model.CtrlDefs[0].controls.at(0).type, "");
}

}  // namespace
}  // namespace scenara::test
