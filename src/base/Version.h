// SPDX-License-Identifier: MIT
//
// Version: what every program here answers to --version.
#pragma once

#include <string>

namespace scenara {

// The name and the whole version number, one line with its end: "Scenara 1.1.0". (The window's
// title leaves the first number out.)
[[nodiscard]] std::string VersionLine();

}  // namespace scenara
