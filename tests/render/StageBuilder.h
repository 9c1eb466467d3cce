// SPDX-License-Identifier: MIT
//
// StageBuilder: stage models for tests, made record by record, as a load would leave them.
//
// References to elements and groups stay good as long as there are no more than kMostRecords.
#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/View.h"
#include "render/AnimationClock.h"
#include "render/RecordingMachine.h"
#include "stage/StageModel.h"

namespace scenara::test {

// A line of an action.
struct FrameLine {
    Integer sprite = -1;
    Integer time = 1;
    Integer x = 0;
    Integer y = 0;
    std::string flip = {};
};

class StageBuilder {
public:
    static constexpr std::size_t kMostRecords = 64;

    explicit StageBuilder(StageModel& model) : model_(model) {
        model_.Elements.reserve(kMostRecords);
        model_.CtrlDefs.reserve(kMostRecords);
        // Room for the camera on all sides.
        model_.BoundLeft = -1000;
        model_.BoundRight = 1000;
        model_.BoundHigh = -1000;
        model_.BoundLow = 1000;
    }

    // The index of a new sprite, whose texture goes by this name.
    Integer Sprite(const std::string& name, Integer width, Integer height, Integer axisX = 0,
                   Integer axisY = 0) {
        SpriteEntry sprite;
        sprite.width = width;
        sprite.height = height;
        sprite.axisX = axisX;
        sprite.axisY = axisY;
        sprite.selfIndex = model_.SpriteCount;
        sprite.texture = std::make_shared<NamedTexture>(name, width, height);
        model_.Sprites.push_back(std::move(sprite));
        return model_.SpriteCount++;
    }

    // The index of a new action.
    Integer Action(const std::vector<FrameLine>& lines, Integer loopstart = 0,
                   Integer actionNo = 0) {
        StageAction action;
        for (const FrameLine& line : lines) {
            StageFrame frame;
            frame.spriteIndex = line.sprite;
            frame.time = line.time;
            frame.offsetX = line.x;
            frame.offsetY = line.y;
            frame.flip = line.flip;
            action.frames.push_back(frame);
        }
        action.frameCount = static_cast<Integer>(lines.size());
        action.loopstart = loopstart;
        action.actionNo = actionNo;
        ResolveFrames(action);
        model_.Actions.push_back(std::move(action));
        return model_.ActionCount++;
    }

    // An element that moves with the camera, at the middle of the view's upper edge.
    BackgroundElement& Still(Integer sprite) {
        BackgroundElement& element = Element("normal");
        element.spriteIndex = sprite;
        return element;
    }
    BackgroundElement& Parallax(Integer sprite) {
        BackgroundElement& element = Element("parallax");
        element.spriteIndex = sprite;
        return element;
    }
    // Not masked, unlike after a load, so that the states do not stand in the way.
    BackgroundElement& Animation(Integer action) {
        BackgroundElement& element = Element("anim");
        element.actionIndex = action;
        element.spriteIndex = -1;
        element.tileSpacingX = 1;
        element.tileSpacingY = 1;
        return element;
    }
    BackgroundElement& Dummy() {
        BackgroundElement& element = Element("dummy");
        element.spriteIndex = -1;
        return element;
    }

    // As Still, Parallax and Animation, at a place (see At).
    BackgroundElement& StillAt(Integer sprite, Long x, Long y) { return At(Still(sprite), x, y); }
    BackgroundElement& ParallaxAt(Integer sprite, Long x, Long y) {
        return At(Parallax(sprite), x, y);
    }
    BackgroundElement& AnimationAt(const std::vector<FrameLine>& lines, Long x, Long y) {
        return At(Animation(Action(lines)), x, y);
    }

    BgCtrlDef& Group(Long looptime = 0, std::vector<Long> ids = {}) {
        BgCtrlDef group;
        group.looptime = looptime;
        group.ctrlIds = std::move(ids);
        ++model_.CtrlDefCount;
        return model_.CtrlDefs.emplace_back(std::move(group));
    }

    // The picture's upper left corner at (x, y) of the view, with the camera at (0, 0).
    static BackgroundElement& At(BackgroundElement& element, Long x, Long y) {
        element.startX = x - View().width / 2;
        element.startY = y;
        return element;
    }

private:
    BackgroundElement& Element(const std::string& type) {
        BackgroundElement element;
        element.type = type;
        element.kind = KindOf(type, false);
        ++model_.ElementCount;
        return model_.Elements.emplace_back(std::move(element));
    }

    StageModel& model_;
};

// Each of these changes one thing about an element and hands it on.
inline BackgroundElement& Masked(BackgroundElement& element) {
    element.mask = 1;
    return element;
}
inline BackgroundElement& StartAt(BackgroundElement& element, Long x, Long y) {
    element.startX = x;
    element.startY = y;
    return element;
}
inline BackgroundElement& WithDelta(BackgroundElement& element, Single x, Single y) {
    element.deltaX = x;
    element.deltaY = y;
    return element;
}
inline BackgroundElement& Drifting(BackgroundElement& element, Single x, Single y) {
    element.velocityX = x;
    element.velocityY = y;
    return element;
}
// Up and down.
inline BackgroundElement& Swinging(BackgroundElement& element, Single amplitude, Single period,
                                   Single phase = 0) {
    element.sinYAmplitude = amplitude;
    element.sinYPeriod = period;
    element.sinYPhase = phase;
    return element;
}
inline BackgroundElement& Tiled(BackgroundElement& element, Long tileX, Long tileY,
                                Long spacingX = 0, Long spacingY = 0) {
    element.tileX = tileX;
    element.tileY = tileY;
    element.tileSpacingX = spacingX;
    element.tileSpacingY = spacingY;
    element.tileSpacingGiven = 3;
    return element;
}
// The corners in the order of the file.
inline BackgroundElement& Windowed(BackgroundElement& element, Single x1, Single y1, Single x2,
                                   Single y2) {
    element.windowX1 = x1;
    element.windowY1 = y1;
    element.windowX2 = x2;
    element.windowY2 = y2;
    element.windowActive = 1;
    return element;
}
// The rows of a parallax picture, by the relative speed of the first and of the last one.
inline BackgroundElement& Sheared(BackgroundElement& element, Single top, Single bottom) {
    element.xscaleTop = top;
    element.xscaleBottom = bottom;
    return element;
}
inline BackgroundElement& Linked(BackgroundElement& element) {
    element.positionlink = 1;
    return element;
}

// A control in a group, at its first tick only.
inline BgCtrl& AddControl(BgCtrlDef& group, const std::string& type) {
    BgCtrl control;
    control.type = type;
    ++group.controlCount;
    return group.controls.emplace_back(std::move(control));
}

inline BgCtrl& During(BgCtrl& control, Long start, Long end, Long loop = 0) {
    control.startTime = start;
    control.endTime = end;
    control.loopTime = loop;
    return control;
}
inline BgCtrl& On(BgCtrl& control, std::vector<Long> ids) {
    control.ctrlIds = std::move(ids);
    return control;
}
inline BgCtrl& WithX(BgCtrl& control, Single x) {
    control.x = x;
    control.given |= kGivenX;
    return control;
}
inline BgCtrl& WithY(BgCtrl& control, Single y) {
    control.y = y;
    control.given |= kGivenY;
    return control;
}
inline BgCtrl& WithValue(BgCtrl& control, Integer value) {
    control.value = value;
    control.given |= kGivenValue;
    return control;
}
inline BgCtrl& WithValues(BgCtrl& control, Integer value1, Integer value2) {
    control.value1 = value1;
    control.value2 = value2;
    control.given |= kGivenValue1 | kGivenValue2;
    return control;
}

}  // namespace scenara::test
