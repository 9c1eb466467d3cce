// SPDX-License-Identifier: MIT
#include "app/StageStart.h"

#include <functional>
#include <optional>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/headless/HeadlessKeyboard.h"
#include "support/StageFixture.h"

namespace scenara::test {
namespace {

class CountingKeyboard : public HeadlessKeyboard {
public:
    Integer GetAsyncKeyState(VirtualKey key) override {
        ++asked;
        return HeadlessKeyboard::GetAsyncKeyState(key);
    }
    int asked = 0;
};

class StageStart : public testing::Test {
protected:
    void Start(const std::string& definition) {
        machine_.files.Put(kTestStage, definition);
        StartFile(kTestStage);
    }

    void StartFile(std::string path) {
        const LoadStageContext load{machine_.files,
                                    machine_.messages,
                                    machine_.window,
                                    machine_.device,
                                    machine_.view,
                                    "/mugen/",
                                    {}};
        StartStage(path, {machine_.model, camera_, savedSteps_, loop_, hscHScroll_, keyboard_, load,
                          keptCamera_, loaded_});
    }

    StageMachine machine_;
    Camera camera_;
    SavedSteps savedSteps_;
    LoopState loop_;
    ScrollBar hscHScroll_;
    CountingKeyboard keyboard_;
    std::optional<CameraPlace> keptCamera_;
    std::function<void()> loaded_;
};

constexpr const char* kStage =
    "[Camera]\nstartx = 30\nstarty = -10\nboundleft = -100\nboundright = 80\nboundhigh = -40\n"
    "boundlow = 0\n[BG sky]\ntype = normal\nspriteno = 9,9\nstart = 7,-90\ndelta = .5,.5\n";

TEST_F(StageStart, StepsOfNothingBecomeOneAndAreSaved) {
    Start(kStage);
    EXPECT_EQ(camera_.HCamStep, 1.0F);
    EXPECT_EQ(camera_.VCamStep, 1.0F);
    EXPECT_EQ(savedSteps_.HCamStep, 1.0F);
    EXPECT_EQ(savedSteps_.VCamStep, 1.0F);
}

TEST_F(StageStart, StepsThatAreSetStay) {
    camera_.HCamStep = 2.5F;
    savedSteps_ = {4, 6};
    Start(kStage);
    EXPECT_EQ(camera_.HCamStep, 2.5F);
    EXPECT_EQ(savedSteps_.HCamStep, 4.0F) << "only a step that was 0 is saved";
    EXPECT_EQ(camera_.VCamStep, 1.0F);
    EXPECT_EQ(savedSteps_.VCamStep, 1.0F);
}

TEST_F(StageStart, AStageRunsAndIsNoLongerLoading) {
    Start(kStage);
    EXPECT_EQ(loop_.StageRunning, 1);
    EXPECT_EQ(loop_.LoadingStage, 0);
}

TEST_F(StageStart, AFileThatCannotBeOpenedLeavesNothingRunning) {
    loop_.StageRunning = 1;
    StartFile("/mugen/stages/missing.def");
    EXPECT_EQ(loop_.StageRunning, 0);
    EXPECT_FALSE(machine_.MessageTexts().empty()) << "it was said";
    EXPECT_EQ(keyboard_.asked, 0) << "and the start ended there";
}

TEST_F(StageStart, TheScrollBarReachesFromBoundToBound) {
    Start(kStage);
    EXPECT_EQ(hscHScroll_.Min, -100);
    EXPECT_EQ(hscHScroll_.Max, 80);
    EXPECT_FALSE(hscHScroll_.Visible);
}

TEST_F(StageStart, TheScrollBarTakesBoundsBeyond16Bits) {
    Start("[Camera]\nboundleft = -100000\nboundright = 100000\n");
    EXPECT_EQ(hscHScroll_.Min, -100000);
    EXPECT_EQ(hscHScroll_.Max, 100000);
}

TEST_F(StageStart, TheCameraStandsAtTheStageStartAndElementsKnowIt) {
    Start(kStage);
    EXPECT_EQ(machine_.model.CamX, -30.0F);
    EXPECT_EQ(machine_.model.CamY, -10.0F);
    EXPECT_EQ(camera_.previousX, -30.0F);
    EXPECT_EQ(camera_.previousY, -10.0F);
    // 160 + 7 - 0.5 * 30, and -90 - 0.5 * -10; the sprite is not there, so no axis counts.
    ASSERT_EQ(machine_.model.ElementCount, 1);
    EXPECT_EQ(machine_.model.Elements[0].posX, 152.0F);
    EXPECT_EQ(machine_.model.Elements[0].posY, -85.0F);
    EXPECT_EQ(machine_.model.Elements[0].visible, 1);
}

TEST_F(StageStart, KeysThatWerePressedBeforeDoNotCount) {
    Start(kStage);
    EXPECT_EQ(keyboard_.asked, 9);
}

TEST_F(StageStart, AKeptCameraStandsWhereItStood) {
    keptCamera_ = CameraPlace{50, -20};
    Start(kStage);
    EXPECT_EQ(machine_.model.CamX, 50.0F);
    EXPECT_EQ(machine_.model.CamY, -20.0F);
    EXPECT_EQ(camera_.previousX, 50.0F);
    EXPECT_EQ(camera_.previousY, -20.0F);
    // 160 + 7 + 0.5 * 50, and -90 - 0.5 * -20: the elements know it.
    EXPECT_EQ(machine_.model.Elements.at(0).posX, 192.0F);
    EXPECT_EQ(machine_.model.Elements.at(0).posY, -80.0F);
}

TEST_F(StageStart, AKeptCameraIsCutToTheBounds) {
    // Shown x from -100 to 80, y from -40 to 0.
    keptCamera_ = CameraPlace{500, -500};
    Start(kStage);
    EXPECT_EQ(machine_.model.CamX, 100.0F);
    EXPECT_EQ(machine_.model.CamY, -40.0F);
    keptCamera_ = CameraPlace{-500, 500};
    Start(kStage);
    EXPECT_EQ(machine_.model.CamX, -80.0F);
    EXPECT_EQ(machine_.model.CamY, 0.0F);
}

TEST_F(StageStart, WhatIsToHappenBehindTheLoadingComesBeforeTheCamera) {
    int calls = 0;
    loaded_ = [&] {
        ++calls;
        EXPECT_EQ(machine_.model.ElementCount, 1) << "loaded";
        EXPECT_EQ(hscHScroll_.Max, 80);
        EXPECT_EQ(machine_.model.CamX, 0.0F) << "and not placed yet";
        EXPECT_EQ(loop_.LoadingStage, 1);
        EXPECT_EQ(keyboard_.asked, 0) << "keys pressed meanwhile do not count";
    };
    Start(kStage);
    EXPECT_EQ(calls, 1);
    EXPECT_EQ(machine_.model.CamX, -30.0F);
    StartFile("/mugen/stages/missing.def");
    EXPECT_EQ(calls, 1) << "nothing was loaded";
}

TEST_F(StageStart, TheNextStageStartsFromNothing) {
    Start(kStage);
    Start("[Info]\nname = next\n");
    EXPECT_EQ(machine_.model.ElementCount, 0);
    EXPECT_EQ(machine_.model.CamX, 0.0F);
    EXPECT_EQ(hscHScroll_.Min, 0);
    EXPECT_EQ(hscHScroll_.Max, 0);
    EXPECT_EQ(camera_.previousX, 0.0F);
}

}  // namespace
}  // namespace scenara::test
