// SPDX-License-Identifier: MIT
//
// Mirrored frames: about their axis with additions, at the same place without.
#include <gtest/gtest.h>

#include "render/ElementDrawing.h"
#include "render/StagePlayer.h"

namespace scenara {
namespace {

using test::Lines;
using test::StageBuilder;
using test::StagePlayer;

constexpr DrawOptions kPlain{};
constexpr DrawOptions kWithAdditions{true, false};

// A picture of 50 x 40 with its axis at 10, 30, in a frame with the offset 3, -4 of an element
// whose axis point is at 160, 120.
class Mirroring : public testing::Test {
protected:
    BackgroundElement& Flipped(const char* flip) {
        const Integer action = player.build.Action({{hill, -1, 3, -4, flip}});
        return StageBuilder::At(player.build.Animation(action), 160, 120);
    }
    Lines Draw(const DrawOptions& options = kWithAdditions) {
        player.Start();
        DrawElement(player.engine, player.model, player.model.Elements.back(), options);
        return player.record.TakeQuads();
    }
    StagePlayer player{ViewOptions{true}};
    const Integer hill = player.build.Sprite("hill", 50, 40, 10, 30);
};

TEST_F(Mirroring, WithoutAFlipIsNone) {
    Flipped("");
    EXPECT_EQ(Draw(), (Lines{"hill 153,86 50x40"}));  // 160 + 3 - 10, 120 - 4 - 30
}

TEST_F(Mirroring, HIsAboutTheAxis) {
    Flipped("h");
    EXPECT_EQ(Draw(), (Lines{"hill 123,86 50x40 mirrored"}));  // 160 + 3 - (50 - 10)
    EXPECT_EQ(Draw(kPlain), (Lines{"hill 153,86 50x40 mirrored"}));
}

TEST_F(Mirroring, VIsAboutTheAxisToo) {
    Flipped("v");
    EXPECT_EQ(Draw(), (Lines{"hill 153,106 50x40 flipped"}));  // 120 - 4 - (40 - 30)
    EXPECT_EQ(Draw(kPlain), (Lines{"hill 153,86 50x40"}));
}

TEST_F(Mirroring, HvIsBoth) {
    Flipped("hv");
    EXPECT_EQ(Draw(), (Lines{"hill 123,106 50x40 mirrored flipped"}));
    EXPECT_EQ(Draw(kPlain), (Lines{"hill 153,86 50x40"}));
}

TEST_F(Mirroring, OfOtherWordsIsNone) {
    for (const char* const flip : {"x", "hh", "H", "1"}) {
        Flipped(flip);
        EXPECT_EQ(Draw(), (Lines{"hill 153,86 50x40"})) << flip;
    }
}

// An axis in the middle stays where it was, whichever way the picture looks.
TEST_F(Mirroring, AboutTheMiddleStaysInPlace) {
    player.model.Sprites[0].axisX = 25;
    player.model.Sprites[0].axisY = 20;
    Flipped("hv");
    EXPECT_EQ(Draw(), (Lines{"hill 138,96 50x40 mirrored flipped"}));
    Flipped("");
    EXPECT_EQ(Draw(), (Lines{"hill 138,96 50x40"}));
}

TEST_F(Mirroring, AnAxisOutsideOfThePictureIsMirroredAboutAsWell) {
    player.model.Sprites[0].axisX = -20;
    Flipped("h");
    EXPECT_EQ(Draw(), (Lines{"hill 93,86 50x40 mirrored"}));  // 163 - (50 + 20)
}

TEST_F(Mirroring, IsMaskedAsEver) {
    Flipped("hv").mask = 1;
    EXPECT_EQ(Draw(), (Lines{"hill 123,106 50x40 mirrored flipped masked"}));
}

// Counted in the picture as it is shown: 7 columns and 4 lines of it are cut away.
TEST_F(Mirroring, IsCutToTheWindow) {
    BackgroundElement& element = Flipped("hv");
    element.windowX1 = 130;
    element.windowX2 = 149;
    element.windowY1 = 110;
    element.windowY2 = 119;
    element.windowActive = 1;
    EXPECT_EQ(Draw(), (Lines{"hill 130,110 20x10 from 7,4 mirrored flipped"}));
}

TEST_F(Mirroring, LeftToRightIsDrawnOnceWhateverTheTiling) {
    for (const char* const flip : {"h", "hv"}) {
        BackgroundElement& element = Flipped(flip);
        element.tileX = 3;
        element.tileY = 2;
        element.tileSpacingX = 60;
        EXPECT_EQ(Draw().size(), 1U) << flip;
    }
}

TEST_F(Mirroring, UpsideDownIsTiled) {
    BackgroundElement& element = Flipped("v");
    element.tileX = 3;
    element.tileSpacingX = 60;
    EXPECT_EQ(Draw(), (Lines{"hill 153,106 50x40 flipped", "hill 213,106 50x40 flipped",
                             "hill 273,106 50x40 flipped"}));
}

}  // namespace
}  // namespace scenara
