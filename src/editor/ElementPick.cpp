// SPDX-License-Identifier: MIT
#include "editor/ElementPick.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "render/ElementDrawing.h"
#include "render/ElementPlacement.h"
#include "render/ElementWindow.h"
#include "render/TexelLock.h"
#include "render/TileEngine.h"
#include "stage/ModelLookup.h"

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
            const ViewTexel texel = TexelUnder(quad);
            covered_ = AlphaOf(texels.At(texel.x % repeat.width, texel.y % repeat.height)) != 0;
        }
    }

    void ShowTurned(const TurnedQuad& quad) override {
        if (covered_) {
            return;
        }
        const BlitStyle style{picture_.mirrored, picture_.flipped};
        const std::optional<ShownTexel> texel =
            TexelAt(quad, sprite_.width, sprite_.height, style, point_.x, point_.y);
        covered_ = texel && IsVisibleAt(texel->x, texel->y);
    }

    [[nodiscard]] bool Covered() const { return covered_; }

private:
    [[nodiscard]] bool IsUnder(const SpriteQuad& quad) const {
        return IsInside(point_.x, quad.x, quad.width) && IsInside(point_.y, quad.y, quad.height);
    }

    [[nodiscard]] bool IsVisible(const SpriteQuad& quad) {
        const ViewTexel texel = TexelUnder(quad);
        return IsVisibleAt(TexelOf(texel.x, sprite_.width, picture_.mirrored),
                           TexelOf(texel.y, sprite_.height, picture_.flipped));
    }

    [[nodiscard]] bool IsVisibleAt(std::int64_t x, std::int64_t y) {
        // Without a texture the piece is a white rectangle.
        if (!seeThrough_ || !sprite_.texture) {
            return true;
        }
        if (!texels_) {
            texels_.emplace(*sprite_.texture);
        }
        return AlphaOf(texels_->At(x, y)) != 0;
    }

    // In the picture as it is drawn, with its repeats.
    struct ViewTexel {
        std::int64_t x;
        std::int64_t y;
    };
    [[nodiscard]] ViewTexel TexelUnder(const SpriteQuad& quad) const {
        const auto along = [](std::int64_t at, std::int64_t drawn, std::int64_t shown) {
            return (2 * at + 1) * shown / (2 * drawn);
        };
        return {quad.sourceX + along(point_.x - quad.x, quad.width, quad.ShownWidth()),
                quad.sourceY + along(point_.y - quad.y, quad.height, quad.ShownHeight())};
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
    const std::optional<PlacedPicture> picture = PlaceElement(model, element, options);
    if (!picture || !ElementWindow::Of(element, options).Has(point.x, point.y)) {
        return false;
    }
    const SpriteEntry& sprite = RecordAt(model.Sprites, picture->slot, "sprite");
    const Mixing mixing =
        MixingOf(element, BlendingInForce(model, element, options.additions), sprite);
    PointUnderPieces under(point, *picture, sprite, mixing != Mixing::Solid);
    ForEachPiece(model, element, *picture, options, mixing, under);
    return under.Covered();
}

// Gathers the rectangle around pieces.
class AroundPieces final : public PieceVisitor {
public:
    explicit AroundPieces(const ElementWindow& window)
        : window_(window), left_(window.columns.to), top_(window.rows.to) {}

    void Show(const SpriteQuad& quad) override {
        const std::int64_t left = std::max(quad.x, window_.columns.from);
        const std::int64_t top = std::max(quad.y, window_.rows.from);
        const std::int64_t right = std::min(quad.x + quad.width, window_.columns.to);
        const std::int64_t bottom = std::min(quad.y + quad.height, window_.rows.to);
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

    void ShowTurned(const TurnedQuad& quad) override {
        const auto [left, right] = std::ranges::minmax(quad.corners, {}, &TurnedQuad::Corner::x);
        const auto [top, bottom] = std::ranges::minmax(quad.corners, {}, &TurnedQuad::Corner::y);
        const std::int64_t x = FirstPixel(left.x);
        const std::int64_t y = FirstPixel(top.y);
        Show({x, y, FirstPixel(right.x) - x, FirstPixel(bottom.y) - y});
    }

    [[nodiscard]] std::optional<ViewFrame> Rectangle() const {
        if (left_ >= right_ || top_ >= bottom_) {
            return std::nullopt;
        }
        return ViewFrame{static_cast<Long>(left_), static_cast<Long>(top_),
                         static_cast<Long>(right_), static_cast<Long>(bottom_)};
    }

private:
    // Whose centre is at an edge or after it.
    static std::int64_t FirstPixel(Single edge) {
        return static_cast<std::int64_t>(std::ceil(static_cast<double>(edge) - 0.5));
    }

    ElementWindow window_;
    std::int64_t left_;
    std::int64_t top_;
    std::int64_t right_ = 0;
    std::int64_t bottom_ = 0;
};

}  // namespace

Integer TopmostElementAt(const StageModel& model, const DrawOptions& options,
                         const ViewPoint& point) {
    const CanvasSize canvas = options.view.Canvas();
    if (!IsInside(point.x, 0, canvas.width) || !IsInside(point.y, 0, canvas.height)) {
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
    const std::optional<PlacedPicture> picture = PlaceElement(model, element, options);
    if (!picture) {
        return std::nullopt;
    }
    AroundPieces around(ElementWindow::Of(element, options));
    const Mixing mixing = MixingOf(element, BlendingInForce(model, element, options.additions),
                                   RecordAt(model.Sprites, picture->slot, "sprite"));
    ForEachPiece(model, element, *picture, options, mixing, around);
    return around.Rectangle();
}

}  // namespace scenara
