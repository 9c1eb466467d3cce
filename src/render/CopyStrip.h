// SPDX-License-Identifier: MIT
//
// CopyStrip, an addition: the copies of a picture side by side, as lines of one picture.
//
// At a scale that is not whole a texture's own repeats do not stand for copies, for each of these
// is rounded by itself; and of a picture of a few pixels the canvas may show a million. They are
// laid into the strip once, and each line of the canvas shows all of them with one quad.
#pragma once

#include <cstdint>
#include <vector>

#include "base/NotCopied.h"
#include "platform/Direct3D8.h"
#include "render/DrawOptions.h"
#include "render/ScaledCopies.h"
#include "render/Tiling.h"
#include "stage/StageModel.h"
#include "stage/ViewOptions.h"

namespace scenara {

// Lines of the picture, as it is drawn, with its copies where they stand in these columns of the
// canvas. Where some lie upon one another the last one is seen, and none through it.
struct CopiesAlongLines {
    const ScaledCopies& copies;
    PixelRange columns;
    PixelRange lines;
};

// How a strip shows the picture.
struct StripStyle {
    bool mirrored = false;  // left to right
    bool flipped = false;   // top to bottom
    bool solid = false;     // transparent pixels in their colour
};

class CopyStrip : NotCopied {
public:
    // Copies that are laid lie no deeper upon one another.
    static constexpr std::int64_t kDeepestAlong = 64;

    // Pixels of the canvas, and lines of a picture. Raises RunTimeError "Out of memory".
    CopyStrip(TextureMaker& maker, Long width, Long lines);

    // Whether it has room for these lines.
    [[nodiscard]] bool Holds(const SpriteEntry& sprite, const CopiesAlongLines& along) const;

    // Its first lines show these, at their columns; gaps are transparent. It has room for them.
    void Lay(const SpriteEntry& sprite, const StripStyle& style, const CopiesAlongLines& along);

    // Of which texture and size count.
    [[nodiscard]] const SpriteEntry& Picture() const { return picture_; }
    [[nodiscard]] bool HasGaps() const { return hasGaps_; }

private:
    void FindTexels(const SpriteEntry& sprite, bool mirrored, const CopiesAlongLines& along);

    SpriteEntry picture_;
    std::vector<std::int32_t> texels_;  // that columns show, kGap for none
    bool hasGaps_ = false;
};

// How many lines a strip needs for all that a stage's elements may come to show, 0 for none.
[[nodiscard]] Long StripLines(const StageModel& model, const ViewOptions& options,
                              const View& view);

// Whether lines of a strip are cheaper than copies by themselves, where so many copies are to be
// shown on so many lines.
[[nodiscard]] constexpr bool IsStripCheaper(double copies, std::int64_t lines) {
    return copies > 2 * static_cast<double>(lines) + 8;
}

}  // namespace scenara
