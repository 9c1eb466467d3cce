// SPDX-License-Identifier: MIT
//
// Parallax pictures: rows that move at different speeds.
//
// The top row moves at the element's deltaX, the row at height t (0 top, 1 bottom) at deltaX times
// (top + (bottom - top) * t) / top of the two scales. Rows keep their length. Plainly they stand
// unsheared with the camera at 0; addition: where the element's axis is in the middle of the view.
#pragma once

#include <cstdint>

#include "stage/StageModel.h"

namespace scenara {

// Relative speed of row `row` of `rows`: 1 when no scales were given; a top scale of 0 alone counts
// as 1.
[[nodiscard]] double RowSpeed(const BackgroundElement& element, std::int64_t row,
                              std::int64_t rows);

// Where the row stands, in whole pixels as all pictures of the stage, for an element that is drawn
// at `drawX`. `shear`: how far a row of twice the speed stands from one of speed 1. Kept within
// kFarthest.
[[nodiscard]] std::int64_t RowPosition(const BackgroundElement& element, Single drawX, double shear,
                                       std::int64_t row, std::int64_t rows,
                                       Single elementScale = 1);

// Addition: parallax pictures are stretched vertically about their axis by
// 1 / (yscaleStart / 100 + yscaleDelta / 100 * cameraY), kept within 1/16 to 16.
[[nodiscard]] double RowStretch(const BackgroundElement& element, Single cameraY);

// Which lines of the view the rows of a picture cover whose upper edge stands at `top`.
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
