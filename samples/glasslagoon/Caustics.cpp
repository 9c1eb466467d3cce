// SPDX-License-Identifier: MIT
#include "glasslagoon/Caustics.h"

#include <array>
#include <cmath>

#include "painting/Shapes.h"
#include "samplemaker/Noise.h"

namespace scenara::samples::glasslagoon {
namespace {

// The distances to the three nearest of a scatter of points, the smallest first.
std::array<double, 3> ThreeNearest(double u, double v, std::uint32_t seed) {
    std::array nearest = {9.0, 9.0, 9.0};
    const auto column = static_cast<int>(std::floor(u));
    const auto line = static_cast<int>(std::floor(v));
    for (int y = line - 1; y <= line + 1; ++y) {
        for (int x = column - 1; x <= column + 1; ++x) {
            const double pointX = x + samplemaker::LatticeValue(x, y, seed);
            const double pointY = y + samplemaker::LatticeValue(x, y, seed + 1);
            double away = std::hypot(u - pointX, v - pointY);
            for (double& kept : nearest) {
                if (away < kept) {
                    std::swap(away, kept);
                }
            }
        }
    }
    return nearest;
}

}  // namespace

// Light gathers where two points are equally far, and most where three are.
double CausticNet(double u, double v, std::uint32_t seed) {
    const double bentU = u + 0.22 * std::sin(2.3 * v + 0.9 * u) + 0.1 * std::sin(5.1 * v);
    const double bentV = v + 0.22 * std::sin(2.1 * u - 0.7 * v) + 0.1 * std::sin(4.7 * u);
    const std::array nearest = ThreeNearest(bentU, bentV, seed);
    const double thread = Rise(0.30, 0.0, nearest[1] - nearest[0]);
    const double knot = Rise(0.45, 0.0, nearest[2] - nearest[0]);
    return thread * thread * (0.45 + 0.55 * knot);
}

}  // namespace scenara::samples::glasslagoon
