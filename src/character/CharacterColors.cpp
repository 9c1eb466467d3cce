// SPDX-License-Identifier: MIT
#include "character/CharacterColors.h"

#include <algorithm>
#include <memory>

#include "base/RunTimeError.h"

namespace scenara {

std::optional<PaletteBytes> ReadActPalette(Files& files, const std::string& path) {
    PaletteBytes bytes{};
    try {
        const std::unique_ptr<InputFile> file = files.OpenForReading(path);
        if (file->ReadAt(0, bytes) < bytes.size()) {
            return std::nullopt;
        }
    } catch (const RunTimeError&) {
        return std::nullopt;
    }
    PaletteBytes palette{};
    for (std::size_t i = 0; i < bytes.size(); i += 3) {
        std::copy_n(bytes.end() - 3 - static_cast<std::ptrdiff_t>(i), 3,
                    palette.begin() + static_cast<std::ptrdiff_t>(i));
    }
    return palette;
}

}  // namespace scenara
