// SPDX-License-Identifier: MIT
//
// Mill Fair: a fair at dusk on the quay across from a mill, made of what MUGEN 1.1 added to stages:
// a camera that zooms, pictures that scale and turn, frames that go over into one another.
#pragma once

#include <cstddef>
#include <vector>

namespace scenara::samples {

// The stage's sprite archive, of version 2.01.
std::vector<std::byte> MillFairArchive();

// The stage's music, a MIDI file.
std::vector<std::byte> MillFairMusic();

}  // namespace scenara::samples
