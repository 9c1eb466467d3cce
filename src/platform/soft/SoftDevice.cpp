// SPDX-License-Identifier: MIT
#include "platform/soft/SoftDevice.h"

#include <algorithm>
#include <limits>
#include <string>
#include <utility>

#include "base/RunTimeError.h"

namespace scenara {
namespace {

constexpr std::int32_t kLargestSide = std::numeric_limits<std::int16_t>::max();

std::size_t WordsOf(const TextureParameters& parameters, std::int32_t pitch) {
    // In 64 bits, whatever a size has: at most 2^31 x 2^15.
    const std::uint64_t lines =
        static_cast<std::uint64_t>(pitch) * static_cast<std::uint64_t>(parameters.height);
    if (lines > TextureMemory::kMostBytes || parameters.wantedSlack > TextureMemory::kMostBytes) {
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

SoftTexture::~SoftTexture() {
    memory_->Release(piece_);
}

void SoftTexture::UnlockRect() {
    memory_->Shrink(piece_, static_cast<std::size_t>(pitch_) * static_cast<std::size_t>(height_));
}

SoftDevice::SoftDevice(std::shared_ptr<TextureMemory> memory) : memory_(std::move(memory)) {}

std::shared_ptr<Direct3DTexture8> SoftDevice::CreateTexture(const TextureParameters& parameters) {
    if (parameters.width < 1 || parameters.width > kLargestSide || parameters.height < 1 ||
        parameters.height > kLargestSide) {
        throw RunTimeError(RunTimeErrorKind::Overflow,
                           "a texture of " + std::to_string(parameters.width) + " x " +
                               std::to_string(parameters.height) + " pixels");
    }
    return std::make_shared<SoftTexture>(memory_, parameters);
}

}  // namespace scenara
