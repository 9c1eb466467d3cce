// SPDX-License-Identifier: MIT
//
// Night Express: the roof of a train that runs past a city in the snow.
#pragma once

#include <cstddef>
#include <vector>

namespace scenara::samples {

// The stage's sprite archive.
std::vector<std::byte> NightExpressArchive();

// The stage's music, a tracker module.
std::vector<std::byte> NightExpressMusic();

}  // namespace scenara::samples
