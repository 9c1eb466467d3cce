// SPDX-License-Identifier: MIT
#include "render/ElementPieces.h"

#include <algorithm>
#include <optional>

#include "render/ElementTiles.h"
#include "render/ElementWindow.h"
#include "render/ModelLookup.h"
#include "render/ParallaxRows.h"
#include "render/TilePatterns.h"
#include "render/Tiling.h"

namespace scenara {
namespace {

// The copies along one axis of which something is visible.
struct Axis {
    Axis(const Tiles& axisTiles, std::int64_t position, const PixelRange& visible, Mixing mixing)
        : tiles(axisTiles), copies(CopiesAlong(axisTiles, position, visible)) {
        if (mixing == Mixing::Solid && Overlap()) {
            // Of all but the last no more is seen than a step.
            const std::int64_t hidden = std::clamp<std::int64_t>(
                (visible.from - copies.first) / copies.step, 0, copies.count - 1);
            copies.first += hidden * copies.step;
            copies.count -= hidden;
            lastShowsMore = copies.last + copies.step < visible.to;
        }
    }

    [[nodiscard]] bool Touch() const { return copies.count > 1 && copies.step == tiles.size; }
    // Whether they do, or would if there were more of them.
    [[nodiscard]] bool Overlap() const { return copies.step != 0 && copies.step < tiles.size; }

    const Tiles& tiles;
    Copies copies;
    bool lastShowsMore = false;  // of solid ones that overlap: more than a step of the last is seen
};

// What is shown of them: pieces of one length, but for the last.
struct Pieces {
    Copies at;
    std::int64_t length = 0;
    std::int64_t lastLength = 0;

    [[nodiscard]] std::int64_t LengthOf(std::int64_t i) const {
        return i + 1 == at.count ? lastLength : length;
    }
};

Pieces PiecesOf(const Axis& axis, Mixing mixing) {
    const Copies& copies = axis.copies;
    const std::int64_t size = axis.tiles.size;
    if (axis.Touch()) {
        return {{copies.first, 0, 1, copies.first}, 0, copies.count * size};
    }
    return {copies, axis.Overlap() && mixing == Mixing::Solid ? copies.step : size, size};
}

// What a pattern shows of the copies: without the last where that goes on while the pattern would
// begin anew.
std::int64_t PatternLength(const Axis& axis) {
    const Copies& copies = axis.copies;
    if (axis.Overlap()) {
        return (axis.lastShowsMore ? copies.count - 1 : copies.count) * copies.step;
    }
    return (copies.count - 1) * copies.step + axis.tiles.size;
}

class ElementPieces {
public:
    ElementPieces(const StageModel& model, const BackgroundElement& element,
                  const PlacedPicture& picture, const DrawOptions& options, Mixing mixing,
                  PieceVisitor& visitor)
        : model_(model),
          element_(element),
          picture_(picture),
          options_(options),
          mixing_(mixing),
          visitor_(visitor),
          sprite_(RecordAt(model.Sprites, picture.slot, "sprite")),
          tiles_(model, element, picture, options.additions),
          window_(ElementWindow::Of(element, model.CamX, model.CamY, options.view)),
          x_(WholePixel(static_cast<double>(picture.x), model.ElementScale)),
          y_(WholePixel(static_cast<double>(picture.y), model.ElementScale)) {
        if (const auto key = PatternFor(model, element, picture, mixing, options)) {
            pattern_ = FindPattern(model, *key);
        }
    }

    void ShowAll() { element_.kind == ElementKind::Parallax ? ShowRows() : ShowTiles(); }

private:
    void ShowTiles() {
        const Axis across(tiles_.across, x_, window_.columns, mixing_);
        const Axis down(tiles_.down, y_, window_.rows, mixing_);
        if (across.copies.count == 0 || down.copies.count == 0) {
            return;
        }
        if (pattern_ != nullptr) {
            ShowPattern(across, down);
            return;
        }
        Pieces columns = PiecesOf(across, mixing_);
        Pieces rows = PiecesOf(down, mixing_);
        if (mixing_ != Mixing::Solid) {
            const Depths depths = AllowedDepths(DepthOf(tiles_.across, across.copies),
                                                DepthOf(tiles_.down, down.copies));
            ThinOut(columns, across, x_, window_.columns, depths.x);
            ThinOut(rows, down, y_, window_.rows, depths.y);
        }
        for (std::int64_t i = 0; i < rows.at.count; ++i) {
            ShowAcross(columns, rows.at.At(i), rows.LengthOf(i), 0);
        }
    }

    void ShowRows() {
        const double stretch = options_.additions ? RowStretch(element_, model_.CamY) : 1;
        const double shear = RowShear(model_, element_, picture_, options_);
        const auto y = static_cast<double>(picture_.y);
        const StretchedRows rows{stretch == 1 ? static_cast<double>(y_)
                                              : picture_.axisY + (y - picture_.axisY) * stretch,
                                 stretch};
        const std::int64_t height = sprite_.height;
        for (std::int64_t row = rows.Before(window_.rows.from); row < height; ++row) {
            const std::int64_t from = std::max(rows.From(row), window_.rows.from);
            const std::int64_t to = std::min(rows.From(row + 1), window_.rows.to);
            if (from >= window_.rows.to) {
                break;
            }
            const std::int64_t x =
                RowPosition(element_, picture_.x, shear, row, height, model_.ElementScale);
            for (std::int64_t line = from; line < to; ++line) {
                ShowRow(x, line, row);
            }
        }
    }

    // How far a row of speed 2 stands from one of speed 1. Addition: the whole way of the
    // element's axis from the middle of the view, and not the camera's part of it alone.
    [[nodiscard]] static double RowShear(const StageModel& model, const BackgroundElement& element,
                                         const PlacedPicture& picture, const DrawOptions& options) {
        return options.additions
                   ? picture.axisX - static_cast<double>(options.view.Centre())
                   : static_cast<double>(model.CamX) * static_cast<double>(element.deltaX);
    }

    void ShowRow(std::int64_t x, std::int64_t y, std::int64_t source) {
        const Axis across(tiles_.across, x, window_.columns, mixing_);
        if (across.copies.count == 0) {
            return;
        }
        Pieces columns = PiecesOf(across, mixing_);
        if (pattern_ != nullptr) {
            ShowPatternAt(across.copies.first, y, PatternLength(across), 1, source);
            if (across.lastShowsMore) {
                ShowLast(columns, y, 1, source);
            }
            return;
        }
        if (mixing_ != Mixing::Solid) {
            ThinOut(columns, across, x, window_.columns, kDeepest);
        }
        ShowAcross(columns, y, 1, source);
    }

    // Copies that overlap, when they are more than that deep.
    static void ThinOut(Pieces& pieces, const Axis& axis, std::int64_t position,
                        const PixelRange& visible, std::int64_t depth) {
        if (axis.Overlap() && DepthOf(axis.tiles, axis.copies) > depth) {
            pieces.at = CopiesAlong(axis.tiles, position, visible, depth);
        }
    }

    // In any order, for none of these pieces overlap.
    void ShowPattern(const Axis& across, const Axis& down) {
        ShowPatternAt(across.copies.first, down.copies.first, PatternLength(across),
                      PatternLength(down), 0);
        const Pieces columns = PiecesOf(across, mixing_);
        const Pieces rows = PiecesOf(down, mixing_);
        if (across.lastShowsMore) {
            for (std::int64_t i = 0; i < rows.at.count; ++i) {
                ShowLast(columns, rows.at.At(i), rows.LengthOf(i), 0);
            }
        }
        if (down.lastShowsMore) {
            ShowAcross(columns, rows.at.last, rows.lastLength, 0);
        }
    }

    void ShowPatternAt(std::int64_t x, std::int64_t y, std::int64_t width, std::int64_t height,
                       std::int64_t source) {
        const auto quad = CutTo(window_, {x, y, width, height, 0, source});
        if (quad && width > 0 && height > 0) {
            visitor_.ShowPattern(*pattern_, *quad);
        }
    }

    void ShowAcross(const Pieces& columns, std::int64_t y, std::int64_t height,
                    std::int64_t source) {
        for (std::int64_t i = 0; i < columns.at.count; ++i) {
            ShowPiece({columns.at.At(i), y, columns.LengthOf(i), height, 0, source});
        }
    }

    void ShowLast(const Pieces& columns, std::int64_t y, std::int64_t height, std::int64_t source) {
        ShowPiece({columns.at.last, y, columns.lastLength, height, 0, source});
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
    Mixing mixing_;
    PieceVisitor& visitor_;
    const SpriteEntry& sprite_;
    ElementTiles tiles_;
    ElementWindow window_;
    std::int64_t x_;
    std::int64_t y_;
    const TilePattern* pattern_ = nullptr;
};

}  // namespace

void ForEachPiece(const StageModel& model, const BackgroundElement& element,
                  const PlacedPicture& picture, const DrawOptions& options, Mixing mixing,
                  PieceVisitor& visitor) {
    ElementPieces(model, element, picture, options, mixing, visitor).ShowAll();
}

}  // namespace scenara
