// SPDX-License-Identifier: MIT
//
// How much memory a piece of work needs at its highest.
#pragma once

#include <cstddef>
#include <functional>

namespace scenara::bench {

// Runs `work` in a process of its own and gives the most memory in bytes that it held at a time,
// beyond what was held before. 0 when the system does not tell. `work` gives the bytes that it had
// to keep in any case; they come back in `kept`.
[[nodiscard]] std::size_t PeakMemoryOf(const std::function<std::size_t()>& work, std::size_t& kept);

}  // namespace scenara::bench
