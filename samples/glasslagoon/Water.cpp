// SPDX-License-Identifier: MIT
//
// The open water: from the surface, seen from below, down to where the ground begins; and the
// shafts of light in it.
#include <array>
#include <cmath>

#include "glasslagoon/Caustics.h"
#include "glasslagoon/Pictures.h"
#include "glasslagoon/Scene.h"
#include "painting/NoiseSheet.h"
#include "samplemaker/Noise.h"

namespace scenara::samples::glasslagoon {
namespace {

// Which way a pixel lies from where the shafts spread, 0 straight down.
double ShaftAngle(double column, double row) {
    return std::atan2(column - kSunColumn, row - kSunRow);
}

// The waves' net on the surface, in the perspective of one who looks up at it.
double SurfaceNet(double column, double row) {
    const double near = (150 - row) / 180;
    if (near <= 0.1) {
        return 0;
    }
    const double u = column / near / 92;
    const double v = 5.2 / near;
    return CausticNet(u, v, 2011) * Rise(96, -10, row) * Rise(0.25, 0.7, near);
}

}  // namespace

AlphaPicture DrawWater() {
    constexpr int kWidth = 664;
    constexpr int kHeight = 490;
    constexpr double kTop = -24;
    const NoiseSheet broad(2003, 4, 4);
    const NoiseSheet beams(2017, 32, 3);
    AlphaPainting painting(kWidth, kHeight);
    painting.Fill([&](int x, int y) {
        const double column = x + 0.5 - kWidth / 2.0;
        const double row = y + 0.5 + kTop;
        const double cloud = broad.At(x * 0.35, y * 0.7) - 0.5;
        Light light = WaterAt(row + 44 * cloud);
        const double away = std::hypot((column - kSunColumn) / 250, (row + 60) / 190);
        light = light + Light{0.34, 0.22, 0.16} * std::exp(-away * away * 1.6);
        const double beam = beams.At(ShaftAngle(column, row) * 190 + 600, 40) - 0.42;
        light = light + Light{0.20, 0.24, 0.21} * (std::max(0.0, beam) * Rise(360, 30, row));
        light = light + Light{0.46, 0.36, 0.34} * SurfaceNet(column, row);
        // A grain that no one sees, so that no one sees steps between two colours either.
        const double grain = samplemaker::LatticeValue(x, y, 2027) - 0.5;
        return Film{light + Light{1, 1, 1} * (grain / 255), 1};
    });
    return painting.ToPicture();
}

// Each picture has beams of its own, so that two of them that swing past one another glimmer.
AlphaPicture DrawShafts(int which) {
    constexpr int kWidth = 820;
    constexpr int kHeight = 430;
    constexpr double kTop = -110;
    struct Beam {
        double angle;
        double width;
        double part;
    };
    using Beams = std::array<Beam, 6>;
    constexpr std::array<Beams, 2> kBeams = {
        Beams{Beam{-0.25, 0.030, 0.55}, Beam{-0.10, 0.046, 0.85}, Beam{0.06, 0.026, 0.6},
              Beam{0.22, 0.052, 0.9}, Beam{0.43, 0.036, 0.6}, Beam{0.60, 0.05, 0.4}},
        Beams{Beam{-0.34, 0.04, 0.4}, Beam{-0.17, 0.026, 0.65}, Beam{-0.02, 0.05, 0.8},
              Beam{0.14, 0.03, 0.7}, Beam{0.33, 0.044, 0.75}, Beam{0.51, 0.03, 0.5}}};
    AlphaPainting painting(kWidth, kHeight);
    painting.Fill([&](int x, int y) {
        const double column = x + 0.5 - kWidth / 2.0;
        const double row = y + 0.5 + kTop;
        const double angle = ShaftAngle(column, row);
        double part = 0;
        for (const Beam& beam : kBeams.at(static_cast<std::size_t>(which))) {
            const double off = (angle - beam.angle) / beam.width;
            part += beam.part * std::exp(-off * off * 2.2);
        }
        const double edge = Rise(kWidth / 2.0, kWidth / 2.0 - 90, std::abs(column));
        return Film{{0.80, 1.0, 0.95}, 0.30 * part * edge * Rise(318, 40, row)};
    });
    return painting.ToPicture();
}

}  // namespace scenara::samples::glasslagoon
