// SPDX-License-Identifier: MIT
#include "platform/gstreamer/Pipeline.h"

#include <cmath>
#include <cstdlib>
#include <utility>

#include "platform/gstreamer/Decoding.h"

namespace scenara {
namespace {

constexpr double kNanoseconds = 1e9;
constexpr Long kExtreme = 10000;
constexpr double kHundredthsPerTenfold = 2000;
constexpr int kSimplePanorama = 1;  // leaves the near side as it is

// The part of the loudness that is left at `volume`, -10000 to 0: nothing, at -10000.
double Loudness(Long volume) {
    return volume <= -kExtreme ? 0 : std::pow(10.0, volume / kHundredthsPerTenfold);
}

double ToSeconds(gint64 nanoseconds) {
    return static_cast<double>(nanoseconds) / kNanoseconds;
}

}  // namespace

Pipeline::Pipeline(const SinkMaker& makeSink, std::function<void()> wake) : wake_(std::move(wake)) {
    pipeline_.reset(GST_ELEMENT(gst_object_ref_sink(gst_pipeline_new(nullptr))));
    GstBin* const bin = GST_BIN(pipeline_.get());
    bool complete = true;
    const auto add = [&](GstElement* element) {
        complete = complete && element != nullptr;
        if (element != nullptr) {
            gst_bin_add(bin, element);
        }
        return element;
    };
    const auto make = [&](const char* factory) {
        return add(gst_element_factory_make(factory, nullptr));
    };
    source_ = make("filesrc");
    decoder_ = make("decodebin");
    GstElement* const converter = make("audioconvert");
    GstElement* const resampler = make("audioresample");
    volume_ = make("volume");
    panorama_ = make("audiopanorama");
    GstElement* const last = make("audioconvert");
    GstElement* const sink = add(makeSink());
    if (!complete || gst_element_link(source_, decoder_) == FALSE ||
        gst_element_link_many(converter, resampler, volume_, panorama_, last, sink, nullptr) ==
            FALSE) {
        return;
    }
    sink_ = sink;
    const GstPointer<GstCaps> sound(gst_caps_new_empty_simple("audio/x-raw"));
    g_object_set(decoder_, "caps", sound.get(), "expose-all-streams", gboolean{FALSE}, nullptr);
    g_object_set(panorama_, "method", kSimplePanorama, nullptr);
    g_signal_connect(decoder_, "pad-added", G_CALLBACK(LinkDecoded), converter);
    bus_.reset(gst_element_get_bus(pipeline_.get()));
    gst_bus_set_sync_handler(bus_.get(), OnMessage, this, nullptr);
}

Pipeline::~Pipeline() {
    gst_element_set_state(pipeline_.get(), GST_STATE_NULL);
    if (bus_) {
        gst_bus_set_sync_handler(bus_.get(), nullptr, nullptr, nullptr);
    }
}

// Of several streams of sound the first is heard.
void Pipeline::LinkDecoded(GstElement*, GstPad* pad, gpointer converter) {
    const GstPointer<GstPad> entry(gst_element_get_static_pad(GST_ELEMENT(converter), "sink"));
    if (gst_pad_is_linked(entry.get()) == FALSE) {
        TrimDecoded(pad);
        gst_pad_link(pad, entry.get());
    }
}

// In whatever thread the message comes from. None is kept: a queue of them that is not always
// emptied in time would grow.
GstBusSyncReply Pipeline::OnMessage(GstBus*, GstMessage* message, gpointer self) {
    static_cast<Pipeline*>(self)->Note(GST_MESSAGE_TYPE(message));
    gst_message_unref(message);  // who drops it has to
    return GST_BUS_DROP;
}

void Pipeline::Note(GstMessageType message) {
    {
        const std::scoped_lock lock(newsMutex_);
        switch (message) {
            case GST_MESSAGE_ASYNC_DONE: news_.settled = true; break;
            case GST_MESSAGE_EOS: news_.ended = true; break;
            case GST_MESSAGE_ERROR: news_.failed = true; break;
            case GST_MESSAGE_DURATION_CHANGED: news_.durationChanged = true; break;
            default: return;
        }
    }
    wake_();
}

bool Pipeline::Open(const std::string& path, std::uint64_t fileSize) {
    if (sink_ == nullptr) {
        return false;
    }
    g_object_set(source_, "location", path.c_str(), nullptr);
    RestrictDecoding(decoder_, fileSize);
    return gst_element_set_state(pipeline_.get(), GST_STATE_PAUSED) != GST_STATE_CHANGE_FAILURE;
}

PipelineNews Pipeline::Poll() {
    PipelineNews news;
    {
        const std::scoped_lock lock(newsMutex_);
        std::swap(news, news_);
    }
    // It is told a moment before it is so; and one from before a seek may be told after it, which
    // then waits here for the next.
    endTold_ = endTold_ || news.ended;
    news.ended = endTold_ && StandsAtEnd();
    endTold_ = endTold_ && !news.ended;
    return news;
}

bool Pipeline::StandsAtEnd() const {
    const GstPointer<GstPad> entry(gst_element_get_static_pad(sink_, "sink"));
    return entry && GST_PAD_IS_EOS(entry.get());
}

bool Pipeline::SetPlaying(bool playing) {
    return gst_element_set_state(pipeline_.get(), playing ? GST_STATE_PLAYING : GST_STATE_PAUSED) !=
           GST_STATE_CHANGE_FAILURE;
}

bool Pipeline::Seek(double seconds, double rate) {
    {
        const std::scoped_lock lock(newsMutex_);
        // Of something earlier.
        news_.settled = false;
        news_.ended = false;
    }
    endTold_ = false;
    constexpr auto kFlags = static_cast<GstSeekFlags>(GST_SEEK_FLAG_FLUSH | GST_SEEK_FLAG_ACCURATE);
    return gst_element_seek(pipeline_.get(), rate, GST_FORMAT_TIME, kFlags, GST_SEEK_TYPE_SET,
                            static_cast<gint64>(seconds * kNanoseconds), GST_SEEK_TYPE_NONE,
                            0) != FALSE;
}

void Pipeline::SetVolume(Long volume) {
    g_object_set(volume_, "volume", Loudness(volume), nullptr);
}

void Pipeline::SetBalance(Long balance) {
    const double side = balance < 0 ? -1 : 1;
    const double place = side * (1 - Loudness(-std::abs(balance)));
    g_object_set(panorama_, "panorama", place, nullptr);
}

// The sink is asked, not the pipeline: it always answers at once.
std::optional<double> Pipeline::Position() const {
    gint64 nanoseconds = 0;
    if (gst_element_query_position(sink_, GST_FORMAT_TIME, &nanoseconds) == FALSE ||
        nanoseconds < 0) {
        return std::nullopt;
    }
    return ToSeconds(nanoseconds);
}

std::optional<double> Pipeline::Duration() const {
    gint64 nanoseconds = 0;
    if (gst_element_query_duration(pipeline_.get(), GST_FORMAT_TIME, &nanoseconds) == FALSE ||
        nanoseconds < 0) {
        return std::nullopt;
    }
    return ToSeconds(nanoseconds);
}

}  // namespace scenara
