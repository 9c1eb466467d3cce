// SPDX-License-Identifier: MIT
#include "render/ElementPieces.h"

#include <limits>
#include <random>

#include <gtest/gtest.h>

#include "render/ExpectError.h"
#include "render/StageBuilder.h"

namespace scenara::test {
namespace {

class Seen : public testing::Test {
protected:
    Seen() { element.linkParent = -1; }

    StageModel model;
    StageBuilder build{model};
    BackgroundElement& element = build.Still(build.Sprite("picture", 30, 20));
};

TEST_F(Seen, IsEveryStillThatIsInViewAndNoneThatIsFarFromIt) {
    std::mt19937 random(5);
    std::uniform_real_distribution<Single> far(-60, 380);
    std::uniform_real_distribution<Single> near(-3, 3);
    int inView = 0;
    for (int round = 0; round < 20000; ++round) {
        // Half of them stand about an edge.
        const bool edge = round % 2 == 0;
        element.posX = edge ? near(random) + (round % 4 == 0 ? 320.0F : -30.0F) : far(random);
        element.posY = edge ? near(random) + (round % 8 < 4 ? 240.0F : -20.0F) : far(random);
        element.sinOffset = {near(random), near(random)};
        element.ctrlOffset = {near(random), near(random)};
        const auto placed = PlaceElement(model, element, {});
        ASSERT_TRUE(placed.has_value());
        const Long x = WholePixel(placed->x, false);
        const Long y = WholePixel(placed->y, false);
        const auto within = [&](Long border) {
            return x < View().width + border && x + 30 > -border && y < View().height + border &&
                   y + 20 > -border;
        };
        inView += within(0) ? 1 : 0;
        if (within(0)) {
            ASSERT_TRUE(MayBeSeen(model, element, {})) << x << ", " << y;
        } else if (!within(2)) {
            ASSERT_FALSE(MayBeSeen(model, element, {})) << x << ", " << y;
        }
    }
    EXPECT_GT(inView, 2000);
}

TEST_F(Seen, IsWhateverIsNoSinglePicture) {
    element.posX = 5000;
    EXPECT_FALSE(MayBeSeen(model, element, {}));
    element.tileX = 1;
    EXPECT_TRUE(MayBeSeen(model, element, {}));
    element.tileX = 0;
    element.tileY = 3;
    EXPECT_TRUE(MayBeSeen(model, element, {}));
    element.tileY = 0;
    element.kind = ElementKind::Parallax;
    EXPECT_TRUE(MayBeSeen(model, element, {}));
    element.kind = ElementKind::Animated;
    EXPECT_TRUE(MayBeSeen(model, element, {}));
}

TEST_F(Seen, IsNothingWithoutAPlace) {
    element.posX = std::numeric_limits<Single>::quiet_NaN();
    EXPECT_FALSE(MayBeSeen(model, element, {}));
    element.posX = -std::numeric_limits<Single>::infinity();
    EXPECT_FALSE(MayBeSeen(model, element, {}));
}

TEST_F(Seen, WithASpriteOutsideOfTheTableIsAnError) {
    element.spriteIndex = 1;
    ExpectError(RunTimeErrorKind::SubscriptOutOfRange,
                [&] { static_cast<void>(MayBeSeen(model, element, {})); });
}

}  // namespace
}  // namespace scenara::test
