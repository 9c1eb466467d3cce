// SPDX-License-Identifier: MIT
//
// UnpackPcx: the inner loop of the PCX decoder, run-length bytes to 32-bit pixels.
//
// The published run-length scheme of 8-bit PCX pictures: a byte of 192 or more is a repeat count
// (value - 192, so 0 to 63) for the byte that follows it; any other byte is one pixel. RunUnpack.h
// says the rest: shapes, and what is made of bad input.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "sprites/RunUnpack.h"

namespace scenara {

[[nodiscard]] inline UnpackResult UnpackPcx(UnpackPath path, std::span<const std::byte> packed,
                                            const ColorTable& colors,
                                            std::span<std::uint32_t> pixels, std::size_t wanted) {
    return UnpackRuns(RunMark::Pcx, path, packed, colors, pixels, wanted);
}

}  // namespace scenara
