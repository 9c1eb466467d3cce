// SPDX-License-Identifier: MIT
//
// Where the copies of an element's picture stand plainly: in the view's own pixels, each at its own
// size.
#include <algorithm>
#include <cmath>
#include <cstddef>

#include "literal/LiteralStage.h"

namespace scenara::test {
namespace {

// To the nearest whole number, ties to the even one.
std::int64_t Rounded(double value) {
    return static_cast<std::int64_t>(std::nearbyint(value));
}

// Along one axis: all places whose copy touches the view.
std::vector<std::int64_t> PlacesOf(std::int64_t first, std::int64_t count, std::int64_t step,
                                   std::int64_t size, std::int64_t viewSize) {
    std::vector<std::int64_t> places;
    if (count == 0 || step == 0 || (count == 1 && step < 0)) {
        places.push_back(first);
    } else if (count == 1) {
        std::int64_t place = first;
        while (place + size > 0) {
            place -= step;
        }
        while (place + size <= 0) {
            place += step;
        }
        for (; place < viewSize; place += step) {
            places.push_back(place);
        }
    } else if (step > 0) {
        for (std::int64_t k = 0; k < count && first + k * step < viewSize; ++k) {
            if (first + k * step + size > 0) {
                places.push_back(first + k * step);
            }
        }
    }
    return places;
}

}  // namespace

// A mirrored frame is mirrored within its rectangle.
void LiteralStage::DrawPlainly(const Element& element, Shown& shown) {
    shown.window = PlainWindow(*element.file);
    std::array<double, 2> place{};
    for (std::size_t axis = 0; axis < 2; ++axis) {
        place[axis] = element.position[axis] + CarriedBy(element, axis) + shown.offset[axis];
        if (element.animated) {
            place[axis] -= axis == 0 ? shown.image->axisX : shown.image->axisY;
        }
        place[axis] = Kept(place[axis]);
    }
    if (element.parallax) {
        DrawPlainRows(element, shown, place[0], place[1]);
    } else {
        DrawPlainTiles(element, shown, Rounded(place[0]), Rounded(place[1]));
    }
}

// Each row has a speed of its own, and its own tiles; there are none below one another.
void LiteralStage::DrawPlainRows(const Element& element, const Shown& shown, double x, double y) {
    const BackgroundElement& file = *element.file;
    const Image& image = *shown.image;
    const bool given = file.xscaleTop != 0 || file.xscaleBottom != 0;
    const double top = file.xscaleTop == 0 ? 1 : Wide(file.xscaleTop);
    const double bottom = Wide(file.xscaleBottom);
    for (int row = 0; row < image.height; ++row) {
        const double t = image.height == 1 ? 0 : double(row) / (image.height - 1);
        const double factor = given ? (top + (bottom - top) * t) / top : 1;
        const double rowX = x + camera_[0] * Wide(element.delta[0]) * (factor - 1);
        for (const std::int64_t copy :
             PlacesOf(Rounded(rowX), file.tileX, std::int64_t{file.tileSpacingX} + image.width,
                      image.width, Width())) {
            DrawPlainCopy(shown, copy, Rounded(y), row, row + 1);
        }
    }
}

// Every row of copies from top to bottom, in it every column from left to right. An animation's
// spacing is the whole distance, and as much as none where it is 1 or less and has no end.
void LiteralStage::DrawPlainTiles(const Element& element, const Shown& shown, std::int64_t x,
                                  std::int64_t y) {
    const BackgroundElement& file = *element.file;
    const Image& image = *shown.image;
    if (shown.mirrored[0]) {
        DrawPlainCopy(shown, x, y, 0, image.height);
        return;
    }
    const auto step = [&](std::int64_t spacing, std::int64_t count, std::int64_t size) {
        if (file.type != "anim") {
            return spacing + size;
        }
        return count == 1 && spacing <= 1 ? size : spacing;
    };
    const std::vector<std::int64_t> columns = PlacesOf(
        x, file.tileX, step(file.tileSpacingX, file.tileX, image.width), image.width, Width());
    const std::vector<std::int64_t> rows = PlacesOf(
        y, file.tileY, step(file.tileSpacingY, file.tileY, image.height), image.height, Height());
    for (const std::int64_t row : rows) {
        for (const std::int64_t column : columns) {
            DrawPlainCopy(shown, column, row, 0, image.height);
        }
    }
}

// Whole numbers, both corners included and in any order.
LiteralStage::Window LiteralStage::PlainWindow(const BackgroundElement& element) const {
    Window window{Whole(0), Whole(1)};
    if (element.windowActive == 0) {
        return window;
    }
    const auto cut = [](Span& span, float one, float other) {
        const std::int64_t first = Rounded(Wide(std::min(one, other)));
        const std::int64_t last = Rounded(Wide(std::max(one, other)));
        span = {std::max(span.begin, first), std::min(span.end, last + 1)};
    };
    cut(window.columns, element.windowX1, element.windowX2);
    cut(window.rows, element.windowY1, element.windowY2);
    return window;
}

void LiteralStage::DrawPlainCopy(const Shown& shown, std::int64_t x, std::int64_t y, int firstRow,
                                 int endRow) {
    const Image& image = *shown.image;
    const Span columns{std::max(shown.window.columns.begin, x),
                       std::min(shown.window.columns.end, x + image.width)};
    const Span rows{std::max(shown.window.rows.begin, y + firstRow),
                    std::min(shown.window.rows.end, y + endRow)};
    for (std::int64_t row = rows.begin; row < rows.end; ++row) {
        for (std::int64_t column = columns.begin; column < columns.end; ++column) {
            const std::int64_t across = column - x;
            const std::int64_t texelX = shown.mirrored[0] ? image.width - 1 - across : across;
            Put(column, row,
                image.texels[static_cast<std::size_t>((row - y) * image.width + texelX)], shown);
        }
    }
}

}  // namespace scenara::test
