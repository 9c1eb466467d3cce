// SPDX-License-Identifier: MIT
//
// RequestListener: the end of the program that runs, of what later starts hand over to it.
//
// A start connects, sends a request (platform/Request.h), and ends its sending. The answer is one
// byte, kRequestTaken. A connection that sends anything else is closed without an answer; so is one
// whose request comes when the program takes none any more, as it ends.
//
// Whatever connects does the program no harm: there are at most kMostConnections at a time, of
// which the oldest gives way to a new one; each is kept up to the length of a request; and no call
// here waits or goes on for long.
#pragma once

#include <cstddef>
#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "base/NotCopied.h"
#include "platform/Request.h"
#include "platform/posix/UnixSocket.h"

namespace scenara {

inline constexpr std::byte kRequestTaken{'T'};

class RequestListener : NotCopied {
public:
    static constexpr std::size_t kMostConnections = 8;

    // Listens at the socket of the Instance that this program has. Where that cannot be made,
    // nobody is heard.
    explicit RequestListener(const std::string& socket);
    // The socket's file is removed.
    ~RequestListener();

    // Can be read from while there is something to serve; -1: never.
    [[nodiscard]] int Descriptor() const { return readiness_; }

    // Who hears of requests: whether any are taken now, and what takes them.
    struct Taker {
        std::function<bool()> takesAny;
        std::function<void(Request)> take;
    };

    // Takes in what has come by now. Each request is taken whose sender still waits for the answer;
    // one that has given up has told its user so.
    void Serve(const Taker& taker);

private:
    struct Connection {
        UnixSocket socket;
        std::vector<std::byte> received;
    };

    void Watch(int descriptor) const;
    void Accept();
    // Whether the connection goes on.
    bool Receive(Connection& connection, const Taker& taker) const;

    std::string path_;
    UnixSocket listening_;
    int readiness_ = -1;
    std::deque<Connection> connections_;  // oldest first
};

}  // namespace scenara
