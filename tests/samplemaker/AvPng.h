// SPDX-License-Identifier: MIT
//
// PNG pictures as libavcodec reads them, as indices or as colours of 8 bits.
#pragma once

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavutil/frame.h>
#include <libavutil/log.h>
#include <libavutil/pixfmt.h>
}

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <vector>

#include "samplemaker/Picture.h"

namespace scenara::samplemaker {

struct AvPng {
    int width = 0;
    int height = 0;
    std::vector<std::uint8_t> indices;  // indices, or grey of 8 bits
    std::vector<Rgba> colours;          // of 16 bits the high bytes
};

class AvPngDecoder {
public:
    AvPngDecoder() : context_(avcodec_alloc_context3(avcodec_find_decoder(AV_CODEC_ID_PNG))) {
        av_log_set_level(AV_LOG_ERROR);
        opened_ = context_ && avcodec_open2(context_.get(), nullptr, nullptr) == 0;
    }

    AvPng Decode(const std::vector<std::byte>& file) {
        const std::unique_ptr<AVPacket, FreePacket> packet(av_packet_alloc());
        const std::unique_ptr<AVFrame, FreeFrame> frame(av_frame_alloc());
        if (!opened_ || av_new_packet(packet.get(), static_cast<int>(file.size())) != 0) {
            return {};
        }
        std::memcpy(packet->data, file.data(), file.size());
        if (avcodec_send_packet(context_.get(), packet.get()) != 0 ||
            avcodec_receive_frame(context_.get(), frame.get()) != 0) {
            return {};
        }
        AvPng decoded{frame->width, frame->height, {}, {}};
        for (int y = 0; y < frame->height; ++y) {
            CopyLine(*frame, y, decoded);
        }
        return decoded;
    }

private:
    struct FreeContext {
        void operator()(AVCodecContext* context) const { avcodec_free_context(&context); }
    };
    struct FreePacket {
        void operator()(AVPacket* packet) const { av_packet_free(&packet); }
    };
    struct FreeFrame {
        void operator()(AVFrame* frame) const { av_frame_free(&frame); }
    };

    static void CopyLine(const AVFrame& frame, int y, AvPng& decoded) {
        const std::uint8_t* const line = frame.data[0] + std::ptrdiff_t{y} * frame.linesize[0];
        for (int x = 0; x < frame.width; ++x) {
            const auto colour = [&](int bytes, bool alpha) {
                const int step = bytes * (alpha ? 4 : 3);
                const std::uint8_t* const at = line + x * step;
                decoded.colours.push_back(
                    {at[0], at[bytes], at[2 * bytes], alpha ? at[3 * bytes] : std::uint8_t{255}});
            };
            switch (frame.format) {
                case AV_PIX_FMT_MONOBLACK:
                    decoded.indices.push_back((line[x / 8] >> (7 - x % 8) & 1) != 0 ? 255 : 0);
                    break;
                case AV_PIX_FMT_GRAY8:
                case AV_PIX_FMT_PAL8: decoded.indices.push_back(line[x]); break;
                case AV_PIX_FMT_YA8:
                case AV_PIX_FMT_GRAY16BE: decoded.indices.push_back(line[2 * x]); break;
                case AV_PIX_FMT_YA16BE: decoded.indices.push_back(line[4 * x]); break;
                case AV_PIX_FMT_RGB24: colour(1, false); break;
                case AV_PIX_FMT_RGBA: colour(1, true); break;
                case AV_PIX_FMT_RGB48BE: colour(2, false); break;
                case AV_PIX_FMT_RGBA64BE: colour(2, true); break;
                default: return;
            }
        }
    }

    std::unique_ptr<AVCodecContext, FreeContext> context_;
    bool opened_ = false;
};

// Empty when it cannot. Each has a decoder of its own: one that is used again leaves bits of the
// picture before in interlaced ones of less than 8 bits.
inline AvPng DecodePngByAv(const std::vector<std::byte>& file) {
    return AvPngDecoder().Decode(file);
}

}  // namespace scenara::samplemaker
