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

GstPointer<GstPad> EntryOf(GstElement* element) {
    return GstPointer<GstPad>(gst_element_get_static_pad(element, "sink"));
}

double ToSeconds(gint64 nanoseconds) {
    return static_cast<double>(nanoseconds) / kNanoseconds;
}

GstClockTime ToTime(double seconds) {
    return static_cast<GstClockTime>(seconds * kNanoseconds);
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
    converter_ = make("audioconvert");
    GstElement* const resampler = make("audioresample");
    volume_ = make("volume");
    panorama_ = make("audiopanorama");
    GstElement* const last = make("audioconvert");
    GstElement* const sink = add(makeSink());
    if (!complete || gst_element_link(source_, decoder_) == FALSE ||
        gst_element_link_many(converter_, resampler, volume_, panorama_, last, sink, nullptr) ==
            FALSE) {
        return;
    }
    sink_ = sink;
    const GstPointer<GstCaps> sound(gst_caps_new_empty_simple("audio/x-raw"));
    g_object_set(decoder_, "caps", sound.get(), "expose-all-streams", gboolean{FALSE}, nullptr);
    g_object_set(panorama_, "method", kSimplePanorama, nullptr);
    g_signal_connect(decoder_, "pad-added", G_CALLBACK(LinkDecoded), converter_);
    passes_.Watch(EntryOf(converter_).get());
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
    const GstPointer<GstPad> entry = EntryOf(GST_ELEMENT(converter));
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
    if (passes_.TakeDone() && !PlayNextPass()) {
        news.ended = true;
    }
    return news;
}

bool Pipeline::StandsAtEnd() const {
    const GstPointer<GstPad> entry = EntryOf(sink_);
    return entry && GST_PAD_IS_EOS(entry.get());
}

bool Pipeline::SetPlaying(bool playing) {
    return gst_element_set_state(pipeline_.get(), playing ? GST_STATE_PLAYING : GST_STATE_PAUSED) !=
           GST_STATE_CHANGE_FAILURE;
}

bool Pipeline::Seek(double seconds, double rate, const std::optional<MediaLoop>& loop) {
    {
        const std::scoped_lock lock(newsMutex_);
        // Of something earlier.
        news_.settled = false;
        news_.ended = false;
    }
    endTold_ = false;
    rate_ = rate;
    fromLoopStart_ = false;
    stretch_.reset();
    if (loop) {
        const std::optional<double> duration = Duration();
        stretch_ = StretchOf(*loop, SoundPasses::SamplesPerSecond(EntryOf(converter_).get()),
                             duration ? std::optional(ToTime(*duration)) : std::nullopt);
    }
    if (stretch_ && SendSeek(GST_SEEK_FLAG_FLUSH, ToTime(seconds))) {
        return true;
    }
    stretch_.reset();
    return SendSeek(GST_SEEK_FLAG_FLUSH, ToTime(seconds));
}

// To the loop's end or, from beyond that, to the file's.
bool Pipeline::SendSeek(GstSeekFlags flags, GstClockTime start) {
    const int all = flags | GST_SEEK_FLAG_ACCURATE | (stretch_ ? GST_SEEK_FLAG_SEGMENT : 0);
    const bool ends = stretch_ && stretch_->end && start < *stretch_->end;
    const gint64 end = ends ? static_cast<gint64>(*stretch_->end) : -1;
    return gst_element_seek(pipeline_.get(), rate_, GST_FORMAT_TIME, static_cast<GstSeekFlags>(all),
                            GST_SEEK_TYPE_SET, static_cast<gint64>(start), GST_SEEK_TYPE_SET,
                            end) != FALSE;
}

// From the loop's start. When there is hardly any sound from there on, as in a damaged file, it
// would be begun again without end. Then it has come to its end.
bool Pipeline::PlayNextPass() {
    constexpr GstClockTime kHardlyAny = 10 * GST_MSECOND;
    const bool isLoop = !fromLoopStart_ || passes_.Heard() >= kHardlyAny;
    fromLoopStart_ = true;
    return stretch_ && isLoop && SendSeek(GST_SEEK_FLAG_NONE, stretch_->start);
}

void Pipeline::SetVolume(Long volume, double gain) {
    g_object_set(volume_, "volume", Loudness(volume) * gain, nullptr);
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
