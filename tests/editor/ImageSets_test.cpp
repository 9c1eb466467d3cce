// SPDX-License-Identifier: MIT
#include "editor/ImageSets.h"

#include <gtest/gtest.h>

#include "support/LoadedImages.h"

namespace scenara {
namespace {

class ReleasedImages : public testing::Test {
protected:
    ImageSets sets;
    test::LoadedImages images{sets};
};

TEST_F(ReleasedImages, EverySurfaceHasItsOwnBitmapBack) {
    ReleaseImageSurfaces(sets);
    images.ExpectOwnBitmapsBack();
}

TEST_F(ReleasedImages, TheBitmapsOfImagesAndMasksAreGone) {
    images.ExpectLoaded();
    ReleaseImageSurfaces(sets);
    images.ExpectBitmapsGone();
}

TEST_F(ReleasedImages, NothingCountsAsLoaded) {
    ReleaseImageSurfaces(sets);
    EXPECT_FALSE(sets.loaded);
}

TEST_F(ReleasedImages, ReleasedAgainKeepTheirOwnBitmaps) {
    ReleaseImageSurfaces(sets);
    ReleaseImageSurfaces(sets);
    images.ExpectOwnBitmapsBack();
}

TEST(ImageSetList, OfAProgramThatLoadedNoneHasNothingToRelease) {
    ImageSets sets;
    EXPECT_FALSE(sets.loaded);
    ReleaseImageSurfaces(sets);
    EXPECT_FALSE(sets.loaded);
}

}  // namespace
}  // namespace scenara
