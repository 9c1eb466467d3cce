// SPDX-License-Identifier: MIT
#include "render/ElementPlacement.h"

#include <limits>

#include <gtest/gtest.h>

#include "render/ExpectError.h"
#include "render/StageBuilder.h"

namespace scenara::test {
namespace {

class Placement : public testing::Test {
protected:
    // Not linked, and there.
    static BackgroundElement& Ready(BackgroundElement& element, Single x, Single y) {
        element.posX = x;
        element.posY = y;
        element.linkParent = -1;
        element.visible = 1;
        element.enabled = 1;
        return element;
    }
    void Expect(const BackgroundElement& element, Integer slot, Long x, Long y) {
        const auto picture = PlaceElement(model, element, {});
        ASSERT_TRUE(picture.has_value());
        EXPECT_EQ(picture->slot, slot);
        EXPECT_EQ(WholePixel(picture->x, false), x);
        EXPECT_EQ(WholePixel(picture->y, false), y);
        EXPECT_FALSE(picture->mirrored);
    }

    StageModel model;
    StageBuilder build{model};
    const Integer hill = build.Sprite("hill", 64, 32, 20, 30);
    const Integer fire = build.Sprite("fire", 16, 24, 8, 23);
};

TEST_F(Placement, OfAStillPictureIsItsPosition) {
    Expect(Ready(build.Still(hill), 12, 34), hill, 12, 34);
    Expect(Ready(build.Parallax(fire), -12, -34), fire, -12, -34);
}

TEST_F(Placement, AddsTheSwingAndRoundsOnceTiesToEven) {
    BackgroundElement& element = Ready(build.Still(hill), 2.5F, 3.5F);
    Expect(element, hill, 2, 4);
    Ready(element, -0.5F, -1.5F);
    Expect(element, hill, 0, -2);
    Ready(element, 2.25F, 3.25F).sinOffset = {0.5F, 0.75F};
    Expect(element, hill, 3, 4);
    Ready(element, 10, 20).sinOffset = {3.25F, -4};
    Expect(element, hill, 13, 16);
}

TEST_F(Placement, OfAnAnimationTakesTheFramesOffsetAndItsSpritesAxis) {
    build.Action({{hill, 5, 3, 4}, {fire, 5, -100, 50}});
    BackgroundElement& element = Ready(build.Animation(0), 160, 120);
    Expect(element, hill, 160 + 3 - 20, 120 + 4 - 30);
    element.frameIndex = 1;
    Expect(element, fire, 160 - 100 - 8, 120 + 50 - 23);
}

TEST_F(Placement, OfALinkedElementAddsWhatWasNotedOfItsParentAndNotItsOwnSwing) {
    build.Still(-1);
    BackgroundElement& element = Ready(build.Still(hill), 10, 20);
    element.linkParent = 0;
    element.sinOffset = {100, 100};
    element.linkSin = {3, -4};
    element.ctrlOffset = {50, 60};
    Expect(element, hill, 63, 76);
}

TEST_F(Placement, WithoutASpriteIsNone) {
    build.Action({{-1, 5}});
    build.Action({});
    for (BackgroundElement* const element : {&build.Dummy(), &build.Still(-1), &build.Animation(0),
                                             &build.Animation(1), &build.Animation(-1)}) {
        EXPECT_FALSE(PlaceElement(model, Ready(*element, 10, 20), {}).has_value())
            << element->type << " " << element->actionIndex;
    }
    model.Elements[0].spriteIndex = hill;
    EXPECT_FALSE(PlaceElement(model, model.Elements[0], {}).has_value()) << "a dummy";
}

TEST_F(Placement, IndicesOutsideOfTheirTablesAreErrors) {
    const auto expectError = [&](BackgroundElement& element) {
        Ready(element, 0, 0);
        ExpectError(RunTimeErrorKind::SubscriptOutOfRange,
                    [&] { static_cast<void>(PlaceElement(model, element, {})); });
    };
    const Integer action = build.Action({{hill, 5}, {hill, 5}});
    for (const Integer index : {Integer{2}, Integer{-2}, Integer{32767}}) {
        SCOPED_TRACE(index);
        expectError(build.Still(index));
        expectError(build.Animation(index));
        model.Actions[0].frames[0].spriteIndex = index;
        expectError(build.Animation(action));
    }
    for (const Integer index : {Integer{2}, Integer{-1}, Integer{32767}}) {
        BackgroundElement& element = build.Animation(action);
        element.frameIndex = index;
        expectError(element);
    }
}

TEST_F(Placement, BeyondReachIsNoneAndNoError) {
    constexpr Single kMost = std::numeric_limits<Single>::max();
    constexpr Single kInfinite = std::numeric_limits<Single>::infinity();
    constexpr Single kNoNumber = std::numeric_limits<Single>::quiet_NaN();
    for (const Single far : {3e9F, -3e9F, kMost, -kMost, kInfinite, -kInfinite, kNoNumber}) {
        SCOPED_TRACE(far);
        EXPECT_FALSE(PlaceElement(model, Ready(build.Still(hill), far, 0), {}).has_value());
        EXPECT_FALSE(PlaceElement(model, Ready(build.Still(hill), 0, far), {}).has_value());
    }
    Expect(Ready(build.Still(hill), 1e9F, -1e9F), hill, 1000000000, -1000000000);
}

TEST_F(Placement, OfTheLargestOffsetsDoesNotRunOver) {
    model.Sprites[0].axisX = -32768;
    model.Sprites[0].axisY = 32767;
    build.Action({{hill, 5, 32767, -32768}});
    Expect(Ready(build.Animation(0), 0, 0), hill, 65535, -65535);
}

TEST_F(Placement, SomethingToShowIsASpriteOrAnActionWithFrames) {
    EXPECT_TRUE(HasPictures(model, build.Still(hill)));
    EXPECT_FALSE(HasPictures(model, build.Still(-1)));
    const Integer blank = build.Action({{-1, 5}});
    const Integer empty = build.Action({});
    EXPECT_TRUE(HasPictures(model, build.Animation(blank)));
    EXPECT_FALSE(HasPictures(model, build.Animation(empty)));
    EXPECT_FALSE(HasPictures(model, build.Animation(-1)));
}

}  // namespace
}  // namespace scenara::test
