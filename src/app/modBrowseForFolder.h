// SPDX-License-Identifier: MIT
//
// modBrowseForFolder: the folder prompt.
#pragma once

#include <string>

#include "platform/Dialogs.h"

namespace scenara {

// The folder that the user chooses, without a separator at its end but for a root; empty when the
// user cancels.
[[nodiscard]] inline std::string modBrowseForFolder(Dialogs& dialogs, const std::string& prompt) {
    std::string folder = dialogs.BrowseForFolder(prompt);
    folder.resize(folder.find('\0') == std::string::npos ? folder.size() : folder.find('\0'));
    return folder;
}

}  // namespace scenara
