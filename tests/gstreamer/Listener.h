// SPDX-License-Identifier: MIT
//
// Listener: a sound sink that plays in real time to nobody and measures what it plays. It outlives
// the machine that it is given to, and tells of the last sink that it has made.
#pragma once

#include <mutex>

#include <gst/gst.h>

#include "platform/gstreamer/SoundSink.h"

namespace scenara::test {

class Listener {
public:
    [[nodiscard]] SinkMaker Maker();
    // Of sinks that refuse to be sent anywhere else in the file, and other speeds.
    [[nodiscard]] SinkMaker MakerOfUnseekable();

    // Blocks of sound that were played, ever.
    [[nodiscard]] int Blocks();
    // How long everything was that was played, in seconds.
    [[nodiscard]] double Heard();
    // The loudest sample of the last block, 0 to 1.
    [[nodiscard]] double Left();
    [[nodiscard]] double Right();
    // How fast it was to be played.
    [[nodiscard]] double Rate();
    // Of the thread that played the last block, as the system counts it: more is less.
    [[nodiscard]] int Niceness();

private:
    GstElement* Make();
    static gboolean RefuseSeek(GstPad* pad, GstObject* parent, GstEvent* event);
    static void OnBlock(GstElement* sink, GstBuffer* block, GstPad* pad, gpointer self);
    void Measure(GstBuffer* block, GstPad* pad);

    std::mutex mutex_;
    int blocks_ = 0;
    double heard_ = 0;
    double left_ = 0;
    double right_ = 0;
    double rate_ = 0;
    int niceness_ = 0;
};

}  // namespace scenara::test
