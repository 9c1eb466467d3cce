// SPDX-License-Identifier: MIT
#include "render/ZoomControl.h"

#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "render/PrepareStage.h"

namespace scenara::test {
namespace {

using testing::DoubleNear;
using testing::Pointwise;

StageModel Zooming(Single out, Single in, Single start) {
    StageModel model;
    model.ZoomOut = out;
    model.ZoomIn = in;
    model.StartZoom = start;
    model.BoundLeft = -100;
    model.BoundRight = 100;
    return model;
}

std::vector<double> Steps(StageModel model, ZoomStep step, int count) {
    Camera camera;
    PlaceCamera(model, camera, View());
    std::vector<double> zooms;
    for (int i = 0; i < count; ++i) {
        SetZoom(model, camera, View(), ZoomAfter(model, step));
        zooms.push_back(model.CamZoom);
    }
    return zooms;
}

TEST(ZoomAfter, GoesByTenthsOfTheWayAndStaysAtItsEnds) {
    const std::vector<double> in = {0.6, 0.7, 0.8, 0.9, 1, 1.1, 1.2, 1.3, 1.4, 1.5, 1.5};
    EXPECT_THAT(Steps(Zooming(0.5F, 1.5F, 0.5F), ZoomStep::In, 11),
                Pointwise(DoubleNear(1e-9), in));
    const std::vector<double> out = {1.4, 1.3, 1.2, 1.1, 1, 0.9, 0.8, 0.7, 0.6, 0.5, 0.5};
    EXPECT_THAT(Steps(Zooming(0.5F, 1.5F, 1.5F), ZoomStep::Out, 11),
                Pointwise(DoubleNear(1e-9), out));
}

TEST(ZoomAfter, EndsExactlyWhereTheWayEnds) {
    StageModel model = Zooming(0.3F, 1.7F, 0.3F);
    EXPECT_EQ(Steps(model, ZoomStep::In, 10).back(), static_cast<double>(model.ZoomIn));
    model.StartZoom = model.ZoomIn;
    EXPECT_EQ(Steps(model, ZoomStep::Out, 10).back(), static_cast<double>(model.ZoomOut));
}

TEST(ZoomAfter, GoesToTheNextTenthFromBetweenTwo) {
    StageModel model = Zooming(1, 2, 1.25F);
    model.CamZoom = 1.25;
    EXPECT_DOUBLE_EQ(ZoomAfter(model, ZoomStep::In), 1.3);
    EXPECT_DOUBLE_EQ(ZoomAfter(model, ZoomStep::Out), 1.2);
}

TEST(ZoomAfter, GoesBackToTheStart) {
    StageModel model = Zooming(1, 2, 1.25F);
    EXPECT_EQ(ZoomAfter(model, ZoomStep::ToStart), 1.25);
    model.StartZoom = 5;
    EXPECT_EQ(ZoomAfter(model, ZoomStep::ToStart), 2);
}

TEST(ZoomAfter, AStageThatDoesNotZoomStaysAsItIs) {
    const StageModel model = Zooming(1, 1, 1);
    EXPECT_EQ(ZoomAfter(model, ZoomStep::In), 1);
    EXPECT_EQ(ZoomAfter(model, ZoomStep::Out), 1);
}

TEST(SetZoom, TheCameraIsBroughtWithinItsBounds) {
    StageModel model = Zooming(0.5F, 1, 1);
    Camera camera;
    PlaceCamera(model, camera, View(), {-260, 0});
    EXPECT_EQ(model.CamX, -260) << "100 + 160 (2 - 1)";
    SetZoom(model, camera, View(), 0.5);
    EXPECT_EQ(model.CamX, -100);
    EXPECT_EQ(camera.previousX, -100);
    SetZoom(model, camera, View(), 1);
    EXPECT_EQ(model.CamX, -100) << "it is not taken back";
}

TEST(PlaceCamera, AStageStartsAtItsZoomAndWithinTheBoundsThere) {
    StageModel model = Zooming(0.5F, 1, 0.8F);
    model.CamStartX = 1000;
    Camera camera;
    PlaceCamera(model, camera, View());
    EXPECT_EQ(model.CamZoom, static_cast<double>(0.8F));
    EXPECT_FLOAT_EQ(model.CamX, -220);  // 100 + 160 (2 - 1.25)
}

}  // namespace
}  // namespace scenara::test
