// SPDX-License-Identifier: MIT
#include "character/CharacterColors.h"

#include <algorithm>
#include <utility>

#include "base/RunTimeError.h"

namespace scenara {

std::optional<PaletteBytes> ReadActPalette(Files& files, const std::string& path) {
    PaletteBytes bytes{};
    try {
        if (files.OpenForReading(path)->ReadAt(0, bytes) < bytes.size()) {
            return std::nullopt;
        }
    } catch (const RunTimeError&) {
        return std::nullopt;
    }
    // The bytes backwards are the colours from the first one on, each as blue, green, red.
    std::ranges::reverse(bytes);
    for (std::size_t i = 0; i < bytes.size(); i += 3) {
        std::swap(bytes[i], bytes[i + 2]);
    }
    return bytes;
}

}  // namespace scenara
