// SPDX-License-Identifier: MIT
//
// How the engine's device begins, is lost and reset, and goes.
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "render/Engine.h"
#include "render/ExpectError.h"
#include "render/StagePlayer.h"

namespace scenara::test {
namespace {

// Windowed, copy swap effect, the display's format; all else 0.
const char* const kPresentation = "320 240 23 0 0 3 0 1 0 0 0 0 0";

const Lines kStartStates{
    "SetVertexShader 452", "SetRenderState 137 0", "SetRenderState 19 2",
    "SetRenderState 20 1", "SetRenderState 27 0",  "SetTextureStageState 0 4 4",
};

const Lines kShutDown{"~Image", "~Font", "~Device", "~D3DX", "~Direct3D", "~DirectX"};

Lines operator+(Lines a, const Lines& b) {
    a.insert(a.end(), b.begin(), b.end());
    return a;
}

TEST(EngineStart, MakesEverythingInItsOrder) {
    StagePlayer player;
    EXPECT_FALSE(player.engine.HasDevice());
    player.engine.Engine_Init();
    EXPECT_TRUE(player.engine.HasDevice());
    const Lines made{
        "CreateDirectX8",
        "Direct3DCreate",
        "CreateD3DX8",
        "GetAdapterDisplayMode 0",
        "Show",
        std::string("CreateDevice 0 1 1 32 with ") + kPresentation,
        "CreateFont Times New Roman 12 bold",
        "CreateImageSurface 200 20 23",
    };
    EXPECT_EQ(player.record.TakeLines(), made + kStartStates);
    EXPECT_TRUE(player.messages.Recorded().empty());
}

TEST(EngineStart, EngineInitGfxSetsTheStatesInTheirOrder) {
    StagePlayer player;
    player.engine.Engine_Init();
    static_cast<void>(player.record.TakeLines());
    player.engine.Engine_Init_Gfx();
    EXPECT_EQ(player.record.TakeLines(), kStartStates);
}

TEST(EngineStart, ASecondStartReleasesTheFirstDeviceBefore) {
    StagePlayer player;
    player.engine.Engine_Init();
    static_cast<void>(player.record.TakeLines());
    player.engine.Engine_Init();
    Lines lines = player.record.TakeLines();
    ASSERT_GT(lines.size(), kShutDown.size());
    lines.resize(kShutDown.size() + 1);
    EXPECT_EQ(lines, kShutDown + Lines{"CreateDirectX8"});
    EXPECT_TRUE(player.engine.HasDevice());
}

struct FailingStep {
    const char* call;
    int nth;
    Record::Trouble trouble;
    bool shown;   // the window, by then
    Lines going;  // of what was made by then
};

void PrintTo(const FailingStep& step, std::ostream* out) {
    *out << step.call << " " << step.nth << " " << static_cast<int>(step.trouble);
}

class EngineStartStep : public testing::TestWithParam<FailingStep> {};

TEST_P(EngineStartStep, LeavesNothingAndSaysSoOnce) {
    const FailingStep& step = GetParam();
    StagePlayer player;
    const Integer sky = player.build.Sprite("sky", 64, 32);
    player.record.Spoil(step.call, step.trouble, step.nth);
    player.engine.Engine_Init();

    EXPECT_FALSE(player.engine.HasDevice());
    Lines going;
    for (const std::string& line : player.record.TakeLines()) {
        if (line.starts_with("~")) {
            going.push_back(line);
        }
    }
    EXPECT_EQ(going, step.going);
    EXPECT_EQ(player.window.ShowCount(), step.shown ? 1U : 0U);
    ASSERT_EQ(player.messages.Recorded().size(), 1U);
    EXPECT_EQ(player.messages.Recorded().front().kind, kMessageEngineInit);

    ExpectError(RunTimeErrorKind::ObjectNotSet,
                [&] { player.engine.D3DBlt(nullptr, sky, 0, 0, 64, 32, 0, 0); });
    EXPECT_EQ(player.record.TakeLines(), Lines());

    // What went wrong need not stay so.
    player.engine.Engine_Init();
    EXPECT_TRUE(player.engine.HasDevice());
    EXPECT_EQ(player.messages.Recorded().size(), 1U);
}

const Lines kUpToRoot{"~DirectX"};
const Lines kUpToDirect3D{"~Direct3D", "~DirectX"};
const Lines kUpToD3DX{"~D3DX", "~Direct3D", "~DirectX"};
const Lines kUpToFont{"~Font", "~Device", "~D3DX", "~Direct3D", "~DirectX"};
const Lines kUpToDevice{"~Device", "~D3DX", "~Direct3D", "~DirectX"};

constexpr auto kFails = Record::Trouble::Fails;
constexpr auto kGivesNothing = Record::Trouble::GivesNothing;
constexpr auto kNoMemory = Record::Trouble::NoMemory;

INSTANTIATE_TEST_SUITE_P(
    Fails, EngineStartStep,
    testing::Values(FailingStep{"CreateDirectX8", 1, kFails, false, {}},
                    FailingStep{"Direct3DCreate", 1, kFails, false, kUpToRoot},
                    FailingStep{"CreateD3DX8", 1, kFails, false, kUpToDirect3D},
                    FailingStep{"GetAdapterDisplayMode", 1, kFails, false, kUpToD3DX},
                    FailingStep{"CreateDevice", 1, kFails, true, kUpToD3DX},
                    FailingStep{"CreateFont", 1, kFails, true, kUpToDevice},
                    FailingStep{"CreateImageSurface", 1, kFails, true, kUpToFont},
                    FailingStep{"SetVertexShader", 1, kFails, true, kShutDown},
                    FailingStep{"SetRenderState", 1, kFails, true, kShutDown},
                    FailingStep{"SetRenderState", 2, kFails, true, kShutDown},
                    FailingStep{"SetRenderState", 3, kFails, true, kShutDown},
                    FailingStep{"SetRenderState", 4, kFails, true, kShutDown},
                    FailingStep{"SetTextureStageState", 1, kFails, true, kShutDown}));

// A machine that says that all is well and gives no object.
INSTANTIATE_TEST_SUITE_P(
    GivesNothing, EngineStartStep,
    testing::Values(FailingStep{"CreateDevice", 1, kGivesNothing, true, kUpToD3DX},
                    FailingStep{"CreateFont", 1, kGivesNothing, true, kUpToDevice},
                    FailingStep{"CreateImageSurface", 1, kGivesNothing, true, kUpToFont}));

INSTANTIATE_TEST_SUITE_P(RunsOutOfMemory, EngineStartStep,
                         testing::Values(FailingStep{"CreateDirectX8", 1, kNoMemory, false, {}},
                                         FailingStep{"CreateDevice", 1, kNoMemory, true, kUpToD3DX},
                                         FailingStep{"CreateFont", 1, kNoMemory, true, kUpToDevice},
                                         FailingStep{"SetTextureStageState", 1, kNoMemory, true,
                                                     kShutDown}));

TEST(EngineStart, TheMessageNamesTheStep) {
    StagePlayer player;
    player.record.Spoil("CreateDevice", kFails, 1, D3DERR_NOTAVAILABLE);
    player.engine.Engine_Init();
    ASSERT_EQ(player.messages.Recorded().size(), 1U);
    const std::string& text = player.messages.Recorded().front().text;
    EXPECT_NE(text.find("CreateDevice, 0x8876086a"), std::string::npos) << text;
}

TEST(EngineStart, AFailedRestartLeavesNothingOfTheFirstStart) {
    StagePlayer player;
    player.engine.Engine_Init();
    player.record.Spoil("CreateDirectX8", kFails);
    player.engine.Engine_Init();
    EXPECT_FALSE(player.engine.HasDevice());
    EXPECT_EQ(player.messages.Recorded().size(), 1U);
}

TEST(EngineWithoutADevice, EveryOperationThatNeedsOneIsAnError) {
    StagePlayer player;
    const Integer sky = player.build.Sprite("sky", 64, 32);
    Engine& engine = player.engine;
    constexpr auto kNotSet = RunTimeErrorKind::ObjectNotSet;
    ExpectError(kNotSet, [&] { engine.D3DBlt(nullptr, sky, 0, 0, 64, 32, 0, 0); });
    ExpectError(kNotSet, [&] { engine.D3DBltFlip(nullptr, sky, 0, 0, 64, 32, 0, 0); });
    ExpectError(kNotSet, [&] { engine.DrawQuad(); });
    ExpectError(kNotSet, [&] { engine.Draw_Text(5, 5, 200, 20, "Cam", -1, 0); });
    ExpectError(kNotSet, [&] { engine.Keep({0, 0, 1, 1}); });
    ExpectError(kNotSet, [&] { engine.PutBack(); });
    ExpectError(kNotSet, [&] { engine.Engine_Init_Gfx(); });
    ExpectError(kNotSet, [&] { static_cast<void>(engine.Engine_Device_Status()); });
    ExpectError(kNotSet, [&] { static_cast<void>(engine.Engine_Device_Reset()); });
    ExpectError(kNotSet, [&] { static_cast<void>(engine.Device()); });
    EXPECT_EQ(player.record.TakeLines(), Lines());
}

TEST(EngineShutDown, ReleasesInItsOrder) {
    StagePlayer player;
    player.engine.Engine_Init();
    static_cast<void>(player.record.TakeLines());
    player.engine.Engine_Deinit();
    EXPECT_EQ(player.record.TakeLines(), kShutDown);
    EXPECT_FALSE(player.engine.HasDevice());
}

TEST(EngineShutDown, IsWithoutEffectWhenThereIsNothing) {
    StagePlayer player;
    player.engine.Engine_Deinit();
    player.engine.Engine_Init();
    player.engine.Engine_Deinit();
    static_cast<void>(player.record.TakeLines());
    player.engine.Engine_Deinit();
    EXPECT_EQ(player.record.TakeLines(), Lines());
}

TEST(EngineShutDown, ADeviceCanBeMadeAfterIt) {
    StagePlayer player;
    const Integer sky = player.build.Sprite("sky", 64, 32);
    player.engine.Engine_Init();
    player.engine.Engine_Deinit();
    player.engine.Engine_Init();
    static_cast<void>(player.record.TakeLines());
    player.engine.D3DBlt(nullptr, sky, 1, 2, 64, 32, 0, 0);
    EXPECT_EQ(player.record.TakeQuads(), (Lines{"sky 1,2 64x32"}));
}

class EngineReset : public testing::Test {
protected:
    EngineReset() {
        player.engine.Engine_Init();
        static_cast<void>(player.record.TakeLines());
    }
    StagePlayer player;
};

const Lines kReset{std::string("Reset ") + kPresentation};
const Lines kResetStates{"SetVertexShader 452", "SetRenderState 137 0", "SetRenderState 27 1",
                         "SetRenderState 19 5", "SetRenderState 20 6"};

TEST_F(EngineReset, LeavesBlendingOn) {
    EXPECT_EQ(player.engine.Engine_Device_Reset(), 0);
    EXPECT_EQ(player.record.TakeLines(), kReset + kResetStates);
}

TEST_F(EngineReset, ThatFailsGivesItsNumberAndDoesNothingElse) {
    player.record.Spoil("Reset", kFails, 1, D3DERR_DEVICELOST);
    EXPECT_EQ(player.engine.Engine_Device_Reset(), D3DERR_DEVICELOST);
    EXPECT_EQ(player.record.TakeLines(), kReset);
    EXPECT_TRUE(player.engine.HasDevice());
}

TEST_F(EngineReset, WhoseStatesCannotBeSetIsAnError) {
    for (int nth = 1; nth <= 4; ++nth) {
        player.record.Spoil("SetRenderState", kFails, nth);
        ExpectError(RunTimeErrorKind::Direct3D,
                    [&] { static_cast<void>(player.engine.Engine_Device_Reset()); });
    }
    player.record.Spoil("SetVertexShader", kFails);
    ExpectError(RunTimeErrorKind::Direct3D,
                [&] { static_cast<void>(player.engine.Engine_Device_Reset()); });
}

TEST_F(EngineReset, StatusOfAHealthyDeviceIsJustAsked) {
    EXPECT_EQ(player.engine.Engine_Device_Status(), 0);
    EXPECT_EQ(player.record.TakeLines(), (Lines{"TestCooperativeLevel"}));
}

TEST_F(EngineReset, StatusLeavesALostDeviceAlone) {
    player.record.AnswerAlways("TestCooperativeLevel", D3DERR_DEVICELOST);
    EXPECT_EQ(player.engine.Engine_Device_Status(), 0);
    EXPECT_EQ(player.record.TakeLines(), (Lines{"TestCooperativeLevel"}));
}

TEST_F(EngineReset, StatusOfAnyOtherFailureResetsNothing) {
    player.record.AnswerAlways("TestCooperativeLevel", D3DERR_INVALIDCALL);
    EXPECT_EQ(player.engine.Engine_Device_Status(), 0);
    EXPECT_EQ(player.record.TakeLines(), (Lines{"TestCooperativeLevel"}));
}

TEST_F(EngineReset, StatusResetsADeviceThatCanBeReset) {
    player.record.AnswerAlways("TestCooperativeLevel", D3DERR_DEVICENOTRESET);
    EXPECT_EQ(player.engine.Engine_Device_Status(), 0);
    EXPECT_EQ(player.record.TakeLines(), Lines{"TestCooperativeLevel"} + kReset + kResetStates);
}

TEST_F(EngineReset, StatusIs0EvenIfTheResetFails) {
    player.record.AnswerAlways("TestCooperativeLevel", D3DERR_DEVICENOTRESET);
    player.record.Spoil("Reset", kFails);
    EXPECT_EQ(player.engine.Engine_Device_Status(), 0);
    EXPECT_EQ(player.record.TakeLines(), Lines{"TestCooperativeLevel"} + kReset);
}

}  // namespace
}  // namespace scenara::test
