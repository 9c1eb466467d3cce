// SPDX-License-Identifier: MIT
#include "editor/ElementPick.h"

#include <algorithm>
#include <cstddef>

#include "render/ElementDrawing.h"
#include "render/ElementPlacement.h"
#include "render/ModelLookup.h"
#include "render/TexelLock.h"
#include "render/TileEngine.h"

namespace scenara {
namespace {

bool IsInside(std::int64_t position, std::int64_t start, std::int64_t size) {
    return position >= start && position < start + size;
}

// The texel of a line of `size` that position `at` of a strip shows, which wraps around, from its
// other end when it is mirrored.
std::int64_t TexelOf(std::int64_t at, std::int64_t size, bool mirrored) {
    const std::int64_t within = at % size;
    return mirrored ? size - 1 - within : within;
}

// Looks for a piece that covers the point.
class PointUnderPieces final : public PieceVisitor {
public:
    PointUnderPieces(const ViewPoint& point, const PlacedPicture& picture,
                     const SpriteEntry& sprite, bool seeThrough)
        : point_(point), picture_(picture), sprite_(sprite), seeThrough_(seeThrough) {}

    void Show(const SpriteQuad& quad) override {
        if (!covered_ && IsUnder(quad)) {
            covered_ = IsVisible(quad);
        }
    }

    void ShowPattern(const TilePattern& pattern, const SpriteQuad& quad) override {
        if (!covered_ && IsUnder(quad)) {
            const SpriteEntry& repeat = pattern.picture;
            const TexelLock texels(*repeat.texture);
            covered_ = AlphaOf(texels.At((quad.sourceX + point_.x - quad.x) % repeat.width,
                                         (quad.sourceY + point_.y - quad.y) % repeat.height)) != 0;
        }
    }

    [[nodiscard]] bool Covered() const { return covered_; }

private:
    [[nodiscard]] bool IsUnder(const SpriteQuad& quad) const {
        return IsInside(point_.x, quad.x, quad.width) && IsInside(point_.y, quad.y, quad.height);
    }

    [[nodiscard]] bool IsVisible(const SpriteQuad& quad) {
        // Without a texture the piece is a white rectangle.
        if (!seeThrough_ || !sprite_.texture) {
            return true;
        }
        if (!texels_) {
            texels_.emplace(*sprite_.texture);
        }
        const std::int64_t x =
            TexelOf(quad.sourceX + point_.x - quad.x, sprite_.width, picture_.mirrored);
        const std::int64_t y =
            TexelOf(quad.sourceY + point_.y - quad.y, sprite_.height, picture_.flipped);
        return AlphaOf(texels_->At(x, y)) != 0;
    }

    const ViewPoint& point_;
    const PlacedPicture& picture_;
    const SpriteEntry& sprite_;
    bool seeThrough_;
    std::optional<TexelLock> texels_;
    bool covered_ = false;
};

bool Covers(const StageModel& model, const BackgroundElement& element, const DrawOptions& options,
            const ViewPoint& point) {
    if (element.visible == 0 || element.enabled == 0) {
        return false;
    }
    const std::optional<PlacedPicture> picture = PlaceElement(model, element, options.additions);
    if (!picture) {
        return false;
    }
    const Mixing mixing = MixingOf(element, BlendingInForce(model, element, options.additions));
    PointUnderPieces under(point, *picture, RecordAt(model.Sprites, picture->slot, "sprite"),
                           mixing != Mixing::Solid);
    ForEachPiece(model, element, *picture, options, mixing, under);
    return under.Covered();
}

// Gathers the rectangle around pieces.
class AroundPieces final : public PieceVisitor {
public:
    explicit AroundPieces(const View& view) : view_(view), left_(view.width), top_(view.height) {}

    void Show(const SpriteQuad& quad) override {
        const std::int64_t left = std::max<std::int64_t>(quad.x, 0);
        const std::int64_t top = std::max<std::int64_t>(quad.y, 0);
        const std::int64_t right = std::min<std::int64_t>(quad.x + quad.width, view_.width);
        const std::int64_t bottom = std::min<std::int64_t>(quad.y + quad.height, view_.height);
        if (left >= right || top >= bottom) {
            return;
        }
        left_ = std::min(left_, left);
        top_ = std::min(top_, top);
        right_ = std::max(right_, right);
        bottom_ = std::max(bottom_, bottom);
    }

    void ShowPattern(const TilePattern& /*pattern*/, const SpriteQuad& quad) override {
        Show(quad);
    }

    [[nodiscard]] std::optional<ViewFrame> Rectangle() const {
        if (left_ >= right_ || top_ >= bottom_) {
            return std::nullopt;
        }
        return ViewFrame{static_cast<Long>(left_), static_cast<Long>(top_),
                         static_cast<Long>(right_), static_cast<Long>(bottom_)};
    }

private:
    View view_;
    std::int64_t left_;
    std::int64_t top_;
    std::int64_t right_ = 0;
    std::int64_t bottom_ = 0;
};

}  // namespace

Integer TopmostElementAt(const StageModel& model, const DrawOptions& options,
                         const ViewPoint& point) {
    if (!IsInside(point.x, 0, options.view.width) || !IsInside(point.y, 0, options.view.height)) {
        return -1;
    }
    for (const bool front : {true, false}) {
        for (std::size_t i = model.Elements.size(); i-- > 0;) {
            const BackgroundElement& element = model.Elements[i];
            if (BelongsToPass(element.layerno, front) && Covers(model, element, options, point)) {
                return static_cast<Integer>(i);
            }
        }
    }
    return -1;
}

std::optional<ViewFrame> OutlineOf(const StageModel& model, const DrawOptions& options,
                                   Integer index) {
    const BackgroundElement& element = RecordAt(model.Elements, index, "element");
    const std::optional<PlacedPicture> picture = PlaceElement(model, element, options.additions);
    if (!picture) {
        return std::nullopt;
    }
    AroundPieces around(options.view);
    const Mixing mixing = MixingOf(element, BlendingInForce(model, element, options.additions));
    ForEachPiece(model, element, *picture, options, mixing, around);
    return around.Rectangle();
}

}  // namespace scenara
