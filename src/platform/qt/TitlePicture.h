// SPDX-License-Identifier: MIT
//
// TitlePicture: what the window shows before a stage is open.
#pragma once

#include <cstdint>
#include <vector>

namespace scenara {

// As large as the view, in its format.
[[nodiscard]] std::vector<std::uint32_t> TitlePicture();

}  // namespace scenara
