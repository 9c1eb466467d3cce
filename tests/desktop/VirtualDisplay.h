// SPDX-License-Identifier: MIT
//
// A display of the test's own, with something that manages its windows, and the real program on it.
//
// Nothing here depends on how fast the machine is: what is to happen is waited for.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include <sys/types.h>

#include "platform/posix/ProgramFolder.h"

namespace scenara::test {

// A program that runs beside the test, in a process group of its own, and is ended with it.
class Child {
public:
    Child(const std::vector<std::string>& command, const std::vector<std::string>& environment,
          const std::string& outputFile);
    Child(const Child&) = delete;
    Child& operator=(const Child&) = delete;
    ~Child();

    // Undoes the idle priority that the program gives itself, where the system allows it: beside
    // other work it would hardly ever run.
    void TakePriorityBack() const;

    // Sends a signal to its process group, as a terminal does.
    void Send(int signal) const;

    // Whether it has a file open whose path ends so.
    [[nodiscard]] bool HasOpen(const std::string& pathEnd) const;

    // Its exit status, once it has ended.
    [[nodiscard]] std::optional<int> StatusNow();
    // The same; waits up to half a minute.
    [[nodiscard]] std::optional<int> ExitStatus();

private:
    pid_t pid_ = -1;
};

// What can be seen on the display.
struct Screenshot {
    int width = 0;
    int height = 0;
    std::vector<std::uint32_t> rgb;

    [[nodiscard]] std::uint32_t At(int x, int y) const;
};

// What decides where windows stand, and how large they are.
enum class Manager {
    Openbox,  // gives a window the size that it asks for
    I3,       // tiles them, and gives them the size that is left
    Weston,   // a Wayland compositor: programs are not clients of the X server
};

class VirtualDisplay {
public:
    explicit VirtualDisplay(Manager manager = Manager::Openbox);

    [[nodiscard]] const std::string& Name() const { return name_; }
    // For the programs on it.
    [[nodiscard]] std::vector<std::string> Environment() const;
    [[nodiscard]] std::string Folder() const { return folder_.Path(); }

    // Runs xdotool with these words; what it says, all of it or the first line.
    [[nodiscard]] std::string Answer(const std::string& words) const;
    std::string Do(const std::string& words) const;
    // Whether the window of that id says that it is a dialog.
    [[nodiscard]] bool IsDialog(const std::string& window) const;
    [[nodiscard]] Screenshot Look() const;
    // To what manages the windows.
    void SignalManager(int signal) const { manager_->Send(signal); }
    // The display is gone, without a word to the programs on it.
    void Kill() { server_.reset(); }
    // The windows and what the programs have said, for whoever looks into a failed test.
    [[nodiscard]] std::string AllWindows() const;

private:
    void StartManager();
    [[nodiscard]] bool ManagerIsReady() const;
    [[nodiscard]] std::string Property(const std::string& window, const std::string& name) const;

    Manager kind_;
    TemporaryFolder folder_;
    std::string name_;
    std::optional<Child> server_;
    std::optional<Child> manager_;
};

// Whether `condition` comes true within half a minute.
[[nodiscard]] bool Eventually(const std::function<bool()>& condition);

}  // namespace scenara::test
