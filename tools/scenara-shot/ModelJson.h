// SPDX-License-Identifier: MIT
//
// The stage model as JSON text, for authors' scripts and for tests.
//
// One object with the members settings, elements, actions (each with frames), ctrlDefs (each with
// controls), sprites and messages. Members have the names and the order of stage/ModelFields.h, so
// every field is there but for textures. Fields that are arrays are arrays; flags are numbers as
// stored; floats are in their shortest form; a blending is an object with its kind as a word. Texts
// become UTF-8.
#pragma once

#include <ostream>
#include <vector>

#include "platform/Messages.h"
#include "stage/StageModel.h"

namespace scenara {

// Writes as it goes, so that a model of any size needs no memory for its text. Whether the stream
// took it all is the caller's to ask.
void WriteModelJson(std::ostream& out, const StageModel& model,
                    const std::vector<Message>& messages);

}  // namespace scenara
