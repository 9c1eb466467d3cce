// SPDX-License-Identifier: MIT
//
// Frames of a stage with everything in it allocate nothing.
#include <cstddef>

#include <gtest/gtest.h>

#include "render/StagePlayer.h"
#include "support/AllocationCount.h"

namespace scenara {
namespace {

using test::AddControl;
using test::AllocationCount;
using test::During;
using test::On;
using test::StageBuilder;
using test::StagePlayer;
using test::WithValue;
using test::WithValues;
using test::WithX;
using test::WithY;

void AddElements(StagePlayer& player) {
    StageBuilder& build = player.build;
    const Integer sky = build.Sprite("sky", 320, 240);
    const Integer hill = build.Sprite("hill", 50, 40, 25, 39);
    const Integer floor = build.Sprite("floor", 100, 30);
    StageBuilder::At(build.Still(sky), 0, 0);
    BackgroundElement& hills = build.Still(hill);
    hills.mask = 1;
    hills.tileX = 1;
    hills.tileY = 3;
    hills.velocityX = 0.5F;
    hills.sinYAmplitude = 8;
    hills.sinYPeriod = 10;
    hills.deltaX = 0.5F;
    BackgroundElement& flag = build.Still(hill);
    flag.positionlink = 1;
    flag.layerno = 1;
    BackgroundElement& ground = StageBuilder::At(build.Parallax(floor), 0, 200);
    ground.xscaleTop = 1;
    ground.xscaleBottom = 2;
    ground.tileX = 1;
    ground.mask = 1;
    const Integer action = build.Action({{hill, 3}, {-1, 0}, {hill, 2, 4, 5, "h"}, {-1, 1}}, 1, 1);
    build.Action({{floor, -1}}, 0, 2);
    BackgroundElement& fire = StageBuilder::At(build.Animation(action), 100, 100);
    fire.mask = 1;
    fire.layerno = -1;
    fire.id = 7;
    fire.windowX2 = 200;
    fire.windowY2 = 120;
    fire.windowActive = 1;
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

TEST(BusyFrame, AllocatesNothing) {
    StagePlayer player;
    AddElements(player);
    AddControls(player);
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
    EXPECT_GT(player.record.DrawnCount(), 200U * 15);
}

}  // namespace
}  // namespace scenara
