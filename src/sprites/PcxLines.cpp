// SPDX-License-Identifier: MIT
#include "sprites/PcxLines.h"

#include <algorithm>
#include <string>

#include "base/RunTimeError.h"

namespace scenara {
namespace {

constexpr std::uint8_t kRunMark = 192;

}  // namespace

std::uint64_t UnpackedLength(std::span<const std::byte> data, bool runLength,
                             std::uint64_t wanted) {
    if (!runLength) {
        return std::min<std::uint64_t>(data.size(), wanted);
    }
    std::uint64_t length = 0;
    for (std::size_t at = 0; at < data.size() && length < wanted; ++at) {
        const auto byte = std::to_integer<std::uint8_t>(data[at]);
        if (byte < kRunMark) {
            ++length;
        } else if (++at < data.size()) {
            length += std::uint64_t{byte} - kRunMark;
        }
    }
    return std::min(length, wanted);
}

bool PcxLines::NextRun() {
    if (at_ >= data_.size()) {
        return false;
    }
    const auto byte = std::to_integer<std::uint8_t>(data_[at_++]);
    runLeft_ = 1;
    runValue_ = byte;
    if (runLength_ && byte >= kRunMark) {
        if (at_ >= data_.size()) {
            runLeft_ = 0;
            return false;
        }
        runLeft_ = std::size_t{byte} - kRunMark;
        runValue_ = std::to_integer<std::uint8_t>(data_[at_++]);
    }
    return true;
}

std::size_t PcxLines::NextIfThere(std::span<std::uint8_t> line) {
    std::size_t filled = 0;
    while (filled < line.size()) {
        if (runLeft_ == 0 && !NextRun()) {
            break;
        }
        const std::size_t count = std::min(runLeft_, line.size() - filled);
        std::fill_n(line.begin() + static_cast<std::ptrdiff_t>(filled), count, runValue_);
        filled += count;
        runLeft_ -= count;
    }
    return filled;
}

void PcxLines::Next(std::span<std::uint8_t> line) {
    if (NextIfThere(line) < line.size()) {
        throw RunTimeError(RunTimeErrorKind::InputPastEnd,
                           "the pixels end after " + std::to_string(at_) + " bytes");
    }
}

}  // namespace scenara
