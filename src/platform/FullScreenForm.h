// SPDX-License-Identifier: MIT
//
// FullScreenForm, frmFS: a form without a border over the whole screen, which shows the picture in
// the place of the main window.
#pragma once

#include "base/NotCopied.h"
#include "platform/Direct3D8.h"

namespace scenara {

class FullScreenForm : NotCopied {
public:
    virtual ~FullScreenForm() = default;

    // What becomes of the main window meanwhile.
    enum class Beneath {
        Stays,
        Hides,  // from a window manager that rearranges windows for another mode of the display
    };

    // Covers the screen that the main window is on, whatever size that takes on, and counts as what
    // the user looks at when this returns. Its handle, never 0.
    virtual WindowHandle Show(Beneath mainWindow) = 0;

    // Gives the screen back; the main window is where it was, and as it was.
    virtual void Hide() = 0;
};

}  // namespace scenara
