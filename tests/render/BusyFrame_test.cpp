// SPDX-License-Identifier: MIT
//
// Frames of stages with everything in them, and with every addition, allocate nothing.
#include <cstddef>

#include <gtest/gtest.h>

#include "render/StagePlayer.h"
#include "support/AllocationCount.h"

namespace scenara::test {
namespace {

void AddElements(StagePlayer& player) {
    StageBuilder& build = player.build;
    const Integer sky = build.Sprite("sky", 320, 240);
    const Integer hill = build.Sprite("hill", 50, 40, 25, 39);
    const Integer floor = build.Sprite("floor", 100, 30);
    build.StillAt(sky, 0, 0);
    Tiled(Drifting(Swinging(Masked(build.Still(hill)), 8, 10), 0.5F, 0), 1, 3).deltaX = 0.5F;
    Linked(build.Still(hill)).layerno = 1;
    Tiled(Sheared(Masked(build.ParallaxAt(floor, 0, 200)), 1, 2), 1, 0);
    const Integer action = build.Action({{hill, 3}, {-1, 0}, {hill, 2, 4, 5, "h"}, {-1, 1}}, 1, 1);
    build.Action({{floor, -1}}, 0, 2);
    BackgroundElement& fire = StageBuilder::At(Masked(build.Animation(action)), 100, 100);
    Windowed(fire, 0, 0, 200, 120).layerno = -1;
    fire.id = 7;
    build.Dummy();
    build.Still(-1).id = 7;
}

void AddControls(StagePlayer& player) {
    BgCtrlDef& group = player.build.Group(17, {7});
    WithValue(During(AddControl(group, "visible"), 3, 3), 0);
    WithValue(During(AddControl(group, "visible"), 5, 5), 1);
    WithValue(During(AddControl(group, "enable"), 6, 6), 0);
    WithValue(During(AddControl(group, "enable"), 7, 7), 1);
    WithValue(During(AddControl(group, "anim"), 9, 9), 2);
    WithValue(During(AddControl(group, "anim"), 12, 12), 1);
    WithValue(During(AddControl(group, "anim"), 13, 13), 12345);
    WithY(WithX(During(AddControl(group, "velset"), 0, 0), 1), 0);
    WithY(WithX(During(AddControl(group, "veladd"), 1, 4), 0.5F), 0.5F);
    WithY(WithX(During(AddControl(group, "posset"), 16, 16), 0), 0);
    BgCtrlDef& others = player.build.Group();
    WithX(During(On(AddControl(others, "posadd"), {-1, 7, 7, 99}), 0, 9, 10), 1);
    WithValues(During(AddControl(others, "sinx"), 0, 0, 40), 5, 6);
    WithValues(During(AddControl(others, "siny"), 4, 4, 40), 5, 6);
    During(AddControl(others, "null"), 0, 1000);
}

void AddAdditions(StagePlayer& player) {
    StageBuilder& build = player.build;
    const Integer hill = build.Sprite("hill", 50, 40, 25, 39);
    const Integer action =
        build.Action({{hill, 2}, {hill, 2, 3, 4, "hv"}, {hill, 2, 3, 4, "v"}, {-1, 1}});
    player.model.Actions[0].frames[1].blending = {BlendKind::Sub};
    for (const Blending& blending :
         {Blending{}, Blending{BlendKind::Add}, Blending{BlendKind::Add1}, Blending{BlendKind::Sub},
          Blending{BlendKind::AddAlpha, 100, 200}}) {
        BackgroundElement& tiled = Tiled(build.Still(hill), 1, 0);
        tiled.blending = blending;
        tiled.sinState = {10, 20, 0};
        BackgroundElement& floor = Windowed(Sheared(build.Parallax(hill), 1, 2), 0, 0, 200, 200);
        floor.yscaleDelta = 0.5F;
        floor.blending = blending;
        floor.windowDeltaX = 1;
        build.Animation(action).blending = blending;
    }
    // Not so far that the pictures leave the view.
    player.model.BoundRight = 200;
    player.model.BoundHigh = -100;
    player.model.hires = 1;
    player.model.StageYScale = 1.5F;
}

void ExpectNoAllocationInFrames(StagePlayer& player, std::size_t fewestQuads) {
    player.Start();
    player.record.SetWriting(false);
    const std::size_t before = AllocationCount();
    for (int frame = 0; frame < 200; ++frame) {
        player.clock.now += 16;
        player.keyboard.Press(VirtualKey::A);
        player.keyboard.Press(frame < 100 ? VirtualKey::Right : VirtualKey::Up);
        player.flags.MouseScroll = frame > 150 ? kByteTrue : Byte{0};
        DrawScene(player.engine, player.tiles, player.flags);
        PresentFrame(player.engine, "Cam 12.5,0  60 FPS");
    }
    const std::size_t after = AllocationCount();
    EXPECT_EQ(after, before);
    EXPECT_GT(player.record.DrawnCount(), 200 * fewestQuads);
}

TEST(BusyFrame, AllocatesNothing) {
    StagePlayer player;
    AddElements(player);
    AddControls(player);
    ExpectNoAllocationInFrames(player, 15);
}

TEST(BusyFrame, WithAdditionsAllocatesNothing) {
    StagePlayer player(ViewOptions{true});
    AddAdditions(player);
    ExpectNoAllocationInFrames(player, 30);
}

}  // namespace
}  // namespace scenara::test
