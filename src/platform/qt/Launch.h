// SPDX-License-Identifier: MIT
//
// Launch: what the desktop gives to a start of the program, for the window that comes of it.
//
// When the window is one that is there already, it comes to the front by what the later start got:
// on Wayland a token (XDG_ACTIVATION_TOKEN), on X the display's time at which the user asked for
// it, since a window that tells an older one than the user's last key press is refused. What starts
// it says it at the end of the start's name (DESKTOP_STARTUP_ID: ..._TIME and a number, 0 for
// none); else, or where that is long ago, it is the time of the start itself. That is the start's
// mark (Request.h).
#pragma once

#include <string>

class QWidget;

namespace scenara {

class Launch {
public:
    // To be made before the toolkit's application object, which takes some of it away.
    Launch();

    // With the application object: the mark; empty where there is none.
    [[nodiscard]] std::string Mark() const;

    // With it, too: the desktop no longer shows that the program is starting. For a start from
    // which no window comes.
    void End() const;

private:
    std::string id_;     // X's
    std::string token_;  // Wayland's
};

// Brings the window to the front, with the mark of a start that wants it there. Where the system
// does not let it come, it asks for attention.
void BringToFront(QWidget& window, const std::string& mark);

}  // namespace scenara
