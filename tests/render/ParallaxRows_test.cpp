// SPDX-License-Identifier: MIT
#include "render/ParallaxRows.h"

#include <gtest/gtest.h>

#include "render/ElementPlacement.h"

namespace scenara::test {
namespace {

BackgroundElement Scaled(Single top, Single bottom, Single deltaX = 1) {
    BackgroundElement element;
    element.type = "parallax";
    element.xscaleTop = top;
    element.xscaleBottom = bottom;
    element.deltaX = deltaX;
    return element;
}

TEST(RowSpeed, RunsEvenlyFromTheTopScaleToTheBottomOne) {
    const BackgroundElement floor = Scaled(1, 3);
    EXPECT_DOUBLE_EQ(RowSpeed(floor, 0, 5), 1);
    EXPECT_DOUBLE_EQ(RowSpeed(floor, 1, 5), 1.5);
    EXPECT_DOUBLE_EQ(RowSpeed(floor, 2, 5), 2);
    EXPECT_DOUBLE_EQ(RowSpeed(floor, 4, 5), 3);
}

TEST(RowSpeed, CountsFromTheTopRowsScale) {
    // A ceiling: delta 1.1115 at the top, 0.78 at the bottom like the wall below it.
    const BackgroundElement ceiling = Scaled(1.425F, 1);
    EXPECT_DOUBLE_EQ(RowSpeed(ceiling, 0, 40), 1);
    EXPECT_NEAR(1.1115 * RowSpeed(ceiling, 39, 40), 0.78, 1e-6);
}

TEST(RowSpeed, Is1WithoutScales) {
    EXPECT_EQ(RowSpeed(Scaled(0, 0), 0, 9), 1);
    EXPECT_EQ(RowSpeed(Scaled(0, 0), 8, 9), 1);
}

TEST(RowSpeed, ATopScaleOf0AloneCountsAs1) {
    EXPECT_DOUBLE_EQ(RowSpeed(Scaled(0, 3), 0, 5), 1);
    EXPECT_DOUBLE_EQ(RowSpeed(Scaled(0, 3), 4, 5), 3);
}

TEST(RowSpeed, ABottomScaleOf0StandsStillThere) {
    EXPECT_DOUBLE_EQ(RowSpeed(Scaled(2, 0), 0, 5), 1);
    EXPECT_DOUBLE_EQ(RowSpeed(Scaled(2, 0), 2, 5), 0.5);
    EXPECT_DOUBLE_EQ(RowSpeed(Scaled(2, 0), 4, 5), 0);
}

TEST(RowSpeed, OfASingleRowIsThatOfTheTop) {
    EXPECT_DOUBLE_EQ(RowSpeed(Scaled(1, 3), 0, 1), 1);
}

TEST(RowSpeed, ScalesMayBeNegative) {
    EXPECT_DOUBLE_EQ(RowSpeed(Scaled(-2, 2), 4, 5), -1);
    EXPECT_DOUBLE_EQ(RowSpeed(Scaled(1, -1), 2, 3), -1);
}

TEST(RowPosition, IsShearedByTheCamera) {
    // 100 shown to the right: the floor's lower rows run ahead to the left.
    const BackgroundElement floor = Scaled(1, 2);
    EXPECT_EQ(RowPosition(floor, 10, -100, 0, 3), 10);
    EXPECT_EQ(RowPosition(floor, 10, -100, 1, 3), -40);
    EXPECT_EQ(RowPosition(floor, 10, -100, 2, 3), -90);
    EXPECT_EQ(RowPosition(floor, 10, 100, 2, 3), 110);
}

TEST(RowPosition, GoesByTheElementsDelta) {
    EXPECT_EQ(RowPosition(Scaled(1, 2, 0.5F), 10, -100, 2, 3), -40);
    EXPECT_EQ(RowPosition(Scaled(1, 2, 0), 10, -100, 2, 3), 10);
    EXPECT_EQ(RowPosition(Scaled(1, 2, -1), 10, -100, 2, 3), 110);
}

TEST(RowPosition, WithTheCameraAt0IsTheElements) {
    EXPECT_EQ(RowPosition(Scaled(1, 9), 37, 0, 5, 10), 37);
}

TEST(RowPosition, IsRoundedByItselfTiesToEven) {
    const BackgroundElement floor = Scaled(1, 2);
    EXPECT_EQ(RowPosition(floor, 10, -1, 0, 3), 10);
    EXPECT_EQ(RowPosition(floor, 10, -1, 1, 3), 10);  // 9.5
    EXPECT_EQ(RowPosition(floor, 11, -1, 1, 3), 10);  // 10.5
    EXPECT_EQ(RowPosition(floor, 10.5F, -1, 1, 3), 10);
    EXPECT_EQ(RowPosition(floor, 10.5F, -1, 0, 3), 10);
    EXPECT_EQ(RowPosition(floor, 11.5F, -1, 0, 3), 12);
    EXPECT_EQ(RowPosition(floor, -0.5F, 0, 0, 3), 0);
}

TEST(RowPosition, OfAbsurdNumbersStaysWithinReach) {
    constexpr auto kReach = static_cast<std::int64_t>(kFarthest);
    for (const Single camera : {-3e38F, -1.0F, 0.0F, 3e38F}) {
        for (const Single scale : {-3e38F, -1e-38F, 1e-45F, 3e38F}) {
            for (const Single delta : {-3e38F, 0.0F, 3e38F}) {
                const std::int64_t x =
                    RowPosition(Scaled(scale, 3e38F, delta), 3e8F, camera, 5, 10);
                EXPECT_GE(x, -kReach);
                EXPECT_LE(x, kReach);
            }
        }
    }
}

}  // namespace
}  // namespace scenara::test
