// SPDX-License-Identifier: MIT
//
// How often a test of random or all numbers goes round.
#pragma once

#include <cstdlib>

namespace scenara::test {

// As often as it says in the build that users run. Less under the sanitizers, where each round
// takes several times longer and the same random numbers come first. Ten times as often in ./test
// --long.
[[nodiscard]] inline int Rounds(int rounds) {
#ifdef SCENARA_SANITIZED
    rounds /= 6;
#endif
    return std::getenv("SCENARA_LONG") == nullptr ? rounds : 10 * rounds;
}

}  // namespace scenara::test
