// SPDX-License-Identifier: MIT
#include "render/ElementPlacement.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "render/ElementScale.h"
#include "render/FrameValues.h"
#include "render/ParallaxRows.h"
#include "stage/ElementStart.h"
#include "stage/ModelLookup.h"
#include "stage/StageSpace.h"

namespace scenara {
namespace {

// Swing and motion, plainly: of a linked element those of its parent.
StartPlace PlainDisplacement(const BackgroundElement& element) {
    const std::array<Single, 2>& swing =
        element.linkParent == -1 ? element.sinOffset : element.linkSin;
    return {static_cast<double>(swing[0]) + static_cast<double>(element.ctrlOffset[0]),
            static_cast<double>(swing[1]) + static_cast<double>(element.ctrlOffset[1])};
}

// A frame's flips. Plainly only one across counts.
void Flip(ElementPicture& picture, FrameFlip flips, bool additions) {
    picture.mirrored = flips == FrameFlip::Across || (additions && flips == FrameFlip::Both);
    picture.flipped = additions && (flips == FrameFlip::Down || flips == FrameFlip::Both);
}

// Where the axis is in a picture that is drawn mirrored about it.
double AxisOf(Integer axis, Integer size, bool mirrored) {
    return mirrored ? size - axis : axis;
}

// Frames keep the sign of their offset when they are mirrored. Plainly they are mirrored where they
// stand.
void SetFrame(ElementPicture& picture, const FrameValues& values, FrameFlip flips,
              const SpriteEntry& sprite, bool additions) {
    Flip(picture, flips, additions);
    picture.offsetX = values.offsetX;
    picture.offsetY = values.offsetY;
    picture.fromAxisX =
        values.offsetX - AxisOf(sprite.axisX, sprite.width, additions && picture.mirrored);
    picture.fromAxisY = values.offsetY - AxisOf(sprite.axisY, sprite.height, picture.flipped);
    picture.frameScaleX = values.scaleX;
    picture.frameScaleY = values.scaleY;
    picture.angle = values.angle;
}

// False: it shows none.
bool SetPicture(ElementPicture& picture, const StageModel& model, const BackgroundElement& element,
                bool additions) {
    if (element.kind == ElementKind::Dummy || !HasPictures(model, element)) {
        return false;
    }
    if (!ShowsFrames(element)) {
        picture.slot = element.spriteIndex;
        const SpriteEntry& sprite = RecordAt(model.Sprites, picture.slot, "sprite");
        picture.fromAxisX = -sprite.axisX;
        picture.fromAxisY = -sprite.axisY;
        return true;
    }
    const StageAction& action = *ActionOf(model, element);
    const StageFrame& frame = RecordAt(action.frames, element.frameIndex, "frame");
    picture.slot = frame.spriteIndex;
    if (picture.slot == -1) {
        return false;
    }
    SetFrame(picture, FrameValuesOf(action, element, additions), frame.flips,
             RecordAt(model.Sprites, picture.slot, "sprite"), additions);
    return true;
}

// A place that is not a number is not near: so it must be compared this way round.
bool IsNear(const PlacedPicture& picture) {
    const auto most = static_cast<double>(kFarthest);
    return std::fabs(picture.x) <= most && std::fabs(picture.y) <= most;
}

// A still picture's position is that of its corner.
void PlacePlainly(PlacedPicture& picture, const BackgroundElement& element) {
    const StartPlace offset = PlainDisplacement(element);
    const bool frames = ShowsFrames(element);
    const double x = frames ? offset.x + picture.fromAxisX : offset.x;
    const double y = frames ? offset.y + picture.fromAxisY : offset.y;
    picture.x = static_cast<double>(static_cast<Single>(static_cast<double>(element.posX) + x));
    picture.y = static_cast<double>(static_cast<Single>(static_cast<double>(element.posY) + y));
    picture.axisX = picture.x - picture.fromAxisX;
    picture.axisY = picture.y - picture.fromAxisY;
}

// Along one axis. A scale below 0 mirrors the picture about its axis, offset and all.
struct CanvasAxis {
    double place;      // of the axis point, canvas pixels
    double stepScale;  // of the distance between tiles
    double frameScale;

    [[nodiscard]] bool Mirrors() const { return stepScale * frameScale < 0; }
};

void Mirror(double& fromAxis, double& offset, Integer size, bool& mirrored) {
    fromAxis = -fromAxis - size;
    offset = -offset;
    mirrored = !mirrored;
}

// At which a picture is no larger than sums can hold.
double KeptSmall(double scale, Integer size) {
    return std::min(std::fabs(scale), kLargest / std::max<int>(size, 1));
}

void PlaceOnCanvas(PlacedPicture& picture, const StageModel& model,
                   const BackgroundElement& element, const DrawOptions& options) {
    const StageSpace space = SpaceOf(model);
    const StartPlace start = StartOf(model, element);
    const StartPlace moved = DisplacementOf(model, element);
    const double cameraX = -static_cast<double>(options.camera.x);
    const auto cameraY = static_cast<double>(options.camera.y);
    const double detail = options.view.detail;
    const ElementScale own = ScaleOf(element, space, cameraX, cameraY);
    const ElementScale zoom = ZoomOf(element, options.zoom);
    const double x = detail * (options.view.Centre() +
                               space.hires * ((start.x + moved.x) * space.scaleX -
                                              cameraX * static_cast<double>(element.deltaX)));
    const double y = detail * (space.hires * ((start.y + moved.y) * space.scaleY -
                                              cameraY * static_cast<double>(element.deltaY)));
    const CanvasAxis across{options.Across(zoom.x).Place(x),
                            detail * space.hires * space.scaleX * zoom.x * own.x,
                            picture.frameScaleX};
    const CanvasAxis down{options.Down(zoom.y).Place(y),
                          detail * space.hires * space.scaleY * zoom.y * own.y,
                          picture.frameScaleY};
    const SpriteEntry& sprite = RecordAt(model.Sprites, picture.slot, "sprite");
    if (across.Mirrors()) {
        Mirror(picture.fromAxisX, picture.offsetX, sprite.width, picture.mirrored);
    }
    if (down.Mirrors()) {
        Mirror(picture.fromAxisY, picture.offsetY, sprite.height, picture.flipped);
        picture.turnedOver = true;
    }
    picture.hasRowWidths = HasRowWidths(element);
    picture.stepScaleX = KeptSmall(across.stepScale, sprite.width);
    picture.stepScaleY = KeptSmall(down.stepScale, sprite.height);
    picture.scaleX = KeptSmall(picture.stepScaleX * across.frameScale, sprite.width);
    picture.scaleY = KeptSmall(picture.stepScaleY * down.frameScale, sprite.height);
    if (element.kind != ElementKind::Parallax) {
        picture.turn = Turn::By(picture.angle);
    }
    picture.axisX = across.place;
    picture.axisY = down.place;
    picture.x = across.place + picture.fromAxisX * picture.scaleX;
    picture.y = down.place + picture.fromAxisY * picture.scaleY;
}

}  // namespace

Long WholePixel(double position, bool additions) {
    return ToLong(additions ? std::floor(position + 0.5) : position);
}

std::optional<ElementPicture> PictureOf(const StageModel& model, const BackgroundElement& element,
                                        bool additions) {
    std::optional<ElementPicture> picture(std::in_place);
    if (!SetPicture(*picture, model, element, additions)) {
        picture.reset();
    }
    return picture;
}

// The result is filled in place. A processor waits when it copies numbers that it has just written,
// and a frame may place thousands of elements that are not seen.
std::optional<PlacedPicture> PlaceElement(const StageModel& model, const BackgroundElement& element,
                                          const DrawOptions& options) {
    std::optional<PlacedPicture> placed(std::in_place);
    PlacedPicture& picture = *placed;
    if (!SetPicture(picture, model, element, options.additions)) {
        placed.reset();
        return placed;
    }
    if (options.additions) {
        PlaceOnCanvas(picture, model, element, options);
    } else {
        PlacePlainly(picture, element);
    }
    if (!IsNear(picture) || picture.scaleX == 0 || picture.scaleY == 0) {
        placed.reset();
    }
    return placed;
}

}  // namespace scenara
