// SPDX-License-Identifier: MIT
//
// The floating islands: one with a lighthouse and a village, one with a mill, and the far ones.
#include <array>
#include <cmath>

#include "cloudharbour/Island.h"
#include "cloudharbour/Pictures.h"
#include "cloudharbour/Scene.h"

namespace scenara::samples::cloudharbour {
namespace {

constexpr Light kPlaster{0.80, 0.72, 0.68};
constexpr Light kStone{0.62, 0.58, 0.62};
constexpr Light kSlate{0.30, 0.34, 0.46};
constexpr Light kBrick{0.52, 0.28, 0.27};

void PaintHouseOn(Painting& painting, const Rock& rock, House house) {
    house.foot.y = GroundRow(rock, house.foot.x) + 4;
    PaintHouse(painting, house);
}

struct Planting {
    Tree tree;
    double x;
    double height;
};

template <std::size_t kCount>
void PlantOn(Painting& painting, const Rock& rock, const std::array<Planting, kCount>& plantings) {
    std::uint32_t seed = rock.seed;
    for (const Planting& planting : plantings) {
        PaintTree(painting, planting.tree, {planting.x, GroundRow(rock, planting.x) + 5},
                  planting.height, ++seed);
    }
}

}  // namespace

IndexedPicture DrawLightIsland() {
    constexpr int kWidth = 470;
    constexpr int kHeight = 330;
    constexpr Rock kRock{236, 138, 196, 168, 22, 1091};
    Painting painting(kWidth, kHeight);
    PaintRock(painting, {40, 196, 34, 60, -4, 1093});  // a crumb of it
    PaintTree(painting, Tree::Round, {38, 200}, 30, 77);
    PlantOn(painting, kRock,
            std::array{Planting{Tree::Cypress, 352, 74}, Planting{Tree::Round, 376, 54},
                       Planting{Tree::Round, 120, 58}, Planting{Tree::Cypress, 178, 66},
                       Planting{Tree::Cypress, 262, 60}});
    const double towerX = 312;
    PaintTower(painting, {towerX, GroundRow(kRock, towerX) + 5}, 92, 26, {0.86, 0.80, 0.78},
               {0.58, 0.24, 0.24});
    PaintLampRoom(painting, {towerX, GroundRow(kRock, towerX) - 87}, 15);
    PaintHouseOn(painting, kRock, {{206, 0}, 22, 34, 26, 22, kPlaster, kBrick});
    PaintHouseOn(painting, kRock, {{154, 0}, 18, 26, 18, 18, kStone, kSlate});
    PaintHouseOn(painting, kRock, {{266, 0}, 18, 28, 18, 17, kPlaster, kSlate});
    PaintHouseOn(painting, kRock, {{338, 0}, 14, 20, 14, 13, kStone, kBrick});
    PaintRock(painting, kRock);
    PlantOn(painting, kRock,
            std::array{Planting{Tree::Blossom, 98, 46}, Planting{Tree::Round, 72, 34},
                       Planting{Tree::Blossom, 244, 34}, Planting{Tree::Round, 394, 40},
                       Planting{Tree::Round, 136, 24}, Planting{Tree::Round, 300, 22},
                       Planting{Tree::Blossom, 368, 28}});
    Veil(painting, kHaze, 0.16, 0.62);
    return painting.ToPicture();
}

IndexedPicture DrawMillIsland() {
    constexpr int kWidth = 330;
    constexpr int kHeight = 330;
    constexpr Rock kRock{164, 150, 146, 164, -16, 1097};
    Painting painting(kWidth, kHeight);
    PlantOn(painting, kRock,
            std::array{Planting{Tree::Round, 70, 62}, Planting{Tree::Cypress, 104, 70},
                       Planting{Tree::Round, 240, 56}});
    const double millX = 166;
    PaintTower(painting, {millX, GroundRow(kRock, millX) + 5}, 74, 46, {0.80, 0.73, 0.70},
               {0.74, 0.67, 0.66});
    const std::array cap = {Point{millX - 19, GroundRow(kRock, millX) - 67},
                            Point{millX - 12, GroundRow(kRock, millX) - 86},
                            Point{millX + 2, GroundRow(kRock, millX) - 94},
                            Point{millX + 14, GroundRow(kRock, millX) - 84},
                            Point{millX + 19, GroundRow(kRock, millX) - 67}};
    PaintPolygon(painting, cap, [](double x, double) {
        return InLight(kBrick, TowardsSun({(x - 166) / 22, -0.45, 0.5}));
    });
    PaintHouseOn(painting, kRock, {{214, 0}, 18, 30, 17, 17, kPlaster, kSlate});
    PaintRock(painting, kRock);
    PlantOn(painting, kRock,
            std::array{Planting{Tree::Blossom, 118, 40}, Planting{Tree::Round, 44, 36},
                       Planting{Tree::Round, 264, 38}, Planting{Tree::Round, 196, 22}});
    Veil(painting, Mixed(kHaze, kCoolHaze, 0.3), 0.10, 0.5);
    return painting.ToPicture();
}

IndexedPicture DrawFarIslands() {
    constexpr int kWidth = 260;
    constexpr int kHeight = 130;
    Painting painting(kWidth, kHeight);
    constexpr Rock kLeft{74, 52, 62, 62, 8, 1103};
    constexpr Rock kRight{196, 36, 40, 44, -4, 1109};
    PlantOn(painting, kLeft,
            std::array{Planting{Tree::Cypress, 50, 30}, Planting{Tree::Round, 96, 24}});
    PaintTower(painting, {70, 56}, 36, 10, kPlaster, kPlaster);
    PaintRock(painting, kLeft);
    PlantOn(painting, kRight,
            std::array{Planting{Tree::Round, 184, 22}, Planting{Tree::Round, 206, 16}});
    PaintRock(painting, kRight);
    Veil(painting, kHaze, 0.52, 0.86);
    return painting.ToPicture();
}

// The mill's four sails; after six steps each stands where the next one stood.
Pictures DrawMillSails() {
    constexpr int kSize = 116;
    constexpr int kSteps = 6;
    constexpr double kMiddle = kSize / 2.0;
    constexpr double kQuarter = 1.5707963;
    std::vector<Painting> paintings;
    for (int step = 0; step < kSteps; ++step) {
        Painting& painting = paintings.emplace_back(kSize, kSize);
        for (int sail = 0; sail < 4; ++sail) {
            const double angle = 0.2 + kQuarter * (sail + step / double{kSteps});
            const double alongX = std::cos(angle);
            const double alongY = std::sin(angle);
            const auto at = [&](double out, double aside) {
                return Point{kMiddle + out * alongX - aside * alongY,
                             kMiddle + out * alongY + aside * alongX};
            };
            const std::array cloth = {at(14, 1), at(54, 1), at(54, 11), at(14, 9)};
            PaintPolygon(painting, cloth, [&](double x, double y) {
                const double out = (x - kMiddle) * alongX + (y - kMiddle) * alongY;
                const double bar = std::abs(InCell(out, 8)) / 4;
                return Mixed(InLight({0.80, 0.70, 0.66}, 0.35 - 0.5 * alongX), kHaze, 0.16) *
                       (0.62 + 0.38 * Rise(0.05, 0.3, 1 - bar));
            });
            PaintLine(painting, at(0, 0), at(56, 0), 2.2, {0.42, 0.30, 0.36});
        }
        PaintBall(painting, {kMiddle, kMiddle}, 4, 4, {0.5, 0.38, 0.40});
    }
    return ToPictures(paintings);
}

}  // namespace scenara::samples::cloudharbour
