// SPDX-License-Identifier: MIT
#include "platform/Request.h"

#include <algorithm>
#include <cstdint>
#include <string_view>
#include <utility>

#include "base/ByteReader.h"
#include "base/RunTimeError.h"

namespace scenara {
namespace {

constexpr std::string_view kSignature = "Scenara1";

std::string_view TextOf(std::span<const std::byte> bytes) {
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

void Append(std::string_view text, std::vector<std::byte>& bytes) {
    const auto from = std::as_bytes(std::span(text));
    bytes.insert(bytes.end(), from.begin(), from.end());
}

void Append(std::size_t number, std::vector<std::byte>& bytes) {
    for (unsigned shift = 0; shift < 32; shift += 8) {
        bytes.push_back(static_cast<std::byte>(number >> shift & 0xFFU));
    }
}

void AppendText(std::string_view text, std::vector<std::byte>& bytes) {
    Append(text.size(), bytes);
    Append(text, bytes);
}

bool IsMark(std::string_view text) {
    return text.size() <= kMostMarkBytes &&
           std::all_of(text.begin(), text.end(), [](char c) { return c > ' ' && c <= '~'; });
}

bool IsPath(std::string_view text) {
    return !text.empty() && text.size() <= kMostRequestBytes &&
           text.find('\0') == std::string_view::npos;
}

// Raises what reading raises.
std::optional<Request> Read(std::span<const std::byte> bytes) {
    ByteReader reader(bytes, "request");
    if (TextOf(reader.Take(kSignature.size())) != kSignature) {
        return std::nullopt;
    }
    const std::uint32_t count = reader.U32();
    if (count < 1 || count > kMostRequestPaths + 1) {
        return std::nullopt;
    }
    const auto text = [&] { return std::string(TextOf(reader.Take(reader.U32()))); };
    Request request;
    request.mark = text();
    bool isWhole = IsMark(request.mark);
    for (std::uint32_t i = 1; i < count; ++i) {
        request.paths.push_back(text());
        isWhole = isWhole && IsPath(request.paths.back());
    }
    return isWhole && reader.Position() == bytes.size() ? std::optional(request) : std::nullopt;
}

}  // namespace

std::optional<std::vector<std::byte>> RequestBytes(const Request& request) {
    const std::span<const std::string> paths =
        std::span(request.paths).first(std::min(request.paths.size(), kMostRequestPaths));
    std::vector<std::byte> bytes;
    Append(kSignature, bytes);
    Append(paths.size() + 1, bytes);
    AppendText(IsMark(request.mark) ? std::string_view(request.mark) : std::string_view(), bytes);
    bool fits = true;
    for (const std::string& path : paths) {
        fits = fits && IsPath(path);
        if (fits) {
            AppendText(path, bytes);
        }
        fits = fits && bytes.size() <= kMostRequestBytes;
    }
    return fits ? std::optional(bytes) : std::nullopt;
}

std::vector<std::string> PathsInTurn(std::vector<std::string> newer,
                                     const std::vector<std::string>& older) {
    newer.insert(newer.end(), older.begin(), older.end());
    std::vector<std::string> paths;
    for (std::string& path : newer) {
        const bool isNew = std::find(paths.begin(), paths.end(), path) == paths.end();
        if (isNew && paths.size() < kMostRequestPaths) {
            paths.push_back(std::move(path));
        }
    }
    return paths;
}

std::optional<Request> ReadRequest(std::span<const std::byte> bytes) {
    if (bytes.size() > kMostRequestBytes) {
        return std::nullopt;
    }
    try {
        return Read(bytes);
    } catch (const RunTimeError&) {
        return std::nullopt;  // it ends early
    }
}

}  // namespace scenara
