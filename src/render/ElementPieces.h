// SPDX-License-Identifier: MIT
//
// Which pieces of its picture an element shows in this frame, and where: its copies, its rows,
// inside of its window. One place for everything that has to know, so that what is drawn is what
// the pointer finds.
//
// Pieces are as few as they can be with every pixel the same as if each copy were drawn by itself:
// copies that touch are one piece, of a solid copy only what later ones leave of it is shown, and
// where very many are in the view a pattern stands for them (TilePatterns.h). What is left is
// thinned out where more than kDeepest copies lie upon one another.
#pragma once

#include "base/NotCopied.h"
#include "platform/View.h"
#include "render/ElementPlacement.h"
#include "render/Mixing.h"
#include "render/ModelLookup.h"
#include "render/SpriteQuad.h"
#include "stage/StageModel.h"

namespace scenara {

struct DrawOptions {
    bool additions = false;
    View view = {};
};

// Gets the pieces in the order in which they are drawn.
class PieceVisitor : NotCopied {
public:
    virtual ~PieceVisitor() = default;

    // Of the element's picture.
    virtual void Show(const SpriteQuad& quad) = 0;

    // Of a pattern of it, which is drawn neither mirrored nor flipped, and without its transparent
    // pixels.
    virtual void ShowPattern(const TilePattern& pattern, const SpriteQuad& quad) = 0;
};

// False for a still picture that is nowhere near the view: cheap to know, for there may be
// thousands of these. Raises "Subscript out of range" when its sprite is not in its table.
[[nodiscard]] inline bool MayBeSeen(const StageModel& model, const BackgroundElement& element,
                                    const View& view) {
    if (element.kind != ElementKind::Still || ShowsFrames(element) || element.tileX != 0 ||
        element.tileY != 0) {
        return true;
    }
    const SpriteEntry& sprite = RecordAt(model.Sprites, element.spriteIndex, "sprite");
    const Displacement displacement(element);
    // Rounding moves a picture by less than a pixel.
    const auto touches = [](double position, Integer size, Long length) {
        return position < length + 1 && position + size > -1;
    };
    return touches(static_cast<double>(element.posX) + displacement.x, sprite.width, view.width) &&
           touches(static_cast<double>(element.posY) + displacement.y, sprite.height, view.height);
}

// Parallax pictures are tiled across only. Plainly frames that are mirrored left to right are shown
// once, whatever the tiling. Nothing is allocated. Raises "Subscript out of range" when the
// picture's sprite is not in its table.
void ForEachPiece(const StageModel& model, const BackgroundElement& element,
                  const PlacedPicture& picture, const DrawOptions& options, Mixing mixing,
                  PieceVisitor& visitor);

}  // namespace scenara
