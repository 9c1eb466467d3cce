// SPDX-License-Identifier: MIT
//
// The three airships: one at the mast, one that passes, one far away.
#include <algorithm>
#include <array>
#include <cmath>

#include "cloudharbour/Airship.h"
#include "cloudharbour/Island.h"
#include "cloudharbour/Pictures.h"
#include "cloudharbour/Scene.h"

namespace scenara::samples::cloudharbour {
namespace {

void PaintShip(Painting& painting, const Airship& ship) {
    PaintFins(painting, ship);
    PaintHull(painting, ship);
    PaintBody(painting, ship);
    PaintEngine(painting, ship);
}

}  // namespace

IndexedPicture DrawMooredShip() {
    Painting painting(720, 330);
    PaintShip(painting, {.nose = {24, 118}, .length = 680, .girth = 100});
    Veil(painting, kCoolHaze, 0.06, 0.14);
    return painting.ToPicture();
}

IndexedPicture DrawPassingShip() {
    Painting painting(250, 124);
    PaintShip(painting, {.nose = {8, 46},
                         .length = 232,
                         .girth = 37,
                         .canvas = {0.78, 0.62, 0.52},
                         .stripe = {0.26, 0.34, 0.46}});
    Veil(painting, kMauve, 0.30, 0.44);
    return painting.ToPicture();
}

IndexedPicture DrawFarShip() {
    Painting painting(112, 60);
    PaintShip(painting, {.nose = {4, 22},
                         .length = 102,
                         .girth = 17,
                         .canvas = {0.58, 0.50, 0.56},
                         .stripe = {0.34, 0.24, 0.40}});
    Veil(painting, {0.56, 0.40, 0.58}, 0.34, 0.42);
    return painting.ToPicture();
}

// A propeller from the side: two blades, longer and shorter as they turn.
Pictures DrawPropeller() {
    constexpr int kWidth = 28;
    constexpr int kHeight = 124;
    constexpr double kLength = 56;
    std::vector<Painting> paintings;
    for (const double turn : {1.0, 0.82, 0.45, -0.15, -0.62, -0.93}) {
        Painting& painting = paintings.emplace_back(kWidth, kHeight);
        const Point hub{kWidth / 2.0, kHeight / 2.0};
        const double aside = 5 * std::sqrt(1 - turn * turn);
        for (const int side : {-1, 1}) {
            const Point tip{hub.x + side * aside, hub.y + side * kLength * turn};
            PaintBeam(painting, {hub, tip, 5, 8}, {0.66, 0.44, 0.30});
            PaintBeam(painting,
                      {{hub.x + 0.9 * (tip.x - hub.x), hub.y + 0.9 * (tip.y - hub.y)}, tip, 8, 8},
                      {0.86, 0.66, 0.34});
        }
        PaintBall(painting, {hub.x + 2, hub.y}, 8, 9, {0.80, 0.58, 0.32});
    }
    return ToPictures(paintings);
}

// The mast to which the ship's nose is made fast: a lattice of iron out of the clouds.
IndexedPicture DrawMooringMast() {
    constexpr int kWidth = 120;
    constexpr int kHeight = 600;  // its foot is below the picture, whatever clouds drift by
    constexpr double kMiddle = 56;
    constexpr int kTop = 74;
    constexpr Light kIron{0.34, 0.28, 0.36};
    Painting painting(kWidth, kHeight);
    const auto half = [](double y) { return 9 + 26 * Rise(kTop, kHeight, y); };
    int field = 0;
    for (double y = kTop; y < kHeight; y += 34, ++field) {
        const double next = y + 34;
        PaintBeam(painting, {{kMiddle - half(y), y}, {kMiddle + half(next), next}, 2.6, 2.6},
                  kIron * 0.8);
        PaintBeam(painting, {{kMiddle + half(y), y}, {kMiddle - half(next), next}, 2.6, 2.6},
                  kIron * 0.8);
        PaintBeam(painting, {{kMiddle - half(y), y}, {kMiddle + half(y), y}, 3, 3}, kIron);
    }
    for (const int side : {-1, 1}) {
        for (double y = kTop; y < kHeight; y += 34) {
            PaintBeam(
                painting,
                {{kMiddle + side * half(y), y}, {kMiddle + side * half(y + 34), y + 34}, 5.4, 5.4},
                kIron);
        }
    }
    // A gallery with a rail, and the head that turns with the ship.
    PaintBeam(painting, {{kMiddle - 34, kTop + 40.0}, {kMiddle + 34, kTop + 40.0}, 5, 5},
              {0.46, 0.32, 0.28});
    PaintLine(painting, {kMiddle - 34, kTop + 24}, {kMiddle + 34, kTop + 24}, 1.4,
              {0.24, 0.18, 0.26});
    for (double post = -34; post <= 34; post += 11.3) {
        PaintLine(painting, {kMiddle + post, kTop + 24}, {kMiddle + post, kTop + 40}, 1.4,
                  {0.24, 0.18, 0.26});
    }
    PaintBeam(painting, {{kMiddle, kTop + 4.0}, {kMiddle, 34}, 11, 9}, kIron * 1.2);
    PaintBeam(painting, {{kMiddle - 4, 38}, {kMiddle + 34, 38}, 12, 20}, {0.56, 0.42, 0.34});
    PaintBall(painting, {kMiddle + 33, 38}, 5, 13, {0.74, 0.52, 0.30});
    PaintLine(painting, {kMiddle, 34}, {kMiddle, 2}, 2, {0.30, 0.22, 0.28});
    PaintBall(painting, {kMiddle, 24}, 5, 6, {1.2, 0.8, 0.5});
    Veil(painting, kCoolHaze, 0.10, 0.42);
    return painting.ToPicture();
}

}  // namespace scenara::samples::cloudharbour
