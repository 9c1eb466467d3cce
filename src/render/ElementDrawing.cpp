// SPDX-License-Identifier: MIT
#include "render/ElementDrawing.h"

#include <algorithm>
#include <optional>

#include "render/BlendStates.h"
#include "render/BlendedBlit.h"
#include "render/ElementKind.h"
#include "render/ElementPlacement.h"
#include "render/ElementWindow.h"
#include "render/Masking.h"
#include "render/ModelLookup.h"
#include "render/ParallaxRows.h"
#include "render/Tiling.h"

namespace scenara {
namespace {

class ElementPainter {
public:
    ElementPainter(Engine& engine, const StageModel& model, const BackgroundElement& element,
                   const PlacedPicture& picture, const Blending& blending,
                   const DrawOptions& options)
        : engine_(engine),
          model_(model),
          element_(element),
          picture_(picture),
          blending_(blending),
          options_(options),
          sprite_(RecordAt(model.Sprites, picture.slot, "sprite")),
          window_(ElementWindow::Of(element, model.CamX, model.CamY)),
          animated_(IsAnimated(element.type)) {}

    void Paint() {
        if (picture_.mirrored) {
            Draw({picture_.x, picture_.y, sprite_.width, sprite_.height, 0, 0});
        } else if (IsParallax(element_.type)) {
            PaintRows();
        } else {
            PaintTiles();
        }
    }

private:
    void PaintTiles() {
        const Copies down = CopiesAlong(
            TilesOf(element_.tileY, element_.tileSpacingY, sprite_.height, sprite_.fileHeight),
            picture_.y, window_.rows, Deepest());
        for (std::int64_t i = 0; i < down.count; ++i) {
            PaintAcross(
                {picture_.x, down.first + i * down.step, sprite_.width, sprite_.height, 0, 0});
        }
    }

    void PaintRows() {
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
            PaintAcross({x, picture_.y + row, sprite_.width, 1, 0, source});
        }
    }

    void PaintAcross(const SpriteQuad& first) {
        const Copies across = CopiesAlong(
            TilesOf(element_.tileX, element_.tileSpacingX, sprite_.width, sprite_.fileWidth),
            first.x, window_.columns, Deepest());
        SpriteQuad quad = first;
        for (std::int64_t i = 0; i < across.count; ++i) {
            quad.x = across.first + i * across.step;
            Draw(quad);
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

    void Draw(const SpriteQuad& whole) {
        const std::optional<SpriteQuad> quad = CutTo(window_, whole);
        if (!quad) {
            return;
        }
        const BlendedPiece piece{picture_.slot,
                                 static_cast<Long>(quad->x),
                                 static_cast<Long>(quad->y),
                                 static_cast<Long>(quad->width),
                                 static_cast<Long>(quad->height),
                                 static_cast<Long>(quad->sourceX),
                                 static_cast<Long>(quad->sourceY),
                                 picture_.mirrored,
                                 picture_.flipped};
        if (blending_.kind != BlendKind::None) {
            DrawBlended(engine_, blending_, piece);
        } else {
            DrawPlain(piece);
        }
    }

    void DrawPlain(const BlendedPiece& piece) {
        if (piece.flipped) {
            engine_.BlitTinted(piece.slot, piece.x, piece.y, piece.width, piece.height,
                               piece.sourceX, piece.sourceY, {piece.mirrored, true});
            return;
        }
        const auto blit = piece.mirrored ? &Engine::D3DBltFlip : &Engine::D3DBlt;
        (engine_.*blit)(sprite_.texture, piece.slot, piece.x, piece.y, piece.width, piece.height,
                        piece.sourceX, piece.sourceY);
    }

    Engine& engine_;
    const StageModel& model_;
    const BackgroundElement& element_;
    const PlacedPicture& picture_;
    const Blending& blending_;
    const DrawOptions& options_;
    const SpriteEntry& sprite_;
    ElementWindow window_;
    bool animated_;
};

// Addition: the current frame's own blending goes before the element's.
Blending BlendingOf(const StageModel& model, const BackgroundElement& element) {
    if (IsAnimated(element.type)) {
        const StageFrame& frame =
            RecordAt(ActionOf(model, element)->frames, element.frameIndex, "frame");
        if (frame.blending.kind != BlendKind::None) {
            return frame.blending;
        }
    }
    return element.blending;
}

}  // namespace

void DrawElement(Engine& engine, const StageModel& model, const BackgroundElement& element,
                 const DrawOptions& options) {
    const std::optional<PlacedPicture> picture = PlaceElement(model, element, options.additions);
    if (!picture) {
        return;
    }
    Direct3DDevice8& device = engine.Device();
    const Blending blending = options.additions ? BlendingOf(model, element) : Blending();
    ElementPainter painter(engine, model, element, *picture, blending, options);
    if (blending.kind != BlendKind::None) {
        BeginBlending(device, blending);
        painter.Paint();
        EndBlending(device, blending);
        return;
    }
    const bool masked = element.mask == 1;
    if (masked) {
        BlendByAlpha(device, D3DBLEND_INVSRCALPHA);
    }
    painter.Paint();
    if (masked) {
        BlendNoMore(device);
    }
}

}  // namespace scenara
