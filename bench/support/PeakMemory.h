// SPDX-License-Identifier: MIT
//
// How much memory a piece of work needs at its highest.
#pragma once

#include <cstddef>
#include <functional>

namespace scenara::bench {

// Runs `work` twice in a process of its own and gives the most memory in bytes that the second time
// held beyond what was held before it, so that the program's own code, which the first time brings
// in, does not count. What the first time left in the heap is given back to the system in between.
// 0 when the system does not tell. `work` gives the bytes that it needs in any case; they come back
// in `kept`.
[[nodiscard]] std::size_t PeakMemoryOf(const std::function<std::size_t()>& work, std::size_t& kept);

}  // namespace scenara::bench
