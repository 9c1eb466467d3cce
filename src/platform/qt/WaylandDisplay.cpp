// SPDX-License-Identifier: MIT
#include "platform/qt/WaylandDisplay.h"

#include <QCoreApplication>
#include <QDir>
#include <algorithm>
#include <cerrno>
#include <cstring>
#include <span>
#include <string>

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include "platform/qt/Environment.h"

namespace scenara {
namespace {

// Empty where none can be.
std::string SocketPath() {
    std::string name = Variable("WAYLAND_DISPLAY");
    if (name.starts_with('/')) {
        return name;
    }
    if (name.empty()) {
        name = "wayland-0";
    }
    const std::string folder = Variable("XDG_RUNTIME_DIR");
    return folder.starts_with('/') ? folder + "/" + name : std::string();
}

bool SomebodyListensAt(const std::string& path) {
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    const std::span<char> place(address.sun_path);
    if (path.empty() || path.size() >= place.size()) {
        return false;
    }
    std::memcpy(place.data(), path.data(), path.size());
    // A compositor that is too busy to answer is there all the same.
    const int socket = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
    const bool connected =
        socket >= 0 &&
        (::connect(socket, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0 ||
         errno == EAGAIN);
    if (socket >= 0) {
        ::close(socket);
    }
    return connected;
}

bool ToolkitKnowsWayland() {
    return std::ranges::any_of(QCoreApplication::libraryPaths(), [](const QString& folder) {
        const QDir platforms(folder + "/platforms");
        return !platforms.entryList({"libqwayland-*.so"}, QDir::Files).isEmpty();
    });
}

}  // namespace

bool HasWaylandDisplay() {
    return (!Variable("WAYLAND_SOCKET").empty() || SomebodyListensAt(SocketPath())) &&
           ToolkitKnowsWayland();
}

}  // namespace scenara
