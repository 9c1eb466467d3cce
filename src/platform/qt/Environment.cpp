// SPDX-License-Identifier: MIT
#include "platform/qt/Environment.h"

#include <cstdlib>

namespace scenara {

std::string Variable(const char* name) {
    const char* const value = std::getenv(name);  // NOLINT(concurrency-mt-unsafe): see the header
    return value != nullptr ? value : "";
}

}  // namespace scenara
