// SPDX-License-Identifier: MIT
//
// PlayedFile: the worker's side of a graph. It makes a pipeline be what the orders say and reports
// how it goes.
//
// Stopped and paused are the same to the pipeline: both keep the place. A file that has not opened,
// or not gone where it was put, within five seconds has failed. What has failed stays so.
//
// A file that cannot be sought plays on where it is, at the speed that it has; only its beginning
// can be had, by opening it anew.
#pragma once

#include <chrono>
#include <memory>
#include <optional>
#include <string>

#include "platform/gstreamer/GraphDesk.h"
#include "platform/gstreamer/Pipeline.h"
#include "platform/gstreamer/SoundSink.h"

namespace scenara {

class PlayedFile {
public:
    using Time = std::chrono::steady_clock::time_point;

    // `makeSink` outlives it.
    PlayedFile(GraphDesk& desk, std::shared_ptr<GraphEntry> entry, const SinkMaker& makeSink);

    // Whether the program still has the graph, and there is something to play.
    [[nodiscard]] bool IsWanted() const;

    // Does what there is to do now. When to come again, at the latest; nothing: when woken.
    std::optional<Time> Service(Time now);

private:
    [[nodiscard]] GraphOrders TakeOrders();
    void Begin();
    void Read(const PipelineNews& news);
    void ReportOpen();
    void ReportEnd();
    void ReportDuration();
    void ReportPlace();
    void Fail();

    void Follow(const GraphOrders& orders, Time now);
    void FollowPlace(const GraphOrders& orders, Time now);
    bool SeekTo(double target, double rate);
    void TakeBackRate(double refused);
    void BeginAnew();
    void StayInPlace();
    [[nodiscard]] bool IsUnderWay() const { return phase_ != Phase::Arrived; }

    GraphDesk& desk_;
    std::shared_ptr<GraphEntry> entry_;
    const SinkMaker& makeSink_;
    std::unique_ptr<Pipeline> pipeline_;  // none: failed

    enum class Phase : Byte { Opening, Seeking, Arrived };
    Phase phase_ = Phase::Opening;
    Time settleBy_;  // until when opening or seeking may take
    // It has been played to its end: its length is settled, at what was heard of it or at what the
    // file says where that is more.
    bool lengthIsExact_ = false;
    bool heardOut_ = false;  // the pipeline stands at its end

    // What the pipeline has been told, and is when it is new.
    struct Told {
        bool playing = false;
        double rate = 1;
        Long volume = 0;
        Long balance = 0;
        double gain = 1;
        std::optional<MediaLoop> loop;
    };
    Told told_;
    std::optional<double> target_;  // where it is still to go
    bool atEnd_ = false;            // as the program knows it
};

}  // namespace scenara
