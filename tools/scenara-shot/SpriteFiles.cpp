// SPDX-License-Identifier: MIT
#include "scenara-shot/SpriteFiles.h"

#include <filesystem>
#include <system_error>

#include "base/Path.h"
#include "base/RunTimeError.h"
#include "scenara-shot/PngFile.h"

namespace scenara {
namespace {

std::string NameOf(const SpriteEntry& sprite) {
    std::string number = std::to_string(sprite.selfIndex);
    number.insert(0, number.size() < 4 ? 4 - number.size() : 0, '0');
    return number + "_" + std::to_string(sprite.group) + "_" + std::to_string(sprite.image) +
           ".png";
}

}  // namespace

void WriteSpriteFiles(const StageModel& model, const std::string& folder) {
    std::error_code error;
    std::filesystem::create_directories(folder, error);
    if (error) {
        throw RunTimeError(RunTimeErrorKind::PathFileAccess, folder + " (" + error.message() + ")");
    }
    for (const SpriteEntry& sprite : model.Sprites) {
        const LockedPixels pixels = sprite.texture->LockRect();
        WritePngFile(JoinPath(folder, NameOf(sprite)), pixels.words, sprite.width, sprite.height,
                     pixels.pitch);
        sprite.texture->UnlockRect();
    }
}

}  // namespace scenara
