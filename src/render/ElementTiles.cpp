// SPDX-License-Identifier: MIT
#include "render/ElementTiles.h"

#include "render/ModelLookup.h"

namespace scenara {
namespace {

std::int64_t StepOf(const StageModel& model, Long spacing, Integer size, Integer fileSize,
                    bool animated) {
    return model.ElementScale == 1
               ? TileStep(spacing, size, animated)
               : ScaledStep(TileStep(spacing, fileSize, animated), model.ElementScale, animated);
}

// Addition: animations that are given no distance stand side by side.
bool StandSideBySide(const BackgroundElement& element, bool additions) {
    return additions && element.kind == ElementKind::Animated && element.tileSpacingGiven == 0;
}

}  // namespace

ElementTiles::ElementTiles(const StageModel& model, const BackgroundElement& element,
                           const PlacedPicture& picture, bool additions) {
    const SpriteEntry& sprite = RecordAt(model.Sprites, picture.slot, "sprite");
    const bool animated = element.kind == ElementKind::Animated;
    const bool mirroredOnce = picture.mirrored && !additions;
    across = {mirroredOnce ? 0 : element.tileX,
              StepOf(model, element.tileSpacingX, sprite.width, sprite.fileWidth, animated),
              sprite.width, animated, additions};
    const bool once = mirroredOnce || element.kind == ElementKind::Parallax;
    down = {once ? 0 : element.tileY,
            StepOf(model, element.tileSpacingY, sprite.height, sprite.fileHeight, animated),
            sprite.height, animated, additions};
    if (StandSideBySide(element, additions)) {
        across.step = sprite.width;
        down.step = sprite.height;
    }
}

}  // namespace scenara
