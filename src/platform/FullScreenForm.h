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

    // Covers the screen, whatever size it takes on, and counts as what the user looks at when this
    // returns. The main window is gone meanwhile. Its handle, never 0.
    virtual WindowHandle Show() = 0;

    // Gives the screen back; the main window is where it was.
    virtual void Hide() = 0;
};

}  // namespace scenara
