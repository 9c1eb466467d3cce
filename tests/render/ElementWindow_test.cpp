// SPDX-License-Identifier: MIT
#include "render/ElementWindow.h"

#include <cstdint>
#include <vector>

#include <gtest/gtest.h>

#include "render/ExpectRanges.h"
#include "render/StageBuilder.h"

namespace scenara::test {
namespace {

// The corners in the order of the file.
BackgroundElement WindowOf(Single x1, Single y1, Single x2, Single y2) {
    BackgroundElement element;
    return Windowed(element, x1, y1, x2, y2);
}

struct WindowRanges {
    const char* name;
    BackgroundElement element;
    PixelRange columns;
    PixelRange rows;
};

TEST(ElementWindow, HasBothCornersInsideAsFarAsTheViewGoes) {
    for (const WindowRanges& row : std::vector<WindowRanges>{
             {"both corners", WindowOf(10, 20, 19, 39), {10, 20}, {20, 40}},
             {"one pixel", WindowOf(5, 6, 5, 6), {5, 6}, {6, 7}},
             {"right to left", WindowOf(19, 20, 10, 39), {10, 20}, {20, 40}},
             {"bottom to top", WindowOf(10, 39, 19, 20), {10, 20}, {20, 40}},
             {"both", WindowOf(19, 39, 10, 20), {10, 20}, {20, 40}},
             {"rounded", WindowOf(2.5F, 3.5F, 10.4F, 10.6F), {2, 11}, {4, 12}},
             {"larger than the view", WindowOf(-50, -60, 400, 500), {0, 320}, {0, 240}},
             {"of all numbers", WindowOf(-3e38F, -3e38F, 3e38F, 3e38F), {0, 320}, {0, 240}},
             {"partly beyond the view", WindowOf(-50, 100, 100, 500), {0, 101}, {100, 240}},
             // Nothing is seen through these.
             {"left of the view", WindowOf(-50, 0, -1, 100), {0, 0}, {0, 101}},
             {"right of the view", WindowOf(320, 0, 400, 100), {320, 320}, {0, 101}},
             {"above the view", WindowOf(0, -50, 100, -1), {0, 101}, {0, 0}},
             {"below the view", WindowOf(0, 240, 100, 300), {0, 101}, {240, 240}},
             {"far left", WindowOf(-3e38F, 0, -3e37F, 100), {0, 0}, {0, 101}},
             {"far right", WindowOf(3e37F, 0, 3e38F, 100), {320, 320}, {0, 101}},
             {"rounded to even", WindowOf(0.5F, 1.5F, 4.5F, 5.5F), {0, 5}, {2, 7}},
         }) {
        SCOPED_TRACE(row.name);
        const ElementWindow window = ElementWindow::Of(row.element, {});
        EXPECT_TRUE(window.active);
        ExpectRanges(window, row.columns, row.rows);
    }
}

TEST(ElementWindow, WithoutOneTheViewIsWhatCanBeSeen) {
    BackgroundElement element = WindowOf(10, 20, 19, 39);
    element.windowActive = 0;
    const ElementWindow window = ElementWindow::Of(element, {});
    EXPECT_FALSE(window.active);
    ExpectRanges(window, {0, 320}, {0, 240});
}

// --- windows that are zoomed with their element, an addition ---

BackgroundElement MaskWindowOf(Single x1, Single y1, Single x2, Single y2) {
    BackgroundElement element;
    element.maskWindow = {x1, y1, x2, y2};
    element.maskWindowActive = 1;
    return element;
}

TEST(MaskWindow, CountsFromTheMiddleAndLeavesItsFarEdgesOut) {
    DrawOptions twice;
    twice.additions = true;
    twice.view.detail = 2;
    for (const WindowRanges& row : std::vector<WindowRanges>{
             {"about the middle", MaskWindowOf(-20, 10, 30, 40), {280, 380}, {20, 80}},
             {"any order", MaskWindowOf(30, 40, -20, 10), {280, 380}, {20, 80}},
             {"rounded on the canvas", MaskWindowOf(0.25F, 0.2F, 1.3F, 1), {321, 323}, {0, 2}},
             {"of all numbers", MaskWindowOf(-3e38F, -3e38F, 3e38F, 3e38F), {0, 640}, {0, 480}},
             {"nothing", MaskWindowOf(5, 5, 5, 5), {330, 330}, {10, 10}},
         }) {
        SCOPED_TRACE(row.name);
        const ElementWindow window = ElementWindow::Of(row.element, twice);
        EXPECT_TRUE(window.active);
        ExpectRanges(window, row.columns, row.rows);
    }
}

TEST(MaskWindow, IsZoomedAsItsElementIs) {
    DrawOptions zoomed;
    zoomed.additions = true;
    zoomed.zoom = 0.5;
    zoomed.ground = 200;
    BackgroundElement element = MaskWindowOf(-20, 100, 40, 220);
    ExpectRanges(ElementWindow::Of(element, zoomed), {150, 180}, {150, 210});
    element.zoomDelta = {0, 2};
    ExpectRanges(ElementWindow::Of(element, zoomed), {140, 200}, {200, 200});
    // The other one is not.
    Windowed(element, 150, 0, 159, 239);
    element.zoomDelta = {1, 1};
    ExpectRanges(ElementWindow::Of(element, zoomed), {150, 160}, {150, 210});
}

TEST(MaskWindow, PlainlyThereIsNone) {
    const ElementWindow window = ElementWindow::Of(MaskWindowOf(-20, 10, 30, 40), {});
    EXPECT_FALSE(window.active);
    ExpectRanges(window, {0, 320}, {0, 240});
}

// --- cutting ---

struct Cut {
    const char* name;
    SpriteQuad whole;
    SpriteQuad cut;
};

std::vector<std::int64_t> Numbers(const SpriteQuad& quad) {
    return {quad.x, quad.y, quad.width, quad.height, quad.sourceX, quad.sourceY};
}

// Columns 100 to 199, rows 50 to 99.
constexpr ElementWindow kWindow{true, {100, 200}, {50, 100}};

TEST(CutQuad, IsWhatIsInsideAndItsSource) {
    for (const Cut& row : {
             Cut{"as large as the window", {100, 50, 100, 50, 0, 0}, {100, 50, 100, 50, 0, 0}},
             {"inside", {120, 60, 10, 10, 3, 4}, {120, 60, 10, 10, 3, 4}},
             {"at the left", {90, 60, 20, 10, 0, 0}, {100, 60, 10, 10, 10, 0}},
             {"at the top", {120, 43, 10, 10, 0, 5}, {120, 50, 10, 3, 0, 12}},
             {"at the right", {190, 60, 20, 10, 0, 0}, {190, 60, 10, 10, 0, 0}},
             {"at the bottom", {120, 99, 10, 10, 0, 5}, {120, 99, 10, 1, 0, 5}},
             {"on all sides", {0, 0, 320, 240, 7, 9}, {100, 50, 100, 50, 107, 59}},
         }) {
        const auto quad = CutTo(kWindow, row.whole);
        ASSERT_TRUE(quad.has_value()) << row.name;
        EXPECT_EQ(Numbers(*quad), Numbers(row.cut)) << row.name;
    }
}

TEST(CutQuad, OutsideIsNothing) {
    EXPECT_FALSE(CutTo({true, {0, 0}, {0, 101}}, {-1000, -1000, 3000, 3000, 0, 0}).has_value());
    EXPECT_FALSE(CutTo({true, {0, 101}, {240, 240}}, {-1000, -1000, 3000, 3000, 0, 0}).has_value());
    for (const SpriteQuad& quad :
         {SpriteQuad{80, 60, 20, 10, 0, 0}, SpriteQuad{200, 60, 20, 10, 0, 0},
          SpriteQuad{120, 40, 20, 10, 0, 0}, SpriteQuad{120, 100, 20, 10, 0, 0},
          SpriteQuad{1073741824, 60, 32767, 10, 0, 0},
          SpriteQuad{-1073741824, 60, 32767, 10, 0, 0}}) {
        EXPECT_FALSE(CutTo(kWindow, quad).has_value()) << quad.x << "," << quad.y;
    }
}

TEST(CutQuad, WithoutAWindowIsWhole) {
    const SpriteQuad whole{-500, -600, 20, 10, 1, 2};
    const auto quad = CutTo({false, {0, 320}, {0, 240}}, whole);
    ASSERT_TRUE(quad.has_value());
    EXPECT_EQ(Numbers(*quad), Numbers(whole));
}

}  // namespace
}  // namespace scenara::test
