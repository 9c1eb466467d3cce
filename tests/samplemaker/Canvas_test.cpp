// SPDX-License-Identifier: MIT
#include "samplemaker/Canvas.h"

#include <array>
#include <stdexcept>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace scenara::samplemaker {
namespace {

// One line of digits per row, "." for index 0.
std::vector<std::string> Rows(const Canvas& canvas) {
    std::vector<std::string> rows;
    for (int y = 0; y < canvas.Height(); ++y) {
        std::string row;
        for (int x = 0; x < canvas.Width(); ++x) {
            const int index = canvas.Get(x, y);
            row += index == 0 ? '.' : static_cast<char>('0' + index);
        }
        rows.push_back(row);
    }
    return rows;
}

using RowList = std::vector<std::string>;

TEST(Canvas, NothingIsDrawnOutside) {
    Canvas canvas(3, 2);
    canvas.Set(-1, 0, 1);
    canvas.Set(3, 0, 1);
    canvas.Set(0, 2, 1);
    canvas.FillRect(-5, 1, 7, 9, 2);
    EXPECT_EQ(Rows(canvas), (RowList{"...", "22."}));
    EXPECT_EQ(canvas.Get(-1, 1), 0);
    EXPECT_EQ(canvas.Get(0, 99), 0);
}

TEST(Canvas, WrappedPixelsComeInOnTheOtherSide) {
    Canvas canvas(4, 1);
    canvas.SetWrapped(-1, 0, 1);
    canvas.SetWrapped(5, 0, 2);
    canvas.SetWrapped(-8, 0, 3);
    EXPECT_EQ(Rows(canvas), (RowList{"32.1"}));
}

TEST(Canvas, LinesHoldBothEnds) {
    Canvas canvas(4, 4);
    canvas.Line(3, 0, 0, 3, 1);
    canvas.Line(0, 0, 2, 0, 2);
    EXPECT_EQ(Rows(canvas), (RowList{"2221", "..1.", ".1..", "1..."}));
}

TEST(Canvas, StampLeavesIndex0Out) {
    Canvas stamp(2, 2);
    stamp.Set(0, 0, 5);
    stamp.Set(1, 1, 6);
    Canvas canvas(3, 3);
    canvas.FillRect(0, 0, 3, 3, 1);
    canvas.Stamp(stamp, 1, 1);
    canvas.Stamp(stamp.Mirrored(), -1, -1);
    EXPECT_EQ(Rows(canvas), (RowList{"111", "151", "116"}));
    EXPECT_EQ(Rows(stamp.Mirrored()), (RowList{".5", "6."}));
}

TEST(Canvas, ShapesTakePixelsWhoseCentresLieInside) {
    Canvas canvas(5, 5);
    FillEllipse(canvas, {2, 2}, 2, 1, [](int, int) { return std::uint8_t{3}; });
    EXPECT_EQ(Rows(canvas), (RowList{".....", "..3..", "33333", "..3..", "....."}));

    Canvas other(5, 4);
    const std::array<Point, 3> corners = {Point{-0.5, -0.5}, {4.5, -0.5}, {-0.5, 4.5}};
    FillPolygon(other, corners, [](int x, int) { return static_cast<std::uint8_t>(x + 1); });
    EXPECT_EQ(Rows(other), (RowList{"1234.", "123..", "12...", "1...."}));
}

TEST(Canvas, PictureHoldsPixelsAndPalette) {
    Canvas canvas(2, 1);
    canvas.Set(1, 0, 9);
    Palette palette{};
    palette[9] = {1, 2, 3};
    const IndexedPicture picture = canvas.ToPicture(palette);
    EXPECT_EQ(picture.width, 2);
    EXPECT_EQ(picture.height, 1);
    EXPECT_EQ(picture.pixels, (std::vector<std::uint8_t>{0, 9}));
    EXPECT_EQ(picture.palette[9], (Rgb{1, 2, 3}));
}

TEST(Canvas, RefusesEmptySizes) {
    EXPECT_THROW(Canvas(0, 5), std::invalid_argument);
    EXPECT_THROW(Canvas(5, -1), std::invalid_argument);
}

}  // namespace
}  // namespace scenara::samplemaker
