// SPDX-License-Identifier: MIT
//
// What is painted in few colours: the far reef, a mooring stone and a jar. They share a palette.
#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

#include "glasslagoon/Pictures.h"
#include "glasslagoon/Scene.h"
#include "painting/NoiseSheet.h"
#include "painting/Painting.h"
#include "samplemaker/Noise.h"

namespace scenara::samples::glasslagoon {
namespace {

constexpr int kFarWidth = 760;
constexpr int kFarHeight = 230;

// The upper edge of a range of hills with what grows on them, a row for each column.
std::vector<double> Ridge(std::uint32_t seed, double crest, double swell) {
    samplemaker::Random random(seed);
    std::vector<double> ridge;
    for (int x = 0; x < kFarWidth; ++x) {
        const double hill = samplemaker::LayeredNoise(x / 170.0, 0.5, 3, seed) - 0.5;
        const double knob = samplemaker::LayeredNoise(x / 13.0, 3.5, 2, seed + 1) - 0.5;
        ridge.push_back(crest - 2 * swell * hill - 9 * knob);
    }
    const auto raise = [&](double middle, double half, auto top) {
        const auto from = static_cast<int>(std::max(0.0, middle - half));
        const auto to = static_cast<int>(std::min(kFarWidth - 1.0, middle + half));
        for (int x = from; x <= to; ++x) {
            double& row = ridge[static_cast<std::size_t>(x)];
            row = std::min(row, top((x - middle) / half));
        }
    };
    for (int i = 0; i < 64; ++i) {  // domes, and what rises to a point
        const double middle = random.Between(0, kFarWidth);
        const bool dome = i % 3 != 0;
        const double half = dome ? random.Between(5, 24) : random.Between(7, 15);
        const double tall =
            dome ? half * random.Between(0.5, 0.8) : half * random.Between(0.8, 1.7);
        const double lean = random.Between(-0.3, 0.3);
        const double foot = ridge[static_cast<std::size_t>(middle)] + 3;
        raise(middle, half, [&](double u) {
            const double off = std::abs(u - lean * (1 - u * u));
            return foot -
                   tall * (dome ? std::sqrt(1 - u * u) : std::pow(1 - std::min(1.0, off), 1.6));
        });
    }
    return ridge;
}

struct RidgeLook {
    Light crest;
    Light foot;
    double rough;
};

void PaintRidge(Painting& painting, const std::vector<double>& ridge, const RidgeLook& look,
                const NoiseSheet& rough) {
    for (int x = 0; x < kFarWidth; ++x) {
        const double top = ridge[static_cast<std::size_t>(x)];
        const double left = ridge[static_cast<std::size_t>(std::max(0, x - 2))];
        const double right = ridge[static_cast<std::size_t>(std::min(kFarWidth - 1, x + 2))];
        const double lean = std::clamp((left - right) / 12, -1.0, 1.0);
        for (int y = std::max(0, static_cast<int>(std::lround(top))); y < kFarHeight; ++y) {
            const double down = y - top;
            const double wear = rough.At(x * 1.3, y * 1.0) - 0.5;
            const double lit = 0.10 * Rise(7, 0, down) - 0.10 * lean * Rise(40, 0, down);
            const Light light = Mixed(look.crest, look.foot, Rise(0, 96, down));
            painting.Set(x, y, light * (1 + lit + look.rough * wear));
        }
    }
}

Painting PaintFarReef() {
    const NoiseSheet rough(2341, 16, 4, 0.6);
    Painting painting(kFarWidth, kFarHeight);
    PaintRidge(painting, Ridge(2347, 62, 34), {{0.105, 0.475, 0.605}, {0.14, 0.53, 0.63}, 0.10},
               rough);
    PaintRidge(painting, Ridge(2351, 104, 30), {{0.085, 0.415, 0.530}, {0.17, 0.56, 0.64}, 0.16},
               rough);
    return painting;
}

// The stone to which the glass float is moored, with an iron ring.
Painting PaintStone() {
    constexpr int kWidth = 64;
    constexpr int kHeight = 40;
    const NoiseSheet rough(2357, 32, 3, 0.6);
    Painting painting(kWidth, kHeight);
    for (int y = 0; y < kHeight; ++y) {
        for (int x = 0; x < kWidth; ++x) {
            const double u = (x + 0.5 - kWidth / 2.0) / 31;
            const double wear = rough.At(x * 2.0, y * 2.0) - 0.5;
            const double v = (y + 0.5 - kHeight) / 36 + 0.12 * wear;
            const double round = u * u * u * u + v * v;
            if (round < 1) {
                const double lit = 0.62 - 0.34 * u - 0.46 * (v + 0.5) + 0.5 * wear;
                const Light moss = Mixed(Light{0.50, 0.58, 0.58}, Light{0.36, 0.58, 0.42},
                                         Rise(-0.3, -0.9, v + 0.3 * wear));
                painting.Set(x, y, moss * (0.55 + 0.6 * std::clamp(lit, 0.0, 1.0)));
            }
            const double ring = std::abs(std::hypot(x - 31.5, (y - 10.5) * 1.3) - 8);
            if (ring < 1.8) {
                painting.Set(x, y, Light{0.34, 0.28, 0.26} * (1.3 - ring * 0.4));
            }
        }
    }
    return painting;
}

// A jar on its side, out of which the bubbles come.
Painting PaintJar() {
    constexpr int kWidth = 104;
    constexpr int kHeight = 54;
    const NoiseSheet rough(2371, 32, 3, 0.6);
    Painting painting(kWidth, kHeight);
    for (int x = 0; x < kWidth; ++x) {
        // Foot, belly, neck, lip: half of the jar's height along it.
        const double belly = 23 * std::sqrt(std::max(0.0, 1 - std::pow((x - 36) / 36.0, 2)));
        const double neck = x > 58 && x < 98 ? 9.0 : 0;
        const double lip = x >= 92 && x < 100 ? 13.0 : 0;
        const double half = std::max({belly, neck, lip});
        const double middle = 29 - 0.10 * (x - 36);
        for (int y = 0; y < kHeight; ++y) {
            const double v = (y + 0.5 - middle) / std::max(half, 1.0);
            if (half < 1 || std::abs(v) >= 1) {
                continue;
            }
            const double wear = rough.At(x * 2.0, y * 2.0) - 0.5;
            const double band = std::abs(x - 30) < 4 || std::abs(x - 44) < 2 ? 0.62 : 1;
            const double lit = 0.98 - 0.55 * (v * 0.6 + 0.5) + 0.35 * wear;
            const bool mouth = x >= 97 && std::abs(v) < 0.72;
            const Light clay = Mixed(Light{0.84, 0.56, 0.42}, Light{0.44, 0.60, 0.52},
                                     Rise(0.02, 0.3, wear + 0.25 * v));
            painting.Set(x, y, mouth ? Light{0.10, 0.16, 0.20} : clay * (lit * band));
        }
    }
    return painting;
}

}  // namespace

Pictures DrawReefThings() {
    const std::array paintings = {PaintFarReef(), PaintStone(), PaintJar()};
    return ToPictures(paintings);
}

}  // namespace scenara::samples::glasslagoon
