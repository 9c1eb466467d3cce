// SPDX-License-Identifier: MIT
#include "gstreamer/Listener.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

#include <sys/resource.h>
#include <unistd.h>

#include "gstreamer/SinkEvents.h"

namespace scenara::test {
namespace {

template <typename Sample>
std::array<double, 2> Loudest(const GstMapInfo& map, std::size_t channels, double full) {
    std::array<double, 2> loudest{};
    for (std::size_t i = 0; (i + 1) * sizeof(Sample) <= map.size; ++i) {
        Sample sample{};
        std::memcpy(&sample, map.data + i * sizeof(Sample), sizeof(Sample));
        double& side = loudest.at(channels == 2 ? i % 2 : 0);
        side = std::max(side, std::abs(static_cast<double>(sample)) / full);
    }
    if (channels == 1) {
        loudest[1] = loudest[0];
    }
    return loudest;
}

double RateAt(GstPad* pad) {
    GstEvent* const event = gst_pad_get_sticky_event(pad, GST_EVENT_SEGMENT, 0);
    if (event == nullptr) {
        return 0;
    }
    const GstSegment* segment = nullptr;
    gst_event_parse_segment(event, &segment);
    const double rate = segment->rate;
    gst_event_unref(event);
    return rate;
}

}  // namespace

SinkMaker Listener::Maker() {
    return [this] { return Make(); };
}

SinkMaker Listener::MakerOfUnseekable() {
    return [this] { return WithEvents(Make(), RefuseSeek); };
}

gboolean Listener::RefuseSeek(GstPad* pad, GstObject* parent, GstEvent* event) {
    if (GST_EVENT_TYPE(event) == GST_EVENT_SEEK) {
        gst_event_unref(event);
        return FALSE;
    }
    return gst_pad_event_default(pad, parent, event);
}

GstElement* Listener::Make() {
    GstElement* const sink = MakeSilentSink();
    g_object_set(sink, "signal-handoffs", gboolean{TRUE}, nullptr);
    g_signal_connect(sink, "handoff", G_CALLBACK(OnBlock), this);
    return sink;
}

void Listener::OnBlock(GstElement*, GstBuffer* block, GstPad* pad, gpointer self) {
    static_cast<Listener*>(self)->Measure(block, pad);
}

void Listener::Measure(GstBuffer* block, GstPad* pad) {
    GstCaps* const caps = gst_pad_get_current_caps(pad);
    const GstStructure* const format = gst_caps_get_structure(caps, 0);
    const std::string_view name = gst_structure_get_string(format, "format");
    int channels = 0;
    gst_structure_get_int(format, "channels", &channels);
    int perSecond = 1;
    gst_structure_get_int(format, "rate", &perSecond);
    const int frameSize = channels * (name == "S16LE" ? 2 : 4);
    const double seconds = static_cast<double>(gst_buffer_get_size(block)) / frameSize / perSecond;
    GstMapInfo map{};
    std::array<double, 2> loudest{};
    if (gst_buffer_map(block, &map, GST_MAP_READ) != FALSE) {
        const auto count = static_cast<std::size_t>(channels);
        if (name == "S16LE") {
            loudest = Loudest<std::int16_t>(map, count, 32768);
        } else if (name == "F32LE") {
            loudest = Loudest<float>(map, count, 1);
        }
        gst_buffer_unmap(block, &map);
    }
    gst_caps_unref(caps);
    const double rate = RateAt(pad);
    const int niceness = getpriority(PRIO_PROCESS, static_cast<id_t>(gettid()));

    const std::scoped_lock lock(mutex_);
    ++blocks_;
    heard_ += seconds;
    left_ = loudest[0];
    right_ = loudest[1];
    rate_ = rate;
    niceness_ = niceness;
}

int Listener::Blocks() {
    const std::scoped_lock lock(mutex_);
    return blocks_;
}

double Listener::Heard() {
    const std::scoped_lock lock(mutex_);
    return heard_;
}

double Listener::Left() {
    const std::scoped_lock lock(mutex_);
    return left_;
}

double Listener::Right() {
    const std::scoped_lock lock(mutex_);
    return right_;
}

double Listener::Rate() {
    const std::scoped_lock lock(mutex_);
    return rate_;
}

int Listener::Niceness() {
    const std::scoped_lock lock(mutex_);
    return niceness_;
}

}  // namespace scenara::test
