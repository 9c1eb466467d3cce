// SPDX-License-Identifier: MIT
//
// Blended elements, as the device sees them: quads, their colours, and the states around them.
#include <algorithm>
#include <map>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "render/ElementDrawing.h"
#include "render/ExpectError.h"
#include "render/StagePlayer.h"

namespace scenara::test {
namespace {

constexpr DrawOptions kPlain{};
constexpr DrawOptions kWithAdditions{true};

constexpr Blending kAdd{BlendKind::Add};
constexpr Blending kAdd1{BlendKind::Add1};
constexpr Blending kSub{BlendKind::Sub};

Blending AddAlpha(Integer source, Integer destination) {
    return {BlendKind::AddAlpha, source, destination};
}

class BlendedDrawing : public testing::Test {
protected:
    Lines Draw(const DrawOptions& options = kWithAdditions) {
        return player.StartAndDrawFirst(options);
    }
    // Instead of all others, a hill of this blending.
    BackgroundElement& Hill(const Blending& blending) {
        player.model.Elements.clear();
        BackgroundElement& element = Still();
        element.blending = blending;
        return element;
    }
    BackgroundElement& Still() { return player.build.StillAt(hill, 10, 20); }
    // Of these frames, whose blendings are given beside.
    BackgroundElement& Animation(const std::vector<FrameLine>& lines,
                                 const std::vector<Blending>& blendings) {
        BackgroundElement& element = player.build.AnimationAt(lines, 10, 20);
        for (std::size_t i = 0; i < blendings.size(); ++i) {
            player.model.Actions[0].frames.at(i).blending = blendings[i];
        }
        return element;
    }

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

struct BlendedHill {
    const char* name;
    Blending blending;
    Lines quads;  // how each is blended
};

TEST_F(BlendedDrawing, IsOneQuadOrABlackOneBefore) {
    for (const BlendedHill& row : std::vector<BlendedHill>{
             {"add", kAdd, {" added"}},
             {"add1: black at alpha 128", kAdd1, {" masked in 80000000", " added"}},
             {"sub", kSub, {" taken"}},
             // 256 - 200 = 56, in hexadecimal 38; 100 is 64.
             {"parts of both", AddAlpha(100, 200), {" masked in 38000000", " added in 64FFFFFF"}},
             {"halves", AddAlpha(128, 128), {" masked in 80000000", " added in 80FFFFFF"}},
             {"the least parts", AddAlpha(1, 255), {" masked in 01000000", " added in 01FFFFFF"}},
             // 256 parts are the whole of 255.
             {"nothing of what lies behind", AddAlpha(256, 0), {" masked in FF000000", " added"}},
             // Black at alpha 0 would change nothing.
             {"all of both", AddAlpha(256, 256), {" added"}},
             {"all of what lies behind", AddAlpha(0, 256), {" added in 00FFFFFF"}},
         }) {
        SCOPED_TRACE(row.name);
        Lines quads;
        for (const std::string& quad : row.quads) {
            quads.push_back("hill 10,20 50x40" + quad);
        }
        Hill(row.blending);
        EXPECT_EQ(Draw(), quads);
        Masked(Hill(row.blending));
        EXPECT_EQ(Draw(), quads);
        EXPECT_EQ(player.DrawFirst(kPlain), (Lines{"hill 10,20 50x40 masked"}));
        Hill(row.blending);
        EXPECT_EQ(Draw(kPlain), (Lines{"hill 10,20 50x40"}));
    }
}

TEST_F(BlendedDrawing, WithoutABlendingIsAsEver) {
    Still();
    EXPECT_EQ(Draw(), (Lines{"hill 10,20 50x40"}));
    player.Element(0).mask = 1;
    EXPECT_EQ(player.DrawFirst(kWithAdditions), (Lines{"hill 10,20 50x40 masked"}));
}

// --- states ---

TEST_F(BlendedDrawing, LeavesTheStatesOfNoBlending) {
    for (const Blending& blending : {kAdd, kAdd1, kSub, AddAlpha(100, 200)}) {
        Hill(blending);
        std::map<std::string, std::string> states = StatesBehind();
        EXPECT_EQ(states["19"], "2");  // source: one
        EXPECT_EQ(states["20"], "1");  // destination: zero
        EXPECT_EQ(states["27"], "0");  // off
        EXPECT_TRUE(!states.contains("171") || states["171"] == "1");
    }
}

TEST_F(BlendedDrawing, DoesNotTouchTheNextElement) {
    const Integer tree = player.build.Sprite("tree", 20, 60);
    Hill(kSub);
    player.build.StillAt(tree, 0, 0).mask = 1;
    player.build.StillAt(tree, 0, 0);
    player.build.StillAt(tree, 0, 0).blending = kAdd;
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
        ExpectError(RunTimeErrorKind::Direct3D, [&] { player.DrawFirst(kWithAdditions); });
    }
}

// --- copies, rows, windows ---

TEST_F(BlendedDrawing, EachCopyDarkensAndAddsBeforeTheNext) {
    Tiled(Hill(kAdd1), 2, 0, 10);
    EXPECT_EQ(Draw(), (Lines{"hill 10,20 50x40 masked in 80000000", "hill 10,20 50x40 added",
                             "hill 70,20 50x40 masked in 80000000", "hill 70,20 50x40 added"}));
}

TEST_F(BlendedDrawing, BothQuadsAreCutToTheWindow) {
    Windowed(Hill(AddAlpha(256, 0)), 15, 0, 24, 39);
    EXPECT_EQ(Draw(), (Lines{"hill 15,20 10x20 from 5,0 masked in FF000000",
                             "hill 15,20 10x20 from 5,0 added"}));
}

TEST_F(BlendedDrawing, RowsOfParallaxPicturesAreBlendedOneByOne) {
    const Integer floor = player.build.Sprite("floor", 100, 2);
    player.build.ParallaxAt(floor, 10, 20).blending = kAdd1;
    EXPECT_EQ(Draw(), (Lines{"floor 10,20 100x1 masked in 80000000", "floor 10,20 100x1 added",
                             "floor 10,21 100x1 from 0,1 masked in 80000000",
                             "floor 10,21 100x1 from 0,1 added"}));
}

// --- frames ---

TEST_F(BlendedDrawing, AnElementsGoesBeforeThatOfItsFrames) {
    Animation({{hill, 1}, {hill, 1}}, {{}, kSub}).blending = kAdd;
    player.Start();
    EXPECT_EQ(player.BackPass(), (Lines{"hill 10,20 50x40 added"}));
    EXPECT_EQ(player.BackPass(), (Lines{"hill 10,20 50x40 added"}));
}

TEST_F(BlendedDrawing, AFrameMayBlendWhereItsElementDoesNot) {
    Masked(
        Animation({{hill, 1}, {hill, 1}, {hill, 1, 0, 0, "h"}}, {AddAlpha(100, 256), {}, kAdd1}));
    player.Start();
    EXPECT_EQ(player.BackPass(), (Lines{"hill 10,20 50x40 added in 64FFFFFF"}));
    EXPECT_EQ(player.BackPass(), (Lines{"hill 10,20 50x40 masked"}));
    EXPECT_EQ(player.BackPass(), (Lines{"hill -40,20 50x40 mirrored masked in 80000000",
                                        "hill -40,20 50x40 mirrored added"}));
}

// trans = none of version 1.0 and later.
TEST_F(BlendedDrawing, AnElementMayKeepItsFramesFromBlending) {
    Masked(Animation({{hill, 1}}, {kAdd})).framesBlend = 0;
    EXPECT_EQ(Draw(), (Lines{"hill 10,20 50x40 masked"}));
}

TEST_F(BlendedDrawing, AFramesOwnIsNoneInAPlainView) {
    Masked(Animation({{hill, 1}}, {kAdd}));
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
}  // namespace scenara::test
