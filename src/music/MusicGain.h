// SPDX-License-Identifier: MIT
//
// MusicGain: how loud a stage wants its music, relative to how it was recorded.
#pragma once

#include "base/Integers.h"

namespace scenara {

// `percent`: 100 as recorded, 0 and less silence. `offset`: -255 silence, 0 as recorded, 255 twice
// as loud, kept within that. Given both, the product; never above kLoudestGain.
[[nodiscard]] double MusicGain(Single percent, Integer offset);

}  // namespace scenara
