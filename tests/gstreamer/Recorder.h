// SPDX-License-Identifier: MIT
//
// Recorder: a silent sound sink that plays in real time and keeps what it plays, of the left
// side. It outlives the machine that it is given to.
#pragma once

#include <cstddef>
#include <mutex>
#include <optional>
#include <vector>

#include <gst/gst.h>

#include "platform/gstreamer/SoundSink.h"

namespace scenara::test {

class Recorder {
public:
    [[nodiscard]] SinkMaker Maker();
    // Of sinks that are sent elsewhere only by way of silence.
    [[nodiscard]] SinkMaker MakerOfFlushingOnly();

    // All that has been played since Forget, -1 to 1.
    [[nodiscard]] std::vector<float> Samples();
    [[nodiscard]] std::size_t Count();
    void Forget();

    // By how many samples a block was to be played later (or, below 0, earlier) than the end of the
    // one before it: the most of all.
    [[nodiscard]] double LargestGap();
    // Makes the sink fail, as that of a device does that is gone.
    void Break();

private:
    GstElement* Make();
    static void OnBlock(GstElement* sink, GstBuffer* block, GstPad* pad, gpointer self);
    void Keep(GstBuffer* block, GstPad* pad);

    std::mutex mutex_;
    std::vector<float> samples_;
    std::optional<double> end_;  // of the last block, in seconds of playing
    double largestGap_ = 0;
    GstElement* sink_ = nullptr;  // the last one
};

}  // namespace scenara::test
