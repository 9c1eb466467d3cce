// SPDX-License-Identifier: MIT
#include "painting/AlphaPainting.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace scenara::samples {
namespace {

std::uint8_t ToByte(float share) {
    return static_cast<std::uint8_t>(std::lround(std::clamp(share, 0.0F, 1.0F) * 255));
}

}  // namespace

AlphaPainting::AlphaPainting(int width, int height)
    : width_(width),
      height_(height),
      dots_(static_cast<std::size_t>(width) * static_cast<std::size_t>(height)) {}

void AlphaPainting::Lay(int x, int y, const Film& film) {
    if (!Inside(x, y) || film.part <= 0) {
        return;
    }
    const double part = std::min(film.part, 1.0);
    const Light light = film.light * part;
    const Dot laid{static_cast<float>(light.red), static_cast<float>(light.green),
                   static_cast<float>(light.blue), static_cast<float>(part)};
    At(x, y) = laid + At(x, y) * (1 - laid.part);
}

void AlphaPainting::Tint(int x, int y, const Film& film) {
    if (Part(x, y) <= 0 || film.part <= 0) {
        return;
    }
    const auto part = static_cast<float>(std::min(film.part, 1.0));
    const float there = At(x, y).part;
    const Light light = film.light * static_cast<double>(part * there);
    At(x, y) =
        At(x, y) * (1 - part) + Dot{static_cast<float>(light.red), static_cast<float>(light.green),
                                    static_cast<float>(light.blue), part * there};
}

AlphaPainting AlphaPainting::Halved() const {
    AlphaPainting half(width_ / 2, height_ / 2);
    for (int y = 0; y < half.height_; ++y) {
        for (int x = 0; x < half.width_; ++x) {
            const Dot upper = At(2 * x, 2 * y) + At(2 * x + 1, 2 * y);
            const Dot lower = At(2 * x, 2 * y + 1) + At(2 * x + 1, 2 * y + 1);
            half.At(x, y) = (upper + lower) * 0.25F;
        }
    }
    return half;
}

samplemaker::AlphaPicture AlphaPainting::ToPicture() const {
    samplemaker::AlphaPicture picture{width_, height_, {}};
    picture.pixels.reserve(dots_.size());
    for (const Dot& dot : dots_) {
        const std::uint8_t alpha = ToByte(dot.part);
        if (alpha == 0) {
            picture.pixels.push_back({});
        } else {
            const Dot full = dot * (1 / dot.part);
            picture.pixels.push_back(
                {ToByte(full.red), ToByte(full.green), ToByte(full.blue), alpha});
        }
    }
    return picture;
}

}  // namespace scenara::samples
