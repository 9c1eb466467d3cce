// SPDX-License-Identifier: MIT
#include "platform/headless/HeadlessMedia.h"

#include <algorithm>
#include <cmath>

#include "base/NumberText.h"
#include "base/RunTimeError.h"

namespace scenara {

std::unique_ptr<MediaGraph> HeadlessMedia::FilgraphManager() {
    if (refusesGraphs_) {
        return nullptr;
    }
    return std::make_unique<HeadlessMediaGraph>(*this);
}

HeadlessMediaGraph::HeadlessMediaGraph(HeadlessMedia& media) : media_(media) {
    ++media_.graphsAlive_;
}

HeadlessMediaGraph::~HeadlessMediaGraph() {
    media_.calls_.emplace_back("Release");
    --media_.graphsAlive_;
}

const HeadlessMediaFile* HeadlessMediaGraph::File() const {
    const auto found = media_.files_.find(file_);
    return found == media_.files_.end() ? nullptr : &found->second;
}

bool HeadlessMediaGraph::IsOpen() const {
    return File() != nullptr && !File()->opening;
}

double HeadlessMediaGraph::Now() const {
    return static_cast<double>(media_.clock_.QueryPerformanceCounter()) /
           static_cast<double>(media_.clock_.QueryPerformanceFrequency());
}

void HeadlessMediaGraph::StandAt(double position) {
    position_ = position;
    since_ = Now();
}

bool HeadlessMediaGraph::GoTo(const char* call, FilterState state) {
    media_.calls_.emplace_back(call);
    if (File() == nullptr) {
        return false;
    }
    StandAt(CurrentPosition().value_or(0));
    state_ = state;
    return true;
}

bool HeadlessMediaGraph::RenderFile(const std::string& file) {
    media_.calls_.push_back("RenderFile " + file);
    file_ = file;
    return File() != nullptr;
}

bool HeadlessMediaGraph::Run() {
    return GoTo("Run", FilterState::Running);
}

bool HeadlessMediaGraph::Pause() {
    return GoTo("Pause", FilterState::Paused);
}

bool HeadlessMediaGraph::Stop() {
    if (media_.raisesAtStop_) {
        throw RunTimeError(RunTimeErrorKind::OutOfMemory);
    }
    return GoTo("Stop", FilterState::Stopped);
}

std::optional<FilterState> HeadlessMediaGraph::GetState() {
    return File() == nullptr ? std::nullopt : std::optional(state_);
}

std::optional<double> HeadlessMediaGraph::Duration() {
    return IsOpen() && File()->durationKnown ? std::optional(File()->duration) : std::nullopt;
}

std::optional<double> HeadlessMediaGraph::CurrentPosition() {
    if (!IsOpen()) {
        return std::nullopt;
    }
    const bool runs = state_ == FilterState::Running;
    const double position = runs ? position_ + (Now() - since_) * rate_ : position_;
    return std::min(position, File()->duration);
}

bool HeadlessMediaGraph::PutCurrentPosition(double seconds) {
    media_.calls_.push_back("PutCurrentPosition " + NumberText(seconds));
    if (File() == nullptr || std::isnan(seconds)) {
        return false;
    }
    StandAt(seconds);
    return true;
}

std::optional<double> HeadlessMediaGraph::Rate() {
    return File() == nullptr ? std::nullopt : std::optional(rate_);
}

bool HeadlessMediaGraph::PutRate(double rate) {
    media_.calls_.push_back("PutRate " + NumberText(rate));
    if (File() == nullptr) {
        return false;
    }
    StandAt(CurrentPosition().value_or(0));
    rate_ = rate;
    return true;
}

std::optional<Long> HeadlessMediaGraph::Volume() {
    return IsOpen() && File()->hasAudio ? std::optional(volume_) : std::nullopt;
}

bool HeadlessMediaGraph::PutVolume(Long volume) {
    media_.calls_.push_back("PutVolume " + NumberText(volume));
    if (File() == nullptr || !File()->hasAudio) {
        return false;
    }
    volume_ = volume;
    return true;
}

std::optional<Long> HeadlessMediaGraph::Balance() {
    return IsOpen() && File()->hasAudio ? std::optional(balance_) : std::nullopt;
}

bool HeadlessMediaGraph::PutBalance(Long balance) {
    media_.calls_.push_back("PutBalance " + NumberText(balance));
    if (File() == nullptr || !File()->hasAudio) {
        return false;
    }
    balance_ = balance;
    return true;
}

bool HeadlessMediaGraph::PutLoop(const MediaLoop& loop) {
    media_.calls_.push_back("PutLoop " + NumberText(loop.start) + " " + NumberText(loop.end));
    return File() != nullptr;
}

bool HeadlessMediaGraph::PutGain(double gain) {
    media_.calls_.push_back("PutGain " + NumberText(gain));
    return File() != nullptr;
}

}  // namespace scenara
