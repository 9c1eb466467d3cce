// SPDX-License-Identifier: MIT
//
// The keys of control groups, controls and settings, one by one. ElementKeys_test.cpp has the rest.
#include "stage/StageKeys.h"

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "KeyRows.h"
#include "ModelText.h"
#include "platform/headless/HeadlessMessages.h"

namespace scenara::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// Control groups

BgCtrlDef GroupOf(std::initializer_list<std::string_view> lines) {
    HeadlessMessages messages;
    BgCtrlDef group;
    for (const std::string_view line : lines) {
        const KeyLine keyLine(line);
        KeyOffer offer(keyLine, keyLine.Text(), 1, messages, kPlainView);
        ReadCtrlDefKeys(offer, group);
    }
    EXPECT_THAT(messages.Recorded(), IsEmpty());
    return group;
}

TEST(StageKeys, GroupHasALoopTime) {
    BgCtrlDef expected;
    expected.looptime = 70000;
    EXPECT_EQ(ModelText(GroupOf({"looptime = 70000"})), ModelText(expected));
}

TEST(StageKeys, GroupHasAListOfIds) {
    BgCtrlDef expected;
    expected.ctrlIds = {5, 70000};
    EXPECT_EQ(ModelText(GroupOf({"ctrlid = 5, 70000"})), ModelText(expected));
}

TEST(StageKeys, GroupReadsNoOtherKeys) {
    EXPECT_EQ(ModelText(GroupOf({"type = anim", "time = 5", "value = 5", "x = 5", "id = 5"})),
              ModelText(BgCtrlDef()));
}

// Controls

BgCtrl ControlOf(std::initializer_list<std::string_view> lines) {
    HeadlessMessages messages;
    BgCtrl control;
    for (const std::string_view line : lines) {
        const KeyLine keyLine(line);
        KeyOffer offer(keyLine, keyLine.Text(), 1, messages, kPlainView);
        ReadCtrlKeys(offer, control);
    }
    EXPECT_THAT(messages.Recorded(), IsEmpty());
    return control;
}

using ControlRow = Row<BgCtrl>;

class ControlKeys : public testing::TestWithParam<ControlRow> {};

TEST_P(ControlKeys, FillTheirFieldsAndNothingElse) {
    BgCtrl expected;
    GetParam().change(expected);
    EXPECT_EQ(ModelText(ControlOf({GetParam().line})), ModelText(expected)) << GetParam().line;
}

const ControlRow kControlRows[] = {
    {"Type", "type = VelSet", [](BgCtrl& c) { c.type = "velset"; }},
    {"Time", "time = 70000, 70001, 70002",
     [](BgCtrl& c) {
         c.startTime = 70000;
         c.endTime = 70001;
         c.loopTime = 70002;
     }},
    {"TimeOfTwoValues", "time = 5, 8",
     [](BgCtrl& c) {
         c.startTime = 5;
         c.endTime = 8;
     }},
    {"EndTimeIsStartTimeWhenAbsent", "time = 5",
     [](BgCtrl& c) {
         c.startTime = 5;
         c.endTime = 5;
     }},
    {"EndTimeIsStartTimeWhenALoneStop", "time = 5, .",
     [](BgCtrl& c) {
         c.startTime = 5;
         c.endTime = 5;
     }},
    {"Ctrlid", "ctrlid = 5, 6",
     [](BgCtrl& c) {
         c.ctrlIds = {5, 6};
     }},
    {"X", "x = -.75",
     [](BgCtrl& c) {
         c.x = -0.75F;
         c.given = kGivenX;
     }},
    {"Y", "y = .5",
     [](BgCtrl& c) {
         c.y = 0.5F;
         c.given = kGivenY;
     }},
    {"XOfZeroIsGiven", "x = 0", [](BgCtrl& c) { c.given = kGivenX; }},
    {"Value", "value = 7",
     [](BgCtrl& c) {
         c.value = 7;
         c.given = kGivenValue;
     }},
    {"LooptimeIsNoControlKey", "looptime = 5", Unchanged<BgCtrl>},
    {"IdIsNoControlKey", "id = 5", Unchanged<BgCtrl>},
    {"LongerKeyIsNotRead", "values = 5", Unchanged<BgCtrl>},
};

INSTANTIATE_TEST_SUITE_P(Each, ControlKeys, testing::ValuesIn(kControlRows), RowName());

TEST(StageKeys, SineControlsTakeTwoValues) {
    for (const std::string_view type : {"type = sinx", "type = SinY", "type = sin"}) {
        const BgCtrl control = ControlOf({type, "value = 20, 90"});
        EXPECT_EQ(control.value1, 20) << type;
        EXPECT_EQ(control.value2, 90) << type;
        EXPECT_EQ(control.value, 0) << type;
        EXPECT_EQ(control.given, kGivenValue1 | kGivenValue2) << type;
    }
}

TEST(StageKeys, SineControlOfOneValueLacksTheOther) {
    const BgCtrl control = ControlOf({"type = sinx", "value = 20"});
    EXPECT_EQ(control.value1, 20);
    EXPECT_EQ(control.given, kGivenValue1);
}

TEST(StageKeys, OtherControlsTakeOneValue) {
    for (const std::string_view type : {"type = anim", "type = visible", "type = enable"}) {
        const BgCtrl control = ControlOf({type, "value = 20, 90"});
        EXPECT_EQ(control.value, 20) << type;
        EXPECT_EQ(control.value1, 0) << type;
        EXPECT_EQ(control.given, kGivenValue) << type;
    }
}

TEST(StageKeys, ControlValueThatDoesNotFitIsReportedOnce) {
    for (const std::string key : {"time", "ctrlid", "x", "y", "value"}) {
        HeadlessMessages messages;
        const std::string line = key + " = 1e39";
        const KeyLine keyLine(line);
        KeyOffer offer(keyLine, keyLine.Text(), 1, messages, kPlainView);
        BgCtrl control;
        ReadCtrlKeys(offer, control);
        EXPECT_THAT(Texts(messages), ElementsAre("Overflow: " + key + ", line 1"));
        EXPECT_EQ(ModelText(control), ModelText(BgCtrl())) << key;
    }
}

TEST(StageKeys, EndTimeThatDoesNotFitStaysAsItWas) {
    HeadlessMessages messages;
    const KeyLine line("time = 5, 99999999999");
    KeyOffer offer(line, line.Text(), 1, messages, kPlainView);
    BgCtrl control;
    control.endTime = 9;
    ReadCtrlKeys(offer, control);
    EXPECT_EQ(control.startTime, 5);
    EXPECT_EQ(control.endTime, 9);
    EXPECT_THAT(Texts(messages), ElementsAre("Overflow: time, line 1"));
}

TEST(StageKeys, StartTimeThatDoesNotFitLeavesTheEndTime) {
    HeadlessMessages messages;
    const KeyLine line("time = 99999999999, 8");
    KeyOffer offer(line, line.Text(), 1, messages, kPlainView);
    BgCtrl control;
    control.startTime = 9;
    ReadCtrlKeys(offer, control);
    EXPECT_EQ(control.startTime, 9);
    EXPECT_EQ(control.endTime, 8);
}

TEST(StageKeys, GroupValueThatDoesNotFitIsReportedOnce) {
    for (const std::string key : {"looptime", "ctrlid"}) {
        HeadlessMessages messages;
        const std::string line = key + " = 1e39";
        const KeyLine keyLine(line);
        KeyOffer offer(keyLine, keyLine.Text(), 1, messages, kPlainView);
        BgCtrlDef group;
        ReadCtrlDefKeys(offer, group);
        EXPECT_THAT(Texts(messages), ElementsAre("Overflow: " + key + ", line 1"));
        EXPECT_EQ(ModelText(group), ModelText(BgCtrlDef())) << key;
    }
}

TEST(StageKeys, ValueThatDoesNotFitCountsAsNotGiven) {
    HeadlessMessages messages;
    const KeyLine line("x = 1e39");
    KeyOffer offer(line, line.Text(), 3, messages, kPlainView);
    BgCtrl control;
    ReadCtrlKeys(offer, control);
    EXPECT_EQ(ModelText(control), ModelText(BgCtrl()));
    EXPECT_THAT(Texts(messages), ElementsAre("Overflow: x, line 3"));
}

// Stage settings

struct SettingsRead {
    StageModel model;
    std::string spr;
    std::vector<std::string> said;
};

SettingsRead SettingsOf(std::initializer_list<std::string_view> lines) {
    SettingsRead read;
    HeadlessMessages messages;
    for (const std::string_view line : lines) {
        const KeyLine keyLine(line);
        KeyOffer offer(keyLine, keyLine.Text(), 1, messages, kPlainView);
        ReadSettingKeys(offer, read.model, read.spr);
    }
    read.said = Texts(messages);
    return read;
}

using SettingRow = Row<StageModel>;

class SettingKeys : public testing::TestWithParam<SettingRow> {};

TEST_P(SettingKeys, FillTheirFieldsAndNothingElse) {
    StageModel expected;
    GetParam().change(expected);
    const SettingsRead read = SettingsOf({GetParam().line});
    EXPECT_EQ(ModelText(read.model), ModelText(expected)) << GetParam().line;
    EXPECT_EQ(read.spr, "") << GetParam().line;
    EXPECT_THAT(read.said, IsEmpty()) << GetParam().line;
}

const SettingRow kSettingRows[] = {
    {"Name", "name = \"My Stage\"", [](StageModel& m) { m.StageTitle = "\"my stage\""; }},
    {"Startx", "startx = -1.5", [](StageModel& m) { m.CamStartX = -1.5F; }},
    {"Starty", "starty = -7", [](StageModel& m) { m.CamStartY = -7; }},
    {"StartyIsReadLeniently", "starty = 12abc", [](StageModel& m) { m.CamStartY = 12; }},
    {"Boundleft", "boundleft = -70000", [](StageModel& m) { m.BoundLeft = -70000; }},
    {"Boundright", "boundright = 70000", [](StageModel& m) { m.BoundRight = 70000; }},
    {"Boundhigh", "boundhigh = -25", [](StageModel& m) { m.BoundHigh = -25; }},
    {"BoundlowIsZero", "boundlow = 30", Unchanged<StageModel>},
    {"Bgmusic", "bgmusic = Sound/KFM.mid", [](StageModel& m) { m.MusicFile = "sound/kfm.mid"; }},
    {"ZoffsetRounds", "zoffset = 7.6", [](StageModel& m) { m.ZOffset = 8; }},
    {"Zoffsetlink", "zoffsetlink = 3", [](StageModel& m) { m.ZOffsetLink = 3; }},
    {"P1startx", "p1startx = -70", [](StageModel& m) { m.P1StartX = -70; }},
    {"Tension", "tension = 60", [](StageModel& m) { m.Tension = 60; }},
    {"Screenleft", "screenleft = 15", [](StageModel& m) { m.ScreenLeft = 15; }},
    {"Screenright", "screenright = 16", [](StageModel& m) { m.ScreenRight = 16; }},
    // Not read, or of other sections.
    {"DisplaynameIsNotName", "displayname = x", Unchanged<StageModel>},
    {"P2startxIsNotStartx", "p2startx = 70", Unchanged<StageModel>},
    {"P1startyIsNotStarty", "p1starty = 70", Unchanged<StageModel>},
    {"LocalcoordIsNotRead", "localcoord = 640, 480", Unchanged<StageModel>},
    {"HiresIsNotRead", "hires = 1", Unchanged<StageModel>},
    {"XscaleIsNotRead", "xscale = 2", Unchanged<StageModel>},
    {"DebugbgIsNotRead", "debugbg = 1", Unchanged<StageModel>},
    {"ResetbgIsNotRead", "resetbg = 1", Unchanged<StageModel>},
    {"ZoomIsNotRead", "zoom = 2", Unchanged<StageModel>},
    {"MaskIsNoSetting", "mask = 1", Unchanged<StageModel>},
};

INSTANTIATE_TEST_SUITE_P(Each, SettingKeys, testing::ValuesIn(kSettingRows), RowName());

TEST(StageKeys, SprNamesTheArchive) {
    const SettingsRead read = SettingsOf({"spr = Stages/KFM.sff"});
    EXPECT_EQ(read.spr, "stages/kfm.sff");
    EXPECT_EQ(ModelText(read.model), ModelText(StageModel()));
}

TEST(StageKeys, EmptyBgMusicIsNoMusic) {
    EXPECT_EQ(SettingsOf({"bgmusic = a.mp3", "bgmusic ="}).model.MusicFile, "");
}

TEST(StageKeys, BoundLowGoesBackToZero) {
    SettingsRead read;
    read.model.BoundLow = 9;
    HeadlessMessages messages;
    const KeyLine line("boundlow = 30");
    KeyOffer offer(line, line.Text(), 1, messages, kPlainView);
    ReadSettingKeys(offer, read.model, read.spr);
    EXPECT_EQ(read.model.BoundLow, 0);
}

TEST(StageKeys, BoundLowsValueIsNotLookedAt) {
    for (const std::string_view line : {"boundlow = 40000", "boundlow =", "boundlow = abc"}) {
        const SettingsRead read = SettingsOf({line});
        EXPECT_EQ(read.model.BoundLow, 0) << line;
        EXPECT_THAT(read.said, IsEmpty()) << line;
    }
}

TEST(StageKeys, SettingThatDoesNotFitIsReportedOnce) {
    struct Case {
        std::string_view line;
        std::string_view said;
    };
    for (const Case& row : {Case{"startx = 1e39", "Overflow: startx, line 1"},
                            Case{"starty = 40000", "Overflow: starty, line 1"},
                            Case{"boundleft = -3000000000", "Overflow: boundleft, line 1"},
                            Case{"boundright = 3000000000", "Overflow: boundright, line 1"},
                            Case{"boundhigh = -40000", "Overflow: boundhigh, line 1"},
                            Case{"zoffset = 40000", "Overflow: zoffset, line 1"},
                            Case{"zoffsetlink = 40000", "Overflow: zoffsetlink, line 1"},
                            Case{"p1startx = 40000", "Overflow: p1startx, line 1"},
                            Case{"tension = 40000", "Overflow: tension, line 1"},
                            Case{"screenleft = 40000", "Overflow: screenleft, line 1"},
                            Case{"screenright = 40000", "Overflow: screenright, line 1"}}) {
        const SettingsRead read = SettingsOf({row.line});
        EXPECT_THAT(read.said, ElementsAre(row.said));
        EXPECT_EQ(ModelText(read.model), ModelText(StageModel())) << row.line;
    }
}

}  // namespace
}  // namespace scenara::test
