// SPDX-License-Identifier: MIT
//
// The texels of a line of pixels that goes across a texture in any direction, several at a time.
// For TurnedQuads.cpp only.
//
// All that decides which texel it is is done in the doubles of the general path, step by step, so
// that these are the same.
#pragma once

#include <cstdint>

#include "platform/soft/RowPaths.h"
#include "platform/soft/Texels.h"

namespace scenara::soft {

// The course of a line of pixels along an axis of a texture that ends at its edges, counted as
// Sampling.h has it.
struct TurnedCourse {
    double first = 0;  // the place at the first pixel's centre
    double step = 0;
    std::int32_t size = 0;  // texels
    bool mirrored = false;
};

#if SCENARA_ROWS_X86
namespace rows {

// The first `count` pixels, kMostRun at most. There is room for kMostRun in `row`, of which more
// than `count` may be written.
void TurnedNearestAvx2(const Texels& texture, const TurnedCourse& across, const TurnedCourse& down,
                       std::int32_t count, std::uint32_t* row);
// Of texels without any alpha all becomes 0.
void TurnedMeansAvx2(const Texels& texture, const TurnedCourse& across, const TurnedCourse& down,
                     MeanAlphas alphas, std::int32_t count, std::uint32_t* row);

}  // namespace rows
#endif

}  // namespace scenara::soft
