// SPDX-License-Identifier: MIT
#include "stage/FinishElements.h"

#include <optional>

#include "stage/RecordNumbers.h"

namespace scenara {
namespace {

constexpr Long kMostTiles = 999'999;

void FinishBlending(BackgroundElement& element, bool belowVersion1) {
    std::optional<Integer> destination;
    if (element.alphaDestinationGiven != 0) {
        destination = element.alphaDestination;
    }
    element.blending = ElementBlending(element.trans, element.alphaSource, destination);
    element.framesBlend = FramesBlend(element.trans, belowVersion1) ? Byte{1} : Byte{0};
}

// Addition: what a distance that was given for one axis only, or as 0, means. `type` may have come
// before or after it.
void FinishSpacing(BackgroundElement& element, bool belowVersion1) {
    constexpr Byte kAcross = 1;
    constexpr Byte kDown = 2;
    if (element.tileSpacingGiven == kAcross) {
        element.tileSpacingY = belowVersion1 ? element.tileSpacingX : 0;
    } else if (element.tileSpacingGiven == kDown) {
        element.tileSpacingX = 0;
    }
    if (element.tileSpacingGiven == 0 || element.type != "anim" || belowVersion1) {
        return;
    }
    element.tileX = element.tileSpacingX == 0 ? 0 : element.tileX;
    element.tileY = element.tileSpacingY == 0 ? 0 : element.tileY;
}

// Addition: an "actionno" counts for others, too, but a still picture goes before it.
bool TakesAction(const BackgroundElement& element, bool additions) {
    if (element.type == "anim") {
        return true;
    }
    if (!additions || (element.picturesGiven & kGivenAction) == 0) {
        return false;
    }
    return element.type == "parallax" ||
           (element.type == "normal" && (element.picturesGiven & kGivenSprite) == 0);
}

}  // namespace

void FinishElements(StageModel& model, Messages& messages, const ViewOptions& options) {
    const ActionNumbers actions(model);
    for (BackgroundElement& element : model.Elements) {
        element.deltaRead = {element.deltaX, element.deltaY};
        const bool takesAction = TakesAction(element, options.Additions);
        if (takesAction) {
            element.mask = 1;
            element.spriteIndex = kPicturesOfAction;
        }
        if (element.tileX > kMostTiles) {
            element.tileX = 1;
        }
        if (takesAction) {
            element.actionIndex = actions.Find(element.actionIndex);
        }
        if (element.tileX < 0) {
            element.tileX = 1;
            messages.MsgBox(kMessageNegativeTileX, "TileX < 0");
        }
        if (element.tileY < 0) {
            element.tileY = 1;
            messages.MsgBox(kMessageNegativeTileY, "TileY < 0");
        }
        if (options.Additions) {
            FinishBlending(element, model.MugenVersion < 1);
            FinishSpacing(element, model.MugenVersion < 1);
        }
    }
}

void ResolveSprites(StageModel& model) {
    const SpriteNumbers sprites(model);
    for (BackgroundElement& element : model.Elements) {
        if (element.type == "anim") {
            element.spriteIndex = -1;
        } else if (element.spriteIndex != kPicturesOfAction) {
            element.spriteIndex = sprites.Find(element.spriteGroup, element.spriteImage);
        }
    }
    // Of every action, since a controller may make an element show any.
    for (StageAction& action : model.Actions) {
        for (StageFrame& frame : action.frames) {
            frame.spriteIndex = sprites.Find(frame.group, frame.image);
        }
    }
}

}  // namespace scenara
