// SPDX-License-Identifier: MIT
#include "base/Integers.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <string>

#include "base/NumberText.h"
#include "base/RunTimeError.h"

namespace scenara {
namespace {

template <typename Number>
Number Checked(double whole, double value, const char* name) {
    // Written so that a value that is not a number fails, too.
    if (!(whole >= static_cast<double>(std::numeric_limits<Number>::min()) &&
          whole <= static_cast<double>(std::numeric_limits<Number>::max()))) {
        throw RunTimeError(RunTimeErrorKind::Overflow, NumberText(value) + " as " + name);
    }
    return static_cast<Number>(whole);
}

template <typename Number>
Number OneMore(Number counter, const char* name) {
    if (counter == std::numeric_limits<Number>::max()) {
        throw RunTimeError(RunTimeErrorKind::Overflow,
                           std::string(name) + " counts to " + std::to_string(counter));
    }
    return static_cast<Number>(counter + 1);
}

}  // namespace

double RoundToEven(double value) {
    // Not std::nearbyint: a library may change the rounding mode behind our back.
    if (!(std::abs(value) < 4503599627370496.0)) {
        return value;  // 2^52: whole already, or not a number
    }
    // In whole numbers: this is asked several times for everything on screen.
    auto below = static_cast<std::int64_t>(value);
    below -= static_cast<double>(below) > value ? 1 : 0;
    const double above = value - static_cast<double>(below);
    const bool up = above > 0.5 || (above == 0.5 && below % 2 != 0);
    return static_cast<double>(below + (up ? 1 : 0));
}

Integer ToInteger(double value) {
    return Checked<Integer>(RoundToEven(value), value, "a 16-bit number");
}

Long ToLong(double value) {
    return Checked<Long>(RoundToEven(value), value, "a 32-bit number");
}

Single ToSingle(double value) {
    // From half a step above the largest float on, the nearest one would be an infinity. Below, the
    // largest is the nearest: its own shortest text lies a little above it as a double.
    constexpr auto kLargest = static_cast<double>(std::numeric_limits<Single>::max());
    constexpr double kTooLarge = 0x1.FFFFFFp127;
    if (!(std::abs(value) < kTooLarge)) {
        throw RunTimeError(RunTimeErrorKind::Overflow, NumberText(value) + " as a 32-bit float");
    }
    return static_cast<Single>(std::clamp(value, -kLargest, kLargest));
}

Integer Incremented(Integer counter) {
    return OneMore(counter, "a 16-bit counter");
}

Long Incremented(Long counter) {
    return OneMore(counter, "a 32-bit counter");
}

}  // namespace scenara
