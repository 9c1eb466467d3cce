// SPDX-License-Identifier: MIT
//
// What the writers ask of their callers.
#pragma once

#include <stdexcept>

namespace scenara::samplemaker {

// Raises std::invalid_argument where it does not hold.
inline void Require(bool holds, const char* what) {
    if (!holds) {
        throw std::invalid_argument(what);
    }
}

}  // namespace scenara::samplemaker
