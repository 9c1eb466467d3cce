// SPDX-License-Identifier: MIT
#include "thousandpanes/Candles.h"

#include <array>
#include <cmath>

#include "painting/Shapes.h"
#include "thousandpanes/Glass.h"
#include "thousandpanes/Pictures.h"
#include "thousandpanes/Stone.h"

namespace scenara::samples {
namespace {

constexpr int kFlameWidth = 24;
constexpr int kFlameHeight = 40;
constexpr int kHaloSize = 176;

// Where a flame ends: blending that halves what lies behind would show more as a dark seam.
constexpr double kFlameEdge = 0.16;

// A drop of light that leans and stretches; the flame's foot is at (0, 0).
Light FlameAt(double x, double y, double lean, double height) {
    const double up = -y / height;
    if (up < -0.25 || up > 1) {
        return {};
    }
    const double middle = lean * up * up;
    const double half = 5.2 * std::sqrt(std::max(0.0, up + 0.25)) * (1 - up);
    const double inside = Rise(1.25, 0.3, std::abs(x - middle) / std::max(half, 0.4));
    const Light body = Mixed(Light{1, 0.92, 0.62}, Light{1, 0.5, 0.1}, Rise(0.15, 0.95, up));
    const Light foot = Mixed(Light{0.15, 0.25, 0.7}, body, Rise(-0.22, 0.1, up));
    return foot * inside;
}

}  // namespace

void PaintCandle(Painting& painting, double x, double y, double height, double width) {
    for (int row = 0; row < static_cast<int>(height); ++row) {
        for (int column = static_cast<int>(-width); column <= static_cast<int>(width); ++column) {
            const double across = column / (width + 0.5);
            // Wax lets light through near the flame.
            const double glow = std::exp(-row / 16.0);
            const Light wax = Mixed(Light{0.34, 0.26, 0.22}, Light{1, 0.82, 0.5}, glow);
            painting.Set(static_cast<int>(x) + column, static_cast<int>(y) + row,
                         wax * (0.35 + 0.65 * Round(across, 0.15)));
        }
    }
}

void PaintIron(Painting& painting, double x0, double y0, double x1, double y1, double width) {
    const double length = std::max(1.0, std::hypot(x1 - x0, y1 - y0));
    const double ux = (x1 - x0) / length;
    const double uy = (y1 - y0) / length;
    const int left = static_cast<int>(std::min(x0, x1) - width - 1);
    const int right = static_cast<int>(std::max(x0, x1) + width + 1);
    const int top = static_cast<int>(std::min(y0, y1) - width - 1);
    const int bottom = static_cast<int>(std::max(y0, y1) + width + 1);
    for (int y = top; y <= bottom; ++y) {
        for (int x = left; x <= right; ++x) {
            const double along = std::clamp((x + 0.5 - x0) * ux + (y + 0.5 - y0) * uy, 0.0, length);
            const double dx = x + 0.5 - x0 - along * ux;
            const double dy = y + 0.5 - y0 - along * uy;
            const double away = std::hypot(dx, dy);
            if (away > width) {
                continue;
            }
            const double lit = Round(away / width, 0) + 0.5 * (-dx - dy) / width;
            painting.Set(x, y,
                         Mixed(Light{0.02, 0.016, 0.03}, Light{0.46, 0.32, 0.16},
                               std::clamp(lit - 0.45, 0.0, 1.0)));
        }
    }
}

Pictures DrawFlames() {
    struct Moment {
        double lean;
        double height;
    };
    constexpr std::array kMoments = {Moment{0, 25}, Moment{2.2, 27}, Moment{0.8, 30},
                                     Moment{-1.8, 26}, Moment{-0.6, 23}};
    std::vector<Painting> paintings;
    for (const Moment& moment : kMoments) {
        Painting& painting = paintings.emplace_back(kFlameWidth, kFlameHeight);
        painting.Fill([&](int x, int y) {
            return FlameAt(x + 0.5 - kFlameWidth / 2.0, y + 0.5 - 32, moment.lean, moment.height);
        });
        painting.LeaveOutDarkness(kFlameEdge);
    }
    return ToPictures(paintings);
}

IndexedPicture DrawHalo() {
    Painting painting(kHaloSize, kHaloSize);
    painting.Fill([](int x, int y) {
        const double far = std::hypot(x + 0.5 - kHaloSize / 2.0, y + 0.5 - kHaloSize / 2.0);
        const double light = Rise(kHaloSize / 2.0, 0, far);
        return Light{0.62, 0.3, 0.1} * (0.75 * light * light) +
               Light{0.4, 0.3, 0.14} * std::exp(-far / 12);
    });
    painting.LeaveOutDarkness();
    return painting.ToPicture();
}

}  // namespace scenara::samples
