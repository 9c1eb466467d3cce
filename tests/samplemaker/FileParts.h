// SPDX-License-Identifier: MIT
//
// Bytes and numbers of a written archive, as values that a failure can show.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace scenara::samplemaker {

using Values = std::vector<int>;

// Fewer than `count` where the file ends.
inline Values Part(const std::vector<std::byte>& file, std::size_t begin, std::size_t count) {
    Values part;
    for (std::size_t at = begin; at < begin + count && at < file.size(); ++at) {
        part.push_back(std::to_integer<int>(file[at]));
    }
    return part;
}

inline std::uint32_t U32At(const std::vector<std::byte>& file, std::size_t at) {
    std::uint32_t value = 0;
    for (std::size_t i = 0; i < 4; ++i) {
        value |= std::to_integer<std::uint32_t>(file.at(at + i)) << (8 * i);
    }
    return value;
}

}  // namespace scenara::samplemaker
