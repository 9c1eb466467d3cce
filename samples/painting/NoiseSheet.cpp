// SPDX-License-Identifier: MIT
#include "painting/NoiseSheet.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "samplemaker/Noise.h"

namespace scenara::samples {
namespace {

using Values = std::vector<float>;

float Ease(float t) {
    return t * t * (3 - 2 * t);
}

float Between(float from, float to, float part) {
    return from + (to - from) * part;
}

std::size_t Offset(int x, int y, int size) {
    return static_cast<std::size_t>(y) * static_cast<std::size_t>(size) +
           static_cast<std::size_t>(x);
}

Values Lattice(int cells, std::uint32_t seed) {
    Values lattice;
    for (int y = 0; y < cells; ++y) {
        for (int x = 0; x < cells; ++x) {
            lattice.push_back(static_cast<float>(samplemaker::LatticeValue(x, y, seed)));
        }
    }
    return lattice;
}

void AddLayer(Values& values, int cells, std::uint32_t seed, float strength) {
    const Values lattice = Lattice(cells, seed);
    const int step = NoiseSheet::kSize / cells;
    for (int y = 0; y < NoiseSheet::kSize; ++y) {
        const int top = y / step;
        const int bottom = (top + 1) % cells;
        const float down = Ease(static_cast<float>(y % step) / static_cast<float>(step));
        for (int x = 0; x < NoiseSheet::kSize; ++x) {
            const int left = x / step;
            const int right = (left + 1) % cells;
            const float across = Ease(static_cast<float>(x % step) / static_cast<float>(step));
            const float above = Between(lattice[Offset(left, top, cells)],
                                        lattice[Offset(right, top, cells)], across);
            const float below = Between(lattice[Offset(left, bottom, cells)],
                                        lattice[Offset(right, bottom, cells)], across);
            values[Offset(x, y, NoiseSheet::kSize)] += strength * Between(above, below, down);
        }
    }
}

}  // namespace

NoiseSheet::NoiseSheet(std::uint32_t seed, int cells, int octaves, double fall)
    : values_(static_cast<std::size_t>(kSize) * kSize) {
    double strength = 1;
    for (int octave = 0; octave < octaves; ++octave) {
        AddLayer(values_, cells << octave, seed + static_cast<std::uint32_t>(octave),
                 static_cast<float>(strength));
        strength *= fall;
    }
    const auto [least, most] = std::minmax_element(values_.begin(), values_.end());
    const float low = *least;
    const float span = *most - low;
    for (float& value : values_) {
        value = (value - low) / span;
    }
}

double NoiseSheet::At(double x, double y) const {
    const double left = std::floor(x);
    const double top = std::floor(y);
    constexpr auto kMask = static_cast<unsigned>(kSize - 1);
    const auto x0 = static_cast<unsigned>(static_cast<int>(left)) & kMask;
    const auto y0 = static_cast<unsigned>(static_cast<int>(top)) & kMask;
    const auto x1 = (x0 + 1) & kMask;
    const auto y1 = (y0 + 1) & kMask;
    const auto across = static_cast<float>(x - left);
    const auto down = static_cast<float>(y - top);
    const float above = Between(values_[y0 * kSize + x0], values_[y0 * kSize + x1], across);
    const float below = Between(values_[y1 * kSize + x0], values_[y1 * kSize + x1], across);
    return static_cast<double>(Between(above, below, down));
}

}  // namespace scenara::samples
