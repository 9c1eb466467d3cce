// SPDX-License-Identifier: MIT
//
// SoundPasses: watches decoded sound on its way to the sink while a file is played over and over,
// and lets each pass begin at the very moment at which the one before it has ended.
//
// The library has times of its own for the passes. They are off where the length of a pass is
// counted in whole blocks of which the decoder cuts off a part: after each pass of a FLAC there
// would be up to a tenth of a second of silence. So the times are made to follow the sound.
#pragma once

#include <atomic>
#include <functional>
#include <optional>

#include <gst/gst.h>

#include "base/NotCopied.h"

namespace scenara {

class SoundPasses : NotCopied {
public:
    // Calls `wake`, in any thread, when a pass is through.
    explicit SoundPasses(std::function<void()> wake) : wake_(std::move(wake)) {}

    // Once: at the entry of the element that decoded sound comes to. Nothing comes to it any more
    // when this ends.
    void Watch(GstPad* entry);

    // Whether a pass has come through since the last time that this was asked, and since the file
    // was last put elsewhere. All of it has then left the decoder.
    [[nodiscard]] bool TakeDone() { return done_.exchange(false); }
    // How long the sound of that pass is.
    [[nodiscard]] GstClockTime Heard() const { return heard_; }
    // Of the sound; 0 before there is any.
    [[nodiscard]] static int SamplesPerSecond(GstPad* entry);

private:
    static GstPadProbeReturn OnItem(GstPad* pad, GstPadProbeInfo* info, gpointer self);

    void Count(const GstBuffer* block);
    void See(GstPadProbeInfo& info, GstEvent* event);
    void Begin(GstPadProbeInfo& info, GstEvent* event);

    std::function<void()> wake_;
    std::atomic<bool> done_ = false;
    std::atomic<GstClockTime> heard_ = 0;

    // Of the thread that the sound comes in.
    GstSegment segment_{};
    std::optional<GstClockTime> heardUntil_;  // when what has come ends, in the time of playing
    bool betweenPasses_ = false;
};

}  // namespace scenara
