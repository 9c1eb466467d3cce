// SPDX-License-Identifier: MIT
//
// What the program wants to reach beside the peers, and what a run reached.
#pragma once

#include <map>
#include <string>

namespace scenara::bench {

// Median CPU time in nanoseconds of every row that ran, by name.
using Medians = std::map<std::string, double>;

// Prints a line per goal and set of pictures or scene: the ratio reached, what it must be, what it
// aims for. A goal whose rows did not run, or failed, says so. Behind drawing: what the scenes are.
void PrintGoals(const Medians& medians);

}  // namespace scenara::bench
