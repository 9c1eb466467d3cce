// SPDX-License-Identifier: MIT
#include "render/Motion.h"

#include <cmath>
#include <numbers>
#include <vector>

#include <gtest/gtest.h>

#include "render/ExpectError.h"
#include "render/PrepareStage.h"
#include "render/StageBuilder.h"

namespace scenara::test {
namespace {

// --- drift ---

TEST(Drift, MovesPositionAndMotionByTheVelocity) {
    BackgroundElement element;
    element.posX = 10;
    element.posY = 20;
    element.velocityX = 0.5F;
    element.velocityY = -1.25F;
    element.ctrlPos = {3, 4, 0, 0};
    MoveDrawn(element);
    MoveDrawn(element);
    EXPECT_EQ(element.posX, 11);
    EXPECT_EQ(element.posY, 17.5F);
    EXPECT_EQ(element.ctrlPos[0], 4);
    EXPECT_EQ(element.ctrlPos[1], 1.5F);
}

// --- swing ---

// What the swing shows in the frames to come, the first one before it ever moved.
std::vector<Single> SwingUp(BackgroundElement& element, int frames) {
    std::vector<Single> shown;
    for (int i = 0; i < frames; ++i) {
        shown.push_back(element.sinOffset[1]);
        MoveDrawn(element);
    }
    return shown;
}

BackgroundElement Swinging(Single amplitude, Single period, Single phase) {
    BackgroundElement element;
    element.sinYAmplitude = amplitude;
    element.sinYPeriod = period;
    element.sinYPhase = phase;
    return element;
}

// amplitude * sin(pi * halves)
float Sine(double amplitude, double halves) {
    return static_cast<float>(amplitude * std::sin(std::numbers::pi * halves));
}

TEST(Swing, ReturnsToTheMiddleAfterTwiceThePeriod) {
    BackgroundElement element = Swinging(8, 10, 0);
    const std::vector<Single> shown = SwingUp(element, 43);
    EXPECT_EQ(shown[0], 0);
    EXPECT_EQ(shown[1], 0);
    EXPECT_FLOAT_EQ(shown[6], 8);
    EXPECT_NEAR(shown[11], 0, 1e-6);
    EXPECT_FLOAT_EQ(shown[16], -8);
    EXPECT_LT(shown[20], -2.4F);
    EXPECT_EQ(shown[21], 0);
    EXPECT_FLOAT_EQ(shown[26], 8);
    EXPECT_EQ(shown[41], 0);
    for (std::size_t n = 1; n < shown.size(); ++n) {
        EXPECT_NEAR(shown[n], Sine(8, static_cast<double>(n - 1) / 10), 1e-6) << n;
    }
}

TEST(Swing, TimeGoesBackTo0AtExactlyTwiceThePeriod) {
    BackgroundElement element = Swinging(8, 10, 0);
    for (int i = 0; i < 19; ++i) {
        MoveDrawn(element);
    }
    EXPECT_EQ(element.sinYPhase, 19);
    MoveDrawn(element);
    EXPECT_EQ(element.sinYPhase, 0);
}

TEST(Swing, BeginsAtThePhaseOnceItHasMoved) {
    BackgroundElement element = Swinging(8, 10, 5);
    const std::vector<Single> shown = SwingUp(element, 3);
    EXPECT_EQ(shown[0], 0);
    EXPECT_FLOAT_EQ(shown[1], 8);
    EXPECT_FLOAT_EQ(shown[2], Sine(8, 0.6));
}

TEST(Swing, APhaseAtTwiceThePeriodOrBeyondRunsOn) {
    BackgroundElement element = Swinging(8, 10, 20);
    MoveDrawn(element);
    EXPECT_EQ(element.sinYPhase, 21);
    EXPECT_NEAR(element.sinOffset[1], 0, 1e-6);
}

TEST(Swing, PeriodsMayBeFractions) {
    BackgroundElement element = Swinging(2.5F, 1.5F, 0);
    const std::vector<Single> shown = SwingUp(element, 6);
    EXPECT_EQ(shown[1], 0);
    EXPECT_FLOAT_EQ(shown[2], Sine(2.5, 2.0 / 3));
    EXPECT_FLOAT_EQ(shown[3], Sine(2.5, 4.0 / 3));
    // 3 is twice the period.
    EXPECT_EQ(shown[4], 0);
    EXPECT_FLOAT_EQ(shown[5], shown[2]);
}

TEST(Swing, APeriodWhoseDoubleIsNeverMetRunsOn) {
    BackgroundElement element = Swinging(8, 0.7F, 0);
    for (int i = 0; i < 5; ++i) {
        MoveDrawn(element);
    }
    EXPECT_EQ(element.sinYPhase, 5);
}

TEST(Swing, ANegativePeriodSwingsTheOtherWay) {
    BackgroundElement element = Swinging(8, -10, 0);
    const std::vector<Single> shown = SwingUp(element, 7);
    EXPECT_FLOAT_EQ(shown[6], -8);
}

TEST(Swing, WithoutAmplitudeOrPeriodNothingRuns) {
    BackgroundElement noPeriod = Swinging(3, 0, 5);
    BackgroundElement noAmplitude = Swinging(0, 10, 5);
    for (int i = 0; i < 30; ++i) {
        MoveDrawn(noPeriod);
        MoveDrawn(noAmplitude);
        EXPECT_EQ(noPeriod.sinOffset[1], 0);
        EXPECT_EQ(noAmplitude.sinOffset[1], 0);
    }
    EXPECT_EQ(noPeriod.sinYPhase, 5);
    EXPECT_EQ(noAmplitude.sinYPhase, 5);
}

TEST(Swing, SidewaysHasItsOwnValues) {
    BackgroundElement element = Swinging(8, 10, 0);
    element.sinState = {4, 3, 1};
    MoveDrawn(element);
    EXPECT_FLOAT_EQ(element.sinOffset[0], Sine(4, 1.0 / 3));
    EXPECT_EQ(element.sinOffset[1], 0);
    EXPECT_EQ(element.sinState[2], 2);
    EXPECT_EQ(element.sinYPhase, 1);
    for (int i = 0; i < 4; ++i) {
        MoveDrawn(element);
    }
    EXPECT_EQ(element.sinState[2], 0);
    EXPECT_EQ(element.sinYPhase, 5);
}

TEST(Swing, SidewaysWithAnAmplitudeOf3AndNoPeriodNeverMoves) {
    BackgroundElement element;
    element.sinState = {3, 0, 0};
    for (int i = 0; i < 30; ++i) {
        MoveDrawn(element);
        EXPECT_EQ(element.sinOffset[0], 0);
    }
}

TEST(Swing, DoesNotMoveThePosition) {
    BackgroundElement element = Swinging(8, 10, 5);
    element.posY = 50;
    MoveDrawn(element);
    EXPECT_EQ(element.posY, 50);
    EXPECT_EQ(element.ctrlPos[1], 0);
}

// --- parallax ---

class ParallaxStep : public testing::Test {
protected:
    ParallaxStep() {
        camera.HCamStep = 2;
        camera.VCamStep = 3;
        element.posX = 100;
        element.posY = 50;
        element.deltaX = 0.5F;
        element.deltaY = 0.25F;
    }
    // From the camera at 0 to here.
    void Follow(Single x, Single y) {
        model.CamX = x;
        model.CamY = y;
        FollowCamera(model, camera, element);
    }

    StageModel model;
    Camera camera;
    BackgroundElement element;
};

TEST_F(ParallaxStep, UsesTheStepAndNotTheDistance) {
    Follow(-50, -0.125F);
    EXPECT_EQ(element.posX, 99);
    EXPECT_EQ(element.posY, 50.75F);
}

TEST_F(ParallaxStep, UsesTheDistanceWhereAFigureLeadsTheCamera) {
    for (const CameraLead lead : {CameraLead::Stand, CameraLead::Left, CameraLead::Right}) {
        camera.lead = lead;
        element.posX = 100;
        element.posY = 50;
        Follow(-50, -8);
        EXPECT_EQ(element.posX, 75);
        EXPECT_EQ(element.posY, 52);
        Follow(50, 8);
        EXPECT_EQ(element.posX, 100);
        EXPECT_EQ(element.posY, 50);
    }
}

TEST_F(ParallaxStep, CameraToTheRightMovesThePictureLeft) {
    Follow(-2, 0);
    EXPECT_EQ(element.posX, 99);
    EXPECT_EQ(element.posY, 50);
}

TEST_F(ParallaxStep, CameraToTheLeftMovesThePictureRight) {
    Follow(2, 0);
    EXPECT_EQ(element.posX, 101);
}

TEST_F(ParallaxStep, CameraUpMovesThePictureDown) {
    Follow(0, -3);
    EXPECT_EQ(element.posX, 100);
    EXPECT_EQ(element.posY, 50.75F);
}

TEST_F(ParallaxStep, CameraDownMovesThePictureUp) {
    Follow(0, 3);
    EXPECT_EQ(element.posY, 49.25F);
}

TEST_F(ParallaxStep, CountsFromWhereTheLastPassSawTheCamera) {
    camera.previousX = -30;
    camera.previousY = -40;
    Follow(-29, -41);
    EXPECT_EQ(element.posX, 101);
    EXPECT_EQ(element.posY, 50.75F);
    camera.previousX = -29;
    camera.previousY = -41;
    Follow(-29, -41);
    EXPECT_EQ(element.posX, 101);
    EXPECT_EQ(element.posY, 50.75F);
}

TEST_F(ParallaxStep, IsNoMotionOfTheElement) {
    Follow(-2, 3);
    EXPECT_EQ(element.ctrlPos[0], 0);
    EXPECT_EQ(element.ctrlPos[1], 0);
}

TEST_F(ParallaxStep, OfANegativeDeltaGoesTheOtherWay) {
    element.deltaX = -0.5F;
    element.deltaY = -0.25F;
    Follow(-2, -3);
    EXPECT_EQ(element.posX, 101);
    EXPECT_EQ(element.posY, 49.25F);
}

TEST_F(ParallaxStep, OfNoDeltaIsNone) {
    element.deltaX = 0;
    element.deltaY = 0;
    Follow(-2, -3);
    EXPECT_EQ(element.posX, 100);
    EXPECT_EQ(element.posY, 50);
}

// --- links ---

class NotedLinks : public testing::Test {
protected:
    NotedLinks() {
        build.Still(-1);
        build.Still(-1).positionlink = 1;
        build.Still(-1);
        PrepareElements(model, kPlainView, View());
    }
    StageModel model;
    StageBuilder build{model};
};

TEST_F(NotedLinks, HaveTheSwingAndTheMotionOfTheirParent) {
    model.Elements[0].sinOffset = {1.5F, 2.5F};
    model.Elements[0].ctrlPos = {3.5F, 4.5F, 0, 0};
    model.Elements[2].sinOffset = {7, 7};
    NoteLinks(model);
    EXPECT_EQ(model.Elements[1].linkSin, (std::array<Single, 2>{1.5F, 2.5F}));
    EXPECT_EQ(model.Elements[1].ctrlOffset, (std::array<Single, 2>{3.5F, 4.5F}));
    EXPECT_EQ(model.Elements[0].ctrlOffset, (std::array<Single, 2>{}));
    EXPECT_EQ(model.Elements[2].ctrlOffset, (std::array<Single, 2>{}));
}

TEST_F(NotedLinks, AreNotedAndNotSummed) {
    model.Elements[0].ctrlPos = {3, 4, 0, 0};
    NoteLinks(model);
    NoteLinks(model);
    EXPECT_EQ(model.Elements[1].ctrlOffset, (std::array<Single, 2>{3, 4}));
}

TEST_F(NotedLinks, KeepTheirOwnMotion) {
    model.Elements[1].ctrlPos = {5, 6, 0, 0};
    model.Elements[1].posX = 9;
    NoteLinks(model);
    EXPECT_EQ(model.Elements[1].ctrlPos[0], 5);
    EXPECT_EQ(model.Elements[1].posX, 9);
}

TEST_F(NotedLinks, ToAParentOutsideOfTheTableAreErrors) {
    for (const Integer parent : {Integer{3}, Integer{-2}, Integer{32767}}) {
        model.Elements[1].linkParent = parent;
        ExpectError(RunTimeErrorKind::SubscriptOutOfRange, [&] { NoteLinks(model); });
    }
}

}  // namespace
}  // namespace scenara::test
