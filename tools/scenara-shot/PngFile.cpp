// SPDX-License-Identifier: MIT
#include "scenara-shot/PngFile.h"

#include <vector>

#include <png.h>

#include "base/RunTimeError.h"

namespace scenara {

void WritePngFile(const std::string& path, std::span<const std::uint32_t> pixels,
                  std::int32_t width, std::int32_t height, std::int32_t pitch) {
    std::vector<std::uint8_t> bytes;
    bytes.reserve(static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * 4);
    for (std::int32_t y = 0; y < height; ++y) {
        const auto line =
            pixels.subspan(static_cast<std::size_t>(y) * static_cast<std::size_t>(pitch),
                           static_cast<std::size_t>(width));
        for (const std::uint32_t pixel : line) {
            bytes.push_back(static_cast<std::uint8_t>(pixel >> 16U));
            bytes.push_back(static_cast<std::uint8_t>(pixel >> 8U));
            bytes.push_back(static_cast<std::uint8_t>(pixel));
            bytes.push_back(static_cast<std::uint8_t>(pixel >> 24U));
        }
    }
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    image.width = static_cast<png_uint_32>(width);
    image.height = static_cast<png_uint_32>(height);
    image.format = PNG_FORMAT_RGBA;
    if (png_image_write_to_file(&image, path.c_str(), 0, bytes.data(), 0, nullptr) == 0) {
        throw RunTimeError(RunTimeErrorKind::DeviceIo,
                           path + " (" + static_cast<const char*>(image.message) + ")");
    }
}

}  // namespace scenara
