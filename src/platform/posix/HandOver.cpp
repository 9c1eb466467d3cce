// SPDX-License-Identifier: MIT
#include "platform/posix/HandOver.h"

#include <algorithm>
#include <thread>

#include <poll.h>

#include "platform/posix/Instance.h"
#include "platform/posix/RequestListener.h"
#include "platform/posix/UnixSocket.h"

namespace scenara {
namespace {

using Time = std::chrono::steady_clock::time_point;

constexpr std::chrono::milliseconds kBetweenTries{20};

// Waits until the socket is ready for these events; false when that is too late.
bool WaitFor(const UnixSocket& socket, short events, Time end) {
    while (true) {
        const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(
            end - std::chrono::steady_clock::now());
        if (left.count() <= 0) {
            return false;
        }
        pollfd wanted{socket.Descriptor(), events, 0};
        if (::poll(&wanted, 1, static_cast<int>(left.count())) > 0) {
            return true;
        }
    }
}

// Whether the whole of it is on its way.
bool SendAll(const UnixSocket& socket, std::span<const std::byte> bytes, Time end) {
    while (!bytes.empty() && WaitFor(socket, POLLOUT, end)) {
        const UnixSocket::Moved moved = socket.Send(bytes);
        if (moved.state == UnixSocket::State::Ended) {
            return false;
        }
        bytes = bytes.subspan(moved.count);
    }
    return bytes.empty();
}

bool IsTaken(const UnixSocket& socket, std::span<const std::byte> request, Time end) {
    if (!socket.IsOpen() || !socket.IsWithSameUser() || !SendAll(socket, request, end)) {
        return false;
    }
    socket.EndSending();
    std::byte answer{};
    return WaitFor(socket, POLLIN, end) && socket.Receive({&answer, 1}).count == 1 &&
           answer == kRequestTaken;
}

}  // namespace

HandedOver HandOver(Instance& instance, std::span<const std::byte> request,
                    std::chrono::milliseconds patience) {
    const Time end = std::chrono::steady_clock::now() + patience;
    while (true) {
        if (!instance.AnotherRuns()) {
            return HandedOver::NobodyRuns;
        }
        if (IsTaken(UnixSocket::ConnectedTo(instance.Socket()), request, end)) {
            return HandedOver::Taken;
        }
        if (std::chrono::steady_clock::now() >= end) {
            return HandedOver::NotAnswered;
        }
        std::this_thread::sleep_for(kBetweenTries);
    }
}

}  // namespace scenara
