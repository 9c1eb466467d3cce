// SPDX-License-Identifier: MIT
#include "render/ElementPieces.h"

#include <algorithm>
#include <optional>

#include "render/ElementWindow.h"
#include "render/ModelLookup.h"
#include "render/ParallaxRows.h"
#include "render/Tiling.h"

namespace scenara {
namespace {

class ElementPieces {
public:
    ElementPieces(const StageModel& model, const BackgroundElement& element,
                  const PlacedPicture& picture, const DrawOptions& options, PieceVisitor& visitor)
        : model_(model),
          element_(element),
          picture_(picture),
          options_(options),
          visitor_(visitor),
          sprite_(RecordAt(model.Sprites, picture.slot, "sprite")),
          window_(ElementWindow::Of(element, model.CamX, model.CamY)),
          animated_(element.kind == ElementKind::Animated) {}

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
            visitor_.Show(*quad);
        }
    }

    const StageModel& model_;
    const BackgroundElement& element_;
    const PlacedPicture& picture_;
    const DrawOptions& options_;
    PieceVisitor& visitor_;
    const SpriteEntry& sprite_;
    ElementWindow window_;
    bool animated_;
};

}  // namespace

void ForEachPiece(const StageModel& model, const BackgroundElement& element,
                  const PlacedPicture& picture, const DrawOptions& options, PieceVisitor& visitor) {
    ElementPieces(model, element, picture, options, visitor).ShowAll();
}

}  // namespace scenara
