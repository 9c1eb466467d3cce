// SPDX-License-Identifier: MIT
#include "platform/gstreamer/LoopStretch.h"

#include <algorithm>

namespace scenara {
namespace {

// Decoders cut at whole samples and disagree about which way they round a time. What they are told
// is a little inside of the sample that is meant, far less than any sample takes, so that all of
// them find that one.
constexpr GstClockTime kInside = 100;

// The time of a sample, rounded down.
GstClockTime TimeOf(Long sample, int samplesPerSecond) {
    return gst_util_uint64_scale(static_cast<guint64>(std::max(sample, 0)), GST_SECOND,
                                 static_cast<guint64>(samplesPerSecond));
}

}  // namespace

std::optional<LoopStretch> StretchOf(const MediaLoop& loop, int samplesPerSecond,
                                     const std::optional<GstClockTime>& duration) {
    if (samplesPerSecond <= 0 || (duration && *duration < kShortestLoop)) {
        return std::nullopt;
    }
    LoopStretch stretch;
    if (loop.start > 0) {
        stretch.start = TimeOf(loop.start, samplesPerSecond) + 1 + kInside;
    }
    if (loop.end >= 0) {
        const GstClockTime end = TimeOf(loop.end, samplesPerSecond);
        const bool beyond = duration && end >= *duration;
        if (!beyond && end >= stretch.start + kShortestLoop) {
            stretch.end = end - kInside;
        }
    }
    const std::optional<GstClockTime> last = stretch.end ? stretch.end : duration;
    if (last && *last < stretch.start + kShortestLoop) {
        stretch.start = 0;
    }
    return stretch;
}

}  // namespace scenara
