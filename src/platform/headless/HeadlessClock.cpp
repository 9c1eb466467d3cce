// SPDX-License-Identifier: MIT
#include "platform/headless/HeadlessClock.h"

namespace scenara {

Long HeadlessClock::GetTickCount() {
    const std::int64_t milliseconds = counter_ / kCountsPerMillisecond;
    return ToLong(static_cast<double>(milliseconds));
}

}  // namespace scenara
