// SPDX-License-Identifier: MIT
//
// Loading whole archives, as the benchmarks and the measurement of memory share it.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace scenara::bench {

// Loads all archives as a stage's sprites into fresh memory; gives the bytes of their pictures.
[[nodiscard]] std::size_t LoadOnce(const std::vector<std::string>& archives);

}  // namespace scenara::bench
