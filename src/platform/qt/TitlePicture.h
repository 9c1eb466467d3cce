// SPDX-License-Identifier: MIT
//
// TitlePicture: what the window shows before a stage is open.
#pragma once

#include <QString>
#include <cstdint>
#include <vector>

namespace scenara {

// As large as the view, in its format. The note says what is amiss; where there is none, it says
// how to begin.
[[nodiscard]] std::vector<std::uint32_t> TitlePicture(const QString& note);

}  // namespace scenara
