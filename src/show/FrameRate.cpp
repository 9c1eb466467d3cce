// SPDX-License-Identifier: MIT
#include "show/FrameRate.h"

#include <cstdint>

#include "base/Integers.h"
#include "base/NumberText.h"

namespace scenara {
namespace {

constexpr std::uint32_t kSecond = 1000;

// Back in 32 bits, so that the shortest text is that of the two decimals.
std::string TwoDecimals(Single value) {
    return NumberText(static_cast<Single>(RoundToEven(static_cast<double>(value) * 100) / 100));
}

}  // namespace

void CountFrame(LoopState& loop) {
    loop.TotalFrames = Incremented(loop.TotalFrames);
    loop.FrameCount = Incremented(loop.FrameCount);
}

bool SecondIsOver(const LoopState& loop, Clock& clock) {
    return TicksSince(loop.LastFpsTick, clock.GetTickCount()) > kSecond;
}

void LimitFrameCount(LoopState& loop) {
    if (loop.FpsLimit != 0 && loop.FrameCount > loop.FpsLimit) {
        loop.FrameCount = loop.FpsLimit;
    }
}

void BeginSecond(LoopState& loop, Clock& clock) {
    loop.LastFpsTick = clock.GetTickCount();
    loop.FrameCount = 0;
}

std::string InfoLine(Single CamX, Single CamY, Integer FrameCount) {
    return "Cam " + TwoDecimals(-CamX) + "," + TwoDecimals(CamY) + "  " + NumberText(FrameCount) +
           " FPS";
}

}  // namespace scenara
