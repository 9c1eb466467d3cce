// SPDX-License-Identifier: MIT
//
// PosixProcess: the program among the others of its user.
//
// One instance at a time: the first one holds a lock on a file in the user's run-time folder (else
// the temporary one), which the system releases when the program ends, however it ends.
#pragma once

#include <string>

#include "platform/Process.h"

namespace scenara {

class PosixProcess : public Process {
public:
    // `lockFile`: for tests; by itself the user's own for this program.
    explicit PosixProcess(std::string programFolder, std::string lockFile = DefaultLockFile());
    ~PosixProcess() override;

    [[nodiscard]] bool AnotherInstanceRuns() override;
    void YieldToOthers() override;
    void ChangeToProgramFolder() override;

    [[nodiscard]] static std::string DefaultLockFile();

private:
    std::string programFolder_;
    std::string lockFile_;
    int lock_ = -1;
};

}  // namespace scenara
