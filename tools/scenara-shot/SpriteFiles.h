// SPDX-License-Identifier: MIT
//
// Every sprite of a stage as a PNG file of its own.
#pragma once

#include <string>

#include "stage/StageModel.h"

namespace scenara {

// Writes NNNN_group_image.png (NNNN = index in Sprites) into `folder`, which is made when missing.
// Raises RunTimeError when that cannot be done.
void WriteSpriteFiles(const StageModel& model, const std::string& folder);

}  // namespace scenara
