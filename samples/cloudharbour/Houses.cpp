// SPDX-License-Identifier: MIT
//
// Houses and towers. What faces left is in the sun; the long sides are in the shade, so that their
// windows shine.
#include <algorithm>
#include <array>
#include <cmath>

#include "cloudharbour/Island.h"
#include "painting/Shapes.h"

namespace scenara::samples::cloudharbour {
namespace {

constexpr Facing kLeftWall{-0.85, 0, 0.53};
constexpr Facing kFrontWall{0.40, 0, 0.92};

void PaintWindow(Painting& painting, Point middle, double width, double height) {
    const std::array corners = {Point{middle.x - width / 2, middle.y - height / 2},
                                Point{middle.x + width / 2, middle.y - height / 2},
                                Point{middle.x + width / 2, middle.y + height / 2},
                                Point{middle.x - width / 2, middle.y + height / 2}};
    PaintPolygon(painting, corners, [&](double, double y) {
        return Mixed(Light{1.0, 0.90, 0.58}, Light{1.0, 0.62, 0.24},
                     Rise(middle.y - height / 2, middle.y + height / 2, y));
    });
    AddGlow(painting, middle, 2.4 * height, kFlame * 0.22);
}

}  // namespace

void PaintHouse(Painting& painting, const House& house) {
    const Point corner = house.foot;
    const double eaves = corner.y - house.wall;
    const double ridge = eaves - house.roof;
    const double peak = corner.x - house.gable / 2;  // the ridge's left end
    const double right = corner.x + house.side;
    const std::array front = {Point{corner.x, corner.y}, Point{corner.x, eaves},
                              Point{right, eaves}, Point{right, corner.y}};
    PaintPolygon(painting, front, [&](double, double y) {
        const double low = Rise(corner.y, eaves, y);
        return InLight(house.walls, TowardsSun(kFrontWall)) * (0.66 + 0.2 * low);
    });
    const std::array gable = {
        Point{corner.x, corner.y}, Point{corner.x - house.gable, corner.y - 1},
        Point{corner.x - house.gable, eaves}, Point{peak, ridge}, Point{corner.x, eaves}};
    PaintPolygon(painting, gable, [&](double, double) {
        return InLight(house.walls, TowardsSun(kLeftWall)) * 0.82;
    });
    const std::array roof = {Point{peak - 1, ridge - 1}, Point{peak + house.side + 2, ridge - 1},
                             Point{right + 3, eaves + 2}, Point{corner.x - 1, eaves + 2}};
    PaintPolygon(painting, roof, [&](double, double y) {
        const double course = std::abs(InCell(y - ridge, 4)) / 2;
        const Facing facing{0.2, -0.62, 0.75};
        return InLight(house.tiles, TowardsSun(facing)) * (0.78 + 0.3 * course);
    });
    PaintLine(painting, {peak - 2, ridge - 1}, {corner.x - house.gable - 2, eaves + 2}, 2,
              InLight(house.tiles, 0.9));
    PaintLine(painting, {peak - 1, ridge - 1}, {peak + house.side + 2, ridge - 1}, 1.4,
              InLight(house.tiles, 0.8));
    const int windows = std::max(1, static_cast<int>(house.side / 12));
    for (int i = 0; i < windows; ++i) {
        PaintWindow(painting,
                    {corner.x + (i + 0.5) * house.side / windows, corner.y - house.wall * 0.54}, 4,
                    6);
    }
    const double stack = peak + house.side * 0.7;
    PaintBeam(painting, {{stack, ridge + 3}, {stack, ridge - 7}, 4, 4}, house.tiles * 1.3);
}

void PaintTower(Painting& painting, Point foot, double height, double width, const Light& first,
                const Light& second) {
    constexpr double kBand = 22;
    for (int row = 0; row < static_cast<int>(height); ++row) {
        const double y = foot.y - row;
        const double half = width / 2 * (1 - 0.34 * row / height);
        const double bulge = std::floor(row / kBand);
        const bool banded = static_cast<int>(bulge) % 2 == 1;
        for (int x = static_cast<int>(foot.x - half - 1); x <= foot.x + half + 1; ++x) {
            const double across = (x + 0.5 - foot.x) / half;
            const double turn = std::clamp(across, -1.0, 1.0);
            const Facing facing{turn, 0, std::sqrt(1 - turn * turn)};
            Cover(painting, x, static_cast<int>(y),
                  InLight(banded ? second : first, TowardsSun(facing)),
                  (1 - std::abs(across)) * half + 0.5);
        }
    }
}

void PaintLampRoom(Painting& painting, Point foot, double width) {
    const double half = width / 2;
    PaintBeam(painting, {{foot.x - half - 3, foot.y}, {foot.x + half + 3, foot.y}, 3.4, 3.4},
              {0.40, 0.32, 0.38});
    const std::array glass = {Point{foot.x - half, foot.y - 1}, Point{foot.x - half, foot.y - 14},
                              Point{foot.x + half, foot.y - 14}, Point{foot.x + half, foot.y - 1}};
    PaintPolygon(painting, glass, [&](double x, double y) {
        const double away = std::hypot(x - foot.x, y - foot.y + 7) / 9;
        return Mixed(Light{1, 0.97, 0.80}, Light{1.0, 0.66, 0.26}, std::min(1.0, away));
    });
    for (const double bar : {-half, -half / 3, half / 3, half}) {
        PaintLine(painting, {foot.x + bar, foot.y - 1}, {foot.x + bar, foot.y - 14}, 1.2,
                  {0.32, 0.24, 0.30});
    }
    const std::array roof = {Point{foot.x - half - 3, foot.y - 13}, Point{foot.x, foot.y - 26},
                             Point{foot.x + half + 3, foot.y - 13}};
    PaintPolygon(painting, roof, [&](double x, double) {
        const double across = (x - foot.x) / (half + 3);
        return InLight({0.50, 0.24, 0.24}, TowardsSun({0.8 * across, -0.5, 0.4}));
    });
    PaintLine(painting, {foot.x, foot.y - 25}, {foot.x, foot.y - 34}, 1.4, {0.5, 0.36, 0.38});
}

}  // namespace scenara::samples::cloudharbour
