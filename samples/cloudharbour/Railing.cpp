// SPDX-License-Identifier: MIT
//
// The railing: posts with two ropes. The picture is one post with the ropes to its right; its
// copies make the railing.
#include <array>
#include <cmath>

#include "cloudharbour/Brushes.h"
#include "cloudharbour/Pictures.h"
#include "cloudharbour/Scene.h"

namespace scenara::samples::cloudharbour {
namespace {

constexpr Light kPost{0.36, 0.25, 0.25};
constexpr Light kIron{0.22, 0.20, 0.28};
constexpr Light kRope{0.62, 0.48, 0.38};

// A rope with its strands, as the picture's own tile: both ends lie on the tile's edges.
void PaintSwag(Painting& painting, double row, double sag) {
    constexpr double kWidth = 160;
    for (int x = 0; x < static_cast<int>(kWidth); ++x) {
        const double t = (x + 0.5) / kWidth;
        const double middle = row + sag * 4 * t * (1 - t);
        for (int y = static_cast<int>(middle) - 4; y <= middle + 4; ++y) {
            const double across = (y + 0.5 - middle) / 2.6;
            if (std::abs(across) > 1) {
                continue;
            }
            const double strand = 0.5 + 0.5 * std::sin((x - 1.6 * (y + 0.5 - middle)) * 1.18);
            const Facing facing{-0.2, across, std::sqrt(1 - across * across)};
            painting.Set(x, y, InLight(kRope, TowardsSun(facing)) * (0.62 + 0.42 * strand));
        }
    }
}

}  // namespace

IndexedPicture DrawRailing() {
    constexpr int kWidth = 160;
    constexpr int kHeight = 112;
    constexpr double kPostX = 80;
    // The ropes hang from post to post, so a tile has two halves of them: drawn moved by half.
    Painting swags(kWidth, kHeight);
    PaintSwag(swags, 30, 17);
    PaintSwag(swags, 66, 15);
    Painting painting(kWidth, kHeight);
    for (int y = 0; y < kHeight; ++y) {
        for (int x = 0; x < kWidth; ++x) {
            const int from = (x + kWidth / 2) % kWidth;
            if (swags.IsPainted(from, y)) {
                painting.Set(x, y, swags.Get(from, y));
            }
        }
    }
    PaintBeam(painting, {{kPostX, 18}, {kPostX, 110}, 14, 15}, kPost);
    for (const double row : {30.0, 66.0}) {  // iron rings that hold the ropes
        PaintBeam(painting, {{kPostX - 8, row}, {kPostX + 8, row}, 6, 6}, kIron);
        PaintBall(painting, {kPostX, row}, 3.4, 3.4, {0.66, 0.46, 0.28});
    }
    PaintBeam(painting, {{kPostX - 10, 104}, {kPostX + 10, 104}, 9, 9}, kIron);
    PaintBeam(painting, {{kPostX - 9, 18}, {kPostX + 9, 18}, 5, 5}, kPost * 1.2);
    PaintBall(painting, {kPostX, 9}, 8, 8, {0.72, 0.50, 0.28});
    return painting.ToPicture();
}

IndexedPicture DrawBollard() {
    constexpr int kWidth = 120;
    constexpr int kHeight = 84;
    constexpr double kMiddle = 50;
    constexpr Light kCast{0.34, 0.30, 0.37};
    Painting painting(kWidth, kHeight);
    PaintBall(painting, {kMiddle + 18, 76}, 44, 5, {0.13, 0.10, 0.15});  // its shadow
    PaintBall(painting, {kMiddle, 72}, 28, 7, kCast);
    PaintBeam(painting, {{kMiddle, 24}, {kMiddle, 70}, 30, 34}, kCast);
    for (double row = 38; row < 64; row += 6.5) {  // turns of rope
        PaintBeam(painting, {{kMiddle - 17, row - 1.5}, {kMiddle + 17, row + 1.5}, 6.6, 6.6},
                  {0.64, 0.50, 0.38});
    }
    // Its end goes over the edge of the landing stage.
    PaintRope(painting, {kMiddle + 14, 47}, {kMiddle + 62, 51}, 8, 6, {0.60, 0.46, 0.36});
    PaintBall(painting, {kMiddle, 20}, 25, 13, kCast * 1.15);
    PaintBall(painting, {kMiddle, 11}, 15, 5, kCast * 1.4);
    return painting.ToPicture();
}

}  // namespace scenara::samples::cloudharbour
