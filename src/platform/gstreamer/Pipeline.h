// SPDX-License-Identifier: MIT
//
// Pipeline: one file on its way to the sound sink. All of it is called by one thread.
//
//   filesrc ! decodebin ! audioconvert ! audioresample ! volume ! audiopanorama ! audioconvert
//     ! the machine's sink
//
// Nothing waits here: what the library does in threads of its own is told by Poll, and `wake` is
// called, in any thread, whenever that has something new. While it plays Poll wants to be asked
// every now and then all the same.
#pragma once

#include <cstdint>
#include <functional>
#include <mutex>
#include <optional>
#include <string>

#include "base/Integers.h"
#include "base/NotCopied.h"
#include "platform/MediaGraph.h"
#include "platform/gstreamer/GstPointer.h"
#include "platform/gstreamer/LoopStretch.h"
#include "platform/gstreamer/SoundPasses.h"
#include "platform/gstreamer/SoundSink.h"

namespace scenara {

// What has happened since the last look.
struct PipelineNews {
    bool settled = false;  // the opening, or the last Seek, is through
    bool ended = false;    // the last sample has been heard, and it is not begun again
    bool failed = false;   // it will not play any more
    bool durationChanged = false;
};

class Pipeline : NotCopied {
public:
    Pipeline(const SinkMaker& makeSink, std::function<void()> wake);
    // Waits for the library's threads: up to a tenth of a second for some formats.
    ~Pipeline();

    // Begins to open a regular file of that size; paused at 0 when it is through. False: hopeless.
    bool Open(const std::string& path, std::uint64_t fileSize);

    [[nodiscard]] PipelineNews Poll();

    bool SetPlaying(bool playing);
    // To before the end; playing or paused as it is. False: it cannot. From then on it plays over
    // and over what `loop` says, or once when there is none or the format has no way for it.
    bool Seek(double seconds, double rate, const std::optional<MediaLoop>& loop);
    void SetVolume(Long volume, double gain);
    void SetBalance(Long balance);

    // Seconds; nothing while it cannot be told.
    [[nodiscard]] std::optional<double> Position() const;
    [[nodiscard]] std::optional<double> Duration() const;

private:
    static void LinkDecoded(GstElement* decodebin, GstPad* pad, gpointer converter);
    static GstBusSyncReply OnMessage(GstBus* bus, GstMessage* message, gpointer self);

    void Note(GstMessageType message);
    [[nodiscard]] bool StandsAtEnd() const;
    bool SendSeek(GstSeekFlags flags, GstClockTime start);
    bool PlayNextPass();

    std::function<void()> wake_;
    SoundPasses passes_{wake_};
    double rate_ = 1;
    std::optional<LoopStretch> stretch_;  // what it plays over and over
    bool fromLoopStart_ = false;          // as it does now
    std::mutex newsMutex_;
    PipelineNews news_;
    bool endTold_ = false;  // and not yet seen at the sink
    GstPointer<GstElement> pipeline_;
    GstPointer<GstBus> bus_;
    // Parts of the pipeline, alive as long as it is; null when it could not be built.
    GstElement* source_ = nullptr;
    GstElement* decoder_ = nullptr;
    GstElement* converter_ = nullptr;
    GstElement* volume_ = nullptr;
    GstElement* panorama_ = nullptr;
    GstElement* sink_ = nullptr;
};

}  // namespace scenara
