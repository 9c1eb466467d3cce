// SPDX-License-Identifier: MIT
//
// RandomAlpha: alphas for the pictures of a stage, as newer archives have them: eight bits each.
#pragma once

#include <cstdint>

#include "stage/StageModel.h"

namespace scenara::test {

// Changes the textures of a stage that is loaded and not yet prepared. Of its pictures some stay as
// they are, some lose their palette, opaque, with holes or with random alphas, and of some each
// colour but the first gets an alpha of its own. The same seed does the same to the same stage.
void GiveAlpha(StageModel& model, std::uint32_t seed);

}  // namespace scenara::test
