// SPDX-License-Identifier: MIT
#include "editor/ImageSets.h"

#include <gtest/gtest.h>

namespace scenara {
namespace {

ImageSurface Loaded(Long savedWidth, std::weak_ptr<Bitmap>& held) {
    ImageSurface image;
    image.saved = std::make_shared<Bitmap>(Bitmap{savedWidth, 1, {0}});
    image.surface.selected = std::make_shared<Bitmap>(Bitmap{99, 1, {0}});
    held = image.surface.selected;
    return image;
}

class ReleasedImages : public testing::Test {
protected:
    ReleasedImages() {
        for (ImageSet& set : sets.sets) {
            for (SurfaceImage& image : set.images) {
                image.image = Loaded(++count, held.emplace_back());
                image.mask = Loaded(++count, held.emplace_back());
            }
        }
        sets.loaded = true;
    }

    ImageSets sets{{ImageSet{std::vector<SurfaceImage>(2)}, ImageSet{},
                    ImageSet{std::vector<SurfaceImage>(1)}}};
    Long count = 0;
    std::vector<std::weak_ptr<Bitmap>> held;
};

TEST_F(ReleasedImages, EverySurfaceHasItsOwnBitmapBack) {
    ReleaseImageSurfaces(sets);
    Long wanted = 0;
    for (const ImageSet& set : sets.sets) {
        for (const SurfaceImage& image : set.images) {
            EXPECT_EQ(image.image.surface.selected->width, ++wanted);
            EXPECT_EQ(image.mask.surface.selected->width, ++wanted);
        }
    }
    EXPECT_EQ(wanted, 6);
}

TEST_F(ReleasedImages, TheBitmapsOfImagesAndMasksAreGone) {
    ReleaseImageSurfaces(sets);
    EXPECT_EQ(held.size(), 6U);
    for (const std::weak_ptr<Bitmap>& bitmap : held) {
        EXPECT_TRUE(bitmap.expired());
    }
}

TEST_F(ReleasedImages, NothingCountsAsLoaded) {
    ReleaseImageSurfaces(sets);
    EXPECT_FALSE(sets.loaded);
}

TEST_F(ReleasedImages, ReleasedAgainKeepTheirOwnBitmaps) {
    ReleaseImageSurfaces(sets);
    ReleaseImageSurfaces(sets);
    EXPECT_EQ(sets.sets[0].images[0].image.surface.selected->width, 1);
}

TEST(ImageSetList, OfAProgramThatLoadedNoneHasNothingToRelease) {
    ImageSets sets;
    EXPECT_FALSE(sets.loaded);
    ReleaseImageSurfaces(sets);
    EXPECT_FALSE(sets.loaded);
}

}  // namespace
}  // namespace scenara
