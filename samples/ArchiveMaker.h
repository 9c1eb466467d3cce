// SPDX-License-Identifier: MIT
//
// ArchiveMaker: pictures in, a sprite archive out, the way stage authors' tools lay it out.
//
// Sprites lie in the archive in the order in which they are added. A sprite either brings its own
// 256 colours or says that it uses those of the one before it; then they are left out of its
// data, as MUGEN's own tool does. A place's axis is the point of the picture that is laid on an
// element's start.
#pragma once

#include <cstddef>
#include <vector>

#include "samplemaker/Picture.h"
#include "samplemaker/Sff1Writer.h"

namespace scenara::samples {

using samplemaker::IndexedPicture;
using Pictures = std::vector<IndexedPicture>;

enum class PaletteFrom { Own, OfTheOneBefore };

struct Place {
    int group = 0;
    int image = 0;
    int axisX = 0;
    int axisY = 0;
};

class ArchiveMaker {
public:
    void Add(const Place& place, const IndexedPicture& picture,
             PaletteFrom palette = PaletteFrom::Own);

    // The moments of an animation, numbered from `first.image` on; one palette serves all.
    void AddAll(const Place& first, const Pictures& pictures,
                PaletteFrom palette = PaletteFrom::Own);

    // A sprite that shows the picture added `back` sprites ago.
    void AddLinked(const Place& place, int back);

    [[nodiscard]] std::vector<std::byte> Bytes() const { return samplemaker::WriteSff1(sprites_); }

private:
    std::vector<samplemaker::Sff1Subfile> sprites_;
};

}  // namespace scenara::samples
