// SPDX-License-Identifier: MIT
//
// The loops of UnpackSff2 that are its own, for src/sprites/version2/Unpack*.cpp and Sff2Unpack.cpp
// only.
//
// Each takes what UnpackSff2 takes, with `wanted` no more than pixels.size(). It goes as far as it
// can with stores that need no look at the ends of the two spans, and then on, from wherever that
// was, packet by packet.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "sprites/version2/Sff2Unpack.h"

namespace scenara::unpack {

[[nodiscard]] Sff2Unpacked UnpackRle5(std::span<const std::byte> packed, const ColorTable& colors,
                                      std::span<std::uint32_t> pixels, std::size_t wanted);
[[nodiscard]] Sff2Unpacked UnpackLz5(std::span<const std::byte> packed, const ColorTable& colors,
                                     std::span<std::uint32_t> pixels, std::size_t wanted);

// How many of `size` places are the first of `length` ones.
[[nodiscard]] constexpr std::size_t PlacesFor(std::size_t length, std::size_t size) {
    return size < length ? 0 : size - length + 1;
}

}  // namespace scenara::unpack
