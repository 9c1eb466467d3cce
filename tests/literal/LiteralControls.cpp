// SPDX-License-Identifier: MIT
//
// The controllers of a LiteralStage, and the clocks of its animations.
#include <algorithm>
#include <array>
#include <cstddef>

#include "literal/LiteralStage.h"

namespace scenara::test {
namespace {

// A list of nothing but -1 counts as none.
bool Names(const std::vector<Long>& ids) {
    return std::ranges::any_of(ids, [](Long id) { return id != -1; });
}

}  // namespace

// A control's own list goes before the group's; without either it acts on all.
void LiteralStage::ResolveControls() {
    for (const BgCtrlDef& def : model_.CtrlDefs) {
        Group group{&def, {}, 0};
        for (const BgCtrl& ctrl : def.controls) {
            Control control{&ctrl, {}, 0};
            const bool own = Names(ctrl.ctrlIds);
            const std::vector<Long>& ids = own ? ctrl.ctrlIds : def.ctrlIds;
            const bool all = !own && !Names(def.ctrlIds);
            for (std::size_t i = 0; i < elements_.size(); ++i) {
                const Long id = elements_[i].file->id;
                if (all || (id != -1 && std::ranges::find(ids, id) != ids.end())) {
                    control.targets.push_back(i);
                }
            }
            group.controls.push_back(std::move(control));
        }
        groups_.push_back(std::move(group));
    }
}

void LiteralStage::RunControls() {
    for (Group& group : groups_) {
        for (Control& control : group.controls) {
            const BgCtrl& file = *control.file;
            const std::int64_t end = std::max(file.startTime, file.endTime);
            if (file.startTime <= control.timer && control.timer <= end) {
                for (const std::size_t target : control.targets) {
                    Act(file, elements_[target]);
                }
            }
            ++control.timer;
            if (file.loopTime > 0 && control.timer >= file.loopTime) {
                control.timer = 0;
            }
        }
        ++group.timer;
        if (group.file->looptime > 0 && group.timer >= group.file->looptime) {
            group.timer = 0;
            for (Control& control : group.controls) {
                control.timer = 0;
            }
        }
    }
}

void LiteralStage::Act(const BgCtrl& control, Element& element) {
    const bool value = (control.given & kGivenValue) != 0;
    const std::array<bool, 2> given = {(control.given & kGivenX) != 0,
                                       (control.given & kGivenY) != 0};
    const std::array<float, 2> amount = {control.x, control.y};
    if (control.type == "visible" && value) {
        element.visible = control.value != 0;
    } else if ((control.type == "enable" ||
                (control.type == "enabled" && rules_.enabledIsEnable)) &&
               value) {
        element.enabled = control.value != 0;
    } else if (control.type == "anim" && value && element.animated) {
        for (std::size_t i = 0; i < model_.Actions.size(); ++i) {
            const StageAction& action = model_.Actions[i];
            if (action.actionNo == control.value) {
                element.action = static_cast<int>(i);
                element.frame = 0;
                element.frameTime = action.frames.empty() ? 0 : action.frames[0].time;
                break;
            }
        }
    } else if (control.type == "sinx" || control.type == "siny") {
        if ((control.given & kGivenValue1) != 0 && (control.given & kGivenValue2) != 0) {
            Swing swing;
            swing.amplitude = static_cast<float>(control.value1) + control.swingFraction[0];
            swing.period = static_cast<float>(control.value2) + control.swingFraction[1];
            swing.time = rules_.wholeSwings ? static_cast<float>(control.value3) : 0;
            element.swings[control.type == "sinx" ? 0 : 1] = swing;
        }
    }
    for (std::size_t axis = 0; axis < 2; ++axis) {
        if (!given[axis]) {
            continue;
        }
        if (control.type == "velset") {
            element.velocity[axis] = amount[axis];
        } else if (control.type == "veladd") {
            element.velocity[axis] += amount[axis];
        } else if (control.type == "posset") {
            element.position[axis] =
                Kept(element.position[axis] + Kept(Wide(amount[axis]) - element.motion[axis]));
            element.motion[axis] = Wide(amount[axis]);
        } else if (control.type == "posadd") {
            element.position[axis] = Kept(element.position[axis] + Wide(amount[axis]));
            element.motion[axis] = Kept(element.motion[axis] + Wide(amount[axis]));
        }
    }
}

// A frame of time t is on screen for t frames. Frames of time 0 are passed over, at most once
// round.
void LiteralStage::TickAnimation(Element& element) {
    if (!element.animated || !element.enabled || element.action < 0) {
        return;
    }
    const StageAction& action = model_.Actions[static_cast<std::size_t>(element.action)];
    const int count = static_cast<int>(action.frames.size());
    if (count == 0) {
        return;
    }
    const auto timeOf = [&](int frame) {
        return action.frames[static_cast<std::size_t>(frame)].time;
    };
    if (timeOf(element.frame) < 0) {
        return;
    }
    if (element.frameTime < 1) {
        int passed = 0;
        do {
            ++element.frame;
            if (element.frame >= count) {
                const bool valid = action.loopstart >= 0 && action.loopstart < count;
                element.frame = valid ? action.loopstart : 0;
            }
            ++passed;
        } while (timeOf(element.frame) == 0 && passed < count);
        element.frameTime = timeOf(element.frame);
        if (element.frameTime < 0) {
            return;
        }
    }
    --element.frameTime;
}

}  // namespace scenara::test
