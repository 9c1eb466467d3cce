// SPDX-License-Identifier: MIT
#include "render/FrameValues.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "render/AnimationClock.h"
#include "render/ElementScale.h"
#include "stage/ModelLookup.h"

namespace scenara {
namespace {

const StageFrame& FrameOf(const StageAction& action, const BackgroundElement& element) {
    return RecordAt(action.frames, element.frameIndex, "frame");
}

// In the file's order, one that takes no time, too.
const StageFrame& FrameAfter(const StageAction& action, const BackgroundElement& element) {
    const std::size_t after = static_cast<std::size_t>(element.frameIndex) + 1;
    return action.frames[after < action.frames.size() ? after : LoopStart(action)];
}

// How far a frame has gone over into the next one.
struct Passage {
    int shown;  // ticks, up to the frame's time
    int time;

    // Before its first tick a frame has its whole time left.
    Passage(const StageFrame& frame, const BackgroundElement& element)
        : shown(std::clamp(frame.time - 1 - element.frameTime, 0, std::max(frame.time - 1, 0))),
          time(frame.time) {}

    [[nodiscard]] double Between(double from, double to) const {
        return shown == 0 ? from : from + (to - from) * shown / time;
    }
};

double OffsetX(const StageFrame& frame) {
    return frame.offsetX + static_cast<double>(frame.offsetFraction[0]);
}

double OffsetY(const StageFrame& frame) {
    return frame.offsetY + static_cast<double>(frame.offsetFraction[1]);
}

// In parts of 256. Not for Sub, which is no sum of parts.
Blending InParts(const Blending& blending) {
    switch (blending.kind) {
        case BlendKind::Add: return {BlendKind::AddAlpha, 256, 256};
        case BlendKind::Add1: return {BlendKind::AddAlpha, 256, 128};
        case BlendKind::AddAlpha: return blending;
        default: return {BlendKind::AddAlpha, 256, 0};
    }
}

bool GoesOver(const Blending& from, const Blending& to) {
    return from.kind != BlendKind::Sub && to.kind != BlendKind::Sub &&
           (from.kind != BlendKind::None || to.kind != BlendKind::None);
}

}  // namespace

FrameValues FrameValuesOf(const StageAction& action, const BackgroundElement& element,
                          bool additions) {
    const StageFrame& frame = FrameOf(action, element);
    FrameValues values{OffsetX(frame), OffsetY(frame)};
    if (!additions) {
        return values;
    }
    values.scaleX = static_cast<double>(frame.scale[0]);
    values.scaleY = static_cast<double>(frame.scale[1]);
    values.angle = static_cast<double>(frame.angle);
    const StageFrame& after = FrameAfter(action, element);
    if (after.interpolated != 0) {
        const Passage passage(frame, element);
        if ((after.interpolated & kInterpolatedOffset) != 0) {
            values.offsetX = passage.Between(values.offsetX, OffsetX(after));
            values.offsetY = passage.Between(values.offsetY, OffsetY(after));
        }
        if ((after.interpolated & kInterpolatedScale) != 0) {
            values.scaleX = passage.Between(values.scaleX, static_cast<double>(after.scale[0]));
            values.scaleY = passage.Between(values.scaleY, static_cast<double>(after.scale[1]));
        }
        if ((after.interpolated & kInterpolatedAngle) != 0) {
            values.angle = passage.Between(values.angle, static_cast<double>(after.angle));
        }
    }
    values.scaleX = KeptScale(values.scaleX);
    values.scaleY = KeptScale(values.scaleY);
    return values;
}

Blending FrameBlendingOf(const StageAction& action, const BackgroundElement& element) {
    const StageFrame& frame = FrameOf(action, element);
    const StageFrame& after = FrameAfter(action, element);
    if (frame.time <= 0 || (after.interpolated & kInterpolatedBlend) == 0 ||
        !GoesOver(frame.blending, after.blending)) {
        return frame.blending;
    }
    const Passage passage(frame, element);
    const Blending from = InParts(frame.blending);
    const Blending to = InParts(after.blending);
    const auto between = [&](Integer a, Integer b) {
        return static_cast<Integer>(std::floor(passage.Between(a, b) + 0.5));
    };
    return {BlendKind::AddAlpha, between(from.source, to.source),
            between(from.destination, to.destination)};
}

}  // namespace scenara
