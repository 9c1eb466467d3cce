// SPDX-License-Identifier: MIT
//
// RecentFiles: the stages that were opened last, newest first, in the Stage menu.
//
// They stand behind the item MnuRecentFiles (entry 0), which is shown with the first of them.
// Entries are counted from 1. Opening keeps the menu at most kMaxRecentFiles long; a configuration
// that holds more brings them all, and then each stage that is opened takes the oldest one's place.
#pragma once

#include <cstddef>
#include <string>

#include "platform/Form.h"

namespace scenara {

inline constexpr std::size_t kMaxRecentFiles = 6;

// A stage is opened: it becomes entry 1. Letter case tells paths apart.
void RememberRecentFile(Form& form, std::string path);

// Entry k becomes entry 1; its path. Raises "Subscript out of range" when there is none.
std::string RaiseRecentFile(Form& form, std::size_t k);

// One more behind the last.
void AppendRecentFile(Form& form, std::string path);

}  // namespace scenara
