// SPDX-License-Identifier: MIT
//
// PlainUnpackSff2: what UnpackSff2 does as one writes it with care and without thought of vectors:
// run by run through the standard library, each cut at the last wanted pixel.
//
// It takes well-formed bytes only and needs no slack; the pixels have room for all that is wanted.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "sprites/version2/Sff2Unpack.h"

namespace scenara::bench {

// How many pixels were made.
std::size_t PlainUnpackSff2(Sff2Packing packing, std::span<const std::byte> packed,
                            const ColorTable& colors, std::span<std::uint32_t> pixels);

}  // namespace scenara::bench
