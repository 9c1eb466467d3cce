// SPDX-License-Identifier: MIT
//
// Caustics: the net of light that waves throw into the water.
#pragma once

#include <cstdint>

namespace scenara::samples::glasslagoon {

// 0 in the meshes, towards 1 on the threads and in their knots. A mesh is about one unit wide.
double CausticNet(double u, double v, std::uint32_t seed);

}  // namespace scenara::samples::glasslagoon
