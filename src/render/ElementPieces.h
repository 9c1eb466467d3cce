// SPDX-License-Identifier: MIT
//
// Which pieces of its picture an element shows in this frame, and where: its copies, its rows,
// inside of its window. One place for everything that has to know, so that what is drawn is what
// the pointer finds.
#pragma once

#include <algorithm>
#include <optional>

#include "render/ElementPlacement.h"
#include "render/ElementWindow.h"
#include "render/ModelLookup.h"
#include "render/ParallaxRows.h"
#include "render/Tiling.h"
#include "stage/StageModel.h"

namespace scenara {

struct DrawOptions {
    bool additions = false;
    bool deform = false;  // with additions: parallax pictures are stretched
};

// Hands the pieces to `show`, a callable that takes a SpriteQuad, in the order in which they are
// drawn. A template, because this is the inside of a frame: nothing is allocated and nothing called
// through a pointer.
template <typename Show>
class ElementPieces {
public:
    // All of it outlives the pieces. Raises "Subscript out of range" when the picture's sprite is
    // not in its table.
    ElementPieces(const StageModel& model, const BackgroundElement& element,
                  const PlacedPicture& picture, const DrawOptions& options, Show& show)
        : model_(model),
          element_(element),
          picture_(picture),
          options_(options),
          show_(show),
          sprite_(RecordAt(model.Sprites, picture.slot, "sprite")),
          window_(ElementWindow::Of(element, model.CamX, model.CamY)),
          animated_(element.kind == ElementKind::Animated) {}

    // Frames that are mirrored left to right are shown once, whatever the tiling; parallax pictures
    // are tiled across only.
    void ShowAll() {
        if (picture_.mirrored) {
            ShowPiece({picture_.x, picture_.y, sprite_.width, sprite_.height, 0, 0});
        } else if (element_.kind == ElementKind::Parallax) {
            ShowRows();
        } else {
            ShowTiles();
        }
    }

private:
    void ShowTiles() {
        const Copies down = CopiesAlong(
            TilesOf(element_.tileY, element_.tileSpacingY, sprite_.height, sprite_.fileHeight),
            picture_.y, window_.rows, Deepest());
        for (std::int64_t i = 0; i < down.count; ++i) {
            ShowAcross(
                {picture_.x, down.first + i * down.step, sprite_.width, sprite_.height, 0, 0});
        }
    }

    void ShowRows() {
        const double stretch =
            options_.additions && options_.deform ? RowStretch(element_, model_.CamY) : 1;
        const std::int64_t height = sprite_.height;
        const std::int64_t shown = StretchedRows(height, stretch);
        const std::int64_t from = std::max<std::int64_t>(0, window_.rows.from - picture_.y);
        const std::int64_t to = std::min(shown, window_.rows.to - picture_.y);
        for (std::int64_t row = from; row < to; ++row) {
            const std::int64_t source = SourceRow(row, stretch);
            const std::int64_t x = RowPosition(element_, picture_.drawX, model_.CamX, source,
                                               height, model_.ElementScale);
            ShowAcross({x, picture_.y + row, sprite_.width, 1, 0, source});
        }
    }

    void ShowAcross(const SpriteQuad& first) {
        const Copies across = CopiesAlong(
            TilesOf(element_.tileX, element_.tileSpacingX, sprite_.width, sprite_.fileWidth),
            first.x, window_.columns, Deepest());
        SpriteQuad quad = first;
        for (std::int64_t i = 0; i < across.count; ++i) {
            quad.x = across.first + i * across.step;
            ShowPiece(quad);
        }
    }

    [[nodiscard]] Tiles TilesOf(Long count, Long spacing, Integer size, Integer fileSize) const {
        const std::int64_t step = model_.ElementScale == 1
                                      ? TileStep(spacing, size, animated_)
                                      : ScaledStep(TileStep(spacing, fileSize, animated_),
                                                   model_.ElementScale, animated_);
        return {count, step, size, animated_, options_.additions};
    }

    [[nodiscard]] std::int64_t Deepest() const {
        return element_.tileX != 0 && element_.tileY != 0 ? kDeepestOfBoth : kDeepest;
    }

    void ShowPiece(const SpriteQuad& whole) {
        if (const std::optional<SpriteQuad> quad = CutTo(window_, whole)) {
            show_(*quad);
        }
    }

    const StageModel& model_;
    const BackgroundElement& element_;
    const PlacedPicture& picture_;
    const DrawOptions& options_;
    Show& show_;
    const SpriteEntry& sprite_;
    ElementWindow window_;
    bool animated_;
};

template <typename Show>
void ForEachPiece(const StageModel& model, const BackgroundElement& element,
                  const PlacedPicture& picture, const DrawOptions& options, Show& show) {
    ElementPieces<Show>(model, element, picture, options, show).ShowAll();
}

}  // namespace scenara
