// SPDX-License-Identifier: MIT
//
// The spring that leaves the lighthouse's island over its edge and ends as mist, and the glow
// around lamps. Both are light: they are added to the picture.
#include <cmath>

#include "cloudharbour/Pictures.h"
#include "cloudharbour/Scene.h"
#include "painting/NoiseSheet.h"
#include "painting/Painting.h"

namespace scenara::samples::cloudharbour {

Pictures DrawWaterfall() {
    constexpr int kWidth = 72;
    constexpr int kHeight = 256;
    constexpr int kMoments = 8;
    const NoiseSheet strands(1117, 32, 3);
    const NoiseSheet mist(1123, 8, 4);
    std::vector<Painting> paintings;
    for (int moment = 0; moment < kMoments; ++moment) {
        Painting& painting = paintings.emplace_back(kWidth, kHeight);
        // In all moments the noise falls by a whole sheet's part, so that they go around.
        const double fallen = moment * 128.0 / kMoments;
        painting.Fill([&](int x, int y) {
            const double down = y / static_cast<double>(kHeight);
            const double half = 9 + 4 * down + 18 * down * down;
            const double sway = 5 * (mist.At(3, y * 0.4) - 0.5) * down;
            const double across = (x + 0.5 - kWidth / 2.0 - sway) / half;
            const double strand = strands.At(across * 34, (y * 0.5 - fallen) * 1.0);
            const double veil = mist.At(x * 1.0, (y - 2 * fallen) * 1.0);
            const double body = Rise(1.05, 0.45, std::abs(across));
            const double thin = Rise(0.84, 0.3, down);
            const double water = Rise(0.25, 0.8, strand) * (1 - 0.6 * down);
            const double cloud = Rise(0.2, 0.9, veil) * Rise(0.1, 0.8, down);
            const double top = Rise(0, 5, y);
            return Mixed(Light{0.56, 0.50, 0.54}, Light{0.26, 0.19, 0.20}, Rise(0.1, 0.8, down)) *
                   (top * body * thin * (0.25 + 0.75 * water + 0.4 * cloud));
        });
        painting.LeaveOutDarkness();
    }
    return ToPictures(paintings);
}

IndexedPicture DrawGlimmer() {
    constexpr int kSize = 168;
    Painting painting(kSize, kSize);
    painting.Fill([](int x, int y) {
        const double away = std::hypot(x + 0.5 - kSize / 2.0, y + 0.5 - kSize / 2.0);
        const double edge = Rise(kSize / 2.0, kSize / 4.0, away);
        return Light{0.70, 0.40, 0.15} *
               ((0.55 * std::exp(-away / 24) + 0.45 * std::exp(-away / 12)) * edge);
    });
    painting.LeaveOutDarkness();
    return painting.ToPicture();
}

}  // namespace scenara::samples::cloudharbour
