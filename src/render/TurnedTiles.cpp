// SPDX-License-Identifier: MIT
#include "render/TurnedTiles.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>

#include "render/ScaledCopies.h"
#include "render/Tiling.h"

namespace scenara {
namespace {

// The corners of a turned picture as seen from its own axis, as a TurnedQuad has them.
struct TurnedCorners {
    std::array<double, 4> x{};
    std::array<double, 4> y{};

    TurnedCorners(const PlacedPicture& picture, const SpriteEntry& sprite) {
        const double left = (picture.fromAxisX - picture.offsetX) * picture.scaleX;
        const double top = (picture.fromAxisY - picture.offsetY) * picture.scaleY;
        const double right = left + sprite.width * picture.scaleX;
        const double bottom = top + sprite.height * picture.scaleY;
        const std::array columns{left, left, right, right};
        const std::array lines{bottom, top, bottom, top};
        for (std::size_t i = 0; i < 4; ++i) {
            x.at(i) = picture.turn.X(columns.at(i), lines.at(i));
            y.at(i) = picture.turn.Y(columns.at(i), lines.at(i));
        }
    }
};

// Boxes of copies along one axis, as copies of a picture of one pixel that is as large. `axis`:
// where the first picture's own axis stands.
ScaledCopies BoxesAlong(const Tiles& tiles, double axis, const std::array<double, 4>& corners,
                        double stepScale) {
    const auto [least, most] = std::ranges::minmax(corners);
    constexpr std::int64_t kOnePixel = 1;
    return {{tiles.count, DrawnStep(tiles), kOnePixel, false, true},
            axis + least,
            most - least,
            stepScale};
}

// Boxes end between pixels.
PixelRange Around(const PixelRange& visible) {
    return {visible.from - 1, visible.to + 1};
}

// About how many boxes are shown that lie no deeper than that: at most one for each pixel.
double CountIn(const ScaledCopies& boxes, const PixelRange& visible, std::int64_t deepest) {
    const std::int64_t pixels = visible.to - visible.from;
    const double thinned = static_cast<double>(boxes.Depth()) / static_cast<double>(deepest);
    return std::min(boxes.CopiesIn(pixels) / std::max(thinned, 1.0), static_cast<double>(pixels));
}

// Takes every nth.
class EveryNth {
public:
    explicit EveryNth(std::int64_t nth) : nth_(nth) {}
    [[nodiscard]] bool Next() { return number_++ % nth_ == 0; }

private:
    std::int64_t nth_;
    std::int64_t number_ = 0;
};

bool Touches(const PixelRange& box, const PixelRange& visible) {
    return box.from <= visible.to && box.to >= visible.from;
}

}  // namespace

void ShowTurnedTiles(const PlacedPicture& picture, const SpriteEntry& sprite,
                     const ElementTiles& tiles, const ElementWindow& window, std::int64_t deepest,
                     PieceVisitor& visitor) {
    const TurnedCorners corners(picture, sprite);
    const double axisX = picture.axisX + picture.offsetX * picture.scaleX;
    const double axisY = picture.axisY + picture.offsetY * picture.scaleY;
    const ScaledCopies columns = BoxesAlong(tiles.across, axisX, corners.x, picture.stepScaleX);
    const ScaledCopies rows = BoxesAlong(tiles.down, axisY, corners.y, picture.stepScaleY);
    const Depths depths = AllowedDepths(columns.Depth(), rows.Depth(), deepest);
    const PixelRange visibleColumns = Around(window.columns);
    const PixelRange visibleRows = Around(window.rows);
    const double count =
        CountIn(columns, visibleColumns, depths.x) * CountIn(rows, visibleRows, depths.y);
    const auto nth = static_cast<std::int64_t>(std::ceil(std::sqrt(count / kMostTurned)));
    EveryNth takenRows(nth);
    rows.ForEachNumber(visibleRows, depths.y, [&](std::int64_t row, const PixelRange& lines) {
        if (!Touches(lines, visibleRows) || !takenRows.Next()) {
            return;
        }
        EveryNth takenColumns(nth);
        const double y = axisY + rows.Along(row);
        columns.ForEachNumber(
            visibleColumns, depths.x, [&](std::int64_t column, const PixelRange& box) {
                if (!Touches(box, visibleColumns) || !takenColumns.Next()) {
                    return;
                }
                const double x = axisX + columns.Along(column);
                TurnedQuad quad;
                for (std::size_t i = 0; i < 4; ++i) {
                    quad.corners.at(i) = {static_cast<Single>(x + corners.x.at(i)),
                                          static_cast<Single>(y + corners.y.at(i))};
                }
                visitor.ShowTurned(quad);
            });
    });
}

}  // namespace scenara
