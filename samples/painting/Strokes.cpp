// SPDX-License-Identifier: MIT
#include "painting/Strokes.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "painting/Shapes.h"

namespace scenara::samples {
namespace {

struct PixelBox {
    int left = 0;
    int top = 0;
    int right = -1;  // both included
    int bottom = -1;
};

// Cut to the picture, so that far-off shapes cost nothing.
PixelBox BoxAround(const AlphaPainting& painting, double left, double top, double right,
                   double bottom) {
    const auto inside = [](double value, int size) {
        return static_cast<int>(std::clamp(value, -1.0, static_cast<double>(size)));
    };
    return {std::max(0, inside(std::floor(left), painting.Width())),
            std::max(0, inside(std::floor(top), painting.Height())),
            std::min(painting.Width() - 1, inside(std::ceil(right), painting.Width())),
            std::min(painting.Height() - 1, inside(std::ceil(bottom), painting.Height()))};
}

PixelBox BoxAround(const AlphaPainting& painting, const Knot& from, const Knot& to, double soft) {
    const double reach = std::max(from.half, to.half) + soft;
    return BoxAround(painting, std::min(from.x, to.x) - reach, std::min(from.y, to.y) - reach,
                     std::max(from.x, to.x) + reach, std::max(from.y, to.y) + reach);
}

PixelBox BoxAround(const AlphaPainting& painting, std::span<const Knot> knots, double soft) {
    PixelBox all{painting.Width(), painting.Height(), -1, -1};
    for (std::size_t i = 0; i + 1 < knots.size(); ++i) {
        const PixelBox one = BoxAround(painting, knots[i], knots[i + 1], soft);
        all = {std::min(all.left, one.left), std::min(all.top, one.top),
               std::max(all.right, one.right), std::max(all.bottom, one.bottom)};
    }
    return all;
}

// For each pixel of a box the place of the stroke that is nearest to it.
class StrokeField {
public:
    explicit StrokeField(const PixelBox& box)
        : box_(box),
          width_(std::max(0, box.right - box.left + 1)),
          spots_(static_cast<std::size_t>(width_) *
                 static_cast<std::size_t>(std::max(0, box.bottom - box.top + 1))) {}

    struct Spot {
        double outside = std::numeric_limits<double>::infinity();  // from the edge; below 0 inside
        StrokePlace place;
    };

    [[nodiscard]] Spot& At(int x, int y) {
        return spots_[static_cast<std::size_t>(y - box_.top) * static_cast<std::size_t>(width_) +
                      static_cast<std::size_t>(x - box_.left)];
    }

private:
    PixelBox box_;
    int width_;
    std::vector<Spot> spots_;
};

}  // namespace

void PaintStroke(AlphaPainting& painting, std::span<const Knot> knots, double soft,
                 const StrokeBrush& brush) {
    const PixelBox box = BoxAround(painting, knots, soft);
    StrokeField field(box);
    const double lines = static_cast<double>(knots.size()) - 1;
    for (std::size_t i = 0; i + 1 < knots.size(); ++i) {
        const Knot& from = knots[i];
        const Knot& to = knots[i + 1];
        const double alongX = to.x - from.x;
        const double alongY = to.y - from.y;
        const double square = std::max(1e-9, alongX * alongX + alongY * alongY);
        const PixelBox part = BoxAround(painting, from, to, soft);
        for (int y = part.top; y <= part.bottom; ++y) {
            for (int x = part.left; x <= part.right; ++x) {
                const double fromX = x + 0.5 - from.x;
                const double fromY = y + 0.5 - from.y;
                const double t = std::clamp((fromX * alongX + fromY * alongY) / square, 0.0, 1.0);
                const double half = from.half + (to.half - from.half) * t;
                const double away = std::hypot(fromX - alongX * t, fromY - alongY * t);
                StrokeField::Spot& spot = field.At(x, y);
                if (away - half < spot.outside) {
                    const double side = alongX * fromY - alongY * fromX < 0 ? -1 : 1;
                    spot = {away - half,
                            {(static_cast<double>(i) + t) / lines,
                             side * std::min(1.0, away / std::max(half, 0.3))}};
                }
            }
        }
    }
    for (int y = box.top; y <= box.bottom; ++y) {
        for (int x = box.left; x <= box.right; ++x) {
            const StrokeField::Spot& spot = field.At(x, y);
            const double cover = Rise(soft / 2, -soft / 2, spot.outside);
            if (cover > 0) {
                const Film film = brush(spot.place);
                painting.Lay(x, y, {film.light, film.part * cover});
            }
        }
    }
}

void PaintStroke(AlphaPainting& painting, std::span<const Knot> knots, double soft,
                 const Film& film) {
    PaintStroke(painting, knots, soft, [&](const StrokePlace&) { return film; });
}

void PaintOval(AlphaPainting& painting, const Oval& oval, double soft, const OvalBrush& brush) {
    const PixelBox box =
        BoxAround(painting, oval.x - oval.radiusX - soft, oval.y - oval.radiusY - soft,
                  oval.x + oval.radiusX + soft, oval.y + oval.radiusY + soft);
    for (int y = box.top; y <= box.bottom; ++y) {
        for (int x = box.left; x <= box.right; ++x) {
            const double u = (x + 0.5 - oval.x) / oval.radiusX;
            const double v = (y + 0.5 - oval.y) / oval.radiusY;
            const double value = u * u + v * v - 1;
            const double slope = 2 * std::hypot(u / oval.radiusX, v / oval.radiusY);
            const double cover = Rise(soft / 2, -soft / 2, value / std::max(slope, 1e-9));
            if (cover > 0) {
                const Film film = brush(std::clamp(u, -1.0, 1.0), std::clamp(v, -1.0, 1.0));
                painting.Lay(x, y, {film.light, film.part * cover});
            }
        }
    }
}

void PaintGlow(AlphaPainting& painting, const Oval& oval, const Film& film) {
    PaintOval(painting, oval, 1, [&](double u, double v) {
        return Film{film.light, film.part * Rise(1, 0, std::hypot(u, v))};
    });
}

}  // namespace scenara::samples
