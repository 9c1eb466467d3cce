// SPDX-License-Identifier: MIT
//
// Mirrored frames: about their axis with additions, at the same place without.
#include <gtest/gtest.h>

#include "render/StagePlayer.h"

namespace scenara::test {
namespace {

struct Mirrored {
    const char* name;
    const char* flip;
    const char* drawn;
    const char* plainly = "hill 153,86 50x40";
    Integer axisX = 10;
    Integer axisY = 30;
};

// A picture of 50 x 40 in a frame with the offset 3, -4 of an element whose axis point is at
// 160, 120.
TEST(Mirroring, IsAboutTheAxisAndPlainlyAtTheSamePlace) {
    for (const Mirrored& row : {
             // 160 + 3 - 10, 120 - 4 - 30
             Mirrored{"without", "", "hill 153,86 50x40"},
             // 160 + 3 - (50 - 10)
             {"h", "h", "hill 123,86 50x40 mirrored", "hill 153,86 50x40 mirrored"},
             // 120 - 4 - (40 - 30)
             {"v", "v", "hill 153,106 50x40 flipped"},
             {"both", "hv", "hill 123,106 50x40 mirrored flipped"},
             {"another letter", "x", "hill 153,86 50x40"},
             {"h twice", "hh", "hill 153,86 50x40"},
             {"a large h", "H", "hill 153,86 50x40"},
             {"both the other way round", "vh", "hill 123,106 50x40 mirrored flipped"},
             {"a blank before", " h", "hill 153,86 50x40"},
             {"a blank after", "h ", "hill 153,86 50x40"},
             {"a number", "1", "hill 153,86 50x40"},
             // An axis in the middle stays where it was, whichever way the picture looks.
             {"the axis in the middle", "hv", "hill 138,96 50x40 mirrored flipped",
              "hill 138,96 50x40", 25, 20},
             {"and not mirrored", "", "hill 138,96 50x40", "hill 138,96 50x40", 25, 20},
             // 163 - (50 + 20)
             {"the axis outside of the picture", "h", "hill 93,86 50x40 mirrored",
              "hill 183,86 50x40 mirrored", -20, 30},
         }) {
        SCOPED_TRACE(row.name);
        StagePlayer player;
        const Integer hill = player.build.Sprite("hill", 50, 40, row.axisX, row.axisY);
        player.build.AnimationAt({{hill, -1, 3, -4, row.flip}}, 160, 120);
        EXPECT_EQ(player.StartAndDrawFirst({true}), (Lines{row.drawn}));
        EXPECT_EQ(player.DrawFirst(), (Lines{row.plainly}));
    }
}

class MirroredFrames : public testing::Test {
protected:
    BackgroundElement& Flipped(const char* flip) {
        return player.build.AnimationAt({{hill, -1, 3, -4, flip}}, 160, 120);
    }
    Lines Draw() { return player.StartAndDrawFirst({true}); }

    StagePlayer player{ViewOptions{true}};
    const Integer hill = player.build.Sprite("hill", 50, 40, 10, 30);
};

TEST_F(MirroredFrames, AreMaskedAsEver) {
    Masked(Flipped("hv"));
    EXPECT_EQ(Draw(), (Lines{"hill 123,106 50x40 mirrored flipped masked"}));
}

// Counted in the picture as it is shown: 7 columns and 4 lines of it are cut away.
TEST_F(MirroredFrames, AreCutToTheWindow) {
    Windowed(Flipped("hv"), 130, 110, 149, 119);
    EXPECT_EQ(Draw(), (Lines{"hill 130,110 20x10 from 7,4 mirrored flipped"}));
}

TEST_F(MirroredFrames, KeepTheirTiling) {
    Tiled(Flipped("v"), 3, 0, 60);
    EXPECT_EQ(Draw(), (Lines{"hill 153,106 50x40 flipped", "hill 213,106 50x40 flipped",
                             "hill 273,106 50x40 flipped"}));
    player.model.Elements.clear();
    Tiled(Flipped("h"), 2, 2, 60, 80);
    EXPECT_EQ(Draw(), (Lines{"hill 123,86 50x40 mirrored", "hill 183,86 50x40 mirrored",
                             "hill 123,166 50x40 mirrored", "hill 183,166 50x40 mirrored"}));
    player.model.Elements.clear();
    Tiled(Flipped("hv"), 0, 2, 1, 80);
    EXPECT_EQ(Draw(), (Lines{"hill 123,106 50x40 mirrored flipped",
                             "hill 123,186 50x40 mirrored flipped"}));
}

TEST_F(MirroredFrames, PlainlyStandAlone) {
    Tiled(Flipped("h"), 2, 2, 60, 80);
    EXPECT_EQ(player.StartAndDrawFirst({}).size(), 1U);
}

}  // namespace
}  // namespace scenara::test
