// SPDX-License-Identifier: MIT
//
// ImageSets: the debug editor's image surfaces. Each image, and each image's mask, is a bitmap that
// is selected into a drawing surface of its own, in the place of the one the surface came with.
// Kept: nothing loads any (ImageSetList.OfAProgramThatLoadedNoneHasNothingToRelease).
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "base/Integers.h"

namespace scenara {

struct Bitmap {
    Long width = 0;
    Long height = 0;
    std::vector<std::uint32_t> pixels;  // ARGB, line by line
};

// Draws on the bitmap that is selected into it.
struct DrawingSurface {
    std::shared_ptr<Bitmap> selected;
};

struct ImageSurface {
    DrawingSurface surface;
    std::shared_ptr<Bitmap> saved;  // what the surface held before
};

struct SurfaceImage {
    ImageSurface image;
    ImageSurface mask;
};

struct ImageSet {
    std::vector<SurfaceImage> images;
};

struct ImageSets {
    std::vector<ImageSet> sets;
    // The debug state: whether there is anything to clean up when the window unloads.
    bool loaded = false;
};

// Every surface gets its saved bitmap back, the bitmap that it held is deleted, and nothing counts
// as loaded any more.
void ReleaseImageSurfaces(ImageSets& imageSets);

}  // namespace scenara
