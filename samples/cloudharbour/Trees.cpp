// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cmath>

#include "cloudharbour/Island.h"
#include "painting/PuffField.h"
#include "samplemaker/Noise.h"

namespace scenara::samples::cloudharbour {
namespace {

// The leaves, as balls about the crown's own.
PuffField Crown(double width, double height, std::uint32_t seed) {
    constexpr int kTufts = 34;
    const double radiusX = width / 2;
    const double radiusY = height / 2;
    PuffField field(static_cast<int>(width) + 8, static_cast<int>(height) + 8, false);
    const Puff form{radiusX + 4, radiusY + 4, std::max(radiusX, radiusY), 0};
    samplemaker::Random random(seed);
    for (int tuft = 0; tuft < kTufts; ++tuft) {
        const double angle = random.Between(0, 6.283);
        const double out = std::sqrt(random.Unit()) * 0.78;
        // A slim crown needs larger ones to hold together.
        const double radius =
            std::min(radiusX, radiusY) * random.Between(0.22, 0.42) * (radiusX < radiusY ? 2 : 1);
        field.Add({form.x + out * radiusX * std::cos(angle),
                   form.y + out * radiusY * std::sin(angle), radius, radiusX * (1 - out)},
                  form, 0.6);
    }
    return field;
}

}  // namespace

void PaintTree(Painting& painting, Tree tree, Point foot, double height, std::uint32_t seed) {
    const bool slim = tree == Tree::Cypress;
    const double width = slim ? height * 0.34 : height * 0.92;
    const double crown = slim ? height * 0.94 : height * 0.72;
    const Light leaf = tree == Tree::Blossom ? Light{0.80, 0.46, 0.52} : Light{0.17, 0.33, 0.27};
    const Light young = tree == Tree::Blossom ? Light{0.95, 0.66, 0.66} : Light{0.36, 0.48, 0.24};
    PaintBeam(painting, {foot, {foot.x, foot.y - height * 0.5}, height * 0.10, height * 0.05},
              {0.30, 0.22, 0.24});
    const PuffField field = Crown(width, crown, seed);
    const int left = static_cast<int>(foot.x - width / 2 - 4);
    const int top = static_cast<int>(foot.y - height - 4);
    samplemaker::Random random(seed + 1);
    for (int y = 0; y < field.Height(); ++y) {
        for (int x = 0; x < field.Width(); ++x) {
            const double shake = random.Between(-0.9, 0.9);
            const PuffPlace& place = field.At(x + shake, y - shake);
            if (place.there) {
                const Light surface = Mixed(leaf, young, random.Unit() * place.edge);
                const double under = 0.6 + 0.4 * place.edge;
                painting.Set(left + x, top + y,
                             InLight(surface, TowardsSun({place.x, place.y, place.z})) * under);
            }
        }
    }
}

}  // namespace scenara::samples::cloudharbour
