// SPDX-License-Identifier: MIT
//
// Status: what the line below the picture says of the stage that is shown.
#pragma once

#include <cstddef>
#include <cstdint>

#include "platform/Form.h"
#include "platform/ProblemList.h"
#include "show/StageShow.h"

namespace scenara {

// What has changed when the line has to say something else. To be compared in each frame.
struct StatusSource {
    bool additions = false;
    ShowState state = ShowState::None;
    bool hasStage = false;
    std::size_t stages = 0;        // in the list
    std::size_t allStages = 0;     // ... without its filter
    std::uint64_t generation = 0;  // of the problems
    std::size_t problems = 0;

    friend bool operator==(const StatusSource&, const StatusSource&) = default;
};
[[nodiscard]] StatusSource StatusSourceOf(const StageShow& show, const Form& form);

// Addition: the stage's name, or its file's where it has none or is being read, and what there is
// besides; without a stage, how many there are in the list. Plain: a line that is not to be seen.
// Texts are bytes as in files, each of a length that can be shown.
[[nodiscard]] StatusBar StatusOf(const StageShow& show, const Form& form);

}  // namespace scenara
