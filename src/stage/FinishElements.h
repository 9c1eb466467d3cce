// SPDX-License-Identifier: MIT
//
// What happens to a stage's elements when the whole definition has been read, and again when the
// sprites are there.
#pragma once

#include "platform/Messages.h"
#include "stage/StageModel.h"
#include "stage/ViewOptions.h"

namespace scenara {

inline constexpr MessageKind kMessageNegativeTileX{"negative-tile-x", Severity::Warning};
inline constexpr MessageKind kMessageNegativeTileY{"negative-tile-y", Severity::Warning};

// Animated elements are always masked, and their action number becomes the index of the action (-1
// when there is none of that number). Tile counts: above 999,999 across means without end (1);
// below 0 does, too, and is said.
//
// Addition: an element's blending comes from its trans and alpha, or is left to the frames.
void FinishElements(StageModel& model, Messages& messages, const ViewOptions& options);

// Finds the picture of every still element, and of every frame of every action, among the sprites:
// the first entry with its group and image, -1 when there is none. Animated elements have none of
// their own.
void ResolveSprites(StageModel& model);

}  // namespace scenara
