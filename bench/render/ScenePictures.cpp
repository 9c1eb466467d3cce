// SPDX-License-Identifier: MIT
#include "render/ScenePictures.h"

#include <algorithm>
#include <stdexcept>
#include <string>

#include "platform/headless/HeadlessMessages.h"
#include "platform/headless/HeadlessWindow.h"
#include "platform/posix/PosixFiles.h"
#include "platform/soft/SoftDevice.h"
#include "sprites/sff2.h"
#include "support/ArchiveFiles.h"
#include "support/StageFolders.h"

namespace scenara::bench {
namespace {

std::vector<std::string> Archives() {
    std::vector<std::string> paths = SampleDataArchives();
    const std::string stages = BundledFolder() + "stages/";
    for (const std::string& name : PosixFiles("").List(stages, ".sff")) {
        paths.push_back(stages + name);
    }
    return paths;
}

ScenePicture PictureOf(const SpriteEntry& sprite) {
    const LockedPixels locked = sprite.texture->LockRect();
    ScenePicture picture{sprite.width, sprite.height, {}};
    for (int y = 0; y < sprite.height; ++y) {
        const auto line = locked.words.subspan(static_cast<std::size_t>(y * locked.pitch),
                                               static_cast<std::size_t>(sprite.width));
        picture.pixels.insert(picture.pixels.end(), line.begin(), line.end());
    }
    sprite.texture->UnlockRect();
    return picture;
}

void AddArchive(std::vector<ScenePicture>& pictures, const std::string& path) {
    PosixFiles files("");
    SoftDevice device;
    HeadlessWindow window;
    HeadlessMessages messages;
    StageModel model;
    const auto file = files.OpenForReading(path);
    const ViewOptions options;
    LoadSprites(model, {*file, path, device, messages, options}, window);
    for (const SpriteEntry& sprite : model.Sprites) {
        if (sprite.linkedTo < 0) {
            pictures.push_back(PictureOf(sprite));
        }
    }
}

ScenePicture PictureOf(const samplemaker::IndexedPicture& drawn) {
    ScenePicture picture{drawn.width, drawn.height, {}};
    for (const std::uint8_t index : drawn.pixels) {
        const samplemaker::Rgb color = drawn.palette[index];
        const std::uint32_t alpha = index == 0 ? 0 : 255;
        picture.pixels.push_back(alpha << 24U | std::uint32_t{color.red} << 16U |
                                 std::uint32_t{color.green} << 8U | color.blue);
    }
    return picture;
}

bool IsAsWanted(const ScenePicture& picture, const WantedPicture& wanted) {
    if (!wanted.width.Contain(picture.width) || !wanted.height.Contain(picture.height)) {
        return false;
    }
    const PictureNumbers numbers = NumbersOf(picture);
    return wanted.clear.Contain(numbers.clear) && wanted.spansPerLine.Contain(numbers.spansPerLine);
}

}  // namespace

ScenePictures::ScenePictures() {
    for (const std::string& path : Archives()) {
        AddArchive(found_, path);
    }
}

ScenePicture ScenePictures::Take(const WantedPicture& wanted) {
    const auto found = std::ranges::find_if(
        found_, [&](const ScenePicture& picture) { return IsAsWanted(picture, wanted); });
    if (found == found_.end()) {
        return Draw(wanted);
    }
    ScenePicture picture = std::move(*found);
    found_.erase(found);
    picture.masked = wanted.masked;
    return picture;
}

ScenePicture ScenePictures::Draw(const WantedPicture& wanted) {
    constexpr int kTries = 1000;
    for (int i = 0; i < kTries; ++i) {
        ++seed_;
        // Steps of the golden section: whatever few sizes are drawn are spread over the bounds.
        const auto within = [&](const Bounds<int>& bounds, std::uint32_t factor) {
            const std::uint32_t step = seed_ * factor % 1000;
            return bounds.least + (bounds.most - bounds.least) * static_cast<int>(step) / 999;
        };
        ScenePicture picture =
            PictureOf(wanted.draw(within(wanted.width, 618), within(wanted.height, 382), seed_));
        if (IsAsWanted(picture, wanted)) {
            picture.masked = wanted.masked;
            return picture;
        }
    }
    throw std::runtime_error("no such picture can be drawn");
}

}  // namespace scenara::bench
