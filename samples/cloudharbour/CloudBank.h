// SPDX-License-Identifier: MIT
//
// A bank of heaped clouds that tiles sideways: clear heaps along its crest, mist towards its foot.
#pragma once

#include <cstdint>

#include "ArchiveMaker.h"
#include "painting/Light.h"

namespace scenara::samples::cloudharbour {

struct CloudBank {
    int width = 1024;  // a multiple of 512, so that its noise tiles
    int height = 200;
    std::uint32_t seed = 1;

    // The crest's row, and how far it rises and falls about that.
    double crest = 60;
    double swell = 30;
    // Of the largest heaps: along the crest, and what a row of heaps has more than the one before.
    double radius = 40;
    double growth = 0;
    int lines = 2;       // rows of heaps
    int towers = 0;      // heaps that stand far above the crest
    double flat = 1;     // how far the next row is below, in radii
    double squash = 1;   // the height of a heap that would be 1 if it were round
    double gaps = 0.85;  // how far below the crest heaps leave gaps, in radii

    Light shade{};
    Light middle{};
    Light lit{};
    Light far{};  // what the heaps fade into along the crest, by `haze`
    double haze = 0;
    Light mist{};
    double mistFrom = 100;  // the rows between which the heaps go over into mist
    double mistTo = 200;
};

IndexedPicture DrawBank(const CloudBank& bank);

}  // namespace scenara::samples::cloudharbour
