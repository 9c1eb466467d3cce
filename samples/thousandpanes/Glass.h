// SPDX-License-Identifier: MIT
//
// The hall's coloured glass. Each function says which light comes through at a place of a window,
// lead lines included. Distances and lengths are pixels, `seed` tells one window from another.
#pragma once

#include <cstdint>

#include "painting/Light.h"
#include "painting/Shapes.h"

namespace scenara::samples {

constexpr Light kRuby{0.93, 0.1, 0.17};
constexpr Light kCobalt{0.1, 0.24, 0.9};
constexpr Light kAzure{0.2, 0.58, 1};
constexpr Light kEmerald{0.08, 0.7, 0.42};
constexpr Light kAmber{1, 0.62, 0.14};
constexpr Light kGold{1, 0.86, 0.46};
constexpr Light kViolet{0.5, 0.16, 0.85};
constexpr Light kPale{0.8, 0.9, 1};
constexpr Light kLead{0.015, 0.012, 0.03};

// The side bays' windows, about column 0.
constexpr PointedArch kLancet{35, 152, 66};
constexpr double kLancetTop = 94;
constexpr double kLancetFoot = 304;

// A lancet: a border of small panes, quarries within, and medallions.
[[nodiscard]] Light LancetGlass(double x, double y, std::uint32_t seed);

// A round window about (0, 0) with six petals.
[[nodiscard]] Light RoundGlass(double x, double y, double radius, std::uint32_t seed);

// A narrow warm window, quarries only.
[[nodiscard]] Light GalleryGlass(double x, double y, const PointedArch& arch, double foot,
                                 std::uint32_t seed);

}  // namespace scenara::samples
