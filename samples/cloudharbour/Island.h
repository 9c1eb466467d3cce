// SPDX-License-Identifier: MIT
//
// What floating islands are made of. All is painted in the morning's light without haze; Veil lays
// the haze over a finished island.
#pragma once

#include <cstdint>

#include "cloudharbour/Brushes.h"
#include "painting/Painting.h"

namespace scenara::samples::cloudharbour {

struct Rock {
    double x = 0;    // the middle of its top
    double top = 0;  // the row of the ground
    double halfWidth = 100;
    double depth = 160;  // down to its lowest point
    double lean = 0;     // how far that point stands to the right
    std::uint32_t seed = 1;
};

void PaintRock(Painting& painting, const Rock& rock);
// The row of its ground at a column.
double GroundRow(const Rock& rock, double x);

enum class Tree { Round, Blossom, Cypress };
void PaintTree(Painting& painting, Tree tree, Point foot, double height, std::uint32_t seed);

// A house of which one sees the sunlit gable, on the left, and the long side with its windows.
struct House {
    Point foot;  // the lower corner between the two sides
    double gable = 16;
    double side = 26;
    double wall = 16;
    double roof = 16;
    Light walls{0.82, 0.76, 0.70};
    Light tiles{0.42, 0.26, 0.30};
};
void PaintHouse(Painting& painting, const House& house);

// A tower that tapers, with bands of `second` colour.
void PaintTower(Painting& painting, Point foot, double height, double width, const Light& first,
                const Light& second);
// The lamp room on a tower, its middle at the point.
void PaintLampRoom(Painting& painting, Point foot, double width);

// Mixes haze into all that is painted: a part at the first row, and a part at the last.
void Veil(Painting& painting, const Light& haze, double partAbove, double partBelow);

}  // namespace scenara::samples::cloudharbour
