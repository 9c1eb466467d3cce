// SPDX-License-Identifier: MIT
#include "render/ElementDrawing.h"

#include <algorithm>
#include <optional>

#include "render/ElementKind.h"
#include "render/ElementPlacement.h"
#include "render/ElementWindow.h"
#include "render/ModelLookup.h"
#include "render/ParallaxRows.h"
#include "render/Tiling.h"

namespace scenara {
namespace {

class ElementPainter {
public:
    ElementPainter(Engine& engine, const StageModel& model, const BackgroundElement& element,
                   const PlacedPicture& picture)
        : engine_(engine),
          model_(model),
          element_(element),
          picture_(picture),
          sprite_(RecordAt(model.Sprites, picture.slot, "sprite")),
          window_(ElementWindow::Of(element)),
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
        const Tiles tiles{element_.tileY,
                          TileStep(element_.tileSpacingY, sprite_.height, animated_),
                          sprite_.height, animated_};
        const Copies down = CopiesAlong(tiles, picture_.y, window_.rows, Deepest());
        for (std::int64_t i = 0; i < down.count; ++i) {
            PaintAcross(
                {picture_.x, down.first + i * down.step, sprite_.width, sprite_.height, 0, 0});
        }
    }

    void PaintRows() {
        const std::int64_t height = sprite_.height;
        const std::int64_t from = std::max<std::int64_t>(0, window_.rows.from - picture_.y);
        const std::int64_t to = std::min(height, window_.rows.to - picture_.y);
        for (std::int64_t row = from; row < to; ++row) {
            const std::int64_t x = RowPosition(element_, picture_.drawX, model_.CamX, row, height);
            PaintAcross({x, picture_.y + row, sprite_.width, 1, 0, row});
        }
    }

    void PaintAcross(const SpriteQuad& first) {
        const Tiles tiles{element_.tileX, TileStep(element_.tileSpacingX, sprite_.width, animated_),
                          sprite_.width, animated_};
        const Copies across = CopiesAlong(tiles, first.x, window_.columns, Deepest());
        SpriteQuad quad = first;
        for (std::int64_t i = 0; i < across.count; ++i) {
            quad.x = across.first + i * across.step;
            Draw(quad);
        }
    }

    [[nodiscard]] std::int64_t Deepest() const {
        return element_.tileX != 0 && element_.tileY != 0 ? kDeepestOfBoth : kDeepest;
    }

    void Draw(const SpriteQuad& whole) {
        const std::optional<SpriteQuad> quad = CutTo(window_, whole);
        if (!quad) {
            return;
        }
        const auto blit = picture_.mirrored ? &Engine::D3DBltFlip : &Engine::D3DBlt;
        (engine_.*blit)(sprite_.texture, picture_.slot, static_cast<Long>(quad->x),
                        static_cast<Long>(quad->y), static_cast<Long>(quad->width),
                        static_cast<Long>(quad->height), static_cast<Long>(quad->sourceX),
                        static_cast<Long>(quad->sourceY));
    }

    Engine& engine_;
    const StageModel& model_;
    const BackgroundElement& element_;
    const PlacedPicture& picture_;
    const SpriteEntry& sprite_;
    ElementWindow window_;
    bool animated_;
};

void SetBlending(Direct3DDevice8& device, std::uint32_t state, std::uint32_t value) {
    Require(device.SetRenderState(state, value), "SetRenderState");
}

}  // namespace

void DrawElement(Engine& engine, const StageModel& model, const BackgroundElement& element) {
    const std::optional<PlacedPicture> picture = PlaceElement(model, element);
    if (!picture) {
        return;
    }
    Direct3DDevice8& device = engine.Device();
    const bool masked = element.mask == 1;
    if (masked) {
        SetBlending(device, D3DRS_SRCBLEND, D3DBLEND_SRCALPHA);
        SetBlending(device, D3DRS_DESTBLEND, D3DBLEND_INVSRCALPHA);
        SetBlending(device, D3DRS_ALPHABLENDENABLE, 1);
    }
    ElementPainter(engine, model, element, *picture).Paint();
    if (masked) {
        SetBlending(device, D3DRS_ALPHABLENDENABLE, 0);
        SetBlending(device, D3DRS_SRCBLEND, D3DBLEND_ONE);
        SetBlending(device, D3DRS_DESTBLEND, D3DBLEND_ZERO);
    }
}

}  // namespace scenara
