// SPDX-License-Identifier: MIT
#include "thousandpanes/Stone.h"

#include <cmath>

#include "painting/Shapes.h"
#include "samplemaker/Noise.h"
#include "thousandpanes/Scene.h"

namespace scenara::samples {

Light Stone(double level) {
    constexpr Light kShade{0.02, 0.018, 0.05};
    constexpr Light kMiddle{0.16, 0.14, 0.26};
    constexpr Light kBright{0.52, 0.5, 0.66};
    const double t = std::clamp(level, 0.0, 1.0);
    return t < 0.5 ? Mixed(kShade, kMiddle, 2 * t) : Mixed(kMiddle, kBright, 2 * t - 1);
}

Light CandleGlow(double y) {
    const double away = std::max(0.0, kFloorTop - 70 - y);
    return Light{0.2, 0.095, 0.03} * std::exp(-away / 90);
}

double Masonry(double x, double y, std::uint32_t seed, int period) {
    constexpr double kCourse = 22;
    constexpr int kBlock = 64;
    const int course = static_cast<int>(std::floor(y / kCourse));
    const double along = x + (course % 2 == 0 ? 0 : kBlock / 2);
    int block = static_cast<int>(std::floor(along / kBlock));
    if (period > 0) {
        const int blocks = period / kBlock;
        block = (block % blocks + blocks) % blocks;
    }
    const double joint =
        std::min(std::abs(InCell(y, kCourse)), std::abs(InCell(along, double{kBlock})));
    const double grain = samplemaker::LayeredNoise(x / 8, y / 6, 3, seed, period / 8) - 0.5;
    const double own = samplemaker::LatticeValue(block, course, seed + 3) - 0.5;
    return 0.5 + 0.22 * own + 0.3 * grain - 0.34 * Line(joint, 2.2);
}

double Round(double across, double side) {
    const double t = std::clamp(across, -1.0, 1.0);
    const double front = std::sqrt(1 - t * t);
    return std::clamp(0.25 + 0.45 * front + 0.5 * t * side, 0.0, 1.0);
}

}  // namespace scenara::samples
