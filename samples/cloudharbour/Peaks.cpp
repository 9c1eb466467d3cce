// SPDX-License-Identifier: MIT
//
// The far mountains, whose feet are in the clouds: snow on the side of the sun, blue rock on the
// other, and haze that thickens downwards.
#include <algorithm>
#include <array>
#include <cmath>

#include "cloudharbour/Pictures.h"
#include "cloudharbour/Scene.h"
#include "painting/NoiseSheet.h"
#include "painting/Painting.h"

namespace scenara::samples::cloudharbour {
namespace {

constexpr int kWidth = 1408;
constexpr int kHeight = 190;

struct Peak {
    double x;       // from the picture's middle
    double summit;  // the row
    double spread;  // columns per row, of its flanks
    double far;     // 0 … 1: how much of the haze it has
};

// From the farthest to the nearest.
constexpr std::array kPeaks = {
    Peak{-640, 108, 1.5, 0.82}, Peak{-470, 84, 1.35, 0.8}, Peak{-120, 92, 1.5, 0.8},
    Peak{330, 78, 1.45, 0.76},  Peak{610, 96, 1.5, 0.78},  Peak{120, 104, 1.6, 0.72},
    Peak{-555, 112, 1.5, 0.62}, Peak{470, 100, 1.5, 0.56}, Peak{-215, 70, 1.15, 0.5},
    Peak{205, 118, 1.7, 0.5},   Peak{-80, 130, 1.8, 0.42}, Peak{680, 124, 1.6, 0.4},
};

class Slopes {
public:
    // Which flank a place is on and how rough: below 0 sunlit, above 0 in the shade.
    [[nodiscard]] double Side(const Peak& peak, double x, double down) const {
        const double ridge = 0.30 * (crags_.At(peak.x + 11, down * 1.6) - 0.5) * (down + 12);
        const double spread = (x - peak.x - ridge) / (down + 14);
        const double gully = crags_.At(peak.x + spread * 62, down * 0.55) - 0.5;
        return spread + 1.25 * gully;
    }
    [[nodiscard]] double Outline(const Peak& peak, double x) const {
        const double away = std::abs(x - peak.x);
        const double rough =
            (crags_.At(x * 1.3 + peak.x, 40) - 0.5) * std::min(26.0, 5 + away * 0.3);
        return peak.summit + away / peak.spread * (0.82 + 0.0011 * away) + rough;
    }

private:
    NoiseSheet crags_{1087, 8, 5, 0.56};
};

Light PeakAt(const Peak& peak, double x, double side, double down) {
    const double snow = Rise(78, 18, down + 26 * side);
    const Light surface = Mixed(Light{0.36, 0.33, 0.44}, Light{0.86, 0.84, 0.92}, snow);
    const Light light = surface * (kSkylight + kSunlight * (0.9 * Rise(0.35, -0.45, side)));
    // Away from the sun the haze is cooler.
    const Light haze = Mixed(kHaze, kCoolHaze, 0.7 * Rise(-260, 620, x));
    return Mixed(light, haze, std::min(1.0, peak.far + 0.55 * Rise(10, 100, down)));
}

}  // namespace

IndexedPicture DrawPeaks() {
    const Slopes slopes;
    Painting painting(kWidth, kHeight);
    for (const Peak& peak : kPeaks) {
        for (int column = 0; column < kWidth; ++column) {
            const double x = column + 0.5 - kWidth / 2.0;
            const double outline = slopes.Outline(peak, x);
            for (int y = static_cast<int>(std::ceil(outline)); y < kHeight; ++y) {
                const double down = y - peak.summit;
                painting.Set(column, y, PeakAt(peak, x, slopes.Side(peak, x, down), down));
            }
            // The outline's own pixel is half sky.
            const int edge = static_cast<int>(std::floor(outline));
            if (painting.IsPainted(column, edge)) {
                painting.Lay(column, edge, PeakAt(peak, x, 0, 0), outline - edge < 0.5 ? 0.5 : 0);
            }
        }
    }
    return painting.ToPicture();
}

}  // namespace scenara::samples::cloudharbour
