// SPDX-License-Identifier: MIT
//
// The hall's stone, gold and iron, as the light of candles from below and glass from behind shows
// them.
#pragma once

#include <cstdint>

#include "painting/Light.h"

namespace scenara::samples {

// Cold stone by brightness, 0 … 1.
[[nodiscard]] Light Stone(double level);

// What the candles at the railing's height add to a wall at this row.
[[nodiscard]] Light CandleGlow(double y);

// How bright masonry in courses is at a place, about 0.5; dark in the joints. With a period the
// blocks repeat sideways.
[[nodiscard]] double Masonry(double x, double y, std::uint32_t seed, int period);

// How bright a rounded bar is across, -1 … 1 from edge to edge, lit from `side` (-1 left, 1 right).
[[nodiscard]] double Round(double across, double side);

}  // namespace scenara::samples
