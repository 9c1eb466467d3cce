// SPDX-License-Identifier: MIT
#include "samplemaker/Canvas.h"

#include <algorithm>
#include <cstdlib>
#include <stdexcept>

namespace scenara::samplemaker {

Canvas::Canvas(int width, int height) : width_(width), height_(height) {
    if (width < 1 || height < 1) {
        throw std::invalid_argument("a canvas has at least one pixel");
    }
    pixels_.resize(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
}

void Canvas::SetWrapped(int x, int y, std::uint8_t index) {
    const int rest = x % width_;
    Set(rest < 0 ? rest + width_ : rest, y, index);
}

void Canvas::FillRect(int x, int y, int width, int height, std::uint8_t index) {
    for (int row = std::max(y, 0); row < std::min(y + height, height_); ++row) {
        for (int column = std::max(x, 0); column < std::min(x + width, width_); ++column) {
            Set(column, row, index);
        }
    }
}

void Canvas::Line(int x0, int y0, int x1, int y1, std::uint8_t index) {
    const int width = std::abs(x1 - x0);
    const int height = std::abs(y1 - y0);
    const int stepX = x0 < x1 ? 1 : -1;
    const int stepY = y0 < y1 ? 1 : -1;
    int error = width - height;
    while (true) {
        Set(x0, y0, index);
        if (x0 == x1 && y0 == y1) {
            return;
        }
        const int doubled = 2 * error;
        if (doubled > -height) {
            error -= height;
            x0 += stepX;
        }
        if (doubled < width) {
            error += width;
            y0 += stepY;
        }
    }
}

void Canvas::Stamp(const Canvas& other, int x, int y) {
    for (int row = 0; row < other.height_; ++row) {
        for (int column = 0; column < other.width_; ++column) {
            const std::uint8_t index = other.Get(column, row);
            if (index != 0) {
                Set(x + column, y + row, index);
            }
        }
    }
}

Canvas Canvas::Mirrored() const {
    Canvas mirrored(width_, height_);
    mirrored.Paint([this](int x, int y) { return Get(width_ - 1 - x, y); });
    return mirrored;
}

IndexedPicture Canvas::ToPicture(const Palette& palette) const {
    return {width_, height_, pixels_, palette};
}

bool InPolygon(std::span<const Point> corners, Point point) {
    bool inside = false;
    for (std::size_t i = 0; i < corners.size(); ++i) {
        const Point& a = corners[i];
        const Point& b = corners[(i + 1) % corners.size()];
        if ((a.y > point.y) != (b.y > point.y) &&
            point.x < (b.x - a.x) * (point.y - a.y) / (b.y - a.y) + a.x) {
            inside = !inside;
        }
    }
    return inside;
}

}  // namespace scenara::samplemaker
