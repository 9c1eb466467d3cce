// SPDX-License-Identifier: MIT
#include "platform/soft/SoftTexture.h"

#include <algorithm>
#include <cstddef>
#include <limits>
#include <utility>

#include "base/RunTimeError.h"
#include "platform/soft/DrawList.h"

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
    piece_ = memory_->Allocate(WordsOf(parameters, pitch_), parameters.bringsIn
                                                                ? TextureMemory::Pages::Later
                                                                : TextureMemory::Pages::Now);
}

LockedPixels SoftTexture::LockRect() {
    if (list_ != nullptr) {
        list_->DrawAll();
    }
    coverage_ = {};
    return {piece_.words, pitch_};
}

void SoftTexture::AwaitDrawing(soft::DrawList* list) {
    if (list != nullptr && list_ != nullptr && list_ != list) {
        list_->DrawAll();
    }
    list_ = list;
}

void SoftTexture::PreLoad() {
    if (coverage_.WhatKind() == soft::Coverage::Kind::Unknown) {
        coverage_ = soft::Coverage::Of(Pixels());
    }
}

}  // namespace scenara
