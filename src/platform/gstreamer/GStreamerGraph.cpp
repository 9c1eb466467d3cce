// SPDX-License-Identifier: MIT
#include "platform/gstreamer/GStreamerGraph.h"

#include <algorithm>
#include <chrono>
#include <cmath>

namespace scenara {
namespace {

constexpr std::chrono::milliseconds kPatience{15};
constexpr double kSlowestRate = 0.01;
constexpr double kFastestRate = 16;

}  // namespace

GStreamerGraph::~GStreamerGraph() {
    Order([this] { entry_->orders.closing = true; });
}

template <typename Change>
bool GStreamerGraph::Order(Change change) {
    if (!entry_) {
        return false;
    }
    {
        const std::scoped_lock lock(desk_->mutex);
        if (entry_->report.phase == GraphPhase::Failed) {
            // The worker has let go of it already; there is nobody to read this.
            return false;
        }
        change();
        desk_->woken = true;
    }
    desk_->work.notify_one();
    return true;
}

template <typename Answer>
auto GStreamerGraph::Ask(Answer answer) -> decltype(answer()) {
    if (!entry_) {
        return std::nullopt;
    }
    std::unique_lock lock(desk_->mutex);
    desk_->opened.wait_until(lock, entry_->patience,
                             [this] { return entry_->report.phase != GraphPhase::Opening; });
    if (entry_->report.phase != GraphPhase::Open) {
        return std::nullopt;
    }
    return answer();
}

bool GStreamerGraph::RenderFile(const std::string& file) {
    if (entry_ || file.empty()) {
        return false;
    }
    entry_ = std::make_shared<GraphEntry>();
    entry_->file = file;
    entry_->patience = std::chrono::steady_clock::now() + kPatience;
    {
        const std::scoped_lock lock(desk_->mutex);
        desk_->fresh.push_back(entry_);
    }
    desk_->Wake();
    return true;
}

bool GStreamerGraph::GoTo(FilterState state) {
    return Order([this, state] {
        entry_->orders.state = state;
        entry_->orders.moved |= state == FilterState::Running;
    });
}

std::optional<FilterState> GStreamerGraph::GetState() {
    if (!entry_) {
        return std::nullopt;
    }
    const std::scoped_lock lock(desk_->mutex);
    if (entry_->report.phase == GraphPhase::Failed) {
        return std::nullopt;
    }
    return entry_->orders.state;
}

std::optional<double> GStreamerGraph::Duration() {
    return Ask([this] { return entry_->report.duration; });
}

// Formats differ in how exactly they know their length: some play on behind it, some stop short of
// it. So the end is what the player says, not where the numbers meet.
std::optional<double> GStreamerGraph::CurrentPosition() {
    return Ask([this]() -> std::optional<double> {
        const GraphReport& report = entry_->report;
        if (report.ended || !report.duration) {
            return report.position;
        }
        return std::min(report.position, std::nextafter(*report.duration, 0.0));
    });
}

bool GStreamerGraph::PutCurrentPosition(double seconds) {
    if (!std::isfinite(seconds) || seconds < 0) {
        return false;
    }
    return Order([this, seconds] {
        GraphOrders& orders = entry_->orders;
        GraphReport& report = entry_->report;
        const bool atEnd = report.duration && seconds >= *report.duration;
        report.ended = atEnd;
        report.position = atEnd ? *report.duration : seconds;
        orders.standAtEnd = atEnd;
        orders.position.reset();
        // It begins at 0 anyway, also when it is of a kind that cannot be put anywhere.
        if (!atEnd && (seconds > 0 || orders.moved)) {
            orders.position = seconds;
            orders.moved = true;
        }
    });
}

std::optional<double> GStreamerGraph::Rate() {
    return Ask([this] { return std::optional(entry_->orders.rate); });
}

bool GStreamerGraph::PutRate(double rate) {
    if (!(rate >= kSlowestRate && rate <= kFastestRate)) {
        return false;
    }
    return Order([this, rate] { entry_->orders.rate = rate; });
}

std::optional<Long> GStreamerGraph::Volume() {
    return Ask([this] { return std::optional(entry_->orders.volume); });
}

bool GStreamerGraph::PutVolume(Long volume) {
    return Order([this, volume] { entry_->orders.volume = volume; });
}

std::optional<Long> GStreamerGraph::Balance() {
    return Ask([this] { return std::optional(entry_->orders.balance); });
}

bool GStreamerGraph::PutBalance(Long balance) {
    return Order([this, balance] { entry_->orders.balance = balance; });
}

bool GStreamerGraph::PutLoop(const MediaLoop& loop) {
    return Order([this, loop] { entry_->orders.loop = loop; });
}

bool GStreamerGraph::PutGain(double gain) {
    if (!(gain >= 0 && gain <= kLoudestGain)) {
        return false;
    }
    return Order([this, gain] { entry_->orders.gain = gain; });
}

}  // namespace scenara
