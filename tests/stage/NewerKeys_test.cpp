// SPDX-License-Identifier: MIT
//
// What only newer engines read, reported by name.
#include "stage/NewerKeys.h"

#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "PlainMachine.h"
#include "support/StageFixture.h"

namespace scenara::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

struct NewerRow {
    const char* name;
    const char* definition;
    const char* said;  // after the first line of the message; none: there is no message
};

class NewerKeysOfStages : public testing::TestWithParam<NewerRow> {};

TEST_P(NewerKeysOfStages, AreReported) {
    StageMachine machine;
    ASSERT_TRUE(machine.Load(GetParam().definition));
    if (GetParam().said == nullptr) {
        EXPECT_THAT(machine.OtherMessageTexts(), IsEmpty());
        return;
    }
    EXPECT_THAT(machine.OtherMessageTexts(),
                ElementsAre(std::string("Newer engines alone show this:\r\n") + GetParam().said));
    PlainMachine plain;
    ASSERT_TRUE(plain.Load(GetParam().definition));
    EXPECT_THAT(plain.OtherMessageTexts(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(
    , NewerKeysOfStages,
    testing::Values(
        NewerRow{"OfAnElement", "[BG a]\ntype = normal\nangle = 30\n", "[BG] angle, line 3"},
        NewerRow{"InAnyCaseAndWithBlanks", "[BG a]\ntype = normal\n\t XShear=.5 ; lean\n",
                 "[BG] xshear, line 3"},
        NewerRow{"EachNameOnce",
                 "[BG a]\ntype = normal\nangle = 1\n[BG b]\ntype = normal\nangle = 2\n",
                 "[BG] angle, line 3"},
        NewerRow{"InTheOrderOfTheFile",
                 "[Info]\nattachedchar1 = a.def\nround2def = b.def\n[Camera]\nautozoom = 1\n",
                 "[Info] attachedchar1, line 2\r\n[Info] round2def, line 3\r\n[Camera] autozoom, "
                 "line 5"},
        NewerRow{"OfMusic", "[Music]\nbgmusic.round2 = a.mp3\nfinal.bgmusic = b.mp3\n",
                 "[Music] bgmusic.round2, line 2\r\n[Music] final.bgmusic, line 3"},
        NewerRow{"AModel", "[Model]\noffset = 0,0,0\n", "[Model], line 1"},
        NewerRow{"Controllers", "[BGCtrlDef a]\n[BGCtrl b]\ntype = PalFX\ntime = 0\n",
                 "[BGCtrl] type = palfx, line 3"},
        NewerRow{"LayersBelow0OfANewerEngine",
                 "[Info]\nikemenversion = 1.0\n[BG a]\ntype = normal\nlayerno = -1\n",
                 "[BG] layerno below 0, line 5"},
        NewerRow{"NotOtherwise", "[Info]\nikemenversion = 0\n[BG a]\ntype = normal\nlayerno = -1\n",
                 nullptr},
        NewerRow{"NotWithoutAValue", "[BG a]\ntype = normal\nangle =\n", nullptr},
        NewerRow{"NotInOtherSections", "[Shadow]\nxshear = 1\n[PlayerInfo]\nautozoom = 1\n",
                 nullptr},
        NewerRow{"NotAsPartOfOthers", "[BG a]\ntype = normal\nmyangle = 3\nangled = 3\n", nullptr},
        NewerRow{"NotInFrames", "[Begin Action 1]\nangle = 1, 2, 3, 4, 5\n", nullptr}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(NewerKeysOfAStage, AreNotMoreThanCanBeRead) {
    std::string definition = "[Info]\n";
    for (int i = 0; i < 30; ++i) {
        definition += "round" + std::to_string(i) + "def = a.def\n";
    }
    StageMachine machine;
    ASSERT_TRUE(machine.Load(definition));
    EXPECT_THAT(machine.OtherMessageTexts(),
                ElementsAre(testing::AllOf(HasSubstr("round19def, line 21\r\nand 10 more"),
                                           Not(HasSubstr("round20def")))));
    EXPECT_EQ(machine.messages.Recorded().front().kind, kMessageNewerKeys);
    EXPECT_EQ(machine.messages.Recorded().front().place.line, 2);
}

}  // namespace
}  // namespace scenara::test
