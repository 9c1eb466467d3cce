// SPDX-License-Identifier: MIT
//
// Lantern Pier: a pier at dusk, the first stage that a newcomer sees.
#pragma once

#include <cstddef>
#include <vector>

namespace scenara::samples {

// The stage's sprite archive.
std::vector<std::byte> LanternPierArchive();

// The stage's music, a MIDI file.
std::vector<std::byte> LanternPierMusic();

}  // namespace scenara::samples
