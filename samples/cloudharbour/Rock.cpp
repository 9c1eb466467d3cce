// SPDX-License-Identifier: MIT
//
// The rock of a floating island: flat above, and below torn off into a hanging point.
#include <algorithm>
#include <cmath>

#include "cloudharbour/Facets.h"
#include "cloudharbour/Island.h"
#include "painting/NoiseSheet.h"

namespace scenara::samples::cloudharbour {
namespace {

class RockForm {
public:
    explicit RockForm(const Rock& rock) : rock_(rock), crags_(rock.seed, 8, 5, 0.58) {}

    // The lower edge at a column.
    [[nodiscard]] double Foot(double x) const {
        const double out = std::clamp(std::abs(x - rock_.x) / rock_.halfWidth, 0.0, 1.0);
        const double torn = crags_.At(x * 1.1, 17) - 0.5;
        const double teeth = std::abs(crags_.At(x * 2.3, 71) - 0.5);
        const double lobe = crags_.At(x * 0.42, 150);
        const double shape = std::pow(1 - out, 0.85) * (0.52 + 0.62 * lobe + 0.16 * torn) +
                             0.20 * teeth * std::sqrt(1 - out);
        return GroundRow(rock_, x) + 7 + rock_.depth * shape * 0.95;
    }

    // Which way it looks: a belly, broken into large and small blocks that stand upright.
    [[nodiscard]] Facing FacingAt(double x, double y) const {
        const double down = std::clamp((y - rock_.top) / rock_.depth, 0.0, 1.0);
        const double middle = rock_.x + rock_.lean * down;
        const double half = rock_.halfWidth * (1.05 - 0.8 * std::pow(down, 0.9));
        const double across = std::clamp((x - middle) / half, -1.0, 1.0);
        const Facet large = LargeBlock(x, y);
        const Facet small = SmallBlock(x, y);
        const double nx = 0.80 * across + 0.60 * large.tiltX + 0.22 * small.tiltX;
        const double ny = 0.22 + 0.30 * large.tiltY + 0.26 * small.tiltY;
        const double length = std::sqrt(nx * nx + ny * ny + 0.55);
        return {nx / length, ny / length, std::sqrt(0.55) / length};
    }

    [[nodiscard]] Facet LargeBlock(double x, double y) const {
        const double bend = crags_.At(x * 0.9, y * 0.6) - 0.5;
        return FacetAt((x + 0.18 * y) / 34 + 1.5 * bend, y / 72 + 0.8 * bend, rock_.seed);
    }
    [[nodiscard]] Facet SmallBlock(double x, double y) const {
        const double bend = crags_.At(x * 1.7 + 60, y * 1.1) - 0.5;
        return FacetAt(x / 9 + 1.3 * bend, y / 24 + 0.7 * bend, rock_.seed + 9);
    }

    [[nodiscard]] double Crag(double x, double y) const { return crags_.At(x * 2, y * 0.8 + 60); }

private:
    Rock rock_;
    NoiseSheet crags_;
};

Light StoneAt(const RockForm& form, double x, double y, double down) {
    const Facing facing = form.FacingAt(x, y);
    const Facet large = form.LargeBlock(x, y);
    const Facet small = form.SmallBlock(x, y);
    const double vein = form.Crag(x, y);
    const Light stone = Mixed(Light{0.40, 0.33, 0.39}, Light{0.66, 0.53, 0.47},
                              0.36 * large.shade + 0.14 * small.shade + 0.5 * vein);
    const double crack =
        (0.62 + 0.38 * Rise(0.0, 0.10, large.crack)) * (0.86 + 0.14 * Rise(0.0, 0.16, small.crack));
    return (InLight(stone, TowardsSun(facing) + 0.10) + FromBelow(stone, facing.y + 0.3 * down)) *
           crack;
}

}  // namespace

double GroundRow(const Rock& rock, double x) {
    const double out = (x - rock.x) / rock.halfWidth;
    return rock.top + 9 * out * out + 2.5 * std::sin(x * 0.071 + rock.seed) +
           1.5 * std::sin(x * 0.19 + 2.0 * rock.seed);
}

void PaintRock(Painting& painting, const Rock& rock) {
    const RockForm form(rock);
    for (int column = static_cast<int>(rock.x - rock.halfWidth); column <= rock.x + rock.halfWidth;
         ++column) {
        const double x = column + 0.5;
        const double ground = GroundRow(rock, x);
        const double foot = form.Foot(x);
        // Grass hangs over the edge in tufts.
        const double tuft = 6 + 8 * form.Crag(x * 2.2, 12) + 7 * form.Crag(x * 0.5, 33);
        for (int y = static_cast<int>(ground); y < foot; ++y) {
            const double row = y + 0.5;
            const double down = (row - rock.top) / rock.depth;
            if (row - ground < tuft) {
                const double blade = form.Crag(x * 3, row * 2);
                const double across = (x - rock.x) / rock.halfWidth;
                const Facing facing{0.75 * across, -0.75 + 0.1 * (row - ground), 0.35};
                const Light grass = Mixed(Light{0.17, 0.31, 0.22}, Light{0.40, 0.48, 0.22}, blade);
                painting.Set(column, y,
                             InLight(grass, TowardsSun(facing) + 0.5 * (blade - 0.5)) *
                                 Rise(tuft + 6, tuft - 5, row - ground));
            } else {
                const double shadow = Rise(tuft - 2, tuft + 9, row - ground);
                painting.Set(column, y, StoneAt(form, x, row, down) * (0.55 + 0.45 * shadow));
            }
        }
    }
}

void Veil(Painting& painting, const Light& haze, double partAbove, double partBelow) {
    for (int y = 0; y < painting.Height(); ++y) {
        const double t = y / static_cast<double>(painting.Height());
        const double part = partAbove + (partBelow - partAbove) * t * t;
        for (int x = 0; x < painting.Width(); ++x) {
            if (painting.IsPainted(x, y)) {
                painting.Set(x, y, Mixed(painting.Get(x, y), haze, part));
            }
        }
    }
}

}  // namespace scenara::samples::cloudharbour
