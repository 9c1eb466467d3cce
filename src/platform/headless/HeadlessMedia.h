// SPDX-License-Identifier: MIT
//
// HeadlessMedia: media files that are only told of, and graphs that play them by a clock.
//
// A file is there when AddFile has told of it; every other cannot be rendered, and all calls of its
// graph fail. A running graph goes on by the clock's time and the rate, and stands at exactly its
// duration when it gets there. Every call that changes something is recorded, with its argument, in
// the order made: "RenderFile a.mid", "Run", "PutCurrentPosition 0.5", and "Release" for the end of
// a graph. The files and the clock outlive the graphs.
#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/Clock.h"
#include "platform/MediaGraph.h"

namespace scenara {

struct HeadlessMediaFile {
    double duration = 0;  // seconds
    bool hasAudio = true;
    bool opening = false;  // not open yet: what only the file can tell fails, orders do not
    bool durationKnown = true;
};

class HeadlessMedia : public MediaMachine {
public:
    explicit HeadlessMedia(Clock& clock) : clock_(clock) {}

    [[nodiscard]] std::unique_ptr<MediaGraph> FilgraphManager() override;

    // May be told anew while a graph plays it; the graph then goes by it.
    void AddFile(const std::string& name, const HeadlessMediaFile& file) { files_[name] = file; }
    // From now on there are no graphs at all.
    void RefuseGraphs() { refusesGraphs_ = true; }
    // ... to stop one raises "Out of memory".
    void RunOutOfMemoryAtStop() { raisesAtStop_ = true; }

    [[nodiscard]] const std::vector<std::string>& Calls() const { return calls_; }
    void ForgetCalls() { calls_.clear(); }
    [[nodiscard]] int GraphsAlive() const { return graphsAlive_; }

private:
    friend class HeadlessMediaGraph;

    Clock& clock_;
    std::map<std::string, HeadlessMediaFile> files_;
    std::vector<std::string> calls_;
    int graphsAlive_ = 0;
    bool refusesGraphs_ = false;
    bool raisesAtStop_ = false;
};

class HeadlessMediaGraph : public MediaGraph {
public:
    explicit HeadlessMediaGraph(HeadlessMedia& media);
    ~HeadlessMediaGraph() override;

    bool RenderFile(const std::string& file) override;
    bool Run() override;
    bool Pause() override;
    bool Stop() override;
    [[nodiscard]] std::optional<FilterState> GetState() override;
    [[nodiscard]] std::optional<double> Duration() override;
    [[nodiscard]] std::optional<double> CurrentPosition() override;
    bool PutCurrentPosition(double seconds) override;
    [[nodiscard]] std::optional<double> Rate() override;
    bool PutRate(double rate) override;
    [[nodiscard]] std::optional<Long> Volume() override;
    bool PutVolume(Long volume) override;
    [[nodiscard]] std::optional<Long> Balance() override;
    bool PutBalance(Long balance) override;
    // Only recorded: none of the files here can be played over and over.
    bool PutLoop(const MediaLoop& loop) override;
    bool PutGain(double gain) override;
    // No file here has a picture.
    [[nodiscard]] std::optional<Long> SourceWidth() override { return std::nullopt; }
    [[nodiscard]] std::optional<Long> SourceHeight() override { return std::nullopt; }

private:
    [[nodiscard]] const HeadlessMediaFile* File() const;
    [[nodiscard]] bool IsOpen() const;
    [[nodiscard]] double Now() const;
    bool GoTo(const char* call, FilterState state);
    void StandAt(double position);

    HeadlessMedia& media_;
    std::string file_;
    FilterState state_ = FilterState::Stopped;
    double position_ = 0;  // where it was ...
    double since_ = 0;     // ... at this time of the clock, in seconds
    double rate_ = 1;
    Long volume_ = 0;
    Long balance_ = 0;
};

}  // namespace scenara
