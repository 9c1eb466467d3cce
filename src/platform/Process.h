// SPDX-License-Identifier: MIT
//
// Process: the running program among others.
#pragma once

#include "base/NotCopied.h"

namespace scenara {

class Process : NotCopied {
public:
    virtual ~Process() = default;

    // Another instance of this program runs already, for this user.
    [[nodiscard]] virtual bool AnotherInstanceRuns() = 0;

    // This thread at normal priority in a process of the idle class, from now on: it gets what the
    // rest of the machine leaves. Not undone.
    virtual void YieldToOthers() = 0;

    // The program's own folder becomes the current one.
    virtual void ChangeToProgramFolder() = 0;
};

}  // namespace scenara
