// SPDX-License-Identifier: MIT
#include "render/Motion.h"

#include <cmath>
#include <limits>
#include <numbers>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "render/Changes.h"
#include "render/ExpectError.h"
#include "render/PrepareStage.h"
#include "render/StageBuilder.h"

namespace scenara::test {
namespace {

// --- drift ---

TEST(Drift, MovesPositionAndMotionByTheVelocity) {
    BackgroundElement element;
    Drifting(element, 0.5F, -1.25F);
    element.posX = 10;
    element.posY = 20;
    element.ctrlPos = {3, 4, 0, 0};
    const BackgroundElement before = element;
    Drift(element);
    Drift(element);
    EXPECT_EQ(Changes(before, element), "posX=11, posY=17.5, ctrlPos=4 1.5 0 0");
}

// --- swing ---

// amplitude * sin(pi * halves)
float Sine(double amplitude, double halves) {
    return static_cast<float>(amplitude * std::sin(std::numbers::pi * halves));
}

BackgroundElement ElementSwinging(Single amplitude, Single period, Single phase) {
    BackgroundElement element;
    return Swinging(element, amplitude, period, phase);
}

TEST(Swing, ReturnsToTheMiddleAfterTwiceThePeriod) {
    BackgroundElement element = ElementSwinging(8, 10, 0);
    for (int n = 0; n < 43; ++n) {
        EXPECT_EQ(element.sinYPhase, n % 20);
        EXPECT_NEAR(element.sinOffset[1], n == 0 ? 0 : Sine(8, (n - 1) / 10.0), 1e-6) << n;
        SwingOn(element);
    }
}

struct Swung {
    const char* name;
    Single amplitude;
    Single period;
    Single phase;
    std::vector<Single> shown;  // the first one before it ever moved
    Single time;                // after the last one
};

TEST(Swing, BeginsInTheMiddleAndGoesOnByItsPhaseAndPeriod) {
    for (const Swung& row : std::vector<Swung>{
             {"from the phase once it has moved", 8, 10, 5, {0, 8, Sine(8, 0.6)}, 8},
             {"a phase at twice the period runs on", 8, 10, 20, {0, 0}, 22},
             // 3 is twice the period.
             {"the period a fraction",
              2.5F,
              1.5F,
              0,
              {0, 0, Sine(2.5, 2.0 / 3), Sine(2.5, 4.0 / 3), 0, Sine(2.5, 2.0 / 3)},
              0},
             {"a period whose double is never met runs on",
              8,
              0.75F,
              0,
              {0, 0, Sine(8, 4.0 / 3), Sine(8, 8.0 / 3), 0},
              5},
             {"a negative period the other way",
              8,
              -10,
              0,
              {0, 0, -Sine(8, 0.1), -Sine(8, 0.2), -Sine(8, 0.3), -Sine(8, 0.4), -8},
              7},
             {"no period", 3, 0, 5, std::vector<Single>(30, 0), 5},
             {"no amplitude", 0, 10, 5, std::vector<Single>(30, 0), 5},
         }) {
        SCOPED_TRACE(row.name);
        BackgroundElement element = ElementSwinging(row.amplitude, row.period, row.phase);
        for (const Single shown : row.shown) {
            EXPECT_NEAR(element.sinOffset[1], shown, 1e-6);
            SwingOn(element);
        }
        EXPECT_EQ(element.sinYPhase, row.time);
    }
}

TEST(Swing, SidewaysHasItsOwnValues) {
    BackgroundElement element = ElementSwinging(8, 10, 0);
    element.sinState = {4, 3, 1};
    SwingOn(element);
    EXPECT_FLOAT_EQ(element.sinOffset[0], Sine(4, 1.0 / 3));
    EXPECT_EQ(element.sinOffset[1], 0);
    EXPECT_EQ(element.sinState[2], 2);
    EXPECT_EQ(element.sinYPhase, 1);
    for (int i = 0; i < 4; ++i) {
        SwingOn(element);
    }
    EXPECT_EQ(element.sinState[2], 0);
    EXPECT_EQ(element.sinYPhase, 5);
}

TEST(Swing, SidewaysWithAnAmplitudeOf3AndNoPeriodNeverMoves) {
    BackgroundElement element;
    element.sinState = {3, 0, 0};
    for (int i = 0; i < 30; ++i) {
        SwingOn(element);
        EXPECT_EQ(element.sinOffset[0], 0);
    }
}

TEST(Swing, DoesNotMoveThePosition) {
    BackgroundElement element = ElementSwinging(8, 10, 5);
    element.posY = 50;
    SwingOn(element);
    EXPECT_EQ(element.posY, 50);
    EXPECT_EQ(element.ctrlPos[1], 0);
}

// --- whole swings ---

struct WholeSwing {
    const char* name;
    Single amplitude;
    Single period;
    Single phase;               // degrees
    std::vector<Single> shown;  // frame by frame
};

TEST(WholeSwing, TakesItsPeriodAndBeginsAtItsPhase) {
    for (const WholeSwing& row : std::vector<WholeSwing>{
             {"a quarter in each frame", 8, 4, 0, {0, 8, 0, -8, 0, 8}},
             {"from its top", 8, 4, 90, {8, 0, -8, 0, 8}},
             {"from below the middle", 8, 8, -45, {Sine(8, -0.25), 0, Sine(8, 0.25)}},
             {"the period a fraction", 2, 1.5F, 0, {0, Sine(2, 4.0 / 3), Sine(2, 8.0 / 3), 0}},
             {"no period", 3, 0, 90, std::vector<Single>(5, 0)},
             {"a period below 0", 3, -10, 90, std::vector<Single>(5, 0)},
             {"no amplitude", 0, 10, 90, std::vector<Single>(5, 0)},
         }) {
        SCOPED_TRACE(row.name);
        BackgroundElement upwards = ElementSwinging(row.amplitude, row.period, row.phase);
        BackgroundElement sideways;
        sideways.sinState = {row.amplitude, row.period, row.phase};
        for (const Single shown : row.shown) {
            SwingWhole(upwards);
            SwingWhole(sideways);
            EXPECT_NEAR(upwards.sinOffset[1], shown, 1e-6);
            EXPECT_EQ(sideways.sinOffset[0], upwards.sinOffset[1]);
            EXPECT_EQ(upwards.sinOffset[0], 0);
        }
        EXPECT_EQ(upwards.sinYPhase, row.phase) << "is the file's";
    }
}

TEST(WholeSwing, GoesOnFromTheStartAfterTheLastTick) {
    BackgroundElement element = ElementSwinging(8, 4, 90);
    element.swingTick[1] = std::numeric_limits<Long>::max();
    SwingWhole(element);
    EXPECT_EQ(element.swingTick[1], 0);
    SwingWhole(element);
    EXPECT_EQ(element.sinOffset[1], 8);
}

// --- parallax ---

struct FollowedCamera {
    const char* name;
    CameraPlace previous;
    CameraPlace camera;
    CameraPlace delta;
    const char* changes;  // of an element at 100, 50
};

class ParallaxStep : public testing::Test {
protected:
    ParallaxStep() {
        camera.HCamStep = 2;
        camera.VCamStep = 3;
    }
    // What becomes of an element at 100, 50 when the camera goes from one place to another.
    std::string Follow(CameraPlace from, CameraPlace to, CameraPlace delta) {
        BackgroundElement element;
        WithDelta(element, delta.x, delta.y);
        element.posX = 100;
        element.posY = 50;
        const BackgroundElement before = element;
        camera.previousX = from.x;
        camera.previousY = from.y;
        model.CamX = to.x;
        model.CamY = to.y;
        FollowCamera(model, camera, element);
        return Changes(before, element);
    }

    StageModel model;
    Camera camera;
};

constexpr CameraPlace kDelta{0.5F, 0.25F};

TEST_F(ParallaxStep, UsesTheStepAndNotTheDistance) {
    EXPECT_EQ(Follow({}, {-50, -0.125F}, kDelta), "posX=99, posY=50.75");
}

TEST_F(ParallaxStep, GoesAgainstTheCameraByDeltaAndIsNoMotion) {
    for (const FollowedCamera& row : {
             FollowedCamera{"right", {}, {-2, 0}, kDelta, "posX=99"},
             {"left", {}, {2, 0}, kDelta, "posX=101"},
             {"up", {}, {0, -3}, kDelta, "posY=50.75"},
             {"down", {}, {0, 3}, kDelta, "posY=49.25"},
             {"from the last place", {-30, -40}, {-29, -41}, kDelta, "posX=101, posY=50.75"},
             {"nowhere", {-29, -41}, {-29, -41}, kDelta, ""},
             {"a negative delta", {}, {-2, -3}, {-0.5F, -0.25F}, "posX=101, posY=49.25"},
             {"no delta", {}, {-2, -3}, {0, 0}, ""},
         }) {
        EXPECT_EQ(Follow(row.previous, row.camera, row.delta), row.changes) << row.name;
    }
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

// Noted and not summed; what they do by themselves stays.
TEST_F(NotedLinks, HaveTheSwingAndTheMotionOfTheirParent) {
    model.Elements[0].sinOffset = {1.5F, 2.5F};
    model.Elements[0].ctrlPos = {3.5F, 4.5F, 0, 0};
    model.Elements[1].ctrlPos = {5, 6, 0, 0};
    model.Elements[2].sinOffset = {7, 7};
    const std::vector<BackgroundElement> before = model.Elements;
    for (int i = 0; i < 2; ++i) {
        NoteLinks(model);
        EXPECT_EQ(Changes(before[0], model.Elements[0]), "");
        EXPECT_EQ(Changes(before[1], model.Elements[1]), "ctrlOffset=3.5 4.5, linkSin=1.5 2.5");
        EXPECT_EQ(Changes(before[2], model.Elements[2]), "");
    }
}

TEST_F(NotedLinks, ToAParentOutsideOfTheTableAreErrors) {
    for (const Integer parent : {Integer{3}, Integer{-2}, Integer{32767}}) {
        model.Elements[1].linkParent = parent;
        ExpectError(RunTimeErrorKind::SubscriptOutOfRange, [&] { NoteLinks(model); });
    }
}

}  // namespace
}  // namespace scenara::test
