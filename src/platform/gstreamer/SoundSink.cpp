// SPDX-License-Identifier: MIT
#include "platform/gstreamer/SoundSink.h"

#include <filesystem>
#include <string>
#include <system_error>

namespace scenara {
namespace {

// Whether the machine has a card that plays. The card's library would complain where there is none.
bool HasSoundCard() {
    std::error_code error;
    for (std::filesystem::directory_iterator entry("/dev/snd", error), end; !error && entry != end;
         entry.increment(error)) {
        const std::string name = entry->path().filename().string();
        if (name.starts_with("pcm") && name.ends_with("p")) {
            return true;
        }
    }
    return false;
}

// The element, when it finds what it plays through.
GstElement* Connected(const char* factory) {
    GstElement* const sink = gst_element_factory_make(factory, nullptr);
    if (sink == nullptr) {
        return nullptr;
    }
    if (gst_element_set_state(sink, GST_STATE_READY) == GST_STATE_CHANGE_SUCCESS) {
        return sink;
    }
    gst_element_set_state(sink, GST_STATE_NULL);
    gst_object_unref(gst_object_ref_sink(sink));
    return nullptr;
}

}  // namespace

GstElement* MakeMachineSink() {
    GstElement* sink = Connected("pulsesink");
    if (sink == nullptr && HasSoundCard()) {
        sink = Connected("alsasink");
    }
    return sink != nullptr ? sink : MakeSilentSink();
}

GstElement* MakeSilentSink() {
    GstElement* const sink = gst_element_factory_make("fakesink", nullptr);
    if (sink != nullptr) {
        g_object_set(sink, "sync", gboolean{TRUE}, nullptr);
    }
    return sink;
}

}  // namespace scenara
