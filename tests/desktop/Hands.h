// SPDX-License-Identifier: MIT
//
// Hands: keys and a pointer on an X display, and what a pager asks a window manager for, all over
// one connection. A test that does thousands of things cannot start a program for each.
//
// Nothing here waits for what comes of it, except where it says so. What is done to a window that
// is gone is passed over.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include <sys/types.h>
#include <xcb/xcb.h>

#include "base/NotCopied.h"
#include "desktop/DesktopProgram.h"
#include "desktop/Screenshot.h"

namespace scenara::test {

// A window of the program that is on the screen, or that its window manager knows.
struct ProgramWindow {
    enum class Kind {
        Main,    // what stands for the program: its window, or the full screen
        Dialog,  // a box, a question, or another window that belongs to the main one
        Popup,   // a menu, or what else no window manager manages
    };

    xcb_window_t id = XCB_WINDOW_NONE;
    Kind kind = Kind::Main;
    bool isSeen = false;  // not minimised, and not on another workspace
    Place place;          // on the screen, without its frame
    std::string title;

    friend bool operator==(const ProgramWindow&, const ProgramWindow&) = default;
};

class Hands : NotCopied {
public:
    // Throws where there is no such display, or nothing to press keys with.
    explicit Hands(const std::string& display);
    ~Hands();

    // "ctrl+plus": all down in this order, and up again. Throws std::invalid_argument for a key
    // that is not there.
    void Press(std::string_view keys) const;
    void Hold(std::string_view key, bool down) const;
    // Printable characters of ASCII; others are left out.
    void Type(std::string_view text) const;
    void MoveTo(const Spot& spot) const;
    void Button(int button, bool down) const;
    void Click(int button, int times = 1) const;

    // Of the program with that process number, those above others last.
    [[nodiscard]] std::vector<ProgramWindow> WindowsOf(pid_t program) const;
    [[nodiscard]] xcb_window_t ActiveWindow() const;
    // Of all that are managed, the one above the others.
    [[nodiscard]] xcb_window_t TopWindow() const;

    // What a pager or a taskbar asks for.
    void Activate(xcb_window_t window) const;
    void Close(xcb_window_t window) const;
    void Minimise(xcb_window_t window) const;
    void MoveAndSize(xcb_window_t window, const Place& place) const;
    enum class Change : std::uint8_t { Remove, Add, Toggle };
    // `other` may be empty.
    void ChangeState(xcb_window_t window, Change change, std::string_view state,
                     std::string_view other = {}) const;
    void SendToWorkspace(xcb_window_t window, std::uint32_t workspace) const;
    void MakeWorkspaces(std::uint32_t count) const;
    void GoToWorkspace(std::uint32_t workspace) const;

    // Asks whether the window's program reacts; the number of the question. And the number of the
    // last one that was answered.
    std::uint32_t Ping(xcb_window_t window);
    [[nodiscard]] std::uint32_t LastAnswer();

    // A window of another program, all background: it comes up with the focus, or comes back.
    void ShowOther(const Place& place);
    void CloseOther();

    // A part of the screen, which has to have it.
    [[nodiscard]] Screenshot Look(const Place& place) const;
    [[nodiscard]] Place Screen() const;

private:
    struct KeyCode {
        xcb_keycode_t code = 0;
        bool shifted = false;
    };

    [[nodiscard]] KeyCode CodeOf(std::string_view key) const;
    [[nodiscard]] KeyCode CodeOfSymbol(xcb_keysym_t symbol) const;
    void Fake(std::uint8_t type, std::uint8_t detail, const Spot& spot = {}) const;
    [[nodiscard]] xcb_atom_t Atom(std::string_view name) const;
    [[nodiscard]] std::vector<std::uint32_t> Property(xcb_window_t window,
                                                      std::string_view name) const;
    [[nodiscard]] std::string TextProperty(xcb_window_t window, std::string_view name) const;
    [[nodiscard]] Place PlaceOf(xcb_window_t window) const;
    [[nodiscard]] bool IsViewable(xcb_window_t window) const;
    void Ask(xcb_window_t window, std::string_view what,
             const std::vector<std::uint32_t>& words) const;

    struct Closer {
        void operator()(xcb_connection_t* display) const { xcb_disconnect(display); }
    };

    std::unique_ptr<xcb_connection_t, Closer> display_;
    const xcb_screen_t* screen_ = nullptr;
    xcb_keycode_t firstCode_ = 0;
    std::size_t symbolsPerCode_ = 0;
    std::vector<xcb_keysym_t> symbols_;
    mutable std::map<std::string, xcb_atom_t, std::less<>> atoms_;
    xcb_window_t other_ = XCB_WINDOW_NONE;
    std::uint32_t pings_ = 0;
    std::uint32_t answered_ = 0;
};

}  // namespace scenara::test
