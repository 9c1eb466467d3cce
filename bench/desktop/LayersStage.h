// SPDX-License-Identifier: MIT
//
// The stage on which the real window is measured: a backdrop and 20 layers that drift over it, at
// three times the size of the view.
#pragma once

#include <string>

#include "platform/Form.h"

namespace scenara::bench {

// Writes the stage, and the settings of a program that has its files there: the folder, which ends
// with a separator, is the engine's as well. The path of the stage.
[[nodiscard]] std::string WriteLayersAndSettings(const std::string& folder);

// Whether the window came up so large that the picture is shown at three times its size.
[[nodiscard]] bool IsThreeTimes(const Form& form);

}  // namespace scenara::bench
