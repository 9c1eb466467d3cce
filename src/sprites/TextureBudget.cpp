// SPDX-License-Identifier: MIT
#include "sprites/TextureBudget.h"

#include <algorithm>

#include "base/RunTimeError.h"

namespace scenara {
namespace {

// At most 2^31 x 2^31 x 4, whatever is wished for.
std::uint64_t BytesOf(const TextureParameters& parameters) {
    const std::int32_t pitch = std::max({parameters.width, parameters.wantedPitch, 0});
    const std::int32_t height = std::max(parameters.height, 0);
    return static_cast<std::uint64_t>(pitch) * static_cast<std::uint64_t>(height) *
           sizeof(std::uint32_t);
}

}  // namespace

std::shared_ptr<Direct3DTexture8> TextureBudget::CreateTexture(
    const TextureParameters& parameters) {
    const std::uint64_t bytes = BytesOf(parameters);
    full_ = bytes > kMostBytes - taken_;
    if (full_) {
        throw RunTimeError(RunTimeErrorKind::OutOfMemory);
    }
    std::shared_ptr<Direct3DTexture8> texture = maker_.CreateTexture(parameters);
    taken_ += bytes;
    return texture;
}

}  // namespace scenara
