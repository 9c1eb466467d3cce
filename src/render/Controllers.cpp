// SPDX-License-Identifier: MIT
#include "render/Controllers.h"

#include <algorithm>
#include <string_view>
#include <vector>

#include "render/ModelLookup.h"

namespace scenara {
namespace {

constexpr Long kEmptyEntry = -1;

bool Has(const BgCtrl& control, Byte given) {
    return (control.given & given) == given;
}

// Several ticks of veladd or posadd may run a number out of its range; it then is infinite, and
// the element is nowhere to be seen.
void SetMotion(BackgroundElement& element, std::size_t axis, Single& position, Single motion) {
    position += motion - element.ctrlPos.at(axis);
    element.ctrlPos.at(axis) = motion;
}

void AddMotion(BackgroundElement& element, std::size_t axis, Single& position, Single change) {
    position += change;
    element.ctrlPos.at(axis) += change;
}

void ShowAction(const StageModel& model, Integer actionIndex, BackgroundElement& element) {
    if (element.kind != ElementKind::Animated) {
        return;
    }
    const StageAction& action = RecordAt(model.Actions, actionIndex, "action");
    element.actionIndex = actionIndex;
    element.frameIndex = 0;
    element.frameTime = action.frames.empty() ? Integer{0} : action.frames.front().time;
}

void ApplyVelocity(const BgCtrl& control, Single scale, BackgroundElement& element, bool add) {
    if (Has(control, kGivenX)) {
        element.velocityX = (add ? element.velocityX : 0) + control.x * scale;
    }
    if (Has(control, kGivenY)) {
        element.velocityY = (add ? element.velocityY : 0) + control.y * scale;
    }
}

void ApplyPosition(const BgCtrl& control, Single scale, BackgroundElement& element, bool add) {
    const auto change = add ? AddMotion : SetMotion;
    if (Has(control, kGivenX)) {
        change(element, 0, element.posX, control.x * scale);
    }
    if (Has(control, kGivenY)) {
        change(element, 1, element.posY, control.y * scale);
    }
}

void StartSwing(const BgCtrl& control, Single scale, BackgroundElement& element, bool sideways) {
    const auto amplitude = static_cast<Single>(control.value1) * scale;
    const auto period = static_cast<Single>(control.value2);
    if (sideways) {
        element.sinState = {amplitude, period, 0};
        element.sinOffset[0] = 0;
    } else {
        element.sinYAmplitude = amplitude;
        element.sinYPeriod = period;
        element.sinYPhase = 0;
        element.sinOffset[1] = 0;
    }
}

// Every element with this id.
template <typename Act>
void ForEachWithId(StageModel& model, Long id, Act act) {
    const auto idOf = [&](Integer index) { return RecordAt(model.Elements, index, "element").id; };
    auto at = std::lower_bound(model.ElementsById.begin(), model.ElementsById.end(), id,
                               [&](Integer index, Long wanted) { return idOf(index) < wanted; });
    for (; at != model.ElementsById.end() && idOf(*at) == id; ++at) {
        act(model.Elements[static_cast<std::size_t>(*at)]);
    }
}

bool NamesElements(const std::vector<Long>& ids) {
    return std::any_of(ids.begin(), ids.end(), [](Long id) { return id != kEmptyEntry; });
}

void Act(StageModel& model, const BgCtrlDef& group, const BgCtrl& control) {
    // Looked up once, however many elements there are.
    const Integer action = control.type == "anim" ? FindAction(model, control.value) : Integer{-1};
    const auto apply = [&](BackgroundElement& element) {
        ApplyControl(model, control, action, element);
    };
    const std::vector<Long>& ids = NamesElements(control.ctrlIds) ? control.ctrlIds : group.ctrlIds;
    if (!NamesElements(ids)) {
        std::for_each(model.Elements.begin(), model.Elements.end(), apply);
        return;
    }
    for (auto id = ids.begin(); id != ids.end(); ++id) {
        // An id that stands in the list twice still acts once.
        if (*id != kEmptyEntry && std::find(ids.begin(), id, *id) == id) {
            ForEachWithId(model, *id, apply);
        }
    }
}

void TickControl(StageModel& model, const BgCtrlDef& group, BgCtrl& control) {
    const Long end = std::max(control.endTime, control.startTime);
    if (control.timer >= control.startTime && control.timer <= end) {
        Act(model, group, control);
    }
    control.timer = Incremented(control.timer);
    if (control.loopTime > 0 && control.timer >= control.loopTime) {
        control.timer = 0;
    }
}

}  // namespace

void ApplyControl(const StageModel& model, const BgCtrl& control, Integer actionIndex,
                  BackgroundElement& element) {
    const std::string_view type = control.type;
    const Single scale = model.ElementScale;
    if (type == "visible") {
        if (Has(control, kGivenValue)) {
            element.visible = control.value != 0 ? 1 : 0;
        }
    } else if (type == "enable") {
        if (Has(control, kGivenValue)) {
            element.enabled = control.value != 0 ? 1 : 0;
        }
    } else if (type == "velset") {
        ApplyVelocity(control, scale, element, false);
    } else if (type == "veladd") {
        ApplyVelocity(control, scale, element, true);
    } else if (type == "posset") {
        ApplyPosition(control, scale, element, false);
    } else if (type == "posadd") {
        ApplyPosition(control, scale, element, true);
    } else if (type == "anim") {
        if (Has(control, kGivenValue) && actionIndex != -1) {
            ShowAction(model, actionIndex, element);
        }
    } else if (type == "sinx" || type == "siny") {
        if (Has(control, kGivenValue1) && Has(control, kGivenValue2)) {
            StartSwing(control, scale, element, type == "sinx");
        }
    }
}

void RunControllers(StageModel& model) {
    for (BgCtrlDef& group : model.CtrlDefs) {
        for (BgCtrl& control : group.controls) {
            TickControl(model, group, control);
        }
        group.timer = Incremented(group.timer);
        if (group.looptime > 0 && group.timer >= group.looptime) {
            group.timer = 0;
            for (BgCtrl& control : group.controls) {
                control.timer = 0;
            }
        }
    }
}

}  // namespace scenara
