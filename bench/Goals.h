// SPDX-License-Identifier: MIT
//
// What the program wants to reach beside the peers, and what a run reached.
#pragma once

#include "support/Medians.h"

namespace scenara::bench {

// Prints, from medians of CPU time, a line per goal and set of pictures or scene: the ratio
// reached, what it must be, what it aims for. A goal whose rows did not run, or failed, says so.
// Behind drawing: what the scenes are.
void PrintGoals(const Medians& medians);

}  // namespace scenara::bench
