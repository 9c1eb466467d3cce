// SPDX-License-Identifier: MIT
//
// TextFile: a text to be read as a file.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <utility>

#include "platform/Files.h"

namespace scenara {

class TextFile : public InputFile {
public:
    explicit TextFile(std::string text) : text_(std::move(text)) {}

    [[nodiscard]] std::uint64_t Size() const override { return text_.size(); }
    std::size_t ReadAt(std::uint64_t position, std::span<std::byte> into) override {
        if (position >= text_.size()) {
            return 0;
        }
        const auto rest =
            std::as_bytes(std::span(text_)).subspan(static_cast<std::size_t>(position));
        const std::size_t count = std::min(rest.size(), into.size());
        std::copy_n(rest.begin(), count, into.begin());
        return count;
    }

private:
    std::string text_;
};

}  // namespace scenara
