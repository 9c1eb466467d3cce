// SPDX-License-Identifier: MIT
//
// Window: the main window, as far as the reading of stages needs it.
//
// DoEvents lets the window system deliver what waits (the program's API_doevents, without its
// check): handlers of menus, keys and lists run inside it and may change the program's state, so a
// caller keeps no references into tables across it.
#pragma once

#include <string>

namespace scenara {

class Window {
public:
    Window() = default;
    Window(const Window&) = delete;
    Window& operator=(const Window&) = delete;
    virtual ~Window() = default;

    virtual void SetCaption(const std::string& caption) = 0;
    virtual void DoEvents() = 0;

    // The user has closed the window: every loop and load returns at its next test.
    [[nodiscard]] virtual bool EndRequested() const = 0;
};

}  // namespace scenara
