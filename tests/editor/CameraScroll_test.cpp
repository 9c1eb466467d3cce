// SPDX-License-Identifier: MIT
#include "editor/CameraScroll.h"

#include <cmath>

#include <gtest/gtest.h>

#include "editor/EditedStage.h"

namespace scenara {
namespace {

using test::EditedStage;

class CameraBar : public testing::Test {
protected:
    CameraBar() {
        const Integer square = stage.Square();
        stage.Named("near", square, 100, 0);
        stage.Named("far", square, 100, 0).deltaX = 0.25F;
        stage.Named("still", square, 100, 0).deltaX = 0;
        stage.camera.HCamStep = 3;
        stage.Start();
        bar.Min = -200;
        bar.Max = 200;
    }
    void MoveTo(Long value) {
        bar.Value = value;
        hscHScroll_Change(stage.model, stage.camera, bar);
    }
    void ExpectAt(Single nearX, Single farX) {
        EXPECT_EQ(stage.Element(0).posX, nearX);
        EXPECT_EQ(stage.Element(1).posX, farX);
        EXPECT_EQ(stage.Element(2).posX, 100);
    }

    EditedStage stage;
    ScrollBar bar;
};

TEST_F(CameraBar, MovesTheCameraToItsValue) {
    MoveTo(40);
    EXPECT_EQ(stage.model.CamX, -40);
    MoveTo(-7);
    EXPECT_EQ(stage.model.CamX, 7);
}

TEST_F(CameraBar, MovesElementsByTheTrueDistance) {
    MoveTo(40);
    ExpectAt(60, 90);
    MoveTo(-8);
    ExpectAt(108, 102);
}

TEST_F(CameraBar, LeavesNoStepToFollow) {
    MoveTo(40);
    EXPECT_EQ(stage.camera.previousX, -40);
    stage.Frames(2);
    ExpectAt(60, 90);
}

TEST_F(CameraBar, LeavesTheHeightAlone) {
    stage.model.CamY = -5;
    stage.camera.previousY = -4;
    MoveTo(40);
    EXPECT_EQ(stage.model.CamY, -5);
    EXPECT_EQ(stage.camera.previousY, -4);
    EXPECT_EQ(stage.Element(0).posY, 0);
}

TEST_F(CameraBar, AStepThatIsStillToComeIsPartOfTheMove) {
    stage.model.CamX = -3;  // a key; the elements have not followed yet
    MoveTo(40);
    ExpectAt(60, 90);
    stage.Frames(1);
    ExpectAt(60, 90);
}

TEST_F(CameraBar, AtZeroTheCameraIsNotMinusZero) {
    MoveTo(0);
    EXPECT_FALSE(std::signbit(stage.model.CamX));
}

TEST_F(CameraBar, ShowsTheNearestWholeValue) {
    stage.model.CamX = -12.5F;
    EXPECT_EQ(ScrollValueOf(stage.model, bar), 12);
    stage.model.CamX = 12.75F;
    EXPECT_EQ(ScrollValueOf(stage.model, bar), -13);
}

TEST_F(CameraBar, ShowsNothingBeyondItsEnds) {
    stage.model.CamX = -200.5F;
    EXPECT_EQ(ScrollValueOf(stage.model, bar), 200);
    stage.model.CamX = 3e9F;
    EXPECT_EQ(ScrollValueOf(stage.model, bar), -200);
    bar.Max = 2147483647;
    stage.model.CamX = -3e9F;
    EXPECT_EQ(ScrollValueOf(stage.model, bar), 2147483647);
    bar.Min = 10;
    bar.Max = -10;
    EXPECT_EQ(ScrollValueOf(stage.model, bar), 10);
}

TEST_F(CameraBar, TakesEveryValueOfALong) {
    MoveTo(-2147483647 - 1);
    EXPECT_EQ(stage.model.CamX, 2147483648.0F);
    MoveTo(2147483647);
    EXPECT_EQ(stage.model.CamX, -2147483648.0F);
}

}  // namespace
}  // namespace scenara
