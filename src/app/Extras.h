// SPDX-License-Identifier: MIT
//
// Extras: settings that QX.CFG has no line for, in Scenara.ini beside it.
//
// One line counts: "Additions = True" or "Additions = False", in any letter case. Whatever else is
// in the file belongs to somebody else and stays as it is, byte by byte.
#pragma once

#include "platform/Files.h"

namespace scenara {

// Whether stages are shown with the additions. True when the file or the line is missing, or says
// neither; the last of several lines counts.
[[nodiscard]] bool LoadAdditions(Files& files);

// Writes it, in one step, unless the file says so already. Raises what reading and writing raise.
void SaveAdditions(Files& files, bool additions);

}  // namespace scenara
