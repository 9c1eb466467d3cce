// SPDX-License-Identifier: MIT
//
// EndSignals: the signals that ask a program to end, as something that its loop can wait for.
//
// SIGTERM (the end of a session, kill), SIGINT (Ctrl+C) and SIGHUP (a terminal that is closed)
// would end the program on the spot. While one of these objects stands they make a descriptor
// readable instead. One that was ignored at the start, as nohup has it, stays ignored. SIGPIPE is
// ignored meanwhile: a reader that has gone away, of what the program prints, is no reason to end.
#pragma once

#include <array>
#include <csignal>

#include "base/NotCopied.h"

namespace scenara {

// One at a time.
class EndSignals : NotCopied {
public:
    EndSignals();
    // The signals do what they did before.
    ~EndSignals();

    // Can be read from as soon as one of them has come. -1 where the system gives none; then the
    // signals are as they were.
    [[nodiscard]] int Descriptor() const { return readEnd_; }

private:
    static constexpr std::array kSignals = {SIGTERM, SIGINT, SIGHUP, SIGPIPE};

    int readEnd_ = -1;
    int writeEnd_ = -1;
    std::array<struct sigaction, kSignals.size()> before_{};
};

}  // namespace scenara
