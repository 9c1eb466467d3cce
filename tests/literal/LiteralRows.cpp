// SPDX-License-Identifier: MIT
//
// Parallax elements of a LiteralStage, on a canvas: each row of their pictures stands at a distance
// of its own from the middle, or is as wide as its height asks for.
#include <cmath>
#include <cstddef>

#include "literal/LiteralStage.h"

namespace scenara::test {

// How many rows a row of a parallax picture takes, but for the stage's scale and the element's own.
double LiteralStage::Stretch(const BackgroundElement& element) const {
    const double shrunk =
        Wide(element.yscaleStart) / 100 + Wide(element.yscaleDelta) / 100 * seenFrom_[1];
    return 1 / std::min(std::max(shrunk, 1.0 / 16), 16.0);
}

// Where row i of the picture stands, and how far its tiles do from one another.
struct LiteralStage::Row {
    Reach reach;
    double step = 0;
};

LiteralStage::Row LiteralStage::ShearedRow(const Element& element, const Shown& shown,
                                           double t) const {
    const BackgroundElement& file = *element.file;
    const bool given = file.xscaleTop != 0 || file.xscaleBottom != 0;
    const double top = file.xscaleTop == 0 ? 1 : Wide(file.xscaleTop);
    const double bottom = Wide(file.xscaleBottom);
    const double factor = given ? (top + (bottom - top) * t) / top : 1;
    const double middle = space_.detail * (space_.width / 2.0);
    const double place = middle + (AxisPlace(element, 0) - middle) * factor;
    return {ReachOf(shown, 0, place, PixelOf(element, shown, 0)),
            static_cast<double>(TilingOf(file, shown, 0).distance) * std::abs(PixelOf(element, 0))};
}

// A trapezoid. The axis point is above the middle of its upper edge, whatever axis the picture has.
LiteralStage::Row LiteralStage::WidenedRow(const Element& element, const Shown& shown,
                                           double t) const {
    const double top = Wide(element.file->rowWidths[0]);
    const double bottom = Wide(element.file->rowWidths[1]);
    const double factor = 1 + (bottom / top - 1) * t;
    const double middle = space_.detail * (space_.width / 2.0);
    const double across = PixelOf(element, shown, 0);
    const double upperWidth = top * std::abs(across);
    const double upperLeft = AxisPlace(element, 0) - upperWidth / 2;
    const double width = upperWidth * factor;
    // Next to one another tiles are exactly a width apart.
    const double tile = top * std::abs(PixelOf(element, 0)) * factor;
    const auto distance = TilingOf(*element.file, shown, 0).distance;
    const int columns = shown.image->width;
    return {{middle + (upperLeft - middle) * factor, width, shown.mirrored[0] != (across < 0)},
            distance == columns ? tile : static_cast<double>(distance) * tile / columns};
}

bool LiteralStage::HasWidths(const BackgroundElement& element) {
    return element.type == "parallax" && element.rowWidths[0] > 0 && element.rowWidths[1] >= 0;
}

// There are no tiles below one another. A mirrored frame's rows are those of the mirrored picture,
// and where a scale below 0 mirrors, its first row is the lowest one.
void LiteralStage::DrawRows(const Element& element, const Shown& shown) {
    const BackgroundElement& file = *element.file;
    const int height = shown.image->height;
    const double down = PixelOf(element, shown, 1) * Stretch(file);
    const Reach rows = ReachOf(shown, 1, AxisPlace(element, 1), down);
    const Tiling tiling = TilingOf(file, shown, 0);
    for (int fromTop = 0; fromTop < height; ++fromTop) {
        const int row = down < 0 ? height - 1 - fromTop : fromTop;
        const double t = height == 1 ? 0 : double(row) / (height - 1);
        const auto [reach, step] =
            HasWidths(file) ? WidenedRow(element, shown, t) : ShearedRow(element, shown, t);
        if (reach.size == 0) {
            continue;
        }
        const Span lines{CanvasPixel(rows.near + fromTop * std::abs(down)),
                         CanvasPixel(rows.near + (fromTop + 1) * std::abs(down))};
        for (const Span& columns : Copies(reach, tiling, step, 0)) {
            DrawQuad(shown, columns, lines, {fromTop, fromTop + 1},
                     {reach.mirrored, rows.mirrored});
        }
    }
}

}  // namespace scenara::test
