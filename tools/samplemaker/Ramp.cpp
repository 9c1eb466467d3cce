// SPDX-License-Identifier: MIT
#include "samplemaker/Ramp.h"

#include <algorithm>
#include <cmath>
#include <span>
#include <stdexcept>

namespace scenara::samplemaker {
namespace {

// The ordered 4 x 4 pattern: each further sixteenth lights the pixel farthest from those lit.
constexpr int kPattern[4][4] = {{0, 8, 2, 10}, {12, 4, 14, 6}, {3, 11, 1, 9}, {15, 7, 13, 5}};

std::uint8_t MixedChannel(std::uint8_t from, std::uint8_t to, double part) {
    return static_cast<std::uint8_t>(std::lround(from + (to - from) * part));
}

Rgb ColourAt(std::span<const ColourStop> stops, double level) {
    const auto above = std::find_if(stops.begin(), stops.end(), [level](const ColourStop& stop) {
        return stop.level >= level;
    });
    if (above == stops.begin()) {
        return stops.front().colour;
    }
    if (above == stops.end()) {
        return stops.back().colour;
    }
    const ColourStop& to = *above;
    const ColourStop& from = *std::prev(above);
    const double part = (level - from.level) / (to.level - from.level);
    return {MixedChannel(from.colour.red, to.colour.red, part),
            MixedChannel(from.colour.green, to.colour.green, part),
            MixedChannel(from.colour.blue, to.colour.blue, part)};
}

}  // namespace

std::uint8_t Ramp::Step(int step) const {
    return static_cast<std::uint8_t>(first + std::clamp(step, 0, count - 1));
}

std::uint8_t Ramp::Flat(double level) const {
    return Step(static_cast<int>(std::lround(std::clamp(level, 0.0, 1.0) * (count - 1))));
}

std::uint8_t Ramp::At(int x, int y, double level) const {
    const double steps = std::clamp(level, 0.0, 1.0) * (count - 1);
    return Step(static_cast<int>(std::floor(steps + DitherThreshold(x, y))));
}

double DitherThreshold(int x, int y) {
    return (kPattern[static_cast<unsigned>(y) % 4][static_cast<unsigned>(x) % 4] + 0.5) / 16;
}

PaletteBuilder::PaletteBuilder(Rgb leftOut) {
    palette_[0] = leftOut;
}

Ramp PaletteBuilder::AddRamp(int count, std::initializer_list<ColourStop> stops) {
    if (stops.size() == 0 || count < 1 || used_ + count > static_cast<int>(palette_.size())) {
        throw std::invalid_argument("a ramp needs stops and room in the palette");
    }
    const Ramp ramp{used_, count};
    for (int step = 0; step < count; ++step) {
        const double level = count > 1 ? static_cast<double>(step) / (count - 1) : 0;
        palette_.at(ramp.Step(step)) = ColourAt(std::span(stops), level);
    }
    used_ += count;
    return ramp;
}

std::uint8_t PaletteBuilder::AddColour(Rgb colour) {
    return AddRamp(1, {{0, colour}}).Step(0);
}

}  // namespace scenara::samplemaker
