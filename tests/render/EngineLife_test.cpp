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
        "CreateImageSurface 310 20 23",
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

constexpr auto kFails = Record::Trouble::Fails;
constexpr auto kGivesNothing = Record::Trouble::GivesNothing;
constexpr auto kNoMemory = Record::Trouble::NoMemory;

struct FailingStep {
    const char* call;
    Record::Trouble trouble;
    bool shown;         // the window, by then
    std::size_t going;  // how much was made by then: the last of what a shut down releases
    int nth = 1;
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
    EXPECT_EQ(going,
              Lines(kShutDown.end() - static_cast<std::ptrdiff_t>(step.going), kShutDown.end()));
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

INSTANTIATE_TEST_SUITE_P(Fails, EngineStartStep,
                         testing::Values(FailingStep{"CreateDirectX8", kFails, false, 0},
                                         FailingStep{"Direct3DCreate", kFails, false, 1},
                                         FailingStep{"CreateD3DX8", kFails, false, 2},
                                         FailingStep{"GetAdapterDisplayMode", kFails, false, 3},
                                         FailingStep{"CreateDevice", kFails, true, 3},
                                         FailingStep{"CreateFont", kFails, true, 4},
                                         FailingStep{"CreateImageSurface", kFails, true, 5},
                                         FailingStep{"SetVertexShader", kFails, true, 6},
                                         FailingStep{"SetRenderState", kFails, true, 6, 1},
                                         FailingStep{"SetRenderState", kFails, true, 6, 2},
                                         FailingStep{"SetRenderState", kFails, true, 6, 3},
                                         FailingStep{"SetRenderState", kFails, true, 6, 4},
                                         FailingStep{"SetTextureStageState", kFails, true, 6}));

// A machine that says that all is well and gives no object.
INSTANTIATE_TEST_SUITE_P(GivesNothing, EngineStartStep,
                         testing::Values(FailingStep{"CreateDevice", kGivesNothing, true, 3},
                                         FailingStep{"CreateFont", kGivesNothing, true, 4},
                                         FailingStep{"CreateImageSurface", kGivesNothing, true,
                                                     5}));

INSTANTIATE_TEST_SUITE_P(RunsOutOfMemory, EngineStartStep,
                         testing::Values(FailingStep{"CreateDirectX8", kNoMemory, false, 0},
                                         FailingStep{"CreateDevice", kNoMemory, true, 3},
                                         FailingStep{"CreateFont", kNoMemory, true, 4},
                                         FailingStep{"SetTextureStageState", kNoMemory, true, 6}));

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

TEST_F(EngineReset, StatusLeavesADeviceAloneThatCannotBeReset) {
    for (const HRESULT answer : {D3DERR_DEVICELOST, D3DERR_INVALIDCALL}) {
        player.record.AnswerAlways("TestCooperativeLevel", answer);
        EXPECT_EQ(player.engine.Engine_Device_Status(), 0);
        EXPECT_EQ(player.record.TakeLines(), (Lines{"TestCooperativeLevel"}));
    }
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
