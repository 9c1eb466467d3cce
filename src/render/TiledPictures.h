// SPDX-License-Identifier: MIT
//
// The pictures that a stage's tiled elements may come to show: what the start-up prepares copies
// of.
#pragma once

#include <functional>

#include "render/ElementPlacement.h"
#include "stage/StageModel.h"

namespace scenara {

// Calls `visit` for each, with the element as it is while it shows it. Of an action every frame
// counts, for an animated element also those of the actions that controllers may choose. A picture
// may come several times. Of a stage that has more frames than any real one some are left out.
void ForEachTiledPicture(
    const StageModel& model, bool additions,
    const std::function<void(const BackgroundElement&, const ElementPicture&)>& visit);

// Whether the sprite's texture is its picture; one without a texture is drawn as a white rectangle.
[[nodiscard]] bool HasPixels(const SpriteEntry& sprite);

}  // namespace scenara
