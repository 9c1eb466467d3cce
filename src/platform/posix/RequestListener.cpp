// SPDX-License-Identifier: MIT
#include "platform/posix/RequestListener.h"

#include <algorithm>
#include <array>
#include <optional>
#include <span>
#include <utility>

#include <sys/epoll.h>
#include <unistd.h>

namespace scenara {
namespace {

// Of one connection, in one call.
constexpr std::size_t kMostAtOnce = std::size_t{64} * 1024;

}  // namespace

RequestListener::RequestListener(const std::string& socket)
    : path_(socket), listening_(UnixSocket::Listening(socket)) {
    if (listening_.IsOpen()) {
        readiness_ = ::epoll_create1(EPOLL_CLOEXEC);
        Watch(listening_.Descriptor());
    }
}

RequestListener::~RequestListener() {
    if (listening_.IsOpen()) {
        static_cast<void>(::unlink(path_.c_str()));
    }
    if (readiness_ >= 0) {
        ::close(readiness_);
    }
}

// Until it is closed.
void RequestListener::Watch(int descriptor) const {
    epoll_event event{};
    event.events = EPOLLIN;
    event.data.fd = descriptor;
    static_cast<void>(::epoll_ctl(readiness_, EPOLL_CTL_ADD, descriptor, &event));
}

void RequestListener::Serve(const Taker& taker) {
    std::array<epoll_event, kMostConnections + 1> events{};
    const int count = ::epoll_wait(readiness_, events.data(), static_cast<int>(events.size()), 0);
    const auto ready = std::span(events).first(static_cast<std::size_t>(std::max(count, 0)));
    for (const epoll_event& event : ready) {
        if (event.data.fd == listening_.Descriptor()) {
            continue;  // the last: what it accepts may take the number of one that is ready
        }
        const auto connection = std::find_if(
            connections_.begin(), connections_.end(),
            [&](const Connection& open) { return open.socket.Descriptor() == event.data.fd; });
        if (connection != connections_.end() && !Receive(*connection, taker)) {
            connections_.erase(connection);
        }
    }
    Accept();
}

void RequestListener::Accept() {
    for (std::size_t i = 0; i < kMostConnections; ++i) {
        UnixSocket socket = listening_.Accept();
        if (!socket.IsOpen()) {
            return;
        }
        if (!socket.IsWithSameUser()) {
            continue;
        }
        if (connections_.size() == kMostConnections) {
            connections_.pop_front();
        }
        Watch(socket.Descriptor());
        connections_.push_back({std::move(socket), {}});
    }
}

bool RequestListener::Receive(Connection& connection, const Taker& taker) const {
    std::vector<std::byte>& received = connection.received;
    const std::size_t before = received.size();
    received.resize(before + kMostAtOnce);
    const UnixSocket::Moved moved = connection.socket.Receive(std::span(received).subspan(before));
    received.resize(before + moved.count);
    if (moved.state == UnixSocket::State::Open) {
        return received.size() <= kMostRequestBytes;
    }
    std::optional<Request> request = ReadRequest(received);
    if (request && taker.takesAny() && connection.socket.Send({&kRequestTaken, 1}).count == 1) {
        taker.take(std::move(*request));
    }
    return false;
}

}  // namespace scenara
