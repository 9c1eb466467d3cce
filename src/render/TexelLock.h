// SPDX-License-Identifier: MIT
//
// TexelLock: a texture's pixels, for reading, as long as it lives.
#pragma once

#include <cstddef>
#include <cstdint>

#include "base/NotCopied.h"
#include "platform/Direct3D8.h"

namespace scenara {

[[nodiscard]] constexpr std::uint32_t AlphaOf(std::uint32_t texel) {
    return texel >> 24U;
}

class TexelLock : NotCopied {
public:
    // The texture outlives it.
    explicit TexelLock(Direct3DTexture8& texture)
        : texture_(texture), pixels_(texture.LockRectToRead()) {}
    ~TexelLock() { texture_.UnlockRect(); }

    // ARGB; what lies outside of the texture is transparent black.
    [[nodiscard]] std::uint32_t At(std::int64_t x, std::int64_t y) const {
        if (x < 0 || y < 0 || x >= texture_.Width() || y >= texture_.Height()) {
            return 0;
        }
        const auto word = static_cast<std::size_t>(y * pixels_.pitch + x);
        return word < pixels_.words.size() ? pixels_.words[word] : 0;
    }

private:
    Direct3DTexture8& texture_;
    LockedPixels pixels_;
};

}  // namespace scenara
