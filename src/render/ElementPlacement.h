// SPDX-License-Identifier: MIT
//
// Where an element's picture stands in this frame, and which picture it is.
#pragma once

#include <array>
#include <optional>

#include "render/ModelLookup.h"
#include "stage/StageModel.h"

namespace scenara {

struct PlacedPicture {
    Integer slot = -1;      // into Sprites
    bool mirrored = false;  // left to right
    bool flipped = false;   // addition: top to bottom
    Single x = 0;           // upper left corner, view pixels; WholePixel rounds it
    Single y = 0;
    double axisX = 0;  // where the element's axis point stands, view pixels
    double axisY = 0;
};

// Positions beyond this are nowhere near the view, and no sum with a size leaves 32 bits.
inline constexpr Single kFarthest = 1073741824.0F;

// A position in whole pixels: ties go to the even one. Addition: in a stage that was scaled, where
// elements stand at halves all the time, they go to the right and down, so that neighbours stay
// together. `position` is within kFarthest.
[[nodiscard]] Long WholePixel(double position, Single elementScale);

// Swing and motion: of a linked element those of its parent.
struct Displacement {
    explicit Displacement(const BackgroundElement& element) {
        const std::array<Single, 2>& swing =
            element.linkParent == -1 ? element.sinOffset : element.linkSin;
        x = static_cast<double>(swing[0]) + static_cast<double>(element.ctrlOffset[0]);
        y = static_cast<double>(swing[1]) + static_cast<double>(element.ctrlOffset[1]);
    }

    double x;
    double y;
};

// Nothing for an element that shows no picture: a dummy, a blank frame, one whose sprite is not in
// the archive, or one that has drifted beyond kFarthest.
//
// Addition: a mirrored frame is mirrored about its axis, so that the axis stays where it was, and
// upside down, too, where the flip says so. Without additions it stands where the frame would stand
// unmirrored, and only left and right change sides.
//
// Raises "Subscript out of range" when the element's action, frame or sprite is not in its table.
[[nodiscard]] std::optional<PlacedPicture> PlaceElement(const StageModel& model,
                                                        const BackgroundElement& element,
                                                        bool additions);

// Whether there is anything at all that the element could show. Without, it is skipped, unless it
// is a dummy: a still one without its sprite, an animated one without an action. (A blank frame of
// an action is something.)
[[nodiscard]] inline bool HasPictures(const StageModel& model, const BackgroundElement& element) {
    return ShowsFrames(element) ? ActionOf(model, element) != nullptr : element.spriteIndex != -1;
}

}  // namespace scenara
