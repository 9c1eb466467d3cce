// SPDX-License-Identifier: MIT
//
// What additions read of the frame lines of actions.
#include <array>
#include <ostream>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "BothReadings.h"

namespace scenara::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(AdditionsFrames, HaveAScaleAndAnAngle) {
    const BothReadings read(
        "[Begin Action 1]\r\n1,0, 0,0, 5, H, A, 2, -.5, 33.5\r\n1,0, 0,0, 5\r\n"
        "1,0, 0,0, 5,,,, 3\r\n1,0, 0,0, 5,,, big, 3\r\n");
    const std::vector<StageFrame>& frames = read.With().Actions.at(0).frames;
    EXPECT_THAT(frames.at(0).scale, ElementsAre(2, -0.5F));
    EXPECT_EQ(frames.at(0).angle, 33.5F);
    EXPECT_THAT(frames.at(1).scale, ElementsAre(1, 1));
    EXPECT_EQ(frames.at(1).angle, 0);
    EXPECT_THAT(frames.at(2).scale, ElementsAre(1, 3));
    EXPECT_THAT(frames.at(3).scale, ElementsAre(1, 3)) << "no number";
    EXPECT_THAT(read.Plain().Actions.at(0).frames.at(0).scale, ElementsAre(1, 1));
    EXPECT_EQ(read.Plain().Actions.at(0).frames.at(0).angle, 0);
}

TEST(AdditionsFrames, GoOverIntoTheNextAsTheLinesBetweenThemSay) {
    const BothReadings read(
        "[Begin Action 1]\r\n1,0, 0,0, 5\r\nInterpolate Offset\r\ninterpolate  ANGLE\r\n"
        "1,0, 0,0, 5\r\n1,0, 0,0, 5\r\nInterpolate Scale\r\nInterpolate\r\n"
        "Interpolate Blend\r\nInterpolate Colour\r\n1,0, 0,0, 5\r\nInterpolate Scale\r\n"
        "[Begin Action 2]\r\n1,0, 0,0, 5\r\n");
    const std::vector<StageFrame>& frames = read.With().Actions.at(0).frames;
    ASSERT_EQ(frames.size(), 4U);
    EXPECT_EQ(frames[0].interpolated, 0);
    EXPECT_EQ(frames[1].interpolated, kInterpolatedOffset | kInterpolatedAngle);
    EXPECT_EQ(frames[2].interpolated, 0);
    EXPECT_EQ(frames[3].interpolated, kInterpolatedScale | kInterpolatedBlend);
    EXPECT_EQ(read.With().Actions.at(1).frames.at(0).interpolated, 0);
    EXPECT_EQ(read.Plain().Actions.at(0).frames.at(1).interpolated, 0);
}

BothReadings FrameLine(const std::string& line) {
    return BothReadings("[Begin Action 1]\r\n" + line + "\r\n");
}

struct FrameLineRow {
    const char* line;
    int with;  // frames
    int plain;
};

TEST(AdditionsFrames, BeginWithANumber) {
    for (const FrameLineRow& row : {
             FrameLineRow{"0,0, 0,0, 5", 1, 1},
             FrameLineRow{"  7,0, 0,0, 5", 1, 1},
             FrameLineRow{"-1,0, 0,0, 5", 1, 1},
             FrameLineRow{"  -1,0", 1, 1},
             FrameLineRow{"5", 0, 0},
             FrameLineRow{"start = 0,270", 0, 1},
             FrameLineRow{"Clsn2: 1,2", 0, 1},
             FrameLineRow{",1, 0,0, 5", 0, 1},
             FrameLineRow{"-,1, 0,0, 5", 0, 1},
             FrameLineRow{"--1,1", 0, 1},
             FrameLineRow{"- 1,1", 0, 1},
             FrameLineRow{"x1,1", 0, 1},
         }) {
        const BothReadings read(std::string("[Begin Action 1]\r\n") + row.line + "\r\n");
        EXPECT_EQ(read.With().Actions.at(0).frameCount, row.with) << row.line;
        EXPECT_EQ(read.Plain().Actions.at(0).frameCount, row.plain) << row.line;
    }
}

// Plainly a line with brackets is a header and ends the action.
TEST(AdditionsFrames, BoxesAndSettingsDoNotShiftTheStartOfTheLoop) {
    const BothReadings read(
        "[Begin Action 1]\r\nClsn2: 1\r\n  Clsn2[0] = -10,-20,10,20\r\nstart = 0,270\r\n"
        "0,0, 0,0, 5\r\nClsn1[0] = 1,2,3,4\r\nLoopstart\r\n0,1, 0,0, 5\r\n");
    EXPECT_EQ(read.With().Actions.at(0).frameCount, 2);
    EXPECT_EQ(read.With().Actions.at(0).loopstart, 1);
    EXPECT_EQ(read.With().Actions.at(0).frames.at(1).image, 1);
    EXPECT_EQ(read.Plain().Actions.at(0).frameCount, 0);
}

TEST(AdditionsFrames, BehindTheFlipStandsAFramesOwnBlending) {
    const BothReadings read = FrameLine("4,1, -2,3, 5, H, AS100D200");
    EXPECT_EQ(read.WithFrame().flip, "h");
    EXPECT_EQ(read.WithFrame().time, 5);
    EXPECT_EQ(read.WithFrame().blending.kind, BlendKind::AddAlpha);
    EXPECT_EQ(read.WithFrame().blending.source, 100);
    EXPECT_EQ(read.WithFrame().blending.destination, 200);
    EXPECT_EQ(read.PlainFrame().blending.kind, BlendKind::None);
    EXPECT_EQ(read.PlainFrame().flip, "h");
    EXPECT_THAT(read.WithTexts(), IsEmpty());
}

TEST(AdditionsFrames, AnEmptyFlipIsNone) {
    for (const char* const line : {"0,0, 0,0, 5, , A", "0,0, 0,0, 5,,a", "0,0,0,0,5,,A,"}) {
        const BothReadings read = FrameLine(line);
        EXPECT_EQ(read.WithFrame().flip, "") << line;
        EXPECT_EQ(read.WithFrame().blending.kind, BlendKind::Add) << line;
        EXPECT_THAT(read.WithTexts(), IsEmpty()) << line;
        EXPECT_THAT(read.PlainTexts(), IsEmpty()) << line;
    }
}

TEST(AdditionsFrames, EachLetterIsItsBlending) {
    const auto kindOf = [](const char* letters) {
        return FrameLine(std::string("0,0, 0,0, 5, , ") + letters).WithFrame().blending.kind;
    };
    EXPECT_EQ(kindOf("A"), BlendKind::Add);
    EXPECT_EQ(kindOf("a1"), BlendKind::Add1);
    EXPECT_EQ(kindOf("S"), BlendKind::Sub);
    EXPECT_EQ(kindOf("As256d256"), BlendKind::AddAlpha);
    EXPECT_EQ(kindOf("Add"), BlendKind::Add);
    EXPECT_EQ(kindOf("ADD1"), BlendKind::Add1);
    EXPECT_EQ(kindOf("sub"), BlendKind::Sub);
    EXPECT_EQ(kindOf("Z"), BlendKind::None);
    EXPECT_EQ(kindOf(""), BlendKind::None);
}

TEST(AdditionsFrames, BlanksWithinABlendingDoNotCount) {
    for (const char* const letters : {"AS128D64", "AS128 D64", "as 128 d 64", " A S128D 6 4"}) {
        const BothReadings read = FrameLine(std::string("0,0, 0,0, 5, , ") + letters + ", 2, 2");
        const Blending& blending = read.WithFrame().blending;
        EXPECT_EQ(blending.kind, BlendKind::AddAlpha) << letters;
        EXPECT_EQ(blending.source, 128) << letters;
        EXPECT_EQ(blending.destination, 64) << letters;
        EXPECT_EQ(read.PlainFrame().blending.kind, BlendKind::None) << letters;
    }
}

TEST(AdditionsFrames, WithoutASeventhValueThereIsNone) {
    for (const char* const line : {"0,0, 0,0, 5", "0,0, 0,0, 5, H", "0,0, 0,0, 5, H,"}) {
        EXPECT_EQ(FrameLine(line).WithFrame().blending.kind, BlendKind::None) << line;
    }
}

TEST(AdditionsFrames, AFlipToTheSideOrOverIsNotReported) {
    for (const char* const flip : {"V", "hv", "HV", "h"}) {
        const BothReadings read = FrameLine(std::string("0,0, 0,0, 5, ") + flip);
        EXPECT_THAT(read.WithTexts(), IsEmpty()) << flip;
    }
    EXPECT_THAT(FrameLine("0,0, 0,0, 5, v").PlainTexts(),
                ElementsAre("vertical flip not coded yet dude.."));
}

TEST(AdditionsFrames, AFlipThatNobodyKnowsIsReportedAsEver) {
    for (const char* const flip : {"x", "a", "hh"}) {
        const BothReadings read = FrameLine(std::string("0,0, 0,0, 5, ") + flip);
        EXPECT_THAT(read.WithTexts(), ElementsAre("vertical flip not coded yet dude..")) << flip;
        EXPECT_THAT(read.PlainTexts(), ElementsAre("vertical flip not coded yet dude..")) << flip;
    }
}

}  // namespace
}  // namespace scenara::test
