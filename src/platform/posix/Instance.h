// SPDX-License-Identifier: MIT
//
// Instance: which program is the one that runs, of a user on a display.
//
// It holds a lock on a file, which the system releases when the program ends, however it ends. So
// what a crash leaves behind, the file and the socket beside it, is no instance. This lock is the
// one truth; that nobody answers at the socket says nothing.
//
// Both files stand in a folder that nobody but the user can write to: the user's run-time folder,
// else one of the program's own in the temporary one. Where there is neither, every program is the
// first, and none is found by another.
#pragma once

#include <string>

#include "base/NotCopied.h"

namespace scenara {

class Instance : NotCopied {
public:
    // `display` tells the user's displays apart. `folder`: for tests, with a separator at its end.
    explicit Instance(const std::string& display, const std::string& folder = UsersFolder());
    ~Instance();

    // Whether another program has the place. Takes it where it is free.
    [[nodiscard]] bool AnotherRuns();

    // Where the one that runs can be reached; empty: nowhere.
    [[nodiscard]] const std::string& Socket() const { return socket_; }

    // With a separator at its end; empty: none.
    [[nodiscard]] static std::string UsersFolder();

private:
    std::string lockFile_;
    std::string socket_;
    int descriptor_ = -1;
    bool holds_ = false;
};

}  // namespace scenara
