// SPDX-License-Identifier: MIT
#include "desktop/Child.h"

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <system_error>
#include <thread>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace scenara::test {

using namespace std::chrono_literals;

bool Eventually(const std::function<bool()>& condition) {
    const auto end = std::chrono::steady_clock::now() + 30s;
    while (!condition()) {
        if (std::chrono::steady_clock::now() > end) {
            return false;
        }
        std::this_thread::sleep_for(50ms);
    }
    return true;
}

Child::Child(const std::vector<std::string>& command, const std::vector<std::string>& environment,
             const std::string& outputFile) {
    pid_ = ::fork();
    if (pid_ != 0) {
        return;
    }
    ::setpgid(0, 0);
    for (const int signal : {SIGTERM, SIGINT, SIGHUP, SIGPIPE}) {
        std::signal(signal, SIG_DFL);  // a test in the background ignores some
    }
    const int output = ::open(outputFile.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
    ::dup2(output, STDOUT_FILENO);
    ::dup2(output, STDERR_FILENO);
    for (const std::string& variable : environment) {
        if (variable.find('=') == std::string::npos) {
            ::unsetenv(variable.c_str());
        } else {
            ::putenv(const_cast<char*>(variable.c_str()));  // NOLINT: what the call wants
        }
    }
    std::vector<char*> words;
    for (const std::string& word : command) {
        words.push_back(const_cast<char*>(word.c_str()));  // NOLINT: what the call wants
    }
    words.push_back(nullptr);
    ::execvp(words[0], words.data());
    ::_exit(127);
}

Child::~Child() {
    if (pid_ > 0) {
        ::kill(-pid_, SIGKILL);
        ::kill(pid_, SIGKILL);
        ::waitpid(pid_, nullptr, 0);
    }
}

void Child::TakePriorityBack() const {
    if (pid_ > 0) {
        static_cast<void>(::setpriority(PRIO_PROCESS, static_cast<id_t>(pid_), 0));
    }
}

void Child::Send(int signal) const {
    if (pid_ > 0) {
        ::kill(-pid_, signal);
    }
}

bool Child::HasOpen(const std::string& pathEnd) const {
    std::error_code error;
    const std::string folder = "/proc/" + std::to_string(pid_) + "/fd";
    for (const auto& entry : std::filesystem::directory_iterator(folder, error)) {
        const std::string path = std::filesystem::read_symlink(entry.path(), error).string();
        if (path.ends_with(pathEnd)) {
            return true;
        }
    }
    return false;
}

std::optional<int> Child::StatusNow() {
    int status = 0;
    TakePriorityBack();
    if (pid_ <= 0 || ::waitpid(pid_, &status, WNOHANG) != pid_) {
        return std::nullopt;
    }
    pid_ = -1;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

std::optional<int> Child::ExitStatus() {
    std::optional<int> status;
    static_cast<void>(Eventually([&] { return (status = StatusNow()).has_value(); }));
    return status;
}

}  // namespace scenara::test
