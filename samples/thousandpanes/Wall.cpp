// SPDX-License-Identifier: MIT
#include "thousandpanes/Wall.h"

#include <array>
#include <cmath>

#include "painting/Painting.h"
#include "painting/Shapes.h"
#include "samplemaker/Noise.h"
#include "thousandpanes/Glass.h"
#include "thousandpanes/Pictures.h"
#include "thousandpanes/Scene.h"
#include "thousandpanes/Stone.h"

namespace scenara::samples {
namespace {

constexpr int kTop = -60;
constexpr int kHeight = 492;

constexpr double kSill = 318;  // where the windows' stonework ends

// A roll of stone that goes along an edge; `distance` runs across it from 0 to its width.
double Roll(double distance, double width) {
    return distance < 0 || distance > width ? 0 : Round(2 * distance / width - 1, -0.4);
}

// Below the windows: a band of gilded lozenges, and a row of blind arches.
Light PanellingAt(double x, double y) {
    const double below = y - kSill;
    if (below < 4) {
        return Stone(0.74 - 0.05 * below) + CandleGlow(y);
    }
    if (below < 22) {
        const double lozenge = std::abs(InCell(x, 16)) / 8 + std::abs(below - 13) / 8 - 1;
        const Light ground = Mixed(Stone(0.2), Light{0.3, 0.03, 0.08}, 0.5);
        const Light gilded = Mixed(ground, kGold * 0.62, Rise(0.1, -0.15, lozenge));
        return Mixed(gilded, Stone(0.55), Line(below - 4, 2) + Line(below - 22, 2));
    }
    const PointedArch niche{12, kSill + 42, 22};
    const double edge = niche.Distance(InCell(x, 32), y);
    const double level = edge < 0 ? 0.12 + 0.1 * Rise(0, -10, edge)
                                  : 0.42 + 0.3 * Roll(edge, 4) + 0.05 * Rise(4, 8, edge);
    return Stone(level) + CandleGlow(y) * (edge < 0 ? 0.5 : 1.0);
}

// Plain wall, darker towards the vault.
Light AshlarAt(double x, double y) {
    const double height = Rise(-80, 320, y);
    return Stone((0.2 + 0.3 * height) * (0.4 + 1.2 * Masonry(x, y, 401, kBay))) +
           CandleGlow(y) * Masonry(x, y, 401, kBay);
}

// Stonework around glass: bevelled towards it, and lit by it.
Light TraceryAt(double x, double y, double distance, const Light& spill) {
    const double grain = samplemaker::LayeredNoise(x / 4, y / 4, 2, 409) - 0.5;
    const double level = 0.36 + 0.16 * grain + 0.26 * Roll(distance, 7);
    return Stone(level) + spill * (0.34 * std::exp(-distance / 9)) + CandleGlow(y) * 0.7;
}

IndexedPicture DrawBay(Light (*bayAt)(double, double)) {
    Painting painting(kBay, kHeight);
    painting.Fill([bayAt](int x, int y) { return bayAt(x + 0.5 - kBay / 2.0, y + 0.5 + kTop); });
    return painting.ToPicture();
}

}  // namespace

Light SideBayAt(double x, double y) {
    constexpr PointedArch kFrame{96, 96, 128};
    constexpr double kLancetX = 45;
    constexpr double kRoundRow = 72;
    constexpr double kRoundRadius = 37;
    if (y >= kSill) {
        return PanellingAt(x, y);
    }
    const double frame = kFrame.Distance(x, y);
    if (frame > 18) {
        return AshlarAt(x, y) + Light{0.03, 0.05, 0.12} * std::exp(-(frame - 18) / 22);
    }
    if (frame > 0) {
        const double roll = Roll(frame, 6) + Roll(frame - 7, 4) + Roll(frame - 12, 6);
        return Stone(0.16 + 0.5 * roll) + CandleGlow(y) + Light{0.02, 0.04, 0.1};
    }
    const double side = x < 0 ? -1 : 1;
    const double lancet = std::max(kLancet.Distance(x - side * kLancetX, y), y - kLancetFoot);
    const double round = Circle(x, y - kRoundRow, kRoundRadius);
    if (lancet < 0) {
        const std::uint32_t seed = side < 0 ? 419 : 421;
        return LancetGlass(x - side * kLancetX, y, seed);
    }
    if (round < 0) {
        return RoundGlass(x, y - kRoundRow, kRoundRadius, 431);
    }
    return TraceryAt(x, y, std::min(lancet, round), lancet < round ? kAzure : kRuby);
}

Light MiddleBayAt(double x, double y) {
    constexpr double kRing = kRoseRadius + 14;
    constexpr PointedArch kGallery{15, 278, 27};
    constexpr double kGalleryStep = 42;
    constexpr double kGalleryFoot = 310;
    if (y >= kSill) {
        return PanellingAt(x, y);
    }
    const double rose = Circle(x, y - kRoseRow, kRing);
    const double column = InCell(x, kGalleryStep);
    const int window = static_cast<int>(std::lround(x / kGalleryStep));
    const double gallery = std::max(kGallery.Distance(column, y), y - kGalleryFoot);
    if (std::abs(window) <= 2 && gallery < 0) {
        return GalleryGlass(column, y, kGallery, kGalleryFoot,
                            static_cast<std::uint32_t>(439 + window));
    }
    if (std::abs(window) <= 2 && gallery < 8 && y > 246) {
        return TraceryAt(x, y, gallery, kAmber);
    }
    return AshlarAt(x, y) + Light{0.16, 0.1, 0.22} * std::exp(-std::max(rose, 0.0) / 30);
}

IndexedPicture DrawSideBay() {
    return DrawBay(SideBayAt);
}

IndexedPicture DrawMiddleBay() {
    return DrawBay(MiddleBayAt);
}

}  // namespace scenara::samples
