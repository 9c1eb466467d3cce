// SPDX-License-Identifier: MIT
//
// The water, in moments that follow one another without an end, and the boat on it.
#include <array>
#include <cmath>
#include <numbers>

#include "millfair/Pictures.h"
#include "millfair/Polygon.h"
#include "millfair/Scene.h"
#include "painting/NoiseSheet.h"
#include "painting/Strokes.h"

namespace scenara::samples::millfair {
namespace {

constexpr int kWaterWidth = 512;  // tiles sideways
constexpr int kWaterHeight = 110;
constexpr int kWaterMoments = 8;

// Wave trains that run each its own way. In the time of all moments each goes on by a whole number
// of waves, and there are as many whole ones across the picture, so that both fit at the ends.
struct Train {
    int across;      // waves in the picture
    double away;     // waves in a step of depth
    int wavesInAll;  // in the time of all moments
    double strong;
};

constexpr std::array kTrains = {Train{5, 31, 1, 0.34}, Train{-7, 43, 1, 0.30},
                                Train{11, 77, 2, 0.24}, Train{-17, 101, 2, 0.18},
                                Train{23, 149, 3, 0.12}};

double WavesAt(double x, double far, double time, double bend) {
    double sum = 0;
    for (const Train& train : kTrains) {
        const double turns =
            train.across * x / kWaterWidth + train.away * far * 0.35 + train.wavesInAll * time;
        sum += train.strong * std::sin(2 * std::numbers::pi * turns + 3.4 * bend);
    }
    return sum;
}

}  // namespace

AlphaPictures DrawWater() {
    const NoiseSheet bend(3083, 4, 4);
    AlphaPictures moments;
    for (int moment = 0; moment < kWaterMoments; ++moment) {
        AlphaPainting painting(kWaterWidth, kWaterHeight);
        const double time = moment / static_cast<double>(kWaterMoments);
        painting.Fill([&](int x, int y) {
            const double row = kShore + y + 0.5;
            const double near = NearAt(row);
            const double wave = WavesAt(x, 1 / near, time, bend.At(x, y * 3.0));
            // What is mirrored: the sky, the farther up the nearer the water is.
            const double mirrored = 206 - 2.5 * (row - kShore) - 40 * wave * near;
            const Light sky = SkyAt(-40, mirrored);
            const double crest = Rise(0.46, 0.72, wave);
            const double trough = Rise(-0.35, -0.75, wave);
            Light light = sky * Light{0.76, 0.76, 0.86};
            light = Mixed(light, Light{1.0, 0.76, 0.54}, 0.62 * crest * Rise(1.5, 0.4, near));
            light = Mixed(light, Light{0.17, 0.17, 0.33}, 0.42 * trough);
            // The bank's own shade lies on the water's far edge.
            return Film{Mixed(Light{0.30, 0.25, 0.30}, light, Rise(-6, 16, y - 5 * wave)), 1};
        });
        moments.push_back(painting.ToPicture());
    }
    return moments;
}

AlphaPicture DrawGlitter() {
    constexpr int kWidth = 420;
    const NoiseSheet broken(3089, 16, 3);
    AlphaPainting painting(kWidth, kWaterHeight);
    painting.Fill([&](int x, int y) {
        const double side = (x + 0.5 - kWidth / 2.0) / (60 + 1.2 * y);
        const double lines = Rise(0.50, 0.78, broken.At(x * 0.55, y * 6.5 + 9));
        const double part =
            Rise(1, 0, std::abs(side)) * lines * Rise(0, 5, y) * Rise(kWaterHeight, 30, y);
        return Film{{1.0, 0.80, 0.52}, 0.62 * part};
    });
    return painting.ToPicture();
}

AlphaPicture DrawBoat() {
    constexpr int kWidth = 150;
    constexpr int kHeight = 92;
    constexpr double kLine = 72;  // the water's
    AlphaPainting painting(kWidth, kHeight);
    const auto sheer = [](double x) { return 53 - 13 * std::pow(std::abs(x - 74) / 66, 2.4); };
    Points hull;
    for (int x = 8; x <= 140; x += 4) {
        hull.push_back({static_cast<double>(x), sheer(x)});
    }
    for (int x = 134; x >= 18; x -= 4) {
        const double u = (x - 76) / 60.0;
        hull.push_back({static_cast<double>(x), 60 + 14 * std::sqrt(std::max(0.0, 1 - u * u))});
    }
    PaintGlow(painting, {112, 26, 26, 26}, {kLampLight, 0.45});
    PaintStroke(painting, Knots{{58, 54, 1.4}, {58, 6, 0.9}}, 1, {kWood * 0.9, 1});
    PaintStroke(painting, Knots{{58, 7, 0.4}, {130, 42, 0.4}}, 0.9, {kDarkWood, 0.9});
    PaintStroke(painting, Knots{{58, 7, 0.4}, {14, 46, 0.4}}, 0.9, {kDarkWood, 0.9});
    // The sail is furled around its yard.
    PaintStroke(
        painting, Knots{{30, 40, 1.5}, {44, 36, 3.6}, {60, 31, 4.2}, {74, 26, 3.2}, {84, 22, 1.2}},
        1, [](const StrokePlace& at) {
            return Film{kCream * LightOn(at.across * 0.9) * (0.86 + 0.08 * std::sin(at.along * 50)),
                        1};
        });
    PaintPolygon(painting, hull, [&](double x, double y) {
        const double down = (y - sheer(x)) / 22;
        const double plank = 0.10 * std::sin((y - sheer(x)) * 1.5);
        const Light wood = down < 0.16 ? kCream * 0.9 : down < 0.34 ? kRed * 0.9 : kWood * 0.92;
        return Film{wood * LightOn((x - 50) / 80) * (1.1 - 0.45 * down + plank), 1};
    });
    PaintStroke(painting, Knots{{112, 46, 0.8}, {112, 18, 0.8}}, 0.9, {kDarkWood * 1.4, 1});
    PaintOval(painting, {112, 26, 4.6, 5.6}, 1, [](double u, double v) {
        return Film{Mixed(kLampCore, Light{1.0, 0.62, 0.30}, Rise(0.1, 1.0, std::hypot(u, v))), 1};
    });
    // Its mirror in the water, and the line of foam where it lies in it.
    painting.Fill([&](int x, int y) {
        const double u = (x + 0.5 - 76) / 64;
        const double part =
            Rise(1, 0.8, std::abs(u)) * Rise(kLine - 2, kLine + 1, y) * Rise(kHeight - 1, kLine, y);
        return Film{{0.22, 0.15, 0.22}, 0.55 * part};
    });
    PaintStroke(painting, Knots{{16, kLine, 0.3}, {76, kLine + 1.5, 0.9}, {136, kLine, 0.3}}, 1,
                {{0.95, 0.74, 0.62}, 0.55});
    return painting.ToPicture();
}

}  // namespace scenara::samples::millfair
