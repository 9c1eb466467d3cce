// SPDX-License-Identifier: MIT
#include "character/CharacterConstants.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "support/MemoryFiles.h"
#include "support/MessageTexts.h"

namespace scenara {
namespace {

struct ConstantsRow {
    const char* name;
    const char* text;
    Single xScale, yScale, walkSpeed;
    std::vector<std::string> said = {};
};

TEST(CharacterConstants, AreScaleAndSpeed) {
    const ConstantsRow rows[] = {
        {"all of them",
         "[Data]\nlife = 1000\n[Size]\nxscale = .5 ;half\n YScale=0.25\n"
         "[Velocity]\nwalk.fwd = 2.4 ; forward\n",
         0.5F, 0.25F, 2.4F},
        {"an empty file", "", 1, 1, 1},
        {"none given", "[Size]\n[Velocity]\n", 1, 1, 1},
        {"one given", "[Size]\nyscale = 2\n", 1, 2, 1},
        {"they count from the size section on",
         "xscale = 3\nyscale = 3\nwalk.fwd = 3\n[SIZE] ; here\nyscale = 2\nwalk.fwd = 4\n", 1, 2,
         4},
        {"a size section in a comment", "; [Size]\nxscale = 3\nwalk.fwd = 9\n", 1, 1, 1},
        {"they end with the speed", "[Size]\nwalk.fwd = 2\nxscale = 3\nwalk.fwd = 5\n", 1, 1, 2},
        {"in comments", "[Size]\n;xscale = 3\nground.back = 15 ; xscale = 4\n\t; walk.fwd = 3\n", 1,
         1, 1},
        {"the number that the value begins with",
         "[Size]\nxscale = 1.5abc\nyscale = 0x\nwalk.fwd = 3, 7\n", 1.5F, 0, 3},
        {"no numbers", "[Size]\nxscale =\nyscale = abc\nwalk.fwd\n", 1, 1, 1},
        {"no number the second time",
         "[Size]\nxscale = 2\nxscale = ; none\nwalk.fwd = -\nwalk.fwd = 4\n", 2, 1, 1},
        {"CR", "[Size]\rxscale = 2\rwalk.fwd = 3\r", 2, 1, 3},
        {"CR LF", "[Size]\r\nxscale = 2\r\nwalk.fwd = 3", 2, 1, 3},
        {"what does not fit is said",
         "[Size]\nxscale = 1e99\nyscale = 2\nwalk.fwd = -1e40\n",
         1,
         2,
         1,
         {"Overflow: xscale, line 2", "Overflow: walk.fwd, line 4"}},
    };
    for (const ConstantsRow& row : rows) {
        SCOPED_TRACE(row.name);
        test::MemoryFile file{std::string(row.text)};
        HeadlessMessages messages;
        const CharacterConstants constants = ReadCharacterConstants(file, messages);
        EXPECT_EQ(constants.xScale, row.xScale);
        EXPECT_EQ(constants.yScale, row.yScale);
        EXPECT_EQ(constants.walkSpeed, row.walkSpeed);
        EXPECT_EQ(test::TextsOf(messages), row.said);
    }
}

}  // namespace
}  // namespace scenara
