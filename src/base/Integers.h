// SPDX-License-Identifier: MIT
//
// Checked conversions to the program's whole-number types, and its stored booleans.
//
// Integer = 16-bit signed, Long = 32-bit signed, Single = 32-bit float, as in the tables of the
// stage model. A value is first rounded to the nearest whole number, ties to the even one
// (2.5 -> 2, 3.5 -> 4, -0.5 -> 0); one that then does not fit, and a value that is not a number,
// raise RunTimeError "Overflow". Nothing wraps around.
#pragma once

#include <cstdint>

namespace scenara {

using Integer = std::int16_t;
using Long = std::int32_t;
using Single = float;
using Byte = std::uint8_t;

// Booleans that are stored as 16-bit values, and tested against exactly these.
inline constexpr Integer kTrue = -1;
inline constexpr Integer kFalse = 0;

// The nearest whole number, ties to even; still a double, of any size.
[[nodiscard]] double RoundToEven(double value);

[[nodiscard]] Integer ToInteger(double value);
[[nodiscard]] Long ToLong(double value);
[[nodiscard]] Single ToSingle(double value);

// A counter one higher; raises "Overflow" at the top of its range.
[[nodiscard]] Integer Incremented(Integer counter);
[[nodiscard]] Long Incremented(Long counter);

}  // namespace scenara
