// SPDX-License-Identifier: MIT
//
// Environment: the variables that the program was started with.
#pragma once

#include <string>

namespace scenara {

// Empty where it is not set. To be asked before there is any other thread.
[[nodiscard]] std::string Variable(const char* name);

}  // namespace scenara
