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

}  // namespace
}  // namespace scenara::test
