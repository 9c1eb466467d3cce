// SPDX-License-Identifier: MIT
#include "stage/CameraZoom.h"

#include <limits>
#include <ostream>

#include <gtest/gtest.h>

namespace scenara::test {
namespace {

constexpr Single kInfinity = std::numeric_limits<Single>::infinity();
constexpr Single kNoNumber = std::numeric_limits<Single>::quiet_NaN();

struct RangeRow {
    const char* name;
    Single out;
    Single in;
    double from;
    double to;
};
void PrintTo(const RangeRow& row, std::ostream* out) {
    *out << row.name;
}

class ZoomRanges : public testing::TestWithParam<RangeRow> {};

TEST_P(ZoomRanges, AreThoseOfTheFileAsFarAsTheyGo) {
    StageModel model;
    model.ZoomOut = GetParam().out;
    model.ZoomIn = GetParam().in;
    EXPECT_EQ(ZoomRangeOf(model).out, GetParam().from);
    EXPECT_EQ(ZoomRangeOf(model).in, GetParam().to);
    EXPECT_EQ(ZoomRangeOf(model).HasOnlyOne(), GetParam().from == GetParam().to);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, ZoomRanges,
    testing::Values(RangeRow{"AsGiven", 0.5F, 2, 0.5, 2}, RangeRow{"BothNear", 2, 3, 2, 3},
                    RangeRow{"InBelowOut", 1, 0.5F, 1, 1}, RangeRow{"OutOf0", 0, 2, 1, 2},
                    RangeRow{"OutBelow0", -1, 2, 1, 2}, RangeRow{"InOf0", 0.5F, 0, 0.5, 1},
                    RangeRow{"NoNumbers", kNoNumber, kNoNumber, 1, 1},
                    RangeRow{"TooFar", 0.0001F, 0.0001F, 1.0 / 64, 1.0 / 64},
                    RangeRow{"TooNear", kInfinity, kInfinity, 64, 64}),
    testing::PrintToStringParamName());

TEST(ZoomRange, KeepsAZoomWithin) {
    const ZoomRange range{0.5, 2};
    EXPECT_EQ(range.Kept(0.75), 0.75);
    EXPECT_EQ(range.Kept(0.25), 0.5);
    EXPECT_EQ(range.Kept(9), 2);
    EXPECT_EQ(range.Kept(static_cast<double>(kNoNumber)), 0.5);
}

TEST(BeyondBounds, TheViewsEdgeIsWhereItIsAtTheWidestZoom) {
    StageModel model;
    model.ZoomOut = 0.5F;
    model.ZoomIn = 2;
    const View view{640, 480};
    EXPECT_EQ(BeyondBoundsAt(model, view, 0.5), 0);
    EXPECT_EQ(BeyondBoundsAt(model, view, 1), 320);  // 320 (2 - 1)
    EXPECT_EQ(BeyondBoundsAt(model, view, 2), 480);  // 320 (2 - 1/2)
    model.CamZoom = 2;
    EXPECT_EQ(BeyondBounds(model, view), 480);
}

TEST(BeyondBounds, AStageThatDoesNotZoomHasItsOwn) {
    EXPECT_EQ(BeyondBounds(StageModel(), View()), 0);
}

TEST(GroundRow, IsThatOfZoffsetAndOfTheElementThatItIsLinkedTo) {
    StageModel model;
    model.ZOffset = 200;
    EXPECT_EQ(GroundRow(model, 7), 200) << "without a link nothing moves it";
    model.Elements.resize(2);
    model.Elements[1].linkParent = 0;
    model.Elements[0].linkParent = -1;
    model.Elements[0].startY = 10;
    model.Elements[1].startY = 5;
    model.ZOffsetLink = 1;
    EXPECT_EQ(GroundRow(model, 0), 215);
    EXPECT_EQ(GroundRow(model, -1.5), 213.5);
    model.hires = 1;
    model.StageYScale = 4;
    EXPECT_EQ(GroundRow(model, 0), 230);  // 200 + 1/2 x 4 x 15
    EXPECT_EQ(GroundElement(model), &model.Elements[1]);
    model.ZOffsetLink = 2;
    EXPECT_EQ(GroundElement(model), nullptr);
    EXPECT_EQ(GroundRow(model, 0), 200);
}

}  // namespace
}  // namespace scenara::test
