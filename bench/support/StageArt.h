// SPDX-License-Identifier: MIT
//
// Pictures such as stages are made of, drawn from seeded random numbers, so that the benchmarks say
// something about real content on a machine that has none.
//
// What decides the speed of a decoder is how the pixels are packed, so that is what these pictures
// take from real ones: about 4 pixels and 1.5 bytes per run-length operation, about half of the
// operations a single byte, 1 in 20 a run of more than 16, and half of all pixels transparent
// (index 0). Sizes go from small animated things to backdrops that are wider than three screens.
// The same seed gives the same picture everywhere.
#pragma once

#include <cstdint>

#include "samplemaker/Picture.h"

namespace scenara::bench {

// An opaque backdrop: a dithered sky with flat clouds, over hills of mixed texture.
samplemaker::IndexedPicture DrawBackdrop(int width, int height, std::uint32_t seed);

// A layer in front of it: an uneven skyline with openings, transparent above and in the openings.
samplemaker::IndexedPicture DrawLayer(int width, int height, std::uint32_t seed);

// A row of things side by side, from trunk to crowd, transparent between them and above.
samplemaker::IndexedPicture DrawRow(int width, int height, std::uint32_t seed);

// One thing in the middle of a transparent picture: a tree, a lamp, a spectator.
samplemaker::IndexedPicture DrawObject(int width, int height, std::uint32_t seed);

}  // namespace scenara::bench
