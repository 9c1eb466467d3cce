// SPDX-License-Identifier: MIT
//
// UnixSocket: a socket of this machine's own, with another program of the same user.
//
// Nothing here waits.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <utility>

namespace scenara {

class UnixSocket {
public:
    UnixSocket() = default;
    explicit UnixSocket(int descriptor) : descriptor_(descriptor) {}
    UnixSocket(UnixSocket&& other) noexcept : descriptor_(std::exchange(other.descriptor_, -1)) {}
    UnixSocket& operator=(UnixSocket&& other) noexcept {
        std::swap(descriptor_, other.descriptor_);
        return *this;
    }
    UnixSocket(const UnixSocket&) = delete;
    UnixSocket& operator=(const UnixSocket&) = delete;
    ~UnixSocket();

    // One that takes connections at this path, where it replaces what is left of an earlier one.
    [[nodiscard]] static UnixSocket Listening(const std::string& path);
    // One that is connected to whoever listens at this path.
    [[nodiscard]] static UnixSocket ConnectedTo(const std::string& path);
    // The next connection to this one, which listens.
    [[nodiscard]] UnixSocket Accept() const;

    [[nodiscard]] bool IsOpen() const { return descriptor_ >= 0; }
    [[nodiscard]] int Descriptor() const { return descriptor_; }

    // Whether the program at the other end is of this user.
    [[nodiscard]] bool IsWithSameUser() const;

    enum class State { Open, Ended };
    struct Moved {
        std::size_t count = 0;
        State state = State::Open;  // Ended: the other end sends, or takes, no more
    };
    // As much as goes now.
    [[nodiscard]] Moved Send(std::span<const std::byte> bytes) const;
    [[nodiscard]] Moved Receive(std::span<std::byte> into) const;
    // Nothing more is sent.
    void EndSending() const;

private:
    int descriptor_ = -1;
};

}  // namespace scenara
