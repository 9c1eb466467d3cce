// SPDX-License-Identifier: MIT
#include "render/ElementDrawing.h"

#include <optional>

#include "render/BlendStates.h"
#include "render/BlendedBlit.h"
#include "render/CopyStrip.h"
#include "render/ElementPlacement.h"
#include "render/FrameValues.h"
#include "stage/ModelLookup.h"

namespace scenara {
namespace {

// Takes the pieces of an element to the engine.
class ElementPainter final : public PieceVisitor {
public:
    ElementPainter(Engine& engine, const StageModel& model, const PlacedPicture& picture,
                   const Blending& blending, Mixing mixing)
        : engine_(engine),
          picture_(picture),
          blending_(blending),
          mixing_(mixing),
          sprite_(RecordAt(model.Sprites, picture.slot, "sprite")) {}

    void Show(const SpriteQuad& quad) override {
        const BlitStyle style{picture_.mirrored, picture_.flipped};
        Draw(sprite_, quad, style);
    }

    void ShowTurned(const TurnedQuad& quad) override {
        const BlitStyle style{picture_.mirrored, picture_.flipped};
        if (mixing_ == Mixing::Blended) {
            DrawBlendedTurned(engine_, blending_, sprite_, quad, style);
        } else {
            engine_.BlitTurned(sprite_, quad, style);
        }
    }

    void ShowPattern(const TilePattern& pattern, const SpriteQuad& quad) override {
        DrawRepeats(pattern.picture, true, quad);
    }

    bool TakeLines(const CopiesAlongLines& along) override {
        CopyStrip* const strip = engine_.Strip();
        if (strip == nullptr || !strip->Holds(sprite_, along)) {
            return false;
        }
        strip->Lay(sprite_, {picture_.mirrored, picture_.flipped, mixing_ == Mixing::Solid}, along);
        engine_.MixTexels(false);  // its copies end within it
        return true;
    }

    void ShowLines(const SpriteQuad& quad) override {
        const CopyStrip& strip = *engine_.Strip();
        DrawRepeats(strip.Picture(), strip.HasGaps(), quad);
    }

private:
    // Several copies in one picture, of which gaps are left out.
    void DrawRepeats(const SpriteEntry& picture, bool gaps, const SpriteQuad& quad) {
        const bool leavesOut = gaps && mixing_ == Mixing::Solid;
        if (leavesOut) {
            BlendByAlpha(engine_.Device(), D3DBLEND_INVSRCALPHA);
        }
        Draw(picture, quad, BlitStyle());
        if (leavesOut) {
            BlendNoMore(engine_.Device());
        }
    }

    void Draw(const SpriteEntry& sprite, const SpriteQuad& quad, const BlitStyle& style) {
        if (mixing_ == Mixing::Blended) {
            DrawBlended(engine_, blending_, sprite, quad, style);
        } else {
            engine_.Blit(sprite, quad, style);
        }
    }

    Engine& engine_;
    const PlacedPicture& picture_;
    const Blending& blending_;
    Mixing mixing_;
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
    if (leftToFrames && ShowsFrames(element)) {
        return FrameBlendingOf(*ActionOf(model, element), element);
    }
    return element.blending;
}

void DrawElement(Engine& engine, const StageModel& model, const BackgroundElement& element,
                 const DrawOptions& options) {
    const std::optional<PlacedPicture> picture = PlaceElement(model, element, options);
    if (!picture) {
        return;
    }
    Direct3DDevice8& device = engine.Device();
    const Blending blending = BlendingInForce(model, element, options.additions);
    const Mixing mixing =
        MixingOf(element, blending, RecordAt(model.Sprites, picture->slot, "sprite"));
    ElementPainter painter(engine, model, *picture, blending, mixing);
    if (mixing == Mixing::Blended) {
        BeginBlending(device, blending);
    } else if (mixing == Mixing::Masked) {
        BlendByAlpha(device, D3DBLEND_INVSRCALPHA);
    }
    const ElementWindow window = ElementWindow::Of(element, options);
    // Pieces that are scaled are not cut, for that would be to whole pixels of the picture.
    const bool cuts =
        window.active && (!IsPixelForPixel(*picture) || element.kind == ElementKind::Parallax);
    if (cuts && options.additions) {
        engine.DrawWithin(window);
    }
    engine.KeepWithin(picture->turn.Turns());
    engine.MixTexels(IsMixed(*picture, options));
    ForEachPiece(model, element, *picture, options, mixing, painter);
    engine.MixTexels(false);
    engine.KeepWithin(false);
    if (cuts && options.additions) {
        engine.DrawEverywhere();
    }
    if (mixing == Mixing::Blended) {
        EndBlending(device, blending);
    } else if (mixing == Mixing::Masked) {
        BlendNoMore(device);
    }
}

}  // namespace scenara
