// SPDX-License-Identifier: MIT
//
// The sky from the last stars down to the horizon, with the thin clouds that the sun lights from
// below.
#include <algorithm>
#include <array>
#include <cmath>

#include "cloudharbour/Pictures.h"
#include "cloudharbour/Scene.h"
#include "painting/NoiseSheet.h"
#include "painting/Painting.h"
#include "samplemaker/Noise.h"

namespace scenara::samples::cloudharbour {
namespace {

constexpr int kWidth = 1280;
constexpr int kTop = -16;
constexpr int kHeight = 460;

struct Stop {
    double row = 0;
    Light light;
};

constexpr std::array kStops = {Stop{-16, kNight}, Stop{120, kViolet}, Stop{232, kMauve},
                               Stop{318, kRose},  Stop{384, kPeach},  Stop{444, kPeach}};

Light BandAt(double row) {
    std::size_t next = 1;
    while (next + 1 < kStops.size() && kStops.at(next).row < row) {
        ++next;
    }
    const Stop& from = kStops.at(next - 1);
    const Stop& to = kStops.at(next);
    return Mixed(from.light, to.light,
                 std::clamp((row - from.row) / (to.row - from.row), 0.0, 1.0));
}

// Far from the sun the bands stand lower and are cooler.
Light ClearSkyAt(double x, double row) {
    const double away = std::abs(x - kSunColumn);
    const double cool = Rise(180, 1000, away);
    const Light band = BandAt(row - 46 * cool);
    const double glow = std::exp(-std::hypot(away, (row - kSunRow) * 1.5) / 190);
    return Mixed(band, kCoolHaze, 0.5 * cool * Rise(150, 400, row)) +
           Light{0.42, 0.20, 0.05} * (0.62 * glow);
}

// Long streaks of cloud: lit from below near the sun, violet above.
class Streaks {
public:
    [[nodiscard]] Light Over(const Light& sky, double x, double row) const {
        const double bend = 26 * broad_.At(x * 0.16, row * 0.4) + x * 0.045;
        const double along = row + bend;
        const double thick =
            0.62 * broad_.At(x * 0.11 + 40, along * 0.72) + 0.38 * fine_.At(x * 0.21, along * 1.5);
        const double zone = Rise(20, 130, row) * Rise(392, 300, row);
        const double part = zone * Rise(0.46, 0.78, thick);
        if (part <= 0) {
            return sky;
        }
        // Below a streak the light comes first: the same noise a little higher is the shade.
        const double above = 0.62 * broad_.At(x * 0.11 + 40, (along + 9) * 0.72) +
                             0.38 * fine_.At(x * 0.21, (along + 9) * 1.5);
        const double underside = std::clamp(0.5 + 3.4 * (thick - above), 0.0, 1.0);
        const double near = std::exp(-std::hypot(x - kSunColumn, (row - kSunRow) * 1.3) / 430);
        const Light lit = Mixed(Light{0.93, 0.50, 0.53}, Light{1.0, 0.80, 0.52}, near);
        const Light shade =
            Mixed(Light{0.36, 0.27, 0.50}, Light{0.70, 0.42, 0.55}, Rise(60, 300, row));
        return Mixed(sky, Mixed(shade, lit, underside), 0.78 * part);
    }

private:
    NoiseSheet broad_{1009, 4, 4};
    NoiseSheet fine_{1019, 8, 4};
};

void PaintStars(Painting& painting) {
    samplemaker::Random random(1021);
    for (int star = 0; star < 210; ++star) {
        const int x = random.Whole(0, kWidth - 1);
        const double high = random.Unit();
        const int y = static_cast<int>(high * high * 210);
        const double bright = random.Between(0.15, 0.75) * Rise(215, 40, y) *
                              Rise(60, 420, std::abs(x - kWidth / 2.0 - kSunColumn));
        painting.Add(x, y, Light{0.85, 0.88, 1.0} * bright);
        if (star % 13 == 0) {  // a bright one, with a soft cross
            for (const int side : {-1, 1}) {
                painting.Add(x + side, y, Light{0.7, 0.76, 1.0} * (0.4 * bright));
                painting.Add(x, y + side, Light{0.7, 0.76, 1.0} * (0.4 * bright));
            }
        }
    }
}

// The old moon, a sickle that looks at the sun.
void PaintMoon(Painting& painting) {
    constexpr double kX = 716;
    constexpr double kY = 74;
    constexpr double kRadius = 15;
    for (int y = -40; y <= 40; ++y) {
        for (int x = -40; x <= 40; ++x) {
            const double away = std::hypot(x, y);
            const double dark = std::hypot(x - 6.5, y + 5.0);  // the part without sun
            const double sickle =
                Rise(kRadius + 0.8, kRadius - 0.8, away) * Rise(kRadius - 1.8, kRadius + 1.2, dark);
            const double glow = Rise(40, 0, away);
            painting.Add(
                static_cast<int>(kX) + x, static_cast<int>(kY) + y,
                Light{0.80, 0.74, 0.66} * sickle + Light{0.055, 0.05, 0.07} * (glow * glow));
        }
    }
}

}  // namespace

IndexedPicture DrawSky() {
    Painting painting(kWidth, kHeight);
    const Streaks streaks;
    painting.Fill([&](int column, int line) {
        const double x = column + 0.5 - kWidth / 2.0;
        const double row = line + 0.5 + kTop;
        return streaks.Over(ClearSkyAt(x, row), x, row);
    });
    PaintStars(painting);
    PaintMoon(painting);
    return painting.ToPicture();
}

// The sun's light in the air, which is added to all that is far away.
IndexedPicture DrawSunGlow() {
    constexpr int kGlowWidth = 900;
    constexpr int kGlowHeight = 520;
    Painting painting(kGlowWidth, kGlowHeight);
    painting.Fill([](int column, int line) {
        const double x = column + 0.5 - kGlowWidth / 2.0;
        const double y = line + 0.5 - kGlowHeight / 2.0;
        const double wide = std::hypot(x / 1.45, y);
        const double edge =
            Rise(1, 0.35, std::hypot(x / (kGlowWidth / 2.0), y / (kGlowHeight / 2.0)));
        const double heart = std::hypot(x, y);
        // Rays, where something far away lets the light through.
        const double ray =
            samplemaker::SmoothNoise(std::atan2(y, std::abs(x)) * 6 + (x < 0 ? 40 : 0), 0, 1027);
        const double rays = 1 + 0.8 * (ray - 0.5) * Rise(30, 120, heart);
        return (Light{0.36, 0.155, 0.095} * (rays * std::exp(-wide / 96)) +
                Light{0.30, 0.15, 0.10} * std::exp(-heart / 34)) *
               edge;
    });
    painting.LeaveOutDarkness();
    return painting.ToPicture();
}

IndexedPicture DrawSun() {
    constexpr int kSize = 88;
    constexpr double kRadius = 30;
    Painting painting(kSize, kSize);
    painting.Fill([](int column, int line) {
        const double x = column + 0.5 - kSize / 2.0;
        const double y = line + 0.5 - kSize / 2.0;
        const double away = std::hypot(x, y);
        const Light disc =
            Mixed(Light{0.20, 0.28, 0.44}, Light{0.12, 0.10, 0.10}, Rise(-34, 30, y));
        return disc * Rise(kRadius + 1.6, kRadius - 1.6, away) +
               Light{0.12, 0.09, 0.07} * Rise(kSize / 2.0, kRadius, away);
    });
    painting.LeaveOutDarkness();
    return painting.ToPicture();
}

}  // namespace scenara::samples::cloudharbour
