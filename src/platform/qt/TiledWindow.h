// SPDX-License-Identifier: MIT
//
// TiledWindow: windows that stand beside others, at a size that is not theirs to choose.
#pragma once

class QWindow;

namespace scenara {

// Whether the window manager says so: on X11 such windows are maximised in one direction only,
// which the toolkit does not tell. One that tiles all its windows says nothing.
[[nodiscard]] bool IsTiled(const QWindow& window);

}  // namespace scenara
