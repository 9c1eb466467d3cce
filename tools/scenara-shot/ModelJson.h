// SPDX-License-Identifier: MIT
//
// The stage model as JSON text, for authors' scripts and for tests.
//
// One object with the members settings, elements, actions (each with frames), ctrlDefs (each with
// controls), sprites and messages. Members have the names of StageModel.h, in its order; fields
// that are arrays are arrays; flags are numbers as stored; floats are in their shortest form; words
// that only the drawing knows, and textures, are left out. Texts become UTF-8.
#pragma once

#include <string>
#include <vector>

#include "platform/Messages.h"
#include "stage/StageModel.h"

namespace scenara {

[[nodiscard]] std::string ModelJson(const StageModel& model, const std::vector<Message>& messages);

}  // namespace scenara
