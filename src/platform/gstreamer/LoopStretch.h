// SPDX-License-Identifier: MIT
//
// LoopStretch: the part of a file that is played over and over, as the media library takes it.
#pragma once

#include <optional>

#include <gst/gst.h>

#include "platform/MediaGraph.h"

namespace scenara {

// The shortest part that is repeated.
inline constexpr GstClockTime kShortestLoop = 50 * GST_MSECOND;

struct LoopStretch {
    GstClockTime start = 0;
    std::optional<GstClockTime> end;  // none: the file's own
};

// `duration` is the file's, where it is known. An end beyond the file, and one that does not follow
// the loop's start by kShortestLoop, count as not given; so does a start that the file's end does
// not follow by as much. Nothing for a file that is shorter than that altogether.
[[nodiscard]] std::optional<LoopStretch> StretchOf(const MediaLoop& loop, int samplesPerSecond,
                                                   const std::optional<GstClockTime>& duration);

}  // namespace scenara
