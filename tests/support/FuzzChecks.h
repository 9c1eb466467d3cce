// SPDX-License-Identifier: MIT
//
// What must hold after any input, for the fuzz targets: a broken promise ends the program, so that
// the fuzzer keeps the input.
#pragma once

#include <string>

#include "stage/StageModel.h"

namespace scenara::test {

void Require(bool holds, const char* promise);

// Counts agree with tables, indices point into them, and every pixel of every sprite can be read.
void CheckModel(const StageModel& model);

// An archive with an owned, a shared-palette and a linked sprite: groups and images 0,0 0,1 1,0.
[[nodiscard]] std::string SmallArchiveBytes();

}  // namespace scenara::test
