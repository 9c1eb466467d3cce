// SPDX-License-Identifier: MIT
//
// SoftDevice: Direct3D 8 on the CPU.
//
// Textures are plain ARGB words in memory that the device keeps for the next stage. The pitch and
// the slack that a writer wishes for are given, so a decoder can run from the first line to the
// last without a look; the slack is there until the texture is unlocked for the first time. Mip
// levels and filters are taken and not needed: nothing is ever drawn smaller than it is.
#pragma once

#include <memory>

#include "platform/Direct3D8.h"
#include "platform/soft/TextureMemory.h"

namespace scenara {

class SoftTexture : public Direct3DTexture8 {
public:
    SoftTexture(std::shared_ptr<TextureMemory> memory, const TextureParameters& parameters);
    ~SoftTexture() override;

    [[nodiscard]] std::int32_t Width() const override { return width_; }
    [[nodiscard]] std::int32_t Height() const override { return height_; }
    LockedPixels LockRect() override { return {piece_.words, pitch_}; }
    void UnlockRect() override;

private:
    std::shared_ptr<TextureMemory> memory_;
    TextureMemory::Piece piece_;
    std::int32_t width_;
    std::int32_t height_;
    std::int32_t pitch_;
};

class SoftDevice : public Direct3DDevice8 {
public:
    // `memory` is kept by whoever wants the next device to find it filled.
    explicit SoftDevice(std::shared_ptr<TextureMemory> memory = std::make_shared<TextureMemory>());

    // Sizes outside 1 to 32767 raise RunTimeError "Overflow".
    [[nodiscard]] std::shared_ptr<Direct3DTexture8> CreateTexture(
        const TextureParameters& parameters) override;

private:
    std::shared_ptr<TextureMemory> memory_;
};

}  // namespace scenara
