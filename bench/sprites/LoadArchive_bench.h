// SPDX-License-Identifier: MIT
//
// Loading whole archives, as the benchmarks and the measurement of memory share it.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "platform/Direct3D8.h"
#include "stage/StageModel.h"

namespace scenara::bench {

// Helpers of a load: one for the second of two processors. (On more the peers would have more,
// too.)
inline constexpr unsigned kAllOfThem = 1;

// An archive as a stage's sprites; raises std::runtime_error when something was said.
void LoadInto(StageModel& model, TextureMaker& device, const std::string& path, unsigned helpers);

// Loads all archives as a stage's sprites into fresh memory; gives the bytes of their pictures.
[[nodiscard]] std::size_t LoadOnce(const std::vector<std::string>& archives);

}  // namespace scenara::bench
