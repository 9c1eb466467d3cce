// SPDX-License-Identifier: MIT
//
// TextureBudget: the textures of one load, of a stage or a character, up to a sum.
//
// No real archive comes near the sum, but a made-up one of a few megabytes could ask for all the
// memory that a machine has. The rule is the loader's, so the same pictures are dropped on every
// device.
#pragma once

#include <cstdint>
#include <memory>

#include "platform/Direct3D8.h"

namespace scenara {

class TextureBudget : public TextureMaker {
public:
    static constexpr std::uint64_t kMostBytes = std::uint64_t{2047} << 20U;

    // `maker` makes the textures and outlives it.
    explicit TextureBudget(TextureMaker& maker) : maker_(maker) {}

    // Raises RunTimeError "Out of memory", too, when the texture and those that are kept would be
    // beyond kMostBytes, four bytes a pixel, with lines as long as is wished for.
    [[nodiscard]] std::shared_ptr<Direct3DTexture8> CreateTexture(
        const TextureParameters& parameters) override;

    // The texture that was made last stays; without this it counts for nothing.
    void KeepLast() { keptBytes_ += lastBytes_; }

private:
    TextureMaker& maker_;
    std::uint64_t keptBytes_ = 0;
    std::uint64_t lastBytes_ = 0;
};

}  // namespace scenara
