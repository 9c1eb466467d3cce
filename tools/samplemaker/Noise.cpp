// SPDX-License-Identifier: MIT
#include "samplemaker/Noise.h"

#include <cmath>

namespace scenara::samplemaker {
namespace {

// The finishing steps of a well-known hash: every input bit reaches every output bit.
std::uint32_t Mix(std::uint32_t value) {
    value ^= value >> 16U;
    value *= 0x7FEB352DU;
    value ^= value >> 15U;
    value *= 0x846CA68BU;
    value ^= value >> 16U;
    return value;
}

double ToUnit(std::uint32_t value) {
    return static_cast<double>(value >> 8U) / 16777216.0;
}

int Wrapped(int x, int period) {
    if (period <= 0) {
        return x;
    }
    const int rest = x % period;
    return rest < 0 ? rest + period : rest;
}

// Eases 0 … 1 so that neighbouring cells meet without a crease.
double Ease(double t) {
    return t * t * (3 - 2 * t);
}

double Mixed(double a, double b, double t) {
    return a + (b - a) * t;
}

}  // namespace

std::uint32_t Random::Next() {
    state_ += 0x9E3779B9U;
    return Mix(state_);
}

double Random::Unit() {
    return ToUnit(Next());
}

double Random::Between(double low, double high) {
    return low + (high - low) * Unit();
}

int Random::Whole(int low, int high) {
    const auto count = static_cast<std::uint32_t>(high - low + 1);
    return low + static_cast<int>(Next() % count);
}

double LatticeValue(int x, int y, std::uint32_t seed) {
    const std::uint32_t column = Mix(static_cast<std::uint32_t>(x) + seed * 0x9E3779B9U);
    return ToUnit(Mix(column + static_cast<std::uint32_t>(y) * 0x85EBCA6BU));
}

double SmoothNoise(double x, double y, std::uint32_t seed, int period) {
    const double left = std::floor(x);
    const double top = std::floor(y);
    const int x0 = Wrapped(static_cast<int>(left), period);
    const int x1 = Wrapped(static_cast<int>(left) + 1, period);
    const int y0 = static_cast<int>(top);
    const double u = Ease(x - left);
    const double v = Ease(y - top);
    const double above = Mixed(LatticeValue(x0, y0, seed), LatticeValue(x1, y0, seed), u);
    const double below = Mixed(LatticeValue(x0, y0 + 1, seed), LatticeValue(x1, y0 + 1, seed), u);
    return Mixed(above, below, v);
}

double LayeredNoise(double x, double y, int octaves, std::uint32_t seed, int period) {
    double sum = 0;
    double total = 0;
    double strength = 1;
    for (int octave = 0; octave < octaves; ++octave) {
        sum += strength * SmoothNoise(x, y, seed + static_cast<std::uint32_t>(octave), period);
        total += strength;
        strength /= 2;
        x *= 2;
        y *= 2;
        period *= 2;
    }
    return total > 0 ? sum / total : 0;
}

}  // namespace scenara::samplemaker
