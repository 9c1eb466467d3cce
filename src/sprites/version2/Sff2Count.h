// SPDX-License-Identifier: MIT
//
// CountSff2: how many pixels packed data make, for data that claim very many: memory is taken for
// them only if they can fill it.
#pragma once

#include <cstddef>
#include <span>

#include "sprites/version2/Sff2Unpack.h"

namespace scenara {

// What UnpackSff2 would answer; nothing is unpacked.
[[nodiscard]] Sff2Unpacked CountSff2(Sff2Packing packing, std::span<const std::byte> packed,
                                     std::size_t wanted);

}  // namespace scenara
