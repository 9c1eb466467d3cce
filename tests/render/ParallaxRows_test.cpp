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

struct Speed {
    const char* name;
    Single top;
    Single bottom;
    std::int64_t row;
    std::int64_t rows;
    double speed;
};

TEST(RowSpeed, RunsEvenlyFromTheTopScaleToTheBottomOne) {
    for (const Speed& row : {
             Speed{"the first", 1, 3, 0, 5, 1},
             {"the second", 1, 3, 1, 5, 1.5},
             {"the third", 1, 3, 2, 5, 2},
             {"the last", 1, 3, 4, 5, 3},
             {"without scales", 0, 0, 0, 9, 1},
             {"without scales, the last", 0, 0, 8, 9, 1},
             {"a top scale of 0 alone counts as 1", 0, 3, 0, 5, 1},
             {"and to the last", 0, 3, 4, 5, 3},
             {"a bottom scale of 0", 2, 0, 0, 5, 1},
             {"goes slower", 2, 0, 2, 5, 0.5},
             {"and stands still there", 2, 0, 4, 5, 0},
             {"a single row", 1, 3, 0, 1, 1},
             {"a negative top", -2, 2, 4, 5, -1},
             {"a negative bottom", 1, -1, 2, 3, -1},
             {"counted from the top row's scale", 1.425F, 1, 0, 40, 1},
         }) {
        EXPECT_DOUBLE_EQ(RowSpeed(Scaled(row.top, row.bottom), row.row, row.rows), row.speed)
            << row.name;
    }
    // A ceiling: delta 1.1115 at the top, 0.78 at the bottom like the wall below it.
    EXPECT_NEAR(1.1115 * RowSpeed(Scaled(1.425F, 1), 39, 40), 0.78, 1e-6);
}

struct Position {
    const char* name;
    Single elementX;
    double shear;
    std::int64_t row;  // of three, the last twice as fast
    std::int64_t position;
};

TEST(RowPosition, IsShearedByItsSpeedAndRoundedByItself) {
    for (const Position& row : {
             // 100 shown to the right: the floor's lower rows run ahead to the left.
             Position{"the first", 10, -100, 0, 10},
             {"the second", 10, -100, 1, -40},
             {"the last", 10, -100, 2, -90},
             {"the last, to the right", 10, 100, 2, 110},
             {"no shear", 37, 0, 1, 37},
             {"the first by 1", 10, -1, 0, 10},
             {"9.5", 10, -1, 1, 10},
             {"10.5", 11, -1, 1, 10},
             {"10", 10.5F, -1, 1, 10},
             {"10.5 without shear", 10.5F, -1, 0, 10},
             {"11.5 without shear", 11.5F, -1, 0, 12},
             {"-0.5", -0.5F, 0, 0, 0},
         }) {
        EXPECT_EQ(RowPosition(Scaled(1, 2), row.elementX, row.shear, row.row, 3), row.position)
            << row.name;
    }
    EXPECT_EQ(RowPosition(Scaled(1, 9), 37, 0, 5, 10), 37);
}

TEST(RowPosition, OfAbsurdNumbersStaysWithinReach) {
    constexpr auto kReach = static_cast<std::int64_t>(kFarthest);
    for (const double shear : {-9e76, -3e38, -1.0, 0.0, 3e38, 9e76}) {
        for (const Single scale : {-3e38F, -1e-38F, 1e-45F, 3e38F}) {
            const std::int64_t x = RowPosition(Scaled(scale, 3e38F), 3e8F, shear, 5, 10);
            EXPECT_GE(x, -kReach);
            EXPECT_LE(x, kReach);
        }
    }
}

}  // namespace
}  // namespace scenara::test
