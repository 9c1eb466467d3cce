// SPDX-License-Identifier: MIT
#include "render/ElementDrawing.h"

#include <optional>

#include "render/BlendStates.h"
#include "render/BlendedBlit.h"
#include "render/ElementPlacement.h"
#include "render/ModelLookup.h"

namespace scenara {
namespace {

// Takes the pieces of an element to the engine.
class ElementPainter final : public PieceVisitor {
public:
    ElementPainter(Engine& engine, const StageModel& model, const PlacedPicture& picture,
                   const Blending& blending)
        : engine_(engine),
          picture_(picture),
          blending_(blending),
          sprite_(RecordAt(model.Sprites, picture.slot, "sprite")) {}

    void Show(const SpriteQuad& quad) override {
        const BlitStyle style{picture_.mirrored, picture_.flipped};
        if (blending_.kind != BlendKind::None) {
            DrawBlended(engine_, blending_, sprite_, quad, style);
        } else {
            engine_.Blit(sprite_, quad, style);
        }
    }

private:
    Engine& engine_;
    const PlacedPicture& picture_;
    const Blending& blending_;
    const SpriteEntry& sprite_;
};

}  // namespace

// Addition: the element's blending goes before that of the current frame.
Blending BlendingInForce(const StageModel& model, const BackgroundElement& element,
                         bool additions) {
    if (!additions) {
        return {};
    }
    const bool leftToFrames = element.blending.kind == BlendKind::None && element.framesBlend != 0;
    if (leftToFrames && element.kind == ElementKind::Animated) {
        return RecordAt(ActionOf(model, element)->frames, element.frameIndex, "frame").blending;
    }
    return element.blending;
}

void DrawElement(Engine& engine, const StageModel& model, const BackgroundElement& element,
                 const DrawOptions& options) {
    const std::optional<PlacedPicture> picture = PlaceElement(model, element, options.additions);
    if (!picture) {
        return;
    }
    Direct3DDevice8& device = engine.Device();
    const Blending blending = BlendingInForce(model, element, options.additions);
    ElementPainter painter(engine, model, *picture, blending);
    if (blending.kind != BlendKind::None) {
        BeginBlending(device, blending);
        ForEachPiece(model, element, *picture, options, painter);
        EndBlending(device, blending);
        return;
    }
    const bool masked = element.mask == 1;
    if (masked) {
        BlendByAlpha(device, D3DBLEND_INVSRCALPHA);
    }
    ForEachPiece(model, element, *picture, options, painter);
    if (masked) {
        BlendNoMore(device);
    }
}

}  // namespace scenara
