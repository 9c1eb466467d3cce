// SPDX-License-Identifier: MIT
//
// Comparison: one stage, shown by the program on the headless machine and by a LiteralStage.
#pragma once

#include <string>

#include "literal/RandomStage.h"
#include "stage/ViewOptions.h"

namespace scenara::test {

// The first pixel that differs, with the frame, both colours and the stage's text; empty when every
// frame for which the stage has keys is the same.
[[nodiscard]] std::string FirstDifference(const RandomStage& stage, const ViewOptions& view);

// The stage with every line of its definition left out that the difference does not need.
[[nodiscard]] RandomStage Shortest(RandomStage stage, const ViewOptions& view);

}  // namespace scenara::test
