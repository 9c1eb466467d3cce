// SPDX-License-Identifier: MIT
#include "render/ElementPlacement.h"

#include <cmath>

#include "render/ModelLookup.h"

namespace scenara {
namespace {

struct Offset {
    double x = 0;
    double y = 0;
};

// From the axis point to the picture's upper left corner.
Offset FromAxis(const StageFrame& frame, const SpriteEntry& sprite, double scale,
                const PlacedPicture& picture, bool additions) {
    Offset offset{(frame.offsetX + static_cast<double>(frame.offsetFraction[0])) * scale,
                  (frame.offsetY + static_cast<double>(frame.offsetFraction[1])) * scale};
    const bool aboutAxisX = additions && picture.mirrored;
    offset.x -= aboutAxisX ? sprite.width - sprite.axisX * scale : sprite.axisX * scale;
    offset.y -= picture.flipped ? sprite.height - sprite.axisY * scale : sprite.axisY * scale;
    return offset;
}

}  // namespace

Long WholePixel(double position, Single elementScale) {
    return ToLong(elementScale == 1 ? position : std::floor(position + 0.5));
}

std::optional<PlacedPicture> PlaceElement(const StageModel& model, const BackgroundElement& element,
                                          bool additions) {
    if (element.kind == ElementKind::Dummy || !HasPictures(model, element)) {
        return std::nullopt;
    }
    PlacedPicture picture;
    Displacement offset(element);
    const auto scale = static_cast<double>(model.ElementScale);
    Offset axis;
    if (ShowsFrames(element)) {
        const StageFrame& frame =
            RecordAt(ActionOf(model, element)->frames, element.frameIndex, "frame");
        picture.slot = frame.spriteIndex;
        if (picture.slot == -1) {
            return std::nullopt;
        }
        const SpriteEntry& sprite = RecordAt(model.Sprites, picture.slot, "sprite");
        picture.mirrored =
            frame.flips == FrameFlip::Across || (additions && frame.flips == FrameFlip::Both);
        picture.flipped =
            additions && (frame.flips == FrameFlip::Down || frame.flips == FrameFlip::Both);
        const Offset fromAxis = FromAxis(frame, sprite, scale, picture, additions);
        offset.x += fromAxis.x;
        offset.y += fromAxis.y;
        axis = {-fromAxis.x, -fromAxis.y};
    } else {
        picture.slot = element.spriteIndex;
        const SpriteEntry& sprite = RecordAt(model.Sprites, picture.slot, "sprite");
        axis = {sprite.axisX * scale, sprite.axisY * scale};
    }
    picture.x = static_cast<Single>(static_cast<double>(element.posX) + offset.x);
    picture.y = static_cast<Single>(static_cast<double>(element.posY) + offset.y);
    picture.axisX = static_cast<double>(picture.x) + axis.x;
    picture.axisY = static_cast<double>(picture.y) + axis.y;
    // Written so that what is no number is out of range, too.
    if (!(std::fabs(picture.x) <= kFarthest && std::fabs(picture.y) <= kFarthest)) {
        return std::nullopt;
    }
    return picture;
}

}  // namespace scenara
