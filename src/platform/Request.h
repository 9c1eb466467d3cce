// SPDX-License-Identifier: MIT
//
// Request: what a second start of the program hands over to the one that runs, as bytes.
//
//     offset  size  what
//     0       8     "Scenara1"
//     8       4     how many texts follow, 1 to 65
//     12      ...   each text: its length in bytes (4), and its bytes, none of them zero
//
// Numbers are little-endian. The first text is the start's mark: at most kMostMarkBytes printable
// ASCII characters without blanks, perhaps none. The others are paths, none of them empty; without
// any the window is only to come to the front. Nothing
// follows the last one. The whole is at most kMostRequestBytes long.
//
// Anything may be at the other end, so a block of bytes is a request in full or is none.
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace scenara {

inline constexpr std::size_t kMostRequestBytes = std::size_t{256} * 1024;
inline constexpr std::size_t kMostRequestPaths = 64;
inline constexpr std::size_t kMostMarkBytes = 512;

struct Request {
    // What tells the desktop that the user has asked for the window to come to the front just now:
    // as the desktop gave it to the second start. Empty: nothing does.
    std::string mark;
    std::vector<std::string> paths;  // whole ones

    friend bool operator==(const Request&, const Request&) = default;
};

// The first kMostRequestPaths of its paths, without the mark where that cannot be sent; nothing
// when a path is empty, or they are too long for one request.
[[nodiscard]] std::optional<std::vector<std::byte>> RequestBytes(const Request& request);

// What is left to open when `newer` is handed over while `older` still waits: the newer ones first,
// none of them twice, at most kMostRequestPaths.
[[nodiscard]] std::vector<std::string> PathsInTurn(std::vector<std::string> newer,
                                                   const std::vector<std::string>& older);

// Nothing when they are no request.
[[nodiscard]] std::optional<Request> ReadRequest(std::span<const std::byte> bytes);

}  // namespace scenara
