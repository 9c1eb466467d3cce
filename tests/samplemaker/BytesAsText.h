// SPDX-License-Identifier: MIT
//
// Bytes of a written file, and what they are to be, as texts that a failure can show.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace scenara::samplemaker {

inline std::string Text(const std::vector<std::byte>& bytes) {
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

// With the zeros inside of it.
template <std::size_t Size>
std::string Literal(const char (&text)[Size]) {
    return {text, Size - 1};
}

}  // namespace scenara::samplemaker
