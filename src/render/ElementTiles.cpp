// SPDX-License-Identifier: MIT
#include "render/ElementTiles.h"

#include "stage/ModelLookup.h"

namespace scenara {
namespace {

// Addition: animations that are given no distance stand side by side.
bool StandSideBySide(const BackgroundElement& element, bool additions) {
    return additions && element.kind == ElementKind::Animated && element.tileSpacingGiven == 0;
}

}  // namespace

ElementTiles::ElementTiles(const StageModel& model, const BackgroundElement& element,
                           const ElementPicture& picture, bool additions) {
    const SpriteEntry& sprite = RecordAt(model.Sprites, picture.slot, "sprite");
    const bool animated = element.kind == ElementKind::Animated;
    const bool mirroredOnce = picture.mirrored && !additions;
    across = {mirroredOnce ? 0 : element.tileX,
              TileStep(element.tileSpacingX, sprite.width, animated), sprite.width, animated,
              additions};
    const bool once = mirroredOnce || element.kind == ElementKind::Parallax;
    down = {once ? 0 : element.tileY, TileStep(element.tileSpacingY, sprite.height, animated),
            sprite.height, animated, additions};
    if (StandSideBySide(element, additions)) {
        across.step = sprite.width;
        down.step = sprite.height;
    }
}

}  // namespace scenara
