// SPDX-License-Identifier: MIT
#include "render/ElementWindow.h"

#include <algorithm>
#include <string>

#include <gtest/gtest.h>

namespace scenara {
namespace {

// The corners in the order of the file.
BackgroundElement Windowed(Single x1, Single y1, Single x2, Single y2) {
    BackgroundElement element;
    element.windowX1 = x1;
    element.windowY1 = y1;
    element.windowX2 = x2;
    element.windowY2 = y2;
    element.windowActive = 1;
    return element;
}

void ExpectRanges(const BackgroundElement& element, PixelRange columns, PixelRange rows) {
    const ElementWindow window = ElementWindow::Of(element, 0, 0, View());
    EXPECT_TRUE(window.active);
    EXPECT_EQ(window.columns.from, columns.from);
    EXPECT_EQ(window.columns.to, columns.to);
    EXPECT_EQ(window.rows.from, rows.from);
    EXPECT_EQ(window.rows.to, rows.to);
}

TEST(ElementWindow, HasBothCornersInside) {
    ExpectRanges(Windowed(10, 20, 19, 39), {10, 20}, {20, 40});
    ExpectRanges(Windowed(5, 6, 5, 6), {5, 6}, {6, 7});
}

TEST(ElementWindow, TakesCornersInAnyOrder) {
    ExpectRanges(Windowed(19, 20, 10, 39), {10, 20}, {20, 40});
    ExpectRanges(Windowed(10, 39, 19, 20), {10, 20}, {20, 40});
    ExpectRanges(Windowed(19, 39, 10, 20), {10, 20}, {20, 40});
}

TEST(ElementWindow, RoundsTiesToEven) {
    ExpectRanges(Windowed(2.5F, 3.5F, 10.4F, 10.6F), {2, 11}, {4, 12});
    ExpectRanges(Windowed(0.5F, 1.5F, 4.5F, 5.5F), {0, 5}, {2, 7});
}

TEST(ElementWindow, WithoutOneTheViewIsWhatCanBeSeen) {
    BackgroundElement element = Windowed(10, 20, 19, 39);
    element.windowActive = 0;
    const ElementWindow window = ElementWindow::Of(element, 0, 0, View());
    EXPECT_FALSE(window.active);
    EXPECT_EQ(window.columns.from, 0);
    EXPECT_EQ(window.columns.to, 320);
    EXPECT_EQ(window.rows.from, 0);
    EXPECT_EQ(window.rows.to, 240);
}

// What is seen of a quad that fills the view and more, in words.
std::string SeenThrough(const BackgroundElement& element) {
    const auto quad =
        CutTo(ElementWindow::Of(element, 0, 0, View()), {-1000, -1000, 3000, 3000, 0, 0});
    if (!quad) {
        return "nothing";
    }
    const auto clip = [](std::int64_t value, std::int64_t most) {
        return std::to_string(std::max<std::int64_t>(0, std::min(value, most)));
    };
    return clip(quad->x, 320) + "-" + clip(quad->x + quad->width, 320) + " " + clip(quad->y, 240) +
           "-" + clip(quad->y + quad->height, 240);
}

TEST(ElementWindow, BeyondTheViewShowsTheView) {
    EXPECT_EQ(SeenThrough(Windowed(-50, -60, 400, 500)), "0-320 0-240");
    EXPECT_EQ(SeenThrough(Windowed(-3e38F, -3e38F, 3e38F, 3e38F)), "0-320 0-240");
    EXPECT_EQ(SeenThrough(Windowed(-50, 100, 100, 500)), "0-101 100-240");
}

TEST(ElementWindow, BesideTheViewShowsNothingOfIt) {
    for (const BackgroundElement& element :
         {Windowed(-50, 0, -1, 100), Windowed(320, 0, 400, 100), Windowed(0, -50, 100, -1),
          Windowed(0, 240, 100, 300), Windowed(-3e38F, 0, -3e37F, 100),
          Windowed(3e37F, 0, 3e38F, 100)}) {
        const std::string seen = SeenThrough(element);
        EXPECT_TRUE(seen == "nothing" || seen.starts_with("0-0 ") || seen.starts_with("320-320 ") ||
                    seen.ends_with(" 0-0") || seen.ends_with(" 240-240"))
            << seen;
    }
}

// --- cutting ---

class CutQuad : public testing::Test {
protected:
    static void Expect(const SpriteQuad& whole, const SpriteQuad& cut) {
        const auto quad = CutTo(kWindow, whole);
        ASSERT_TRUE(quad.has_value());
        EXPECT_EQ(quad->x, cut.x);
        EXPECT_EQ(quad->y, cut.y);
        EXPECT_EQ(quad->width, cut.width);
        EXPECT_EQ(quad->height, cut.height);
        EXPECT_EQ(quad->sourceX, cut.sourceX);
        EXPECT_EQ(quad->sourceY, cut.sourceY);
    }
    // Columns 100 to 199, rows 50 to 99.
    static constexpr ElementWindow kWindow{true, {100, 200}, {50, 100}};
};

TEST_F(CutQuad, InsideIsWhole) {
    Expect({100, 50, 100, 50, 0, 0}, {100, 50, 100, 50, 0, 0});
    Expect({120, 60, 10, 10, 3, 4}, {120, 60, 10, 10, 3, 4});
}

TEST_F(CutQuad, AtTheLeftAndTheTopRaisesTheSource) {
    Expect({90, 60, 20, 10, 0, 0}, {100, 60, 10, 10, 10, 0});
    Expect({120, 43, 10, 10, 0, 5}, {120, 50, 10, 3, 0, 12});
}

TEST_F(CutQuad, AtTheRightAndTheBottomShortens) {
    Expect({190, 60, 20, 10, 0, 0}, {190, 60, 10, 10, 0, 0});
    Expect({120, 99, 10, 10, 0, 5}, {120, 99, 10, 1, 0, 5});
}

TEST_F(CutQuad, OnAllSides) {
    Expect({0, 0, 320, 240, 7, 9}, {100, 50, 100, 50, 107, 59});
}

TEST_F(CutQuad, OutsideIsNothing) {
    EXPECT_FALSE(CutTo(kWindow, {80, 60, 20, 10, 0, 0}).has_value());
    EXPECT_FALSE(CutTo(kWindow, {200, 60, 20, 10, 0, 0}).has_value());
    EXPECT_FALSE(CutTo(kWindow, {120, 40, 20, 10, 0, 0}).has_value());
    EXPECT_FALSE(CutTo(kWindow, {120, 100, 20, 10, 0, 0}).has_value());
    EXPECT_FALSE(CutTo(kWindow, {1073741824, 60, 32767, 10, 0, 0}).has_value());
    EXPECT_FALSE(CutTo(kWindow, {-1073741824, 60, 32767, 10, 0, 0}).has_value());
}

TEST_F(CutQuad, WithoutAWindowIsWhole) {
    const auto quad = CutTo({false, {0, 320}, {0, 240}}, {-500, -600, 20, 10, 1, 2});
    ASSERT_TRUE(quad.has_value());
    EXPECT_EQ(quad->x, -500);
    EXPECT_EQ(quad->y, -600);
    EXPECT_EQ(quad->sourceX, 1);
}

}  // namespace
}  // namespace scenara
