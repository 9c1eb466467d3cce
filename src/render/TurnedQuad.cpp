// SPDX-License-Identifier: MIT
#include "render/TurnedQuad.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numbers>
#include <utility>

namespace scenara {
namespace {

// A place that is less than this before the border of two texels is on it.
constexpr double kOnBorder = 1.0 / (1 << 20);

struct Spot {
    double x;
    double y;
};

// One of the two triangles of which a device makes a quad, clockwise on the screen. It is gone
// through as a device does it, for the two have places of their own once their corners are rounded
// to floats.
class Triangle {
public:
    Triangle(const TurnedQuad& quad, const std::array<std::size_t, 3>& corners) {
        for (std::size_t i = 0; i < 3; ++i) {
            const TurnedQuad::Corner& corner = quad.corners.at(corners.at(i));
            spots_.at(i) = {static_cast<double>(corner.x), static_cast<double>(corner.y)};
        }
        second_ = {spots_[1].x - spots_[0].x, spots_[1].y - spots_[0].y};
        third_ = {spots_[2].x - spots_[0].x, spots_[2].y - spots_[0].y};
        area_ = second_.x * third_.y - third_.x * second_.y;
    }

    // Whether the centre of that pixel lies inside, or on an edge to the left or at the top.
    [[nodiscard]] bool Has(std::int64_t x, std::int64_t y) const {
        const double line = static_cast<double>(y) + 0.5;
        const auto column = static_cast<double>(x);
        bool inside = area_ > 0;
        bool met = false;
        for (std::size_t i = 0; i < 3; ++i) {
            const Spot& from = spots_.at(i);
            const Spot& to = spots_.at((i + 1) % 3);
            // Clockwise, what goes up is an edge on the left.
            if (to.y < from.y && Meets(to, from, line)) {
                inside = inside && column >= Cut(to, from, line) - 0.5;
                met = true;
            } else if (from.y < to.y && Meets(from, to, line)) {
                inside = inside && column < Cut(from, to, line) - 0.5;
            }
        }
        return inside && met;
    }

    // The texel at that pixel, of `size` of them in a picture whose edges are `near` and `far`
    // along this axis, 0 and `size` or, mirrored, `size` and 0. `ends`: which corners have the far
    // edge.
    [[nodiscard]] std::int64_t Texel(std::int64_t x, std::int64_t y, Integer size, bool mirrored,
                                     const std::array<bool, 3>& ends) const {
        const auto edge = [&](std::size_t corner) {
            return ends.at(corner) != mirrored ? static_cast<double>(size) : 0.0;
        };
        const double first = edge(0);
        const double toSecond = edge(1) - first;
        const double toThird = edge(2) - first;
        const double perX = (toSecond * third_.y - toThird * second_.y) / area_;
        const double perY = (toThird * second_.x - toSecond * third_.x) / area_;
        const double place = first + perX * (static_cast<double>(x) + 0.5 - spots_[0].x) +
                             perY * (static_cast<double>(y) + 0.5 - spots_[0].y);
        // On a border it is the one that follows to the right or below.
        const bool backwards = std::abs(perX) >= std::abs(perY) ? perX < 0 : perY < 0;
        const double texel =
            backwards ? -1 - std::floor(-place + kOnBorder) : std::floor(place + kOnBorder);
        return static_cast<std::int64_t>(std::clamp(texel, 0.0, size - 1.0));
    }

private:
    static bool Meets(const Spot& top, const Spot& bottom, double line) {
        return top.y <= line && line < bottom.y;
    }
    static double Cut(const Spot& top, const Spot& bottom, double line) {
        return top.x + (line - top.y) * (bottom.x - top.x) / (bottom.y - top.y);
    }

    std::array<Spot, 3> spots_{};
    Spot second_{};  // from the first corner
    Spot third_{};
    double area_ = 0;  // twice
};

}  // namespace

Turn Turn::By(double angle) {
    if (!std::isfinite(angle)) {
        return {};
    }
    const double within = std::fmod(angle, 360);  // exact
    // The sine of as many degrees as there are in pi is not quite 0.
    constexpr std::array<std::pair<double, Turn>, 4> kQuarters{
        {{0, {1, 0}}, {90, {0, 1}}, {180, {-1, 0}}, {270, {0, -1}}}};
    for (const auto& [quarter, turn] : kQuarters) {
        if (within == quarter || (quarter != 0 && within == quarter - 360)) {
            return turn;
        }
    }
    const double radians = within * (std::numbers::pi / 180);
    return {std::cos(radians), std::sin(radians)};
}

std::optional<ShownTexel> TexelAt(const TurnedQuad& quad, Integer width, Integer height,
                                  const BlitStyle& style, std::int64_t x, std::int64_t y) {
    // A strip of two triangles, the second one taken the other way round.
    constexpr std::array<std::array<std::size_t, 3>, 2> kTriangles{{{0, 1, 2}, {2, 1, 3}}};
    constexpr std::array<bool, 4> kAtRight{false, false, true, true};
    constexpr std::array<bool, 4> kAtBottom{true, false, true, false};
    for (const std::array<std::size_t, 3>& corners : kTriangles) {
        const Triangle triangle(quad, corners);
        if (triangle.Has(x, y)) {
            const auto ends = [&](const std::array<bool, 4>& all) {
                return std::array{all.at(corners[0]), all.at(corners[1]), all.at(corners[2])};
            };
            return ShownTexel{triangle.Texel(x, y, width, style.mirrored, ends(kAtRight)),
                              triangle.Texel(x, y, height, style.flipped, ends(kAtBottom))};
        }
    }
    return std::nullopt;
}

}  // namespace scenara
