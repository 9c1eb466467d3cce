// SPDX-License-Identifier: MIT
//
// The MUGEN folders that the benchmarks look for stages in, each with a separator at its end.
#pragma once

#include <string>

namespace scenara::bench {

// With the bundled stages, which the build makes.
[[nodiscard]] std::string BundledFolder();

// With real content, where there is any.
[[nodiscard]] std::string SampleDataFolder();

}  // namespace scenara::bench
