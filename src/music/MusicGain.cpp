// SPDX-License-Identifier: MIT
#include "music/MusicGain.h"

#include <algorithm>

#include "platform/MediaGraph.h"

namespace scenara {

double MusicGain(Single percent, Integer offset) {
    constexpr double kFull = 255;
    const double ofOffset = 1 + std::clamp(offset / kFull, -1.0, 1.0);
    return std::clamp(static_cast<double>(percent) / 100 * ofOffset, 0.0, kLoudestGain);
}

}  // namespace scenara
