// SPDX-License-Identifier: MIT
//
// FileBytes: bytes of a file, held for as long as somebody decodes them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>

#include "platform/Files.h"

namespace scenara {

class FileBytes {
public:
    // From `start` on, `size` of them or as many as there are. What was held before is dropped
    // first. What the file raises goes through.
    void Read(InputFile& file, std::uint64_t start, std::size_t size) {
        Drop();
        bytes_ = std::make_unique_for_overwrite<std::byte[]>(size);  // NOLINT(*-avoid-c-arrays)
        size_ = file.ReadAt(start, {bytes_.get(), size});
    }
    // None are held any more. On the thread that decoded them, so that they need not wait for
    // another one.
    void Drop() {
        bytes_.reset();
        size_ = 0;
    }

    [[nodiscard]] std::span<const std::byte> Bytes() const { return {bytes_.get(), size_}; }
    [[nodiscard]] std::size_t Size() const { return size_; }

private:
    std::unique_ptr<std::byte[]> bytes_;  // NOLINT(*-avoid-c-arrays)
    std::size_t size_ = 0;
};

}  // namespace scenara
