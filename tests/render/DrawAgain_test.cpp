// SPDX-License-Identifier: MIT
//
// A scene that is drawn again as it stands, for a stage that is edited while it is paused.
#include <cstddef>
#include <string>

#include <gtest/gtest.h>

#include "render/ExpectError.h"
#include "render/Frame.h"
#include "render/StagePlayer.h"
#include "stage/ModelText.h"
#include "support/AllocationCount.h"

namespace scenara::test {
namespace {

// A floor that leads a tree, a fire and a cloud in front, all of them on the move.
class DrawnAgain : public testing::Test {
protected:
    DrawnAgain() {
        StageBuilder& build = player.build;
        Drifting(Swinging(build.StillAt(build.Sprite("floor", 30, 10), 40, 100), 8, 2), 3, 0);
        Linked(build.Still(build.Sprite("tree", 10, 20)));
        const Integer first = build.Sprite("first", 10, 10);
        const Integer second = build.Sprite("second", 10, 10);
        build.Animation(build.Action({{first, 1}, {second, 1}}));
        BackgroundElement& cloud =
            Drifting(build.StillAt(build.Sprite("cloud", 20, 10), 100, 30), 1, 0);
        cloud.layerno = -1;
        cloud.id = 5;
        WithX(During(AddControl(build.Group(0, {5}), "posadd"), 0, 100), 1);
        player.model.BoundRight = 100;
        player.Start();
    }
    Lines Again() {
        DrawSceneAgain(player.engine, player.tiles, player.flags);
        return player.record.TakeQuads();
    }

    // All that could move.
    [[nodiscard]] std::string MovingText() const {
        return FieldsText(player.model) + TableText("elements", player.model.Elements) +
               TableText("controls", player.model.CtrlDefs);
    }

    StagePlayer player{ViewOptions()};
};

TEST_F(DrawnAgain, IsWhatTheNextFrameBeginsWith) {
    player.Frames(2);
    // All have moved on since the second one, the tree with the floor.
    EXPECT_EQ(Again(), (Lines{"floor 46,100 30x10", "tree 46,100 10x20", "second 160,0 10x10",
                              "cloud 104,30 20x10", "cloud 104,30 20x10"}));
}

TEST_F(DrawnAgain, IsTheSameEveryTimeAndMovesNothing) {
    player.keyboard.Hold({VirtualKey::Right, VirtualKey::A});
    player.Frames(3);
    const Lines shown = Again();
    const std::string before = MovingText();
    const Camera camera = player.camera;
    for (int i = 0; i < 5; ++i) {
        player.clock.now += 1000;
        EXPECT_EQ(Again(), shown);
    }
    EXPECT_EQ(MovingText(), before);
    EXPECT_EQ(player.camera.previousX, camera.previousX);
    EXPECT_EQ(player.camera.HCamStep, camera.HCamStep);
}

TEST_F(DrawnAgain, ShowsWhereAnElementHasBeenPut) {
    player.Frames(1);
    static_cast<void>(Again());
    player.Element(3).startX = 7 - 160;
    player.Element(3).startY = 9;
    player.Element(3).motion = {};
    EXPECT_EQ(Again().back(), "cloud 7,9 20x10");
    player.Element(3).visible = 0;
    EXPECT_EQ(Again().size(), 3U);
}

TEST_F(DrawnAgain, IsASceneOfItsOwn) {
    player.model.Elements.clear();
    DrawSceneAgain(player.engine, player.tiles, player.flags);
    EXPECT_EQ(player.record.TakeLines(), (Lines{"BeginScene", "Clear 1 4278190080", "EndScene"}));
    EXPECT_EQ(player.flags.DrawFrontLayer, kByteTrue);
    player.record.AnswerAlways("BeginScene", D3DERR_DEVICELOST);
    ExpectError(RunTimeErrorKind::Direct3D, [&] { static_cast<void>(Again()); });
}

TEST_F(DrawnAgain, AllocatesNothing) {
    player.Frames(1);
    player.record.SetWriting(false);
    const std::size_t before = AllocationCount();
    DrawSceneAgain(player.engine, player.tiles, player.flags);
    EXPECT_EQ(AllocationCount(), before);
}

}  // namespace
}  // namespace scenara::test
