// SPDX-License-Identifier: MIT
//
// Which pieces of its picture an element shows in this frame, and where: its copies, its rows,
// inside of its window. One place for everything that has to know, so that what is drawn is what
// the pointer finds.
//
// Pieces are as few as they can be with every pixel the same as if each copy were drawn by itself:
// copies that touch are one piece, of a solid copy only what later ones leave of it is shown, and
// where very many are in the view a pattern stands for them (TilePatterns.h). What is left is
// thinned out where too many copies lie upon one another.
#pragma once

#include "base/NotCopied.h"
#include "render/DrawOptions.h"
#include "render/ElementPlacement.h"
#include "render/Mixing.h"
#include "render/SpriteQuad.h"
#include "render/TurnedQuad.h"
#include "stage/ModelLookup.h"
#include "stage/StageModel.h"

namespace scenara {

struct CopiesAlongLines;

// Gets the pieces in the order in which they are drawn. Those that are drawn pixel for pixel are
// cut to the element's window; those that are scaled or turned are whole, and count as far as they
// lie inside of it.
class PieceVisitor : NotCopied {
public:
    virtual ~PieceVisitor() = default;

    // Of the element's picture.
    virtual void Show(const SpriteQuad& quad) = 0;

    // Of a pattern of it, which is drawn neither mirrored nor flipped, and without its transparent
    // pixels.
    virtual void ShowPattern(const TilePattern& pattern, const SpriteQuad& quad) = 0;

    // Addition: the whole of the picture, turned.
    virtual void ShowTurned(const TurnedQuad& quad) = 0;

    // Whether it takes very many copies side by side as lines: then ShowLines follows, as often as
    // these are to be seen. Where not, each copy is shown by itself.
    virtual bool TakeLines(const CopiesAlongLines& /*along*/) { return false; }

    // Lines of what it took, at the same columns: as many of the picture as of the canvas.
    virtual void ShowLines(const SpriteQuad& /*quad*/) {}
};

// False for a still picture that is nowhere near the view: cheap to know, for there may be
// thousands of these. Raises "Subscript out of range" when its sprite is not in its table.
[[nodiscard]] bool MayBeSeen(const StageModel& model, const BackgroundElement& element,
                             const DrawOptions& options);

// Parallax pictures are tiled across only. Plainly frames that are mirrored left to right are shown
// once, whatever the tiling. Nothing is allocated. Raises "Subscript out of range" when the
// picture's sprite is not in its table.
void ForEachPiece(const StageModel& model, const BackgroundElement& element,
                  const PlacedPicture& picture, const DrawOptions& options, Mixing mixing,
                  PieceVisitor& visitor);

}  // namespace scenara
