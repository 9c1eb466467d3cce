// SPDX-License-Identifier: MIT
//
// AreaMeans: a canvas at a size that is smaller along an axis, each pixel the mean of the area
// under it. A pixel of the canvas that lies under several counts for each by its part.
#pragma once

#include <cstdint>
#include <vector>

#include "platform/View.h"
#include "platform/soft/ScaledPixels.h"

namespace scenara::soft {

class AreaMeans {
public:
    // From canvases of this size to pictures of that one. No side is longer than kMostScaled or
    // shorter than 1.
    void Prepare(const CanvasSize& size, const CanvasSize& shown);

    // Takes no memory.
    void Draw(const std::uint32_t* canvas, const ScaledPixels& into);

private:
    // What of the canvas lies under a row or column that is shown: whole ones, of which the first
    // and the last may count less.
    struct Stretch {
        std::int32_t first = 0;
        std::int32_t last = 0;  // may be the first one, which then counts as such
        float ofFirst = 0;
        float ofLast = 0;
    };

    static void MakeStretches(std::int32_t size, std::int32_t all, std::vector<Stretch>& stretches);
    void AddRows(const std::uint32_t* canvas, const Stretch& rows);
    void MixColumns();

    CanvasSize size_;
    std::vector<Stretch> rows_;
    std::vector<Stretch> columns_;
    // The four channels of each pixel, as numbers.
    std::vector<float> sums_;  // of each column of the canvas: the rows under the one that is drawn
    std::vector<float> means_;  // of that row
};

}  // namespace scenara::soft
