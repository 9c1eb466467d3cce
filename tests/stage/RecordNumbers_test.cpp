// SPDX-License-Identifier: MIT
#include "stage/RecordNumbers.h"

#include <gtest/gtest.h>

namespace scenara {
namespace {

TEST(RecordNumbers, GiveTheFirstSpriteWithGroupAndImage) {
    StageModel model;
    model.Sprites.resize(4);
    model.Sprites[0].group = 7;
    model.Sprites[1].image = 7;
    model.Sprites[2].group = 7;
    model.Sprites[2].image = -1;
    model.Sprites[3].group = 7;
    const SpriteNumbers sprites(model);
    EXPECT_EQ(sprites.Find(7, 0), 0);
    EXPECT_EQ(sprites.Find(0, 7), 1);
    EXPECT_EQ(sprites.Find(7, -1), 2);
}

TEST(RecordNumbers, GiveMinusOneForNoSprite) {
    StageModel model;
    EXPECT_EQ(SpriteNumbers(model).Find(0, 0), -1);
    model.Sprites.resize(1);
    const SpriteNumbers sprites(model);
    EXPECT_EQ(sprites.Find(0, 1), -1);
    EXPECT_EQ(sprites.Find(65536, 0), -1);
    EXPECT_EQ(sprites.Find(-1, 0), -1);
}

TEST(RecordNumbers, GiveTheFirstActionOfItsNumber) {
    StageModel model;
    model.Actions.resize(3);
    model.Actions[0].actionNo = 5;
    model.Actions[1].actionNo = -2;
    model.Actions[2].actionNo = 5;
    const ActionNumbers actions(model);
    EXPECT_EQ(actions.Find(5), 0);
    EXPECT_EQ(actions.Find(-2), 1);
    EXPECT_EQ(actions.Find(6), -1);
}

}  // namespace
}  // namespace scenara
