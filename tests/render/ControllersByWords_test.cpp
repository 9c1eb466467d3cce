// SPDX-License-Identifier: MIT
//
// What controllers come to at the stage's start, beside the words and lists themselves.
#include <algorithm>
#include <array>
#include <cstdint>
#include <random>
#include <vector>

#include <gtest/gtest.h>

#include "render/Controllers.h"
#include "render/PrepareStage.h"
#include "render/StageBuilder.h"
#include "stage/ModelText.h"
#include "support/Rounds.h"

namespace scenara::test {
namespace {

// Every element that the control's own list names, else its group's, else every one.
bool IsNamed(const BgCtrlDef& group, const BgCtrl& control, Long id) {
    for (const std::vector<Long>* const ids : {&control.ctrlIds, &group.ctrlIds}) {
        bool names = false;
        for (const Long one : *ids) {
            names = names || one != -1;
            if (one != -1 && one == id) {
                return true;
            }
        }
        if (names) {
            return false;
        }
    }
    return true;
}

// One tick, element by element and word by word.
void TickByWords(StageModel& model) {
    for (BgCtrlDef& group : model.CtrlDefs) {
        for (BgCtrl& control : group.controls) {
            const bool now = control.timer >= control.startTime &&
                             control.timer <= std::max(control.startTime, control.endTime);
            for (BackgroundElement& element : model.Elements) {
                if (!now || !IsNamed(group, control, element.id)) {
                    continue;
                }
                const bool x = (control.given & kGivenX) != 0;
                const bool y = (control.given & kGivenY) != 0;
                const bool value = (control.given & kGivenValue) != 0;
                const bool both =
                    (control.given & kGivenValue1) != 0 && (control.given & kGivenValue2) != 0;
                if (control.type == "visible" && value) {
                    element.visible = control.value != 0 ? 1 : 0;
                } else if (control.type == "enable" && value) {
                    element.enabled = control.value != 0 ? 1 : 0;
                } else if (control.type == "velset") {
                    element.velocityX = x ? control.x : element.velocityX;
                    element.velocityY = y ? control.y : element.velocityY;
                } else if (control.type == "veladd") {
                    element.velocityX += x ? control.x : 0;
                    element.velocityY += y ? control.y : 0;
                } else if (control.type == "posset") {
                    element.posX += x ? control.x - element.ctrlPos[0] : 0;
                    element.posY += y ? control.y - element.ctrlPos[1] : 0;
                    element.ctrlPos[0] = x ? control.x : element.ctrlPos[0];
                    element.ctrlPos[1] = y ? control.y : element.ctrlPos[1];
                    element.motion[0] = x ? static_cast<double>(control.x) : element.motion[0];
                    element.motion[1] = y ? static_cast<double>(control.y) : element.motion[1];
                } else if (control.type == "posadd") {
                    element.posX += x ? control.x : 0;
                    element.posY += y ? control.y : 0;
                    element.ctrlPos[0] += x ? control.x : 0;
                    element.ctrlPos[1] += y ? control.y : 0;
                    element.motion[0] += x ? static_cast<double>(control.x) : 0;
                    element.motion[1] += y ? static_cast<double>(control.y) : 0;
                } else if (control.type == "anim" && value && element.type == "anim") {
                    for (std::size_t i = 0; i < model.Actions.size(); ++i) {
                        if (model.Actions[i].actionNo == control.value) {
                            element.actionIndex = static_cast<Integer>(i);
                            element.frameIndex = 0;
                            element.frameTime = model.Actions[i].frames.front().time;
                            break;
                        }
                    }
                } else if (control.type == "sinx" && both) {
                    element.sinState = {static_cast<Single>(control.value1),
                                        static_cast<Single>(control.value2), 0};
                    element.sinOffset[0] = 0;
                } else if (control.type == "siny" && both) {
                    element.sinYAmplitude = control.value1;
                    element.sinYPeriod = control.value2;
                    element.sinYPhase = 0;
                    element.sinOffset[1] = 0;
                }
            }
            ++control.timer;
            if (control.loopTime > 0 && control.timer >= control.loopTime) {
                control.timer = 0;
            }
        }
        ++group.timer;
        if (group.looptime > 0 && group.timer >= group.looptime) {
            group.timer = 0;
            for (BgCtrl& control : group.controls) {
                control.timer = 0;
            }
        }
    }
}

// Stages of a few elements and controls, of which many hit one another.
class AnyStage {
public:
    explicit AnyStage(std::uint32_t seed) : random_(seed) {
        StageBuilder build(model);
        build.Action({{-1, 1}, {-1, 2}}, 0, 0);
        build.Action({{-1, 3}}, 0, 2);
        build.Action({{-1, 4}}, 0, 2);
        for (Long i = From(0, 6); i > 0; --i) {
            BackgroundElement& element = From(0, 1) == 0 ? build.Still(-1) : build.Animation(0);
            element.id = From(-1, 3);
        }
        for (Long i = From(1, 3); i > 0; --i) {
            BgCtrlDef& group = build.Group(From(-1, 9), Ids());
            for (Long j = From(0, 4); j > 0; --j) {
                Control(group);
            }
        }
        PrepareElements(model, kPlainView, View());
    }

    StageModel model;

private:
    Long From(Long least, Long most) {
        return least + static_cast<Long>(random_() % static_cast<std::uint32_t>(most - least + 1));
    }
    std::vector<Long> Ids() {
        std::vector<Long> ids(static_cast<std::size_t>(std::max(Long{0}, From(-2, 3))));
        for (Long& id : ids) {
            id = From(-1, 4);
        }
        return ids;
    }
    void Control(BgCtrlDef& group) {
        constexpr std::array kTypes = {"null",   "visible", "enable", "velset", "veladd", "posset",
                                       "posadd", "anim",    "sinx",   "siny",   "Posadd"};
        BgCtrl& control = On(AddControl(group, kTypes.at(random_() % kTypes.size())), Ids());
        During(control, From(-1, 5), From(-1, 8), From(-1, 6));
        control.given = static_cast<Byte>(random_() % 32);
        control.x = static_cast<Single>(From(-3, 3));
        control.y = static_cast<Single>(From(-3, 3));
        control.value = static_cast<Integer>(From(0, 3));
        control.value1 = static_cast<Integer>(From(-3, 3));
        control.value2 = static_cast<Integer>(From(0, 3));
    }

    std::mt19937 random_;
};

TEST(ControllersOfAnyStage, DoWhatTheirWordsAndListsSay) {
    const auto seeds = static_cast<std::uint32_t>(Rounds(3000));
    for (std::uint32_t seed = 0; seed < seeds; ++seed) {
        AnyStage resolved(seed);
        AnyStage byWords(seed);
        for (int tick = 0; tick < 15; ++tick) {
            RunControllers(resolved.model);
            TickByWords(byWords.model);
        }
        ASSERT_EQ(ModelText(resolved.model), ModelText(byWords.model)) << seed;
    }
}

}  // namespace
}  // namespace scenara::test
