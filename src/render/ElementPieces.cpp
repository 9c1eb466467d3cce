// SPDX-License-Identifier: MIT
#include "render/ElementPieces.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "render/CopyStrip.h"
#include "render/ElementTiles.h"
#include "render/ElementWindow.h"
#include "render/ParallaxRows.h"
#include "render/ScaledCopies.h"
#include "render/TilePatterns.h"
#include "render/Tiling.h"
#include "render/TurnedTiles.h"
#include "stage/ModelLookup.h"

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

// The whole number that a picture and the distance between its tiles are enlarged by along an axis;
// 0 for any other scales.
std::int64_t WholeTimes(const Tiles& tiles, double scale, double stepScale) {
    constexpr double kMost = 65536;
    const bool alike = scale == stepScale || DrawnStep(tiles) == 0;
    return alike && scale >= 1 && scale <= kMost && scale == std::floor(scale)
               ? static_cast<std::int64_t>(scale)
               : 0;
}

// What can be seen, in pixels of a picture that begins at `position` and is enlarged.
PixelRange InItsPixels(const PixelRange& visible, std::int64_t position, std::int64_t times) {
    return {FloorDivide(visible.from - position, times),
            -FloorDivide(position - visible.to, times)};
}

class ElementPieces {
public:
    ElementPieces(const StageModel& model, const BackgroundElement& element,
                  const PlacedPicture& picture, const DrawOptions& options, Mixing mixing,
                  PieceVisitor& visitor)
        : element_(element),
          picture_(picture),
          options_(options),
          mixing_(mixing),
          visitor_(visitor),
          sprite_(RecordAt(model.Sprites, picture.slot, "sprite")),
          tiles_(model, element, picture, options.additions),
          window_(ElementWindow::Of(element, options)),
          timesX_(WholeTimes(tiles_.across, picture.scaleX, picture.stepScaleX)),
          timesY_(WholeTimes(tiles_.down, picture.scaleY, picture.stepScaleY)) {
        if (const auto key = PatternFor(model, element, picture, mixing, options);
            key && timesX_ != 0 && timesY_ != 0 && !picture.hasRowWidths) {
            pattern_ = FindPattern(model, *key);
        }
    }

    void ShowAll() {
        if (window_.columns.IsEmpty() || window_.rows.IsEmpty()) {
            return;
        }
        x_ = WholePixel(picture_.x, options_.additions);
        y_ = WholePixel(picture_.y, options_.additions);
        if (element_.kind == ElementKind::Parallax) {
            ShowRows();
        } else if (picture_.turn.Turns()) {
            ShowTurnedTiles(picture_, sprite_, tiles_, window_, Deepest(), visitor_);
        } else if (timesX_ != 0 && timesY_ != 0 && !IsMixed()) {
            ShowTiles();
        } else {
            ShowScaledTiles();
        }
    }

private:
    // Each copy by itself then, for its edges are not mixed with the next one's.
    [[nodiscard]] bool IsMixed() const { return scenara::IsMixed(picture_, options_); }

    [[nodiscard]] std::int64_t Deepest() const { return DeepestOn(options_.view.Canvas()); }

    // Copies, counted in pixels of the picture from (x_, y_).
    void ShowTiles() {
        const PixelRange visibleColumns = InItsPixels(window_.columns, x_, timesX_);
        const PixelRange visibleRows = InItsPixels(window_.rows, y_, timesY_);
        const Axis across(tiles_.across, 0, visibleColumns, mixing_);
        const Axis down(tiles_.down, 0, visibleRows, mixing_);
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
                                                DepthOf(tiles_.down, down.copies), Deepest());
            ThinOut(columns, across, visibleColumns, depths.x);
            ThinOut(rows, down, visibleRows, depths.y);
        }
        for (std::int64_t i = 0; i < rows.at.count; ++i) {
            ShowAcross(columns, rows.at.At(i), rows.LengthOf(i));
        }
    }

    // Addition.
    void ShowScaledTiles() {
        const ScaledCopies columns(tiles_.across, picture_.x, picture_.scaleX, picture_.stepScaleX);
        const ScaledCopies rows(tiles_.down, picture_.y, picture_.scaleY, picture_.stepScaleY);
        const Depths deepest = AllowedDepths(columns.Depth(), rows.Depth(), Deepest());
        const double copies = columns.CopiesIn(window_.columns.to - window_.columns.from) *
                              rows.CopiesIn(LinesSeen());
        if (TakesLines(columns, {0, sprite_.height}, copies, LinesSeen())) {
            rows.ForEach(window_.rows, deepest.y,
                         [&](const PixelRange& row) { ShowLines(row, sprite_.height); });
            return;
        }
        rows.ForEach(window_.rows, deepest.y, [&](const PixelRange& row) {
            columns.ForEach(window_.columns, deepest.x, [&](const PixelRange& column) {
                visitor_.Show({column.from, row.from, column.to - column.from, row.to - row.from, 0,
                               0, sprite_.width, sprite_.height});
            });
        });
    }

    [[nodiscard]] std::int64_t LinesSeen() const { return window_.rows.to - window_.rows.from; }

    // Whether copies are taken as lines of the canvas, where so many copies would be shown on so
    // many lines. What is as small as that is not mixed.
    bool TakesLines(const ScaledCopies& columns, const PixelRange& lines, double copies,
                    std::int64_t linesSeen) {
        constexpr double kMostMixed = 50000;
        const bool many = IsMixed() ? copies > kMostMixed : IsStripCheaper(copies, linesSeen);
        const bool canBe = mixing_ == Mixing::Solid ? columns.Depth() <= CopyStrip::kDeepestAlong
                                                    : !columns.Overlap();
        return many && canBe && visitor_.TakeLines({columns, window_.columns, lines});
    }

    // A copy of what was taken, of so many lines, on these of the canvas. Those that follow one
    // another are shown together.
    void ShowLines(const PixelRange& copy, std::int64_t height) {
        const std::int64_t end = std::min(copy.to, window_.rows.to);
        SpriteQuad quad{window_.columns.from, 0, window_.columns.to - window_.columns.from, 0,
                        window_.columns.from};
        for (std::int64_t y = std::max(copy.from, window_.rows.from); y < end; ++y) {
            const std::int64_t source =
                (2 * (y - copy.from) + 1) * height / (2 * (copy.to - copy.from));
            if (quad.height != 0 && source != quad.sourceY + quad.height) {
                visitor_.ShowLines(quad);
                quad.height = 0;
            }
            if (quad.height == 0) {
                quad.y = y;
                quad.sourceY = source;
            }
            ++quad.height;
        }
        if (quad.height != 0) {
            visitor_.ShowLines(quad);
        }
    }

    void ShowRows() {
        const StretchedRows rows = Rows();
        const std::int64_t height = sprite_.height;
        for (std::int64_t row = rows.Before(window_.rows.from); row < height; ++row) {
            const PixelRange lines{rows.From(row), rows.From(row + 1)};
            const PixelRange seen{std::max(lines.from, window_.rows.from),
                                  std::min(lines.to, window_.rows.to)};
            if (seen.from >= window_.rows.to) {
                break;
            }
            if (!seen.IsEmpty()) {
                // What is mixed is not cut, for a part of it would be mixed otherwise.
                ShowRow(RowAt(row), IsMixed() ? lines : seen, row);
            }
        }
    }

    [[nodiscard]] StretchedRows Rows() const {
        if (!options_.additions) {
            return {static_cast<double>(y_), 1};
        }
        const double stretch = std::min(RowStretch(element_, options_.camera.y, picture_.scaleY),
                                        kLargest / sprite_.height);
        const double top = picture_.axisY + picture_.fromAxisY * stretch;
        // Not stretched, the picture stands on whole pixels as all others do.
        return stretch == 1 ? StretchedRows{static_cast<double>(WholePixel(Near(top), true)), 1}
                            : StretchedRows{top, stretch};
    }

    // Where a row begins, and how wide it and the way to its next tile are where rows have widths
    // of their own; canvas pixels.
    struct PlacedRow {
        double x = 0;
        double width = 0;
        double step = 0;
    };

    // Additions: rows are apart by the whole way of the element's axis from the middle of the view,
    // and not by the camera's part of it alone; or the top row, about the axis, and what it has to
    // the left are as many times as wide as each row is.
    [[nodiscard]] PlacedRow RowAt(std::int64_t row) const {
        const std::int64_t height = sprite_.height;
        const std::int64_t fromTop = picture_.turnedOver ? height - 1 - row : row;
        const double middle = options_.Middle();
        if (picture_.hasRowWidths) {
            const double top = static_cast<double>(element_.rowWidths[0]) * picture_.scaleX;
            const double times = RowWidth(element_, fromTop, height);
            const double step = static_cast<double>(element_.rowWidths[0]) * picture_.stepScaleX;
            return {middle + (picture_.axisX - top / 2 - middle) * times, top * times,
                    step * times};
        }
        const double speed = RowSpeed(element_, fromTop, height);
        if (!options_.additions) {
            return {picture_.x + static_cast<double>(options_.camera.x) *
                                     static_cast<double>(element_.deltaX) * (speed - 1),
                    0, 0};
        }
        return {middle + (picture_.axisX - middle) * speed + picture_.fromAxisX * picture_.scaleX,
                0, 0};
    }

    static double Near(double place) {
        constexpr auto kMost = static_cast<double>(kFarthest);
        return std::clamp(place, -kMost, kMost);
    }

    [[nodiscard]] ScaledCopies CopiesOf(const PlacedRow& row) const {
        const double place = Near(row.x);
        return picture_.hasRowWidths
                   ? ScaledCopies::OfSize(tiles_.across, place, std::min(row.width, kLargest),
                                          std::min(row.step, kLargest))
                   : ScaledCopies(tiles_.across, place, picture_.scaleX, picture_.stepScaleX);
    }

    void ShowRow(const PlacedRow& row, const PixelRange& lines, std::int64_t source) {
        if (timesX_ == 0 || picture_.hasRowWidths || IsMixed()) {
            if (picture_.hasRowWidths && row.width == 0) {
                return;
            }
            const ScaledCopies copies = CopiesOf(row);
            const double count = copies.CopiesIn(window_.columns.to - window_.columns.from);
            if (TakesLines(copies, {source, source + 1},
                           IsMixed() ? count * static_cast<double>(LinesSeen()) : count,
                           lines.to - lines.from)) {
                ShowLines(lines, 1);
                return;
            }
            copies.ForEach(window_.columns, Deepest(), [&](const PixelRange& column) {
                visitor_.Show({column.from, lines.from, column.to - column.from,
                               lines.to - lines.from, 0, source, sprite_.width, 1});
            });
            return;
        }
        x_ = WholePixel(Near(row.x), options_.additions);
        row_ = Row{lines, source};
        const PixelRange visible = InItsPixels(window_.columns, x_, timesX_);
        const Axis across(tiles_.across, 0, visible, mixing_);
        if (across.copies.count == 0) {
            return;
        }
        Pieces columns = PiecesOf(across, mixing_);
        if (pattern_ != nullptr) {
            ShowPatternAt({across.copies.first, 0, PatternLength(across), 1});
            if (across.lastShowsMore) {
                ShowLast(columns, 0, 1);
            }
            return;
        }
        if (mixing_ != Mixing::Solid) {
            ThinOut(columns, across, visible, Deepest());
        }
        ShowAcross(columns, 0, 1);
    }

    // Copies that overlap, when they are more than that deep.
    static void ThinOut(Pieces& pieces, const Axis& axis, const PixelRange& visible,
                        std::int64_t depth) {
        if (axis.Overlap() && DepthOf(axis.tiles, axis.copies) > depth) {
            pieces.at = CopiesAlong(axis.tiles, 0, visible, depth);
        }
    }

    // In any order, for none of these pieces overlap.
    void ShowPattern(const Axis& across, const Axis& down) {
        ShowPatternAt(
            {across.copies.first, down.copies.first, PatternLength(across), PatternLength(down)});
        const Pieces columns = PiecesOf(across, mixing_);
        const Pieces rows = PiecesOf(down, mixing_);
        if (across.lastShowsMore) {
            for (std::int64_t i = 0; i < rows.at.count; ++i) {
                ShowLast(columns, rows.at.At(i), rows.LengthOf(i));
            }
        }
        if (down.lastShowsMore) {
            ShowAcross(columns, rows.at.last, rows.lastLength);
        }
    }

    void ShowAcross(const Pieces& columns, std::int64_t y, std::int64_t height) {
        for (std::int64_t i = 0; i < columns.at.count; ++i) {
            ShowPiece({columns.at.At(i), y, columns.LengthOf(i), height});
        }
    }

    void ShowLast(const Pieces& columns, std::int64_t y, std::int64_t height) {
        ShowPiece({columns.at.last, y, columns.lastLength, height});
    }

    // Pieces in pixels of the picture, from where it begins.
    void ShowPiece(const SpriteQuad& piece) {
        if (const std::optional<SpriteQuad> quad = OnCanvas(piece)) {
            visitor_.Show(*quad);
        }
    }

    void ShowPatternAt(const SpriteQuad& piece) {
        if (piece.width < 1 || piece.height < 1) {
            return;
        }
        if (const std::optional<SpriteQuad> quad = OnCanvas(piece)) {
            visitor_.ShowPattern(*pattern_, *quad);
        }
    }

    // Where it is on the canvas. One that is drawn pixel for pixel is cut to the window; of others
    // whoever draws them leaves out what lies outside.
    [[nodiscard]] std::optional<SpriteQuad> OnCanvas(const SpriteQuad& piece) const {
        SpriteQuad quad{x_ + piece.x * timesX_, y_ + piece.y * timesY_, piece.width * timesX_,
                        piece.height * timesY_};
        std::int64_t shownHeight = piece.height;
        if (row_) {
            quad.y = row_->lines.from;
            quad.height = row_->lines.to - row_->lines.from;
            quad.sourceY = row_->source;
            shownHeight = 1;
        }
        if (quad.width == piece.width && quad.height == shownHeight) {
            return CutTo(window_, quad);
        }
        quad.sourceWidth = piece.width;
        quad.sourceHeight = shownHeight;
        return quad;
    }

    // The row of a parallax picture that is being shown.
    struct Row {
        PixelRange lines;
        std::int64_t source;
    };

    const BackgroundElement& element_;
    const PlacedPicture& picture_;
    const DrawOptions& options_;
    Mixing mixing_;
    PieceVisitor& visitor_;
    const SpriteEntry& sprite_;
    ElementTiles tiles_;
    ElementWindow window_;
    std::int64_t timesX_;
    std::int64_t timesY_;
    std::int64_t x_ = 0;  // where the picture begins, or its row
    std::int64_t y_ = 0;
    std::optional<Row> row_;
    const TilePattern* pattern_ = nullptr;
};

// Rounding moves a picture by less than a pixel.
bool Touches(double position, double size, Long length) {
    return position < length + 1 && position + size > -1;
}

}  // namespace

bool MayBeSeen(const StageModel& model, const BackgroundElement& element,
               const DrawOptions& options) {
    if (!element.seenFrom.Has(options.camera.x, options.camera.y)) {
        return false;
    }
    if (element.kind != ElementKind::Still || ShowsFrames(element) || element.tileX != 0 ||
        element.tileY != 0) {
        return true;
    }
    const std::optional<PlacedPicture> picture = PlaceElement(model, element, options);
    if (!picture) {
        return false;
    }
    const SpriteEntry& sprite = RecordAt(model.Sprites, element.spriteIndex, "sprite");
    const CanvasSize canvas = options.view.Canvas();
    return Touches(picture->x, sprite.width * picture->scaleX, canvas.width) &&
           Touches(picture->y, sprite.height * picture->scaleY, canvas.height);
}

void ForEachPiece(const StageModel& model, const BackgroundElement& element,
                  const PlacedPicture& picture, const DrawOptions& options, Mixing mixing,
                  PieceVisitor& visitor) {
    ElementPieces(model, element, picture, options, mixing, visitor).ShowAll();
}

}  // namespace scenara
