// SPDX-License-Identifier: MIT
#include "platform/posix/PosixProcess.h"

#include <cstdlib>
#include <utility>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/resource.h>
#include <unistd.h>

#include "base/Path.h"

namespace scenara {
namespace {

// As low as it goes: runs when nobody else wants to.
constexpr int kIdleNiceness = 19;

}  // namespace

PosixProcess::PosixProcess(std::string programFolder, std::string lockFile)
    : programFolder_(std::move(programFolder)), lockFile_(std::move(lockFile)) {}

PosixProcess::~PosixProcess() {
    if (lock_ >= 0) {
        ::close(lock_);
    }
}

// Where no lock can be made at all, the program runs rather than not.
bool PosixProcess::AnotherInstanceRuns() {
    if (lock_ < 0) {
        lock_ = ::open(lockFile_.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600);
    }
    return lock_ >= 0 && ::flock(lock_, LOCK_EX | LOCK_NB) != 0;
}

void PosixProcess::YieldToOthers() {
    static_cast<void>(::setpriority(PRIO_PROCESS, 0, kIdleNiceness));
}

void PosixProcess::ChangeToProgramFolder() {
    static_cast<void>(::chdir(programFolder_.c_str()));
}

std::string PosixProcess::DefaultLockFile() {
    const char* const runtime = std::getenv("XDG_RUNTIME_DIR");  // NOLINT(concurrency-mt-unsafe)
    if (runtime != nullptr && *runtime == '/') {
        return JoinPath(runtime, "scenara.lock");
    }
    return "/tmp/scenara-" + std::to_string(::getuid()) + ".lock";
}

}  // namespace scenara
