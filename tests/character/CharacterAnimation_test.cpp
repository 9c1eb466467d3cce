// SPDX-License-Identifier: MIT
#include "character/CharacterAnimation.h"

#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/headless/HeadlessMessages.h"
#include "support/MemoryFiles.h"
#include "support/MessageTexts.h"

namespace scenara {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class CharacterAnimationTest : public testing::Test {
protected:
    bool Read(const std::string& text, bool additions = true) {
        actions_ = {};
        test::MemoryFile file(text);
        const bool read =
            ReadCharacterAnimation(file, actions_, messages_, ViewOptions{additions}) == 0;
        said_ = test::TextsOf(messages_);
        return read;
    }
    // "group,image,x,y,time" and H for each frame of a slot.
    [[nodiscard]] std::vector<std::string> Frames(Integer slot) const {
        std::vector<std::string> lines;
        for (const CharFrame& frame : actions_.at(static_cast<std::size_t>(slot)).frames) {
            lines.push_back(std::to_string(frame.group) + "," + std::to_string(frame.image) + "," +
                            std::to_string(frame.offsetX) + "," + std::to_string(frame.offsetY) +
                            "," + std::to_string(frame.time) + (frame.flip != 0 ? "H" : ""));
        }
        return lines;
    }
    [[nodiscard]] const CharAction& Action(Integer slot) const {
        return actions_.at(static_cast<std::size_t>(slot));
    }

    HeadlessMessages messages_;
    std::vector<std::string> said_;
    std::array<CharAction, kKeptActions.size()> actions_;
};

TEST_F(CharacterAnimationTest, KeepsStandingTurningAndWalking) {
    EXPECT_TRUE(
        Read("; all\n[Begin Action 0]\nClsn2Default: 1\n Clsn2[0] = -10, 0, 10,-79\n"
             "0,0, 0,0, 10\n0,1, -1,2, 7\n[Begin Action 1]\n1,0, 0,0, 3\n"
             "[Begin Action 5]\n5,0, 0,0, 4, H\n[Begin Action 20]\n20,0, 0,0, 3 ; first\n"
             "20,1, 0,0, 3,,A\n[Begin Action 21]\n21,0, 0,0, 3\n"));
    EXPECT_THAT(Frames(kStanding), ElementsAre("0,0,0,0,10", "0,1,-1,2,7"));
    EXPECT_THAT(Frames(kTurning), ElementsAre("5,0,0,0,4H"));
    EXPECT_THAT(Frames(kWalking), ElementsAre("20,0,0,0,3", "20,1,0,0,3"));
    EXPECT_EQ(Action(kTurning).actionNo, 5);
    EXPECT_EQ(Action(kWalking).actionNo, 20);
    EXPECT_THAT(said_, IsEmpty());
}

TEST_F(CharacterAnimationTest, NumbersOfActionsAreNumbers) {
    EXPECT_TRUE(
        Read("[Begin Action 000]\n1,0,0,0,1\n[begin ACTION 0005 ]\n2,0,0,0,1\n"
             "  [Begin Action\t020] ; walk\n3,0,0,0,1\n"));
    EXPECT_THAT(Frames(kStanding), ElementsAre("1,0,0,0,1"));
    EXPECT_THAT(Frames(kTurning), ElementsAre("2,0,0,0,1"));
    EXPECT_THAT(Frames(kWalking), ElementsAre("3,0,0,0,1"));
}

struct WalkingRow {
    const char* name = "";
    const char* text = "";
    const char* frames = "";  // with blanks between
    Integer loopStart = 0;
};

// What does not depend on the additions, with both.
TEST_F(CharacterAnimationTest, ReadsFramesOfWalking) {
    const WalkingRow rows[] = {
        {"a header without its bracket", "[Begin Action 0020\n3,0,0,0,1\n", "3,0,0,0,1"},
        {"other numbers",
         "[Begin Action 200]\n1,0,0,0,1\n[Begin Action -20]\n1,0,0,0,1\n"
         "[Begin Action 20.5]\n1,0,0,0,1\n",
         ""},
        {"headers in comments", ";[Begin Action 20]\n1,0,0,0,1\nx ; [Begin Action 20]\n1,0,0,0,1\n",
         ""},
        {"a header in a comment ends nothing",
         "[Begin Action 20]\n1,0,0,0,1\n; [Begin Action 0]\n2,0,0,0,1\n", "1,0,0,0,1 2,0,0,0,1"},
        {"missing numbers are zero",
         "[Begin Action 20]\n20\n20,1\n20,,3\n20,1,2,3,,H\n20,1,2,3,4,vh,A\n20,1,0,0,H\n",
         "20,0,0,0,0 20,1,0,0,0 20,0,3,0,0 20,1,2,3,0H 20,1,2,3,4H 20,1,0,0,0"},
        {"the flip stands behind the time and before the comment",
         "[Begin Action 20]\n20,0,0,0,5,h\n20,0,0,0,5 ; H\n20,0,0,0,5,V\n20,0,0,0,5h\n",
         "20,0,0,0,5H 20,0,0,0,5 20,0,0,0,5 20,0,0,0,5"},
        {"a negative time", "[Begin Action 20]\n20,0, -3,-4, -1\n", "20,0,-3,-4,-1"},
        {"a loop in a comment", "[Begin Action 20]\n0,0,0,0,1\nx ; loopstart\n0,1,0,0,1\n",
         "0,0,0,0,1 0,1,0,0,1"},
        {"a loop of an action that is not kept",
         "[Begin Action 20]\n0,0,0,0,1\n[Begin Action 9]\nloopstart\n", "0,0,0,0,1"},
        {"a loop names the frame behind it",
         "[Begin Action 20]\n0,0,0,0,1\n0,1,0,0,1\n0,2,0,0,1\nLoopStart\n0,3,0,0,1\n"
         "[Begin Action 0]\nloopstart\n0,0,0,0,1\n; loopstart\n",
         "0,0,0,0,1 0,1,0,0,1 0,2,0,0,1 0,3,0,0,1", 3},
        {"LF", "[Begin Action 20]\n20,0,0,0,1\n\n20,1,0,0,2", "20,0,0,0,1 20,1,0,0,2"},
        {"CR", "[Begin Action 20]\r20,0,0,0,1\r\r20,1,0,0,2", "20,0,0,0,1 20,1,0,0,2"},
        {"CR LF", "[Begin Action 20]\r\n20,0,0,0,1\r\n\r\n20,1,0,0,2", "20,0,0,0,1 20,1,0,0,2"},
    };
    for (const WalkingRow& row : rows) {
        for (const bool additions : {false, true}) {
            SCOPED_TRACE(std::string(row.name) + (additions ? "" : ", plain"));
            EXPECT_TRUE(Read(row.text, additions));
            std::string frames;
            for (const std::string& frame : Frames(kWalking)) {
                frames.append(frames.empty() ? "" : " ").append(frame);
            }
            EXPECT_EQ(frames, row.frames);
            EXPECT_EQ(Action(kWalking).LoopStart, row.loopStart);
            EXPECT_EQ(Action(kStanding).LoopStart, 0);
        }
    }
}

TEST_F(CharacterAnimationTest, LinesBeforeAnyActionSayNothing) {
    EXPECT_TRUE(Read("0,0,0,0,1\nLoopstart\n-1,0,0,0,1\n", false));
    EXPECT_THAT(Frames(kStanding), IsEmpty());
}

TEST_F(CharacterAnimationTest, PlainANegativeGroupMakesItUnusable) {
    EXPECT_FALSE(Read("[Begin Action 20]\n20,0,0,0,1\n-1,0, 0,0, 5\n", false));
    EXPECT_THAT(Frames(kWalking), IsEmpty());
    EXPECT_TRUE(Read("[Begin Action 9]\n-1,0, 0,0, 5\n[Begin Action 20]\n20,0,0,0,1\n", false))
        << "of an action that is not kept";
    EXPECT_TRUE(Read("[Begin Action 20]\n20,0,0,0,1\n- 1,0\n-x\n-\n;-1,0\n-0,1\n", false))
        << "no frame lines";
    EXPECT_THAT(Frames(kWalking), ElementsAre("20,0,0,0,1"));
}

TEST_F(CharacterAnimationTest, WithAdditionsANegativeGroupIsABlankFrame) {
    EXPECT_TRUE(Read("[Begin Action 20]\n20,0,0,0,1\n-1,0, 0,0, 5\nLoopstart\n-2,-1, 1,1, 6, H\n"));
    EXPECT_THAT(Frames(kWalking), ElementsAre("20,0,0,0,1", "-1,0,0,0,5", "-2,-1,1,1,6H"));
    EXPECT_EQ(Action(kWalking).LoopStart, 2);
    EXPECT_TRUE(Read("[Begin Action 20]\n-0.4,7, 0,0, 5\n"));
    EXPECT_THAT(Frames(kWalking), ElementsAre("-1,7,0,0,5")) << "and not sprite 0,7";
}

TEST_F(CharacterAnimationTest, ARepeatedActionGoesOnOrWithAdditionsItsFirstBlockCounts) {
    constexpr const char* kTwice =
        "[Begin Action 20]\n1,0,0,0,1\nLoopstart\n1,1,0,0,1\n[Begin Action 0]\n0,0,0,0,1\n"
        "[Begin Action 020]\n2,0,0,0,1\n";
    EXPECT_TRUE(Read(kTwice, false));
    EXPECT_THAT(Frames(kWalking), ElementsAre("1,0,0,0,1", "1,1,0,0,1", "2,0,0,0,1"));
    EXPECT_EQ(Action(kWalking).LoopStart, 1);
    EXPECT_TRUE(Read(kTwice, true));
    EXPECT_THAT(Frames(kWalking), ElementsAre("1,0,0,0,1", "1,1,0,0,1"));
    EXPECT_EQ(Action(kWalking).LoopStart, 1);
}

TEST_F(CharacterAnimationTest, ALoopInALaterBlockCountsFromTheFirstFrameOfAll) {
    EXPECT_TRUE(
        Read("[Begin Action 20]\n1,0,0,0,1\n[Begin Action 20]\n2,0,0,0,1\nLoopstart\n", false));
    EXPECT_EQ(Action(kWalking).LoopStart, 2);
}

TEST_F(CharacterAnimationTest, AHeaderWithoutANumberIsActionZeroOnlyPlainly) {
    constexpr const char* kNoNumber =
        "[Begin Action ]\n7,0,0,0,1\n[Begin Action x]\n8,0,0,0,1\n[Begin Action 0]\n0,0,0,0,1\n";
    EXPECT_TRUE(Read(kNoNumber, false));
    EXPECT_THAT(Frames(kStanding), ElementsAre("7,0,0,0,1", "8,0,0,0,1", "0,0,0,0,1"));
    EXPECT_TRUE(Read(kNoNumber, true));
    EXPECT_THAT(Frames(kStanding), ElementsAre("0,0,0,0,1"));
}

TEST_F(CharacterAnimationTest, NumbersThatDoNotFitAreSaidAndZero) {
    EXPECT_TRUE(Read("[Begin Action 20]\n99999,70000, 40000,-40000, 1e9\n"));
    EXPECT_THAT(Frames(kWalking), ElementsAre("0,0,0,0,0"));
    EXPECT_THAT(
        said_, ElementsAre("Overflow: group, line 2", "Overflow: image, line 2",
                           "Overflow: x, line 2", "Overflow: y, line 2", "Overflow: time, line 2"));
}

TEST_F(CharacterAnimationTest, MoreFramesThanAnIndexReachesAreSaidOnceAndLeftOut) {
    std::string text = "[Begin Action 20]\n";
    for (int i = 0; i < 32770; ++i) {
        text += "1,1,0,0,1\n";
    }
    EXPECT_TRUE(Read(text + "Loopstart\n"));
    EXPECT_EQ(Action(kWalking).frames.size(), 32767U);
    EXPECT_EQ(Action(kWalking).LoopStart, 32767);
    EXPECT_THAT(said_, ElementsAre("Overflow: frames of an action, line 32769"));
}

}  // namespace
}  // namespace scenara
