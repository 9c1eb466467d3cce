// SPDX-License-Identifier: MIT
#include "platform/gstreamer/Decoding.h"

#include <algorithm>
#include <array>
#include <optional>
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

// Whether `pad` is a stand-in for that of an element of this kind.
bool ComesFrom(GstPad* pad, std::string_view kind) {
    if (!GST_IS_GHOST_PAD(pad)) {
        return false;
    }
    const GstPointer<GstPad> target(gst_ghost_pad_get_target(GST_GHOST_PAD(pad)));
    const GstPointer<GstElement> element(target ? gst_pad_get_parent_element(target.get())
                                                : nullptr);
    GstElementFactory* const factory = element ? gst_element_get_factory(element.get()) : nullptr;
    return factory != nullptr && std::string_view(GST_OBJECT_NAME(factory)) == kind;
}

// Whether what would be connected to `pad` reads all of the file before it plays: decoders that
// stand right behind the file, without a parser or demultiplexer between, and all for MIDI.
bool ReadsWholeFile(GstPad* pad, const GstCaps* caps, std::string_view klass) {
    if (Contains(klass, "Decoder") && ComesFrom(pad, "typefind")) {
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

// Bytes of all channels' samples at one time; 0 for what no module player sends.
std::uint64_t FrameSize(const GstStructure* format) {
    const char* const text = gst_structure_get_string(format, "format");
    const std::string_view name = text != nullptr ? text : "";
    int channels = 0;
    gst_structure_get_int(format, "channels", &channels);
    const auto count = static_cast<std::uint64_t>(std::max(channels, 0));
    if (name == "F32LE" || name == "F32BE") {
        return 4 * count;
    }
    return name == "S16LE" || name == "S16BE" ? 2 * count : 0;
}

// The bytes that a block of that duration has.
std::optional<gsize> SizeOf(GstPad* pad, GstClockTime duration) {
    const GstPointer<GstCaps> caps(gst_pad_get_current_caps(pad));
    if (!caps || !GST_CLOCK_TIME_IS_VALID(duration)) {
        return std::nullopt;
    }
    const GstStructure* const format = gst_caps_get_structure(caps.get(), 0);
    int rate = 0;
    gst_structure_get_int(format, "rate", &rate);
    const std::uint64_t frameSize = FrameSize(format);
    if (rate <= 0 || frameSize == 0) {
        return std::nullopt;
    }
    return frameSize *
           gst_util_uint64_scale_round(duration, static_cast<guint64>(rate), GST_SECOND);
}

GstPadProbeReturn TrimBlock(GstPad* pad, GstPadProbeInfo* info, gpointer) {
    GstBuffer* const block = GST_PAD_PROBE_INFO_BUFFER(info);
    const std::optional<gsize> size = SizeOf(pad, GST_BUFFER_DURATION(block));
    if (size && *size < gst_buffer_get_size(block)) {
        GstBuffer* const ours = gst_buffer_make_writable(block);
        gst_buffer_set_size(ours, static_cast<gssize>(*size));
        info->data = ours;
    }
    return GST_PAD_PROBE_OK;
}

}  // namespace

void TrimDecoded(GstPad* pad) {
    if (ComesFrom(pad, "openmptdec")) {
        gst_pad_add_probe(pad, GST_PAD_PROBE_TYPE_BUFFER, TrimBlock, nullptr, nullptr);
    }
}

void RestrictDecoding(GstElement* decodebin, std::uint64_t fileSize) {
    // The signal's datum is only whether there is one.
    const gpointer large = fileSize > kLargestWholeFile ? decodebin : nullptr;
    g_signal_connect(decodebin, "autoplug-select", G_CALLBACK(Select), large);
}

}  // namespace scenara
