// SPDX-License-Identifier: MIT
#include "scenara-shot/FrameFiles.h"

#include <algorithm>
#include <vector>

#include "base/RunTimeError.h"
#include "base/Text.h"
#include "scenara-shot/PngFile.h"

namespace scenara {

std::string FrameFileName(const std::string& file, std::int32_t frame) {
    constexpr std::string_view kExtension = ".png";
    const bool hasExtension =
        file.size() >= kExtension.size() &&
        EqualsIgnoringCase(std::string_view(file).substr(file.size() - kExtension.size()),
                           kExtension);
    const std::size_t stem = hasExtension ? file.size() - kExtension.size() : file.size();
    std::string number = std::to_string(frame);
    number.insert(0, number.size() < 5 ? 5 - number.size() : 0, '0');
    return file.substr(0, stem) + "-" + number + file.substr(stem);
}

void WriteFrameFile(const std::string& path, const CanvasSize& size,
                    std::span<const std::uint32_t> pixels) {
    const std::size_t count =
        static_cast<std::size_t>(size.width) * static_cast<std::size_t>(size.height);
    if (pixels.size() < count) {
        throw RunTimeError(RunTimeErrorKind::SubscriptOutOfRange, path);
    }
    std::vector<std::uint32_t> opaque(count);
    std::ranges::transform(pixels.first(count), opaque.begin(),
                           [](std::uint32_t pixel) { return pixel | 0xFF000000U; });
    WritePngFile(path, opaque, size.width, size.height, size.width);
}

}  // namespace scenara
