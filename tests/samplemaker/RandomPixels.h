// SPDX-License-Identifier: MIT
//
// Pixels as pictures have them: of one of several kinds, picked at random.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "samplemaker/Noise.h"

namespace scenara::samplemaker {

// `count` of them, below `colours`: noise, runs of all lengths, ramps, a pattern that repeats with
// or without mistakes, or some of each behind one another.
inline std::vector<std::uint8_t> RandomPixels(Random& random, int count, int colours) {
    std::vector<std::uint8_t> pixels;
    const auto size = static_cast<std::size_t>(count);
    const auto add = [&](int value) { pixels.push_back(static_cast<std::uint8_t>(value)); };
    const auto any = [&] { return random.Whole(0, colours - 1); };
    const bool mixed = random.Whole(0, 3) == 0;
    int kind = random.Whole(0, 5);
    while (pixels.size() < size) {
        const std::size_t end =
            mixed ? pixels.size() + static_cast<std::size_t>(count / 5 + 1) : size;
        const int few = random.Whole(1, std::min(colours, 5));
        const int period = random.Whole(1, 400);
        const std::size_t begin = pixels.size();
        while (pixels.size() < std::min(end, size)) {
            const auto back = static_cast<std::size_t>(period);
            switch (kind) {
                case 0: add(any()); break;
                case 1: add(random.Whole(0, few - 1)); break;
                case 2:
                    pixels.insert(pixels.end(), static_cast<std::size_t>(random.Whole(1, 30)),
                                  static_cast<std::uint8_t>(any()));
                    break;
                case 3:
                    pixels.insert(pixels.end(), static_cast<std::size_t>(random.Whole(1, 700)),
                                  static_cast<std::uint8_t>(any()));
                    break;
                case 4: add(static_cast<int>((pixels.size() - begin) / 3) % colours); break;
                default:
                    if (pixels.size() - begin < back || random.Whole(0, 60) == 0) {
                        add(any());
                    } else {
                        pixels.push_back(pixels[pixels.size() - back]);
                    }
            }
        }
        kind = random.Whole(0, 5);
    }
    pixels.resize(size);
    return pixels;
}

}  // namespace scenara::samplemaker
