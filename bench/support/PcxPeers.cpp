// SPDX-License-Identifier: MIT
#include "support/PcxPeers.h"

#include <SDL.h>
#include <SDL_image.h>

extern "C" {
#include <libavcodec/avcodec.h>
}

#include <algorithm>
#include <array>
#include <new>
#include <stdexcept>
#include <string>

namespace scenara::bench {
namespace {

[[noreturn]] void Fail(const char* library, const std::string& what) {
    throw std::runtime_error(std::string(library) + ": " + what);
}

void Check(int result, const char* what) {
    if (result < 0) {
        Fail("libavcodec", what);
    }
}

std::size_t Size(int value) {
    return static_cast<std::size_t>(value);
}

// Straight from row to row, as one writes it without further thought; the compiler is free.
void ThroughPalette(const AVFrame& frame, std::span<std::uint32_t> pixels) {
    std::array<std::uint32_t, 256> colors{};
    const auto* palette = static_cast<const std::uint32_t*>(static_cast<void*>(frame.data[1]));
    std::copy_n(palette, colors.size(), colors.begin());
    colors[0] &= 0x00FFFFFFU;
    const std::size_t width = Size(frame.width);
    for (std::size_t y = 0; y < Size(frame.height); ++y) {
        const std::uint8_t* const row =
            frame.data[0] + static_cast<std::ptrdiff_t>(y) * frame.linesize[0];
        std::uint32_t* const out = pixels.data() + y * width;
        for (std::size_t x = 0; x < width; ++x) {
            out[x] = colors[row[x]];
        }
    }
}

}  // namespace

void SdlImagePeer::Free::operator()(SDL_Surface* surface) const {
    SDL_FreeSurface(surface);
}

PictureView SdlImagePeer::Decode(const SamplePicture& picture) {
    SDL_RWops* const file =
        SDL_RWFromConstMem(picture.file.data(), static_cast<int>(picture.file.size()));
    if (file == nullptr) {
        Fail("SDL2", SDL_GetError());
    }
    const Surface indexed(IMG_LoadPCX_RW(file));
    SDL_RWclose(file);
    if (!indexed || SDL_SetColorKey(indexed.get(), SDL_TRUE, 0) != 0) {
        Fail("SDL2_image", SDL_GetError());
    }
    finished_.reset(SDL_ConvertSurfaceFormat(indexed.get(), SDL_PIXELFORMAT_ARGB8888, 0));
    if (!finished_) {
        Fail("SDL2", SDL_GetError());
    }
    return {static_cast<const std::uint32_t*>(finished_->pixels), Size(finished_->w),
            Size(finished_->h), Size(finished_->pitch) / sizeof(std::uint32_t)};
}

void LibavcodecPeer::Free::operator()(AVCodecContext* context) const {
    avcodec_free_context(&context);
}
void LibavcodecPeer::Free::operator()(AVFrame* frame) const {
    av_frame_free(&frame);
}
void LibavcodecPeer::Free::operator()(AVPacket* packet) const {
    av_packet_free(&packet);
}

LibavcodecPeer::LibavcodecPeer(std::span<const SamplePicture> pictures) {
    const AVCodec* const codec = avcodec_find_decoder(AV_CODEC_ID_PCX);
    if (codec == nullptr) {
        Fail("libavcodec", "no PCX decoder");
    }
    context_.reset(avcodec_alloc_context3(codec));
    frame_.reset(av_frame_alloc());
    if (!context_ || !frame_) {
        throw std::bad_alloc();
    }
    context_->thread_count = 1;
    av_log_set_level(AV_LOG_ERROR);
    Check(avcodec_open2(context_.get(), codec, nullptr), "cannot open the PCX decoder");
    for (const SamplePicture& picture : pictures) {
        packets_.emplace_back(av_packet_alloc());
        AVPacket* const packet = packets_.back().get();
        Check(packet == nullptr ? -1 : av_new_packet(packet, static_cast<int>(picture.file.size())),
              "no memory for a packet");
        std::ranges::copy(
            picture.file,
            std::as_writable_bytes(std::span(packet->data, picture.file.size())).begin());
    }
}

PictureView LibavcodecPeer::Decode(std::size_t index, std::span<std::uint32_t> pixels) {
    Check(avcodec_send_packet(context_.get(), packets_[index].get()), "packet refused");
    Check(avcodec_receive_frame(context_.get(), frame_.get()), "no picture");
    const std::size_t width = Size(frame_->width);
    const std::size_t height = Size(frame_->height);
    if (frame_->format != AV_PIX_FMT_PAL8 || width * height > pixels.size()) {
        Fail("libavcodec", "another kind of picture");
    }
    ThroughPalette(*frame_, pixels);
    av_frame_unref(frame_.get());
    return {pixels.data(), width, height, width};
}

}  // namespace scenara::bench
