// SPDX-License-Identifier: MIT
#include "render/Controllers.h"

#include <algorithm>
#include <cstddef>
#include <vector>

#include "stage/ModelLookup.h"
#include "stage/RecordNumbers.h"

namespace scenara {
namespace {

constexpr Long kEmptyEntry = -1;

constexpr std::size_t kAcross = 0;
constexpr std::size_t kDown = 1;

bool Has(const BgCtrl& control, Byte given) {
    return (control.given & given) == given;
}

// Several ticks of veladd or posadd may run a number out of its range; it then is infinite, and
// the element is nowhere to be seen.
void SetMotion(BackgroundElement& element, std::size_t axis, Single& position, Single motion) {
    position += motion - element.ctrlPos.at(axis);
    element.ctrlPos.at(axis) = motion;
    element.motion.at(axis) = static_cast<double>(motion);
}

void AddMotion(BackgroundElement& element, std::size_t axis, Single& position, Single change) {
    position += change;
    element.ctrlPos.at(axis) += change;
    element.motion.at(axis) += static_cast<double>(change);
}

void ForEachTarget(StageModel& model, const BgCtrl& control, auto change) {
    for (const ElementRange range : control.targets) {
        for (Integer at = range.first; at < range.end; ++at) {
            const Integer index = RecordAt(model.ElementsById, at, "element");
            change(RecordAt(model.Elements, index, "element"));
        }
    }
}

void SetFlag(StageModel& model, const BgCtrl& control, Byte BackgroundElement::*flag) {
    if (Has(control, kGivenValue)) {
        const Byte value = control.value != 0 ? 1 : 0;
        ForEachTarget(model, control, [&](BackgroundElement& element) { element.*flag = value; });
    }
}

// What the control was given of x and y.
void Displace(StageModel& model, const BgCtrl& control, auto change) {
    const bool across = Has(control, kGivenX);
    const bool down = Has(control, kGivenY);
    ForEachTarget(model, control, [&](BackgroundElement& element) {
        if (across) {
            change(element, kAcross, control.x);
        }
        if (down) {
            change(element, kDown, control.y);
        }
    });
}

Single& Velocity(BackgroundElement& element, std::size_t axis) {
    return axis == kAcross ? element.velocityX : element.velocityY;
}

Single& Position(BackgroundElement& element, std::size_t axis) {
    return axis == kAcross ? element.posX : element.posY;
}

void ShowAction(StageModel& model, const BgCtrl& control) {
    if (!Has(control, kGivenValue) || control.actionIndex == -1) {
        return;
    }
    const StageAction& action = RecordAt(model.Actions, control.actionIndex, "action");
    const Integer time = action.frames.empty() ? Integer{0} : action.frames.front().time;
    ForEachTarget(model, control, [&](BackgroundElement& element) {
        if (ShowsFrames(element)) {
            element.actionIndex = control.actionIndex;
            element.frameIndex = 0;
            element.frameTime = time;
        }
    });
}

void StartSwing(StageModel& model, const BgCtrl& control) {
    if (!Has(control, kGivenValue1) || !Has(control, kGivenValue2)) {
        return;
    }
    const Single amplitude = static_cast<Single>(control.value1) + control.swingFraction[0];
    const Single period = static_cast<Single>(control.value2) + control.swingFraction[1];
    ForEachTarget(model, control, [&](BackgroundElement& element) {
        if (control.kind == ControlKind::SinX) {
            element.sinState = {amplitude, period, 0};
            element.swingTick[0] = control.value3;
            element.sinOffset[0] = 0;
        } else {
            element.sinYAmplitude = amplitude;
            element.sinYPeriod = period;
            element.sinYPhase = 0;
            element.swingTick[1] = control.value3;
            element.sinOffset[1] = 0;
        }
    });
}

void Act(StageModel& model, const BgCtrl& control) {
    switch (control.kind) {
        case ControlKind::None: break;
        case ControlKind::Visible: SetFlag(model, control, &BackgroundElement::visible); break;
        case ControlKind::Enable: SetFlag(model, control, &BackgroundElement::enabled); break;
        case ControlKind::VelSet:
            Displace(model, control, [](BackgroundElement& element, std::size_t axis, Single to) {
                Velocity(element, axis) = to;
            });
            break;
        case ControlKind::VelAdd:
            Displace(model, control, [](BackgroundElement& element, std::size_t axis, Single by) {
                Velocity(element, axis) += by;
            });
            break;
        case ControlKind::PosSet:
            Displace(model, control, [](BackgroundElement& element, std::size_t axis, Single to) {
                SetMotion(element, axis, Position(element, axis), to);
            });
            break;
        case ControlKind::PosAdd:
            Displace(model, control, [](BackgroundElement& element, std::size_t axis, Single by) {
                AddMotion(element, axis, Position(element, axis), by);
            });
            break;
        case ControlKind::Anim: ShowAction(model, control); break;
        case ControlKind::SinX:
        case ControlKind::SinY: StartSwing(model, control); break;
    }
}

bool Acts(const BgCtrl& control) {
    const Long end = std::max(control.endTime, control.startTime);
    return control.timer >= control.startTime && control.timer <= end;
}

// Whether the timer has begun again.
bool Advance(Long& timer, Long loopTime) {
    timer = Incremented(timer);
    const bool again = loopTime > 0 && timer >= loopTime;
    if (again) {
        timer = 0;
    }
    return again;
}

bool NamesElements(const std::vector<Long>& ids) {
    return std::any_of(ids.begin(), ids.end(), [](Long id) { return id != kEmptyEntry; });
}

// The elements with this id.
ElementRange WithId(const StageModel& model, Long id) {
    const auto idOf = [&](Integer index) { return RecordAt(model.Elements, index, "element").id; };
    const auto begin = model.ElementsById.begin();
    const auto first =
        std::lower_bound(begin, model.ElementsById.end(), id,
                         [&](Integer index, Long wanted) { return idOf(index) < wanted; });
    const auto last =
        std::upper_bound(first, model.ElementsById.end(), id,
                         [&](Long wanted, Integer index) { return wanted < idOf(index); });
    return {static_cast<Integer>(first - begin), static_cast<Integer>(last - begin)};
}

// Which ranges does not depend on what is in them: there is room for them after the first time.
void ResolveTargets(const StageModel& model, const BgCtrlDef& group, BgCtrl& control) {
    const std::vector<Long>& ids = NamesElements(control.ctrlIds) ? control.ctrlIds : group.ctrlIds;
    control.targets.clear();
    control.targets.reserve(std::max<std::size_t>(1, ids.size()));
    if (!NamesElements(ids)) {
        control.targets.push_back({0, static_cast<Integer>(model.ElementsById.size())});
        return;
    }
    for (auto id = ids.begin(); id != ids.end(); ++id) {
        // An id that stands in the list twice still acts once.
        if (*id != kEmptyEntry && std::find(ids.begin(), id, *id) == id) {
            control.targets.push_back(WithId(model, *id));
        }
    }
}

}  // namespace

void ResolveControls(StageModel& model, bool additions) {
    const ActionNumbers actions(model);
    for (BgCtrlDef& group : model.CtrlDefs) {
        for (BgCtrl& control : group.controls) {
            control.kind = ControlKindOf(control.type, additions);
            control.actionIndex =
                control.kind == ControlKind::Anim ? actions.Find(control.value) : Integer{-1};
        }
    }
}

void ResolveTargets(StageModel& model) {
    for (BgCtrlDef& group : model.CtrlDefs) {
        for (BgCtrl& control : group.controls) {
            ResolveTargets(model, group, control);
        }
    }
}

void RunControllers(StageModel& model, PassWatch* watch) {
    for (BgCtrlDef& group : model.CtrlDefs) {
        for (BgCtrl& control : group.controls) {
            const bool acts = Acts(control);
            if (acts) {
                Act(model, control);
            }
            Advance(control.timer, control.loopTime);
            if (acts && watch != nullptr && !watch->GoesOn()) {
                return;
            }
        }
        if (Advance(group.timer, group.looptime)) {
            for (BgCtrl& control : group.controls) {
                control.timer = 0;
            }
        }
    }
}

}  // namespace scenara
