// SPDX-License-Identifier: MIT
//
// Which pieces of its picture an element shows in this frame, and where: its copies, its rows,
// inside of its window. One place for everything that has to know, so that what is drawn is what
// the pointer finds.
#pragma once

#include "render/ElementPlacement.h"
#include "render/SpriteQuad.h"
#include "stage/StageModel.h"

namespace scenara {

struct DrawOptions {
    bool additions = false;
    bool deform = false;  // with additions: parallax pictures are stretched
};

// Gets the pieces in the order in which they are drawn.
class PieceVisitor {
public:
    PieceVisitor() = default;
    PieceVisitor(const PieceVisitor&) = delete;
    PieceVisitor& operator=(const PieceVisitor&) = delete;
    virtual ~PieceVisitor() = default;

    virtual void Show(const SpriteQuad& quad) = 0;
};

// Frames that are mirrored left to right are shown once, whatever the tiling; parallax pictures are
// tiled across only. Nothing is allocated. Raises "Subscript out of range" when the picture's
// sprite is not in its table.
void ForEachPiece(const StageModel& model, const BackgroundElement& element,
                  const PlacedPicture& picture, const DrawOptions& options, PieceVisitor& visitor);

}  // namespace scenara
