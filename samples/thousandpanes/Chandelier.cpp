// SPDX-License-Identifier: MIT
//
// The ring of candles that hangs from the vault, and its light.
#include <cmath>
#include <numbers>

#include "painting/Painting.h"
#include "painting/Shapes.h"
#include "thousandpanes/Candles.h"
#include "thousandpanes/Glass.h"
#include "thousandpanes/Pictures.h"
#include "thousandpanes/Stone.h"

namespace scenara::samples {
namespace {

constexpr int kWidth = 192;
constexpr int kHeight = 232;
constexpr double kMiddle = kWidth / 2.0;
constexpr double kRing = 190;  // the ring's row
constexpr double kRingWidth = 82;
constexpr double kRingDepth = 15;
constexpr int kCandles = 10;

struct Seat {
    double x;
    double y;
};

// Where candle number `i` stands on the ring; those of the far side first.
Seat SeatOf(int i) {
    const double turn = std::numbers::pi * (2 * i + 1) / kCandles + std::numbers::pi;
    return {kMiddle + kRingWidth * std::cos(turn), kRing + kRingDepth * std::sin(turn)};
}

// One half of the ring, seen from outside (near) or inside (far).
void PaintRing(Painting& painting, bool near) {
    for (int x = 0; x < kWidth; ++x) {
        const double across = (x + 0.5 - kMiddle) / kRingWidth;
        if (std::abs(across) > 1) {
            continue;
        }
        const double bow = kRingDepth * std::sqrt(1 - across * across) * (near ? 1 : -1);
        const int top = static_cast<int>(std::lround(kRing + bow));
        for (int row = 0; row < 9; ++row) {
            const bool edge = row < 2 || row > 6;
            const double boss = Line(InCell(std::asin(across) * 26, 6), 3);
            const double bright = near ? 0.32 + 0.4 * Round(across, -0.2) : 0.5;
            const Light gold = kGold * (bright * (edge ? 1.1 : 0.35 + 0.6 * boss));
            painting.Set(x, top + row, near ? gold : gold * 0.55);
        }
    }
}

void PaintFlame(Painting& painting, const Seat& seat) {
    for (int dy = -18; dy <= 1; ++dy) {
        for (int dx = -4; dx <= 4; ++dx) {
            const double up = -dy / 17.0;
            const double half = 3.6 * std::sqrt(std::max(0.0, up + 0.1)) * (1 - up) + 0.2;
            if (std::abs(dx + 0.01) < half * 1.2) {
                const Light flame =
                    Mixed(Light{1, 0.95, 0.7}, Light{1, 0.6, 0.16}, Rise(0.3, 1, up));
                painting.Set(static_cast<int>(seat.x) + dx, static_cast<int>(seat.y) - 20 + dy,
                             flame);
            }
        }
    }
}

void PaintCandles(Painting& painting, int from, int to) {
    for (int i = from; i < to; ++i) {
        const Seat seat = SeatOf(i);
        PaintIron(painting, seat.x - 4, seat.y, seat.x + 4, seat.y, 2);
        PaintCandle(painting, seat.x, seat.y - 19, 18, 2);
        PaintFlame(painting, seat);
    }
}

}  // namespace

IndexedPicture DrawChandelier() {
    Painting painting(kWidth, kHeight);
    PaintRing(painting, false);
    PaintCandles(painting, 0, kCandles / 2);
    for (const double side : {-1.0, -0.3, 0.3, 1.0}) {
        PaintIron(painting, kMiddle, 96, kMiddle + side * kRingWidth * 0.97,
                  kRing + (std::abs(side) < 0.5 ? kRingDepth * 0.9 : 0), 1.1);
    }
    PaintIron(painting, kMiddle, 90, kMiddle, 96, 6);
    for (int link = 0; link < 90; link += 9) {  // the chain
        PaintIron(painting, kMiddle, link, kMiddle, link + 6, 1.9);
    }
    PaintRing(painting, true);
    PaintCandles(painting, kCandles / 2, kCandles);
    return painting.ToPicture();
}

IndexedPicture DrawChandelierLight() {
    constexpr int kLightWidth = 320;
    constexpr int kLightHeight = 200;
    Painting painting(kLightWidth, kLightHeight);
    painting.Fill([](int x, int y) {
        const double u = (x + 0.5 - kLightWidth / 2.0) / (kLightWidth / 2.0);
        const double v = (y + 0.5 - kLightHeight / 2.0) / (kLightHeight / 2.0);
        const double light = Rise(1, 0, std::hypot(u, v));
        return Light{0.5, 0.26, 0.09} * (light * light);
    });
    painting.LeaveOutDarkness();
    return painting.ToPicture();
}

}  // namespace scenara::samples
