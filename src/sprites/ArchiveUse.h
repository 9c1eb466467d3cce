// SPDX-License-Identifier: MIT
//
// ArchiveUse: how much of a file an archive has used. Each byte belongs to one sprite, so that a
// sound archive uses it once; in one whose sprites lie over each other, time and memory stay in
// proportion to the file all the same.
#pragma once

#include <algorithm>
#include <cstdint>

#include "platform/Files.h"

namespace scenara {

class ArchiveUse {
public:
    explicit ArchiveUse(std::uint64_t fileSize) : fileSize_(fileSize) {}

    // Bytes of a header, and of a picture that is shown. A damaged one may take its neighbour's, so
    // there may be twice as many as the file has.
    void CountShown(std::uint64_t bytes) { shown_ += bytes; }
    // Bytes that were read in vain. Pictures that fail may each have been read to the file's end,
    // so there may be eight times as many.
    void CountLost(std::uint64_t bytes) { lost_ += bytes; }

    // There are more: sprites lie over each other.
    [[nodiscard]] bool IsTooMuch() const { return shown_ / 2 > fileSize_ || lost_ / 8 > fileSize_; }

private:
    std::uint64_t fileSize_;
    std::uint64_t shown_ = 0;
    std::uint64_t lost_ = 0;
};

// How many of `wanted` bytes the file has from `start` on.
[[nodiscard]] inline std::uint64_t Available(const InputFile& file, std::uint64_t start,
                                             std::uint64_t wanted) {
    return start < file.Size() ? std::min(wanted, file.Size() - start) : 0;
}

}  // namespace scenara
