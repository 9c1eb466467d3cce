// SPDX-License-Identifier: MIT
//
// Parallax pictures: rows that move at different speeds.
//
// With `xscale` the top row moves at the element's deltaX, the row at height t (0 top, 1 bottom) at
// deltaX times (top + (bottom - top) * t) / top of the two scales. Rows keep their length. Plainly
// they stand unsheared with the camera at 0; addition: where the element's axis is in the middle of
// the view.
//
// With `width` of MUGEN 1.1, an addition, the picture is a trapezoid: the top row is that many
// pixels of pictures wide, about the element's axis, and the row at height t, its distance from
// the middle of the view and its tiles are 1 + (bottom / top - 1) * t times as wide.
#pragma once

#include <cstdint>

#include "stage/StageModel.h"

namespace scenara {

// Relative speed of row `row` of `rows`: 1 when no scales were given; a top scale of 0 alone counts
// as 1.
[[nodiscard]] double RowSpeed(const BackgroundElement& element, std::int64_t row,
                              std::int64_t rows);

// Addition: whether rows have widths of their own, which go before relative speeds. Both must have
// been given, the first above 0.
[[nodiscard]] inline bool HasRowWidths(const BackgroundElement& element) {
    return element.kind == ElementKind::Parallax && element.rowWidths[0] > 0 &&
           element.rowWidths[1] >= 0;
}

// Of such a picture: how many times as wide as the top row this one is.
[[nodiscard]] double RowWidth(const BackgroundElement& element, std::int64_t row,
                              std::int64_t rows);

// Addition: parallax pictures are stretched vertically about their axis by
// 1 / (yscaleStart / 100 + yscaleDelta / 100 * cameraY), kept within 1/16 to 16. Canvas pixels to a
// row of a picture that is drawn at `scale`.
[[nodiscard]] double RowStretch(const BackgroundElement& element, Single cameraY, double scale);

// Which lines of the canvas the rows of a picture cover whose upper edge stands at `top`.
struct StretchedRows {
    double top;
    double stretch;

    // The first line of a row; before the first line of the next one it ends. A row that is
    // shrunk may have none.
    [[nodiscard]] std::int64_t From(std::int64_t row) const;
    // A row that ends at the line or before, or the first one; few rows before the line's own.
    [[nodiscard]] std::int64_t Before(std::int64_t line) const;
};

}  // namespace scenara
