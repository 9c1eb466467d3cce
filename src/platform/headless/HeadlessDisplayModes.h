// SPDX-License-Identifier: MIT
//
// HeadlessDisplayModes: a screen that nobody sees, with the modes that a test gives it.
#pragma once

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

#include "platform/DisplayModes.h"
#include "platform/View.h"

namespace scenara {

class HeadlessDisplayModes : public DisplayModes {
public:
    // What the full screen looks for.
    static constexpr DisplaySettings kFullScreen{CanvasSize().width, CanvasSize().height, 24, 60};

    // With the full-screen mode among others; the last one is in force.
    HeadlessDisplayModes()
        : HeadlessDisplayModes({{640, 480, 24, 60}, kFullScreen, {1024, 768, 24, 60}}) {}

    // These modes, the last one in force.
    explicit HeadlessDisplayModes(std::vector<DisplaySettings> modes)
        : modes_(std::move(modes)), current_(modes_.empty() ? DisplaySettings() : modes_.back()) {}

    // From now on the screen has other modes; the one in force stays, whether it is among them or
    // not.
    void SetModes(std::vector<DisplaySettings> modes) { modes_ = std::move(modes); }
    void SetCurrent(const DisplaySettings& mode) { current_ = mode; }
    // From now on no switch works.
    void RefuseToSwitch() { refuses_ = true; }

    // Every mode that was asked for, in order, refused ones included.
    [[nodiscard]] const std::vector<DisplaySettings>& Switches() const { return switches_; }

    [[nodiscard]] std::optional<DisplaySettings> EnumDisplaySettings(Long index) override {
        const auto at = static_cast<std::size_t>(index);
        return index >= 0 && at < modes_.size() ? std::optional(modes_[at]) : std::nullopt;
    }
    [[nodiscard]] DisplaySettings Current() override { return current_; }
    // Works for the modes that the screen has.
    bool ChangeDisplaySettings(const DisplaySettings& mode) override {
        switches_.push_back(mode);
        if (refuses_ || std::find(modes_.begin(), modes_.end(), mode) == modes_.end()) {
            return false;
        }
        current_ = mode;
        return true;
    }

private:
    std::vector<DisplaySettings> modes_;
    DisplaySettings current_;
    std::vector<DisplaySettings> switches_;
    bool refuses_ = false;
};

}  // namespace scenara
