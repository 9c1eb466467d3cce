// SPDX-License-Identifier: MIT
#include "platform/ScreenPixels.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace scenara {
namespace {

Long Rounded(double number) {
    using Limits = std::numeric_limits<Long>;
    return static_cast<Long>(std::clamp<double>(std::round(number), Limits::min(), Limits::max()));
}

Long From(Long corner, Long place, double pixelsPerUnit) {
    return Rounded(corner + (static_cast<double>(place) - corner) * pixelsPerUnit);
}

}  // namespace

ScreenRectangle InScreenPixels(const ScreenRectangle& place, const ScaledScreen& screen) {
    const double ratio = screen.pixelsPerUnit;
    return {From(screen.left, place.left, ratio), From(screen.top, place.top, ratio),
            Rounded(place.width * ratio), Rounded(place.height * ratio)};
}

}  // namespace scenara
