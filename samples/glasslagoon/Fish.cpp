// SPDX-License-Identifier: MIT
//
// Fish, drawn as levels on four ramps: back to belly, fins, bands, and the eye. Whatever colours
// the palette puts there, the picture stays the same.
#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

#include "glasslagoon/Pictures.h"
#include "painting/Shapes.h"
#include "samplemaker/Canvas.h"
#include "samplemaker/Noise.h"
#include "samplemaker/Ramp.h"

namespace scenara::samples::glasslagoon {
namespace {

using samplemaker::Canvas;
using samplemaker::ColourStop;
using samplemaker::PaletteBuilder;
using samplemaker::Ramp;
using samplemaker::Rgb;

constexpr int kFishMoments = 4;
constexpr Ramp kBody{1, 12};
constexpr Ramp kFins{13, 8};
constexpr Ramp kBand{21, 8};
constexpr Ramp kEye{29, 3};

struct FishHues {
    std::array<Rgb, 3> body;  // back, side, belly
    std::array<Rgb, 2> fins;
    std::array<Rgb, 2> band;
    std::array<Rgb, 2> eye;
};

FishHues HuesOf(FishColours colours) {
    switch (colours) {
        case FishColours::Gold:
            return {{Rgb{178, 92, 20}, Rgb{244, 176, 44}, Rgb{255, 240, 168}},
                    {Rgb{190, 96, 30}, Rgb{255, 214, 96}},
                    {Rgb{60, 40, 62}, Rgb{120, 84, 92}},
                    {Rgb{255, 250, 220}, Rgb{20, 24, 34}}};
        case FishColours::Coral:
            return {{Rgb{150, 40, 70}, Rgb{240, 104, 104}, Rgb{255, 212, 190}},
                    {Rgb{160, 52, 96}, Rgb{255, 150, 140}},
                    {Rgb{206, 220, 232}, Rgb{255, 255, 255}},
                    {Rgb{255, 250, 230}, Rgb{24, 16, 30}}};
        case FishColours::Far:
            return {{Rgb{26, 106, 140}, Rgb{52, 140, 166}, Rgb{96, 184, 196}},
                    {Rgb{28, 112, 144}, Rgb{62, 150, 172}},
                    {Rgb{34, 118, 150}, Rgb{60, 146, 170}},
                    {Rgb{92, 178, 190}, Rgb{22, 96, 130}}};
        case FishColours::Silver: break;
    }
    return {{Rgb{32, 82, 128}, Rgb{118, 190, 214}, Rgb{242, 252, 250}},
            {Rgb{48, 104, 150}, Rgb{170, 222, 232}},
            {Rgb{20, 62, 116}, Rgb{70, 140, 190}},
            {Rgb{250, 252, 240}, Rgb{12, 24, 40}}};
}

// A small fish that swims to the right, its nose at the front of a body `length` pixels long. The
// tail beats towards the viewer and away, so one sees it long and short.
struct SmallFish {
    double x = 0;
    double y = 0;
    double length = 20;
    double beat = 0;  // -1 … 1
};

void PaintSmallFish(Canvas& canvas, const SmallFish& fish) {
    const double half = fish.length / 2;
    const double high = fish.length * 0.21;
    const double tail = fish.length * (0.30 - 0.10 * std::abs(fish.beat));
    const auto paint = [&](int x, int y) {
        const double u = (x - fish.x) / half;  // 1 at the nose, -1 at the tail's root
        const double bend = 0.10 * high * fish.beat * (1 - u);
        const double v = (y - fish.y - bend) / high;
        const double back = -1.0 - u;
        const double taper = std::sqrt(std::max(0.0, 1 - u * u)) * (0.80 + 0.20 * u);
        if (std::abs(u) < 1 && std::abs(v) < std::max(taper, 0.22)) {
            if (std::hypot((u - 0.66) * half, (v + 0.18) * high) < 0.9) {
                return kEye.Step(2);
            }
            const double level = 0.5 + 0.48 * v / std::max(taper, 0.3);
            const bool band = std::abs(v + 0.05) < 0.16 && u < 0.5;
            return band ? kBand.At(x, y, 0.6 + 0.4 * u) : kBody.At(x, y, level);
        }
        const double part = back * half / tail;
        if (part >= -0.15 && part < 1 && std::abs(v) < 0.22 + 0.9 * part &&
            !(part > 0.72 && std::abs(v) < 1.5 * (part - 0.72) * 3)) {
            return kFins.At(x, y, 0.9 - 0.7 * part);
        }
        const bool dorsal = u > -0.5 && u < 0.3 && v < 0 && v > -taper - 0.42 * Rise(-0.5, 0.3, u);
        return dorsal ? kFins.At(x, y, 0.6) : std::uint8_t{0};
    };
    for (auto y = static_cast<int>(fish.y - high * 2); y <= fish.y + high * 2; ++y) {
        for (auto x = static_cast<int>(fish.x - half - tail - 1); x <= fish.x + half + 1; ++x) {
            const std::uint8_t index = paint(x, y);
            if (index != 0) {
                canvas.Set(x, y, index);
            }
        }
    }
}

// A tall fish with bands and a long back fin, 64 x 70 pixels.
class BannerFish {
public:
    explicit BannerFish(double beat) : beat_(beat) {}

    [[nodiscard]] std::uint8_t At(int column, int line) const {
        const double x = column - 34;
        const double y = line - 42;
        const double sway = 1.6 * beat_ * Rise(4, -22, x);
        const std::uint8_t body = BodyAt(column, line, x, y - sway * 0.5);
        return body != 0 ? body : FinsAt(column, line, x, y - sway);
    }

private:
    [[nodiscard]] std::uint8_t BodyAt(int column, int line, double x, double y) const {
        const double u = x / 19;
        const double snout = Rise(8, 27, x);
        const double half = 16.5 * std::sqrt(std::max(0.0, 1 - u * u)) * (1 - 0.5 * snout) +
                            2.6 * snout * Rise(25.5, 23, x);
        if (x < -19 || x > 25 || std::abs(y) >= half) {
            return 0;
        }
        if (std::hypot(x - 13.5, y + 3) < 2.7) {
            const double in = std::hypot(x - 13.5, y + 3);
            return kEye.Step(in < 1.5 ? 2 : 0);
        }
        const double curve = x + 0.012 * y * y;
        const bool banded =
            std::abs(curve - 12.5) < 3.0 || std::abs(curve + 1) < 5 || std::abs(curve + 15) < 3;
        const double level = 0.58 + 0.5 * y / 17 + 0.16 * u;
        return banded ? kBand.At(column, line, 0.7 - 0.5 * y / 17)
                      : kBody.At(column, line, std::clamp(level, 0.0, 1.0));
    }

    [[nodiscard]] std::uint8_t FinsAt(int column, int line, double x, double y) const {
        // The tail.
        const double out = -18 - x;
        const double reach = 9.5 - 2.6 * std::abs(beat_);
        if (out > -1 && out < reach && std::abs(y) < 2.5 + 0.62 * out) {
            return kFins.At(column, line, 0.95 - 0.6 * out / reach + 0.2 * std::sin(y * 1.8));
        }
        // The banner: from the back it rises and trails.
        const double up = -y;
        const double lean = x + 0.032 * (up - 8) * (up - 8) + beat_ * 0.05 * (up - 14);
        if (up > 8 && up < 39 && std::abs(lean + 1.5) < 5.4 * (1 - (up - 8) / 33) + 0.5) {
            return kFins.At(column, line, 1 - 0.010 * up);
        }
        // The fins along back and belly.
        const double edge = 16.5 * std::sqrt(std::max(0.0, 1 - x * x / 361));
        const double more = 5.0 * Rise(10, -12, x) * Rise(-20, -14, x);
        if (std::abs(y) >= edge - 1 && std::abs(y) < edge + more) {
            return kFins.At(column, line, 0.35 + 0.3 * std::sin(x * 1.5));
        }
        return 0;
    }

    double beat_;
};

double BeatOf(int moment) {
    return std::cos(std::numbers::pi * moment / (kFishMoments - 1));
}

}  // namespace

samplemaker::Palette FishPalette(FishColours colours) {
    const FishHues hues = HuesOf(colours);
    PaletteBuilder builder({0, 60, 90});
    builder.AddRamp(kBody.count, {{0.0, hues.body[0]}, {0.55, hues.body[1]}, {1.0, hues.body[2]}});
    builder.AddRamp(kFins.count, {{0.0, hues.fins[0]}, {1.0, hues.fins[1]}});
    builder.AddRamp(kBand.count, {{0.0, hues.band[0]}, {1.0, hues.band[1]}});
    builder.AddRamp(kEye.count, {{0.0, hues.eye[0]}, {1.0, hues.eye[1]}});
    return builder.Colours();
}

Pictures DrawShoal() {
    struct Swimmer {
        double x;
        double y;
        double length;
        double own;  // how its beat differs from the others'
    };
    constexpr std::array kSwimmers = {
        Swimmer{36, 22, 17, 1},  Swimmer{74, 12, 18, -0.8},  Swimmer{112, 18, 17, 0.9},
        Swimmer{24, 48, 19, -1}, Swimmer{58, 36, 21, 0.7},   Swimmer{94, 34, 20, -0.9},
        Swimmer{132, 38, 21, 1}, Swimmer{162, 30, 18, -0.7}, Swimmer{46, 66, 20, 0.8},
        Swimmer{82, 58, 22, -1}, Swimmer{118, 62, 21, 0.9},  Swimmer{152, 56, 20, -0.8},
        Swimmer{70, 84, 18, 1},  Swimmer{106, 84, 19, -0.9}, Swimmer{180, 50, 17, 0.8}};
    Pictures pictures;
    for (int moment = 0; moment < kFishMoments; ++moment) {
        Canvas canvas(196, 98);
        for (const Swimmer& swimmer : kSwimmers) {
            const double beat = BeatOf(moment) * swimmer.own;
            PaintSmallFish(canvas,
                           {swimmer.x + beat, swimmer.y + 0.8 * beat, swimmer.length, beat});
        }
        pictures.push_back(canvas.ToPicture(FishPalette(FishColours::Silver)));
    }
    return pictures;
}

Pictures DrawBannerFish() {
    Pictures pictures;
    for (int moment = 0; moment < kFishMoments; ++moment) {
        const BannerFish fish(BeatOf(moment));
        Canvas canvas(64, 70);
        canvas.Paint([&](int x, int y) { return fish.At(x, y); });
        pictures.push_back(canvas.ToPicture(FishPalette(FishColours::Gold)));
    }
    return pictures;
}

}  // namespace scenara::samples::glasslagoon
