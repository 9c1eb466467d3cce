// SPDX-License-Identifier: MIT
//
// Where an element's picture stands in this frame, and which picture it is.
//
// Plainly elements have positions that the camera, drift and controllers move step by step.
// Addition: they are placed anew in each frame, from start, motion, swing and camera.
#pragma once

#include <array>
#include <optional>

#include "render/DrawOptions.h"
#include "render/TurnedQuad.h"
#include "stage/ModelLookup.h"
#include "stage/StageModel.h"

namespace scenara {

// The picture that an element shows now, wherever it stands.
struct ElementPicture {
    Integer slot = -1;      // into Sprites
    bool mirrored = false;  // left to right
    bool flipped = false;   // addition: top to bottom
    // From the axis point to its upper left corner, in its own pixels.
    double fromAxisX = 0;
    double fromAxisY = 0;

    // Additions: what a frame has of its own.
    double offsetX = 0;  // as much of fromAxis is no part of the picture: its own axis is there
    double offsetY = 0;
    double frameScaleX = 1;
    double frameScaleY = 1;
    double angle = 0;  // degrees, counter-clockwise
};

struct PlacedPicture : ElementPicture {
    double x = 0;  // upper left corner, canvas pixels; WholePixel rounds it
    double y = 0;
    double axisX = 0;  // where the element's axis point stands, canvas pixels
    double axisY = 0;
    double scaleX = 1;  // canvas pixels to a pixel of the picture, above 0
    double scaleY = 1;
    double stepScaleX = 1;  // and to one of the distance from tile to tile, in which a frame's own
    double stepScaleY = 1;  // scale has no part
    Turn turn;              // about its own axis; its place is that of the picture before
    bool turnedOver = false;    // its scale is below 0 down, beside what the frame is
    bool hasRowWidths = false;  // addition: scaleX is not that of its rows
};

// Positions beyond this are nowhere near the view, and no sum with a size leaves 32 bits: scales at
// which a picture would be larger are lowered.
inline constexpr Single kFarthest = 1073741824.0F;
inline constexpr double kLargest = 1073741823.0;

// A position in whole pixels. Plainly ties go to the even one; addition: to the right and down, so
// that neighbours stay together. `position` is within kFarthest.
[[nodiscard]] Long WholePixel(double position, bool additions);

// Nothing for an element that shows no picture: a dummy, a blank frame, one whose sprite is not in
// the archive.
//
// Addition: a mirrored frame is mirrored about its axis, so that the axis stays where it was, and
// upside down, too, where the flip says so; so is a picture whose scale, the stage's included, is
// below 0, and its offset with it. A frame's own scale counts for its offset, too. Its angle turns
// it about its own axis, after all that; parallax pictures have none. Without additions it stands
// where the frame would stand unmirrored, and only left and right change sides.
//
// Raises "Subscript out of range" when the element's action, frame or sprite is not in its table.
[[nodiscard]] std::optional<ElementPicture> PictureOf(const StageModel& model,
                                                      const BackgroundElement& element,
                                                      bool additions);

// Nothing, too, for one that has drifted beyond kFarthest, or whose scale is 0.
[[nodiscard]] std::optional<PlacedPicture> PlaceElement(const StageModel& model,
                                                        const BackgroundElement& element,
                                                        const DrawOptions& options);

// Whether a pixel of it is one of the canvas, and of the distance between its tiles as well.
[[nodiscard]] inline bool IsPixelForPixel(const PlacedPicture& picture) {
    return picture.scaleX == 1 && picture.scaleY == 1 && picture.stepScaleX == 1 &&
           picture.stepScaleY == 1 && !picture.turn.Turns();
}

// Addition: whether it is mixed from its own pixels, which pictures at their own size are not.
[[nodiscard]] inline bool IsMixed(const PlacedPicture& picture, const DrawOptions& options) {
    return options.smooth && (picture.scaleX != 1 || picture.scaleY != 1 || picture.hasRowWidths ||
                              picture.turn.Turns());
}

// Whether there is anything at all that the element could show. Without, it is skipped, unless it
// is a dummy: a still one without its sprite, an animated one without an action. (A blank frame of
// an action is something.)
[[nodiscard]] inline bool HasPictures(const StageModel& model, const BackgroundElement& element) {
    return ShowsFrames(element) ? ActionOf(model, element) != nullptr : element.spriteIndex != -1;
}

}  // namespace scenara
