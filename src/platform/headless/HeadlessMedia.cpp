// SPDX-License-Identifier: MIT
#include "platform/headless/HeadlessMedia.h"

#include <algorithm>
#include <cmath>

#include "base/NumberText.h"
#include "base/RunTimeError.h"

namespace scenara {

class HeadlessMediaGraph : public MediaGraph {
public:
    explicit HeadlessMediaGraph(HeadlessMedia& media) : media_(media) { ++media_.graphsAlive_; }
    ~HeadlessMediaGraph() override {
        media_.calls_.emplace_back("Release");
        --media_.graphsAlive_;
    }

    bool RenderFile(const std::string& file) override {
        media_.calls_.push_back("RenderFile " + file);
        file_ = file;
        return File() != nullptr;
    }
    bool Run() override { return GoTo("Run", FilterState::Running); }
    bool Pause() override { return GoTo("Pause", FilterState::Paused); }
    bool Stop() override {
        if (media_.raisesAtStop_) {
            throw RunTimeError(RunTimeErrorKind::OutOfMemory);
        }
        return GoTo("Stop", FilterState::Stopped);
    }
    std::optional<FilterState> GetState() override {
        return File() == nullptr ? std::nullopt : std::optional(state_);
    }

    std::optional<double> Duration() override {
        return IsOpen() && File()->durationKnown ? std::optional(File()->duration) : std::nullopt;
    }
    std::optional<double> CurrentPosition() override {
        if (!IsOpen()) {
            return std::nullopt;
        }
        const bool runs = state_ == FilterState::Running;
        const double position = runs ? position_ + (Now() - since_) * rate_ : position_;
        return std::min(position, File()->duration);
    }
    bool PutCurrentPosition(double seconds) override {
        media_.calls_.push_back("PutCurrentPosition " + NumberText(seconds));
        if (File() == nullptr || std::isnan(seconds)) {
            return false;
        }
        StandAt(seconds);
        return true;
    }
    std::optional<double> Rate() override {
        return File() == nullptr ? std::nullopt : std::optional(rate_);
    }
    bool PutRate(double rate) override {
        media_.calls_.push_back("PutRate " + NumberText(rate));
        if (File() == nullptr) {
            return false;
        }
        StandAt(CurrentPosition().value_or(0));
        rate_ = rate;
        return true;
    }

    std::optional<Long> Volume() override { return OfSound(volume_); }
    bool PutVolume(Long volume) override { return PutSound("PutVolume ", volume_, volume); }
    std::optional<Long> Balance() override { return OfSound(balance_); }
    bool PutBalance(Long balance) override { return PutSound("PutBalance ", balance_, balance); }

    // Only recorded: none of the files here can be played over and over.
    bool PutLoop(const MediaLoop& loop) override {
        media_.calls_.push_back("PutLoop " + NumberText(loop.start) + " " + NumberText(loop.end));
        return File() != nullptr;
    }
    bool PutGain(double gain) override {
        media_.calls_.push_back("PutGain " + NumberText(gain));
        return File() != nullptr;
    }

    // No file here has a picture.
    std::optional<Long> SourceWidth() override { return std::nullopt; }
    std::optional<Long> SourceHeight() override { return std::nullopt; }

private:
    [[nodiscard]] const HeadlessMediaFile* File() const {
        const auto found = media_.files_.find(file_);
        return found == media_.files_.end() ? nullptr : &found->second;
    }
    [[nodiscard]] bool IsOpen() const { return File() != nullptr && !File()->opening; }

    [[nodiscard]] double Now() const {
        return static_cast<double>(media_.clock_.QueryPerformanceCounter()) /
               static_cast<double>(media_.clock_.QueryPerformanceFrequency());
    }
    void StandAt(double position) {
        position_ = position;
        since_ = Now();
    }
    bool GoTo(const char* call, FilterState state) {
        media_.calls_.emplace_back(call);
        if (File() == nullptr) {
            return false;
        }
        StandAt(CurrentPosition().value_or(0));
        state_ = state;
        return true;
    }

    [[nodiscard]] std::optional<Long> OfSound(Long value) const {
        return IsOpen() && File()->hasAudio ? std::optional(value) : std::nullopt;
    }
    bool PutSound(const char* call, Long& value, Long wanted) {
        media_.calls_.push_back(call + NumberText(wanted));
        if (File() == nullptr || !File()->hasAudio) {
            return false;
        }
        value = wanted;
        return true;
    }

    HeadlessMedia& media_;
    std::string file_;
    FilterState state_ = FilterState::Stopped;
    double position_ = 0;  // where it was ...
    double since_ = 0;     // ... at this time of the clock, in seconds
    double rate_ = 1;
    Long volume_ = 0;
    Long balance_ = 0;
};

std::unique_ptr<MediaGraph> HeadlessMedia::FilgraphManager() {
    if (refusesGraphs_) {
        return nullptr;
    }
    return std::make_unique<HeadlessMediaGraph>(*this);
}

}  // namespace scenara
