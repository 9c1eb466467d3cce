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

    // Raises RunTimeError "Out of memory", too, when the texture and those that were made before
    // would be beyond kMostBytes, four bytes a pixel, with lines as long as is wished for.
    [[nodiscard]] std::shared_ptr<Direct3DTexture8> CreateTexture(
        const TextureParameters& parameters) override;

    void Expect(std::uint64_t bytes) override { maker_.Expect(bytes); }

    // Bytes of all that were made and not given back.
    [[nodiscard]] std::uint64_t Taken() const { return taken_; }
    // So many of them count no longer: their picture came to nothing.
    void GiveBack(std::uint64_t bytes) { taken_ -= bytes; }

    // The last texture was refused because of the sum.
    [[nodiscard]] bool IsFull() const { return full_; }

private:
    TextureMaker& maker_;
    std::uint64_t taken_ = 0;
    bool full_ = false;
};

}  // namespace scenara
