// SPDX-License-Identifier: MIT
#include "cloudharbour/CloudBank.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "cloudharbour/Scene.h"
#include "painting/NoiseSheet.h"
#include "painting/Painting.h"
#include "painting/PuffField.h"
#include "samplemaker/Noise.h"
#include "samplemaker/Ramp.h"

namespace scenara::samples::cloudharbour {
namespace {

constexpr double kTurn = 2 * std::numbers::pi;

// The crest's row at a column: a few waves that all fit into the width.
double CrestAt(const CloudBank& bank, double x) {
    const double turn = kTurn * x / bank.width;
    const double phase = bank.seed * 0.7;
    const double waves = 0.50 * std::sin(turn + phase) + 0.34 * std::sin(3 * turn + 2.1 * phase) +
                         0.16 * std::sin(7 * turn + 3.7 * phase);
    return bank.crest - bank.swell * waves;
}

// A heap: a ball with smaller ones on its upper side, and these again.
void AddHeap(PuffField& field, samplemaker::Random& random, const Puff& ball, const Puff& form) {
    constexpr double kLeast = 4.5;  // smaller ones are not seen
    field.Add(ball, form, 0.66);
    if (ball.radius < 2 * kLeast) {
        return;
    }
    constexpr int kCount = 8;
    for (int i = 0; i < kCount; ++i) {
        // Angles from the left over the top to the right, a little below the middle at both ends.
        const double angle = kTurn * (0.45 + 0.60 * (i + random.Unit()) / kCount);
        const double size = random.Unit();
        const double radius = ball.radius * (0.24 + 0.34 * size * size);
        const double out = ball.radius * random.Between(0.66, 1.0);
        const Puff child{ball.x + out * std::cos(angle), ball.y + out * std::sin(angle), radius,
                         ball.depth + ball.radius * random.Between(0.0, 0.5)};
        if (radius > kLeast) {
            AddHeap(field, random, child, ball);
        }
    }
}

void AddTower(PuffField& field, samplemaker::Random& random, const CloudBank& bank, double x) {
    const double height = bank.radius * random.Between(1.6, 2.6);
    const double foot = CrestAt(bank, x) / bank.squash + bank.radius;
    for (double up = 0; up < height; up += bank.radius * 0.55) {
        const double part = up / height;
        const double radius = bank.radius * (1.0 - 0.5 * part) * random.Between(0.8, 1.1);
        const Puff ball{x + bank.radius * random.Between(-0.5, 0.5), foot - up, radius,
                        -bank.radius * 0.5};
        AddHeap(field, random, ball, ball);
    }
}

PuffField HeapsOf(const CloudBank& bank) {
    PuffField field(bank.width, static_cast<int>(bank.height / bank.squash), true);
    samplemaker::Random random(bank.seed);
    for (int tower = 0; tower < bank.towers; ++tower) {
        AddTower(field, random, bank, (tower + random.Unit()) * bank.width / bank.towers);
    }
    // Rows of heaps from the crest down, each before the one above it.
    double down = 0;
    double depth = 0;
    for (int line = 0; line < bank.lines; ++line) {
        const double most = bank.radius + line * bank.growth;
        const int heaps = static_cast<int>(bank.width / (most * 1.25));
        for (int i = 0; i < heaps; ++i) {
            const double x = (i + random.Between(0.0, 1.0)) * bank.width / heaps;
            const double size = random.Unit();
            const double radius = most * (0.40 + 0.60 * size);
            const double y =
                CrestAt(bank, x) / bank.squash + radius + down + random.Between(-0.2, 0.4) * most;
            const Puff ball{x, y, radius, depth};
            AddHeap(field, random, ball, ball);
        }
        down += most * bank.flat;
        depth += most * 0.9;
    }
    return field;
}

Light Tone(const CloudBank& bank, double level) {
    const double t = std::clamp(level, 0.0, 1.0);
    return t < 0.5 ? Mixed(bank.shade, bank.middle, 2 * t)
                   : Mixed(bank.middle, bank.lit, 2 * t - 1);
}

// The sun stands low and is farther away than the clouds. It lights their upper and left sides.
double SunOn(const PuffPlace& place) {
    return -0.70 * place.x - 0.66 * place.y + 0.16 * place.z;
}

}  // namespace

IndexedPicture DrawBank(const CloudBank& bank) {
    const PuffField field = HeapsOf(bank);
    const NoiseSheet bend(bank.seed + 1, 8, 4, 0.45);
    const NoiseSheet drift(bank.seed + 2, 4, 4);
    const double fray = std::min(24.0, bank.radius * 0.45);
    const double depth = bank.mistTo - bank.mistFrom;
    const double soft = std::clamp(bank.gaps * bank.radius, 0.0, std::min(16.0, bank.radius * 0.5));
    Painting painting(bank.width, bank.height);
    for (int x = 0; x < bank.width; ++x) {
        // From here on every pixel is cloud, whatever gaps the heaps leave.
        const double full = CrestAt(bank, x) + bank.gaps * bank.radius * bank.squash;
        for (int y = 0; y < bank.height; ++y) {
            // The balls are bent and frayed, or they would look like balls.
            const double warp = bend.At(x * 1.0, y * 1.0) - 0.5;
            const double warpDown = bend.At(x + 97.0, y + 31.0) - 0.5;
            const PuffPlace& place = field.At(x + fray * warp, (y + fray * warpDown) / bank.squash);
            const bool outline = place.edge < 0.22 * samplemaker::DitherThreshold(x, y);
            if ((!place.there || outline) && y < full + soft * samplemaker::DitherThreshold(x, y)) {
                continue;
            }
            const double flow = drift.At(x * 0.5, y * 1.5);
            const double mist = Rise(bank.mistFrom, bank.mistTo, y + (flow - 0.5) * 0.9 * depth);
            // Thin edges towards the sun let its light through.
            const double lining = (1 - place.edge) * (1 - place.edge) *
                                  Rise(0.0, 0.9, -0.75 * place.x - 0.6 * place.y);
            const double level = 0.42 + 0.46 * SunOn(place) + 0.42 * lining + 0.34 * (flow - 0.5) +
                                 0.12 * (bend.At(x + 13.0, y * 2.0) - 0.5);
            const double hazy = bank.haze * Rise(bank.mistTo, bank.crest - bank.swell, y);
            const Light heap = Mixed(place.there ? Tone(bank, level) : bank.mist, bank.far, hazy);
            const Light veil = Mixed(bank.mist, Tone(bank, 0.75), 0.45 * Rise(0.45, 0.85, flow));
            painting.Set(x, y, Mixed(heap, veil, mist));
        }
    }
    return painting.ToPicture();
}

}  // namespace scenara::samples::cloudharbour
