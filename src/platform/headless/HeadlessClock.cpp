// SPDX-License-Identifier: MIT
#include "platform/headless/HeadlessClock.h"

namespace scenara {

Long HeadlessClock::GetTickCount() {
    return TickOf(counter_ / kCountsPerMillisecond);
}

}  // namespace scenara
