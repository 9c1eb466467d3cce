// SPDX-License-Identifier: MIT
//
// Lz5Matches: what came before in the pixels of LZ5, found by chains of the places at which the
// same two pixels stand.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace scenara::samplemaker {

struct Lz5Match {
    std::size_t back = 0;   // 1: the pixel before
    std::size_t count = 0;  // less than 2: there is none
};

class Lz5Matches {
public:
    // `pixels` are below 32, and outlive this.
    explicit Lz5Matches(std::span<const std::uint8_t> pixels);

    // The longest one for the pixels from `at` on, up to `mostCount` of them and from at most
    // `mostBack` back; the nearest of several. The first `skipped` ones found are passed over.
    [[nodiscard]] Lz5Match Longest(std::size_t at, std::size_t mostBack, std::size_t mostCount,
                                   std::size_t skipped = 0) const;

private:
    std::span<const std::uint8_t> pixels_;
    std::vector<std::uint32_t> stepBack_;  // to the place before with the same two; 0: none
};

}  // namespace scenara::samplemaker
