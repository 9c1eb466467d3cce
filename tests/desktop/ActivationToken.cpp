// SPDX-License-Identifier: MIT
#include "desktop/ActivationToken.h"

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <optional>
#include <span>
#include <vector>

#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include "base/NotCopied.h"

namespace scenara::test {
namespace {

constexpr int kPatience = 30'000;  // milliseconds

// The objects, as this program numbers them; the first one is there from the start.
constexpr std::uint32_t kDisplay = 1;
constexpr std::uint32_t kRegistry = 2;
constexpr std::uint32_t kSync = 3;
constexpr std::uint32_t kActivation = 4;
constexpr std::uint32_t kToken = 5;

constexpr const char* kInterface = "xdg_activation_v1";

using Words = std::vector<std::uint32_t>;

// The length with the zero at the end, and the bytes in whole words.
void Append(Words& words, const std::string& text) {
    const std::size_t length = text.size() + 1;
    words.push_back(static_cast<std::uint32_t>(length));
    Words bytes((length + 3) / 4);
    std::memcpy(bytes.data(), text.data(), text.size());
    words.insert(words.end(), bytes.begin(), bytes.end());
}

// That begins at a word.
std::string TextAt(std::span<const std::uint32_t> words, std::size_t at) {
    const std::size_t length = at < words.size() ? words[at] : 0;
    if (length == 0 || length > (words.size() - at - 1) * 4) {
        return {};
    }
    return {reinterpret_cast<const char*>(words.data() + at + 1), length - 1};
}

// A connection, word by word: each message has its object, its kind with its length, and the rest.
class Wire : NotCopied {
public:
    explicit Wire(const std::string& path) : socket_(::socket(AF_UNIX, SOCK_STREAM, 0)) {
        sockaddr_un address = {};
        address.sun_family = AF_UNIX;
        path.copy(address.sun_path, sizeof address.sun_path - 1);
        works_ =
            ::connect(socket_, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
    }
    ~Wire() { ::close(socket_); }

    void Send(std::uint32_t object, std::uint32_t kind, const Words& rest) {
        const auto bytes = static_cast<std::uint32_t>((rest.size() + 2) * 4);
        Words all = {object, bytes << 16U | kind};
        all.insert(all.end(), rest.begin(), rest.end());
        works_ = works_ && ::send(socket_, all.data(), bytes, MSG_NOSIGNAL) == bytes;
    }

    struct Message {
        std::uint32_t object = 0;
        std::uint32_t kind = 0;
        Words rest;
    };
    // Nothing where none comes any more.
    std::optional<Message> Receive() {
        std::uint32_t head[2] = {};
        if (!Read(head, sizeof head)) {
            return std::nullopt;
        }
        const std::size_t bytes = head[1] >> 16U;
        Message message{head[0], head[1] & 0xFFFFU, Words(bytes < 8 ? 0 : bytes / 4 - 2)};
        return Read(message.rest.data(), message.rest.size() * 4) ? std::optional(message)
                                                                  : std::nullopt;
    }

private:
    bool Read(void* to, std::size_t bytes) {
        auto* at = static_cast<std::byte*>(to);
        while (works_ && bytes > 0) {
            pollfd ready = {socket_, POLLIN, 0};
            const ssize_t got =
                ::poll(&ready, 1, kPatience) == 1 ? ::recv(socket_, at, bytes, 0) : -1;
            works_ = got > 0;
            at += works_ ? got : 0;
            bytes -= works_ ? static_cast<std::size_t>(got) : 0;
        }
        return works_;
    }

    int socket_;
    bool works_ = false;
};

}  // namespace

std::string ActivationToken(const std::string& socketPath) {
    Wire wire(socketPath);
    wire.Send(kDisplay, 1, {kRegistry});
    wire.Send(kDisplay, 0, {kSync});
    std::optional<std::uint32_t> name;
    while (const auto message = wire.Receive()) {
        if (message->object == kRegistry && TextAt(message->rest, 1) == kInterface) {
            name = message->rest[0];
        } else if (message->object == kSync) {
            break;  // all that there is has been told
        }
    }
    if (!name) {
        return {};
    }
    Words bind = {*name};
    Append(bind, kInterface);
    bind.insert(bind.end(), {1, kActivation});
    wire.Send(kRegistry, 0, bind);
    wire.Send(kActivation, 1, {kToken});
    wire.Send(kToken, 3, {});  // that is all that is said about it
    while (const auto message = wire.Receive()) {
        if (message->object == kToken) {
            return TextAt(message->rest, 0);
        }
        if (message->object == kDisplay && message->kind == 0) {
            break;  // something is wrong
        }
    }
    return {};
}

}  // namespace scenara::test
