// SPDX-License-Identifier: MIT
//
// NewArchiveMaker: pictures in, a sprite archive of version 2.01 out.
//
// Such an archive has a table of palettes besides that of its sprites, and each sprite a coding of
// its own. Indexed pictures name a palette by its number; a linked sprite names one, too, so one
// picture comes in as many colours as one likes. Pictures with alpha need none.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "ArchiveMaker.h"
#include "painting/AlphaPainting.h"
#include "samplemaker/Sff2Pictures.h"
#include "samplemaker/Sff2Writer.h"

namespace scenara::samples {

using samplemaker::AlphaPicture;
using samplemaker::Sff2Coding;

struct SpriteName {
    int group = 0;
    int image = 0;
};

class NewArchiveMaker {
public:
    // The first `colours` of the palette. Gives its number.
    std::uint16_t AddPalette(const samplemaker::Palette& palette, std::size_t colours);

    void Add(const Place& place, const IndexedPicture& picture, Sff2Coding coding,
             std::uint16_t palette);
    void Add(const Place& place, const AlphaPicture& picture, Sff2Coding coding);

    // The moments of an animation, numbered from `first.image` on.
    void AddAll(const Place& first, const Pictures& pictures, Sff2Coding coding,
                std::uint16_t palette);
    void AddAll(const Place& first, const AlphaPictures& pictures, Sff2Coding coding);

    // A sprite that shows the picture of another one, in colours of its own. Raises
    // std::invalid_argument where that one has not been added.
    void AddLinked(const Place& place, SpriteName shown, std::uint16_t palette);

    [[nodiscard]] std::vector<std::byte> Bytes() const { return samplemaker::WriteSff2(archive_); }

private:
    void AddAt(const Place& place, samplemaker::Sff2Sprite sprite, std::uint16_t palette);

    samplemaker::Sff2Archive archive_;
};

}  // namespace scenara::samples
