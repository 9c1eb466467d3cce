// SPDX-License-Identifier: MIT
//
// Corals and their like, each painted upon what is there. `at` is where it stands.
#pragma once

#include <cstdint>

#include "painting/PuffField.h"
#include "painting/Strokes.h"
#include "samplemaker/Canvas.h"

namespace scenara::samples::glasslagoon {

using samplemaker::Point;

// A rounded mass in the light, of puffs that were heaped up before. `first` and `second` are its
// colours, mixed in patches.
struct HeapColours {
    Light first;
    Light second;
    double grain = 0.3;   // how rough it looks
    double wrinkles = 0;  // brain corals have some, 0 … 1
};
void PaintHeap(AlphaPainting& painting, const PuffField& field, const HeapColours& colours);

// Forks again and again; tips are light.
void PaintBranches(AlphaPainting& painting, Point at, double height, const Light& light,
                   std::uint32_t seed);
// Flat and fine, a fan across the current.
void PaintFan(AlphaPainting& painting, Point at, double height, const Light& light,
              std::uint32_t seed);
// A bundle of open tubes.
void PaintTubes(AlphaPainting& painting, Point at, double height, const Light& light,
                std::uint32_t seed);
void PaintAnemone(AlphaPainting& painting, Point at, double height, const Light& light,
                  std::uint32_t seed);
// A shelf on a foot.
void PaintTable(AlphaPainting& painting, Point at, double width, const Light& light);
// Low weed.
void PaintTuft(AlphaPainting& painting, Point at, double height, const Light& light,
               std::uint32_t seed);

}  // namespace scenara::samples::glasslagoon
