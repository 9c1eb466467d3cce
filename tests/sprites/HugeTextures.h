// SPDX-License-Identifier: MIT
//
// Archives that ask for more textures than a load may have, and a device that has room for them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

#include "sprites/ArchiveLoad.h"
#include "sprites/modFilePCX.h"
#include "support/NullDevice.h"

namespace scenara::test {

// A texture of any size that takes the memory of one line.
class OneLineTexture : public NullTexture {
public:
    OneLineTexture(std::int32_t width, std::int32_t height)
        : NullTexture(width, height), line_(static_cast<std::size_t>(width)) {}
    LockedPixels LockRect() override { return {line_, 0}; }

private:
    std::vector<std::uint32_t> line_;
};

class OneLineDevice : public NullDevice {
public:
    std::shared_ptr<Direct3DTexture8> CreateTexture(const TextureParameters& parameters) override {
        return std::make_shared<OneLineTexture>(parameters.width, parameters.height);
    }
};

inline constexpr unsigned kColumnHeight = 32767;
inline constexpr unsigned kColumnBytesPerLine = 65;
// Of a column as a texture that has room for the padding: 8.1 MB.
inline constexpr std::size_t kColumnBytes =
    sizeof(std::uint32_t) * kColumnHeight * kColumnBytesPerLine;

// Columns of pixels with long lines, in group 0 and images from 0 on. They take little time to
// decode.
inline std::vector<std::byte> ArchiveOfColumns(std::size_t count) {
    std::vector<std::byte> pcx = WritePcx(StripedPicture(1, 1, PaletteOf(1)));
    pcx.resize(kPcxHeaderSize);
    PatchU16(pcx, 10, kColumnHeight - 1);
    PatchU16(pcx, 66, kColumnBytesPerLine);
    for (unsigned bytes = 0; bytes < kColumnHeight * kColumnBytesPerLine; bytes += 63) {
        pcx.push_back(std::byte{0xFF});
        pcx.push_back(std::byte{0});
    }
    std::vector<Sff1Subfile> subfiles;
    for (std::size_t i = 0; i < count; ++i) {
        subfiles.push_back(Shown(0, static_cast<std::int16_t>(i), pcx));
    }
    return WriteSff1(subfiles);
}

}  // namespace scenara::test
