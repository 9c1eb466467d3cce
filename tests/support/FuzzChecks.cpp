// SPDX-License-Identifier: MIT
#include "support/FuzzChecks.h"

#include <cstdio>
#include <cstdlib>

#include "samplemaker/PcxWriter.h"
#include "samplemaker/Sff1Writer.h"

namespace scenara::test {
namespace {

bool IsIndex(Integer index, std::size_t size) {
    return index == -1 || (index >= 0 && static_cast<std::size_t>(index) < size);
}

template <typename Table>
bool Counts(const Table& table, Integer count) {
    return count >= 0 && table.size() == static_cast<std::size_t>(count);
}

// Reading every pixel lets the sanitizer see memory that is not the texture's.
void TouchPixels(const SpriteEntry& sprite) {
    Require(sprite.texture != nullptr, "every sprite has a texture");
    Require(sprite.texture->Width() == sprite.width && sprite.texture->Height() == sprite.height,
            "a sprite has its texture's size");
    const LockedPixels pixels = sprite.texture->LockRect();
    Require(pixels.pitch >= sprite.width, "a line holds the width");
    std::uint32_t sum = 0;
    for (std::int32_t y = 0; y < sprite.height; ++y) {
        for (std::int32_t x = 0; x < sprite.width; ++x) {
            sum += pixels.words[static_cast<std::size_t>(y * pixels.pitch + x)];
        }
    }
    sprite.texture->UnlockRect();
    const volatile std::uint32_t kept = sum;
    static_cast<void>(kept);
}

samplemaker::IndexedPicture SmallPicture(int width, int height) {
    samplemaker::IndexedPicture picture;
    picture.width = width;
    picture.height = height;
    for (int i = 0; i < width * height; ++i) {
        picture.pixels.push_back(static_cast<std::uint8_t>(i * 7 / 3));
    }
    for (std::size_t i = 0; i < picture.palette.size(); ++i) {
        const auto level = static_cast<std::uint8_t>(i);
        picture.palette[i] = {level, static_cast<std::uint8_t>(255 - i), level};
    }
    return picture;
}

}  // namespace

void Require(bool holds, const char* promise) {
    if (!holds) {
        std::fprintf(stderr, "Broken promise: %s\n", promise);
        std::abort();
    }
}

void CheckModel(const StageModel& model) {
    Require(Counts(model.Elements, model.ElementCount), "elements are counted");
    Require(Counts(model.Sprites, model.SpriteCount), "sprites are counted");
    Require(Counts(model.Actions, model.ActionCount), "actions are counted");
    Require(Counts(model.CtrlDefs, model.CtrlDefCount), "control groups are counted");
    for (const BackgroundElement& element : model.Elements) {
        Require(element.type != "null", "no null element is kept");
        const bool frames = element.type == "anim" || element.spriteIndex == kPicturesOfAction;
        Require(element.spriteIndex == kPicturesOfAction ||
                    IsIndex(element.spriteIndex, model.Sprites.size()),
                "elements find their sprite");
        Require(element.tileX >= 0 && element.tileY >= 0, "no tile count is negative");
        if (frames) {
            Require(IsIndex(element.actionIndex, model.Actions.size()), "or their action");
        }
    }
    for (const StageAction& action : model.Actions) {
        Require(Counts(action.frames, action.frameCount), "frames are counted");
        for (const StageFrame& frame : action.frames) {
            Require(IsIndex(frame.spriteIndex, model.Sprites.size()), "frames find their sprite");
        }
    }
    for (const BgCtrlDef& group : model.CtrlDefs) {
        Require(Counts(group.controls, group.controlCount), "controls are counted");
        Require(group.ctrlIds.size() <= kMaxCtrlIds, "id lists end");
    }
    for (std::size_t i = 0; i < model.Sprites.size(); ++i) {
        const SpriteEntry& sprite = model.Sprites[i];
        Require(sprite.selfIndex == static_cast<Integer>(i), "sprites know their place");
        Require(sprite.linkedTo < sprite.selfIndex, "links lead back");
        TouchPixels(sprite);
    }
}

std::string SmallArchiveBytes() {
    using samplemaker::PcxOptions;
    using samplemaker::Sff1Subfile;
    const PcxOptions noPalette{.trailingPalette = samplemaker::TrailingPalette::None};
    std::vector<Sff1Subfile> subfiles(3);
    subfiles[0].data = WritePcx(SmallPicture(9, 7));
    subfiles[1].image = 1;
    subfiles[1].samePalette = true;
    subfiles[1].data = WritePcx(SmallPicture(5, 3), noPalette);
    subfiles[2].group = 1;
    subfiles[2].linkIndex = 1;
    const std::vector<std::byte> bytes = WriteSff1(subfiles);
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

}  // namespace scenara::test
