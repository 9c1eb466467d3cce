// SPDX-License-Identifier: MIT
#include "literal/LiteralSpace.h"

#include <algorithm>
#include <cmath>

#include "literal/ProgramCanvas.h"

namespace scenara::test {
namespace {

constexpr int kMostDetail = 4;

double OrOne(double scale) {
    return scale == 0 ? 1 : std::min(std::max(scale, -1024.0), 1024.0);
}

int DetailOf(const LiteralSpace& space) {
    const auto coarser = [&](int detail) {
        return detail * std::abs(space.PixelSize(0)) < 1 ||
               detail * std::abs(space.PixelSize(1)) < 1;
    };
    int detail = 1;
    while (detail < kMostDetail && coarser(detail)) {
        ++detail;
    }
    while (detail > 1 && (space.width * detail > 1920 || space.height * detail > 1200)) {
        --detail;
    }
    return detail;
}

double WholeStep(double step) {
    return std::max(std::nearbyint(step), 1.0);
}

}  // namespace

LiteralSpace LiteralSpace::Of(const StageModel& model) {
    LiteralSpace space;
    const Long width = model.localcoordWidth;
    const Long height = model.localcoordHeight;
    if (80 <= width && width <= 7680 && 60 <= height && height <= 4320) {
        space.width = width;
        space.height = height;
    }
    const auto [across, down] = StageScaleOf(model);
    space.scale = {OrOne(across), OrOne(down)};
    space.half = model.hires != 0 ? 0.5 : 1;
    space.wholeCamera = model.MugenVersion < 1;
    space.detail = DetailOf(space);
    return space;
}

std::array<double, 2> LiteralSpace::CameraStep() const {
    const std::array<double, 2> steps = {width / 320.0, height / 240.0};
    return wholeCamera ? std::array{WholeStep(steps[0]), WholeStep(steps[1])} : steps;
}

double LiteralSpace::CameraAt(double camera) const {
    return wholeCamera ? std::floor(camera) : camera;
}

double LiteralSpace::PixelSize(std::size_t axis) const {
    return detail * (scale[axis] * half);
}

std::int64_t CanvasPixel(double place) {
    return static_cast<std::int64_t>(std::floor(place + 0.5));
}

}  // namespace scenara::test
