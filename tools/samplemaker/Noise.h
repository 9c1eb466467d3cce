// SPDX-License-Identifier: MIT
//
// Random numbers and smooth noise for drawing.
//
// Everything is a pure function of its seed and place, made of whole-number steps, so that a
// picture comes out the same on every machine. Noise values lie in 0 … 1; lattice points are one
// unit apart. With a period p > 0 the noise repeats every p units in x, which is what tiled
// pictures need.
#pragma once

#include <cstdint>

namespace scenara::samplemaker {

class Random {
public:
    explicit Random(std::uint32_t seed) : state_(seed) {}

    std::uint32_t Next();
    double Unit();                            // 0 <= value < 1
    double Between(double low, double high);  // low <= value < high
    int Whole(int low, int high);             // both ends included; high >= low

private:
    std::uint32_t state_;
};

// A value in 0 … 1 that belongs to the lattice point.
double LatticeValue(int x, int y, std::uint32_t seed);

double SmoothNoise(double x, double y, std::uint32_t seed, int period = 0);

// `octaves` layers of noise, each twice as fine and half as strong.
double LayeredNoise(double x, double y, int octaves, std::uint32_t seed, int period = 0);

}  // namespace scenara::samplemaker
