// SPDX-License-Identifier: MIT
//
// What a program would use to get a PCX picture as 32-bit pixels if it did not decode it itself:
// SDL2_image, and libavcodec with a loop over its palette pictures.
//
// Each peer makes what a texture needs: ARGB words whose alpha is 0 where the picture's index is 0
// and 255 elsewhere. It keeps what such a program would keep from one picture to the next (codec
// context, frame, packets with the padding that the library asks for), so that only the work on a
// picture is timed. A picture that the library refuses raises std::runtime_error.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <vector>

#include "support/SamplePictures.h"

struct AVCodecContext;
struct AVFrame;
struct AVPacket;
struct SDL_Surface;

namespace scenara::bench {

// `pitch` words from one line to the next; valid until its maker makes the next picture.
struct PictureView {
    const std::uint32_t* pixels = nullptr;
    std::size_t width = 0;
    std::size_t height = 0;
    std::size_t pitch = 0;
};

// IMG_LoadPCX_RW from memory, SDL_SetColorKey, SDL_ConvertSurfaceFormat.
class SdlImagePeer {
public:
    PictureView Decode(const SamplePicture& picture);

private:
    struct Free {
        void operator()(SDL_Surface* surface) const;
    };
    using Surface = std::unique_ptr<SDL_Surface, Free>;

    Surface finished_;
};

// The PCX decoder on one thread, then each index through the picture's palette.
class LibavcodecPeer {
public:
    explicit LibavcodecPeer(std::span<const SamplePicture> pictures);

    // The picture at `index` of those given before, into `pixels`, without gaps between its lines.
    PictureView Decode(std::size_t index, std::span<std::uint32_t> pixels);

private:
    struct Free {
        void operator()(AVCodecContext* context) const;
        void operator()(AVFrame* frame) const;
        void operator()(AVPacket* packet) const;
    };

    std::unique_ptr<AVCodecContext, Free> context_;
    std::unique_ptr<AVFrame, Free> frame_;
    std::vector<std::unique_ptr<AVPacket, Free>> packets_;
};

}  // namespace scenara::bench
