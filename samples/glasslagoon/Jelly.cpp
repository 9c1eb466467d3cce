// SPDX-License-Identifier: MIT
//
// A jellyfish: a bell one sees through, which opens and closes, and the arms that trail below it.
#include <algorithm>
#include <cmath>
#include <numbers>

#include "glasslagoon/Pictures.h"
#include "glasslagoon/Scene.h"
#include "painting/Strokes.h"

namespace scenara::samples::glasslagoon {
namespace {

constexpr int kJellyFrames = 8;
constexpr double kTurn = 2 * std::numbers::pi;

constexpr Light kFlesh{0.80, 0.50, 0.84};
constexpr Light kRose{1.0, 0.62, 0.74};
constexpr Light kPearl{1.0, 0.88, 0.97};

// One moment of it.
class Jelly {
public:
    Jelly(double size, double phase)
        : size_(size),
          phase_(phase),
          closed_(0.5 - 0.5 * std::cos(kTurn * phase)),
          x_(75 * size),
          rim_((86 - 7 * closed_) * size),
          wide_((47 - 9 * closed_) * size),
          high_((54 + 7 * closed_) * size),
          painting_(static_cast<int>(150 * size), static_cast<int>(250 * size)) {}

    AlphaPicture Draw() {
        PaintGlow(painting_, {x_, rim_ - high_ * 0.4, 74 * size_, 80 * size_},
                  {{0.95, 0.72, 0.95}, 0.20});
        PaintTentacles();
        PaintArms();
        PaintHollow();
        PaintBell();
        return painting_.ToPicture();
    }

private:
    // How far arms are carried sideways; the wave runs down and comes around once in the animation.
    [[nodiscard]] double Sway(double along, double lag) const {
        return (3 + 13 * along) * size_ * std::sin(kTurn * (1.15 * along - phase_ + lag)) * along;
    }

    void PaintTentacles() {
        for (int i = 0; i < 11; ++i) {
            const double place = (i - 5) / 5.0;
            const double length = (118 + 34 * std::cos(i * 2.4)) * size_;
            const Knots knots = KnotsAlong(26, [&](double u) {
                const double in = place * wide_ * (0.94 - 0.25 * u);
                return Knot{x_ + in + Sway(u, 0.06 * i), rim_ - 2 * size_ + length * u,
                            (0.95 - 0.5 * u) * std::max(0.7, size_)};
            });
            PaintStroke(painting_, knots, 1.3, [](const StrokePlace& at) {
                return Film{Mixed(kPearl, kFlesh, at.along), 0.62 * (1 - at.along)};
            });
        }
    }

    // Broad, ruffled, and softer the lower.
    void PaintArms() {
        for (int i = 0; i < 5; ++i) {
            const double place = (i - 2) / 2.0;
            const double length = (128 - 20 * std::abs(place) + 9 * std::sin(i * 3.0)) * size_;
            const Knots knots = KnotsAlong(46, [&](double u) {
                const double ruffle = std::sin(34 * u + 1.7 * i - kTurn * phase_);
                const double half = (6.2 * std::pow(1 - u, 0.6) + 0.5) * (1 + 0.30 * ruffle);
                return Knot{x_ + place * 15 * size_ * (1 + 0.4 * u) + Sway(u, 0.10 * i) * 0.9 +
                                1.6 * size_ * ruffle * (1 - u),
                            rim_ - 14 * size_ + length * u, half * size_};
            });
            PaintStroke(painting_, knots, 3.2 * size_ + 0.4, [](const StrokePlace& at) {
                const double rim = std::abs(at.across);
                const double part = (0.28 + 0.34 * rim * rim) * std::pow(1 - at.along, 0.75);
                return Film{Mixed(kRose, kPearl, 0.75 * rim), part};
            });
        }
    }

    // The inside of the bell, which one sees below its rim.
    void PaintHollow() {
        PaintOval(painting_, {x_, rim_ - 1 * size_, wide_ * 0.90, 8 * size_}, 3 * size_,
                  [](double u, double v) {
                      return Film{Mixed(Light{0.45, 0.20, 0.52}, kFlesh, 0.4 + 0.5 * v),
                                  0.36 * (1 - 0.4 * u * u)};
                  });
    }

    // Above 0 outside of the bell; about one where the distance is one pixel.
    [[nodiscard]] double OutsideBell(double x, double y) const {
        const double u = (x - x_) / wide_;
        const double turned = std::asin(std::clamp(u, -1.0, 1.0));
        const double scallop = 2.6 * size_ * std::abs(std::sin(7 * turned));
        const double hem = y - rim_ - scallop + 4.5 * size_ * (1 - u * u) * -0.6;
        const double v = (rim_ - y) / high_;
        const double curled = std::abs(u) * (1 + 0.05 * Rise(0.16, 0.0, v));
        const double dome = std::pow(curled, 2.2) + std::pow(std::max(0.0, v), 2.1) - 1;
        return std::max(dome * 0.42 * wide_, hem);
    }

    [[nodiscard]] Film BellAt(double x, double y) const {
        const double v = std::clamp((rim_ - y) / high_, 0.0, 1.0);
        const double half = wide_ * std::pow(std::max(0.02, 1 - std::pow(v, 2.1)), 0.46);
        const double u = std::clamp((x - x_) / half, -1.0, 1.0);
        const double limb = std::pow(std::max(std::abs(u), Rise(0.72, 1.0, v)), 3.0);
        const double ribs = std::pow(std::abs(std::cos(8 * std::asin(u))), 10.0) * Rise(1, 0.3, v);
        const double hem = Rise(0.14, 0.02, v);
        const double sheen = Rise(0.34, 0.0, std::hypot((x - x_) / wide_ + 0.40, (v - 0.68) * 0.9));
        Light light = Mixed(kFlesh, kPearl, std::clamp(0.35 * v + 0.6 * limb + 0.4 * hem, 0., 1.));
        light = Mixed(light, Light{1, 1, 1}, 0.8 * sheen);
        double part = 0.24 + 0.42 * limb + 0.16 * ribs + 0.22 * hem + 0.45 * sheen;
        // The horseshoes of its inside, seen through it: the outer ones from the side.
        for (const double middle : {-0.50, 0.0, 0.50}) {
            const double flat = 0.25 - 0.20 * std::abs(middle);
            const double across = ((x - x_) / wide_ - middle) / flat;
            const double along = (v - 0.50 + 0.16 * std::abs(middle)) / 0.17;
            const double ring = std::abs(std::hypot(across, along) - 0.8);
            const double shown = Rise(0.60, 0.0, ring) * Rise(-1.1, 0.2, along);
            light = Mixed(light, kRose, 0.55 * shown);
            part += 0.16 * shown;
        }
        return {light, std::min(part, 0.92)};
    }

    void PaintBell() {
        const double soft = 1.6 * std::max(0.7, size_);
        painting_.Fill([&](int column, int line) {
            const double x = column + 0.5;
            const double y = line + 0.5;
            const double cover = Rise(soft / 2, -soft / 2, OutsideBell(x, y));
            if (cover <= 0) {
                return Film{};
            }
            const Film film = BellAt(x, y);
            return Film{film.light, film.part * cover};
        });
    }

    double size_;
    double phase_;   // 0 … 1, of the animation
    double closed_;  // 0 wide open, 1 drawn together
    double x_;
    double rim_;
    double wide_;
    double high_;
    AlphaPainting painting_;
};

}  // namespace

AlphaPictures DrawJelly(double size) {
    AlphaPictures pictures;
    for (int i = 0; i < kJellyFrames; ++i) {
        pictures.push_back(Jelly(size, i / static_cast<double>(kJellyFrames)).Draw());
    }
    return pictures;
}

}  // namespace scenara::samples::glasslagoon
