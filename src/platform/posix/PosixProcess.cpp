// SPDX-License-Identifier: MIT
#include "platform/posix/PosixProcess.h"

#include <utility>

#include <sys/resource.h>
#include <unistd.h>

#include "platform/posix/Instance.h"

namespace scenara {
namespace {

// As low as it goes: runs when nobody else wants to.
constexpr int kIdleNiceness = 19;

}  // namespace

PosixProcess::PosixProcess(std::string programFolder, Instance& instance)
    : programFolder_(std::move(programFolder)), instance_(instance) {}

bool PosixProcess::AnotherInstanceRuns() {
    return instance_.AnotherRuns();
}

void PosixProcess::YieldToOthers() {
    static_cast<void>(::setpriority(PRIO_PROCESS, 0, kIdleNiceness));
}

void PosixProcess::ChangeToProgramFolder() {
    static_cast<void>(::chdir(programFolder_.c_str()));
}

}  // namespace scenara
