// SPDX-License-Identifier: MIT
//
// Counts that users write: whole numbers from 1 to 2147483647, in digits and nothing else.
#pragma once

#include <charconv>
#include <cstdint>
#include <optional>
#include <string_view>

namespace scenara {

[[nodiscard]] inline std::optional<std::int32_t> ParseCount(std::string_view text) {
    std::int32_t count = 0;
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, count);
    if (error != std::errc() || stop != end || count < 1) {
        return std::nullopt;
    }
    return count;
}

}  // namespace scenara
