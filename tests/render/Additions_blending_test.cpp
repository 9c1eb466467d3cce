// SPDX-License-Identifier: MIT
//
// Blended elements, as the device sees them: quads, their colours, and the states around them.
#include <algorithm>
#include <map>
#include <string>

#include <gtest/gtest.h>

#include "render/ElementDrawing.h"
#include "render/ExpectError.h"
#include "render/StagePlayer.h"

namespace scenara {
namespace {

using test::ExpectError;
using test::Lines;
using test::NamedTexture;
using test::Record;
using test::StageBuilder;
using test::StagePlayer;

constexpr DrawOptions kPlain{};
constexpr DrawOptions kWithAdditions{true, false};

constexpr Blending kAdd{BlendKind::Add};
constexpr Blending kAdd1{BlendKind::Add1};
constexpr Blending kSub{BlendKind::Sub};

Blending AddAlpha(Integer source, Integer destination) {
    return {BlendKind::AddAlpha, source, destination};
}

// Draws the stage's first element.
class BlendedDrawing : public testing::Test {
protected:
    Lines Draw(const DrawOptions& options = kWithAdditions) {
        player.Start();
        DrawElement(player.engine, player.model, player.Element(0), options);
        return player.record.TakeQuads();
    }
    // What a hill at 10,20 of this blending is drawn as.
    Lines Hill(const Blending& blending) {
        player.model.Elements.clear();
        Still().blending = blending;
        return Draw();
    }
    BackgroundElement& Still() { return StageBuilder::At(player.build.Still(hill), 10, 20); }

    // The states as they stand after the draw, by their numbers; those that it did not touch are
    // not there.
    std::map<std::string, std::string> StatesBehind() {
        player.Start();
        DrawElement(player.engine, player.model, player.Element(0), kWithAdditions);
        std::map<std::string, std::string> states;
        const std::string call = "SetRenderState ";
        for (const std::string& line : player.record.TakeLines()) {
            if (line.starts_with(call)) {
                const std::string numbers = line.substr(call.size());
                const std::size_t blank = numbers.find(' ');
                states[numbers.substr(0, blank)] = numbers.substr(blank + 1);
            }
        }
        return states;
    }

    StagePlayer player{ViewOptions{true}};
    const Integer hill = player.build.Sprite("hill", 50, 40);
};

// --- quads and colours ---

TEST_F(BlendedDrawing, OfAddIsOneQuad) {
    EXPECT_EQ(Hill(kAdd), (Lines{"hill 10,20 50x40 added"}));
}

TEST_F(BlendedDrawing, OfAdd1HasABlackOneAtAlpha128Before) {
    EXPECT_EQ(Hill(kAdd1),
              (Lines{"hill 10,20 50x40 masked in 80000000", "hill 10,20 50x40 added"}));
}

TEST_F(BlendedDrawing, OfSubIsOneQuadTakenAway) {
    EXPECT_EQ(Hill(kSub), (Lines{"hill 10,20 50x40 taken"}));
}

TEST_F(BlendedDrawing, OfAddalphaTakesPartOfWhatLiesBehindAndAddsPartOfItself) {
    // 256 - 200 = 56, in hexadecimal 38; 100 is 64.
    EXPECT_EQ(Hill(AddAlpha(100, 200)),
              (Lines{"hill 10,20 50x40 masked in 38000000", "hill 10,20 50x40 added in 64FFFFFF"}));
    EXPECT_EQ(Hill(AddAlpha(128, 128)),
              (Lines{"hill 10,20 50x40 masked in 80000000", "hill 10,20 50x40 added in 80FFFFFF"}));
    EXPECT_EQ(Hill(AddAlpha(1, 255)),
              (Lines{"hill 10,20 50x40 masked in 01000000", "hill 10,20 50x40 added in 01FFFFFF"}));
}

// 256 parts are the whole of 255.
TEST_F(BlendedDrawing, OfAddalpha256And0HidesWhatLiesBehind) {
    EXPECT_EQ(Hill(AddAlpha(256, 0)),
              (Lines{"hill 10,20 50x40 masked in FF000000", "hill 10,20 50x40 added"}));
}

// Black at alpha 0 would change nothing.
TEST_F(BlendedDrawing, OfAddalphaWith256OfWhatLiesBehindHasNoBlackOne) {
    EXPECT_EQ(Hill(AddAlpha(256, 256)), (Lines{"hill 10,20 50x40 added"}));
    EXPECT_EQ(Hill(AddAlpha(0, 256)), (Lines{"hill 10,20 50x40 added in 00FFFFFF"}));
}

TEST_F(BlendedDrawing, IsTheSameWithAndWithoutMask) {
    for (const Integer mask : {Integer{0}, Integer{1}}) {
        player.model.Elements.clear();
        BackgroundElement& element = Still();
        element.mask = mask;
        element.blending = kAdd;
        EXPECT_EQ(Draw(), (Lines{"hill 10,20 50x40 added"})) << mask;
    }
}

TEST_F(BlendedDrawing, WithoutABlendingIsAsEver) {
    Still();
    EXPECT_EQ(Draw(), (Lines{"hill 10,20 50x40"}));
    player.Element(0).mask = 1;
    EXPECT_EQ(Draw(), (Lines{"hill 10,20 50x40 masked"}));
}

TEST_F(BlendedDrawing, IsNoneInAPlainView) {
    for (const Blending& blending : {kAdd, kAdd1, kSub, AddAlpha(100, 200)}) {
        player.model.Elements.clear();
        Still().blending = blending;
        EXPECT_EQ(Draw(kPlain), (Lines{"hill 10,20 50x40"}));
        player.Element(0).mask = 1;
        EXPECT_EQ(Draw(kPlain), (Lines{"hill 10,20 50x40 masked"}));
    }
}

// --- states ---

TEST_F(BlendedDrawing, LeavesTheStatesOfNoBlending) {
    for (const Blending& blending : {kAdd, kAdd1, kSub, AddAlpha(100, 200)}) {
        player.model.Elements.clear();
        Still().blending = blending;
        std::map<std::string, std::string> states = StatesBehind();
        EXPECT_EQ(states["19"], "2");  // source: one
        EXPECT_EQ(states["20"], "1");  // destination: zero
        EXPECT_EQ(states["27"], "0");  // off
        EXPECT_TRUE(!states.contains("171") || states["171"] == "1");
    }
}

TEST_F(BlendedDrawing, DoesNotTouchTheNextElement) {
    const Integer tree = player.build.Sprite("tree", 20, 60);
    Still().blending = kSub;
    StageBuilder::At(player.build.Still(tree), 0, 0).mask = 1;
    StageBuilder::At(player.build.Still(tree), 0, 0);
    StageBuilder::At(player.build.Still(tree), 0, 0).blending = kAdd;
    player.Start();
    EXPECT_EQ(player.BackPass(), (Lines{"hill 10,20 50x40 taken", "tree 0,0 20x60 masked",
                                        "tree 0,0 20x60", "tree 0,0 20x60 added"}));
}

TEST_F(BlendedDrawing, OfNothingChangesNoState) {
    player.build.Still(-1).blending = kAdd1;
    EXPECT_TRUE(StatesBehind().empty());
}

TEST_F(BlendedDrawing, AStateThatTheDeviceRefusesIsAnError) {
    Still().blending = kAdd1;
    player.Start();
    for (const int nth : {1, 2, 3, 4}) {
        player.record.Spoil("SetRenderState", Record::Trouble::Fails, nth);
        ExpectError(RunTimeErrorKind::Direct3D, [&] {
            DrawElement(player.engine, player.model, player.Element(0), kWithAdditions);
        });
    }
}

// --- copies, rows, windows ---

TEST_F(BlendedDrawing, EachCopyDarkensAndAddsBeforeTheNext) {
    BackgroundElement& element = Still();
    element.tileX = 2;
    element.tileSpacingX = 10;
    element.blending = kAdd1;
    EXPECT_EQ(Draw(), (Lines{"hill 10,20 50x40 masked in 80000000", "hill 10,20 50x40 added",
                             "hill 70,20 50x40 masked in 80000000", "hill 70,20 50x40 added"}));
}

TEST_F(BlendedDrawing, BothQuadsAreCutToTheWindow) {
    BackgroundElement& element = Still();
    element.windowX1 = 15;
    element.windowX2 = 24;
    element.windowY1 = 0;
    element.windowY2 = 39;
    element.windowActive = 1;
    element.blending = AddAlpha(256, 0);
    EXPECT_EQ(Draw(), (Lines{"hill 15,20 10x20 from 5,0 masked in FF000000",
                             "hill 15,20 10x20 from 5,0 added"}));
}

TEST_F(BlendedDrawing, RowsOfParallaxPicturesAreBlendedOneByOne) {
    const Integer floor = player.build.Sprite("floor", 100, 2);
    StageBuilder::At(player.build.Parallax(floor), 10, 20).blending = kAdd1;
    EXPECT_EQ(Draw(), (Lines{"floor 10,20 100x1 masked in 80000000", "floor 10,20 100x1 added",
                             "floor 10,21 100x1 from 0,1 masked in 80000000",
                             "floor 10,21 100x1 from 0,1 added"}));
}

// --- frames ---

TEST_F(BlendedDrawing, AnElementsGoesBeforeThatOfItsFrames) {
    const Integer action = player.build.Action({{hill, 1}, {hill, 1}});
    player.model.Actions[0].frames[1].blending = kSub;
    StageBuilder::At(player.build.Animation(action), 10, 20).blending = kAdd;
    player.Start();
    EXPECT_EQ(player.BackPass(), (Lines{"hill 10,20 50x40 added"}));
    EXPECT_EQ(player.BackPass(), (Lines{"hill 10,20 50x40 added"}));
}

TEST_F(BlendedDrawing, AFrameMayBlendWhereItsElementDoesNot) {
    const Integer action = player.build.Action({{hill, 1}, {hill, 1}, {hill, 1, 0, 0, "h"}});
    player.model.Actions[0].frames[0].blending = AddAlpha(100, 256);
    player.model.Actions[0].frames[2].blending = kAdd1;
    StageBuilder::At(player.build.Animation(action), 10, 20).mask = 1;
    player.Start();
    EXPECT_EQ(player.BackPass(), (Lines{"hill 10,20 50x40 added in 64FFFFFF"}));
    EXPECT_EQ(player.BackPass(), (Lines{"hill 10,20 50x40 masked"}));
    EXPECT_EQ(player.BackPass(), (Lines{"hill -40,20 50x40 mirrored masked in 80000000",
                                        "hill -40,20 50x40 mirrored added"}));
}

// trans = none of version 1.0 and later.
TEST_F(BlendedDrawing, AnElementMayKeepItsFramesFromBlending) {
    const Integer action = player.build.Action({{hill, 1}});
    player.model.Actions[0].frames[0].blending = kAdd;
    BackgroundElement& element = StageBuilder::At(player.build.Animation(action), 10, 20);
    element.mask = 1;
    element.framesBlend = 0;
    EXPECT_EQ(Draw(), (Lines{"hill 10,20 50x40 masked"}));
}

TEST_F(BlendedDrawing, AFramesOwnIsNoneInAPlainView) {
    const Integer action = player.build.Action({{hill, 1}});
    player.model.Actions[0].frames[0].blending = kAdd;
    StageBuilder::At(player.build.Animation(action), 10, 20).mask = 1;
    EXPECT_EQ(Draw(kPlain), (Lines{"hill 10,20 50x40 masked"}));
}

// --- preparing ---

TEST_F(BlendedDrawing, TexturesAreMadeReadyAsThoseOfMaskedOnesAre) {
    const Integer tree = player.build.Sprite("tree", 20, 60);
    Still().blending = kAdd;
    player.build.Still(tree);
    player.Start();
    const auto readied = [&](Integer sprite) {
        const auto& texture = player.model.Sprites[static_cast<std::size_t>(sprite)].texture;
        return dynamic_cast<const NamedTexture&>(*texture).PreLoads();
    };
    EXPECT_GE(readied(hill), 1);
    EXPECT_EQ(readied(tree), 0);
}

}  // namespace
}  // namespace scenara
