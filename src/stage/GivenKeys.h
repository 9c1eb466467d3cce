// SPDX-License-Identifier: MIT
//
// GivenKeys, an addition: which keys a section has given a value, and in which line. The first line
// counts; plainly the last one does.
#pragma once

#include <algorithm>
#include <cstdint>
#include <string_view>
#include <vector>

namespace scenara {

class GivenKeys {
public:
    // Another section begins.
    void Clear() { keys_.clear(); }

    // Whether a line before this one has given the key a value.
    [[nodiscard]] bool Before(std::int64_t line, std::string_view key) const {
        const auto found = std::find_if(keys_.begin(), keys_.end(),
                                        [&](const Given& given) { return given.key == key; });
        return found != keys_.end() && found->line != line;
    }

    // `key` is a literal.
    void Add(std::int64_t line, std::string_view key) { keys_.push_back({key, line}); }

private:
    struct Given {
        std::string_view key;
        std::int64_t line = 0;
    };
    std::vector<Given> keys_;
};

}  // namespace scenara
