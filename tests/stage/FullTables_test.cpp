// SPDX-License-Identifier: MIT
//
// Tables hold 32,767 records. What goes beyond is read, not kept, and said once per table.
#include <string>
#include <string_view>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/headless/HeadlessMessages.h"
#include "stage/DefinitionReader.h"

namespace scenara::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr int kMost = 32'767;

// A reader whose lines are numbered as they come.
class Feeder {
public:
    void Feed(std::string_view line, int times = 1) {
        for (int i = 0; i < times; ++i) {
            reader_.ReadLine(line, ++number_);
        }
    }

    [[nodiscard]] const StageModel& Model() const { return model_; }

    [[nodiscard]] std::vector<std::string> Said() const {
        std::vector<std::string> texts;
        for (const Message& message : messages_.Recorded()) {
            texts.push_back(message.text);
        }
        return texts;
    }

private:
    StageModel model_;
    HeadlessMessages messages_;
    DefinitionReader reader_{model_, messages_, kPlainView};
    std::int64_t number_ = 0;
};

TEST(FullTables, ElementsBeyondTheTableAreNotKept) {
    Feeder feeder;
    feeder.Feed("[BG]", kMost);
    EXPECT_THAT(feeder.Said(), IsEmpty());
    feeder.Feed("[BG 32768th]", 2);
    feeder.Feed("id = 5");
    feeder.Feed("[BG 32770th]");
    EXPECT_THAT(feeder.Said(), ElementsAre("Overflow: BG, line 32768"));
    EXPECT_EQ(feeder.Model().ElementCount, kMost);
    EXPECT_EQ(feeder.Model().Elements.size(), static_cast<std::size_t>(kMost));
    EXPECT_EQ(feeder.Model().Elements.back().name, "No name");
    EXPECT_EQ(feeder.Model().Elements.back().id, 0);
}

TEST(FullTables, NullElementBeyondTheTableTakesNoOther) {
    Feeder feeder;
    feeder.Feed("[BG]", kMost + 1);
    feeder.Feed("type = null");
    EXPECT_EQ(feeder.Model().ElementCount, kMost);
    EXPECT_THAT(feeder.Said(), ElementsAre("Overflow: BG, line 32768"));
}

TEST(FullTables, NullElementMakesRoom) {
    Feeder feeder;
    feeder.Feed("[BG]", kMost);
    feeder.Feed("type = null");
    feeder.Feed("[BG last]");
    EXPECT_THAT(feeder.Said(), ElementsAre("NULL BG 32766"));
    EXPECT_EQ(feeder.Model().ElementCount, kMost);
    EXPECT_EQ(feeder.Model().Elements.back().name, "last");
}

TEST(FullTables, ActionsBeyondTheTableAreNotKept) {
    Feeder feeder;
    feeder.Feed("[Begin Action 1]", kMost);
    EXPECT_THAT(feeder.Said(), IsEmpty());
    feeder.Feed("[Begin Action 2]");
    feeder.Feed("0,0, 0,0, 1");
    feeder.Feed("loopstart");
    feeder.Feed("[Begin Action 3]");
    EXPECT_THAT(feeder.Said(), ElementsAre("Overflow: Begin Action, line 32768"));
    EXPECT_EQ(feeder.Model().ActionCount, kMost);
    EXPECT_EQ(feeder.Model().Actions.back().actionNo, 1);
    EXPECT_EQ(feeder.Model().Actions.back().frameCount, 0);
    EXPECT_EQ(feeder.Model().Actions.back().loopstart, 0);
}

TEST(FullTables, FramesBeyondTheTableAreNotKept) {
    Feeder feeder;
    feeder.Feed("[Begin Action 1]");
    feeder.Feed("0,0, 0,0, 1", kMost);
    EXPECT_THAT(feeder.Said(), IsEmpty());
    feeder.Feed("0,0, 0,0, 2", 3);
    feeder.Feed("loopstart");
    EXPECT_THAT(feeder.Said(), ElementsAre("Overflow: frames of an action, line 32769"));
    const StageAction& action = feeder.Model().Actions.at(0);
    EXPECT_EQ(action.frameCount, kMost);
    EXPECT_EQ(action.frames.size(), static_cast<std::size_t>(kMost));
    EXPECT_EQ(action.frames.back().time, 1);
    EXPECT_EQ(action.loopstart, kMost);
}

TEST(FullTables, FramesThatAreNotKeptLeaveNothingToTheNext) {
    Feeder feeder;
    feeder.Feed("[Begin Action 1]");
    feeder.Feed("0,0, 0,0, 1", kMost);
    feeder.Feed("0,0, 0,0, 1, V");
    feeder.Feed("0,0, 0,0, 1", 3);
    EXPECT_THAT(feeder.Said(), ElementsAre("Overflow: frames of an action, line 32769",
                                           "vertical flip not coded yet dude.."));
}

TEST(FullTables, NextActionHasRoomAgain) {
    Feeder feeder;
    feeder.Feed("[Begin Action 1]");
    feeder.Feed("0,0, 0,0, 1", kMost + 1);
    feeder.Feed("[Begin Action 2]");
    feeder.Feed("0,0, 0,0, 1", 2);
    EXPECT_EQ(feeder.Model().Actions.at(1).frameCount, 2);
}

TEST(FullTables, ControlGroupsBeyondTheTableAreNotKept) {
    Feeder feeder;
    feeder.Feed("[BGCtrlDef]", kMost);
    EXPECT_THAT(feeder.Said(), IsEmpty());
    feeder.Feed("[BGCtrlDef]");
    feeder.Feed("looptime = 5");
    feeder.Feed("[BGCtrl]");
    feeder.Feed("type = anim");
    EXPECT_THAT(feeder.Said(), ElementsAre("Overflow: BGCtrlDef, line 32768"));
    EXPECT_EQ(feeder.Model().CtrlDefCount, kMost);
    EXPECT_EQ(feeder.Model().CtrlDefs.back().looptime, 0);
    EXPECT_EQ(feeder.Model().CtrlDefs.back().controlCount, 0);
}

TEST(FullTables, ControlsBeyondTheTableAreNotKept) {
    Feeder feeder;
    feeder.Feed("[BGCtrlDef]");
    feeder.Feed("[BGCtrl]", kMost);
    EXPECT_THAT(feeder.Said(), IsEmpty());
    feeder.Feed("[BGCtrl]");
    feeder.Feed("type = anim");
    EXPECT_THAT(feeder.Said(), ElementsAre("Overflow: BGCtrl, line 32769"));
    const BgCtrlDef& group = feeder.Model().CtrlDefs.at(0);
    EXPECT_EQ(group.controlCount, kMost);
    EXPECT_EQ(group.controls.back().type, "");
}

TEST(FullTables, EachTableIsSaid) {
    Feeder feeder;
    feeder.Feed("[BG]", kMost + 2);
    feeder.Feed("[Begin Action 1]", kMost + 2);
    feeder.Feed("[BGCtrlDef]", kMost + 2);
    EXPECT_THAT(feeder.Said(),
                ElementsAre("Overflow: BG, line 32768", "Overflow: Begin Action, line 65537",
                            "Overflow: BGCtrlDef, line 98306"));
}

}  // namespace
}  // namespace scenara::test
