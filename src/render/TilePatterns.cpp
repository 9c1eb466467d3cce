// SPDX-License-Identifier: MIT
#include "render/TilePatterns.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <utility>
#include <vector>

#include "base/RunTimeError.h"
#include "render/ElementDrawing.h"
#include "render/ElementTiles.h"
#include "render/TexelLock.h"
#include "render/TiledPictures.h"
#include "stage/ModelLookup.h"

namespace scenara {
namespace {

// So many quads cost about as much as one that covers the view.
constexpr std::int64_t kManyPieces = 100;

// Of a parallax picture every row is a quad in any case.
constexpr std::int64_t kManyPiecesOfRow = 8;

// What a pattern takes besides its texels, about.
constexpr std::size_t kBytesOfPattern = 256;

// Texels that are looked at; far more than any stage has that is not made to keep the start-up
// busy.
constexpr std::size_t kMostTexels = std::size_t{1} << 25U;

// The most pieces that an axis may have in so many pixels of the view; copies that touch are one.
std::int64_t MostPieces(const Tiles& tiles, std::int64_t pixels) {
    const std::int64_t step = DrawnStep(tiles);
    if (step == 0 || step == tiles.size) {
        return 1;
    }
    const std::int64_t most = (pixels + tiles.size - 2) / step + 1;
    return tiles.Endless() ? most : std::min<std::int64_t>(most, tiles.count);
}

bool Overlaps(const Tiles& tiles) {
    const std::int64_t step = DrawnStep(tiles);
    return step != 0 && step < tiles.size;
}

bool CanRepeat(const Tiles& tiles, Mixing mixing) {
    return mixing == Mixing::Solid || !Overlaps(tiles) ||
           (mixing == Mixing::Masked && tiles.Endless());
}

std::int64_t RepeatOf(const Tiles& tiles, std::int64_t pieces) {
    const std::int64_t step = DrawnStep(tiles);
    return pieces == 1 || step == 0 ? tiles.size : step;
}

std::size_t TexelsOf(const PatternKey& key) {
    return static_cast<std::size_t>(key.width) * static_cast<std::size_t>(key.height);
}

// How many texels of the picture have to be looked at, at most.
std::size_t WorkOf(const PatternKey& key, const SpriteEntry& sprite) {
    const auto along = [](Integer repeat, Integer size) {
        return static_cast<std::size_t>(std::max(repeat, size));
    };
    return along(key.width, sprite.width) * along(key.height, sprite.height);
}

// The keys of all patterns that a stage has a use for, the smallest patterns first.
std::vector<PatternKey> WantedPatterns(const StageModel& model, const DrawOptions& options) {
    std::vector<PatternKey> keys;
    ForEachTiledPicture(
        model, options.additions,
        [&](const BackgroundElement& shown, const ElementPicture& picture) {
            const Mixing mixing = MixingOf(shown, BlendingInForce(model, shown, options.additions),
                                           RecordAt(model.Sprites, picture.slot, "sprite"));
            if (const auto key = PatternFor(model, shown, picture, mixing, options)) {
                keys.push_back(*key);
            }
        });
    std::ranges::sort(keys, [](const PatternKey& a, const PatternKey& b) {
        return std::pair(TexelsOf(a), a) < std::pair(TexelsOf(b), b);
    });
    keys.erase(std::unique(keys.begin(), keys.end()), keys.end());
    return keys;
}

// What is seen at a place of the repeat: of all copies there the last one drawn that shows
// something. A copy that is drawn later begins further to the right or further down.
std::uint32_t SeenAt(const PatternKey& key, const SpriteEntry& sprite, const TexelLock& texels,
                     std::int64_t u, std::int64_t v) {
    std::uint32_t seen = 0;
    for (std::int64_t y = v; y < sprite.height; y += key.height) {
        for (std::int64_t x = u; x < sprite.width; x += key.width) {
            seen = texels.At(key.mirrored ? sprite.width - 1 - x : x,
                             key.flipped ? sprite.height - 1 - y : y);
            if (key.solid) {
                return seen | 0xFF000000U;
            }
            if (AlphaOf(seen) != 0) {
                return seen;
            }
        }
    }
    return seen;
}

constexpr bool IsTranslucent(std::uint32_t texel) {
    return AlphaOf(texel) != 0 && AlphaOf(texel) != 255;
}

// No texture when a picture cannot stand for the copies: when they show through one another.
std::shared_ptr<Direct3DTexture8> Drawn(const PatternKey& key, const SpriteEntry& sprite,
                                        TextureMaker& maker) {
    const bool overlapping = key.width < sprite.width || key.height < sprite.height;
    const TexelLock texels(*sprite.texture);
    TextureParameters parameters;
    parameters.width = key.width;
    parameters.height = key.height;
    auto texture = maker.CreateTexture(parameters);
    const LockedPixels pixels = texture->LockRect();
    bool translucent = false;
    for (std::int64_t v = 0; v < key.height; ++v) {
        for (std::int64_t u = 0; u < key.width; ++u) {
            const std::uint32_t seen = SeenAt(key, sprite, texels, u, v);
            translucent = translucent || IsTranslucent(seen);
            pixels.words[static_cast<std::size_t>(v * pixels.pitch + u)] = seen;
        }
    }
    texture->UnlockRect();
    if (translucent && overlapping) {
        return nullptr;
    }
    texture->PreLoad();
    return texture;
}

}  // namespace

std::optional<PatternKey> PatternFor(const StageModel& model, const BackgroundElement& element,
                                     const ElementPicture& picture, Mixing mixing,
                                     const DrawOptions& options) {
    const SpriteEntry& sprite = RecordAt(model.Sprites, picture.slot, "sprite");
    const ElementTiles tiles(model, element, picture, options.additions);
    const CanvasSize canvas = options.view.Canvas();  // enlarged, there are fewer
    const std::int64_t across = MostPieces(tiles.across, canvas.width);
    const std::int64_t down = MostPieces(tiles.down, canvas.height);
    const bool rows = element.kind == ElementKind::Parallax;
    const bool many =
        rows ? across > kManyPiecesOfRow &&
                   across * std::min<std::int64_t>(sprite.height, canvas.height) > kManyPieces
             : across * down > kManyPieces;
    if (!many || !CanRepeat(tiles.across, mixing) || !CanRepeat(tiles.down, mixing)) {
        return std::nullopt;
    }
    const std::int64_t width = RepeatOf(tiles.across, across);
    const std::int64_t height = RepeatOf(tiles.down, down);
    constexpr std::int64_t kMost = std::numeric_limits<Integer>::max();
    if (width > kMost || height > kMost) {
        return std::nullopt;
    }
    return PatternKey{picture.slot,
                      picture.mirrored,
                      picture.flipped,
                      mixing == Mixing::Solid,
                      static_cast<Integer>(width),
                      static_cast<Integer>(height)};
}

const TilePattern* FindPattern(const StageModel& model, const PatternKey& key) {
    const auto found = std::ranges::lower_bound(model.TilePatterns, key, {}, &TilePattern::key);
    return found == model.TilePatterns.end() || found->key != key ? nullptr : &*found;
}

void MakeTilePatterns(StageModel& model, const ViewOptions& options, const View& view,
                      TextureMaker& maker) {
    model.TilePatterns.clear();
    std::size_t bytes = 0;
    std::size_t texels = 0;
    try {
        for (const PatternKey& key : WantedPatterns(model, {options.Additions, view, {}})) {
            const SpriteEntry& sprite = RecordAt(model.Sprites, key.sprite, "sprite");
            const std::size_t taken = TexelsOf(key) * sizeof(std::uint32_t) + kBytesOfPattern;
            const std::size_t work = WorkOf(key, sprite);
            if (bytes + taken > kMostPatternBytes) {
                break;
            }
            if (!HasPixels(sprite) || texels + work > kMostTexels) {
                continue;
            }
            texels += work;
            if (auto texture = Drawn(key, sprite, maker)) {
                bytes += taken;
                TilePattern pattern{key, {}};
                pattern.picture.width = key.width;
                pattern.picture.height = key.height;
                pattern.picture.texture = std::move(texture);
                model.TilePatterns.push_back(std::move(pattern));
            }
        }
    } catch (const RunTimeError& error) {
        // Without memory the rest is drawn copy by copy.
        if (error.Kind() != RunTimeErrorKind::OutOfMemory) {
            throw;
        }
    }
    std::ranges::sort(model.TilePatterns, {}, &TilePattern::key);
}

}  // namespace scenara
