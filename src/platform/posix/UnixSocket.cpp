// SPDX-License-Identifier: MIT
#include "platform/posix/UnixSocket.h"

#include <algorithm>
#include <cerrno>
#include <optional>

#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

namespace scenara {
namespace {

constexpr int kMostUnaccepted = 16;

std::optional<sockaddr_un> AddressOf(const std::string& path) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (path.empty() || path.size() >= sizeof(address.sun_path)) {
        return std::nullopt;
    }
    std::copy(path.begin(), path.end(), address.sun_path);
    return address;
}

UnixSocket New() {
    return UnixSocket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
}

const sockaddr* General(const sockaddr_un& address) {
    return reinterpret_cast<const sockaddr*>(&address);
}

UnixSocket::Moved MovedBy(ssize_t count) {
    if (count > 0) {
        return {static_cast<std::size_t>(count), UnixSocket::State::Open};
    }
    const bool mayFollow = count < 0 && (errno == EAGAIN || errno == EINTR);
    return {0, mayFollow ? UnixSocket::State::Open : UnixSocket::State::Ended};
}

}  // namespace

UnixSocket::~UnixSocket() {
    if (descriptor_ >= 0) {
        ::close(descriptor_);
    }
}

UnixSocket UnixSocket::Listening(const std::string& path) {
    const std::optional<sockaddr_un> address = AddressOf(path);
    if (!address) {
        return {};
    }
    UnixSocket socket = New();
    static_cast<void>(::unlink(path.c_str()));
    if (!socket.IsOpen() ||
        ::bind(socket.descriptor_, General(*address), sizeof(sockaddr_un)) != 0 ||
        ::chmod(path.c_str(), S_IRUSR | S_IWUSR) != 0 ||
        ::listen(socket.descriptor_, kMostUnaccepted) != 0) {
        return {};
    }
    return socket;
}

UnixSocket UnixSocket::ConnectedTo(const std::string& path) {
    const std::optional<sockaddr_un> address = AddressOf(path);
    if (!address) {
        return {};
    }
    UnixSocket socket = New();
    if (!socket.IsOpen() ||
        ::connect(socket.descriptor_, General(*address), sizeof(sockaddr_un)) != 0) {
        return {};
    }
    return socket;
}

UnixSocket UnixSocket::Accept() const {
    return UnixSocket(::accept4(descriptor_, nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK));
}

bool UnixSocket::IsWithSameUser() const {
    ucred other{};
    socklen_t length = sizeof(other);
    return ::getsockopt(descriptor_, SOL_SOCKET, SO_PEERCRED, &other, &length) == 0 &&
           other.uid == ::geteuid();
}

UnixSocket::Moved UnixSocket::Send(std::span<const std::byte> bytes) const {
    return MovedBy(::send(descriptor_, bytes.data(), bytes.size(), MSG_NOSIGNAL));
}

UnixSocket::Moved UnixSocket::Receive(std::span<std::byte> into) const {
    return MovedBy(::recv(descriptor_, into.data(), into.size(), 0));
}

void UnixSocket::EndSending() const {
    static_cast<void>(::shutdown(descriptor_, SHUT_WR));
}

}  // namespace scenara
