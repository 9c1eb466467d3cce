// SPDX-License-Identifier: MIT
//
// Frames with every addition in them allocate nothing; absurd numbers raise nothing and ask the
// device for no more than a bounded number of quads.
#include <array>
#include <cstddef>
#include <iterator>
#include <limits>
#include <random>
#include <string>

#include <gtest/gtest.h>

#include "render/StagePlayer.h"
#include "render/Tiling.h"
#include "stage/StageScale.h"
#include "support/AllocationCount.h"

namespace scenara {
namespace {

using test::AllocationCount;
using test::StageBuilder;
using test::StagePlayer;

constexpr Blending kBlendings[] = {{BlendKind::None},
                                   {BlendKind::Add},
                                   {BlendKind::Add1},
                                   {BlendKind::Sub},
                                   {BlendKind::AddAlpha, 100, 200}};

TEST(AdditionsBusyFrame, AllocatesNothing) {
    StagePlayer player(ViewOptions{true});
    StageBuilder& build = player.build;
    const Integer hill = build.Sprite("hill", 50, 40, 25, 39);
    const Integer action =
        build.Action({{hill, 2}, {hill, 2, 3, 4, "hv"}, {hill, 2, 3, 4, "v"}, {-1, 1}});
    player.model.Actions[0].frames[1].blending = kBlendings[3];
    for (const Blending& blending : kBlendings) {
        BackgroundElement& tiled = build.Still(hill);
        tiled.tileX = 1;
        tiled.blending = blending;
        tiled.sinState = {10, 20, 0};
        BackgroundElement& floor = build.Parallax(hill);
        floor.xscaleTop = 1;
        floor.xscaleBottom = 2;
        floor.yscaleDelta = 0.5F;
        floor.blending = blending;
        floor.windowX2 = 200;
        floor.windowY2 = 200;
        floor.windowDeltaX = 1;
        floor.windowActive = 1;
        build.Animation(action).blending = blending;
    }
    player.model.hires = 1;
    ApplyStageScale(player.model, player.picture);
    player.flags.Deform = kByteTrue;
    player.Start();
    player.record.SetWriting(false);

    const std::size_t before = AllocationCount();
    for (int frame = 0; frame < 200; ++frame) {
        player.keyboard.Press(frame < 100 ? VirtualKey::Right : VirtualKey::Up);
        DrawScene(player.engine, player.tiles, player.flags);
    }
    const std::size_t after = AllocationCount();

    EXPECT_EQ(after, before);
    EXPECT_GT(player.record.DrawnCount(), 200U * 30);
}

// Small numbers more often than not, and else any.
class Absurd {
public:
    explicit Absurd(unsigned seed) : random_(seed) {}

    std::size_t Below(std::size_t end) {
        return std::uniform_int_distribution<std::size_t>(0, end - 1)(random_);
    }
    Single Number() {
        constexpr std::array<Single, 10> kOdd{0.0F, -0.0F, 1e-45F, 3.4e38F, -3.4e38F,
                                              1e9F, -1e9F, 1e-10F, -1.0F,   100.0F};
        return Below(6) == 0 ? kOdd.at(Below(kOdd.size()))
                             : static_cast<Single>(Below(4001)) / 8 - 250;
    }
    // Of 16 bits.
    Integer Small() {
        constexpr std::array<Integer, 4> kOdd{32767, -32768, 0, -1};
        return Below(8) == 0 ? kOdd.at(Below(kOdd.size())) : static_cast<Integer>(Below(200));
    }
    Long Whole() {
        constexpr std::array<Long, 6> kOdd{
            0, 1, -1, 999999, std::numeric_limits<Long>::min(), std::numeric_limits<Long>::max()};
        return Below(6) == 0 ? kOdd.at(Below(kOdd.size())) : static_cast<Long>(Below(601)) - 300;
    }

private:
    std::mt19937 random_;
};

void AddAbsurdElement(Absurd& absurd, StagePlayer& player, Integer sprite) {
    constexpr std::array<const char*, 3> kTypes{"normal", "parallax", "anim"};
    BackgroundElement& element = player.build.Still(sprite);
    element.type = kTypes.at(absurd.Below(kTypes.size()));
    element.startX = absurd.Whole();
    element.startY = absurd.Whole();
    element.deltaX = absurd.Number();
    element.deltaY = absurd.Number();
    element.tileX = static_cast<Long>(absurd.Below(4));
    element.tileY = static_cast<Long>(absurd.Below(4));
    element.tileSpacingX = absurd.Whole();
    element.tileSpacingY = absurd.Whole();
    element.velocityX = absurd.Number();
    element.sinState = {absurd.Number(), absurd.Number(), absurd.Number()};
    element.windowX1 = absurd.Number();
    element.windowX2 = absurd.Number();
    element.windowY1 = absurd.Number();
    element.windowY2 = absurd.Number();
    element.windowActive = absurd.Below(4) == 0 ? 1 : 0;
    element.windowDeltaX = absurd.Number();
    element.windowDeltaY = absurd.Number();
    element.xscaleTop = absurd.Number();
    element.xscaleBottom = absurd.Number();
    element.yscaleStart = absurd.Number();
    element.yscaleDelta = absurd.Number();
    element.blending = kBlendings[absurd.Below(std::size(kBlendings))];
}

// As of plain stages (AbsurdStages_test.cpp), and two quads for each piece.
constexpr std::size_t kMostQuadsOfAnElement = 2 * (kDeepest + 320) * 240;
constexpr std::size_t kElements = 5;

void MakeAbsurdStage(Absurd& absurd, StagePlayer& player) {
    constexpr std::array<Long, 6> kHeights{0, 120, 240, 333, 480, 7680};
    constexpr std::array<const char*, 4> kFlips{"", "h", "v", "hv"};
    player.record.SetWriting(false);
    const auto size = static_cast<Integer>(absurd.Below(4) == 0 ? 32767 : absurd.Below(300) + 1);
    const Integer sprite = player.build.Sprite("s", size, size, absurd.Small(), absurd.Small());
    player.model.Sprites[0].fileWidth = size;
    player.model.Sprites[0].fileHeight = 32767;
    player.build.Action(
        {{sprite, -1, absurd.Small(), absurd.Small(), kFlips.at(absurd.Below(kFlips.size()))}});
    for (std::size_t i = 0; i < kElements; ++i) {
        AddAbsurdElement(absurd, player, sprite);
    }
    player.model.CamStartX = absurd.Number();
    player.model.CamStartY = static_cast<Integer>(absurd.Small() / -2);
    player.model.BoundLeft = absurd.Whole();
    player.model.BoundRight = absurd.Whole();
    player.model.hires = static_cast<Integer>(absurd.Below(2));
    player.model.localcoordWidth = absurd.Whole();
    player.model.localcoordHeight = kHeights.at(absurd.Below(kHeights.size()));
    ApplyStageScale(player.model, player.picture);
    player.flags.Deform = kByteTrue;
    player.Start();
}

class AbsurdAdditions : public testing::TestWithParam<unsigned> {};

TEST_P(AbsurdAdditions, AreDrawnWithinBounds) {
    Absurd absurd(GetParam());
    StagePlayer player(ViewOptions{true});
    MakeAbsurdStage(absurd, player);
    for (int frame = 0; frame < 6; ++frame) {
        player.keyboard.Hold({VirtualKey::Right, VirtualKey::Up});
        const std::size_t before = player.record.DrawnCount();
        DrawScene(player.engine, player.tiles, player.flags);
        ASSERT_LE(player.record.DrawnCount() - before, kElements * kMostQuadsOfAnElement);
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, AbsurdAdditions, testing::Range(1U, 201U));

// The stages are not all empty or out of sight, so that the test above sees something.
TEST(AbsurdAdditionsOfAllSeeds, ShowSomethingMoreOftenThanNot) {
    int shown = 0;
    for (unsigned seed = 1; seed <= 40; ++seed) {
        Absurd absurd(seed);
        StagePlayer player(ViewOptions{true});
        MakeAbsurdStage(absurd, player);
        DrawScene(player.engine, player.tiles, player.flags);
        shown += player.record.DrawnCount() > 0 ? 1 : 0;
    }
    EXPECT_GT(shown, 15);
}

}  // namespace
}  // namespace scenara
