// SPDX-License-Identifier: MIT
//
// Comparison: one stage, shown by the program on the headless machine and by a LiteralStage.
#pragma once

#include <string>

#include "frames/PaintedStage.h"
#include "literal/ProgramCanvas.h"
#include "literal/RandomStage.h"
#include "stage/ViewOptions.h"

namespace scenara::test {

// What the rules make of a stage after all of its frames.
[[nodiscard]] ShownCanvas LiteralPictureOf(const RandomStage& stage, const ViewOptions& view);

// The stage in the program, with its keys held and its pictures as they are loaded, before the
// first frame.
[[nodiscard]] ShotStage ProgramWith(const RandomStage& stage, const ViewOptions& view);

struct ComparedStage {
    std::string difference;  // as below
    bool inDoubt = false;    // from some frame on nothing was compared: too much is in doubt
};
[[nodiscard]] ComparedStage CompareStage(const RandomStage& stage, const ViewOptions& view);

// The first pixel that differs and is not in doubt, with the frame, both colours and the stage's
// text; empty when every frame for which the stage has keys is the same.
[[nodiscard]] std::string FirstDifference(const RandomStage& stage, const ViewOptions& view);

// The stage with every line of its definition left out that the difference does not need.
[[nodiscard]] RandomStage Shortest(RandomStage stage, const ViewOptions& view);

}  // namespace scenara::test
