// SPDX-License-Identifier: MIT
//
// What a frame of an action shows in this tick: its own values, or some way from them to the next
// frame's.
#include <cmath>
#include <cstddef>

#include "literal/LiteralStage.h"

namespace scenara::test {
namespace {

// What a blending comes to as shares of 256, of the picture and of what stands behind it.
std::array<double, 2> SharesOf(const Blending& blending) {
    switch (blending.kind) {
        case BlendKind::None: return {256, 0};
        case BlendKind::Add: return {256, 256};
        case BlendKind::Add1: return {256, 128};
        default:
            return {static_cast<double>(blending.source),
                    static_cast<double>(blending.destination)};
    }
}

}  // namespace

// The frame that follows in the file, whatever time it has.
const StageFrame& LiteralStage::NextFrame(const StageAction& action, int frame) {
    const auto count = static_cast<int>(action.frames.size());
    int next = frame + 1;
    if (next >= count) {
        next = action.loopstart >= 0 && action.loopstart < count ? action.loopstart : 0;
    }
    return action.frames[static_cast<std::size_t>(next)];
}

void LiteralStage::ReadFrame(const Element& element, Shown& shown) const {
    const StageAction& action = model_.Actions[static_cast<std::size_t>(element.action)];
    const StageFrame& frame = action.frames[static_cast<std::size_t>(element.frame)];
    const StageFrame& next = NextFrame(action, element.frame);
    const double ticks = frame.time;
    const double shownFor = ticks - 1 - element.frameTime;  // before this tick
    const auto goesOver = [&](Byte what) { return ticks > 0 && (next.interpolated & what) != 0; };
    const auto between = [&](Byte what, double from, double to) {
        return goesOver(what) ? from + (to - from) * shownFor / ticks : from;
    };
    const auto offset = [](const StageFrame& of) {
        return std::array{of.offsetX + Wide(of.offsetFraction[0]),
                          of.offsetY + Wide(of.offsetFraction[1])};
    };
    for (std::size_t axis = 0; axis < 2; ++axis) {
        shown.offset[axis] = between(kInterpolatedOffset, offset(frame)[axis], offset(next)[axis]);
        shown.scale[axis] =
            between(kInterpolatedScale, Wide(frame.scale[axis]), Wide(next.scale[axis]));
    }
    shown.angle = between(kInterpolatedAngle, Wide(frame.angle), Wide(next.angle));
    if (element.file->framesBlend == 0) {
        return;
    }
    shown.blending = frame.blending;
    const BlendKind kind = frame.blending.kind;
    const BlendKind nextKind = next.blending.kind;
    const bool subtracts = kind == BlendKind::Sub || nextKind == BlendKind::Sub;
    const bool blends = kind != BlendKind::None || nextKind != BlendKind::None;
    if (goesOver(kInterpolatedBlend) && blends && !subtracts) {
        const auto share = [&](std::size_t which) {
            const double value = between(kInterpolatedBlend, SharesOf(frame.blending)[which],
                                         SharesOf(next.blending)[which]);
            return static_cast<Integer>(std::floor(value + 0.5));
        };
        shown.blending = {BlendKind::AddAlpha, share(0), share(1)};
    }
}

}  // namespace scenara::test
