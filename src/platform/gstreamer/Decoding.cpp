// SPDX-License-Identifier: MIT
#include "platform/gstreamer/Decoding.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "platform/gstreamer/GstPointer.h"

namespace scenara {
namespace {

// The answers to the signal autoplug-select, which no header of the library has.
constexpr int kTry = 0;
constexpr int kSkip = 2;

bool Contains(std::string_view text, std::string_view part) {
    return text.find(part) != std::string_view::npos;
}

bool IsForbidden(std::string_view klass) {
    constexpr std::array<std::string_view, 5> kForbidden = {"Video", "Image", "Subtitle", "Network",
                                                            "Adaptive"};
    return std::any_of(kForbidden.begin(), kForbidden.end(),
                       [klass](std::string_view word) { return Contains(klass, word); });
}

// Whether the file itself comes out of `pad`, a stand-in for that of another element.
bool IsOfTheFile(GstPad* pad) {
    if (!GST_IS_GHOST_PAD(pad)) {
        return false;
    }
    const GstPointer<GstPad> target(gst_ghost_pad_get_target(GST_GHOST_PAD(pad)));
    const GstPointer<GstElement> element(target ? gst_pad_get_parent_element(target.get())
                                                : nullptr);
    GstElementFactory* const factory = element ? gst_element_get_factory(element.get()) : nullptr;
    return factory != nullptr && std::string_view(GST_OBJECT_NAME(factory)) == "typefind";
}

// Whether what would be connected to `pad` reads all of the file before it plays: decoders that
// stand right behind the file, without a parser or demultiplexer between, and all for MIDI.
bool ReadsWholeFile(GstPad* pad, const GstCaps* caps, std::string_view klass) {
    if (Contains(klass, "Decoder") && IsOfTheFile(pad)) {
        return true;
    }
    const GstStructure* const type =
        gst_caps_get_size(caps) > 0 ? gst_caps_get_structure(caps, 0) : nullptr;
    return type != nullptr && Contains(gst_structure_get_name(type), "midi");
}

int Select(GstElement*, GstPad* pad, GstCaps* caps, GstElementFactory* factory, gpointer large) {
    const char* const text = gst_element_factory_get_metadata(factory, GST_ELEMENT_METADATA_KLASS);
    const std::string_view klass = text != nullptr ? text : "";
    if (IsForbidden(klass)) {
        return kSkip;
    }
    if (large != nullptr && ReadsWholeFile(pad, caps, klass)) {
        return kSkip;
    }
    return kTry;
}

}  // namespace

void RestrictDecoding(GstElement* decodebin, std::uint64_t fileSize) {
    // The signal's datum is only whether there is one.
    const gpointer large = fileSize > kLargestWholeFile ? decodebin : nullptr;
    g_signal_connect(decodebin, "autoplug-select", G_CALLBACK(Select), large);
}

}  // namespace scenara
