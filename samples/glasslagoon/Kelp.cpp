// SPDX-License-Identifier: MIT
//
// Kelp that sways: a clump between reef and fighters, a taller one before them; and the coral that
// is too near to be sharp.
#include <array>
#include <cmath>
#include <numbers>

#include "glasslagoon/Pictures.h"
#include "glasslagoon/Scene.h"
#include "painting/Strokes.h"
#include "samplemaker/Noise.h"

namespace scenara::samples::glasslagoon {
namespace {

constexpr int kKelpFrames = 8;

struct Stem {
    double x = 0;  // of its foot
    double height = 100;
    double lean = 0;  // how far its head is beside its foot
    double lag = 0;   // 0 … 1, of the swaying
};

struct KelpLook {
    double scale = 1;  // of leaves and stem
    double sway = 20;  // pixels, at the head
    Light dark;
    Light bright;
    double part = 1;
};

class KelpClump {
public:
    KelpClump(int width, int height, const KelpLook& look, double phase)
        : painting_(width, height), look_(look), phase_(phase), foot_(height) {}

    void Paint(const Stem& stem, std::uint32_t seed) {
        samplemaker::Random random(seed);
        const int leaves = static_cast<int>(stem.height / (15 * look_.scale));
        for (int leaf = 0; leaf < leaves; ++leaf) {
            const double up = (leaf + 0.6) / leaves;
            const double side = leaf % 2 == 0 ? 1 : -1;
            PaintLeaf(stem, up, side, random.Between(0.75, 1.15));
        }
        const Knots knots = KnotsAlong(40, [&](double u) { return At(stem, u); });
        PaintStroke(painting_, knots, 1.2, [&](const StrokePlace& at) {
            return Film{Mixed(look_.dark, look_.bright, 0.25 + 0.4 * at.along - 0.2 * at.across),
                        look_.part};
        });
        PaintLeaf(stem, 1, 0, 1.1);
    }

    // The lowest rows thin out, so that no foot is cut off.
    void SinkIntoSand() {
        painting_.Thin([&](int, int y) { return Rise(foot_, foot_ - 14, y); });
    }

    [[nodiscard]] AlphaPicture Picture() const { return painting_.ToPicture(); }

private:
    [[nodiscard]] double Wave(double along, double lag) const {
        return std::sin(2 * std::numbers::pi * (phase_ + lag - 0.55 * along));
    }

    [[nodiscard]] Knot At(const Stem& stem, double up) const {
        const double sway = look_.sway * up * up * Wave(up, stem.lag);
        const double curl = 7 * look_.scale * std::sin(5 * up + 9 * stem.lag);
        return {stem.x + stem.lean * up + sway + curl, foot_ + 6 - (stem.height + 6) * up,
                look_.scale * (2.6 - 1.5 * up)};
    }

    // A long blade that grows out of the stem and hangs with the current. `side` is 0 at the head.
    void PaintLeaf(const Stem& stem, double up, double side, double size) {
        const Knot root = At(stem, up);
        const double length = look_.scale * size * (side == 0 ? 40 : 46) * (1.05 - 0.35 * up);
        const double flutter = 0.26 * Wave(up + 0.35, stem.lag + 0.1 * side);
        const Knots knots = KnotsAlong(14, [&](double u) {
            const double turn = side * (1.0 - 0.55 * u) + flutter * (0.4 + u);
            const double wide = std::sin(std::numbers::pi * std::pow(u, 0.7));
            const double ripple = 1 + 0.14 * std::sin(17 * u + 6 * stem.lag + 3 * side);
            return Knot{root.x + length * u * std::sin(turn), root.y - length * u * std::cos(turn),
                        look_.scale * (0.6 + 5.2 * wide * ripple)};
        });
        PaintStroke(painting_, knots, 1.2, [&](const StrokePlace& at) {
            const double vein = Rise(0.24, 0.06, std::abs(at.across));
            const double lit = 0.30 + 0.34 * up - 0.26 * at.across + 0.25 * at.along - 0.22 * vein;
            return Film{Mixed(look_.dark, look_.bright, std::clamp(lit, 0.0, 1.0)),
                        look_.part * (1 - 0.12 * at.along)};
        });
    }

    AlphaPainting painting_;
    KelpLook look_;
    double phase_;
    double foot_;  // the row of the stems' feet
};

template <typename Stems>
AlphaPictures DrawClump(int width, int height, const KelpLook& look, const Stems& stems) {
    AlphaPictures pictures;
    for (int i = 0; i < kKelpFrames; ++i) {
        KelpClump clump(width, height, look, i / static_cast<double>(kKelpFrames));
        std::uint32_t seed = 2377;
        for (const Stem& stem : stems) {
            clump.Paint(stem, ++seed);
        }
        clump.SinkIntoSand();
        pictures.push_back(clump.Picture());
    }
    return pictures;
}

}  // namespace

AlphaPictures DrawMiddleKelp() {
    constexpr std::array kStems = {Stem{52, 190, -8, 0.0}, Stem{78, 236, 6, 0.12},
                                   Stem{64, 140, -16, 0.3}, Stem{96, 168, 16, 0.22}};
    return DrawClump(150, 270,
                     {.scale = 0.66,
                      .sway = 13,
                      .dark = {0.10, 0.38, 0.36},
                      .bright = {0.46, 0.72, 0.46},
                      .part = 0.96},
                     kStems);
}

AlphaPictures DrawFrontKelp() {
    constexpr std::array kStems = {Stem{66, 400, -14, 0.0}, Stem{112, 330, 10, 0.14},
                                   Stem{40, 250, -12, 0.3}, Stem{142, 210, 20, 0.4}};
    return DrawClump(220, 470,
                     {.scale = 1.15,
                      .sway = 20,
                      .dark = {0.015, 0.13, 0.17},
                      .bright = {0.14, 0.38, 0.33},
                      .part = 0.97},
                     kStems);
}

AlphaPicture DrawFrontCoral() {
    constexpr int kWidth = 300;
    constexpr int kHeight = 150;
    samplemaker::Random random(2381);
    AlphaPainting painting(kWidth, kHeight);
    for (int i = 0; i < 44; ++i) {
        const double place = random.Between(-1, 1);
        const double x = kWidth / 2.0 + place * 96;
        const double height = (1 - place * place) * random.Between(36, 104) + 14;
        const double half = random.Between(5, 11);
        const double lean = place * 26 + random.Between(-12, 12);
        const Light light = Mixed(Light{0.05, 0.15, 0.22}, Light{0.30, 0.17, 0.30}, random.Unit());
        const Knots knots = {{x, kHeight + 10.0, half * 1.1},
                             {x + lean * 0.4, kHeight - height * 0.5, half},
                             {x + lean, kHeight - height, half * 0.45}};
        PaintStroke(painting, knots, 11, [&](const StrokePlace& at) {
            return Film{light * (0.7 + 0.6 * at.along - 0.2 * at.across), 0.9};
        });
    }
    return painting.ToPicture();
}

}  // namespace scenara::samples::glasslagoon
