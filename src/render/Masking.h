// SPDX-License-Identifier: MIT
//
// Masking: the states around the draw of a picture whose colour 0 is left out.
#pragma once

#include "platform/Direct3D8.h"

namespace scenara {

// Blending by the source's alpha.
void BeginMasking(Direct3DDevice8& device);

// Back to no blending at all.
void EndMasking(Direct3DDevice8& device);

}  // namespace scenara
