// SPDX-License-Identifier: MIT
//
// MugenFolder: which folder is the user's MUGEN folder, and how the user is asked for it.
//
// MUGEN keeps its stages in a folder stages in there; letter case does not count. Folders have no
// separator at their end here, unless the user has given them one.
#pragma once

#include <functional>
#include <string>

#include "platform/Dialogs.h"
#include "platform/Files.h"

namespace scenara {

// The words over the folder dialog.
inline constexpr const char* kMugenFolderPrompt =
    "Point me to your MUGEN Directory please:\r\nex. C:\\GAMES\\MUGEN";

[[nodiscard]] bool HasStages(Files& files, const std::string& folder);
[[nodiscard]] bool IsCalledStages(const std::string& folder);
// The one that it is in; empty above a root.
[[nodiscard]] std::string FolderAbove(const std::string& folder);

// Of a folder without stages: the one that the user may have meant, which has them. That is the one
// above a folder that is itself called stages, or the only one in it that has stages. Empty: none.
[[nodiscard]] std::string FolderMeant(Files& files, const std::string& folder);

// Addition: asks for the folder, beginning in the folder `initial`. One without stages is asked
// about, and taken when the user insists. Empty when the user cancels, and when `ended` tells that
// the program is to end.
[[nodiscard]] std::string AskForMugenFolder(Files& files, Dialogs& dialogs,
                                            const std::string& initial,
                                            const std::function<bool()>& ended);

}  // namespace scenara
