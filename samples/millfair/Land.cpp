// SPDX-License-Identifier: MIT
//
// The land beyond the water: far hills, the village on the other bank, and the bank itself. What
// lies lower than its foot is there for cameras that zoom out or look from above, which then see
// more of it.
#include <cmath>
#include <numbers>

#include "millfair/Pictures.h"
#include "millfair/Polygon.h"
#include "millfair/Scene.h"
#include "painting/NoiseSheet.h"
#include "painting/PuffField.h"
#include "painting/Steps.h"
#include "painting/Strokes.h"
#include "samplemaker/Noise.h"

namespace scenara::samples::millfair {
namespace {

constexpr int kHillsWidth = 768;  // tiles sideways
constexpr int kHillsHeight = 130;
constexpr int kVillageWidth = 900;
constexpr int kVillageHeight = 140;
constexpr double kVillageFoot = 92;
constexpr int kBankWidth = 960;
constexpr int kBankHeight = 70;

// A wave that comes to the same place at both ends of the hills.
double Wave(double x, int times, double phase) {
    return std::sin(2 * std::numbers::pi * times * x / kHillsWidth + phase);
}

double FarRidge(double x) {
    return 34 + 11 * Wave(x, 2, 0.4) + 7 * Wave(x, 5, 2.1) + 3 * Wave(x, 11, 1.2) +
           1.0 * Wave(x, 29, 0.3);
}

double NearRidge(double x) {
    return 60 + 8 * Wave(x, 3, 3.6) + 5 * Wave(x, 7, 0.9) + 1.6 * Wave(x, 17, 2.2) +
           0.9 * Wave(x, 41, 1.1) + 0.7 * Wave(x, 67, 0.2);
}

void PaintTree(AlphaPainting& painting, double x, double foot, double size,
               samplemaker::Random& random) {
    PaintStroke(painting, Knots{{x, foot, size * 0.06}, {x, foot - size * 0.5, size * 0.04}}, 1,
                {kDarkWood, 1});
    // The crown, in a field of its own.
    const double left = std::floor(x - size);
    const double top = std::floor(foot - 1.4 * size);
    PuffField field(static_cast<int>(2 * size) + 2, static_cast<int>(1.4 * size), false);
    const Puff form{x - left, foot - size * 0.62 - top, size * 0.5, 0};
    for (int i = 0; i < 16; ++i) {
        const double turn = random.Between(0, 2 * std::numbers::pi);
        const double away = size * 0.32 * std::sqrt(random.Unit());
        field.Add({form.x + away * std::cos(turn), form.y + 1.15 * away * std::sin(turn),
                   size * random.Between(0.12, 0.22), random.Between(0, size * 0.2)},
                  form, 0.6);
    }
    for (int y = 0; y < field.Height(); ++y) {
        for (int column = 0; column < field.Width(); ++column) {
            const PuffPlace& place = field.At(column, y);
            if (place.there) {
                const double up = Rise(0.9, -0.9, place.y);
                const Light green = Mixed(Light{0.20, 0.22, 0.20}, Light{0.40, 0.40, 0.25}, up);
                painting.Lay(
                    column + static_cast<int>(left), y + static_cast<int>(top),
                    {green * LightOn(0.25 + 0.9 * place.x) * 1.15, Rise(0, 0.3, place.edge)});
            }
        }
    }
}

struct House {
    double x;
    double width;
    double height;  // of its walls
    double roof;
    bool gable;  // the gable looks to the viewer
};

void PaintWindow(AlphaPainting& painting, double x, double y, double width, double height) {
    PaintGlow(painting, {x + width / 2, y + height / 2, 3.2 * width, 2.6 * height},
              {kLampLight, 0.22});
    PaintBox(painting, {x, y}, {x + width, y + height}, kLampLight * 1.05);
    PaintBox(painting, {x + width / 2 - 0.3, y}, {x + width / 2 + 0.3, y + height},
             kLampLight * 0.55);
}

void PaintHouse(AlphaPainting& painting, const House& house, samplemaker::Random& random) {
    const double left = house.x;
    const double right = house.x + house.width;
    const double eaves = kVillageFoot - house.height;
    const double ridge = eaves - house.roof;
    const Light wall = Mixed(Light{0.82, 0.66, 0.56}, Light{0.74, 0.58, 0.60}, random.Unit());
    const Light tile = Mixed(Light{0.52, 0.27, 0.24}, Light{0.40, 0.28, 0.34}, random.Unit());
    PaintBox(painting, {left, eaves}, {right, kVillageFoot + 48}, [&](double x, double y) {
        const double side = (x - left) / house.width - 0.35;
        return Film{wall * LightOn(side) * (1 - 0.2 * Rise(eaves + 4, eaves, y)), 1};
    });
    if (house.gable) {
        const double middle = (left + right) / 2;
        PaintPolygon(painting, {{left, eaves}, {middle, ridge}, {right, eaves}},
                     [&](double x, double) {
                         return Film{wall * LightOn((x - left) / house.width - 0.35), 1};
                     });
        PaintStroke(painting, Knots{{left - 2, eaves + 1, 1.3}, {middle, ridge - 1, 1.3}}, 1,
                    {tile * LightOn(-0.8) * 1.2, 1});
        PaintStroke(painting, Knots{{middle, ridge - 1, 1.3}, {right + 2, eaves + 1, 1.3}}, 1,
                    {tile * LightOn(0.7), 1});
    } else {
        PaintPolygon(
            painting,
            {{left - 2, eaves + 1}, {left + 4, ridge}, {right - 4, ridge}, {right + 2, eaves + 1}},
            [&](double x, double y) {
                const double line = 0.06 * std::sin(y * 2.6);
                return Film{tile * LightOn((x - left) / house.width - 0.5) * (1.05 + line), 1};
            });
    }
    const double chimney = left + house.width * random.Between(0.2, 0.75);
    PaintBox(painting, {chimney, ridge - 5}, {chimney + 3.4, ridge + 5}, [&](double x, double) {
        return Film{tile * LightOn((x - chimney) / 1.7 - 1) * 1.1, 1};
    });
    ForEachStep(left + 5, right - 6, 9, [&](double x) {
        ForEachStep(eaves + 5, kVillageFoot - 7, 12, [&](double y) {
            if (random.Unit() < 0.55) {
                PaintWindow(painting, x, y, 3.4, 4.6);
            } else {
                PaintBox(painting, {x, y}, {x + 3.4, y + 4.6}, wall * LightOn(0.9) * 0.55);
            }
        });
    });
}

void PaintChurch(AlphaPainting& painting, double x) {
    const double head = kVillageFoot - 46;
    PaintBox(painting, {x, head}, {x + 15, kVillageFoot + 10}, [&](double px, double) {
        return Film{Light{0.74, 0.62, 0.60} * LightOn((px - x) / 7.5 - 1.1), 1};
    });
    PaintPolygon(painting, {{x - 1.5, head + 1}, {x + 7.5, head - 40}, {x + 16.5, head + 1}},
                 [&](double px, double) {
                     return Film{Light{0.40, 0.30, 0.38} * LightOn((px - x - 7.5) / 4) * 1.2, 1};
                 });
    PaintStroke(painting, Knots{{x + 7.5, head - 38, 0.6}, {x + 7.5, head - 46, 0.5}}, 1,
                {kGold * 0.9, 1});
    PaintWindow(painting, x + 5.8, head + 8, 3.4, 7);
}

}  // namespace

AlphaPicture DrawHills() {
    const NoiseSheet rough(3037, 16, 4);
    AlphaPainting painting(kHillsWidth, kHillsHeight);
    painting.Fill([&](int x, int y) {
        const double far = Rise(-0.5, 0.5, y + 0.5 - FarRidge(x + 0.5));
        const double depth = y - FarRidge(x + 0.5);
        return Film{Mixed(Light{0.46, 0.33, 0.49}, Light{0.80, 0.53, 0.51}, Rise(0, 46, depth)),
                    far};
    });
    painting.Fill([&](int x, int y) {
        const double edge = NearRidge(x + 0.5) - 2.2 * rough.At(x * 2.0, 7);
        const double near = Rise(-0.5, 0.5, y + 0.5 - edge);
        // Slopes that look to the left keep the last light.
        const double slope = NearRidge(x - 3.0) - NearRidge(x + 3.0);
        const Light hill = Mixed(Light{0.33, 0.27, 0.40}, Light{0.60, 0.40, 0.43},
                                 Rise(-1.5, 2.2, slope) * 0.75 + 0.2 * rough.At(x, y * 2.0));
        return Film{Mixed(hill, kHaze, Rise(4, 44, y - edge) * 0.75), near};
    });
    return painting.ToPicture();
}

AlphaPicture DrawVillage() {
    samplemaker::Random random(3041);
    AlphaPainting painting(kVillageWidth, kVillageHeight);
    constexpr double kMiddle = kVillageWidth / 2.0;
    for (int i = 0; i < 34; ++i) {
        const double x = 14 + i * 27.0 + random.Between(-8, 8);
        PaintTree(painting, x, kVillageFoot + 2, random.Between(26, 44), random);
    }
    PaintChurch(painting, kMiddle + 36);
    const House houses[] = {
        {-424, 34, 22, 15, false}, {-380, 24, 26, 16, true}, {-346, 42, 20, 16, false},
        {-292, 30, 24, 15, false}, {-60, 40, 22, 16, false}, {-14, 26, 27, 17, true},
        {62, 44, 21, 16, false},   {112, 26, 28, 17, true},  {144, 38, 22, 15, false},
        {330, 40, 22, 16, false},  {376, 26, 26, 16, true},  {408, 34, 22, 14, false},
    };
    for (const House& house : houses) {
        PaintHouse(painting,
                   {kMiddle + house.x, house.width, house.height, house.roof, house.gable}, random);
    }
    for (int i = 0; i < 46; ++i) {
        const double x = 6 + i * 19.5 + random.Between(-8, 8);
        PaintTree(painting, x, kVillageFoot + 10, random.Between(13, 21), random);
    }
    const NoiseSheet rough(3049, 16, 4);
    painting.Fill([&](int x, int y) {
        const double top = kVillageFoot - 1 + 4 * (rough.At(x * 1.2, 40) - 0.5);
        return Film{Light{0.34, 0.31, 0.30} * (0.9 + 0.3 * rough.At(x, y * 4.0)),
                    Rise(-1, 1.5, y - top)};
    });
    painting.TintAll([](int, int y) {
        return Film{kHaze, 0.30 + 0.26 * Rise(30, kVillageFoot, y)};
    });
    return painting.ToPicture();
}

AlphaPicture DrawBank() {
    const NoiseSheet rough(3061, 16, 4);
    samplemaker::Random random(3067);
    AlphaPainting painting(kBankWidth, kBankHeight);
    // A mound on which the mill stands, to the right of the middle.
    const auto top = [&](double x) {
        const double mound = std::hypot((x - kBankWidth / 2.0 - 104) / 92, 0.0);
        return 27 - 11 * Rise(1.5, 0.2, mound) + 3 * (rough.At(x * 0.5, 11) - 0.5);
    };
    painting.Fill([&](int x, int y) {
        const double edge = top(x + 0.5);
        const double slope = top(x - 4.0) - top(x + 5.0);
        const double grain = 0.8 + 0.4 * rough.At(x * 1.7, y * 5.0);
        const Light grass = Mixed(Light{0.26, 0.25, 0.24}, Light{0.55, 0.42, 0.28},
                                  Rise(5, -1, y - edge) * 0.55 + Rise(0, 2.5, slope) * 0.4);
        return Film{grass * grain, Rise(-0.7, 0.7, y - edge)};
    });
    for (int i = 0; i < 620; ++i) {
        const double x = random.Between(0, kBankWidth);
        const bool reed = i % 3 == 0;
        const double foot = reed ? random.Between(38, 46) : top(x) + random.Between(1, 12);
        const double length = reed ? random.Between(6, 13) : random.Between(2, 5);
        const double lean = random.Between(-2, 2.5);
        const Light blade = Mixed(Light{0.22, 0.22, 0.20}, Light{0.72, 0.52, 0.34}, random.Unit());
        PaintStroke(painting,
                    Knots{{x, foot, 0.7},
                          {x + lean * 0.4, foot - length / 2, 0.6},
                          {x + lean, foot - length, 0.3}},
                    0.9, {blade, 0.85});
    }
    painting.TintAll([](int, int y) { return Film{kHaze, 0.16 + 0.10 * Rise(10, 44, y)}; });
    return painting.ToPicture();
}

}  // namespace scenara::samples::millfair
