// SPDX-License-Identifier: MIT
//
// Light: a colour as three shares of full brightness, to be mixed and added up. It may leave 0 … 1
// on the way; what is painted is cut to that.
#pragma once

#include <algorithm>

namespace scenara::samples {

struct Light {
    double red = 0;
    double green = 0;
    double blue = 0;
};

constexpr Light operator+(const Light& a, const Light& b) {
    return {a.red + b.red, a.green + b.green, a.blue + b.blue};
}

constexpr Light operator*(const Light& light, double factor) {
    return {light.red * factor, light.green * factor, light.blue * factor};
}

// What a surface of one colour gives back of a light of another.
constexpr Light operator*(const Light& surface, const Light& light) {
    return {surface.red * light.red, surface.green * light.green, surface.blue * light.blue};
}

constexpr Light Mixed(const Light& from, const Light& to, double part) {
    return from * (1 - part) + to * part;
}

constexpr double Strongest(const Light& light) {
    return std::max({light.red, light.green, light.blue});
}

}  // namespace scenara::samples
