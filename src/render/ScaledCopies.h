// SPDX-License-Identifier: MIT
//
// ScaledCopies, an addition: where the copies of a picture stand along one axis of the canvas when
// it is drawn at a scale of its own.
//
// Copy k stands at position + k * step, rounded once; where steps are whole, at whole steps from
// the first one. With no gap between copies one ends exactly where the next begins; with a gap
// never later than that. So there is no seam, no overlap and no drift, at any scale.
#pragma once

#include <cstdint>

#include "render/Tiling.h"

namespace scenara {

class ScaledCopies {
public:
    // `position`: canvas pixels; `scale`: canvas pixels to a pixel of the picture, above 0;
    // `stepScale`: the same for the distance from copy to copy.
    ScaledCopies(const Tiles& tiles, double position, double scale, double stepScale);
    ScaledCopies(const Tiles& tiles, double position, double scale)
        : ScaledCopies(tiles, position, scale, scale) {}

    // Of a picture that is drawn so large, to the last bit. Where there is no gap between copies
    // they stand `step` apart, canvas pixels, otherwise by as much more.
    [[nodiscard]] static ScaledCopies OfSize(const Tiles& tiles, double position, double size,
                                             double step);

    // Calls `show` with the pixels of each copy that covers a pixel of `visible`, in order. Where
    // more than `deepest` would lie upon one another only every second, third, ... is shown, and in
    // any case the first and the last of a count. Of many copies less than a pixel apart there is
    // one for each pixel.
    template <typename Show>
    void ForEach(const PixelRange& visible, std::int64_t deepest, Show show) const {
        ForEachNumber(visible, deepest, [&](std::int64_t /*number*/, const PixelRange& copy) {
            if (!copy.IsEmpty() && copy.from < visible.to && copy.to > visible.from) {
                show(copy);
            }
        });
    }

    // The same with the number of each copy as well, and with some that stand just beside
    // `visible`, or between two pixels.
    template <typename Show>
    void ForEachNumber(const PixelRange& visible, std::int64_t deepest, Show show) const {
        const Numbers numbers = NumbersIn(visible, deepest);
        for (std::int64_t i = 0; i < numbers.count; ++i) {
            const std::int64_t column = visible.from + i;
            const std::int64_t number =
                numbers.ByColumns() ? LastAt(column, numbers) : numbers.At(i);
            const PixelRange copy = At(number);
            const bool itsOwn =
                !numbers.ByColumns() || copy.from == column || (i == 0 && copy.from < column);
            if (itsOwn) {
                show(number, copy);
            }
        }
    }

    // Whether a copy reaches into the next one.
    [[nodiscard]] bool Overlap() const { return overlap_; }

    // How many copies lie upon one another, at most.
    [[nodiscard]] std::int64_t Depth() const;

    // About how many copies are in so many pixels.
    [[nodiscard]] double CopiesIn(std::int64_t pixels) const;

    // How far a copy stands from the first one, unrounded.
    [[nodiscard]] double Along(std::int64_t number) const {
        return static_cast<double>(number) * step_;
    }

private:
    // Which copies are looked at: first, first + nth, ..., last. nth 0: by the columns that they
    // begin in, of each column the last one.
    struct Numbers {
        std::int64_t first = 0;
        std::int64_t last = -1;
        std::int64_t nth = 1;
        std::int64_t count = 0;

        [[nodiscard]] bool ByColumns() const { return nth == 0; }
        [[nodiscard]] std::int64_t At(std::int64_t i) const {
            return i + 1 == count ? last : first + i * nth;
        }
    };

    [[nodiscard]] Numbers NumbersIn(const PixelRange& visible, std::int64_t deepest) const;
    // Of what stands at `place` in copy 0.
    [[nodiscard]] std::int64_t InCopy(std::int64_t number, double place) const;
    [[nodiscard]] std::int64_t BeginOf(std::int64_t number) const {
        return InCopy(number, position_);
    }
    [[nodiscard]] PixelRange At(std::int64_t number) const;
    [[nodiscard]] std::int64_t LastAt(std::int64_t column, const Numbers& numbers) const;

    double position_;
    double step_;         // canvas pixels; 0: there is one copy
    double size_;         // as drawn
    std::int64_t whole_;  // the same, at a whole scale; else 0
    bool wholeStep_;
    bool touch_;  // copies touch
    bool overlap_;
    std::int64_t least_;
    std::int64_t most_;
};

}  // namespace scenara
