// SPDX-License-Identifier: MIT
//
// The sand on which the fighters stand, and the light that plays on it. Its ripples and the net of
// light get smaller towards the horizon, as everything that lies on it does.
#include <algorithm>
#include <cmath>
#include <numbers>

#include "glasslagoon/Caustics.h"
#include "glasslagoon/Pictures.h"
#include "glasslagoon/Scene.h"
#include "painting/NoiseSheet.h"
#include "painting/Strokes.h"
#include "samplemaker/Noise.h"
#include "samplemaker/Ramp.h"

namespace scenara::samples::glasslagoon {
namespace {

constexpr int kSandWidth = 1264;
constexpr int kSandHeight = 140;

// A place on the sand, in pixels as they are where the fighters stand.
struct OnSand {
    double near;  // how large things are there
    double x;
    double far;  // 1 at the fighters' feet, larger beyond
};

OnSand SandAt(double column, double line) {
    const double near = NearAt(line + kSandTop);
    return {near, (column - kSandWidth / 2.0) / near, 1 / near};
}

class SandGround {
public:
    [[nodiscard]] Light At(int column, int line) const {
        const OnSand place = SandAt(column + 0.5, line + 0.5);
        const double bend = broad_.At(place.x * 0.16 + 400, place.far * 46) - 0.5;
        const double cycle = 15 * place.far + 2.6 * bend + 0.0016 * place.x;
        const double perRow = 15 * place.far * place.far / (kFeet - kHorizon);
        const double strong = Rise(0.36, 0.10, perRow) *
                              Rise(0.25, 0.62, broad_.At(place.x * 0.1 + 90, place.far * 30));
        const double slope = std::sin(2 * std::numbers::pi * cycle);
        const double crest = slope + 0.35 * std::sin(4 * std::numbers::pi * cycle + 0.8);
        const double grain = (samplemaker::LatticeValue(column, line, 2069) - 0.5) * 0.05;
        const double patch = broad_.At(place.x * 0.05 + 30, place.far * 70 + 11) - 0.5;
        const double shade = 0.94 + 0.085 * crest * strong + grain * place.near + 0.16 * patch;
        const Light sand = Mixed(Light{0.58, 0.78, 0.70}, Light{0.88, 0.90, 0.72},
                                 std::clamp(0.62 + 0.9 * patch + 0.12 * crest * strong, 0.0, 1.0));
        const Light lit =
            sand * shade *
            Mixed(Light{0.84, 0.90, 0.90}, Light{0.64, 0.73, 0.77}, Rise(1.0, 1.55, place.near));
        return Mixed(kHaze, lit, Rise(0.40, 0.86, place.near));
    }

private:
    NoiseSheet broad_{2081, 8, 4};
};

// Pebbles and broken shells, with the shade that each throws to the right.
void PaintPebbles(AlphaPainting& painting) {
    samplemaker::Random random(2083);
    for (int i = 0; i < 130; ++i) {
        const double line = 34 + 104 * std::pow(i / 130.0, 1.4);
        const double near = NearAt(line + kSandTop);
        const double x = random.Between(0, kSandWidth);
        const double radius = near * random.Between(0.8, 3.2);
        const Light stone = Mixed(Light{0.45, 0.55, 0.56}, Light{0.98, 0.90, 0.80}, random.Unit());
        PaintOval(painting, {x + radius * 0.6, line + radius * 0.35, radius * 1.4, radius * 0.55},
                  1.5, [](double, double) {
                      return Film{{0.22, 0.42, 0.46}, 0.34};
                  });
        PaintOval(painting, {x, line, radius, radius * 0.62}, 1.2, [&](double u, double v) {
            return Film{stone * (0.86 - 0.16 * u - 0.26 * v), 0.9};
        });
    }
}

}  // namespace

AlphaPicture DrawSand() {
    const SandGround ground;
    AlphaPainting painting(kSandWidth, kSandHeight);
    painting.Fill([&](int x, int y) { return Film{ground.At(x, y), 1}; });
    PaintPebbles(painting);
    // The far edge is not an edge: the sand is lost in the water there.
    painting.Thin([](int, int y) { return Rise(-1, 20, y); });
    return painting.ToPicture();
}

samplemaker::Palette LightPalette() {
    samplemaker::PaletteBuilder builder({0, 0, 0});
    builder.AddRamp(31, {{0.0, {3, 5, 4}}, {0.6, {60, 92, 78}}, {1.0, {190, 215, 176}}});
    return builder.Colours();
}

IndexedPicture DrawSandLight(int which) {
    const auto seed = static_cast<std::uint32_t>(2087 + 10 * which);
    const double mesh = which == 0 ? 66 : 54;
    IndexedPicture picture{kSandWidth, kSandHeight, {}, LightPalette()};
    for (int y = 0; y < kSandHeight; ++y) {
        for (int x = 0; x < kSandWidth; ++x) {
            const OnSand place = SandAt(x + 0.5, y + 0.5);
            const double net = CausticNet(place.x / mesh, place.far * 5.2 * 66 / mesh, seed);
            const double level = net * 0.50 * Rise(0.50, 0.85, place.near);
            const auto index =
                static_cast<int>(level * 31 + samplemaker::DitherThreshold(x, y) * 0.99);
            picture.pixels.push_back(static_cast<std::uint8_t>(std::min(index, 31)));
        }
    }
    return picture;
}

IndexedPicture DrawGlint() {
    constexpr int kSide = 61;
    IndexedPicture picture{kSide, kSide, {}, LightPalette()};
    for (int y = 0; y < kSide; ++y) {
        for (int x = 0; x < kSide; ++x) {
            const double u = std::abs(x - kSide / 2);
            const double v = std::abs(y - kSide / 2);
            const double rays = std::exp(-u / 9 - v * 1.1) + std::exp(-v / 11 - u * 1.1);
            const double level = std::min(1.0, 0.9 * rays + 0.8 * std::exp(-(u * u + v * v) / 30));
            const auto index =
                static_cast<int>(level * 31 + samplemaker::DitherThreshold(x, y) * 0.9);
            picture.pixels.push_back(static_cast<std::uint8_t>(std::min(index, 31)));
        }
    }
    return picture;
}

}  // namespace scenara::samples::glasslagoon
