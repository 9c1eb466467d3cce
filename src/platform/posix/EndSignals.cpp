// SPDX-License-Identifier: MIT
#include "platform/posix/EndSignals.h"

#include <atomic>
#include <cerrno>

#include <fcntl.h>
#include <unistd.h>

namespace scenara {
namespace {

// All that a handler may touch.
std::atomic<int> signalled{-1};
static_assert(std::atomic<int>::is_always_lock_free);

void Tell(int /*number*/) {
    const int error = errno;
    const char byte = 0;
    static_cast<void>(::write(signalled, &byte, 1) == 1);  // a full pipe can be read from already
    errno = error;
}

}  // namespace

EndSignals::EndSignals() {
    std::array<int, 2> ends{-1, -1};
    if (::pipe2(ends.data(), O_CLOEXEC | O_NONBLOCK) != 0) {
        return;
    }
    readEnd_ = ends[0];
    writeEnd_ = ends[1];
    signalled = writeEnd_;
    for (std::size_t i = 0; i < kSignals.size(); ++i) {
        struct sigaction action {};
        action.sa_handler = kSignals.at(i) == SIGPIPE ? SIG_IGN : Tell;
        action.sa_flags = SA_RESTART;
        ::sigaction(kSignals.at(i), nullptr, &before_.at(i));
        if (before_.at(i).sa_handler != SIG_IGN) {
            ::sigaction(kSignals.at(i), &action, nullptr);
        }
    }
}

EndSignals::~EndSignals() {
    if (readEnd_ < 0) {
        return;
    }
    for (std::size_t i = 0; i < kSignals.size(); ++i) {
        ::sigaction(kSignals.at(i), &before_.at(i), nullptr);
    }
    signalled = -1;
    ::close(readEnd_);
    ::close(writeEnd_);
}

}  // namespace scenara
