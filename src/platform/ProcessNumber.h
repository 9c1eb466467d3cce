// SPDX-License-Identifier: MIT
//
// The number of the process that runs. A child that was forked off has another one than its parent,
// and none of its parent's threads but the one that forked. Each machine has its own.
#pragma once

#include <cstdint>

namespace scenara {

[[nodiscard]] std::int64_t ProcessNumber();

}  // namespace scenara
