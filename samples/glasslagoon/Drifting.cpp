// SPDX-License-Identifier: MIT
//
// What drifts in the water: mist over the far reef, bubbles, plankton.
#include <cmath>

#include "glasslagoon/Pictures.h"
#include "glasslagoon/Scene.h"
#include "painting/NoiseSheet.h"
#include "painting/Strokes.h"
#include "samplemaker/Noise.h"

namespace scenara::samples::glasslagoon {
namespace {

// Dots on a sheet of 256 x 256 that goes on at its other sides.
AlphaPicture DrawPlankton(std::uint32_t seed, int count, double largest, double part) {
    constexpr int kSide = 256;
    samplemaker::Random random(seed);
    AlphaPainting painting(kSide, kSide);
    for (int i = 0; i < count; ++i) {
        const double x = random.Between(0, kSide);
        const double y = random.Between(0, kSide);
        const double small = random.Unit();
        const double radius = largest * (0.35 + 0.65 * small * small);
        const double strength = part * random.Between(0.4, 1);
        for (const double overX : {-kSide, 0, kSide}) {
            for (const double overY : {-kSide, 0, kSide}) {
                PaintGlow(painting, {x + overX, y + overY, radius, radius},
                          {{0.90, 1.0, 0.93}, strength});
            }
        }
    }
    return painting.ToPicture();
}

// A thin shell: seen at its rim, where one looks along it, and by the light that it mirrors.
void PaintBubble(AlphaPainting& painting, double x, double y, double radius) {
    PaintOval(painting, {x, y, radius, radius}, 1.2, [&](double u, double v) {
        const double away = std::hypot(u, v);
        const double rim = Rise(0.45, 1.0, away);
        const double top = Rise(0.5, 0.0, std::hypot(u + 0.34, v + 0.40));
        const double below = Rise(0.3, 1.0, away) * Rise(0.1, 0.9, (u + v) * 0.7);
        const double part = 0.10 + 0.42 * rim + 0.75 * top + 0.25 * below;
        return Film{Mixed(Light{0.62, 0.92, 0.95}, Light{1, 1, 1}, top), part};
    });
}

}  // namespace

AlphaPicture DrawMist() {
    constexpr int kWidth = 1024;
    constexpr int kHeight = 170;
    const NoiseSheet broad(2029, 2, 4);
    const NoiseSheet fine(2039, 8, 3);
    AlphaPainting painting(kWidth, kHeight);
    painting.Fill([&](int x, int y) {
        const double bent = y + 30 * fine.At(x * 0.5, y * 0.4);
        const double thick = 0.75 * broad.At(x * 0.25, bent * 0.7) + 0.25 * fine.At(x * 0.5, bent);
        const double upper = Rise(0, 110, y) * Rise(kHeight, kHeight - 50, y);
        return Film{{0.36, 0.75, 0.80}, 0.85 * upper * Rise(0.18, 0.80, thick)};
    });
    return painting.ToPicture();
}

AlphaPicture DrawBubbles() {
    constexpr int kWidth = 56;
    constexpr int kHeight = 190;
    struct Bubble {
        double x;
        double y;
        double radius;
    };
    constexpr std::array kBubbles = {
        Bubble{28, 16, 8.5},  Bubble{18, 40, 5},    Bubble{38, 50, 6.5},  Bubble{27, 72, 3.6},
        Bubble{34, 90, 4.6},  Bubble{22, 104, 2.6}, Bubble{30, 124, 3.4}, Bubble{26, 142, 2.2},
        Bubble{31, 158, 2.6}, Bubble{28, 176, 1.8}};
    AlphaPainting painting(kWidth, kHeight);
    for (const Bubble& bubble : kBubbles) {
        PaintBubble(painting, bubble.x, bubble.y, bubble.radius);
    }
    return painting.ToPicture();
}

AlphaPicture DrawFarPlankton() {
    return DrawPlankton(2053, 70, 2.0, 0.42);
}

AlphaPicture DrawNearPlankton() {
    return DrawPlankton(2063, 22, 3.6, 0.5);
}

}  // namespace scenara::samples::glasslagoon
