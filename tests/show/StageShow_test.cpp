// SPDX-License-Identifier: MIT
#include "show/StageShow.h"

#include <optional>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "show/ShownStage.h"

namespace scenara::test {
namespace {

class StageStart : public testing::Test {
protected:
    void Start(const std::string& definition) { EXPECT_TRUE(shown_.Start(definition)); }

    ShownStage shown_;
    StageShow& show_ = shown_.show;
    StageModel& model_ = show_.Model();
    Camera& camera_ = show_.CameraState();
    LoopState& loop_ = show_.Loop();
};

constexpr const char* kStage =
    "[Camera]\nstartx = 30\nstarty = -10\nboundleft = -100\nboundright = 80\nboundhigh = -40\n"
    "boundlow = 0\n[BG sky]\ntype = normal\nspriteno = 9,9\nstart = 7,-90\ndelta = .5,.5\n";

TEST_F(StageStart, StepsOfNothingBecomeOneAndAreSaved) {
    Start(kStage);
    EXPECT_EQ(camera_.HCamStep, 1.0F);
    EXPECT_EQ(camera_.VCamStep, 1.0F);
    EXPECT_EQ(camera_.users.HCamStep, 1.0F);
    EXPECT_EQ(camera_.users.VCamStep, 1.0F);
}

TEST_F(StageStart, StepsThatAreSetStay) {
    camera_.HCamStep = 2.5F;
    camera_.users = {4, 6};
    Start(kStage);
    EXPECT_EQ(camera_.HCamStep, 2.5F);
    EXPECT_EQ(camera_.users.HCamStep, 4.0F) << "only a step that was 0 is saved";
    EXPECT_EQ(camera_.VCamStep, 1.0F);
    EXPECT_EQ(camera_.users.VCamStep, 1.0F);
}

TEST_F(StageStart, IsLoadingUntilTheStageRuns) {
    EXPECT_EQ(show_.State(), ShowState::None);
    EXPECT_FALSE(show_.HasShown());
    Start(kStage);
    EXPECT_EQ(loop_.StageRunning, 1);
    EXPECT_EQ(loop_.LoadingStage, 0);
    EXPECT_EQ(show_.State(), ShowState::Running);
    EXPECT_TRUE(show_.HasShown());
    EXPECT_THAT(shown_.states, testing::ElementsAre(ShowState::Loading, ShowState::Running));
    show_.Release();
    EXPECT_EQ(shown_.states.back(), ShowState::None);
    EXPECT_TRUE(show_.HasShown());
}

TEST_F(StageStart, AStageThatRunsMayBePausedAndItsSpritesShown) {
    Start(kStage);
    show_.Pause(true);
    EXPECT_EQ(show_.State(), ShowState::Paused);
    show_.SpriteBrowserMode = kByteTrue;
    EXPECT_EQ(show_.State(), ShowState::Browsing);
    show_.Pause(false);
    EXPECT_EQ(show_.State(), ShowState::Browsing);
    show_.SpriteBrowserMode = 0;
    EXPECT_EQ(show_.State(), ShowState::Running);
}

TEST_F(StageStart, AFileThatCannotBeOpenedIsReportedAndToBeReleased) {
    EXPECT_FALSE(shown_.StartFile("/mugen/stages/missing.def"));
    EXPECT_FALSE(shown_.Texts().empty());
    EXPECT_EQ(show_.State(), ShowState::Loading);
    show_.Release();
    EXPECT_EQ(show_.State(), ShowState::None);
    EXPECT_FALSE(show_.HasShown());
}

TEST_F(StageStart, KeysThatWerePressedBeforeDoNotCount) {
    Start(kStage);
    EXPECT_EQ(shown_.keyboard.asked, 2 * 9) << "before the load and after it";
}

TEST_F(StageStart, TheCameraStandsAtTheStageStartOrWhereItWasKeptAndElementsKnowIt) {
    struct Row {
        const char* name;
        std::optional<CameraPlace> kept;
        Single x, y;
        // The sprite is not there, so no axis counts: 160 + 7 + x / 2, and -90 - y / 2.
        Single skyX, skyY;
    };
    // Shown x from -100 to 80, y from -40 to 0.
    for (const Row& row :
         {Row{"the stage's", {}, -30, -10, 152, -85},
          {"kept", CameraPlace{50, -20}, 50, -20, 192, -80},
          {"up and left of the bounds", CameraPlace{500, -500}, 100, -40, 217, -70},
          {"down and right of them", CameraPlace{-500, 500}, -80, 0, 127, -90}}) {
        SCOPED_TRACE(row.name);
        show_.Which.camera.reset();
        if (row.kept) {
            show_.Which.camera = CameraStand{*row.kept, {}};
        }
        Start(kStage);
        EXPECT_EQ(model_.CamX, row.x);
        EXPECT_EQ(model_.CamY, row.y);
        EXPECT_EQ(camera_.previousX, row.x);
        EXPECT_EQ(camera_.previousY, row.y);
        ASSERT_EQ(model_.ElementCount, 1);
        EXPECT_EQ(model_.Elements[0].posX, row.skyX);
        EXPECT_EQ(model_.Elements[0].posY, row.skyY);
        EXPECT_EQ(model_.Elements[0].visible, 1);
    }
}

TEST_F(StageStart, AKeptCameraIsForOneStageAlone) {
    show_.Which.camera = CameraStand{{50, -20}, {}};
    EXPECT_FALSE(shown_.StartFile("/mugen/stages/missing.def"));
    show_.Release();
    Start(kStage);
    EXPECT_EQ(model_.CamX, -30.0F);
}

TEST_F(StageStart, ItIsToldThatTheStageIsLoadedBeforeTheCameraIsPlaced) {
    int calls = 0;
    shown_.loaded = [&] {
        ++calls;
        EXPECT_EQ(model_.ElementCount, 1) << "loaded";
        EXPECT_EQ(model_.BoundRight, 80);
        EXPECT_EQ(model_.CamX, 0.0F) << "and not placed yet";
        EXPECT_EQ(show_.State(), ShowState::Loading);
        EXPECT_EQ(shown_.keyboard.asked, 9) << "keys pressed meanwhile do not count";
    };
    Start(kStage);
    EXPECT_EQ(calls, 1);
    EXPECT_EQ(model_.CamX, -30.0F);
    EXPECT_FALSE(shown_.StartFile("/mugen/stages/missing.def"));
    EXPECT_EQ(calls, 1) << "nothing was loaded";
}

TEST_F(StageStart, TheNextStageStartsFromNothing) {
    Start(kStage);
    Start("[Info]\nname = next\n");
    EXPECT_EQ(model_.ElementCount, 0);
    EXPECT_EQ(model_.CamX, 0.0F);
    EXPECT_EQ(camera_.previousX, 0.0F);
}

}  // namespace
}  // namespace scenara::test
