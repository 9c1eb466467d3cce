// SPDX-License-Identifier: MIT
#include "gstreamer/Recorder.h"

#include <cmath>
#include <cstdint>
#include <cstring>
#include <string_view>

#include "gstreamer/SinkEvents.h"

namespace scenara::test {
namespace {

template <typename Sample>
void AppendLeft(std::vector<float>& to, const GstMapInfo& map, std::size_t channels, float full) {
    const std::size_t frame = channels * sizeof(Sample);
    for (std::size_t at = 0; at + frame <= map.size; at += frame) {
        Sample sample{};
        std::memcpy(&sample, map.data + at, sizeof(Sample));
        to.push_back(static_cast<float>(sample) / full);
    }
}

GstClockTime RunningTime(GstPad* pad, GstBuffer* block) {
    GstEvent* const event = gst_pad_get_sticky_event(pad, GST_EVENT_SEGMENT, 0);
    const GstSegment* segment = nullptr;
    gst_event_parse_segment(event, &segment);
    const GstClockTime time =
        gst_segment_to_running_time(segment, GST_FORMAT_TIME, GST_BUFFER_PTS(block));
    gst_event_unref(event);
    return time;
}

gboolean RefuseSeekWithoutFlush(GstPad* pad, GstObject* parent, GstEvent* event) {
    if (GST_EVENT_TYPE(event) == GST_EVENT_SEEK) {
        GstSeekFlags flags = GST_SEEK_FLAG_NONE;
        gst_event_parse_seek(event, nullptr, nullptr, &flags, nullptr, nullptr, nullptr, nullptr);
        if ((flags & GST_SEEK_FLAG_FLUSH) == 0) {
            gst_event_unref(event);
            return FALSE;
        }
    }
    return gst_pad_event_default(pad, parent, event);
}

}  // namespace

SinkMaker Recorder::Maker() {
    return [this] { return Make(); };
}

SinkMaker Recorder::MakerOfFlushingOnly() {
    return [this] { return WithEvents(Make(), RefuseSeekWithoutFlush); };
}

GstElement* Recorder::Make() {
    sink_ = MakeSilentSink();
    g_object_set(sink_, "signal-handoffs", gboolean{TRUE}, nullptr);
    g_signal_connect(sink_, "handoff", G_CALLBACK(OnBlock), this);
    return sink_;
}

void Recorder::OnBlock(GstElement*, GstBuffer* block, GstPad* pad, gpointer self) {
    static_cast<Recorder*>(self)->Keep(block, pad);
}

void Recorder::Keep(GstBuffer* block, GstPad* pad) {
    GstCaps* const caps = gst_pad_get_current_caps(pad);
    const GstStructure* const format = gst_caps_get_structure(caps, 0);
    const std::string_view name = gst_structure_get_string(format, "format");
    int channels = 0;
    int perSecond = 0;
    gst_structure_get_int(format, "channels", &channels);
    gst_structure_get_int(format, "rate", &perSecond);
    const double begin = static_cast<double>(RunningTime(pad, block)) / 1e9;

    const std::scoped_lock lock(mutex_);
    const std::size_t before = samples_.size();
    GstMapInfo map{};
    if (gst_buffer_map(block, &map, GST_MAP_READ) != FALSE) {
        const auto count = static_cast<std::size_t>(channels);
        if (name == "S16LE") {
            AppendLeft<std::int16_t>(samples_, map, count, 32768);
        } else if (name == "F32LE") {
            AppendLeft<float>(samples_, map, count, 1);
        }
        gst_buffer_unmap(block, &map);
    }
    gst_caps_unref(caps);
    if (end_) {
        const double gap = (begin - *end_) * perSecond;
        largestGap_ = std::abs(gap) > std::abs(largestGap_) ? gap : largestGap_;
    }
    end_ = begin + static_cast<double>(samples_.size() - before) / perSecond;
}

std::vector<float> Recorder::Samples() {
    const std::scoped_lock lock(mutex_);
    return samples_;
}

std::size_t Recorder::Count() {
    const std::scoped_lock lock(mutex_);
    return samples_.size();
}

void Recorder::Forget() {
    const std::scoped_lock lock(mutex_);
    samples_.clear();
    end_.reset();
    largestGap_ = 0;
}

double Recorder::LargestGap() {
    const std::scoped_lock lock(mutex_);
    return largestGap_;
}

void Recorder::Break() {
    GST_ELEMENT_ERROR(sink_, RESOURCE, WRITE, ("gone"), (nullptr));
}

}  // namespace scenara::test
