// SPDX-License-Identifier: MIT
//
// Tile patterns: small pictures that are tiled with gaps, or upon one another, as one picture that
// repeats.
//
// Copies that touch are drawn as one quad, for a texture repeats beyond its edges. Of copies that
// stand apart, or that hide parts of one another, the view may show tens of thousands. For these
// the start-up makes a picture of one repeat: as wide and high as it is from one copy to the next,
// transparent in the gaps, with what is seen where several copies lie upon one another. A quad of
// it is what all of the copies are.
//
// Patterns take kMostPatternBytes at most, the smallest ones first, which stand for the most
// copies. What has none is drawn copy by copy.
#pragma once

#include <cstddef>
#include <optional>

#include "platform/Direct3D8.h"
#include "platform/View.h"
#include "render/ElementPieces.h"
#include "render/ElementPlacement.h"
#include "render/Mixing.h"
#include "stage/StageModel.h"
#include "stage/ViewOptions.h"

namespace scenara {

inline constexpr std::size_t kMostPatternBytes = std::size_t{4} << 20U;

// The pattern that would stand for an element's copies, for one whose view may be full of them:
// none when there are few, or when a picture cannot stand for them. That is so when copies lie upon
// one another and are blended, each with the one before; or are masked and counted, for at the ends
// there are less. (Of masked ones that show through one another none is made, either.) Raises
// "Subscript out of range" when the picture's sprite is not in its table.
[[nodiscard]] std::optional<PatternKey> PatternFor(const StageModel& model,
                                                   const BackgroundElement& element,
                                                   const ElementPicture& picture, Mixing mixing,
                                                   const DrawOptions& options);

// None when it was not made.
[[nodiscard]] const TilePattern* FindPattern(const StageModel& model, const PatternKey& key);

// The patterns of all elements, for everything that they may show: a step of the stage's start-up,
// after PrepareElements. Raises nothing for want of memory.
void MakeTilePatterns(StageModel& model, const ViewOptions& options, const View& view,
                      TextureMaker& maker);

}  // namespace scenara
