// SPDX-License-Identifier: MIT
//
// SizedFrames: frames at the size that the user wants them to be written at.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "platform/Presentation.h"
#include "platform/View.h"
#include "platform/soft/CanvasScaler.h"

namespace scenara {

// Neither side of a picture that is asked for is longer.
inline constexpr std::int32_t kMostSized = 8192;

struct Frame {
    CanvasSize size;
    std::span<const std::uint32_t> pixels;  // the lines, one after the other
};

class SizedFrames {
public:
    // Each frame as a window with this room for it shows it, without what is black around it there;
    // nothing: as it is.
    SizedFrames(std::optional<CanvasSize> room, Scaling scaling) : room_(room), scaling_(scaling) {}

    // Holds until the next call, and as long as what it is made of.
    [[nodiscard]] Frame Sized(const Frame& frame);

private:
    std::optional<CanvasSize> room_;
    Scaling scaling_;
    soft::CanvasScaler scaler_;
    std::vector<std::uint32_t> pixels_;
};

}  // namespace scenara
