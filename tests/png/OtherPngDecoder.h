// SPDX-License-Identifier: MIT
//
// libavcodec's PNG decoder, which shares nothing with the one under test.
#pragma once

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavutil/frame.h>
#include <libavutil/log.h>
#include <libavutil/pixfmt.h>
}

#include <cstdint>
#include <cstring>
#include <memory>
#include <optional>
#include <span>
#include <vector>

namespace scenara::test {

class OtherPngDecoder {
public:
    // ARGB words; nothing for what it does not decode. Each picture gets a decoder of its own: one
    // that had another picture before mixes the two now and then, where passes have no pixels.
    static std::optional<std::vector<std::uint32_t>> Colours(std::span<const std::byte> file) {
        av_log_set_level(AV_LOG_QUIET);
        const std::unique_ptr<AVCodecContext, Free> context(
            avcodec_alloc_context3(avcodec_find_decoder(AV_CODEC_ID_PNG)));
        const std::unique_ptr<AVPacket, Free> packet(av_packet_alloc());
        const std::unique_ptr<AVFrame, Free> frame(av_frame_alloc());
        if (!context || avcodec_open2(context.get(), nullptr, nullptr) != 0 ||
            av_new_packet(packet.get(), static_cast<int>(file.size())) != 0) {
            return std::nullopt;
        }
        std::memcpy(packet->data, file.data(), file.size());
        if (avcodec_send_packet(context.get(), packet.get()) != 0 ||
            avcodec_receive_frame(context.get(), frame.get()) != 0) {
            return std::nullopt;
        }
        std::vector<std::uint32_t> words;
        for (int y = 0; y < frame->height; ++y) {
            for (int x = 0; x < frame->width; ++x) {
                const auto word = ColourAt(*frame, x, y);
                if (!word) {
                    return std::nullopt;
                }
                words.push_back(*word);
            }
        }
        return words;
    }

private:
    struct Free {
        void operator()(AVCodecContext* context) const { avcodec_free_context(&context); }
        void operator()(AVPacket* packet) const { av_packet_free(&packet); }
        void operator()(AVFrame* frame) const { av_frame_free(&frame); }
    };

    static std::uint32_t Word(std::uint32_t red, std::uint32_t green, std::uint32_t blue,
                              std::uint32_t alpha) {
        return alpha << 24U | red << 16U | green << 8U | blue;
    }

    static std::optional<std::uint32_t> ColourAt(const AVFrame& frame, int x, int y) {
        const std::uint8_t* const line = frame.data[0] + std::ptrdiff_t{y} * frame.linesize[0];
        const auto byte = [&](int at) { return std::uint32_t{line[at]}; };
        // To the nearest of 8 bits.
        const auto wide = [&](int at) {
            return ((byte(2 * at) << 8U | byte(2 * at + 1)) + 128U) / 257U;
        };
        switch (frame.format) {
            case AV_PIX_FMT_PAL8: {
                std::uint32_t word = 0;
                std::memcpy(&word, frame.data[1] + std::size_t{line[x]} * 4, sizeof word);
                return word;
            }
            case AV_PIX_FMT_MONOBLACK: {
                const std::uint32_t grey = (byte(x / 8) >> (7 - x % 8) & 1U) * 255U;
                return Word(grey, grey, grey, 255);
            }
            case AV_PIX_FMT_GRAY8: return Word(byte(x), byte(x), byte(x), 255);
            case AV_PIX_FMT_GRAY16BE: return Word(wide(x), wide(x), wide(x), 255);
            case AV_PIX_FMT_YA8:
                return Word(byte(2 * x), byte(2 * x), byte(2 * x), byte(2 * x + 1));
            case AV_PIX_FMT_YA16BE:
                return Word(wide(2 * x), wide(2 * x), wide(2 * x), wide(2 * x + 1));
            case AV_PIX_FMT_RGB24: return Word(byte(3 * x), byte(3 * x + 1), byte(3 * x + 2), 255);
            case AV_PIX_FMT_RGB48BE:
                return Word(wide(3 * x), wide(3 * x + 1), wide(3 * x + 2), 255);
            case AV_PIX_FMT_RGBA:
                return Word(byte(4 * x), byte(4 * x + 1), byte(4 * x + 2), byte(4 * x + 3));
            case AV_PIX_FMT_RGBA64BE:
                return Word(wide(4 * x), wide(4 * x + 1), wide(4 * x + 2), wide(4 * x + 3));
            default: return std::nullopt;
        }
    }
};

}  // namespace scenara::test
