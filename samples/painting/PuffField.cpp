// SPDX-License-Identifier: MIT
#include "painting/PuffField.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace scenara::samples {
namespace {

int Wrapped(int x, int width) {
    const int rest = x % width;
    return rest < 0 ? rest + width : rest;
}

std::size_t Offset(int x, int y, int width) {
    return static_cast<std::size_t>(y) * static_cast<std::size_t>(width) +
           static_cast<std::size_t>(x);
}

}  // namespace

PuffField::PuffField(int width, int height, bool wrapped)
    : width_(width),
      height_(height),
      wrapped_(wrapped),
      places_(static_cast<std::size_t>(width) * static_cast<std::size_t>(height)) {}

void PuffField::Add(const Puff& puff, const Puff& form, double ofForm) {
    const auto top = std::max(0, static_cast<int>(std::ceil(puff.y - puff.radius)));
    const auto bottom = std::min(height_ - 1, static_cast<int>(std::floor(puff.y + puff.radius)));
    for (int y = top; y <= bottom; ++y) {
        const double v = (y - puff.y) / puff.radius;
        const double half = puff.radius * std::sqrt(std::max(0.0, 1 - v * v));
        const double formV = std::clamp((y - form.y) / form.radius, -1.0, 1.0);
        for (auto x = static_cast<int>(std::ceil(puff.x - half)); x <= puff.x + half; ++x) {
            if (!wrapped_ && (x < 0 || x >= width_)) {
                continue;
            }
            const double u = (x - puff.x) / puff.radius;
            const double w = std::sqrt(std::max(0.0, 1 - u * u - v * v));
            const double height = puff.depth + puff.radius * w;
            PuffPlace& place = places_[Offset(Wrapped(x, width_), y, width_)];
            if (place.there && place.height >= height) {
                continue;
            }
            const double formU = std::clamp((x - form.x) / form.radius, -1.0, 1.0);
            const double nx = u + (formU - u) * ofForm;
            const double ny = v + (formV - v) * ofForm;
            const double flat = nx * nx + ny * ny;
            place = {.height = height,
                     .x = nx,
                     .y = ny,
                     .z = std::sqrt(std::max(0.0, 1 - flat)),
                     .edge = w,
                     .there = true};
        }
    }
}

const PuffPlace& PuffField::At(double x, double y) const {
    const auto row = static_cast<int>(std::lround(y));
    auto column = static_cast<int>(std::lround(x));
    if (wrapped_) {
        column = Wrapped(column, width_);
    }
    const bool inside = column >= 0 && column < width_ && row >= 0 && row < height_;
    return inside ? places_[Offset(column, row, width_)] : nothing_;
}

}  // namespace scenara::samples
