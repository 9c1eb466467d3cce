// SPDX-License-Identifier: MIT
#include "character/CharacterConstants.h"

#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/headless/HeadlessMessages.h"
#include "support/MemoryFiles.h"

namespace scenara {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class CharacterConstantsTest : public testing::Test {
protected:
    CharacterConstants Read(const std::string& text) {
        test::MemoryFile file(text);
        const CharacterConstants constants = ReadCharacterConstants(file, messages_);
        for (const Message& message : messages_.Recorded()) {
            said_.push_back(message.text);
        }
        return constants;
    }
    void Expect(const std::string& text, Single xScale, Single yScale, Single walkSpeed) {
        SCOPED_TRACE(text);
        const CharacterConstants constants = Read(text);
        EXPECT_EQ(constants.xScale, xScale);
        EXPECT_EQ(constants.yScale, yScale);
        EXPECT_EQ(constants.walkSpeed, walkSpeed);
    }

    HeadlessMessages messages_;
    std::vector<std::string> said_;
};

TEST_F(CharacterConstantsTest, AreScaleAndSpeed) {
    Expect(
        "[Data]\nlife = 1000\n[Size]\nxscale = .5 ;half\n YScale=0.25\n"
        "[Velocity]\nwalk.fwd = 2.4 ; forward\n",
        0.5F, 0.25F, 2.4F);
    EXPECT_THAT(said_, IsEmpty());
}

TEST_F(CharacterConstantsTest, AreOneWhenNotGiven) {
    Expect("", 1, 1, 1);
    Expect("[Size]\n[Velocity]\n", 1, 1, 1);
    Expect("[Size]\nyscale = 2\n", 1, 2, 1);
}

TEST_F(CharacterConstantsTest, CountFromTheSizeSectionOn) {
    Expect("xscale = 3\nyscale = 3\nwalk.fwd = 3\n[SIZE] ; here\nyscale = 2\nwalk.fwd = 4\n", 1, 2,
           4);
    Expect("; [Size]\nxscale = 3\nwalk.fwd = 9\n", 1, 1, 1);
}

TEST_F(CharacterConstantsTest, EndWithTheSpeed) {
    Expect("[Size]\nwalk.fwd = 2\nxscale = 3\nwalk.fwd = 5\n", 1, 1, 2);
}

TEST_F(CharacterConstantsTest, ComeFromLinesThatAreNoComments) {
    Expect("[Size]\n;xscale = 3\nground.back = 15 ; xscale = 4\n\t; walk.fwd = 3\n", 1, 1, 1);
}

TEST_F(CharacterConstantsTest, AreTheNumberThatTheValueBeginsWith) {
    Expect("[Size]\nxscale = 1.5abc\nyscale = 0x\nwalk.fwd = 3, 7\n", 1.5F, 0, 3);
}

TEST_F(CharacterConstantsTest, AreOneWhereTheValueIsNoNumber) {
    Expect("[Size]\nxscale =\nyscale = abc\nwalk.fwd\n", 1, 1, 1);
    Expect("[Size]\nxscale = 2\nxscale = ; none\nwalk.fwd = -\nwalk.fwd = 4\n", 2, 1, 1);
    EXPECT_THAT(said_, IsEmpty());
}

TEST_F(CharacterConstantsTest, TakeEveryLineEnd) {
    Expect("[Size]\rxscale = 2\rwalk.fwd = 3\r", 2, 1, 3);
    Expect("[Size]\r\nxscale = 2\r\nwalk.fwd = 3", 2, 1, 3);
}

TEST_F(CharacterConstantsTest, ThatDoNotFitAreSaidAndStay) {
    Expect("[Size]\nxscale = 1e99\nyscale = 2\nwalk.fwd = -1e40\n", 1, 2, 1);
    EXPECT_THAT(said_, ElementsAre("Overflow: xscale, line 2", "Overflow: walk.fwd, line 4"));
}

}  // namespace
}  // namespace scenara
