// SPDX-License-Identifier: MIT
//
// The three packings of pixels in sprite archives of version 2 (.sff).
//
// Each takes the indices of a picture, row by row, and gives the packed bytes without the size that
// stands before them in an archive. Rows are not told apart: what repeats may go on in the next
// one.
//
//   RLE8   01nnnnnn c    n pixels (0 to 63) of the colour c
//          c             one pixel; so 64 to 127 can only be written as runs
//
//   RLE5   r fnnnnnnn [c] n x d
//          r + 1 pixels of the colour c where the flag f is set, else of the colour 0, which has no
//          byte; then for each d: (d >> 5) + 1 pixels of the colour d & 31
//
//   LZ5    a control byte, then eight packets, one for each of its bits from the lowest
//     0    kkkccccc      k pixels (1 to 7) of the colour c
//          000ccccc k    k + 8 pixels of it
//     1    uu000000 c d  d + 3 pixels (3 to 258) from uucccccccc + 1 pixels back
//          uukkkkkk c    k + 1 pixels (2 to 64) from c + 1 pixels back, and
//          uukkkkkk      every fourth time from uu uu uu uu + 1 back: those of the last four such
//                        copies, its own ones lowest
//          A copy may reach into what it writes. Back is at most what is written before it.
//
// RLE5 and LZ5 hold the colours 0 to 31. Other ones raise std::invalid_argument.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace scenara::samplemaker {

// 0 asks for the shortest bytes. Another seed asks for any bytes that mean the same: packets of all
// kinds and lengths, also those that a good packer has no use for (runs of no pixels, colours that
// could be left out, long copies of what is near), and a last run that goes on beyond the picture.
struct PackingChoice {
    std::uint32_t seed = 0;
};

std::vector<std::byte> PackRle8(std::span<const std::uint8_t> pixels, PackingChoice choice = {});
std::vector<std::byte> PackRle5(std::span<const std::uint8_t> pixels, PackingChoice choice = {});
std::vector<std::byte> PackLz5(std::span<const std::uint8_t> pixels, PackingChoice choice = {});

}  // namespace scenara::samplemaker
