// SPDX-License-Identifier: MIT
//
// Parallax pictures: rows that move at different speeds.
//
// The top row moves at the element's deltaX, the row at height t (0 top, 1 bottom) at deltaX times
// (top + (bottom - top) * t) / top of the two scales. Rows keep their length; with the camera at 0
// they stand unsheared.
#pragma once

#include <cstdint>

#include "stage/StageModel.h"

namespace scenara {

// Relative speed of row `row` of `rows`: 1 when no scales were given; a top scale of 0 alone counts
// as 1.
[[nodiscard]] double RowSpeed(const BackgroundElement& element, std::int64_t row,
                              std::int64_t rows);

// Where the row stands, in whole pixels as all pictures of the stage, for an element that is drawn
// at `drawX` while the stored camera is at `cameraX`. Kept within kFarthest.
[[nodiscard]] std::int64_t RowPosition(const BackgroundElement& element, Single drawX,
                                       Single cameraX, std::int64_t row, std::int64_t rows,
                                       Single elementScale = 1);

// Deform, an addition: parallax pictures are stretched vertically about their first row by
// 1 / (yscaleStart / 100 + yscaleDelta / 100 * cameraY), kept within 1/16 to 16.
[[nodiscard]] double RowStretch(const BackgroundElement& element, Single cameraY);

// How many rows a picture of `rows` takes then, and which of its rows is shown in row `row`.
[[nodiscard]] std::int64_t StretchedRows(std::int64_t rows, double stretch);
[[nodiscard]] std::int64_t SourceRow(std::int64_t row, double stretch);

}  // namespace scenara
