// SPDX-License-Identifier: MIT
//
// PictureLoad: one picture of an archive on its way into a texture.
//
// SpriteArchive::Begin makes it, with all that decoding needs: bytes, colours, the texture. Then
// any one thread decodes it, beside others. SpriteArchive::Finish has the result.
#pragma once

#include <cstddef>
#include <cstdint>
#include <exception>
#include <memory>

#include "base/NotCopied.h"
#include "platform/Direct3D8.h"

namespace scenara {

// A picture that was loaded.
struct SpritePicture {
    std::shared_ptr<Direct3DTexture8> texture;
    std::uint32_t key = 0;   // the transparent colour made opaque, ARGB; 0 = none
    bool trueColor = false;  // its pixels have their own colours and alpha, there is no palette
};

class PictureLoad : NotCopied {
public:
    virtual ~PictureLoad() = default;

    // Once. What goes wrong is kept for Finish; a load that had failed before does nothing.
    void Decode() noexcept {
        if (!failure_) {
            try {
                DoDecode();
            } catch (...) {
                failure_ = std::current_exception();
            }
        }
    }

    // Bytes of the file that it holds until it is finished.
    [[nodiscard]] virtual std::size_t HeldBytes() const = 0;
    // Bytes of its texture.
    [[nodiscard]] virtual std::uint64_t TextureBytes() const = 0;
    // How long decoding takes: as long as bringing in and filling so many bytes of textures by
    // runs.
    [[nodiscard]] virtual std::uint64_t Work() const { return TextureBytes(); }

protected:
    PictureLoad() = default;

    // May raise RunTimeError and std::bad_alloc.
    virtual void DoDecode() = 0;

    // In a catch block: what goes wrong in front of the decoding.
    void Fail() { failure_ = std::current_exception(); }
    // Raises what went wrong, if anything did.
    void RaiseFailure() const {
        if (failure_) {
            std::rethrow_exception(failure_);
        }
    }

private:
    std::exception_ptr failure_;
};

}  // namespace scenara
