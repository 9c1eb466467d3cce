// SPDX-License-Identifier: MIT
//
// PcxDecoding: a decoder with a recording device and recorded messages, fed with whole PCX files.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "Pictures.h"
#include "RecordingDevice.h"
#include "platform/headless/HeadlessMessages.h"
#include "samplemaker/PcxWriter.h"
#include "sprites/modFilePCX.h"
#include "support/MessageTexts.h"

namespace scenara::test {

class PcxDecoding {
public:
    explicit PcxDecoding(DeviceLines lines = DeviceLines::AsWanted) : device(lines) {}

    RecordingDevice device;
    HeadlessMessages messages;
    PcxDecoder decoder{device, messages};
    PcxPicture picture;  // the last one that was decoded

    void SetPalette(const Palette& palette) {
        std::vector<std::byte> bytes;
        for (const Rgb& color : palette) {
            for (const std::uint8_t part : {color.red, color.green, color.blue}) {
                bytes.push_back(static_cast<std::byte>(part));
            }
        }
        decoder.SetPalette(std::span(bytes).first<kPcxPaletteSize>());
    }

    [[nodiscard]] bool Load(std::span<const std::byte> pcx) {
        return decoder.LoadPCX(ReadPcxHeader(pcx.first<kPcxHeaderSize>()),
                               pcx.subspan(kPcxHeaderSize), picture);
    }

    // Sets the palette of the picture, writes it with 8 bits, and decodes that.
    [[nodiscard]] bool Load(const IndexedPicture& indexed,
                            const samplemaker::PcxOptions& options = {}) {
        SetPalette(indexed.palette);
        return Load(samplemaker::WritePcx(indexed, options));
    }

    [[nodiscard]] Words Pixels() const { return PixelsOf(*picture.texture); }

    [[nodiscard]] std::vector<std::string> Texts() const { return TextsOf(messages); }
};

// What every sprite's texture is made with.
inline void ExpectSpriteTexture(const TextureParameters& made, std::int32_t width,
                                std::int32_t height, std::uint32_t colorKey) {
    EXPECT_EQ(made.width, width);
    EXPECT_EQ(made.height, height);
    EXPECT_EQ(made.colorKey, colorKey);
    EXPECT_EQ(made.mipLevels, 0xFFFFFFFFU);  // D3DX_DEFAULT: the full chain
    EXPECT_EQ(made.usage, 0U);
    EXPECT_EQ(made.format, 0U);     // D3DFMT_UNKNOWN: the picture's own
    EXPECT_EQ(made.pool, 1U);       // D3DPOOL_MANAGED
    EXPECT_EQ(made.filter, 2U);     // D3DX_FILTER_POINT
    EXPECT_EQ(made.mipFilter, 2U);  // D3DX_FILTER_POINT
}

// The box of the image routines.
inline std::string HandleErrorText(const std::string& reason) {
    return "An ERROR has occurred!!\r\nLoadPCX\r\nHandleError: " + reason;
}

}  // namespace scenara::test
