// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

#include "platform/Direct3D8.h"

namespace scenara {

// Raises RunTimeError "Direct3D error" when `result` is a failure; `call` is its name.
void Require(HRESULT result, std::string_view call);

}  // namespace scenara
