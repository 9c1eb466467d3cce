// SPDX-License-Identifier: MIT
//
// HandOver: the end of a later start, of what it hands over to the program that runs.
#pragma once

#include <chrono>
#include <cstddef>
#include <span>

namespace scenara {

class Instance;

enum class HandedOver {
    Taken,        // it will open them
    NobodyRuns,   // no longer: this program is the one that runs now
    NotAnswered,  // it is stopped, or hangs
};

// Hands a request (platform/Request.h) over to the program that has the instance. A program that is
// just starting is waited for like any other, up to `patience`; one that is just ending takes
// nothing, and its end is waited for so long.
[[nodiscard]] HandedOver HandOver(Instance& instance, std::span<const std::byte> request,
                                  std::chrono::milliseconds patience);

}  // namespace scenara
