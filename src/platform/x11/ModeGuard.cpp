// SPDX-License-Identifier: MIT
#include "platform/x11/ModeGuard.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <utility>

#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

namespace scenara {
namespace {

// Whatever ends a program from outside and can be declined.
constexpr std::array kDeclined = {SIGHUP, SIGINT, SIGQUIT, SIGTERM, SIGPIPE, SIGALRM};

// Everything of the program's but these: its windows, sounds and locks must not outlive it.
void CloseAllBut(int first, int second) {
    const auto low = static_cast<unsigned>(std::min(first, second));
    const auto high = static_cast<unsigned>(std::max(first, second));
    constexpr unsigned kBehindErrors = STDERR_FILENO + 1;
    if (low > kBehindErrors) {
        ::close_range(kBehindErrors, low - 1, 0);
    }
    if (high > low + 1) {
        ::close_range(low + 1, high - 1, 0);
    }
    ::close_range(high + 1, ~0U, 0);
}

}  // namespace

ModeGuard::ModeGuard(const std::string& display, X11Screen screen)
    : modes_(display), screen_(std::move(screen)) {
    std::array<int, 2> sockets{-1, -1};
    if (modes_.Descriptor() < 0 ||
        ::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, sockets.data()) != 0) {
        return;
    }
    child_ = ::fork();
    if (child_ == 0) {
        ::close(sockets[0]);
        Watch(sockets[1]);
    }
    ::close(sockets[1]);
    socket_ = sockets[0];
}

ModeGuard::~ModeGuard() {
    if (socket_ >= 0) {
        // A child that is gone must not end the program with a signal.
        static_cast<void>(::send(socket_, "x", 1, MSG_NOSIGNAL));
        ::close(socket_);
    }
    while (child_ > 0 && ::waitpid(child_, nullptr, 0) < 0 && errno == EINTR) {
    }
}

// In the child, which is a copy of a program with other threads: it uses what is its own alone.
void ModeGuard::Watch(int socket) const {
    ::setsid();
    for (const int number : kDeclined) {
        std::signal(number, SIG_IGN);
    }
    CloseAllBut(socket, modes_.Descriptor());
    char dismissed = 0;
    ssize_t count = -1;
    do {
        count = ::recv(socket, &dismissed, 1, 0);
    } while (count < 0 && errno == EINTR);
    if (count <= 0) {  // the other end is gone without a word
        static_cast<void>(modes_.Set(screen_));
    }
    ::_exit(0);
}

}  // namespace scenara
