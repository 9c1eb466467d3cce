// SPDX-License-Identifier: MIT
//
// ScaledPicture, an addition: pictures of stages that were made for a larger or smaller view,
// brought to view pixels once, when they are loaded.
//
// Each pixel of the result is the mean of the area that it covers, alpha included. In a keyed
// picture colours are weighted by alpha, so that transparent pixels lend no colour to visible ones.
// In one that is drawn opaque, and where nothing is visible, every pixel's colour counts the same.
#pragma once

#include <memory>
#include <vector>

#include "platform/Direct3D8.h"

namespace scenara {

// Pixels of a side of `size` after scaling: rounded up, 1 to 32767.
[[nodiscard]] std::int32_t ScaledSize(std::int32_t size, double scale);

// A new texture of `maker` with the picture at `scale`, above 0.
[[nodiscard]] std::shared_ptr<Direct3DTexture8> ScaledPicture(TextureMaker& maker,
                                                              Direct3DTexture8& picture,
                                                              double scale, bool keyed);

// Textures on the heap, for pictures on their way through: the next one takes the place of the
// last, of which nothing may be in use any more.
class ScratchTextures : public TextureMaker {
public:
    [[nodiscard]] std::shared_ptr<Direct3DTexture8> CreateTexture(
        const TextureParameters& parameters) override;

private:
    std::vector<std::uint32_t> words_;
};

}  // namespace scenara
