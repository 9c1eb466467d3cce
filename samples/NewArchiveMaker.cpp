// SPDX-License-Identifier: MIT
#include "NewArchiveMaker.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace scenara::samples {

using samplemaker::Sff2Palette;
using samplemaker::Sff2Sprite;

std::uint16_t NewArchiveMaker::AddPalette(const samplemaker::Palette& palette,
                                          std::size_t colours) {
    const auto number = static_cast<std::uint16_t>(archive_.palettes.size());
    Sff2Palette added = samplemaker::Sff2PaletteOf(palette, colours);
    added.item = static_cast<std::uint16_t>(number + 1);
    archive_.palettes.push_back(std::move(added));
    return number;
}

void NewArchiveMaker::AddAt(const Place& place, Sff2Sprite sprite, std::uint16_t palette) {
    sprite.group = static_cast<std::uint16_t>(place.group);
    sprite.image = static_cast<std::uint16_t>(place.image);
    sprite.axisX = static_cast<std::int16_t>(place.axisX);
    sprite.axisY = static_cast<std::int16_t>(place.axisY);
    sprite.palette = palette;
    archive_.sprites.push_back(std::move(sprite));
}

void NewArchiveMaker::Add(const Place& place, const IndexedPicture& picture, Sff2Coding coding,
                          std::uint16_t palette) {
    AddAt(place, samplemaker::Sff2SpriteOf(picture, coding), palette);
}

void NewArchiveMaker::Add(const Place& place, const AlphaPicture& picture, Sff2Coding coding) {
    AddAt(place, samplemaker::Sff2SpriteOf(picture, coding), 0);
}

void NewArchiveMaker::AddAll(const Place& first, const Pictures& pictures, Sff2Coding coding,
                             std::uint16_t palette) {
    Place place = first;
    for (const IndexedPicture& picture : pictures) {
        Add(place, picture, coding, palette);
        ++place.image;
    }
}

void NewArchiveMaker::AddAll(const Place& first, const AlphaPictures& pictures, Sff2Coding coding) {
    Place place = first;
    for (const AlphaPicture& picture : pictures) {
        Add(place, picture, coding);
        ++place.image;
    }
}

void NewArchiveMaker::AddLinked(const Place& place, SpriteName shown, std::uint16_t palette) {
    const auto found = std::ranges::find_if(archive_.sprites, [&](const Sff2Sprite& sprite) {
        return sprite.group == shown.group && sprite.image == shown.image;
    });
    if (found == archive_.sprites.end()) {
        throw std::invalid_argument("a linked sprite shows one that is not there");
    }
    Sff2Sprite sprite;
    // What is linked to names its picture itself: readers need not follow links to links.
    sprite.link = found->data.empty()
                      ? found->link
                      : static_cast<std::uint16_t>(found - archive_.sprites.begin());
    sprite.width = found->width;
    sprite.height = found->height;
    sprite.format = found->format;
    sprite.depth = found->depth;
    AddAt(place, std::move(sprite), palette);
}

}  // namespace scenara::samples
