// SPDX-License-Identifier: MIT
//
// A display of the test's own, with something that manages its windows, and the real program on it.
//
// Nothing here depends on how fast the machine is: what is to happen is waited for.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "desktop/Child.h"
#include "desktop/Screenshot.h"
#include "platform/posix/ProgramFolder.h"

namespace scenara::test {

// What decides where windows stand, and how large they are.
enum class Manager {
    Openbox,  // gives a window the size that it asks for
    I3,       // tiles them, and gives them the size that is left
    Weston,   // a Wayland compositor: programs are not clients of the X server
    Sway,     // a Wayland compositor that tiles, without any X server
};

[[nodiscard]] std::string NameOf(Manager manager);

struct DisplaySetup {
    Manager manager = Manager::Openbox;
    // Of a monitor, in its own pixels. Several stand side by side.
    int width = 1024;
    int height = 768;
    int monitors = 1;
    int scale = 1;  // with Wayland: pixels to a unit in which programs count
    // Openbox has no keys, buttons or menus of its own, which would start other programs or end it,
    // but for the focus.
    bool harmless = false;
    // Else Openbox leaves a new window in the upper left corner, if it asks for no place. Not of
    // the harmless one.
    bool centres = true;
};

// A window as a Wayland compositor knows it.
struct ShownWindow {
    std::string title;
    Place place;  // in units
};

class VirtualDisplay {
public:
    explicit VirtualDisplay(const DisplaySetup& setup = {});

    [[nodiscard]] const DisplaySetup& Setup() const { return setup_; }
    // Of the X server; empty where there is none.
    [[nodiscard]] const std::string& Name() const { return name_; }
    // For the programs on it.
    [[nodiscard]] std::vector<std::string> Environment() const;
    [[nodiscard]] std::string Folder() const { return folder_.Path(); }

    // Runs xdotool with these words; what it says, all of it or the first line.
    [[nodiscard]] std::string Answer(const std::string& words) const;
    std::string Do(const std::string& words) const;
    // One key, or several that are held together: "alt+o". They go to what has the focus.
    void Press(const std::string& keys) const;
    // Tells i3 or Sway what to do, in their own words; what it says.
    std::string Tell(const std::string& words) const;

    // What xprop says of a property; `window` is "-root" or "-id " and a number.
    [[nodiscard]] std::string Property(const std::string& window, const std::string& name) const;
    // Whether the window of that id says that it is a dialog.
    [[nodiscard]] bool IsDialog(const std::string& window) const;
    // Where the X window of that id stands, without its frame; nothing where there is none.
    [[nodiscard]] std::optional<Place> PlaceOf(const std::string& window) const;
    // What a pager does: adds these states to a window, or takes them away; the second one may be
    // empty.
    void ChangeState(bool add, const std::string& window, const std::string& state,
                     const std::string& other = {}) const;
    // With i3 or Sway: the workspace that is gone to.
    [[nodiscard]] std::string Workspace() const;
    // With Sway: the windows, those that float last.
    [[nodiscard]] std::vector<ShownWindow> ShownWindows() const;

    [[nodiscard]] Screenshot Look() const;
    // Nothing but the background; a Wayland compositor shows that in any case.
    void FillBackground() const;
    // To what manages the windows.
    void SignalManager(int signal) const { manager_->Send(signal); }
    // Starts it again, if it has ended by itself: true then.
    bool KeepManager();
    // The display is gone, without a word to the programs on it.
    void Kill() { server_.reset(); }
    // The windows and what the programs have said, for whoever looks into a failed test.
    [[nodiscard]] std::string AllWindows() const;

private:
    void StartServer();
    void StartManager();
    void StartSway();
    void PlaceMonitors() const;
    void SettleKeys() const;
    [[nodiscard]] bool ManagerIsReady() const;
    // Runs a command line among the programs on it; what it says.
    [[nodiscard]] std::string Run(const std::string& command) const;

    DisplaySetup setup_;
    TemporaryFolder folder_;
    std::string name_;
    std::optional<Child> server_;
    std::optional<Child> manager_;
    std::optional<Child> keyboard_;  // Sway's own
};

}  // namespace scenara::test
