// SPDX-License-Identifier: MIT
//
// ProgramIcon: the program's own picture, as the desktop shows it beside its windows, in all the
// sizes that it is made in (share/CMakeLists.txt).
#pragma once

#include <QIcon>

namespace scenara {

// With the application object there.
[[nodiscard]] QIcon ProgramIcon();

}  // namespace scenara
