// SPDX-License-Identifier: MIT
//
// GStreamerGraph: the program's side of a graph. It writes orders and reads reports; see GraphDesk.
//
// Questions to a file that is being opened wait, all of them together, for at most 15 ms from
// RenderFile on: most files are open by then, and no frame of the picture is late. After that they
// fail until the file is open.
#pragma once

#include <memory>
#include <mutex>
#include <optional>
#include <string>

#include "platform/MediaGraph.h"
#include "platform/gstreamer/GraphDesk.h"

namespace scenara {

class GStreamerGraph : public MediaGraph {
public:
    explicit GStreamerGraph(std::shared_ptr<GraphDesk> desk) : desk_(std::move(desk)) {}
    ~GStreamerGraph() override;

    bool RenderFile(const std::string& file) override;
    bool Run() override { return GoTo(FilterState::Running); }
    bool Pause() override { return GoTo(FilterState::Paused); }
    bool Stop() override { return GoTo(FilterState::Stopped); }
    [[nodiscard]] std::optional<FilterState> GetState() override;

    [[nodiscard]] std::optional<double> Duration() override;
    [[nodiscard]] std::optional<double> CurrentPosition() override;
    bool PutCurrentPosition(double seconds) override;
    [[nodiscard]] std::optional<double> Rate() override;
    // 0.01 to 16.
    bool PutRate(double rate) override;

    [[nodiscard]] std::optional<Long> Volume() override;
    bool PutVolume(Long volume) override;
    [[nodiscard]] std::optional<Long> Balance() override;
    bool PutBalance(Long balance) override;

    bool PutLoop(const MediaLoop& loop) override;
    bool PutGain(double gain) override;

    // Pictures are left alone.
    [[nodiscard]] std::optional<Long> SourceWidth() override { return std::nullopt; }
    [[nodiscard]] std::optional<Long> SourceHeight() override { return std::nullopt; }

private:
    bool GoTo(FilterState state);

    // Runs `change` on the orders and wakes the worker; false when there is nothing to order.
    template <typename Change>
    bool Order(Change change);
    // What `answer` gives for the entry; nothing unless the file is open.
    template <typename Answer>
    auto Ask(Answer answer) -> decltype(answer());

    std::shared_ptr<GraphDesk> desk_;
    std::shared_ptr<GraphEntry> entry_;  // none before RenderFile
};

}  // namespace scenara
