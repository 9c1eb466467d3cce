// SPDX-License-Identifier: MIT
//
// SettingsText: the contents of one of the program's own files, as far as settings can reach.
//
// Such a file is a few hundred bytes long. One that has become something else (a damaged disk, a
// wrong name) must not hold the start of the program up, so only its beginning is read.
#pragma once

#include <cstddef>
#include <string>

#include "platform/Files.h"

namespace scenara {

inline constexpr std::size_t kMaxSettingsSize = std::size_t{1} << 20U;

struct SettingsText {
    std::string text;
    bool whole = true;  // false: the file goes on; then `text` ends with the last whole line
};

// Raises what opening and reading raise.
[[nodiscard]] SettingsText ReadSettingsText(Files& files, const std::string& path);

}  // namespace scenara
