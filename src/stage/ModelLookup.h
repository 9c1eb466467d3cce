// SPDX-License-Identifier: MIT
//
// Records of the stage model by index, checked: an index outside of its table raises RunTimeError
// "Subscript out of range".
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "base/RunTimeError.h"
#include "stage/StageModel.h"

namespace scenara {

template <typename Record>
[[nodiscard]] Record& RecordAt(std::vector<Record>& table, Integer index, std::string_view what) {
    if (index < 0 || static_cast<std::size_t>(index) >= table.size()) {
        throw RunTimeError(RunTimeErrorKind::SubscriptOutOfRange, what);
    }
    return table[static_cast<std::size_t>(index)];
}

template <typename Record>
[[nodiscard]] const Record& RecordAt(const std::vector<Record>& table, Integer index,
                                     std::string_view what) {
    if (index < 0 || static_cast<std::size_t>(index) >= table.size()) {
        throw RunTimeError(RunTimeErrorKind::SubscriptOutOfRange, what);
    }
    return table[static_cast<std::size_t>(index)];
}

// The action of an "anim" element; none when it has no action, or one without frames.
[[nodiscard]] inline const StageAction* ActionOf(const StageModel& model,
                                                 const BackgroundElement& element) {
    if (element.actionIndex == -1) {
        return nullptr;
    }
    const StageAction& action = RecordAt(model.Actions, element.actionIndex, "action");
    return action.frames.empty() ? nullptr : &action;
}

}  // namespace scenara
