// SPDX-License-Identifier: MIT
#include "stage/StageSpace.h"

#include <algorithm>
#include <cmath>

namespace scenara {
namespace {

// A pixel of a picture is as wide as most views then. Sums of sizes and places stay within 32 bits.
constexpr double kMostScale = 1024;
constexpr Long kMostDetail = 4;
constexpr Long kWidestDetailed = 1920;
constexpr Long kHighestDetailed = 1200;

bool IsBetween(Long value, Long least, Long most) {
    return value >= least && value <= most;
}

double ScaleOrOne(Single scale) {
    if (scale == 0 || !std::isfinite(scale)) {
        return 1;
    }
    return std::clamp(static_cast<double>(scale), -kMostScale, kMostScale);
}

}  // namespace

StageSpace SpaceOf(const StageModel& model) {
    return {ScaleOrOne(model.StageXScale), ScaleOrOne(model.StageYScale),
            model.hires != 0 ? 0.5 : 1.0};
}

View ViewOf(const StageModel& model, const ViewOptions& options) {
    View view;
    if (!options.Additions) {
        return view;
    }
    if (IsBetween(model.localcoordWidth, 80, 7680) && IsBetween(model.localcoordHeight, 60, 4320)) {
        view.width = model.localcoordWidth;
        view.height = model.localcoordHeight;
    }
    const StageSpace space = SpaceOf(model);
    const double smaller = std::fmin(std::fabs(space.scaleX), std::fabs(space.scaleY));
    const auto fits = [&](Long detail) {
        return view.width * detail <= kWidestDetailed && view.height * detail <= kHighestDetailed;
    };
    while (view.detail < kMostDetail && view.detail * smaller * space.hires < 1 &&
           fits(view.detail + 1)) {
        ++view.detail;
    }
    return view;
}

}  // namespace scenara
