// SPDX-License-Identifier: MIT
#include "render/ElementPlacement.h"

#include <array>
#include <cmath>

#include "render/ElementKind.h"
#include "render/ModelLookup.h"

namespace scenara {
namespace {

struct Offset {
    double x = 0;
    double y = 0;
};

// Swing and motion: of a linked element those of its parent.
Offset Displacement(const BackgroundElement& element) {
    const std::array<Single, 2>& swing =
        element.linkParent == -1 ? element.sinOffset : element.linkSin;
    return {static_cast<double>(swing[0]) + static_cast<double>(element.ctrlOffset[0]),
            static_cast<double>(swing[1]) + static_cast<double>(element.ctrlOffset[1])};
}

}  // namespace

bool HasPictures(const StageModel& model, const BackgroundElement& element) {
    return IsAnimated(element.type) ? ActionOf(model, element) != nullptr
                                    : element.spriteIndex != -1;
}

std::optional<PlacedPicture> PlaceElement(const StageModel& model,
                                          const BackgroundElement& element) {
    PlacedPicture picture;
    Offset offset = Displacement(element);
    if (IsDummy(element.type) || !HasPictures(model, element)) {
        return std::nullopt;
    }
    if (IsAnimated(element.type)) {
        const StageFrame& frame =
            RecordAt(ActionOf(model, element)->frames, element.frameIndex, "frame");
        picture.slot = frame.spriteIndex;
        if (picture.slot == -1) {
            return std::nullopt;
        }
        const SpriteEntry& sprite = RecordAt(model.Sprites, picture.slot, "sprite");
        offset.x += frame.offsetX - sprite.axisX;
        offset.y += frame.offsetY - sprite.axisY;
        picture.mirrored = frame.flip == "h";
    } else {
        picture.slot = element.spriteIndex;
        static_cast<void>(RecordAt(model.Sprites, picture.slot, "sprite"));
    }
    picture.drawX = static_cast<Single>(static_cast<double>(element.posX) + offset.x);
    const auto drawY = static_cast<Single>(static_cast<double>(element.posY) + offset.y);
    // Written so that what is no number is out of range, too.
    if (!(std::fabs(picture.drawX) <= kFarthest && std::fabs(drawY) <= kFarthest)) {
        return std::nullopt;
    }
    picture.x = ToLong(static_cast<double>(picture.drawX));
    picture.y = ToLong(static_cast<double>(drawY));
    return picture;
}

}  // namespace scenara
