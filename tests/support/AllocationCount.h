// SPDX-License-Identifier: MIT
//
// AllocationCount: how often this program has asked for memory with new, so that a test can see
// that something asks for none. Memory that C libraries take for themselves is not counted.
//
// Linking test_allocation_count replaces the operators new and delete of the whole program.
#pragma once

#include <cstddef>

namespace scenara::test {

[[nodiscard]] std::size_t AllocationCount();

}  // namespace scenara::test
