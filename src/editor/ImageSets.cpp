// SPDX-License-Identifier: MIT
#include "editor/ImageSets.h"

#include <utility>

namespace scenara {
namespace {

void Release(ImageSurface& image) {
    // A surface that was released already keeps what it has.
    if (image.saved) {
        image.surface.selected = std::exchange(image.saved, nullptr);
    }
}

}  // namespace

void ReleaseImageSurfaces(ImageSets& imageSets) {
    for (ImageSet& set : imageSets.sets) {
        for (SurfaceImage& image : set.images) {
            Release(image.image);
            Release(image.mask);
        }
    }
    imageSets.loaded = false;
}

}  // namespace scenara
