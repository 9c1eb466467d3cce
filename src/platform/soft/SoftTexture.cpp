// SPDX-License-Identifier: MIT
#include "platform/soft/SoftTexture.h"

#include <algorithm>
#include <cstddef>
#include <limits>
#include <utility>

#include "base/RunTimeError.h"

namespace scenara {
namespace {

std::size_t WordsOf(const TextureParameters& parameters, std::int32_t pitch) {
    // In 64 bits, whatever a size has: at most 2^31 x 2^15.
    const std::uint64_t lines =
        static_cast<std::uint64_t>(pitch) * static_cast<std::uint64_t>(parameters.height);
    constexpr auto kMost = static_cast<std::uint64_t>(std::numeric_limits<std::ptrdiff_t>::max());
    if (lines > kMost || parameters.wantedSlack > kMost - lines) {
        throw RunTimeError(RunTimeErrorKind::OutOfMemory);
    }
    return static_cast<std::size_t>(lines) + parameters.wantedSlack;
}

}  // namespace

SoftTexture::SoftTexture(std::shared_ptr<TextureMemory> memory, const TextureParameters& parameters)
    : memory_(std::move(memory)),
      width_(parameters.width),
      height_(parameters.height),
      pitch_(std::max(parameters.width, parameters.wantedPitch)) {
    piece_ = memory_->Allocate(WordsOf(parameters, pitch_));
}

void SoftTexture::PreLoad() {
    if (coverage_.WhatKind() == soft::Coverage::Kind::Unknown) {
        coverage_ = soft::Coverage::Of(Pixels());
    }
}

}  // namespace scenara
