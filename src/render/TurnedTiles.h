// SPDX-License-Identifier: MIT
//
// TurnedTiles, an addition: the copies of a turned picture.
//
// Each is turned about its own axis, and their axes stand as far apart as if they were not turned,
// between pixels. Only those are shown whose box, the upright rectangle around the turned picture,
// touches what can be seen; where very many boxes lie upon one another they are thinned out as
// other copies are. Of more than kMostTurned in view every nth row and column is shown.
#pragma once

#include <cstdint>

#include "render/ElementPieces.h"
#include "render/ElementPlacement.h"
#include "render/ElementTiles.h"
#include "render/ElementWindow.h"

namespace scenara {

// These take about a second. No canvas of 1280 x 720 pixels has that many.
inline constexpr double kMostTurned = 1048576;

// `deepest` as Tiling.h has it. Row by row, each from the left.
void ShowTurnedTiles(const PlacedPicture& picture, const SpriteEntry& sprite,
                     const ElementTiles& tiles, const ElementWindow& window, std::int64_t deepest,
                     PieceVisitor& visitor);

}  // namespace scenara
