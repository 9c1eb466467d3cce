// SPDX-License-Identifier: MIT
//
// The filters of PNG rows: each byte becomes its difference from what its neighbours let expect.
//
//   0 None     nothing
//   1 Sub      the byte of the pixel to the left
//   2 Up       the byte above
//   3 Average  half of the sum of both
//   4 Paeth    left, above or above left, whichever is nearest to left + above - above left
//
// Where there is no neighbour, it is 0.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace scenara::samplemaker {

// The filtered row. `above` is as long as the row; `pixelBytes` is 1 for pixels below a byte.
std::vector<std::uint8_t> FilteredRow(unsigned filter, std::span<const std::uint8_t> row,
                                      std::span<const std::uint8_t> above, std::size_t pixelBytes);

// The filter whose differences are smallest in sum, which deflate mostly makes the smallest.
unsigned SmallestFilter(std::span<const std::uint8_t> row, std::span<const std::uint8_t> above,
                        std::size_t pixelBytes);

}  // namespace scenara::samplemaker
