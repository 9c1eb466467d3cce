// SPDX-License-Identifier: MIT
//
// SoftTexture: ARGB words in memory that is kept for the next stage.
//
// The pitch and the slack that a writer wishes for are given, so a decoder can run from the first
// line to the last without a look; the slack is there until the texture is unlocked for the first
// time. Mip levels and filters are taken and not used: pictures of every size are drawn from the
// one level that there is.
#pragma once

#include <cstdint>
#include <memory>

#include "platform/Direct3D8.h"
#include "platform/soft/Coverage.h"
#include "platform/soft/Texels.h"
#include "platform/soft/TextureMemory.h"

namespace scenara {

namespace soft {
class DrawList;
}

class SoftTexture final : public Direct3DTexture8 {
public:
    // Sizes are 1 to 32767. Raises RunTimeError "Out of memory".
    SoftTexture(std::shared_ptr<TextureMemory> memory, const TextureParameters& parameters);
    ~SoftTexture() override { memory_->Release(piece_); }

    [[nodiscard]] std::int32_t Width() const override { return width_; }
    [[nodiscard]] std::int32_t Height() const override { return height_; }
    // What waits to be drawn with the pixels that there are is drawn first.
    LockedPixels LockRect() override;
    LockedPixels LockRectToRead() override { return {piece_.words, pitch_}; }
    void UnlockRect() override {
        memory_->Shrink(piece_,
                        static_cast<std::size_t>(pitch_) * static_cast<std::size_t>(height_));
    }
    void BringIn() override { TextureMemory::BringIn(piece_); }
    void PreLoad() override;

    // For drawing; these hold until the next call that is not const.
    [[nodiscard]] soft::Texels Pixels() const { return {piece_.words, width_, height_, pitch_}; }
    [[nodiscard]] const soft::Coverage& PixelCoverage() const { return coverage_; }

    // It stands on this list of draws from now on, or on none. What waits on another one is drawn.
    void AwaitDrawing(soft::DrawList* list);

private:
    std::shared_ptr<TextureMemory> memory_;
    TextureMemory::Piece piece_;
    std::int32_t width_;
    std::int32_t height_;
    std::int32_t pitch_;
    soft::DrawList* list_ = nullptr;
    soft::Coverage coverage_;  // what PreLoad found; unknown since the last lock otherwise
};

}  // namespace scenara
