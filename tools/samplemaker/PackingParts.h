// SPDX-License-Identifier: MIT
//
// What the packings of Sff2Packing.h have in common.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>

#include "samplemaker/Noise.h"
#include "samplemaker/Require.h"

namespace scenara::samplemaker {

// How often the pixel at `at` comes in a row: 1 to `most` times, more are not looked for.
inline std::size_t RunAt(std::span<const std::uint8_t> pixels, std::size_t at, std::size_t most) {
    const auto rest = pixels.subspan(at, std::min(most, pixels.size() - at));
    const auto end = std::find_if(rest.begin(), rest.end(),
                                  [&](std::uint8_t pixel) { return pixel != rest.front(); });
    return static_cast<std::size_t>(end - rest.begin());
}

inline void RequireColours(std::span<const std::uint8_t> pixels, unsigned colours,
                           const char* what) {
    Require(std::all_of(pixels.begin(), pixels.end(),
                        [=](std::uint8_t pixel) { return pixel < colours; }),
            what);
}

inline bool OneIn(Random& random, int odds) {
    return random.Whole(1, odds) == 1;
}

// `low` to `high`, which is not below it. Both ends come often: most mistakes of readers are there.
inline std::size_t AnyLength(Random& random, std::size_t low, std::size_t high) {
    switch (random.Whole(0, 3)) {
        case 0: return low;
        case 1: return high;
        default:
            return static_cast<std::size_t>(
                random.Whole(static_cast<int>(low), static_cast<int>(high)));
    }
}

// The length of a run at `at`, up to `most`. One at the picture's end may go on beyond it: readers
// cut that.
inline std::size_t AnyRun(Random& random, std::span<const std::uint8_t> pixels, std::size_t at,
                          std::size_t most) {
    const std::size_t run = RunAt(pixels, at, most);
    const bool beyond = at + run == pixels.size() && OneIn(random, 2);
    return AnyLength(random, 1, beyond ? most : run);
}

}  // namespace scenara::samplemaker
