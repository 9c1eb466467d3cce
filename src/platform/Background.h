// SPDX-License-Identifier: MIT
//
// Background: work that is done beside the program, so that the window goes on meanwhile.
#pragma once

#include <functional>

#include "base/NotCopied.h"

namespace scenara {

class Background : NotCopied {
public:
    virtual ~Background() = default;

    // Does the work on another thread, after the work that it was given before. The work raises
    // nothing, keeps what it uses alive, and returns soon when whoever gave it has no use for it
    // any more.
    virtual void Run(std::function<void()> work) = 0;

    // From any thread: the program lets messages through soon, as if the user had done something.
    virtual void Wake() = 0;
};

}  // namespace scenara
