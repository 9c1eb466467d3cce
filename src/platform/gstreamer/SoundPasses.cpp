// SPDX-License-Identifier: MIT
#include "platform/gstreamer/SoundPasses.h"

#include "platform/gstreamer/GstPointer.h"

namespace scenara {

void SoundPasses::Watch(GstPad* entry) {
    constexpr auto kWatched = static_cast<GstPadProbeType>(GST_PAD_PROBE_TYPE_BUFFER |
                                                           GST_PAD_PROBE_TYPE_EVENT_DOWNSTREAM |
                                                           GST_PAD_PROBE_TYPE_EVENT_FLUSH);
    gst_pad_add_probe(entry, kWatched, OnItem, this, nullptr);
}

int SoundPasses::SamplesPerSecond(GstPad* entry) {
    const GstPointer<GstCaps> caps(gst_pad_get_current_caps(entry));
    int rate = 0;
    if (caps) {
        gst_structure_get_int(gst_caps_get_structure(caps.get(), 0), "rate", &rate);
    }
    return rate;
}

GstPadProbeReturn SoundPasses::OnItem(GstPad*, GstPadProbeInfo* info, gpointer self) {
    auto& passes = *static_cast<SoundPasses*>(self);
    if ((GST_PAD_PROBE_INFO_TYPE(info) & GST_PAD_PROBE_TYPE_BUFFER) != 0) {
        passes.Count(GST_PAD_PROBE_INFO_BUFFER(info));
    } else {
        passes.See(*info, GST_PAD_PROBE_INFO_EVENT(info));
    }
    return GST_PAD_PROBE_OK;
}

void SoundPasses::Count(const GstBuffer* block) {
    const GstClockTime begin = GST_BUFFER_PTS(block);
    const GstClockTime length = GST_BUFFER_DURATION(block);
    if (!GST_CLOCK_TIME_IS_VALID(begin) || !GST_CLOCK_TIME_IS_VALID(length)) {
        return;
    }
    heard_ += length;
    // Its end may be a little outside of the segment.
    guint64 end = 0;
    if (gst_segment_to_running_time_full(&segment_, GST_FORMAT_TIME, begin + length, &end) > 0) {
        heardUntil_ = end;
    }
}

void SoundPasses::See(GstPadProbeInfo& info, GstEvent* event) {
    switch (GST_EVENT_TYPE(event)) {
        case GST_EVENT_FLUSH_STOP:
            heardUntil_.reset();
            betweenPasses_ = false;
            done_ = false;
            break;
        case GST_EVENT_SEGMENT: Begin(info, event); break;
        case GST_EVENT_SEGMENT_DONE:
            betweenPasses_ = true;
            done_ = true;
            wake_();
            break;
        default: break;
    }
}

void SoundPasses::Begin(GstPadProbeInfo& info, GstEvent* event) {
    gst_event_copy_segment(event, &segment_);
    if (betweenPasses_ && heardUntil_) {
        segment_.base = *heardUntil_;
        GstEvent* const moved = gst_event_new_segment(&segment_);
        gst_event_set_seqnum(moved, gst_event_get_seqnum(event));
        gst_event_unref(event);
        GST_PAD_PROBE_INFO_DATA(&info) = moved;
    }
    betweenPasses_ = false;
    heard_ = 0;
}

}  // namespace scenara
