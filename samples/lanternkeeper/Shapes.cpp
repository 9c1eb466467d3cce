// SPDX-License-Identifier: MIT
#include "lanternkeeper/Shapes.h"

#include <algorithm>
#include <cmath>

namespace scenara::samples {
namespace {

// Where the light comes from.
constexpr Point kLight{0.8, -0.6};
constexpr double kContrast = 0.38;

}  // namespace

void DrawLimb(Canvas& canvas, const Joint& from, const Joint& to, const samplemaker::Ramp& ramp,
              double level) {
    const Point along{to.at.x - from.at.x, to.at.y - from.at.y};
    const double square = std::max(along.x * along.x + along.y * along.y, 1e-6);
    for (int y = 0; y < canvas.Height(); ++y) {
        for (int x = 0; x < canvas.Width(); ++x) {
            const Point rel{x - from.at.x, y - from.at.y};
            const double t = std::clamp((rel.x * along.x + rel.y * along.y) / square, 0.0, 1.0);
            const double radius = from.radius + (to.radius - from.radius) * t;
            const Point off{(rel.x - along.x * t) / radius, (rel.y - along.y * t) / radius};
            if (off.x * off.x + off.y * off.y > 1) {
                continue;
            }
            const double lit = off.x * kLight.x + off.y * kLight.y;
            canvas.Set(x, y, ramp.Flat(level + kContrast * lit));
        }
    }
}

Point BentAt(Point from, Point to, double upper, double lower, double bend) {
    const Point way{to.x - from.x, to.y - from.y};
    const double length = std::max(std::hypot(way.x, way.y), 1e-3);
    const double far = std::clamp(length, std::fabs(upper - lower) + 1e-3, upper + lower - 1e-3);
    const double along = (upper * upper - lower * lower + far * far) / (2 * far);
    const double out = std::sqrt(std::max(upper * upper - along * along, 0.0));
    const Point unit{way.x / length, way.y / length};
    return {from.x + unit.x * along + bend * unit.y * out,
            from.y + unit.y * along - bend * unit.x * out};
}

void DrawOutline(Canvas& canvas, std::uint8_t colour) {
    const Canvas before = canvas;
    canvas.Paint([&](int x, int y) -> std::uint8_t {
        const bool beside = before.Get(x - 1, y) != 0 || before.Get(x + 1, y) != 0 ||
                            before.Get(x, y - 1) != 0 || before.Get(x, y + 1) != 0;
        return before.Get(x, y) == 0 && beside ? colour : before.Get(x, y);
    });
}

}  // namespace scenara::samples
