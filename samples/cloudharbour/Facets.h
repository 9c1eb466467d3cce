// SPDX-License-Identifier: MIT
//
// Facets: broken stone, as a net of cells of uneven shape, each of which looks its own way.
#pragma once

#include <cstdint>

namespace scenara::samples::cloudharbour {

struct Facet {
    double tiltX = 0;  // -1 … 1
    double tiltY = 0;
    double shade = 0;  // 0 … 1
    double crack = 0;  // 0 on a cell's border, growing towards its middle to about 1
};

// The cell at a place; cells are about one unit wide and high.
Facet FacetAt(double x, double y, std::uint32_t seed);

}  // namespace scenara::samples::cloudharbour
