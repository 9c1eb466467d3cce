// SPDX-License-Identifier: MIT
#include "platform/ProcessNumber.h"

#include <unistd.h>

namespace scenara {

std::int64_t ProcessNumber() {
    return ::getpid();
}

}  // namespace scenara
