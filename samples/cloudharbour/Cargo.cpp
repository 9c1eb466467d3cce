// SPDX-License-Identifier: MIT
//
// What waits to be loaded: crates, barrels and a coil of rope.
#include <array>
#include <cmath>

#include "cloudharbour/Brushes.h"
#include "cloudharbour/Pictures.h"
#include "cloudharbour/Scene.h"
#include "painting/NoiseSheet.h"

namespace scenara::samples::cloudharbour {
namespace {

constexpr Light kDeal{0.52, 0.37, 0.28};
constexpr Light kIron{0.22, 0.20, 0.28};

class Stack {
public:
    explicit Stack(Painting& painting) : painting_(painting) {}

    // The left side is in the sun; the lower left corner of the front is at `foot`.
    void PaintCrate(Point foot, double width, double height) {
        const double depth = width * 0.26;
        const std::array left = {foot, Point{foot.x - depth, foot.y - depth * 0.42},
                                 Point{foot.x - depth, foot.y - height - depth * 0.42},
                                 Point{foot.x, foot.y - height}};
        PaintPolygon(painting_, left, [&](double x, double y) {
            return Board(x * 0.4, y, foot, height, TowardsSun({-0.9, 0, 0.44}));
        });
        const std::array lid = {Point{foot.x, foot.y - height},
                                Point{foot.x - depth, foot.y - height - depth * 0.42},
                                Point{foot.x + width - depth, foot.y - height - depth * 0.42},
                                Point{foot.x + width, foot.y - height}};
        PaintPolygon(painting_, lid, [&](double, double) { return InLight(kDeal, 0.52) * 1.1; });
        const std::array front = {foot, Point{foot.x, foot.y - height},
                                  Point{foot.x + width, foot.y - height},
                                  Point{foot.x + width, foot.y}};
        PaintPolygon(painting_, front, [&](double x, double y) {
            return Board(x, y, foot, height, TowardsSun({0.5, 0, 0.87}) + 0.42);
        });
        PaintFrame(foot, width, height);
    }

    void PaintBarrel(Point foot, double width, double height) {
        for (int y = static_cast<int>(foot.y - height); y <= foot.y + width * 0.12; ++y) {
            const double up = (foot.y - y) / height;
            const double half = width / 2 * (1 - 0.55 * (up - 0.5) * (up - 0.5));
            for (int x = static_cast<int>(foot.x - half - 1); x <= foot.x + half + 1; ++x) {
                const double turn = std::clamp((x + 0.5 - foot.x) / half, -1.0, 1.0);
                const double front = std::sqrt(1 - turn * turn);
                const double row = y - front * width * 0.12;  // the hoops are seen from above
                const double level = (foot.y - row) / height;
                if (level < 0.0 || level > 1.1) {
                    continue;
                }
                const bool hoop = std::abs(level - 0.16) < 0.035 ||
                                  std::abs(level - 0.84) < 0.035 ||
                                  std::abs(level - 0.34) < 0.025 || std::abs(level - 0.67) < 0.025;
                const double stave = std::asin(turn) * 5;
                const double seam = Line(InCell(stave, 1), 0.14);
                const double wear =
                    grain_.At(std::floor(stave + 0.5) * 37 + x * 1.0, y * 0.3) - 0.5;
                const Light wood = hoop ? Light{0.36, 0.31, 0.34} : kDeal * (0.86 + 0.5 * wear);
                const double sun = TowardsSun({turn, 0, front});
                Cover(painting_, x, y, InLight(wood, sun) * (1 - 0.4 * seam * (hoop ? 0 : 1)),
                      (1 - std::abs((x + 0.5 - foot.x) / half)) * half + 0.5);
            }
        }
        PaintBall(painting_, {foot.x, foot.y - height * 0.995}, width * 0.43, width * 0.10,
                  {0.30, 0.21, 0.20});
    }

    void PaintCoil(Point foot, double width) {
        for (int turn = 0; turn < 4; ++turn) {
            const double y = foot.y - 6.5 * turn;
            const double half = width / 2 - turn * 1.5;
            for (double angle = 0; angle < 6.28; angle += 0.14) {
                const Point from{foot.x + half * std::cos(angle),
                                 y + 0.26 * half * std::sin(angle)};
                const Point to{foot.x + half * std::cos(angle + 0.16),
                               y + 0.26 * half * std::sin(angle + 0.16)};
                PaintBeam(painting_, {from, to, 7.4, 7.4}, {0.62, 0.49, 0.38});
            }
        }
    }

private:
    [[nodiscard]] Light Board(double x, double y, Point foot, double height, double sun) const {
        const double board = std::floor((foot.y - y) / (height / 4));
        const double seam = Line(InCell(foot.y - y, height / 4), 1.8);
        const double wear = grain_.At(x * 0.5 + 61 * board, y * 2.2) - 0.5;
        return InLight(kDeal * (0.78 + 0.5 * wear), sun) * (1 - 0.6 * seam);
    }

    void PaintFrame(Point foot, double width, double height) {
        const Light wood{0.60, 0.43, 0.31};
        const double thick = width * 0.10;
        const double in = thick / 2;
        const double right = foot.x + width - in;
        const double top = foot.y - height + in;
        PaintBeam(painting_, {{foot.x + in, foot.y - in}, {right, top}, thick, thick}, wood * 0.9);
        for (const double x : {foot.x + in, right}) {
            PaintBeam(painting_, {{x, foot.y - 1}, {x, foot.y - height + 1}, thick, thick}, wood);
        }
        for (const double y : {foot.y - in, top}) {
            PaintBeam(painting_, {{foot.x + 1, y}, {foot.x + width - 1, y}, thick, thick}, wood);
            for (const double x : {foot.x + in, right}) {
                PaintBall(painting_, {x, y}, 1.8, 1.8, kIron);
            }
        }
    }

    Painting& painting_;
    NoiseSheet grain_{1213, 16, 4, 0.6};
};

}  // namespace

IndexedPicture DrawCargo() {
    Painting painting(280, 190);
    for (int x = 8; x < 272; ++x) {  // their shadow on the planks
        for (int y = 166; y < 186; ++y) {
            const double edge = std::hypot((x - 150) / 132.0, (y - 174) / 11.0);
            if (edge < 1) {
                painting.Set(x, y, {0.115, 0.09, 0.15});
            }
        }
    }
    Stack stack(painting);
    stack.PaintBarrel({224, 164}, 58, 82);
    stack.PaintCrate({58, 168}, 84, 74);
    stack.PaintCrate({74, 94}, 62, 54);
    stack.PaintBarrel({174, 174}, 60, 86);
    stack.PaintCoil({246, 176}, 52);
    return painting.ToPicture();
}

}  // namespace scenara::samples::cloudharbour
