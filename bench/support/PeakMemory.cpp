// SPDX-License-Identifier: MIT
#include "support/PeakMemory.h"

#include <array>
#include <fstream>
#include <string>

#include <malloc.h>
#include <sys/wait.h>
#include <unistd.h>

namespace scenara::bench {
namespace {

// A line of /proc/self/status, in bytes; 0 when there is none.
std::size_t StatusValue(const std::string& key) {
    std::ifstream status("/proc/self/status");
    for (std::string word; status >> word;) {
        if (word == key) {
            std::size_t kilobytes = 0;
            status >> kilobytes;
            return kilobytes * 1024;
        }
    }
    return 0;
}

struct Measured {
    std::size_t peak;
    std::size_t kept;
};

Measured Measure(const std::function<std::size_t()>& work) {
    work();
    ::malloc_trim(0);
    std::ofstream("/proc/self/clear_refs") << "5";  // starts the peak anew
    const std::size_t before = StatusValue("VmRSS:");
    const std::size_t kept = work();
    const std::size_t peak = StatusValue("VmHWM:");
    return {peak > before ? peak - before : 0, kept};
}

}  // namespace

std::size_t PeakMemoryOf(const std::function<std::size_t()>& work, std::size_t& kept) {
    std::array<int, 2> pipe{};
    if (::pipe(pipe.data()) != 0) {
        return 0;
    }
    const pid_t child = ::fork();
    if (child == 0) {
        const Measured measured = Measure(work);
        const ssize_t written = ::write(pipe[1], &measured, sizeof measured);
        ::_exit(written == static_cast<ssize_t>(sizeof measured) ? 0 : 1);
    }
    ::close(pipe[1]);
    Measured measured{};
    const bool told = child > 0 && ::read(pipe[0], &measured, sizeof measured) ==
                                       static_cast<ssize_t>(sizeof measured);
    ::close(pipe[0]);
    if (child > 0) {
        ::waitpid(child, nullptr, 0);
    }
    kept = told ? measured.kept : 0;
    return told ? measured.peak : 0;
}

}  // namespace scenara::bench
