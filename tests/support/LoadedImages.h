// SPDX-License-Identifier: MIT
//
// LoadedImages: image sets as the editor has them while it uses them, and what must be true of them
// when they are released.
#pragma once

#include <memory>
#include <vector>

#include <gtest/gtest.h>

#include "editor/ImageSets.h"

namespace scenara::test {

// Three images in three sets, one of them empty. The surfaces came with bitmaps 1, 2, 3, ... wide,
// image before mask.
class LoadedImages {
public:
    explicit LoadedImages(ImageSets& sets) : sets_(sets) {
        sets.sets = {ImageSet{std::vector<SurfaceImage>(2)}, ImageSet{},
                     ImageSet{std::vector<SurfaceImage>(1)}};
        for (ImageSurface* const surface : Surfaces()) {
            Load(*surface);
        }
        sets.loaded = true;
    }

    void ExpectLoaded() {
        EXPECT_TRUE(sets_.loaded);
        for (const std::weak_ptr<Bitmap>& bitmap : held_) {
            EXPECT_FALSE(bitmap.expired());
        }
    }

    void ExpectOwnBitmapsBack() {
        Long wanted = 0;
        for (const ImageSurface* const surface : Surfaces()) {
            ASSERT_NE(surface->surface.selected, nullptr);
            EXPECT_EQ(surface->surface.selected->width, ++wanted);
        }
        EXPECT_EQ(wanted, 6);
    }

    void ExpectBitmapsGone() {
        EXPECT_EQ(held_.size(), 6U);
        for (const std::weak_ptr<Bitmap>& bitmap : held_) {
            EXPECT_TRUE(bitmap.expired());
        }
    }

    void ExpectReleased() {
        EXPECT_FALSE(sets_.loaded);
        ExpectOwnBitmapsBack();
        ExpectBitmapsGone();
    }

private:
    std::vector<ImageSurface*> Surfaces() {
        std::vector<ImageSurface*> surfaces;
        for (ImageSet& set : sets_.sets) {
            for (SurfaceImage& image : set.images) {
                surfaces.push_back(&image.image);
                surfaces.push_back(&image.mask);
            }
        }
        return surfaces;
    }

    void Load(ImageSurface& surface) {
        surface.saved = std::make_shared<Bitmap>(Bitmap{++count_, 1, {0}});
        surface.surface.selected = std::make_shared<Bitmap>(Bitmap{99, 1, {0}});
        held_.push_back(surface.surface.selected);
    }

    ImageSets& sets_;
    Long count_ = 0;
    std::vector<std::weak_ptr<Bitmap>> held_;
};

}  // namespace scenara::test
