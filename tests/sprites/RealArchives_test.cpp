// SPDX-License-Identifier: MIT
//
// Archives that were made by others, every picture of them against another decoder: libavcodec's.
// The folder of samples is a setting of the build; without it there is nothing to compare.
extern "C" {
#include <libavcodec/avcodec.h>
#include <libavutil/frame.h>
#include <libavutil/log.h>
#include <libavutil/pixfmt.h>
}

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "ArchiveLoad.h"

namespace scenara::test {
namespace {

using File = std::vector<std::byte>;

File ReadWhole(const std::filesystem::path& path) {
    std::ifstream stream(path, std::ios::binary);
    const std::string text((std::istreambuf_iterator<char>(stream)), {});
    const auto bytes = std::as_bytes(std::span(text));
    return {bytes.begin(), bytes.end()};
}

std::vector<std::filesystem::path> ArchivesBelow(const std::filesystem::path& folder) {
    std::vector<std::filesystem::path> paths;
    if (!std::filesystem::is_directory(folder)) {
        return paths;
    }
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        if (entry.path().extension() == ".sff") {
            paths.push_back(entry.path());
        }
    }
    std::sort(paths.begin(), paths.end());
    return paths;
}

// One subfile of a sound archive.
struct Subfile {
    std::int16_t link = 0;
    std::optional<File> pcx;  // a complete file, with the palette in force; none when linked
};

std::int16_t I16At(const File& file, std::size_t at) {
    return static_cast<std::int16_t>(std::to_integer<unsigned>(file[at]) |
                                     std::to_integer<unsigned>(file[at + 1]) << 8U);
}

// Follows the chain and believes everything.
std::vector<Subfile> WalkArchive(const File& file) {
    std::vector<Subfile> subfiles;
    File palette;
    std::size_t at = U32At(file, 24);
    for (std::uint32_t left = U32At(file, 20); left > 0; --left) {
        Subfile subfile;
        subfile.link = I16At(file, at + 16);
        const std::size_t length = U32At(file, at + 4);
        if (length != 0) {
            const auto start = file.begin() + static_cast<std::ptrdiff_t>(at + 32);
            const auto end =
                file.begin() + static_cast<std::ptrdiff_t>(std::min(at + 32 + length, file.size()));
            if (file[at + 18] == std::byte{0} || palette.empty()) {
                palette.assign(end - 768, end);
            }
            File pcx(start, end);
            pcx.push_back(std::byte{0x0C});
            pcx.insert(pcx.end(), palette.begin(), palette.end());
            subfile.pcx = std::move(pcx);
        }
        subfiles.push_back(std::move(subfile));
        at = U32At(file, at);
    }
    return subfiles;
}

struct Decoded {
    int width = 0;
    int height = 0;
    std::vector<std::uint8_t> indices;
    std::vector<std::uint32_t> colors;  // of the pixels, alpha left out
};

class OtherDecoder {
public:
    OtherDecoder() : context_(avcodec_alloc_context3(avcodec_find_decoder(AV_CODEC_ID_PCX))) {
        av_log_set_level(AV_LOG_ERROR);
        opened_ = context_ && avcodec_open2(context_.get(), nullptr, nullptr) == 0;
    }

    // Nothing when it cannot decode the picture to indices and a palette.
    std::optional<Decoded> Decode(const File& pcx) {
        const std::unique_ptr<AVPacket, FreePacket> packet(av_packet_alloc());
        const std::unique_ptr<AVFrame, FreeFrame> frame(av_frame_alloc());
        if (!opened_ || av_new_packet(packet.get(), static_cast<int>(pcx.size())) != 0) {
            return std::nullopt;
        }
        std::memcpy(packet->data, pcx.data(), pcx.size());
        if (avcodec_send_packet(context_.get(), packet.get()) != 0 ||
            avcodec_receive_frame(context_.get(), frame.get()) != 0 ||
            frame->format != AV_PIX_FMT_PAL8) {
            return std::nullopt;
        }
        return Copy(*frame);
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

    static Decoded Copy(const AVFrame& frame) {
        Decoded decoded{frame.width, frame.height, {}, {}};
        for (int y = 0; y < frame.height; ++y) {
            for (int x = 0; x < frame.width; ++x) {
                const std::uint8_t index = frame.data[0][y * frame.linesize[0] + x];
                std::uint32_t color = 0;
                std::memcpy(&color, frame.data[1] + std::size_t{index} * 4, sizeof color);
                decoded.indices.push_back(index);
                decoded.colors.push_back(color & 0x00FFFFFFU);
            }
        }
        return decoded;
    }

    std::unique_ptr<AVCodecContext, FreeContext> context_;
    bool opened_ = false;
};

void ExpectSamePicture(const Words& pixels, const Decoded& decoded) {
    ASSERT_EQ(pixels.size(), decoded.colors.size());
    for (std::size_t i = 0; i < pixels.size(); ++i) {
        const std::uint32_t alpha = decoded.indices[i] == 0 ? 0 : 0xFF000000U;
        ASSERT_EQ(pixels[i], alpha | decoded.colors[i]) << "pixel " << i;
    }
}

void ExpectSameArchive(const File& file) {
    const std::vector<Subfile> subfiles = WalkArchive(file);
    ArchiveLoad load;
    load.Run(file);
    EXPECT_TRUE(load.Texts().empty()) << load.Texts().front();
    ASSERT_EQ(load.model.Sprites.size(), subfiles.size());

    OtherDecoder other;
    for (std::size_t i = 0; i < subfiles.size(); ++i) {
        SCOPED_TRACE("subfile " + std::to_string(i));
        const SpriteEntry& entry = load.Sprite(i);
        if (!subfiles[i].pcx) {
            EXPECT_EQ(entry.linkedTo, subfiles[i].link);
            EXPECT_EQ(entry.texture,
                      load.Sprite(static_cast<std::size_t>(subfiles[i].link)).texture);
            continue;
        }
        const auto decoded = other.Decode(*subfiles[i].pcx);
        ASSERT_TRUE(decoded);
        ASSERT_EQ(entry.width, decoded->width);
        ASSERT_EQ(entry.height, decoded->height);
        ExpectSamePicture(load.Pixels(i), *decoded);
        ASSERT_FALSE(testing::Test::HasFatalFailure());
    }
}

class RealArchives : public testing::TestWithParam<const char*> {};

TEST_P(RealArchives, AreWhatAnotherDecoderMakesOfThem) {
    const auto folder = std::filesystem::path(SCENARA_SAMPLE_DATA) / GetParam();
    const auto paths = ArchivesBelow(folder);
    if (paths.empty()) {
        GTEST_SKIP() << "no archives in " << folder
                     << " (set SCENARA_SAMPLE_DATA to a MUGEN folder)";
    }
    for (const auto& path : paths) {
        SCOPED_TRACE(path.filename().string());
        ExpectSameArchive(ReadWhole(path));
    }
}

INSTANTIATE_TEST_SUITE_P(, RealArchives, testing::Values("stages", "chars/kfm"),
                         [](const testing::TestParamInfo<const char*>& row) {
                             return std::string(row.param) == "stages" ? "Stages" : "Characters";
                         });

}  // namespace
}  // namespace scenara::test
