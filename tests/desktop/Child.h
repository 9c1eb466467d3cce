// SPDX-License-Identifier: MIT
//
// Child: a program beside the test; and how a test waits for what it does.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include <sys/types.h>

namespace scenara::test {

// A program that runs beside the test, in a process group of its own, and is ended with it.
class Child {
public:
    // `environment` has NAME=VALUE, and NAME alone for what it is not to have.
    Child(const std::vector<std::string>& command, const std::vector<std::string>& environment,
          const std::string& outputFile);
    Child(const Child&) = delete;
    Child& operator=(const Child&) = delete;
    ~Child();

    // Below 0 once its end is known.
    [[nodiscard]] pid_t Number() const { return pid_; }

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

// Whether `condition` comes true within half a minute.
[[nodiscard]] bool Eventually(const std::function<bool()>& condition);

}  // namespace scenara::test
