// SPDX-License-Identifier: MIT
//
// PngSource: the bytes of one PNG in the order in which they are read, and its header.
//
//   offset size  all numbers have their highest byte first
//        0    8  signature
//        8    8  length of the header's chunk, 13, and its name, "IHDR"
//       16    8  width, height
//       24    1  bits per sample: 1, 2, 4, 8, 16
//       25    1  0 grey, 2 RGB, 3 palette, 4 grey with alpha, 6 RGBA
//       26    3  packing 0, filter 0, interlaced 0 or 1
//       29    4  checksum of the header, from its name on
//       33    -  the other chunks
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

#include "platform/PngPictures.h"

namespace scenara {

struct PngHead {
    std::int32_t width = 0;
    std::int32_t height = 0;
    std::uint8_t colorType = 0;
    bool interlaced = false;
};

class PngSource {
public:
    // Raises RunTimeError for what does not begin as a PNG does, and for sizes beyond
    // kMostPngPixels; the rest of the header is not judged.
    //
    // A palette picture of which only the indices are wanted is given out as a grey one. Its
    // samples are the same, and nobody asks it for a palette.
    PngSource(std::span<const std::byte> bytes, PngWanted wanted);

    [[nodiscard]] const PngHead& Head() const { return head_; }
    [[nodiscard]] std::size_t Size() const { return bytes_.size(); }
    [[nodiscard]] std::size_t Left() const { return bytes_.size() - position_; }

    // Fills `out` with the next bytes; false, and nothing is taken, when there are fewer.
    [[nodiscard]] bool Read(std::span<std::byte> out);

private:
    static constexpr std::size_t kStartSize = 33;

    void CallItGrey();

    std::span<const std::byte> bytes_;
    std::array<std::byte, kStartSize> start_{};  // what is given out instead of the first bytes
    std::size_t position_ = 0;
    PngHead head_;
};

}  // namespace scenara
