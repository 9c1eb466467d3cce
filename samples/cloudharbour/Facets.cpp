// SPDX-License-Identifier: MIT
#include "cloudharbour/Facets.h"

#include <cmath>

#include "samplemaker/Noise.h"

namespace scenara::samples::cloudharbour {

Facet FacetAt(double x, double y, std::uint32_t seed) {
    const int column = static_cast<int>(std::floor(x));
    const int row = static_cast<int>(std::floor(y));
    double nearest = 9;
    double second = 9;
    int cellColumn = column;
    int cellRow = row;
    for (int i = column - 1; i <= column + 1; ++i) {
        for (int j = row - 1; j <= row + 1; ++j) {
            const double middleX = i + samplemaker::LatticeValue(i, j, seed);
            const double middleY = j + samplemaker::LatticeValue(i, j, seed + 1);
            const double away = std::hypot(x - middleX, y - middleY);
            if (away < nearest) {
                second = nearest;
                nearest = away;
                cellColumn = i;
                cellRow = j;
            } else if (away < second) {
                second = away;
            }
        }
    }
    return {2 * samplemaker::LatticeValue(cellColumn, cellRow, seed + 2) - 1,
            2 * samplemaker::LatticeValue(cellColumn, cellRow, seed + 3) - 1,
            samplemaker::LatticeValue(cellColumn, cellRow, seed + 4), second - nearest};
}

}  // namespace scenara::samples::cloudharbour
