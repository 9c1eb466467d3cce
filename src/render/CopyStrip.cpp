// SPDX-License-Identifier: MIT
#include "render/CopyStrip.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <span>

#include "render/ElementScale.h"
#include "render/ElementTiles.h"
#include "render/TexelLock.h"
#include "render/TiledPictures.h"
#include "stage/CameraZoom.h"
#include "stage/ModelLookup.h"
#include "stage/StageSpace.h"

namespace scenara {
namespace {

constexpr std::int32_t kGap = -1;

// Of higher pictures the canvas does not show that many copies.
constexpr Long kMostLines = 1024;

}  // namespace

CopyStrip::CopyStrip(TextureMaker& maker, Long width, Long lines)
    : texels_(static_cast<std::size_t>(width), kGap) {
    TextureParameters parameters;
    parameters.width = width;
    parameters.height = lines;
    picture_.texture = maker.CreateTexture(parameters);
    picture_.width = static_cast<Integer>(width);
    picture_.height = static_cast<Integer>(lines);
    picture_.texture->UnlockRect();
}

bool CopyStrip::Holds(const SpriteEntry& sprite, const CopiesAlongLines& along) const {
    return HasPixels(sprite) && along.lines.to - along.lines.from <= picture_.height &&
           along.columns.from >= 0 && along.columns.to <= picture_.width;
}

void CopyStrip::Lay(const SpriteEntry& sprite, const StripStyle& style,
                    const CopiesAlongLines& along) {
    FindTexels(sprite, style.mirrored, along);
    const auto columns =
        std::span(texels_).subspan(static_cast<std::size_t>(along.columns.from),
                                   static_cast<std::size_t>(along.columns.to - along.columns.from));
    const TexelLock texels(*sprite.texture);
    const LockedPixels pixels = picture_.texture->LockRect();
    const std::uint32_t opaque = style.solid ? 0xFF000000U : 0;
    for (std::int64_t line = along.lines.from; line < along.lines.to; ++line) {
        const std::int64_t source = style.flipped ? sprite.height - 1 - line : line;
        const auto first =
            static_cast<std::size_t>((line - along.lines.from) * pixels.pitch + along.columns.from);
        std::ranges::transform(columns, pixels.words.subspan(first).begin(),
                               [&](std::int32_t texel) {
                                   return texel == kGap ? 0 : texels.At(texel, source) | opaque;
                               });
    }
    picture_.texture->UnlockRect();
}

void CopyStrip::FindTexels(const SpriteEntry& sprite, bool mirrored,
                           const CopiesAlongLines& along) {
    const std::int64_t width = sprite.width;
    const auto at = [&](std::int64_t column) { return texels_.begin() + column; };
    std::fill(at(along.columns.from), at(along.columns.to), kGap);
    along.copies.ForEach(along.columns, kDeepestAlong, [&](const PixelRange& copy) {
        const std::int64_t last = std::min(copy.to, along.columns.to);
        for (std::int64_t x = std::max(copy.from, along.columns.from); x < last; ++x) {
            const std::int64_t texel =
                (2 * (x - copy.from) + 1) * width / (2 * (copy.to - copy.from));
            *at(x) = static_cast<std::int32_t>(mirrored ? width - 1 - texel : texel);
        }
    });
    hasGaps_ =
        std::find(at(along.columns.from), at(along.columns.to), kGap) != at(along.columns.to);
}

Long StripLines(const StageModel& model, const ViewOptions& options, const View& view) {
    if (!options.Additions) {
        return 0;
    }
    const CanvasSize canvas = view.Canvas();
    const StageSpace space = SpaceOf(model);
    const double zoomOut = ZoomRangeOf(model).out;
    const auto most = [](const Tiles& tiles, double stepScale, double frameScale, Long pixels) {
        const double scale = stepScale * std::fabs(frameScale);
        const double size = static_cast<double>(tiles.size) * scale;
        return ScaledCopies(tiles, -size, scale, stepScale).CopiesIn(pixels);
    };
    Long lines = 0;
    ForEachTiledPicture(
        model, options.Additions,
        [&](const BackgroundElement& shown, const ElementPicture& picture) {
            const SpriteEntry& sprite = RecordAt(model.Sprites, picture.slot, "sprite");
            if (sprite.height > kMostLines || !HasPixels(sprite)) {
                return;
            }
            const ElementTiles tiles(model, shown, picture, options.Additions);
            const double detail = view.detail * space.hires;
            // Where it changes with the camera, as it is at first, and where most is seen.
            const ElementScale own = ScaleOf(shown, space, 0, 0);
            const ElementScale zoom = ZoomOf(shown, zoomOut);
            if (own.x == 0 || own.y == 0 || zoom.x == 0 || zoom.y == 0) {
                return;
            }
            const double across =
                most(tiles.across, std::fabs(space.scaleX * own.x) * zoom.x * detail,
                     picture.frameScaleX, canvas.width);
            const double down = most(tiles.down, std::fabs(space.scaleY * own.y) * zoom.y * detail,
                                     picture.frameScaleY, canvas.height);
            const bool rows = shown.kind == ElementKind::Parallax;
            if (rows ? IsStripCheaper(across, 1) : IsStripCheaper(across * down, canvas.height)) {
                lines = std::max(lines, rows ? Long{1} : Long{sprite.height});
            }
        });
    return lines;
}

}  // namespace scenara
