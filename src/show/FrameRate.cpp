// SPDX-License-Identifier: MIT
#include "show/FrameRate.h"

#include <algorithm>
#include <cstdint>

#include "base/NumberText.h"

namespace scenara {
namespace {

constexpr std::uint32_t kSecond = 1000;

// Back in 32 bits, so that the shortest text is that of the two decimals.
std::string TwoDecimals(Single value) {
    return NumberText(static_cast<Single>(RoundToEven(static_cast<double>(value) * 100) / 100));
}

}  // namespace

std::optional<Integer> CountFrame(LoopState& loop, Clock& clock) {
    loop.TotalFrames = Incremented(loop.TotalFrames);
    loop.FrameCount = Incremented(loop.FrameCount);
    if (TicksSince(loop.LastFpsTick, clock.GetTickCount()) <= kSecond) {
        return std::nullopt;
    }
    const Integer frames = loop.FrameCount;
    BeginSecond(loop, clock);
    return loop.FpsLimit != 0 ? std::min(frames, loop.FpsLimit) : frames;
}

void BeginSecond(LoopState& loop, Clock& clock) {
    loop.LastFpsTick = clock.GetTickCount();
    loop.FrameCount = 0;
}

std::string InfoLine(Single CamX, Single CamY, Integer FrameCount, std::optional<double> zoom) {
    const std::string its =
        zoom ? "  Zoom " + TwoDecimals(static_cast<Single>(*zoom)) : std::string();
    return "Cam " + TwoDecimals(-CamX) + "," + TwoDecimals(CamY) + its + "  " +
           NumberText(FrameCount) + " FPS";
}

}  // namespace scenara
