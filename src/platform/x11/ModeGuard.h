// SPDX-License-Identifier: MIT
//
// ModeGuard: brings a screen back when the program dies while its mode is switched.
//
// A mode outlives the program that has set it, so a crash would leave the user with a screen of
// 320 by 240. A small child process waits for the program's end on a socket, with a display
// connection of its own that was made beforehand, and then puts the screen back. It does nothing
// else, and is not touched by what is sent to the program's group (Ctrl+C).
#pragma once

#include <string>

#include <sys/types.h>

#include "base/NotCopied.h"
#include "platform/x11/X11Modes.h"

namespace scenara {

class ModeGuard : NotCopied {
public:
    // From now on `screen` comes back when the program dies. Without a child, where the system
    // allows none, it does not.
    ModeGuard(const std::string& display, X11Screen screen);
    // Dismisses the child.
    ~ModeGuard();

private:
    [[noreturn]] void Watch(int socket) const;

    X11Modes modes_;  // the child's alone, for as long as there is one
    X11Screen screen_;
    int socket_ = -1;
    pid_t child_ = -1;
};

}  // namespace scenara
