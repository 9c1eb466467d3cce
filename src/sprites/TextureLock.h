// SPDX-License-Identifier: MIT
//
// TextureLock: a texture that is being written to.
//
// Textures are locked and unlocked by the thread that loads; any one thread writes in between.
#pragma once

#include <cstddef>
#include <memory>
#include <span>
#include <utility>

#include "base/NotCopied.h"
#include "platform/Direct3D8.h"

namespace scenara {

class TextureLock : NotCopied {
public:
    explicit TextureLock(std::shared_ptr<Direct3DTexture8> texture)
        : texture_(std::move(texture)), pixels_(texture_->LockRect()) {}
    ~TextureLock() { texture_->UnlockRect(); }

    // On the thread that writes, before it does. Raises RunTimeError "Out of memory".
    void BringIn() { texture_->BringIn(); }

    [[nodiscard]] std::span<std::uint32_t> Words() const { return pixels_.words; }
    [[nodiscard]] std::int32_t Pitch() const { return pixels_.pitch; }
    // Its pixels alone.
    [[nodiscard]] std::span<std::uint32_t> Line(std::int32_t y) const {
        return pixels_.words.subspan(
            static_cast<std::size_t>(y) * static_cast<std::size_t>(pixels_.pitch),
            static_cast<std::size_t>(texture_->Width()));
    }

private:
    std::shared_ptr<Direct3DTexture8> texture_;
    LockedPixels pixels_;
};

}  // namespace scenara
