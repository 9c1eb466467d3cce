// SPDX-License-Identifier: MIT
//
// RandomArchive: a small sprite archive of random pictures.
//
// Sprites have groups 0 to 3 and images 0 to 2, but not every pair is there. Pictures are 1 to 120
// pixels in each direction, a few as large as the view. Some are linked.
#pragma once

#include <cstddef>
#include <vector>

#include "samplemaker/Noise.h"

namespace scenara::test {

inline constexpr int kRandomGroups = 4;
inline constexpr int kRandomImages = 3;

[[nodiscard]] std::vector<std::byte> MakeRandomArchive(samplemaker::Random& random);

}  // namespace scenara::test
