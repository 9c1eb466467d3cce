// SPDX-License-Identifier: MIT
//
// The order in which the pieces of a frame reach the device.
#include "render/Frame.h"

#include <utility>

#include <gtest/gtest.h>

#include "render/ExpectError.h"
#include "render/StagePlayer.h"

namespace scenara::test {
namespace {

class FrameTest : public testing::Test {
protected:
    FrameTest() {
        player.build.StillAt(player.build.Sprite("back", 320, 240), 0, 0);
        Masked(player.build.StillAt(player.build.Sprite("front", 50, 40), 10, 20)).layerno = 1;
        player.Start();
    }
    void Scene() { DrawScene(player.engine, player.tiles, player.flags); }

    StagePlayer player;
};

TEST_F(FrameTest, BeginsDrawsBothLayersAndEndsTheScene) {
    Scene();
    EXPECT_EQ(
        player.record.TakeLines(),
        (Lines{"BeginScene", "SetTexture 0 back", "DrawPrimitiveUP 5 2 32", "quad back 0,0 320x240",
               "SetRenderState 19 5", "SetRenderState 20 6", "SetRenderState 27 1",
               "SetTexture 0 front", "DrawPrimitiveUP 5 2 32", "quad front 10,20 50x40 masked",
               "SetRenderState 27 0", "SetRenderState 19 2", "SetRenderState 20 1", "EndScene"}));
    EXPECT_EQ(player.flags.DrawFrontLayer, kByteTrue);
}

TEST_F(FrameTest, IsTheSameEveryTime) {
    Scene();
    const Lines first = player.record.TakeLines();
    player.flags.DrawFrontLayer = kByteTrue;
    Scene();
    EXPECT_EQ(player.record.TakeLines(), first);
}

TEST_F(FrameTest, TheInformationLineIsInTheBackBufferWhileItIsShownOnly) {
    Scene();
    static_cast<void>(player.record.TakeLines());
    PresentFrame(player.engine, "Cam 12.5,0  60 FPS");
    EXPECT_EQ(
        player.record.TakeLines(),
        (Lines{"GetBackBuffer 0 0", "CopyRects BackBuffer 5 5 205 25 to Image 0 0",
               "DrawText 'Cam 12.5,0  60 FPS' in 5 5 205 25, color and format 4294967295 0",
               "Present", "GetBackBuffer 0 0", "CopyRects Image 0 0 200 20 to BackBuffer 5 5"}));
}

TEST_F(FrameTest, WithAdditionsTheInformationLineHasRoomForMore) {
    PresentFrame(player.engine, "Cam 12.5,0  Zoom 0.8  60 FPS", true);
    EXPECT_THAT(player.record.TakeLines(),
                testing::Contains("CopyRects Image 0 0 310 20 to BackBuffer 5 5"));
}

TEST_F(FrameTest, TheInformationLineGoesAlsoWhenItCannotBeShown) {
    player.record.AnswerAlways("Present", D3DERR_DEVICELOST);
    PresentFrame(player.engine, "Cam");
    EXPECT_EQ(player.record.TakeLines().back(), "CopyRects Image 0 0 200 20 to BackBuffer 5 5");
}

TEST_F(FrameTest, OfAStageWithoutElementsIsAnEmptyScene) {
    player.model.Elements.clear();
    Scene();
    EXPECT_EQ(player.record.TakeLines(), (Lines{"BeginScene", "EndScene"}));
}

// No text without the information line; and the device's status is asked for by others.
TEST_F(FrameTest, PresentIsOneCallAndMayFail) {
    player.record.AnswerAlways("Present", D3DERR_DEVICELOST);
    PresentFrame(player.engine);
    PresentFrame(player.engine);
    EXPECT_EQ(player.record.TakeLines(), (Lines{"Present", "Present"}));
}

TEST_F(FrameTest, AnyFailingCallOfTheSceneIsAnError) {
    for (const char* const call : {"DrawPrimitiveUP", "EndScene"}) {
        player.record.Spoil(call, Record::Trouble::Fails);
        ExpectError(RunTimeErrorKind::Direct3D, [&] { Scene(); });
    }
    static_cast<void>(player.record.TakeLines());
    player.record.Spoil("BeginScene", Record::Trouble::Fails);
    ExpectError(RunTimeErrorKind::Direct3D, [&] { Scene(); });
    EXPECT_EQ(player.record.TakeLines(), (Lines{"BeginScene"})) << "and draws nothing";
}

TEST_F(FrameTest, AnInformationLineThatCannotBeDrawnIsAnError) {
    for (const char* const call : {"GetBackBuffer", "CopyRects", "DrawText"}) {
        player.record.Spoil(call, Record::Trouble::Fails);
        ExpectError(RunTimeErrorKind::Direct3D, [&] { PresentFrame(player.engine, "Cam"); });
    }
    player.record.Spoil("GetBackBuffer", Record::Trouble::GivesNothing);
    ExpectError(RunTimeErrorKind::Direct3D, [&] { PresentFrame(player.engine, "Cam"); });
}

// The device has been lost meanwhile, which the next pass finds out.
TEST_F(FrameTest, AnInformationLineThatCannotBeTakenAwayIsNone) {
    using Trouble = Record::Trouble;
    for (const auto& [call, trouble] : {std::pair{"GetBackBuffer", Trouble::Fails},
                                        {"GetBackBuffer", Trouble::GivesNothing},
                                        {"CopyRects", Trouble::Fails}}) {
        player.record.Spoil(call, trouble, 2);
        PresentFrame(player.engine, "Cam");
    }
}

TEST_F(FrameTest, WithoutADeviceIsAnErrorAndMovesNothing) {
    player.Element(0).velocityX = 1;
    player.engine.Engine_Deinit();
    ExpectError(RunTimeErrorKind::ObjectNotSet, [&] { Scene(); });
    ExpectError(RunTimeErrorKind::ObjectNotSet, [&] { PresentFrame(player.engine, "Cam"); });
    EXPECT_EQ(player.Element(0).posX, 0);
}

}  // namespace
}  // namespace scenara::test
