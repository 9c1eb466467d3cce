// SPDX-License-Identifier: MIT
//
// The moments of the Lantern Keeper. All pictures are of one size, with the axis between the feet.
#pragma once

#include "ArchiveMaker.h"

namespace scenara::samples {

inline constexpr int kKeeperAxisX = 34;
inline constexpr int kKeeperAxisY = 95;

// Breathing in and out, with the lantern swaying.
Pictures DrawKeeperStanding();
// Seen from the front, the lantern still where it was.
Pictures DrawKeeperTurning();
// Two steps. A foot on the ground goes back by 6 pixels from each picture to the next.
Pictures DrawKeeperWalking();

}  // namespace scenara::samples
