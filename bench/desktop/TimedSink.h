// SPDX-License-Identifier: MIT
//
// TimedSink: notes when each picture is handed over.
#pragma once

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <vector>

#include "platform/soft/PictureSink.h"

namespace scenara::bench {

class TimedSink : public PictureSink {
public:
    using Timer = std::chrono::steady_clock;

    HRESULT Show(const CanvasSize& size, std::span<const std::uint32_t> pixels) override {
        times_.push_back(Timer::now());
        const HRESULT result = shownBy->Show(size, pixels);
        if (times_.size() == times_.capacity()) {
            full();
        }
        return result;
    }

    void Expect(std::size_t frames) {
        times_.clear();
        times_.reserve(frames);
    }
    // Microseconds from each picture to the next, sorted.
    [[nodiscard]] std::vector<double> Gaps() const {
        std::vector<double> gaps;
        for (std::size_t i = 1; i < times_.size(); ++i) {
            gaps.push_back(
                std::chrono::duration<double, std::micro>(times_[i] - times_[i - 1]).count());
        }
        std::ranges::sort(gaps);
        return gaps;
    }

    PictureSink* shownBy = nullptr;
    std::function<void()> full = [] {};

private:
    std::vector<Timer::time_point> times_;
};

}  // namespace scenara::bench
