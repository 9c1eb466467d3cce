// SPDX-License-Identifier: MIT
//
// How often a test of random or all numbers goes round: as often as it says in the build that users
// run, and less under the sanitizers, where each round takes several times longer and the same
// random numbers come first.
#pragma once

namespace scenara::test {

#ifdef SCENARA_SANITIZED
inline constexpr int kFewerRoundsUnderSanitizers = 6;
#else
inline constexpr int kFewerRoundsUnderSanitizers = 1;
#endif

[[nodiscard]] constexpr int Rounds(int rounds) {
    return rounds / kFewerRoundsUnderSanitizers;
}

}  // namespace scenara::test
