// SPDX-License-Identifier: MIT
//
// PaletteBytes: a palette as files have it, 256 times red, green, blue.
#pragma once

#include <array>
#include <cstddef>

namespace scenara {

inline constexpr std::size_t kPaletteSize = 768;

using PaletteBytes = std::array<std::byte, kPaletteSize>;

}  // namespace scenara
