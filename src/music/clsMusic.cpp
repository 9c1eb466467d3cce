// SPDX-License-Identifier: MIT
#include "music/clsMusic.h"

#include <algorithm>

namespace scenara {
namespace {

constexpr double kSlowest = 0.1;
constexpr Long kSilence = -10000;
constexpr Long kFullVolume = 0;
constexpr Long kLeftOnly = -10000;
constexpr Long kRightOnly = 10000;

constexpr Long kStateStopped = 0;
constexpr Long kStateRunning = 1;
constexpr Long kStatePaused = 2;

}  // namespace

Long clsMusic::Width() {
    return hasVideo_ && graph_ ? graph_->SourceWidth().value_or(0) : 0;
}

Long clsMusic::Height() {
    return hasVideo_ && graph_ ? graph_->SourceHeight().value_or(0) : 0;
}

void clsMusic::SetFileName(const std::string& file) {
    fileName_ = file;
    if (graph_) {
        graph_->Stop();
        graph_.reset();
    }
    graph_ = machine_.FilgraphManager();
    if (graph_) {
        graph_->RenderFile(fileName_);
    }
    ProbeForSound();
}

// What has no volume has no sound.
void clsMusic::ProbeForSound() {
    SetHasAudio(graph_ && graph_->Volume().has_value());
}

void clsMusic::Play() {
    if (fileName_.empty()) {
        return;
    }
    // Here the zeros of failed calls count as equal: there is nothing to lose by going to 0.
    if (Duration() == Position()) {
        SetPosition(0);
    }
    if (graph_) {
        graph_->Run();
    }
}

void clsMusic::Pause() {
    if (graph_) {
        graph_->Pause();
    }
}

void clsMusic::StopPlaying() {
    if (graph_) {
        graph_->Stop();
    }
}

void clsMusic::SetPosition(double position) {
    double target = position;
    if (position < 0) {
        target = 0;
    } else {
        const double duration = Duration();
        if (position > duration) {
            target = duration;
        }
    }
    if (graph_) {
        graph_->PutCurrentPosition(target);
    }
    if (hasVideo_) {
        ShowPictureAt(target);
    }
}

// Runs until the picture at `position` has been shown.
void clsMusic::ShowPictureAt(double position) {
    if (!graph_) {
        return;
    }
    graph_->Run();
    std::optional<double> reached = graph_->CurrentPosition();
    while (reached && *reached < position) {
        reached = graph_->CurrentPosition();
    }
    graph_->PutCurrentPosition(position);
    graph_->Stop();
}

double clsMusic::Position() {
    return graph_ ? graph_->CurrentPosition().value_or(0) : 0;
}

// Running and paused change places against the graph's own numbering.
Long clsMusic::State() {
    const std::optional<FilterState> state = graph_ ? graph_->GetState() : std::nullopt;
    switch (state.value_or(FilterState::Stopped)) {
        case FilterState::Stopped: return kStateStopped;
        case FilterState::Paused: return kStatePaused;
        default: return kStateRunning;
    }
}

void clsMusic::SetSpeed(double speed) {
    // Written so that a value that is not a number becomes the slowest speed, too.
    const double rate = speed >= kSlowest ? speed : kSlowest;
    if (graph_) {
        graph_->PutRate(rate);
    }
}

double clsMusic::Speed() {
    return graph_ ? graph_->Rate().value_or(0) : 0;
}

double clsMusic::Duration() {
    return graph_ ? graph_->Duration().value_or(0) : 0;
}

void clsMusic::SetVolume(Long volume) {
    if (graph_) {
        graph_->PutVolume(std::clamp(volume, kSilence, kFullVolume));
    }
}

Long clsMusic::Volume() {
    return graph_ ? graph_->Volume().value_or(0) : 0;
}

void clsMusic::SetBalance(Long balance) {
    if (graph_) {
        graph_->PutBalance(std::clamp(balance, kLeftOnly, kRightOnly));
    }
}

Long clsMusic::Balance() {
    return graph_ ? graph_->Balance().value_or(0) : 0;
}

void clsMusic::SetLoop(const MediaLoop& loop) {
    if (graph_) {
        graph_->PutLoop(loop);
    }
}

void clsMusic::SetGain(double gain) {
    if (graph_) {
        graph_->PutGain(std::clamp(gain, 0.0, kLoudestGain));
    }
}

// A file that was still being opened at the first look is looked at again.
bool clsMusic::HasAudio() {
    if (!hasAudio_) {
        ProbeForSound();
    }
    return hasAudio_;
}

bool clsMusic::AtEnd() {
    if (!graph_) {
        return false;
    }
    const std::optional<double> duration = graph_->Duration();
    const std::optional<double> position = graph_->CurrentPosition();
    return duration && position && *duration == *position;
}

// Only what runs: music that the user has switched off stays off, also when that was done at its
// very end.
void RestartAtEnd(clsMusic& music) {
    if (music.State() == kStateRunning && music.AtEnd()) {
        music.SetPosition(0);
        music.Play();
    }
}

}  // namespace scenara
