// SPDX-License-Identifier: MIT
#include "stage/StageScale.h"

#include <algorithm>
#include <limits>

#include <gtest/gtest.h>

namespace scenara {
namespace {

constexpr Single kMostSingle = std::numeric_limits<Single>::max();

void ExpectScale(Integer hires, Long height, double elements, double deltas, double stage) {
    StageModel model;
    model.hires = hires;
    model.localcoordWidth = 320;
    model.localcoordHeight = height;
    const StageScale scale = ScaleOf(model, View());
    EXPECT_DOUBLE_EQ(scale.elements, elements) << height;
    EXPECT_DOUBLE_EQ(scale.deltas, deltas) << height;
    EXPECT_DOUBLE_EQ(scale.stage, stage) << height;
}

TEST(ScaleOf, AnOrdinaryStageIs1) {
    ExpectScale(0, 0, 1, 1, 1);
    ExpectScale(0, 240, 1, 1, 1);
}

TEST(ScaleOf, HiresHalvesElementsAndWhatTheyMovePerCameraUnit) {
    ExpectScale(1, 0, 0.5, 0.5, 1);
    ExpectScale(1, 240, 0.5, 0.5, 1);
    ExpectScale(-1, 0, 0.5, 0.5, 1);
}

TEST(ScaleOf, LocalcoordBringsItsHeightTo240) {
    ExpectScale(0, 480, 0.5, 1, 0.5);
    ExpectScale(0, 720, 1.0 / 3, 1, 1.0 / 3);
    ExpectScale(0, 960, 0.25, 1, 0.25);
    ExpectScale(0, 120, 2, 1, 2);
}

TEST(ScaleOf, BothTogetherMultiply) {
    ExpectScale(1, 480, 0.25, 0.5, 0.5);
}

TEST(ScaleOf, AHeightThatNoStageHasCountsAsNotGiven) {
    for (const Long height : {0, 1, -1, -480, 1'000'000, std::numeric_limits<Long>::max(),
                              std::numeric_limits<Long>::min()}) {
        ExpectScale(0, height, 1, 1, 1);
    }
}

TEST(ScaleOf, TheWidthDoesNotMatter) {
    StageModel model;
    model.localcoordHeight = 480;
    for (const Long width : {0, 1, 640, 1280, -5, std::numeric_limits<Long>::max()}) {
        model.localcoordWidth = width;
        EXPECT_DOUBLE_EQ(ScaleOf(model, View()).elements, 0.5) << width;
    }
}

// Windows count from the left edge of the file's view, of which the middle 320 columns are shown.
TEST(ScaleOf, TheColumnsThatAreNotShownAreCountedInTheView) {
    const auto before = [](Long width, Long height) {
        StageModel model;
        model.localcoordWidth = width;
        model.localcoordHeight = height;
        return ScaleOf(model, View()).columnsBefore;
    };
    EXPECT_DOUBLE_EQ(before(320, 240), 0);
    EXPECT_DOUBLE_EQ(before(640, 480), 0);
    EXPECT_NEAR(before(1280, 720), 53.3333, 1e-3);  // (426.67 - 320) / 2
    EXPECT_DOUBLE_EQ(before(400, 240), 40);
    EXPECT_DOUBLE_EQ(before(0, 480), 0);
    EXPECT_DOUBLE_EQ(before(-640, 480), 0);
}

TEST(ScaleOf, AWidthBesideAHeightThatDoesNotCountIsNotGivenEither) {
    StageModel model;
    model.localcoordWidth = 1;
    model.localcoordHeight = 1;
    EXPECT_EQ(ScaleOf(model, View()).columnsBefore, 0);
}

// One element, and settings, with numbers that tell which is which.
StageModel Stage() {
    BackgroundElement element;
    element.startX = 30;
    element.startY = 41;
    element.deltaX = 1;
    element.deltaY = 0.75F;
    element.tileSpacingX = 7;
    element.tileSpacingY = 9;
    element.velocityX = 3;
    element.velocityY = -5;
    element.sinState = {22, 40, 6};
    element.sinYAmplitude = 7;
    element.sinYPeriod = 50;
    element.sinYPhase = 12;
    element.windowDeltaX = 2;
    element.windowDeltaY = 4;
    element.xscaleTop = 1;
    element.xscaleBottom = 2;
    element.yscaleStart = 80;
    element.yscaleDelta = 0.5F;
    StageModel model;
    model.Elements.push_back(element);
    model.CamStartX = 11;
    model.CamStartY = -8;
    model.BoundLeft = -150;
    model.BoundRight = 151;
    model.BoundHigh = -25;
    model.ZOffset = 198;
    model.P1StartX = -70;
    model.Tension = 60;
    model.ScreenLeft = 16;
    model.ScreenRight = 14;
    return model;
}

TEST(ApplyStageScale, LeavesAnOrdinaryStageAlone) {
    StageModel model = Stage();
    model.localcoordHeight = 240;
    ApplyStageScale(model, View());
    const BackgroundElement& element = model.Elements[0];
    EXPECT_EQ(model.ElementScale, 1);
    EXPECT_EQ(element.deltaX, 1);
    EXPECT_EQ(element.velocityX, 3);
    EXPECT_EQ(element.sinYAmplitude, 7);
    EXPECT_EQ(element.windowDeltaX, 2);
    EXPECT_EQ(model.BoundRight, 151);
    EXPECT_EQ(model.ZOffset, 198);
}

TEST(ApplyStageScale, OfHiresHalvesLengthsOfElements) {
    StageModel model = Stage();
    model.hires = 1;
    ApplyStageScale(model, View());
    const BackgroundElement& element = model.Elements[0];
    EXPECT_EQ(model.ElementScale, 0.5F);
    EXPECT_EQ(element.velocityX, 1.5F);
    EXPECT_EQ(element.velocityY, -2.5F);
    EXPECT_EQ(element.sinState[0], 11);
    EXPECT_EQ(element.sinYAmplitude, 3.5F);
    EXPECT_EQ(element.deltaX, 0.5F);
    EXPECT_EQ(element.deltaY, 0.375F);
    EXPECT_EQ(element.windowDeltaX, 1);
    EXPECT_EQ(element.windowDeltaY, 2);
}

TEST(ApplyStageScale, LeavesTimesAndRatiosAlone) {
    StageModel model = Stage();
    model.hires = 1;
    model.localcoordHeight = 480;
    ApplyStageScale(model, View());
    const BackgroundElement& element = model.Elements[0];
    EXPECT_EQ(element.sinState[1], 40);
    EXPECT_EQ(element.sinState[2], 6);
    EXPECT_EQ(element.sinYPeriod, 50);
    EXPECT_EQ(element.sinYPhase, 12);
    EXPECT_EQ(element.xscaleTop, 1);
    EXPECT_EQ(element.xscaleBottom, 2);
    EXPECT_EQ(element.yscaleStart, 80);
}

TEST(ApplyStageScale, OfHiresLeavesCameraGroundAndPlayersAlone) {
    StageModel model = Stage();
    model.hires = 1;
    ApplyStageScale(model, View());
    EXPECT_EQ(model.CamStartX, 11);
    EXPECT_EQ(model.CamStartY, -8);
    EXPECT_EQ(model.BoundLeft, -150);
    EXPECT_EQ(model.BoundRight, 151);
    EXPECT_EQ(model.BoundHigh, -25);
    EXPECT_EQ(model.ZOffset, 198);
    EXPECT_EQ(model.P1StartX, -70);
    EXPECT_EQ(model.ScreenLeft, 16);
    // A stretch by the camera's height, which counts as ever.
    EXPECT_EQ(model.Elements[0].yscaleDelta, 0.5F);
}

TEST(ApplyStageScale, OfLocalcoordScalesEverything) {
    StageModel model = Stage();
    model.localcoordWidth = 640;
    model.localcoordHeight = 480;
    ApplyStageScale(model, View());
    EXPECT_EQ(model.ElementScale, 0.5F);
    EXPECT_EQ(model.CamStartX, 5.5F);
    EXPECT_EQ(model.CamStartY, -4);
    EXPECT_EQ(model.BoundLeft, -75);
    EXPECT_EQ(model.BoundRight, 76);  // 75.5, to the even one
    EXPECT_EQ(model.BoundHigh, -12);  // -12.5
    EXPECT_EQ(model.ZOffset, 99);
    EXPECT_EQ(model.P1StartX, -35);
    EXPECT_EQ(model.Tension, 30);
    EXPECT_EQ(model.ScreenLeft, 8);
    EXPECT_EQ(model.ScreenRight, 7);
    const BackgroundElement& element = model.Elements[0];
    EXPECT_EQ(element.velocityX, 1.5F);
    // An element still moves by its delta per unit of the camera: both are scaled alike.
    EXPECT_EQ(element.deltaX, 1);
    EXPECT_EQ(element.deltaY, 0.75F);
    EXPECT_EQ(element.windowDeltaX, 2);
    // A unit of the camera is now two of the file's.
    EXPECT_EQ(element.yscaleDelta, 1);
}

// Rounding them would lose too much; the drawing scales them.
TEST(ApplyStageScale, LeavesWholeNumbersOfElementsInTheFilesUnits) {
    StageModel model = Stage();
    model.hires = 1;
    ApplyStageScale(model, View());
    EXPECT_EQ(model.Elements[0].startX, 30);
    EXPECT_EQ(model.Elements[0].startY, 41);
    EXPECT_EQ(model.Elements[0].tileSpacingX, 7);
    EXPECT_EQ(model.Elements[0].tileSpacingY, 9);
}

BackgroundElement Windowed(Single x1, Single y1, Single x2, Single y2) {
    BackgroundElement element;
    element.windowX1 = x1;
    element.windowY1 = y1;
    element.windowX2 = x2;
    element.windowY2 = y2;
    element.windowActive = 1;
    return element;
}

// 160 x 120 of the view are 320 x 240 of hires: both corners are inside.
TEST(ApplyStageScale, AHalvedWindowHasHalfTheColumnsAndRows) {
    for (const BackgroundElement& written : {Windowed(0, 0, 319, 239), Windowed(319, 239, 0, 0)}) {
        StageModel model;
        model.hires = 1;
        model.Elements.push_back(written);
        ApplyStageScale(model, View());
        const BackgroundElement& element = model.Elements[0];
        EXPECT_EQ(std::min(element.windowX1, element.windowX2), 0);
        EXPECT_EQ(std::max(element.windowX1, element.windowX2), 159);
        EXPECT_EQ(std::min(element.windowY1, element.windowY2), 0);
        EXPECT_EQ(std::max(element.windowY1, element.windowY2), 119);
    }
}

TEST(ApplyStageScale, AWindowOfAWideViewCountsFromItsLeftEdge) {
    StageModel model;
    model.localcoordWidth = 960;
    model.localcoordHeight = 480;  // 480 columns of the view, 80 of them before it
    model.Elements.push_back(Windowed(160, 100, 799, 199));
    ApplyStageScale(model, View());
    const BackgroundElement& element = model.Elements[0];
    EXPECT_EQ(element.windowX1, 0);
    EXPECT_EQ(element.windowX2, 319);
    EXPECT_EQ(element.windowY1, 50);
    EXPECT_EQ(element.windowY2, 99);
}

// The same height, so only the edge is another.
TEST(ApplyStageScale, OfAWiderViewOfTheSameHeightMovesWindowsOnly) {
    StageModel model = Stage();
    model.Elements.push_back(Windowed(40, 100, 359, 199));
    model.localcoordWidth = 400;
    model.localcoordHeight = 240;
    ApplyStageScale(model, View());
    EXPECT_EQ(model.Elements[1].windowX1, 0);
    EXPECT_EQ(model.Elements[1].windowX2, 319);
    EXPECT_EQ(model.Elements[1].windowY1, 100);
    EXPECT_EQ(model.Elements[1].windowY2, 199);
    EXPECT_EQ(model.Elements[0].velocityX, 3);
    EXPECT_EQ(model.Elements[0].deltaX, 1);
    EXPECT_EQ(model.BoundRight, 151);
    EXPECT_EQ(model.ElementScale, 1);
}

TEST(ApplyStageScale, ProductsThatDoNotFitAreAsNearAsTheFieldComes) {
    StageModel model = Stage();
    BackgroundElement& element = model.Elements[0];
    element.velocityX = kMostSingle;
    element.velocityY = -kMostSingle;
    element.sinYAmplitude = kMostSingle;
    model.CamStartX = kMostSingle;
    model.BoundLeft = std::numeric_limits<Long>::min();
    model.BoundRight = std::numeric_limits<Long>::max();
    model.BoundHigh = std::numeric_limits<Integer>::min();
    model.ZOffset = std::numeric_limits<Integer>::max();
    model.localcoordHeight = 120;
    ApplyStageScale(model, View());
    EXPECT_EQ(element.velocityX, kMostSingle);
    EXPECT_EQ(element.velocityY, -kMostSingle);
    EXPECT_EQ(element.sinYAmplitude, kMostSingle);
    EXPECT_EQ(model.CamStartX, kMostSingle);
    EXPECT_EQ(model.BoundLeft, std::numeric_limits<Long>::min());
    EXPECT_EQ(model.BoundRight, std::numeric_limits<Long>::max());
    EXPECT_EQ(model.BoundHigh, std::numeric_limits<Integer>::min());
    EXPECT_EQ(model.ZOffset, std::numeric_limits<Integer>::max());
}

}  // namespace
}  // namespace scenara
