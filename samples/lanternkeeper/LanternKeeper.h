// SPDX-License-Identifier: MIT
//
// The Lantern Keeper: a figure that walks over the bundled stages, with a straw hat, a short coat
// and a paper lantern on a stick.
#pragma once

#include <cstddef>
#include <vector>

namespace scenara::samples {

// The sprite archive: standing (group 0), turning (5) and walking (20).
std::vector<std::byte> LanternKeeperArchive();

// The colours as a palette file, the last one first. All pictures are in those of coat 1.
std::vector<std::byte> LanternKeeperColours(int coat);

}  // namespace scenara::samples
