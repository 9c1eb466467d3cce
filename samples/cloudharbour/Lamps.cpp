// SPDX-License-Identifier: MIT
//
// The lamp posts on the landing stage, each with two lanterns, and the post in front.
#include <array>
#include <cmath>

#include "cloudharbour/Brushes.h"
#include "cloudharbour/Pictures.h"
#include "cloudharbour/Scene.h"
#include "painting/NoiseSheet.h"

namespace scenara::samples::cloudharbour {
namespace {

constexpr Light kIron{0.20, 0.18, 0.26};
constexpr Light kBrass{0.74, 0.50, 0.27};

void PaintLantern(Painting& painting, Point top, double size) {
    const double half = size * 0.42;
    const double head = top.y + size * 0.35;
    const double foot = top.y + size * 1.35;
    const std::array glass = {
        Point{top.x - half * 0.7, head},        Point{top.x + half * 0.7, head},
        Point{top.x + half, foot - size * 0.2}, Point{top.x + half * 0.6, foot},
        Point{top.x - half * 0.6, foot},        Point{top.x - half, foot - size * 0.2}};
    PaintPolygon(painting, glass, [&](double x, double y) {
        const double away =
            std::hypot(x - top.x, (y - (head + foot) / 2 - 2) * 0.8) / (size * 0.62);
        return Mixed(Light{1.0, 0.96, 0.74}, Light{0.98, 0.56, 0.20}, std::min(1.0, away));
    });
    for (const int side : {-1, 0, 1}) {
        PaintLine(painting, {top.x + side * half * 0.7, head},
                  {top.x + side * half, foot - size * 0.2}, side == 0 ? 1.4 : 2.2, kIron * 0.8);
    }
    const std::array roof = {Point{top.x - half - 2, head + 1}, Point{top.x - size * 0.10, top.y},
                             Point{top.x + size * 0.10, top.y}, Point{top.x + half + 2, head + 1}};
    PaintPolygon(painting, roof, [&](double x, double) {
        return InLight(kIron * 1.3, TowardsSun({(x - top.x) / (half + 3), -0.4, 0.6}));
    });
    PaintBeam(painting, {{top.x - half * 0.7, foot}, {top.x + half * 0.7, foot}, 3.4, 3.4}, kBrass);
}

}  // namespace

IndexedPicture DrawLampPost() {
    constexpr int kWidth = 150;
    constexpr int kHeight = 372;
    constexpr double kMiddle = kWidth / 2.0;
    constexpr Light kTimber{0.34, 0.24, 0.25};
    Painting painting(kWidth, kHeight);
    PaintBeam(painting, {{kMiddle, 22}, {kMiddle, 366}, 11, 19}, kTimber);
    for (const double row : {352.0, 300.0, 120.0}) {
        PaintBeam(painting, {{kMiddle - 10, row}, {kMiddle + 10, row}, 9, 9}, kIron);
    }
    PaintBeam(painting, {{kMiddle - 15, 365}, {kMiddle + 15, 365}, 12, 12}, kIron);
    // The yard with its braces, and the lanterns on short chains.
    PaintBeam(painting, {{kMiddle - 58, 64}, {kMiddle + 58, 64}, 7, 7}, kTimber * 1.1);
    for (const int side : {-1, 1}) {
        PaintBeam(painting, {{kMiddle + side * 42, 66}, {kMiddle + side * 5, 104}, 5, 5}, kTimber);
        PaintLine(painting, {kMiddle + side * 52, 66}, {kMiddle + side * 52, 80}, 2, kIron);
        PaintLantern(painting, {kMiddle + side * 52, 78}, 30);
        PaintBall(painting, {kMiddle + side * 59, 64}, 4.4, 4.4, kBrass);
    }
    PaintBall(painting, {kMiddle, 16}, 7, 8, kBrass);
    PaintRope(painting, {kMiddle + 9, 210}, {kMiddle + 9, 296}, 0, 4, {0.60, 0.46, 0.36});
    for (double row = 206; row < 228; row += 5.5) {
        PaintBeam(painting, {{kMiddle - 8, row}, {kMiddle + 8, row + 1}, 5.4, 5.4},
                  {0.62, 0.48, 0.37});
    }
    return painting.ToPicture();
}

// A mooring post near the viewer: dark, with the sun on its edge.
IndexedPicture DrawFrontPost() {
    constexpr int kWidth = 190;
    constexpr int kHeight = 590;
    constexpr double kMiddle = 84;
    constexpr double kHalf = 46;
    const NoiseSheet grain(1201, 16, 4, 0.6);
    Painting painting(kWidth, kHeight);
    for (int y = 26; y < kHeight; ++y) {
        for (int x = 0; x < kWidth; ++x) {
            const double across = (x + 0.5 - kMiddle) / kHalf;
            const double part = (1 - std::abs(across)) * kHalf + 0.5;
            const double turn = std::clamp(across, -1.0, 1.0);
            const double wear = grain.At(std::asin(turn) * 90 + 128, y * 0.18) - 0.5;
            const double check =
                Rise(0.10, 0.0, std::abs(grain.At(std::asin(turn) * 34, y * 0.06 + 80) - 0.5));
            const Facing facing{turn, 0, std::sqrt(1 - turn * turn)};
            const Light wood = Light{0.20, 0.145, 0.17} * (1 + 0.8 * wear) * (1 - 0.5 * check);
            const double rim = Rise(-0.78, -1.0, across);
            Cover(painting, x, y,
                  wood * (kSkylight + kSunlight * Rise(0.35, 0.98, TowardsSun(facing))) +
                      Light{0.62, 0.36, 0.17} * (rim * (0.7 + wear)),
                  part);
        }
    }
    PaintBall(painting, {kMiddle, 26}, kHalf, 17, {0.24, 0.17, 0.19});
    PaintBeam(painting, {{kMiddle - kHalf, 62}, {kMiddle + kHalf, 62}, 22, 22}, kIron * 0.7);
    for (double row = 148; row < 250; row += 15) {  // a hawser, wound around it
        PaintBeam(painting,
                  {{kMiddle - kHalf - 2, row - 3}, {kMiddle + kHalf + 2, row + 4}, 16, 16},
                  {0.34, 0.25, 0.24});
        for (double strand = -44; strand < 46; strand += 9) {
            PaintLine(painting, {kMiddle + strand, row - 7 + 0.07 * strand},
                      {kMiddle + strand + 5, row + 8 + 0.07 * strand}, 1.4, {0.10, 0.07, 0.11});
        }
    }
    const Point from{kMiddle + kHalf - 6, 244};
    const Point to{kWidth - 8.0, 588};
    PaintRope(painting, from, to, 0, 15, {0.30, 0.22, 0.22});
    for (double part = 0.01; part < 1; part += 0.026) {
        const Point middle{from.x + (to.x - from.x) * part, from.y + (to.y - from.y) * part};
        PaintLine(painting, {middle.x - 6, middle.y - 5}, {middle.x + 6, middle.y + 3}, 1.4,
                  {0.10, 0.07, 0.11});
    }
    return painting.ToPicture();
}

}  // namespace scenara::samples::cloudharbour
