// SPDX-License-Identifier: MIT
//
// Canvas: an indexed picture under the brush.
//
// Coordinates are pixels from the upper left corner; a whole number stands for the pixel's centre.
// What falls outside is not drawn, so shapes may reach over the edge. Index 0 is nothing: a new
// canvas is full of it, and Stamp leaves it out. Sizes below 1 raise std::invalid_argument.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "samplemaker/Picture.h"

namespace scenara::samplemaker {

struct Point {
    double x = 0;
    double y = 0;
};

class Canvas {
public:
    Canvas(int width, int height);

    [[nodiscard]] int Width() const { return width_; }
    [[nodiscard]] int Height() const { return height_; }

    [[nodiscard]] bool Inside(int x, int y) const {
        return x >= 0 && y >= 0 && x < width_ && y < height_;
    }
    // 0 outside.
    [[nodiscard]] std::uint8_t Get(int x, int y) const {
        return Inside(x, y) ? pixels_[Offset(x, y)] : std::uint8_t{0};
    }
    void Set(int x, int y, std::uint8_t index) {
        if (Inside(x, y)) {
            pixels_[Offset(x, y)] = index;
        }
    }
    // For pictures that tile in x: what leaves on one side comes in on the other.
    void SetWrapped(int x, int y, std::uint8_t index);

    // Each pixel becomes what `brush(x, y)` says; the brush may ask the canvas for the old index.
    template <typename Brush>
    void Paint(Brush brush) {
        for (int y = 0; y < height_; ++y) {
            for (int x = 0; x < width_; ++x) {
                Set(x, y, brush(x, y));
            }
        }
    }

    void FillRect(int x, int y, int width, int height, std::uint8_t index);
    void Line(int x0, int y0, int x1, int y1, std::uint8_t index);

    // `other` with its upper left corner at (x, y).
    void Stamp(const Canvas& other, int x, int y);
    [[nodiscard]] Canvas Mirrored() const;

    [[nodiscard]] IndexedPicture ToPicture(const Palette& palette) const;

private:
    [[nodiscard]] std::size_t Offset(int x, int y) const {
        return static_cast<std::size_t>(y) * static_cast<std::size_t>(width_) +
               static_cast<std::size_t>(x);
    }

    int width_;
    int height_;
    std::vector<std::uint8_t> pixels_;
};

// Each pixel whose centre lies in the shape becomes what `brush(x, y)` says.
template <typename Brush>
void FillEllipse(Canvas& canvas, Point centre, double radiusX, double radiusY, Brush brush) {
    for (int y = 0; y < canvas.Height(); ++y) {
        for (int x = 0; x < canvas.Width(); ++x) {
            const double u = (x - centre.x) / radiusX;
            const double v = (y - centre.y) / radiusY;
            if (u * u + v * v <= 1) {
                canvas.Set(x, y, brush(x, y));
            }
        }
    }
}

// Whether the point lies in the polygon (even-odd rule).
bool InPolygon(std::span<const Point> corners, Point point);

template <typename Brush>
void FillPolygon(Canvas& canvas, std::span<const Point> corners, Brush brush) {
    for (int y = 0; y < canvas.Height(); ++y) {
        for (int x = 0; x < canvas.Width(); ++x) {
            if (InPolygon(corners, {static_cast<double>(x), static_cast<double>(y)})) {
                canvas.Set(x, y, brush(x, y));
            }
        }
    }
}

}  // namespace scenara::samplemaker
