// SPDX-License-Identifier: MIT
#include "glasslagoon/Corals.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "painting/NoiseSheet.h"
#include "painting/Shapes.h"
#include "samplemaker/Noise.h"

namespace scenara::samples::glasslagoon {
namespace {

// A branch and all that grows on it.
struct Fork {
    Point from;
    double turn = 0;  // 0 straight up
    double length = 10;
    double half = 2;
    int left = 4;  // how often it forks yet
};

struct ForkStyle {
    double spread = 0.5;
    double shorter = 0.78;
    double thinner = 0.72;
    Light foot;
    Light tip;
    int forks = 4;
};

void PaintFork(AlphaPainting& painting, const Fork& fork, const ForkStyle& style,
               samplemaker::Random& random) {
    const Point to{fork.from.x + fork.length * std::sin(fork.turn),
                   fork.from.y - fork.length * std::cos(fork.turn)};
    const double thin = fork.half * style.thinner;
    const double done = 1 - fork.left / static_cast<double>(style.forks);
    const double step = 1.0 / style.forks;
    const Knots knots = {{fork.from.x, fork.from.y, fork.half}, {to.x, to.y, thin}};
    PaintStroke(painting, knots, 1.3, [&](const StrokePlace& at) {
        const Light light = Mixed(style.foot, style.tip, std::pow(done + step * at.along, 1.6));
        return Film{light * (0.88 - 0.24 * at.across * std::cos(fork.turn)), 1};
    });
    if (fork.left <= 1) {
        return;
    }
    const int branches = random.Whole(2, 3);
    for (int i = 0; i < branches; ++i) {
        const double side = (i - (branches - 1) / 2.0) * style.spread;
        Fork next{to, fork.turn * 0.82 + side + random.Between(-0.16, 0.16),
                  fork.length * style.shorter * random.Between(0.8, 1.15), thin, fork.left - 1};
        PaintFork(painting, next, style, random);
    }
}

}  // namespace

void PaintHeap(AlphaPainting& painting, const PuffField& field, const HeapColours& colours) {
    const NoiseSheet rough(2137, 16, 4, 0.6);
    const NoiseSheet patches(2141, 4, 3);
    for (int y = 0; y < field.Height(); ++y) {
        for (int x = 0; x < field.Width(); ++x) {
            const PuffPlace& place = field.At(x, y);
            if (!place.there) {
                continue;
            }
            const double bump = rough.At(x * 1.1, y * 1.1) - 0.5;
            const double furrow =
                std::sin(46 * (patches.At(x * 0.8, y * 0.8) + 0.16 * rough.At(x * 0.6, y * 0.6)));
            const double lit = -0.40 * place.x - 0.80 * place.y + 0.42 * place.z;
            const double shade = 0.50 + 0.62 * Rise(-0.5, 1.0, lit) + colours.grain * bump +
                                 0.16 * colours.wrinkles * furrow - 0.16 * Rise(0.3, 0, place.edge);
            const Light light = Mixed(colours.first, colours.second,
                                      Rise(0.40, 0.62, patches.At(x * 0.7 + 90, y * 0.7)));
            painting.Lay(x, y, {light * shade, 1});
        }
    }
}

void PaintBranches(AlphaPainting& painting, Point at, double height, const Light& light,
                   std::uint32_t seed) {
    samplemaker::Random random(seed);
    const ForkStyle style{0.62, 0.80, 0.80, light * 0.62, Mixed(light, Light{1, 1, 1}, 0.45), 4};
    for (const double turn : {-0.75, -0.28, 0.22, 0.72}) {
        PaintFork(painting,
                  {at, turn + random.Between(-0.1, 0.1), height * 0.34, height * 0.060, 4}, style,
                  random);
    }
}

void PaintFan(AlphaPainting& painting, Point at, double height, const Light& light,
              std::uint32_t seed) {
    samplemaker::Random random(seed);
    PaintOval(painting, {at.x, at.y - height * 0.58, height * 0.52, height * 0.46}, height * 0.1,
              [&](double u, double v) {
                  return Film{light * 0.8, 0.22 * (1 - 0.5 * std::hypot(u, v))};
              });
    const ForkStyle style{0.52, 0.80, 0.74, light * 0.7, Mixed(light, Light{1, 1, 1}, 0.25), 6};
    for (const double turn : {-0.5, 0.0, 0.48}) {
        PaintFork(painting, {at, turn, height * 0.27, height * 0.026, 6}, style, random);
    }
}

void PaintTubes(AlphaPainting& painting, Point at, double height, const Light& light,
                std::uint32_t seed) {
    samplemaker::Random random(seed);
    for (int i = 0; i < 6; ++i) {
        const double side = (i * 2 % 6 - 2.5) / 2.5;
        const double tall = height * (1 - 0.38 * std::abs(side)) * random.Between(0.8, 1.05);
        const double half = height * random.Between(0.085, 0.115);
        const Point top{at.x + side * height * 0.52, at.y - tall};
        const Knots knots = {
            {at.x + side * height * 0.16, at.y, half * 0.7},
            {(at.x + side * height * 0.2 + top.x) / 2, at.y - tall * 0.5, half * 0.86},
            {top.x, top.y, half}};
        PaintStroke(painting, knots, 1.3, [&](const StrokePlace& place) {
            const double round = 0.62 + 0.5 * Rise(0.95, -0.5, place.across);
            return Film{light * (round * (0.7 + 0.4 * place.along)), 1};
        });
        PaintOval(painting, {top.x, top.y - half * 0.55, half * 0.96, half * 0.5}, 1.3,
                  [&](double u, double v) {
                      const double rim = Rise(0.55, 0.85, std::hypot(u, v));
                      return Film{Mixed(light * 0.24, Mixed(light, Light{1, 1, 1}, 0.35), rim), 1};
                  });
    }
}

void PaintAnemone(AlphaPainting& painting, Point at, double height, const Light& light,
                  std::uint32_t seed) {
    samplemaker::Random random(seed);
    for (int i = 0; i < 46; ++i) {
        const double side = random.Between(-1, 1);
        const double length = height * (1.05 - 0.4 * std::abs(side)) * random.Between(0.7, 1.1);
        const double bend = random.Between(-0.3, 0.3);
        const Knots knots = KnotsAlong(7, [&](double u) {
            return Knot{at.x + side * height * (0.32 + 0.62 * u) + bend * height * u * u,
                        at.y - length * u, height * 0.045 * (1 + 0.35 * u)};
        });
        const double own = random.Between(0.8, 1.1);
        PaintStroke(painting, knots, 1.3, [&](const StrokePlace& place) {
            const Light up = Mixed(light * (0.55 * own), light * own, place.along);
            return Film{Mixed(up, Light{1.0, 0.86, 0.95}, Rise(0.84, 0.98, place.along)), 0.94};
        });
    }
}

void PaintTable(AlphaPainting& painting, Point at, double width, const Light& light) {
    const double high = width * 0.34;
    const Knots foot = {{at.x, at.y + 6, width * 0.12},
                        {at.x, at.y - high * 0.35, width * 0.09},
                        {at.x, at.y - high * 0.6, width * 0.11}};
    PaintStroke(painting, foot, 1.3, [&](const StrokePlace& place) {
        return Film{light * (0.50 - 0.16 * place.across - 0.10 * place.along), 1};
    });
    // Plates that grew over one another, each lobed at its rim.
    for (const double plate : {-1.0, 1.0, 0.0}) {
        const Point middle{at.x + plate * width * 0.20,
                           at.y - high + std::abs(plate) * width * 0.07};
        const double half = width * (0.40 - 0.10 * std::abs(plate));
        for (const bool upper : {false, true}) {
            for (double turn = 0; turn < 6.2; turn += 0.45) {
                const double lobe = half * (0.62 + 0.05 * std::sin(5 * turn + 3 * plate));
                const Oval oval{middle.x + lobe * std::cos(turn),
                                middle.y + 0.20 * lobe * std::sin(turn) + (upper ? 0 : 4),
                                half * 0.36, half * 0.13};
                PaintOval(painting, oval, 1.4, [&](double u, double v) {
                    const double lit = upper ? 0.92 + 0.10 * std::sin(turn) : 0.48;
                    return Film{light * (lit - 0.08 * u - 0.16 * v), 1};
                });
            }
        }
        PaintOval(painting, {middle.x, middle.y, half * 0.72, half * 0.16}, 3,
                  [&](double u, double v) {
                      const double knob = std::sin(u * 19 + plate) * std::sin(v * 7 + u * 8);
                      return Film{light * (0.94 - 0.10 * u - 0.08 * v + 0.07 * knob), 1};
                  });
    }
}

void PaintTuft(AlphaPainting& painting, Point at, double height, const Light& light,
               std::uint32_t seed) {
    samplemaker::Random random(seed);
    for (int i = 0; i < 15; ++i) {
        const double lean = random.Between(-0.6, 0.6);
        const double length = height * random.Between(0.5, 1.1);
        const double from = random.Between(-0.35, 0.35) * height;
        const Knots knots = KnotsAlong(8, [&](double u) {
            return Knot{at.x + from + lean * length * u + 2.5 * std::sin(5 * u + i),
                        at.y - length * u, height * 0.040 * (1 - 0.8 * u) + 0.5};
        });
        const double own = random.Between(0.65, 1.15);
        PaintStroke(painting, knots, 1.3, [&](const StrokePlace& place) {
            return Film{light * (own * (0.6 + 0.55 * place.along)), 0.95};
        });
    }
}

}  // namespace scenara::samples::glasslagoon
