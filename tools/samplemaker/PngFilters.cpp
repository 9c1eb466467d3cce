// SPDX-License-Identifier: MIT
#include "samplemaker/PngFilters.h"

#include <cstdlib>
#include <stdexcept>

namespace scenara::samplemaker {
namespace {

constexpr unsigned kFilters = 5;

int Paeth(int left, int above, int aboveLeft) {
    const int expected = left + above - aboveLeft;
    const int toLeft = std::abs(expected - left);
    const int toAbove = std::abs(expected - above);
    const int toAboveLeft = std::abs(expected - aboveLeft);
    if (toLeft <= toAbove && toLeft <= toAboveLeft) {
        return left;
    }
    return toAbove <= toAboveLeft ? above : aboveLeft;
}

int Expected(unsigned filter, int left, int above, int aboveLeft) {
    switch (filter) {
        case 0: return 0;
        case 1: return left;
        case 2: return above;
        case 3: return (left + above) / 2;
        case 4: return Paeth(left, above, aboveLeft);
        default: throw std::invalid_argument("PNG: unknown filter");
    }
}

}  // namespace

std::vector<std::uint8_t> FilteredRow(unsigned filter, std::span<const std::uint8_t> row,
                                      std::span<const std::uint8_t> above, std::size_t pixelBytes) {
    std::vector<std::uint8_t> filtered(row.size());
    for (std::size_t at = 0; at < row.size(); ++at) {
        const bool hasLeft = at >= pixelBytes;
        const int left = hasLeft ? row[at - pixelBytes] : 0;
        const int aboveLeft = hasLeft ? above[at - pixelBytes] : 0;
        filtered[at] =
            static_cast<std::uint8_t>(row[at] - Expected(filter, left, above[at], aboveLeft));
    }
    return filtered;
}

unsigned SmallestFilter(std::span<const std::uint8_t> row, std::span<const std::uint8_t> above,
                        std::size_t pixelBytes) {
    unsigned best = 0;
    long least = -1;
    for (unsigned filter = 0; filter < kFilters; ++filter) {
        long sum = 0;
        for (const std::uint8_t difference : FilteredRow(filter, row, above, pixelBytes)) {
            sum += difference < 128 ? difference : 256 - difference;
        }
        if (least < 0 || sum < least) {
            best = filter;
            least = sum;
        }
    }
    return best;
}

}  // namespace scenara::samplemaker
