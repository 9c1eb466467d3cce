// SPDX-License-Identifier: MIT
//
// GStreamerMedia: media files through GStreamer, with whatever formats its plugins play.
//
// Start makes the one thread that calls the library; do so before the program lowers its priority,
// for a thread has the priority of the one that made it, and sound that waits for a busy machine
// stutters. Before Start, and where no thread can be had, there are no graphs.
//
// No call waits for the library, but for the 15 ms of GStreamerGraph; the end of the machine waits
// for at most a second for what is playing to be let go of, and then leaves it to itself.
#pragma once

#include <memory>
#include <thread>

#include "platform/MediaGraph.h"
#include "platform/gstreamer/GraphDesk.h"
#include "platform/gstreamer/SoundSink.h"

namespace scenara {

class GStreamerMedia : public MediaMachine {
public:
    explicit GStreamerMedia(SinkMaker makeSink = MakeMachineSink);
    ~GStreamerMedia() override;

    void Start();

    [[nodiscard]] std::unique_ptr<MediaGraph> FilgraphManager() override;

private:
    SinkMaker makeSink_;
    std::shared_ptr<GraphDesk> desk_;
    std::thread worker_;
};

}  // namespace scenara
