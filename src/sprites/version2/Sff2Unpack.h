// SPDX-License-Identifier: MIT
//
// UnpackSff2: the inner loops of version 2 sprite archives, packed bytes to 32-bit pixels.
//
// A sprite's packed bytes stand behind the four bytes of its unpacked size, which are not part of
// them here. They make indices, each written as its word of `colors`; rows are not separated, and
// what they make may begin in one row and end in the next.
//
// RLE8, for 8 bits a pixel. One byte, or two:
//
//   b, upper two bits 0 and 1 (64 to 127)   the lower six bits say how many pixels, 0 to 63, the
//                                           next byte which colour; 0 takes it and makes nothing
//   any other b                             one pixel of colour b
//
// So colours 64 to 127 are found in runs only.
//
// RLE5, for 5 bits a pixel. A packet:
//
//   r            r + 1 pixels of the packet's first colour, 1 to 256
//   h            bit 7: a colour byte follows; bits 0 to 6: n, how many data bytes follow
//   c            the first colour, if bit 7 says so; else it is colour 0
//   n times d    (d >> 5) + 1 pixels, 1 to 8, of colour d & 31
//
// LZ5, for 5 bits a pixel. A control byte, then a packet for each of its bits, bit 0 first; behind
// the last packet of a picture there may be fewer than eight.
//
//   bit 0, run        b, b >> 5 not 0   b >> 5 pixels, 1 to 7, of colour b & 31
//                     b, c              else c + 8 pixels, 8 to 263, of colour b & 31
//   bit 1, copy       b, c, d           where b & 63 is 0, long: d + 3 pixels, 3 to 258, from as
//   far
//                                       back as the ten bits (b >> 6, c) say, plus 1: 1 to 1024
//                     b, c              else short: (b & 63) + 1 pixels, 2 to 64, from c + 1 back
//                     b                 every fourth short one, from s + 1 back
//
// s are the upper two bits of the last four short copies' b, those of the first one uppermost. The
// four are counted over the whole picture; long copies and runs do not count and change nothing.
// The pixel just written is 1 back, and a copy may go on into what it writes itself.
//
// Shapes: as with UnpackRuns (RunUnpack.h): `pixels` has room for at least `wanted` words (less
// room is taken as less wanted). Up to kUnpackSlack words behind the wanted ones may be written
// with pixels that mean nothing; with that many the fast loops run to the end. Nothing outside the
// two spans is read or written, for any input. RLE5 takes a colour byte above 31 as it is.
//
// Bad input: data that end before `wanted` pixels were made give `written` < `wanted`. A run
// without its colour (RLE8), or a packet that is not whole (LZ5), makes nothing; of RLE5 a packet's
// first run counts as soon as its r, h and c are there, and then each data byte. A run or copy that
// goes past the last wanted pixel is cut there. The time is in proportion to packed bytes and
// wanted pixels.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "base/Integers.h"
#include "sprites/RunUnpack.h"

namespace scenara {

enum class Sff2Packing : Byte { Rle8, Rle5, Lz5 };

struct Sff2Unpacked {
    std::size_t written = 0;  // pixels made, never more than wanted
    bool damaged = false;  // a copy from before the first pixel (LZ5); nothing was made from there
};

[[nodiscard]] Sff2Unpacked UnpackSff2(Sff2Packing packing, std::span<const std::byte> packed,
                                      const ColorTable& colors, std::span<std::uint32_t> pixels,
                                      std::size_t wanted);

}  // namespace scenara
