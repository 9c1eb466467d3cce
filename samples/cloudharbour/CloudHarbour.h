// SPDX-License-Identifier: MIT
//
// Cloud Harbour: a landing stage for airships above a sea of clouds, at daybreak; wide, and drawn
// to the pixel for a view of 1280 x 720.
#pragma once

#include <cstddef>
#include <vector>

namespace scenara::samples {

// The stage's sprite archive.
std::vector<std::byte> CloudHarbourArchive();

// The stage's music, a MIDI file.
std::vector<std::byte> CloudHarbourMusic();

}  // namespace scenara::samples
