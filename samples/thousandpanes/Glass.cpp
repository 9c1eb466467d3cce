// SPDX-License-Identifier: MIT
#include "thousandpanes/Glass.h"

#include <array>
#include <cmath>
#include <span>

#include "samplemaker/Noise.h"

namespace scenara::samples {
namespace {

using samplemaker::LatticeValue;

// One pane's glass: no two let through the same, and none is even.
Light Pane(const Light& colour, int column, int row, double x, double y, std::uint32_t seed) {
    const double own = 0.55 + 0.5 * LatticeValue(column, row, seed);
    const double cloudy = 0.82 + 0.36 * samplemaker::SmoothNoise(x / 5, y / 5, seed + 1);
    return colour * (own * cloudy);
}

Light Leaded(const Light& glass, double distance, double width) {
    return Mixed(glass, kLead, Line(distance, width));
}

// Diamonds of 11 x 16 pixels, in colours by chance.
Light Quarries(double x, double y, std::span<const Light> colours, std::uint32_t seed) {
    const double u = x / 11 + y / 16;
    const double v = x / 11 - y / 16;
    const int column = static_cast<int>(std::floor(u));
    const int row = static_cast<int>(std::floor(v));
    const auto choice = static_cast<std::size_t>(LatticeValue(column, row, seed + 7) *
                                                 static_cast<double>(colours.size()));
    const Light glass =
        Pane(colours[std::min(choice, colours.size() - 1)], column, row, x, y, seed);
    const double edge = std::min(std::abs(InCell(u, 1)), std::abs(InCell(v, 1)));
    return Leaded(glass, edge * 7, 1.4);
}

}  // namespace

Light RoundGlass(double x, double y, double radius, std::uint32_t seed) {
    const double far = std::hypot(x, y);
    const double turn = std::atan2(x, y);
    const double petal = radius * (0.5 + 0.26 * std::abs(std::cos(3 * turn)));
    const double heart = radius * 0.22;
    const double ring = radius * 0.84;
    Light glass = Pane(kCobalt, 1, 0, x, y, seed);
    if (far < heart) {
        glass = Pane(kGold, 0, 0, x, y, seed) * 1.15;
    } else if (far < petal) {
        glass = Pane(kRuby, static_cast<int>(std::floor(turn * 3 / 3.1416)), 2, x, y, seed);
    } else if (far > ring) {
        const double along = turn * ring / 9;
        glass = Pane(kAmber, static_cast<int>(std::floor(along)), 3, x, y, seed);
        glass = Leaded(glass, InCell(along, 1) * 9, 1.2);
    }
    for (const double edge : {far - heart, far - petal, far - ring, far - radius}) {
        glass = Leaded(glass, edge, 1.6);
    }
    return glass;
}

Light LancetGlass(double x, double y, std::uint32_t seed) {
    constexpr std::array kField = {kCobalt, kCobalt, kAzure, kCobalt * 0.7, kViolet, kAzure};
    constexpr std::array kBorder = {kRuby, kGold, kRuby, kEmerald};
    constexpr double kBorderWidth = 8;
    constexpr double kMedallion = 21;
    constexpr double kMedallionStep = 56;
    const double inside = -std::max(kLancet.Distance(x, y), y - kLancetFoot);

    if (inside < kBorderWidth) {
        const double along = y / 11;
        const int pane = static_cast<int>(std::floor(along));
        const Light& colour = kBorder.at(static_cast<std::size_t>(pane & 3));
        const Light glass =
            Leaded(Pane(colour, pane, x < 0 ? 0 : 1, x, y, seed), InCell(along + 0.5, 1) * 11, 1.4);
        return Leaded(Leaded(glass, inside, 1.5), kBorderWidth - inside, 1.6);
    }
    const double below = kLancetFoot - kMedallionStep / 2 - 4 - y;
    const double fromMedallion = InCell(below, kMedallionStep);
    const int medallion = static_cast<int>(std::lround(below / kMedallionStep));
    const double top = kLancetFoot - 4 - (medallion + 0.5) * kMedallionStep - kMedallion - 10;
    if (std::hypot(x, fromMedallion) < kMedallion && top > kLancet.spring - kLancet.halfWidth) {
        return RoundGlass(x, fromMedallion, kMedallion,
                          seed + 31 * static_cast<std::uint32_t>(medallion + 1));
    }
    return Leaded(Quarries(x, y, kField, seed), kBorderWidth - inside, 1.6);
}

Light GalleryGlass(double x, double y, const PointedArch& arch, double foot, std::uint32_t seed) {
    constexpr std::array kField = {kAmber, kGold, kAmber * 0.8, kGold * 0.9, kRuby};
    const double inside = -std::max(arch.Distance(x, y), y - foot);
    return Leaded(Quarries(x, y, kField, seed), inside, 2);
}

}  // namespace scenara::samples
