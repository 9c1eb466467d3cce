// SPDX-License-Identifier: MIT
#include "render/ElementPlacement.h"

#include <array>
#include <cmath>

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

// From the axis point to the picture's upper left corner.
Offset FromAxis(const StageFrame& frame, const SpriteEntry& sprite, double scale,
                const PlacedPicture& picture, bool additions) {
    Offset offset{frame.offsetX * scale, frame.offsetY * scale};
    const bool aboutAxisX = additions && picture.mirrored;
    offset.x -= aboutAxisX ? sprite.width - sprite.axisX * scale : sprite.axisX * scale;
    offset.y -= picture.flipped ? sprite.height - sprite.axisY * scale : sprite.axisY * scale;
    return offset;
}

}  // namespace

Long WholePixel(double position, Single elementScale) {
    return ToLong(elementScale == 1 ? position : std::floor(position + 0.5));
}

bool HasPictures(const StageModel& model, const BackgroundElement& element) {
    return element.kind == ElementKind::Animated ? ActionOf(model, element) != nullptr
                                                 : element.spriteIndex != -1;
}

std::optional<PlacedPicture> PlaceElement(const StageModel& model, const BackgroundElement& element,
                                          bool additions) {
    PlacedPicture picture;
    Offset offset = Displacement(element);
    if (element.kind == ElementKind::Dummy || !HasPictures(model, element)) {
        return std::nullopt;
    }
    if (element.kind == ElementKind::Animated) {
        const StageFrame& frame =
            RecordAt(ActionOf(model, element)->frames, element.frameIndex, "frame");
        picture.slot = frame.spriteIndex;
        if (picture.slot == -1) {
            return std::nullopt;
        }
        const SpriteEntry& sprite = RecordAt(model.Sprites, picture.slot, "sprite");
        picture.mirrored =
            frame.flip == "h" || (additions && (frame.flip == "hv" || frame.flip == "vh"));
        picture.flipped =
            additions && (frame.flip == "v" || frame.flip == "hv" || frame.flip == "vh");
        const Offset fromAxis =
            FromAxis(frame, sprite, static_cast<double>(model.ElementScale), picture, additions);
        offset.x += fromAxis.x;
        offset.y += fromAxis.y;
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
    picture.x = WholePixel(static_cast<double>(picture.drawX), model.ElementScale);
    picture.y = WholePixel(static_cast<double>(drawY), model.ElementScale);
    return picture;
}

}  // namespace scenara
