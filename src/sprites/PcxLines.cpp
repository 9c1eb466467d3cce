// SPDX-License-Identifier: MIT
#include "sprites/PcxLines.h"

#include <algorithm>
#include <string>

#include "base/RunTimeError.h"

namespace scenara {
namespace {

constexpr std::uint8_t kRunMark = 192;

}  // namespace

std::uint8_t PcxLines::NextByte() {
    if (at_ >= data_.size()) {
        throw RunTimeError(RunTimeErrorKind::InputPastEnd,
                           "the pixels end after " + std::to_string(at_) + " bytes");
    }
    return std::to_integer<std::uint8_t>(data_[at_++]);
}

void PcxLines::Next(std::span<std::uint8_t> line) {
    while (!line.empty()) {
        if (runLeft_ == 0) {
            const std::uint8_t byte = NextByte();
            const bool run = runLength_ && byte >= kRunMark;
            runLeft_ = run ? std::size_t{byte} - kRunMark : 1;
            runValue_ = run ? NextByte() : byte;
        }
        const std::size_t count = std::min(runLeft_, line.size());
        std::fill_n(line.begin(), count, runValue_);
        line = line.subspan(count);
        runLeft_ -= count;
    }
}

}  // namespace scenara
