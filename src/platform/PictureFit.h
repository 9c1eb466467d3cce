// SPDX-License-Identifier: MIT
//
// PictureFit: where the canvas stands in the box that shows it, in the middle of it.
//
// All in the box's own pixels. Positions in the box go back to the canvas by the same map.
#pragma once

#include <cstdint>

#include "platform/View.h"

namespace scenara {

// Which sizes the canvas is shown at. In a box that is smaller than the canvas it is in any case
// the largest one that fits with the shape kept.
enum class ShownSizes {
    // The largest one that fits with the shape kept, or the largest whole multiple, whose pixels
    // are all alike, where that is at least nine tenths of it.
    Any,
    // The largest whole multiple that fits.
    WholeMultiples,
};

struct PictureFit {
    std::int32_t left = 0;
    std::int32_t top = 0;
    std::int32_t width = 0;  // 0 in a box without any room
    std::int32_t height = 0;
    CanvasSize canvas = {};

    // In a box of this size.
    [[nodiscard]] static PictureFit In(std::int32_t boxWidth, std::int32_t boxHeight,
                                       const CanvasSize& canvas, ShownSizes sizes);

    // The point of the canvas under a point of the box; it may lie outside of the canvas.
    [[nodiscard]] std::int32_t ViewX(std::int32_t x) const { return ViewColumn(x - left); }
    [[nodiscard]] std::int32_t ViewY(std::int32_t y) const { return ViewRow(y - top); }
    // The first column or row of the box that shows this column or row of the canvas. Where the
    // canvas is shown smaller, and this one is left out, it is the next one that is shown. For the
    // end of the canvas it is the one after the picture's last.
    [[nodiscard]] std::int32_t BoxX(std::int32_t viewX) const {
        return left + FirstThatShows(viewX, width, canvas.width);
    }
    [[nodiscard]] std::int32_t BoxY(std::int32_t viewY) const {
        return top + FirstThatShows(viewY, height, canvas.height);
    }

    // The column or row of the canvas that a column or row of the picture shows, by its centre.
    [[nodiscard]] std::int32_t ViewColumn(std::int32_t column) const {
        return Under(column, width, canvas.width);
    }
    [[nodiscard]] std::int32_t ViewRow(std::int32_t row) const {
        return Under(row, height, canvas.height);
    }

private:
    // Of `all` columns that are shown as `size` ones: the one under the centre of that one.
    [[nodiscard]] static std::int32_t Under(std::int32_t column, std::int32_t size,
                                            std::int32_t all) {
        return FloorQuotient((std::int64_t{column} * 2 + 1) * all, std::int64_t{size} * 2);
    }

    // The least c with (2 c + 1) * all >= 2 * shown * size.
    [[nodiscard]] static std::int32_t FirstThatShows(std::int32_t shown, std::int32_t size,
                                                     std::int32_t all) {
        return FloorQuotient(std::int64_t{shown} * size * 2 + all - 1, std::int64_t{all} * 2);
    }

    [[nodiscard]] static std::int32_t FloorQuotient(std::int64_t dividend, std::int64_t divisor) {
        if (divisor < 1) {
            return -1;  // no picture, so nowhere in it
        }
        const std::int64_t quotient = dividend / divisor;
        return static_cast<std::int32_t>(dividend % divisor < 0 ? quotient - 1 : quotient);
    }
};

}  // namespace scenara
