// SPDX-License-Identifier: MIT
//
// PosixProcess: the program among the others of its user.
#pragma once

#include <string>

#include "platform/Process.h"

namespace scenara {

class Instance;

class PosixProcess : public Process {
public:
    // `instance` outlives it.
    PosixProcess(std::string programFolder, Instance& instance);

    [[nodiscard]] bool AnotherInstanceRuns() override;
    void YieldToOthers() override;
    void ChangeToProgramFolder() override;

private:
    std::string programFolder_;
    Instance& instance_;
};

}  // namespace scenara
